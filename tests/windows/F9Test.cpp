// The progress window.

#include "FensterFixture.h"
#include "Pictures.h"
#include "SeriellesProtokoll.h"

namespace qvm::test {
namespace {

/// Reply 0x06, L 13: the bytes 2, 13, 6 and eleven 0 give the sum 0x41, which stands two places behind index 13.
const std::vector<std::uint8_t> AliveReply{0x02, 0x0D, 0x06, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x00, 0x41};

struct F9_Fenster : FensterFixture {
    void Run(std::string_view switches = "XXXXX") {
        SettledLock(1, "Tor", SerialS, switches);
        Begin();
        StartRun();
    }
    F9& Window() { return programm->Transfer->F9; }
    /// The run's first five telegrams were acknowledged, two seconds ago.
    void Five_Of_Seventeen() {
        Run("----X");
        auto& items = programm->Run.Konto.Items;
        ASSERT_EQ(items.size(), 17U);
        for (std::size_t n = 0; n < 5; ++n) {
            items[n].Is = AccountItem::State::Acknowledged;
        }
        programm->Run.Konto.Awaited = 5;
        world.RunFor(2000);
        ASSERT_EQ(Window().SchrittLabel.Text(), "29 %, Kalenderschalter, noch etwa 5 s");
    }
};

TEST_F(F9_Fenster, opens_with_1500_and_30_on_its_bars) {
    Start();
    EXPECT_EQ(Window().Balken1.Maximum, 1500);
    EXPECT_EQ(Window().Balken2.Maximum, 30);
    EXPECT_FALSE(Window().Fenster.Visible);
}

TEST_F(F9_Fenster, begins_with_cancel_live_and_close_dead) {
    Run();
    EXPECT_TRUE(Window().Command1.Enabled);
    EXPECT_FALSE(Window().Command2.Enabled);
    EXPECT_TRUE(Window().Balken1.Visible);
    EXPECT_TRUE(Window().Balken2.Visible);
    EXPECT_EQ(Window().StatusLabel.Text(), "");
    EXPECT_FALSE(Window().StilleLabel.Visible);
    EXPECT_FALSE(Window().Label15.Visible);
    EXPECT_EQ(Window().Zustandsbild.Id, StatePicture::None);
}

TEST_F(F9_Fenster, shows_the_pcs_date_and_time_when_the_clock_is_sent) {
    Run("----X");
    EXPECT_EQ(Window().DatumLabel.Text(), "L55 : 05.03.2026");
    EXPECT_EQ(Window().ZeitLabel.Text(), "L56 : 10:30:00");
}

TEST_F(F9_Fenster, shows_dashes_when_the_clock_is_not_sent) {
    Run("XXXX ");
    EXPECT_EQ(Window().DatumLabel.Text(), "L55 : --.--.----");
    EXPECT_EQ(Window().ZeitLabel.Text(), "L56 : --:--:--");
}

// ---- check boxes

TEST_F(F9_Fenster, names_the_lock_and_its_units_on_the_check_boxes) {
    files.Unit(1, 1, "Schranke", "00C00001", '1');
    files.Unit(1, 4, "Leser", "00C00002", '1');
    Run();
    std::vector<std::string> names;
    std::vector<bool> live;
    for (const CheckBox& box : Window().Check) {
        names.push_back(box.Text);
        live.push_back(box.Enabled);
        EXPECT_FALSE(box.Checked);
    }
    EXPECT_THAT(names, ElementsAre("Tor", "Schranke", "", "", "Leser", ""));
    EXPECT_THAT(live, ElementsAre(true, true, false, false, true, false));
}

TEST_F(F9_Fenster, shows_no_units_of_an_earlier_lock_while_a_history_is_read) {
    files.Unit(1, 1, "Schranke", "00C00001", '1');
    SettledLock(1, "Tor");
    SettledLock(2, "Keller");
    Begin();
    OpenStart(1);
    programm->Transfer->F11.Cancel_Click();
    Expect(65);
    Click(2, F13Column::History);
    Type("123456");
    programm->Transfer->F11.OK_Click();
    EXPECT_EQ(Window().Check[0].Text(), "Keller");
    EXPECT_EQ(Window().Check[1].Text(), "");
    EXPECT_FALSE(Window().Check[1].Enabled);
}

TEST_F(F9_Fenster, ticks_the_lock_and_the_units_by_number_and_clears_them_for_the_next_run) {
    Run();
    programm->Run.Ansicht.Kaestchen(1);
    programm->Run.Ansicht.Kaestchen(6);
    programm->Run.Ansicht.Kaestchen(0);
    programm->Run.Ansicht.Kaestchen(7);
    std::vector<bool> ticked;
    for (const CheckBox& box : Window().Check) {
        ticked.push_back(box.Checked);
    }
    EXPECT_THAT(ticked, ElementsAre(true, false, false, false, false, true));
    Window().Command1_Click();
    Window().Command2_Click();
    StartRun();
    EXPECT_FALSE(Window().Check[0].Checked);
    EXPECT_FALSE(Window().Check[5].Checked);
}

// ---- bars

TEST_F(F9_Fenster, counts_every_telegram_and_wraps_five_before_the_maximum) {
    Run(); // maximum 160
    Lauf().Progress.TelegramCounter = 154;
    TelLebenszeichen_Senden(programm->link);
    EXPECT_EQ(Lauf().Progress.ProgressValue, 155);
    TelLebenszeichen_Senden(programm->link);
    EXPECT_EQ(Lauf().Progress.ProgressValue, 0);
    TelLebenszeichen_Senden(programm->link);
    EXPECT_EQ(Lauf().Progress.ProgressValue, 1);
}

TEST_F(F9_Fenster, shows_on_its_first_bar_what_the_lock_has_acknowledged_of_all_that_it_is_to_get) {
    Run("----X"); // the clock is sent
    // Login, date, time, priority, erase, calendar, two of timers, six of holidays, timer switch, end of data,
    // disconnect.
    EXPECT_EQ(Window().Balken1.Maximum, 17);
    EXPECT_EQ(Window().Balken1.Value, 0);
    EXPECT_EQ(Window().SchrittLabel.Text(), "0 %, Anmeldung");
    auto& items = programm->Run.Konto.Items;
    for (std::size_t n = 0; n < 5; ++n) {
        items[n].Is = AccountItem::State::Acknowledged;
    }
    programm->Run.Konto.Awaited = 5;
    world.RunFor(1000);
    EXPECT_EQ(Window().Balken1.Value, 5);
    EXPECT_EQ(Window().SchrittLabel.Text(), "29 %, Kalenderschalter");
    world.RunFor(1000); // five in two seconds, twelve to go
    EXPECT_EQ(Window().SchrittLabel.Text(), "29 %, Kalenderschalter, noch etwa 5 s");
}

TEST_F(F9_Fenster, steps_the_second_bar_by_four_and_wraps_above_27) {
    Run(); // the login was the first step
    std::vector<int> values;
    for (int n = 0; n < 7; ++n) {
        TelLebenszeichen_Senden(programm->link);
        values.push_back(Window().Balken2.Value);
    }
    EXPECT_THAT(values, ElementsAre(8, 12, 16, 20, 24, 0, 4));
}

TEST_F(F9_Fenster, steps_the_second_bar_every_500_ms_between_two_passes) {
    Run();
    programm->Run.Timer6.Start(500);
    world.RunFor(1000);
    EXPECT_EQ(Window().Balken2.Value, 12);
    EXPECT_EQ(Window().Balken1.Value, 0);
}

// ---- states of a history

struct StateCase {
    std::uint8_t State;
    int Picture;
};

void PrintTo(const StateCase& c, std::ostream* out) {
    *out << static_cast<int>(c.State);
}

struct F9_Zustand : F9_Fenster, ::testing::WithParamInterface<StateCase> {};

TEST_P(F9_Zustand, shows_one_of_five_pictures_and_the_text) {
    Run();
    programm->Run.Ansicht.Zustand(GetParam().State, "Zustand: Stufe");
    EXPECT_EQ(Window().Zustandsbild.Id, GetParam().Picture);
    EXPECT_EQ(Window().Label15.Text(), "Zustand: Stufe");
    EXPECT_TRUE(Window().Label15.Visible);
}

INSTANTIATE_TEST_SUITE_P(States, F9_Zustand,
                         ::testing::Values(StateCase{0x10, StatePicture::Image5}, StateCase{0x20, StatePicture::Image4},
                                           StateCase{0x30, StatePicture::Image3}, StateCase{0x40, StatePicture::Image2},
                                           StateCase{0x50, StatePicture::Image1}, StateCase{0x60, StatePicture::None},
                                           StateCase{0x00, StatePicture::None}));

TEST_F(F9_Fenster, shows_no_state_of_an_earlier_run) {
    Run();
    programm->Run.Ansicht.Zustand(0x30, "Zustand");
    Window().Command1_Click();
    Window().Command2_Click();
    StartRun();
    EXPECT_FALSE(Window().Label15.Visible);
    EXPECT_EQ(Window().Zustandsbild.Id, StatePicture::None);
}

// ---- the end

TEST_F(F9_Fenster, finished_shows_the_line_stops_the_bars_and_swaps_the_buttons) {
    Run();
    programm->Run.Ansicht.Fertig(110);
    EXPECT_EQ(Window().StatusLabel.Text(), "L110");
    EXPECT_FALSE(Window().Command1.Enabled);
    EXPECT_TRUE(Window().Command2.Enabled);
    EXPECT_TRUE(Window().Balken1.Visible); // how far the run has come
    EXPECT_FALSE(Window().Balken2.Visible);
    EXPECT_TRUE(Window().Fenster.Visible);
}

TEST_F(F9_Fenster, is_finished_at_the_end_only_and_not_when_a_cancel_has_made_its_closing_button_live) {
    Run();
    EXPECT_FALSE(Window().Beendet);
    Window().Command1_Click();
    EXPECT_TRUE(Window().Command2.Enabled);
    EXPECT_FALSE(Window().Beendet);
    programm->Run.Ansicht.Fertig(110);
    EXPECT_TRUE(Window().Beendet);
    Window().Command2_Click();
    StartRun();
    EXPECT_FALSE(Window().Beendet);
}

TEST_F(F9_Fenster, finished_during_a_channel_search_is_shown_all_the_same) {
    files.Lock(1, "Tor", SerialS);
    files.Channel(1, "7", "3", "1");
    Begin();
    StartRun();
    EXPECT_FALSE(Window().Fenster.Visible);
    programm->Run.Ansicht.Fertig(78);
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_EQ(Window().StatusLabel.Text(), "L78");
    EXPECT_FALSE(programm->Transfer->F18.Fenster.Visible);
}

TEST_F(F9_Fenster, close_gives_the_grid_back_with_fresh_status_pictures) {
    Run();
    files.Channel(1, "3", "3", "1");
    programm->Run.Gesamtende = true;
    programm->Run.Ansicht.Fertig(110);
    Window().Command2_Click();
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_EQ(programm->Transfer->F13.FGK13.At(1, F13Column::Status).Picture, ChannelPicture::Image7);
}

// ---- cancel

TEST_F(F9_Fenster, cancel_only_wishes_and_makes_the_close_button_live) {
    Run();
    programm->Run.Ansicht.Zustand(0x10, "Zustand");
    Window().Command1_Click();
    EXPECT_EQ(Lauf().Chain.AbbruchWunsch, 1);
    EXPECT_EQ(Window().StatusLabel.Text(), "L82");
    EXPECT_FALSE(Window().Label15.Visible);
    EXPECT_TRUE(Window().Command2.Enabled);
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
    world.RunFor(60000);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04)); // nothing before the next reply
}

