// The wireless units behind a lock.

#include "RunFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct Run_Units : RunFixture {
    Run_Units() {
        AddLock(1, "Tresor", Serial::S, " XXX ");
        files.Emi(1, ' ');
        files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    }
    /// What goes out behind the lock's own 0x05.
    Codes Behind() {
        const Codes sent = Sent();
        const auto end = std::find(sent.begin(), sent.end(), 0x05);
        return end == sent.end() ? Codes{} : Codes(end + 1, sent.end());
    }
    void Type1(int unit, std::string_view serial) {
        files.Unit(1, unit, "Leser" + std::to_string(unit), serial, '1');
        AddUnit(serial, 1);
    }
    void Type2(int unit, std::string_view serial) {
        files.Unit(1, unit, "Finger" + std::to_string(unit), serial, '2');
        AddUnit(serial, 2);
    }
    void Finger(int user, int number, std::string_view id, std::vector<std::uint8_t> values) {
        files.User(user, {.Name = "Finger " + std::to_string(number),
                          .Label = "Slot_Nr: 00" + std::to_string(number),
                          .FingerFlag = "FS",
                          .FingerId = std::string(id),
                          .Marks = {{1, 'F'}}});
        files.Template(249 + number, id.substr(0, 2) == "PR" ? id.substr(2) : id, std::move(values));
    }
    void ProgramWithFinger() {
        Expect(63, Answer::No);
        Expect(273);
        programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
        TypeCode("123456");
    }
    VirtualUnit& Unit(std::string_view serial) { return *system->FindUnit(AddressOf(serial)); }
};

TEST_F(Run_Units, a_unit_of_type_1_is_told_its_lock_and_its_box_is_ticked) {
    Type1(1, "01600001");
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Behind(), ElementsAre(0x04, 0x3D, 0x05));
    EXPECT_EQ(Unit("01600001").Lock, AddressOf(Serial::S));
    EXPECT_TRUE(programm->Transfer->F9.Check[0].Checked);
    EXPECT_TRUE(programm->Transfer->F9.Check[1].Checked);
    EXPECT_FALSE(programm->Transfer->F9.Check[2].Checked);
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_EQ(programm->link.TargetAddress, AddressOf(Serial::S));
    EXPECT_EQ(programm->link.Lauf.Chain.LaufZiel, "");
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Units, a_unit_of_type_2_gets_key_and_templates_in_pieces_of_32_bytes) {
    Type2(1, "00012CCD");
    std::vector<std::uint8_t> values(40, 7);
    values[0] = 40;
    values[1] = 0;
    Finger(1, 1, "8001", values);
    Begin();
    ProgramWithFinger();
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Behind(), ElementsAre(0x6F, 0x28, 0x66, 0x29, 0x49, 0x48, 0xFE, 0x27, 0x4A, 0x4A, 0x05, 0x03));
    const VirtualUnit& unit = Unit("00012CCD");
    EXPECT_EQ(unit.Lock, AddressOf(Serial::S));
    EXPECT_EQ(unit.RowsAnnounced, 1);
    ASSERT_EQ(unit.Rows.size(), 1U);
    EXPECT_EQ(unit.Rows[0].Number, 1);
    EXPECT_EQ(unit.Rows[0].Address, 1);
    values.resize(64, 0);
    EXPECT_EQ(unit.Rows[0].Bytes, values);
    EXPECT_TRUE(programm->Transfer->F9.Check[1].Checked);
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_EQ(programm->link.Lauf.Chain.UnitModus, 0);
    EXPECT_EQ(programm->link.AddressMode, 0);
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Units, a_unit_of_type_2_without_templates_is_opened_and_closed) {
    Type2(1, "00012CCD");
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Behind(), ElementsAre(0x6F, 0x28, 0x66, 0x29, 0x49, 0x48, 0xFE, 0x27, 0x05, 0x03));
    EXPECT_EQ(Outcome(), RunOutcome::Done);
}

