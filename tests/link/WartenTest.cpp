#include "LinkFixture.h"

namespace qvm {
namespace {

using Warte_Ticks_Test = test::LinkFixture;
using Warte_Antwort_Test = test::LinkFixture;

TEST_F(Warte_Ticks_Test, goes_on_until_the_sum_exceeds_the_limit) {
    Warte_Ticks(link, 1000, 5000);
    EXPECT_EQ(platform.Elapsed(), 6000);
}

TEST_F(Warte_Ticks_Test, of_1800_takes_1900) {
    Warte_Ticks(link, 100, 1800);
    EXPECT_EQ(platform.Elapsed(), 1900);
}

TEST_F(Warte_Ticks_Test, of_400_takes_500) {
    Warte_Ticks(link, 100, 400);
    EXPECT_EQ(platform.Elapsed(), 500);
}

TEST_F(Warte_Ticks_Test, of_less_than_a_tick_takes_one_tick) {
    Warte_Ticks(link, 100, 80);
    EXPECT_EQ(platform.Elapsed(), 100);
    Warte_Ticks(link, 100, 12);
    EXPECT_EQ(platform.Elapsed(), 200);
}

TEST_F(Warte_Ticks_Test, begins_at_0_each_time_and_stops_its_timer) {
    Warte_Ticks(link, 100, 400);
    EXPECT_FALSE(link.Timer10.Running());
    Warte_Ticks(link, 100, 400);
    EXPECT_EQ(platform.Elapsed(), 1000);
}

TEST_F(Warte_Ticks_Test, lets_events_happen) {
    std::int64_t happened = 0;
    platform.At(250, [&] { happened = platform.Elapsed(); });
    Warte_Ticks(link, 100, 400);
    EXPECT_EQ(happened, 250);
}

TEST_F(Warte_Ticks_Test, inside_another_wait_ends_both_and_counts_for_both) {
    std::int64_t innerEnd = 0;
    platform.At(350, [&] {
        Warte_Ticks(link, 100, 400);
        innerEnd = platform.Elapsed();
    });
    Warte_Ticks(link, 100, 1800);
    EXPECT_EQ(innerEnd, 850);
    // 300 before, 500 inside, and eleven ticks more until the sum exceeds 1800.
    EXPECT_EQ(platform.Elapsed(), 850 + 1100);
}

TEST_F(Warte_Ticks_Test, holds_a_limit_that_the_tick_sum_cannot_exceed) {
    Warte_Ticks(link, 1000, 100000);
    EXPECT_EQ(platform.Elapsed(), 30000);
}

TEST_F(Warte_Ticks_Test, takes_an_interval_of_0_for_1) {
    Warte_Ticks(link, 0, 10);
    EXPECT_EQ(platform.Elapsed(), 11);
}

TEST_F(Warte_Antwort_Test, without_a_reply_goes_on_until_the_time_is_exceeded) {
    Warte_Antwort(link, 0.8);
    EXPECT_EQ(platform.Elapsed(), 801);
}

TEST_F(Warte_Antwort_Test, ends_with_the_reply) {
    // Code 6C sets ReplySeen.
    platform.Deliver(test::Hex("02 03 6C 55 AA 4A"), 300);
    Warte_Antwort(link, 4);
    EXPECT_EQ(link.ReplySeen, 1);
    EXPECT_EQ(platform.Elapsed(), 300);
}

TEST_F(Warte_Antwort_Test, does_not_begin_when_the_reply_is_there) {
    link.ReplySeen = 1;
    Warte_Antwort(link, 4);
    EXPECT_EQ(platform.Elapsed(), 0);
}

TEST_F(Warte_Antwort_Test, goes_on_when_other_events_happen) {
    int events = 0;
    platform.At(100, [&] { ++events; });
    platform.At(200, [&] { ++events; });
    Warte_Antwort(link, 1.4);
    EXPECT_EQ(events, 2);
    EXPECT_EQ(platform.Elapsed(), 1401);
}

TEST(Warte_Antwort_Mitternacht, makes_no_difference) {
    test::VirtualPlatform platform({.Year = 2026, .Month = 12, .Day = 31, .Hour = 23, .Minute = 59, .Second = 59});
    Kern kern(platform.World);
    Link link(kern);
    Warte_Antwort(link, 4);
    EXPECT_EQ(platform.Elapsed(), 4001);
    EXPECT_EQ(platform.World.Now().Year, 2027);
}

} // namespace
} // namespace qvm
