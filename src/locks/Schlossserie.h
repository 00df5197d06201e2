#pragma once

#include "Record.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// Serial numbers of locks: four hexadecimal pairs joined by points, kept in four fields of three characters.
namespace qvm {

/// The fields of a record that hold a serial, in order.
using SerialFields = std::array<RecordField, 4>;

/// The trimmed parts of a record joined by points; empty when all four are blank.
std::string Serie_Lesen(const RecordFile& file, int record, const SerialFields& fields);

/// Cuts the text at its points into the four fields. A missing part is blank; what follows a fourth point is dropped.
void Serie_Schreiben(std::string& record, const SerialFields& fields, std::string_view serial);

/// The number of a serial that is written out, in four pairs; -1 for any other text.
std::int64_t Serie_Wert(std::string_view serial);

} // namespace qvm
