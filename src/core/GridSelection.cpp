#include "GridSelection.h"

#include <algorithm>

namespace qvm {
namespace {

/// On the clipboard a cell is one field of one line.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    return text;
}

} // namespace

GridSelection::GridSelection(Grid& grid, Unit unit, const GridFilter* filter, int headingRows, int headingColumns)
    : grid_(grid), unit_(unit), filter_(filter), headingRows_(headingRows), headingColumns_(headingColumns),
      anchorRow_(headingRows), anchorColumn_(headingColumns) {}

void GridSelection::Set(const GridBlock& block, int row, int column) {
    if (block == block_ && grid_.Row == row && grid_.Column == column) {
        return;
    }
    block_ = block;
    grid_.Row = row;
    grid_.Column = column;
    if (Moved) {
        Moved();
    }
    if (Changed) {
        Changed();
    }
}

/// A view that has gone to the heading by itself is told to come back.
bool GridSelection::Allowed(int row, int column) const {
    const bool allowed = row >= headingRows_ && column >= headingColumns_ && grid_.Holds(row, column);
    if (!allowed && Changed) {
        Changed();
    }
    return allowed;
}

void GridSelection::Go(int row, int column) {
    if (!Allowed(row, column)) {
        return;
    }
    anchorRow_ = row;
    anchorColumn_ = column;
    Extend(row, column);
}

void GridSelection::Extend(int row, int column) {
    if (!Allowed(row, column)) {
        return;
    }
    const bool rows = unit_ == Unit::Rows;
    Set({.Top = std::min(anchorRow_, row),
         .Left = rows ? headingColumns_ : std::min(anchorColumn_, column),
         .Bottom = std::max(anchorRow_, row),
         .Right = rows ? grid_.Columns() - 1 : std::max(anchorColumn_, column)},
        row, column);
}

void GridSelection::Within(int row, int column) {
    if (Holds(row, column)) {
        Set(block_, row, column);
    }
}

void GridSelection::None() {
    anchorRow_ = headingRows_;
    anchorColumn_ = headingColumns_;
    Set({}, 0, grid_.Column);
}

void GridSelection::All() {
    Set({.Top = headingRows_, .Left = headingColumns_, .Bottom = grid_.Rows() - 1, .Right = grid_.Columns() - 1},
        grid_.Row, grid_.Column);
}

void GridSelection::FilterChanged() {
    int row = std::max(grid_.Row, headingRows_);
    while (row < grid_.Rows() && !Shows(row)) {
        ++row;
    }
    // Behind the last row: none below the current one is shown, and one above it may be.
    if (row == grid_.Rows()) {
        for (row = headingRows_; row < grid_.Rows() && !Shows(row);) {
            ++row;
        }
    }
    // With no row in sight the current cell stays where it is, out of sight.
    Go(row < grid_.Rows() ? row : grid_.Row, grid_.Column);
}

GridBlock GridSelection::Block() const {
    GridBlock block = block_;
    block.Bottom = std::min(block.Bottom, grid_.Rows() - 1);
    block.Right = std::min(block.Right, grid_.Columns() - 1);
    return block;
}

bool GridSelection::Larger() const {
    const GridBlock block = Block();
    return block.Bottom > block.Top || (unit_ == Unit::Cells && block.Right > block.Left);
}

std::vector<int> GridSelection::Rows() const {
    const GridBlock block = Block();
    std::vector<int> rows;
    for (int row = block.Top; row <= block.Bottom; ++row) {
        if (Shows(row)) {
            rows.push_back(row);
        }
    }
    return rows;
}

std::string GridSelection::Text(const std::function<bool(int column)>& columnShown) const {
    const GridBlock block = Block();
    std::string text;
    for (const int row : Rows()) {
        bool first = true;
        for (int column = block.Left; column <= block.Right; ++column) {
            if (columnShown && !columnShown(column)) {
                continue;
            }
            text += (first ? "" : "\t") + OneLine(grid_.Text(row, column));
            first = false;
        }
        text += "\n";
    }
    return text;
}

} // namespace qvm
