// What the progress window shows at the end of a run: line 110 and the sign of success when all was done, and nothing
// like it otherwise.

#include "Pictures.h"
#include "RunFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

constexpr std::string_view Incomplete =
    u8"Das Schloss enthält keine vollständigen Daten. Bitte programmieren Sie es noch einmal."_w;
constexpr std::string_view LockDone = "Das Schloss selbst ist fertig programmiert.";

struct Run_Picture : SmallRun {
    void Unit(std::string_view serial, char type, bool there = true) {
        files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
        files.Unit(1, 1, "Leser", serial, type);
        if (there) {
            AddUnit(serial, type - '0');
        }
    }
    /// Status, sign, and what is said of the lock.
    void Expect_Picture(std::string_view status, int sign, std::string_view outcome) {
        const F9& window = programm->Transfer->F9;
        EXPECT_TRUE(window.Beendet);
        EXPECT_EQ(window.StatusLabel.Text(), status);
        EXPECT_EQ(window.Zeichen.Id(), sign);
        EXPECT_EQ(window.FolgeLabel.Text(), outcome);
    }
    /// The status says what the lock has not got.
    void Expect_Missing(int sign, std::string_view outcome) {
        EXPECT_EQ(programm->Transfer->F9.StatusLabel.Text().substr(0, 17), u8"Nicht vollständig"_w);
        Expect_Picture(programm->Run.Bericht.Text, sign, outcome);
    }
    void CancelAfter(std::size_t telegrams) {
        Program(1);
        world.RunUntil([this, telegrams] { return system->Codes().size() == telegrams; });
        programm->Transfer->F9.Command1_Click();
    }
};

TEST_F(Run_Picture, of_a_run_that_did_all_is_line_110_and_the_sign_of_success) {
    Begin();
    Program(1);
    EXPECT_EQ(programm->Transfer->F9.Zeichen.Id(), RunSign::None);
    ASSERT_TRUE(Finish());
    Expect_Picture("L110", RunSign::Done, "");
    EXPECT_EQ(programm->Transfer->F9.Zeichen.Name(), "Erfolgreich");
    programm->Transfer->F9.Command2_Click();
    Program(1);
    EXPECT_EQ(programm->Transfer->F9.Zeichen.Id(), RunSign::None);
    EXPECT_EQ(programm->Transfer->F9.Zeichen.Name(), "");
}

TEST_F(Run_Picture, of_a_run_cancelled_before_the_lock_was_erased_says_nothing_of_the_lock) {
    Begin();
    CancelAfter(1);
    EXPECT_EQ(programm->Transfer->F9.FolgeLabel.Text(), "");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Lock(Serial::S).Erases, 0);
    Expect_Picture("L82", RunSign::Attention, "");
}

TEST_F(Run_Picture, of_a_run_cancelled_behind_the_erasing_says_at_once_and_at_the_end_that_the_data_are_not_complete) {
    Begin();
    CancelAfter(5);
    EXPECT_EQ(programm->Transfer->F9.FolgeLabel.Text(), Incomplete);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Lock(Serial::S).Erases, 1);
    Expect_Picture("L82", RunSign::Attention, Incomplete);
    EXPECT_EQ(programm->Transfer->F9.Zeichen.Name(), "Achtung");
}

TEST_F(Run_Picture, of_a_refused_login_keeps_line_78_under_the_sign_of_failure) {
    Begin();
    Expect(70);
    Expect(66);
    Program(1, Answer::No, "654321");
    ASSERT_TRUE(Finish());
    Expect_Picture("L78", RunSign::Failed, "");
    EXPECT_EQ(programm->Transfer->F9.Zeichen.Name(), "Fehlgeschlagen");
}

TEST_F(Run_Picture, of_a_lock_that_stays_busy_says_so) {
    Refuse(0, 0x67, true);
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    Expect_Missing(RunSign::Attention, "");
}

TEST_F(Run_Picture, of_a_lock_that_is_busy_from_the_middle_on_says_what_it_holds) {
    Refuse(4, 0x67, true);
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    Expect_Missing(RunSign::Attention, Incomplete);
}

