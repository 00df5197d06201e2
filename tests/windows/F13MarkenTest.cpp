// Finding and marking in F13: the filter line, blocks of rows, typed letters, and what the last list left.

#include "FensterFixture.h"
#include "ListMark.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct F13_Marken : FensterFixture {
    F13_Marken() {
        SettledLock(1, u8"Türe Hof"_w, "00.0A.10.01");
        SettledLock(2, "Keller", "00.0A.10.02");
        SettledLock(3, "Tor", "00.0B.10.03");
        files.Lock(4, "Torweg", "           ");
        SettledLock(5, "Turm", "00.0A.10.05");
        Begin();
    }
    F13& Window() { return programm->Transfer->F13; }
    std::string Marked() {
        std::string rows;
        for (int row = 1; row <= 200; ++row) {
            rows += Mark(row) == "X" ? Ziffern(row) + " " : "";
        }
        return rows;
    }
    /// A message in the program's own words, UTF-8.
    void ExpectOwn(std::string_view text, Answer answer) {
        world.Answers.push_back({.Text = AusUtf8(text), .Reply = answer});
    }
    void SelectRows(int first, int last) {
        Window().Auswahl.Go(first, F13Column::Name);
        Window().Auswahl.Extend(last, F13Column::Name);
    }
};

TEST_F(F13_Marken, the_filter_hides_rows_from_the_view_and_changes_nothing_else) {
    Window().Filter.Set("tur");
    EXPECT_TRUE(Window().Filter.Shows(1));
    EXPECT_FALSE(Window().Filter.Shows(2));
    EXPECT_TRUE(Window().Filter.Shows(5));
    EXPECT_FALSE(Window().Filter.Shows(200));
    EXPECT_EQ(Window().Filter.Count.Text(), "2 von 5");
    EXPECT_EQ(Window().FGK13.Rows(), 201);
    EXPECT_EQ(Window().FGK13.Text(2, F13Column::Name), "Keller");
}

TEST_F(F13_Marken, the_filter_looks_into_the_serial_too) {
    Window().Filter.Set("0b.10");
    EXPECT_FALSE(Window().Filter.Shows(2));
    EXPECT_TRUE(Window().Filter.Shows(3));
}

TEST_F(F13_Marken, the_window_opens_without_a_filter) {
    Window().Filter.Set("tur");
    Begin();
    EXPECT_EQ(Window().Filter.Line.Text(), "");
    EXPECT_TRUE(Window().Filter.Shows(2));
}

TEST_F(F13_Marken, marks_the_current_row_and_clears_it_again) {
    Window().Auswahl.Go(2, F13Column::Program);
    Window().Auswahl_Markieren();
    EXPECT_EQ(Marked(), "2 ");
    EXPECT_EQ(Window().FGK13.At(2, F13Column::Mark).FontSize, 16);
    EXPECT_EQ(Window().FGK13.At(2, F13Column::Mark).ForeColor, 0x808080U);
    Window().Auswahl_Markieren();
    EXPECT_EQ(Marked(), "");
    EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible);
}

TEST_F(F13_Marken, marks_a_block_but_no_lock_without_name_or_serial) {
    SelectRows(2, 7);
    Window().Auswahl_Markieren();
    EXPECT_EQ(Marked(), "2 3 5 ");
}

TEST_F(F13_Marken, marks_the_rest_of_a_block_and_clears_it_only_when_all_of_it_is_marked) {
    Click(3, F13Column::Mark);
    SelectRows(5, 1);
    Window().Auswahl_Markieren();
    EXPECT_EQ(Marked(), "1 2 3 5 ");
    Window().Auswahl_Markieren();
    EXPECT_EQ(Marked(), "");
}

TEST_F(F13_Marken, marks_all_rows_that_are_shown_and_counts_those_that_are_not) {
    Click(2, F13Column::Mark);
    Window().Filter.Set("tur");
    EXPECT_EQ(Window().Markenzahl.Text(), "1 markiert, davon 1 nicht angezeigt");
    Window().Auswahl.All();
    Window().Auswahl_Markieren();
    EXPECT_EQ(Marked(), "1 2 5 ");
    EXPECT_EQ(Window().Markenzahl.Text(), "3 markiert, davon 1 nicht angezeigt");
    Window().Filter.Set("");
    EXPECT_EQ(Window().Markenzahl.Text(), "3 markiert");
    Window().Auswahl.All();
    Window().Auswahl_Markieren();
    Window().Auswahl_Markieren();
    EXPECT_EQ(Window().Markenzahl.Text(), "");
}

TEST_F(F13_Marken, marks_nothing_while_the_filter_shows_nothing) {
    Window().Auswahl.Go(2, F13Column::Name);
    Window().Filter.Set("nowhere");
    Window().Auswahl_Markieren();
    EXPECT_EQ(Marked(), "");
}

