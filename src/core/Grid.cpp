#include "Grid.h"

#include <algorithm>
#include <utility>

namespace qvm {

namespace {

std::size_t Index(int row, int column, int columns) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column);
}

} // namespace

void Grid::Resize(int rows, int columns) {
    rows = std::max(rows, 0);
    columns = std::max(columns, 0);
    std::vector<Cell> cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
    for (int row = 0; row < std::min(rows, rows_); ++row) {
        for (int column = 0; column < std::min(columns, columns_); ++column) {
            cells[Index(row, column, columns)] = std::move(cells_[Index(row, column, columns_)]);
        }
    }
    cells_ = std::move(cells);
    rows_ = rows;
    columns_ = columns;
    if (CellChanged) {
        CellChanged(-1, -1);
    }
}

const Cell& Grid::At(int row, int column) const {
    static const Cell Empty;
    return Holds(row, column) ? cells_[Index(row, column, columns_)] : Empty;
}

void Grid::Set(int row, int column, const Cell& cell) {
    if (!Holds(row, column)) {
        return;
    }
    Cell& own = cells_[Index(row, column, columns_)];
    if (own == cell) {
        return;
    }
    own = cell;
    if (CellChanged) {
        CellChanged(row, column);
    }
}

void Grid::SetText(int row, int column, std::string_view text) {
    Cell cell = At(row, column);
    cell.Text = text;
    Set(row, column, cell);
}

void Grid::SetForeColor(int row, int column, Colour colour) {
    Cell cell = At(row, column);
    cell.ForeColor = colour;
    Set(row, column, cell);
}

void Grid::SetBackColor(int row, int column, Colour colour) {
    Cell cell = At(row, column);
    cell.BackColor = colour;
    Set(row, column, cell);
}

void Grid::SetFontSize(int row, int column, int points) {
    Cell cell = At(row, column);
    cell.FontSize = points;
    Set(row, column, cell);
}

void Grid::SetPicture(int row, int column, int picture) {
    Cell cell = At(row, column);
    cell.Picture = picture;
    Set(row, column, cell);
}

void Grid::SetBold(int row, int column, bool bold) {
    Cell cell = At(row, column);
    cell.Bold = bold;
    Set(row, column, cell);
}

void Grid::ClearRows(int fromRow) {
    for (int row = std::max(fromRow, 0); row < rows_; ++row) {
        for (int column = 0; column < columns_; ++column) {
            cells_[Index(row, column, columns_)] = Cell{};
        }
    }
    if (CellChanged) {
        CellChanged(-1, -1);
    }
}

} // namespace qvm
