// What the progress window says of the last lock of a list, and between two of them.

#include "ListenFixture.h"
#include "Pictures.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct List_End : ListenFixture {
    List_End() {
        AddLock(1, "Tor", "00.0A.10.01", " XXX ");
        AddLock(2, "Keller", "00.0A.10.02", " XXX ");
    }
    void Expect_Finished(std::string_view name, std::string_view status, int sign, std::string_view outcome) {
        const F9& window = programm->Transfer->F9;
        EXPECT_TRUE(window.Fenster.Visible);
        EXPECT_TRUE(window.Beendet);
        EXPECT_FALSE(window.Command1.Enabled);
        EXPECT_TRUE(window.Command2.Enabled);
        EXPECT_EQ(window.NameLabel.Text(), name);
        EXPECT_EQ(window.StatusLabel.Text(), status);
        EXPECT_EQ(window.Zeichen.Id(), sign);
        EXPECT_EQ(window.FolgeLabel.Text(), outcome);
    }
};

TEST_F(List_End, of_good_rows_is_line_110_and_the_sign_of_success) {
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    Expect_Finished("Keller", "L110", RunSign::Done, "");
}

TEST_F(List_End, of_a_unit_that_refuses_names_it_as_a_single_lock_does) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(1, 1, "Leser", "01600001", '1');
    AddUnit("01600001", 1).LoginStatus = 2;
    BeginList();
    Prog({1});
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(1), Row(">>", "L266 - L71"));
    Expect_Finished("Tor", "Die Anmeldung wurde abgelehnt von: Leser.", RunSign::Attention,
                    "Das Schloss selbst ist fertig programmiert.");
}

TEST_F(List_End, of_a_lock_that_did_not_confirm_its_erasing_says_so) {
    AddLock(3, "Dach", Serial::Z, " XXX ").EchoErase = false;
    BeginList();
    Prog({3});
    ASSERT_TRUE(FinishList());
    Expect_Finished("Dach",
                    u8"L110. Das Schloss hat das Löschen nicht bestätigt: Alte Einträge können noch vorhanden sein."_w,
                    RunSign::Attention, "");
}

TEST_F(List_End, leaves_the_verdict_of_the_last_run_when_the_last_row_has_no_adapter) {
    AddLock(3, "Dach", "00.0A.10.03", " XXX ");
    BeginList({3}); // with adapters
    programm->Transfer->F13.FGK13.SetText(2, F13Column::AdapterId, "/9/9/9/9");
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(1), Row(">>", "L266"));
    EXPECT_EQ(RowAt(2).first, "-");
    Expect_Finished("Tor", "L110", RunSign::Done, "");
    EXPECT_EQ(programm->Transfer->F9.Balken1.Value(), programm->Transfer->F9.Balken1.Maximum());
}

TEST_F(List_End, of_a_row_is_told_before_the_next_one_begins_and_leaves_nothing_to_press) {
    devices.Faults.push_back({.What = SimFault::Kind::Refuse, .Telegram = 2, .Value = 0x65});
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(world.RunUntil([this] { return RowAt(1).first == "#"; }));
    const F9& window = programm->Transfer->F9;
    EXPECT_EQ(window.NameLabel.Text(), "Tor");
    EXPECT_EQ(window.StatusLabel.Text(), "L68");
    EXPECT_EQ(window.Zeichen.Id(), RunSign::Failed);
    EXPECT_FALSE(window.Beendet);
    EXPECT_FALSE(window.Command1.Enabled);
    EXPECT_FALSE(window.Command2.Enabled);
    ASSERT_TRUE(world.RunUntil([this] { return programm->Transfer->F91.Arbeit() == F91::Work::Direct; }));
    EXPECT_EQ(window.NameLabel.Text(), "Keller");
    EXPECT_EQ(window.StatusLabel.Text(), "");
    EXPECT_EQ(window.Zeichen.Id(), RunSign::None);
    ASSERT_TRUE(FinishList());
}

} // namespace
} // namespace qvm::test