TEST_F(F9_Fenster, cancel_takes_effect_at_the_next_reply) {
    Run();
    Window().Command1_Click();
    world.Deliver(AliveReply);
    world.RunFor(100);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04, 0x05));
    EXPECT_EQ(Lauf().Chain.AbbruchWunsch, 0);
}

TEST_F(F9_Fenster, close_after_a_cancel_gives_a_silent_lock_up) {
    Run();
    Window().Command1_Click();
    Window().Command2_Click();
    EXPECT_TRUE(programm->Run.Gesamtende);
    EXPECT_EQ(programm->Run.Bericht.End, RunOutcome::Cancelled);
    EXPECT_EQ(Lauf().Chain.AbbruchWunsch, 0);
    EXPECT_FALSE(world.PortOpen);
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
}

TEST_F(F9_Fenster, the_run_after_a_given_up_one_begins_like_the_first) {
    Run();
    Window().Command1_Click();
    Window().Command2_Click();
    StartRun();
    EXPECT_THAT(SentCodes(), ElementsAre(0x04, 0x04));
    EXPECT_EQ(Window().StatusLabel.Text(), "");
    EXPECT_FALSE(Window().Command2.Enabled);
    EXPECT_EQ(Lauf().Chain.AbbruchWunsch, 0);
}

