// The scans of the radio channels from their windows, with the virtual system at the other end.

#include "MainWindows.h"
#include "ScanFixture.h"

namespace qvm::test {
namespace {

struct Run_Scan : ScanFixture {};

TEST_F(Run_Scan, of_nobody_ends_with_a_row_of_dashes_and_nothing_to_take) {
    OpenUnits();
    Keypad();
    ASSERT_TRUE(Over());
    EXPECT_TRUE(Found19().Fenster.Visible());
    EXPECT_FALSE(Units20().Fenster.Enabled());
    EXPECT_EQ(Serials(), "- - - - - - - - - - - -");
    Found19().Command2_Click();
    EXPECT_EQ(Found19().Hinweis.Text(), Wort(programm->kern, Word::NoUnitChosen));
    Found19().Command1_Click();
    EXPECT_TRUE(Units20().Fenster.Enabled());
    EXPECT_EQ(UnitRow(2), "|||");
    NoMarks();
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Scan, finds_units_on_their_channels_and_takes_the_loudest_into_its_row) {
    InTheAir("01600003", 1, 60);
    InTheAir("00003D20", 6, 120);
    InTheAir("01600004", 12, 140); // 116
    OpenUnits(3);
    Keypad();
    EXPECT_TRUE(Units20().F20Prg01.Visible());
    EXPECT_EQ(Units20().F20Prg01.Value(), 1);
    EXPECT_EQ(Units20().Suchstand.Text(), Wort(programm->kern, Word::ScanNothing, {"1"}));
    ASSERT_TRUE(world.RunUntil([this] { return Units20().F20Prg01.Value() == 8; }));
    EXPECT_EQ(Units20().Suchstand.Text(), "Kanal 8 von 12 wird abgesucht. Bisher gefunden: 2, zuletzt 00.00.3D.20 auf "
                                          "Kanal 6.");
    ASSERT_TRUE(Over());
    EXPECT_FALSE(Units20().F20Prg01.Visible());
    EXPECT_EQ(Serials(), "01.60.00.03 - - - - 00.00.3D.20 - - - - - 01.60.00.04");
    EXPECT_EQ(Found19().GewaehlteZeile, 6);
    Found19().Command2_Click();
    EXPECT_EQ(UnitRow(3), "|00.00.3D.20|2|6");
    EXPECT_EQ(Windows().Scan.Funde, UnitScan());
    NoMarks();
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Scan, sends_these_bytes_from_the_click_on) {
    OpenUnits();
    programm->Adapter.ProgStationPort = 1;
    programm->Adapter.ProgVersion = 12;
    Keypad();
    ASSERT_TRUE(Over());
    // Stuffed: the byte 2 is followed by a 0.
    using Bytes = std::vector<std::uint8_t>;
    const Bytes ask{0x02, 0x0D, 0x4B, 0, 0, 0, 0, 0x11, 1, 0x33, 0x88, 1, 0, 0, 0x4B};
    Bytes all{0x02, 0x0E, 0x6B, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x01};
    all.insert(all.end(), ask.begin(), ask.end());
    const Bytes second{0x02, 0x0E, 0x6B, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x09};
    all.insert(all.end(), second.begin(), second.end());
    all.insert(all.end(), ask.begin(), ask.end());
    ASSERT_GE(world.Written.size(), all.size());
    EXPECT_EQ(Bytes(world.Written.begin(), world.Written.begin() + static_cast<std::ptrdiff_t>(all.size())), all);
    EXPECT_EQ(Sent().size(), 24U);
}

TEST_F(Run_Scan, of_a_silent_line_takes_what_its_waits_add_up_to) {
    devices.Faults.push_back({.What = SimFault::Kind::Silent, .Telegram = 0, .AndAllBehind = true});
    OpenUnits();
    programm->Adapter.ProgStationPort = 1;
    programm->Adapter.ProgVersion = 12;
    const std::int64_t begun = world.Elapsed();
    Keypad();
    ASSERT_TRUE(Over());
    EXPECT_EQ(world.Elapsed() - begun, 12 * (400 + 100 + 3000));
    EXPECT_EQ(Serials(), "- - - - - - - - - - - -");
}

TEST_F(Run_Scan, by_logins_of_a_silent_line_takes_as_long) {
    devices.Faults.push_back({.What = SimFault::Kind::Silent, .Telegram = 0, .AndAllBehind = true});
    Open();
    const std::int64_t begun = world.Elapsed();
    ReadLock();
    ASSERT_TRUE(Over());
    EXPECT_EQ(world.Elapsed() - begun, 12 * (400 + 100 + 3000));
    EXPECT_TRUE(Found19().Fenster.Visible());
    NoMarks();
}

TEST_F(Run_Scan, puts_a_late_answer_down_to_no_other_channel) {
    InTheAir("01600003", 3, 60);
    InTheAir("01600005", 5, 60);
    for (const int late : {3100, 3700, 5000}) {
        devices.Faults = {{.What = SimFault::Kind::Late, .Telegram = 2, .Value = late}};
        OpenUnits();
        Keypad();
        ASSERT_TRUE(Over());
        EXPECT_EQ(Serials(), "- - - - 01.60.00.05 - - - - - - -") << late;
        Found19().Command1_Click();
        Units20().Command1_Click();
    }
}

TEST_F(Run_Scan, takes_a_doubled_answer_once_and_a_broken_one_not_at_all) {
    InTheAir("01600003", 3, 60);
    InTheAir("01600005", 5, 60);
    devices.Faults = {{.What = SimFault::Kind::Doubled, .Telegram = 2},
                      {.What = SimFault::Kind::BadSum, .Telegram = 4}};
    OpenUnits();
    Keypad();
    ASSERT_TRUE(Over());
    EXPECT_EQ(Serials(), "- - 01.60.00.03 - - - - - - - - -");
}

TEST_F(Run_Scan, ends_when_the_adapter_is_pulled_out_and_a_run_goes_well_when_it_is_back) {
    for (const int telegram : {0, 5, 11}) {
        devices.Faults = {{.What = SimFault::Kind::Unplug, .Telegram = telegram}};
        OpenUnits();
        ExpectWord(Word::AdapterPulled);
        Keypad();
        ASSERT_TRUE(Over()) << telegram;
        EXPECT_FALSE(Found19().Fenster.Visible());
        EXPECT_TRUE(Units20().Fenster.Enabled());
        EXPECT_FALSE(Units20().F20Prg01.Visible());
        NoMarks();
        system->Plug();
        world.PortCanOpen = true;
        ExpectAGoodRun();
    }
}

TEST_F(Run_Scan, ended_by_the_operator_leaves_no_mark_and_the_next_run_goes_well) {
    for (const int moment : {0, 300, 510, 700, 4000}) {
        OpenUnits();
        Keypad();
        world.RunFor(moment);
        Units20().Command1_Click();
        EXPECT_FALSE(Windows().Scan.Laeuft);
        EXPECT_TRUE(Units20().Fenster.Visible());
        EXPECT_EQ(Units20().Hinweis.Text(), Wort(programm->kern, Word::ScanCancelled));
        NoMarks();
        world.RunFor(10000);
        EXPECT_FALSE(Found19().Fenster.Visible());
        ExpectAGoodRun();
    }
}

TEST_F(Run_Scan, of_either_kind_works_with_an_adapter_of_the_network) {
    InTheAir("01600003", 3, 60);
    devices.Adapter.Name = "PROGSTATION N";
    devices.Adapter.Address = {3, 224, 0, 1};
    world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "SET       \r\n";
    world.AdapterPortNumbers = {1};
    OpenUnits();
    F2& main = programm->Main->F2;
    main.F2_Laden();
    ASSERT_TRUE(world.RunUntil([&main] { return main.Verbunden != 0 && main.ScanLaeuft == 0; }, 60000));
    main.Fenster.Visible = false;
    Keypad();
    ASSERT_TRUE(Over());
    EXPECT_EQ(Serials(), "- - 01.60.00.03 - - - - - - - - -");
    Found19().Command1_Click();
    ReadUnit();
    EXPECT_THAT(Dialog().Combo1.Entries(), ::testing::ElementsAre("PROGSTATION N [/3/224/0/1]"));
    ASSERT_TRUE(Over());
    EXPECT_EQ(Serials(), "- - 01.60.00.03 - - - 00.0A.10.01 - - - - -");
    NoMarks();
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Scan, for_units_wants_an_adapter_that_knows_it) {
    devices.Adapter.Version = 11;
    OpenUnits();
    Expect(273);
    Keypad();
    world.RunFor(5000);
    EXPECT_FALSE(Windows().Scan.Laeuft);
    EXPECT_TRUE(Units20().Fenster.Enabled());
    EXPECT_THAT(Sent(), ::testing::Not(::testing::Contains(0x6B)));
    NoMarks();
}

TEST_F(Run_Scan, without_an_adapter_says_so) {
    OpenUnits();
    world.OnWrite = {};
    Expect(195);
    Keypad();
    EXPECT_TRUE(Units20().Fenster.Enabled());
    EXPECT_FALSE(Windows().Scan.Laeuft);
    NoMarks();
}

TEST_F(Run_Scan, without_its_port_says_why) {
    OpenUnits();
    programm->Adapter.ProgStationPort = 1;
    programm->Adapter.ProgVersion = 12;
    world.PortCanOpen = false;
    world.PortFaultNow = PortFault{.What = PortFault::Kind::Held, .Device = "ttyS0", .Detail = "other"};
    ExpectText(PortFault_Text(programm->kern, *world.PortFaultNow));
    Keypad();
    EXPECT_FALSE(Windows().Scan.Laeuft);
    EXPECT_TRUE(Units20().Fenster.Enabled());
    NoMarks();
    world.PortCanOpen = true;
    Keypad();
    ASSERT_TRUE(Over());
    EXPECT_TRUE(Found19().Fenster.Visible());
}

TEST_F(Run_Scan, by_logins_names_the_lock_asks_for_the_code_and_finds_what_answers) {
    InTheAir("01600003", 4, 60).Air.ScanType = 42;
    OpenUnits();
    Units20().F20_Readunit_Click();
    EXPECT_TRUE(Dialog().Fenster.Visible());
    EXPECT_EQ(Dialog().Schloss.Text(), "Schloss 1: Tresor");
    EXPECT_FALSE(Units20().Fenster.Enabled());
    TypeCode("123456");
    EXPECT_TRUE(Units20().F20Prg01.Visible());
    EXPECT_TRUE(Units20().Fenster.Enabled());
    ASSERT_TRUE(Over());
    // The lock itself listens on 7.
    EXPECT_EQ(Serials(), "- - - 01.60.00.03 - - 00.0A.10.01 - - - - -");
    NoMarks();
    Found19().FGK19_DblClick(4);
    EXPECT_TRUE(Found19().Combo2.Enabled());
    Found19().Command2_Click();
    EXPECT_EQ(UnitRow(2), "|01.60.00.03|1|4");
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Scan, by_logins_sends_the_code_to_nobody_in_particular_on_each_channel) {
    Open();
    ReadLock();
    ASSERT_TRUE(Over());
    int channel = 0;
    for (const auto& frame : system->Telegrams()) {
        if (frame[2] != 0x04) {
            continue;
        }
        ++channel;
        EXPECT_EQ(std::vector<std::uint8_t>(frame.begin() + 3, frame.begin() + 21),
                  (std::vector<std::uint8_t>{0, 0, 0, 0, 0x11, 0, 0x33, 0x88, 1, 0, 0, 0x12, 0x34, 0x56, 0xEE,
                                             static_cast<std::uint8_t>(channel), 0xAA, 0x55}));
    }
    EXPECT_EQ(channel, 12);
}

TEST_F(Run_Scan, by_logins_forgets_the_code_at_each_of_its_ends) {
    Open();
    ReadLock();
    EXPECT_NE(programm->link.Lauf.Order.AdminCode, Secret<3>());
    ASSERT_TRUE(Over());
    NoSecret();
    Found19().Command1_Click();
    ReadLock();
    world.RunFor(1700);
    Box().Command1_Click();
    NoSecret();
    Locks12().SNA_save_Click();
    for (const char digit : std::string_view("123456")) {
        Dialog().Text1_KeyPress(digit);
    }
    Dialog().Cancel_Click();
    NoSecret();
    ReadLock();
    world.RunFor(1700);
    ExpectWord(Word::AdapterPulled);
    world.PortOpen = world.PortCanOpen = false;
    ASSERT_TRUE(Over());
    NoSecret();
}

TEST_F(Run_Scan, for_a_lock_moves_in_the_wait_box_and_what_is_taken_stands_in_three_columns) {
    VirtualUnit& unit = InTheAir("0B600003", 4, 60);
    unit.Air.ScanType = 42;
    devices.Locks.clear();
    Open();
    ReadLock();
    EXPECT_TRUE(Box().Fenster.Visible());
    EXPECT_EQ(Box().Schloss.Text(), "Schloss 1: Tresor");
    EXPECT_EQ(Box().Balken.Value(), 106);
    EXPECT_FALSE(Locks12().Fenster.Enabled());
    ASSERT_TRUE(world.RunUntil([this] { return Box().Balken.Value() == 130; }));
    EXPECT_EQ(Box().Text.Text(), Wort(programm->kern, Word::ScanFound, {"5", "1", "0B.60.00.03", "4"}));
    ASSERT_TRUE(Over());
    EXPECT_FALSE(Box().Fenster.Visible());
    EXPECT_TRUE(Found19().Fenster.Visible());
    Found19().Combo2_Click(1);
    Found19().Command2_Click();
    EXPECT_EQ(Locks12().FGK12.Text(1, LockColumn::Serial), "0B.60.00.03");
    EXPECT_EQ(Locks12().FGK12.At(1, LockColumn::Emi).Picture, LockPicture::NotApplicable);
    EXPECT_EQ(Locks12().FGK12.Text(1, LockColumn::UnitType), "L15");
    EXPECT_TRUE(Locks12().Tabelle.LockDirty);
    EXPECT_TRUE(Locks12().Fenster.Enabled());
    EXPECT_EQ(world.Disk.Files["/q/DAT/RFCHANDIF12.RFX"].substr(0, 15), "4     7  1     ");
    NoMarks();
    EXPECT_EQ(system->JudgementLines(), "");
}

TEST_F(Run_Scan, for_a_lock_is_ended_by_the_key_of_the_wait_box) {
    Open();
    ReadLock();
    world.RunFor(1200);
    Box().Command1_Click();
    EXPECT_FALSE(Windows().Scan.Laeuft);
    EXPECT_FALSE(Box().Fenster.Visible());
    EXPECT_TRUE(Locks12().Fenster.Enabled());
    EXPECT_EQ(Locks12().Hinweis.Text(), Wort(programm->kern, Word::ScanCancelled));
    NoMarks();
    world.RunFor(60000);
    EXPECT_FALSE(Found19().Fenster.Visible());
    ExpectAGoodRun();
}

TEST_F(Run_Scan, for_a_lock_says_that_the_adapter_was_pulled_out) {
    devices.Faults = {{.What = SimFault::Kind::Unplug, .Telegram = 3}};
    Open();
    ExpectWord(Word::AdapterPulled);
    ReadLock();
    ASSERT_TRUE(Over());
    EXPECT_FALSE(Box().Fenster.Visible());
    EXPECT_TRUE(Locks12().Fenster.Enabled());
    NoMarks();
}

TEST_F(Run_Scan, whose_start_dialog_is_cancelled_gives_its_window_back_and_sends_nothing) {
    Open();
    Locks12().SNA_save_Click();
    EXPECT_FALSE(Locks12().Fenster.Enabled());
    Dialog().Cancel_Click();
    EXPECT_TRUE(Locks12().Fenster.Enabled());
    Locks12().SNA_Function_Click();
    Units20().Auswahl.Go(1, 2);
    Units20().F20_Readunit_Click();
    EXPECT_FALSE(Units20().Fenster.Enabled());
    Dialog().Cancel_Click();
    EXPECT_TRUE(Units20().Fenster.Enabled());
    EXPECT_THAT(Sent(), IsEmpty());
    NoMarks();
}

TEST_F(Run_Scan, with_an_incomplete_code_sends_nothing) {
    Open();
    Locks12().SNA_save_Click();
    Expect(61);
    TypeCode("12345");
    EXPECT_TRUE(Dialog().Fenster.Visible());
    EXPECT_FALSE(Windows().Scan.Laeuft);
    EXPECT_THAT(Sent(), IsEmpty());
}

} // namespace
} // namespace qvm::test
