// The window of what a scan found: its rows, the choice, what accepting writes and where it goes.

#include "F12Fixture.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace qvm::test {
namespace {

constexpr Colour ScanGreen = 0x008000, ScanRed = 0x0000FF;

struct F19_Fenster : F12Fixture {
    UnitScan scan;
    int ended = 0;

    struct F19& Scan19() {
        return programm->Locks->F19;
    }
    void SetUp() override {
        files.Lock(2, "Lager", "00.0B.10.02");
        files.Reception(2, '2', '0', '0', 1, 2, 3, '1', "100");
        files.Unit(2, 1, "Tastatur", "01600005", '1', "7");
        programm.reset();
        Open();
        auto& lines = programm->kern.Sprache.LanguageText;
        lines[35] = "Funkkanal ";
        lines[157] = "TA - Funkeinheit ";
        lines[158] = "AE - Einheit ";
        lines[159] = "STE - Empfang ";
        File(Channels) = std::string(15, ' ') + "9  5  7  0  1  ";
    }
    void Answers(int channel, const Address& serial, std::uint8_t signal, std::uint8_t type,
                 std::uint8_t status = ScanEntry::Well) {
        scan.Entries[static_cast<std::size_t>(channel)] = {status, serial, signal, type};
    }
    void OpenFor(F19Opener opener, int target = 2) {
        Scan19().Suche_Beenden = [this] { ++ended; };
        Scan19().F19_FormLaden(scan, opener, target);
    }
    void OpenForUnit(int row) {
        Window().Auswahl.Go(2, 2);
        Window().SNA_Function_Click();
        programm->Locks->F20.Fenster.Enabled = false;
        OpenFor(F19Opener::Units, row);
    }
    std::string ScanRow(int row) {
        std::string text;
        for (int column = 0; column <= 4; ++column) {
            text += (column == 0 ? "" : "|") + Scan19().FGK19.Text(row, column);
        }
        return text;
    }
    std::string UnitOf(int row) {
        std::string text;
        for (int column = 1; column <= 4; ++column) {
            text += (column == 1 ? "" : "|") + programm->Locks->F20.FGK20.Text(row, column);
        }
        return text;
    }
    int Lit(int row) {
        int cells = 0;
        for (int column = 5; column < 37; ++column) {
            cells += Scan19().FGK19.At(row, column).BackColor != White ? 1 : 0;
        }
        return cells;
    }
};

TEST_F(F19_Fenster, has_a_row_for_each_channel_and_a_dash_where_nothing_answered) {
    Answers(3, {0x01, 0x60, 0x00, 0x05}, 90, 6);
    OpenFor(F19Opener::Units);
    EXPECT_TRUE(Scan19().Fenster.Visible);
    EXPECT_EQ(Scan19().FGK19.Rows(), 13);
    EXPECT_EQ(Scan19().FGK19.Columns(), 37);
    EXPECT_EQ(ScanRow(0), "L10|L160|L41||L156");
    EXPECT_EQ(ScanRow(1), "Funkkanal-1|-|||");
    EXPECT_EQ(ScanRow(3), "Funkkanal-3|01.60.00.05|TA - Funkeinheit||90");
    EXPECT_EQ(ScanRow(12), "Funkkanal-12|-|||");
    EXPECT_EQ(Lit(1), 0);
    EXPECT_EQ(Lit(3), 22);
    EXPECT_EQ(Scan19().FGK19.At(3, 5).BackColor, 0xC0U);
    EXPECT_EQ(Scan19().FGK19.At(3, 26).BackColor, 0x80FFFFU);
    EXPECT_EQ(Scan19().FGK19.At(3, 27).BackColor, White);
}

TEST_F(F19_Fenster, tells_a_poor_answer_by_its_colour_and_does_not_choose_it) {
    Answers(1, {0, 0, 0x20, 0x01}, 120, 1, 1);
    Answers(2, {0, 0, 0x20, 0x02}, 20, 1);
    OpenFor(F19Opener::Units);
    EXPECT_EQ(Scan19().FGK19.At(1, 4).ForeColor, ScanRed);
    EXPECT_EQ(Scan19().FGK19.At(1, 3).ForeColor, ScanRed);
    EXPECT_EQ(Scan19().FGK19.At(2, 4).ForeColor, ScanGreen);
    EXPECT_EQ(Scan19().GewaehlteZeile, 2);
    EXPECT_EQ(Scan19().Label1.Text(), "00.00.20.02 - AE - Einheit");
}

TEST_F(F19_Fenster, turns_the_listen_time_on_for_a_unit_that_has_one) {
    Answers(5, {0, 0, 0x20, 0x01}, 120, 41);
    Answers(6, {0, 0, 0x20, 0x02}, 20, 6);
    OpenFor(F19Opener::Units);
    EXPECT_TRUE(Scan19().Combo2.Enabled() && Scan19().Combo4.Enabled() && Scan19().Check1.Enabled());
    EXPECT_EQ(Scan19().Combo4.Selected(), 2);
    Scan19().Check1_Click(true);
    EXPECT_FALSE(Scan19().Combo2.Enabled());
    Scan19().Check1_Click(false);
    EXPECT_TRUE(Scan19().Combo2.Enabled());
    Scan19().FGK19_DblClick(6);
    EXPECT_FALSE(Scan19().Combo2.Enabled() || Scan19().Check1.Enabled());
    EXPECT_EQ(Scan19().Label1.Text(), "00.00.20.02 - TA - Funkeinheit");
    Scan19().FGK19_DblClick(7); // there is no unit
    Scan19().FGK19_DblClick(0);
    Scan19().FGK19_DblClick(13);
    EXPECT_EQ(Scan19().GewaehlteZeile, 6);
}

TEST_F(F19_Fenster, says_in_words_what_its_signs_and_bars_show) {
    Answers(1, {0, 0, 0x20, 0x01}, 254, 1, 1); // counts downwards
    Answers(2, {0, 0, 0x20, 0x02}, 128, 1);
    OpenFor(F19Opener::Units);
    const auto& kern = programm->kern;
    EXPECT_EQ(Scan19().Tip(0, 3) + Scan19().Tip(0, 5), "L156L156");
    EXPECT_EQ(Scan19().Tip(1, 5), Wort(kern, Word::UnitSignal, {"2", "128"}));
    EXPECT_EQ(Scan19().Tip(2, 5), Wort(kern, Word::UnitSignal, {"128", "128"}));
    EXPECT_EQ(Scan19().Tip(3, 5) + Scan19().Tip(2, 3) + Scan19().Tip(2, 1) + Scan19().Tip(13, 5), "");
    EXPECT_EQ(Scan19().FGK19.At(1, 3).Picture, RunSign::Attention);
    EXPECT_EQ(Scan19().FGK19.At(2, 3).Picture, RunSign::Done);
    EXPECT_EQ(Scan19().FGK19.At(3, 3).Picture, RunSign::None);
    EXPECT_EQ(Scan19().Bildtext(RunSign::Attention), Wort(kern, Word::UnitPoor));
    EXPECT_EQ(Scan19().Bildtext(RunSign::Done), Wort(kern, Word::UnitWell));
    EXPECT_EQ(Scan19().Bildtext(RunSign::None), "");
}

TEST_F(F19_Fenster, the_number_of_the_chosen_unit_is_bold) {
    Answers(5, {0, 0, 0x20, 0x01}, 120, 1);
    Answers(6, {0, 0, 0x20, 0x02}, 20, 6);
    OpenFor(F19Opener::Units);
    EXPECT_TRUE(Scan19().FGK19.At(5, 1).Bold);
    EXPECT_FALSE(Scan19().FGK19.At(6, 1).Bold);
    Scan19().FGK19_DblClick(6);
    EXPECT_FALSE(Scan19().FGK19.At(5, 1).Bold);
    EXPECT_TRUE(Scan19().FGK19.At(6, 1).Bold);
}

TEST_F(F19_Fenster, space_and_return_choose_and_return_on_the_chosen_row_accepts) {
    Answers(5, {0, 0, 0x20, 0x01}, 120, 1);
    Answers(6, {0, 0, 0x20, 0x02}, 20, 6);
    OpenForUnit(2);
    Scan19().FGK19.Row = 7; // nothing answered there
    Scan19().FGK19_KeyPress(' ');
    Scan19().FGK19_KeyPress(qvm::Key::Enter);
    EXPECT_EQ(Scan19().GewaehlteZeile, 5);
    Scan19().FGK19.Row = 6;
    Scan19().FGK19_KeyPress(' ');
    EXPECT_EQ(Scan19().GewaehlteZeile, 6);
    Scan19().FGK19_KeyPress(' ');
    Scan19().FGK19_KeyPress('x');
    Scan19().FGK19.Row = 5;
    Scan19().FGK19_KeyPress(qvm::Key::Enter);
    EXPECT_EQ(Scan19().GewaehlteZeile, 5);
    EXPECT_TRUE(Scan19().Fenster.Visible);
    Scan19().FGK19_KeyPress(qvm::Key::Enter);
    EXPECT_FALSE(Scan19().Fenster.Visible);
    EXPECT_EQ(UnitOf(2), "|00.00.20.01|2|5");
}

TEST_F(F19_Fenster, return_where_nothing_answered_says_that_nothing_is_chosen) {
    OpenFor(F19Opener::Units);
    Scan19().FGK19_KeyPress(qvm::Key::Enter);
    EXPECT_TRUE(Scan19().Fenster.Visible);
    EXPECT_EQ(Scan19().Hinweis.Text(), Wort(programm->kern, Word::NoUnitChosen));
}

TEST_F(F19_Fenster, without_an_answer_accepting_stores_nothing_and_says_so) {
    const std::string units = File(Units), channels = File(Channels);
    OpenFor(F19Opener::Locks);
    EXPECT_EQ(Scan19().Label1.Text(), "");
    Scan19().Command2_Click();
    EXPECT_TRUE(Scan19().Fenster.Visible);
    EXPECT_EQ(Scan19().Hinweis.Text(), Wort(programm->kern, Word::NoUnitChosen));
    EXPECT_EQ(File(Units), units);
    EXPECT_EQ(File(Channels), channels);
    Scan19().Command1_Click();
    EXPECT_FALSE(Scan19().Fenster.Visible);
    EXPECT_EQ(ended, 1);
}

TEST_F(F19_Fenster, accepted_for_a_lock_its_two_records_and_its_row_are_written) {
    Answers(4, {0x00, 0x0B, 0x20, 0x03}, 140, 42); // 116
    Window().Fenster.Enabled = false;
    OpenFor(F19Opener::Locks);
    Scan19().Combo2_Click(1);
    Scan19().Command2_Click();
    EXPECT_EQ(File(Units).substr(241, 241), "3991161 0 2 0000" + std::string(225, ' '));
    EXPECT_EQ(File(Channels), std::string(15, ' ') + "4  5  7  1  1  ");
    EXPECT_EQ(Text(2, 2), "00.0B.20.03");
    EXPECT_EQ(Text(2, 11), "STE");
    EXPECT_FALSE(Scan19().Fenster.Visible);
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_EQ(ended, 1);
}

TEST_F(F19_Fenster, a_lock_found_on_its_target_has_no_change_to_make) {
    Answers(7, {0x00, 0x0B, 0x20, 0x03}, 100, 1);
    OpenFor(F19Opener::Locks);
    Scan19().Command2_Click();
    EXPECT_EQ(File(Channels), std::string(15, ' ') + "7  5  7  0  1  ");
}

TEST_F(F19_Fenster, a_listen_time_of_nothing_is_refused_unless_the_unit_always_listens) {
    const std::string units = File(Units);
    Answers(4, {0x00, 0x0B, 0x20, 0x03}, 100, 42);
    OpenFor(F19Opener::Locks);
    Scan19().Combo4_Click(0);
    world.Answers.push_back({.Text = "L163\n\rL168"});
    Scan19().Command2_Click();
    EXPECT_TRUE(Scan19().Fenster.Visible);
    EXPECT_EQ(File(Units), units);
    Scan19().Check1_Click(true);
    Scan19().Command2_Click();
    EXPECT_EQ(File(Units).substr(241, 16), "3191000 0 0 0000");
}

TEST_F(F19_Fenster, a_disk_that_refuses_keeps_it_open_and_both_records_and_the_lock_row_as_they_were) {
    const std::string units = File(Units), channels = File(Channels);
    Answers(4, {0x00, 0x0B, 0x20, 0x03}, 100, 1);
    OpenFor(F19Opener::Locks);
    int refused = 0;
    for (int n = 1; Scan19().Fenster.Visible; ++n) {
        const int before = world.Disk.Operations;
        Break(n, false);
        ExpectWord(Word::FoundNotSaved);
        Scan19().Command2_Click();
        Mend();
        if (Scan19().Fenster.Visible) {
            ++refused;
            ASSERT_EQ(File(Units), units) << n;
            ASSERT_EQ(File(Channels), channels) << n;
            ASSERT_EQ(Text(2, 2), "00.0B.10.02") << n;
        } else {
            ASSERT_LT(world.Disk.Operations, before + n) << "an operation failed and nothing was said";
        }
    }
    world.Answers.clear();
    EXPECT_GE(refused, 4); // each record is read and written
    EXPECT_EQ(Text(2, 2), "00.0B.20.03");
}

TEST_F(F19_Fenster, a_lock_that_has_only_had_a_name_gets_its_switches_with_the_number) {
    EnterName(3, "Neu");
    Press("Speichern");
    Window().F12_FormLaden();
    Answers(4, {0x00, 0x0B, 0x20, 0x03}, 100, 1);
    OpenFor(F19Opener::Locks, 3);
    ASSERT_EQ(Switches(3), (std::array<int, 5>{0, 0, 0, 0, 0})); // neither on nor off
    Scan19().Command2_Click();
    EXPECT_EQ(Switches(3), (std::array<int, 5>{9, 9, 9, 9, 9}));
}

TEST_F(F19_Fenster, an_undo_says_what_of_the_lock_that_was_found_stays) {
    Answers(4, {0x00, 0x0B, 0x20, 0x03}, 100, 1);
    OpenFor(F19Opener::Locks);
    Scan19().Command2_Click();
    Window().F12_Undo_Click();
    EXPECT_EQ(Text(2, 2), "00.0B.10.02");
    EXPECT_THAT(Window().Hinweis.Text(), ::testing::HasSubstr(Wort(programm->kern, Word::LockFoundStays)));
}

TEST_F(F19_Fenster, accepted_for_the_units_the_row_has_serial_class_and_channel_and_no_file_changes) {
    const std::string units = File(Units), channels = File(Channels);
    Answers(9, {0x01, 0x60, 0x00, 0x01}, 100, 6);
    OpenForUnit(3);
    Scan19().Command2_Click();
    EXPECT_EQ(UnitOf(3), "|01.60.00.01|1|9");
    EXPECT_TRUE(programm->Locks->F20.Fenster.Enabled);
    EXPECT_EQ(File(Units), units);
    EXPECT_EQ(File(Channels), channels);
}

TEST_F(F19_Fenster, a_serial_that_is_no_units_is_refused_in_the_unit_window) {
    Answers(9, {0x02, 0x00, 0x00, 0x01}, 100, 6);
    OpenForUnit(3);
    world.Answers.push_back({.Text = "Wrong Modul"});
    Scan19().Command2_Click();
    EXPECT_EQ(UnitOf(3), "||0|");
    EXPECT_FALSE(Scan19().Fenster.Visible);
}

TEST_F(F19_Fenster, a_serial_of_01_60_00_01_is_of_class_1_and_the_next_below_is_none) {
    Answers(2, {0x01, 0x60, 0x00, 0x01}, 100, 6);
    OpenForUnit(4);
    Scan19().Command2_Click();
    EXPECT_EQ(UnitOf(4), "|01.60.00.01|1|2");
    scan = {};
    Answers(2, {0x01, 0x60, 0x00, 0x00}, 100, 6);
    OpenFor(F19Opener::Units, 4);
    world.Answers.push_back({.Text = "Wrong Modul"});
    Scan19().Command2_Click();
    EXPECT_EQ(UnitOf(4), "|01.60.00.01|0|2");
}

TEST_F(F19_Fenster, a_type_that_is_named_by_two_letters_alone_is_known_by_them) {
    programm->kern.Sprache.LanguageText[157] = "TA";
    Answers(4, {0x00, 0x0B, 0x20, 0x03}, 100, 6);
    OpenFor(F19Opener::Locks);
    Scan19().Command2_Click();
    EXPECT_EQ(File(Units).substr(241, 1), "1");
    EXPECT_EQ(Text(2, 11), "TA ");
}

TEST_F(F19_Fenster, cancelled_it_changes_nothing_and_ends_the_search) {
    Answers(9, {0x01, 0x60, 0x00, 0x01}, 100, 6);
    OpenForUnit(3);
    Scan19().Command1_Click();
    EXPECT_EQ(UnitOf(3), "|||");
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(programm->Locks->F20.Fenster.Enabled);
    scan = {};
    OpenFor(F19Opener::Units, 3);
    EXPECT_EQ(Scan19().GewaehlteZeile, 0) << "the next scan begins with nothing chosen";
}

} // namespace
} // namespace qvm::test
