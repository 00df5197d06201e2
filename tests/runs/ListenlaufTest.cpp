// A list of locks is worked off, one after the other, over the virtual system.

#include "Antwort_Verteilen.h"
#include "Laufschritte.h"
#include "ListenFixture.h"
#include "Text.h"

#include <set>

namespace qvm::test {
namespace {

using Row = ListenFixture::Row;

const Row Programmed{">>", "L266"}, HistoryRead{"<<", "L263"}, Failed{"#", "L66"}, Skipped{"-", "L261"};

struct List_Run : ListenFixture {
    List_Run() {
        AddLock(1, "Tor", "00.0A.10.01", " XXX ");
        AddLock(2, "Keller", "00.0A.10.02", " XXX ");
        AddLock(3, "Dach", "00.0A.10.03", " XXX ");
        files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}, {2, 'X'}, {3, 'X'}}});
    }
    void Expect_Ended(int line) {
        EXPECT_EQ(programm->Transfer->F91.StatusLabel.Text(), "L" + std::to_string(line));
        EXPECT_FALSE(programm->Transfer->F91.Laeuft());
        EXPECT_FALSE(programm->Transfer->F91.Timer1.Running());
        EXPECT_FALSE(programm->Transfer->F91.Command2.Enabled);
        EXPECT_TRUE(programm->Transfer->F91.Command1.Enabled);
    }
    void Expect_Next_Run_Works() {
        programm->Transfer->F91.Command1_Click();
        EXPECT_FALSE(programm->Transfer->F91.Fenster.Visible);
        programm->Transfer->F13.F13_FormLaden();
        programm->Transfer->F13.Timer1.Stop();
        programm->Transfer->F13.Timer2.Stop();
        const int sessions = Lock("00.0A.10.01").Sessions;
        Program(1);
        ASSERT_TRUE(Finish());
        EXPECT_EQ(Outcome(), RunOutcome::Done);
        EXPECT_EQ(Lock("00.0A.10.01").Sessions, sessions + 1);
    }
};

TEST_F(List_Run, programs_the_marked_locks_one_after_the_other) {
    BeginList();
    Prog({1, 2, 3});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed, Programmed, Programmed));
    for (const auto* serial : {"00.0A.10.01", "00.0A.10.02", "00.0A.10.03"}) {
        EXPECT_EQ(Lock(serial).Sessions, 1) << serial;
        EXPECT_TRUE(Lock(serial).DataComplete) << serial;
        ASSERT_EQ(Lock(serial).Users.size(), 1U) << serial;
    }
    EXPECT_EQ(system->JudgementLines(), "");
    Expect_Ended(265);
    EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
    EXPECT_EQ(Status(), "L110");
}

TEST_F(List_Run, every_direct_row_moves_its_lock_to_the_systems_channel) {
    BeginList();
    Prog({2});
    ASSERT_TRUE(FinishList());
    const Codes sent = Sent();
    EXPECT_THAT(Codes(sent.begin(), sent.begin() + 5), ElementsAre(0x04, 0x28, 0x66, 0x29, 0x27));
}

TEST_F(List_Run, takes_three_seconds_from_row_to_row) {
    std::vector<std::int64_t> begun, ended;
    BeginList();
    programm->Transfer->F91.Zeile_Beginnt = [&](int) { begun.push_back(world.Elapsed()); };
    programm->Transfer->F91.Zeile_Fertig = [&](int) { ended.push_back(world.Elapsed()); };
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    ASSERT_EQ(begun.size(), 2U);
    EXPECT_EQ(begun[1] - ended[0], 3000);
}

TEST_F(List_Run, a_wrong_code_fails_the_row_and_the_list_goes_on) {
    devices.Locks[1].AdminCode = {0x99, 0x99, 0x99};
    BeginList();
    Prog({1, 2, 3});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed, Row("#", "L70  /  L66"), Programmed));
    EXPECT_EQ(Lock("00.0A.10.02").Erases, 0);
    Expect_Next_Run_Works();
}

