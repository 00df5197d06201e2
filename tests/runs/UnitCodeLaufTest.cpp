// The change of a unit's code and its move, with the virtual unit at the other end.

#include "LockWindows.h"
#include "RunFixture.h"
#include "Text.h"
#include "Words.h"

namespace qvm::test {
namespace {

constexpr std::array<std::uint8_t, 3> FactoryCode{0x12, 0x34, 0x56}, SiteCode{0x65, 0x43, 0x2A};
constexpr std::string_view NewSerial = "01.60.00.05";
/// Telegrams to devices of a whole change, as faults count them.
constexpr int LoginStep = 0, ChangeStep = 1, ReadStep = 2, SetStep = 4, FarewellStep = 5, Steps = 6;

/// A lock of the site on the system's channel 7, and its new unit on channel 1 with the code that it came with.
struct Run_UnitCode : RunFixture {
    Run_UnitCode() {
        world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n7\r\n";
        VirtualLock& lock = AddLock(1, "Tresor", Serial::S, " XXX ");
        files.Channel(1, "7", "7", "0");
        lock.AdminCode = SiteCode;
        lock.Channel = 7;
        files.Emi(1, ' ');
        files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
        AddUnit("01600005", 1);
    }
    struct F20& Units20() {
        return programm->Locks->F20;
    }
    F17& Dialog() { return programm->Transfer->F17; }
    VirtualUnit& Unit() { return *system->FindUnit(AddressOf(NewSerial)); }
    void Open() {
        files.Unit(1, 1, "Tastatur", "01600005", '1', ""); // as before the last change
        Begin();
        programm->Transfer->F17_Anbieten();
        programm->Transfer->F13.F13_Schliessen();
        Show();
    }
    void Show() {
        programm->Locks->F12.F12_FormLaden();
        programm->Locks->F12.Auswahl.Go(1, 2);
        programm->Locks->F12.SNA_Function_Click();
        Units20().Auswahl.Go(1, 2);
    }
    /// Up to the click on OK, from the menu of the unit's row.
    void Ask(std::string_view oldCode = "123456") {
        Units20().SN_Codechange_Click();
        Enter(oldCode);
    }
    /// The codes, and OK.
    void Enter(std::string_view oldCode) {
        for (const char key : oldCode) {
            Dialog().Text1_KeyPress(key);
        }
        for (const char key : std::string_view("654320")) {
            Dialog().Text2_KeyPress(key);
            Dialog().Text3_KeyPress(key);
        }
        Dialog().Command1_Click();
    }
    void Change(std::string_view oldCode = "123456") {
        Ask(oldCode);
        world.RunFor(5000);
    }
    /// The unit that a scan of the channels hears goes into row 1.
    void TakeFromTheAir() {
        LockWindows& windows = *programm->Locks;
        windows.Suche_Anbieten();
        Units20().F20_Keypad_Click();
        ASSERT_TRUE(world.RunUntil([&windows]() -> bool { return windows.F19.Fenster.Visible; }, 60000));
        windows.F19.Command2_Click();
        EXPECT_EQ(Units20().FGK20.Text(1, UnitColumn::Serial), NewSerial);
    }
    void ExpectText(std::string_view text) { world.Answers.push_back({.Text = std::string(text)}); }
    /// The message of an end at this step.
    void ExpectEnd(int step) {
        if (step == LoginStep) {
            Expect(70);
        } else if (step == ChangeStep) {
            ExpectText(Wort(programm->kern, Word::CodeUnanswered));
        } else if (step < FarewellStep) {
            ExpectText(Wort(programm->kern, Word::UnitNotMoved, {NewSerial, "7"}));
        } else {
            Expect(204);
        }
    }
    static CodeOutcome EndAt(int step) {
        return step == LoginStep     ? CodeOutcome::Silent
               : step == ChangeStep  ? CodeOutcome::Unconfirmed
               : step < FarewellStep ? CodeOutcome::Unmoved
                                     : CodeOutcome::Changed;
    }
    /// No mark is left.
    void ExpectClean() {
        const ChainState& chain = programm->link.Lauf.Chain;
        EXPECT_EQ(chain.LaufZiel, "");
        EXPECT_EQ(chain.CodeChangePending, 0);
        EXPECT_EQ(programm->link.AddressMode, 0);
        EXPECT_EQ(programm->link.Lauf.Order.AdminCode, Secret<3>{});
        EXPECT_FALSE(programm->Transfer->F18.Fenster.Visible);
        EXPECT_EQ(world.Answers.size(), 0U);
    }
    /// The lock is programmed, and its unit with it, by the code of the site.
    void ExpectRunWorks() {
        if (Dialog().Fenster.Visible) {
            Dialog().Command2_Click();
        }
        if (Units20().Fenster.Visible) {
            Units20().Command1_Click();
        }
        programm->Locks->F12.Fenster.Visible = false;
        programm->Transfer->F13.F13_FormLaden();
        programm->Transfer->F13.Timer1.Stop();
        programm->Transfer->F13.Timer2.Stop();
        Program(1, Answer::No, "654320");
        ASSERT_TRUE(Finish());
        EXPECT_EQ(Outcome(), RunOutcome::Done);
        EXPECT_EQ(Unit().Lock, AddressOf(Serial::S));
        EXPECT_EQ(programm->Run.Bericht.Units[0].End, UnitReport::State::Done);
    }
    /// Whatever became of the try before, one more ends well.
    void ExpectAnotherTryWorks() {
        const bool taken = Unit().AdminCode == SiteCode;
        if (!Units20().Fenster.Visible) {
            Show();
        }
        if (Dialog().Fenster.Visible) {
            Dialog().Command2_Click();
        }
        Expect(204);
        Change(taken ? "654320" : "123456");
        ExpectMoved();
        ExpectRunWorks();
    }
    void ExpectMoved() {
        EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Changed);
        EXPECT_EQ(Unit().AdminCode, SiteCode);
        EXPECT_EQ(Unit().Channel, 7);
        EXPECT_EQ(Units20().FGK20.Text(1, UnitColumn::UnitNo), "7");
        ExpectClean();
    }
};

TEST_F(Run_UnitCode, gives_the_unit_its_code_and_the_systems_channel_and_the_locks_run_reaches_it_there) {
    Open();
    Expect(204);
    Change();
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x12, 0x28, 0x66, 0x29, 0x05));
    ExpectMoved();
    EXPECT_EQ(Unit().Sessions, 1);
    Units20().Command1_Click();
    EXPECT_EQ(files.File("T6WRSSISN.TSD").substr(16 + 43, 2), "7 ") << "its record says so whatever is accepted";
    ExpectRunWorks();
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_UnitCode, of_type_2_goes_the_same_way) {
    devices.Units[0].Serial = AddressOf("00.00.20.01");
    devices.Units[0].Type = 2;
    Open();
    Units20().FGK20.SetText(1, UnitColumn::Serial, "00.00.20.01");
    Expect(204);
    Change();
    const VirtualUnit& unit = *system->FindUnit(AddressOf("00.00.20.01"));
    EXPECT_EQ(unit.AdminCode, SiteCode);
    EXPECT_EQ(unit.Channel, 7);
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_UnitCode, behind_a_scan_makes_an_unknown_unit_one_that_the_locks_run_reaches) {
    Open();
    Units20().Auswahl.Go(1, UnitColumn::Name);
    Units20().F20_deleate_Click();
    Units20().Auswahl.Go(1, UnitColumn::Serial);
    TakeFromTheAir();
    EXPECT_EQ(Units20().FGK20.Text(1, UnitColumn::UnitNo), "1");
    Expect(202, Answer::Yes);
    world.RunFor(500);
    ASSERT_TRUE(Dialog().Fenster.Visible);
    Expect(204);
    Enter("123456");
    world.RunFor(5000);
    ExpectMoved();
    Units20().Command2_Click();
    EXPECT_EQ(files.File("T6WRSSISN.TSD").substr(46, 15), "01 60 00 05 17 ") << "serial, class, channel";
    ExpectRunWorks();
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_UnitCode, finds_a_unit_that_listens_elsewhere) {
    devices.Units[0].Channel = 12;
    Open();
    Expect(204);
    Change();
    EXPECT_EQ(system->Counters().DeviceTelegrams, 13 + 5) << "channel 1, then all twelve";
    ExpectMoved();
    ExpectRunWorks();
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_UnitCode, finds_a_unit_on_the_last_channel_with_an_adapter_that_takes_three_seconds_to_refuse) {
    devices.Units[0].Channel = 12;
    devices.ReplyMs = 2950; // 13 logins: 38 s
    Open();
    Ask();
    Expect(204);
    world.RunFor(80000);
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Changed);
    EXPECT_EQ(Unit().AdminCode, SiteCode);
    EXPECT_EQ(Unit().Channel, 7);
    EXPECT_EQ(system->Counters().DeviceTelegrams, 13 + 5) << "channel 1, then all twelve";
    ExpectClean();
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_UnitCode, of_a_unit_that_is_not_there_ends_with_a_message_and_marks_no_lock) {
    devices.Units.clear();
    Open();
    Expect(67);
    Change();
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Silent);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_EQ(files.File("RFCHANDIF12.RFX").find('1'), std::string::npos) << "no channel is to be changed";
    Dialog().Command2_Click();
    ExpectClean();
}

