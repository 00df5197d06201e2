#include "VirtualTime.h"

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

TEST(VirtualTime, a_timer_ticks_at_its_interval_until_it_stops_itself) {
    VirtualTime time;
    Platform world;
    time.Fill(world);
    std::vector<std::int64_t> ticks;
    TimerId timer = 0;
    timer = world.StartTimer(20, [&] {
        ticks.push_back(world.Milliseconds());
        if (ticks.size() == 3) {
            world.StopTimer(timer);
        }
    });
    while (time.Step()) {
    }
    EXPECT_EQ(ticks, (std::vector<std::int64_t>{20, 40, 60}));
}

TEST(VirtualTime, a_tick_missed_inside_the_tick_comes_once_behind_it) {
    VirtualTime time;
    Platform world;
    time.Fill(world);
    std::vector<std::int64_t> ticks;
    TimerId timer = 0;
    timer = world.StartTimer(10, [&] {
        ticks.push_back(world.Milliseconds());
        if (ticks.size() == 1) {
            bool waited = false;
            time.Plan(35 * VirtualTime::MicrosecondsPerMs, [&] { waited = true; });
            while (!waited) {
                time.Step();
            }
        } else if (ticks.size() == 3) {
            world.StopTimer(timer);
        }
    });
    while (time.Step()) {
    }
    EXPECT_EQ(ticks, (std::vector<std::int64_t>{10, 50, 60}));
}

} // namespace
} // namespace qvm