TEST_F(List_Run, a_lock_that_is_not_there_is_searched_on_thirteen_channels_and_fails_the_row) {
    devices.Locks.erase(devices.Locks.begin());
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Failed, Programmed));
    const Codes sent = Sent();
    EXPECT_THAT(Codes(sent.begin(), sent.begin() + 15), ElementsAre(4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 4, 0x28));
}

TEST_F(List_Run, a_failed_last_row_ends_the_list_in_the_finished_state) {
    devices.Locks[1].LoginStatus = 2;
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(2), Row("#", "L71  /  L66"));
    Expect_Ended(265);
    EXPECT_EQ(Status(), "L71  /  L66");
}

TEST_F(List_Run, a_refusal_in_the_middle_fails_the_row_without_a_box) {
    devices.Faults.push_back({.What = SimFault::Kind::Refuse, .Telegram = 6, .Value = 0x65});
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L68"), Programmed));
}

TEST_F(List_Run, a_doubled_refusal_does_not_pass_over_the_next_lock) {
    devices.Faults.push_back({.What = SimFault::Kind::Doubled, .Telegram = 0});
    devices.Locks[0].LoginStatus = 1;
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L70  /  L66"), Programmed));
}

TEST_F(List_Run, a_late_refusal_between_two_rows_changes_nothing) {
    BeginList();
    Prog({1, 2});
    world.RunUntil([this] { return RowAt(1).first == ">>"; });
    // Reply 0x69 with reason 0x65.
    programm->link.Rx.RxBuffer.fill(0);
    programm->link.Rx.RxBuffer[2] = 0x69;
    programm->link.Rx.RxBuffer[3] = 0x65;
    programm->link.Rx.RxLength = 13;
    Antwort_Verteilen(programm->Run);
    EXPECT_EQ(programm->link.Lauf.List.RunRow, 2);
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed, Programmed));
}

TEST_F(List_Run, a_port_that_is_gone_fails_each_row) {
    BeginList();
    Prog({1, 2});
    world.PortCanOpen = false;
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L276"), Row("#", "L276")));
}

TEST_F(List_Run, rows_with_a_bad_dataset_are_passed_over) {
    files.User(2, {.Name = "Bert", .Label = "Slot_Nr: 002", .FingerFlag = "FS", .FingerId = "7", .Marks = {{2, 'F'}}});
    BeginList();
    // Shown by the check alone, not when the row is worked off.
    world.Answers.push_back(
        {.Text = std::string(u8"Hinweise aus der Prüfung der Liste:\r\n\r\nSchloss 2: Keller - L273  /  "
                             u8"Bert_0002_FP Fehler bei der zuweisung der Fingerprint Daten."_w)});
    Prog({1, 2, 3});
    std::vector<Row> checked;
    programm->Transfer->F91.Zeile_Beginnt = [&](int) { checked = AllRows(); };
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed,
                                       Row("-", "L261  /  L273  /  Bert_0002_FP Fehler bei der zuweisung der "
                                                "Fingerprint Daten."),
                                       Programmed));
    EXPECT_EQ(programm->Transfer->F91.Ergebnis(2).Text, "L256");
    EXPECT_EQ(Lock("00.0A.10.02").Sessions, 0);
}

TEST_F(List_Run, with_no_row_left_behind_the_last_programmed_one_a_box_says_so) {
    files.Lock(3, "Dach", "ZZ.0A.10.03");
    BeginList();
    ExpectNothingLeft();
    Prog({1, 3});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed, Skipped));
    ASSERT_FALSE(world.Shown.empty());
    EXPECT_EQ(world.Shown.back().Title, "Muss noch bearbeitet werden!");
    EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
    EXPECT_EQ(world.Shown.back().Choice, Buttons::Ok);
    Expect_Ended(265);
}

