#include "LayoutSuche.h"

#include <algorithm>

namespace qvm {

using Bytes = std::span<const std::uint8_t>;

int Kuerzung(const Layout& layout, Bytes frame) {
    return layout.Shortest != 0 && frame.size() > 1 ? std::max(0, layout.L - frame[1]) : 0;
}

Field Feld_Im_Rahmen(const Layout& layout, Field field, int shorter) {
    const Field rows = Zeilenfeld(layout);
    if (shorter == 0 || rows.Width == 0) {
        return field;
    }
    if (field.Offset == rows.Offset) {
        field.Width = static_cast<std::uint8_t>(field.Width - shorter);
    } else if (field.Offset > rows.Offset) {
        field.Offset = static_cast<std::uint8_t>(field.Offset - shorter);
    }
    return field;
}

bool Festwerte_Passen(const Layout& layout, Bytes frame) {
    const int shorter = Kuerzung(layout, frame);
    return std::all_of(layout.Fields.begin(), layout.Fields.end(), [&](const Field& declared) {
        const Field field = Feld_Im_Rahmen(layout, declared, shorter);
        if (field.Is != Kind::Fixed || static_cast<std::size_t>(field.End()) > frame.size()) {
            return true;
        }
        const Bytes bytes = frame.subspan(field.Offset, field.Width);
        return std::all_of(bytes.begin(), bytes.end(), [&](std::uint8_t byte) { return byte == field.Detail; });
    });
}

const Layout* Layout_Suchen(bool sent, Bytes frame) {
    if (frame.size() < 3) {
        return nullptr;
    }
    const Layout* found = nullptr;
    for (const Layout& layout : sent ? Telegramme() : Antworten()) {
        if (layout.Code != frame[2] || !LaengePasst(layout, frame[1])) {
            continue;
        }
        if (Festwerte_Passen(layout, frame)) {
            return &layout;
        }
        found = found == nullptr ? &layout : found;
    }
    return found;
}

} // namespace qvm
