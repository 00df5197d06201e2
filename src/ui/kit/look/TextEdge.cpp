#include "TextEdge.h"

#include "Text.h"

namespace qvm::ui {

QString toQt(std::string_view cp1252) {
    QString out;
    out.reserve(static_cast<qsizetype>(cp1252.size()));
    for (const char c : cp1252) {
        const auto byte = static_cast<unsigned char>(c);
        out += QChar(byte >= 0x80 && byte <= 0x9F ? Cp1252_80_9F[byte - 0x80U] : static_cast<char16_t>(byte));
    }
    return out;
}

QString captionOf(std::string_view cp1252) {
    return toQt(cp1252).replace(QLatin1Char('&'), QLatin1String("&&"));
}

std::string fromQt(const QString& text) {
    std::string out;
    out.reserve(static_cast<std::size_t>(text.size()));
    for (const char32_t codePoint : text.toStdU32String()) {
        const int byte = Cp1252_Byte(codePoint);
        out += byte < 0 ? '?' : static_cast<char>(byte);
    }
    return out;
}

} // namespace qvm::ui
