#include "ProgrammingRun.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

struct OrderCase {
    const char* Name;
    std::uint32_t Serial;
    std::vector<std::pair<std::uint8_t, Bytes>> Before; ///< behind the login, all in order
    std::uint8_t Code;
    Bytes Payload;
};
void PrintTo(const OrderCase& c, std::ostream* out) {
    *out << c.Name;
}

class LockOrder : public testing::TestWithParam<OrderCase> {};

TEST_P(LockOrder, is_judged) {
    const OrderCase& c = GetParam();
    VirtualWorld world = OneLock(c.Serial);
    world.Locks[0].EraseBusyMs = 0;
    SimBench bench(world);
    bench.LogIn();
    for (const auto& [code, payload] : c.Before) {
        bench.Say(code, payload);
    }
    ASSERT_EQ(bench.System.JudgementLines(), "");
    bench.Say(c.Code, c.Payload);
    ASSERT_EQ(bench.System.Judgements().size(), 1U) << bench.System.JudgementLines();
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Order) << bench.System.JudgementLines();
    EXPECT_EQ(bench.System.Judgements()[0].Code, c.Code);
}

using Steps = std::vector<std::pair<std::uint8_t, Bytes>>;
const Steps Start{{0x27, {0}}, {0x25, {0}}};

Steps Behind(const Steps& first, const Steps& second) {
    Steps all = first;
    all.insert(all.end(), second.begin(), second.end());
    return all;
}

const Steps ShortTables{{0x19, Fill(40)}, {0x1B, Fill(40)}};
const Steps Singles{{0x1F, Join({{0}, Fill(42)})}, {0x1F, Join({{1}, Fill(42)})}, {0x1F, Join({{2}, Fill(42)})}};
const Steps Perms{{0x21, Join({{0}, Fill(41)})}, {0x21, Join({{1}, Fill(41)})}, {0x21, Join({{2}, Fill(41)})}};
const Steps UpToUsers = Behind(Start, Behind(ShortTables, Behind(Singles, Perms)));
const Steps OneUser{{0x0A, {}}, {0x0B, Name16("A")}, {0x0D, Join({{0, 1}, Name16("A")})}, {0x0E, CodeUserData(1)}};

INSTANTIATE_TEST_SUITE_P(
    All, LockOrder,
    testing::Values(
        OrderCase{"time without a date", S, {}, 0x09, {1, 2, 3}},
        OrderCase{"priority behind the login", S, {}, 0x2F, {2}},
        OrderCase{"next record before the first", S, {}, 0x17, {2}},
        OrderCase{"sign of life to a lock that needs none", S, {{0x27, {0}}}, 0x08, {}},
        OrderCase{"tables without the calendar flag", S, {{0x27, {0}}}, 0x19, Fill(40)},
        OrderCase{"second part of table A first", Z, Start, 0x19, Join({Fill(40), {1}})},
        OrderCase{"table A in parts for a lock of short tables", S, Start, 0x19, Join({Fill(40), {0}})},
        OrderCase{"short table A for a late lock", Terr, Start, 0x19, Fill(40)},
        OrderCase{"holidays without tables", S, Start, 0x1F, Join({{0}, Fill(42)})},
        OrderCase{"a missing reader setting", ZwithReader, Start, 0x19, Fill(40)},
        OrderCase{"a reader setting too many", S, Start, 0x3B, {1, 0xFF, 0, 0}},
        OrderCase{"permanent days without single days", S, Behind(Start, ShortTables), 0x21, Join({{0}, Fill(41)})},
        OrderCase{"third part of the single days first", S, Behind(Start, ShortTables), 0x1F, Join({{2}, Fill(42)})},
        OrderCase{"a name without a slot", S, UpToUsers, 0x0B, Name16("A")},
        OrderCase{"user data without a name", S, Behind(UpToUsers, {{0x0A, {}}}), 0x0E, CodeUserData(1)},
        OrderCase{"time groups with short tables", S, Behind(UpToUsers, OneUser), 0x37, {0, 1, 0, 0, 0}},
        OrderCase{"a long identification for a lock without", S, Behind(UpToUsers, OneUser), 0x43,
                  Join({{1, 1, 0}, Fill(16)})},
        OrderCase{"data end without the lock timer flag", S, UpToUsers, 0x15, {}},
        OrderCase{"a user behind the lock timer flag", S, Behind(UpToUsers, {{0x23, {0}}}), 0x0A, {}},
        OrderCase{"a channel set without asking", S, {}, 0x29, {0}},
        OrderCase{"a unit's telegram", S, {}, 0x49, {0, 0, 0x2C, 0x10}}));

TEST(LockOrder, a_mode_for_a_lock_without_one_is_judged) {
    SimBench bench(OneLock(NoMode));
    bench.LogIn();
    for (const auto& [code, payload] : Behind(Start, Behind(Singles, Perms))) {
        bench.Say(code, payload);
    }
    bench.Say(0x23, {0});
    ASSERT_EQ(bench.System.JudgementLines(), "");
    bench.Say(0x32, {0x0A});
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
}

TEST(LockOrder, the_end_of_data_must_come_before_the_close) {
    SimBench bench(OneLock(S));
    bench.LogIn();
    for (const auto& [code, payload] : UpToUsers) {
        bench.Say(code, payload);
    }
    bench.Say(0x05);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Unfinished);
    EXPECT_FALSE(bench.System.World().Locks[0].DataComplete);
}

TEST(LockOrder, nothing_goes_before_the_login) {
    SimBench bench(OneLock(S));
    bench.LogIn();
    bench.Say(0x05);
    const auto replies = bench.Say(0x27, {0});
    ASSERT_EQ(replies.size(), 1U);
    EXPECT_EQ(replies[0][2], 0x69);
    EXPECT_EQ(bench.System.World().Locks[0].Erases, 0);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Order);
}

TEST(LockOrder, missing_time_groups_are_judged_at_the_next_user) {
    VirtualWorld world = OneLock(Z);
    world.Locks[0].EraseBusyMs = 0;
    ProgrammingRun run(world);
    run.Open();
    run.Do(0x25, {0});
    run.TablesInParts();
    run.Holidays();
    run.Name(1, "A");
    run.Do(0x0E, CodeUserData(1));
    ASSERT_EQ(run.System.JudgementLines(), "");
    run.Ask(0x0A);
    ASSERT_EQ(run.System.Judgements().size(), 1U);
}

TEST(LockOrder, a_login_inside_a_session_is_judged) {
    SimBench bench(OneLock(S));
    bench.LogIn();
    bench.Say(0x27, {0});
    bench.LogIn();
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
}

} // namespace
} // namespace qvm::test
