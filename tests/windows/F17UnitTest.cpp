// The change of a unit's code, from the menu of its row: what goes out, what comes back, how it ends.

#include "F12Fixture.h"
#include "F17Hand.h"
#include "SeriellesProtokoll.h"
#include "Text.h"

#include <vector>

namespace qvm::test {
namespace {

using UnitBytes = std::vector<std::uint8_t>;

// By hand: unit 01.60.00.05 on channel 7, codes 104212 and 100000; the system is on channel 3, and a 0x02 is stuffed.
const UnitBytes UnitLogin{0x02, 0x14, 0x04, 0x01, 0x60, 0x00, 0x05, 0x11, 0x01, 0x33, 0x88,
                          0x01, 0x00, 0x00, 0x1A, 0x42, 0x12, 0xEE, 0x07, 0xAA, 0x55, 0x92};
const UnitBytes UnitChange{0x02, 0x19, 0x12, 0x01, 0x60, 0x00, 0x05, 0x11, 0x01, 0x33, 0x88, 0x01, 0x00, 0x00,
                           0x33, 0x33, 0x1A, 0x42, 0x12, 0xEE, 0xEE, 0x1A, 0xAA, 0xAA, 0xEE, 0xEE, 0x86};
const UnitBytes ChannelRead{0x02, 0x0E, 0x28, 0x01, 0x60, 0x00, 0x05, 0x11, 0x01,
                            0x33, 0x88, 0x01, 0x00, 0x00, 0x02, 0x00, 0x15};
const UnitBytes ChannelAct{0x02, 0x0E, 0x66, 0x01, 0x60, 0x00, 0x05, 0x11, 0x01,
                           0x33, 0x88, 0x01, 0x00, 0x00, 0x02, 0x00, 0xF8};
const UnitBytes ChannelSet{0x02, 0x0E, 0x29, 0x01, 0x60, 0x00, 0x05, 0x11, 0x01,
                           0x33, 0x88, 0x01, 0x00, 0x00, 0x02, 0x00, 0x25};
const UnitBytes Farewell{0x02, 0x0D, 0x05, 0x01, 0x60, 0x00, 0x05, 0x11, 0x01, 0x33, 0x88, 0x01, 0x00, 0x00, 0x60};

struct F17_Unit : F17Hand<F12Fixture> {
    std::size_t Before = 0;