TEST_F(List_Run, an_erase_option_forced_by_a_finger_holds_for_its_row_alone) {
    files.User(2, {.Name = "Bert", .Label = "Slot_Nr: 002", .FingerFlag = "--", .Marks = {{2, 'F'}}});
    BeginList();
    world.Answers.push_back(
        {.Text = std::string(u8"Hinweise aus der Prüfung der Liste:\r\n\r\nSchloss 2: Keller - L273"_w)});
    for (const int lock : {1, 2, 3}) {
        programm->Transfer->F13.FGK13.SetText(lock, F13Column::Mark, "X");
    }
    world.Answers.push_front({.Text = "L269", .Reply = Answer::No});
    world.Answers.push_front({.Text = "L63", .Reply = Answer::No});
    programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
    programm->Transfer->F11.Check1.Checked = false;
    TypeCode("123456");
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(Lock("00.0A.10.01").EraseOption, 1);
    EXPECT_EQ(Lock("00.0A.10.02").EraseOption, 0);
    EXPECT_EQ(Lock("00.0A.10.03").EraseOption, 1);
}

TEST_F(List_Run, a_lock_of_two_passes_gets_both_in_a_list) {
    AddLock(4, "Turm", Serial::TwoPass);
    files.User(1, {.Name = "Anna", .KeyId = "1:2:3:4", .Marks = {{4, 'X'}}});
    BeginList();
    Prog({4});
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(1), Programmed);
    EXPECT_EQ(Lock(Serial::TwoPass).Erases, 2);
}

// ---- histories

TEST_F(List_Run, reads_histories_only) {
    devices.Locks[0].History = {Event(4, 1), Event(3, 1)};
    devices.Locks[1].History = {Event(5, 1)};
    BeginList();
    SaveHistory({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(HistoryRead, HistoryRead));
    EXPECT_EQ(Lock("00.0A.10.01").Erases, 0);
    std::set<std::string> made;
    for (const auto& [path, bytes] : world.Disk.Files) {
        if (path.ends_with("_Tor.HST") || path.ends_with("_Keller.HST")) {
            made.insert(path.substr(path.rfind('_')));
        }
    }
    EXPECT_THAT(made, ElementsAre("_Keller.HST", "_Tor.HST"));
    EXPECT_THAT(OpenedHistories, IsEmpty());
}

TEST_F(List_Run, history_first_reads_and_programs_in_one_session) {
    devices.Locks[0].History = {Event(4, 1)};
    BeginList();
    Prog({1}, Answer::Yes);
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(1), Programmed);
    EXPECT_EQ(Lock("00.0A.10.01").Sessions, 1);
    EXPECT_EQ(Lock("00.0A.10.01").Erases, 1);
    const Codes sent = Sent();
    EXPECT_THAT(Codes(sent.begin(), sent.begin() + 5), ElementsAre(0x04, 0x17, 0x17, 0x2F, 0x27));
}

TEST_F(List_Run, a_history_that_cannot_be_kept_fails_the_row_and_leaves_the_lock_alone) {
    devices.Locks[0].History = {Event(4, 1)};
    BeginList();
    world.World.Files.Append = [](const std::string&, std::string_view) { return false; };
    Prog({1, 2}, Answer::Yes);
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(1), Row("#", "L277"));
    EXPECT_EQ(Lock("00.0A.10.01").Erases, 0);
    EXPECT_EQ(RowAt(2), Programmed);
}

// ---- stop and cancel

TEST_F(List_Run, stop_lets_the_lock_under_way_come_to_its_end) {
    BeginList();
    Prog({1, 2});
    world.RunUntil([this] { return system->Codes().size() == 6; });
    EXPECT_FALSE(programm->Transfer->F91.Command1.Enabled);
    programm->Transfer->F91.Command1_Click();
    EXPECT_TRUE(programm->Transfer->F91.Fenster.Visible);
    programm->Transfer->F91.Command2_Click();
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed, Row("*", "L259")));
    Expect_Ended(82);
    world.RunFor(10000);
    EXPECT_EQ(Lock("00.0A.10.02").Sessions, 0);
    Expect_Next_Run_Works();
}

