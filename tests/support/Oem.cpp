#include "Oem.h"

#include "Text.h"

#include <array>
#include <cstddef>

namespace qvm::test {

namespace {

/// Letters, in the order of their code page 850 bytes below.
constexpr std::string_view Letters = u8"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£ØáíóúñÑªº¿«»ÁÂÀãÃÊËÈÍÎÏÌÓßÔÒõÕµÚÛÙýÝ§°¨·¹³²"_w;

constexpr std::array<unsigned char, Letters.size()> OemBytes{
    0x80, 0x81, 0x82, 0x83, 0x84, 0x85, 0x86, 0x87, 0x88, 0x89, 0x8A, 0x8B, 0x8C, 0x8D, 0x8E, 0x8F, 0x90, 0x91,
    0x92, 0x93, 0x94, 0x95, 0x96, 0x97, 0x98, 0x99, 0x9A, 0x9B, 0x9C, 0x9D, 0xA0, 0xA1, 0xA2, 0xA3, 0xA4, 0xA5,
    0xA6, 0xA7, 0xA8, 0xAE, 0xAF, 0xB5, 0xB6, 0xB7, 0xC6, 0xC7, 0xD2, 0xD3, 0xD4, 0xD6, 0xD7, 0xD8, 0xDE, 0xE0,
    0xE1, 0xE2, 0xE3, 0xE4, 0xE5, 0xE6, 0xE9, 0xEA, 0xEB, 0xEC, 0xED, 0xF5, 0xF8, 0xF9, 0xFA, 0xFB, 0xFC, 0xFD};

char Zeichen(char character, bool toOem) {
    if (static_cast<unsigned char>(character) < 0x80) {
        return character;
    }
    for (std::size_t n = 0; n < OemBytes.size(); ++n) {
        const char oem = static_cast<char>(OemBytes[n]);
        if (character == (toOem ? Letters[n] : oem)) {
            return toOem ? oem : Letters[n];
        }
    }
    return '?';
}

std::string Umgesetzt(std::string_view text, bool toOem) {
    std::string out(text);
    for (char& character : out) {
        character = Zeichen(character, toOem);
    }
    return out;
}

} // namespace

std::string Nach_Oem(std::string_view text) {
    return Umgesetzt(text, true);
}
std::string Von_Oem(std::string_view text) {
    return Umgesetzt(text, false);
}

} // namespace qvm::test
