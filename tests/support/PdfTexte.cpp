#include "PdfTexte.h"

#include <cstdint>

namespace qvm::test {
namespace {

bool Ist_Oktal(char c) {
    return c >= '0' && c <= '7';
}

/// What stands behind "(", up to its ")".
std::string Gelesen(std::string_view bytes, std::size_t at) {
    std::string text;
    for (; at < bytes.size() && bytes[at] != ')'; ++at) {
        if (bytes[at] != '\\' || at + 1 >= bytes.size()) {
            text += bytes[at];
            continue;
        }
        ++at;
        if (!Ist_Oktal(bytes[at])) {
            text += bytes[at];
            continue;
        }
        unsigned value = 0;
        std::size_t digits = 0;
        while (digits < 3 && at + digits < bytes.size() && Ist_Oktal(bytes[at + digits])) {
            value = value * 8 + static_cast<unsigned>(bytes[at + digits++] - '0');
        }
        at += digits - 1;
        text += static_cast<char>(static_cast<std::uint8_t>(value));
    }
    return text;
}

} // namespace

std::vector<std::string> PdfTexte(std::string_view bytes) {
    std::vector<std::string> texts;
    if (!bytes.starts_with("%PDF-")) {
        return texts;
    }
    for (std::size_t end = bytes.find(") Tj"); end != std::string_view::npos; end = bytes.find(") Tj", end + 1)) {
        const std::size_t line = bytes.rfind('\n', end) + 1;
        texts.push_back(Gelesen(bytes, bytes.find('(', line) + 1));
    }
    return texts;
}

} // namespace qvm::test
