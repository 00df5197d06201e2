#pragma once

#include <optional>
#include <utility>

class QMenu;

namespace qvm::ui {

class GridView;

/// Opens the menu below the cell of the grid that was clicked; without one below the current cell, where the keyboard
/// is on the first entry then.
void popUpAtCell(QMenu& menu, GridView& grid, const std::optional<std::pair<int, int>>& clicked);

} // namespace qvm::ui
