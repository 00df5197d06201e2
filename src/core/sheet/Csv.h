#pragma once

#include <string>
#include <string_view>

namespace qvm {

/// A field of a line that is separated by semicolons: in quotes where it holds a semicolon, a quote or a line end. One
/// that a spreadsheet would take for a formula, as it begins with = + - @, a tab or a carriage return, gets an
/// apostrophe in front, by which spreadsheets know a text; a "-" alone is none. The same in UTF-8 and code page 1252.
std::string Csv_Feld(std::string_view text);

} // namespace qvm
