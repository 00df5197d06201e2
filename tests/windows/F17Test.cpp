// The change of a lock's code: what is typed, what goes out, what comes back.

#include "F17.h"

#include "F17Hand.h"
#include "FensterFixture.h"
#include "SeriellesProtokoll.h"
#include "Text.h"

namespace qvm::test {
namespace {

using SentBytes = std::vector<std::uint8_t>;

constexpr std::string_view CodeChangeTitle = "QVM 5508 Businnes";

constexpr std::string_view Unconfirmed =
    u8"Die Änderung des Codes wurde nicht bestätigt. Bitte prüfen Sie, ob der alte oder der neue "
    u8"Code gilt, bevor Sie ihn noch einmal ändern."_w;

struct F17_Code : F17Hand<FensterFixture> {
    std::size_t Before = 0;

    F17_Code() {
        SettledLock(1, "Tor");
        Start();
        programm->Transfer->F17_Anbieten();
        Begin();
        Click(1, F13Column::Code);
        Before = world.Written.size();
    }
    void Old(std::string_view keys) { Keys(&F17::Text1_KeyPress, keys); }
    void New(std::string_view keys) { Keys(&F17::Text2_KeyPress, keys); }
    void Again(std::string_view keys) { Keys(&F17::Text3_KeyPress, keys); }
    void Change(std::string_view oldCode, std::string_view newCode, std::string_view again) {
        Old(oldCode);
        New(newCode);
        Again(again);
        Dialog().Command1_Click();
    }
    SentBytes Sent() const {
        return {world.Written.begin() + static_cast<std::ptrdiff_t>(Before), world.Written.end()};
    }
    /// The change as it went out last; empty when the last telegram is another.
    SentBytes LastChange() const {
        constexpr std::size_t size = 27;
        const SentBytes all = Sent();
        const SentBytes last(all.end() - static_cast<std::ptrdiff_t>(std::min(size, all.size())), all.end());
        return last.size() == size && last[2] == 0x12 ? last : SentBytes{};
    }
    std::string LastTitle() const { return world.Shown.back().Title; }
};

/// By hand: code 104212 on channel 3.
const SentBytes Login{0x02, 0x14, 0x04, 0x00, 0x0A, 0x10, 0x01, 0x11, 0x00, 0x33, 0x88,
                      0x01, 0x00, 0x00, 0x1A, 0x42, 0x12, 0xEE, 0x03, 0xAA, 0x55, 0x21};

TEST_F(F17_Code, opens_over_the_lock_grid_with_its_words_and_empty_boxes) {
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_EQ(Dialog().Fenster.Title(), "L85");
    EXPECT_EQ(Dialog().Label1.Text(), "L132");
    EXPECT_EQ(Dialog().Label2.Text(), "L133");
    EXPECT_EQ(Dialog().Label3.Text(), "L134");
    EXPECT_EQ(Dialog().Command1.Text(), "L84");
    EXPECT_EQ(Dialog().Command2.Text(), "L83");
    EXPECT_EQ(Dialog().Schloss.Text(), "Schloss 1: Tor");
    EXPECT_EQ(Dialog().Text1.Text(), "");
    EXPECT_EQ(Dialog().Text1.MaxLength, 6);
}

TEST_F(F17_Code, shows_a_star_for_each_character_and_takes_no_seventh) {
    Old("10A2+_9");
    EXPECT_EQ(Dialog().Text1.Text(), "******");
    EXPECT_EQ(Dialog().Text1.Caret(), 6);
    Dialog().Text1_KeyPress(Key::Backspace);
    EXPECT_EQ(Dialog().Text1.Text(), "*****");
    New("1 ?");
    EXPECT_EQ(Dialog().Text2.Text(), "*") << "a key that stands for no digit";
}

TEST_F(F17_Code, sends_the_login_that_checks_the_old_code_and_shows_the_wait_box) {
    Change("104212", "100000", "100000");
    EXPECT_EQ(Sent(), Login);
    EXPECT_EQ(Lauf().Chain.CodeChangePending, 0xFF);
    EXPECT_TRUE(Box().Fenster.Visible);
    EXPECT_EQ(Box().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L138");
    EXPECT_TRUE(Dialog().Fenster.Visible);
}

TEST_F(F17_Code, sends_the_change_when_the_login_was_answered_and_comes_back_to_the_lock_grid) {
    Change("104212", "100000", "100000");
    Say(0x04, 4);
    // By hand: 0x33 twice, old code, filler, new code, filler.
    const SentBytes change{0x02, 0x19, 0x12, 0x00, 0x0A, 0x10, 0x01, 0x11, 0x00, 0x33, 0x88, 0x01, 0x00, 0x00,
                           0x33, 0x33, 0x1A, 0x42, 0x12, 0xEE, 0xEE, 0x1A, 0xAA, 0xAA, 0xEE, 0xEE, 0x5A};
    EXPECT_EQ(LastChange(), change);
    EXPECT_EQ(Sent().size(), Login.size() + change.size());
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
}

TEST_F(F17_Code, any_status_of_the_login_leads_on) {
    for (const int status : {1, 2, 3, 0, 77}) {
        Change("104212", "100000", "100000");
        Say(0x04, static_cast<std::uint8_t>(status));
        EXPECT_NE(LastChange(), SentBytes{}) << status;
        Click(1, F13Column::Code);
        Before = world.Written.size();
    }
}

TEST_F(F17_Code, the_digit_0_goes_out_as_nibble_0xA) {
    Change("100000", "104212", "104212");
    const SentBytes sent = Sent();
    EXPECT_EQ(SentBytes(sent.begin() + 14, sent.begin() + 17), (SentBytes{0x1A, 0xAA, 0xAA}));
    Say(0x04, 4);
    const SentBytes change = LastChange();
    ASSERT_FALSE(change.empty());
    EXPECT_EQ(SentBytes(change.begin() + 16, change.begin() + 19), (SentBytes{0x1A, 0xAA, 0xAA}));
    EXPECT_EQ(SentBytes(change.begin() + 21, change.begin() + 24), (SentBytes{0x1A, 0x42, 0x12}));
}

TEST_F(F17_Code, an_old_code_of_5_characters_first_connects_waits_for_the_reply_and_then_says_line_70) {
    Change("10421", "100000", "100000");
    const SentBytes sent = Sent();
    ASSERT_EQ(sent.size(), Login.size());
    EXPECT_EQ(SentBytes(sent.begin() + 14, sent.begin() + 17), (SentBytes{0x1A, 0x42, 0x1A}));
    world.RunFor(30000);
    EXPECT_EQ(world.Shown.size(), 0U);
    Expect(70);
    Say(0x04, 4);
    EXPECT_EQ(LastTitle(), CodeChangeTitle);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_EQ(Sent().size(), Login.size()) << "nothing else goes out";
}

TEST_F(F17_Code, a_new_code_of_5_characters_is_line_141_and_another_repeat_line_140) {
    Change("104212", "10000", "10000");
    Expect(141);
    Say(0x04, 4);
    EXPECT_EQ(LastTitle(), CodeChangeTitle);
    New("1");
    Again("2");
    Dialog().Command1_Click();
    Expect(140);
    Say(0x04, 4);
    EXPECT_EQ(LastTitle(), CodeChangeTitle);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_EQ(LastChange(), SentBytes{});
}

TEST_F(F17_Code, letters_are_accepted_in_all_three_boxes_and_compared_as_digits) {
    Change("a0gc1B", "ABCabc", "222222");
    const SentBytes sent = Sent();
    EXPECT_EQ(SentBytes(sent.begin() + 14, sent.begin() + 17), (SentBytes{0x2A, 0x42, 0x12}));
    Say(0x04, 4);
    const SentBytes change = LastChange();
    ASSERT_FALSE(change.empty());
    EXPECT_EQ(SentBytes(change.begin() + 21, change.begin() + 24), (SentBytes{0x22, 0x22, 0x22}));
}

TEST_F(F17_Code, return_in_the_third_box_acts_as_OK_when_that_is_full) {
    Old("104212");
    New("100000");
    Again("10000");
    Dialog().Text3_KeyPress(Key::Enter);
    EXPECT_EQ(Sent(), SentBytes{});
    Again("0");
    Dialog().Text3_KeyPress(Key::Enter);
    EXPECT_EQ(Sent(), Login);
}

TEST_F(F17_Code, OK_and_keys_do_nothing_while_the_login_is_awaited) {
    Change("104212", "100000", "100000");
    Dialog().Command1_Click();
    Dialog().Text3_KeyPress(Key::Enter);
    Dialog().Text1_KeyPress(Key::Backspace);
    EXPECT_EQ(Sent(), Login);
    EXPECT_EQ(Dialog().Text1.Text(), "******");
    EXPECT_FALSE(Dialog().Command1.Enabled);
}

TEST_F(F17_Code, no_reply_but_that_of_the_login_leads_on_while_it_is_awaited) {
    Change("104212", "100000", "100000");
    for (const int code : {0x03, 0x05, 0x07, 0x09, 0x12, 0x15, 0x27, 0x28, 0x29, 0x3D, 0x49}) {
        Say(static_cast<std::uint8_t>(code), 4);
        EXPECT_EQ(Sent(), Login) << code;
    }
    Say(0x04, 4);
    EXPECT_NE(LastChange(), SentBytes{});
}

TEST_F(F17_Code, a_device_that_does_not_answer_is_given_up_after_36_seconds_and_nothing_is_sent) {
    Change("104212", "100000", "100000");
    world.RunFor(35999);
    EXPECT_TRUE(Box().Fenster.Visible);
    Expect(70);
    world.RunFor(1);
    EXPECT_EQ(LastTitle(), CodeChangeTitle);
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_TRUE(Dialog().Command1.Enabled);
    EXPECT_EQ(Lauf().Chain.CodeChangePending, 0);
    Say(0x04, 4); // too late
    EXPECT_EQ(Sent(), Login);
    Dialog().Command1_Click();
    EXPECT_EQ(Sent().size(), 2 * Login.size()) << "it can be tried again";
}

TEST_F(F17_Code, a_wait_over_midnight_is_as_long) {
    world.RunFor((13 * 3600 + 29 * 60 + 50) * 1000); // 23:59:50
    Change("104212", "100000", "100000");
    world.RunFor(35999);
    EXPECT_TRUE(Box().Fenster.Visible);
    Expect(70);
    world.RunFor(1);
    EXPECT_FALSE(Box().Fenster.Visible);
}

TEST_F(F17_Code, a_refusal_of_the_login_is_told_once_and_the_window_stays) {
    Change("104212", "100000", "100000");
    Expect(67);
    Refuse(0x64);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_TRUE(Dialog().Command1.Enabled);
    world.RunFor(60000); // no time-out behind it
    EXPECT_EQ(Sent(), Login);
}

TEST_F(F17_Code, a_lock_on_another_channel_is_searched_and_each_try_begins_the_search_anew) {
    Dialog().Command2_Click();
    files.Channel(1, "7", "3", "1");
    Click(1, F13Column::Code);
    Before = world.Written.size();
    Change("104212", "100000", "100000");
    EXPECT_EQ(Sent().at(18), 3);
    for (int channel = 1; channel <= 12; ++channel) {
        Refuse(0x64);
        EXPECT_EQ(programm->link.TargetChannel, channel);
    }
    Expect(67);
    Refuse(0x64);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    Before = world.Written.size();
    Dialog().Command1_Click();
    EXPECT_EQ(Sent().at(18), 3);
    Refuse(0x64);
    EXPECT_EQ(programm->link.TargetChannel, 1);
    Say(0x04, 4);
    EXPECT_NE(LastChange(), SentBytes{});
}

TEST_F(F17_Code, the_button_of_the_wait_box_ends_the_wait_and_leaves_the_window) {
    Change("104212", "100000", "100000");
    Box().Command1_Click();
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    Say(0x04, 4);
    world.RunFor(60000);
    EXPECT_EQ(Sent(), Login);
}

TEST_F(F17_Code, the_wait_box_says_that_the_adapter_was_pulled_out) {
    Change("104212", "100000", "100000");
    world.PortOpen = false;
    world.RunFor(1000);
    EXPECT_EQ(Box().Text.Text(),
              "Der Funkadapter wurde getrennt. Bitte stecken Sie ihn wieder an, und wiederholen Sie den Vorgang.");
    Expect(70);
    world.RunFor(35000);
    EXPECT_FALSE(Box().Fenster.Visible);
}

TEST_F(F17_Code, without_a_port_nothing_waits) {
    world.PortOpen = false;
    world.PortCanOpen = false;
    Old("104212");
    Expect(276);
    Dialog().Command1_Click();
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_EQ(Lauf().Chain.CodeChangePending, 0);
    world.RunFor(60000);
}

TEST_F(F17_Code, cancel_clears_the_boxes_and_ends_the_wait) {
    Change("104212", "100000", "100000");
    Dialog().Command2_Click();
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_EQ(Dialog().Text1.Text(), "");
    EXPECT_EQ(Dialog().Text3.Text(), "");
    Say(0x04, 4);
    world.RunFor(60000);
    EXPECT_EQ(Sent(), Login);
}

TEST_F(F17_Code, each_status_of_the_change_has_its_message) {
    const std::vector<std::pair<int, std::string>> texts{{1, "L70  -  Codechange_Error_0x01"},
                                                         {2, "L71  -  Codechange_Error_0x02"},
                                                         {3, "L111  -  Codechange_Error_0x03"},
                                                         {4, "L204"},
                                                         {0, "L70"},
                                                         {5, "L70"}};
    for (const auto& [status, text] : texts) {
        Change("104212", "100000", "100000");
        Say(0x04, 4);
        world.Answers.push_back({.Text = text});
        Say(0x12, static_cast<std::uint8_t>(status));
        EXPECT_EQ(LastTitle(), CodeChangeTitle);
        EXPECT_EQ(Dialog().Ergebnis, status == 4 ? CodeOutcome::Changed : CodeOutcome::Refused);
        EXPECT_EQ(world.Shown.back().Sign, status == 4 ? Icon::Information : Icon::Exclamation);
        EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
        Click(1, F13Column::Code);
    }
}

TEST_F(F17_Code, a_change_that_nobody_confirms_is_told_after_36_seconds) {
    Change("104212", "100000", "100000");
    Say(0x04, 4);
    world.RunFor(35998);
    EXPECT_TRUE(world.Shown.empty());
    world.Answers.push_back({.Text = std::string(Unconfirmed)});
    world.RunFor(2);
    EXPECT_EQ(LastTitle(), CodeChangeTitle);
    Say(0x12, 4); // too late
    world.RunFor(60000);
}

TEST_F(F17_Code, a_change_that_nobody_confirms_is_told_whatever_was_sent_meanwhile) {
    Change("104212", "100000", "100000");
    Say(0x04, 4);
    world.RunFor(10000);
    TelFingerAbfrage_Senden(programm->link, 0, 0);
    const std::uint8_t other = programm->link.AnswerDue;
    ASSERT_EQ(other, 0xA3);
    world.Answers.push_back({.Text = std::string(Unconfirmed)});
    world.RunFor(26000);
    ASSERT_EQ(world.Shown.size(), 1U);
    EXPECT_EQ(LastTitle(), CodeChangeTitle);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Unconfirmed);
    EXPECT_EQ(programm->link.AnswerDue, other) << "its own answer is still owed";
}

TEST_F(F17_Code, a_change_that_nobody_confirms_is_told_while_the_next_login_is_awaited) {
    Change("104212", "100000", "100000");
    Say(0x04, 4);
    Click(1, F13Column::Code);
    world.RunFor(20000);
    Change("104212", "100000", "100000");
    world.Answers.push_back({.Text = std::string(Unconfirmed)});
    world.RunFor(16000);
    EXPECT_EQ(world.Shown.size(), 1U);
    EXPECT_TRUE(Box().Fenster.Visible);
    Before = world.Written.size();
    Say(0x04, 4);
    EXPECT_NE(LastChange(), SentBytes{});
}

TEST_F(F17_Code, says_as_data_why_the_change_did_not_go_out) {
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Open);
    Change("104212", "10000", "10000");
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Open);
    Expect(141);
    Say(0x04, 4);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Incomplete);
    New("1");
    Again("2");
    Dialog().Command1_Click();
    Expect(140);
    Say(0x04, 4);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Different);
    Dialog().Command1_Click();
    Expect(68);
    Refuse(0x65);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Refused);
    Dialog().Command1_Click();
    Expect(67);
    Refuse(0x64);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Silent);
    Dialog().Command1_Click();
    Box().Command1_Click();
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Cancelled);
    Dialog().Command1_Click();
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Open) << "each try is a new one";
    Expect(70);
    world.RunFor(36000);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Silent);
    world.PortOpen = world.PortCanOpen = false;
    Expect(276);
    Dialog().Command1_Click();
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Unsent);
}

