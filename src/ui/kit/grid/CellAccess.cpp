#include "CellAccess.h"

#include <QHeaderView>

#include <utility>

namespace qvm::ui {

QList<int> columnsOf(const GridView& grid) {
    QList<int> shown;
    for (int column = 0; column < grid.gridModel().columnCount(); ++column) {
        if (!grid.isColumnHidden(column)) {
            shown += column;
        }
    }
    return shown;
}

QString CellAccess::text(QAccessible::Text kind) const {
    if ((kind != QAccessible::Name && kind != QAccessible::Description) || !isValid()) {
        return {};
    }
    const int role = kind == QAccessible::Name ? Qt::AccessibleTextRole : Qt::AccessibleDescriptionRole;
    const GridModel& model = grid_->gridModel();
    return isHeading() ? model.headerData(column_, Qt::Horizontal, role).toString()
                       : model.index(row_, column_).data(role).toString();
}

QRect CellAccess::rect() const {
    if (!isValid()) {
        return {};
    }
    if (isHeading()) {
        const QHeaderView* header = grid_->horizontalHeader();
        const QPoint corner(header->sectionViewportPosition(column_), 0);
        return {header->viewport()->mapToGlobal(corner), QSize(header->sectionSize(column_), header->height())};
    }
    const QRect place = grid_->placeOf(grid_->gridModel().index(row_, column_));
    return {grid_->mapToGlobal(place.topLeft()), place.size()};
}

bool CellAccess::checkChanged() {
    const QVariant before = std::exchange(told_, check());
    return before.isValid() && told_.isValid() && before != told_;
}

QAccessible::State CellAccess::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QRect room(grid_->mapToGlobal(QPoint(0, 0)), grid_->size());
    state.invisible = !grid_->isVisible() || (!isHeading() && grid_->isRowHidden(row_));
    state.offscreen = !room.intersects(rect());
    state.disabled = !grid_->isEnabled();
    if (isHeading()) {
        return state;
    }
    const QModelIndex index = grid_->gridModel().index(row_, column_);
    state.focusable = grid_->isEnabled();
    state.focused = index == grid_->currentIndex() && grid_->hasFocus();
    state.selectable = grid_->selectionMode() != QAbstractItemView::NoSelection;
    state.selected = isSelected();
    const QVariant mark = check();
    state.checkable = mark.isValid();
    state.checked = mark.isValid() && mark.toInt() == Qt::Checked;
    return state;
}

} // namespace qvm::ui
