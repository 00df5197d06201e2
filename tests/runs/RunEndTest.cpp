// How a run ends when it does not go through: refusals, no contact, cancel, a busy lock, a missing port.

#include "RunFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct Run_End : SmallRun {
    /// The next run must work: nothing of the failed one may stand in its way.
    void Expect_Next_Run_Works() {
        world.PortCanOpen = true;
        if (system->Unplugged()) {
            system->Plug();
        }
        system->World().Faults.clear();
        system->ClearJudgements();
        if (programm->Transfer->F9.Fenster.Visible) {
            programm->Transfer->F9.Command2_Click();
        }
        ASSERT_TRUE(programm->Transfer->F13.Fenster.Enabled);
        Program(1);
        ASSERT_TRUE(Finish());
        EXPECT_EQ(Outcome(), RunOutcome::Done);
        EXPECT_EQ(Lock(Serial::S).Users.size(), 1U);
    }
};

TEST_F(Run_End, a_wrong_code_shows_its_message_and_then_that_the_connection_failed) {
    Begin();
    Expect(70);
    Expect(66);
    Program(1, Answer::No, "654321");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Refused);
    EXPECT_EQ(Status(), "L78");
    EXPECT_EQ(Lock(Serial::S).Erases, 0);
    EXPECT_GE(world.Closes, 1);
    Expect_Next_Run_Works();
}

TEST_F(Run_End, login_status_2_and_3_have_messages_of_their_own_and_others_none) {
    const std::map<int, int> lines{{2, 71}, {3, 111}, {9, 0}};
    Begin();
    for (const auto& [status, line] : lines) {
        Lock(Serial::S).LoginStatus = static_cast<std::uint8_t>(status);
        if (line != 0) {
            Expect(line);
        }
        Expect(66);
        Program(1);
        ASSERT_TRUE(Finish());
        EXPECT_EQ(Outcome(), RunOutcome::Refused);
        EXPECT_TRUE(world.Answers.empty());
        programm->Transfer->F9.Command2_Click();
    }
}

TEST_F(Run_End, no_contact_marks_the_lock_and_goes_back_to_the_grid) {
    Refuse(0, 0x64);
    Begin();
    Expect(67);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_EQ(world.Disk.Files["/q/DAT/RFCHANDIF12.RFX"].substr(0, 12), "1  "
                                                                        "   "
                                                                        "1  "
                                                                        "1  ");
}

TEST_F(Run_End, no_contact_in_the_middle_ends_the_run_the_same_way) {
    Refuse(5, 0x64);
    Begin();
    Expect(67);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
}

TEST_F(Run_End, reason_65_shows_line_68_and_goes_back_to_the_grid) {
    Refuse(3, 0x65);
    Begin();
    Expect(68);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Refused);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    Expect_Next_Run_Works();
}

TEST_F(Run_End, reasons_that_mean_nothing_to_a_run_leave_it_standing_until_the_cancel) {
    for (const int reason : {0x68, 0x69, 0x77}) {
        devices.Faults.clear();
        Refuse(4, reason);
        Begin();
        Program(1);
        EXPECT_FALSE(Finish(60000)) << reason;
        EXPECT_TRUE(programm->Transfer->F9.StilleLabel.Visible);
        EXPECT_EQ(programm->Transfer->F9.StilleLabel.Text(), "L274 60 s");
        // No frame will come: the close button gives the run up.
        programm->Transfer->F9.Command1_Click();
        EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
        programm->Transfer->F9.Command2_Click();
        EXPECT_TRUE(programm->Run.Gesamtende);
        EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
        EXPECT_FALSE(world.PortOpen);
        Expect_Next_Run_Works();
    }
}

TEST_F(Run_End, reason_66_in_a_run_shows_its_message_and_the_run_stands) {
    Refuse(4, 0x66);
    Begin();
    Program(1);
    Expect(69);
    EXPECT_FALSE(Finish(20000));
    programm->Transfer->F9.Command2_Click();
    Expect_Next_Run_Works();
}

TEST_F(Run_End, a_busy_lock_is_asked_39_times_more_and_then_given_up) {
    Refuse(0, 0x67, true);
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    const Codes sent = Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), 0x05), 39);
    EXPECT_EQ(Outcome(), RunOutcome::GivenUp);
    EXPECT_THAT(Status(), ::testing::StartsWith(u8"Nicht vollständig: "_w));
    EXPECT_EQ(Status(), programm->Run.Bericht.Text);
    Expect_Next_Run_Works();
}

