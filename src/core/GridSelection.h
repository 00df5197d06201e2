#pragma once

#include "Grid.h"
#include "GridFilter.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qvm {

/// A rectangle of cells, all four sides within it. Empty while Bottom lies above Top.
struct GridBlock {
    int Top = 0, Left = 0, Bottom = -1, Right = -1;

    bool Holds(int row, int column) const { return row >= Top && row <= Bottom && column >= Left && column <= Right; }
    bool operator==(const GridBlock&) const = default;
};

/// The block of a grid that is selected: it reaches from an anchor to the current cell, which is the grid's Row and
/// Column. The heading is never part of it. The view brings mouse and keyboard here; a window asks for the block.
class GridSelection {
public:
    /// Rows: a block goes over all columns.
    enum class Unit : std::uint8_t { Cells, Rows };

    /// `filter`: rows that it hides are not among Rows; nullptr: none are hidden. Both must outlive the selection.
    /// `headingRows`, `headingColumns`: how many the heading has.
    GridSelection(Grid& grid, Unit unit, const GridFilter* filter = nullptr, int headingRows = 1,
                  int headingColumns = 0);

    /// The cell becomes the current one and is the whole block, or its row is. Outside the grid, and on the heading,
    /// nothing happens but that the view is told where the current cell is.
    void Go(int row, int column);
    /// The cell becomes the current one, and the block reaches from the anchor to it.
    void Extend(int row, int column);
    /// A cell of the block becomes the current one, while the block stays. Outside the block nothing happens.
    void Within(int row, int column);
    /// Nothing is selected, and no row is current: Row is 0. Column stays.
    void None();
    /// Everything, while the current cell stays.
    void All();
    /// To be called when the filter has changed: a larger block falls together to the current cell, and a current row
    /// that is hidden gives way to the first one that is shown.
    void FilterChanged();

    int HeadingColumns() const { return headingColumns_; }
    /// As far as the grid reaches today.
    GridBlock Block() const;
    bool Holds(int row, int column) const { return Block().Holds(row, column); }
    /// The block is more than the current cell, or the current row.
    bool Larger() const;
    /// Rows of the block that are shown, from the top.
    std::vector<int> Rows() const;
    /// The texts of the block's shown rows: cells behind each other with a tab between, rows with a line end behind
    /// each. Tabs and line ends inside a cell become blanks. `columnShown`: which columns; empty: all.
    std::string Text(const std::function<bool(int column)>& columnShown = {}) const;

    std::function<void()> Moved;   ///< for the window: block or current cell is another one
    std::function<void()> Changed; ///< for the view, behind it

private:
    void Set(const GridBlock& block, int row, int column);
    bool Allowed(int row, int column) const;
    bool Shows(int row) const { return filter_ == nullptr || filter_->Shows(row); }

    Grid& grid_;
    Unit unit_;
    const GridFilter* filter_;
    int headingRows_;
    int headingColumns_;
    int anchorRow_;
    int anchorColumn_;
    GridBlock block_;
};

} // namespace qvm
