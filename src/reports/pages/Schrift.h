#pragma once

#include <string>
#include <string_view>

namespace qvm {

/// Thousandths of a point, of which an inch has 72.
using Milli = int;

/// How wide the text runs in the font of the reports (Helvetica), `size` in points.
Milli Textbreite(std::string_view cp1252, int size, bool bold);

/// Width of one character in thousandths of the font's size.
int Zeichenbreite(unsigned char character, bool bold);

/// A blank at which no line ends.
inline constexpr char FastBlank = '\xA0';

/// The text as it is drawn: control characters are blanks, the hyphen that hides is a hyphen, and "?" stands for the
/// five bytes that code page 1252 leaves undefined. A FastBlank stays.
std::string Drucktext(std::string_view cp1252);

} // namespace qvm
