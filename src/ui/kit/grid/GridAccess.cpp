#include "GridAccess.h"

#include "CellAccess.h"
#include "GridView.h"
#include "OverlayBoxes.h"

#include <QAccessibleWidget>
#include <QCalendarWidget>
#include <QHash>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>

#include <utility>

namespace qvm::ui {
namespace {

/// Children: the headings, then the cells row by row, then the editors that are open over a cell.
class GridAccess : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccess(GridView& grid) : QAccessibleWidget(&grid, QAccessible::Table), grid_(grid) {}

    int childCount() const override { return cellCount() + static_cast<int>(editors().size()); }
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int columnCount() const override { return columnsInSight(grid_); }
    int rowCount() const override { return grid_.gridModel().rowCount(); }
    QString columnDescription(int column) const override;
    QString rowDescription(int /*row*/) const override { return {}; }
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<QAccessibleInterface*> selectedCells() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int row) const override { return grid_.selectionModel()->isRowSelected(row, {}); }
    // What is chosen is the operator's own affair.
    bool selectRow(int /*row*/) override { return false; }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    // Cells are asked for by row and column each time, and those that are gone say so.
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override {}
    /// Tells which check boxes have changed; nobody keeps a state of a cell that has not been asked for.
    void tellChecks(const QModelIndex& first, const QModelIndex& last) const;

protected:
    ~GridAccess() override;

private:
    int cellCount() const { return (rowCount() + 1) * columnCount(); }
    QList<QWidget*> editors() const;
    QAccessibleInterface* cell(int row, int column) const;

    GridView& grid_;
    mutable QHash<std::pair<int, int>, QAccessible::Id> cells_; ///< those that have been asked for
};

GridAccess::~GridAccess() {
    for (const QAccessible::Id id : std::as_const(cells_)) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

QAccessibleInterface* GridAccess::cell(int row, int column) const {
    const auto known = cells_.constFind({row, column});
    if (known != cells_.constEnd()) {
        return QAccessible::accessibleInterface(*known);
    }
    auto* made = new CellAccess(grid_, row, column);
    cells_.insert({row, column}, QAccessible::registerAccessibleInterface(made));
    return made;
}

void GridAccess::tellChecks(const QModelIndex& first, const QModelIndex& last) const {
    const auto within = [&first, &last](const std::pair<int, int>& place) {
        return place.first >= first.row() && place.first <= last.row() && place.second >= first.column() &&
               place.second <= last.column();
    };
    QList<CellAccess*> changed;
    for (auto known = cells_.constBegin(); known != cells_.constEnd(); ++known) {
        auto* cell = static_cast<CellAccess*>(QAccessible::accessibleInterface(known.value()));
        if (within(known.key()) && cell != nullptr && cell->checkChanged()) {
            changed += cell;
        }
    }
    for (CellAccess* cell : changed) {
        QAccessible::State checks;
        checks.checked = true;
        QAccessibleStateChangeEvent event(cell, checks);
        QAccessible::updateAccessibility(&event);
    }
}

QList<QWidget*> GridAccess::editors() const {
    QList<QWidget*> open;
    for (QWidget* child : grid_.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const bool editor =
            qobject_cast<QLineEdit*>(child) != nullptr || qobject_cast<QListWidget*>(child) != nullptr ||
            qobject_cast<QCalendarWidget*>(child) != nullptr || qobject_cast<OverlayBoxes*>(child) != nullptr;
        if (editor && child->isVisibleTo(&grid_)) {
            open += child;
        }
    }
    return open;
}

QAccessibleInterface* GridAccess::child(int index) const {
    const int width = columnCount();
    if (index < 0 || width == 0) {
        return nullptr;
    }
    if (index < cellCount()) {
        return cell(index / width - 1, columnAt(grid_, index % width));
    }
    const QList<QWidget*> open = editors();
    const int editor = index - cellCount();
    return editor < open.size() ? QAccessible::queryAccessibleInterface(open[editor]) : nullptr;
}

QAccessibleInterface* GridAccess::childAt(int x, int y) const {
    for (QWidget* editor : editors()) {
        if (editor->rect().contains(editor->mapFromGlobal(QPoint(x, y)))) {
            return QAccessible::queryAccessibleInterface(editor);
        }
    }
    const QHeaderView& header = *grid_.horizontalHeader();
    const QPoint onHeader = header.viewport()->mapFromGlobal(QPoint(x, y));
    if (header.viewport()->rect().contains(onHeader)) {
        const int column = header.logicalIndexAt(onHeader);
        return column < 0 ? nullptr : cell(-1, column);
    }
    const QModelIndex index = grid_.cellAt(grid_.viewport()->mapFromGlobal(QPoint(x, y)));
    return index.isValid() ? cell(index.row(), index.column()) : nullptr;
}

int GridAccess::indexOfChild(const QAccessibleInterface* child) const {
    if (child == nullptr) {
        return -1;
    }
    if (child->object() != nullptr) {
        const auto editor = editors().indexOf(qobject_cast<QWidget*>(child->object()));
        return editor < 0 ? -1 : cellCount() + static_cast<int>(editor);
    }
    if (child->parent() != this) {
        return -1;
    }
    const auto& of = static_cast<const CellAccess&>(*child);
    const int column = of.columnIndex();
    return column < 0 ? -1 : (of.row() + 1) * columnCount() + column;
}

QAccessibleInterface* GridAccess::cellAt(int row, int column) const {
    const int shown = columnAt(grid_, column);
    return row < 0 || row >= rowCount() || shown < 0 ? nullptr : cell(row, shown);
}

QString GridAccess::columnDescription(int column) const {
    const int shown = columnAt(grid_, column);
    return shown < 0 ? QString()
                     : grid_.gridModel().headerData(shown, Qt::Horizontal, Qt::AccessibleTextRole).toString();
}

QList<QAccessibleInterface*> GridAccess::selectedCells() const {
    QList<QAccessibleInterface*> found;
    for (const QModelIndex& index : grid_.selectionModel()->selectedIndexes()) {
        if (!grid_.isColumnHidden(index.column())) {
            found += cell(index.row(), index.column());
        }
    }
    return found;
}

QList<int> GridAccess::selectedRows() const {
    QList<int> found;
    for (const QModelIndex& index : grid_.selectionModel()->selectedRows()) {
        found += index.row();
    }
    return found;
}

QAccessibleInterface* gridInterface(const QString& className, QObject* object) {
    return className == QLatin1String(GridView::staticMetaObject.className())
               ? new GridAccess(static_cast<GridView&>(*object))
               : nullptr;
}

} // namespace

void describeGrids() {
    QAccessible::installFactory(gridInterface);
}

void tellCurrentCell(GridView* grid, bool chosen) {
    const QModelIndex current = grid->currentIndex();
    const int column = placeOf(*grid, current.column());
    if (!QAccessible::isActive() || !grid->hasFocus() || column < 0) {
        return;
    }
    QAccessibleEvent event(grid, chosen ? QAccessible::Selection : QAccessible::Focus);
    event.setChild((current.row() + 1) * columnsInSight(*grid) + column);
    QAccessible::updateAccessibility(&event);
}

void tellChecks(GridView* grid, const QModelIndex& first, const QModelIndex& last) {
    if (!QAccessible::isActive()) {
        return;
    }
    if (const auto* access = dynamic_cast<const GridAccess*>(QAccessible::queryAccessibleInterface(grid))) {
        access->tellChecks(first, last);
    }
}

} // namespace qvm::ui