TEST_F(Run_UnitCode, with_a_wrong_old_code_says_so_and_the_unit_stays) {
    Open();
    ExpectText("L70  -  Codechange_Error_0x01");
    Change("123457");
    EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Refused);
    EXPECT_EQ(Unit().AdminCode, FactoryCode);
    EXPECT_EQ(Unit().Channel, 1);
    ExpectClean();
    ExpectAnotherTryWorks();
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_UnitCode, that_the_unit_refuses_is_told_by_its_status_and_the_unit_stays) {
    for (const auto& [status, text] : std::vector<std::pair<std::uint8_t, std::string>>{
             {2, "L71  -  Codechange_Error_0x02"}, {3, "L111  -  Codechange_Error_0x03"}, {9, "L70"}}) {
        devices.Units[0].CodeStatus = status;
        Open();
        ExpectText(text);
        Change();
        EXPECT_EQ(Unit().AdminCode, FactoryCode);
        EXPECT_EQ(Unit().Channel, 1);
        ExpectClean();
        Unit().CodeStatus = 0;
        ExpectAnotherTryWorks();
    }
}

TEST_F(Run_UnitCode, of_a_unit_that_refuses_or_never_answers_or_poorly_is_given_up) {
    for (const Answering manner : {Answering::Refusing, Answering::Never, Answering::Poorly}) {
        devices.Units[0].Air.Answers = manner;
        Open();
        Expect(manner == Answering::Refusing ? 68 : 70);
        Ask();
        world.RunFor(36000);
        EXPECT_EQ(Dialog().Ergebnis, manner == Answering::Refusing ? CodeOutcome::Refused : CodeOutcome::Silent);
        EXPECT_EQ(Unit().AdminCode, FactoryCode);
        Dialog().Command2_Click();
        ExpectClean();
        Unit().Air.Answers = Answering::Well;
        ExpectAnotherTryWorks();
    }
}

