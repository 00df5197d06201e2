#include "GridFilter.h"

#include "VirtualPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm::test {
namespace {

struct Grid_Filter : ::testing::Test {
    VirtualPlatform world;
    Kern kern{world.World};
    Grid grid{7, 4};
    GridFilter filter{kern, grid, {1, 2}};
    std::vector<std::string> told;

    Grid_Filter() {
        grid.SetText(0, 1, "Name");
        grid.SetText(1, 1, "Tor");
        grid.SetText(1, 2, "01.50.0C.10");
        grid.SetText(2, 1, "Keller");
        grid.SetText(2, 3, "Tor");
        grid.SetText(3, 2, "00.0A.10.01");
        grid.SetText(5, 1, "T\xFCr");
        filter.Changed = [this] { told.emplace_back("window"); };
        filter.RowsChanged = [this] { told.emplace_back("view"); };
    }
    std::vector<int> Shown() const {
        std::vector<int> rows;
        for (int row = 1; row < grid.Rows(); ++row) {
            if (filter.Shows(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    }
};

TEST_F(Grid_Filter, shows_every_row_while_nothing_is_looked_for) {
    EXPECT_FALSE(filter.Active());
    EXPECT_THAT(Shown(), ::testing::ElementsAre(1, 2, 3, 4, 5, 6));
    filter.Set("   ");
    EXPECT_FALSE(filter.Active());
    EXPECT_THAT(Shown(), ::testing::ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(filter.Count.Text(), "");
}

TEST_F(Grid_Filter, shows_the_rows_whose_columns_hold_the_text_in_any_part) {
    filter.Set("to");
    EXPECT_THAT(Shown(), ::testing::ElementsAre(1));
    filter.Set("0a.1");
    EXPECT_THAT(Shown(), ::testing::ElementsAre(3));
    filter.Set("10");
    EXPECT_THAT(Shown(), ::testing::ElementsAre(1, 3));
    filter.Set(" TUR ");
    EXPECT_THAT(Shown(), ::testing::ElementsAre(5));
}

TEST_F(Grid_Filter, counts_the_rows_that_hold_something) {
    filter.Set("10");
    EXPECT_EQ(filter.Shown(), 2);
    EXPECT_EQ(filter.Filled(), 4);
    EXPECT_EQ(filter.Count.Text(), "2 von 4");
    kern.Config.Sprache = "English";
    filter.Apply();
    EXPECT_EQ(filter.Count.Text(), "2 of 4");
    filter.Set("nowhere");
    EXPECT_EQ(filter.Count.Text(), "0 of 4");
    filter.Set("");
    EXPECT_EQ(filter.Count.Text(), "");
}

TEST_F(Grid_Filter, leaves_the_grid_as_it_is) {
    filter.Set("nowhere");
    EXPECT_THAT(Shown(), ::testing::IsEmpty());
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(grid.Text(1, 1), "Tor");
}

TEST_F(Grid_Filter, always_shows_the_heading_and_knows_no_rows_outside) {
    filter.Set("nowhere");
    EXPECT_TRUE(filter.Shows(0));
    EXPECT_TRUE(filter.Shows(-1));
    EXPECT_TRUE(filter.Shows(7));
    EXPECT_FALSE(filter.Shows(6));
}

TEST_F(Grid_Filter, finds_out_anew_when_the_grid_has_changed) {
    filter.Set("tor");
    grid.SetText(4, 1, "Torweg");
    EXPECT_THAT(Shown(), ::testing::ElementsAre(1));
    filter.Apply();
    EXPECT_THAT(Shown(), ::testing::ElementsAre(1, 4));
    grid.Resize(3, 4);
    filter.Apply();
    EXPECT_THAT(Shown(), ::testing::ElementsAre(1));
    EXPECT_EQ(filter.Count.Text(), "1 von 2");
}

TEST_F(Grid_Filter, tells_the_window_first_and_the_view_behind_it) {
    filter.Set("tor");
    EXPECT_THAT(told, ::testing::ElementsAre("window", "view"));
    EXPECT_EQ(filter.Line.Text(), "tor");
}

TEST_F(Grid_Filter, needs_nobody_who_listens) {
    filter.Changed = {};
    filter.RowsChanged = {};
    filter.Set("keller");
    EXPECT_THAT(Shown(), ::testing::ElementsAre(2));
}

} // namespace
} // namespace qvm::test
