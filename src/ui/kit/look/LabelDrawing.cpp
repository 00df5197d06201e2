#include "LabelDrawing.h"

#include <QEvent>
#include <QIcon>
#include <QLabel>

#include <utility>

namespace qvm::ui {

LabelDrawing::LabelDrawing(QLabel* label, std::function<QPixmap(qreal ratio)> draw)
    : QObject(label), label_(label), draw_(std::move(draw)) {
    label->installEventFilter(this);
    show();
}

LabelDrawing::LabelDrawing(QLabel* label, const QIcon& icon, int size)
    : LabelDrawing(label, [icon, size](qreal ratio) { return icon.pixmap(QSize(size, size), ratio); }) {}

void LabelDrawing::show() {
    ratio_ = label_->devicePixelRatioF();
    label_->setPixmap(draw_(ratio_));
}

bool LabelDrawing::eventFilter(QObject* watched, QEvent* event) {
    // A window that comes to another screen is painted there anew.
    const bool moved = event->type() == QEvent::Paint && label_->devicePixelRatioF() != ratio_;
    if (moved || event->type() == QEvent::PaletteChange) {
        show();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace qvm::ui
