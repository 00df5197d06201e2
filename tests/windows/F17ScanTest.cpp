// A change of a lock's code, and a scan of the channels that is begun beside it.

#include "F17Hand.h"
#include "FensterFixture.h"
#include "SeriellesProtokoll.h"
#include "Text.h"
#include "Words.h"

#include <string_view>

namespace qvm::test {
namespace {

struct F17_Scan : F17Hand<FensterFixture> {
    F17_Scan() {
        SettledLock(1, "Tor");
        Start();
        programm->Transfer->F17_Anbieten();
        Begin();
        Click(1, F13Column::Code);
    }
    void Change() {
        Keys(&F17::Text1_KeyPress, "104212");
        Keys(&F17::Text2_KeyPress, "100000");
        Keys(&F17::Text3_KeyPress, "100000");
        Dialog().Command1_Click();
    }
};

TEST_F(F17_Scan, that_was_cancelled_leaves_its_late_answer_to_no_channel_of_a_scan) {
    Change();
    Dialog().Command2_Click();
    ChannelScan& scan = programm->Locks->Scan;
    ASSERT_TRUE(Kanaele_Absuchen(scan, ScanWay::Logins, {}, ""));
    world.RunFor(600);
    Say(0x04, 4); // of the check
    EXPECT_EQ(scan.Kanal(), 1);
    EXPECT_EQ(scan.Funde, UnitScan());
    world.RunFor(600);
    Refuse(0x64); // of the scan's second question
    EXPECT_EQ(scan.Kanal(), 2);
    EXPECT_EQ(scan.Funde, UnitScan());
}

TEST_F(F17_Scan, that_waits_for_its_answer_lets_no_scan_begin_and_the_lock_window_says_why) {
    Change();
    Say(0x04, 4);
    struct F12& locks = programm->Locks->F12;
    programm->Locks->Suche_Anbieten();
    locks.F12_FormLaden();
    locks.Auswahl.Go(1, 2);
    locks.SNA_save_Click();
    EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible());
    EXPECT_TRUE(locks.Fenster.Enabled());
    EXPECT_EQ(locks.Hinweis.Text(), Wort(programm->kern, Word::ScanBusy));
    Expect(204);
    Say(0x12, 4);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Changed);
}

TEST_F(F17_Scan, that_waits_for_its_answer_lets_no_scan_begin_and_the_unit_window_says_why) {
    Change();
    Say(0x04, 4);
    programm->Locks->Suche_Anbieten();
    programm->Locks->F12.F12_FormLaden();
    programm->Locks->F12.Auswahl.Go(1, 2);
    programm->Locks->F12.SNA_Function_Click();
    struct F20& units = programm->Locks->F20;
    units.Auswahl.Go(2, 2);
    const auto sent = world.Written.size();
    for (const auto scan : {&F20::F20_Keypad_Click, &F20::F20_Readunit_Click}) {
        units.Hinweis.Text = std::string();
        (units.*scan)();
        EXPECT_EQ(units.Hinweis.Text(), Wort(programm->kern, Word::ScanBusy));
        EXPECT_TRUE(units.Fenster.Enabled());
        EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible());
        EXPECT_FALSE(programm->Locks->Scan.Laeuft);
        EXPECT_TRUE(units.Combo1.Enabled() && units.Command2.Enabled());
    }
    EXPECT_EQ(world.Written.size(), sent);
    Expect(204);
    Say(0x12, 4);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Changed);
}

} // namespace
} // namespace qvm::test
