// Window F60: doors, dates, object groups, and what they leave on the disk.

#include "F60Fixture.h"

namespace qvm::test {
namespace {

TEST_F(F60_Karten, the_key_of_the_main_window_opens_it_and_back_leads_there) {
    Start();
    F2& main = programm->Main->F2;
    main.F2_Laden();
    main.Timer2.Stop();
    main.Verbunden = 1;
    main.Toolbar1_ButtonClick("GastCard");
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_FALSE(main.Fenster.Visible);
    Window().Toolbar1_ButtonClick(u8"Zurück"_w);
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_TRUE(main.Fenster.Visible);
    EXPECT_TRUE(main.Timer2.Running());
}

TEST_F(F60_Karten, shows_the_doors_with_offset_mode_and_room) {
    Door(2, "BB00 0A 10 02 ", "77");
    Door(4, "AA00 0A 10 05 ", "99"); // of another serial
    Open();
    EXPECT_EQ(Cell(1, CardColumn::Number), "1");
    EXPECT_EQ(Cell(1, CardColumn::Name), "Room 1");
    EXPECT_EQ(Cell(1, CardColumn::Serial), "00.0A.10.01");
    EXPECT_EQ(Cell(1, CardColumn::Mode), "L218");
    EXPECT_EQ(Cell(1, CardColumn::Room), "258");
    EXPECT_EQ(Cell(2, CardColumn::OffsetName), "Late");
    EXPECT_EQ(Cell(2, CardColumn::OffsetId), "OFST0x01");
    EXPECT_EQ(Cell(2, CardColumn::Mode), "");
    EXPECT_EQ(Cell(2, CardColumn::Room), "77");
    EXPECT_EQ(Cell(3, CardColumn::Name), "");
    EXPECT_EQ(Cell(4, CardColumn::Room), "");
    EXPECT_EQ(Cell(4, CardColumn::OffsetId), "") << "no lock without an offset takes one";
}

TEST_F(F60_Karten, a_blank_identifier_of_an_offset_is_that_of_its_record) {
    files.Put("T4OFFSETGST.FST", 38, 1, 30, 8, "");
    Open();
    EXPECT_EQ(Cell(2, CardColumn::OffsetId), "OFST0x01");
    EXPECT_EQ(Cell(1, CardColumn::OffsetId), "");
}

TEST_F(F60_Karten, without_default_times_both_times_are_empty) {
    world.Disk.Files.erase(Times);
    Open();
    EXPECT_EQ(Window().Text1.Text(), "");
    EXPECT_EQ(Window().Text2.Text(), "");
    Window().Text1_KeyPress('9'); // there is a box to type into all the same
    EXPECT_EQ(Window().Text1.Text(), "20:00");
}

TEST_F(F60_Karten, a_click_on_the_mark_goes_round) {
    Open();
    const auto click = [this] { Window().FGK60_Click(1, CardColumn::Mark); };
    click();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "X");
    EXPECT_EQ(Window().FGK60.At(1, CardColumn::Mark).BackColor, 0x808080U);
    EXPECT_EQ(Window().FGK60.At(1, CardColumn::Mark).FontSize, 16);
    EXPECT_FALSE(Window().Geaendert);
    click();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "P");
    EXPECT_EQ(Window().FGK60.At(1, CardColumn::Mark).BackColor, 0x808080U);
    EXPECT_TRUE(Window().Geaendert);
    Window().Geaendert = false;
    click();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "");
    EXPECT_EQ(Window().FGK60.At(1, CardColumn::Mark).BackColor, White);
    EXPECT_EQ(Window().FGK60.At(1, CardColumn::Mark).FontSize, 16);
    EXPECT_TRUE(Window().Geaendert);
    Window().FGK60_Click(1, CardColumn::Name);
    EXPECT_EQ(Cell(1, CardColumn::Mark), "");
    Window().FGK60_KeyPress(' ');
    EXPECT_EQ(Cell(1, CardColumn::Mark), "X");
}

TEST_F(F60_Karten, takes_marks_back_one_at_a_time_and_asks_for_what_that_changes) {
    Open();
    for (int n = 0; n < 3; ++n) {
        Window().FGK60_Click(1, CardColumn::Mark); // "X", "P", none
    }
    Window().FGK60_Click(2, CardColumn::Mark);
    Window().Undo_Click();
    EXPECT_EQ(Cell(2, CardColumn::Mark), "");
    Window().Undo_Click();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "P");
    Window().Toolbar1_ButtonClick("Speichern");
    EXPECT_FALSE(Window().Geaendert);
    Window().Undo_Click();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "X");
    EXPECT_TRUE(Window().Geaendert) << "the file holds the door";
    Window().Redo_Click();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "P");
    Window().Undo_Click();
    Window().Undo_Click();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "");
    EXPECT_EQ(Window().FGK60.At(1, CardColumn::Mark).BackColor, White);
    EXPECT_FALSE(Window().Rueckgaengig.Enabled());
    Window().Undo_Click();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "");
}

