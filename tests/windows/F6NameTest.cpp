// The editor of an adapter's name, and its way to the adapter.

#include "AutoRegister.h"
#include "F6Fixture.h"
#include "Pictures.h"

namespace qvm::test {
namespace {

struct F6_Name : F6_Fixture {
    void SetUp() override {
        F6_Fixture::SetUp();
        Open();
    }
};

// ---- the editor

TEST_F(F6_Name, a_click_opens_the_editor_with_the_cells_text) {
    Adapters().FGK6_Click(2, F6Column::Name);
    EXPECT_TRUE(Adapters().Text3.Visible);
    EXPECT_EQ(Adapters().Text3.Text(), "PROGSTATION Keller");
    EXPECT_EQ(Adapters().Text3.MaxLength, 20);
    EXPECT_EQ(Adapters().FGK6.Row, 2);
}

TEST_F(F6_Name, other_columns_rows_and_the_heading_open_nothing) {
    for (const auto& [row, column] : std::vector<std::pair<int, int>>{
             {1, 0}, {1, 1}, {1, 3}, {1, 4}, {0, 2}, {3, 2}, {21, 2}, {22, 2}, {-1, 2}, {1, -1}, {1, 5}}) {
        Adapters().FGK6_Click(row, column);
        EXPECT_FALSE(Adapters().Text3.Visible) << row << " " << column;
    }
}

TEST_F(F6_Name, a_key_opens_the_editor_with_itself_and_return_with_the_cells_text) {
    Adapters().FGK6.Row = 2;
    Adapters().FGK6.Column = F6Column::Name;
    Adapters().FGK6_KeyPress('X');
    EXPECT_EQ(Adapters().Text3.Text(), "X");
    Adapters().Text3_KeyPress(Key::Escape);
    Adapters().FGK6_KeyPress(Key::Enter);
    EXPECT_EQ(Adapters().Text3.Text(), "PROGSTATION Keller");
    Adapters().Text3_KeyPress(Key::Escape);
    for (const int key : {Key::Tab, Key::Escape, Key::Delete, Key::Backspace}) {
        Adapters().FGK6_KeyPress(key);
        EXPECT_FALSE(Adapters().Text3.Visible) << key;
    }
    Adapters().FGK6.Column = F6Column::Port;
    Adapters().FGK6_KeyPress('X');
    EXPECT_FALSE(Adapters().Text3.Visible);
}

TEST_F(F6_Name, the_editor_takes_twenty_characters_and_no_control_characters) {
    Adapters().FGK6_Click(2, F6Column::Name);
    Adapters().Text3_Change("PROGSTATION \t\x01 56789012");
    EXPECT_EQ(Adapters().Text3.Text(), "PROGSTATION  5678901");
}

TEST_F(F6_Name, escape_puts_the_old_text_back) {
    Adapters().FGK6_Click(1, F6Column::Name);
    Adapters().Text3_Change("PROGSTATION 9");
    Adapters().Text3_KeyPress(Key::Escape);
    EXPECT_FALSE(Adapters().Text3.Visible);
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION 1");
    EXPECT_THAT(Names, IsEmpty());
    GoBack(); // nothing changed
    EXPECT_EQ(returned, 1);
}

TEST_F(F6_Name, an_unchanged_name_sends_nothing_and_says_nothing) {
    Adapters().FGK6_Click(1, F6Column::Name);
    Adapters().Text3_LostFocus();
    Rename(2, "PROGSTATION Keller");
    EXPECT_THAT(Names, IsEmpty());
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(F6_Name, an_emptied_name_is_not_taken_and_the_operator_is_told_why) {
    Open();
    world.Answers.push_back({.Text = "Ein Funkadapter muss einen Namen haben, sonst findet ihn keine Suche. "
                                     "Bitte geben Sie einen Namen ein."});
    Rename(1, "");
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION 1");
    EXPECT_THAT(Names, IsEmpty());
    EXPECT_EQ(world.Shown.size(), 1U);
    GoBack();
    EXPECT_EQ(returned, 1);
}

TEST_F(F6_Name, a_key_that_edits_nothing_leaves_the_editor_open) {
    Adapters().FGK6_Click(1, F6Column::Name);
    Adapters().Text3_KeyPress('a');
    EXPECT_TRUE(Adapters().Text3.Visible);
}

// ---- rules

TEST_F(F6_Name, a_name_of_another_row_is_refused_and_the_old_text_stays) {
    Expect(75);
    Rename(1, "PROGSTATION Keller");
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION 1");
    EXPECT_THAT(Names, IsEmpty());
    Expect(75);
    Rename(1, "  PROGSTATION Keller"); // the file drops the blanks
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION 1");
}

TEST_F(F6_Name, the_name_of_an_absent_adapter_is_taken_into_the_list_and_not_sent) {
    Expect(191);
    Rename(2, "PROGSTATION Dach");
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    EXPECT_EQ(Cell(2, F6Column::Name), "PROGSTATION Dach");
    EXPECT_THAT(Names, IsEmpty());
    Expect(60, Answer::Yes);
    GoBack();
    EXPECT_EQ(world.Disk.Files[List].substr(65 + 16, 20), "PROGSTATION Dach    ");
}

constexpr std::string_view Refusal = "Der Name muss mit PROGSTATION oder ENROLLMENT1 beginnen, sonst findet keine "
                                     "Suche den Adapter wieder. Der alte Name "
                                     "bleibt; bitte geben Sie einen solchen Namen ein.";

TEST_F(F6_Name, one_that_would_hide_the_adapter_from_every_search_is_refused_with_the_reason) {
    for (const int row : {1, 2}) { // connected or not
        for (const char* name : {"Keller", "progstation 1", "PROGSTATIO", " XPROGSTATION", "ENROLLMENT 1"}) {
            const std::string before = Cell(row, F6Column::Name);
            world.Answers.push_back({.Text = std::string(Refusal)});
            Rename(row, name);
            EXPECT_EQ(world.Shown.back().Title, "INFO");
            EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
            EXPECT_EQ(Cell(row, F6Column::Name), before) << name;
        }
    }
    EXPECT_THAT(Names, IsEmpty());
    GoBack(); // nothing changed
    EXPECT_EQ(returned, 1);
}

// ---- an adapter whose name no run looks for

struct F6_Fremder_Name : F6_Fixture {
    static constexpr const char* Address = "/1/2/3/4"; ///< of the second row
    void SetUp() override {
        F6_Fixture::SetUp();
        programm->Adapter.Fremde.push_back({.Adresse = Address, .Name = "Keller", .Port = "8"});
        Open();
    }
};

TEST_F(F6_Fremder_Name, is_shown_connected_and_not_usable) {
    EXPECT_EQ(Picture(2), AdapterPicture::Unusable);
    EXPECT_EQ(Cell(2, F6Column::State), "nicht verwendbar");
    EXPECT_EQ(Cell(2, F6Column::Port), "8");
    EXPECT_EQ(Back(2), F6::ChangedName); // the list says PROGSTATION Keller
    EXPECT_EQ(Picture(1), AdapterPicture::Present);
    EXPECT_EQ(Cell(1, F6Column::State), "");
}

TEST_F(F6_Fremder_Name, is_told_in_the_language_in_use) {
    programm->kern.Config.Sprache = "English";
    Adapters().Texte_Setzen();
    EXPECT_EQ(Cell(2, F6Column::State), "not usable");
    EXPECT_EQ(Cell(1, F6Column::State), "");
    EXPECT_EQ(Cell(3, F6Column::State), "");
}

TEST_F(F6_Fremder_Name, becomes_a_good_one_again_on_its_port) {
    StoredName = "PROGSTATION Dach";
    Expect(189);
    Rename(2, "PROGSTATION Dach");
    EXPECT_EQ(Names.at(0), std::string("PROGSTATION Dach") + std::string(6, '\0'));
    EXPECT_THAT(NamePorts, ElementsAre(8));
    EXPECT_EQ(Picture(2), AdapterPicture::Present);
    EXPECT_EQ(Cell(2, F6Column::State), "");
    EXPECT_EQ(Back(2), White);
    EXPECT_THAT(programm->Adapter.Fremde, IsEmpty());
    ASSERT_EQ(programm->Adapter.Saetze.size(), 2U);
    EXPECT_EQ(programm->Adapter.Saetze[1].Name, "PROGSTATION Dach");
    EXPECT_EQ(programm->Adapter.Saetze[1].Port, "8");
}

TEST_F(F6_Fremder_Name, may_become_that_of_an_enrolment_adapter_which_is_no_choice_for_a_run) {
    StoredName = "ENROLLMENT1";
    Expect(189);
    Rename(2, "ENROLLMENT1");
    EXPECT_EQ(Picture(2), AdapterPicture::Present);
    EXPECT_THAT(programm->Adapter.Fremde, IsEmpty());
    EXPECT_EQ(programm->Adapter.Saetze.size(), 1U);
}

TEST_F(F6_Fremder_Name, that_is_not_taken_leaves_everything_as_it_was) {
    Expect(190);
    Rename(2, "PROGSTATION Dach");
    EXPECT_EQ(Cell(2, F6Column::Name), "PROGSTATION Keller");
    EXPECT_EQ(Picture(2), AdapterPicture::Unusable);
    EXPECT_EQ(programm->Adapter.Fremde.at(0).Name, "Keller");
    EXPECT_EQ(programm->Adapter.Saetze.size(), 1U);
}

// ---- the telegram

TEST_F(F6_Name, a_name_goes_to_the_rows_port_and_the_port_is_set_back) {
    StoredName = "PROGSTATION Tor";
    Expect(189);
    Rename(1, "PROGSTATION Tor");
    EXPECT_EQ(world.Shown.back().Sign, Icon::Information);
    ASSERT_EQ(Names.size(), 1U);
    EXPECT_EQ(Names[0], std::string("PROGSTATION Tor") + std::string(7, '\0'));
    EXPECT_THAT(NamePorts, ElementsAre(7));
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_EQ(programm->link.PortNummer, 5);
    EXPECT_TRUE(world.PortOpen);
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION Tor");
    EXPECT_EQ(programm->Adapter.Saetze[0].Name, "PROGSTATION Tor");
    EXPECT_EQ(world.Elapsed(), 100);
}

TEST_F(F6_Name, bytes_behind_the_reply_in_the_same_event_do_not_spoil_it) {
    StoredName = "PROGSTATION Tor";
    BehindReply = {0x02, 0x1C, 0x6D, 'P', 'R', 'O', 'G', 'x', 'y', 'z', 'P', 'R'};
    Expect(189);
    Rename(1, "PROGSTATION Tor");
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION Tor");
}

TEST_F(F6_Name, twenty_characters_go_out_and_come_back_whole) {
    StoredName = "PROGSTATION 23456789";
    Expect(189);
    Rename(1, "PROGSTATION 23456789");
    EXPECT_EQ(Names.at(0), std::string("PROGSTATION 23456789") + std::string(2, '\0'));
}

TEST_F(F6_Name, nothing_of_an_earlier_telegram_goes_out_with_it) {
    programm->link.TxBuffer.fill(0x77);
    StoredName = "ENROLLMENT1";
    Expect(189);
    Rename(1, "ENROLLMENT1");
    EXPECT_EQ(Names.at(0), "ENROLLMENT1" + std::string(11, '\0'));
}

TEST_F(F6_Name, a_name_that_reads_back_differently_is_a_failure_and_the_old_text_returns) {
    for (const char* stored : {"PROGSTATION Top", "PROGSTATION To", "PROGSTATION Torx", ""}) {
        StoredName = stored;
        Expect(190);
        Rename(1, "PROGSTATION Tor");
        EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
        EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION 1") << stored;
        EXPECT_EQ(programm->Adapter.Saetze[0].Name, "PROGSTATION 1");
    }
}

TEST_F(F6_Name, a_silent_adapter_is_waited_for_800_ms) {
    Expect(190);
    Rename(1, "PROGSTATION Tor");
    EXPECT_EQ(world.Elapsed(), 801); // more than 0.8 s
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION 1");
    EXPECT_EQ(world.PortNumber, 5);
}

TEST_F(F6_Name, a_port_that_does_not_open_is_a_failure_at_once) {
    world.PortThere = [](int port) { return port == 5; };
    Expect(190);
    Rename(1, "PROGSTATION Tor");
    EXPECT_THAT(Names, IsEmpty());
    EXPECT_EQ(world.Elapsed(), 0);
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_TRUE(world.PortOpen);
}

TEST_F(F6_Name, a_row_without_a_port_sends_nothing_and_says_nothing) {
    for (const char* port : {"", "x", "0", "-1"}) {
        Adapters().FGK6.SetText(1, F6Column::Port, port);
        EXPECT_FALSE(Adapters().Transmit_USB_WORD(1, "PROGSTATION Tor", "PROGSTATION 1"));
    }
    EXPECT_THAT(Names, IsEmpty());
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(F6_Name, the_port_taken_out_during_the_write_is_not_opened_again) {
    world.At(300, [this] {
        world.AdapterPortNumbers = {9};
        Port_Einrichten(programm->link, programm->Adapter);
    });
    Expect(190);
    Rename(1, "PROGSTATION Tor");
    EXPECT_EQ(world.PortNumber, 9);
}

TEST_F(F6_Name, a_marked_row_is_sent_again_unchanged_and_then_loses_its_mark) {
    programm->Adapter.Saetze[0].Name = "PROGSTATION 2";
    Open();
    ASSERT_EQ(Back(1), F6::ChangedName);
    StoredName = "PROGSTATION 1";
    Expect(189);
    Rename(1, "PROGSTATION 1");
    EXPECT_EQ(Back(1), White);
    EXPECT_EQ(Names.size(), 1U);
    EXPECT_EQ(programm->Adapter.Saetze[0].Name, "PROGSTATION 1");
}

TEST_F(F6_Name, keys_do_nothing_while_the_adapter_is_waited_for) {
    world.At(300, [this] {
        GoBack();
        Adapters().Command1_Click();
        Adapters().FGK6_Click(2, F6Column::Name);
    });
    Expect(190);
    Rename(1, "PROGSTATION Tor");
    EXPECT_TRUE(Adapters().Fenster.Visible);
    EXPECT_FALSE(Adapters().Text3.Visible);
    EXPECT_EQ(returned, 0);
}

TEST_F(F6_Name, an_open_editor_is_taken_over_before_the_window_saves) {
    StoredName = "PROGSTATION Tor";
    Expect(189);
    Adapters().FGK6_Click(1, F6Column::Name);
    Adapters().Text3_Change("PROGSTATION Tor");
    Press("Speichern");
    EXPECT_EQ(world.Disk.Files[List].substr(16, 20), "PROGSTATION Tor     ");
}

} // namespace
} // namespace qvm::test
