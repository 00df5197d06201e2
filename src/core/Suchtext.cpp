#include "Suchtext.h"

namespace qvm {
namespace {

/// What becomes of an umlaut.
enum class Umlaut { BaseLetter, TwoLetters };

/// Base letters of code page 1252, 0xC0 to 0xDF and again 0xE0 to 0xFF; "." where there is none or more than one.
constexpr std::string_view BaseLetters = "aaaaaa.ceeeeiiiidnooooo.ouuuuy..";

/// The plain letters of one character beyond ASCII; empty when it is no letter.
std::string_view Grundbuchstaben(unsigned char letter) {
    switch (letter) {
    case 0xC6: // AE
    case 0xE6:
        return "ae";
    case 0x8C: // OE
    case 0x9C:
        return "oe";
    case 0xDE: // thorn
    case 0xFE:
        return "th";
    case 0xDF: // sharp s
        return "ss";
    case 0x8A: // s with caron
    case 0x9A:
        return "s";
    case 0x8E: // z with caron
    case 0x9E:
        return "z";
    case 0x9F: // y with diaeresis
    case 0xFF:
        return "y";
    default:
        break;
    }
    const std::string_view base = letter < 0xC0 ? std::string_view() : BaseLetters.substr(letter & 0x1FU, 1);
    return base == "." ? std::string_view() : base;
}

bool Ist_Umlaut(unsigned char letter) {
    const unsigned capital = letter & 0xDFU;
    return letter >= 0xC0 && (capital == 0xC4 || capital == 0xD6 || capital == 0xDC);
}

std::string Vereinfacht(std::string_view text, Umlaut umlaut) {
    std::string plain;
    plain.reserve(text.size());
    for (const char c : text) {
        const auto letter = static_cast<unsigned char>(c);
        const std::string_view base = letter < 0x80 ? std::string_view() : Grundbuchstaben(letter);
        if (!base.empty()) {
            plain += base;
        } else {
            plain += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        }
        if (umlaut == Umlaut::TwoLetters && Ist_Umlaut(letter)) {
            plain += 'e';
        }
    }
    return plain;
}

template <class Compare>
bool In_Einer_Schreibweise(std::string_view text, std::string_view wanted, Compare compare) {
    for (const Umlaut umlaut : {Umlaut::BaseLetter, Umlaut::TwoLetters}) {
        if (compare(Vereinfacht(text, umlaut), Vereinfacht(wanted, umlaut))) {
            return true;
        }
    }
    return false;
}

} // namespace

bool Text_Enthaelt(std::string_view text, std::string_view wanted) {
    return In_Einer_Schreibweise(text, wanted, [](const std::string& whole, const std::string& part) {
        return whole.find(part) != std::string::npos;
    });
}

bool Text_Beginnt(std::string_view text, std::string_view wanted) {
    return In_Einer_Schreibweise(
        text, wanted, [](const std::string& whole, const std::string& part) { return whole.starts_with(part); });
}

std::string Sortierform(std::string_view text) {
    return Vereinfacht(text, Umlaut::BaseLetter);
}

} // namespace qvm
