// The windows of the holidays: random tables, undo, broken files, the days of a year.

#include "HolidayFixture.h"

#include <algorithm>
#include <random>

namespace qvm::test {
namespace {

struct Calendar_Tables : HolidayFixture {
    std::mt19937 dice{20261123};

    int Below(int n) { return static_cast<int>(dice() % static_cast<unsigned>(n)); }
    Datum Day() { return {2020 + Below(20), 1 + Below(12), 1 + Below(28)}; }
    static std::string Text(const Datum& day, bool year) {
        const auto two = [](int n) { return std::string(n < 10 ? "0" : "") + std::to_string(n); };
        return two(day.Day) + "." + two(day.Month) + "." + (year ? std::to_string(day.Year) : " - -");
    }
    /// A row as an operator may leave it, with holes.
    void FillRow(HolidayCalendar& window, int row) {
        const bool year = &window == &F3();
        const int holes = Below(12);
        window.FGK.SetText(row, 1, holes == 0 || holes == 3 ? "" : Text(Day(), year));
        window.FGK.SetText(row, 2, holes == 1 || holes == 3 ? "" : Text(Day(), year));
        window.FGK.SetText(row, 3, holes == 2 || holes == 3 ? "" : year && Below(2) == 0 ? "L3" : "L4");
    }
    /// The block of 20 records that the rows make, by a sort of its own.
    static std::string Block(const HolidayCalendar& window, bool year) {
        struct Line {
            std::string From, To, Kind;
        };
        std::vector<Line> lines;
        for (int row = 1; row <= 20; ++row) {
            const Line line{window.FGK.Text(row, 1), window.FGK.Text(row, 2), window.FGK.Text(row, 3)};
            std::size_t place = lines.size();
            while (place > 0 && !line.From.empty() &&
                   (lines[place - 1].From.empty() || line.From < lines[place - 1].From)) {
                --place;
            }
            lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place), line);
        }
        std::string block;
        for (const Line& line : lines) {
            const bool whole = !line.From.empty() && !line.To.empty() && !line.Kind.empty();
            block += !whole ? Blank(1) : line.From + line.To + (!year ? " " : line.Kind == "L4" ? "1" : "0");
        }
        return block;
    }
    /// What a load gives of a block.
    static std::string Loaded(const std::string& block, bool year) {
        std::string rows;
        for (std::size_t at = 0; at < block.size(); at += 21) {
            const bool used = block[at] != ' ';
            const std::string kind = !year || block[at + 20] == '1' ? "L4" : "L3";
            rows += used ? block.substr(at, 10) + "|" + block.substr(at + 10, 10) + "|" + kind + "\n" : "||\n";
        }
        return rows;
    }
    static std::string Rows(const HolidayCalendar& window) {
        std::string rows;
        for (int row = 1; row <= 20; ++row) {
            rows += Row(window, row) + "\n";
        }
        return rows;
    }
};

TEST_F(Calendar_Tables, are_written_as_an_independent_hand_writes_them_and_loaded_as_they_were_written) {
    std::string single = Blank(20);
    std::string permanent = Blank(20);
    F3().FormLaden();
    F10().FormLaden();
    for (int table = 0; table < 3000; ++table) {
        const bool year = Below(2) == 0;
        HolidayCalendar& window = year ? F3() : F10();
        for (int row = 1; row <= 20; ++row) {
            FillRow(window, row);
        }
        std::string& block = year ? single : permanent;
        block = Block(window, year);
        Save(window);
        const std::string whole = single + Blank(1) + permanent;
        ASSERT_EQ(File(), whole.substr(0, File().size())) << table;
        ASSERT_GE(File().size(), year ? 420U : 861U) << table;
        window.FormLaden();
        ASSERT_EQ(Rows(window), Loaded(block, year)) << table;
    }
    EXPECT_EQ(File().size(), 861U);
}

TEST_F(Calendar_Tables, stay_on_the_disk_as_they_were_when_any_operation_of_a_save_fails) {
    for (const bool single : {true, false}) {
        HolidayCalendar& window = single ? F3() : F10();
        window.FormLaden();
        Fill(window, 1, {2026, 5, 1}, {2026, 5, 1});
        Save(window);
        const std::string before = File();
        Fill(window, 2, {2026, 4, 2}, {2026, 4, 3});
        int failed = 0;
        for (int operation = 1; window.Geaendert; ++operation) {
            ASSERT_LT(operation, 50);
            world.Disk.FailAt = world.Disk.Operations + operation;
            world.Answers.push_back({.Text = Wort(programm->kern, Word::HolidaysNotSaved)});
            Save(window);
            if (window.Geaendert) {
                ++failed;
                ASSERT_EQ(File(), before) << operation;
                ASSERT_THAT(world.Answers, IsEmpty()) << operation;
                const std::string rows = Rows(window);
                ASSERT_NE(rows.find(single ? "02.04.2026" : "02.04. - -"), std::string::npos) << operation;
            }
        }
        EXPECT_GT(failed, 1);
        world.Answers.clear();
        world.Disk.FailAt = 0;
        EXPECT_NE(File(), before);
    }
}

