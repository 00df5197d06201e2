#pragma once

#include "Record.h"

#include <string_view>

namespace qvm {

/// Fills up what the file does not hold of records 1 to `last` with the bytes of an unused record, so that writing a
/// record behind them leaves none of 0x00.
void Satzluecken_Fuellen(RecordFile& file, int last, std::string_view unused);

} // namespace qvm
