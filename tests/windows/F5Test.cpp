// The user window: opening, its words, saving, leaving.

#include "F5Fixture.h"

namespace qvm::test {
namespace {

struct F5_Fenster : F5Fixture {
    int returned = 0;
    Listener back;

    void Open() {
        F5Fixture::Open();
        back = programm->kern.Windows.BackToMain.Listen([this] { ++returned; });
    }
    void Change() {
        Window().Aendern(Word::StepEdit, [this] { Cells().SetText(2, 4, "654321"); });
    }
};

TEST_F(F5_Fenster, loads_users_groups_and_locks_into_a_grid_of_252_rows_and_210_columns) {
    files.Lock(1, "Tor", SerialS);
    files.Group(3, "Putzdienst", "", "PB_3");
    files.User(1, {.Name = "Anna",
                   .Code = "123456",
                   .Group = "PB_3",
                   .Right = "ADMI",
                   .Label = "Auto",
                   .KeyId = "1 : 2 : 3 : 4",
                   .KeyData = "5 : 6",
                   .FingerFlag = "FS",
                   .FingerId = "PR77",
                   .Marks = {{1, 'X'}}});
    files.User(250, {.Name = "Zoe", .Group = "PB_2008TimB"});
    Open();
    EXPECT_EQ(Cells().Rows(), 252);
    EXPECT_EQ(Cells().Columns(), 210);
    EXPECT_EQ(Row(2, 0, 8), "1|Anna|Putzdienst|ADMI|123456|Auto|1 : 2 : 3 : 4||X");
    EXPECT_EQ(Row(2, 208, 209), "5 : 6|PR77");
    EXPECT_EQ(Cells().At(2, 7).Picture, FingerPicture::Premium);
    EXPECT_EQ(Cells().At(2, 8), (Cell{.Text = "X", .ForeColor = 0x00C000, .FontSize = 16}));
    EXPECT_EQ(Row(251, 0, 3), "250|Zoe|Timer-B|1");
    EXPECT_EQ(Text(0, 8), "T\no\nr");
    EXPECT_EQ(Cells().At(0, 8).ForeColor, 0xC00000U);
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Cells().Row, 2);
    EXPECT_EQ(Cells().Column, 1);
}

TEST_F(F5_Fenster, heads_its_columns_from_the_catalogue_and_the_locks_by_number) {
    Open();
    EXPECT_EQ(Row(1, 0, 9), "L37|L54|L39|L40|L41|L42|L43|FS|1|2");
    EXPECT_EQ(Row(1, 206, 209), "199|200||");
    EXPECT_EQ(Row(251, 0, 0), "250");
    EXPECT_EQ(Window().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(Window().Label1.Text(), "L105");
}

TEST_F(F5_Fenster, is_as_wide_and_high_as_its_columns_and_the_longest_lock_name_want) {
    files.Lock(3, "Hauptgebaeude 3", SerialS); // 15 characters
    Open();
    EXPECT_EQ(Window().Kopfhoehe(), 3000);
    int twips = 0;
    for (int column = 0; column < 210; ++column) {
        twips += F5::Breite(column);
    }
    EXPECT_EQ(twips, 450 + 2000 + 1600 + 800 + 1000 + 2000 + 1800 + 800 + 200 * 450);
    EXPECT_EQ(F5::Breite(208) + F5::Breite(209), 0);
    EXPECT_EQ(F5::Breite(-1), 0);
}

TEST_F(F5_Fenster, takes_the_words_of_its_menus_from_the_catalogue_and_its_own_list) {
    Open();
    struct F5& window = Window();
    EXPECT_EQ(window.F5_Extras.Text() + window.F5_Markierung.Text() + window.F5_M5ON.Text() + window.F5_M5_OFF.Text() +
                  window.F5_Sort.Text() + window.F5_Search.Text(),
              "L128L129L130L131L126L107");
    EXPECT_EQ(window.F5_Loeschen.Text(), "L127");
    EXPECT_EQ(window.key_anlernen.Text() + window.Key_loeschen.Text() + window.key_ausschneiden.Text() +
                  window.key_einfuegen.Text() + window.key_suchen.Text() + window.key_synchron.Text(),
              "L45L46L47L48L142L143");
    EXPECT_EQ(window.FS_loeschen.Text(), u8"Finger löschen"_w);
    EXPECT_EQ(window.F5_Undo.Text(), u8"Rückgängig"_w);
    programm->kern.Config.Sprache = "English";
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(window.FS_loeschen.Text(), "Delete finger");
    EXPECT_EQ(window.F5_Undo.Text(), "Undo");
}

TEST_F(F5_Fenster, keeps_the_words_of_its_design_without_a_language_file) {
    world.Disk.Files.erase("/q/QVM_Deutsch.DAT");
    Open();
    EXPECT_EQ(Window().key_einfuegen.Text(), u8"Einfügen"_w);
    EXPECT_EQ(Window().Label1.Text(), "Benutzerverwaltung");
}

TEST_F(F5_Fenster, counts_users_free_rows_and_the_marks_of_the_current_user_and_lock) {
    files.Lock(1, "Tor Nord", SerialS);
    files.Lock(2, "Lager", SerialS);
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}, {2, 'X'}}});
    files.User(2, {.Name = "Bert", .FingerFlag = "FS", .FingerId = "7", .Marks = {{1, 'F'}}});
    Open();
    EXPECT_EQ(Window().Benutzerzahl.Text(), "Benutzer: 2, freie Zeilen: 248");
    EXPECT_EQ(Window().Benutzermarken.Text(), u8"Schlösser von Anna: 2"_w);
    EXPECT_EQ(Window().Schlossmarken.Text(), "");
    Window().Auswahl.Go(3, 8);
    EXPECT_EQ(Window().Benutzermarken.Text(), u8"Schlösser von Bert: 1"_w);
    EXPECT_EQ(Window().Schlossmarken.Text(), "Benutzer von Tor Nord: 2");
    Window().Auswahl.Go(4, 10);
    EXPECT_EQ(Window().Benutzermarken.Text() + Window().Schlossmarken.Text(), "");
    Window().Auswahl.Go(2, 9);
    Window().Aendern(Word::StepEdit, [this] { Cells().SetText(4, 1, "Cora"); });
    EXPECT_EQ(Window().Benutzerzahl.Text(), "Benutzer: 3, freie Zeilen: 247");
}

