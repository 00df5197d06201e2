// Runs to a lock that must move to the system's radio channel.

#include "Pictures.h"
#include "RunFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct Run_Search : RunFixture {
    Run_Search() {
        AddLock(1, "Tresor", Serial::S);
        files.Emi(1, 'Y');
        world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n7\r\n";
        files.Channel(1, "4", "7", "1");
        devices.Locks[0].Channel = 4;
    }
    std::string ChannelFile() { return world.Disk.Files["/q/DAT/RFCHANDIF12.RFX"].substr(0, 15); }
    /// Radio channels of the logins, as the virtual system saw them (index 18).
    std::vector<int> LoginChannels() {
        std::vector<int> channels;
        for (const auto& frame : system->Telegrams()) {
            if (frame[2] == 0x04) {
                channels.push_back(frame[18]);
            }
        }
        return channels;
    }
};

TEST_F(Run_Search, a_lock_on_its_old_channel_is_moved_and_then_programmed) {
    Begin();
    Program(1);
    EXPECT_TRUE(programm->Transfer->F18.Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    ASSERT_TRUE(Finish());
    const Codes sent = Sent();
    EXPECT_THAT(Codes(sent.begin(), sent.begin() + 6), ElementsAre(0x04, 0x28, 0x66, 0x29, 0x07, 0x09));
    EXPECT_THAT(LoginChannels(), ElementsAre(4));
    EXPECT_EQ(Lock(Serial::S).Channel, 7);
    EXPECT_EQ(ChannelFile(), "7     7  0     ");
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_FALSE(programm->Transfer->F18.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Search, a_new_channel_that_could_not_be_recorded_is_told_and_bears_no_sign_of_success) {
    Begin();
    Program(1);
    world.Disk.FailAt = world.Disk.Operations + 1;
    world.Disk.FailFromThere = true;
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_EQ(Lock(Serial::S).Channel, 7);
    EXPECT_EQ(ChannelFile(), "4     7  1     ");
    EXPECT_EQ(Status(), u8"L110. Der neue Funkkanal des Schlosses konnte nicht gespeichert werden: Das Schloss wird "
                        u8"beim nächsten Mal wieder gesucht."_w);
    EXPECT_EQ(programm->Transfer->F9.Zeichen.Id(), RunSign::Attention);
    EXPECT_EQ(programm->Transfer->F9.FolgeLabel.Text(), "");
}

TEST_F(Run_Search, a_lock_elsewhere_is_found_on_the_first_channel_that_answers) {
    devices.Locks[0].Channel = 3;
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(LoginChannels(), ElementsAre(4, 1, 2, 3));
    EXPECT_EQ(Lock(Serial::S).Channel, 7);
    EXPECT_EQ(Outcome(), RunOutcome::Done);
}

TEST_F(Run_Search, a_lock_that_answers_nowhere_is_tried_thirteen_times_and_reported) {
    devices.Locks.clear();
    Begin();
    Expect(67);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(LoginChannels(), ElementsAre(4, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
    EXPECT_EQ(programm->Transfer->F18.Balken.Value(), 172);
    EXPECT_FALSE(programm->Transfer->F18.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_EQ(programm->link.Lauf.Chain.KanalSuche, 0);
    EXPECT_EQ(ChannelFile().substr(9, 1), "1");
}

TEST_F(Run_Search, the_wait_boxs_button_ends_the_search_at_its_next_reply) {
    devices.Locks.clear();
    Begin();
    Expect(67);
    Program(1);
    programm->Transfer->F18.Command1_Click();
    EXPECT_FALSE(programm->Transfer->F18.Fenster.Visible);
    ASSERT_TRUE(Finish());
    EXPECT_LE(LoginChannels().size(), 2U);
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
}

TEST_F(Run_Search, a_refused_login_of_the_search_is_reported_like_any_other) {
    Begin();
    Expect(70);
    Expect(66);
    Program(1, Answer::No, "999999");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Refused);
    EXPECT_EQ(Status(), "L78");
    EXPECT_EQ(Lock(Serial::S).Channel, 4);
    EXPECT_EQ(ChannelFile(), "4     7  1     ");
}

TEST_F(Run_Search, history_alone_begins_on_the_systems_channel_and_moves_the_lock_as_well) {
    Begin();
    History(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(LoginChannels(), ElementsAre(7, 1, 2, 3, 4));
    const Codes sent = Sent();
    EXPECT_THAT(Codes(sent.end() - 7, sent.end()), ElementsAre(0x28, 0x66, 0x29, 0x07, 0x09, 0x17, 0x05));
    EXPECT_EQ(Lock(Serial::S).Channel, 7);
}

TEST_F(Run_Search, the_move_is_recorded_even_when_the_run_fails_afterwards) {
    devices.Faults = {{.What = SimFault::Kind::Refuse, .Telegram = 8, .Value = 0x65}};
    Begin();
    Expect(68);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Refused);
    EXPECT_EQ(ChannelFile(), "7     7  0     ");
}

TEST_F(Run_Search, a_second_pass_logs_in_on_the_channel_the_lock_was_moved_to) {
    files.Lock(1, "Tresor", Serial::TwoPass, " XXX ");
    devices.Locks[0].Serial = AddressOf(Serial::TwoPass);
    files.User(1, {.Name = "Anna", .KeyId = "1 : 2 : 3 : 4", .Marks = {{1, 'X'}}});
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(LoginChannels(), ElementsAre(4, 7));
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_EQ(Lock(Serial::TwoPass).Erases, 2);
}

} // namespace
} // namespace qvm::test