// ---- silence

TEST_F(F9_Fenster, says_how_long_the_lock_has_been_silent_once_that_is_more_than_5_seconds) {
    Run();
    world.RunFor(5999);
    EXPECT_FALSE(Window().StilleLabel.Visible);
    world.RunFor(1);
    EXPECT_TRUE(Window().StilleLabel.Visible);
    EXPECT_EQ(Window().StilleLabel.Text(), "L274 6 s");
    world.RunFor(10000);
    EXPECT_EQ(Window().StilleLabel.Text(), "L274 16 s");
}

TEST_F(F9_Fenster, takes_the_silence_back_when_the_lock_answers) {
    Run();
    world.RunFor(7000);
    world.Deliver(AliveReply); // not what it was asked
    world.RunFor(1000);
    EXPECT_EQ(Window().StilleLabel.Text(), "L274 8 s");
    TelLebenszeichen_Senden(programm->link);
    world.Deliver(AliveReply);
    world.RunFor(1000);
    EXPECT_FALSE(Window().StilleLabel.Visible);
    world.RunFor(5000);
    EXPECT_TRUE(Window().StilleLabel.Visible);
}

TEST_F(F9_Fenster, counts_no_silence_while_the_run_waits_by_itself) {
    Run();
    programm->Run.Waiting = true;
    world.RunFor(20000);
    EXPECT_FALSE(Window().StilleLabel.Visible);
    programm->Run.Waiting = false;
    programm->Run.Timer9.Start(30000);
    world.RunFor(20000);
    EXPECT_FALSE(Window().StilleLabel.Visible);
}

