#include "LabelInk.h"

#include "Theme.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>

#include <utility>

namespace qvm::ui {

LabelInk::LabelInk(QLabel* label, std::function<QColor(const QColor&, const QColor&)> ink)
    : QObject(label), label_(label), ink_(std::move(ink)) {
    label->installEventFilter(this);
    show();
}

void LabelInk::show() {
    if (showing_) {
        return;
    }
    showing_ = true;
    const QWidget* ground = label_->parentWidget();
    const QPalette under = ground != nullptr ? ground->palette() : QApplication::palette(label_);
    const QPalette::ColorRole text = label_->foregroundRole();
    QPalette palette;
    palette.setColor(QPalette::Disabled, text, under.color(QPalette::Disabled, text));
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, text, ink_(under.color(group, text), under.color(group, label_->backgroundRole())));
    }
    label_->setPalette(palette);
    showing_ = false;
}

bool LabelInk::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange) {
        show();
    }
    return QObject::eventFilter(watched, event);
}

void makeWeak(QLabel* label) {
    new LabelInk(label, weakText);
}

} // namespace qvm::ui
