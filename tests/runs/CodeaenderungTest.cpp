// The change of a code, with the virtual lock at the other end.

#include "RunFixture.h"

namespace qvm::test {
namespace {

struct Run_CodeChange : RunFixture {
    Run_CodeChange() {
        AddLock(1, "Tresor", Serial::S, " XXX ");
        files.Emi(1, 'Y');
    }
    void Open() {
        Begin();
        programm->Transfer->F17_Anbieten();
        programm->Transfer->F13.F13_FormLaden();
        programm->Transfer->F13.Timer1.Stop();
        programm->Transfer->F13.Timer2.Stop();
    }
    /// From the click to the message at the end.
    void Change(std::string_view oldCode, std::string_view newCode) {
        programm->Transfer->F13.FGK13_Click(1, F13Column::Code);
        F17& window = programm->Transfer->F17;
        for (const char key : oldCode) {
            window.Text1_KeyPress(key);
        }
        for (const char key : newCode) {
            window.Text2_KeyPress(key);
            window.Text3_KeyPress(key);
        }
        window.Command1_Click();
        world.RunFor(5000);
    }
    void ExpectText(const std::string& text) { world.Answers.push_back({.Text = text}); }
    bool Holds(const std::array<std::uint8_t, 3>& code) { return Lock(Serial::S).AdminCode == code; }
};

constexpr std::array<std::uint8_t, 3> OldCode{0x12, 0x34, 0x56}, NewCode{0x65, 0x43, 0x2A};

TEST_F(Run_CodeChange, gives_the_lock_its_new_code_and_the_old_one_is_refused_afterwards) {
    Open();
    ExpectText("L204");
    Change("123456", "654320");
    EXPECT_TRUE(Holds(NewCode));
    EXPECT_THAT(Sent(), ElementsAre(0x6B, 0x04, 0x12));
    Expect(70);
    Expect(66);
    Program(1, Answer::No, "123456");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Refused);
    programm->Transfer->F9.Command2_Click();
    Program(1, Answer::No, "654320");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_CodeChange, with_a_wrong_old_code_says_so_and_changes_nothing) {
    Open();
    ExpectText("L70  -  Codechange_Error_0x01");
    Change("123457", "654320");
    EXPECT_TRUE(Holds(OldCode));
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_CodeChange, tells_of_every_status_that_the_lock_gives) {
    Open();
    for (const auto& [status, text] : std::vector<std::pair<int, std::string>>{
             {2, "L71  -  Codechange_Error_0x02"}, {3, "L111  -  Codechange_Error_0x03"}, {9, "L70"}}) {
        Lock(Serial::S).CodeStatus = static_cast<std::uint8_t>(status);
        ExpectText(text);
        Change("123456", "654320");
        EXPECT_TRUE(Holds(OldCode));
    }
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_CodeChange, finds_a_lock_that_has_not_moved_yet_on_its_channel) {
    world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n7\r\n";
    files.Channel(1, "4", "7", "1");
    devices.Locks[0].Channel = 4;
    Open();
    ExpectText("L204");
    Change("123456", "654320");
    EXPECT_TRUE(Holds(NewCode));
    EXPECT_EQ(Lock(Serial::S).Channel, 4) << "it is not moved";
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_CodeChange, of_a_lock_that_is_not_there_ends_with_a_message) {
    devices.Locks.clear();
    Open();
    Expect(67);
    Change("123456", "654320");
    EXPECT_TRUE(programm->Transfer->F17.Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F18.Fenster.Visible);
}

TEST_F(Run_CodeChange, whose_login_is_answered_twice_goes_out_once) {
    devices.Faults = {{.What = SimFault::Kind::Doubled, .Telegram = 0}};
    Open();
    ExpectText("L204");
    Change("123456", "654320");
    EXPECT_THAT(Sent(), ElementsAre(0x6B, 0x04, 0x12));
    EXPECT_TRUE(Holds(NewCode));
}

TEST_F(Run_CodeChange, whose_answer_comes_twice_is_told_once) {
    devices.Faults = {{.What = SimFault::Kind::Doubled, .Telegram = 1}};
    Open();
    ExpectText("L204");
    Change("123456", "654320");
    EXPECT_TRUE(Holds(NewCode));
}

TEST_F(Run_CodeChange, whose_answer_is_lost_says_that_it_was_not_confirmed) {
    devices.Faults = {{.What = SimFault::Kind::Half, .Telegram = 1}};
    Open();
    Change("123456", "654320");
    EXPECT_TRUE(Holds(NewCode)) << "which the program cannot know";
    world.Answers.push_back({.Text = "*"});
    world.RunFor(36000);
    EXPECT_EQ(world.Shown.back().Title, "QVM 5508 Businnes");
}

TEST_F(Run_CodeChange, whose_adapter_is_pulled_out_in_the_middle_leaves_no_window_locked) {
    devices.Faults = {{.What = SimFault::Kind::Unplug, .Telegram = 0}};
    Open();
    Change("123456", "654320");
    EXPECT_TRUE(programm->Transfer->F18.Fenster.Visible);
    Expect(70);
    world.RunFor(40000);
    EXPECT_FALSE(programm->Transfer->F18.Fenster.Visible);
    programm->Transfer->F17.Command2_Click();
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_TRUE(Holds(OldCode));
}

TEST_F(Run_CodeChange, refused_as_busy_waits_no_longer_and_tells_nothing_wrong) {
    devices.Faults = {{.What = SimFault::Kind::Refuse, .Telegram = 1, .Value = 0x65}};
    Open();
    Expect(68);
    Change("123456", "654320");
    EXPECT_TRUE(Holds(OldCode));
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    world.RunFor(60000);
    EXPECT_EQ(programm->link.Lauf.Order.AdminCode, Secret<3>{});
}

} // namespace
} // namespace qvm::test
