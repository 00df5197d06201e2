#include "Steuerzeichen.h"

#include "Text.h"

#include <algorithm>

namespace qvm {

std::string Steuerzeichen_Ersetzen(std::string_view cp1252, char control, char undefined) {
    std::string text(cp1252);
    for (char& character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x80 && Ist_Steuerzeichen(byte)) {
            character = control;
        } else if (byte >= 0x80 && byte <= 0x9F && Ist_Steuerzeichen(Cp1252_80_9F[byte - 0x80U])) {
            character = undefined;
        }
    }
    return text;
}

std::string Steuerzeichen_Ersetzen_Utf8(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::size_t size = Utf8_Laenge(utf8);
        const auto first = static_cast<unsigned char>(utf8[0]);
        // The characters 0x80 to 0x9F are 0xC2 and the byte of that number.
        const bool above = size == 2 && first == 0xC2 && Ist_Steuerzeichen(static_cast<unsigned char>(utf8[1]));
        if (size == 0 || above) {
            text += '?';
        } else if (size == 1 && Ist_Steuerzeichen(first)) {
            text += ' ';
        } else {
            text += utf8.substr(0, size);
        }
        utf8.remove_prefix(std::max<std::size_t>(size, 1));
    }
    return text;
}

std::size_t Utf8_Laenge(std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    const auto byte = [&](std::size_t n) { return static_cast<unsigned char>(text[n]); };
    const unsigned lead = byte(0);
    const std::size_t size = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
    if (size > text.size()) {
        return 0;
    }
    for (std::size_t n = 1; n < size; ++n) {
        if ((byte(n) & 0xC0) != 0x80) {
            return 0;
        }
    }
    return size;
}

} // namespace qvm