TEST_F(F60_Karten, leaving_asks_nothing_when_undo_has_led_back_to_what_the_file_holds) {
    world.Disk.Files[Perm] = "05.03.2026\r\n00.0A.10.04\r\nENDE\r\n";
    Open();
    Window().FGK60_Click(2, CardColumn::Mark);
    Window().FGK60_Click(2, CardColumn::Mark); // "P"
    Window().FGK60_Click(4, CardColumn::Mark); // none
    EXPECT_TRUE(Window().Geaendert);
    Window().Undo_Click();
    EXPECT_TRUE(Window().Geaendert) << "door 2";
    Window().Undo_Click();
    EXPECT_FALSE(Window().Geaendert);
    Window().Redo_Click();
    EXPECT_TRUE(Window().Geaendert);
    Window().Undo_Click();
    Window().Schliessen();
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_TRUE(world.Shown.empty());
}

TEST_F(F60_Karten, permanent_doors_are_kept_byte_by_byte_and_come_back) {
    Open();
    Mark(2, "P");
    Mark(4, "P");
    Mark(1, "X");
    Window().Toolbar1_ButtonClick("Speichern");
    EXPECT_EQ(world.Disk.Files[Perm], "05.03.2026\r\n00.0A.10.02\r\n00.0A.10.04\r\nENDE\r\n");
    EXPECT_FALSE(Window().Geaendert);
    programm->kern.Windows.Weg("F60")();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "");
    EXPECT_EQ(Cell(2, CardColumn::Mark), "P");
    EXPECT_EQ(Window().FGK60.At(2, CardColumn::Mark).BackColor, 0x808080U);
    EXPECT_EQ(Cell(3, CardColumn::Mark), "");
}

TEST_F(F60_Karten, leaving_asks_while_a_permanent_door_is_unsaved) {
    Open();
    Mark(2, "P");
    Expect(60, Answer::Yes);
    Window().Schliessen();
    EXPECT_EQ(world.Shown.back().Title, "L39");
    EXPECT_EQ(world.Disk.Files[Perm], "05.03.2026\r\n00.0A.10.02\r\nENDE\r\n");
    EXPECT_FALSE(Window().Fenster.Visible);
}

TEST_F(F60_Karten, a_save_that_fails_keeps_file_marks_and_window) {
    world.Disk.Files[Perm] = "05.03.2026\r\n00.0A.10.04\r\nENDE\r\n";
    Open();
    Mark(2, "P");
    world.Disk.Operations = 0;
    world.Disk.FailAt = 1;
    Expect(60, Answer::Yes);
    ExpectWord(Word::PermNotSaved);
    Window().Schliessen();
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_TRUE(Window().Geaendert);
    EXPECT_EQ(Cell(2, CardColumn::Mark), "P");
    EXPECT_EQ(world.Disk.Files[Perm], "05.03.2026\r\n00.0A.10.04\r\nENDE\r\n");
}

TEST_F(F60_Karten, while_a_file_could_not_be_read_nothing_is_saved_and_no_card_is_written) {
    const std::array<const char*, 7> all{"T4OFFSETGST.FST", "OFSTSETUPDT.FST",  "C64UX12H3D.EBW", "PERMSELECT.RFS",
                                         "DOOR1MODEDT.DTA", "ASWTIMQVMLCK.FSN", "ObJNR09DAT.OBN"};
    Selection("OBJEKT", "00000000");
    world.Disk.Files[Perm] = "05.03.2026\r\n00.0A.10.04\r\nENDE\r\n";
    world.Disk.Files[Group] = "05.03.2026\r\n57\r\n58\r\n";
    Open();
    const auto kept = world.Disk.Files;
    std::set<std::string> unread;
    for (int operation = 1; operation <= static_cast<int>(all.size()); ++operation) {
        world.Answers.clear();
        world.Disk.Operations = 0;
        world.Disk.FailAt = operation;
        ExpectText("*");
        Window().F60_FormLaden();
        world.Disk.FailAt = 0;
        for (const char* file : all) {
            if (world.Shown.back().Text.find(file) != std::string::npos) {
                unread.insert(file);
            }
        }
        Mark(1, "X");
        for (const auto act :
             {+[](F60& window) { window.Toolbar1_ButtonClick("Speichern"); },
              +[](F60& window) { window.Command2_Click(); },
              +[](F60& window) { window.Objekt ? window.Command3_Click() : window.Command2_Click(); }}) {
            ExpectWord(Word::CardDataUnread);
            act(Window());
            EXPECT_THAT(world.Answers, IsEmpty()) << operation;
        }
        EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Ungelesen);
        EXPECT_FALSE(Window().Label12.Visible);
        EXPECT_THAT(world.Written, IsEmpty());
        EXPECT_EQ(world.Disk.Files, kept) << operation;
    }
    EXPECT_EQ(unread.size(), all.size());
}