TEST_F(List_Run, a_cancel_in_the_progress_window_stops_the_list) {
    BeginList();
    Prog({1, 2});
    world.RunUntil([this] { return system->Codes().size() == 6; });
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(FinishList());
    ASSERT_TRUE(Finish());
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L82"), Row("*", "L259")));
    EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
    Expect_Ended(82);
    Expect_Next_Run_Works();
}

TEST_F(List_Run, closing_between_two_rows_ends_the_list) {
    BeginList();
    Prog({1, 2});
    world.RunUntil([this] { return RowAt(1).first == ">>"; });
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes});
    programm->Transfer->F91.Command1_Click();
    EXPECT_FALSE(programm->Transfer->F91.Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_EQ(programm->Transfer->F91.FGK91.Rows(), 1);
    EXPECT_EQ(programm->link.Lauf.List.RunRows, 0);
    world.RunFor(10000);
    EXPECT_EQ(Lock("00.0A.10.02").Sessions, 0);
}

TEST_F(List_Run, a_silent_lock_stands_until_it_is_given_up_and_the_list_goes_on) {
    devices.Faults.push_back({.What = SimFault::Kind::Silent, .Telegram = 4});
    BeginList();
    Prog({1, 2});
    programm->Transfer->F91.Geduld = 0;
    world.RunFor(60000);
    EXPECT_EQ(RowAt(1).first, "*");
    EXPECT_EQ(programm->Transfer->F91.Arbeit(), F91::Work::Direct);
    programm->Transfer->F91.Zeile_Aufgeben();
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Failed, Programmed));
}

// ---- delayed start

TEST_F(List_Run, a_delayed_start_waits_for_its_minute) {
    BeginList();
    Prog({1}, Answer::No, Answer::Yes);
    ASSERT_TRUE(programm->Transfer->F92.Fenster.Visible);
    EXPECT_EQ(programm->Transfer->F92.Kopf.Text(), "10:30 / 05.03.2026");
    world.RunFor(20000);
    EXPECT_EQ(RowAt(1), Row("", "")); // nothing before the time is chosen
    programm->Transfer->F92.Zeit_Waehlen(12, 5);
    programm->Transfer->F92.OK_Click();
    EXPECT_FALSE(programm->Transfer->F92.Fenster.Visible);
    world.RunFor(5100);
    EXPECT_EQ(RowAt(1), Row("*", "L259"));
    EXPECT_EQ(programm->Transfer->F91.StartLabel.Text(), "L270 12:05 / 05.03.2026");
    EXPECT_EQ(programm->Transfer->F91.JetztLabel.Text(), "L271 10:30 / 05.03.2026");
    EXPECT_EQ(programm->Transfer->F91.RestLabel.Text(), "L272 [ 01 : 35 ]  hh:mm");
    EXPECT_TRUE(programm->Transfer->F91.RestLabel.Visible);
    // 12:05:00 is 5700 s after the start.
    world.RunFor(5700000 - 10000 - world.Elapsed());
    EXPECT_EQ(Sent().size(), 0U);
    EXPECT_EQ(programm->Transfer->F91.RestLabel.Text(), "L272 [ 00 : 01 ]  hh:mm");
    world.RunFor(20000);
    EXPECT_NE(Sent().size(), 0U);
    EXPECT_FALSE(programm->Transfer->F91.RestLabel.Visible);
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(1), Programmed);
}

