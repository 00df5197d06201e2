#include "Feiertage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

namespace qvm {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Holiday_Days : testing::Test {
    Grid grid{21, 6};

    void Put(int row, const std::string& from, const std::string& to, const std::string& kind = "kind") {
        grid.SetText(row, 1, from);
        grid.SetText(row, 2, to);
        grid.SetText(row, 3, kind);
    }
    HolidayDays Single() const { return {grid, KalenderBlock::Einzel}; }
    HolidayDays Permanent() const { return {grid, KalenderBlock::Permanent}; }
};

TEST_F(Holiday_Days, of_a_single_holiday_are_those_from_its_first_to_its_last_and_of_its_year_alone) {
    Put(4, "30.12.2026", "02.01.2027");
    const HolidayDays days = Single();
    EXPECT_THAT(days.Rows({2026, 12, 29}), IsEmpty());
    EXPECT_THAT(days.Rows({2026, 12, 30}), ElementsAre(4));
    EXPECT_THAT(days.Rows({2027, 1, 2}), ElementsAre(4));
    EXPECT_THAT(days.Rows({2027, 1, 3}), IsEmpty());
    EXPECT_THAT(days.Rows({2027, 12, 31}), IsEmpty());
}

TEST_F(Holiday_Days, of_a_permanent_holiday_are_there_every_year_and_over_the_turn_of_the_year) {
    Put(1, "30.12. - -", "02.01. - -");
    const HolidayDays days = Permanent();
    for (const int year : {2026, 2040}) {
        EXPECT_THAT(days.Rows({year, 12, 29}), IsEmpty()) << year;
        EXPECT_THAT(days.Rows({year, 12, 30}), ElementsAre(1)) << year;
        EXPECT_THAT(days.Rows({year, 1, 2}), ElementsAre(1)) << year;
        EXPECT_THAT(days.Rows({year, 1, 3}), IsEmpty()) << year;
    }
}

TEST_F(Holiday_Days, of_29_february_are_there_in_a_leap_year) {
    Put(1, "29.02. - -", "29.02. - -");
    EXPECT_THAT(Permanent().Rows({2028, 2, 29}), ElementsAre(1));
    EXPECT_THAT(Permanent().Rows({2027, 2, 28}), IsEmpty());
    EXPECT_THAT(Permanent().Rows({2027, 3, 1}), IsEmpty());
}

TEST_F(Holiday_Days, name_all_rows_that_hold_a_day) {
    Put(2, "24.12.2026", "26.12.2026");
    Put(7, "26.12.2026", "26.12.2026");
    Put(9, "27.12.2026", "27.12.2026");
    EXPECT_THAT(Single().Rows({2026, 12, 26}), ElementsAre(2, 7));
    EXPECT_THAT(Single().Others(2), ElementsAre(7));
    EXPECT_THAT(Single().Others(7), ElementsAre(2));
    EXPECT_THAT(Single().Others(9), IsEmpty());
    EXPECT_THAT(Single().Others(1), IsEmpty());
}

TEST_F(Holiday_Days, overlap_over_the_turn_of_the_year) {
    Put(1, "20.12. - -", "05.01. - -");
    Put(2, "01.01. - -", "01.01. - -");
    Put(3, "31.12. - -", "01.01. - -");
    Put(4, "06.01. - -", "19.12. - -");
    EXPECT_THAT(Permanent().Others(1), ElementsAre(2, 3));
    EXPECT_THAT(Permanent().Others(2), ElementsAre(1, 3));
    EXPECT_THAT(Permanent().Others(4), IsEmpty());
}

TEST_F(Holiday_Days, are_none_of_a_row_that_lacks_something) {
    Put(1, "24.12.2026", "");
    Put(2, "", "24.12.2026");
    Put(3, "24.12.2026", "24.12.2026", "");
    Put(4, "", "", "");
    EXPECT_THAT(Single().Rows({2026, 12, 24}), IsEmpty());
    for (int row = 1; row <= 3; ++row) {
        EXPECT_EQ(Single().State(row), HolidayRowState::Unfinished) << row;
    }
    EXPECT_EQ(Single().State(4), HolidayRowState::Empty);
}

TEST_F(Holiday_Days, are_none_of_dates_that_do_not_exist_or_run_backwards) {
    Put(1, "29.02.2027", "01.03.2027");
    Put(2, "01.03.2027", "rubbish");
    Put(3, "02.03.2027", "01.03.2027");
    Put(4, "\xFF", "\x01");
    for (int row = 1; row <= 4; ++row) {
        EXPECT_EQ(Single().State(row), HolidayRowState::NoSpan) << row;
        EXPECT_EQ(Permanent().State(row), row == 1 || row == 3 ? HolidayRowState::Span : HolidayRowState::NoSpan)
            << row;
    }
    EXPECT_THAT(Single().Rows({2027, 3, 1}), IsEmpty());
}

TEST_F(Holiday_Days, ask_for_a_row_that_is_not_there_and_get_nothing) {
    for (const int row : {-1, 21, 1000}) {
        EXPECT_EQ(Single().State(row), HolidayRowState::Empty);
        EXPECT_THAT(Single().Others(row), IsEmpty());
    }
    EXPECT_EQ(HolidayDays().State(1), HolidayRowState::Empty);
}

} // namespace
} // namespace qvm
