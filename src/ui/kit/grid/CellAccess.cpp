#include "CellAccess.h"

#include "Secret.h"
#include "TextEdge.h"

#include <QHeaderView>

#include <utility>

namespace qvm::ui {
namespace {

/// Calls `act` when the call that is being answered is over.
void afterwards(GridView* grid, const std::function<void()>& act) {
    QMetaObject::invokeMethod(grid, act, Qt::QueuedConnection);
}

} // namespace

int columnsInSight(const GridView& grid) {
    return grid.gridModel().columnCount() - grid.horizontalHeader()->hiddenSectionCount();
}

int placeOf(const GridView& grid, int column) {
    if (column < 0 || column >= grid.gridModel().columnCount() || grid.isColumnHidden(column)) {
        return -1;
    }
    int place = 0;
    for (int before = 0; before < column; ++before) {
        place += grid.isColumnHidden(before) ? 0 : 1;
    }
    return place;
}

int columnAt(const GridView& grid, int place) {
    for (int column = 0; place >= 0 && column < grid.gridModel().columnCount(); ++column) {
        if (!grid.isColumnHidden(column) && place-- == 0) {
            return column;
        }
    }
    return -1;
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

void* CellAccess::interface_cast(QAccessible::InterfaceType type) {
    if (isHeading()) {
        return nullptr;
    }
    switch (type) {
    case QAccessible::TableCellInterface:
        return static_cast<QAccessibleTableCellInterface*>(this);
    case QAccessible::ActionInterface:
        return static_cast<QAccessibleActionInterface*>(this);
    case QAccessible::TextInterface:
        return mayBeWritten() ? static_cast<QAccessibleTextInterface*>(this) : nullptr;
    case QAccessible::EditableTextInterface:
        return mayBeWritten() ? static_cast<QAccessibleEditableTextInterface*>(this) : nullptr;
    default:
        return nullptr;
    }
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
    state.editable = mayBeWritten();
    return state;
}

QStringList CellAccess::actionNames() const {
    QStringList names;
    if (!isValid() || isHeading()) {
        return names;
    }
    if (grid_->onClick || grid_->onMouseUp || grid_->onChoose) {
        names += pressAction();
    }
    if (grid_->onMenuKey) {
        names += showMenuAction();
    }
    return names += setFocusAction();
}

void CellAccess::doAction(const QString& name) {
    if (!actionNames().contains(name)) {
        return;
    }
    GridView* grid = grid_;
    const int row = grid->gridModel().gridRow(row_);
    if (name == setFocusAction()) {
        grid->goTo(row, column_);
    } else if (name == pressAction()) {
        afterwards(grid, [grid, row, column = column_] { grid->press(row, column); });
    } else {
        afterwards(grid, [grid, row, column = column_] { grid->showMenu(row, column); });
    }
}

bool CellAccess::mayBeWritten() const {
    return isValid() && !isHeading() && grid_->onWrite && grid_->mayWrite &&
           grid_->mayWrite(grid_->gridModel().gridRow(row_), column_);
}

QString CellAccess::content() const {
    return isValid() ? toQt(grid_->grid().Text(grid_->gridModel().gridRow(row_), column_)) : QString();
}

void CellAccess::takeText(const QString& whole) {
    if (!mayBeWritten()) {
        return;
    }
    GridView* grid = grid_;
    afterwards(grid, [grid, row = grid->gridModel().gridRow(row_), column = column_, whole] {
        std::string written = fromQt(whole);
        grid->write(row, column, written);
        Vergessen(written); // it may be a code
    });
}

} // namespace qvm::ui