TEST_F(F17_Code, a_change_that_its_adapter_could_not_hand_over_is_told_as_unconfirmed) {
    Change("104212", "100000", "100000");
    Say(0x04, 4);
    world.Answers.push_back({.Text = std::string(Unconfirmed)});
    Expect(67);
    Refuse(0x64);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Unconfirmed);
    world.RunFor(60000);
    EXPECT_EQ(world.Shown.size(), 2U) << "once";
    Click(1, F13Column::Code);
    Change("104212", "100000", "100000");
    Say(0x04, 4);
    Expect(68);
    Refuse(0x65);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Refused);
}

TEST_F(F17_Code, of_a_change_no_secret_is_left_once_it_was_answered) {
    Change("104212", "100000", "100000");
    Say(0x04, 4);
    world.Answers.push_back({.Text = "L204"});
    Say(0x12, 4);
    EXPECT_EQ(Lauf().Order.AdminCode, Secret<3>{});
    EXPECT_EQ(programm->link.TxBuffer, (decltype(programm->link.TxBuffer){}));
    EXPECT_TRUE(programm->link.TxWire.empty());
}

TEST_F(F17_Code, of_a_change_that_nobody_answered_leaves_a_scan_its_code) {
    Change("104212", "100000", "100000");
    Say(0x04, 4);
    world.RunFor(30000);
    ChannelScan& scan = programm->Locks->Scan;
    RunOrder order;
    order.AdminCode = AdminCodeBytes{0x12, 0x34, 0x56};
    ASSERT_TRUE(Kanaele_Absuchen(scan, ScanWay::Logins, order, ""));
    world.Answers.push_back({.Text = std::string(Unconfirmed)});
    world.RunFor(10000);
    EXPECT_EQ(world.Shown.size(), 1U);
    EXPECT_TRUE(scan.Laeuft);
    EXPECT_EQ(Lauf().Order.AdminCode, order.AdminCode);
    Absuchen_Abbrechen(scan);
    EXPECT_EQ(Lauf().Order.AdminCode, Secret<3>{});
}

TEST_F(F17_Code, of_a_check_that_failed_no_secret_is_left) {
    Change("104212", "10000", "10000");
    Expect(141);
    Say(0x04, 4);
    EXPECT_EQ(Lauf().Order.AdminCode, Secret<3>{});
    EXPECT_TRUE(programm->link.TxWire.empty());
}

TEST_F(F17_Code, another_language_reaches_the_open_window) {
    programm->kern.Sprache.LanguageText[132] = "Old code :";
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(Dialog().Label1.Text(), "Old code :");
}

} // namespace
} // namespace qvm::test
