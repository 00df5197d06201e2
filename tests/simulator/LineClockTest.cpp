#include "LineClock.h"

#include "SimBench.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Nanoseconds Second = 1000000000;

TEST(LineClock, a_byte_takes_a_1920th_of_a_second) {
    LineClock line(true);
    line.Push(Bytes{7}, 1000);
    EXPECT_EQ(line.NextDue(), 1000 + 520833);
    EXPECT_THAT(line.PopAll(1000 + 520832), IsEmpty());
    EXPECT_THAT(line.PopAll(1000 + 520833), ElementsAre(7));
}

TEST(LineClock, a_second_carries_1920_bytes_without_drift) {
    LineClock line(true);
    for (int n = 0; n < 1920 * 3; ++n) {
        line.Push(Bytes{1}, 0); // each behind the other
    }
    EXPECT_EQ(line.PopAll(Second - 1).size(), 1919U);
    EXPECT_EQ(line.PopAll(Second).size(), 1U);
    EXPECT_EQ(line.PopAll(3 * Second).size(), 3840U);
    EXPECT_TRUE(line.Idle());
}

TEST(LineClock, an_idle_line_starts_anew_with_the_next_byte) {
    LineClock line(true);
    line.Push(Bytes{1}, 0);
    line.PopAll(Second);
    line.Push(Bytes{2}, 5 * Second);
    EXPECT_EQ(line.NextDue(), 5 * Second + 520833);
}

TEST(LineClock, unpaced_bytes_are_through_at_once) {
    LineClock line(false);
    line.Push(Bytes{1, 2, 3}, 50);
    EXPECT_THAT(line.PopAll(50), ElementsAre(1, 2, 3));
}

} // namespace
} // namespace qvm::test
