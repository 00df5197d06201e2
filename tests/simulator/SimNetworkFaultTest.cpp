// A network adapter that fails on purpose.

#include "NetBench.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = SimFault::Kind;

VirtualWorld Failing(const SimFault& fault) {
    VirtualWorld world = NetworkWorld();
    world.Faults = {fault};
    return world;
}

std::vector<Bytes> TenUsers() {
    std::vector<Bytes> users;
    for (int n = 1; n <= 10; ++n) {
        users.push_back(NetBench::User(n));
    }
    return users;
}

/// Two blocks and the clock.
struct FaultRun {
    NetBench Bench;
    Bytes First, Second;

    explicit FaultRun(const SimFault& fault) : Bench(Failing(fault)) {
        const std::vector<Bytes> users = TenUsers();
        First = Bench.Block(1, 2, 1258, 0x14, Join({NetBench::Fixed(10), Join({users.begin(), users.end() - 1})}));
        Second = Bench.Block(2, 2, 97, 0x14, users[9]);
    }
    /// The rest behind a disturbed second block goes well, and nothing was found.
    void Expect_Good_End() {
        EXPECT_EQ(Bench.Code(Second), 0x15);
        EXPECT_EQ(Bench.Code(Bench.Clock()), 0x1F);
        Bench.Pass(5000);
        EXPECT_EQ(Bench.Lock().Users.size(), 10U);
        EXPECT_THAT(Bench.Findings(), IsEmpty());
    }
};

TEST(SimNetworkFault, a_block_that_is_not_heard_can_come_again) {
    FaultRun run({.What = Kind::Silent, .Telegram = 1});
    EXPECT_EQ(run.Bench.Code(run.First), 0x14);
    EXPECT_THAT(run.Bench.Take(run.Second), IsEmpty());
    run.Expect_Good_End();
}

TEST(SimNetworkFault, an_answer_with_a_bad_sum_is_said_again) {
    FaultRun run({.What = Kind::BadSum, .Telegram = 1});
    EXPECT_EQ(run.Bench.Code(run.First), 0x14);
    run.Bench.Send(run.Second);
    run.Bench.Pass(10);
    ASSERT_EQ(run.Bench.Sendings.size(), 1U);
    // The count of 2 at index 3 brings one 0x00 along; block number 2 at index 1 does not.
    Bytes frame = run.Bench.Sendings[0];
    ASSERT_EQ(frame.size(), 35U);
    ASSERT_EQ(frame[4], 0);
    frame.erase(frame.begin() + 4);
    EXPECT_EQ(frame[32], RotateSum(Bytes(frame.begin(), frame.begin() + 32)) ^ 0x55);
    run.Expect_Good_End();
}

TEST(SimNetworkFault, an_answer_can_carry_another_block_number) {
    FaultRun run({.What = Kind::Block, .Telegram = 1});
    EXPECT_EQ(run.Bench.Take(run.First)[0].Block, 1);
    EXPECT_EQ(run.Bench.Take(run.Second)[0].Block, 3);
    run.Expect_Good_End();
}

TEST(SimNetworkFault, a_run_that_is_dropped_is_forgotten) {
    FaultRun run({.What = Kind::Drop, .Telegram = 1});
    EXPECT_EQ(run.Bench.Code(run.First), 0x14);
    EXPECT_THAT(run.Bench.Take(run.Second), IsEmpty());
    EXPECT_THAT(run.Bench.Take(run.Second), IsEmpty());
    EXPECT_THAT(run.Bench.Findings(), IsEmpty()); // it was told not to know
    EXPECT_EQ(run.Bench.Code(run.First), 0x14);
    run.Expect_Good_End();
}

TEST(SimNetworkFault, a_drop_at_the_clock_leaves_the_lock_as_it_was) {
    FaultRun run({.What = Kind::Drop, .Telegram = 2});
    run.Bench.Take(run.First);
    run.Bench.Take(run.Second);
    EXPECT_THAT(run.Bench.Take(run.Bench.Clock()), IsEmpty());
    EXPECT_THAT(run.Bench.After(10000), IsEmpty());
    EXPECT_EQ(run.Bench.Lock().Erases, 0);
}

TEST(SimNetworkFault, a_lock_is_not_reached_at_a_block) {
    for (const Kind kind : {Kind::NotReached, Kind::Refuse}) {
        FaultRun run({.What = kind, .Telegram = 1, .Value = 0x64});
        EXPECT_EQ(run.Bench.Code(run.First), 0x14);
        EXPECT_THAT(run.Bench.Take(run.Second), ElementsAre(NetReply{2, 0xFF, {}}));
        EXPECT_EQ(run.Bench.Lock().Erases, 0);
    }
}

TEST(SimNetworkFault, a_lock_is_not_reached_behind_the_wait) {
    FaultRun run({.What = Kind::NotReached, .Telegram = 2});
    run.Bench.Take(run.First);
    run.Bench.Take(run.Second);
    EXPECT_EQ(run.Bench.Code(run.Bench.Clock()), 0x1F);
    EXPECT_THAT(run.Bench.After(5000), ElementsAre(NetReply{1, 0xFF, {}}));
    EXPECT_EQ(run.Bench.Lock().Erases, 0);

    NetBench history(Failing({.What = Kind::NotReached, .Telegram = 0}));
    EXPECT_EQ(history.Code(history.HistoryStart()), 0x0B);
    EXPECT_THAT(history.After(3000), ElementsAre(NetReply{1, 0xFF, {}}));
}

TEST(SimNetworkFault, pulled_out_in_the_middle_nothing_more_comes) {
    FaultRun run({.What = Kind::Unplug, .Telegram = 3});
    run.Bench.Take(run.First);
    run.Bench.Take(run.Second);
    EXPECT_EQ(run.Bench.Code(run.Bench.Clock()), 0x1F);
    EXPECT_THAT(run.Bench.Take(run.Bench.Clock()), IsEmpty());
    EXPECT_THAT(run.Bench.After(5000), IsEmpty());
    EXPECT_EQ(run.Bench.Lock().Erases, 0);
    run.Bench.System.Plug();
    EXPECT_EQ(run.Bench.Code(run.First), 0x14);
}

TEST(SimNetworkFault, a_late_answer_comes_so_much_later) {
    FaultRun run({.What = Kind::Late, .Telegram = 0, .Value = 500});
    EXPECT_THAT(run.Bench.Take(run.First), IsEmpty());
    EXPECT_THAT(run.Bench.After(499), IsEmpty());
    EXPECT_THAT(run.Bench.After(1), ElementsAre(NetReply{1, 0x14, {}}));
}

TEST(SimNetworkFault, network_faults_leave_serial_telegrams_alone) {
    NetBench bench(Failing({.What = Kind::Drop, .Telegram = 0, .CountAll = true}));
    EXPECT_EQ(bench.SayRaw(0x68, {1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0}).size(), 1U);
}

} // namespace
} // namespace qvm::test
