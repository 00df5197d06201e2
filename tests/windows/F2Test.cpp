// The main window: opening, light, supervision, reply guard, shut-down.

#include "F2Fixture.h"

namespace qvm::test {
namespace {

struct F2_Laden : F2Fixture {};

// ---- opening

TEST_F(F2_Laden, shows_the_window_with_its_labels_hidden_and_opens_the_port) {
    Open();
    EXPECT_TRUE(Main().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
    EXPECT_FALSE(Main().Label3.Visible);
    EXPECT_FALSE(Main().Label6.Visible);
    EXPECT_FALSE(Main().Label7.Visible);
    EXPECT_FALSE(Main().Picture1.Visible);
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_TRUE(world.PortOpen);
    EXPECT_EQ(Light(), Lampe::Gelb);
    EXPECT_EQ(Line(), "");
    EXPECT_EQ(Main().Verbunden, 0);
    EXPECT_TRUE(Main().Timer2.Running());
    EXPECT_EQ(Main().Timer2.Interval(), 200);
    EXPECT_FALSE(Main().Timer1.Running());
    EXPECT_EQ(Main().Timer1.Interval(), 2000);
}

TEST_F(F2_Laden, before_it_the_program_has_no_ear_for_ports_and_no_timer) {
    Start();
    EXPECT_FALSE(world.PortChanged);
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_FALSE(Main().Fenster.Visible);
    EXPECT_EQ(Light(), Lampe::Rot);
    EXPECT_EQ(world.Opens, 0);
    programm->kern.Windows.BackToMain();
    EXPECT_FALSE(Main().Fenster.Visible);
    EXPECT_FALSE(Main().Timer2.Running());
}

TEST_F(F2_Laden, stops_the_timers_of_a_run_and_sets_their_first_intervals) {
    Start();
    Programmierlauf& run = programm->Run;
    for (Timer* timer : {&run.Timer7, &run.Timer8, &run.Timer9, &run.Timer11}) {
        timer->Start(77);
    }
    Open();
    for (const Timer* timer : {&run.Timer7, &run.Timer8, &run.Timer9, &run.Timer11}) {
        EXPECT_FALSE(timer->Running());
    }
    EXPECT_EQ(run.Timer7.Interval(), 1000);
    EXPECT_EQ(run.Timer8.Interval(), 20);
    EXPECT_EQ(run.Timer9.Interval(), 900);
    EXPECT_EQ(run.Timer11.Interval(), 500);
}

TEST_F(F2_Laden, a_second_time_leaves_the_port_alone) {
    Connect();
    const int opens = world.Opens;
    Main().F2_Laden();
    EXPECT_EQ(world.Opens, opens);
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_EQ(Main().Timer2.Interval(), 1000);
}

TEST_F(F2_Laden, with_a_port_that_does_not_open_stays_red_and_says_why) {
    world.PortCanOpen = false;
    world.PortFaultNow = PortFault{.What = PortFault::Kind::NoRight, .Device = "ttyUSB4"};
    Open();
    EXPECT_EQ(Light(), Lampe::Rot);
    EXPECT_EQ(Line(), PortFault_Text(programm->kern, *world.PortFaultNow));
    EXPECT_NE(Line(), "");
    // The supervision was started, finds a red light and stays stopped.
    EXPECT_TRUE(Main().Timer2.Running());
    EXPECT_EQ(Main().Timer2.Interval(), 1000);
    world.RunFor(1000);
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_EQ(Main().Label6.Text(), "1");
    EXPECT_EQ(Main().ScanLaeuft, 0);
    EXPECT_EQ(Probes(), 0);
}

TEST_F(F2_Laden, without_any_candidate_port_says_so_in_words_of_its_own) {
    world.AdapterPortNumbers.clear();
    world.PortCanOpen = false;
    Open();
    EXPECT_EQ(Light(), Lampe::Rot);
    EXPECT_EQ(Line(), "L285");
}

TEST_F(F2_Laden, with_a_fixed_port_names_the_reason_of_the_port_itself_and_where_to_choose_another) {
    Config("RESET", 3, 5);
    world.AdapterPortNumbers.clear();
    world.PortCanOpen = false;
    world.PortFaultNow = PortFault{.What = PortFault::Kind::NotThere, .Device = "ttyUSB4"};
    Open();
    EXPECT_EQ(Line(), "L290 (L116 > L21)");
}

TEST_F(F2_Laden, its_end_ends_the_watch_for_ports) {
    Open();
    EXPECT_TRUE(world.PortChanged);
    programm.reset();
    EXPECT_FALSE(world.PortChanged);
}

// ---- the first scan

TEST_F(F2_Laden, goes_from_yellow_to_green_by_itself) {
    Open();
    world.RunFor(199);
    EXPECT_EQ(Probes(), 0);
    EXPECT_EQ(Main().ScanLaeuft, 0);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(Main().Verbunden, 1);
    EXPECT_EQ(Main().Label3.Text(), "1");
    EXPECT_EQ(Main().Label6.Text(), "1");
    EXPECT_TRUE(Main().Label7.Visible);
    EXPECT_TRUE(Main().Picture1.Visible);
    EXPECT_NE(Main().Picture1.Id, 0);
    EXPECT_EQ(Main().AdapterVersion, 0x23);
    EXPECT_EQ(Line(), "");
    ASSERT_EQ(programm->Adapter.Saetze.size(), 1U);
    EXPECT_EQ(programm->Adapter.ProgStationPort, 5);
}

struct F2_Aufsicht : F2Fixture {};

TEST_F(F2_Aufsicht, scans_again_every_40_seconds) {
    Connect();
    EXPECT_EQ(Main().Timer2.Interval(), 40000);
    const auto start = world.Elapsed();
    std::int64_t middle = 0;
    InNextScan(
        [&] {
            middle = world.Elapsed();
            EXPECT_EQ(Main().Verbunden, 0);
            EXPECT_EQ(Light(), Lampe::Gruen);
        },
        1);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(middle - start, 40001);
    EXPECT_EQ(Main().Verbunden, 1);
    EXPECT_EQ(Main().Label3.Text(), "2");
    EXPECT_EQ(Main().Label6.Text(), "2");
    EXPECT_TRUE(Main().Timer2.Running());
}

TEST_F(F2_Aufsicht, without_an_answer_keeps_the_lights_colour_tells_it_and_goes_on) {
    AdapterAnswers = false;
    Open();
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gelb);
    EXPECT_EQ(Line(), "L91");
    EXPECT_EQ(Main().Verbunden, 0);
    EXPECT_EQ(Main().ScanLaeuft, 0);
    EXPECT_TRUE(Main().Timer2.Running());
    EXPECT_EQ(Main().Timer2.Interval(), 40000);
    EXPECT_EQ(Main().Label3.Text(), "0");
    AdapterAnswers = true;
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(Line(), "");
}

TEST_F(F2_Aufsicht, after_an_adapter_fell_silent_stays_green_but_not_connected) {
    Connect();
    AdapterAnswers = false;
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
    EXPECT_EQ(Main().Verbunden, 0);
    EXPECT_EQ(Line(), "L91");
}

TEST_F(F2_Aufsicht, opens_a_closed_port_before_it_scans) {
    Connect();
    world.World.Port.Close();
    ASSERT_TRUE(ScanEnds());
    EXPECT_TRUE(world.PortOpen);
    EXPECT_EQ(Main().Verbunden, 1);
}

TEST_F(F2_Aufsicht, says_why_when_the_closed_port_cannot_be_opened) {
    Connect();
    world.World.Port.Close();
    Refuse(PortFault::Kind::NotThere);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Main().Verbunden, 0);
    EXPECT_EQ(Light(), Lampe::Rot);
    EXPECT_EQ(Line(), "L290");
    EXPECT_FALSE(Main().Label7.Visible);
    EXPECT_FALSE(Main().Picture1.Visible);
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_FALSE(Main().Wiederholung.Running());
}

TEST_F(F2_Aufsicht, tries_a_port_again_that_another_program_took_between_two_scans) {
    Connect();
    world.World.Port.Close();
    Refuse(PortFault::Kind::Held);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Rot);
    EXPECT_EQ(Line(), "L294");
    const int opens = world.Opens;
    world.RunFor(60000);
    EXPECT_EQ(world.Opens, opens + 30);
    world.PortCanOpen = true;
    world.PortChanged(PortChange::Arrived);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Aufsicht, a_key_whose_search_cannot_open_the_port_turns_the_light_red_and_has_it_tried_again) {
    Connect();
    NoteWindows();
    AdapterAnswers = false;
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
    Refuse(PortFault::Kind::Held);
    Expect(91);
    Press("PROG");
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_EQ(Light(), Lampe::Rot);
    EXPECT_EQ(Line(), "L294");
    EXPECT_EQ(Main().AdapterVersion, 0);
    EXPECT_TRUE(Main().Wiederholung.Running());
    world.PortCanOpen = true;
    AdapterAnswers = true;
    world.RunFor(2000);
    EXPECT_EQ(Light(), Lampe::Gelb);
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

TEST_F(F2_Aufsicht, an_echo_of_the_question_is_no_adapter) {
    Identification = {0x02, 0x0E, 0x68, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x00, 0xC8};
    Open();
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gelb);
    EXPECT_EQ(Main().Verbunden, 0);
}

