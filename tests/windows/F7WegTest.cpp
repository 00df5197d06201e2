// The way into the history view and back.

#include "F2Fixture.h"

namespace qvm::test {
namespace {

struct F7_Weg : F2Fixture {
    struct F7& View() {
        return programm->History->F7;
    }
    void OpenFromMain() {
        Connect();
        world.Disk.Files["/q/HIST/H.HST"] = "a\tb\tc\td\r\n";
        world.DialogAnswers.emplace_back("/q/HIST/H.HST");
        Press("EYE");
    }
};

TEST_F(F7_Weg, the_eye_key_asks_for_a_file_and_shows_it_in_the_main_windows_place) {
    OpenFromMain();
    ASSERT_EQ(world.Dialogs.size(), 1U);
    EXPECT_EQ(world.Dialogs[0].Directory, "/q/HIST/");
    EXPECT_TRUE(View().Fenster.Visible);
    EXPECT_FALSE(Main().Fenster.Visible);
    EXPECT_EQ(View().FGV.Text(1, 4), "d");
}

TEST_F(F7_Weg, the_eye_key_is_live) {
    Open();
    EXPECT_TRUE(Key("EYE").Enabled);
}

TEST_F(F7_Weg, a_cancelled_dialog_shows_the_empty_view) {
    Connect();
    world.DialogAnswers.emplace_back(std::nullopt);
    Press("EYE");
    EXPECT_TRUE(View().Fenster.Visible);
    EXPECT_FALSE(Main().Fenster.Visible);
    EXPECT_EQ(View().FGV.Text(1, 1), "");
}

TEST_F(F7_Weg, the_supervision_rests_while_it_is_open_and_goes_on_behind_it) {
    OpenFromMain();
    EXPECT_FALSE(Main().Timer2.Running());
    View().Toolbar1_ButtonClick("W95MBX01");
    EXPECT_FALSE(View().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
    EXPECT_TRUE(Main().Timer2.Running());
}

TEST_F(F7_Weg, from_a_run_it_leads_back_to_the_windows_of_the_run) {
    Start();
    world.Disk.Files["/q/HIST/H.HST"] = "a\r\n";
    programm->Transfer->F13.F13_FormLaden();
    programm->Transfer->F13.Timer1.Stop();
    programm->Transfer->F13.Timer2.Stop();
    programm->Transfer->F9.F9_Zeigen();
    programm->Transfer->F9.Stille.Stop();
    View().F7_Oeffnen("/q/HIST/H.HST");
    EXPECT_TRUE(View().Fenster.Visible);
    View().Toolbar1_ButtonClick("W95MBX01");
    EXPECT_FALSE(Main().Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
}

TEST_F(F7_Weg, search_and_view_take_new_words_while_they_are_open) {
    OpenFromMain();
    View().Toolbar1_ButtonClick("Suchen");
    EXPECT_TRUE(programm->History->F8.Fenster.Visible);
    programm->kern.Sprache.LanguageText[54] = "Name";
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(View().FGV.Text(0, 1), "Name");
    EXPECT_EQ(programm->History->F8.Option[0].Text(), "Name");
    EXPECT_EQ(View().FGV.Text(1, 1), "a");
}

TEST_F(F7_Weg, words_of_closed_windows_wait_for_their_opening) {
    Start();
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(View().FGV.Text(0, 1), "");
}

} // namespace
} // namespace qvm::test
