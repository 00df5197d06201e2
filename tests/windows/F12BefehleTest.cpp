// Commands of the lock window: delete, new, dates, export.

#include "F12Fixture.h"

namespace qvm::test {
namespace {

struct F12_Befehle : F12Fixture {
    const std::string blankUnits = " 99" + std::string(238, ' ');

    void SetUp() override {
        for (int lock = 1; lock <= 3; ++lock) {
            files.Lock(lock, "Tor " + std::to_string(lock), "00.0A.10.0" + std::to_string(lock), "X X X");
            files.Priority(lock, "5");
            files.Emi(lock, 'X');
            files.Put("T6WRSSISN.TSD", 241, lock, 0, 241, "3" + std::string(240, 'u'));
        }
        AddOffset(1, "Abends");
        files.LockGroup(1, "Nachts", "XX---", "SBS_1");
        Open();
        Choose(2, 12, 1);
        Choose(2, 15, 1);
        Choose(2, 17, 1);
        Press("Speichern");
    }
    std::string UnitsOf(int lock) { return File(Units).substr(static_cast<std::size_t>(lock - 1) * 241, 241); }
    void ExpectFree(int row, std::string_view group) {
        EXPECT_EQ(Row(row, 1, 3), "||") << row;
        EXPECT_EQ(Switches(row), (std::array{9, 9, 9, 9, 9})) << row;
        EXPECT_EQ(Text(row, 9), "3") << row;
        EXPECT_EQ(Picture(row, 10), 11) << row;
        EXPECT_EQ(Text(row, 11), " - ") << row;
        EXPECT_EQ(Text(row, 12), group) << row;
        EXPECT_EQ(Row(row, 13, 18), "|||||") << row;
    }
};

TEST_F(F12_Befehle, delete_clears_the_selected_rows_and_leaves_priority_3) {
    Select(1, 1, 2, 1);
    Window().F12_delete_Click();
    ExpectFree(1, "");
    ExpectFree(2, "");
    EXPECT_EQ(Row(3, 1, 2), "Tor 3|00.0A.10.03");
    EXPECT_EQ(Text(3, 9), "5");
    EXPECT_TRUE(Window().Tabelle.LockDirty);
    EXPECT_EQ(Window().Hinweis.Text(), Wort(programm->kern, Word::LockDataGone));
}

TEST_F(F12_Befehle, delete_takes_emi_and_units_from_the_disk_at_once_and_nothing_else) {
    auto expected = world.Disk.Files;
    expected[Emi].replace(1, 1, " ");
    expected[Units].replace(241, 241, blankUnits);
    Go(2, 1);
    Window().F12_delete_Click();
    EXPECT_EQ(world.Disk.Files, expected);
    Press("Speichern");
    EXPECT_EQ(File(Priorities).substr(12, 3), "3  ");
    EXPECT_EQ(File(Bindings).substr(55, 15), "-              ");
}

TEST_F(F12_Befehle, an_undo_of_a_deletion_brings_the_row_back_but_not_its_units) {
    const std::string before = Row(2, 1, 10) + Row(2, 12, 18);
    EXPECT_EQ(Text(2, 11), "L15");
    Go(2, 1);
    Window().F12_delete_Click();
    Window().F12_Undo_Click();
    EXPECT_EQ(Row(2, 1, 10) + Row(2, 12, 18), before);
    EXPECT_EQ(Switches(2), (std::array{9, 10, 9, 10, 9}));
    EXPECT_EQ(Picture(2, 10), 9);
    EXPECT_EQ(Text(2, 11), " - ");
    EXPECT_EQ(UnitsOf(2), blankUnits);
    EXPECT_EQ(Window().Hinweis.Text(),
              u8"Rückgängig gemacht: Schlösser löschen. Die gelöschten Funkeinheiten kommen nicht zurück; "
              u8"EMI-Einstellungen erst beim Speichern."_w);
    Press("Speichern");
    EXPECT_EQ(File(Emi).substr(0, 3), "XXX");
}

TEST_F(F12_Befehle, a_deletion_whose_files_cannot_be_written_changes_nothing) {
    const auto before = world.Disk.Files;
    for (int n = 1; n <= 4; ++n) {
        Go(2, 1);
        Break(n, false);
        ExpectWord(Word::LockDataNotCleared);
        Window().F12_delete_Click();
        Mend();
        EXPECT_EQ(world.Disk.Files, before) << n;
        EXPECT_EQ(Text(2, 1), "Tor 2") << n;
        EXPECT_FALSE(Window().Tabelle.LockDirty) << n;
    }
    const int operations = world.Disk.Operations;
    Window().F12_delete_Click();
    EXPECT_EQ(world.Disk.Operations - operations, 4); // the loop above has broken each
}

TEST_F(F12_Befehle, a_disk_that_is_gone_in_the_middle_of_a_deletion_leaves_the_table) {
    const auto before = world.Disk.Files;
    for (int n = 1; n <= 4; ++n) {
        world.Disk.Files = before;
        Go(2, 1);
        Break(n, true);
        ExpectWord(Word::LockDataNotCleared);
        Window().F12_delete_Click();
        Mend();
        EXPECT_EQ(File(Units), before.at(Units)) << n;
        EXPECT_EQ(Text(2, 1), "Tor 2") << n;
    }
}

TEST_F(F12_Befehle, new_asks_and_clears_every_row_but_the_timer_groups) {
    Expect(232, Answer::Yes);
    Press("Neu");
    EXPECT_EQ(world.Shown.back().Title, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(world.Shown.back().DefaultButton, 2);
    ExpectFree(1, "-");
    ExpectFree(2, "Nachts");
    ExpectFree(200, "-");
    EXPECT_EQ(File(Emi), std::string(200, ' '));
    EXPECT_EQ(File(Units).size(), 200U * 241U);
    EXPECT_EQ(UnitsOf(1) + UnitsOf(200), blankUnits + blankUnits);
    EXPECT_TRUE(Window().Tabelle.LockDirty);
    EXPECT_EQ(Cells().Row, 1);
}

TEST_F(F12_Befehle, new_answered_with_no_changes_nothing) {
    const auto before = world.Disk.Files;
    Expect(232, Answer::No);
    Press("Neu");
    EXPECT_EQ(world.Disk.Files, before);
    EXPECT_EQ(Text(1, 1), "Tor 1");
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Befehle, new_whose_files_cannot_be_written_changes_nothing) {
    const auto before = world.Disk.Files;
    for (int n = 1; n <= 4; ++n) {
        Expect(232, Answer::Yes);
        ExpectWord(Word::LockDataNotCleared);
        Break(n, false);
        Press("Neu");
        Mend();
        EXPECT_EQ(world.Disk.Files, before) << n;
        EXPECT_EQ(Text(1, 1), "Tor 1") << n;
    }
}

TEST_F(F12_Befehle, initial_dates_only_the_rows_with_a_door_mode) {
    Choose(3, 17, 2);
    Cells().SetText(2, 18, "1");
    Expect(228, Answer::Yes);
    Expect(229);
    Press("Initial");
    EXPECT_EQ(world.Shown.back().Title, "L89");
    EXPECT_EQ(Text(1, 18), "");
    EXPECT_EQ(Text(2, 18), "9560");
    EXPECT_EQ(Text(3, 18), "9560");
    EXPECT_TRUE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Befehle, initial_answered_with_no_changes_nothing) {
    Cells().SetText(2, 18, "1");
    Expect(228, Answer::No);
    Press("Initial");
    EXPECT_EQ(Text(2, 18), "1");
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Befehle, the_export_has_13_headings_and_11_fields_and_ends_before_row_200) {
    EnterName(200, "Letzte");
    EnterName(199, "Vorletzte");
    world.DialogAnswers.push_back("/x.csv");
    world.Answers.push_back({.Text = "CSV Print OK!"});
    Press("CSV-Print");
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    EXPECT_EQ(world.Dialogs.back().Filter, "L167(*.CSV)|*.CSV|");
    const std::string csv = File("/x.csv");
    EXPECT_EQ(csv.substr(0, csv.find("\r\n") + 2), "L50;L51;-;L234;L235;L236;L237;L238;L239;EMI;QVM;L226;L227;\r\n");
    EXPECT_NE(csv.find("\r\nTor 2;00.0A.10.02;;X; ;X; ;X;5;X;L15;\r\n"), std::string::npos);
    EXPECT_TRUE(csv.ends_with("\r\nVorletzte;;;X;X;X;X;X;3; ; - ;\r\n"));
    EXPECT_EQ(csv.find("Letzte"), std::string::npos);
}

TEST_F(F12_Befehle, an_export_that_cannot_be_written_or_is_cancelled_is_told) {
    world.DialogAnswers.push_back("/x.csv");
    Break(1, false);
    world.Answers.push_back({.Text = "CSV Print ERROR!"});
    Press("CSV-Print");
    Mend();
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    world.DialogAnswers.push_back(std::nullopt);
    world.Answers.push_back({.Text = "CSV Print ERROR!"});
    Press("CSV-Print");
    EXPECT_FALSE(world.Disk.Files.contains("/x.csv"));
}

} // namespace
} // namespace qvm::test