TEST_F(F2_Aufsicht, rests_while_an_editor_is_open_and_goes_on_behind_it) {
    Connect();
    NoteWindows();
    Press("lock4");
    const int probes = Probes();
    world.RunFor(200000);
    EXPECT_EQ(Probes(), probes);
    Main().F2_Zeigen();
    EXPECT_TRUE(Main().Fenster.Visible);
    world.RunFor(39999);
    EXPECT_EQ(Probes(), probes);
    ASSERT_TRUE(ScanEnds());
    EXPECT_GT(Probes(), probes);
}

TEST_F(F2_Aufsicht, does_not_start_again_behind_an_editor_that_opened_during_the_scan) {
    AdapterAnswers = false;
    Open();
    NoteWindows();
    InNextScan([this] { Main().F2_SchlossB_Click(); });
    ASSERT_TRUE(ScanEnds());
    EXPECT_THAT(Opened, ElementsAre("F41"));
    EXPECT_FALSE(Main().Timer2.Running());
    Main().F2_Zeigen();
    EXPECT_TRUE(Main().Timer2.Running());
}

TEST_F(F2_Aufsicht, does_not_speak_into_a_run) {
    Connect();
    const int probes = Probes();
    Lauf().Chain.Phase = RunPhase::Open;
    world.RunFor(100000);
    EXPECT_EQ(Probes(), probes);
    Lauf().Chain.Phase = RunPhase::None;
    world.RunFor(50000);
    EXPECT_GT(Probes(), probes);
}

