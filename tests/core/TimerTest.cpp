#include "Timer.h"

#include "VirtualPlatform.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace qvm {
namespace {

struct Uhr : testing::Test {
    test::VirtualPlatform welt;
    std::vector<std::int64_t> ticks;

    void Mitschreiben(Timer& timer) {
        timer.Ticked = [this] { ticks.push_back(welt.Elapsed()); };
    }
};

using Zeiten = std::vector<std::int64_t>;

TEST_F(Uhr, does_nothing_until_started) {
    Timer timer(welt.World, 100);
    Mitschreiben(timer);
    welt.RunFor(1000);
    EXPECT_FALSE(timer.Running());
    EXPECT_TRUE(ticks.empty());
}

TEST_F(Uhr, fires_at_every_interval_until_stopped) {
    Timer timer(welt.World, 100);
    Mitschreiben(timer);
    timer.Start();
    welt.RunFor(350);
    EXPECT_TRUE(timer.Running());
    timer.Stop();
    welt.RunFor(1000);
    EXPECT_FALSE(timer.Running());
    EXPECT_EQ(ticks, (Zeiten{100, 200, 300}));
}

TEST_F(Uhr, starting_anew_begins_a_whole_interval) {
    Timer timer(welt.World, 100);
    Mitschreiben(timer);
    timer.Start();
    welt.RunFor(60);
    timer.Start();
    welt.RunFor(110);
    EXPECT_EQ(ticks, (Zeiten{160}));
}

TEST_F(Uhr, a_new_interval_takes_effect_at_once_and_stays) {
    Timer timer(welt.World, 100);
    Mitschreiben(timer);
    timer.Start();
    welt.RunFor(50);
    timer.SetInterval(30);
    welt.RunFor(70);
    EXPECT_EQ(timer.Interval(), 30);
    EXPECT_EQ(ticks, (Zeiten{80, 110}));
}

TEST_F(Uhr, a_new_interval_does_not_start_a_stopped_timer) {
    Timer timer(welt.World, 100);
    Mitschreiben(timer);
    timer.SetInterval(10);
    welt.RunFor(100);
    EXPECT_FALSE(timer.Running());
    timer.Start(40);
    welt.RunFor(50);
    EXPECT_EQ(ticks, (Zeiten{140}));
}

TEST_F(Uhr, can_be_stopped_in_its_own_handler) {
    Timer timer(welt.World, 100);
    timer.Ticked = [&] {
        ticks.push_back(welt.Elapsed());
        timer.Stop();
    };
    timer.Start();
    welt.RunFor(1000);
    EXPECT_EQ(ticks, (Zeiten{100}));
}

TEST_F(Uhr, can_be_started_anew_in_its_own_handler) {
    Timer timer(welt.World, 100);
    timer.Ticked = [&] {
        ticks.push_back(welt.Elapsed());
        timer.Start(250);
    };
    timer.Start();
    welt.RunFor(700);
    EXPECT_EQ(ticks, (Zeiten{100, 350, 600}));
}

TEST_F(Uhr, does_not_fire_inside_its_own_handler) {
    Timer timer(welt.World, 100);
    int depth = 0;
    int deepest = 0;
    timer.Ticked = [&] {
        ticks.push_back(welt.Elapsed());
        deepest = std::max(deepest, ++depth);
        if (ticks.size() == 1) {
            welt.RunFor(250);
        }
        --depth;
    };
    timer.Start();
    welt.RunFor(600);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(ticks, (Zeiten{100, 400, 500, 600}));
}

TEST_F(Uhr, fires_inside_its_own_handler_when_that_handler_started_it_anew) {
    Timer timer(welt.World, 100);
    int depth = 0;
    int deepest = 0;
    timer.Ticked = [&] {
        ticks.push_back(welt.Elapsed());
        deepest = std::max(deepest, ++depth);
        if (ticks.size() == 1) {
            timer.Start();
            welt.RunFor(250);
        }
        --depth;
    };
    timer.Start();
    welt.RunFor(200);
    EXPECT_EQ(deepest, 2);
    EXPECT_EQ(ticks, (Zeiten{100, 200, 300}));
}

TEST_F(Uhr, its_handler_may_be_exchanged_while_it_runs) {
    Timer timer(welt.World, 100);
    const auto token = std::make_shared<int>(7);
    timer.Ticked = [this, &timer, token] {
        timer.Ticked = [this] { ticks.push_back(-1); };
        ticks.push_back(*token);
    };
    timer.Start();
    welt.RunFor(200);
    EXPECT_EQ(ticks, (Zeiten{7, -1}));
}

TEST_F(Uhr, an_end_of_the_timer_ends_its_ticks_even_from_its_own_handler) {
    auto timer = std::make_unique<Timer>(welt.World, 100);
    timer->Ticked = [&] {
        ticks.push_back(welt.Elapsed());
        timer.reset();
    };
    timer->Start();
    welt.RunFor(1000);
    EXPECT_EQ(ticks, (Zeiten{100}));
}

TEST_F(Uhr, without_a_handler_nothing_happens) {
    Timer timer(welt.World, 100);
    timer.Start();
    welt.RunFor(300);
    EXPECT_TRUE(timer.Running());
}

} // namespace
} // namespace qvm