TEST_F(F5_Fenster, says_in_the_tip_of_a_mark_who_and_which_lock) {
    files.Lock(1, "Tor 1 Nord", SerialS);
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
    files.User(2, {.Name = "Bert", .FingerFlag = "FS", .FingerId = "7", .Marks = {{1, 'F'}}});
    files.User(3, {.Name = "Cora"});
    Open();
    EXPECT_EQ(Window().Tip(2, 8), "Anna, Tor 1 Nord: Zugang");
    EXPECT_EQ(Window().Tip(3, 8), "Bert, Tor 1 Nord: Zugang mit Fingerprint");
    EXPECT_EQ(Window().Tip(4, 8), "Cora, Tor 1 Nord: kein Zugang");
    EXPECT_EQ(Window().Tip(5, 8) + Window().Tip(2, 9) + Window().Tip(2, 4) + Window().Tip(1, 8), "");
    EXPECT_EQ(Window().Tip(-1, 8) + Window().Tip(2, 300), "");
}

TEST_F(F5_Fenster, says_in_words_what_a_picture_or_a_colour_means) {
    files.User(1, {.Name = "Anna", .KeyId = "1 : 2 : 3 : 4"});
    files.User(2, {.Name = "Bert", .KeyId = "5 : 6 : 7 : 8", .FingerFlag = "FS", .FingerId = "7"});
    files.User(3, {.Name = "Cora", .FingerFlag = "FS", .FingerId = "PR7"});
    files.User(4, {.Name = "Dora", .FingerFlag = "NO", .FingerId = "7"});
    world.Disk.Files["/q/DAT/RFCHANDIF12.RFX"] = "1  2  5  0  1  1  5  5  0  0  1  2  5  0  1  ";
    Open();
    EXPECT_EQ(Window().Tip(2, 6), "Dieser E-Key ist noch auf einem anderen Funkkanal. Bitte synchronisieren Sie ihn.");
    EXPECT_EQ(Window().Tip(3, 6), "");
    EXPECT_EQ(Window().Tip(4, 6), ""); // red, but there is no key
    EXPECT_EQ(Window().Tip(2, 7), "kein Fingerprint");
    EXPECT_EQ(Window().Tip(3, 7), "Fingerprint vorhanden");
    EXPECT_EQ(Window().Tip(4, 7), "Premium-Fingerprint vorhanden");
    EXPECT_EQ(Window().Tip(5, 7), "Fingerprint vorhanden, nicht in Gebrauch");
    EXPECT_EQ(Window().Tip(6, 7), "");
}

TEST_F(F5_Fenster, opens_again_without_what_was_typed_and_thrown_away) {
    files.User(1, {.Name = "Anna"});
    Open();
    Window().Aendern(Word::StepEdit, [this] { Cells().SetText(200, 1, "Zoe"); });
    Window().MenuRow = 9;
    Window().FsRow = 9;
    Expect(60, Answer::No);
    Back();
    Window().F5_FormLaden();
    EXPECT_EQ(Text(200, 1), "");
    EXPECT_EQ(Text(2, 1), "Anna");
    EXPECT_EQ(Window().MenuRow, 0);
    EXPECT_EQ(Window().FsRow, 255);
    EXPECT_EQ(Window().Verlauf.NextUndo(), nullptr);
}

