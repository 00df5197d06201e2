// The two list keys of F13.

#include "FensterFixture.h"

#include <utility>

namespace qvm::test {
namespace {

using Copy = std::pair<int, int>; ///< row of the grid, row of the list

struct F13_Liste : FensterFixture {
    std::vector<std::string> Calls;
    std::vector<Copy> Copies;

    F13_Liste() {
        SettledLock(1, "Tor");
        SettledLock(2, "Keller");
        SettledLock(200, "Dach");
        Begin();
        programm->Transfer->F13.Liste_Leeren = [this] { Calls.emplace_back("clear"); };
        programm->Transfer->F13.Listenzeile_Uebernehmen = [this](int grid, int list) {
            Calls.emplace_back("copy");
            Copies.emplace_back(grid, list);
        };
    }
    void MarkRows() {
        Click(1, F13Column::Mark);
        Click(200, F13Column::Mark);
    }
    void Prog(Answer history, Answer delayed) {
        Expect(63, history);
        Expect(269, delayed);
        programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
    }
    void ExpectNothingMarked() {
        world.Answers.push_back(
            {.Text = std::string(u8"Es ist kein Schloss markiert. Bitte markieren Sie zuerst die gewünschten Schlösser "
                                 u8"in der Spalte „Prg.“, mit der Maus oder mit der Leertaste."_w)});
    }
    void SaveHistory(Answer delayed) {
        Expect(269, delayed);
        programm->Transfer->F13.Toolbar1_ButtonClick("SaveHistory");
    }
};

TEST_F(F13_Liste, prog_asks_twice_under_the_same_title_with_no_as_default) {
    MarkRows();
    Prog(Answer::No, Answer::No);
    ASSERT_EQ(world.Shown.size(), 2U);
    for (const Message& message : world.Shown) {
        EXPECT_EQ(message.Title, "L90");
        EXPECT_EQ(message.Choice, Buttons::YesNoCancel);
        EXPECT_EQ(message.DefaultButton, 2);
    }
}

TEST_F(F13_Liste, prog_copies_the_marked_rows_in_order_and_clears_their_marks) {
    MarkRows();
    Prog(Answer::No, Answer::No);
    EXPECT_THAT(Calls, ElementsAre("clear", "copy", "copy"));
    EXPECT_THAT(Copies, ElementsAre(Copy{1, 1}, Copy{200, 2}));
    EXPECT_EQ(Mark(1), "");
    EXPECT_EQ(Mark(2), "");
    EXPECT_EQ(Mark(200), "");
    EXPECT_EQ(Lauf().List.RunRows, 2);
    EXPECT_TRUE(programm->Transfer->F11.Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F13_Liste, prog_with_no_row_marked_says_so_and_asks_nothing) {
    ExpectNothingMarked();
    programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
    EXPECT_EQ(world.Shown.size(), 1U);
    EXPECT_THAT(Calls, IsEmpty());
    EXPECT_EQ(Lauf().List.RunRows, 0);
    EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
}

TEST_F(F13_Liste, prog_takes_a_lock_marked_by_a_cancelled_single_run_along) {
    OpenStart(2);
    programm->Transfer->F11.Cancel_Click();
    Prog(Answer::No, Answer::No);
    EXPECT_THAT(Copies, ElementsAre(Copy{2, 1}));
}

TEST_F(F13_Liste, both_keys_clear_what_an_earlier_run_left) {
    MarkRows();
    Lauf().Chain.TwoPassFlag = Lauf().Chain.HistoryOnly = Lauf().Chain.ReadHistoryFirst = Lauf().Chain.AbbruchWunsch =
        1;
    Lauf().List.RunRow = 5;
    Lauf().List.RunRows = 9;
    programm->link.AddressMode = 1;
    Prog(Answer::No, Answer::No);
    EXPECT_EQ(Lauf().Chain.TwoPassFlag, 0);
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 0);
    EXPECT_EQ(Lauf().Chain.ReadHistoryFirst, 0);
    EXPECT_EQ(Lauf().Chain.AbbruchWunsch, 0);
    EXPECT_EQ(Lauf().List.RunRow, 0);
    EXPECT_EQ(Lauf().List.RunRows, 2);
    EXPECT_EQ(programm->link.AddressMode, 0);

    programm->Transfer->F11.Cancel_Click();
    Click(200, F13Column::Mark);
    Lauf().List.RunRows = 9;
    Lauf().Chain.TwoPassFlag = Lauf().Chain.ReadHistoryFirst = 1;
    SaveHistory(Answer::No);
    EXPECT_EQ(Lauf().Chain.TwoPassFlag, 0);
    EXPECT_EQ(Lauf().Chain.ReadHistoryFirst, 0);
    EXPECT_EQ(Lauf().List.RunRows, 1);
}

TEST_F(F13_Liste, savehistory_asks_only_for_the_start_and_reads_only) {
    MarkRows();
    SaveHistory(Answer::No);
    EXPECT_EQ(world.Shown.size(), 1U);
    EXPECT_EQ(Lauf().List.NetMode, 0x80);
    EXPECT_EQ(Lauf().Order.What, RunTask::HistoryOnly);
    EXPECT_FALSE(programm->Transfer->F13.DelayedStart);
    EXPECT_THAT(Copies, ElementsAre(Copy{1, 1}, Copy{200, 2}));
    EXPECT_TRUE(programm->Transfer->F11.Fenster.Visible);
}

TEST_F(F13_Liste, savehistory_takes_yes_as_a_delayed_start_and_cancel_as_no) {
    MarkRows();
    SaveHistory(Answer::Yes);
    EXPECT_TRUE(programm->Transfer->F13.DelayedStart);
    programm->Transfer->F11.Cancel_Click();
    SaveHistory(Answer::Cancel);
    EXPECT_FALSE(programm->Transfer->F13.DelayedStart);
    EXPECT_TRUE(programm->Transfer->F11.Fenster.Visible);
}

TEST_F(F13_Liste, savehistory_with_no_row_marked_says_so_and_asks_nothing) {
    Lauf().List.NetMode = 0;
    ExpectNothingMarked();
    programm->Transfer->F13.Toolbar1_ButtonClick("SaveHistory");
    EXPECT_EQ(world.Shown.size(), 1U);
    EXPECT_THAT(Calls, IsEmpty());
    EXPECT_EQ(Lauf().List.NetMode, 0);
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 0);
    EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
}

TEST_F(F13_Liste, says_in_the_language_in_use_that_nothing_is_marked) {
    programm->kern.Config.Sprache = "Nederlands";
    world.Answers.push_back({.Text = std::string(u8"Er is geen slot gemarkeerd. Markeer eerst de gewenste sloten in de "
                                                 u8"kolom ‘Prg.’, met de muis of met de spatiebalk."_w)});
    programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
}

TEST_F(F13_Liste, marks_come_back_when_the_start_dialog_is_left) {
    MarkRows();
    Prog(Answer::No, Answer::No);
    programm->Transfer->F11.Cancel_Click();
    EXPECT_EQ(Mark(1), "X");
    EXPECT_EQ(Mark(2), "");
    EXPECT_EQ(Mark(200), "X");
    EXPECT_EQ(programm->Transfer->F13.Markenzahl.Text(), "2 markiert");
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_EQ(Lauf().List.RunRows, 0);

    SaveHistory(Answer::No);
    EXPECT_EQ(Mark(1), "");
    programm->Transfer->F11.Cancel_Click();
    EXPECT_EQ(Mark(1), "X");
    EXPECT_EQ(Mark(200), "X");
}

TEST_F(F13_Liste, marks_of_an_earlier_list_do_not_come_back_behind_a_single_lock) {
    MarkRows();
    Prog(Answer::No, Answer::No);
    programm->Transfer->F11.Cancel_Click();
    Click(1, F13Column::Mark);
    Click(200, F13Column::Mark);
    OpenStart(2);
    programm->Transfer->F11.Cancel_Click();
    EXPECT_EQ(Mark(1), "");
    EXPECT_EQ(Mark(2), "X");
    EXPECT_EQ(Mark(200), "");
}

TEST_F(F13_Liste, marks_that_went_into_a_list_that_was_started_stay_cleared) {
    MarkRows();
    Prog(Answer::No, Answer::No);
    Type("123456");
    programm->Transfer->F11.OK_Click();
    Begin();
    OpenStart(2);
    programm->Transfer->F11.Cancel_Click();
    EXPECT_EQ(Mark(1), "");
    EXPECT_EQ(Mark(200), "");
}

TEST_F(F13_Liste, runs_without_anybody_who_listens) {
    programm->Transfer->F13.Liste_Leeren = {};
    programm->Transfer->F13.Listenzeile_Uebernehmen = {};
    MarkRows();
    Prog(Answer::No, Answer::No);
    EXPECT_EQ(Lauf().List.RunRows, 2);
    EXPECT_EQ(Mark(1), "");
}

struct ListAnswers {
    Answer History, Delayed;
    int NetMode;
    bool DelayedStart;
};

void PrintTo(const ListAnswers& a, std::ostream* out) {
    *out << static_cast<int>(a.History) << ' ' << static_cast<int>(a.Delayed);
}

struct F13_Liste_Antworten : F13_Liste, ::testing::WithParamInterface<ListAnswers> {};

TEST_P(F13_Liste_Antworten, each_change_nothing_but_their_own_value) {
    MarkRows();
    Prog(GetParam().History, GetParam().Delayed);
    EXPECT_EQ(Lauf().List.NetMode, GetParam().NetMode);
    EXPECT_EQ(programm->Transfer->F13.DelayedStart, GetParam().DelayedStart);
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 0);
    EXPECT_EQ(Lauf().Chain.ReadHistoryFirst, 0);
    EXPECT_EQ(Lauf().List.RunRows, 2);
    EXPECT_TRUE(programm->Transfer->F11.Fenster.Visible);
}

INSTANTIATE_TEST_SUITE_P(All, F13_Liste_Antworten,
                         ::testing::Values(ListAnswers{Answer::Yes, Answer::Yes, 0xFF, true},
                                           ListAnswers{Answer::Yes, Answer::No, 0xFF, false},
                                           ListAnswers{Answer::Yes, Answer::Cancel, 0xFF, false},
                                           ListAnswers{Answer::No, Answer::Yes, 0, true},
                                           ListAnswers{Answer::No, Answer::No, 0, false},
                                           ListAnswers{Answer::No, Answer::Cancel, 0, false},
                                           ListAnswers{Answer::Cancel, Answer::Yes, 0, true},
                                           ListAnswers{Answer::Cancel, Answer::No, 0, false},
                                           ListAnswers{Answer::Cancel, Answer::Cancel, 0, false}));

} // namespace
} // namespace qvm::test
