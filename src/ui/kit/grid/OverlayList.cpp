#include "OverlayList.h"

#include "Bind.h"
#include "TextEdge.h"

#include <QKeyEvent>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int MostRows = 12; ///< shown without scrolling
constexpr int LeastRows = 3;

} // namespace

bool layUnderCell(QListWidget& list, const GridView& view, bool above) {
    const QRect cell = view.cellRect(view.grid().Row, view.grid().Column);
    if (cell.isEmpty()) {
        return false;
    }
    const int frame = 2 * list.frameWidth();
    const int rows = std::clamp(list.count(), 1, MostRows);
    const int row = std::max(list.sizeHintForRow(0), list.fontMetrics().height());
    const int height = rows * row + frame;
    const int width = std::max(cell.width(), list.sizeHintForColumn(0) + frame + 24);
    const QRect room = view.rect();
    const int roomAbove = cell.top() - room.top(), roomBelow = room.bottom() - cell.bottom();
    const bool fitsAbove = height <= roomAbove, fitsBelow = height <= roomBelow;
    const bool below = fitsAbove == fitsBelow ? (fitsBelow ? !above : roomBelow >= roomAbove) : fitsBelow;
    // Where there is no room for all of it, it scrolls.
    const int high = std::max(std::min(height, below ? roomBelow : roomAbove), LeastRows * row + frame);
    const int left = std::clamp(cell.left(), room.left(), std::max(room.left(), room.right() - width));
    list.setGeometry(left, below ? cell.bottom() + 1 : cell.top() - high, width, high);
    return true;
}

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
    if (model_.Visible) {
        layUnderCell(*this, view_, above && above());
    }
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
