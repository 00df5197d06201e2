#include "OtherProgram.h"
#include "RealWorld.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QObject>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace qvm {
namespace {

class Timers : public test::RealWorld {};
class ProcessEvents : public test::RealWorld {};
class Now : public test::RealWorld {};
class Milliseconds : public test::RealWorld {};

TEST_F(Timers, a_timer_ticks_until_it_is_stopped) {
    int ticks = 0;
    const TimerId timer = World().StartTimer(1, [&] { ++ticks; });
    EXPECT_TRUE(RunUntil([&] { return ticks >= 3; }));
    World().StopTimer(timer);
    const int stoppedAt = ticks;
    TurnsIn(30);
    EXPECT_EQ(ticks, stoppedAt);
}

TEST_F(Timers, a_timer_does_not_tick_before_its_interval_is_over) {
    const std::int64_t start = World().Milliseconds();
    std::int64_t ticked = -1;
    const TimerId timer = World().StartTimer(40, [&] { ticked = World().Milliseconds(); });
    ASSERT_TRUE(RunUntil([&] { return ticked >= 0; }));
    World().StopTimer(timer);
    EXPECT_GE(ticked - start, 39);
}

TEST_F(Timers, a_tick_never_comes_while_that_tick_is_on_the_stack) {
    int depth = 0;
    int deepest = 0;
    int others = 0;
    int ticks = 0;
    const TimerId other = World().StartTimer(1, [&] { ++others; });
    const TimerId timer = World().StartTimer(1, [&] {
        deepest = std::max(deepest, ++depth);
        ++ticks;
        const int until = others + 5;
        while (others < until) {
            World().ProcessEvents();
        }
        --depth;
    });
    EXPECT_TRUE(RunUntil([&] { return ticks >= 3; }));
    World().StopTimer(timer);
    World().StopTimer(other);
    EXPECT_EQ(deepest, 1);
}

TEST_F(Timers, a_timer_started_anew_in_its_own_tick_ticks_inside_of_it) {
    int inner = 0;
    bool reached = false;
    TimerId timer = 0;
    timer = World().StartTimer(1, [&] {
        World().StopTimer(timer);
        timer = World().StartTimer(1, [&] { ++inner; });
        while (inner < 2) {
            World().ProcessEvents();
        }
        reached = true;
    });
    EXPECT_TRUE(RunUntil([&] { return reached; }));
    World().StopTimer(timer);
    EXPECT_GE(inner, 2);
}

TEST_F(Timers, a_timer_stopped_in_its_own_tick_ticks_once_and_the_tick_runs_to_its_end) {
    int ticks = 0;
    std::string held = "a text that the tick holds, too long to stand in the object itself";
    std::string seen;
    TimerId timer = 0;
    timer = World().StartTimer(1, [&, held] {
        World().StopTimer(timer);
        ++ticks;
        seen = held;
    });
    EXPECT_TRUE(RunUntil([&] { return ticks > 0; }));
    TurnsIn(30);
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(seen, held);
}

TEST_F(Timers, a_timer_stopped_by_another_one_that_is_due_with_it_does_not_tick) {
    int ticks = 0;
    TimerId first = 0;
    TimerId second = 0;
    const auto stopBoth = [&] {
        ++ticks;
        World().StopTimer(first);
        World().StopTimer(second);
    };
    first = World().StartTimer(5, stopBoth);
    second = World().StartTimer(5, stopBoth);
    const std::int64_t late = World().Milliseconds() + 20;
    while (World().Milliseconds() < late) { // both are overdue at the first look
    }
    TurnsIn(30);
    EXPECT_EQ(ticks, 1);
}

TEST_F(Timers, stopping_a_timer_that_does_not_run_does_nothing) {
    int ticks = 0;
    const TimerId timer = World().StartTimer(1, [&] { ++ticks; });
    World().StopTimer(timer + 1000);
    World().StopTimer(0);
    EXPECT_TRUE(RunUntil([&] { return ticks > 0; }));
    World().StopTimer(timer);
    World().StopTimer(timer);
}

TEST_F(Timers, a_number_is_never_given_twice) {
    const TimerId first = World().StartTimer(1000, [] {});
    World().StopTimer(first);
    const TimerId second = World().StartTimer(1000, [] {});
    World().StopTimer(first);
    World().StopTimer(second);
    EXPECT_NE(first, second);
}

TEST_F(ProcessEvents, a_wait_sleeps_until_something_happens) {
    EXPECT_LE(TurnsIn(200), 20);
}

TEST_F(ProcessEvents, a_call_posted_from_inside_the_program_ends_the_wait) {
    QObject receiver;
    int calls = 0;
    for (int n = 0; n < 100; ++n) {
        const int before = calls;
        QMetaObject::invokeMethod(
            &receiver, [&] { ++calls; }, Qt::QueuedConnection);
        while (calls == before) {
            World().ProcessEvents(); // would stand for ever if the call were handled and the wait went on
        }
    }
    EXPECT_EQ(calls, 100);
}

TEST_F(ProcessEvents, everything_works_without_the_event_loop_of_the_desktop_library_too) {
    if (std::getenv("QT_NO_GLIB") != nullptr) {
        return; // this is that run
    }
    ASSERT_EQ(::setenv("QT_NO_GLIB", "1", 1), 0);
    test::OtherProgram program({"--gtest_filter=Timers.*:ProcessEvents.*:Port.*:Open.*", "--gtest_brief=1"});
    ::unsetenv("QT_NO_GLIB");
    std::string output;
    for (std::string line = program.Line(); !line.empty(); line = program.Line()) {
        output += line + "\n";
    }
    EXPECT_EQ(program.ExitCode(), 0) << output;
}

TEST_F(Now, gives_the_local_time_of_the_system) {
    // Once more when the second changed in between.
    for (int attempt = 0; attempt < 100; ++attempt) {
        const std::time_t before = std::time(nullptr);
        const DateTime now = World().Now();
        if (std::time(nullptr) != before) {
            continue;
        }
        std::tm expected{};
        ::localtime_r(&before, &expected);
        EXPECT_EQ(now.Year, expected.tm_year + 1900);
        EXPECT_EQ(now.Month, expected.tm_mon + 1);
        EXPECT_EQ(now.Day, expected.tm_mday);
        EXPECT_EQ(now.Hour, expected.tm_hour);
        EXPECT_EQ(now.Minute, expected.tm_min);
        EXPECT_EQ(now.Second, expected.tm_sec);
        EXPECT_GE(now.Millisecond, 0);
        EXPECT_LE(now.Millisecond, 999);
        return;
    }
    FAIL() << "the second changed each time";
}

TEST_F(Now, follows_the_time_zone) {
    const char* const zone = std::getenv("TZ");
    const std::string before = zone != nullptr ? zone : "";
    const auto hourIn = [&](const char* name) {
        ::setenv("TZ", name, 1);
        ::tzset();
        return World().Now().Hour;
    };
    const int ahead = hourIn("AHEAD-5");
    const int behind = hourIn("BEHIND5");
    zone != nullptr ? ::setenv("TZ", before.c_str(), 1) : ::unsetenv("TZ");
    ::tzset();
    const int difference = (ahead - behind + 24) % 24;
    EXPECT_TRUE(difference == 10 || difference == 9) << difference; // 9: the hour ended between the two
}

TEST_F(Milliseconds, go_forward_only_and_as_far_as_a_timer_waits) {
    const std::int64_t start = World().Milliseconds();
    TurnsIn(30);
    EXPECT_GE(World().Milliseconds() - start, 29);
}

} // namespace
} // namespace qvm
