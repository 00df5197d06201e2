// Each fault of the network adapter at each telegram of a run: the row ends as described, the lock holds all or nothing
// of it, and the next row is programmed.

#include "NetzlaufFixture.h"

namespace qvm::test {
namespace {

using Row = ListenFixture::Row;

constexpr std::string_view DisturbedLock = "00.0A.10.01", NextLock = "00.0A.10.02";
// The first row bears the note about its fingerprints.
const Row FirstDone{">>", "L266  /  L273"}, FirstFailed{"#", "L66  /  L273"}, RowDone{">>", "L266"};
/// Two data blocks, two fingerprint blocks, the clock.
constexpr int RunTelegrams = 5;

enum class End {
    Done,   ///< the row ends well
    Missed, ///< the lock is not reached
    Given,  ///< the row stands still and is given up
};

struct NetFault {
    SimFault::Kind What;
    bool AndAllBehind;
    int Value;
    std::array<End, RunTelegrams> Ends; ///< by the telegram that it meets
};
void PrintTo(const NetFault& c, std::ostream* out) {
    *out << FaultText({.What = c.What, .AndAllBehind = c.AndAllBehind, .Value = c.Value});
}

struct Net_Run_With_A_Fault : NetzlaufFixture, ::testing::WithParamInterface<std::tuple<NetFault, int>> {
    Net_Run_With_A_Fault() {
        AddLock(1, "Tor", DisturbedLock, " XXX ");
        AddLock(2, "Keller", NextLock, " XXX ");
        files.Unit(1, 1, "Finger", "00012CCD", '2');
        AddUnit("00012CCD", 2);
        AddUsers(10, {1, 2});
        files.User(
            11, {.Name = "Dora", .Label = "Slot_Nr: 007", .FingerFlag = "FS", .FingerId = "8001", .Marks = {{1, 'F'}}});
        std::vector<std::uint8_t> finger{static_cast<std::uint8_t>(800 % 256), 800 / 256};
        for (int n = 2; n < 800; ++n) {
            finger.push_back(static_cast<std::uint8_t>(7 * n + 3));
        }
        files.Template(250, "8001", finger);
        files.User(
            12, {.Name = "Emil", .Label = "Slot_Nr: 008", .FingerFlag = "FS", .FingerId = "8002", .Marks = {{1, 'F'}}});
        files.Template(251, "8002", finger);
    }
};

TEST_P(Net_Run_With_A_Fault, ends_the_row_and_the_next_one_is_programmed) {
    const auto& [fault, telegram] = GetParam();
    const End end = fault.Ends[static_cast<std::size_t>(telegram)];
    NetDevices.Faults = {
        {.What = fault.What, .Telegram = telegram, .AndAllBehind = fault.AndAllBehind, .Value = fault.Value}};
    BeginNet({1, 2});
    // The second row is another run: what went wrong is over by then.
    programm->Transfer->F91.Zeile_Beginnt = [this](int row) {
        if (row == 2) {
            Net->World().Faults.clear();
        }
    };
    world.Answers.push_back({.Text = "*"}); // the fingerprints of the first row
    Prog({1, 2});
    ASSERT_TRUE(Work());
    EXPECT_EQ(RowAt(1), end == End::Done ? FirstDone : FirstFailed);
    EXPECT_EQ(RowAt(2), RowDone);
    EXPECT_EQ(Standstills, end == End::Given ? 1 : 0);
    const VirtualLock& lock = NetLock(DisturbedLock);
    EXPECT_LE(lock.Erases, 1);
    EXPECT_EQ(lock.Users.size(), lock.Erases == 1 ? 12U : 0U);
    EXPECT_EQ(Net->World().Units[0].Rows.size(), lock.Erases == 1 ? 2U : 0U);
    if (end == End::Done) {
        EXPECT_EQ(lock.Erases, 1);
    }
    EXPECT_EQ(NetLock(NextLock).Users.size(), 10U);
    EXPECT_EQ(Net->JudgementLines(), "");
}

constexpr std::array AllDone{End::Done, End::Done, End::Done, End::Done, End::Done};
constexpr std::array AllFailed{End::Missed, End::Missed, End::Missed, End::Missed, End::Missed};
constexpr std::array AllGiven{End::Given, End::Given, End::Given, End::Given, End::Given};
// Another number in the answer matters only where the next data block waits for it; the block then goes out again.
constexpr std::array BlockEnds{End::Given, End::Done, End::Done, End::Done, End::Done};
// A run that is forgotten at its first block begins anew when that comes again.
constexpr std::array DropEnds{End::Done, End::Given, End::Given, End::Given, End::Given};

using FaultKind = SimFault::Kind;
INSTANTIATE_TEST_SUITE_P(All, Net_Run_With_A_Fault,
                         ::testing::Combine(::testing::Values(NetFault{FaultKind::Silent, false, 0, AllDone},
                                                              NetFault{FaultKind::Silent, true, 0, AllGiven},
                                                              NetFault{FaultKind::BadSum, false, 0, AllDone},
                                                              NetFault{FaultKind::Half, false, 0, AllDone},
                                                              NetFault{FaultKind::Garbage, false, 0, AllDone},
                                                              NetFault{FaultKind::Late, false, 1500, AllDone},
                                                              NetFault{FaultKind::Late, false, 5000, AllDone},
                                                              NetFault{FaultKind::Doubled, false, 0, AllDone},
                                                              NetFault{FaultKind::Refuse, false, 0, AllFailed},
                                                              NetFault{FaultKind::NotReached, false, 0, AllFailed},
                                                              NetFault{FaultKind::Block, false, 0, AllDone},
                                                              NetFault{FaultKind::Block, true, 0, BlockEnds},
                                                              NetFault{FaultKind::Drop, false, 0, DropEnds}),
                                            ::testing::Range(0, RunTelegrams)));

struct Net_Run_Unplugged : Net_Run_With_A_Fault {};

TEST_P(Net_Run_Unplugged, fails_the_row_and_leaves_the_lock_alone) {
    const auto& [fault, telegram] = GetParam();
    NetDevices.Faults = {{.What = fault.What, .Telegram = telegram}};
    BeginNet({1, 2});
    world.Answers.push_back({.Text = "*"});
    Prog({1, 2});
    ASSERT_TRUE(Work());
    EXPECT_EQ(RowAt(1).first, "#");
    EXPECT_NE(RowAt(2).first, ">>");
    EXPECT_EQ(NetLock(DisturbedLock).Erases, 0);
    EXPECT_EQ(NetLock(NextLock).Erases, 0);

    // Plugged in again, the same locks are programmed.
    Net->World().Faults.clear();
    Net->Plug();
    world.PortCanOpen = true;
    programm->Transfer->F91.Command1_Click();
    programm->Transfer->F13.F13_FormLaden();
    programm->Transfer->F13.Timer1.Stop();
    programm->Transfer->F13.Timer2.Stop();
    for (const int row : {1, 2}) {
        programm->Transfer->F13.FGK13.SetText(row, F13Column::AdapterId, "/3/224/0/1");
    }
    world.Answers.push_back({.Text = "*"});
    Prog({1, 2});
    ASSERT_TRUE(Work());
    EXPECT_THAT(AllRows(), ElementsAre(FirstDone, RowDone));
    EXPECT_EQ(NetLock(DisturbedLock).Users.size(), 12U);
    EXPECT_EQ(Net->JudgementLines(), "");
}

INSTANTIATE_TEST_SUITE_P(All, Net_Run_Unplugged,
                         ::testing::Combine(::testing::Values(NetFault{FaultKind::Unplug, false, 0, AllFailed}),
                                            ::testing::Range(0, RunTelegrams)));

} // namespace
} // namespace qvm::test
