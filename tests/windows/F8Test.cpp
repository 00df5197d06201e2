// The search in the history view.

#include "F7Fixture.h"

#include <algorithm>

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr Colour None = 0xFFFFFF, Grey = 0xC0C0C0, Yellow = 0xFFFF;

/// `count` lines, of which those given hold "hit".
std::string Lines(int count, const std::vector<int>& hits) {
    std::string bytes;
    for (int row = 1; row <= count; ++row) {
        bytes += std::find(hits.begin(), hits.end(), row) == hits.end() ? "no\n" : "hit\n";
    }
    return bytes;
}

struct F8_Fenster : F7Fixture {};

TEST_F(F8_Fenster, opens_with_the_name_column_and_no_text) {
    Show("a\n");
    view.Toolbar1_ButtonClick("Suchen");
    EXPECT_TRUE(search.Fenster.Visible);
    EXPECT_EQ(search.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L107");
    EXPECT_TRUE(search.Option[0].Checked);
    EXPECT_FALSE(search.Option[1].Checked);
    EXPECT_EQ(search.Option[0].Text(), "L54");
    EXPECT_EQ(search.Option[1].Text(), "L55");
    EXPECT_EQ(search.Option[2].Text(), "L56");
    EXPECT_EQ(search.Option[3].Text(), "L57");
    EXPECT_EQ(search.Command1.Text(), "L107");
    EXPECT_EQ(search.Text1.Text(), "");
}

TEST_F(F8_Fenster, opens_afresh_each_time_with_the_cursor_in_its_text) {
    int focused = 0;
    search.Text1.SetFocus = [&focused] { ++focused; };
    Show("a\n");
    Search("10:30", 2);
    view.Toolbar1_ButtonClick("Suchen");
    EXPECT_TRUE(search.Option[0].Checked);
    EXPECT_FALSE(search.Option[2].Checked);
    EXPECT_EQ(search.Text1.Text(), "");
    EXPECT_EQ(focused, 2);
}

TEST_F(F8_Fenster, one_option_is_chosen_at_a_time) {
    search.Option_Click(3);
    search.Option_Click(1);
    EXPECT_FALSE(search.Option[0].Checked);
    EXPECT_TRUE(search.Option[1].Checked);
    EXPECT_FALSE(search.Option[3].Checked);
    search.Option_Click(4);
    search.Option_Click(-1);
    EXPECT_TRUE(search.Option[1].Checked);
}

TEST_F(F8_Fenster, closed_without_a_search_gives_the_view_back) {
    Show("a\n");
    view.Toolbar1_ButtonClick("Suchen");
    search.F8_Schliessen();
    EXPECT_FALSE(search.Fenster.Visible);
    EXPECT_TRUE(view.Fenster.Enabled);
    EXPECT_TRUE(view.Fenster.Visible);
}

TEST_F(F8_Fenster, without_a_text_shows_a_message_and_closes) {
    Show("a\t\t\tX\n");
    view.Toolbar1_ButtonClick("Suchen");
    world.Answers.push_back({.Text = "L59"});
    search.Command1_Click();
    EXPECT_FALSE(search.Fenster.Visible);
    EXPECT_TRUE(view.Fenster.Enabled);
    EXPECT_EQ(view.Text1.Text(), "");
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 1");
}

TEST_F(F8_Fenster, return_in_the_text_searches_and_no_other_key) {
    Show("a\n");
    view.Toolbar1_ButtonClick("Suchen");
    search.Text1.Text = std::string("A");
    search.Text1_KeyPress('x');
    search.Text1_KeyPress(Key::Escape);
    EXPECT_TRUE(search.Fenster.Visible);
    search.Text1_KeyPress(Key::Enter);
    EXPECT_FALSE(search.Fenster.Visible);
    EXPECT_EQ(Back(1, 1), Yellow);
}

TEST_F(F8_Fenster, a_closed_window_does_not_search) {
    Show("a\n");
    search.Text1.Text = std::string("a");
    search.Command1_Click();
    EXPECT_EQ(Back(1, 1), None);
    EXPECT_EQ(view.Text1.Text(), "");
}

struct F8_Suche : F7Fixture {};

TEST_F(F8_Suche, paints_hits_yellow_and_lists_them) {
    Show("Anna\t05.03.2026\t10:30\tCode\nBert\t05.03.2026\t10:31\tE-Key\nAnna\t06.03.2026\t07:00\tCode\n");
    Search("Anna");
    EXPECT_EQ(Back(1, 1), Yellow);
    EXPECT_EQ(Back(2, 1), None);
    EXPECT_EQ(Back(3, 1), Yellow);
    EXPECT_EQ(Back(1, 2), None);
    EXPECT_EQ(view.Text1.Text(), "Anna             05.03.2026                 10:30                 Code\r\n"
                                 "Anna             06.03.2026                 07:00                 Code\r\n");
    EXPECT_TRUE(view.Text1.Visible);
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 3   L284 1 / 2");
    EXPECT_TRUE(view.Fenster.Enabled);
    EXPECT_FALSE(search.Fenster.Visible);
}

TEST_F(F8_Suche, lists_a_cell_with_the_blanks_that_it_ends_with) {
    Show("Anna  \t1\t2\t3\n");
    Search("Anna");
    EXPECT_EQ(view.Text1.Text(),
              "Anna  " + std::string(13, ' ') + "1" + std::string(17, ' ') + "2" + std::string(17, ' ') + "3\r\n");
}

TEST_F(F8_Suche, goes_through_the_column_of_the_option) {
    const std::string bytes = "x\tx\tx\tx\n";
    for (int option = 0; option < 4; ++option) {
        Show(bytes);
        Search("X", option);
        for (int column = 1; column <= 4; ++column) {
            EXPECT_EQ(Back(1, column), column == option + 1 ? Yellow : None) << option << " " << column;
        }
    }
}

TEST_F(F8_Suche, takes_upper_and_lower_case_alike_umlauts_too) {
    Show("J\xFCrgen\nJ\xDCRGEN\nZo\xEB \x9Ei\x9Eka \xFF\nJorgen\n");
    Search("j\xDCrgen");
    EXPECT_EQ(Back(1, 1), Yellow);
    EXPECT_EQ(Back(2, 1), Yellow);
    EXPECT_EQ(Back(4, 1), None);
    Search("ZO\xCB \x8EI\x8EKA \x9F");
    EXPECT_EQ(Back(3, 1), Yellow);
}

TEST_F(F8_Suche, finds_only_the_whole_text) {
    Show("Anna Bauer\nAnna\n Anna\nAnn\n");
    Search("Anna");
    EXPECT_EQ(Back(1, 1), None);
    EXPECT_EQ(Back(2, 1), Yellow);
    EXPECT_EQ(Back(3, 1), None);
    EXPECT_EQ(Back(4, 1), None);
}

TEST_F(F8_Suche, cuts_the_blanks_behind_a_cell_but_not_behind_the_search_text) {
    Show("Anna            \n");
    Search("Anna");
    EXPECT_EQ(Back(1, 1), Yellow);
    Search("Anna ");
    EXPECT_EQ(Back(1, 1), None);
    EXPECT_EQ(view.Text1.Text(), "");
}

TEST_F(F8_Suche, blanks_alone_are_a_text_that_no_cell_is_equal_to) {
    Show("a\n\n   \n");
    Search("   ");
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 3   L284 0");
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(F8_Suche, a_day_is_found_by_its_exact_text) {
    Show("a\t05.03.2026\nb\t5.3.2026\n");
    Search("05.03.2026", 1);
    EXPECT_EQ(Back(1, 2), Yellow);
    EXPECT_EQ(Back(2, 2), None);
}

TEST_F(F8_Suche, leaves_the_bands_and_lays_its_hits_over_them) {
    Show("a\t1\t\tL16\nb\t2\t\tX\nc\t3\t\tL16\n");
    Search("x", 3);
    EXPECT_EQ(Back(1, 4), Grey);
    EXPECT_EQ(Back(2, 4), Yellow);
    EXPECT_EQ(Back(2, 2), Grey);
    EXPECT_EQ(Back(3, 4), None);
    Search("2", 1);
    EXPECT_EQ(Back(1, 2), Grey);
    EXPECT_EQ(Back(2, 2), Yellow);
    EXPECT_EQ(Back(2, 4), Grey);
    EXPECT_EQ(Back(3, 2), None);
}

TEST_F(F8_Suche, without_a_hit_says_so_and_leaves_the_view_on_its_first_row) {
    Show("a\nb\n");
    Search("c");
    EXPECT_EQ(view.Text1.Text(), "");
    EXPECT_FALSE(view.Text1.Visible);
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 2   L284 0");
    EXPECT_EQ(view.FGV.Row, 1);
    EXPECT_TRUE(view.Fenster.Enabled);
}

TEST_F(F8_Suche, a_second_search_forgets_the_first) {
    Show("a\t1\nb\t2\n");
    Search("a");
    Search("2", 1);
    EXPECT_EQ(Back(1, 1), None);
    EXPECT_EQ(Back(2, 2), Yellow);
    EXPECT_EQ(view.Text1.Text(), "b" + std::string(13, ' ') + "2" + std::string(34, ' ') + "\r\n");
}

TEST_F(F8_Suche, reaches_the_last_row) {
    Show(Lines(2024, {2024}));
    Search("HIT");
    EXPECT_EQ(Back(2024, 1), Yellow);
    EXPECT_EQ(view.FGV.Row, 2024);
}

TEST_F(F8_Suche, in_an_empty_grid_finds_nothing) {
    world.DialogAnswers.emplace_back(std::nullopt);
    view.F7_Datei_Waehlen();
    Search("1");
    EXPECT_EQ(view.Meldezeile.Text(), "L284 0");
}

// Parts of a text.

struct F8_Enthaelt : F7Fixture {
    void SearchPart(const std::string& text, int option = 0) {
        view.Toolbar1_ButtonClick("Suchen");
        search.Option_Click(option);
        search.Enthaelt_Click(true);
        search.Text1.Text = text;
        search.Command1_Click();
    }
};

TEST_F(F8_Enthaelt, finds_the_text_at_the_beginning_in_the_middle_and_at_the_end) {
    Show("Anna Bauer\nHanna\nBert\n Joh ANN\nAn\n");
    SearchPart("ann");
    EXPECT_EQ(Back(1, 1), Yellow);
    EXPECT_EQ(Back(2, 1), Yellow);
    EXPECT_EQ(Back(3, 1), None);
    EXPECT_EQ(Back(4, 1), Yellow);
    EXPECT_EQ(Back(5, 1), None);
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 5   L284 1 / 3");
}

TEST_F(F8_Enthaelt, finds_a_month_in_the_column_of_the_days) {
    Show("a\t05.03.2026\nb\t05.04.2026\nc.03.\t01.02.2026\n");
    SearchPart(".03.", 1);
    EXPECT_EQ(Back(1, 2), Yellow);
    EXPECT_EQ(Back(2, 2), None);
    EXPECT_EQ(Back(3, 2), None);
    EXPECT_EQ(Back(3, 1), None);
}

TEST_F(F8_Enthaelt, does_not_find_the_blanks_behind_a_text) {
    Show("Anna            \nAnna Bauer      \n");
    SearchPart("Anna ");
    EXPECT_EQ(Back(1, 1), None);
    EXPECT_EQ(Back(2, 1), Yellow);
}

TEST_F(F8_Enthaelt, is_chosen_anew_for_each_search) {
    Show("Anna\n");
    SearchPart("nn");
    EXPECT_EQ(Back(1, 1), Yellow);
    Search("nn");
    EXPECT_FALSE(search.Enthaelt.Checked);
    EXPECT_EQ(Back(1, 1), None);
}

TEST_F(F8_Enthaelt, leaves_the_column_that_was_chosen) {
    view.Toolbar1_ButtonClick("Suchen");
    search.Option_Click(2);
    search.Enthaelt_Click(true);
    EXPECT_TRUE(search.Option[2].Checked);
    search.Enthaelt_Click(false);
    EXPECT_FALSE(search.Enthaelt.Checked);
    EXPECT_TRUE(search.Option[2].Checked);
}

TEST_F(F8_Enthaelt, is_named_in_the_language_in_use) {
    Show("a\n");
    kern.Config.Sprache = "English";
    view.Toolbar1_ButtonClick("Suchen");
    EXPECT_EQ(search.Enthaelt.Text(), "Find parts of the text, too");
}

// Where the view goes: the cells made current, in order, behind the reset to the first row.

struct F8_Rollen : F7Fixture {
    std::vector<std::pair<int, int>> Way(const std::vector<int>& hits, int option = 0) {
        Show(Lines(2024, hits));
        view.Toolbar1_ButtonClick("Suchen");
        ShownCells.clear();
        search.Option_Click(option);
        search.Text1.Text = std::string("hit");
        search.Command1_Click();
        return ShownCells;
    }
};

TEST_F(F8_Rollen, a_first_hit_before_row_20_goes_to_its_row) {
    EXPECT_THAT(Way({1}), ElementsAre(Pair(1, 1)));
    EXPECT_THAT(Way({19, 500}), ElementsAre(Pair(19, 1)));
}

TEST_F(F8_Rollen, one_before_row_1010_goes_ten_rows_further_first) {
    EXPECT_THAT(Way({20}), ElementsAre(Pair(30, 1), Pair(20, 1)));
    EXPECT_THAT(Way({1009, 1010}), ElementsAre(Pair(1019, 1), Pair(1009, 1)));
}

TEST_F(F8_Rollen, any_other_goes_to_its_row) {
    EXPECT_THAT(Way({1010}), ElementsAre(Pair(1010, 1)));
    EXPECT_THAT(Way({2024}), ElementsAre(Pair(2024, 1)));
}

TEST_F(F8_Rollen, ends_on_the_first_hit_in_the_column_searched) {
    Show("a\t1\nb\t2\nc\t2\n");
    Search("2", 1);
    EXPECT_EQ(view.FGV.Row, 2);
    EXPECT_EQ(view.FGV.Column, 2);
}

TEST_F(F8_Rollen, the_view_has_its_hits_before_it_moves) {
    // What lists the hits takes room from the grid, so that it has to stand before a row can be brought into sight.
    bool listed = false;
    Show(Lines(100, {50}));
    view.Toolbar1_ButtonClick("Suchen");
    view.Zelle_Zeigen = [&](int, int) { listed = view.Text1.Visible && view.Fenster.Enabled; };
    search.Text1.Text = std::string("hit");
    search.Command1_Click();
    EXPECT_TRUE(listed);
}

} // namespace
} // namespace qvm::test
