#include "SimBench.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t S = 0x00002C10;

/// Telegram 0 is the login, telegram 1 a history telegram.
SimBench BenchWith(const SimFault& fault) {
    VirtualWorld world = OneLock(S);
    world.Faults.push_back(fault);
    return SimBench(world);
}

TEST(SimFault, silent_lets_the_device_not_hear_one_telegram) {
    SimBench bench = BenchWith({.What = SimFault::Kind::Silent, .Telegram = 1});
    EXPECT_EQ(bench.LogIn(), 4);
    EXPECT_THAT(bench.Say(0x27, {0}), IsEmpty());
    EXPECT_EQ(bench.System.World().Locks[0].Erases, 0);
    EXPECT_EQ(bench.Ask(0x27, {0})[2], 0x27);
}

TEST(SimFault, silent_from_then_on_stays_silent) {
    SimBench bench = BenchWith({.What = SimFault::Kind::Silent, .Telegram = 1, .AndAllBehind = true});
    EXPECT_EQ(bench.LogIn(), 4);
    for (int n = 0; n < 3; ++n) {
        EXPECT_THAT(bench.Say(0x05), IsEmpty());
    }
}

TEST(SimFault, a_wrong_sum_spoils_the_reply_but_the_device_has_acted) {
    SimBench bench = BenchWith({.What = SimFault::Kind::BadSum, .Telegram = 1});
    bench.LogIn();
    EXPECT_THAT(bench.Say(0x27, {0}), IsEmpty());
    // Acknowledge of 0x27: its sum over 0 to 13 is C1, and C1 xor 55 is 94.
    EXPECT_THAT(bench.Wire, ElementsAre(0x02, 0x0D, 0x27, 0x00, 0x00, 0x2C, 0x10, 0x00, 0x00, 0x2C, 0x10, 0x00, 0x00,
                                        0x00, 0x00, 0x94));
    EXPECT_EQ(bench.System.World().Locks[0].Erases, 1);
    EXPECT_EQ(bench.Ask(0x25, {0})[2], 0x25);
}

TEST(SimFault, half_a_frame_breaks_off_in_the_middle) {
    SimBench bench = BenchWith({.What = SimFault::Kind::Half, .Telegram = 1});
    bench.LogIn();
    bench.Say(0x27, {0});
    EXPECT_THAT(bench.Wire, ElementsAre(0x02, 0x0D, 0x27, 0x00, 0x00, 0x2C, 0x10, 0x00));
}

TEST(SimFault, garbage_comes_before_the_frame) {
    SimBench bench = BenchWith({.What = SimFault::Kind::Garbage, .Telegram = 1, .Bytes = {0xFF, 0x13}});
    bench.LogIn();
    bench.Say(0x27, {0});
    ASSERT_EQ(bench.Wire.size(), 18U);
    EXPECT_EQ(bench.Wire[0], 0xFF);
    EXPECT_EQ(bench.Wire[1], 0x13);
    EXPECT_EQ(FromWire({bench.Wire.begin() + 2, bench.Wire.end()})[2], 0x27);
}

TEST(SimFault, a_refusal_names_its_reason_and_the_device_does_nothing) {
    SimBench bench = BenchWith({.What = SimFault::Kind::Refuse, .Telegram = 1, .Value = 0x67});
    bench.LogIn();
    const Bytes reply = bench.Ask(0x27, {0});
    EXPECT_EQ(reply[2], 0x69);
    EXPECT_EQ(reply[3], 0x67);
    EXPECT_EQ(bench.System.World().Locks[0].Erases, 0);
}

TEST(SimFault, a_late_reply_comes_after_its_time) {
    SimBench bench = BenchWith({.What = SimFault::Kind::Late, .Telegram = 1, .Value = 700});
    bench.LogIn();
    EXPECT_THAT(bench.Say(0x27, {0}), IsEmpty());
    bench.Pass(699);
    EXPECT_THAT(bench.Wire, IsEmpty());
    bench.Pass(1);
    EXPECT_EQ(FromWire(bench.Wire)[2], 0x27);
}

TEST(SimFault, a_doubled_reply_comes_twice) {
    SimBench bench = BenchWith({.What = SimFault::Kind::Doubled, .Telegram = 1});
    bench.LogIn();
    const auto replies = bench.Say(0x27, {0});
    ASSERT_EQ(replies.size(), 2U);
    EXPECT_EQ(replies[0], replies[1]);
    EXPECT_EQ(bench.System.World().Locks[0].Erases, 1);
}

TEST(SimFault, unplugged_the_adapter_hears_nothing_until_it_is_put_back) {
    SimBench bench = BenchWith({.What = SimFault::Kind::Unplug, .Telegram = 1});
    bench.LogIn();
    EXPECT_THAT(bench.Say(0x27, {0}), IsEmpty());
    EXPECT_EQ(bench.Unplugs, 1);
    EXPECT_TRUE(bench.System.Unplugged());
    EXPECT_THAT(bench.Say(0x05), IsEmpty());
    bench.System.Plug();
    EXPECT_EQ(bench.LogIn(), 4);
    EXPECT_EQ(bench.System.JudgementLines(), "") << "a login inside the session is the fault's doing";
}

