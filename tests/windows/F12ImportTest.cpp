// A spreadsheet into the lock window: shown, asked, one step, not saved but for the channel; and the export taken back.

#include "F12Fixture.h"

namespace qvm::test {
namespace {

struct F12_Importieren : F12Fixture {
    static constexpr const char* Sheet = "/in/locks.csv";

    void SetUp() override {
        files.Lock(1, "Tor 1", "00.0A.10.01", "X X X");
        files.Lock(2, "Tor 2", "00.0A.10.02", "X X X");
        Open();
    }
    void Import(std::string_view text, Answer answer) {
        world.Disk.Files[Sheet] = text;
        world.DialogAnswers.emplace_back(Sheet);
        world.Answers.push_back({.Text = "*", .Reply = answer});
        Window().F12_Import_Click();
    }
    static constexpr std::string_view Wanted = "L50;L51;L239\nTor 2;00.0a.10.07;5\n";
};

TEST_F(F12_Importieren, takes_it_as_one_step_and_notes_the_channel_of_another_lock_at_once) {
    const std::string before = File(Locks);
    Import(Wanted, Answer::Yes);
    EXPECT_EQ(world.Shown.back().Text, "Neu: 0, ge\xE4ndert: 1, abgelehnt: 0, entfernt: 0\r\n"
                                       "Nicht in der Datei, bleibt wie es ist: 1 (Tor 1)\r\n"
                                       "Zeile 2, Tor 2: L51: 00.0A.10.02 > 00.0A.10.07\r\n"
                                       "Zeile 2, Tor 2: L239: 3 > 5\r\n\r\n"
                                       "Diese \xC4nderungen \xFC"
                                       "bernehmen? Abgelehntes bleibt, wie es ist.");
    EXPECT_EQ(Row(2, 1, 2), "Tor 2|00.0A.10.07");
    EXPECT_EQ(Text(2, 9), "5");
    EXPECT_EQ(File(Channels).substr(15 + 9, 1), "1"); // record 2, the flag of the lock
    EXPECT_EQ(File(Locks), before);
    EXPECT_TRUE(Window().Tabelle.LockDirty);
    EXPECT_EQ(Window().Verlauf.Steps(), 1U);
    Window().F12_Undo_Click();
    EXPECT_EQ(Row(2, 1, 2), "Tor 2|00.0A.10.02");
    EXPECT_EQ(Window().Hinweis.Text(), Wort(programm->kern, Word::UndoDone, {Wort(programm->kern, Word::StepImport)}) +
                                           " " + Wort(programm->kern, Word::LockChannelStays));
}

TEST_F(F12_Importieren, a_disk_that_refuses_the_channel_leaves_the_table) {
    const int before = world.Disk.Operations;
    Import(Wanted, Answer::No);
    const int read = world.Disk.Operations - before; // what is behind it is the channel
    Break(read + 1, true);
    world.DialogAnswers.emplace_back(Sheet);
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes});
    ExpectWord(Word::LockChannelUnsaved);
    Window().F12_Import_Click();
    EXPECT_EQ(Row(2, 1, 2), "Tor 2|00.0A.10.02");
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Importieren, the_own_export_changes_nothing) {
    world.DialogAnswers.emplace_back(Sheet);
    world.Answers.push_back({.Text = "CSV Print OK!"});
    Press("CSV-Print");
    Import(std::string(world.Disk.Files[Sheet]), Answer::Ok);
    EXPECT_EQ(world.Shown.back().Text, "Neu: 0, ge\xE4ndert: 0, abgelehnt: 0, entfernt: 0\r\n"
                                       "Aus diesen Spalten wird nichts \xFC"
                                       "bernommen: -, QVM, L226, L227\r\n\r\n"
                                       "Die Datei \xE4ndert nichts.");
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

} // namespace
} // namespace qvm::test
