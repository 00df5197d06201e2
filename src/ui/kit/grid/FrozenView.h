#pragma once

#include <QTableView>

namespace qvm::ui {

/// The first columns of a grid, laid over the grid's own view. A screen reader hears of the grid alone.
class FrozenView : public QTableView {
    Q_OBJECT

public:
    explicit FrozenView(QWidget* parent);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
};

} // namespace qvm::ui
