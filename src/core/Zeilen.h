#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// The lines of a text that end in LF or CR LF, without their ends. A last line without an end counts; behind a last
/// line end there is no further line. A text of no bytes has no line.
std::vector<std::string> Zeilen_Lesen(std::string_view text);

/// The value cut or padded with blanks to `width` characters.
std::string Auf_Breite(std::string_view value, std::size_t width);

} // namespace qvm
