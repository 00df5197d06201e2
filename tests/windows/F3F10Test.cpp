// The windows of the single and the permanent holidays: rules of month, kinds, save, delete and export.

#include "HolidayFixture.h"

namespace qvm::test {
namespace {

using Calendar_Window = HolidayFixture;

TEST_F(Calendar_Window, comes_in_place_of_the_main_window_and_leads_back_with_its_timer) {
    F2& main = programm->Main->F2;
    main.F2_Laden();
    for (const bool single : {true, false}) {
        single ? main.F2_Einzel_Click() : main.F2_Perm_Click();
        HolidayCalendar& window = single ? F3() : F10();
        EXPECT_TRUE(window.Fenster.Visible());
        EXPECT_FALSE(main.Fenster.Visible());
        main.Timer2.Stop();
        Back(window);
        EXPECT_FALSE(window.Fenster.Visible());
        EXPECT_TRUE(main.Fenster.Visible());
        EXPECT_TRUE(main.Timer2.Running());
        main.Timer2.Stop();
    }
    EXPECT_TRUE(main.F2_Einzel.Enabled());
    EXPECT_TRUE(main.F2_Perm.Enabled());
}

TEST_F(Calendar_Window, has_the_headings_and_the_keys_of_its_kind) {
    F3().FormLaden();
    F10().FormLaden();
    EXPECT_EQ(F3().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L3");
    EXPECT_EQ(F10().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L4");
    EXPECT_EQ(F3().Label1.Text(), "L5");
    EXPECT_EQ(F10().Label1.Text(), "L8");
    EXPECT_EQ(Row(F3(), 0), "L6|L7|L4\\ L3");
    EXPECT_EQ(Row(F10(), 0), "L6|L7|");
    EXPECT_EQ(F3().FGK.Text(0, 0), "L37");
    EXPECT_EQ(F3().FGK.Columns(), 6);
    EXPECT_EQ(F10().FGK.Columns(), 4);
    EXPECT_EQ(F10().FGK.Rows(), 21) << "20 entries are the limit";
    EXPECT_EQ(F10().FGK.Text(20, 0), "20");
    EXPECT_THAT(F3().List.Entries(), ElementsAre("L4", "L3"));
    EXPECT_FALSE(F3().Geaendert);
}

TEST_F(Calendar_Window, has_two_keys_without_a_task_which_are_not_shown_and_do_nothing) {
    F3().FormLaden();
    const auto before = Whole(F3());
    for (const ToolButton& button : F3().Toolbar1) {
        EXPECT_EQ(button.Visible(), button.Key != "Neu" && button.Key != u8"Öffnen"_w) << button.Key;
    }
    F3().Toolbar1_ButtonClick("Neu");
    F3().Toolbar1_ButtonClick(u8"Öffnen"_w);
    EXPECT_TRUE(Whole(F3()) == before);
    EXPECT_TRUE(F3().Fenster.Visible());
}

TEST_F(Calendar_Window, makes_the_missing_file_as_the_single_calendar_alone) {
    F10().FormLaden();
    EXPECT_FALSE(world.Disk.Files.contains(Calendar));
    F3().FormLaden();
    EXPECT_TRUE(world.Disk.Files.contains(Calendar));
    EXPECT_EQ(File(), "");
}

TEST_F(Calendar_Window, is_empty_where_the_missing_file_cannot_be_made_and_its_save_tells) {
    world.Disk.FailAt = world.Disk.Operations + 2; // the read finds no file, and the disk refuses a new one
    F3().FormLaden();
    EXPECT_THAT(world.Shown, IsEmpty());
    EXPECT_FALSE(world.Disk.Files.contains(Calendar));
    EXPECT_EQ(Row(F3(), 1), "||");
    F3().FGK_Eintragen(1, 1, "24.12.2026");
    F3().FGK_Eintragen(1, 2, "26.12.2026");
    world.Disk.FailAt = world.Disk.Operations + 2;
    world.Answers.push_back({.Text = Wort(programm->kern, Word::HolidaysNotSaved)});
    F3().Toolbar1_ButtonClick("Speichern");
    EXPECT_THAT(world.Answers, IsEmpty());
    EXPECT_FALSE(world.Disk.Files.contains(Calendar));
    F3().Toolbar1_ButtonClick("Speichern");
    EXPECT_TRUE(File().starts_with("24.12.202626.12.20260"));
}

TEST_F(Calendar_Window, opens_the_month_at_today_over_a_date) {
    F3().FormLaden();
    for (const int column : {1, 2}) {
        F3().Geaendert = false;
        F3().FGK_DblClick(3, column);
        EXPECT_TRUE(F3().MV.Visible());
        EXPECT_EQ(F3().MV.Day, (Datum{2026, 3, 5}));
        EXPECT_TRUE(F3().Geaendert);
        F3().Editor_Schliessen();
    }
    F3().Auswahl.Go(4, 1);
    F3().FGK_KeyPress(Key::Enter);
    EXPECT_TRUE(F3().MV.Visible());
    EXPECT_EQ(Row(F3(), 4), "||");
}

TEST_F(Calendar_Window, opens_nothing_over_headings_numbers_and_cells_that_are_not_there) {
    F3().FormLaden();
    for (const auto& [row, column] : {std::pair{0, 1}, {-1, 2}, {21, 1}, {1, 0}, {1, 4}, {1, 9}, {3, -1}}) {
        F3().FGK_DblClick(row, column);
        EXPECT_FALSE(F3().MV.Visible()) << row << " " << column;
        EXPECT_FALSE(F3().List.Visible()) << row << " " << column;
    }
    F3().Auswahl.Go(1, 1);
    F3().FGK_KeyPress('1');
    EXPECT_FALSE(F3().MV.Visible());
    EXPECT_FALSE(F3().Geaendert);
}

TEST_F(Calendar_Window, takes_a_day_in_full_and_the_first_kind_where_none_stands_as_the_single_calendar) {
    F3().FormLaden();
    Pick(F3(), 2, 1, {2026, 12, 24});
    EXPECT_EQ(Row(F3(), 2), "24.12.2026||L3");
    EXPECT_FALSE(F3().MV.Visible());
    F3().FGK.SetText(2, 3, "L4");
    Pick(F3(), 2, 2, {2027, 1, 6});
    EXPECT_EQ(Row(F3(), 2), "24.12.2026|06.01.2027|L4");
}

TEST_F(Calendar_Window, takes_a_day_without_its_year_and_always_the_second_kind_as_the_permanent_calendar) {
    F10().FormLaden();
    F10().FGK.SetText(2, 3, "L3");
    Pick(F10(), 2, 1, {2026, 12, 24});
    EXPECT_EQ(Row(F10(), 2), "24.12. - -||L4");
    Pick(F10(), 2, 2, {2026, 12, 26});
    EXPECT_EQ(Row(F10(), 2), "24.12. - -|26.12. - -|L4") << "from and to keep their own day and month";
}

TEST_F(Calendar_Window, refuses_an_end_before_the_day_picked_last_and_keeps_the_month_open) {
    for (HolidayCalendar* window : {&F3(), &F10()}) {
        window->FormLaden();
        Pick(*window, 1, 1, {2026, 12, 24});
        const std::string before = Row(*window, 1);
        Expect(141);
        Pick(*window, 1, 2, {2026, 12, 23});
        EXPECT_THAT(world.Answers, IsEmpty());
        EXPECT_TRUE(window->MV.Visible());
        EXPECT_EQ(Row(*window, 1), before);
        window->MV_Waehlen({2026, 12, 24});
        EXPECT_FALSE(window->MV.Visible());
        EXPECT_NE(Row(*window, 1), before);
        EXPECT_EQ(world.Shown.back().Title, "QVM 7702 SOFTWARE SYSTEM");
    }
}

TEST_F(Calendar_Window, compares_an_end_with_the_day_picked_last_in_whatever_row_it_was) {
    F3().FormLaden();
    Pick(F3(), 1, 1, {2026, 12, 24});
    Pick(F3(), 2, 1, {2026, 6, 1});
    Pick(F3(), 1, 2, {2026, 6, 2}); // before the row's own beginning
    EXPECT_EQ(Row(F3(), 1), "24.12.2026|02.06.2026|L3");
    EXPECT_EQ(F3().Mangel.Text(), Wort(programm->kern, Word::HolidayNoSpan));
    F3().Auswahl.Go(3, 1);
    EXPECT_EQ(F3().Mangel.Text(), "") << "of another row";
}

TEST_F(Calendar_Window, lets_any_end_pass_before_a_day_was_picked_since_it_was_opened) {
    F3().FormLaden();
    Fill(F3(), 1, {2026, 12, 24}, {2026, 12, 26});
    Save(F3());
    F3().FormLaden();
    Pick(F3(), 1, 2, {1999, 1, 1});
    EXPECT_EQ(Row(F3(), 1), "24.12.2026|01.01.1999|L3");
}

TEST_F(Calendar_Window, does_not_compare_a_beginning) {
    F3().FormLaden();
    Pick(F3(), 1, 1, {2026, 12, 24});
    Pick(F3(), 2, 1, {2026, 1, 1});
    EXPECT_EQ(Row(F3(), 2), "01.01.2026||L3");
}

TEST_F(Calendar_Window, takes_no_day_that_does_not_exist_and_none_while_the_month_is_not_there) {
    F3().FormLaden();
    F3().MV_Waehlen({2026, 12, 24});
    Pick(F3(), 1, 1, {2027, 2, 29});
    EXPECT_EQ(Row(F3(), 1), "||");
    EXPECT_TRUE(F3().MV.Visible());
}

TEST_F(Calendar_Window, opens_the_kinds_over_an_empty_cell_and_writes_what_is_chosen) {
    for (HolidayCalendar* window : {&F3(), &F10()}) {
        window->FormLaden();
        for (const int entry : {0, 1}) {
            window->FGK_DblClick(entry + 1, 3);
            EXPECT_TRUE(window->List.Visible());
            EXPECT_EQ(window->List.Selected(), 0);
            window->List_Waehlen(entry);
            EXPECT_FALSE(window->List.Visible());
        }
        EXPECT_EQ(Row(*window, 1), "||L4");
        EXPECT_EQ(Row(*window, 2), "||L3");
        EXPECT_TRUE(window->Geaendert);
        window->List_Waehlen(0); // it is gone
        EXPECT_EQ(Row(*window, 2), "||L3");
    }
}

TEST_F(Calendar_Window, takes_no_kind_from_a_list_that_was_left) {
    F3().FormLaden();
    F3().FGK_DblClick(1, 3);
    F3().List_Waehlen(2);
    F3().List_Waehlen(-1);
    F3().Editor_Schliessen();
    F3().List_Waehlen(0);
    EXPECT_EQ(Row(F3(), 1), "||");
    EXPECT_FALSE(F3().Geaendert);
}

TEST_F(Calendar_Window, toggles_the_kind_as_the_single_calendar) {
    F3().FormLaden();
    F3().FGK.SetText(1, 3, "L3");
    F3().FGK_DblClick(1, 3);
    EXPECT_EQ(F3().FGK.Text(1, 3), "L4");
    F3().FGK_DblClick(1, 3);
    EXPECT_EQ(F3().FGK.Text(1, 3), "L3");
    F3().FGK.SetText(1, 3, "another");
    F3().FGK_DblClick(1, 3);
    EXPECT_EQ(F3().FGK.Text(1, 3), "L3");
    EXPECT_TRUE(F3().Geaendert);
}

TEST_F(Calendar_Window, keeps_the_second_kind_and_makes_any_other_the_first_as_the_permanent_calendar) {
    F10().FormLaden();
    F10().FGK.SetText(1, 3, "L4");
    F10().FGK_DblClick(1, 3);
    EXPECT_EQ(F10().FGK.Text(1, 3), "L4");
    EXPECT_FALSE(F10().Geaendert);
    for (const char* other : {"L3", "another"}) {
        F10().FGK.SetText(1, 3, other);
        F10().FGK_DblClick(1, 3);
        EXPECT_EQ(F10().FGK.Text(1, 3), "L3");
    }
}

TEST_F(Calendar_Window, saves_sorted_by_text_so_that_01_02_2027_stands_before_31_01_2026) {
    F3().FormLaden();
    Fill(F3(), 1, {2026, 1, 31}, {2026, 1, 31});
    Fill(F3(), 5, {2027, 2, 1}, {2027, 2, 2});
    Save(F3());
    EXPECT_EQ(Row(F3(), 1), "01.02.2027|02.02.2027|L3");
    EXPECT_EQ(Row(F3(), 2), "31.01.2026|31.01.2026|L3");
    EXPECT_EQ(F3().FGK.Text(2, 0), "2");
    EXPECT_EQ(File(), "01.02.202702.02.2027031.01.202631.01.20260" + Blank(18));
    EXPECT_FALSE(F3().Geaendert);
}

TEST_F(Calendar_Window, keeps_rows_of_the_same_beginning_in_their_order) {
    F3().FormLaden();
    F3().FGK.SetText(1, 1, "24.12.2026");
    F3().FGK.SetText(1, 2, "30.12.2026");
    F3().FGK.SetText(1, 3, "L4");
    Fill(F3(), 2, {2026, 12, 24}, {2026, 12, 25});
    Save(F3());
    EXPECT_EQ(File(), "24.12.202630.12.2026124.12.202625.12.20260" + Blank(18));
}

TEST_F(Calendar_Window, saves_permanent_dates_without_a_year_and_a_kind_behind_the_single_block) {
    F3().FormLaden();
    Fill(F3(), 1, {2026, 5, 1}, {2026, 5, 1});
    Save(F3());
    F10().FormLaden();
    Fill(F10(), 3, {2026, 12, 24}, {2026, 12, 26});
    Save(F10());
    EXPECT_EQ(File(), "01.05.202601.05.20260" + Blank(20) + "24.12. - -26.12. - - " + Blank(19));
    F3().FormLaden();
    EXPECT_EQ(Row(F3(), 1), "01.05.2026|01.05.2026|L3");
    EXPECT_EQ(Row(F3(), 2), "||");
}

TEST_F(Calendar_Window, drops_a_row_that_lacks_something_from_the_file_and_says_so_while_it_is_the_current_one) {
    F3().FormLaden();
    Pick(F3(), 1, 1, {2026, 12, 24});
    EXPECT_EQ(F3().Mangel.Text(), Wort(programm->kern, Word::HolidayUnfinished));
    Save(F3());
    EXPECT_EQ(File(), Blank(20));
    EXPECT_EQ(Row(F3(), 1), "24.12.2026||L3");
    F3().FormLaden();
    EXPECT_EQ(Row(F3(), 1), "||");
    EXPECT_EQ(F3().Mangel.Text(), "");
}

TEST_F(Calendar_Window, never_writes_the_hidden_columns) {
    F3().FormLaden();
    Fill(F3(), 1, {2026, 5, 1}, {2026, 5, 1});
    F3().FGK.SetText(1, 4, "hidden");
    F3().FGK.SetText(1, 5, "hidden");
    Save(F3());
    EXPECT_EQ(File(), "01.05.202601.05.20260" + Blank(19));
    EXPECT_EQ(HolidayCalendar::Breite(4), 0);
    EXPECT_EQ(HolidayCalendar::Breite(5), 0);
}

TEST_F(Calendar_Window, asks_for_changes_when_it_is_left_under_the_name_of_its_kind) {
    for (const bool single : {true, false}) {
        HolidayCalendar& window = single ? F3() : F10();
        window.FormLaden();
        Fill(window, 1, {2026, 5, 1}, {2026, 5, 1});
        Expect(60, Answer::Cancel);
        Back(window);
        EXPECT_TRUE(window.Fenster.Visible());
        EXPECT_EQ(world.Shown.back().Title, single ? "L3" : "L4");
        const std::string before = single ? "" : File();
        Expect(60, Answer::No);
        Back(window);
        EXPECT_FALSE(window.Fenster.Visible());
        EXPECT_EQ(File(), before);
        window.FormLaden();
        EXPECT_EQ(Row(window, 1), "||");
        Fill(window, 1, {2026, 5, 1}, {2026, 5, 1});
        Expect(60, Answer::Yes);
        window.Schliessen();
        EXPECT_FALSE(window.Fenster.Visible());
        EXPECT_NE(File(), before);
    }
}

TEST_F(Calendar_Window, clears_all_rows_of_the_selection_with_all_their_columns) {
    F3().FormLaden();
    for (int row = 1; row <= 4; ++row) {
        Fill(F3(), row, {2026, 5, row}, {2026, 5, row});
    }
    Save(F3());
    F3().Auswahl.Go(2, 2);
    F3().Auswahl.Extend(3, 2);
    bool menu = false;
    F3().Menue_Zeigen = [&] { menu = true; };
    F3().FGK_MouseUp(MouseButton::Right, 3, 2);
    EXPECT_TRUE(menu);
    F3().Loeschen_Click();
    EXPECT_EQ(Row(F3(), 1), "01.05.2026|01.05.2026|L3");
    EXPECT_EQ(Row(F3(), 2), "||");
    EXPECT_EQ(Row(F3(), 3), "||");
    EXPECT_EQ(Row(F3(), 4), "04.05.2026|04.05.2026|L3");
    EXPECT_TRUE(F3().Geaendert);
}

TEST_F(Calendar_Window, opens_its_menu_with_the_right_button_and_by_key_and_on_no_heading) {
    F10().FormLaden();
    int menus = 0;
    F10().Menue_Zeigen = [&] { ++menus; };
    F10().FGK_MouseUp(MouseButton::Left, 2, 1);
    F10().FGK_MouseUp(MouseButton::Right, 0, 1);
    EXPECT_EQ(menus, 0);
    F10().FGK_MouseUp(MouseButton::Right, 5, 1);
    EXPECT_EQ(menus, 1);
    EXPECT_EQ(F10().FGK.Row, 5);
    F10().FGK_Kontext();
    EXPECT_EQ(menus, 2);
}

TEST_F(Calendar_Window, exports_the_dates_of_all_20_rows_behind_what_the_file_holds) {
    F3().FormLaden();
    Fill(F3(), 1, {2026, 12, 24}, {2026, 12, 26});
    world.DialogAnswers.emplace_back("/q/table.csv");
    world.Disk.Files["/q/table.csv"] = "before\r";
    world.Answers.push_back({.Text = "CSV Print OK!"});
    F3().Toolbar1_ButtonClick("CSV-Print");
    std::string expected = "before\rL6;L7;\r24.12.2026;26.12.2026;\r";
    for (int row = 2; row <= 20; ++row) {
        expected += ";;\r";
    }
    EXPECT_EQ(world.Disk.Files["/q/table.csv"], expected);
    EXPECT_EQ(world.Shown.back().Title, "INFO");
}

TEST_F(Calendar_Window, says_that_an_export_was_not_done_when_its_dialog_was_closed_or_the_disk_refuses) {
    F10().FormLaden();
    world.DialogAnswers.emplace_back(std::nullopt);
    world.Answers.push_back({.Text = "CSV Print ERROR!"});
    F10().Toolbar1_ButtonClick("CSV-Print");
    world.DialogAnswers.emplace_back("/q/table.csv");
    world.Disk.FailAt = world.Disk.Operations + 1;
    world.Answers.push_back({.Text = "CSV Print ERROR!"});
    F10().Toolbar1_ButtonClick("CSV-Print");
    EXPECT_THAT(world.Answers, IsEmpty());
}

TEST_F(Calendar_Window, takes_a_date_that_a_cell_is_given_as_if_it_had_been_picked) {
    F3().FormLaden();
    F3().FGK_Eintragen(2, 1, "24.12.2026");
    F3().FGK_Eintragen(2, 2, "26.12.2026");
    EXPECT_EQ(Row(F3(), 2), "24.12.2026|26.12.2026|L3");
    EXPECT_FALSE(F3().MV.Visible());
    EXPECT_TRUE(F3().Geaendert);
    F3().Undo_Click();
    EXPECT_EQ(Row(F3(), 2), "24.12.2026||L3");
    F10().FormLaden();
    F10().FGK_Eintragen(1, 1, "24.12.2026");
    F10().FGK_Eintragen(1, 2, "26.12. - -");
    EXPECT_EQ(Row(F10(), 1), "24.12. - -|26.12. - -|L4");
    F10().FGK_Eintragen(2, 1, "29.02. - -");
    EXPECT_EQ(Row(F10(), 2), "29.02. - -||L4") << "2026 has no such day";
}

TEST_F(Calendar_Window, takes_no_text_for_a_date_that_is_none_and_none_for_other_cells) {
    F3().FormLaden();
    for (const char* text : {"", "24.12.", "24.12.26", "24.12. - -", "31.02.2026", "24.12.2026 ", "x"}) {
        F3().FGK_Eintragen(2, 1, text);
        EXPECT_EQ(Row(F3(), 2), "||") << text;
    }
    F10().FormLaden();
    for (const char* text : {" - -", "31.02. - -", "24.12 - -", "x - -"}) {
        F10().FGK_Eintragen(2, 1, text);
        EXPECT_EQ(Row(F10(), 2), "||") << text;
    }
    for (const auto& [row, column] : {std::pair{0, 1}, {21, 1}, {2, 0}, {2, 3}, {2, 4}, {-1, 1}}) {
        F3().FGK_Eintragen(row, column, "24.12.2026");
        EXPECT_FALSE(F3().FGK_Beschreibbar(row, column));
    }
    EXPECT_EQ(F3().FGK.Text(0, 1), "L6");
    EXPECT_EQ(Row(F3(), 2), "||");
    EXPECT_FALSE(F3().Geaendert);
}

TEST_F(Calendar_Window, tells_of_an_end_before_the_beginning_that_a_cell_is_given_and_stays_as_it_was) {
    F3().FormLaden();
    F3().FGK_Eintragen(2, 1, "24.12.2026");
    world.Answers.push_back({.Text = "L141"});
    F3().FGK_Eintragen(2, 2, "23.12.2026");
    EXPECT_THAT(world.Answers, IsEmpty());
    EXPECT_EQ(Row(F3(), 2), "24.12.2026||L3");
    EXPECT_FALSE(F3().MV.Visible());
}

} // namespace
} // namespace qvm::test