TEST_F(F13_Marken, a_hidden_lock_that_is_marked_goes_into_the_list) {
    Click(2, F13Column::Mark);
    Window().Filter.Set("turm");
    Expect(63, Answer::No);
    Expect(269, Answer::No);
    Window().Toolbar1_ButtonClick("Prog.");
    EXPECT_EQ(Lauf().List.RunRows, 1);
    EXPECT_EQ(programm->Transfer->F91.FGK91.Text(1, F91Column::Name), "Keller");
}

TEST_F(F13_Marken, typed_letters_lead_to_the_next_name) {
    Window().Auswahl.Go(1, F13Column::Serial);
    Window().FGK13_KeyPress('t');
    EXPECT_EQ(Window().FGK13.Row, 3);
    EXPECT_EQ(Window().FGK13.Column, F13Column::Serial);
    Window().FGK13_KeyPress('u');
    EXPECT_EQ(Window().FGK13.Row, 5);
    Window().FGK13_KeyPress('x');
    EXPECT_EQ(Window().FGK13.Row, 5);
    world.RunFor(1000);
    Window().FGK13_KeyPress('k');
    EXPECT_EQ(Window().FGK13.Row, 2);
}

TEST_F(F13_Marken, a_started_run_takes_its_mark_out_of_the_count) {
    Click(2, F13Column::Mark);
    StartRun(1);
    EXPECT_EQ(Window().Markenzahl.Text(), "1 markiert");
}

// ---- behind a list

TEST_F(F13_Marken, zurueck_asks_before_marks_are_lost_and_return_alone_says_no) {
    SelectRows(1, 3);
    Window().Auswahl_Markieren();
    for (const Answer stay : {Answer::No, Answer::Cancel}) {
        ExpectOwn("Markierte Schlösser: 3. Wenn Sie das Fenster verlassen, gehen die Markierungen verloren. Trotzdem "
                  "verlassen?",
                  stay);
        Window().Toolbar1_ButtonClick(u8"Zurück"_w);
        EXPECT_EQ(world.Shown.back().Choice, Buttons::YesNo);
        EXPECT_EQ(world.Shown.back().DefaultButton, 2);
        EXPECT_TRUE(Window().Fenster.Visible);
        EXPECT_EQ(Marked(), "1 2 3 ");
    }
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes});
    Window().Toolbar1_ButtonClick(u8"Zurück"_w);
    EXPECT_FALSE(Window().Fenster.Visible);
}

TEST_F(F13_Marken, zurueck_without_marks_asks_nothing) {
    Window().Auswahl.Go(2, F13Column::Name);
    Window().Auswahl_Markieren();
    Window().Auswahl_Markieren();
    Window().Toolbar1_ButtonClick(u8"Zurück"_w);
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_THAT(world.Shown, IsEmpty());
}

struct F13_Gescheiterte : F13_Marken {
    /// A list of the locks 1 to 3 and 5, ended with these marks.
    void List(const std::vector<std::string_view>& marks) {
        SelectRows(1, 5);
        Window().Auswahl_Markieren();
        Expect(63, Answer::No);
        Expect(269, Answer::No);
        Window().Toolbar1_ButtonClick("Prog.");
        Type("123456");
        programm->Transfer->F11.OK_Click();
        for (std::size_t n = 0; n < marks.size(); ++n) {
            programm->Transfer->F91.FGK91.SetText(static_cast<int>(n) + 1, F91Column::Mark, marks[n]);
        }
        programm->Transfer->F91.Command2_Click();
        programm->Transfer->F91.Command1_Click();
        Begin();
    }
};

TEST_F(F13_Gescheiterte, have_no_key_before_a_list) {
    EXPECT_FALSE(Window().Command1.Visible);
    Window().Command1_Click();
    EXPECT_EQ(Marked(), "");
}

TEST_F(F13_Gescheiterte, are_those_that_failed_and_those_that_were_passed_over) {
    List({ListMark::Programmed, ListMark::Failed, ListMark::Waiting, ListMark::PassedOver});
    EXPECT_TRUE(Window().Command1.Visible);
    EXPECT_EQ(Window().Command1.Text(), "Gescheiterte markieren");
    EXPECT_EQ(Marked(), "");
    Window().Command1_Click();
    EXPECT_EQ(Marked(), "2 5 ");
    EXPECT_EQ(Window().Markenzahl.Text(), "2 markiert");
    Window().Command1_Click();
    EXPECT_EQ(Marked(), "2 5 ");
}

TEST_F(F13_Gescheiterte, are_marked_beside_what_is_marked_already) {
    List({ListMark::Programmed, ListMark::Failed, ListMark::HistoryRead, ListMark::Programmed});
    Click(1, F13Column::Mark);
    Window().Command1_Click();
    EXPECT_EQ(Marked(), "1 2 ");
}

