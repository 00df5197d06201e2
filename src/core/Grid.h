#pragma once

#include "Controls.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// One cell. Knows texts, colours and picture ids, not users or locks.
struct Cell {
    std::string Text;
    Colour ForeColor = Black;
    Colour BackColor = White;
    int FontSize = 8; ///< points
    int Picture = 0;  ///< 0: none
    bool Bold = false;

    bool operator==(const Cell&) const = default;
};

/// A grid control: rows x columns of cells. Every write goes through Set, which checks both coordinates and tells the
/// view. A coordinate outside the grid reads as an empty cell and writes nothing. A text that gives way to another one
/// is overwritten, as it may have been a code or a key. Cells take no memory before the first of them is written: most
/// windows are never opened.
class Grid {
public:
    Grid(int rows, int columns) { Resize(rows, columns); }

    int Rows() const { return rows_; }
    int Columns() const { return columns_; }
    /// Keeps what fits.
    void Resize(int rows, int columns);
    bool Holds(int row, int column) const { return row >= 0 && row < rows_ && column >= 0 && column < columns_; }

    const Cell& At(int row, int column) const;
    const std::string& Text(int row, int column) const { return At(row, column).Text; }

    void Set(int row, int column, const Cell& cell);
    void SetText(int row, int column, std::string_view text);
    void SetForeColor(int row, int column, Colour colour);
    void SetBackColor(int row, int column, Colour colour);
    void SetFontSize(int row, int column, int points);
    void SetPicture(int row, int column, int picture);
    void SetBold(int row, int column, bool bold);
    /// Overwrites the texts of a column, in every row, and leaves them empty. An undo is told nothing, which would keep
    /// them.
    void Spalte_Vergessen(int column);
    /// Empty cells from the row on.
    void ClearRows(int fromRow = 0);

    int Row = 0; ///< current cell
    int Column = 0;
    Observed<bool> Enabled{true};
    Observed<bool> Visible{true};

    /// For an undo: the cell is about to become another one. Resize and ClearRows are not told here; what was noted
    /// before is worth nothing behind them.
    std::function<void(int row, int column, const Cell& before)> Changing;
    /// Called after a cell changed; (-1, -1): everything may have changed.
    std::function<void(int row, int column)> CellChanged;

private:
    /// The cell, which the grid holds, to be written.
    Cell& Eigene(int row, int column);
    /// Sets one part of a cell and leaves the others.
    template <class Part, class Value>
    void Teil_Setzen(int row, int column, Part Cell::*part, const Value& value);

    int rows_ = 0;
    int columns_ = 0;
    std::vector<Cell> cells_; ///< empty until the first of them is written
};

} // namespace qvm
