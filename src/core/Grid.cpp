#include "Grid.h"

#include "Secret.h"

#include <algorithm>
#include <utility>

namespace qvm {

namespace {

std::size_t Index(int row, int column, int columns) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column);
}

template <class Part>
void Ersetzen(Part& part, const Part& value) {
    part = value;
}

/// The new text may be a piece of the old one, which is not to be left in memory.
void Ersetzen(std::string& part, std::string_view value) {
    if (part.empty()) {
        part = value;
        return;
    }
    std::string old(value);
    part.swap(old);
    Vergessen(old);
}

} // namespace

void Grid::Resize(int rows, int columns) {
    rows = std::max(rows, 0);
    columns = std::max(columns, 0);
    if (!cells_.empty()) {
        std::vector<Cell> cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
        for (int row = 0; row < std::min(rows, rows_); ++row) {
            for (int column = 0; column < std::min(columns, columns_); ++column) {
                cells[Index(row, column, columns)] = std::move(cells_[Index(row, column, columns_)]);
            }
        }
        cells_ = std::move(cells);
    }
    rows_ = rows;
    columns_ = columns;
    if (CellChanged) {
        CellChanged(-1, -1);
    }
}

const Cell& Grid::At(int row, int column) const {
    static const Cell Empty;
    return Holds(row, column) && !cells_.empty() ? cells_[Index(row, column, columns_)] : Empty;
}

Cell& Grid::Eigene(int row, int column) {
    if (cells_.empty()) {
        cells_.resize(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_));
    }
    return cells_[Index(row, column, columns_)];
}

void Grid::Set(int row, int column, const Cell& cell) {
    if (!Holds(row, column) || At(row, column) == cell) {
        return;
    }
    Cell& own = Eigene(row, column);
    if (Changing) {
        Changing(row, column, own);
    }
    if (!own.Text.empty()) {
        Vergessen(own.Text);
    }
    own = cell;
    if (CellChanged) {
        CellChanged(row, column);
    }
}

template <class Part, class Value>
void Grid::Teil_Setzen(int row, int column, Part Cell::*part, const Value& value) {
    if (!Holds(row, column) || At(row, column).*part == value) {
        return;
    }
    Cell& own = Eigene(row, column);
    if (Changing) {
        Changing(row, column, own);
    }
    Ersetzen(own.*part, value);
    if (CellChanged) {
        CellChanged(row, column);
    }
}

void Grid::SetText(int row, int column, std::string_view text) {
    Teil_Setzen(row, column, &Cell::Text, text);
}

void Grid::SetForeColor(int row, int column, Colour colour) {
    Teil_Setzen(row, column, &Cell::ForeColor, colour);
}

void Grid::SetBackColor(int row, int column, Colour colour) {
    Teil_Setzen(row, column, &Cell::BackColor, colour);
}

void Grid::SetFontSize(int row, int column, int points) {
    Teil_Setzen(row, column, &Cell::FontSize, points);
}

void Grid::SetPicture(int row, int column, int picture) {
    Teil_Setzen(row, column, &Cell::Picture, picture);
}

void Grid::SetBold(int row, int column, bool bold) {
    Teil_Setzen(row, column, &Cell::Bold, bold);
}

void Grid::Spalte_Vergessen(int column) {
    for (int row = 0; !cells_.empty() && row < rows_ && Holds(row, column); ++row) {
        Vergessen(cells_[Index(row, column, columns_)].Text);
    }
    if (CellChanged) {
        CellChanged(-1, -1);
    }
}

void Grid::ClearRows(int fromRow) {
    for (int row = std::max(fromRow, 0); !cells_.empty() && row < rows_; ++row) {
        for (int column = 0; column < columns_; ++column) {
            cells_[Index(row, column, columns_)] = Cell{};
        }
    }
    if (CellChanged) {
        CellChanged(-1, -1);
    }
}

} // namespace qvm