TEST_F(F60_Karten, the_search_ends_at_the_last_door_that_holds_the_text) {
    Open();
    Window().Text3.Text = std::string(" ROOM ");
    Window().Text3_KeyPress(Key::Enter);
    EXPECT_EQ(Window().FGK60.Row, 4);
    EXPECT_EQ(Window().FGK60.Column, CardColumn::Mark);
    Window().Text3.Text = std::string("room 1");
    Window().Command1_Click();
    EXPECT_EQ(Window().FGK60.Row, 1);
    Window().Text3.Text = std::string("  ");
    Window().Command1_Click();
    EXPECT_EQ(Window().FGK60.Row, 1);
    Window().Text3.Text = std::string("cellar");
    Window().Command1_Click();
    EXPECT_EQ(Window().FGK60.Row, 1);
    EXPECT_EQ(Window().Hinweis.Text(), Wort(programm->kern, Word::DoorNotFound));
}

// ---- the stay

TEST_F(F60_Karten, the_stay_is_told_with_weekdays_and_nights) {
    Open();
    EXPECT_EQ(Window().Label10.Text(), "05.03.2026");
    EXPECT_EQ(Window().Label11.Text(), "05.03.2026");
    Window().MV1_Waehlen({.Year = 2028, .Month = 2, .Day = 28}); // a Monday
    Window().MV2_Waehlen({.Year = 2028, .Month = 3, .Day = 1});  // a Wednesday, behind the leap day
    EXPECT_EQ(Window().Aufenthalt.Text(),
              Wort(programm->kern, Word::StayNights, {"L95, 28.02.2028", "L97, 01.03.2028", "2"}));
    EXPECT_EQ(Window().Label11.ForeColor(), Black);
    EXPECT_EQ(Window().Mangel.Text(), "");
}

TEST_F(F60_Karten, a_check_out_before_the_check_in_is_coloured_and_told_but_not_refused) {
    Open();
    Window().MV1_Waehlen({.Year = 2026, .Month = 3, .Day = 8});
    EXPECT_EQ(Window().Label11.ForeColor(), CardLook::Reversed);
    EXPECT_EQ(Window().Mangel.Text(), Wort(programm->kern, Word::StayReversed));
    Window().MV2_Waehlen({.Year = 2026, .Month = 3, .Day = 8});
    EXPECT_EQ(Window().Mangel.Text(), "") << "15:00 is behind 09:30";
    Window().Text2_KeyPress('0'); // 05:00
    EXPECT_EQ(Window().Mangel.Text(), Wort(programm->kern, Word::StayReversed));
    BeginWriting();
}

TEST_F(F60_Karten, a_time_that_is_none_is_told_as_the_card_will_have_midnight) {
    world.Disk.Files[Times] = "05.03.2026\r\n09:30\r\n";
    Open();
    EXPECT_EQ(Window().Mangel.Text(), Wort(programm->kern, Word::CardTimeMissing));
    EXPECT_EQ(Window().Label11.ForeColor(), CardLook::Reversed) << "00:00 is before 09:30";
    Mark(1, "X");
    EXPECT_THAT(Window().Karte().Minuten, ElementsAre(9 * 60 + 30, 0));
    Window().Text2_KeyPress('1');
    EXPECT_EQ(Window().Mangel.Text(), "");
    EXPECT_EQ(Window().Label11.ForeColor(), Black);
    for (const char* wild : {"x", "24:00", " ", "hh:mm and more"}) {
        world.Disk.Files[Times] = "05.03.2026\r\n" + std::string(wild) + "\r\n15:00\r\n";
        Window().F60_FormLaden();
        EXPECT_EQ(Window().Mangel.Text(), Wort(programm->kern, Word::CardTimeMissing)) << wild;
        EXPECT_EQ(Window().Karte().Minuten[0], 0);
    }
}

TEST_F(F60_Karten, a_mark_beside_which_no_lock_stands_is_told) {
    Open();
    Mark(1, "X");
    EXPECT_EQ(Window().Markiert.Text(), Wort(programm->kern, Word::GuestDoors, {"1", "0"}));
    Mark(3, "P");
    Mark(200, "X");
    EXPECT_EQ(Window().Markiert.Text(), Wort(programm->kern, Word::GuestDoors, {"2", "1"}) + ", " +
                                            Wort(programm->kern, Word::GuestDoorsNoLock, {"2"}));
}

