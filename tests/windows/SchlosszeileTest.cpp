// Which lock a window or a box means stands in a line of its own.

#include "FensterFixture.h"

namespace qvm::test {
namespace {

struct Schlosszeile_Fenster : FensterFixture {
    std::string About() const { return world.Shown.empty() ? "none" : world.Shown.back().About; }
    void Locks() {
        SettledLock(1, "Tor");
        SettledLock(3, "Serverraum");
        Begin();
    }
};

TEST_F(Schlosszeile_Fenster, stands_below_the_question_before_a_programming_and_over_the_start_dialog) {
    Locks();
    OpenStart(3);
    EXPECT_EQ(world.Shown.back().Text, "L63");
    EXPECT_EQ(About(), "Schloss 3: Serverraum");
    EXPECT_EQ(programm->Transfer->F11.Schloss.Text(), "Schloss 3: Serverraum");
    Expect(61);
    Type("123");
    programm->Transfer->F11.OK_Click();
    EXPECT_EQ(About(), "Schloss 3: Serverraum");
}

TEST_F(Schlosszeile_Fenster, stands_below_the_question_before_a_history) {
    Locks();
    Expect(65, Answer::Cancel);
    Click(3, F13Column::History);
    EXPECT_EQ(About(), "Schloss 3: Serverraum");
}

TEST_F(Schlosszeile_Fenster, stands_below_the_reason_why_a_run_does_not_begin) {
    Config("SET", 3, 5);
    Locks();
    Expect(198);
    Click(1, F13Column::Program);
    EXPECT_EQ(About(), "Schloss 1: Tor");
}

TEST_F(Schlosszeile_Fenster, stands_in_the_wait_box_of_a_search) {
    files.Lock(2, "Keller", SerialS);
    files.Channel(2, "7", "3", "0");
    Begin();
    StartRun(2);
    EXPECT_EQ(programm->Transfer->F18.Schloss.Text(), "Schloss 2: Keller");
}

TEST_F(Schlosszeile_Fenster, is_empty_for_a_list) {
    Locks();
    OpenStart(3);
    programm->Transfer->F11.Cancel_Click();
    programm->Transfer->F13.Marke_Setzen(1, true);
    Expect(63, Answer::No);
    Expect(269, Answer::No);
    programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
    EXPECT_EQ(world.Shown[world.Shown.size() - 2].About, "");
    EXPECT_EQ(About(), "");
    EXPECT_EQ(programm->Transfer->F11.Schloss.Text(), "");
}

TEST_F(Schlosszeile_Fenster, speaks_the_language_in_use) {
    Locks();
    OpenStart(3);
    programm->kern.Config.Sprache = "Francais";
    programm->Transfer->F11.Texte_Setzen();
    EXPECT_EQ(programm->Transfer->F11.Schloss.Text(), "Serrure 3 : Serverraum");
}

} // namespace
} // namespace qvm::test
