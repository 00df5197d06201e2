// The wait box of a channel search.

#include "AntwortRahmen.h"
#include "FensterFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct F18_Wartebox : FensterFixture {
    F18_Wartebox() {
        files.Lock(1, "Tor", SerialS);
        files.Channel(1, "7", "3", "0");
        Begin();
        StartRun();
    }
    void Reply(std::uint8_t code, const std::vector<std::uint8_t>& payload) {
        world.Deliver(ReplyWire(code, 0x0D, payload));
        world.RunFor(1);
    }
    /// The adapter has no contact on this channel.
    void Refuse() { Reply(0x69, {0x64}); }
    void ChannelSet() { Reply(0x29, {}); }
    F18& Box() { return programm->Transfer->F18; }
    std::string ChannelFile() { return files.File("RFCHANDIF12.RFX").substr(0, 15); }
};

TEST_F(F18_Wartebox, shows_a_bar_from_100_to_200_and_a_button) {
    EXPECT_TRUE(Box().Fenster.Visible);
    EXPECT_EQ(Box().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - Kanalsuche");
    EXPECT_EQ(Box().Balken.Minimum, 100);
    EXPECT_EQ(Box().Balken.Maximum, 200);
    EXPECT_EQ(Box().Balken.Value, 100);
    EXPECT_TRUE(Box().Command1.Enabled);
    EXPECT_EQ(programm->link.TargetChannel, 7);
}

TEST_F(F18_Wartebox, steps_its_bar_by_six_a_channel_up_to_172) {
    std::vector<int> bars;
    std::vector<int> channels;
    for (int n = 0; n < 12; ++n) {
        Refuse();
        bars.push_back(Box().Balken.Value);
        channels.push_back(programm->link.TargetChannel);
    }
    EXPECT_THAT(bars, ElementsAre(106, 112, 118, 124, 130, 136, 142, 148, 154, 160, 166, 172));
    EXPECT_THAT(channels, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
    EXPECT_EQ(SentCodes(), std::vector<int>(13, 0x04));
}

TEST_F(F18_Wartebox, closes_with_a_message_when_no_channel_answers) {
    for (int n = 0; n < 12; ++n) {
        Refuse();
    }
    Expect(67);
    Refuse();
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_EQ(Box().Text.Text(), "L82");
    EXPECT_EQ(programm->Transfer->F9.StatusLabel.Text(), "L82");
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_EQ(Lauf().Chain.KanalSuche, 0);
    EXPECT_EQ(ChannelFile(), "7     3  1     ");
    EXPECT_EQ(SentCodes(), std::vector<int>(13, 0x04));
    EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
}

TEST_F(F18_Wartebox, its_button_closes_it_and_ends_the_search_at_the_next_reply) {
    Refuse();
    Box().Command1_Click();
    EXPECT_EQ(Lauf().Chain.KanalIndex, 12);
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_FALSE(programm->Run.Gesamtende);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04, 0x04));
    Expect(67);
    Refuse();
    EXPECT_TRUE(programm->Run.Gesamtende);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04, 0x04));
}

TEST_F(F18_Wartebox, left_in_a_silent_search_says_how_that_ends_and_counts_nothing) {
    world.RunFor(8000);
    Box().Command1_Click();
    const F9& window = programm->Transfer->F9;
    EXPECT_TRUE(window.Fenster.Visible);
    EXPECT_EQ(window.StatusLabel.Text(), u8"Die Kanalsuche wird mit der nächsten Antwort beendet. Mit „L119“ endet "
                                         u8"sie sofort."_w);
    world.RunFor(20000);
    EXPECT_FALSE(window.StilleLabel.Visible);
    programm->Transfer->F9.Command2_Click();
    EXPECT_EQ(programm->Run.Bericht.End, RunOutcome::Cancelled);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
}

TEST_F(F18_Wartebox, left_before_a_channel_answers_says_no_more_that_the_search_ends) {
    Box().Command1_Click();
    ChannelSet();
    EXPECT_EQ(programm->Transfer->F9.StatusLabel.Text(), "");
    world.RunFor(8000);
    EXPECT_TRUE(programm->Transfer->F9.StilleLabel.Visible);
}

TEST_F(F18_Wartebox, left_before_a_channel_answers_gives_the_run_no_close_button) {
    Box().Command1_Click();
    EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
    ChannelSet();
    EXPECT_FALSE(programm->Run.Gesamtende);
    EXPECT_FALSE(programm->Transfer->F9.Command2.Enabled);
}

TEST_F(F18_Wartebox, says_that_the_adapter_was_pulled_out_and_goes_on_when_it_is_back) {
    world.RunFor(5000);
    EXPECT_EQ(Box().Text.Text(), "L81");
    world.PortOpen = false;
    world.RunFor(1000);
    EXPECT_EQ(Box().Text.Text(),
              "Der Funkadapter wurde getrennt. Bitte stecken Sie ihn wieder an, und wiederholen Sie den Vorgang.");
    EXPECT_TRUE(Box().Fenster.Visible);
    EXPECT_TRUE(Box().Command1.Enabled);
    world.PortOpen = true; // as when a telegram could be sent again
    world.RunFor(1000);
    EXPECT_EQ(Box().Text.Text(), "L81");
}

TEST_F(F18_Wartebox, its_button_ends_a_search_without_an_adapter_at_once) {
    world.PortOpen = false;
    world.RunFor(1000);
    Box().Command1_Click();
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_TRUE(programm->Run.Gesamtende);
    EXPECT_EQ(programm->Run.Bericht.End, RunOutcome::Cancelled);
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F9.Beendet);
    EXPECT_EQ(programm->Transfer->F9.StatusLabel.Text(), "L82");
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
    programm->Transfer->F9.Command2_Click();
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    StartRun();
    EXPECT_EQ(Box().Text.Text(), "L81");
}

TEST_F(F18_Wartebox, that_is_closed_looks_at_no_adapter) {
    Box().Command1_Click();
    world.PortOpen = false;
    world.RunFor(3000);
    EXPECT_EQ(Box().Text.Text(), "L81");
}

TEST_F(F18_Wartebox, begins_at_100_again_for_the_next_search) {
    Refuse();
    Box().Command1_Click();
    Expect(67);
    Refuse();
    StartRun();
    EXPECT_TRUE(Box().Fenster.Visible);
    EXPECT_EQ(Box().Balken.Value, 100);
    EXPECT_EQ(Lauf().Chain.KanalIndex, 0);
    EXPECT_EQ(programm->link.TargetChannel, 7);
}

TEST_F(F18_Wartebox, makes_way_for_the_progress_window_when_the_lock_has_moved) {
    for (AccountItem& item : programm->Run.Konto.Items) {
        item.Is = item.Code == 0x29 ? AccountItem::State::Acknowledged : item.Is;
    }
    ChannelSet();
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_EQ(ChannelFile(), "3     3  0     ");
}

TEST_F(F18_Wartebox, leaves_the_channel_record_alone_at_a_reply_that_nobody_asked_for) {
    ChannelSet();
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_EQ(ChannelFile(), "7     3  0     ");
}

} // namespace
} // namespace qvm::test