    void SetUp() override {
        files.Lock(2, "Lager", "00.0B.10.02");
        files.Reception(2, '2', '0', '0', 0, 0, 0, '0', "000");
        files.Unit(2, 1, "Tastatur", "01600005", '1', "7");
        files.Unit(2, 4, "Zweimal", "01600005", '1', "1");
        Start();
        programm->Transfer->F17_Anbieten();
        Window().F12_FormLaden();
        Window().Auswahl.Go(2, 2);
        Window().SNA_Function_Click();
        Ask();
    }
    struct F20& Units20() {
        return programm->Locks->F20;
    }
    ChainState& Chain() { return Lauf().Chain; }
    /// The window for the unit in row 1.
    void Ask() {
        Units20().Auswahl.Go(1, 2);
        Units20().SN_Codechange_Click();
        Before = world.Written.size();
    }
    void Change(std::string_view oldCode = "104212", std::string_view newCode = "100000") {
        Keys(&F17::Text1_KeyPress, oldCode);
        Keys(&F17::Text2_KeyPress, newCode);
        Keys(&F17::Text3_KeyPress, newCode);
        Dialog().Command1_Click();
    }
    /// What has gone out since this was asked last.
    UnitBytes Sent() {
        UnitBytes bytes(world.Written.begin() + static_cast<std::ptrdiff_t>(Before), world.Written.end());
        Before = world.Written.size();
        return bytes;
    }
    /// Mode, always on, two fields of the record.
    std::string Head() { return File(Units).substr(241, 5); }
    void ExpectText(std::string_view text) { world.Answers.push_back({.Text = std::string(text)}); }
    void ExpectUnmoved() { ExpectText(Wort(programm->kern, Word::UnitNotMoved, {"01.60.00.05", "3"})); }
    /// The change was taken, and the session goes on as far as the reply with this code: 0x12, 0x28, 0x29.
    void Until(std::uint8_t reply) {
        Change();
        Say(0x04, 4);
        Say(0x12, 4);
        if (reply >= 0x28) {
            Say(0x28);
            world.RunFor(10);
        }
        if (reply >= 0x29) {
            Say(0x29);
        }
        Sent();
    }
    /// No mark of the session is left, and the unit window is as before.
    void ExpectClean(std::string_view unitNo = "7") {
        EXPECT_EQ(Chain().LaufZiel, "");
        EXPECT_EQ(Chain().CodeChangePending, 0);
        EXPECT_EQ(Chain().KanalIndex, 0);
        EXPECT_EQ(programm->link.AddressMode, 0);
        EXPECT_EQ(programm->link.AnswerDue, 0);
        EXPECT_EQ(Lauf().Order.AdminCode, Secret<3>{});
        EXPECT_FALSE(programm->Run.Timer8.Running());
        EXPECT_FALSE(Dialog().Bestaetigung.Running());
        EXPECT_FALSE(Dialog().Frist.Running());
        EXPECT_FALSE(Box().Fenster.Visible);
        EXPECT_TRUE(Units20().Fenster.Enabled);
        EXPECT_EQ(Units20().FGK20.Text(1, UnitColumn::UnitNo), unitNo);
    }
};

TEST_F(F17_Unit, opens_over_the_units_and_names_the_one_that_is_meant) {
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_FALSE(Units20().Fenster.Enabled);
    EXPECT_EQ(Dialog().Schloss.Text(), "Funkeinheit: 01.60.00.05");
    EXPECT_EQ(Chain().LaufZiel, "F20");
    EXPECT_EQ(Sent(), UnitBytes{}) << "the login carries the channel";
    Change();
    EXPECT_EQ(Box().Schloss.Text(), "Funkeinheit: 01.60.00.05");
}

TEST_F(F17_Unit, gets_its_code_and_moves_to_the_systems_channel_telegram_by_telegram) {
    Change();
    EXPECT_EQ(Sent(), UnitLogin);
    Say(0x04, 4);
    EXPECT_EQ(Sent(), UnitChange);
    EXPECT_EQ(Chain().LaufZiel, "F22");
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_TRUE(Units20().Fenster.Enabled);
    EXPECT_EQ(Units20().Hinweis.Text(), Wort(programm->kern, Word::UnitMoving));
    Say(0x12, 4);
    EXPECT_EQ(Sent(), ChannelRead);
    EXPECT_EQ(Lauf().Order.AdminCode, Secret<3>{});
    Say(0x28);
    EXPECT_EQ(Sent(), ChannelAct);
    world.RunFor(8);
    EXPECT_EQ(Sent(), UnitBytes{});
    world.RunFor(1);
    EXPECT_EQ(Sent(), ChannelSet);
    Say(0x29);
    EXPECT_EQ(Sent(), Farewell);
    Expect(204);
    Say(0x05);
    EXPECT_EQ(world.Shown.back().Sign, Icon::Information);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Changed);
    ExpectClean("3");
    EXPECT_EQ(Units20().FGK20.Text(4, UnitColumn::UnitNo), "3") << "each row with its serial number";
    EXPECT_EQ(Units20().Hinweis.Text(), Wort(programm->kern, Word::UnitMoved, {"01.60.00.05", "3"}));
    EXPECT_EQ(Units20().Verlauf.Steps(), 0U) << "no step to be undone";
    EXPECT_EQ(File(Units).substr(241 + 16 + 43, 2), "3 ") << "and its record says so at once";
    EXPECT_EQ(File(Units).substr(241 + 151 + 43, 2), "3 ");
    EXPECT_EQ(Head(), "200  ") << "and nothing else of it";
    world.RunFor(60000);
    EXPECT_EQ(Sent(), UnitBytes{});
}

TEST_F(F17_Unit, on_another_channel_is_looked_for_on_all_twelve_and_each_try_begins_anew) {
    for (int round = 0; round < 2; ++round) {
        round == 0 ? Change() : Dialog().Command1_Click();
        EXPECT_EQ(Sent().at(18), 7);
        for (int channel = 1; channel <= 12; ++channel) {
            Refuse(0x64);
            EXPECT_EQ(programm->link.TargetChannel, channel);
            const UnitBytes login = Sent();
            ASSERT_GT(login.size(), 18U) << channel;
            EXPECT_EQ(login[2], 0x04) << channel;
        }
        Expect(67);
        Refuse(0x64);
        EXPECT_EQ(Sent(), UnitBytes{});
        EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Silent);
        EXPECT_TRUE(Dialog().Fenster.Visible);
        EXPECT_FALSE(Box().Fenster.Visible);
    }
    EXPECT_EQ(world.Disk.Files.count(Channels), 0U) << "no lock is told to have lost its channel";
    Dialog().Command2_Click();
    ExpectClean();
}

