#include "VirtualTime.h"

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace qvm {
namespace {

TEST(VirtualTime, events_come_by_their_microsecond_and_those_of_one_as_planned) {
    VirtualTime time;
    std::vector<int> came;
    time.Plan(1001, [&] { came.push_back(3); });
    time.Plan(1000, [&] { came.push_back(1); });
    time.Plan(1000, [&] { came.push_back(2); });
    while (time.Step()) {
    }
    EXPECT_EQ(came, (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(time.Microseconds(), 1001);
    EXPECT_EQ(time.Milliseconds(), 1);
}

TEST(VirtualTime, a_step_does_not_go_beyond_its_limit) {
    VirtualTime time;
    int came = 0;
    time.Plan(500, [&] { ++came; });
    EXPECT_FALSE(time.Step(499));
    EXPECT_EQ(time.Microseconds(), 0);
    EXPECT_TRUE(time.Step(500));
    EXPECT_EQ(came, 1);
}

TEST(VirtualTime, never_goes_back) {
    VirtualTime time;
    bool came = false;
    time.Plan(500, [&] { came = true; });
    time.SkipTo(800);
    time.SkipTo(700);
    EXPECT_TRUE(time.Step());
    EXPECT_TRUE(came);
    EXPECT_EQ(time.Microseconds(), 800);
}

/// Timers of a platform whose time is virtual, and when the one under test ticked.
struct VirtualTime_Timers : testing::Test {
    VirtualTime time;
    Platform world;
    std::vector<std::int64_t> ticks;

    VirtualTime_Timers() { time.Fill(world); }

    /// Runs a timer that stops itself in its third tick; `inFirst` is done in its first one.
    void TickThrice(int interval, const std::function<void()>& inFirst) {
        TimerId timer = 0;
        timer = world.StartTimer(interval, [&] {
            ticks.push_back(world.Milliseconds());
            if (ticks.size() == 1) {
                inFirst();
            } else if (ticks.size() == 3) {
                world.StopTimer(timer);
            }
        });
        while (time.Step()) {
        }
    }
};

TEST_F(VirtualTime_Timers, tick_at_their_interval_until_they_stop_themselves) {
    TickThrice(20, [] {});
    EXPECT_EQ(ticks, (std::vector<std::int64_t>{20, 40, 60}));
}

TEST_F(VirtualTime_Timers, make_up_once_for_the_ticks_missed_inside_a_tick) {
    TickThrice(10, [this] {
        bool waited = false;
        time.Plan(35 * VirtualTime::MicrosecondsPerMs, [&] { waited = true; });
        while (!waited) {
            time.Step();
        }
    });
    EXPECT_EQ(ticks, (std::vector<std::int64_t>{10, 50, 60}));
}

} // namespace
} // namespace qvm
