#include "GridUndo.h"

#include <gtest/gtest.h>
#include <string>

namespace qvm::test {
namespace {

struct Grid_Undo : ::testing::Test {
    Grid grid{4, 5};
    GridUndo undo{grid};

    void Step(int row, int column, const std::string& text, Word what = Word::StepEdit) {
        undo.Begin(what);
        grid.SetText(row, column, text);
        undo.End();
    }
};

TEST_F(Grid_Undo, takes_a_whole_cell_back_and_sets_it_again) {
    const Cell before{
        .Text = "X", .ForeColor = 0x00C000, .BackColor = 0xE0E0E0, .FontSize = 16, .Picture = 2, .Bold = true};
    const Cell after{.Text = "F", .ForeColor = 0x808080, .FontSize = 12, .Picture = 3};
    grid.Set(2, 3, before);
    undo.Begin(Word::StepMark);
    grid.Set(2, 3, after);
    EXPECT_TRUE(undo.End());
    EXPECT_TRUE(undo.Undo());
    EXPECT_EQ(grid.At(2, 3), before);
    EXPECT_TRUE(undo.Redo());
    EXPECT_EQ(grid.At(2, 3), after);
    EXPECT_TRUE(undo.Undo());
    EXPECT_EQ(grid.At(2, 3), before);
    EXPECT_FALSE(undo.Undo());
}

TEST_F(Grid_Undo, takes_all_cells_of_an_action_back_at_once) {
    grid.SetText(1, 1, "a");
    grid.SetText(1, 2, "b");
    undo.Begin(Word::StepDelete);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 5; ++column) {
            grid.SetText(row, column, "new");
        }
    }
    EXPECT_TRUE(undo.End());
    EXPECT_EQ(undo.Steps(), 1U);
    undo.Undo();
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 5; ++column) {
            EXPECT_EQ(grid.Text(row, column), row == 1 && column == 1 ? "a" : row == 1 && column == 2 ? "b" : "");
        }
    }
}

TEST_F(Grid_Undo, goes_back_to_what_a_cell_was_before_its_first_change) {
    grid.SetText(0, 0, "first");
    undo.Begin(Word::StepEdit);
    grid.SetText(0, 0, "second");
    grid.SetText(0, 0, "third");
    undo.End();
    undo.Undo();
    EXPECT_EQ(grid.Text(0, 0), "first");
    undo.Redo();
    EXPECT_EQ(grid.Text(0, 0), "third");
}

TEST_F(Grid_Undo, counts_no_step_that_changed_nothing) {
    Step(1, 1, "a");
    undo.Undo();
    undo.Begin(Word::StepEdit);
    grid.SetText(1, 2, "b");
    grid.SetText(1, 2, "");
    EXPECT_FALSE(undo.End());
    EXPECT_EQ(undo.Steps(), 0U);
    EXPECT_NE(undo.NextRedo(), nullptr); // what was taken back can still be done again
}

TEST_F(Grid_Undo, leaves_alone_what_changed_outside_a_step) {
    grid.SetText(3, 3, "loaded");
    Step(1, 1, "a");
    grid.SetBackColor(2, 2, 0xE0E0E0);
    undo.Undo();
    EXPECT_EQ(grid.Text(3, 3), "loaded");
    EXPECT_EQ(grid.At(2, 2).BackColor, 0xE0E0E0U);
    EXPECT_EQ(undo.NextUndo(), nullptr);
}

TEST_F(Grid_Undo, takes_a_step_inside_a_step_for_a_part_of_it) {
    undo.Begin(Word::StepDeleteUser);
    grid.SetText(1, 1, "a");
    undo.Begin(Word::StepSort);
    grid.SetText(2, 1, "b");
    EXPECT_FALSE(undo.End());
    grid.SetText(3, 1, "c");
    EXPECT_TRUE(undo.End());
    ASSERT_NE(undo.NextUndo(), nullptr);
    EXPECT_EQ(undo.NextUndo()->What, Word::StepDeleteUser);
    undo.Undo();
    EXPECT_EQ(grid.Text(1, 1) + grid.Text(2, 1) + grid.Text(3, 1), "");
}

TEST_F(Grid_Undo, forgets_what_was_taken_back_at_the_next_step) {
    Step(1, 1, "a");
    Step(1, 2, "b");
    undo.Undo();
    Step(1, 3, "c");
    EXPECT_EQ(undo.NextRedo(), nullptr);
    EXPECT_FALSE(undo.Redo());
    undo.Undo();
    EXPECT_EQ(grid.Text(1, 1), "a");
    EXPECT_EQ(grid.Text(1, 2) + grid.Text(1, 3), "");
}

TEST_F(Grid_Undo, keeps_a_hundred_steps_and_forgets_the_oldest) {
    for (int n = 1; n <= 101; ++n) {
        Step(1, 1, std::to_string(n));
    }
    EXPECT_EQ(undo.Steps(), 100U);
    while (undo.Undo()) {
    }
    EXPECT_EQ(grid.Text(1, 1), "1");
    while (undo.Redo()) {
    }
    EXPECT_EQ(grid.Text(1, 1), "101");
}

TEST_F(Grid_Undo, says_what_the_step_was_where_it_was_and_what_stays_on_the_disk) {
    undo.Begin(Word::StepLearn);
    grid.SetText(3, 4, "data");
    grid.SetText(2, 4, "key");
    undo.Keep(Word::ChannelStays);
    undo.End();
    const auto step = undo.Undo();
    ASSERT_TRUE(step);
    EXPECT_EQ(step->What, Word::StepLearn);
    EXPECT_EQ(step->Stays, Word::ChannelStays);
    EXPECT_EQ(step->Row, 2);
    EXPECT_EQ(step->Column, 4);
    ASSERT_NE(undo.NextRedo(), nullptr);
    EXPECT_EQ(undo.NextRedo()->Stays, Word::ChannelStays);
    Step(1, 1, "a");
    EXPECT_FALSE(undo.Undo()->Stays);
}

TEST_F(Grid_Undo, does_nothing_while_a_step_is_open) {
    Step(1, 1, "a");
    undo.Begin(Word::StepEdit);
    EXPECT_FALSE(undo.Undo());
    EXPECT_FALSE(undo.Redo());
    EXPECT_EQ(grid.Text(1, 1), "a");
    undo.End();
    EXPECT_FALSE(undo.End()); // none is open
}

TEST_F(Grid_Undo, knows_no_step_behind_a_load) {
    Step(1, 1, "a");
    Step(1, 1, "b");
    undo.Undo();
    undo.Forget();
    EXPECT_FALSE(undo.Undo());
    EXPECT_FALSE(undo.Redo());
    Step(1, 1, "c");
    undo.Undo();
    EXPECT_EQ(grid.Text(1, 1), "a");
}

TEST_F(Grid_Undo, lets_go_of_the_grid) {
    Grid other(1, 1);
    { const GridUndo gone(other); }
    other.SetText(0, 0, "a");
    EXPECT_EQ(other.Text(0, 0), "a");
    EXPECT_FALSE(other.Changing);
}

} // namespace
} // namespace qvm::test