TEST_F(F9_Fenster, counts_nothing_on_behind_a_cancel) {
    Run();
    world.RunFor(7000);
    EXPECT_TRUE(Window().StilleLabel.Visible);
    Window().Command1_Click();
    EXPECT_FALSE(Window().StilleLabel.Visible);
    world.RunFor(20000);
    EXPECT_FALSE(Window().StilleLabel.Visible);
    world.Deliver(AliveReply); // the cancel is honoured, and its own telegram stays without an answer
    world.RunFor(20000);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04, 0x05));
    EXPECT_FALSE(Window().StilleLabel.Visible);
    EXPECT_EQ(Window().StatusLabel.Text(), "L82");
}

TEST_F(F9_Fenster, counts_no_time_left_behind_a_cancel) {
    Five_Of_Seventeen();
    Window().Command1_Click();
    EXPECT_EQ(Window().SchrittLabel.Text(), "29 %, Kalenderschalter");
    world.RunFor(20000);
    EXPECT_EQ(Window().SchrittLabel.Text(), "29 %, Kalenderschalter");
    world.Deliver(AliveReply); // the cancel is honoured, and its own telegram stays without an answer
    world.RunFor(20000);
    EXPECT_EQ(Lauf().Chain.AbbruchWunsch, 0);
    EXPECT_EQ(Window().SchrittLabel.Text(), "29 %, Kalenderschalter");
}

TEST_F(F9_Fenster, counts_no_time_left_while_the_adapter_is_pulled_out) {
    Five_Of_Seventeen();
    world.PortOpen = false;
    world.RunFor(1000);
    EXPECT_EQ(Window().SchrittLabel.Text(), "29 %, Kalenderschalter");
    world.RunFor(20000);
    EXPECT_EQ(Window().SchrittLabel.Text(), "29 %, Kalenderschalter");
}

TEST_F(F9_Fenster, has_the_line_again_that_stood_there_before_the_adapter_was_pulled_out) {
    Run();
    Window().Status_Zeigen(264);
    world.PortOpen = false;
    world.RunFor(2000);
    EXPECT_THAT(Window().StatusLabel.Text(), ::testing::StartsWith("Der Funkadapter wurde getrennt."));
    world.PortOpen = true;
    world.RunFor(1000);
    EXPECT_EQ(Window().StatusLabel.Text(), "L264");
    EXPECT_EQ(Window().Zeichen.Id(), RunSign::None);
}

TEST_F(F9_Fenster, says_that_the_adapter_was_pulled_out_instead_of_counting_the_silence) {
    Run();
    world.RunFor(7000);
    world.PortOpen = false;
    world.RunFor(1000);
    EXPECT_EQ(Window().StatusLabel.Text(),
              "Der Funkadapter wurde getrennt. Bitte stecken Sie ihn wieder an, und wiederholen Sie den Vorgang.");
    EXPECT_EQ(Window().Zeichen.Id(), RunSign::Attention);
    EXPECT_FALSE(Window().StilleLabel.Visible);
    EXPECT_TRUE(Window().Command1.Enabled);
    world.RunFor(20000);
    EXPECT_FALSE(Window().StilleLabel.Visible);
    world.PortOpen = true; // as when a telegram could be sent again
    world.RunFor(1000);
    EXPECT_EQ(Window().StatusLabel.Text(), "");
    EXPECT_EQ(Window().Zeichen.Id(), RunSign::None);
}

TEST_F(F9_Fenster, ends_at_once_when_a_run_without_an_adapter_is_cancelled) {
    Run();
    world.PortOpen = false;
    world.RunFor(1000);
    Window().Command1_Click();
    EXPECT_TRUE(programm->Run.Gesamtende);
    EXPECT_EQ(programm->Run.Bericht.End, RunOutcome::Cancelled);
    EXPECT_TRUE(Window().Beendet);
    EXPECT_EQ(Window().StatusLabel.Text(), "L82");
    EXPECT_FALSE(Window().Command1.Enabled);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
    Window().Command2_Click();
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    StartRun();
    EXPECT_THAT(SentCodes(), ElementsAre(0x04, 0x04));
}

TEST_F(F9_Fenster, shows_no_silence_in_the_finished_state) {
    Run();
    world.RunFor(7000);
    programm->Run.Gesamtende = true;
    programm->Run.Ansicht.Fertig(110);
    EXPECT_FALSE(Window().StilleLabel.Visible);
    world.RunFor(20000);
    EXPECT_FALSE(Window().StilleLabel.Visible);
}

} // namespace
} // namespace qvm::test
