// Window F42: default times, offsets, mode and guest slots.

#include "F42.h"

#include "FensterFixture.h"
#include "TimeWindows.h"

namespace qvm::test {
namespace {

constexpr const char *OffsetFile = "/q/DAT/T4OFFSETGST.FST", *TimesFile = "/q/DAT/OFSTSETUPDT.FST",
                     *SelectionFile = "/q/DAT/ASWTIMQVMLCK.FSN", *SlotFile = "/q/DAT/TX33Y98BSG9.TBW";

/// Two offsets, default times 10:00 and 16:00, mode "OBJEKT", slots 2 and 8 selected. Today is 05.03.2026.
struct F42_Fenster : FensterFixture {
    void SetUp() override {
        world.Disk.Files[OffsetFile] = "Brunch              01:3010:00OFST0x01"
                                       "Late                03:0016:00OFST0x02"
                                       "OFF                 00:0000:00OFST0x03"
                                       "OFF                 00:0000:00OFST0x04";
        world.Disk.Files[TimesFile] = "05.03.2026\r\n10:00\r\n16:00\r\n00\r\n01\r\n";
        world.Disk.Files[SelectionFile] = "05.03.2026\r\nOBJEKT\r\n0\r\nX\r\n0\r\n0\r\n0\r\n0\r\n0\r\nX\r\nENDE\r\n";
        files.Slot(1, 8, "07:00", "18:00");
        files.Slot(2, 7, "10:00", "12:30");
        Start();
        programm->Main->F2.F2_Laden();
    }
    F42& Window() { return programm->Times->F42; }
    void Open() { programm->Main->F2.F2_Gasttimer_Click(); }
    std::string Row(int row) {
        const Grid& grid = Window().FGK42;
        return grid.Text(row, 1) + "|" + grid.Text(row, 2) + "|" + grid.Text(row, 3) + "|" + grid.Text(row, 4);
    }
    void TimeKeys(std::string_view keys) {
        for (const char key : keys) {
            Window().Text3_KeyPress(key);
        }
    }
    void Save() { Window().Toolbar1_ButtonClick("Speichern"); }
    void Back() { Window().Toolbar1_ButtonClick(u8"Zurück"_w); }
    void ExpectWord(Word word) { world.Answers.push_back({.Text = Wort(programm->kern, word)}); }
};

TEST_F(F42_Fenster, comes_in_place_of_the_main_window_and_leads_back) {
    Open();
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_FALSE(programm->Main->F2.Fenster.Visible);
    Back();
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_TRUE(programm->Main->F2.Fenster.Visible);
}

TEST_F(F42_Fenster, shows_what_the_files_hold_under_the_words_of_the_catalogue) {
    Open();
    EXPECT_EQ(Row(1), "Brunch|01:30|10:00|OFST0x01");
    EXPECT_EQ(Row(4), "OFF|00:00|00:00|OFST0x04");
    EXPECT_EQ(Window().Text1.Text(), "10:00");
    EXPECT_EQ(Window().Text2.Text(), "16:00");
    EXPECT_EQ(Window().Combo1.Entries(), (std::vector<std::string>{"L225", "L226"}));
    EXPECT_EQ(Window().Combo1.Selected(), 1);
    EXPECT_EQ(Window().Label1.Text(), "L212");
    EXPECT_EQ(Window().Frame1.Text(), "L210");
    EXPECT_EQ(Window().Label2.Text(), "L206 :");
    EXPECT_EQ(Window().Label3.Text(), "L207 :");
    EXPECT_EQ(Window().Label4.Text(), "hh:mm");
    EXPECT_EQ(Window().Label5.Text(), "hh:mm");
    EXPECT_EQ(Window().Frame2.Text(), "L223");
    EXPECT_EQ(Window().Label6.Text(), "L224 :");
    EXPECT_EQ(Window().Label7.Text(), "L39");
    const Grid& offsets = Window().FGK42;
    EXPECT_EQ(offsets.Text(0, 0) + offsets.Text(0, 1) + offsets.Text(0, 2) + offsets.Text(0, 3), "L37L42L56L211");
    const Grid& slots = Window().FGK42B;
    EXPECT_EQ(slots.Text(0, 0) + slots.Text(0, 1) + slots.Text(0, 2) + slots.Text(0, 3) + slots.Text(0, 4),
              "L37L92L93L94Sel");
    EXPECT_EQ(slots.Text(1, 1) + "|" + slots.Text(1, 2) + "|" + slots.Text(1, 3), "L102|07:00|18:00");
    EXPECT_EQ(slots.Text(2, 1), "L101");
    EXPECT_EQ(slots.Text(3, 1), "L2");
    EXPECT_EQ(slots.Text(1, 4), "");
    EXPECT_EQ(slots.Text(8, 4), "X");
    EXPECT_EQ(slots.At(8, 4).BackColor, 0x808080U);
    EXPECT_EQ(slots.At(8, 4).FontSize, 16);
    EXPECT_FALSE(Window().Geaendert);
}

TEST_F(F42_Fenster, of_a_new_installation_has_blank_offsets_the_usual_times_a_hotel_and_slots_that_are_off) {
    world.Disk.Files.erase(OffsetFile);
    world.Disk.Files.erase(TimesFile);
    world.Disk.Files.erase(SelectionFile);
    world.Disk.Files.erase(SlotFile);
    Open();
    EXPECT_EQ(Row(1), "|||");
    EXPECT_EQ(Window().Text1.Text(), "09:30");
    EXPECT_EQ(Window().Text2.Text(), "15:00");
    EXPECT_EQ(Window().Combo1.Selected(), 0);
    EXPECT_EQ(Window().FGK42B.Text(8, 1) + Window().FGK42B.Text(8, 2) + Window().FGK42B.Text(8, 3), "L200:0000:00");
    EXPECT_EQ(world.Disk.Files[OffsetFile].substr(0, 38), "OFF                 00:0000:00OFST0x01");
    EXPECT_FALSE(world.Disk.Files.contains(SlotFile));
    Save();
    EXPECT_EQ(world.Disk.Files[OffsetFile], std::string(152, ' '));
    Open();
    EXPECT_EQ(Row(1), "|||OFST0x01");
}

TEST_F(F42_Fenster, saves_all_three_files) {
    Open();
    Window().FGK42_KeyPress('N');
    Window().Text4_Change("New name");
    Window().Text4_KeyPress(Key::Enter);
    Window().Combo1_Click(0);
    Window().FGK42B_Click(1, 4);
    Window().FGK42B_Click(8, 4);
    Window().Text1.Caret = 0;
    Window().Text1_KeyPress('1');
    Window().Text1_KeyPress('1');
    Save();
    EXPECT_FALSE(Window().Geaendert);
    EXPECT_EQ(world.Disk.Files[TimesFile], "05.03.2026\r\n11:00\r\n16:00\r\n00\r\n01\r\n");
    EXPECT_EQ(world.Disk.Files[OffsetFile].substr(0, 38), "New name            01:3010:00OFST0x01");
    EXPECT_EQ(world.Disk.Files[SelectionFile],
              "05.03.2026\r\nHOTEL\r\nX\r\nX\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\nENDE\r\n");
}

TEST_F(F42_Fenster, takes_a_name_begun_by_a_key_and_gives_it_back_at_escape) {
    Open();
    Window().Auswahl.Go(2, 1);
    Window().FGK42_KeyPress('Q');
    EXPECT_TRUE(Window().Text4.Visible);
    EXPECT_EQ(Window().Text4.Text(), "Q");
    EXPECT_EQ(Window().Text4.Caret(), 1);
    EXPECT_EQ(Window().Text4.MaxLength, 20);
    EXPECT_TRUE(Window().Geaendert);
    Window().Text4_Change("Quick");
    Window().Text4_KeyPress(Key::Escape);
    EXPECT_FALSE(Window().Text4.Visible);
    EXPECT_EQ(Row(2), "Late|03:00|16:00|OFST0x02");
    Window().FGK42_KeyPress(Key::Enter);
    EXPECT_EQ(Window().Text4.Text(), "Late");
    EXPECT_EQ(Window().Text4.Caret(), 0);
    Window().Text4_Change("Later");
    Window().Text4_KeyPress(Key::Tab);
    EXPECT_EQ(Row(2), "Later|03:00|16:00|OFST0x02");
    Window().FGK42_DblClick(2, 1);
    Window().Text4_Change("Latest");
    Window().Editor_LostFocus();
    EXPECT_EQ(Row(2), "Latest|03:00|16:00|OFST0x02");
}

TEST_F(F42_Fenster, opens_a_time_with_the_digit_that_was_typed_and_with_zero_for_any_other_key) {
    Open();
    Window().Auswahl.Go(1, 2);
    for (const auto& [key, text] : {std::pair{'1', "10:00"}, std::pair{'9', "20:00"}, std::pair{'a', "00:00"}}) {
        Window().FGK42_KeyPress(key);
        EXPECT_TRUE(Window().Text3.Visible);
        EXPECT_EQ(Window().Text3.Text(), text);
        EXPECT_EQ(Window().Text3.Caret(), 1);
        Window().Text3_KeyPress(Key::Escape);
        EXPECT_EQ(Row(1), "Brunch|01:30|10:00|OFST0x01");
    }
    Window().FGK42_KeyPress(Key::Enter);
    EXPECT_EQ(Window().Text3.Text(), "01:30");
    EXPECT_EQ(Window().Text3.Caret(), 0);
    TimeKeys("2978");
    EXPECT_EQ(Window().Text3.Text(), "23:58");
    Window().Text3_KeyPress(Key::Tab);
    EXPECT_EQ(Row(1), "Brunch|23:58|10:00|OFST0x01");
}

TEST_F(F42_Fenster, holds_a_whole_time_over_a_cell_without_one) {
    world.Disk.Files[OffsetFile].replace(20, 5, "     ");
    Open();
    Window().FGK42_DblClick(1, 2);
    EXPECT_EQ(Window().Text3.Text(), "00:00");
    Window().Text3_KeyPress(Key::Escape);
    EXPECT_EQ(Row(1), "Brunch||10:00|OFST0x01");
}

TEST_F(F42_Fenster, copies_a_default_time_as_base_and_tells_when_it_is_none_any_more) {
    Open();
    EXPECT_EQ(Window().Mangel.Text(), "");
    Window().FGK42_DblClick(1, 3);
    EXPECT_TRUE(Window().List1.Visible);
    EXPECT_EQ(Window().List1.Entries(), (std::vector<std::string>{"10:00", "16:00"}));
    EXPECT_EQ(Window().List1.Selected(), 0);
    Window().List1_Waehlen(1);
    EXPECT_EQ(Row(1), "Brunch|01:30|16:00|OFST0x01");
    Window().Text2.Caret = 0;
    for (const int key : {'1', '7'}) {
        Window().Text2_KeyPress(key);
    }
    EXPECT_EQ(Window().Text2.Text(), "17:00");
    EXPECT_EQ(Row(1), "Brunch|01:30|16:00|OFST0x01");
    EXPECT_EQ(Window().Mangel.Text(), Wort(programm->kern, Word::OffsetBaseLost));
    Window().Auswahl.Go(3, 1);
    EXPECT_EQ(Window().Mangel.Text(), "");
    Window().FGK42_KeyPress('x');
    Window().Text4_KeyPress(Key::Escape);
    Window().Auswahl.Go(3, 3);
    Window().FGK42_KeyPress('5');
    Window().List1_Abbrechen();
    Window().List1_Waehlen(0);
    EXPECT_EQ(Row(3), "OFF|00:00|00:00|OFST0x03");
}

TEST_F(F42_Fenster, tells_of_an_offset_whose_time_is_none) {
    for (const char* time : {"     ", "24:00", "xx:yy"}) {
        world.Disk.Files[OffsetFile].replace(20, 5, time);
        Open();
        EXPECT_EQ(Window().Mangel.Text(), Wort(programm->kern, Word::OffsetTimeLost)) << time;
        Window().Auswahl.Go(2, 1);
        EXPECT_EQ(Window().Mangel.Text(), "");
        Window().F42_FormLaden();
        Window().FGK42_Eintragen(1, 2, "12:00");
        EXPECT_EQ(Window().Mangel.Text(), "");
    }
}

TEST_F(F42_Fenster, asks_nothing_for_a_mode_that_stood_already) {
    Open();
    Window().Combo1_Click(1);
    EXPECT_FALSE(Window().Geaendert);
    Window().Combo1_Click(2);
    EXPECT_FALSE(Window().Geaendert);
    Window().Combo1_Click(0);
    EXPECT_TRUE(Window().Geaendert);
}

TEST_F(F42_Fenster, keeps_the_identifier_of_an_offset_that_is_deleted) {
    Open();
    int menus = 0;
    Window().Menue_Zeigen = [&] { ++menus; };
    Window().FGK42_MouseUp(MouseButton::Right, 2, 2);
    Window().FGK42_MouseUp(MouseButton::Right, 0, 1);
    EXPECT_EQ(menus, 0);
    Window().FGK42_MouseUp(MouseButton::Right, 2, 1);
    EXPECT_EQ(menus, 1);
    Window().F42Loeschen_Click();
    EXPECT_EQ(Row(2), "|00:00|00:00|OFST0x02");
    EXPECT_TRUE(Window().Geaendert);
    Window().Undo_Click();
    EXPECT_EQ(Row(2), "Late|03:00|16:00|OFST0x02");
    Window().Redo_Click();
    EXPECT_EQ(Row(2), "|00:00|00:00|OFST0x02");
    Window().FGK42_Kontext();
    EXPECT_EQ(menus, 2);
}

TEST_F(F42_Fenster, takes_marks_of_slots_and_changes_of_offsets_back_in_their_order) {
    Open();
    Window().FGK42_Eintragen(2, OffsetColumn::Name, "Night");
    const std::string before = Row(2);
    Window().FGK42B_Click(5, 4);
    Window().FGK42B_Click(5, 4);
    Window().FGK42_Eintragen(2, OffsetColumn::Name, "Noon");
    Window().Undo_Click();
    EXPECT_EQ(Row(2), before);
    EXPECT_EQ(Window().FGK42B.Text(5, 4), "");
    Window().Undo_Click();
    EXPECT_EQ(Window().FGK42B.Text(5, 4), "X");
    EXPECT_EQ(Window().FGK42B.At(5, 4).BackColor, 0x808080U);
    Window().Undo_Click();
    EXPECT_EQ(Window().FGK42B.Text(5, 4), "");
    EXPECT_EQ(Window().FGK42B.At(5, 4).BackColor, White);
    EXPECT_EQ(Row(2), before);
    Window().Redo_Click();
    EXPECT_EQ(Window().FGK42B.Text(5, 4), "X");
    EXPECT_TRUE(Window().Wiederholen.Enabled());
}

TEST_F(F42_Fenster, knows_no_step_of_before_it_was_opened_anew) {
    Open();
    Window().FGK42B_Click(5, 4);
    EXPECT_TRUE(Window().Rueckgaengig.Enabled());
    Window().F42_FormLaden();
    EXPECT_FALSE(Window().Rueckgaengig.Enabled());
    Window().Undo_Click();
    EXPECT_EQ(Window().FGK42B.Text(5, 4), "");
    EXPECT_FALSE(Window().Geaendert);
}

TEST_F(F42_Fenster, selects_a_slot_in_its_last_column_only_and_no_more_at_the_second_click) {
    Open();
    Window().FGK42B_Click(3, 3);
    Window().FGK42B_Click(0, 4);
    Window().FGK42B_Click(9, 4);
    EXPECT_FALSE(Window().Geaendert);
    Window().FGK42B_Click(3, 4);
    EXPECT_TRUE(Window().Geaendert);
    EXPECT_EQ(Window().FGK42B.Text(3, 4), "X");
    EXPECT_EQ(Window().FGK42B.At(3, 4).BackColor, 0x808080U);
    Window().FGK42B_Click(3, 4);
    EXPECT_EQ(Window().FGK42B.Text(3, 4), "");
    EXPECT_EQ(Window().FGK42B.At(3, 4).BackColor, White);
    EXPECT_EQ(Window().FGK42B.At(3, 4).FontSize, 16);
}

TEST_F(F42_Fenster, draws_the_week_of_the_slots_that_are_selected) {
    Open();
    const WeekChart& chart = Window().Woche.Chart();
    EXPECT_THAT(chart.Days[0].Bars, IsEmpty());
    ASSERT_EQ(chart.Days[6].Bars.size(), 1U); // slot 2, on Sundays; slot 8 is off
    EXPECT_EQ(chart.Days[6].Bars[0].From, 10 * 60);
    EXPECT_EQ(chart.Days[6].Bars[0].To, 12 * 60 + 30);
    EXPECT_EQ(chart.Today, 3); // 05.03.2026 is a Thursday
    Window().FGK42B_Click(1, 4);
    EXPECT_EQ(Window().Woche.Chart().Days[4].Bars.size(), 1U);
    Window().FGK42B_Click(2, 4);
    EXPECT_THAT(Window().Woche.Chart().Days[6].Bars, IsEmpty());
}

TEST_F(F42_Fenster, moves_the_present_moment_of_its_week_on_while_it_is_open) {
    Open();
    const int minute = Window().Woche.Chart().Minute;
    world.RunFor(2 * 60 * 1000 + 500);
    EXPECT_EQ(Window().Woche.Chart().Minute, minute + 2);
    Back();
    EXPECT_FALSE(Window().Uhr.Running());
}

TEST_F(F42_Fenster, goes_from_the_first_default_time_to_the_second_and_never_leaves_a_time_half) {
    Open();
    bool second = false;
    Window().Text2.SetFocus = [&] { second = true; };
    Window().Text1_KeyPress(Key::Enter);
    EXPECT_TRUE(second);
    EXPECT_FALSE(Window().Geaendert);
    Window().Text1.Caret = 2;
    Window().Text1_KeyPress('5');
    EXPECT_EQ(Window().Text1.Text(), "10:00");
    Window().Text1.Caret = 3;
    Window().Text1_KeyPress('9');
    Window().Text1_KeyPress(Key::Backspace);
    EXPECT_EQ(Window().Text1.Text(), "10:50");
    EXPECT_TRUE(Window().Geaendert);
    second = false;
    Window().Text2_KeyPress(Key::Enter);
    EXPECT_FALSE(second);
    // The two need not be in order.
    Window().Text1.Caret = 0;
    for (const int key : {'2', '3'}) {
        Window().Text1_KeyPress(key);
    }
    Save();
    EXPECT_FALSE(Window().Geaendert);
}

TEST_F(F42_Fenster, asks_while_there_is_something_to_save) {
    const auto before = world.Disk.Files;
    Open();
    Window().Combo1_Click(0);
    Expect(60, Answer::No);
    Back();
    EXPECT_EQ(world.Shown.back().Title, "L39");
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_EQ(world.Disk.Files, before);
    Open();
    EXPECT_EQ(Window().Combo1.Selected(), 1);
    Window().Combo1_Click(0);
    Expect(60, Answer::Yes);
    Back();
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_EQ(world.Disk.Files[SelectionFile].substr(12, 5), "HOTEL");
}

TEST_F(F42_Fenster, stores_the_editor_that_is_open_when_it_saves_or_leaves) {
    Open();
    Window().FGK42_DblClick(1, 1);
    Window().Text4_Change("Open still");
    Save();
    EXPECT_EQ(world.Disk.Files[OffsetFile].substr(0, 10), "Open still");
}

TEST_F(F42_Fenster, keeps_what_the_disk_refuses_and_says_so) {
    Open();
    const auto before = world.Disk.Files;
    Window().FGK42B_Click(1, 4);
    ExpectWord(Word::GuestTimesNotSaved);
    world.Disk.FailAt = world.Disk.Operations + 6; // behind four reads the second of the three files
    Save();
    EXPECT_EQ(world.Disk.Files, before);
    EXPECT_TRUE(Window().Geaendert);
    EXPECT_EQ(Window().FGK42B.Text(1, 4), "X");
    Save();
    EXPECT_FALSE(Window().Geaendert);
}

TEST_F(F42_Fenster, saves_nothing_over_a_file_that_it_could_not_read) {
    const auto before = world.Disk.Files;
    for (int operation = 1; operation <= 4; ++operation) {
        world.Disk.FailAt = world.Disk.Operations + operation;
        ExpectWord(Word::GuestTimesUnread);
        Window().F42_FormLaden();
        ExpectWord(Word::GuestTimesUnread);
        Save();
        EXPECT_EQ(world.Disk.Files, before) << operation;
        EXPECT_THAT(world.Answers, IsEmpty());
        Back();
    }
}

TEST_F(F42_Fenster, tells_of_slots_that_cannot_be_believed_and_shows_none_for_off) {
    world.Disk.Files[SlotFile] = "\x01"
                                 "08:0009:00"
                                 "\x7F"
                                 "10:0011:00"
                                 "\x02"
                                 "12:0013:00";
    const std::string before = world.Disk.Files[SlotFile];
    world.Answers.push_back({.Text = "*"});
    Open();
    EXPECT_THAT(world.Answers, IsEmpty());
    EXPECT_THAT(world.Shown.back().Text, ::testing::HasSubstr("TX33Y98BSG9.TBW"));
    const auto row = [&](int n) {
        return Window().FGK42B.Text(n, 1) + "|" + Window().FGK42B.Text(n, 2) + "|" + Window().FGK42B.Text(n, 3);
    };
    EXPECT_NE(row(1).find("|08:00|09:00"), std::string::npos);
    EXPECT_EQ(row(2), "?||");
    EXPECT_EQ(row(3), "?||");
    EXPECT_EQ(row(8), "?||");
    Save();
    EXPECT_EQ(world.Disk.Files[SlotFile], before);
    world.Disk.Files[SlotFile][11] = '\x02';
    Back();
    Open();
    EXPECT_NE(row(3).find("|12:00|13:00"), std::string::npos);
}

TEST_F(F42_Fenster, shows_its_slots_in_the_language_that_was_chosen) {
    Open();
    programm->kern.Sprache.TagTexte[8] = "Lundi - Vendredi";
    Window().Texte_Setzen();
    EXPECT_EQ(Window().FGK42B.Text(1, 1), "Lundi - Vendredi");
    EXPECT_EQ(Window().FGK42B.Text(1, 2), "07:00");
}

TEST_F(F42_Fenster, takes_a_text_that_a_cell_of_the_offsets_is_given) {
    Open();
    Window().FGK42_Eintragen(3, 1, "Spa");
    Window().FGK42_Eintragen(3, 2, "12:45");
    Window().FGK42_Eintragen(3, 3, "16:00");
    EXPECT_EQ(Row(3), "Spa|12:45|16:00|OFST0x03");
    EXPECT_FALSE(Window().Text3.Visible() || Window().Text4.Visible() || Window().List1.Visible());
    EXPECT_TRUE(Window().Geaendert);
    Window().Undo_Click();
    EXPECT_EQ(Row(3), "Spa|12:45|00:00|OFST0x03");
}

TEST_F(F42_Fenster, takes_no_text_that_a_cell_of_the_offsets_cannot_hold) {
    Open();
    for (const char* time : {"", "1:30", "24:00", "12:60", "12:450", "12.45", "x"}) {
        Window().FGK42_Eintragen(1, 2, time);
        Window().FGK42_Eintragen(1, 3, time);
        EXPECT_EQ(Row(1), "Brunch|01:30|10:00|OFST0x01") << time;
    }
    Window().FGK42_Eintragen(1, 3, "12:45"); // neither of the default times
    Window().FGK42_Eintragen(1, 1, std::string(21, 'x'));
    Window().FGK42_Eintragen(1, 1, "a\nb");
    for (const auto& [row, column] : {std::pair{0, 1}, {5, 1}, {-1, 1}, {1, 0}, {1, 4}, {1, 5}}) {
        EXPECT_FALSE(Window().FGK42_Beschreibbar(row, column));
        Window().FGK42_Eintragen(row, column, "Spa");
    }
    EXPECT_EQ(Row(1), "Brunch|01:30|10:00|OFST0x01");
    EXPECT_EQ(Window().FGK42.Text(0, 1), "L42");
    EXPECT_FALSE(Window().Geaendert);
}

} // namespace
} // namespace qvm::test