TEST_F(Calendar_Tables, keep_the_window_open_when_they_cannot_be_saved_on_leaving) {
    F3().FormLaden();
    Fill(F3(), 1, {2026, 5, 1}, {2026, 5, 1});
    world.Disk.FailAt = world.Disk.Operations + 1;
    Expect(60, Answer::Yes);
    ExpectWord(Word::HolidaysNotSaved);
    Back(F3());
    EXPECT_TRUE(F3().Fenster.Visible());
    EXPECT_EQ(Row(F3(), 1), "01.05.2026|01.05.2026|L3");
    world.Disk.FailAt = 0;
    Expect(60, Answer::No);
    Back(F3());
}

TEST_F(Calendar_Tables, that_cannot_be_read_are_told_empty_and_never_saved) {
    for (const bool single : {true, false}) {
        HolidayCalendar& window = single ? F3() : F10();
        File() = "24.12.202626.12.20260" + Blank(20) + "24.12. - -26.12. - - ";
        const std::string before = File();
        window.FGK.SetText(1, 1, "of the time before");
        world.Disk.FailAt = world.Disk.Operations + 1;
        world.Answers.push_back({.Text = "*"});
        window.FormLaden();
        EXPECT_NE(world.Shown.back().Text.find("KL10X49WTTI.CBW"), std::string::npos);
        EXPECT_EQ(Row(window, 1), "||");
        EXPECT_EQ(window.FGK.Text(20, 0), "20");
        Fill(window, 1, {2026, 5, 1}, {2026, 5, 1});
        ExpectWord(Word::HolidaysUnread);
        Save(window);
        EXPECT_EQ(File(), before);
        Expect(60, Answer::No);
        Back(window);
        window.FormLaden();
        EXPECT_EQ(Row(window, 1), single ? "24.12.2026|26.12.2026|L3" : "24.12. - -|26.12. - -|L4");
        Back(window);
    }
}

TEST_F(Calendar_Tables, with_wild_bytes_are_shown_and_make_no_day) {
    File() = "\xFF\x01\t;99.99\x80"
             "         0"
             "0"
             "31.02.202631.02.20269";
    F3().FormLaden();
    EXPECT_EQ(F3().FGK.Text(2, 1), "31.02.2026");
    EXPECT_EQ(F3().FGK.Text(2, 3), "");
    EXPECT_EQ(F3().Jahrestage.Text(), Wort(programm->kern, Word::HolidayYear, {"0"}));
}

/// What an operator does in any order, saves among it.
TEST_F(Calendar_Tables, go_back_to_the_first_by_undo_and_to_the_last_by_redo) {
    for (const bool single : {true, false}) {
        HolidayCalendar& window = single ? F3() : F10();
        for (int round = 0; round < 20; ++round) {
            window.FormLaden();
            const auto first = Whole(window);
            while (window.Verlauf.Steps() < 90) {
                const int row = 1 + Below(20);
                switch (Below(5)) {
                case 0:
                    Pick(window, row, 1, Day());
                    break;
                case 1:
                    window.FGK_DblClick(row, 3);
                    window.List_Waehlen(Below(2));
                    break;
                case 2:
                    window.Auswahl.Go(row, 1);
                    window.Auswahl.Extend(std::min(20, row + Below(3)), 2);
                    window.Loeschen_Click();
                    break;
                case 3:
                    Save(window);
                    break;
                default:
                    Pick(window, row, 1, {2026, 1, 1});
                    Pick(window, row, 2, Datum_Plus({2026, 1, 1}, Below(300)));
                }
            }
            const auto last = Whole(window);
            while (window.Verlauf.NextUndo() != nullptr) {
                window.Undo_Click();
            }
            ASSERT_TRUE(Whole(window) == first) << round;
            while (window.Verlauf.NextRedo() != nullptr) {
                window.Redo_Click();
            }
            ASSERT_TRUE(Whole(window) == last) << round;
            EXPECT_TRUE(window.Geaendert);
        }
        window.Geaendert = false;
        Back(window);
    }
}