TEST_F(List_Run, stop_ends_the_waiting_for_a_delayed_start) {
    BeginList();
    Prog({1}, Answer::No, Answer::Yes);
    programm->Transfer->F92.Zeit_Waehlen(23, 0);
    programm->Transfer->F92.OK_Click();
    world.RunFor(60000);
    programm->Transfer->F91.Command2_Click();
    Expect_Ended(82);
    world.RunFor(24 * 3600000LL);
    EXPECT_EQ(Sent().size(), 0U);
}

TEST_F(List_Run, closing_the_time_window_ends_the_list) {
    BeginList();
    Prog({1}, Answer::No, Answer::Yes);
    programm->Transfer->F92.Schliessen_Click();
    Expect_Ended(82);
    EXPECT_FALSE(programm->Transfer->F92.Fenster.Visible);
}

// ---- network rows

TEST_F(List_Run, works_off_direct_rows_and_rows_of_a_network_adapter) {
    GoodNetAdapter();
    BeginList({2});
    Prog({1, 2, 3});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed, Programmed, Programmed));
    ASSERT_EQ(NetFrames.size(), 2U); // one block, the clock
    EXPECT_EQ(NetFrames[0][27], 0x14);
    EXPECT_THAT(std::vector<int>(NetFrames[0].begin() + 6, NetFrames[0].begin() + 10), ElementsAre(0, 0x0A, 0x10, 2));
    EXPECT_EQ(NetFrames[1][27], 0x1E);
    EXPECT_EQ(Lock("00.0A.10.02").Sessions, 0);
    EXPECT_EQ(Lock("00.0A.10.03").Sessions, 1);
}

TEST_F(List_Run, a_lock_that_the_network_adapter_does_not_reach_fails_its_row) {
    NetAdapter = [this](const Bytes& frame) { NetReply(frame[27] == 0x14 ? 0x15 : 0xFF, frame[1]); };
    BeginList({1});
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Failed, Programmed));
}

TEST_F(List_Run, history_first_through_the_network_adapter_keeps_the_row) {
    std::vector<std::string> marks;
    NetAdapter = [this](const Bytes& frame) {
        if (frame[27] == 0x0A) {
            NetReply(0x0B);
            const HistoryLine line = Event(4, 1);
            NetReply(0x0D, 1, Bytes(line.begin(), line.end()), 3000);
        } else if (frame[27] == 0x14) {
            NetReply(0x15, frame[1]);
        } else {
            NetReply(0x1F);
            NetReply(0x20, 1, {}, 4000);
        }
    };
    BeginList({1, 2});
    programm->Transfer->F91.Zeile_Fertig = [&](int row) { marks.push_back(std::to_string(row) + RowAt(row).first); };
    Prog({1, 2}, Answer::Yes);
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(marks, ElementsAre("1<<", "1>>", "2<<", "2>>"));
    Codes codes;
    for (const Bytes& frame : NetFrames) {
        codes.push_back(frame[27]);
    }
    EXPECT_THAT(codes, ElementsAre(0x0A, 0x14, 0x1E, 0x0A, 0x14, 0x1E));
}

struct List_Run_With_Files_That_Change : List_Run {
    List_Run_With_Files_That_Change() {
        NetAdapter = [this](const Bytes&) {
            // A finger without a template, put in while the adapter fetches the history.
            files.User(1, {.Name = "Bert", .FingerFlag = "FS", .FingerId = "7", .Marks = {{1, 'F'}}});
            NetReply(0x0B);
            NetReply(0x0D, 1, {}, 3000);
        };
    }
};

TEST_F(List_Run_With_Files_That_Change, a_last_network_row_that_turns_bad_behind_its_history_ends_the_list) {
    BeginList({1});
    Prog({1}, Answer::Yes);
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(1).first, "-");
    EXPECT_EQ(NetFrames.size(), 1U);
    Expect_Ended(265);
}

