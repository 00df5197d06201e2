#include "ElidedLabel.h"

#include <QEvent>
#include <QResizeEvent>
#include <QtMath>

namespace qvm::ui {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setProperty("elides", true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    // As high with text as without.
    setMinimumHeight(fontMetrics().height() + 2);
}

void ElidedLabel::setFullText(const QString& text) {
    text_ = text;
    setAccessibleName(text);
    updateGeometry();
    fit();
}

void ElidedLabel::setTip(const QString& tip) {
    tip_ = tip;
    fit();
}

QSize ElidedLabel::sizeHint() const {
    // Rounded up, as a text of a part of a pixel more is cut.
    return {qCeil(QFontMetricsF(font()).horizontalAdvance(text_)) + 2 * frameWidth(), QLabel::sizeHint().height()};
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    fit();
}

void ElidedLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        fit();
    }
}

void ElidedLabel::fit() {
    const QString shown = fontMetrics().elidedText(text_, Qt::ElideRight, contentsRect().width());
    setText(shown);
    setToolTip(!tip_.isEmpty() || shown == text_ ? tip_ : text_);
}

} // namespace qvm::ui