TEST_F(F5_Fenster, a_missing_user_file_leaves_it_empty_and_the_first_save_makes_250_records) {
    Open();
    EXPECT_EQ(Row(2, 1, 8), "|||||||");
    Press("Speichern");
    EXPECT_EQ(world.Disk.Files[Users].size(), 250U * 419U);
}

TEST_F(F5_Fenster, speichern_writes_the_file_and_there_is_nothing_left_to_save) {
    files.User(1, {.Name = "Anna"});
    Open();
    Change();
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    Press("Speichern");
    EXPECT_EQ(world.Disk.Files[Users].substr(35, 10), "654321    ");
    EXPECT_FALSE(Window().Tabelle.UserDirty);
    EXPECT_TRUE(Window().Fenster.Visible);
    Back(); // asks nothing
    EXPECT_EQ(returned, 1);
}

TEST_F(F5_Fenster, zurueck_without_a_change_asks_nothing) {
    Open();
    Back();
    EXPECT_FALSE(Window().Fenster.Visible);
    EXPECT_EQ(returned, 1);
    EXPECT_FALSE(world.Disk.Files.contains(Users));
}

TEST_F(F5_Fenster, zurueck_behind_a_change_asks_and_yes_saves) {
    files.User(1, {.Name = "Anna"});
    Open();
    Change();
    Expect(60, Answer::Yes);
    Back();
    EXPECT_EQ(world.Shown.back().Title, "L105");
    EXPECT_EQ(world.Shown.back().Choice, Buttons::YesNo);
    EXPECT_EQ(world.Disk.Files[Users].substr(35, 10), "654321    ");
    EXPECT_EQ(returned, 1);
}

TEST_F(F5_Fenster, zurueck_with_no_leaves_the_file_as_it_was) {
    files.User(1, {.Name = "Anna"});
    const std::string before = world.Disk.Files[Users];
    Open();
    Change();
    Expect(60, Answer::No);
    Back();
    EXPECT_EQ(world.Disk.Files[Users], before);
    EXPECT_EQ(returned, 1);
}

TEST_F(F5_Fenster, a_question_closed_without_an_answer_goes_back_to_the_window) {
    Open();
    Change();
    Expect(60, Answer::Cancel);
    Back();
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Text(2, 4), "654321");
    EXPECT_EQ(returned, 0);
}

TEST_F(F5_Fenster, zurueck_with_a_gap_in_the_table_loses_nothing) {
    Open();
    Window().Aendern(Word::StepEdit, [this] { Cells().SetText(4, 1, "Cora"); });
    Expect(60, Answer::Yes);
    world.Answers.push_back({.Text = "L163\nL141\n [L54 - L162 2]"});
    Back();
    EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Text(4, 1), "Cora");
    EXPECT_EQ(returned, 0);
    EXPECT_FALSE(world.Disk.Files.contains(Users));
}

TEST_F(F5_Fenster, each_file_operation_of_a_save_that_fails_is_told_and_leaves_the_old_file) {
    files.User(1, {.Name = "Anna"});
    Open();
    const std::string before = world.Disk.Files[Users];
    for (const bool rest : {false, true}) {
        for (int n = 1; n <= 2; ++n) {
            Window().Aendern(Word::StepEdit, [&] { Cells().SetText(2, 4, rest ? "111111" : "222222"); });
            Break(n, rest);
            world.Answers.push_back({.Text = Wort(programm->kern, Word::UsersNotSaved)});
            Press("Speichern");
            EXPECT_EQ(world.Disk.Files[Users], before) << n;
            EXPECT_TRUE(Window().Tabelle.UserDirty) << n;
        }
    }
    world.Disk.FailAt = 0;
    world.Disk.FailFromThere = false;
    const int operations = world.Disk.Operations;
    Press("Speichern");
    EXPECT_EQ(world.Disk.Operations - operations, 2); // the loop above has broken each
    EXPECT_EQ(world.Disk.Files[Users].substr(35, 6), "111111");
}

