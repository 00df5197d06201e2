// The first exercise of the manual, in the order in which it stands there: in the virtual building, as a program
// without data opens it.

#include "BuildingFixture.h"
#include "HistoryWindows.h"
#include "PersonWindows.h"

namespace qvm::test {
namespace {

using ::testing::HasSubstr;

struct ManualExercise : BuildingFixture {
    static constexpr std::string_view Someone = "Albrecht Maria", Door = "Tresor Filiale";
    std::string Code;
    int DoorRow = 0;

    F2& Main() const { return programm->Main->F2; }
    /// A key of the main window, which has to be the only one that stands there.
    void Press(std::string_view key, const Window& opened) {
        ASSERT_TRUE(Main().Fenster.Visible());
        Main().Toolbar1_ButtonClick(key);
        world.RunFor(100);
        ASSERT_TRUE(opened.Visible()) << key;
    }
    /// The code of somebody who has an X at the door, as the table shows both.
    void LookUp() {
        struct F5& users = programm->Persons->F5;
        Press("x1504", users.Fenster);
        for (int row = UserGrid::FirstRow; row <= UserGrid::LastRow; ++row) {
            if (users.FGK4.Text(row, UserColumn::Name) != Someone) {
                continue;
            }
            ASSERT_EQ(users.FGK4.Text(row, UserColumn::Finger + 1), "X");
            Code = users.FGK4.Text(row, UserColumn::Code);
        }
        ASSERT_EQ(Code.size(), 6U);
        users.Toolbar1_ButtonClick(AusUtf8("Zurück"));
        ASSERT_FALSE(users.Fenster.Visible());
    }
    /// The cell in the row of the door, the question about the history, and the code of the virtual locks.
    void Work(int column, int question, Answer answer) {
        TransferWindows& windows = *programm->Transfer;
        Press("PROG", windows.F13.Fenster);
        for (DoorRow = 1; windows.F13.FGK13.Text(DoorRow, F13Column::Name) != Door;) {
            ++DoorRow;
            ASSERT_LT(DoorRow, windows.F13.FGK13.Rows());
        }
        world.Answers.push_back({.Text = programm->kern.Zeile(question), .Reply = answer});
        if (column == F13Column::Program) { // this lock knows two of the times
            world.Answers.push_back({.Text = programm->kern.Zeile(Line::TimersABOnly) + "\n\r" +
                                             programm->kern.Zeile(Line::OtherTimersIdle),
                                     .Reply = Answer::Ok});
        }
        windows.F13.FGK13_Click(DoorRow, column);
        ASSERT_TRUE(windows.F11.Fenster.Visible());
        for (const char digit : std::string_view("123456")) {
            windows.F11.Text1_KeyPress(static_cast<unsigned char>(digit));
        }
        windows.F11.OK_Click();
        ASSERT_TRUE(world.RunUntil([this] { return programm->Run.Gesamtende; }, 300000));
        world.RunFor(100);
    }
    /// Out of the progress and the list of locks.
    void Leave() {
        TransferWindows& windows = *programm->Transfer;
        windows.F9.Command2_Click();
        windows.F13.Toolbar1_ButtonClick(AusUtf8("Zurück"));
        world.RunFor(100);
        ASSERT_TRUE(Main().Fenster.Visible());
    }
};

TEST_F(ManualExercise, can_be_done_in_the_order_in_which_it_stands) {
    Begin(Demonstration());
    programm->kern.ImGebaeude = true; // as the session says that begins it
    Main().Hooks.Gebaeude_Zeigen = [this] { window->FormLaden(); };
    programm->F7_Oeffnen = [this](const std::string& path) { programm->History->F7.F7_Oeffnen(path); };
    window->Schliessen();
    Connect();
    LookUp();
    ASSERT_FALSE(HasFatalFailure());

    Work(F13Column::Program, Line::HistoryFirstQuestion, Answer::No);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_EQ(programm->Run.Bericht.End, RunOutcome::Done);
    Leave();

    Main().F2_Gebaeude_Click();
    ASSERT_TRUE(window->Fenster.Visible());
    window->Auswahl.Go(DoorRow, BuildingColumn::Device);
    EXPECT_EQ(window->FGK.Text(DoorRow, BuildingColumn::Device), Door);
    EXPECT_EQ(State(DoorRow), Wort(programm->kern, Word::BuildingReady));
    EXPECT_NE(window->FGK.Text(DoorRow, BuildingColumn::Users), "0");
    Try(Code);
    EXPECT_EQ(window->Ergebnis.Text(), Said(Word::BuildingOpens, {Door, Someone}));

    Work(F13Column::History, Line::HistoryNowQuestion, Answer::Ok);
    ASSERT_FALSE(HasFatalFailure());
    const F7& shown = programm->History->F7;
    ASSERT_TRUE(shown.Fenster.Visible());
    std::string names;
    for (int row = 1; row <= 3; ++row) { // the serial number, how it was opened, that it was
        names += shown.FGV.Text(row, F7Column::Name) + "|" + shown.FGV.Text(row, F7Column::Date) + ";";
    }
    EXPECT_THAT(names, HasSubstr(std::string(Someone)));
    EXPECT_THAT(names, HasSubstr("05.03.2026"));
    EXPECT_EQ(world.Disk.Files, Before) << "nothing of it is real";
}

} // namespace
} // namespace qvm::test
