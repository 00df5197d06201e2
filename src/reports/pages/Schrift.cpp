#include "Schrift.h"

#include "PdfBuch.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace qvm {
namespace {

constexpr unsigned char FirstCharacter = 0x20;

/// Widths of the characters in thousandths of the font's size; 0 below FirstCharacter.
using Widths = std::array<int, 256>;

Widths Breiten(HPDF_Font font) {
    Widths widths{};
    for (std::size_t character = FirstCharacter; character < widths.size(); ++character) {
        const auto byte = static_cast<HPDF_BYTE>(character);
        widths[character] = static_cast<int>(HPDF_Font_TextWidth(font, &byte, 1).width);
    }
    return widths;
}

struct Masse {
    Masse() {
        const PdfBuch book;
        Regular = Breiten(book.Font(false));
        Bold = Breiten(book.Font(true));
    }
    Widths Regular{}, Bold{};
};

bool Undefiniert(unsigned char byte) {
    return byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
}

char Gedruckt(char character) {
    const auto byte = static_cast<unsigned char>(character);
    if (byte < FirstCharacter || byte == 0x7F) {
        return ' ';
    }
    if (byte == 0xAD) {
        return '-';
    }
    return Undefiniert(byte) ? '?' : character;
}

} // namespace

int Zeichenbreite(unsigned char character, bool bold) {
    static const Masse measures;
    return (bold ? measures.Bold : measures.Regular).at(character);
}

Milli Textbreite(std::string_view cp1252, int size, bool bold) {
    Milli width = 0;
    for (const char character : cp1252) {
        width += Zeichenbreite(static_cast<unsigned char>(character), bold) * size;
    }
    return width;
}

std::string Drucktext(std::string_view cp1252) {
    std::string text(cp1252);
    std::transform(text.begin(), text.end(), text.begin(), Gedruckt);
    return text;
}

} // namespace qvm