TEST_F(Run_UnitCode, that_meets_silence_at_any_step_says_how_far_it_came_and_can_be_repeated) {
    for (int step = LoginStep; step < Steps; ++step) {
        SCOPED_TRACE(step);
        devices.Faults = {{.What = SimFault::Kind::Silent, .Telegram = step}};
        Open();
        if (step == ReadStep + 1) { // nobody answers that one, and it is not missed
            Expect(204);
        } else {
            ExpectEnd(step);
        }
        Ask();
        world.RunFor(80000);
        EXPECT_EQ(Dialog().Ergebnis, step == ReadStep + 1 ? CodeOutcome::Changed : EndAt(step));
        EXPECT_EQ(Unit().AdminCode, step <= ChangeStep ? FactoryCode : SiteCode);
        EXPECT_EQ(Unit().Channel, step <= SetStep && step != ReadStep + 1 ? 1 : 7);
        if (step == LoginStep) {
            Dialog().Command2_Click();
        }
        ExpectClean();
        ExpectAnotherTryWorks();
    }
}

TEST_F(Run_UnitCode, whose_adapter_is_pulled_out_at_any_step_says_how_far_it_came_and_can_be_repeated) {
    for (int step = LoginStep; step < Steps; ++step) {
        SCOPED_TRACE(step);
        devices.Faults = {{.What = SimFault::Kind::Unplug, .Telegram = step}};
        Open();
        ExpectEnd(step);
        Ask();
        world.RunFor(80000);
        EXPECT_EQ(Dialog().Ergebnis, EndAt(step));
        if (step == LoginStep) {
            Dialog().Command2_Click();
        }
        ExpectClean();
        system->Plug();
        system->World().Faults.clear();
        world.PortCanOpen = true;
        ExpectAnotherTryWorks();
    }
}