TEST_F(Run_End, a_cancelled_run_whose_lock_stays_busy_still_says_that_it_was_cancelled) {
    Refuse(5, 0x67, true);
    Begin();
    Program(1);
    world.RunUntil([this] { return system->Codes().size() == 5; });
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
    EXPECT_EQ(Status(), "L82");
}

TEST_F(Run_End, a_cancel_discards_the_next_reply_and_closes_the_session) {
    Begin();
    Program(1);
    world.RunUntil([this] { return system->Codes().size() == 5; });
    programm->Transfer->F9.Command1_Click();
    EXPECT_EQ(Status(), "L82");
    EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Sent().back(), 0x05);
    EXPECT_EQ(Sent().size(), 6U);
    EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
    EXPECT_EQ(Status(), "L82");
    EXPECT_EQ(Lock(Serial::S).Sessions, 1);
    Expect_Next_Run_Works();
}

TEST_F(Run_End, a_cancel_in_the_first_of_two_passes_does_not_start_the_second) {
    AddLock(2, "Tor", Serial::TwoPass, " XXX ");
    files.User(1, {.Name = "Anna", .KeyId = "1 : 2 : 3 : 4", .Marks = {{1, 'X'}, {2, 'X'}}});
    Begin();
    Program(2);
    world.RunUntil([this] { return system->Codes().size() == 3; });
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
    const Codes sent = Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), 0x04), 1);
}

TEST_F(Run_End, a_cancel_leaves_the_units_alone) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(1, 1, "Leser", "01600001", '1');
    AddUnit("01600001", 1);
    Begin();
    Program(1);
    world.RunUntil([this] { return system->Codes().size() == 3; });
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(Finish());
    world.RunFor(20000);
    EXPECT_EQ(Sent().back(), 0x05);
    EXPECT_FALSE(system->FindUnit(AddressOf("01600001"))->Lock);
}

TEST_F(Run_End, a_cancel_in_a_block_transfer_closes_the_unit_as_well) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(1, 1, "Finger", "00012CCD", '2');
    AddUnit("00012CCD", 2);
    Begin();
    Program(1);
    world.RunUntil([this] { return !system->Codes().empty() && system->Codes().back() == 0x48; });
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(Finish());
    const Codes sent = Sent();
    EXPECT_THAT(Codes(sent.end() - 2, sent.end()), ElementsAre(0x05, 0x03));
    EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
    EXPECT_EQ(programm->link.Lauf.Chain.UnitModus, 0);
    Expect_Next_Run_Works();
}

TEST_F(Run_End, a_slot_out_of_range_stops_the_run_without_a_name) {
    for (const int slot : {0, 3000}) {
        devices.Locks[0].ForcedSlot = static_cast<std::uint16_t>(slot);
        Begin();
        Expect(63, Answer::No);
        Expect(72);
        programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
        TypeCode("123456");
        ASSERT_TRUE(Finish());
        EXPECT_EQ(Sent().back(), 0x0A) << slot;
        EXPECT_EQ(Outcome(), RunOutcome::Refused);
        EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
    }
}

TEST_F(Run_End, the_last_good_slot_is_2999) {
    devices.Locks[0].ForcedSlot = 2999;
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_EQ(Lock(Serial::S).Users[0].Slot, 2999);
}

TEST_F(Run_End, two_users_in_one_place_of_the_lock_are_not_done) {
    files.User(2, {.Name = "Bert", .Marks = {{1, 'X'}}});
    devices.Locks[0].ForcedSlot = 7;
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Incomplete);
    EXPECT_THAT(Status(), ::testing::HasSubstr("(Benutzer 2)"));
}

TEST_F(Run_End, without_a_port_nothing_is_sent_and_the_run_ends_at_once) {
    Begin();
    world.PortCanOpen = false;
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::NoPort);
    EXPECT_THAT(Sent(), IsEmpty());
    EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
    Expect_Next_Run_Works();
}

TEST_F(Run_End, an_adapter_pulled_out_leaves_the_run_standing_until_it_is_closed) {
    devices.Faults.push_back({.What = SimFault::Kind::Unplug, .Telegram = 3});
    Begin();
    Program(1);
    EXPECT_FALSE(Finish(30000));
    programm->Transfer->F9.Command1_Click();
    programm->Transfer->F9.Command2_Click();
    EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
    Expect_Next_Run_Works();
}

} // namespace
} // namespace qvm::test
