#include "GridJump.h"

#include "GridSelection.h"
#include "VirtualPlatform.h"

#include <gtest/gtest.h>

namespace qvm::test {
namespace {

struct Grid_Jump : ::testing::Test {
    VirtualPlatform world;
    Kern kern{world.World};
    Grid grid{8, 2};
    GridFilter filter{kern, grid, {1}};
    GridJump jump{world.World, grid, 1, &filter};

    Grid_Jump() {
        const char* names[] = {"Tor",
                               "Keller",
                               "Torweg",
                               "Turm",
                               "",
                               ("\xDC"
                                "bergang"),
                               "Keller 2"};
        for (int row = 1; row < 8; ++row) {
            grid.SetText(row, 1, names[row - 1]);
        }
        grid.Row = 2;
    }
    /// Types the letters and goes where they lead. Gives the row in the end.
    int Type(std::string_view letters) {
        for (const char letter : letters) {
            if (const int row = jump.Letter(static_cast<unsigned char>(letter)); row != 0) {
                grid.Row = row;
            }
        }
        return grid.Row;
    }
};

TEST_F(Grid_Jump, goes_to_the_next_name_that_begins_so) {
    EXPECT_EQ(Type("t"), 3);
}

TEST_F(Grid_Jump, begins_again_at_the_top) {
    EXPECT_EQ(Type("k"), 7);
    world.RunFor(1000);
    EXPECT_EQ(Type("K"), 2);
}

TEST_F(Grid_Jump, takes_letters_in_quick_succession_for_one_beginning) {
    EXPECT_EQ(Type("torw"), 3);
    jump.Forget();
    EXPECT_EQ(Type("tu"), 4);
}

TEST_F(Grid_Jump, stays_on_a_row_that_the_longer_beginning_still_fits) {
    EXPECT_EQ(Type("to"), 3);
    EXPECT_EQ(Type("r"), 3);
}

TEST_F(Grid_Jump, forgets_what_was_typed_after_a_second) {
    EXPECT_EQ(Type("t"), 3);
    world.RunFor(999);
    EXPECT_EQ(Type("u"), 4);
    world.RunFor(1000);
    EXPECT_EQ(Type("u"), 6);
}

TEST_F(Grid_Jump, goes_from_one_to_the_next_with_the_same_letter) {
    EXPECT_EQ(Type("t"), 3);
    EXPECT_EQ(Type("t"), 4);
    EXPECT_EQ(Type("t"), 1);
    EXPECT_EQ(Type("t"), 3);
}

TEST_F(Grid_Jump, finds_an_umlaut_by_its_base_letter_and_the_other_way_round) {
    EXPECT_EQ(Type("ub"), 6);
    jump.Forget();
    grid.Row = 1;
    EXPECT_EQ(Type("ueb"), 6);
    jump.Forget();
    EXPECT_EQ(Type("t\xFC"), 4);
}

TEST_F(Grid_Jump, does_not_remember_a_letter_that_leads_nowhere) {
    EXPECT_EQ(Type("tx"), 3);
    EXPECT_EQ(Type("u"), 4);
    EXPECT_EQ(jump.Letter('z'), 0);
}

TEST_F(Grid_Jump, passes_over_hidden_rows) {
    filter.Set("tur");
    EXPECT_EQ(Type("t"), 4);
    EXPECT_EQ(Type("k"), 4);
}

TEST_F(Grid_Jump, takes_no_control_characters_and_no_blank_at_the_beginning) {
    grid.SetText(5, 1, " x");
    EXPECT_EQ(jump.Letter(Key::Enter), 0);
    EXPECT_EQ(jump.Letter(' '), 0);
    EXPECT_EQ(jump.Letter(-1), 0);
    EXPECT_EQ(jump.Letter(0x141), 0);
}

TEST_F(Grid_Jump, finds_nothing_in_an_empty_grid) {
    grid.Resize(1, 2);
    EXPECT_EQ(jump.Letter('t'), 0);
    grid.Resize(0, 0);
    EXPECT_EQ(jump.Letter('t'), 0);
}

TEST_F(Grid_Jump, comes_back_to_the_only_row_that_fits) {
    grid.Row = 6;
    EXPECT_EQ(Type("u"), 6);
}

} // namespace
} // namespace qvm::test
