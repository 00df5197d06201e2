#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Control characters in texts that come from files, from the line or from the command line. They steer a terminal, end
/// a line of a file, and hide in a file's name, so that they reach none of these.
namespace qvm {

/// 0x00 to 0x1F, 0x7F, and 0x80 to 0x9F of Unicode, for which the undefined bytes of code page 1252 stand.
constexpr bool Ist_Steuerzeichen(char32_t codePoint) {
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint <= 0x9F);
}

/// A text of code page 1252 with `control` in the place of each control character below 0x80, and `undefined` in the
/// place of each byte that the code page leaves undefined.
std::string Steuerzeichen_Ersetzen(std::string_view cp1252, char control = ' ', char undefined = '?');

/// The same of a UTF-8 text: a blank for each control character below 0x80, "?" for each above and for each byte that
/// belongs to no UTF-8 character.
std::string Steuerzeichen_Ersetzen_Utf8(std::string_view utf8);

/// Bytes of the UTF-8 character that `text` begins with; 0 when it begins with none.
std::size_t Utf8_Laenge(std::string_view text);

} // namespace qvm
