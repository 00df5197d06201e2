// Clicks on the cells of F13, column by column.

#include "F13KlickFixture.h"

namespace qvm::test {
namespace {

TEST_F(F13_Klick, a_white_cell_does_nothing_at_all) {
    SettledLock(1, "Tor");
    Open();
    Lauf().Chain.TwoPassFlag = 1;
    const int opens = world.Opens;
    Click(1, F13Column::Name);
    Click(2, F13Column::Program); // a row without a serial
    Click(2, F13Column::Mark);
    EXPECT_EQ(Lauf().Chain.TwoPassFlag, 1);
    EXPECT_EQ(world.Opens, opens);
    EXPECT_EQ(Mark(2), "");
    EXPECT_FALSE(StartOpen());
}

TEST_F(F13_Klick, the_header_cells_outside_and_a_disabled_window_do_nothing) {
    SettledLock(1, "Tor");
    Open();
    Lauf().Chain.TwoPassFlag = 1;
    programm->Transfer->F13.FGK13.SetBackColor(0, F13Column::Program, 0xE0E0E0);
    Click(0, F13Column::Program);
    Click(-1, F13Column::Program);
    Click(201, F13Column::Program);
    Click(1, 16);
    Click(1, -1);
    programm->Transfer->F13.Fenster.Enabled = false;
    Click(1, F13Column::Mark);
    EXPECT_EQ(Lauf().Chain.TwoPassFlag, 1);
    EXPECT_EQ(Mark(1), "");
}

TEST_F(F13_Klick, nothing_of_an_earlier_run_reaches_the_next) {
    SettledLock(1, "Tor");
    SettledLock(2, "Hof");
    Open();
    StartRun(1);
    Lauf().Chain.AbbruchWunsch = Lauf().Chain.KanalIndex = 1;
    Lauf().List = {.RunRow = 1, .RunRows = 4, .NetMode = 0x80};
    ASSERT_NE(Lauf().Chain, ChainState{}); // its phase, at least
    programm->link.DeviceClassByte = 0xC3;
    programm->link.AddressMode = 1;
    programm->Transfer->F13.Fenster.Enabled = true;
    Click(2, F13Column::Status); // a cell with a picture and no action of its own
    EXPECT_EQ(Lauf().Chain, ChainState{});
    EXPECT_EQ(Lauf().List, ListState{});
    EXPECT_EQ(programm->link.DeviceClassByte, 0x11);
    EXPECT_EQ(programm->link.AddressMode, 0);

    Lauf().Chain.LaufZiel = "UNIT"; // of a window that has opened meanwhile
    const RunOrder order = Lauf().Order;
    Lauf_Beginnen(programm->Run, order);
    ChainState begun;
    begun.Phase = RunPhase::Open;
    begun.LastAnswer = world.World.Milliseconds();
    EXPECT_EQ(Lauf().Chain, begun);
}

TEST_F(F13_Klick, closes_an_open_port_and_opens_the_locks_port) {
    SettledLock(4, "Tor");
    Open();
    world.PortOpen = true;
    Click(4, F13Column::Status);
    EXPECT_EQ(world.Closes, 1);
    EXPECT_TRUE(world.PortOpen);
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Row, 4);
    EXPECT_EQ(programm->link.Lauf.Order.LockName, "Tor");
    EXPECT_EQ(programm->link.Lauf.Order.LockNumber, 4);
    EXPECT_FALSE(StartOpen());
    EXPECT_THAT(world.Written, IsEmpty());
}

// ---- the mark

TEST_F(F13_Klick, the_mark_cell_flips_the_X_in_grey_sixteen_points) {
    SettledLock(1, "Tor");
    Open();
    Click(1, F13Column::Mark);
    const Cell cell = programm->Transfer->F13.FGK13.At(1, F13Column::Mark);
    EXPECT_EQ(cell.Text, "X");
    EXPECT_EQ(cell.FontSize, 16);
    EXPECT_EQ(cell.ForeColor, 0x808080U);
    Click(1, F13Column::Mark);
    EXPECT_EQ(Mark(1), "");
}

TEST_F(F13_Klick, a_lock_without_a_name_takes_no_mark) {
    SettledLock(1, "");
    Open();
    Click(1, F13Column::Mark);
    EXPECT_EQ(Mark(1), "");
}

// ---- program, channel settled

TEST_F(F13_Klick, program_asks_for_the_history_with_no_as_default) {
    SettledLock(1, "Tor");
    Open();
    OpenStart();
    ASSERT_EQ(world.Shown.size(), 1U);
    EXPECT_EQ(world.Shown[0], (Message{.Text = "L63",
                                       .Title = "L90",
                                       .Choice = Buttons::YesNoCancel,
                                       .Sign = Icon::Question,
                                       .DefaultButton = 2,
                                       .About = "Schloss 1: Tor"}));
}

TEST_F(F13_Klick, program_with_yes_reads_the_history_first) {
    SettledLock(1, "Tor");
    Open();
    Expect(63, Answer::Yes);
    Click(1, F13Column::Program);
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 0);
    EXPECT_EQ(Lauf().Chain.ReadHistoryFirst, 1);
    EXPECT_EQ(Lauf().Order.What, RunTask::HistoryFirst);
    EXPECT_TRUE(StartOpen());
    EXPECT_FALSE(GridEnabled());
}

