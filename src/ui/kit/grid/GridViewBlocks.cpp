// Blocks, the filter and the row under the mouse.

#include "GridView.h"
#include "TextEdge.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace qvm::ui {

void GridView::setBlocks(GridSelection& selection) {
    selection_ = &selection;
    selection.Changed = [this] { showSelection(); };
    selection.Go(model_->gridRow(currentIndex().row()), currentIndex().column());
    showSelection();
}

void GridView::setFilter(GridFilter& filter) {
    filter_ = &filter;
    filter.RowsChanged = [this] { showRows(); };
    connect(model_, &QAbstractItemModel::modelReset, this, &GridView::showRows);
    showRows();
}

void GridView::showSelection() {
    const QModelIndex current = model_->cellIndex(grid().Row, grid().Column);
    // Row 0: nothing is selected, and no row is current.
    if ((current.isValid() || grid().Row == 0) && current != currentIndex()) {
        following_ = true;
        setCurrentIndex(current);
        following_ = false;
    }
    const GridBlock block = selection_->Block();
    const QItemSelection cells(model_->cellIndex(block.Top, block.Left), model_->cellIndex(block.Bottom, block.Right));
    selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
    // Cells that come or go are painted by the selection itself; those of a single cell look otherwise in a block.
    if (selection_->Larger() != std::exchange(blockShown_, selection_->Larger())) {
        viewport()->update(visualRegionForSelection(cells));
        frozen_->viewport()->update();
    }
}

void GridView::showRows() {
    stripes_.assign(static_cast<std::size_t>(model_->rowCount()), false);
    bool stripe = false;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const bool hidden = !filter_->Shows(model_->gridRow(row));
        stripes_[static_cast<std::size_t>(row)] = stripe;
        stripe = stripe != !hidden;
        if (isRowHidden(row) != hidden) {
            setRowHidden(row, hidden);
            frozen_->setRowHidden(row, hidden);
        }
    }
    findHoverRow();
    scrollTo(currentIndex());
    viewport()->update();
    frozen_->viewport()->update();
}

bool GridView::isStripe(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return at < stripes_.size() ? stripes_[at] : row % 2 == 1;
}

RowTint GridView::tintOf(int row, int column) const {
    if (selection_ != nullptr && selection_->Larger() && selection_->Holds(model_->gridRow(row), column)) {
        return RowTint::Block;
    }
    if (row == currentIndex().row()) {
        return hasFocus() ? RowTint::Current : RowTint::PaleCurrent;
    }
    return row == hoverRow_ ? RowTint::Hover : RowTint::None;
}

bool GridView::editKey(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && filter_ != nullptr && filter_->Active()) {
        filter_->Set({});
    } else if (selection_ != nullptr && event->matches(QKeySequence::SelectAll)) {
        selection_->All();
    } else if (selection_ != nullptr && event->matches(QKeySequence::Copy)) {
        copy();
    } else {
        return false;
    }
    return true;
}

void GridView::copy() const {
    const std::string text = selection_->Text([this](int column) { return !isColumnHidden(column); });
    if (!text.empty()) {
        QGuiApplication::clipboard()->setText(toQt(text));
    }
}

void GridView::moving(bool extend, const std::function<void()>& move) {
    extending_ = extend;
    move();
    extending_ = false;
    const QModelIndex current = currentIndex();
    // Also when it was the current cell before: a larger block falls together.
    if (selection_ != nullptr && current.isValid() && !extend) {
        selection_->Go(model_->gridRow(current.row()), current.column());
    }
}

bool GridView::pressMoves(const QMouseEvent& event, const QModelIndex& index) const {
    // A menu opens over the block that it is for.
    return selection_ == nullptr || event.button() == Qt::LeftButton ||
           !selection_->Holds(model_->gridRow(index.row()), index.column());
}

void GridView::dragTo(QPoint inViewport) {
    const QModelIndex index = cellAt(inViewport);
    if (index.isValid() && index != currentIndex()) {
        dragged_ = true;
        moving(true, [&] { setCurrentIndex(index); });
    }
}

QModelIndex GridView::cellAt(QPoint inViewport) const {
    return inViewport.x() < frozenWidth() ? frozen_->indexAt(inViewport) : indexAt(inViewport);
}

bool GridView::cellUnderMouse(int& row, int& column) const {
    if (!mouse_ || !isVisible() || !isEnabled()) {
        return false;
    }
    const QModelIndex index = cellAt(*mouse_);
    row = model_->gridRow(index.row());
    column = index.column();
    return index.isValid();
}

GridPointer GridView::pointer() const {
    GridPointer at;
    if (!isVisible() || !isEnabled()) {
        return at;
    }
    if (onHeading_) {
        at = {.Row = 0,
              .Column = horizontalHeader()->logicalIndexAt(*onHeading_),
              .X = onHeading_->x(),
              .Y = onHeading_->y()};
    } else if (cellUnderMouse(at.Row, at.Column)) {
        at.X = mouse_->x();
        at.Y = mouse_->y();
    }
    return at;
}

void GridView::findHoverRow() {
    const int row = mouse_ ? rowAt(mouse_->y()) : -1;
    if (row != hoverRow_) {
        updateRow(std::exchange(hoverRow_, row));
        updateRow(row);
    }
}

void GridView::updateRow(int row) {
    if (row >= 0) {
        const QRect whole(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
        viewport()->update(whole);
        frozen_->viewport()->update(whole);
    }
}

// The rows go on to the right of the last column, so that a wide window does not look torn.
void GridView::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    const int left = horizontalHeader()->length() - horizontalHeader()->offset();
    if (left >= viewport()->width()) {
        return;
    }
    QPainter painter(viewport());
    for (int row = std::max(rowAt(0), 0); row < model_->rowCount(); ++row) {
        const QRect rest(left, rowViewportPosition(row), viewport()->width() - left, rowHeight(row));
        if (rest.top() > event->rect().bottom()) {
            break;
        }
        const QColor ground = cellBackground(White, isStripe(row), palette());
        painter.fillRect(rest, tinted(ground, tintOf(row, model_->columnCount() - 1), palette()));
    }
}

} // namespace qvm::ui
