#include "Text.h"

#include <limits>

namespace qvm {

namespace {

/// One decoded step over UTF-8: the code point (or -1 when broken) and the bytes it took, at least one.
struct Utf8Schritt {
    std::int64_t CodePoint;
    std::size_t Taken;
};

unsigned Byte(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

Utf8Schritt Utf8_Lesen(std::string_view text, std::size_t at) {
    const unsigned lead = Byte(text, at);
    if (lead < 0x80) {
        return {lead, 1};
    }
    if (lead < 0xC2 || lead > 0xF4) { // 0xC0 and 0xC1 could only begin forms that are too long
        return {-1, 1};
    }
    const std::size_t more = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    std::int64_t codePoint = lead & (0x3FU >> more);
    for (std::size_t k = 1; k <= more; ++k) {
        if (at + k >= text.size() || (Byte(text, at + k) & 0xC0U) != 0x80U) {
            return {-1, k};
        }
        codePoint = codePoint * 64 + (Byte(text, at + k) & 0x3FU);
    }
    const bool overlong = (more == 2 && codePoint < 0x800) || (more == 3 && codePoint < 0x10000);
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (overlong || surrogate || codePoint > 0x10FFFF) {
        return {-1, more + 1};
    }
    return {codePoint, more + 1};
}

int Umgesetzt(const Utf8Schritt& step) {
    return step.CodePoint < 0 ? -1 : Cp1252_Byte(static_cast<char32_t>(step.CodePoint));
}

char GrossBuchstabe(char character) {
    const auto c = static_cast<unsigned char>(character);
    if (c >= 'a' && c <= 'z') {
        return static_cast<char>(c - 0x20);
    }
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) { // 0xF7 is the division sign
        return static_cast<char>(c - 0x20);
    }
    if (c == 0x9A || c == 0x9C || c == 0x9E) { // s caron, oe, z caron
        return static_cast<char>(c - 0x10);
    }
    if (c == 0xFF) { // y diaeresis
        return static_cast<char>(0x9F);
    }
    return character;
}

int HexZiffer(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    return -1;
}

} // namespace

std::string NachUtf8(std::string_view cp1252) {
    std::string out;
    out.reserve(cp1252.size());
    for (const char character : cp1252) {
        const auto c = static_cast<unsigned char>(character);
        const unsigned codePoint = c >= 0x80 && c < 0xA0 ? Cp1252_80_9F[c - 0x80U] : c;
        if (codePoint < 0x80) {
            out += static_cast<char>(codePoint);
        } else if (codePoint < 0x800) {
            out += static_cast<char>(0xC0U | (codePoint >> 6U));
            out += static_cast<char>(0x80U | (codePoint & 0x3FU));
        } else {
            out += static_cast<char>(0xE0U | (codePoint >> 12U));
            out += static_cast<char>(0x80U | ((codePoint >> 6U) & 0x3FU));
            out += static_cast<char>(0x80U | (codePoint & 0x3FU));
        }
    }
    return out;
}

std::string AusUtf8(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const Utf8Schritt step = Utf8_Lesen(utf8, at);
        const int byte = Umgesetzt(step);
        out += byte < 0 ? '?' : static_cast<char>(byte);
        at += step.Taken;
    }
    return out;
}

bool PasstInCp1252(std::string_view utf8) {
    for (std::size_t at = 0; at < utf8.size();) {
        const Utf8Schritt step = Utf8_Lesen(utf8, at);
        if (Umgesetzt(step) < 0) {
            return false;
        }
        at += step.Taken;
    }
    return true;
}

bool Ist_Utf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Utf8Schritt step = Utf8_Lesen(text, at);
        if (step.CodePoint < 0) {
            return false;
        }
        at += step.Taken;
    }
    return true;
}

std::string_view LTrim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

std::string_view RTrim(std::string_view text) {
    constexpr std::string_view Blanks = "        "; // a field has mostly these, and one comparison takes eight
    while (text.ends_with(Blanks)) {
        text.remove_suffix(Blanks.size());
    }
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string Ohne_Zeilenenden(std::string_view text) {
    std::string line(text);
    std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
    return line;
}

std::string_view Trim(std::string_view text) {
    if (!text.empty() && text.front() != ' ' && text.back() != ' ') {
        return text; // as most are
    }
    return LTrim(RTrim(text));
}

std::string_view Mid(std::string_view text, std::size_t start, std::size_t count) {
    const std::size_t at = start == 0 ? 0 : start - 1;
    return at >= text.size() ? std::string_view{} : text.substr(at, count);
}

std::string GrossText(std::string_view text) {
    std::string out(text);
    for (char& character : out) {
        character = GrossBuchstabe(character);
    }
    return out;
}

std::int32_t Zahlwert(std::string_view text) {
    text = LTrim(text);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    constexpr std::int64_t Beyond = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            break;
        }
        value = value * 10 + (c - '0');
        if (value > Beyond) {
            value = Beyond;
        }
    }
    if (negative) {
        return static_cast<std::int32_t>(-value);
    }
    return static_cast<std::int32_t>(value == Beyond ? Beyond - 1 : value);
}

std::string Ziffern(std::int64_t value, int width) {
    std::string digits = std::to_string(value);
    const bool negative = value < 0;
    if (negative) {
        digits.erase(0, 1);
    }
    if (width > 0 && digits.size() < static_cast<std::size_t>(width)) {
        digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
    }
    return negative ? "-" + digits : digits;
}

std::string HexText(std::uint64_t value, int width) {
    std::string out;
    do {
        out.insert(out.begin(), "0123456789ABCDEF"[value & 0xFU]);
        value >>= 4U;
    } while (value != 0);
    if (width > 0 && out.size() < static_cast<std::size_t>(width)) {
        out.insert(0, static_cast<std::size_t>(width) - out.size(), '0');
    }
    return out;
}

std::int64_t HexWert(std::string_view text) {
    if (text.empty() || text.size() > 8) {
        return -1;
    }
    std::int64_t value = 0;
    for (const char c : text) {
        const int digit = HexZiffer(c);
        if (digit < 0) {
            return -1;
        }
        value = value * 16 + digit;
    }
    return value;
}

} // namespace qvm