TEST_F(Run_UnitCode, that_is_refused_at_any_step_says_how_far_it_came_and_can_be_repeated) {
    for (int step = LoginStep; step < Steps; ++step) {
        SCOPED_TRACE(step);
        devices.Faults = {{.What = SimFault::Kind::Refuse, .Telegram = step, .Value = 0x65}};
        Open();
        step <= ChangeStep ? Expect(68) : ExpectEnd(step);
        Change();
        EXPECT_EQ(Dialog().Ergebnis, step <= ChangeStep ? CodeOutcome::Refused : EndAt(step));
        if (step == LoginStep) {
            Dialog().Command2_Click();
        }
        ExpectClean();
        ExpectAnotherTryWorks();
    }
}

TEST_F(Run_UnitCode, cancelled_at_any_step_leaves_nothing_behind_and_can_be_repeated) {
    devices.ReplyMs = 100;
    for (int step = LoginStep; step < Steps; ++step) {
        SCOPED_TRACE(step);
        Open();
        Ask();
        ASSERT_TRUE(world.RunUntil([&] { return system->Counters().DeviceTelegrams > step; }, 5000));
        if (step == LoginStep) {
            programm->Transfer->F18.Command1_Click();
            EXPECT_EQ(Dialog().Ergebnis, CodeOutcome::Cancelled);
            Dialog().Command2_Click();
            EXPECT_TRUE(Units20().Fenster.Enabled);
        } else {
            ExpectEnd(step);
            Units20().Command1_Click();
            EXPECT_EQ(Dialog().Ergebnis, EndAt(step));
            EXPECT_FALSE(Units20().Fenster.Visible);
            EXPECT_EQ(Sent().back(), 0x05);
        }
        world.RunFor(60000);
        ExpectClean();
        EXPECT_EQ(Unit().AdminCode, step == LoginStep ? FactoryCode : SiteCode);
        EXPECT_EQ(system->JudgementLines(), "");
        ExpectAnotherTryWorks();
    }
}

TEST_F(Run_UnitCode, whose_answers_come_late_or_twice_is_told_once) {
    for (int step = LoginStep; step < Steps; ++step) {
        SCOPED_TRACE(step);
        for (const SimFault::Kind kind : {SimFault::Kind::Late, SimFault::Kind::Doubled}) {
            devices.Faults = {{.What = kind, .Telegram = step, .Value = 30000}};
            Open();
            Expect(204);
            Ask();
            world.RunFor(80000);
            ExpectMoved();
            EXPECT_THAT(Sent(), ElementsAre(0x04, 0x12, 0x28, 0x66, 0x29, 0x05));
        }
    }
}

} // namespace
} // namespace qvm::test