// ---- reply guard

TEST_F(F2_Aufsicht, the_reply_guard_stops_itself_closes_the_progress_window_and_tells_it) {
    Connect();
    programm->Transfer->F9.Fenster.Visible = true;
    Main().Fenster.Enabled = false;
    Main().Timer1.Start();
    Expect(74);
    world.RunFor(1999);
    EXPECT_TRUE(world.Shown.empty());
    world.RunFor(1);
    EXPECT_FALSE(Main().Timer1.Running());
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
    EXPECT_EQ(world.Shown.size(), 1U);
}

// ---- shut-down

TEST_F(F2_Aufsicht, beenden_saves_closes_the_port_and_ends_once) {
    Connect();
    NoteWindows();
    world.World.Port.SetRts(true);
    programm->kern.Config.RadioChannel = "7";
    Main().Beenden();
    Main().Beenden();
    EXPECT_THAT(Opened, ElementsAre("end"));
    EXPECT_EQ(world.Disk.Files["/q/DAT/EST7CSB29A.I_1"], "Deutsch\r\n1\r\nUSB-Port5\r\n7\r\n");
    EXPECT_FALSE(world.PortOpen);
    EXPECT_FALSE(world.Rts);
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_FALSE(Main().Wiederholung.Running());
    EXPECT_FALSE(Main().Fenster.Visible);
}

TEST_F(F2_Aufsicht, beenden_tells_that_the_configuration_was_not_saved_and_ends_all_the_same) {
    Connect();
    NoteWindows();
    world.Disk.Operations = 0;
    world.Disk.FailAt = 1;
    Expect(287);
    Main().Beenden();
    EXPECT_EQ(world.Shown[0].Choice, Buttons::Ok);
    EXPECT_EQ(world.Shown[0].Sign, Icon::Exclamation);
    EXPECT_THAT(Opened, ElementsAre("end"));
    EXPECT_FALSE(world.PortOpen);
}

TEST_F(F2_Aufsicht, behind_the_end_nothing_brings_the_window_or_the_port_back) {
    Connect();
    NoteWindows();
    Main().Beenden();
    const int opens = world.Opens;
    Main().F2_Zeigen();
    Press("PROG");
    Main().F2_Sprache_Click();
    world.PortChanged(PortChange::Arrived);
    world.RunFor(100000);
    EXPECT_THAT(Opened, ElementsAre("end"));
    EXPECT_FALSE(Main().Fenster.Visible);
    EXPECT_EQ(world.Opens, opens);
}

TEST_F(F2_Aufsicht, an_end_during_a_scan_hides_the_window_at_once_and_leaves_no_port_open_behind_it) {
    AdapterAnswers = false;
    Open();
    NoteWindows();
    std::int64_t end = 0;
    int opens = 0;
    InNextScan([&] {
        Main().Beenden();
        end = world.Elapsed();
        opens = world.Opens;
        EXPECT_FALSE(Main().Fenster.Visible);
        EXPECT_THAT(Opened, ElementsAre("end"));
    });
    ASSERT_TRUE(ScanEnds());
    EXPECT_LE(world.Elapsed() - end, 4000);
    EXPECT_EQ(world.Opens, opens);
    EXPECT_FALSE(world.PortOpen);
    EXPECT_FALSE(world.Rts);
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_THAT(Opened, ElementsAre("end"));
}

} // namespace
} // namespace qvm::test