TEST_F(F17_Unit, on_the_last_channel_is_found_though_each_of_the_others_takes_three_seconds) {
    Change();
    for (int channel = 1; channel <= 12; ++channel) {
        world.RunFor(2998);
        Refuse(0x64);
        ASSERT_EQ(programm->link.TargetChannel, channel);
    }
    world.RunFor(2998); // nearly 39 s behind the login on its own channel
    Sent();
    Say(0x04, 4);
    EXPECT_EQ(Sent(), UnitChange);
}

TEST_F(F17_Unit, that_is_looked_for_on_a_silent_channel_is_given_up_when_the_time_of_all_twelve_is_over) {
    Change();
    world.RunFor(9999);
    Refuse(0x64);
    world.RunFor(4999);
    Refuse(0x64);
    world.RunFor(30998); // 10 s of the first login, and 36 s for the walk
    EXPECT_TRUE(Box().Fenster.Visible);
    Expect(70);
    world.RunFor(1);
    EXPECT_FALSE(Box().Fenster.Visible);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Silent);
}

TEST_F(F17_Unit, whose_login_is_refused_is_told_so_once_and_the_window_stays) {
    for (const std::uint8_t reason : {std::uint8_t{0x65}, std::uint8_t{0x67}, std::uint8_t{0x66}, std::uint8_t{0x6A}}) {
        Change();
        Sent();
        Expect(68);
        Refuse(reason);
        EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Refused);
        EXPECT_TRUE(Dialog().Fenster.Visible);
        EXPECT_FALSE(Box().Fenster.Visible);
        EXPECT_EQ(Sent(), UnitBytes{});
        Dialog().Command2_Click();
        ExpectClean();
        Ask();
    }
    world.RunFor(60000);
}

TEST_F(F17_Unit, that_gives_no_reason_is_waited_for) {
    Change();
    Refuse(0x68);
    Refuse(0x69);
    Say(0x04, 4);
    EXPECT_EQ(Chain().LaufZiel, "F22");
}

TEST_F(F17_Unit, with_a_wrong_old_code_says_so_and_stays_where_it_is) {
    for (const auto& [status, text] :
         std::vector<std::pair<std::uint8_t, std::string>>{{1, "L70  -  Codechange_Error_0x01"},
                                                           {2, "L71  -  Codechange_Error_0x02"},
                                                           {3, "L111  -  Codechange_Error_0x03"},
                                                           {9, "L70"}}) {
        Change();
        Say(0x04, 1);
        ExpectText(text);
        Sent();
        Say(0x12, status);
        EXPECT_EQ(Sent(), UnitBytes{});
        EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Refused);
        ExpectClean();
        Ask();
    }
}

TEST_F(F17_Unit, whose_change_is_refused_is_told_once) {
    Change();
    Say(0x04, 4);
    Expect(68);
    Refuse(0x65);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Refused);
    ExpectClean();
    Ask();
    Change();
    Say(0x04, 4);
    ExpectText(Wort(programm->kern, Word::CodeUnanswered));
    Refuse(0x64); // the unit may have got it
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Unconfirmed);
    ExpectClean();
    world.RunFor(60000);
}

