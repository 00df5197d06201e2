#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Text of the logic and of the data files: one byte a character, Windows code page 1252.
/// Unicode appears only at the edges (widgets, console, JSON), through the pair NachUtf8 and AusUtf8.
namespace qvm {

/// Unicode code point of each code page 1252 byte 0x80 to 0x9F. The five bytes that the code page leaves undefined
/// stand for the control characters of the same number, so that every byte survives the way there and back.
/// Source: unicode.org, MAPPINGS/VENDORS/MICSFT/WINDOWS/CP1252.TXT; WHATWG Encoding Standard, windows-1252.
inline constexpr std::array<char16_t, 32> Cp1252_80_9F{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                       0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// The code page 1252 byte of a code point, or -1 when the code page has none.
constexpr int Cp1252_Byte(char32_t codePoint) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
        return static_cast<int>(codePoint);
    }
    for (std::size_t n = 0; n < Cp1252_80_9F.size(); ++n) {
        if (Cp1252_80_9F[n] == codePoint) {
            return static_cast<int>(0x80 + n);
        }
    }
    return -1;
}

/// Code page 1252 to UTF-8. Every byte has a result.
std::string NachUtf8(std::string_view cp1252);

/// UTF-8 to code page 1252. What the code page does not hold, and broken UTF-8, becomes "?".
std::string AusUtf8(std::string_view utf8);

/// True when every character of the text exists in code page 1252 and the UTF-8 is well formed.
bool PasstInCp1252(std::string_view utf8);
/// True when the text is well formed UTF-8, whatever its characters.
bool Ist_Utf8(std::string_view text);

/// The text without carriage returns and line feeds.
std::string Ohne_Zeilenenden(std::string_view text);

/// The text without blanks (0x20) on both sides, on the left, on the right.
std::string_view Trim(std::string_view text);
std::string_view LTrim(std::string_view text);
std::string_view RTrim(std::string_view text);

/// Up to `count` characters from position `start`, 1-based; nothing beyond the end.
std::string_view Mid(std::string_view text, std::size_t start, std::size_t count = std::string_view::npos);

/// ASCII letters and the letters of code page 1252 in upper case.
std::string GrossText(std::string_view text);

/// The number that the text begins with (blanks before it skipped, optional sign, digits); 0 when there is none.
/// Values beyond 32 bits are held at the limits.
std::int32_t Zahlwert(std::string_view text);

/// Decimal text with leading zeros to at least `width` digits.
std::string Ziffern(std::int64_t value, int width = 1);

/// Upper-case hexadecimal text with leading zeros to `width` digits.
std::string HexText(std::uint64_t value, int width);

/// The value of a text of hexadecimal digits only, at most 8; -1 when it is empty, longer, or holds anything else.
std::int64_t HexWert(std::string_view text);

namespace detail {
template <std::size_t N>
struct Utf8Literal {
    char8_t data[N]{};
    consteval Utf8Literal(const char8_t (&text)[N]) {
        for (std::size_t n = 0; n < N; ++n) {
            data[n] = text[n];
        }
    }
};

template <std::size_t N>
struct Cp1252Literal {
    std::array<char, N> data{};
    std::size_t size = 0;
};

template <Utf8Literal Literal>
consteval auto Umsetzen() {
    constexpr std::size_t N = sizeof(Literal.data);
    Cp1252Literal<N> out;
    for (std::size_t n = 0; n + 1 < N;) {
        const auto lead = static_cast<unsigned>(Literal.data[n]);
        const int more = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        char32_t codePoint = more == 0 ? lead : lead & (0x3FU >> more);
        for (int k = 1; k <= more; ++k) {
            codePoint =
                (codePoint << 6) | (static_cast<unsigned>(Literal.data[n + static_cast<std::size_t>(k)]) & 0x3F);
        }
        const int byte = Cp1252_Byte(codePoint);
        if (byte < 0) {
            throw "a literal must exist in code page 1252";
        }
        out.data[out.size++] = static_cast<char>(byte);
        n += static_cast<std::size_t>(more) + 1;
    }
    return out;
}

template <Utf8Literal Literal>
inline constexpr auto Cp1252Text = Umsetzen<Literal>();
} // namespace detail

/// u8"Zurück"_w: a literal converted to code page 1252 at compile time.
template <detail::Utf8Literal Literal>
consteval std::string_view operator""_w() {
    return {detail::Cp1252Text<Literal>.data.data(), detail::Cp1252Text<Literal>.size};
}

} // namespace qvm
