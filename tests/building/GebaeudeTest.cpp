// The program in a virtual building: its devices, runs, doors, desk and adapter, and what stays of it.

#include "BuildingFixture.h"

namespace qvm::test {
namespace {

using Building = BuildingFixture;

TEST_F(Building, has_the_locks_and_units_of_the_installation_each_where_it_was_left) {
    Begin();
    const VirtualWorld& devices = building->System().World();
    ASSERT_EQ(devices.Locks.size(), 2U);
    EXPECT_EQ(devices.Locks[0].Label, "Tresor");
    EXPECT_EQ(devices.Locks[0].Serial, (DeviceAddress{1, 0x20, 0, 1}));
    EXPECT_EQ(devices.Locks[0].Channel, 1);
    EXPECT_EQ(devices.Locks[1].Channel, 7);
    EXPECT_EQ(devices.Locks[1].AdminCode, (std::array<std::uint8_t, 3>{0x12, 0x34, 0x56}));
    ASSERT_EQ(devices.Units.size(), 1U);
    EXPECT_EQ(devices.Units[0].Label, "Funk");
    EXPECT_EQ(devices.Units[0].Serial, (DeviceAddress{0x0A, 0x0B, 0x0C, 0x0D}));
    ASSERT_EQ(window->FGK.Rows(), 4);
    EXPECT_EQ(window->FGK.Text(2, BuildingColumn::Device), "Tor");
    EXPECT_EQ(window->FGK.Text(2, BuildingColumn::Serial), "00.0A.10.01");
    EXPECT_EQ(window->FGK.Text(3, BuildingColumn::Device), "Funk");
    EXPECT_EQ(State(1), Wort(programm->kern, Word::BuildingEmpty));
}

TEST_F(Building, programs_a_lock_which_then_opens_by_the_users_code_and_tells_of_it) {
    Begin();
    Connect();
    Try("102030");
    EXPECT_EQ(window->Ergebnis.Text(), Said(Word::BuildingShutEmpty, {"Tresor"}));
    ASSERT_EQ(Programmed(1), RunOutcome::Done);
    EXPECT_EQ(building->System().JudgementLines(), "");
    EXPECT_EQ(State(1), Wort(programm->kern, Word::BuildingReady));
    EXPECT_EQ(window->FGK.Text(1, BuildingColumn::Users), "1");
    Try("999999");
    EXPECT_EQ(window->Ergebnis.Text(), Said(Word::BuildingShutUnknown, {"Tresor"}));
    Try("102030");
    EXPECT_EQ(window->Ergebnis.Text(), Said(Word::BuildingOpens, {"Tresor", "Anna"}));
    EXPECT_EQ(window->Code.Text(), "");
    EXPECT_EQ(window->FGK.Text(1, BuildingColumn::Events), "2");

    Run(1, F13Column::History, 65);
    EXPECT_TRUE(world.RunUntil([this] { return programm->Run.Gesamtende; }, 300000));
    const FileStore& store = programm->kern.Welt.Files;
    const std::vector<std::string> histories = store.List("/q/HIST");
    ASSERT_EQ(histories.size(), 1U);
    std::string events;
    store.ReadAll("/q/HIST/" + histories[0], events);
    EXPECT_THAT(events, ::testing::MatchesRegex(
                            "01.20.00.01\r\nAnna *\t05.03.2026\t10:30\tL16\r\nAnna *\t05.03.2026\t10:30\tL15\r\n"));
}

TEST_F(Building, changes_nothing_on_the_disk_whatever_is_done_in_it) {
    Begin();
    Connect();
    EXPECT_EQ(Programmed(1), RunOutcome::Done);
    programm->kern.Config.RadioChannel = "9";
    EXPECT_TRUE(Konfiguration_Speichern(programm->kern));
    EXPECT_EQ(programm->kern.Welt.SaveFile({}), std::nullopt);
    programm->Main->F2.Beenden();
    EXPECT_EQ(world.Disk.Files, Before);
    EXPECT_THAT(world.Disk.Directories, IsEmpty());
    EXPECT_EQ(world.Opens, 0) << "of a real port";
}

TEST_F(Building, of_an_installation_without_people_and_locks_is_the_demonstration) {
    Begin(Demonstration());
    const VirtualWorld& devices = building->System().World();
    ASSERT_GE(devices.Locks.size(), 10U);
    EXPECT_EQ(devices.Locks[0].Label, "Tresor Filiale");
    EXPECT_FALSE(devices.Locks[0].History.empty());
    EXPECT_EQ(devices.Adapter.Name, "PROGSTATION-1");
    Connect();
    world.Answers.push_back({.Text = "*"}); // the lock knows two timers
    ASSERT_EQ(Programmed(1), RunOutcome::Done);
    EXPECT_EQ(building->System().JudgementLines(), "");
    EXPECT_EQ(world.Disk.Files, Before);
}

TEST_F(Building, a_lock_that_was_taken_away_is_not_reached_until_it_is_back) {
    Begin();
    Connect();
    window->Wegnehmen_Click();
    EXPECT_EQ(State(1), Wort(programm->kern, Word::BuildingAway));
    EXPECT_EQ(window->Wegnehmen.Text(), Wort(programm->kern, Word::BuildingBring));
    world.Answers.push_back({.Text = "*"});
    EXPECT_NE(Programmed(1), RunOutcome::Done);
    world.Answers.clear();
    window->Wegnehmen_Click();
    EXPECT_EQ(Programmed(1), RunOutcome::Done);
}

TEST_F(Building, the_adapter_is_pulled_out_and_found_again) {
    Begin();
    Connect();
    window->Ziehen_Click();
    EXPECT_EQ(window->Ziehen.Text(), Wort(programm->kern, Word::BuildingPlug));
    EXPECT_TRUE(world.RunUntil([this] { return programm->Main->F2.Label1.ForeColor == Lampe::Rot; }, 10000));
    window->Ziehen_Click();
    EXPECT_TRUE(world.RunUntil([this] { return programm->Main->F2.Label1.ForeColor == Lampe::Gruen; }, 60000));
}

TEST_F(Building, a_wrong_clock_shuts_a_user_out_until_a_run_puts_it_right) {
    files.Slot(1, 10, "08:00", "17:00");
    files.Group(3, "Tag", "X---------", "PB_800000003");
    files.User(1, {.Name = "Anna", .Code = "102030", .Group = "PB_800000003", .Marks = {{1, 'X'}}});
    Begin();
    Connect();
    ASSERT_EQ(Programmed(1), RunOutcome::Done);
    Try("102030");
    EXPECT_EQ(window->Ergebnis.Text(), Said(Word::BuildingOpens, {"Tresor", "Anna"}));
    window->Uhr_Click(3); // 12 hours fast
    EXPECT_EQ(building->Uhr_Abweichung(0), 720);
    Try("102030");
    EXPECT_THAT(window->Ergebnis.Text(), ::testing::HasSubstr("Anna"));
    EXPECT_THAT(window->Ergebnis.Text(), ::testing::HasSubstr("05.03.2026  22:3"));
    EXPECT_EQ(window->FGK.Text(1, BuildingColumn::Events), "2");
    ASSERT_EQ(Programmed(1), RunOutcome::Done);
    EXPECT_EQ(building->Uhr_Abweichung(0), 0);
    EXPECT_EQ(window->Uhr.Selected(), 0);
}

TEST_F(Building, a_clock_set_wrong_by_a_day_goes_over_the_end_of_month_and_year) {
    VirtualPlatform eve({.Year = 2026, .Month = 12, .Day = 31, .Hour = 23, .Minute = 30});
    Gebaeude place(eve.World, "/q/", Demonstration(), Zurueckmischen);
    Programm inside(place.Welt(), "/q");
    ASSERT_EQ(Programm_Start(inside, false), StartResult::Started);
    place.Einrichten(inside.kern);
    place.Uhr_Stellen(0, 60);
    EXPECT_EQ(place.Uhr(0), (LockClock{1, 1, 27, 0, 30, 0}));
    place.Uhr_Stellen(0, -24 * 60);
    EXPECT_EQ(place.Uhr(0), (LockClock{30, 12, 26, 23, 30, 0}));
    place.Uhr_Stellen(0, -24 * 60 * 31);
    EXPECT_EQ(place.Uhr(0), (LockClock{30, 11, 26, 23, 30, 0}));
}

TEST_F(Building, a_key_that_was_held_to_the_desk_can_be_held_to_a_door) {
    Begin();
    Lock(0).DataComplete = true;
    window->Auflegen_Click();
    ASSERT_EQ(window->Sachen.Entries().size(), 4U);
    EXPECT_EQ(window->Sachen.Selected(), 3);
    const std::vector<std::uint8_t> id = building->System().World().Desk.Presented.at(0).Id;
    ASSERT_EQ(id.size(), 4U);
    window->Vorhalten_Click();
    EXPECT_EQ(window->Ergebnis.Text(), Said(Word::BuildingShutUnknown, {"Tresor"}));
    LockUser user;
    user.Name = {'A', 'n', 'n', 'a'};
    user.HasId = true;
    std::copy(id.begin(), id.end(), user.Id.begin());
    Lock(0).Users = {user};
    window->Vorhalten_Click();
    EXPECT_EQ(window->Ergebnis.Text(), Said(Word::BuildingOpens, {"Tresor", "Anna"}));
}

TEST_F(Building, a_guest_card_is_laid_down_and_taken_away_with_what_it_holds) {
    Begin();
    EXPECT_FALSE(window->Karte.Checked());
    window->Karte_Click(true);
    EXPECT_TRUE(window->Karte.Checked());
    building->System().World().Desk.Writer.Card->Room = 12;
    window->Karte_Click(false);
    EXPECT_FALSE(building->Karte_Liegt());
    window->Karte_Click(true);
    EXPECT_EQ(building->System().World().Desk.Writer.Card->Room, 12);
}

TEST_F(Building, an_adapter_for_enrolment_takes_the_place_of_the_other_one) {
    Begin();
    Connect();
    ASSERT_EQ(window->Adapter.Entries().size(), 2U);
    window->Adapter_Click(1);
    EXPECT_TRUE(building->System().World().Adapter.Enrolment());
    EXPECT_EQ(window->Adapter.Selected(), 1);
    EXPECT_TRUE(building->Adapter_Steckt());
    window->Adapter_Click(7);
    EXPECT_EQ(building->Adapter_Gewaehlt(), 1U);
}

TEST_F(Building, a_unit_has_no_door) {
    Begin();
    window->Auswahl.Go(3, 0);
    EXPECT_FALSE(window->Uhr.Enabled());
    EXPECT_TRUE(window->Wegnehmen.Enabled());
    Try("102030");
    EXPECT_EQ(window->Ergebnis.Text(), Wort(programm->kern, Word::BuildingNoLock));
    window->Vorhalten_Click();
    EXPECT_EQ(window->Ergebnis.Text(), Wort(programm->kern, Word::BuildingNoLock));
    window->Uhr_Click(1);
    window->Wegnehmen_Click();
    EXPECT_TRUE(building->System().World().Units[0].Air.Away);
}

TEST_F(Building, without_any_device_does_nothing) {
    for (const char* file : {"C64UX12H3D.EBW", "T6WRSSISN.TSD"}) {
        world.Disk.Files.erase(std::string("/q/DAT/") + file);
    }
    Begin();
    EXPECT_EQ(window->FGK.Rows(), 1);
    EXPECT_FALSE(window->Wegnehmen.Enabled());
    Try("1");
    window->Vorhalten_Click();
    window->Wegnehmen_Click();
    window->Uhr_Click(1);
    EXPECT_EQ(window->Ergebnis.Text(), Wort(programm->kern, Word::BuildingNoLock));
}

TEST_F(Building, takes_digits_alone_in_the_codes_field) {
    Begin();
    window->Code_Change("12a4");
    EXPECT_EQ(window->Code.Text(), "124");
    window->Code_Change("12345678901");
    EXPECT_EQ(window->Code.Text(), "1234567890");
}

TEST_F(Building, its_window_follows_the_language) {
    Begin();
    programm->kern.Config.Sprache = "English";
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(window->FGK.Text(0, BuildingColumn::Device), "Device");
    EXPECT_EQ(State(1), "not programmed");
    EXPECT_EQ(window->Sachen.Entries()[0], "A new E-Key");
}

TEST_F(Building, its_window_and_the_main_window_are_told_apart_where_windows_are_switched) {
    Begin();
    programm->kern.ImGebaeude = true;
    Connect();
    programm->kern.Config.Sprache = "English";
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(window->Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - Virtual devices");
    EXPECT_EQ(programm->Main->F2.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - Virtual building");
}

} // namespace
} // namespace qvm::test
