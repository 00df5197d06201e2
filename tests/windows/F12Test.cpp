// The lock window: open, save, leave, undo, words.

#include "F12Fixture.h"

namespace qvm::test {
namespace {

struct F12_Fenster : F12Fixture {
    int returned = 0;
    Listener back;

    void SetUp() override {
        files.Lock(1, "Tor", SerialS);
        files.Lock(2, "Lager", "00.0B.10.02", "X   X");
        Start();
        back = programm->kern.Windows.BackToMain.Listen([this] { ++returned; });
    }
    void Change() { EnterName(1, "Tor Nord"); }
};

TEST_F(F12_Fenster, without_any_file_shows_free_rows_with_switches_on_priority_3_and_no_emi) {
    world.Disk.Files.erase(Locks);
    Open();
    for (const int row : {1, 100, 200}) {
        EXPECT_EQ(Row(row, 1, 2) + Row(row, 13, 18), "||||||") << row;
        EXPECT_EQ(Switches(row), (std::array{9, 9, 9, 9, 9})) << row;
        EXPECT_EQ(Text(row, 9), "3") << row;
        EXPECT_EQ(Picture(row, 10), 11) << row;
        EXPECT_EQ(Text(row, 11), " - ") << row;
    }
    EXPECT_EQ(Window().Schlosszahl.Text(), u8"Schlösser: 0, freie Zeilen: 200"_w);
}

TEST_F(F12_Fenster, shows_what_the_files_hold) {
    Open();
    EXPECT_EQ(Row(2, 0, 2), "2|Lager|00.0B.10.02");
    EXPECT_EQ(Switches(2), (std::array{9, 10, 10, 10, 9}));
    EXPECT_EQ(Window().Schlosszahl.Text(), u8"Schlösser: 2, freie Zeilen: 198"_w);
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Fenster, a_first_save_makes_six_files_of_200_records) {
    Open();
    Press("Speichern");
    EXPECT_EQ(File(Locks).size(), 200U * 45U);
    EXPECT_EQ(File(Priorities).size(), 200U * 12U);
    EXPECT_EQ(File(Emi).size(), 200U);
    EXPECT_EQ(File(Bindings).size(), 200U * 55U);
    EXPECT_EQ(File(LockAdapters).size(), 200U * 48U);
    EXPECT_EQ(File(Doors).size(), 200U * 30U);
    EXPECT_FALSE(world.Disk.Files.contains(Units));
}

TEST_F(F12_Fenster, zurueck_without_a_change_asks_nothing) {
    Open();
    Back();
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_EQ(returned, 1);
    EXPECT_FALSE(world.Disk.Files.contains(Priorities));
}

TEST_F(F12_Fenster, zurueck_behind_a_change_asks_and_yes_saves) {
    Open();
    Change();
    Expect(60, Answer::Yes);
    Back();
    EXPECT_EQ(world.Shown.back().Title, "L89");
    EXPECT_EQ(world.Shown.back().Choice, Buttons::YesNo);
    EXPECT_EQ(File(Locks).substr(0, 8), "Tor Nord");
    EXPECT_EQ(returned, 1);
}

TEST_F(F12_Fenster, zurueck_with_no_leaves_the_files_as_they_were) {
    const std::string before = File(Locks);
    Open();
    Change();
    Expect(60, Answer::No);
    Back();
    EXPECT_EQ(File(Locks), before);
    EXPECT_EQ(returned, 1);
    Open();
    EXPECT_EQ(Text(1, 1), "Tor");
    EXPECT_FALSE(Window().F12_Undo.Enabled());
}

TEST_F(F12_Fenster, a_question_closed_without_an_answer_goes_back_to_the_window) {
    Open();
    Change();
    Expect(60, Answer::Cancel);
    Back();
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_TRUE(Window().Tabelle.LockDirty);
    EXPECT_EQ(returned, 0);
}

TEST_F(F12_Fenster, does_nothing_while_another_window_stands_over_it) {
    Open();
    Change();
    Window().Fenster.Enabled = false;
    Back();
    Press("Speichern");
    Window().F12_Undo_Click();
    Key('x');
    Hit(1, 4);
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_EQ(Text(1, 1), "Tor Nord");
    EXPECT_EQ(Picture(1, 4), 9);
    EXPECT_FALSE(Window().Text1.Visible());
    EXPECT_FALSE(world.Disk.Files.contains(Priorities));
}

TEST_F(F12_Fenster, stands_in_place_of_the_main_window_which_looks_for_its_adapter_again_afterwards) {
    struct F2& main = programm->Main->F2;
    programm->kern.Windows.Open["F12"] = [this] { Window().F12_FormLaden(); };
    main.F2_Laden();
    main.Verbunden = 1;
    main.Label1.ForeColor = Lampe::Gruen;
    main.Toolbar1_ButtonClick("lock4");
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_FALSE(main.Fenster.Visible);
    EXPECT_FALSE(main.Timer2.Running());
    Back();
    EXPECT_TRUE(main.Fenster.Visible);
    EXPECT_TRUE(main.Timer2.Running());
    main.Timer2.Stop();
}

TEST_F(F12_Fenster, names_each_file_that_cannot_be_read_and_saves_such_a_table_only_where_nothing_is_lost) {
    struct Source {
        const char* File;
        bool Blocks; ///< a save would lose something
    };
    // In the order in which they are read.
    constexpr std::array<Source, 10> sources{{{"T4OFFSETGST.FST", true},
                                              {"TIMGRP44T8_S.SBS", true},
                                              {"SBSCLKZU.SB1", true},
                                              {"CPRT88X3FDA.PRT", true},
                                              {"LSOEMIPART.LMT", true},
                                              {"C64UX12H3D.EBW", true},
                                              {"T6WRSSISN.TSD", false},
                                              {"COMSETUPADAPTER.ADP", false},
                                              {"LOCKCLASSCOMX.CMB", true},
                                              {"DOOR1MODEDT.DTA", true}}};
    const std::string before = File(Locks);
    for (std::size_t n = 0; n < sources.size(); ++n) {
        Break(static_cast<int>(n) + 1, false);
        world.Answers.push_back({.Text = "*"});
        Open();
        Mend();
        EXPECT_NE(world.Shown.back().Text.find(sources[n].File), std::string::npos) << sources[n].File;
        EXPECT_EQ(Window().Tabelle.LoadFailed, sources[n].Blocks) << sources[n].File;
        if (sources[n].Blocks) {
            ExpectWord(Word::LocksIncomplete);
            Press("Speichern");
        }
        EXPECT_EQ(File(Locks), before);
    }
    Open();
    EXPECT_FALSE(Window().Tabelle.LoadFailed);
}

TEST_F(F12_Fenster, each_file_operation_of_a_save_that_fails_is_told_and_leaves_all_six_files_old) {
    Open();
    Press("Speichern");
    const auto before = world.Disk.Files;
    for (int n = 1; n <= 12; ++n) {
        EnterName(1, n % 2 == 0 ? "Even" : "Odd");
        Break(n, false);
        ExpectWord(Word::LocksNotSaved);
        Press("Speichern");
        Mend();
        EXPECT_EQ(world.Disk.Files, before) << n;
        EXPECT_TRUE(Window().Tabelle.LockDirty) << n;
    }
    const int operations = world.Disk.Operations;
    Press("Speichern");
    EXPECT_EQ(world.Disk.Operations - operations, 12); // the loop above has broken each
    EXPECT_EQ(File(Locks).substr(0, 4), "Even");
}

TEST_F(F12_Fenster, a_disk_that_is_gone_in_the_middle_of_a_save_leaves_each_file_old_or_new) {
    constexpr std::array names{Locks, Priorities, Emi, Bindings, LockAdapters, Doors};
    Open();
    Press("Speichern");
    const auto before = world.Disk.Files;
    EnterName(1, "Neu");
    EnterSerial(1, "00AA0001");
    Choose(1, 17, 1);
    Press("Speichern");
    const auto after = world.Disk.Files;
    for (int n = 1; n <= 12; ++n) {
        for (const char* name : names) {
            File(name) = before.at(name);
        }
        Window().Tabelle.LockDirty = true;
        Break(n, true);
        ExpectWord(Word::LocksNotSaved);
        Press("Speichern");
        Mend();
        for (const char* name : names) {
            EXPECT_TRUE(File(name) == before.at(name) || File(name) == after.at(name)) << name << n;
        }
        EXPECT_TRUE(Window().Tabelle.LockDirty) << n;
    }
}

TEST_F(F12_Fenster, takes_a_change_back_and_does_it_again) {
    Open();
    Change();
    EXPECT_EQ(Window().F12_Undo.Text(), u8"Rückgängig: Eingabe"_w);
    EXPECT_FALSE(Window().F12_Redo.Enabled());
    Press("Speichern");
    Go(5, 5);
    Window().F12_Undo_Click();
    EXPECT_EQ(Text(1, 1), "Tor");
    EXPECT_EQ(Cells().Row, 1);
    EXPECT_EQ(Cells().Column, 1);
    EXPECT_EQ(Window().Hinweis.Text(), u8"Rückgängig gemacht: Eingabe."_w);
    EXPECT_TRUE(Window().Tabelle.LockDirty); // what was undone differs from the file
    Window().F12_Redo_Click();
    EXPECT_EQ(Text(1, 1), "Tor Nord");
    EXPECT_EQ(Window().Hinweis.Text(), "Wiederholt: Eingabe.");
}

TEST_F(F12_Fenster, an_undo_of_a_serial_number_says_that_the_channel_change_stays) {
    Open();
    EnterSerial(1, "00AA0001");
    Window().F12_Undo_Click();
    EXPECT_EQ(Text(1, 2), SerialS);
    EXPECT_EQ(Window().Hinweis.Text(), u8"Rückgängig gemacht: Eingabe. Der vorgemerkte Kanalwechsel bleibt."_w);
    EXPECT_EQ(File(Channels).substr(9, 3), "1  ");
}

TEST_F(F12_Fenster, an_undo_of_a_hidden_cell_leads_to_the_one_beside_it) {
    Open();
    Choose(1, 17, 1);
    Window().Aendern(Word::StepEdit, [this] { Cells().SetText(1, 18, "1"); });
    Window().F12_Undo_Click();
    EXPECT_EQ(Cells().Column, 17);
}

TEST_F(F12_Fenster, marks_locks_with_one_serial_number_and_names_the_others) {
    files.Lock(7, "Keller", "00.0b.10.2");
    Open();
    EXPECT_EQ(Picture(2, 0), 12);
    EXPECT_EQ(Picture(7, 0), 12);
    EXPECT_EQ(Picture(1, 0), 0);
    EXPECT_NE(Cells().At(2, 2).BackColor, White);
    EXPECT_EQ(Window().Tip(2, 2), u8"Diese Seriennummer hat auch: Schloss 7: Keller"_w);
    EXPECT_EQ(Window().Tip(2, 0), Window().Tip(2, 2));
    EXPECT_EQ(Window().Tip(1, 2) + Window().Tip(2, 3) + Window().Tip(-1, 2) + Window().Tip(300, 2), "");
    Go(7, 1);
    EXPECT_EQ(Window().Doppelt.Text(), u8"Diese Seriennummer hat auch: Schloss 2: Lager"_w);
    Go(1, 1);
    EXPECT_EQ(Window().Doppelt.Text(), "");
}

TEST_F(F12_Fenster, a_serial_number_that_another_lock_has_is_not_refused) {
    Open();
    EnterSerial(3, "000B1002");
    EXPECT_EQ(Text(3, 2), "00.0B.10.02");
    EXPECT_EQ(Window().Doppelt.Text(), u8"Diese Seriennummer hat auch: Schloss 2: Lager"_w);
    EXPECT_EQ(Picture(2, 0), 12);
    Press("Speichern");
    EXPECT_EQ(File(Locks).substr(2 * 45 + 28, 12), "00 0B 10 02 ");
    Window().F12_Undo_Click();
    EXPECT_EQ(Picture(2, 0), 0);
    EXPECT_EQ(Cells().At(2, 2).BackColor, White);
}

TEST_F(F12_Fenster, shows_the_adapters_only_when_two_were_found) {
    Open();
    EXPECT_EQ(Window().Breite(13), 0);
    AddAdapter("/1/2/3/4", "PROGSTATION-1", "1");
    AddAdapter("/1/2/3/5", "PROGSTATION-2", "2");
    Open();
    EXPECT_EQ(Window().Breite(13), 3400);
    int twips = 0;
    for (int column = -1; column < 20; ++column) {
        twips += Window().Breite(column);
    }
    EXPECT_EQ(twips, 600 + 3100 + 2400 + 8 * 650 + 4 * 3400);
}

TEST_F(F12_Fenster, names_its_headings_without_a_text_and_its_pictures) {
    Open();
    EXPECT_EQ(Row(0, 0, 2) + Row(0, 12, 17), "L37|L50|L51L176|L199||L212||L217");
    EXPECT_EQ(Window().Tip(0, 4) + Window().Tip(0, 5) + Window().Tip(0, 6) + Window().Tip(0, 7) + Window().Tip(0, 8) +
                  Window().Tip(0, 9) + Window().Tip(0, 10) + Window().Tip(0, 11),
              "L234L235L236L237L238L239EMIL165");
    EXPECT_EQ(Window().Tip(0, 1) + Window().Tip(0, 12), "");
    for (int column = 4; column <= 11; ++column) {
        EXPECT_EQ(Picture(0, column), 16 + column);
    }
    EXPECT_EQ(Window().Bildtext(9) + Window().Bildtext(10) + Window().Bildtext(11) + Window().Bildtext(0),
              "einausnicht einstellbar");
}

TEST_F(F12_Fenster, takes_the_words_of_its_menus_from_the_catalogue) {
    Open();
    struct F12& window = Window();
    EXPECT_EQ(window.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L89");
    EXPECT_EQ(window.F12_delete.Text() + window.SNA_save.Text() + window.SNA_Input.Text() + window.SNA_Function.Text() +
                  window.F12_Extras.Text(),
              "L127L149L150L161L128");
    EXPECT_EQ(window.F12_COURon.Text() + window.F12_COURoff.Text(), "Courser ONCourser OFF");
    EXPECT_FALSE(window.SNA_save.Enabled()); // nobody scans
    EXPECT_TRUE(window.SNA_Function.Enabled());
}

TEST_F(F12_Fenster, another_language_changes_the_words_in_its_cells_and_loses_no_door_mode) {
    files.Put("DOOR1MODEDT.DTA", 30, 1, 0, 30, "AA00 0A 10 01 9560            ");
    files.Put("T6WRSSISN.TSD", 241, 1, 0, 1, "3");
    Open();
    EXPECT_EQ(Text(1, 17), "L218");
    EXPECT_EQ(Text(1, 11), "L15");
    auto& lines = programm->kern.Sprache.LanguageText;
    lines[218] = "Room";
    lines[159] = "STE - Window";
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(Text(1, 17), "Room");
    Press("Speichern");
    EXPECT_EQ(File(Doors).substr(0, 30), "AA00 0A 10 01 9560            ");
}

} // namespace
} // namespace qvm::test
