#include "OemText.h"

#include <algorithm>
#include <array>

namespace qvm {

namespace {

/// Code page 850, 0x80 to 0xFF. Source: unicode.org, MAPPINGS/VENDORS/MICSFT/PC/CP850.TXT.
constexpr std::array<char16_t, 128> Upper{
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE,
    0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9, 0x00FF, 0x00D6,
    0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA,
    0x00BA, 0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB, 0x2591, 0x2592, 0x2593, 0x2502,
    0x2524, 0x00C1, 0x00C2, 0x00C0, 0x00A9, 0x2563, 0x2551, 0x2557, 0x255D, 0x00A2, 0x00A5, 0x2510, 0x2514,
    0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3, 0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550,
    0x256C, 0x00A4, 0x00F0, 0x00D0, 0x00CA, 0x00CB, 0x00C8, 0x0131, 0x00CD, 0x00CE, 0x00CF, 0x2518, 0x250C,
    0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580, 0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE,
    0x00DE, 0x00DA, 0x00DB, 0x00D9, 0x00FD, 0x00DD, 0x00AF, 0x00B4, 0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6,
    0x00A7, 0x00F7, 0x00B8, 0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0,
};

void AppendUtf8(std::string& text, char32_t codePoint) {
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        text += static_cast<char>(0xC0 | (codePoint >> 6));
        text += static_cast<char>(0x80 | (codePoint & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (codePoint >> 12));
        text += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (codePoint & 0x3F));
    }
}

/// The code point at `at`, which moves behind it; 0xFFFFFFFF for anything that no byte of the code page can be.
char32_t NextCodePoint(std::string_view text, std::size_t& at) {
    constexpr char32_t none = 0xFFFFFFFF;
    const auto lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0x80) {
        return lead;
    }
    const int more = lead >= 0xC2 && lead < 0xE0 ? 1 : lead >= 0xE0 && lead < 0xF0 ? 2 : 0;
    char32_t codePoint = lead & (0x3FU >> more);
    for (int n = 0; n < more; ++n) {
        if (at >= text.size() || (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) {
            return none;
        }
        codePoint = (codePoint << 6) | (static_cast<unsigned char>(text[at++]) & 0x3F);
    }
    return more == 0 ? none : codePoint;
}

} // namespace

std::string OemToUtf8(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        AppendUtf8(text, byte < 0x80 ? char32_t{byte} : char32_t{Upper[byte - 0x80U]});
    }
    return text;
}

std::optional<std::vector<std::uint8_t>> Utf8ToOem(std::string_view text) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t codePoint = NextCodePoint(text, at);
        if (codePoint < 0x80) {
            bytes.push_back(static_cast<std::uint8_t>(codePoint));
            continue;
        }
        const auto found = std::find(Upper.begin(), Upper.end(), codePoint);
        if (found == Upper.end()) {
            return std::nullopt;
        }
        bytes.push_back(static_cast<std::uint8_t>(0x80 + (found - Upper.begin())));
    }
    return bytes;
}

} // namespace qvm