TEST_F(Calendar_Tables, take_one_step_back_at_a_time_and_say_which) {
    F3().FormLaden();
    Pick(F3(), 2, 1, {2026, 5, 1});
    Pick(F3(), 2, 2, {2026, 5, 3});
    Save(F3());
    EXPECT_EQ(Row(F3(), 1), "01.05.2026|03.05.2026|L3");
    F3().Undo_Click();
    EXPECT_EQ(Row(F3(), 2), "01.05.2026|03.05.2026|L3");
    EXPECT_TRUE(F3().Geaendert);
    EXPECT_EQ(F3().Hinweis.Text(), u8"Rückgängig gemacht: Sortieren."_w);
    F3().Undo_Click();
    EXPECT_EQ(Row(F3(), 2), "01.05.2026||L3");
    F3().Undo_Click();
    EXPECT_EQ(Row(F3(), 2), "||");
    EXPECT_FALSE(F3().Rueckgaengig.Enabled());
    F3().Redo_Click();
    EXPECT_EQ(Row(F3(), 2), "01.05.2026||L3");
    EXPECT_EQ(F3().FGK.Row, 2);
}

TEST_F(Calendar_Tables, tell_a_day_that_two_rows_hold) {
    F10().FormLaden();
    Fill(F10(), 1, {2026, 12, 24}, {2026, 12, 26});
    EXPECT_EQ(F10().Mangel.Text(), "");
    EXPECT_EQ(F10().FGK.At(1, 1).BackColor, White);
    Fill(F10(), 4, {2026, 12, 26}, {2026, 12, 31});
    EXPECT_EQ(F10().Mangel.Text(), "Tage dieser Zeile stehen auch in Zeile 1.");
    for (const int row : {1, 4}) {
        EXPECT_EQ(F10().FGK.At(row, 1).BackColor, CalendarLook::DayTwice) << row;
        EXPECT_EQ(F10().FGK.At(row, 2).BackColor, CalendarLook::DayTwice) << row;
    }
    EXPECT_EQ(F10().FGK.At(2, 1).BackColor, White);
    F10().Auswahl.Go(1, 1);
    EXPECT_EQ(F10().Mangel.Text(), "Tage dieser Zeile stehen auch in Zeile 4.");
    EXPECT_EQ(F10().Tagestext({2031, 12, 26}), "26.12.2031: Zeile 1, 4");
    EXPECT_EQ(F10().Jahrestage.Text(), "Eingetragene Tage: 8, davon mehrfach: 1");
    F10().Loeschen_Click();
    EXPECT_EQ(F10().FGK.At(4, 1).BackColor, White);
    EXPECT_EQ(F10().Jahrestage.Text(), "Eingetragene Tage: 6");
    EXPECT_EQ(F10().Belegung.Text(), "1 Zeilen belegt, 19 frei");
}

TEST_F(Calendar_Tables, show_the_days_of_this_year_and_of_those_around_it) {
    F3().FormLaden();
    Fill(F3(), 1, {2026, 12, 30}, {2027, 1, 5});
    int told = 0;
    F3().Tage_Geaendert = [&] { ++told; };
    EXPECT_EQ(F3().Jahreszahl.Text(), "2026");
    EXPECT_EQ(F3().Jahrestage.Text(), "Eingetragene Tage: 2");
    F3().SpaeteresJahr_Click();
    EXPECT_EQ(F3().Jahreszahl.Text(), "2027");
    EXPECT_EQ(F3().Jahrestage.Text(), "Eingetragene Tage: 5");
    EXPECT_EQ(told, 1);
    F3().FrueheresJahr_Click();
    F3().FrueheresJahr_Click();
    EXPECT_EQ(F3().Jahr, 2025);
    EXPECT_EQ(F3().Eintraege({2025, 12, 31}), 0);
    EXPECT_EQ(F3().Tagestext({2025, 12, 31}), "");
    F3().Jahr = 9999;
    F3().SpaeteresJahr_Click();
    EXPECT_EQ(F3().Jahr, 9999);
}

TEST_F(Calendar_Tables, take_the_words_of_another_language_and_keep_their_kinds) {
    F3().FormLaden();
    Fill(F3(), 1, {2026, 5, 1}, {2026, 5, 1});
    F3().FGK_DblClick(1, 3);
    Fill(F3(), 2, {2026, 6, 1}, {2026, 6, 1});
    programm->kern.Sprache.FeiertagsTexte = {"Single", "Permanent"};
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(Row(F3(), 1), "01.05.2026|01.05.2026|Permanent");
    EXPECT_EQ(Row(F3(), 2), "01.06.2026|01.06.2026|Single");
    EXPECT_THAT(F3().List.Entries(), ElementsAre("Permanent", "Single"));
    EXPECT_FALSE(F3().Rueckgaengig.Enabled());
    Save(F3());
    EXPECT_EQ(File(), "01.05.202601.05.2026101.06.202601.06.20260" + Blank(18));
}

} // namespace
} // namespace qvm::test
