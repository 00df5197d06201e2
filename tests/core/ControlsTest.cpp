#include "Controls.h"

#include "Grid.h"

#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>
#include <string>
#include <utility>
#include <vector>

namespace qvm {
namespace {

using Coordinates = std::vector<std::pair<int, int>>;

constexpr int Least = std::numeric_limits<int>::min();
constexpr int Most = std::numeric_limits<int>::max();

struct Gitter : testing::Test {
    Grid grid{3, 4};
    Coordinates changes;

    Gitter() {
        grid.CellChanged = [this](int row, int column) { changes.emplace_back(row, column); };
    }
};

TEST(Observed, tells_a_change_once_and_silence_when_nothing_changes) {
    Observed<std::string> value{std::string("a")};
    int told = 0;
    value.Changed = [&] { ++told; };
    value = "a";
    EXPECT_EQ(told, 0);
    value = "b";
    EXPECT_EQ(told, 1);
    EXPECT_EQ(value(), "b");
}

TEST(Observed, the_view_sees_the_new_value) {
    Observed<int> value{1};
    int seen = 0;
    value.Changed = [&] { seen = value; };
    value = 7;
    EXPECT_EQ(seen, 7);
}

TEST(Observed, needs_no_view) {
    Observed<int> value;
    value = 3;
    EXPECT_EQ(value(), 3);
}

TEST_F(Gitter, begins_with_empty_cells) {
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Columns(), 4);
    EXPECT_EQ(grid.At(2, 3), Cell{});
    EXPECT_EQ(grid.At(0, 0).BackColor, White);
    EXPECT_EQ(grid.At(0, 0).FontSize, 8);
}

TEST_F(Gitter, a_write_reaches_its_cell_alone_and_tells_the_view) {
    grid.SetText(1, 2, "x");
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column) {
            EXPECT_EQ(grid.Text(row, column), row == 1 && column == 2 ? "x" : "");
        }
    }
    EXPECT_EQ(changes, (Coordinates{{1, 2}}));
}

TEST_F(Gitter, every_setter_changes_its_own_part_of_the_cell) {
    grid.SetText(0, 1, "t");
    grid.SetForeColor(0, 1, 0xFF);
    grid.SetBackColor(0, 1, 0xC0FFFF);
    grid.SetFontSize(0, 1, 12);
    grid.SetPicture(0, 1, 5);
    grid.SetBold(0, 1, true);
    EXPECT_EQ(
        grid.At(0, 1),
        (Cell{.Text = "t", .ForeColor = 0xFF, .BackColor = 0xC0FFFF, .FontSize = 12, .Picture = 5, .Bold = true}));
    EXPECT_EQ(changes.size(), 6U);
}

TEST_F(Gitter, writing_what_stands_there_tells_nothing) {
    grid.SetText(1, 1, "");
    grid.Set(1, 1, Cell{});
    EXPECT_TRUE(changes.empty());
}

TEST_F(Gitter, a_coordinate_outside_reads_empty_and_writes_nothing) {
    grid.SetText(0, 0, "first");
    grid.SetText(2, 3, "last");
    changes.clear();
    for (const auto& [row, column] : Coordinates{
             {-1, 0}, {0, -1}, {3, 0}, {0, 4}, {3, 4}, {-1, -1}, {1, -1}, {Least, Least}, {Most, Most}, {0, Most}}) {
        EXPECT_FALSE(grid.Holds(row, column));
        EXPECT_EQ(grid.At(row, column), Cell{});
        grid.SetText(row, column, "x");
        grid.SetPicture(row, column, 1);
        grid.Set(row, column, Cell{.Text = "y"});
    }
    EXPECT_TRUE(changes.empty());
    EXPECT_EQ(grid.Text(0, 0), "first");
    EXPECT_EQ(grid.Text(2, 3), "last");
    EXPECT_EQ(grid.Text(0, 3), "");
    EXPECT_EQ(grid.Text(1, 0), "");
}

TEST_F(Gitter, a_resize_keeps_what_fits) {
    grid.SetText(0, 0, "a");
    grid.SetText(1, 2, "b");
    grid.SetText(2, 3, "c");
    changes.clear();
    grid.Resize(2, 3);
    EXPECT_EQ(changes, (Coordinates{{-1, -1}}));
    grid.Resize(5, 6);
    EXPECT_EQ(grid.Text(0, 0), "a");
    EXPECT_EQ(grid.Text(1, 2), "b");
    EXPECT_EQ(grid.Text(2, 3), "");
    EXPECT_TRUE(grid.Holds(4, 5));
}

TEST_F(Gitter, a_negative_size_is_no_size) {
    grid.Resize(-1, -5);
    EXPECT_EQ(grid.Rows(), 0);
    EXPECT_EQ(grid.Columns(), 0);
    EXPECT_FALSE(grid.Holds(0, 0));
}

TEST_F(Gitter, clearing_rows_leaves_those_above) {
    grid.SetText(0, 0, "head");
    grid.SetText(1, 0, "a");
    grid.SetPicture(2, 3, 4);
    changes.clear();
    grid.ClearRows(1);
    EXPECT_EQ(grid.Text(0, 0), "head");
    EXPECT_EQ(grid.Text(1, 0), "");
    EXPECT_EQ(grid.At(2, 3), Cell{});
    EXPECT_EQ(changes, (Coordinates{{-1, -1}}));
    grid.ClearRows(-7);
    EXPECT_EQ(grid.Text(0, 0), "");
    grid.ClearRows(99);
}

TEST_F(Gitter, a_cell_can_be_copied_within_the_grid) {
    grid.SetText(0, 0, "a");
    grid.Set(1, 1, grid.At(0, 0));
    grid.SetText(2, 2, grid.Text(0, 0));
    EXPECT_EQ(grid.Text(1, 1), "a");
    EXPECT_EQ(grid.Text(2, 2), "a");
}

TEST(Grid, a_write_is_read_back_where_the_grid_holds_it_and_nowhere_else) {
    EXPECT_TRUE(rc::check([](int row, int column) {
        Grid grid{3, 4};
        grid.SetPicture(row % 5, column % 6, 1);
        const bool inside = row % 5 >= 0 && row % 5 < 3 && column % 6 >= 0 && column % 6 < 4;
        int set = 0;
        for (int r = 0; r < 3; ++r) {
            for (int c = 0; c < 4; ++c) {
                set += grid.At(r, c).Picture;
            }
        }
        RC_ASSERT(set == (inside ? 1 : 0));
        RC_ASSERT(grid.At(row % 5, column % 6).Picture == set);
    }));
}

} // namespace
} // namespace qvm
