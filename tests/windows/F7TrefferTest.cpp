// From hit to hit in the history view.

#include "F7Fixture.h"

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

struct F7_Treffer : F7Fixture {
    void SetUp() override {
        Show("a\t1\nx\t2\nx\t3\nb\t2\nc\t2\n");
        Search("2", 1); // rows 2, 4 and 5
        ShownCells.clear();
    }
};

TEST_F(F7_Treffer, the_next_one_becomes_the_current_cell_and_behind_the_last_the_first) {
    view.Naechster_Treffer();
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 5   L284 2 / 3");
    view.Naechster_Treffer();
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 5   L284 3 / 3");
    view.Naechster_Treffer();
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 5   L284 1 / 3");
    EXPECT_THAT(ShownCells, ElementsAre(Pair(4, 2), Pair(5, 2), Pair(2, 2)));
    EXPECT_EQ(view.FGV.Row, 2);
    EXPECT_EQ(view.FGV.Column, 2);
}

TEST_F(F7_Treffer, the_one_before_becomes_the_current_cell_and_before_the_first_the_last) {
    view.Voriger_Treffer();
    view.Voriger_Treffer();
    EXPECT_THAT(ShownCells, ElementsAre(Pair(5, 2), Pair(4, 2)));
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 5   L284 2 / 3");
}

TEST_F(F7_Treffer, count_from_the_row_that_the_operator_went_to) {
    view.FGV.Row = 3;
    view.Naechster_Treffer();
    view.FGV.Row = 3;
    view.Voriger_Treffer();
    view.FGV.Row = 1;
    view.Voriger_Treffer();
    EXPECT_THAT(ShownCells, ElementsAre(Pair(4, 2), Pair(2, 2), Pair(5, 2)));
}

TEST_F(F7_Treffer, keep_their_colour_while_they_are_walked_through) {
    view.Naechster_Treffer();
    EXPECT_EQ(Back(2, 2), 0xFFFFU);
    EXPECT_EQ(Back(4, 2), 0xFFFFU);
}

TEST_F(F7_Treffer, are_left_alone_while_a_new_search_is_asked_for_and_forgotten_by_it) {
    view.Toolbar1_ButtonClick("Suchen");
    ShownCells.clear();
    view.Naechster_Treffer();
    search.F8_Schliessen();
    view.Naechster_Treffer();
    view.Voriger_Treffer();
    EXPECT_THAT(ShownCells, IsEmpty());
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 5");
}

TEST_F(F7_Treffer, without_one_the_view_stays) {
    Search("7", 1);
    ShownCells.clear();
    view.Naechster_Treffer();
    view.Voriger_Treffer();
    EXPECT_THAT(ShownCells, IsEmpty());
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 5   L284 0");
}

TEST_F(F7_Treffer, of_another_file_are_forgotten) {
    Show("y\n");
    ShownCells.clear();
    view.Naechster_Treffer();
    EXPECT_THAT(ShownCells, IsEmpty());
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 1");
}

} // namespace
} // namespace qvm::test
