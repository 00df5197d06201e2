// Ports that come and go: idle, in a scan, behind an editor, in the middle of a run.

#include "F2Fixture.h"

namespace qvm::test {
namespace {

struct F2_Port_Geaendert : F2Fixture {
    /// The adapter is pulled out: its port is gone at once, the news follow.
    void PullOut() {
        world.AdapterPortNumbers.clear();
        world.PortCanOpen = false;
        world.PortOpen = false;
        world.PortChanged(PortChange::Removed);
    }
    void PutBack(int number = 5) {
        world.AdapterPortNumbers = {number};
        world.PortCanOpen = true;
        world.PortThere = [number](int wanted) { return wanted == number; };
        world.PortChanged(PortChange::Arrived);
    }
    void ExpectGone() {
        EXPECT_FALSE(world.PortOpen);
        EXPECT_EQ(Light(), Lampe::Rot);
        EXPECT_EQ(Line(), "L285");
        EXPECT_EQ(Main().Verbunden, 0);
        EXPECT_EQ(Main().AdapterVersion, 0);
        EXPECT_FALSE(Main().Label7.Visible);
        EXPECT_FALSE(Main().Picture1.Visible);
        EXPECT_FALSE(Main().Timer2.Running());
    }
    /// F13 is open and a lock is being programmed; it does not answer.
    void RunStarted() {
        SettledLock(1, "Tresor");
        Connect();
        Press("PROG");
        programm->Transfer->F13.Timer1.Stop();
        programm->Transfer->F13.Timer2.Stop();
        AdapterAnswers = false;
        StartRun();
        ASSERT_EQ(Lauf().Chain.Phase, RunPhase::Open);
        ASSERT_FALSE(Main().Fenster.Visible);
    }
};

// ---- idle

TEST_F(F2_Port_Geaendert, an_adapter_pulled_out_turns_the_light_red_and_stops_the_supervision) {
    Connect();
    PullOut();
    ExpectGone();
    world.RunFor(100000);
    ExpectGone();
}

TEST_F(F2_Port_Geaendert, an_adapter_put_back_is_found_by_itself) {
    Connect();
    PullOut();
    world.RunFor(30000);
    PutBack();
    EXPECT_EQ(Light(), Lampe::Gelb);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(Main().Verbunden, 1);
    EXPECT_EQ(Line(), "");
}

TEST_F(F2_Port_Geaendert, an_adapter_put_back_elsewhere_becomes_the_configured_port) {
    Connect();
    PullOut();
    PutBack(7);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(world.PortNumber, 7);
    EXPECT_EQ(world.Disk.Files["/q/DAT/EST7CSB29A.I_1"], "Deutsch\r\n1\r\nUSB-Port7\r\n3\r\n");
}

TEST_F(F2_Port_Geaendert, an_arrived_port_that_a_service_still_holds_is_tried_thirty_times_soon) {
    Connect();
    PullOut();
    world.AdapterPortNumbers = {5};
    world.PortFaultNow = PortFault{.What = PortFault::Kind::HeldByService, .Device = "ttyUSB4", .Detail = "modem"};
    const int opens = world.Opens;
    world.PortChanged(PortChange::Arrived);
    EXPECT_EQ(Line(), PortFault_Text(programm->kern, *world.PortFaultNow));
    world.RunFor(99000);
    EXPECT_EQ(world.Opens, opens + 31);
    EXPECT_EQ(Light(), Lampe::Rot);
    // A new arrival begins anew.
    world.PortChanged(PortChange::Arrived);
    world.RunFor(3000);
    PutBack();
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Port_Geaendert, the_removal_of_another_candidate_only_makes_it_search_again) {
    world.AdapterPortNumbers = {9, 5};
    Connect();
    world.AdapterPortNumbers = {5};
    world.PortChanged(PortChange::Removed);
    EXPECT_EQ(Light(), Lampe::Gelb);
    EXPECT_TRUE(world.PortOpen);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Port_Geaendert, with_a_fixed_port_an_arrival_leaves_the_port_alone) {
    Config("RESET", 3, 5);
    Connect();
    const int opens = world.Opens;
    const int closes = world.Closes;
    world.AdapterPortNumbers = {5, 9};
    world.PortChanged(PortChange::Arrived);
    EXPECT_EQ(world.Opens, opens);
    EXPECT_EQ(world.Closes, closes);
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(Main().Verbunden, 1);
}

TEST_F(F2_Port_Geaendert, with_a_fixed_port_a_removal_closes_it_and_says_why_it_stays_closed) {
    Config("RESET", 3, 5);
    Connect();
    world.PortFaultNow = PortFault{.What = PortFault::Kind::NotThere, .Device = "ttyUSB4"};
    PullOut();
    EXPECT_FALSE(world.PortOpen);
    EXPECT_EQ(Light(), Lampe::Rot);
    EXPECT_EQ(Line(), "L290 (L116 > L21)");
    EXPECT_FALSE(Main().Label7.Visible);
    EXPECT_FALSE(Main().Picture1.Visible);
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_EQ(Main().Verbunden, 0);
}

TEST_F(F2_Port_Geaendert, a_fixed_port_that_came_back_is_opened_by_a_look_at_the_adapter_window) {
    Config("RESET", 3, 5);
    Connect();
    PullOut();
    PutBack();
    world.RunFor(100000);
    EXPECT_EQ(Light(), Lampe::Rot);
    Main().F2_Schnittstelle_Click();
    programm->Main->F6.Toolbar1_ButtonClick(programm->Main->F6.Toolbar1[0].Key);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(Line(), "");
}

TEST_F(F2_Port_Geaendert, with_a_fixed_port_the_removal_of_another_device_only_makes_it_search_again) {
    Config("RESET", 3, 5);
    Connect();
    world.PortChanged(PortChange::Removed);
    EXPECT_EQ(Light(), Lampe::Gelb);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(world.PortNumber, 5);
}

// ---- while scanning

TEST_F(F2_Port_Geaendert, an_adapter_pulled_out_of_a_scan_leaves_a_red_light_and_no_supervision) {
    Connect();
    AdapterDelayMs = 3000;
    InNextScan([this] { PullOut(); }, 500);
    ASSERT_TRUE(ScanEnds());
    ExpectGone();
    EXPECT_EQ(world.HourglassDepth, 0);
    PutBack();
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Port_Geaendert, an_adapter_pulled_out_and_put_back_within_a_scan_is_found_by_the_next_one) {
    Connect();
    AdapterAnswers = false;
    InNextScan([this] {
        PullOut();
        world.At(1000, [this] {
            AdapterAnswers = true;
            PutBack(7);
        });
    });
    ASSERT_TRUE(world.RunUntil([this] { return Main().Label3.Text() == "2" && Main().ScanLaeuft == 0; }));
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(world.PortNumber, 7);
    EXPECT_EQ(world.HourglassDepth, 0);
    EXPECT_TRUE(Main().Timer2.Running());
    EXPECT_EQ(Main().Timer2.Interval(), 40000);
}

// ---- behind an editor

TEST_F(F2_Port_Geaendert, behind_an_editor_the_port_follows_but_no_scan_runs_until_the_window_is_back) {
    Connect();
    NoteWindows();
    Press("lock4");
    PullOut();
    ExpectGone();
    PutBack(7);
    EXPECT_EQ(Light(), Lampe::Gelb);
    const int probes = Probes();
    world.RunFor(100000);
    EXPECT_EQ(Probes(), probes);
    Main().F2_Zeigen();
    EXPECT_EQ(Main().Timer2.Interval(), 200);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

// ---- in the middle of a run

TEST_F(F2_Port_Geaendert, in_a_run_the_removal_of_another_port_is_ignored) {
    RunStarted();
    const int opens = world.Opens;
    const int closes = world.Closes;
    world.AdapterPortNumbers = {5};
    world.PortChanged(PortChange::Removed);
    world.RunFor(20000);
    EXPECT_EQ(world.Opens, opens);
    EXPECT_EQ(world.Closes, closes);
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(Lauf().Chain.Phase, RunPhase::Open);
}

TEST_F(F2_Port_Geaendert, in_a_scan_of_the_channels_and_in_a_units_session_another_port_is_left_alone) {
    Connect();
    ChainState& chain = Lauf().Chain;
    const auto arrives = [this] {
        const int opens = world.Opens;
        const int closes = world.Closes;
        const int stand = programm->Adapter.Stand;
        world.AdapterPortNumbers = {5, 6};
        world.PortChanged(PortChange::Arrived);
        world.RunFor(5000);
        return world.Opens != opens || world.Closes != closes || programm->Adapter.Stand != stand;
    };
    chain.SuchMarke = 0xAD;
    EXPECT_FALSE(arrives());
    chain.SuchMarke = 0;
    chain.SuchLauf = 1;
    EXPECT_FALSE(arrives());
    chain.SuchLauf = 0;
    chain.LaufZiel = "F22";
    EXPECT_FALSE(arrives());
    chain.LaufZiel.clear();
    EXPECT_TRUE(arrives());
}

TEST_F(F2_Port_Geaendert, in_a_run_a_pulled_adapter_stops_it_until_the_operator_cancels) {
    RunStarted();
    const int opens = world.Opens;
    PullOut();
    ExpectGone();
    EXPECT_EQ(Lauf().Chain.Phase, RunPhase::Open);
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
    PutBack();
    world.RunFor(60000);
    EXPECT_EQ(world.Opens, opens);
    EXPECT_EQ(Light(), Lampe::Rot);
    EXPECT_EQ(Lauf().Chain.Phase, RunPhase::Open);

    programm->Transfer->F9.Command1_Click();
    programm->Transfer->F9.Command2_Click();
    EXPECT_EQ(Lauf().Chain.Phase, RunPhase::None);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    world.RunFor(2000);
    EXPECT_TRUE(world.PortOpen);
    EXPECT_EQ(Light(), Lampe::Gelb);
    AdapterAnswers = true;
    programm->kern.Windows.BackToMain();
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Port_Geaendert, in_a_run_a_port_that_vanishes_only_after_the_news_is_noticed_all_the_same) {
    RunStarted();
    world.AdapterPortNumbers.clear();
    world.PortChanged(PortChange::Removed);
    EXPECT_EQ(Light(), Lampe::Gruen);
    world.PortCanOpen = false;
    world.PortOpen = false;
    world.RunFor(2000);
    ExpectGone();
    EXPECT_EQ(Lauf().Chain.Phase, RunPhase::Open);
}

TEST_F(F2_Port_Geaendert, in_a_run_an_arrival_waits_for_its_end) {
    RunStarted();
    world.AdapterPortNumbers = {5, 9};
    world.PortChanged(PortChange::Arrived);
    world.RunFor(20000);
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_TRUE(world.PortOpen);
    Lauf_Aufgeben(programm->Run, RunOutcome::Cancelled);
    world.RunFor(2000);
    EXPECT_EQ(world.PortNumber, 9);
    EXPECT_EQ(Light(), Lampe::Gelb);
}

} // namespace
} // namespace qvm::test