TEST_F(F5_Fenster, names_each_file_that_cannot_be_read_and_does_not_save_such_a_table) {
    Start();
    const std::array<std::string, 4> names{"TIMGRP33T7.PBG", "C64UX12H3D.EBW", "BX10X52WUJ9.UBW", "RFCHANDIF12.RFX"};
    files.User(1, {.Name = "Anna"});
    const std::string before = world.Disk.Files[Users];
    for (std::size_t n = 0; n < names.size(); ++n) {
        Break(static_cast<int>(n) + 1, false);
        world.Answers.push_back({.Text = "*"});
        Window().F5_FormLaden();
        world.Disk.FailAt = 0;
        EXPECT_NE(world.Shown.back().Text.find(names[n]), std::string::npos) << names[n];
        EXPECT_EQ(Window().Tabelle.LoadFailed, n < 3) << names[n]; // the channels stand in a file of their own
        if (n < 3) {
            world.Answers.push_back({.Text = Wort(programm->kern, Word::UsersIncomplete)});
            Press("Speichern");
        }
        EXPECT_EQ(world.Disk.Files[Users], before);
    }
    Window().F5_FormLaden();
    EXPECT_FALSE(Window().Tabelle.LoadFailed);
}

TEST_F(F5_Fenster, takes_a_change_back_and_does_it_again) {
    files.User(1, {.Name = "Anna"});
    Open();
    Change();
    EXPECT_EQ(Window().F5_Undo.Text(), u8"Rückgängig: Eingabe"_w);
    EXPECT_FALSE(Window().F5_Redo.Enabled());
    Press("Speichern");
    Window().F5_Undo_Click();
    EXPECT_EQ(Text(2, 4), "123456");
    EXPECT_EQ(Cells().Row, 2);
    EXPECT_EQ(Cells().Column, 4);
    EXPECT_EQ(Window().Hinweis.Text(), u8"Rückgängig gemacht: Eingabe."_w);
    EXPECT_FALSE(Window().F5_Undo.Enabled());
    EXPECT_TRUE(Window().Tabelle.UserDirty); // what was undone differs from the file
    Window().F5_Redo_Click();
    EXPECT_EQ(Text(2, 4), "654321");
    EXPECT_EQ(Window().Hinweis.Text(), "Wiederholt: Eingabe.");
    EXPECT_TRUE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Fenster, an_undo_says_what_is_on_the_disk_already) {
    Open();
    Window().Aendern(Word::StepLearn, [this] {
        Cells().SetText(2, 208, "5 : 6");
        Window().Verlauf.Keep(Word::ChannelStays);
    });
    Window().F5_Undo_Click();
    EXPECT_EQ(Window().Hinweis.Text(),
              u8"Rückgängig gemacht: Anlernen. Der gespeicherte Funkkanal des E-Keys bleibt."_w);
    EXPECT_EQ(Cells().Column, 6); // the key's column, as that of its data is hidden
}

TEST_F(F5_Fenster, an_undo_leaves_the_colour_of_a_key_to_its_channel_on_the_disk) {
    files.User(1, {.Name = "Anna", .KeyId = "1 : 2 : 3 : 4"});
    world.Disk.Files["/q/DAT/RFCHANDIF12.RFX"] = "1  2  5  0  1  ";
    Open();
    EXPECT_EQ(Cells().At(2, 6).ForeColor, 0x0000FFU);
    Window().Aendern(Word::StepLearn, [this] {
        Cells().Set(2, 6, {.Text = "9 : 9 : 9 : 9", .ForeColor = Black});
        world.Disk.Files["/q/DAT/RFCHANDIF12.RFX"] = "1  5  5  0  0  ";
    });
    Window().F5_Undo_Click();
    EXPECT_EQ(Text(2, 6), "1 : 2 : 3 : 4");
    EXPECT_EQ(Cells().At(2, 6).ForeColor, Black);
}

TEST_F(F5_Fenster, stands_over_the_main_window_which_waits_and_looks_for_its_adapter_again_afterwards) {
    Start();
    struct F2& main = programm->Main->F2;
    programm->kern.Windows.Open["F5"] = [this] { Window().F5_FormLaden(); };
    main.F2_Laden();
    main.Verbunden = 1;
    main.Label1.ForeColor = Lampe::Gruen;
    main.Toolbar1_ButtonClick("x1504");
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_TRUE(main.Fenster.Visible);
    EXPECT_FALSE(main.Fenster.Enabled);
    EXPECT_FALSE(main.Timer2.Running());
    Back();
    EXPECT_TRUE(main.Fenster.Enabled);
    EXPECT_TRUE(main.Timer2.Running());
}

TEST_F(F5_Fenster, does_nothing_while_it_waits_for_a_device) {
    Open();
    Change();
    Window().Fenster.Enabled = false;
    Back();
    Press("Speichern");
    Window().F5_Undo_Click();
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_EQ(Text(2, 4), "654321");
    EXPECT_FALSE(world.Disk.Files.contains(Users));
}

} // namespace
} // namespace qvm::test
