// Clicks on a lock whose channel is to be changed, and on one that takes two passes.

#include "F13KlickFixture.h"

namespace qvm::test {
namespace {

// ---- program, channel to be changed

struct ChannelCase {
    const char* What;
    const char *Channel, *Target, *Flag;
    bool Search;
    int First; ///< channel of the first login
};

void PrintTo(const ChannelCase& c, std::ostream* out) {
    *out << c.What;
}

struct F13_Kanal : F13_Klick, ::testing::WithParamInterface<ChannelCase> {};

TEST_P(F13_Kanal, program_searches_unless_the_lock_stands_on_its_target) {
    files.Lock(1, "Tor", SerialS);
    files.Channel(1, GetParam().Channel, GetParam().Target, GetParam().Flag);
    Open();
    OpenStart();
    EXPECT_EQ(Lauf().Chain.KanalSuche, GetParam().Search ? 1 : 0);
    EXPECT_EQ(Lauf().Chain.KanalIndex, 0);
    EXPECT_EQ(programm->link.TargetChannel, GetParam().First);
}

TEST_P(F13_Kanal, history_searches_by_the_same_rule_but_starts_on_the_systems_channel) {
    files.Lock(1, "Tor", SerialS);
    files.Channel(1, GetParam().Channel, GetParam().Target, GetParam().Flag);
    Open();
    Expect(65);
    Click(1, F13Column::History);
    EXPECT_EQ(Lauf().Chain.KanalSuche, GetParam().Search ? 1 : 0);
    EXPECT_EQ(programm->link.TargetChannel, 3);
}

TEST_P(F13_Kanal, code_change_searches_by_the_same_rule) {
    files.Lock(1, "Tor", SerialS);
    files.Channel(1, GetParam().Channel, GetParam().Target, GetParam().Flag);
    Open();
    Click(1, F13Column::Code);
    EXPECT_EQ(Lauf().Chain.KanalSuche, GetParam().Search ? 1 : 0);
    EXPECT_EQ(programm->link.TargetChannel, 3);
}

INSTANTIATE_TEST_SUITE_P(Records, F13_Kanal,
                         ::testing::Values(ChannelCase{"settled", "3", "3", "0", false, 3},
                                           ChannelCase{"changed and marked", "7", "3", "1", true, 7},
                                           ChannelCase{"equal but marked", "3", "3", "1", true, 3},
                                           ChannelCase{"changed but not marked", "7", "3", "0", true, 7},
                                           ChannelCase{"blank lock channel is 1", "", "1", "0", false, 3},
                                           ChannelCase{"blank target is the system's", "3", "", "0", false, 3},
                                           ChannelCase{"blank flag is 1", "3", "3", "", true, 3},
                                           ChannelCase{"all blank", "", "", "", true, 1}));

TEST_F(F13_Klick, of_a_lock_that_moves_the_dataset_comes_before_the_question) {
    files.Lock(1, "Tor", SmallLock);
    files.Channel(1, "7", "3", "1");
    TooManyUsers();
    Open();
    Expect(248); // and no question
    Click(1, F13Column::Program);
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
}

TEST_F(F13_Klick, of_a_lock_that_moves_a_wrong_serial_ends_without_a_question) {
    files.Lock(1, "Tor", "00.0A.1Z.01");
    files.Channel(1, "7", "3", "1");
    Open();
    Click(1, F13Column::Program);
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
    EXPECT_EQ(Mark(1), "X");
}

TEST_F(F13_Klick, of_a_lock_that_moves_yes_reads_the_history_first) {
    files.Lock(1, "Tor", SerialS);
    files.Channel(1, "7", "3", "1");
    Open();
    Expect(63, Answer::Yes);
    Click(1, F13Column::Program);
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 0);
    EXPECT_EQ(Lauf().Chain.ReadHistoryFirst, 1);
    EXPECT_EQ(Lauf().Order.What, RunTask::HistoryFirst);
    EXPECT_TRUE(StartOpen());
}

TEST_F(F13_Klick, of_a_lock_that_moves_cancel_ends_with_its_dataset_gathered) {
    files.Lock(1, "Tor", SerialS);
    files.Channel(1, "7", "3", "1");
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
    Open();
    Expect(63, Answer::Cancel);
    Click(1, F13Column::Program);
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
    EXPECT_EQ(Mark(1), "X");
    EXPECT_EQ(programm->Run.Daten.Slots.size(), 1U);
    EXPECT_EQ(Lauf().Chain.KanalSuche, 0);
}

// ---- two passes

struct TwoPassCase {
    const char* Serial;
    bool Transponder;
    int Flag;
};

void PrintTo(const TwoPassCase& c, std::ostream* out) {
    *out << c.Serial << (c.Transponder ? " with" : " without") << " a transponder";
}

struct F13_ZweiDurchgaenge : F13_Klick, ::testing::WithParamInterface<TwoPassCase> {
    void Prepare(const char* change) {
        files.Lock(1, "Tor", GetParam().Serial);
        files.Channel(1, "3", "3", change);
        TestUser user{.Name = "Anna", .Marks = {{1, 'X'}}};
        user.KeyId = GetParam().Transponder ? "1 : 2 : 3 : 4" : "";
        files.User(1, user);
        Open();
        OpenStart();
    }
};

TEST_P(F13_ZweiDurchgaenge, are_marked_between_the_borders_with_a_transponder) {
    Prepare("0");
    EXPECT_EQ(Lauf().Chain.TwoPassFlag, GetParam().Flag);
}

TEST_P(F13_ZweiDurchgaenge, are_marked_in_a_channel_search_too) {
    Prepare("1");
    EXPECT_EQ(Lauf().Chain.TwoPassFlag, GetParam().Flag);
}

INSTANTIATE_TEST_SUITE_P(Borders, F13_ZweiDurchgaenge,
                         ::testing::Values(TwoPassCase{"0E.6E.90.00", true, 0}, TwoPassCase{"0E.6E.90.01", true, 1},
                                           TwoPassCase{"0F.DF.F5.9B", true, 1}, TwoPassCase{"0F.DF.F5.9C", true, 0},
                                           TwoPassCase{"0E.6E.90.01", false, 0}, TwoPassCase{"0F.DF.F5.9B", false, 0}));

} // namespace
} // namespace qvm::test