TEST(SimFault, a_late_reply_does_not_come_out_of_an_unplugged_adapter) {
    VirtualWorld world = OneLock(S);
    world.Faults = {{.What = SimFault::Kind::Late, .Telegram = 1, .Value = 700},
                    {.What = SimFault::Kind::Unplug, .Telegram = 2}};
    SimBench bench(world);
    bench.LogIn();
    bench.Say(0x27, {0});
    bench.Say(0x05);
    bench.Pass(1000);
    EXPECT_THAT(bench.Wire, IsEmpty());
}

TEST(SimFault, the_adapters_own_telegrams_count_only_when_asked_for) {
    const Bytes probe{1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0};
    SimBench devices = BenchWith({.What = SimFault::Kind::Silent, .Telegram = 0});
    EXPECT_EQ(devices.SayRaw(0x68, probe).size(), 1U);
    EXPECT_THAT(devices.Say(0x05), IsEmpty());

    SimBench all = BenchWith({.What = SimFault::Kind::Silent, .Telegram = 0, .CountAll = true});
    EXPECT_THAT(all.SayRaw(0x68, probe), IsEmpty());
    EXPECT_EQ(all.LogIn(), 4);
}

TEST(SimFault, counting_can_start_anew) {
    SimBench bench = BenchWith({.What = SimFault::Kind::Silent, .Telegram = 1});
    bench.LogIn();
    bench.System.RestartFaultCount();
    EXPECT_EQ(bench.Say(0x27, {0}).size(), 1U);
    EXPECT_THAT(bench.Say(0x25, {0}), IsEmpty());
}

TEST(SimFaultText, every_kind_can_be_read) {
    using Kind = SimFault::Kind;
    EXPECT_EQ(FaultFromText("silent@5+"), (SimFault{.What = Kind::Silent, .Telegram = 5, .AndAllBehind = true}));
    EXPECT_EQ(FaultFromText("badsum@0"), (SimFault{.What = Kind::BadSum}));
    EXPECT_EQ(FaultFromText("half@#3"), (SimFault{.What = Kind::Half, .Telegram = 3, .CountAll = true}));
    EXPECT_EQ(FaultFromText("garbage@1=00ff"), (SimFault{.What = Kind::Garbage, .Telegram = 1, .Bytes = {0x00, 0xFF}}));
    EXPECT_EQ(FaultFromText("refuse@3"), (SimFault{.What = Kind::Refuse, .Telegram = 3, .Value = 0x64}));
    EXPECT_EQ(FaultFromText("refuse@#3+=0x67"),
              (SimFault{.What = Kind::Refuse, .Telegram = 3, .AndAllBehind = true, .CountAll = true, .Value = 0x67}));
    EXPECT_EQ(FaultFromText("late@4=500"), (SimFault{.What = Kind::Late, .Telegram = 4, .Value = 500}));
    EXPECT_EQ(FaultFromText("doubled@2"), (SimFault{.What = Kind::Doubled, .Telegram = 2}));
    EXPECT_EQ(FaultFromText("unplug@9"), (SimFault{.What = Kind::Unplug, .Telegram = 9}));
    EXPECT_EQ(FaultFromText("block@1"), (SimFault{.What = Kind::Block, .Telegram = 1}));
    EXPECT_EQ(FaultFromText("notreached@2+"),
              (SimFault{.What = Kind::NotReached, .Telegram = 2, .AndAllBehind = true}));
    EXPECT_EQ(FaultFromText("drop@3"), (SimFault{.What = Kind::Drop, .Telegram = 3}));
    EXPECT_EQ(FaultFromText("wrong@3=0x17"), (SimFault{.What = Kind::Wrong, .Telegram = 3, .Value = 0x17}));
    EXPECT_EQ(FaultFromText("instead@3"), (SimFault{.What = Kind::Instead, .Telegram = 3, .Value = 0x05}));
}

TEST(SimFaultText, anything_else_is_refused) {
    for (const char* text :
         {"", "silent", "silent@", "silent@x", "silent@-1", "silent@1=2", "loud@1", "refuse@1=256",
          "refuse@1=", "late@1=-5", "garbage@1=0", "garbage@1=xx", "silent@1++", "silent@99999999999"}) {
        EXPECT_FALSE(FaultFromText(text).has_value()) << text;
    }
}

TEST(SimFaultText, comes_back_as_it_was_written) {
    for (const char* text : {"silent@5+", "badsum@0", "half@#3", "garbage@1=00FF", "refuse@#3+=0x67", "late@4=500",
                             "drop@1", "wrong@2=0x05", "instead@2=0xE0"}) {
        const auto fault = FaultFromText(text);
        ASSERT_TRUE(fault.has_value()) << text;
        EXPECT_EQ(FaultText(*fault), text);
    }
}

} // namespace
} // namespace qvm::test
