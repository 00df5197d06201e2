// A spreadsheet into the user window: shown, asked, one step, not saved; and the export taken back.

#include "F5Fixture.h"

namespace qvm::test {
namespace {

struct F5_Importieren : F5Fixture {
    static constexpr const char* Sheet = "/in/people.csv";

    void SetUp() override {
        files.Lock(1, "Tor 1", SerialS);
        files.User(1, {.Name = "Bert", .Code = "111111", .Marks = {{1, 'X'}}});
        files.User(2, {.Name = "Anna", .Code = "222222"});
        Open();
    }
    /// Answers the file dialog and the one message behind it.
    void Import(std::string_view text, std::string message, Answer answer) {
        world.Disk.Files[Sheet] = text;
        world.DialogAnswers.emplace_back(Sheet);
        world.Answers.push_back({.Text = std::move(message), .Reply = answer});
        Window().F5_Import_Click();
    }
    const std::string shown = "Neu: 1, ge\xE4ndert: 1, abgelehnt: 1, entfernt: 0\r\n"
                              "Nicht in der Datei, bleibt wie es ist: 1 (Anna)\r\n"
                              "Zeile 2, Bert: L40: 9: keiner der m\xF6glichen Werte\r\n"
                              "Zeile 2, Bert: 1: X > (leer)\r\n"
                              "Zeile 3, Cora: neu\r\n"
                              "Zeile 3, Cora: L54: (leer) > Cora\r\n"
                              "Zeile 3, Cora: 1: (leer) > X\r\n\r\n"
                              "Diese \xC4nderungen \xFC"
                              "bernehmen? Abgelehntes bleibt, wie es ist.";
    static constexpr std::string_view Wanted = "L54;L40;1\nBert;9;\nCora;1;X\n";
};

TEST_F(F5_Importieren, shows_all_of_it_and_takes_it_as_one_step_that_is_not_saved) {
    const std::string before = world.Disk.Files[Users];
    Import(Wanted, shown, Answer::Yes);
    EXPECT_EQ(world.Dialogs.back().Filter, "L105(*.CSV)|*.CSV|");
    EXPECT_EQ(world.Shown.back().DefaultButton, 2);
    EXPECT_EQ(Row(2, 1, 4), "Bert|-|1|111111");
    EXPECT_EQ(Text(2, 8), "");
    EXPECT_EQ(Row(4, 1, 4), "Cora|-|1|");
    EXPECT_EQ(Text(4, 8), "X");
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    EXPECT_EQ(world.Disk.Files[Users], before);
    EXPECT_EQ(Window().Verlauf.Steps(), 1U);
    Window().F5_Undo_Click();
    EXPECT_EQ(Text(2, 8), "X");
    EXPECT_EQ(Row(4, 1, 3), "|-|");
    Window().F5_Redo_Click();
    Press("Speichern");
    EXPECT_NE(world.Disk.Files[Users], before);
}

TEST_F(F5_Importieren, no_at_the_question_changes_nothing) {
    Import(Wanted, shown, Answer::No);
    EXPECT_EQ(Text(2, 8), "X");
    EXPECT_EQ(Text(4, 1), "");
    EXPECT_FALSE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Window().Verlauf.Steps(), 0U);
}

TEST_F(F5_Importieren, a_file_that_is_none_or_cannot_be_read_changes_nothing) {
    Import("Anna;1\n",
           "In der Datei fehlt die Zeile mit den \xDC"
           "berschriften des Exports.",
           Answer::Ok);
    world.DialogAnswers.emplace_back("/in/missing.csv");
    world.Answers.push_back({.Text = "Die Datei kann nicht gelesen werden."});
    Window().F5_Import_Click();
    world.DialogAnswers.emplace_back(std::nullopt);
    Window().F5_Import_Click();
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Importieren, the_own_export_changes_nothing) {
    world.DialogAnswers.emplace_back(Sheet);
    world.Answers.push_back({.Text = "CSV Print OK!"});
    Press("CSV-Print");
    Import(std::string(world.Disk.Files[Sheet]),
           "Neu: 0, ge\xE4ndert: 0, abgelehnt: 0, entfernt: 0\r\n"
           "Aus diesen Spalten wird nichts \xFC"
           "bernommen: L41, L43, FS\r\n\r\nDie Datei \xE4ndert nichts.",
           Answer::Ok);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Importieren, many_changes_are_counted_behind_the_first_twenty) {
    std::string sheet = "L54\n";
    for (int n = 1; n <= 30; ++n) {
        sheet += "Neu " + std::to_string(n) + "\n";
    }
    world.Disk.Files[Sheet] = sheet;
    world.DialogAnswers.emplace_back(Sheet);
    world.Answers.push_back({.Text = "*", .Reply = Answer::No});
    Window().F5_Import_Click();
    EXPECT_NE(world.Shown.back().Text.find("Zeile 11, Neu 10: L54: (leer) > Neu 10\r\nund 40 weitere\r\n"),
              std::string::npos);
}

TEST_F(F5_Importieren, an_incomplete_table_takes_nothing) {
    Window().Tabelle.LoadFailed = true;
    world.Answers.push_back({.Text = Wort(programm->kern, Word::UsersIncomplete)});
    Window().F5_Import_Click();
    EXPECT_TRUE(world.Dialogs.empty());
}

} // namespace
} // namespace qvm::test
