#pragma once

#include "CaretlessText.h"
#include "GridView.h"

#include <QAccessible>
#include <QPointer>

namespace qvm::ui {

/// The number of columns in sight. A screen reader asks these for every cell, so that none of them makes a list.
int columnsInSight(const GridView& grid);
/// The place of the model's `column` among the columns in sight, -1 when it is not.
int placeOf(const GridView& grid, int column);
/// The model's column at that place among the columns in sight, -1 when there is none.
int columnAt(const GridView& grid, int place);

/// The heading of a column when `row` is -1, else a cell; row and column as the model counts them. A cell can be given
/// the keyboard, clicked and asked for its menu as far as the grid has handlers for that, and one that may be written
/// takes a text. What comes of it waits until the call is over, as it may open a box.
class CellAccess final : public QAccessibleInterface,
                         public QAccessibleTableCellInterface,
                         public QAccessibleActionInterface,
                         public CaretlessText {
public:
    CellAccess(GridView& grid, int row, int column) : grid_(&grid), row_(row), column_(column), told_(check()) {}

    bool isHeading() const { return row_ < 0; }
    /// Checked or not is another than when this was asked last; not for a cell without a check box.
    bool checkChanged();
    int row() const { return row_; }
    int column() const { return column_; }

    bool isValid() const override {
        return grid_ != nullptr && row_ < grid_->gridModel().rowCount() && column_ < grid_->gridModel().columnCount();
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return isValid() ? grid_->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(grid_); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessible::Role role() const override { return isHeading() ? QAccessible::ColumnHeader : QAccessible::Cell; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    int columnIndex() const override { return grid_ == nullptr ? -1 : placeOf(*grid_, column_); }
    int rowIndex() const override { return row_; }
    bool isSelected() const override {
        return isValid() && grid_->selectionModel()->isSelected(grid_->gridModel().index(row_, column_));
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> columnHeaderCells() const override {
        const QAccessibleInterface* table = parent();
        return table == nullptr ? QList<QAccessibleInterface*>() : QList{table->child(columnIndex())};
    }
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

    using CaretlessText::text;

private:
    // The text of a cell that may be written, while no editor is open over it.
    bool mayBeWritten() const;
    QString content() const override;
    QRect textRect() const override { return rect(); }
    void takeText(const QString& whole) override;
    QVariant check() const {
        return isHeading() || !isValid() ? QVariant()
                                         : grid_->gridModel().index(row_, column_).data(Qt::CheckStateRole);
    }

    QPointer<GridView> grid_;
    int row_;
    int column_;
    QVariant told_; ///< its check box, as it was when this was asked last
};

} // namespace qvm::ui
