// The grid's cells, written or not.

#include "Grid.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qvm::test {
namespace {

TEST(Grid_Cells, that_nobody_has_written_read_as_empty_ones) {
    Grid grid(3, 4);
    EXPECT_EQ(grid.At(2, 3), Cell{});
    EXPECT_EQ(grid.At(3, 0), Cell{});
    EXPECT_EQ(grid.At(0, -1), Cell{});
    grid.SetText(1, 1, "one");
    EXPECT_EQ(grid.Text(1, 1), "one");
    EXPECT_EQ(grid.At(2, 3), Cell{});
    EXPECT_EQ(grid.At(1, 4), Cell{});
}

TEST(Grid_Cells, tell_no_change_when_they_are_written_as_they_are) {
    Grid grid(2, 2);
    int told = 0, noted = 0;
    grid.CellChanged = [&](int, int) { ++told; };
    grid.Changing = [&](int, int, const Cell&) { ++noted; };
    grid.SetText(0, 0, "");
    grid.SetBackColor(0, 1, White);
    grid.SetPicture(1, 0, 0);
    grid.Set(1, 1, Cell{});
    grid.SetText(2, 0, "outside");
    EXPECT_EQ(told, 0);
    EXPECT_EQ(noted, 0);
    grid.SetPicture(1, 0, 7);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(noted, 1);
}

TEST(Grid_Cells, that_are_written_first_tell_what_they_were) {
    Grid grid(2, 2);
    std::vector<Cell> before;
    grid.Changing = [&](int, int, const Cell& cell) { before.push_back(cell); };
    grid.Set(1, 1, {.Text = "a", .Picture = 2});
    grid.SetText(1, 1, "b");
    ASSERT_EQ(before.size(), 2U);
    EXPECT_EQ(before[0], Cell{});
    EXPECT_EQ(before[1].Text, "a");
    EXPECT_EQ(grid.At(1, 1).Picture, 2);
}

TEST(Grid_Cells, may_be_cleared_forgotten_and_resized_before_one_is_written) {
    Grid grid(2, 2);
    std::vector<std::pair<int, int>> told;
    grid.CellChanged = [&](int row, int column) { told.emplace_back(row, column); };
    grid.ClearRows(0);
    grid.Spalte_Vergessen(1);
    grid.Resize(3, 5);
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{-1, -1}, {-1, -1}, {-1, -1}}));
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Columns(), 5);
    grid.SetText(2, 4, "corner");
    EXPECT_EQ(grid.Text(2, 4), "corner");
    grid.Resize(3, 4);
    EXPECT_EQ(grid.Text(2, 4), "");
    grid.Resize(-1, 4);
    EXPECT_EQ(grid.At(0, 0), Cell{});
    grid.Resize(1, 1);
    grid.SetText(0, 0, "again");
    EXPECT_EQ(grid.Text(0, 0), "again");
}

TEST(Grid_Cells, take_a_text_of_their_own_grid) {
    Grid grid(2, 2);
    grid.SetText(0, 0, grid.Text(1, 1));
    grid.SetText(0, 0, "code");
    grid.SetText(1, 1, grid.Text(0, 0));
    grid.SetText(0, 0, std::string_view(grid.Text(0, 0)).substr(1));
    EXPECT_EQ(grid.Text(0, 0), "ode");
    EXPECT_EQ(grid.Text(1, 1), "code");
}

} // namespace
} // namespace qvm::test