TEST_F(F17_Unit, that_says_nothing_to_the_change_is_told_as_not_confirmed) {
    Change();
    Say(0x04, 4);
    ExpectText(Wort(programm->kern, Word::CodeUnanswered));
    world.RunFor(36000);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Unconfirmed);
    ExpectClean();
}

TEST_F(F17_Unit, that_does_not_confirm_its_move_has_its_code_and_that_is_told) {
    for (const std::uint8_t last : {std::uint8_t{0x12}, std::uint8_t{0x28}}) {
        for (const bool refused : {false, true}) {
            Until(last);
            ExpectUnmoved();
            refused ? Refuse(0x64) : world.RunFor(36000);
            EXPECT_EQ(world.Answers.size(), 0U);
            EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Unmoved);
            ExpectClean();
            EXPECT_EQ(Units20().Hinweis.Text(), "");
            Ask();
        }
    }
}

TEST_F(F17_Unit, that_does_not_say_goodbye_has_moved_all_the_same) {
    for (const bool refused : {false, true}) {
        Until(0x29);
        Expect(204);
        refused ? Refuse(0x64) : world.RunFor(36000);
        EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Changed);
        ExpectClean("3");
        Units20().FGK20.SetText(1, UnitColumn::UnitNo, "7");
        Ask();
    }
}

TEST_F(F17_Unit, that_is_busy_at_its_farewell_is_asked_39_times_more) {
    Until(0x29);
    for (int n = 1; n < 40; ++n) {
        Refuse(0x67);
        EXPECT_EQ(Sent(), Farewell) << n;
    }
    Expect(204);
    Refuse(0x67);
    EXPECT_EQ(Sent(), UnitBytes{});
    ExpectClean("3");
}

TEST_F(F17_Unit, that_refuses_for_no_reason_is_waited_for_at_each_step) {
    Change();
    Say(0x04, 4);
    Refuse(0x68);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Open);
    Say(0x12, 4);
    Refuse(0x69);
    Say(0x28);
    world.RunFor(10);
    Refuse(0x6B);
    Say(0x29);
    Refuse(0x00);
    Expect(204);
    Say(0x05);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Changed);
    ExpectClean("3");
}

TEST_F(F17_Unit, is_led_on_by_no_reply_that_nobody_asked_for) {
    Change();
    Say(0x04, 4);
    Sent();
    for (const int noise : {0x03, 0x04, 0x05, 0x07, 0x15, 0x27, 0x28, 0x29, 0x3D}) {
        Say(static_cast<std::uint8_t>(noise), 4);
        EXPECT_EQ(Sent(), UnitBytes{}) << noise;
    }
    Say(0x12, 4);
    Sent();
    Say(0x12, 4); // twice
    Say(0x29);
    EXPECT_EQ(Sent(), UnitBytes{});
    EXPECT_EQ(Chain().LaufZiel, "F22");
}

TEST_F(F17_Unit, blocks_the_units_until_it_has_moved) {
    Until(0x28);
    Units20().Command2_Click();
    EXPECT_TRUE(Units20().Fenster.Visible) << "nothing is accepted";
    Units20().SN_Codechange_Click();
    EXPECT_FALSE(Dialog().Fenster.Visible);
    Units20().Keypad_Suchen = Units20().Readunit_Suchen = [](int) { FAIL() << "a scan"; };
    Units20().F20_Keypad_Click();
    Units20().F20_Readunit_Click();
    EXPECT_EQ(Units20().Hinweis.Text(), Wort(programm->kern, Word::UnitMoving));
    Say(0x29);
    Expect(204);
    Say(0x05);
    Units20().Command2_Click();
    EXPECT_FALSE(Units20().Fenster.Visible);
    EXPECT_EQ(File(Units).substr(241 + 16 + 43, 2), "3 ") << "and its channel is kept";
}

