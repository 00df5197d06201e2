#include "Zeit.h"

#include <chrono>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>
#include <rapidcheck.h>

namespace qvm {

void PrintTo(const Datum& datum, std::ostream* out) {
    *out << Datum_Text(datum);
}

namespace {

/// The standard library's calendar, as a second opinion.
std::chrono::sys_days Tage(const Datum& datum) {
    using namespace std::chrono;
    return year(datum.Year) / month(static_cast<unsigned>(datum.Month)) / day(static_cast<unsigned>(datum.Day));
}

Datum Beliebiges_Datum() {
    const std::chrono::sys_days first = std::chrono::year(100) / 1 / 1;
    const std::chrono::sys_days last = std::chrono::year(9999) / 12 / 31;
    const auto days = static_cast<int>((last - first).count());
    const std::chrono::year_month_day day(first + std::chrono::days(*rc::gen::inRange(0, days + 1)));
    return {static_cast<int>(day.year()), static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day()))};
}

TEST(Datum_Gueltig, knows_the_lengths_of_the_months_and_the_leap_years) {
    EXPECT_TRUE(Datum_Gueltig({2024, 2, 29}));
    EXPECT_FALSE(Datum_Gueltig({2023, 2, 29}));
    EXPECT_TRUE(Datum_Gueltig({2000, 2, 29}));
    EXPECT_FALSE(Datum_Gueltig({1900, 2, 29}));
    EXPECT_TRUE(Datum_Gueltig({2026, 12, 31}));
    EXPECT_FALSE(Datum_Gueltig({2026, 4, 31}));
}

TEST(Datum_Gueltig, refuses_what_lies_outside_its_ranges) {
    EXPECT_FALSE(Datum_Gueltig({2026, 0, 1}));
    EXPECT_FALSE(Datum_Gueltig({2026, 13, 1}));
    EXPECT_FALSE(Datum_Gueltig({2026, 1, 0}));
    EXPECT_FALSE(Datum_Gueltig({2026, 1, -1}));
    EXPECT_FALSE(Datum_Gueltig({99, 1, 1}));
    EXPECT_FALSE(Datum_Gueltig({10000, 1, 1}));
    EXPECT_TRUE(Datum_Gueltig({100, 1, 1}));
    EXPECT_TRUE(Datum_Gueltig({9999, 12, 31}));
}

TEST(Datum_Text, has_leading_zeros) {
    EXPECT_EQ(Datum_Text({2026, 3, 5}), "05.03.2026");
    EXPECT_EQ(Datum_Text({100, 1, 1}), "01.01.0100");
}

TEST(Datum_Lesen, reads_its_own_shape_only) {
    EXPECT_EQ(Datum_Lesen("05.03.2026"), (Datum{2026, 3, 5}));
    for (const char* text : {"", "5.3.2026", "05.03.26", "05-03-2026", "05.03.2026 ", " 05.03.2026", "05.03. - -",
                             "aa.bb.cccc", "0+.03.2026", "05.03.20 6"}) {
        EXPECT_EQ(Datum_Lesen(text), std::nullopt) << text;
    }
}

TEST(Datum_Lesen, a_date_that_does_not_exist_is_nothing) {
    EXPECT_EQ(Datum_Lesen("31.04.2026"), std::nullopt);
    EXPECT_EQ(Datum_Lesen("00.00.0000"), std::nullopt);
    EXPECT_EQ(Datum_Lesen("29.02.2023"), std::nullopt);
}

TEST(Datum_Lesen, reads_what_datum_text_writes) {
    EXPECT_TRUE(rc::check([] {
        const Datum datum = Beliebiges_Datum();
        RC_ASSERT(Datum_Lesen(Datum_Text(datum)) == datum);
    }));
}

TEST(Uhrzeit_Lesen, gives_the_minutes_since_midnight) {
    EXPECT_EQ(Uhrzeit_Lesen("00:00"), 0);
    EXPECT_EQ(Uhrzeit_Lesen("07:05"), 425);
    EXPECT_EQ(Uhrzeit_Lesen("7:5"), 425);
    EXPECT_EQ(Uhrzeit_Lesen("23:59"), 1439);
}

TEST(Uhrzeit_Lesen, a_text_that_is_no_time_of_day_is_nothing) {
    for (const char* text : {"", ":", "12", "12:", ":30", "24:00", "12:60", "007:30", "12:300", "-1:30", "12:3x",
                             " 7:30", "07:30 ", "07:30:00"}) {
        EXPECT_EQ(Uhrzeit_Lesen(text), std::nullopt) << text;
    }
}

