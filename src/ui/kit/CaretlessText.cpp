#include "CaretlessText.h"

#include <algorithm>

namespace qvm::ui {

QString CaretlessText::text(int start, int end) const {
    const QString whole = content();
    return whole.mid(start, (end < 0 ? static_cast<int>(whole.size()) : end) - start);
}

QString CaretlessText::attributes(int /*offset*/, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

void CaretlessText::replaceText(int start, int end, const QString& text) {
    QString whole = content();
    const int size = static_cast<int>(whole.size());
    const int from = std::clamp(start, 0, size);
    const int to = end < 0 ? size : std::clamp(end, from, size);
    whole.replace(from, to - from, text);
    takeText(whole);
}

} // namespace qvm::ui
