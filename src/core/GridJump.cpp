#include "GridJump.h"

#include "Suchtext.h"

#include <algorithm>

namespace qvm {

GridJump::GridJump(Platform& world, const Grid& grid, int column, const GridFilter* filter)
    : grid_(grid), column_(column), filter_(filter), forget_(world, Memory) {
    forget_.Ticked = [this] { Forget(); };
}

void GridJump::Forget() {
    forget_.Stop();
    typed_.clear();
}

int GridJump::Letter(int character) {
    if (character <= ' ' || character > 0xFF) {
        return 0;
    }
    const char letter = static_cast<char>(character);
    const std::string longer = typed_ + letter;
    // A second letter may still fit the row that the first one led to.
    int row = Find(longer, grid_.Row + (typed_.empty() ? 1 : 0));
    if (row != 0) {
        typed_ = longer;
    } else if (!typed_.empty() && std::all_of(typed_.begin(), typed_.end(), [=](char c) { return c == letter; })) {
        row = Find(std::string(1, letter), grid_.Row + 1);
    }
    if (row != 0) {
        forget_.Start(Memory);
    }
    return row;
}

int GridJump::Find(const std::string& beginning, int from) const {
    const int rows = grid_.Rows() - 1;
    for (int n = 0; n < rows; ++n) {
        const int row = (std::max(from, 1) - 1 + n) % rows + 1;
        const bool shown = filter_ == nullptr || filter_->Shows(row);
        if (shown && !grid_.Text(row, column_).empty() && Text_Beginnt(grid_.Text(row, column_), beginning)) {
            return row;
        }
    }
    return 0;
}

} // namespace qvm