TEST_F(F60_Karten, doors_that_do_not_fit_on_the_card_are_told) {
    for (int row = 1; row <= 28; ++row) {
        files.Lock(row, "Door " + std::to_string(row), "00.0A.11." + std::to_string(10 + row));
    }
    Door(1, "AA00 0A 11 11 ", "5");
    Open();
    for (int row = 1; row <= 28; ++row) {
        Mark(row, "X");
    }
    // One at place 0, the others behind the four places of permanent doors: 22 fit.
    EXPECT_EQ(Window().Markiert.Text(), Wort(programm->kern, Word::GuestDoors, {"28", "0"}) + ", " +
                                            Wort(programm->kern, Word::GuestDoorsBeyond, {"6"}));
}

TEST_F(F60_Karten, a_year_that_no_card_can_hold_is_refused) {
    Open();
    for (const int year : {1999, 2100}) {
        Expect(Line::EntryInvalid);
        Window().MV1_Waehlen({.Year = year, .Month = 12, .Day = 31});
        EXPECT_EQ(Window().Label10.Text(), "05.03.2026");
    }
}

// ---- object groups

TEST_F(F60_Karten, a_hotel_has_no_groups) {
    Selection("HOTEL", "X000000X");
    Open();
    EXPECT_FALSE(Window().List1.Visible);
    EXPECT_FALSE(Window().Command3.Enabled);
    EXPECT_FALSE(Window().Label8.Visible);
    Mark(1, "X");
    EXPECT_EQ(Window().Karte().Betriebsart, 0x80);
    EXPECT_EQ(Window().Karte().SlotMaske, 0x81);
}

TEST_F(F60_Karten, any_other_word_than_hotel_means_an_object) {
    for (const char* word : {"OBJEKT", "", "MOTEL"}) {
        Selection(word, "0X000000");
        Open();
        EXPECT_TRUE(Window().List1.Visible) << word;
        EXPECT_EQ(Window().Karte().Betriebsart, 0x81);
        EXPECT_EQ(Window().Karte().SlotMaske, 0x02);
        EXPECT_EQ(Window().Label8.Text(), "L233 :");
    }
}

TEST_F(F60_Karten, without_its_file_it_is_a_hotel) {
    Open();
    EXPECT_EQ(Window().Karte().Betriebsart, 0x80);
    EXPECT_EQ(Window().Karte().SlotMaske, 0);
}

TEST_F(F60_Karten, a_new_group_counts_on_and_is_kept) {
    Selection("OBJEKT", "00000000");
    world.Disk.Files[Group] = "05.03.2026\r\n7\r\n8\r\n";
    Open();
    EXPECT_EQ(Window().List1.Selected(), 7);
    EXPECT_EQ(Window().List1.Entries().size(), 255U);
    EXPECT_EQ(Window().List1.Entries()[254], "Grp - 254");
    Expect(234, Answer::No);
    Window().Command3_Click();
    EXPECT_EQ(Window().GruppenNr, 7);
    Expect(234, Answer::Yes);
    Window().Command3_Click();
    EXPECT_EQ(world.Shown.back().Title, "L39");
    EXPECT_EQ(Window().GruppenNr, 8);
    EXPECT_EQ(Window().List1.Selected(), 8);
    EXPECT_EQ(world.Disk.Files[Group], "05.03.2026\r\n8\r\n9\r\n");
}

TEST_F(F60_Karten, behind_group_254_comes_1) {
    Selection("OBJEKT", "00000000");
    world.Disk.Files[Group] = "05.03.2026\r\n254\r\n255\r\n";
    Open();
    Expect(234, Answer::Yes);
    Window().Command3_Click();
    EXPECT_EQ(Window().GruppenNr, 1);
    EXPECT_EQ(world.Disk.Files[Group], "05.03.2026\r\n1\r\n2\r\n");
}

TEST_F(F60_Karten, a_group_that_cannot_be_saved_is_not_begun) {
    Selection("OBJEKT", "00000000");
    Open();
    world.Disk.Operations = 0;
    world.Disk.FailAt = 1;
    Expect(234, Answer::Yes);
    ExpectWord(Word::GroupNotSaved);
    Window().Command3_Click();
    EXPECT_EQ(Window().GruppenNr, 0);
    EXPECT_EQ(Window().List1.Selected(), 0);
}

TEST_F(F60_Karten, a_group_above_the_current_one_cannot_be_chosen) {
    Selection("OBJEKT", "00000000");
    world.Disk.Files[Group] = "05.03.2026\r\n7\r\n8\r\n";
    Open();
    Window().List1_Waehlen(3);
    EXPECT_EQ(Window().List1.Selected(), 3);
    Mark(1, "X");
    EXPECT_EQ(Window().Karte().TuerBytes[0][3], 3);
    Expect(235);
    Window().List1_Waehlen(8);
    EXPECT_EQ(world.Shown.back().Title, "L39");
    EXPECT_EQ(Window().List1.Selected(), 7);
}

} // namespace
} // namespace qvm::test
