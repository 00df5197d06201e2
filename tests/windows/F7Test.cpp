// The history view over files of every shape.

#include "F7Fixture.h"

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr Colour None = 0xFFFFFF, Grey = 0xC0C0C0;

std::string Events(int count) {
    std::string bytes;
    for (int n = 1; n <= count; ++n) {
        bytes += "N" + std::to_string(n) + "\t05.03.2026\t10:30\tX\r\n";
    }
    return bytes;
}

struct F7_Oeffnen : F7Fixture {};

TEST_F(F7_Oeffnen, shows_2024_numbered_rows_under_the_headings_of_the_catalogue) {
    Show("");
    EXPECT_EQ(view.FGV.Rows(), 2025);
    EXPECT_EQ(view.FGV.Columns(), 5);
    EXPECT_EQ(view.FGV.Text(0, 0), "L37");
    EXPECT_THAT(Row(0), ElementsAre("L54", "L55", "L56", "L57"));
    EXPECT_EQ(view.FGV.Text(1, 0), "1");
    EXPECT_EQ(view.FGV.Text(2024, 0), "2024");
    EXPECT_EQ(view.Fenster.Title(), "L58");
    EXPECT_TRUE(view.Fenster.Visible);
    EXPECT_TRUE(view.Fenster.Enabled);
}

TEST_F(F7_Oeffnen, names_its_keys_by_the_catalogue) {
    Show("");
    EXPECT_EQ(view.Toolbar1[0].Tip(), "L16");
    EXPECT_EQ(view.Toolbar1[1].Tip(), "L107");
    EXPECT_EQ(view.Toolbar1[2].Tip(), "L119");
}

TEST_F(F7_Oeffnen, hides_the_main_window) {
    Show("");
    EXPECT_THAT(Calls, ElementsAre("hide"));
}

TEST_F(F7_Oeffnen, splits_each_line_at_its_tabs_the_line_of_the_lock_like_any_other) {
    Show("00.0A.10.01\r\nAnna            \t05.03.2026\t10:30\tCode\r\n\t\t\tState\r\n");
    EXPECT_THAT(Row(1), ElementsAre("00.0A.10.01", "", "", ""));
    EXPECT_THAT(Row(2), ElementsAre("Anna            ", "05.03.2026", "10:30", "Code"));
    EXPECT_THAT(Row(3), ElementsAre("", "", "", "State"));
    EXPECT_THAT(Row(4), ElementsAre("", "", "", ""));
    EXPECT_EQ(view.Zeilen(), 3);
}

TEST_F(F7_Oeffnen, stands_on_the_first_line) {
    Show(Events(5));
    EXPECT_EQ(view.FGV.Row, 1);
    EXPECT_EQ(view.FGV.Column, 1);
    EXPECT_EQ(ShownCells.back(), std::pair(1, 1));
}

TEST_F(F7_Oeffnen, leaves_the_columns_behind_the_last_field_of_a_short_line_as_they_are) {
    Show("one\ntwo\t2\nthree\t2\t3\n");
    EXPECT_THAT(Row(1), ElementsAre("one", "", "", ""));
    EXPECT_THAT(Row(2), ElementsAre("two", "2", "", ""));
    EXPECT_THAT(Row(3), ElementsAre("three", "2", "3", ""));
}

TEST_F(F7_Oeffnen, drops_what_stands_behind_a_fourth_tab) {
    Show("a\tb\tc\td\te\tf\n");
    EXPECT_THAT(Row(1), ElementsAre("a", "b", "c", "d"));
}

TEST_F(F7_Oeffnen, takes_lines_that_end_in_cr_lf_or_lf_and_a_last_one_without_an_end) {
    Show("a\t1\r\nb\t2\nc\t3");
    EXPECT_THAT(Row(1), ElementsAre("a", "1", "", ""));
    EXPECT_THAT(Row(2), ElementsAre("b", "2", "", ""));
    EXPECT_THAT(Row(3), ElementsAre("c", "3", "", ""));
    EXPECT_EQ(view.Zeilen(), 3);
}

TEST_F(F7_Oeffnen, keeps_blank_lines_as_rows) {
    Show("a\n\n\r\nb\n");
    EXPECT_EQ(view.Zeilen(), 4);
    EXPECT_THAT(Row(2), ElementsAre("", "", "", ""));
    EXPECT_THAT(Row(4), ElementsAre("b", "", "", ""));
}

TEST_F(F7_Oeffnen, reads_control_characters_as_blanks) {
    Show(std::string("a\0b\x01\x7F\tc\rd\n", 11));
    EXPECT_THAT(Row(1), ElementsAre("a b  ", "c d", "", ""));
}

TEST_F(F7_Oeffnen, cuts_a_field_at_250_characters) {
    Show(std::string(100000, 'x') + "\t" + std::string(251, 'y') + "\tz\n");
    EXPECT_EQ(Row(1)[0], std::string(250, 'x'));
    EXPECT_EQ(Row(1)[1], std::string(250, 'y'));
    EXPECT_EQ(Row(1)[2], "z");
}