TEST_F(F17_Unit, left_in_its_session_is_told_goodbye_and_so_is_the_operator) {
    struct Step {
        std::uint8_t Last;
        bool Farewell;
    };
    for (const Step step : {Step{0x04, true}, Step{0x12, true}, Step{0x28, true}, Step{0x29, false}}) {
        if (step.Last == 0x04) {
            Change();
            Say(0x04, 4);
            Sent();
            ExpectText(Wort(programm->kern, Word::CodeUnanswered));
        } else {
            Until(step.Last);
            step.Last == 0x29 ? Expect(204) : ExpectUnmoved();
        }
        Units20().Command1_Click();
        EXPECT_EQ(world.Answers.size(), 0U) << int{step.Last};
        EXPECT_EQ(Sent(), step.Farewell ? Farewell : UnitBytes{}) << int{step.Last};
        EXPECT_FALSE(Units20().Fenster.Visible);
        EXPECT_EQ(Chain().LaufZiel, "");
        EXPECT_EQ(programm->link.AddressMode, 0);
        Say(0x05); // too late for everybody
        world.RunFor(60000);
        EXPECT_EQ(Sent(), UnitBytes{}) << int{step.Last};
        Window().Auswahl.Go(2, 2);
        Window().SNA_Function_Click();
        Ask();
    }
}

TEST_F(F17_Unit, cancelled_before_the_change_leaves_nothing_behind) {
    Dialog().Command2_Click();
    ExpectClean();
    Ask();
    Change();
    Dialog().Command2_Click();
    ExpectClean();
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Visible);
    Ask();
    Change();
    Refuse(0x64);
    Refuse(0x64);
    Box().Command1_Click();
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Cancelled);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    Sent();
    Say(0x04, 4);
    EXPECT_EQ(Sent(), UnitBytes{}) << "too late";
    Dialog().Command2_Click();
    ExpectClean();
}

TEST_F(F17_Unit, whose_port_is_gone_at_the_login_or_the_change_is_told_and_can_be_tried_again) {
    world.PortOpen = world.PortCanOpen = false;
    Expect(276);
    Change();
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Unsent);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    world.PortCanOpen = true;
    Dialog().Command1_Click();
    EXPECT_EQ(Sent(), UnitLogin);
    Dialog().Command2_Click();
    ExpectClean();
}

TEST_F(F17_Unit, without_an_adapter_for_programming_is_line_195) {
    Dialog().Command2_Click();
    programm->kern.Config.PortAutomatik = "SET";
    programm->Adapter.ProgStationPort = KeinPort;
    Expect(195);
    Ask();
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_TRUE(Units20().Fenster.Enabled);
    programm->Adapter.ProgStationPort = 5;
    Ask();
    EXPECT_TRUE(Dialog().Fenster.Visible);
}

TEST_F(F17_Unit, with_a_serial_number_that_is_none_is_not_asked) {
    Dialog().Command2_Click();
    Units20().FGK20.SetText(1, UnitColumn::Serial, "01.60.00");
    ExpectText("Wrong Modul");
    Ask();
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_TRUE(Units20().Fenster.Enabled);
}

TEST_F(F17_Unit, the_question_behind_a_new_unit_leads_there_too_and_waits_for_one_that_moves) {
    Until(0x12);
    ASSERT_TRUE(Units20().Unit_Uebernehmen(2, "0160000A", ""));
    world.RunFor(2000);
    EXPECT_TRUE(world.Shown.empty());
    Say(0x28);
    world.RunFor(10);
    Say(0x29);
    Expect(204);
    Say(0x05);
    Expect(202, Answer::Yes);
    world.RunFor(500);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_EQ(Dialog().Schloss.Text(), "Funkeinheit: 01.60.00.0A");
    Sent();
    Change();
    EXPECT_EQ(Sent().at(18), 1) << "where a new one listens";
}

TEST_F(F17_Unit, is_forgotten_when_a_locks_code_follows) {
    Dialog().Command2_Click();
    Dialog().F17_FormLoad();
    EXPECT_EQ(Dialog().Schloss.Text().find("Funkeinheit"), std::string::npos);
}

} // namespace
} // namespace qvm::test
