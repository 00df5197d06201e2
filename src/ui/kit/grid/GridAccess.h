#pragma once

class QModelIndex;

namespace qvm::ui {

class GridView;

/// What a screen reader is told of a grid: a table of the columns that can be seen, whose editor is in the tree while
/// it is open. To be called before the first grid is asked for; again does no harm.
void describeGrids();

/// Tells the screen reader that the current cell has the keyboard, or has been chosen.
void tellCurrentCell(GridView* grid, bool chosen);

/// Tells the screen reader of check boxes between two cells that were checked or cleared. Qt's tables do not.
void tellChecks(GridView* grid, const QModelIndex& first, const QModelIndex& last);

} // namespace qvm::ui
