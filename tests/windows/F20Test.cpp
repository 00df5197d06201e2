// The window of a lock's units: load, listen, names, serial numbers, accept.

#include "F12Fixture.h"

#include <vector>

namespace qvm::test {
namespace {

struct F20_Fenster : F12Fixture {
    std::vector<F20Menu> menus;

    struct F20& Units20() {
        return programm->Locks->F20;
    }
    void SetUp() override {
        files.Lock(2, "Lager", "00.0B.10.02");
        files.Reception(2, '3', '0', '0', 1, 2, 3, '0', "000");
        files.Unit(2, 1, "Tastatur", "01600005", '1', "7");
        files.Unit(2, 3, "Leser", "00002001", '2', "1");
        programm.reset();
        Open();
        // The catalogue's lines begin alike.
        auto& lines = programm->kern.Sprache.LanguageText;
        lines[158] = "AE - Schwelle ";
        lines[159] = "STE - Fenster ";
    }
    bool Opened(int lock = 2) {
        Window().Auswahl.Go(lock, 2);
        Window().SNA_Function_Click();
        Units20().Menue_Zeigen = [this](F20Menu which) { menus.push_back(which); };
        return Units20().Fenster.Visible;
    }
    std::string UnitRow(int row) {
        std::string text;
        for (int column = 1; column <= 4; ++column) {
            text += (column == 1 ? "" : "|") + Units20().FGK20.Text(row, column);
        }
        return text;
    }
    /// Mode, always on, third byte, signal, hours, minutes, seconds, flag, level.
    std::string Head(int lock) { return File(Units).substr(static_cast<std::size_t>(lock - 1) * 241, 16); }
    void Place(int row, int column) { Units20().Auswahl.Go(row, column); }
    void UnitName(int row, std::string_view name, int last = qvm::Key::Enter) {
        Place(row, 1);
        Units20().FGK20_KeyPress(qvm::Key::Enter);
        Units20().Text1_Change(name);
        Units20().Text1_KeyPress(last);
    }
    void UnitSerial(int row, std::string_view digits) {
        Place(row, 2);
        Units20().FGK20_KeyPress(qvm::Key::Enter);
        for (std::size_t n = 0; n < digits.size(); n += 2) {
            Units20().Serie_Change(n / 2, digits.substr(n, 2));
        }
        Units20().Serie_KeyPress(3, qvm::Key::Tab);
    }
    void ExpectWrong() { world.Answers.push_back({.Text = "Wrong Modul"}); }
};

TEST_F(F20_Fenster, opens_over_the_locks_with_the_record_of_the_lock) {
    ASSERT_TRUE(Opened());
    struct F20& units = Units20();
    EXPECT_FALSE(Window().Fenster.Enabled);
    EXPECT_EQ(units.Schloss.Text(), "Schloss 2: Lager");
    EXPECT_EQ(units.Fenster.Title(), "L161 - QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(UnitRow(1), "Tastatur|01.60.00.05|1|7");
    EXPECT_EQ(UnitRow(3), "Leser|00.00.20.01|2|1");
    EXPECT_EQ(UnitRow(5), "|||");
    EXPECT_EQ(units.FGK20.Text(0, 0) + units.FGK20.Text(0, 1) + units.FGK20.Text(0, 2), "NrL50L51");
    EXPECT_THAT(units.Combo1.Entries(), ElementsAre("AE - Schwelle", "STE - Fenster"));
    EXPECT_EQ(units.Combo1.Selected(), 1);
    EXPECT_EQ(units.Combo2.Selected(), 1);
    EXPECT_EQ(units.Combo3.Selected(), 2);
    EXPECT_EQ(units.Combo4.Selected(), 3);
    EXPECT_EQ(units.Combo2.Entries().back() + units.Combo3.Entries().back() + units.Combo4.Entries()[1],
              "17 Std.59 min.1 sec.");
    EXPECT_EQ(units.Check1.Text() + units.Check2.Text() + units.Frame1.Text() + units.Frame2.Text() +
                  units.Label1.Text() + units.Label2.Text() + units.Label3.Text() + units.Command1.Text() +
                  units.Command2.Text(),
              "L164L239L238L237L165L166L240L83L120");
}

TEST_F(F20_Fenster, shows_a_lock_without_a_record_with_its_defaults) {
    ASSERT_TRUE(Opened(9));
    EXPECT_EQ(Units20().Combo1.Selected(), 0);
    EXPECT_EQ(Units20().Combo5.Selected(), 4);
    EXPECT_FALSE(Units20().Combo2.Enabled());
    EXPECT_TRUE(Units20().Combo5.Enabled());
    EXPECT_FALSE(Units20().Check1.Checked());
    EXPECT_EQ(UnitRow(1), "|||");
}

TEST_F(F20_Fenster, shows_level_5_for_a_level_that_it_does_not_know) {
    files.Reception(2, '2', '0', '0', 0, 0, 0, '1', "xyz");
    ASSERT_TRUE(Opened());
    EXPECT_EQ(Units20().Combo5.Selected(), 4);
    EXPECT_TRUE(Units20().Check2.Checked());
}

TEST_F(F20_Fenster, a_file_that_cannot_be_read_is_told_and_the_window_stays_closed) {
    world.Answers.push_back({.Text = "*"});
    Break(1, false);
    EXPECT_FALSE(Opened());
    EXPECT_NE(world.Shown.back().Text.find("T6WRSSISN.TSD"), std::string::npos);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F20_Fenster, the_mode_turns_times_or_signal_on) {
    ASSERT_TRUE(Opened());
    struct F20& units = Units20();
    units.Combo1_Click(0);
    for (const bool on : {units.Combo2.Enabled(), units.Combo3.Enabled(), units.Combo4.Enabled(),
                          units.Check1.Enabled(), units.Label2.Enabled()}) {
        EXPECT_FALSE(on);
    }
    EXPECT_TRUE(units.Combo5.Enabled() && units.Check2.Enabled() && units.Label3.Enabled() && units.Frame1.Enabled());
    units.Combo1_Click(1);
    EXPECT_TRUE(units.Combo2.Enabled() && units.Check1.Enabled() && units.Label2.Enabled());
    EXPECT_FALSE(units.Combo5.Enabled() || units.Check2.Enabled() || units.Label3.Enabled() || units.Frame1.Enabled());
}

TEST_F(F20_Fenster, always_on_turns_the_times_off_and_cleared_again_chooses_2_seconds) {
    ASSERT_TRUE(Opened());
    Units20().Check1_Click(true);
    EXPECT_FALSE(Units20().Combo2.Enabled());
    EXPECT_EQ(Units20().Combo4.Selected(), 3);
    Units20().Check1_Click(false);
    EXPECT_TRUE(Units20().Combo4.Enabled());
    EXPECT_EQ(Units20().Combo4.Selected(), 2);
}

TEST_F(F20_Fenster, accepting_a_time_window_writes_the_record_and_the_type_of_the_lock) {
    ASSERT_TRUE(Opened());
    Units20().Combo2_Click(0);
    Units20().Combo3_Click(12);
    Units20().Combo4_Click(5);
    Units20().Command2_Click();
    EXPECT_EQ(Head(2), "30000 0 125 0000");
    EXPECT_EQ(File(Units).substr(241 + 16, 45), "Tastatur                      01 60 00 05 17 ");
    EXPECT_EQ(Text(2, 11), "STE");
    EXPECT_FALSE(Units20().Fenster.Visible);
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F20_Fenster, accepting_a_threshold_writes_level_and_flag) {
    ASSERT_TRUE(Opened());
    Units20().Combo1_Click(0);
    Units20().Combo5_Click(1);
    Units20().Check2_Click(true);
    Units20().Command2_Click();
    EXPECT_EQ(Head(2), "20000 1 2 3 1130");
    EXPECT_EQ(Text(2, 11), "AE ");
}

TEST_F(F20_Fenster, a_time_window_of_no_length_is_refused_unless_the_unit_is_always_on) {
    ASSERT_TRUE(Opened());
    const std::string before = File(Units);
    Units20().Combo2_Click(0);
    Units20().Combo3_Click(0);
    Units20().Combo4_Click(0);
    world.Answers.push_back({.Text = "L163\n\rL168"});
    Units20().Command2_Click();
    EXPECT_EQ(world.Shown.back().Title, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_TRUE(Units20().Fenster.Visible);
    EXPECT_EQ(File(Units), before);
    Units20().Check1_Click(true);
    Units20().Command2_Click();
    EXPECT_EQ(Head(2), "31000 0 0 0 0000");
}

TEST_F(F20_Fenster, cancelling_writes_nothing) {
    ASSERT_TRUE(Opened());
    const auto before = world.Disk.Files;
    UnitName(2, "Neu");
    Units20().Command1_Click();
    EXPECT_EQ(world.Disk.Files, before);
    EXPECT_TRUE(Window().Fenster.Enabled);
    ASSERT_TRUE(Opened());
    EXPECT_EQ(UnitRow(2), "|||");
    EXPECT_FALSE(Units20().F20_Undo.Enabled());
}

TEST_F(F20_Fenster, a_record_that_cannot_be_written_is_told_and_the_window_stays) {
    ASSERT_TRUE(Opened());
    const auto before = world.Disk.Files;
    Break(1, false);
    ExpectWord(Word::UnitsNotSaved);
    Units20().Command2_Click();
    Mend();
    EXPECT_EQ(world.Disk.Files, before);
    EXPECT_TRUE(Units20().Fenster.Visible);
    EXPECT_EQ(Text(2, 11), "L15"); // as it stood
    const int operations = world.Disk.Operations;
    Units20().Command2_Click();
    EXPECT_EQ(world.Disk.Operations - operations, 1); // it was broken above
}

TEST_F(F20_Fenster, a_name_is_typed_in_place_of_the_old_one_and_the_serial_comes_next) {
    ASSERT_TRUE(Opened());
    Place(1, 1);
    Units20().FGK20_KeyPress('K');
    EXPECT_EQ(Units20().Text1.Text(), "K");
    EXPECT_EQ(UnitRow(1), "|01.60.00.05|1|7"); // emptied for the time
    Units20().Text1_KeyPress(qvm::Key::Escape);
    EXPECT_EQ(UnitRow(1), "Tastatur|01.60.00.05|1|7");
    EXPECT_EQ(Units20().FGK20.Column, 2);
    UnitName(1, std::string(31, 'n'), qvm::Key::Tab);
    EXPECT_EQ(UnitRow(1), std::string(30, 'n') + "|01.60.00.05|1|7");
    EXPECT_EQ(Units20().FGK20.Column, 2);
}

TEST_F(F20_Fenster, two_units_may_share_a_serial_but_no_name) {
    ASSERT_TRUE(Opened());
    Expect(62);
    UnitName(2, "Leser");
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    EXPECT_TRUE(Units20().Text1.Visible());
    Units20().Text1_Change("Leser 2");
    Units20().Text1_LostFocus();
    EXPECT_FALSE(Units20().Text1.Visible());
    UnitSerial(2, "00002001");
    EXPECT_EQ(UnitRow(2), "Leser 2|00.00.20.01|2|");
}

TEST_F(F20_Fenster, a_name_that_another_unit_has_keeps_the_window_from_accepting) {
    ASSERT_TRUE(Opened());
    const auto before = world.Disk.Files;
    Place(2, 1);
    Units20().FGK20_KeyPress(qvm::Key::Enter);
    Units20().Text1_Change("Leser");
    Expect(62);
    Units20().Command2_Click();
    EXPECT_EQ(world.Disk.Files, before);
    EXPECT_TRUE(Units20().Fenster.Visible);
}

TEST_F(F20_Fenster, the_class_of_a_unit_goes_by_its_serial_and_others_are_refused) {
    ASSERT_TRUE(Opened());
    struct Case {
        const char *Digits, *Row;
    };
    for (const Case& good : {Case{"00000001", "|00.00.00.01|2|"}, Case{"00500000", "|00.50.00.00|2|"},
                             Case{"01600001", "|01.60.00.01|1|"}, Case{"01640000", "|01.64.00.00|1|"}}) {
        UnitSerial(4, good.Digits);
        EXPECT_EQ(UnitRow(4), good.Row) << good.Digits;
    }
    for (const char* bad : {"", "00000000", "00500001", "01600000", "01640001", "FFFFFFFF"}) {
        ExpectWrong();
        UnitSerial(4, bad);
        EXPECT_EQ(world.Shown.back().Title, "INFO");
        EXPECT_EQ(UnitRow(4), "||0|") << bad;
        EXPECT_FALSE(Units20().Serie.Visible());
    }
}

TEST_F(F20_Fenster, a_serial_has_no_more_than_eight_digits) {
    ASSERT_TRUE(Opened());
    Place(4, 2);
    Units20().FGK20_KeyPress(qvm::Key::Enter);
    for (std::size_t box = 0; box < 4; ++box) {
        Units20().Serie_Change(box, box == 3 ? "019" : "00");
    }
    EXPECT_EQ(Units20().Serie.Boxes[3].Text(), "01");
    Units20().Serie_KeyPress(3, qvm::Key::Enter);
    EXPECT_EQ(UnitRow(4), "|00.00.00.01|2|");
}

TEST_F(F20_Fenster, a_serial_left_with_nothing_typed_or_cancelled_stays) {
    ASSERT_TRUE(Opened());
    Place(1, 2);
    Units20().FGK20_KeyPress('1');
    EXPECT_EQ(Units20().Serie.Boxes[0].Text(), "1");
    Units20().Serie_KeyPress(0, qvm::Key::Escape);
    Units20().SN_Msave_Click();
    EXPECT_TRUE(Units20().Serie.Visible());
    Units20().Serie_LostFocus();
    EXPECT_EQ(UnitRow(1), "Tastatur|01.60.00.05|1|7");
    EXPECT_EQ(Units20().Verlauf.Steps(), 0U);
}

TEST_F(F20_Fenster, asks_once_whether_the_code_of_a_new_unit_is_to_be_set) {
    std::vector<std::string> opened;
    Units20().Code_Aendern = [&](std::string_view serial, int channel) {
        opened.push_back(std::string(serial) + " " + std::to_string(channel));
    };
    ASSERT_TRUE(Opened());
    UnitSerial(2, "01600009");
    world.RunFor(499);
    EXPECT_TRUE(opened.empty());
    Expect(202, Answer::Yes);
    world.RunFor(1);
    EXPECT_EQ(world.Shown.back().Title, "L35");
    EXPECT_EQ(world.Shown.back().Choice, Buttons::YesNo);
    EXPECT_THAT(opened, ElementsAre("01.60.00.09 1"));
    EXPECT_FALSE(Units20().Fenster.Enabled);
    Units20().F20_Freigeben();
    UnitSerial(2, "0160000A");
    Expect(202, Answer::No);
    world.RunFor(2000);
    EXPECT_EQ(opened.size(), 1U);
    UnitSerial(2, "00002001"); // of class 2: nothing is asked
    world.RunFor(2000);
}

TEST_F(F20_Fenster, the_question_for_the_code_waits_for_a_window_in_front_and_is_for_that_unit_only) {
    std::vector<std::string> opened;
    Units20().Code_Aendern = [&](std::string_view serial, int) { opened.emplace_back(serial); };
    ASSERT_TRUE(Opened());
    UnitSerial(2, "01600009");
    Units20().Fenster.Enabled = false;
    world.RunFor(5000);
    EXPECT_TRUE(world.Shown.empty());
    Units20().F20_Freigeben();
    Expect(202, Answer::Yes);
    world.RunFor(500);
    EXPECT_THAT(opened, ElementsAre("01.60.00.09"));
    Units20().F20_Freigeben();
    UnitSerial(4, "0160000A");
    Units20().F20_Undo_Click();
    ASSERT_EQ(UnitRow(4), "|||");
    Units20().FGK20.SetText(4, UnitColumn::Serial, "01.60.00.0B");
    world.RunFor(5000);
    EXPECT_EQ(world.Shown.size(), 1U) << "another one stands there now";
}

TEST_F(F20_Fenster, the_code_of_a_unit_goes_to_the_channel_on_which_it_listens) {
    std::vector<std::string> opened;
    Units20().Code_Aendern = [&](std::string_view serial, int channel) {
        opened.push_back(std::string(serial) + " " + std::to_string(channel));
        Units20().F20_Freigeben();
    };
    ASSERT_TRUE(Opened());
    Place(1, 2);
    Units20().SN_Codechange_Click();
    Units20().FGK20.SetText(1, 4, "13");
    Units20().SN_Codechange_Click();
    Place(2, 2);
    Units20().SN_Codechange_Click(); // there is no unit
    EXPECT_THAT(opened, ElementsAre("01.60.00.05 7", "01.60.00.05 1"));
}

TEST_F(F20_Fenster, its_menus_open_by_mouse_and_by_key) {
    ASSERT_TRUE(Opened());
    Units20().FGK20_MouseUp(MouseButton::Right, 1, 1);
    Units20().FGK20_MouseUp(MouseButton::Left, 1, 2);
    Units20().FGK20_MouseUp(MouseButton::Left, 1, 1);
    Units20().FGK20_MouseUp(MouseButton::Left, 0, 2);
    Units20().FGK20_Kontext();
    EXPECT_THAT(menus, ElementsAre(F20Menu::F20_Loe, F20Menu::FGK20PopUP, F20Menu::F20_Loe));
    EXPECT_FALSE(Units20().F20_Keypad.Enabled()); // nobody scans
    EXPECT_FALSE(Units20().SN_Codechange.Enabled());
    EXPECT_EQ(Units20().SN_Msave.Text() + Units20().F20_deleate.Text() + Units20().SN_Asave.Text(),
              "SN_ManuellLoeschenSN_AutoSave");
}

TEST_F(F20_Fenster, deletes_the_selected_units_and_takes_it_back) {
    ASSERT_TRUE(Opened());
    Place(1, 1);
    Units20().Auswahl.Extend(3, 1);
    Units20().F20_deleate_Click();
    EXPECT_EQ(UnitRow(1) + UnitRow(3), "||||||");
    EXPECT_EQ(Units20().FGK20.Text(1, 0), "1");
    Units20().F20_Undo_Click();
    EXPECT_EQ(UnitRow(3), "Leser|00.00.20.01|2|1");
    EXPECT_EQ(Units20().Hinweis.Text(), u8"Rückgängig gemacht: Löschen."_w);
    Units20().F20_Redo_Click();
    EXPECT_EQ(UnitRow(1) + UnitRow(3), "||||||");
}

TEST_F(F20_Fenster, hands_a_row_to_the_scan_and_takes_what_it_found) {
    int asked = 0;
    Units20().Keypad_Suchen = [&](int row) { asked = row; };
    Units20().Readunit_Suchen = [&](int row) { asked = 10 * row; };
    ASSERT_TRUE(Opened());
    EXPECT_TRUE(Units20().SN_Asave.Enabled());
    Place(2, 2);
    Units20().F20_Keypad_Click();
    EXPECT_EQ(asked, 2);
    Units20().F20_Readunit_Click();
    EXPECT_EQ(asked, 20);
    EXPECT_TRUE(Units20().Unit_Uebernehmen(2, "00.00.30.01", "5"));
    EXPECT_EQ(UnitRow(2), "|00.00.30.01|2|5");
    ExpectWrong();
    EXPECT_FALSE(Units20().Unit_Uebernehmen(2, "0C.00.00.01", "6"));
    EXPECT_EQ(UnitRow(2), "|00.00.30.01|0|5") << "only its class says that it was refused";
}

TEST_F(F20_Fenster, a_step_that_is_taken_back_or_done_again_leaves_a_unit_on_the_channel_that_it_has_moved_to) {
    ASSERT_TRUE(Opened());
    Units20().Unit_Uebernehmen(1, "01.60.00.05", "1"); // it was on channel 7
    Units20().Unit_Uebernehmen(2, "01.60.00.06", "3");
    Units20().Unit_Unterwegs();
    Units20().Unit_Angekommen("01.60.00.05", 9);
    ASSERT_EQ(UnitRow(1), "Tastatur|01.60.00.05|1|9");
    Units20().F20_Undo_Click();
    Units20().F20_Undo_Click();
    EXPECT_EQ(UnitRow(1), "Tastatur|01.60.00.05|1|9");
    EXPECT_EQ(UnitRow(2), "|||") << "what stood there was no unit";
    Units20().F20_Redo_Click();
    Units20().F20_Redo_Click();
    EXPECT_EQ(UnitRow(1), "Tastatur|01.60.00.05|1|9");
    EXPECT_EQ(UnitRow(2), "|01.60.00.06|1|3");
    Place(1, 1);
    Units20().F20_deleate_Click();
    Units20().F20_Undo_Click();
    Units20().F20_Undo_Click();
    Units20().F20_Undo_Click();
    EXPECT_EQ(UnitRow(1), "Tastatur|01.60.00.05|1|9");
    Units20().Command1_Click();
    ASSERT_TRUE(Opened());
    EXPECT_EQ(UnitRow(1), "Tastatur|01.60.00.05|1|9") << "its record, as the unit has moved";
}

TEST_F(F20_Fenster, a_step_that_is_taken_back_leaves_a_unit_on_the_channel_on_which_a_scan_has_heard_it_last) {
    ASSERT_TRUE(Opened());
    Units20().Unit_Uebernehmen(2, "01.60.00.06", "3");
    Units20().Unit_Uebernehmen(2, "01.60.00.06", "4");
    Units20().F20_Undo_Click();
    EXPECT_EQ(UnitRow(2), "|01.60.00.06|1|4");
    Units20().F20_Undo_Click();
    EXPECT_EQ(UnitRow(2), "|||");
}

TEST_F(F20_Fenster, does_nothing_during_a_scan_but_end_it) {
    int ended = 0, scans = 0;
    Units20().Suche_Abbrechen = [&] { ++ended; };
    Units20().Keypad_Suchen = Units20().Readunit_Suchen = [&](int) { ++scans; };
    ASSERT_TRUE(Opened());
    Place(1, 2);
    Units20().Hinweis.Text = std::string("old");
    Units20().Suche_Zeigen(5, "so far");
    EXPECT_TRUE(Units20().F20Prg01.Visible());
    EXPECT_EQ(Units20().F20Prg01.Value(), 5);
    EXPECT_EQ(Units20().F20Prg01.Maximum(), 12);
    EXPECT_EQ(Units20().Suchstand.Text() + Units20().Hinweis.Text(), "so far");
    const auto before = world.Disk.Files;
    const UnitSettings settings = Units20().Einstellung;
    Units20().Command2_Click();
    Units20().F20_Keypad_Click();
    Units20().F20_Readunit_Click();
    Units20().SN_Codechange_Click();
    Units20().F20_deleate_Click();
    Units20().SN_Msave_Click();
    Units20().FGK20_DblClick(1, 1);
    Units20().FGK20_KeyPress('A');
    Units20().FGK20_MouseUp(MouseButton::Left, 1, 2);
    Units20().FGK20_Kontext();
    Units20().F20_Undo_Click();
    Units20().Combo1_Click(1 - Units20().Combo1.Selected());
    Units20().Combo2_Click(7);
    Units20().Combo3_Click(8);
    Units20().Combo4_Click(9);
    Units20().Combo5_Click(4);
    Units20().Check1_Click(true);
    Units20().Check2_Click(true);
    EXPECT_EQ(Units20().Einstellung, settings);
    EXPECT_EQ(scans, 0);
    Units20().F20_Undo_Click();
    EXPECT_EQ(scans, 0);
    EXPECT_EQ(world.Disk.Files, before);
    EXPECT_EQ(Units20().OpenColumn, 0);
    EXPECT_THAT(menus, IsEmpty());
    EXPECT_EQ(UnitRow(1), "Tastatur|01.60.00.05|1|7");
    EXPECT_FALSE(Units20().Command2.Enabled());
    EXPECT_EQ(ended, 0);
    Units20().Command1_Click();
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(Units20().Fenster.Visible());
    Units20().Suche_Endet("over");
    EXPECT_FALSE(Units20().F20Prg01.Visible());
    EXPECT_EQ(Units20().F20Prg01.Value(), 0);
    EXPECT_EQ(Units20().Suchstand.Text() + Units20().Hinweis.Text(), "over");
    Units20().F20_Keypad_Click();
    EXPECT_EQ(scans, 1);
    Units20().Command1_Click();
    EXPECT_FALSE(Units20().Fenster.Visible());
}

} // namespace
} // namespace qvm::test
