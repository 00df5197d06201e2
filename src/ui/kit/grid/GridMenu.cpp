#include "GridMenu.h"

#include "GridView.h"

#include <QAction>
#include <QMenu>

namespace qvm::ui {

void popUpAtCell(QMenu& menu, GridView& grid, const std::optional<std::pair<int, int>>& clicked) {
    const auto [row, column] = clicked.value_or(std::pair{grid.grid().Row, grid.grid().Column});
    if (!clicked) {
        grid.scrollTo(grid.currentIndex());
    }
    menu.popup(grid.mapToGlobal(grid.cellRect(row, column).bottomLeft()));
    if (!clicked) {
        menu.setActiveAction(menu.actions().constFirst());
    }
}

} // namespace qvm::ui
