// The choice of the language.

#include "FensterFixture.h"

namespace qvm::test {
namespace {

struct F15_Fenster : FensterFixture {
    int told = 0;
    Listener words;

    void SetUp() override {
        Config("RESET", 3, 5);
        world.Disk.Files["/q/QVM_English.DAT"] = "E1\r\nE2\r\nE3\r\n";
        Start();
        words = programm->kern.Windows.WordsChanged.Listen([this] { ++told; });
        Choice().F15_Laden();
    }
    struct F15& Choice() {
        return programm->Main->F15;
    }
    std::string Settings() { return world.Disk.Files["/q/DAT/EST7CSB29A.I_1"]; }
};

TEST_F(F15_Fenster, offers_the_four_languages_with_the_present_one_selected) {
    EXPECT_TRUE(Choice().Fenster.Visible);
    EXPECT_EQ(Choice().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L125");
    EXPECT_THAT(Choice().Sprachen.Entries(), ElementsAre("Deutsch", "English",
                                                         "Fran\xE7"
                                                         "ais",
                                                         "Nederlands"));
    EXPECT_EQ(Choice().Sprachen.Selected(), 0);
    EXPECT_EQ(Choice().OK.Text(), "L84");
    EXPECT_EQ(Choice().Cancel.Text(), "L83");
    programm->kern.Config.Sprache = "Nederlands";
    Choice().F15_Laden();
    EXPECT_EQ(Choice().Sprachen.Selected(), 3);
}

TEST_F(F15_Fenster, selects_nothing_while_another_language_is_configured) {
    programm->kern.Config.Sprache = "Svenska";
    Choice().F15_Laden();
    EXPECT_EQ(Choice().Sprachen.Selected(), -1);
    const std::string before = Settings();
    Choice().OK_Click();
    EXPECT_EQ(programm->kern.Config.Sprache, "Svenska");
    EXPECT_EQ(Settings(), before);
    EXPECT_EQ(told, 0);
    EXPECT_FALSE(Choice().Fenster.Visible);
}

TEST_F(F15_Fenster, ok_takes_the_language_saves_it_loads_its_words_and_tells_the_windows) {
    Choice().Sprachen_Click(1);
    Choice().OK_Click();
    EXPECT_FALSE(Choice().Fenster.Visible);
    EXPECT_EQ(programm->kern.Config.Sprache, "English");
    EXPECT_EQ(Settings(), "English\r\n1\r\nUSB-Port5\r\n3\r\n");
    EXPECT_EQ(programm->kern.Zeile(3), "E3");
    EXPECT_EQ(programm->kern.Zeile(4), "");
    EXPECT_EQ(told, 1);
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(F15_Fenster, cancel_changes_nothing) {
    const std::string before = Settings();
    Choice().Sprachen_Click(1);
    Choice().Cancel_Click();
    EXPECT_FALSE(Choice().Fenster.Visible);
    EXPECT_EQ(programm->kern.Config.Sprache, "Deutsch");
    EXPECT_EQ(Settings(), before);
    EXPECT_EQ(told, 0);
}

TEST_F(F15_Fenster, names_a_language_file_that_is_missing_and_keeps_the_language_in_use) {
    const std::string before = Settings();
    Choice().Sprachen_Click(2);
    world.Answers.push_back({.Text = "L288 QVM_Francais.DAT"});
    Choice().OK_Click();
    EXPECT_EQ(programm->kern.Config.Sprache, "Deutsch");
    EXPECT_EQ(programm->kern.Zeile(3), "L3");
    EXPECT_EQ(Settings(), before);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(world.Shown[0].Sign, Icon::Exclamation);
}

TEST_F(F15_Fenster, tells_that_the_choice_was_not_saved_and_speaks_it_all_the_same) {
    const std::string before = Settings();
    world.Disk.Operations = 0;
    world.Disk.FailAt = 2; // the new words are read first
    Choice().Sprachen_Click(1);
    // The new words have no line 287; the message falls back to its design.
    world.Answers.push_back({.Text = "Die Einstellungen konnten nicht gespeichert werden!"});
    Choice().OK_Click();
    EXPECT_EQ(Settings(), before);
    EXPECT_EQ(programm->kern.Zeile(3), "E3");
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace qvm::test