TEST(Datum_Plus, crosses_months_and_years) {
    EXPECT_EQ(Datum_Plus({2026, 3, 5}, -20), (Datum{2026, 2, 13}));
    EXPECT_EQ(Datum_Plus({2024, 2, 28}, 1), (Datum{2024, 2, 29}));
    EXPECT_EQ(Datum_Plus({2025, 12, 31}, 1), (Datum{2026, 1, 1}));
    EXPECT_EQ(Datum_Plus({2026, 1, 1}, -1), (Datum{2025, 12, 31}));
    EXPECT_EQ(Datum_Plus({2026, 7, 9}, 0), (Datum{2026, 7, 9}));
}

TEST(Datum_Plus, holds_at_the_ends_of_the_calendar) {
    EXPECT_EQ(Datum_Plus({2026, 1, 1}, std::numeric_limits<int>::max()), (Datum{9999, 12, 31}));
    EXPECT_EQ(Datum_Plus({2026, 1, 1}, std::numeric_limits<int>::min()), (Datum{100, 1, 1}));
}

TEST(Datum_Plus, leaves_a_date_that_does_not_exist_alone) {
    EXPECT_EQ(Datum_Plus({2026, 13, 40}, 1), (Datum{2026, 13, 40}));
}

TEST(Datum_Plus, agrees_with_the_calendar_of_the_standard_library) {
    EXPECT_TRUE(rc::check([] {
        const Datum from = Beliebiges_Datum();
        const Datum to = Beliebiges_Datum();
        const auto days = static_cast<int>((Tage(to) - Tage(from)).count());
        RC_ASSERT(Datum_Plus(from, days) == to);
    }));
}

TEST(Tage_Seit_2000, counts_whole_days) {
    EXPECT_EQ(Tage_Seit_2000({.Year = 2000, .Month = 1, .Day = 1, .Hour = 23, .Minute = 59}), 0);
    EXPECT_EQ(Tage_Seit_2000({.Year = 2001, .Month = 1, .Day = 1}), 366);
    EXPECT_EQ(Tage_Seit_2000({.Year = 1999, .Month = 12, .Day = 31}), -1);
    EXPECT_EQ(Tage_Seit_2000({.Year = 2026, .Month = 3, .Day = 5}), 9560); // 26 * 365 + 7 leap days + 31 + 28 + 4
}

TEST(Sekunden_Seit_2000, counts_whole_seconds) {
    EXPECT_EQ(Sekunden_Seit_2000({.Year = 2000, .Month = 1, .Day = 1, .Millisecond = 999}), 0);
    EXPECT_EQ(Sekunden_Seit_2000({.Year = 2000, .Month = 1, .Day = 2, .Hour = 1, .Minute = 2, .Second = 3}), 90123);
    // Beyond 32 bits with sign.
    EXPECT_EQ(Sekunden_Seit_2000({.Year = 2100, .Month = 1, .Day = 1}), std::int64_t{36525} * 86400);
}

TEST(Tage_Seit_2000, agrees_with_the_calendar_of_the_standard_library) {
    EXPECT_TRUE(rc::check([] {
        const Datum day = Beliebiges_Datum();
        const auto days = (Tage(day) - Tage({2000, 1, 1})).count();
        RC_ASSERT(Tage_Seit_2000({.Year = day.Year, .Month = day.Month, .Day = day.Day}) == days);
    }));
}

TEST(Heute, is_the_day_of_the_moment) {
    EXPECT_EQ(Heute({.Year = 2026, .Month = 3, .Day = 5, .Hour = 10}), (Datum{2026, 3, 5}));
}

TEST(Halbieren_Gerade, sends_a_tie_to_the_even_neighbour) {
    EXPECT_EQ(Halbieren_Gerade(0), 0);
    EXPECT_EQ(Halbieren_Gerade(1), 0);
    EXPECT_EQ(Halbieren_Gerade(2), 1);
    EXPECT_EQ(Halbieren_Gerade(3), 2);
    EXPECT_EQ(Halbieren_Gerade(5), 2);
    EXPECT_EQ(Halbieren_Gerade(7), 4);
    EXPECT_EQ(Halbieren_Gerade(225), 112);
}

TEST(Halbieren_Gerade, holds_below_zero_too) {
    EXPECT_EQ(Halbieren_Gerade(-1), 0);
    EXPECT_EQ(Halbieren_Gerade(-3), -2);
    EXPECT_EQ(Halbieren_Gerade(-5), -2);
}

} // namespace
} // namespace qvm
