#include "GridFilter.h"

#include "Suchtext.h"
#include "Text.h"
#include "Words.h"

#include <algorithm>
#include <utility>

namespace qvm {

GridFilter::GridFilter(const Kern& kern, const Grid& grid, std::vector<int> columns)
    : kern_(kern), grid_(grid), columns_(std::move(columns)) {}

bool GridFilter::Active() const {
    return !Trim(Line.Text()).empty();
}

bool GridFilter::Shows(int row) const {
    return row < 0 || static_cast<std::size_t>(row) >= hidden_.size() || !hidden_[static_cast<std::size_t>(row)];
}

void GridFilter::Set(std::string_view text) {
    Line.Text = std::string(text);
    Apply();
}

void GridFilter::Apply() {
    const std::string wanted(Trim(Line.Text()));
    hidden_.assign(static_cast<std::size_t>(grid_.Rows()), false);
    shown_ = filled_ = 0;
    for (int row = 1; row < grid_.Rows(); ++row) {
        const bool filled =
            std::any_of(columns_.begin(), columns_.end(), [&](int c) { return !grid_.Text(row, c).empty(); });
        const bool found = wanted.empty() || std::any_of(columns_.begin(), columns_.end(), [&](int c) {
                               return Text_Enthaelt(grid_.Text(row, c), wanted);
                           });
        hidden_[static_cast<std::size_t>(row)] = !found;
        filled_ += filled ? 1 : 0;
        shown_ += filled && found ? 1 : 0;
    }
    Count.Text = wanted.empty() ? std::string() : Wort(kern_, Word::FilterCount, {Ziffern(shown_), Ziffern(filled_)});
    if (Changed) {
        Changed();
    }
    if (RowsChanged) {
        RowsChanged();
    }
}

} // namespace qvm
