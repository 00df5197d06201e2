// The windows of the switch clocks: opening and leaving, days and times of the slots.

#include "WeekTimerFixture.h"

namespace qvm::test {
namespace {

using Clock_Window = WeekTimerFixture;

TEST_F(Clock_Window, comes_in_place_of_the_main_window_and_leads_back_with_its_timer) {
    F2& main = programm->Main->F2;
    main.F2_Laden();
    for (const bool persons : {true, false}) {
        persons ? main.F2_PersonB_Click() : main.F2_SchlossB_Click();
        WeekTimer& window = persons ? F4() : F41();
        EXPECT_TRUE(window.Fenster.Visible());
        EXPECT_FALSE(main.Fenster.Visible());
        main.Timer2.Stop();
        Back(window);
        EXPECT_FALSE(window.Fenster.Visible());
        EXPECT_TRUE(main.Fenster.Visible());
        EXPECT_TRUE(main.Timer2.Running());
        main.Timer2.Stop();
    }
    EXPECT_TRUE(main.F2_PersonB.Enabled());
    EXPECT_TRUE(main.F2_SchlossB.Enabled());
    EXPECT_TRUE(F4().Timer2.Running()) << "F4 leaves its timers alone";
    EXPECT_FALSE(F41().Timer2.Running());
}

TEST_F(Clock_Window, makes_fifteen_records_in_a_new_installation_and_shows_all_slots_off) {
    F4().FormLaden();
    EXPECT_EQ(SlotFile(), OffRecords(15));
    F41().FormLaden();
    EXPECT_EQ(F4().FGK1.Rows(), 11);
    EXPECT_EQ(F41().FGK1.Rows(), 6);
    for (WeekTimer* window : {&F4(), &F41()}) {
        for (int row = 1; row < window->FGK1.Rows(); ++row) {
            EXPECT_EQ(Slot(*window, row), "OFF|00:00|00:00");
            EXPECT_EQ(window->FGK1.Text(row, 0), std::to_string(row));
        }
        EXPECT_FALSE(window->Geaendert);
    }
}

TEST_F(Clock_Window, shows_its_own_records_of_the_slot_file) {
    SlotFile() = SlotRecord(8, "08:00", "17:30") + OffRecords(8) + SlotRecord(7, "01:00", "02:00") +
                 SlotRecord(9, "10:00", "11:00") + OffRecords(3) + SlotRecord(10, "00:00", "23:59");
    F4().FormLaden();
    F41().FormLaden();
    EXPECT_EQ(Slot(F4(), 1), "L102|08:00|17:30");
    EXPECT_EQ(Slot(F4(), 10), "L101|01:00|02:00");
    EXPECT_EQ(Slot(F41(), 1), "L103|10:00|11:00");
    EXPECT_EQ(Slot(F41(), 5), "L104|00:00|23:59");
}

TEST_F(Clock_Window, has_the_headings_and_the_keys_of_its_kind) {
    for (WeekTimer* window : {&F4(), &F41()}) {
        window->FormLaden();
        EXPECT_EQ(window->Fenster.Title(),
                  window == &F4() ? "QVM 7702 SOFTWARE SYSTEM - L177" : "QVM 7702 SOFTWARE SYSTEM - L178");
        EXPECT_EQ(window->Label1.Text(), "L171");
        EXPECT_EQ(window->Label3.Text(), "L172");
        EXPECT_EQ(window->FGK1.Text(0, 0) + Slot(*window, 0), "L37L92|L93|L94");
        EXPECT_EQ(Group(*window, 0), "L37|L173|L174||");
        EXPECT_EQ(window->List1.Entries().size(), 11U);
        EXPECT_EQ(window->List1.Entries()[0], "OFF");
        EXPECT_EQ(window->List1.Entries()[10], "L104");
        EXPECT_EQ(window->Loeschen.Text(), "L127");
        EXPECT_FALSE(window->Info.FGK3i.Visible());
        EXPECT_FALSE(window->Woche.Visible());
        EXPECT_EQ(WeekTimer::GruppenBreite(3), 0);
        EXPECT_EQ(WeekTimer::GruppenBreite(4), 0);
    }
    EXPECT_EQ(F4().FGK3.Rows(), 8);
    EXPECT_EQ(F41().FGK3.Rows(), 6);
}

TEST_F(Clock_Window, has_one_key_without_a_task_which_is_not_shown_and_does_nothing) {
    F4().FormLaden();
    const auto before = Whole(F4());
    F4().Toolbar1_ButtonClick("Neu");
    EXPECT_EQ(Whole(F4()), before);
    EXPECT_TRUE(F4().Fenster.Visible());
    EXPECT_FALSE(F4().Toolbar1[1].Visible());
}

TEST_F(Clock_Window, leads_the_entry_from_day_to_start_to_end) {
    F4().FormLaden();
    F4().FGK1_DblClick(3, 1);
    EXPECT_TRUE(F4().List1.Visible());
    EXPECT_EQ(F4().List1.Selected(), 0);
    F4().List1_Waehlen(8);
    EXPECT_FALSE(F4().List1.Visible());
    EXPECT_EQ(F4().FGK1.Column, 2);
    F4().FGK1_KeyPress(Key::Enter);
    EXPECT_TRUE(F4().Text1.Visible());
    EXPECT_EQ(F4().Text1.Text(), "00:00");
    EXPECT_EQ(F4().Text1.Caret(), 0);
    Type(F4(), "0830");
    F4().Text1_KeyPress(Key::Tab);
    EXPECT_EQ(F4().FGK1.Column, 3);
    F4().FGK1_KeyPress('1');
    EXPECT_EQ(F4().Text1.Text(), "10:00");
    EXPECT_EQ(F4().Text1.Caret(), 1);
    Type(F4(), "715");
    F4().Text1_KeyPress(Key::Enter);
    EXPECT_EQ(Slot(F4(), 3), "L102|08:30|17:15");
    EXPECT_EQ(F4().FGK1.Column, 3);
    EXPECT_FALSE(F4().Text1.Visible());
}

TEST_F(Clock_Window, opens_a_time_with_00_00_and_the_caret_behind_the_first_zero_when_a_letter_is_typed) {
    F41().FormLaden();
    F41().SlotAuswahl.Go(2, 2);
    F41().FGK1_KeyPress('x');
    EXPECT_TRUE(F41().Text1.Visible());
    EXPECT_EQ(F41().Text1.Text(), "00:00");
    EXPECT_EQ(F41().Text1.Caret(), 1);
    EXPECT_TRUE(F41().Geaendert);
}

TEST_F(Clock_Window, takes_2_for_a_9_as_the_first_digit_and_23_for_29_and_5_for_a_7_of_the_minutes) {
    F4().FormLaden();
    F4().SlotAuswahl.Go(1, 2);
    F4().FGK1_KeyPress('9');
    EXPECT_EQ(F4().Text1.Text(), "20:00");
    Type(F4(), "9");
    EXPECT_EQ(F4().Text1.Text(), "23:00");
    EXPECT_EQ(F4().Text1.Caret(), 3);
    Type(F4(), "7");
    EXPECT_EQ(F4().Text1.Text(), "23:50");
    EXPECT_EQ(F4().Text1.Caret(), 4);
}

TEST_F(Clock_Window, forgets_the_typed_key_when_it_opens_the_list_of_days) {
    F4().FormLaden();
    F4().SlotAuswahl.Go(1, 1);
    F4().FGK1_KeyPress('7');
    EXPECT_TRUE(F4().List1.Visible());
    EXPECT_EQ(F4().TasteZeit, 0);
    F4().List1_Waehlen(1);
    F4().FGK1_DblClick(1, 2);
    EXPECT_EQ(F4().Text1.Caret(), 0);
}

TEST_F(Clock_Window, switches_a_slot_off_with_both_times) {
    F4().FormLaden();
    Fill(F4(), 4, 5, "0800", "0900");
    EXPECT_EQ(Slot(F4(), 4), "L99|08:00|09:00");
    Day(F4(), 4, 0);
    EXPECT_EQ(Slot(F4(), 4), "OFF|00:00|00:00");
    EXPECT_EQ(F4().FGK1.Column, 2);
}

TEST_F(Clock_Window, tells_an_end_before_its_start_and_makes_it_00_00) {
    for (WeekTimer* window : {&F4(), &F41()}) {
        window->FormLaden();
        Day(*window, 2, 1);
        Time(*window, 2, 2, "0830");
        world.Answers.push_back({.Text = "\tL141 [ 08:30   >>   08:29 ] "});
        Time(*window, 2, 3, "0829");
        EXPECT_THAT(world.Answers, IsEmpty());
        EXPECT_EQ(world.Shown.back().Title, "QVM 7702 SOFTWARE SYSTEM");
        EXPECT_EQ(Slot(*window, 2), "L95|08:30|00:00");
        EXPECT_EQ(window->FGK1.Column, 3);
        EXPECT_FALSE(window->Text1.Visible());
    }
}

TEST_F(Clock_Window, lets_an_end_equal_to_its_start_pass) {
    F4().FormLaden();
    Fill(F4(), 2, 1, "0830", "0830");
    EXPECT_EQ(Slot(F4(), 2), "L95|08:30|08:30");
    Fill(F4(), 3, 1, "0000", "0000");
    EXPECT_EQ(Slot(F4(), 3), "L95|00:00|00:00") << "an end of 00:00 after a start of 00:00";
}

TEST_F(Clock_Window, refuses_an_end_of_00_00_after_a_later_start_where_it_stays) {
    F4().FormLaden();
    Day(F4(), 2, 1);
    Time(F4(), 2, 2, "0001");
    world.Answers.push_back({.Text = "\tL141 [ 00:01   >>   00:00 ] "});
    Time(F4(), 2, 3, "0000");
    EXPECT_EQ(Slot(F4(), 2), "L95|00:01|00:00");
}

TEST_F(Clock_Window, checks_no_end_against_a_start_that_is_no_time) {
    F4().FormLaden();
    F4().FGK1.SetText(2, 2, "ab:cd");
    F4().FGK1.SetText(2, 3, "07:00");
    Time(F4(), 2, 3, "0100");
    EXPECT_EQ(Slot(F4(), 2), "OFF|ab:cd|07:00");
    EXPECT_FALSE(F4().Text1.Visible());
    F4().FGK1_DblClick(2, 2);
    EXPECT_EQ(F4().Text1.Text(), "00:00") << "what is no time is not typed over";
    F4().Text1_KeyPress(Key::Escape);
    EXPECT_EQ(Slot(F4(), 2), "OFF|ab:cd|07:00");
}

TEST_F(Clock_Window, puts_the_old_time_back_by_escape) {
    F4().FormLaden();
    Fill(F4(), 1, 1, "0830", "1000");
    F4().FGK1_DblClick(1, 2);
    Type(F4(), "11");
    F4().Text1_KeyPress(Key::Escape);
    EXPECT_FALSE(F4().Text1.Visible());
    EXPECT_EQ(Slot(F4(), 1), "L95|08:30|10:00");
    F4().Text1_KeyPress('5');
    F4().Text1_Uebernehmen();
    EXPECT_EQ(Slot(F4(), 1), "L95|08:30|10:00") << "a closed editor takes nothing over";
}

TEST_F(Clock_Window, takes_an_open_time_over_before_it_saves_and_by_a_click_elsewhere) {
    F4().FormLaden();
    Day(F4(), 1, 3);
    F4().FGK1_DblClick(1, 2);
    Type(F4(), "0712");
    F4().FGK1_MouseUp(MouseButton::Left, 5, 1);
    EXPECT_EQ(Slot(F4(), 1), "L97|07:12|00:00");
    EXPECT_EQ(F4().FGK1.Row, 5);
    F4().FGK1_DblClick(1, 3);
    Type(F4(), "0800");
    Save(F4());
    EXPECT_EQ(SlotFile().substr(0, 11), SlotRecord(3, "07:12", "08:00"));
    EXPECT_FALSE(F4().Geaendert);
}

TEST_F(Clock_Window, opens_nothing_over_headings_numbers_and_cells_that_are_not_there) {
    F4().FormLaden();
    for (const auto& [row, column] : {std::pair{0, 1}, {-1, 2}, {11, 1}, {1, 0}, {1, 4}, {3, -1}}) {
        F4().FGK1_DblClick(row, column);
        EXPECT_FALSE(F4().List1.Visible()) << row << " " << column;
        EXPECT_FALSE(F4().Text1.Visible()) << row << " " << column;
    }
    for (const auto& [row, column] : {std::pair{0, 1}, {-1, 1}, {8, 1}, {3, 0}, {3, 3}, {3, 4}, {3, -1}}) {
        F4().FGK3_DblClick(row, column);
        EXPECT_FALSE(F4().Text2.Visible()) << row << " " << column;
        EXPECT_FALSE(F4().List2.Visible()) << row << " " << column;
    }
    F4().List1_Waehlen(3);
    F4().List2_Schalten(3, true);
    F4().List2_Uebernehmen();
    EXPECT_FALSE(F4().Geaendert);
}

TEST_F(Clock_Window, never_touches_record_16_and_what_lies_behind) {
    const std::string tail = "behind the last record\x01\xFF";
    SlotFile() = OffRecords(15) + tail;
    for (WeekTimer* window : {&F4(), &F41()}) {
        window->FormLaden();
        Fill(*window, 5, 2, "0100", "0200");
        Save(*window);
    }
    EXPECT_EQ(SlotFile(),
              OffRecords(4) + SlotRecord(2, "01:00", "02:00") + OffRecords(9) + SlotRecord(2, "01:00", "02:00") + tail);
}

TEST_F(Clock_Window, writes_the_day_of_the_row_before_for_a_day_that_the_table_does_not_hold) {
    F4().FormLaden();
    Fill(F4(), 2, 4, "0100", "0200");
    F4().FGK1.SetText(3, 1, "a day of another language");
    F4().FGK1.SetText(1, 1, "the same");
    F4().Geaendert = true;
    Save(F4());
    EXPECT_EQ(SlotFile().substr(0, 33),
              SlotRecord(0, "00:00", "00:00") + SlotRecord(4, "01:00", "02:00") + SlotRecord(4, "00:00", "00:00"));
}

TEST_F(Clock_Window, asks_before_it_is_left_with_changes) {
    F4().FormLaden();
    Fill(F4(), 1, 1, "0100", "0200");
    Expect(60, Answer::Cancel);
    Back(F4());
    EXPECT_TRUE(F4().Fenster.Visible());
    Expect(60, Answer::No);
    Back(F4());
    EXPECT_EQ(world.Shown.back().Title, "L39");
    EXPECT_FALSE(F4().Fenster.Visible());
    EXPECT_EQ(SlotFile(), OffRecords(15));
    F4().FormLaden();
    EXPECT_EQ(Slot(F4(), 1), "OFF|00:00|00:00");
    Fill(F4(), 1, 1, "0100", "0200");
    Expect(60, Answer::Yes);
    Back(F4());
    EXPECT_EQ(SlotFile().substr(0, 11), SlotRecord(1, "01:00", "02:00"));
    EXPECT_THAT(world.Answers, IsEmpty());
}

TEST_F(Clock_Window, is_closed_by_its_own_control_without_a_question_and_comes_back_as_it_was) {
    programm->Main->F2.F2_Laden();
    programm->Main->F2.F2_SchlossB_Click();
    Fill(F41(), 1, 1, "0100", "0200");
    F41().Verbergen();
    EXPECT_FALSE(F41().Fenster.Visible());
    EXPECT_TRUE(programm->Main->F2.Fenster.Visible());
    EXPECT_EQ(SlotFile(), OffRecords(15));
    programm->Main->F2.F2_SchlossB_Click();
    EXPECT_EQ(Slot(F41(), 1), "L95|01:00|02:00");
    EXPECT_TRUE(F41().Geaendert);
    EXPECT_EQ(F41().Hinweis.Text(), Wort(programm->kern, Word::TimerKept));
    Save(F41());
    EXPECT_EQ(SlotFile().substr(110, 11), SlotRecord(1, "01:00", "02:00"));
}

TEST_F(Clock_Window, that_was_closed_with_changes_is_asked_for_at_the_end_of_the_program) {
    F2& main = programm->Main->F2;
    int ends = 0;
    main.Hooks.Ende = [&ends] { ++ends; };
    main.F2_Laden();
    for (WeekTimer* window : {&F4(), &F41()}) {
        window->FormLaden();
        Fill(*window, 1, 1, "0100", "0200");
        window->Verbergen();
    }
    Expect(60, Answer::Cancel);
    main.Beenden();
    EXPECT_EQ(world.Shown.back().Title, "L177");
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(main.Fenster.Visible());
    EXPECT_TRUE(F4().Geaendert);
    Expect(60, Answer::Yes);
    Expect(60, Answer::No);
    main.Beenden();
    EXPECT_EQ(world.Shown.back().Title, "L178");
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(SlotFile(), SlotRecord(1, "01:00", "02:00") + OffRecords(14));
}

TEST_F(Clock_Window, that_cannot_be_saved_at_the_end_of_the_program_keeps_it_from_ending) {
    F2& main = programm->Main->F2;
    int ends = 0;
    main.Hooks.Ende = [&ends] { ++ends; };
    main.F2_Laden();
    F41().FormLaden();
    Fill(F41(), 1, 1, "0100", "0200");
    F41().Verbergen();
    world.Disk.Operations = 0;
    world.Disk.FailAt = 1;
    Expect(60, Answer::Yes);
    world.Answers.push_back({.Text = Wort(programm->kern, Word::TimersNotSaved)});
    main.Beenden();
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(F41().Geaendert);
    Expect(60, Answer::Yes);
    main.Beenden();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(SlotFile().substr(110, 11), SlotRecord(1, "01:00", "02:00"));
}

TEST_F(Clock_Window, takes_a_text_for_a_cell_at_once_where_it_is_a_day_or_a_time) {
    F4().FormLaden();
    F4().FGK1_Eintragen(2, 1, "L98");
    F4().FGK1_Eintragen(2, 2, "07:05");
    F4().FGK1_Eintragen(2, 3, "08:00");
    EXPECT_EQ(Slot(F4(), 2), "L98|07:05|08:00");
    for (const char* text : {"", "7:05", "24:00", "07:60", "07-05", "07:05 ", "L98"}) {
        F4().FGK1_Eintragen(2, 2, text);
        EXPECT_EQ(Slot(F4(), 2), "L98|07:05|08:00") << text;
    }
    F4().FGK1_Eintragen(2, 1, "07:05");
    F4().FGK1_Eintragen(2, 0, "07:05");
    F4().FGK1_Eintragen(99, 2, "07:05");
    EXPECT_EQ(Slot(F4(), 2), "L98|07:05|08:00");
}

TEST_F(Clock_Window, flashes_its_title_only_when_a_timer_that_nothing_starts_is_started) {
    F4().FormLaden();
    EXPECT_FALSE(F4().Timer1.Running());
    EXPECT_EQ(F4().Timer1.Interval(), 500);
    F4().Timer1.Ticked();
    EXPECT_EQ(F4().Fenster.Title(), "");
    F4().Timer1.Ticked();
    EXPECT_EQ(F4().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L177");
}

} // namespace
} // namespace qvm::test
