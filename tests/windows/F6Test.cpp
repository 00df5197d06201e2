// The adapter window: opening, the choice of the port, the list, saving.

#include "AutoRegister.h"
#include "F6Fixture.h"
#include "Pictures.h"

namespace qvm::test {
namespace {

struct F6_Fenster : F6_Fixture {};

// ---- open

TEST_F(F6_Fenster, opens_with_the_words_of_the_catalogue) {
    Open();
    EXPECT_TRUE(Adapters().Fenster.Visible);
    EXPECT_EQ(Adapters().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L21");
    EXPECT_EQ(Adapters().Check1.Text(), "L278");
    EXPECT_EQ(Adapters().Command1.Text(), "L279");
    EXPECT_EQ(Adapters().Toolbar1[0].Tip(), "L119");
    EXPECT_EQ(Adapters().Toolbar1[1].Tip(), "L289");
    EXPECT_EQ(Cell(0, 0) + Cell(0, 1) + Cell(0, 2) + Cell(0, 3) + Cell(0, 4), "L37L185L186L187L188");
    EXPECT_EQ(Adapters().FGK6.Rows(), 22);
    EXPECT_EQ(Adapters().FGK6.Columns(), 5);
}

TEST_F(F6_Fenster, offers_sixteen_ports_with_the_configured_one_selected) {
    Open();
    ASSERT_EQ(Adapters().Combo1.Entries().size(), 16U);
    EXPECT_EQ(Adapters().Combo1.Entries()[0], "Prolific USB-to-Serial Comm Port ( COM1 )");
    EXPECT_EQ(Adapters().Combo1.Entries()[15], "Prolific USB-to-Serial Comm Port ( COM16 )");
    EXPECT_EQ(Adapters().Combo1.Selected(), 4);
    programm->kern.Config.PortNummer = 16;
    Adapters().F6_Laden();
    EXPECT_EQ(Adapters().Combo1.Selected(), 15);
    programm->kern.Config.PortNummer = 17;
    Adapters().F6_Laden();
    EXPECT_EQ(Adapters().Combo1.Selected(), 0);
}

TEST_F(F6_Fenster, names_the_device_behind_each_number_where_the_system_has_no_com_ports) {
    world.World.PortDevice = [](int number) {
        return number == 3 ? std::string("com3 -> /dev/pts/4") : "/dev/ttyUSB" + std::to_string(number - 1);
    };
    Open();
    ASSERT_EQ(Adapters().Combo1.Entries().size(), 16U);
    EXPECT_EQ(Adapters().Combo1.Entries()[0], "1: /dev/ttyUSB0");
    EXPECT_EQ(Adapters().Combo1.Entries()[2], "3: com3 -> /dev/pts/4");
    EXPECT_EQ(Adapters().Combo1.Entries()[15], "16: /dev/ttyUSB15");
    EXPECT_EQ(Adapters().Combo1.Selected(), 4);
}

TEST_F(F6_Fenster, opens_the_port_anew) {
    Open();
    EXPECT_TRUE(world.PortOpen);
    EXPECT_EQ(world.PortNumber, 5);
    const int closes = world.Closes;
    Open();
    EXPECT_EQ(world.Closes, closes + 1);
    EXPECT_TRUE(world.PortOpen);
}

TEST_F(F6_Fenster, the_automatic_mode_shows_the_grid_and_the_manual_one_the_list_of_ports) {
    Open();
    EXPECT_TRUE(Adapters().Check1.Checked);
    EXPECT_TRUE(Adapters().FGK6.Visible);
    EXPECT_TRUE(Adapters().Command1.Visible);
    EXPECT_FALSE(Adapters().Combo1.Visible);
    programm->kern.Config.PortAutomatik = "RESET";
    Open();
    EXPECT_FALSE(Adapters().Check1.Checked);
    EXPECT_FALSE(Adapters().FGK6.Visible);
    EXPECT_TRUE(Adapters().Command1.Visible);
    EXPECT_TRUE(Adapters().Combo1.Visible);
}

TEST_F(F6_Fenster, the_search_fills_the_grid_in_the_manual_mode_as_well) {
    programm->kern.Config.PortAutomatik = "RESET";
    Open();
    ASSERT_TRUE(Adapters().Command1.Visible);
    world.Disk.Files.erase(List);
    const std::size_t before = world.Written.size();
    Adapters().Command1_Click();
    EXPECT_GT(world.Written.size(), before); // the adapter was asked for
    EXPECT_FALSE(Adapters().FGK6.Visible);
}

TEST_F(F6_Fenster, the_device_manager_is_offered_where_there_is_one) {
    Open();
    EXPECT_EQ(Adapters().F6_MSGM.Text(), "");
    Adapters().F6_MSGM_Click(); // nothing to open
    int opened = 0;
    world.World.DeviceManager = [&] { ++opened; };
    Open();
    EXPECT_EQ(Adapters().F6_MSGM.Text(), "L280");
    Adapters().F6_MSGM_Click();
    EXPECT_EQ(opened, 1);
}

// ---- load

TEST_F(F6_Fenster, a_stored_adapter_that_answered_is_shown_present_with_the_port_that_it_has_now) {
    Open();
    EXPECT_EQ(Cell(1, F6Column::Number), "1");
    EXPECT_EQ(Cell(1, F6Column::Address), "/10/20/30/40");
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION 1");
    EXPECT_EQ(Cell(1, F6Column::Port), "7");
    EXPECT_EQ(Picture(1), AdapterPicture::Present);
    EXPECT_EQ(Back(1), White);
}

TEST_F(F6_Fenster, a_stored_adapter_that_did_not_answer_is_shown_absent) {
    Open();
    EXPECT_EQ(Cell(2, F6Column::Name), "PROGSTATION Keller");
    EXPECT_EQ(Cell(2, F6Column::Port), "9");
    EXPECT_EQ(Picture(2), AdapterPicture::Absent);
    EXPECT_EQ(Cell(3, F6Column::Address), "");
    EXPECT_EQ(Picture(3), AdapterPicture::None);
}

TEST_F(F6_Fenster, a_stored_name_that_the_adapter_does_not_bear_marks_the_row) {
    programm->Adapter.Saetze[0].Name = "PROGSTATION 2";
    Open();
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION 1");
    EXPECT_EQ(Back(1), Colour{0x80FFFF});
    EXPECT_EQ(Back(2), White);
}

TEST_F(F6_Fenster, without_a_file_the_grid_is_empty) {
    world.Disk.Files.erase(List);
    Open();
    EXPECT_EQ(Cell(1, F6Column::Address), "");
    EXPECT_EQ(Cell(1, F6Column::Number), "1");
    EXPECT_EQ(Cell(20, F6Column::Number), "20");
    EXPECT_EQ(Cell(21, F6Column::Number), "");
}

TEST_F(F6_Fenster, a_partial_last_record_counts_as_far_as_it_goes) {
    world.Disk.Files[List].resize(65 + 16 + 4);
    Open();
    EXPECT_EQ(Cell(2, F6Column::Address), "/1/2/3/4");
    EXPECT_EQ(Cell(2, F6Column::Name), "PROG");
    EXPECT_EQ(Cell(2, F6Column::Port), "");
}

TEST_F(F6_Fenster, a_file_full_of_any_bytes_is_shown_and_harms_nothing) {
    std::string bytes;
    for (int n = 0; n < 65 * 25; ++n) {
        bytes.push_back(static_cast<char>(n * 7));
    }
    world.Disk.Files[List] = bytes;
    Open();
    EXPECT_EQ(Cell(1, F6Column::Number), "1");
    EXPECT_EQ(Cell(1, F6Column::Port), "\xFC\x03"); // bytes 36 and 37
    EXPECT_EQ(Cell(20, F6Column::Number), "20");
    EXPECT_EQ(Cell(20, F6Column::Port), "\xC1\xC8"); // bytes 1271 and 1272, times 7
    EXPECT_EQ(Cell(21, F6Column::Address), "");      // what lies behind record 20 is not read
}

TEST_F(F6_Fenster, a_file_that_cannot_be_read_leaves_the_grid_empty_and_is_not_written_over) {
    Open();
    world.Disk.FailAt = world.Disk.Operations + 1;
    EXPECT_FALSE(Adapters().Adapter_Liste_Laden());
    EXPECT_EQ(Cell(1, F6Column::Address), "");
    const std::string before = world.Disk.Files[List];
    world.Disk.FailAt = world.Disk.Operations + 1;
    EXPECT_FALSE(Adapters().Adapter_Liste_Speichern());
    EXPECT_EQ(world.Disk.Files[List], before);
}

// ---- save

TEST_F(F6_Fenster, the_list_is_written_as_twenty_records_of_65_bytes) {
    Open();
    EXPECT_TRUE(Adapters().Adapter_Liste_Speichern());
    std::string expected = "/10/20/30/40    PROGSTATION 1       7           " + std::string(17, '\0') +
                           "/1/2/3/4        PROGSTATION Keller  9           " + std::string(17, '\0');
    for (int n = 3; n <= 20; ++n) {
        expected += std::string(48, ' ') + std::string(17, '\0');
    }
    EXPECT_EQ(expected.size(), 1300U);
    EXPECT_EQ(world.Disk.Files[List], expected);
}

TEST_F(F6_Fenster, what_a_longer_file_holds_behind_record_20_stays) {
    world.Disk.Files[List].resize(1300, ' ');
    world.Disk.Files[List] += "more";
    Open();
    EXPECT_TRUE(Adapters().Adapter_Liste_Speichern());
    EXPECT_EQ(world.Disk.Files[List].substr(1300), "more");
}

TEST_F(F6_Fenster, speichern_keeps_the_automatic_search_and_makes_the_port_ready) {
    Open();
    Press("Speichern");
    EXPECT_EQ(programm->kern.Config.PortAutomatik, "SET");
    EXPECT_EQ(programm->kern.Config.PortNummer, 7); // the last candidate
    EXPECT_EQ(world.Disk.Files[Settings], "Deutsch\r\n1\r\nUSB-Port7\r\n3\r\n");
    EXPECT_EQ(world.PortNumber, 7);
    EXPECT_EQ(prepared, 1);
    EXPECT_TRUE(Adapters().Fenster.Visible);
    EXPECT_EQ(world.Disk.Files[List].size(), 1300U);
}

TEST_F(F6_Fenster, speichern_takes_a_fixed_port_and_forgets_the_candidates) {
    Open();
    programm->Adapter.PortListe = {5, 7};
    Adapters().Check1_Click(false);
    Adapters().Combo1_Click(11);
    Press("Speichern");
    EXPECT_EQ(world.Disk.Files[Settings], "Deutsch\r\n1\r\nUSB-Port12\r\n3\r\n");
    EXPECT_EQ(world.Disk.Files["/q/DAT/CHEUSB25C.I_2"].substr(0, 12), "RESET     \r\n");
    EXPECT_EQ(programm->kern.Config.PortNummer, 12);
    EXPECT_EQ(world.PortNumber, 12);
    EXPECT_TRUE(world.PortOpen);
    EXPECT_THAT(programm->Adapter.PortListe, IsEmpty());
    EXPECT_EQ(prepared, 1);
}

TEST_F(F6_Fenster, a_port_that_does_not_open_is_reported_and_saved_all_the_same) {
    Open();
    Adapters().Check1_Click(false);
    Adapters().Combo1_Click(2);
    world.PortCanOpen = false;
    world.Answers.push_back({.Text = "Comport nicht vorhanden"});
    Press("Speichern");
    EXPECT_EQ(world.Shown.back().Title, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
    EXPECT_FALSE(world.PortOpen);
    EXPECT_EQ(world.Disk.Files[Settings], "Deutsch\r\n1\r\nUSB-Port3\r\n3\r\n");
    EXPECT_EQ(prepared, 1);
}

TEST_F(F6_Fenster, an_adapter_that_is_searched_may_be_missing_when_its_port_is_saved) {
    Open();
    world.PortCanOpen = false;
    world.AdapterPortNumbers = {};
    Press("Speichern"); // the main window tells what is wrong with the port
    EXPECT_THAT(world.Shown, IsEmpty());
    EXPECT_FALSE(world.PortOpen);
    EXPECT_EQ(programm->kern.Config.PortAutomatik, "SET");
    EXPECT_EQ(prepared, 1);
}

TEST_F(F6_Fenster, an_adapter_pulled_out_is_shown_absent) {
    world.AdapterPortNumbers = {};
    Port_Einrichten(programm->link, programm->Adapter);
    Open();
    EXPECT_EQ(Picture(1), AdapterPicture::Absent);
}

TEST_F(F6_Fenster, a_list_that_cannot_be_saved_is_reported) {
    Open();
    Adapters().Check1_Click(false);
    const std::string before = world.Disk.Files[List];
    world.Disk.FailAt = world.Disk.Operations + 4; // behind the two settings files and the reading of the list
    Expect(287);
    Press("Speichern");
    EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
    EXPECT_EQ(world.Disk.Files[List], before);
    Expect(60, Answer::No); // still unsaved
    GoBack();
}

TEST_F(F6_Fenster, settings_that_cannot_be_saved_are_reported_and_the_list_is_saved_all_the_same) {
    Open();
    Adapters().Check1_Click(false);
    world.Disk.FailAt = world.Disk.Operations + 1;
    Expect(287);
    Press("Speichern");
    EXPECT_EQ(world.Disk.Files[List].size(), 1300U);
}

// ---- back

TEST_F(F6_Fenster, zurueck_without_a_change_asks_nothing) {
    Open();
    GoBack();
    EXPECT_FALSE(Adapters().Fenster.Visible);
    EXPECT_EQ(returned, 1);
    EXPECT_EQ(prepared, 0);
}

TEST_F(F6_Fenster, zurueck_after_a_change_asks_and_yes_saves) {
    Open();
    Adapters().Check1_Click(false);
    Adapters().Combo1_Click(11);
    Expect(60, Answer::Yes);
    GoBack();
    EXPECT_EQ(world.Shown.back().Title, "L23");
    EXPECT_EQ(world.Shown.back().Choice, Buttons::YesNo);
    EXPECT_EQ(world.Disk.Files[Settings], "Deutsch\r\n1\r\nUSB-Port12\r\n3\r\n");
    EXPECT_FALSE(Adapters().Fenster.Visible);
    EXPECT_EQ(returned, 1);
}

TEST_F(F6_Fenster, zurueck_with_a_save_that_fails_keeps_the_window_and_its_changes) {
    Open();
    Adapters().Check1_Click(false);
    Adapters().Combo1_Click(11);
    const auto before = world.Disk.Files;
    world.Disk.FailAt = world.Disk.Operations + 1;
    world.Disk.FailFromThere = true;
    Expect(60, Answer::Yes);
    Expect(287);
    GoBack();
    EXPECT_TRUE(Adapters().Fenster.Visible);
    EXPECT_EQ(returned, 0);
    EXPECT_FALSE(Adapters().Check1.Checked);
    EXPECT_EQ(Adapters().Combo1.Selected(), 11);
    EXPECT_EQ(world.Disk.Files, before);
    Expect(60, Answer::No); // still unsaved
    GoBack();
    EXPECT_FALSE(Adapters().Fenster.Visible);
    EXPECT_EQ(returned, 1);
    EXPECT_EQ(programm->kern.Config.PortAutomatik, "SET");
    EXPECT_EQ(programm->kern.Config.PortName, "USB-Port7"); // the last candidate
}

TEST_F(F6_Fenster, a_question_closed_without_an_answer_goes_back_to_the_window) {
    Open();
    Adapters().Check1_Click(false);
    Adapters().Combo1_Click(11);
    const auto before = world.Disk.Files;
    Expect(60, Answer::Cancel);
    GoBack();
    EXPECT_TRUE(Adapters().Fenster.Visible);
    EXPECT_EQ(Adapters().Combo1.Selected(), 11);
    EXPECT_EQ(returned, 0);
    EXPECT_EQ(world.Disk.Files, before);
}

TEST_F(F6_Fenster, no_leaves_everything_as_it_was) {
    programm->kern.Config.PortAutomatik = "RESET";
    Open();
    const auto before = world.Disk.Files;
    Adapters().Check1_Click(true);
    EXPECT_THAT(programm->Adapter.PortListe, ElementsAre(5, 7));
    EXPECT_TRUE(Adapters().FGK6.Visible);
    Expect(60, Answer::No);
    GoBack();
    EXPECT_EQ(world.Disk.Files, before);
    EXPECT_EQ(programm->kern.Config.PortAutomatik, "RESET");
    EXPECT_EQ(programm->kern.Config.PortNummer, 5);
    EXPECT_THAT(programm->Adapter.PortListe, IsEmpty()); // a fixed port has no candidates
    EXPECT_EQ(returned, 1);
}

TEST_F(F6_Fenster, no_gives_the_configured_port_back_after_a_search_on_others) {
    programm->kern.Config.PortAutomatik = "RESET";
    Open();
    Adapters().Check1_Click(true);
    Port_Oeffnen(programm->link, 7); // as a search leaves it that found its adapter there
    programm->Adapter.ProgStationPort = 7;
    programm->Adapter.Saetze.push_back({.Adresse = "/1/2/3/9", .Name = "PROGSTATION-9", .Port = "7"});
    const int before = prepared;
    Expect(60, Answer::No);
    GoBack();
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_EQ(programm->link.PortNummer, 5);
    EXPECT_EQ(programm->Adapter.ProgStationPort, 0);
    EXPECT_THAT(programm->Adapter.Saetze, IsEmpty());
    EXPECT_EQ(prepared, before + 1);
}

TEST_F(F6_Fenster, choosing_what_is_chosen_already_is_no_change) {
    Open();
    Adapters().Check1_Click(true);
    Adapters().Combo1_Click(4);
    Adapters().Combo1_Click(-1);
    Adapters().Combo1_Click(16);
    GoBack();
    EXPECT_EQ(returned, 1);
}

} // namespace
} // namespace qvm::test