TEST_F(F13_Gescheiterte, have_no_key_behind_a_list_in_which_all_went_well) {
    List({ListMark::Failed, ListMark::Programmed, ListMark::Programmed, ListMark::Programmed});
    EXPECT_TRUE(Window().Command1.Visible);
    List({ListMark::Programmed, ListMark::Programmed, ListMark::Programmed, ListMark::Programmed});
    EXPECT_FALSE(Window().Command1.Visible);
}

TEST_F(F13_Gescheiterte, are_left_out_when_the_lock_is_gone) {
    List({ListMark::Failed, ListMark::Failed, ListMark::Programmed, ListMark::Programmed});
    files.Lock(1, "", "           ");
    Begin();
    Window().Command1_Click();
    EXPECT_EQ(Marked(), "2 ");
}

// ---- one lock through a network adapter

struct F13_Netzlauf : F13_Gescheiterte {
    F13_Netzlauf() {
        programm->kern.Config.PortAutomatik = "SET";
        AddAdapter("/1/2/3/4", "PROGSTATION-A", "7");
        Begin();
        programm->Transfer->F11.Adapter_Test = [](const AdapterSatz&) { return true; };
    }
    /// "Program" or "History" of one lock until F91 is there.
    void Single(int row, int column = F13Column::Program) {
        if (column == F13Column::Program) {
            Expect(63, Answer::No);
        } else {
            Expect(65, Answer::Ok);
        }
        Click(row, column);
        Type("123456");
        programm->Transfer->F11.OK_Click();
    }
    /// The same up to its end with this mark, back to F13.
    void SingleEnds(int row, std::string_view mark, int column = F13Column::Program) {
        Single(row, column);
        EXPECT_FALSE(Window().Fenster.Visible);
        programm->Transfer->F91.Zeile_Markieren(mark, {});
        programm->Transfer->F91.Naechste_Zeile(StepPrgNextDataset);
        programm->Transfer->F91.Command1_Click();
        EXPECT_FALSE(programm->Transfer->F91.Fenster.Visible);
        Begin();
    }
};

TEST_F(F13_Netzlauf, leaves_the_marks_of_the_other_locks) {
    for (const int row : {1, 3, 5}) {
        Click(row, F13Column::Mark);
    }
    SingleEnds(2, ListMark::Failed);
    EXPECT_EQ(Marked(), "1 3 5 ");
    EXPECT_EQ(Window().Markenzahl.Text(), "3 markiert");
    EXPECT_EQ(world.Shown.size(), 1U); // whether to read the history first
}

TEST_F(F13_Netzlauf, gives_no_mark_to_another_lock_in_the_same_place) {
    Click(1, F13Column::Mark);
    Click(3, F13Column::Mark);
    Single(2);
    EXPECT_FALSE(Window().Fenster.Visible);
    files.Lock(3, "Neues Tor", "00.0B.10.09");
    Begin();
    EXPECT_EQ(Marked(), "1 ");
}

TEST_F(F13_Netzlauf, marks_that_were_given_up_do_not_come_back) {
    Click(1, F13Column::Mark);
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes});
    Window().Toolbar1_ButtonClick(u8"Zurück"_w);
    Begin();
    EXPECT_EQ(Marked(), "");
}

TEST_F(F13_Netzlauf, that_fails_leaves_what_the_last_list_did_not_finish) {
    List({ListMark::Programmed, ListMark::Failed, ListMark::Programmed, ListMark::Failed});
    SingleEnds(1, ListMark::Failed);
    Window().Command1_Click();
    EXPECT_EQ(Marked(), "2 5 ");
}

TEST_F(F13_Netzlauf, that_goes_well_takes_its_lock_from_the_failed_ones) {
    List({ListMark::Programmed, ListMark::Failed, ListMark::Programmed, ListMark::Failed});
    SingleEnds(2, ListMark::Programmed);
    EXPECT_TRUE(Window().Command1.Visible);
    Window().Command1_Click();
    EXPECT_EQ(Marked(), "5 ");
}

TEST_F(F13_Netzlauf, that_reads_a_history_alone_does_not_program_a_failed_lock) {
    List({ListMark::Programmed, ListMark::Failed, ListMark::Programmed, ListMark::Programmed});
    SingleEnds(2, ListMark::HistoryRead, F13Column::History);
    Window().Command1_Click();
    EXPECT_EQ(Marked(), "2 ");
}

TEST_F(F13_Netzlauf, the_next_list_counts_again) {
    SingleEnds(1, ListMark::Programmed);
    List({ListMark::Failed, ListMark::Programmed, ListMark::Programmed, ListMark::Programmed});
    Window().Command1_Click();
    EXPECT_EQ(Marked(), "1 ");
}

} // namespace
} // namespace qvm::test