TEST_F(Run_Units, premium_and_standard_templates_wait_1900_and_500_ms) {
    Type2(1, "00012CCD");
    Finger(1, 1, "PR8001", {3, 0, 1});
    Finger(2, 2, "8002", {3, 0, 2});
    Finger(3, 3, "8003", {3, 0, 3});
    std::vector<std::int64_t> times;
    Begin();
    programm->link.Protokoll = [&](const TraceFrame& frame) {
        if (frame.Way == TraceFrame::Direction::Sent && frame.Bytes[2] == 0x4A) {
            times.push_back(world.Elapsed());
        }
    };
    ProgramWithFinger();
    ASSERT_TRUE(Finish());
    ASSERT_EQ(times.size(), 3U);
    EXPECT_EQ(times[1] - times[0], 1900);
    EXPECT_EQ(times[2] - times[1], 500);
    EXPECT_EQ(Unit("00012CCD").Rows[0].Type, 1);
    EXPECT_EQ(Unit("00012CCD").Rows[1].Type, 0);
}

TEST_F(Run_Units, units_of_both_types_are_worked_off_in_their_order) {
    Type1(2, "01600002");
    Type2(3, "00012CCD");
    Type1(4, "01600004");
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Behind(), ElementsAre(0x04, 0x3D, 0x05, 0x6F, 0x28, 0x66, 0x29, 0x49, 0x48, 0xFE, 0x27, 0x05, 0x03,
                                      0x04, 0x3D, 0x05));
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    for (const int box : {2, 3, 4}) {
        EXPECT_TRUE(programm->Transfer->F9.Check[static_cast<std::size_t>(box)].Checked) << box;
    }
    EXPECT_EQ(Lock(Serial::S).Erases, 1);
}

TEST_F(Run_Units, a_unit_of_type_2_is_searched_on_all_channels_with_the_adapter_turned_to_each) {
    Type2(1, "00012CCD");
    devices.Units[0].Channel = 3;
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Behind(), ElementsAre(0x6F, 0x28, 0x6F, 0x28, 0x6F, 0x28, 0x6F, 0x28, 0x66, 0x29, 0x49, 0x48, 0xFE,
                                      0x27, 0x05, 0x03));
    EXPECT_EQ(Unit("00012CCD").Channel, 1);
    EXPECT_EQ(Outcome(), RunOutcome::Done);
}

TEST_F(Run_Units, a_unit_of_type_2_that_is_nowhere_ends_the_run_with_the_units_behind_it_untried) {
    Type2(1, "00012CCD");
    Type1(2, "01600002");
    devices.Units.erase(devices.Units.begin());
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    const Codes behind = Behind();
    EXPECT_EQ(std::count(behind.begin(), behind.end(), 0x28), 13);
    EXPECT_EQ(std::count(behind.begin(), behind.end(), 0x04), 0);
    EXPECT_EQ(Status(), "L66");
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
    EXPECT_EQ(programm->Run.Bericht.Units[0].End, UnitReport::State::Failed);
    EXPECT_EQ(programm->Run.Bericht.Units[1].End, UnitReport::State::Untried);
    EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
}

TEST_F(Run_Units, a_unit_of_type_1_that_does_not_answer_is_tried_twice_and_the_lock_is_not_marked) {
    Type1(1, "01600001");
    Type1(2, "01600002");
    devices.Units.erase(devices.Units.begin());
    Begin();
    Expect(67);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Behind(), ElementsAre(0x04, 0x04));
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
    EXPECT_EQ(world.Disk.Files["/q/DAT/RFCHANDIF12.RFX"].substr(9, 1), "0");
    EXPECT_EQ(programm->Run.Bericht.Units[1].End, UnitReport::State::Untried);
}

TEST_F(Run_Units, a_unit_of_type_1_that_refuses_stays_unticked_and_the_next_one_follows) {
    Type1(1, "01600001");
    Type1(2, "01600002");
    devices.Units[0].LoginStatus = 2;
    Begin();
    Expect(71);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Behind(), ElementsAre(0x04, 0x04, 0x3D, 0x05));
    EXPECT_FALSE(programm->Transfer->F9.Check[1].Checked);
    EXPECT_TRUE(programm->Transfer->F9.Check[2].Checked);
    EXPECT_EQ(programm->Run.Bericht.Units[0].End, UnitReport::State::Failed);
    EXPECT_EQ(programm->Run.Bericht.Units[1].End, UnitReport::State::Done);
}

