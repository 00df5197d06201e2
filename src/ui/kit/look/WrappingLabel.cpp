#include "WrappingLabel.h"

#include <QResizeEvent>

#include <algorithm>

namespace qvm::ui {
namespace {

/// What is reckoned with before the label has its place.
constexpr int WidthBefore = 420;

} // namespace

WrappingLabel::WrappingLabel(int lines, QWidget* parent) : QLabel(parent), lines_(lines) {
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

QSize WrappingLabel::minimumSizeHint() const {
    return {1, heightForWidth(isVisible() ? width() : WidthBefore)};
}

int WrappingLabel::heightForWidth(int width) const {
    const int kept = lines_ * fontMetrics().lineSpacing() + 2;
    return std::max(kept, text().isEmpty() ? 0 : QLabel::heightForWidth(width));
}

void WrappingLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        updateGeometry();
    }
}

} // namespace qvm::ui