TEST_F(F7_Oeffnen, shows_a_file_of_2024_lines_whole) {
    Show(Events(2024));
    EXPECT_EQ(Row(2024)[0], "N2024");
    EXPECT_EQ(view.Zeilen(), 2024);
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 2024");
}

TEST_F(F7_Oeffnen, shows_the_first_2024_lines_of_a_longer_file_and_says_how_many_there_are) {
    Show(Events(2026) + "half");
    EXPECT_EQ(Row(2024)[0], "N2024");
    EXPECT_EQ(view.Zeilen(), 2024);
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 2024 / 2027");
}

TEST_F(F7_Oeffnen, says_that_an_empty_file_has_no_line) {
    Show("");
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 0");
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(F7_Oeffnen, names_a_file_that_is_missing_over_an_empty_grid) {
    Show("a\tb\tc\td\n");
    world.Answers.push_back({.Text = "L288 gone.HST"});
    view.F7_Oeffnen("/q/HIST/gone.HST");
    EXPECT_TRUE(view.Fenster.Visible);
    EXPECT_THAT(Row(1), ElementsAre("", "", "", ""));
    EXPECT_EQ(view.Meldezeile.Text(), "");
    EXPECT_EQ(view.Zeilen(), 0);
    EXPECT_EQ(world.Shown.at(0).Sign, Icon::Exclamation);
}

TEST_F(F7_Oeffnen, names_a_file_that_cannot_be_read_over_an_empty_grid) {
    world.Disk.Files["/q/HIST/B\xC3\xBCro.HST"] = "a\tb\tc\td\n";
    world.Disk.FailAt = 1;
    world.Answers.push_back({.Text = "L286 B\xFCro.HST"});
    view.F7_Oeffnen("/q/HIST/B\xC3\xBCro.HST");
    EXPECT_TRUE(view.Fenster.Visible);
    EXPECT_THAT(Row(1), ElementsAre("", "", "", ""));
}

TEST_F(F7_Oeffnen, never_changes_a_file) {
    const std::string bytes = Events(3);
    Show(bytes);
    Search("N2");
    EXPECT_EQ(world.Disk.Files.size(), 1U);
    EXPECT_EQ(world.Disk.Files.at("/q/HIST/H.HST"), bytes);
}

TEST_F(F7_Oeffnen, forgets_the_file_before) {
    Show("a\tb\tc\tL16\nb\tb\tb\tb\n");
    Search("a");
    Show("x\n");
    EXPECT_THAT(Row(1), ElementsAre("x", "", "", ""));
    EXPECT_THAT(Row(2), ElementsAre("", "", "", ""));
    EXPECT_EQ(Back(1, 1), None);
    EXPECT_EQ(Back(2, 3), None);
    EXPECT_EQ(view.Text1.Text(), "");
    EXPECT_FALSE(view.Text1.Visible);
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 1");
}

TEST_F(F7_Oeffnen, closes_a_search_that_stands_open) {
    Show("a\n");
    view.Toolbar1_ButtonClick("Suchen");
    Show("b\n");
    EXPECT_FALSE(search.Fenster.Visible);
    EXPECT_TRUE(view.Fenster.Enabled);
}

// The dialog.

struct F7_Datei_Waehlen : F7Fixture {};

TEST_F(F7_Datei_Waehlen, starts_in_hist_with_the_history_files) {
    world.DialogAnswers.emplace_back("/q/HIST/H.HST");
    world.Disk.Files["/q/HIST/H.HST"] = "a\tb\tc\td\n";
    view.F7_Datei_Waehlen();
    ASSERT_EQ(world.Dialogs.size(), 1U);
    EXPECT_EQ(world.Dialogs[0].Directory, "/q/HIST/");
    EXPECT_EQ(world.Dialogs[0].Filter, "Vorgangsdateien (*.HST)|*.HST|");
    EXPECT_TRUE(world.Dialogs[0].NewestFirst);
    EXPECT_EQ(world.Dialogs[0].Title, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_THAT(Row(1), ElementsAre("a", "b", "c", "d"));
    EXPECT_TRUE(view.Fenster.Visible);
}

TEST_F(F7_Datei_Waehlen, asks_before_the_window_changes) {
    world.World.OpenFile = [this](const FileDialog&) -> std::optional<std::string> {
        EXPECT_FALSE(view.Fenster.Visible);
        EXPECT_THAT(Calls, IsEmpty());
        return std::nullopt;
    };
    view.F7_Datei_Waehlen();
    EXPECT_THAT(Calls, ElementsAre("hide"));
}

TEST_F(F7_Datei_Waehlen, cancelled_leaves_the_grid_empty_and_the_window_open) {
    world.DialogAnswers.emplace_back(std::nullopt);
    view.F7_Datei_Waehlen();
    EXPECT_TRUE(view.Fenster.Visible);
    EXPECT_THAT(Row(1), ElementsAre("", "", "", ""));
    EXPECT_EQ(view.FGV.Text(1, 0), "1");
    EXPECT_EQ(view.Meldezeile.Text(), "");
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(F7_Datei_Waehlen, is_what_the_open_key_does) {
    Show("old\n");
    world.DialogAnswers.emplace_back("/q/HIST/new.HST");
    world.Disk.Files["/q/HIST/new.HST"] = "new\n";
    view.Toolbar1_ButtonClick(u8"Öffnen"_w);
    EXPECT_THAT(Row(1), ElementsAre("new", "", "", ""));
    EXPECT_EQ(view.Meldezeile.Text(), "new.HST   L300 1");
}

// Keys.

struct F7_Toolbar1 : F7Fixture {};

TEST_F(F7_Toolbar1, search_takes_the_old_hits_away_shows_the_bands_again_and_lets_only_the_search_act) {
    Show("a\t\t\tL16\nb\t\t\tX\n");
    Search("a");
    Search("x", 3);
    view.FGV.Row = 7;
    view.Toolbar1_ButtonClick("Suchen");
    EXPECT_EQ(Back(1, 1), None);
    for (int column = 2; column <= 4; ++column) {
        EXPECT_EQ(Back(1, column), Grey) << column;
        EXPECT_EQ(Back(2, column), Grey) << column;
        EXPECT_EQ(Back(3, column), None) << column;
    }
    EXPECT_EQ(view.Text1.Text(), "");
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   L300 2");
    EXPECT_EQ(view.FGV.Row, 1);
    EXPECT_EQ(view.FGV.Column, 1);
    EXPECT_FALSE(view.Fenster.Enabled);
    EXPECT_TRUE(view.Fenster.Visible);
    EXPECT_TRUE(search.Fenster.Visible);
}

TEST_F(F7_Toolbar1, back_closes_the_window) {
    Show("a\n");
    Calls.clear();
    view.Toolbar1_ButtonClick("W95MBX01");
    EXPECT_FALSE(view.Fenster.Visible);
    EXPECT_THAT(Calls, ElementsAre("back"));
}

TEST_F(F7_Toolbar1, an_unknown_key_does_nothing) {
    Show("a\n");
    Calls.clear();
    view.Toolbar1_ButtonClick("PROG");
    EXPECT_TRUE(view.Fenster.Visible);
    EXPECT_TRUE(view.Fenster.Enabled);
    EXPECT_THAT(Calls, IsEmpty());
}

TEST_F(F7_Toolbar1, colours_go_from_columns_1_to_4_of_every_row) {
    for (const int row : {1, 1000, 2024}) {
        for (int column = 0; column <= 4; ++column) {
            view.FGV.SetBackColor(row, column, 0xFFFF);
        }
    }
    view.Farben_Zuruecksetzen();
    for (const int row : {1, 1000, 2024}) {
        EXPECT_EQ(Back(row, 0), 0xFFFFU);
        EXPECT_EQ(Back(row, 1), None);
        EXPECT_EQ(Back(row, 4), None);
    }
    EXPECT_THAT(ShownCells, ElementsAre(Pair(1, 1)));
}

// What it shows besides.

struct F7_Zeilen_Text : F7Fixture {};

TEST_F(F7_Zeilen_Text, gives_rows_as_they_stand_with_tabs_between_the_columns) {
    Show("00.0A.10.01\r\nAnna\t05.03.2026\t10:30\tCode\r\n\t\t\tState\r\n");
    EXPECT_EQ(view.Zeilen_Text({2, 3}), "Anna\t05.03.2026\t10:30\tCode\n\t\t\tState\n");
    EXPECT_EQ(view.Zeilen_Text({1}), "00.0A.10.01\t\t\t\n");
}

TEST_F(F7_Zeilen_Text, leaves_out_the_header_and_rows_without_a_line) {
    Show("a\nb\n");
    EXPECT_EQ(view.Zeilen_Text({-1, 0, 2, 3, 2024, 2025}), "b\t\t\t\n");
    EXPECT_EQ(view.Zeilen_Text({}), "");
}

struct F7_Texte_Setzen : F7Fixture {};

TEST_F(F7_Texte_Setzen, takes_new_words_and_keeps_the_lines) {
    Show("a\tb\tc\tL16\n");
    kern.Sprache.LanguageText[54] = "Name";
    kern.Sprache.LanguageText[58] = "History";
    kern.Sprache.LanguageText[300] = "Lines:";
    view.Texte_Setzen();
    EXPECT_EQ(view.FGV.Text(0, 1), "Name");
    EXPECT_EQ(view.Fenster.Title(), "History");
    EXPECT_EQ(view.Meldezeile.Text(), "H.HST   Lines: 1");
    EXPECT_THAT(Row(1), ElementsAre("a", "b", "c", "L16"));
    EXPECT_EQ(Back(1, 2), Grey);
}

} // namespace
} // namespace qvm::test
