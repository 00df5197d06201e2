#include "OverlayMonth.h"

#include "Bind.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace qvm::ui {

OverlayMonth::OverlayMonth(Observed<bool>& visible, GridView& view, const QString& name)
    : MonthView(name, &view), visible_(visible), view_(view) {
    setAutoFillBackground(true);
    setContentsMargins(1, 1, 1, 1);
    hide();
    watch(visible_, this, [this] {
        if (visible_ && dayOf) {
            setDay(dayOf());
        }
        const QString called = accessibleName();
        view_.showOver(this, visible_, [this] { place(); });
        setAccessibleName(called);
    });
    connect(&view, &GridView::cellsMoved, this, &OverlayMonth::place);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* before, const QWidget* now) {
        const auto within = [this](const QWidget* widget) {
            return widget != nullptr && (widget == this || isAncestorOf(widget));
        };
        // A message over the window, or the menu of the months, takes the keyboard for a while only.
        const bool elsewhere = now != nullptr ? now->window() == window()
                                              : isActiveWindow() && QApplication::activePopupWidget() == nullptr;
        if (visible_ && within(before) && !within(now) && elsewhere) {
            cancel();
        }
    });
}

void OverlayMonth::place() {
    const QRect cell = view_.cellRect(view_.grid().Row, view_.grid().Column);
    if (!visible_ || cell.isEmpty()) {
        return;
    }
    const QRect room = view_.rect();
    const QSize size = sizeHint().expandedTo(minimumSize());
    const int left = std::max(room.left(), std::min(cell.right() + 1, room.right() + 1 - size.width()));
    const int top = std::max(room.top(), std::min(cell.top(), room.bottom() + 1 - size.height()));
    setGeometry(QRect(QPoint(left, top), size));
}

void OverlayMonth::cancel() const {
    if (onCancel) {
        onCancel();
    }
}

bool OverlayMonth::focusNextPrevChild(bool /*next*/) {
    setFocus(Qt::TabFocusReason);
    return true;
}

/// In the colour of texts: the cells around have the same ground.
void OverlayMonth::paintEvent(QPaintEvent* event) {
    MonthView::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void OverlayMonth::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        cancel();
    } else {
        MonthView::keyPressEvent(event);
    }
    event->accept(); // the grid below is the parent, and would take the arrow keys for its own
}

} // namespace qvm::ui
