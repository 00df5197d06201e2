#include "OverlayList.h"

#include "Bind.h"
#include "TextEdge.h"

#include <QKeyEvent>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int MostRows = 10; ///< shown without scrolling

} // namespace

OverlayList::OverlayList(ListBox& model, GridView& view, const QString& name)
    : QListWidget(&view), model_(model), view_(view) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    // In the colour of texts: the cells around have the same ground.
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    bind(model, this, name);
    watch(model.Visible, this, [this] { view_.showOver(this, model_.Visible, [this] { place(); }); });
    connect(&view, &GridView::cellsMoved, this, &OverlayList::place);
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { choose(row(item)); });
}

void OverlayList::place() {
    const QRect cell = view_.cellRect(view_.grid().Row, view_.grid().Column);
    if (!model_.Visible || cell.isEmpty()) {
        return;
    }
    const int rows = std::clamp(count(), 1, MostRows);
    const int height = rows * std::max(sizeHintForRow(0), fontMetrics().height()) + 2 * frameWidth();
    const int width = std::max(cell.width(), sizeHintForColumn(0) + 2 * frameWidth() + 24);
    const QRect room = view_.rect();
    const bool fitsAbove = cell.top() - height >= room.top();
    const bool fitsBelow = cell.bottom() + height <= room.bottom();
    const bool below = !fitsAbove || (fitsBelow && !(above && above()));
    const int left = std::clamp(cell.left(), room.left(), std::max(room.left(), room.right() - width));
    setGeometry(left, below ? cell.bottom() + 1 : cell.top() - height, width, height);
}

void OverlayList::choose(int index) {
    if (index < 0) {
        cancel();
        return;
    }
    model_.Selected = index;
    if (onChoose) {
        onChoose(index);
    }
}

void OverlayList::cancel() const {
    if (onCancel) {
        onCancel();
    }
}

bool OverlayList::focusNextPrevChild(bool /*next*/) {
    choose(currentRow());
    return true;
}

void OverlayList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        cancel();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        choose(currentRow());
    } else {
        QListWidget::keyPressEvent(event);
    }
}

void OverlayList::focusOutEvent(QFocusEvent* event) {
    QListWidget::focusOutEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason && model_.Visible) {
        onLostFocus ? onLostFocus() : cancel();
    }
}

} // namespace qvm::ui