TEST_F(F13_Klick, program_with_no_only_programs) {
    SettledLock(1, "Tor");
    Open();
    OpenStart();
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 0);
    EXPECT_EQ(Lauf().Chain.ReadHistoryFirst, 0);
    EXPECT_EQ(Lauf().Order.What, RunTask::Program);
    EXPECT_EQ(Lauf().Chain.KanalSuche, 0);
    EXPECT_EQ(programm->link.TargetChannel, 3);
    EXPECT_EQ(Lauf().Order.SerialValue, 0x000A1001U);
    EXPECT_EQ(programm->link.TargetAddress, (Address{0x00, 0x0A, 0x10, 0x01}));
    EXPECT_EQ(Lauf().Order.LockAddress, (Address{0x00, 0x0A, 0x10, 0x01}));
    EXPECT_FALSE(GridEnabled());
    EXPECT_EQ(Mark(1), "X");
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F13_Klick, program_with_cancel_ends_before_the_dataset_and_leaves_the_mark) {
    SettledLock(1, "Tor", SmallLock);
    TooManyUsers();
    Open();
    Expect(63, Answer::Cancel);
    Click(1, F13Column::Program);
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
    EXPECT_EQ(Mark(1), "X");
    EXPECT_EQ(Lauf().Chain.ReadHistoryFirst, 0);
}

TEST_F(F13_Klick, a_second_click_on_program_takes_the_mark_away_again) {
    SettledLock(1, "Tor");
    Open();
    Expect(63, Answer::Cancel);
    Expect(63, Answer::Cancel);
    Click(1, F13Column::Program);
    Click(1, F13Column::Program);
    EXPECT_EQ(Mark(1), "");
}

TEST_F(F13_Klick, a_mark_set_by_program_remains_when_the_dialog_is_cancelled) {
    SettledLock(1, "Tor");
    Open();
    OpenStart();
    programm->Transfer->F11.Cancel_Click();
    EXPECT_EQ(Mark(1), "X");
    EXPECT_TRUE(GridEnabled());
}

TEST_F(F13_Klick, of_a_settled_lock_the_question_comes_before_the_dataset) {
    SettledLock(1, "Tor", SmallLock);
    TooManyUsers();
    Open();
    Expect(63, Answer::Yes);
    Expect(248);
    Click(1, F13Column::Program);
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Visible);
}

TEST_F(F13_Klick, of_a_settled_lock_a_wrong_serial_ends_behind_the_question) {
    SettledLock(1, "Tor", "0G.0A.10.01");
    Open();
    Expect(63, Answer::No);
    Click(1, F13Column::Program);
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
    EXPECT_EQ(Mark(1), "X");
}

TEST_F(F13_Klick, the_values_of_the_dataset_stand_when_the_dialog_opens) {
    SettledLock(1, "Tor", SerialS, "XX X ");
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
    Open();
    OpenStart();
    EXPECT_EQ(programm->Run.Daten.Slots.size(), 1U);
    EXPECT_EQ(Lauf().Values.FlagLockTimer, 0);
    EXPECT_EQ(Lauf().Values.FlagCalendar, 1);
    EXPECT_EQ(Lauf().Values.FlagSetClock, 0);
}

// ---- history

