#pragma once

#include <QTableView>

namespace qvm::ui {

/// The first columns of a grid, laid over the grid's own view. A screen reader hears of the grid alone.
class FrozenView : public QTableView {
    Q_OBJECT

public:
    explicit FrozenView(QWidget* parent);
};

} // namespace qvm::ui
