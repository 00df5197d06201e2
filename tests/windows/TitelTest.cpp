// What tells the windows apart in a task bar.

#include "FensterFixture.h"

namespace qvm::test {
namespace {

struct Fenster_Titel : FensterFixture {
    void SetUp() override { Start(); }
};

TEST_F(Fenster_Titel, of_the_main_window_is_the_systems_own_and_no_more) {
    programm->Main->F2.F2_Laden();
    EXPECT_EQ(programm->Main->F2.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM");
}

TEST_F(Fenster_Titel, names_what_the_window_is_for) {
    programm->Main->F6.F6_Laden();
    programm->History->F8.F8_Laden();
    programm->Transfer->F13.F13_FormLaden();
    programm->Main->F15.F15_Laden();
    programm->Transfer->F92.F92_Laden();
    programm->Transfer->F18.F18_Zeigen();
    EXPECT_EQ(programm->Main->F6.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L21");
    EXPECT_EQ(programm->History->F8.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L107");
    EXPECT_EQ(programm->Transfer->F13.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L32");
    EXPECT_EQ(programm->Main->F15.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L125");
    EXPECT_EQ(programm->Transfer->F92.Fenster.Title(), u8"QVM 7702 SOFTWARE SYSTEM - Späterer Beginn"_w);
    EXPECT_EQ(programm->Transfer->F18.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - Kanalsuche");
}

TEST_F(Fenster_Titel, of_a_list_says_whether_it_programs_or_reads) {
    programm->link.Lauf.List.NetMode = 0xFF;
    programm->Transfer->F91.F91_FormLaden(false);
    EXPECT_EQ(programm->Transfer->F91.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L11");
    programm->link.Lauf.List.NetMode = 0x80;
    programm->Transfer->F91.F91_FormLaden(false);
    EXPECT_EQ(programm->Transfer->F91.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L12");
}

TEST_F(Fenster_Titel, follows_the_language) {
    programm->Transfer->F92.F92_Laden();
    programm->kern.Config.Sprache = "English";
    programm->Transfer->F92.Texte_Setzen();
    EXPECT_EQ(programm->Transfer->F92.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - Delayed start");
}

} // namespace
} // namespace qvm::test
