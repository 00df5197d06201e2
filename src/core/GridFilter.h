#pragma once

#include "Controls.h"
#include "Grid.h"
#include "Kern.h"

#include <functional>
#include <string_view>
#include <vector>

namespace qvm {

/// A filter line over a grid: rows in which none of some columns holds the text are not shown. It hides rows from the
/// view only; the grid, its row numbers and what stands in the cells stay as they are. Text_Enthaelt compares.
class GridFilter {
public:
    /// `columns`: those whose texts are looked at. The grid must outlive the filter.
    GridFilter(const Kern& kern, const Grid& grid, std::vector<int> columns);

    TextBox Line; ///< what is looked for; blanks around it do not count
    Label Count;  ///< "12 of 200" while something is looked for, else empty

    /// The line has another text, or the grid has: which rows are shown is found out anew.
    void Apply();
    /// Puts a text into the line and applies it.
    void Set(std::string_view text);
    /// Something is looked for.
    bool Active() const;
    /// The heading, and rows outside the grid, count as shown.
    bool Shows(int row) const;
    /// Rows that are shown, of those in which one of the columns holds a text.
    int Shown() const { return shown_; }
    /// Rows in which one of the columns holds a text.
    int Filled() const { return filled_; }

    std::function<void()> Changed;     ///< for the window: other rows may be shown
    std::function<void()> RowsChanged; ///< for the view, behind it

private:
    const Kern& kern_;
    const Grid& grid_;
    std::vector<int> columns_;
    std::vector<bool> hidden_; ///< by row
    int shown_ = 0;
    int filled_ = 0;
};

} // namespace qvm
