#pragma once

#include "Record.h"

#include <string>
#include <string_view>

namespace qvm {

/// A field's text as a document shows it, code page 1252: up to the first 0x00, blanks on the right stripped, blanks on
/// the left kept, as some readers go by position. A mask is taken whole, with blanks and 0x00 stripped on the right.
std::string Feld_Export(std::string_view record, const RecordField& field);

/// True when every field is empty; a byte field counts as empty when it is 0.
bool Satz_Leer(std::string_view record, const RecordLayout& layout);

/// A record with every field empty, padded as the fields say.
std::string Leersatz(const RecordLayout& layout);

} // namespace qvm