TEST_F(List_Run_With_Files_That_Change, stop_behind_a_network_row_that_turned_bad_leaves_the_next_row_as_it_was) {
    BeginList({1});
    Prog({1, 2}, Answer::Yes);
    world.RunUntil([this] { return RowAt(1).first == "-"; });
    EXPECT_EQ(programm->Transfer->F91.Arbeit(), F91::Work::None);
    programm->Transfer->F91.Command2_Click();
    EXPECT_EQ(RowAt(2), Row("*", "L259"));
    Expect_Ended(82);
}

TEST_F(List_Run, a_serial_refusal_is_no_news_of_a_row_that_a_network_adapter_has) {
    BeginList({1});
    Prog({1, 2});
    world.RunUntil([this] { return programm->Transfer->F91.Arbeit() == F91::Work::Network; });
    Schritt_Karte_Abgelehnt(programm->Run);
    Schritt_Abgelehnt(programm->Run);
    EXPECT_EQ(RowAt(1), Row("*", "L259"));
    EXPECT_EQ(programm->link.Lauf.List.RunRow, 1);
}

TEST_F(List_Run, a_cancelled_list_of_histories_opens_none) {
    devices.Locks[0].History = {Event(4, 1), Event(4, 1), Event(4, 1)};
    BeginList();
    SaveHistory({1, 2});
    world.RunUntil([this] { return system->Codes().size() == 3; });
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(FinishList());
    ASSERT_TRUE(Finish());
    EXPECT_THAT(OpenedHistories, IsEmpty());
}

TEST_F(List_Run, a_mute_network_adapter_stands_until_the_operator_stops_the_list) {
    BeginList({1});
    Prog({1, 2});
    world.RunFor(60000);
    EXPECT_TRUE(programm->Transfer->F91.Steht);
    EXPECT_EQ(NetFrames.size(), 4U);
    EXPECT_EQ(programm->Transfer->F91.StatusLabel.Text(), "L66");
    programm->Transfer->F91.Command2_Click();
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L82"), Row("*", "L259")));
    Expect_Ended(82);
    world.RunFor(60000);
    EXPECT_EQ(NetFrames.size(), 4U);
    EXPECT_EQ(Lock("00.0A.10.02").Sessions, 0);
}

TEST_F(List_Run, a_mute_network_adapter_that_is_given_up_lets_the_list_go_on) {
    BeginList({1});
    Prog({1, 2});
    world.RunUntil([this] { return programm->Transfer->F91.Steht; });
    programm->Transfer->F91.Zeile_Aufgeben();
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Failed, Programmed));
}

TEST_F(List_Run, a_row_without_an_adapter_is_passed_over) {
    BeginList({3});
    programm->Transfer->F13.FGK13.SetText(1, F13Column::AdapterId, "/1/2/3/4");
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row("-", "L262"), Programmed));
}

TEST_F(List_Run, a_last_row_without_an_adapter_ends_the_list) {
    BeginList({3});
    programm->Transfer->F13.FGK13.SetText(2, F13Column::AdapterId, "");
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed, Row("-", "L262")));
    Expect_Ended(265);
}

TEST_F(List_Run, a_single_lock_goes_through_the_network_adapter_that_was_chosen) {
    GoodNetAdapter();
    BeginList({2});
    Program(2);
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F91.Fenster.Visible);
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Programmed));
    EXPECT_EQ(NetFrames.size(), 2U);
    Expect_Ended(265);
    programm->Transfer->F91.Command1_Click();
    EXPECT_EQ(programm->Transfer->F91.FGK91.Rows(), 1);
    EXPECT_EQ(programm->link.Lauf.List.RunRows, 0);
}

TEST_F(List_Run, a_single_history_through_the_network_adapter_is_read_only) {
    NetAdapter = [this](const Bytes&) { NetReply(0x0D); };
    BeginList({2});
    History(2);
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(HistoryRead));
    ASSERT_EQ(NetFrames.size(), 1U);
    EXPECT_EQ(NetFrames[0][27], 0x0A);
}

} // namespace
} // namespace qvm::test
