#include "GridSelection.h"

#include "VirtualPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ostream>

namespace qvm {

void PrintTo(const GridBlock& block, std::ostream* out) {
    *out << block.Top << '/' << block.Left << " to " << block.Bottom << '/' << block.Right;
}

} // namespace qvm

namespace qvm::test {
namespace {

using Unit = GridSelection::Unit;

struct Grid_Selection : ::testing::Test {
    VirtualPlatform world;
    Kern kern{world.World};
    Grid grid{6, 4};
    GridFilter filter{kern, grid, {1}};
    GridSelection cells{grid, Unit::Cells, &filter};
    GridSelection rows{grid, Unit::Rows, &filter};
    int told = 0;

    Grid_Selection() {
        for (int row = 1; row < 6; ++row) {
            for (int column = 0; column < 4; ++column) {
                grid.SetText(row, column, std::string(1, static_cast<char>('a' + column)) + std::to_string(row));
            }
        }
        cells.Changed = rows.Changed = [this] { ++told; };
    }
};

TEST_F(Grid_Selection, of_nothing_has_no_current_row_and_an_empty_block_and_tells_both) {
    int moved = 0;
    cells.Moved = [&] { ++moved; };
    cells.Go(2, 1);
    cells.Extend(4, 3);
    told = moved = 0;
    cells.None();
    EXPECT_EQ(grid.Row, 0);
    EXPECT_EQ(grid.Column, 3);
    EXPECT_EQ(cells.Block(), GridBlock{});
    EXPECT_TRUE(cells.Rows().empty());
    EXPECT_FALSE(cells.Larger());
    EXPECT_EQ(cells.Text(), "");
    EXPECT_EQ(moved, 1);
    EXPECT_EQ(told, 1);
    cells.None();
    EXPECT_EQ(told, 1) << "nothing is another one";
    cells.Extend(3, 2); // from where the heading ends
    EXPECT_EQ(cells.Block(), (GridBlock{1, 0, 3, 2}));
}

TEST_F(Grid_Selection, is_empty_until_a_cell_was_gone_to) {
    EXPECT_EQ(cells.Block(), GridBlock{});
    EXPECT_TRUE(cells.Rows().empty());
    EXPECT_EQ(cells.Text(), "");
    EXPECT_FALSE(cells.Holds(0, 0));
}

TEST_F(Grid_Selection, is_the_cell_that_was_gone_to) {
    cells.Go(2, 1);
    EXPECT_EQ(grid.Row, 2);
    EXPECT_EQ(grid.Column, 1);
    EXPECT_EQ(cells.Block(), (GridBlock{2, 1, 2, 1}));
    EXPECT_TRUE(cells.Holds(2, 1));
    EXPECT_FALSE(cells.Holds(2, 2));
    EXPECT_EQ(told, 1);
    cells.Go(2, 1);
    EXPECT_EQ(told, 1);
}

TEST_F(Grid_Selection, reaches_from_its_anchor_in_every_direction) {
    cells.Go(3, 2);
    EXPECT_FALSE(cells.Larger());
    cells.Extend(3, 1);
    EXPECT_TRUE(cells.Larger());
    cells.Extend(5, 3);
    EXPECT_EQ(cells.Block(), (GridBlock{3, 2, 5, 3}));
    EXPECT_EQ(grid.Row, 5);
    EXPECT_EQ(grid.Column, 3);
    cells.Extend(1, 0);
    EXPECT_EQ(cells.Block(), (GridBlock{1, 0, 3, 2}));
    cells.Go(4, 1);
    EXPECT_EQ(cells.Block(), (GridBlock{4, 1, 4, 1}));
}

TEST_F(Grid_Selection, goes_over_all_columns_in_a_grid_of_rows) {
    rows.Go(2, 1);
    EXPECT_EQ(rows.Block(), (GridBlock{2, 0, 2, 3}));
    EXPECT_FALSE(rows.Larger());
    rows.Extend(4, 3);
    EXPECT_TRUE(rows.Larger());
    EXPECT_EQ(rows.Block(), (GridBlock{2, 0, 4, 3}));
    EXPECT_EQ(grid.Column, 3);
}

TEST_F(Grid_Selection, takes_no_heading_and_nothing_outside) {
    cells.Go(2, 1);
    for (const auto& [row, column] : {std::pair{0, 1}, std::pair{6, 1}, std::pair{-1, 1}, std::pair{2, 4}}) {
        cells.Go(row, column);
        cells.Extend(row, column);
    }
    EXPECT_EQ(cells.Block(), (GridBlock{2, 1, 2, 1}));
    EXPECT_EQ(grid.Row, 2);
}

TEST_F(Grid_Selection, takes_everything_without_moving_the_current_cell) {
    cells.Go(3, 2);
    cells.All();
    EXPECT_EQ(cells.Block(), (GridBlock{1, 0, 5, 3}));
    EXPECT_EQ(grid.Row, 3);
    cells.Extend(4, 2);
    EXPECT_EQ(cells.Block(), (GridBlock{3, 2, 4, 2}));
}

TEST_F(Grid_Selection, lets_the_current_cell_go_about_within_it) {
    cells.Go(2, 1);
    cells.Extend(4, 3);
    told = 0;
    cells.Within(3, 2);
    EXPECT_EQ(cells.Block(), (GridBlock{2, 1, 4, 3}));
    EXPECT_EQ(grid.Row, 3);
    EXPECT_EQ(grid.Column, 2);
    EXPECT_EQ(told, 1);
    cells.Within(5, 2);
    EXPECT_EQ(grid.Row, 3);
    cells.Extend(2, 2);
    EXPECT_EQ(cells.Block(), (GridBlock{2, 1, 2, 2}));
}

TEST_F(Grid_Selection, gives_only_the_rows_that_are_shown) {
    grid.SetText(2, 1, "Tor");
    grid.SetText(5, 1, "Torweg");
    filter.Set("tor");
    rows.All();
    EXPECT_THAT(rows.Rows(), ::testing::ElementsAre(2, 5));
    GridSelection unfiltered(grid, Unit::Rows);
    unfiltered.All();
    EXPECT_THAT(unfiltered.Rows(), ::testing::ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(Grid_Selection, falls_together_to_the_current_cell_when_the_filter_changes) {
    rows.Go(2, 1);
    rows.Extend(4, 1);
    filter.Set("b");
    rows.FilterChanged();
    EXPECT_EQ(rows.Block(), (GridBlock{4, 0, 4, 3}));
}

TEST_F(Grid_Selection, leaves_a_current_row_that_the_filter_hides) {
    rows.Go(3, 1);
    filter.Set("b4");
    rows.FilterChanged();
    EXPECT_EQ(grid.Row, 4);
    filter.Set("b1");
    rows.FilterChanged();
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.Column, 1);
}

TEST_F(Grid_Selection, holds_no_row_while_the_filter_hides_them_all) {
    rows.Go(3, 1);
    filter.Set("nowhere");
    rows.FilterChanged();
    EXPECT_TRUE(rows.Rows().empty());
    EXPECT_EQ(rows.Text(), "");
    EXPECT_EQ(grid.Row, 3);
}

TEST_F(Grid_Selection, reaches_no_further_than_a_grid_that_has_become_smaller) {
    cells.All();
    grid.Resize(3, 2);
    EXPECT_EQ(cells.Block(), (GridBlock{1, 0, 2, 1}));
    EXPECT_THAT(cells.Rows(), ::testing::ElementsAre(1, 2));
}

TEST_F(Grid_Selection, gives_its_text_with_tabs_between_and_a_line_for_each_row) {
    cells.Go(2, 1);
    cells.Extend(3, 3);
    EXPECT_EQ(cells.Text(), "b2\tc2\td2\nb3\tc3\td3\n");
    EXPECT_EQ(cells.Text([](int column) { return column != 2; }), "b2\td2\nb3\td3\n");
    EXPECT_EQ(cells.Text([](int column) { return column == 3; }), "d2\nd3\n");
}

TEST_F(Grid_Selection, keeps_a_cell_of_several_lines_in_one_field) {
    grid.SetText(2, 1, "T\no\r\nr\t1");
    cells.Go(2, 1);
    EXPECT_EQ(cells.Text(), "T o  r 1\n");
}

TEST_F(Grid_Selection, spares_a_heading_of_several_rows_and_columns) {
    GridSelection inner(grid, Unit::Cells, nullptr, 2, 1);
    inner.Go(1, 1);
    inner.Go(2, 0);
    EXPECT_EQ(inner.Block(), GridBlock{});
    inner.Go(2, 1);
    inner.Extend(1, 2);
    EXPECT_EQ(inner.Block(), (GridBlock{2, 1, 2, 1}));
    inner.All();
    EXPECT_EQ(inner.Block(), (GridBlock{2, 1, 5, 3}));
    GridSelection lines(grid, Unit::Rows, nullptr, 2, 1);
    lines.Go(3, 2);
    EXPECT_EQ(lines.Block(), (GridBlock{3, 1, 3, 3}));
}

TEST_F(Grid_Selection, sends_a_view_that_went_to_the_heading_back) {
    cells.Go(2, 1);
    told = 0;
    cells.Go(0, 1);
    EXPECT_EQ(told, 1);
    cells.Extend(0, 1);
    EXPECT_EQ(told, 2);
    EXPECT_EQ(grid.Row, 2);
}

TEST_F(Grid_Selection, tells_the_window_before_the_view) {
    std::string order;
    cells.Moved = [&] { order += "window "; };
    cells.Changed = [&] { order += "view "; };
    cells.Go(2, 1);
    cells.Go(2, 1);
    EXPECT_EQ(order, "window view ");
}

TEST_F(Grid_Selection, leaves_hidden_rows_out_of_its_text) {
    filter.Set("b3");
    rows.All();
    EXPECT_EQ(rows.Text(), "a3\tb3\tc3\td3\n");
}

} // namespace
} // namespace qvm::test