TEST_F(Run_Units, a_unit_busy_with_erasing_is_asked_up_to_twenty_times_more) {
    Type2(1, "00012CCD");
    devices.Units[0].RefusedErases = 20;
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    const Codes behind = Behind();
    EXPECT_EQ(std::count(behind.begin(), behind.end(), 0x27), 21);
    EXPECT_EQ(programm->Run.Bericht.Units[0].End, UnitReport::State::Done);
}

TEST_F(Run_Units, a_unit_that_never_erases_is_disconnected_after_twenty_repeats_and_the_next_one_is_not_tried) {
    Type2(1, "00012CCD");
    Type1(2, "01600002");
    devices.Units[0].RefusedErases = 99;
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    const Codes behind = Behind();
    EXPECT_EQ(std::count(behind.begin(), behind.end(), 0x27), 21);
    EXPECT_THAT(Codes(behind.end() - 2, behind.end()), ElementsAre(0x05, 0x03));
    EXPECT_EQ(programm->Run.Bericht.Units[0].End, UnitReport::State::Failed);
    EXPECT_FALSE(programm->Transfer->F9.Check[1].Checked);
    EXPECT_EQ(programm->Run.Bericht.Units[1].End, UnitReport::State::Untried);
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
    EXPECT_EQ(Status(), "L66");
}

TEST_F(Run_Units, a_cancel_behind_the_last_unit_ends_the_run_as_cancelled) {
    Type1(1, "01600001");
    Begin();
    Program(1);
    world.RunUntil([this] { return Unit("01600001").Sessions == 1; });
    world.RunFor(100);
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
    EXPECT_EQ(programm->link.Lauf.Chain.AbbruchWunsch, 0);
}

TEST_F(Run_Units, a_status_of_a_block_is_noted_and_the_session_goes_on) {
    Type2(1, "00012CCD");
    Finger(1, 1, "8001", {3, 0, 1});
    devices.Units[0].BlockStatus = 2;
    Begin();
    ProgramWithFinger();
    ASSERT_TRUE(Finish());
    EXPECT_EQ(programm->Run.Bericht.Units[0].Note, "FS-Memory Full");
    EXPECT_EQ(programm->Run.Bericht.Units[0].End, UnitReport::State::Done);
    EXPECT_EQ(Outcome(), RunOutcome::Done);
}

TEST_F(Run_Units, a_block_that_is_not_accepted_fails_the_unit_and_the_next_one_follows) {
    Type2(1, "00012CCD");
    Type1(2, "01600002");
    Finger(1, 1, "8001", {3, 0, 1});
    devices.Units[0].BlockStatus = 5;
    Begin();
    ProgramWithFinger();
    ASSERT_TRUE(Finish());
    const auto& units = programm->Run.Bericht.Units;
    EXPECT_EQ(units[0].End, UnitReport::State::Failed);
    EXPECT_EQ(units[0].Note, "FS-ERROR");
    EXPECT_EQ(units[0].Progress, (UnitProgress{.Stage = UnitStage::Changed, .Templates = 0, .TemplatesWanted = 1}));
    EXPECT_EQ(units[1].End, UnitReport::State::Done);
    EXPECT_FALSE(programm->Transfer->F9.Check[1].Checked);
    EXPECT_TRUE(programm->Transfer->F9.Check[2].Checked);
    EXPECT_EQ(Outcome(), RunOutcome::Incomplete);
    EXPECT_EQ(Status(), u8"Eine Funkeinheit wurde nicht vollständig programmiert. Finger1: gelöscht, 0 von 1 "
                        u8"Fingervorlagen übertragen. (FS-ERROR)"_w);
}

TEST_F(Run_Units, one_of_a_type_that_nobody_knows_leaves_the_run_unfinished) {
    files.Unit(1, 1, "Neu", "01600001", '3');
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Behind(), IsEmpty());
    EXPECT_EQ(programm->Run.Bericht.Units[0].End, UnitReport::State::Failed);
    EXPECT_EQ(Outcome(), RunOutcome::Incomplete);
}

TEST_F(Run_Units, history_alone_touches_no_unit) {
    Type1(1, "01600001");
    Begin();
    History(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Behind(), IsEmpty());
    EXPECT_FALSE(Unit("01600001").Lock);
}

} // namespace
} // namespace qvm::test