TEST_F(F13_Klick, history_asks_and_opens_the_dialog_for_reading_only) {
    SettledLock(1, "Tor");
    Open();
    Expect(65);
    Click(1, F13Column::History);
    ASSERT_EQ(world.Shown.size(), 1U);
    EXPECT_EQ(world.Shown[0].Title, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(world.Shown[0].Choice, Buttons::OkCancel);
    EXPECT_EQ(world.Shown[0].DefaultButton, 1);
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 1);
    EXPECT_EQ(Lauf().Order.SerialValue, 0x000A1001U);
    EXPECT_EQ(Lauf().Values.FlagSetClock, 1);
    EXPECT_EQ(Mark(1), "X");
    EXPECT_TRUE(StartOpen());
    EXPECT_FALSE(GridEnabled());
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F13_Klick, history_takes_the_clock_switch_from_the_row) {
    SettledLock(1, "Tor", SerialS, "XXXX ");
    Open();
    Lauf().Values.FlagSetClock = 1;
    Expect(65);
    Click(1, F13Column::History);
    EXPECT_EQ(Lauf().Values.FlagSetClock, 0);
}

TEST_F(F13_Klick, history_with_cancel_changes_nothing) {
    SettledLock(1, "Tor");
    Open();
    Expect(65, Answer::Cancel);
    Click(1, F13Column::History);
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 0);
    EXPECT_EQ(Mark(1), "");
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
}

TEST_F(F13_Klick, history_of_a_wrong_serial_ends_without_a_question) {
    SettledLock(1, "Tor", "XX.0A.10.01");
    Open();
    Click(1, F13Column::History);
    EXPECT_FALSE(StartOpen());
    EXPECT_EQ(Mark(1), "");
}

TEST_F(F13_Klick, history_of_a_nameless_lock_runs_without_a_mark) {
    SettledLock(1, "");
    Open();
    Expect(65);
    Click(1, F13Column::History);
    EXPECT_EQ(Mark(1), "");
    EXPECT_TRUE(StartOpen());
}

// ---- change code

TEST_F(F13_Klick, change_code_turns_the_adapter_to_the_lock_and_opens_its_window) {
    SettledLock(1, "Tor");
    Open();
    Click(1, F13Column::Code);
    EXPECT_THAT(world.Written, ElementsAre(0x02, 0x0E, 0x6B, 0x03, 0x00, 0x0A, 0x10, 0x01, 0, 0, 0, 0, 0, 0, 0, 0xB5));
    EXPECT_EQ(Code_Windows, 1);
    EXPECT_EQ(SentBeforeCode.size(), 16U);
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 0);
    EXPECT_FALSE(GridEnabled());
    EXPECT_FALSE(StartOpen());
    EXPECT_EQ(Mark(1), "");
}

TEST_F(F13_Klick, change_code_is_dead_while_its_window_does_not_exist) {
    SettledLock(1, "Tor");
    Begin();
    Lauf().Chain.TwoPassFlag = 1;
    Click(1, F13Column::Code);
    EXPECT_THAT(world.Written, IsEmpty());
    EXPECT_TRUE(GridEnabled());
    EXPECT_EQ(Lauf().Chain.TwoPassFlag, 1);
}

TEST_F(F13_Klick, change_code_sends_nothing_in_address_mode_1) {
    SettledLock(1, "Tor");
    Open();
    // The click itself clears the mode; only what sets it behind that is seen.
    const auto open = world.World.Port.Open;
    world.World.Port.Open = [this, open](int number) {
        programm->link.AddressMode = 1;
        return open(number);
    };
    Click(1, F13Column::Code);
    EXPECT_THAT(world.Written, IsEmpty());
    EXPECT_EQ(Code_Windows, 1);
    EXPECT_FALSE(GridEnabled());
}

TEST_F(F13_Klick, change_code_clears_a_stale_address_mode_and_sends) {
    SettledLock(1, "Tor");
    Open();
    programm->link.AddressMode = 1;
    Click(1, F13Column::Code);
    EXPECT_EQ(world.Written.size(), 16U);
}

TEST_F(F13_Klick, change_code_of_a_wrong_serial_ends_at_once) {
    SettledLock(1, "Tor", "00.0A.10.0!");
    Open();
    Click(1, F13Column::Code);
    EXPECT_EQ(Code_Windows, 0);
    EXPECT_THAT(world.Written, IsEmpty());
    EXPECT_TRUE(GridEnabled());
}

} // namespace
} // namespace qvm::test