TEST_F(Run_Picture, of_a_run_that_wrong_replies_led_past_a_part_says_what_is_missing_and_what_the_lock_holds) {
    // The reply to the erase telegram is taken for the end of the data.
    devices.Faults.push_back({.What = SimFault::Kind::Wrong, .Telegram = 1, .Value = 0x15});
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Incomplete);
    Expect_Missing(RunSign::Attention, Incomplete);
}

TEST_F(Run_Picture, of_a_place_in_the_lock_that_is_none_keeps_line_72) {
    devices.Locks[0].ForcedSlot = 0;
    Begin();
    world.Answers.push_back({.Text = "L63", .Reply = Answer::No});
    Expect(72);
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    TypeCode("123456");
    ASSERT_TRUE(Finish());
    Expect_Picture("L72", RunSign::Failed, Incomplete);
}

TEST_F(Run_Picture, of_a_run_without_a_port_gives_the_reason) {
    Begin();
    world.PortCanOpen = false;
    Program(1);
    ASSERT_TRUE(Finish());
    Expect_Picture(programm->Run.Bericht.Text, RunSign::Failed, "");
    EXPECT_NE(programm->Run.Bericht.Text, "");
}

TEST_F(Run_Picture, of_a_history_that_could_not_be_kept_is_line_277) {
    files.Lock(1, "Tresor", Serial::S, "XXXX ");
    HistoryLine line{};
    line[0] = 4;
    line[1] = 3;
    line[2] = 26;
    devices.Locks[0].History = {line};
    Begin();
    Expect(277);
    world.Answers.push_front({.Text = "L65"});
    programm->Transfer->F13.FGK13_Click(1, F13Column::History);
    world.Disk.FailAt = world.Disk.Operations + 1;
    world.Disk.FailFromThere = true;
    TypeCode("123456");
    ASSERT_TRUE(Finish());
    Expect_Picture("L277", RunSign::Failed, "");
}

TEST_F(Run_Picture, of_a_history_comes_when_the_session_is_closed_and_not_with_the_last_record) {
    files.Lock(1, "Tresor", Serial::S, "XXXX ");
    devices.Faults.push_back({.What = SimFault::Kind::Silent, .Telegram = 2}); // the closing telegram
    Begin();
    History(1);
    EXPECT_FALSE(Finish(20000));
    EXPECT_EQ(Sent().back(), 0x05);
    EXPECT_FALSE(programm->Transfer->F9.Beendet);
    EXPECT_EQ(Status(), "L115");
    EXPECT_EQ(programm->Transfer->F9.Zeichen.Id(), RunSign::None);
    EXPECT_FALSE(programm->Transfer->F9.Command1.Enabled);
    EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
}

TEST_F(Run_Picture, of_a_unit_that_refuses_names_it_and_says_that_the_lock_is_done) {
    Unit("01600001", '1');
    devices.Units[0].LoginStatus = 2;
    Begin();
    Expect(71);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    Expect_Picture("Die Anmeldung wurde abgelehnt von: Leser.", RunSign::Attention, LockDone);
}

TEST_F(Run_Picture, of_a_lock_that_did_not_confirm_its_erasing_bears_no_sign_of_success) {
    files.Lock(1, "Tresor", Serial::Z, " XXX ");
    devices.Locks[0].Serial = AddressOf(Serial::Z);
    devices.Locks[0].EchoErase = false;
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    Expect_Picture(u8"L110. Das Schloss hat das Löschen nicht bestätigt: Alte Einträge können noch vorhanden sein."_w,
                   RunSign::Attention, "");
}

TEST_F(Run_Picture, of_a_unit_that_is_nowhere_says_that_the_lock_is_done) {
    Unit("00012CCD", '2', false);
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
    Expect_Picture("L66", RunSign::Attention, LockDone);
}

TEST_F(Run_Picture, speaks_the_language_in_use) {
    Begin();
    CancelAfter(5);
    ASSERT_TRUE(Finish());
    programm->kern.Config.Sprache = "English";
    programm->Transfer->F9.Texte_Setzen();
    EXPECT_EQ(programm->Transfer->F9.FolgeLabel.Text(),
              "The lock does not hold complete data. Please program it again.");
    EXPECT_EQ(programm->Transfer->F9.Zeichen.Name(), "Attention");
}

} // namespace
} // namespace qvm::test
