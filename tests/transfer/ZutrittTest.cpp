// What a lock's times say of a moment, worked out by hand.

#include "Zutritt.h"

#include <gtest/gtest.h>

namespace qvm::test {
namespace {

constexpr TimerRow Whole{10, 0, 0, 23, 59};

TEST(Wochentag, is_that_of_the_calendar) {
    EXPECT_EQ(Wochentag({2000, 1, 1}), 6);
    EXPECT_EQ(Wochentag({2024, 2, 29}), 4);
    EXPECT_EQ(Wochentag({2026, 11, 23}), 1);
    EXPECT_EQ(Wochentag({1999, 12, 26}), 7);
}

TEST(Zeit_Haelt, its_selector_on_its_days_only) {
    // Selector 0 to 11, Monday to Sunday.
    const std::array<std::string, 12> days{"-------", "X------", "-X-----", "--X----", "---X---", "----X--",
                                           "-----X-", "------X", "XXXXX--", "-----XX", "XXXXXXX", "-------"};
    for (std::uint8_t selector = 0; selector < days.size(); ++selector) {
        std::string held;
        for (int weekday = 1; weekday <= 7; ++weekday) {
            held += Zeit_Haelt({selector, 8, 0, 9, 0}, weekday, 8 * 60 + 30) ? 'X' : '-';
        }
        EXPECT_EQ(held, days[selector]) << int{selector};
    }
}

TEST(Zeit_Haelt, its_start_and_its_end_and_nothing_beside) {
    const TimerRow row{10, 8, 15, 17, 45};
    EXPECT_FALSE(Zeit_Haelt(row, 1, 8 * 60 + 14));
    EXPECT_TRUE(Zeit_Haelt(row, 1, 8 * 60 + 15));
    EXPECT_TRUE(Zeit_Haelt(row, 1, 17 * 60 + 45));
    EXPECT_FALSE(Zeit_Haelt(row, 1, 17 * 60 + 46));
    EXPECT_TRUE(Zeit_Haelt(Whole, 7, 0));
    EXPECT_TRUE(Zeit_Haelt(Whole, 7, 23 * 60 + 59));
    EXPECT_TRUE(Zeit_Haelt({10, 8, 0, 8, 0}, 1, 8 * 60));
}

TEST(Benutzer_Zeiten, of_a_lock_that_is_sent_no_times_know_no_limit) {
    Dataset dataset;
    dataset.Values.TimerMode = Timer_ERROR;
    ProgSlot user;
    user.TimerName = "PB_2008TimA";
    user.TimerBits = {0xF8, 0, 0};
    EXPECT_FALSE(Benutzer_Zeiten(dataset, user).Limited);
}

TEST(Benutzer_Zeiten, of_a_group_are_the_rows_that_its_mask_marks_with_an_empty_table_too) {
    Dataset dataset;
    ProgSlot user;
    user.TimerBits = {0x81, 0x40, 0}; // slots 1, 8 and 10
    dataset.TimerTableA[9] = Whole;
    const UserTimes times = Benutzer_Zeiten(dataset, user);
    EXPECT_TRUE(times.Limited);
    ASSERT_EQ(times.Slots.size(), 3U);
    EXPECT_EQ(times.Slots[0].Number, 1);
    EXPECT_EQ(times.Slots[0].Row, TimerRow{});
    EXPECT_EQ(times.Slots[1].Number, 8);
    EXPECT_EQ(times.Slots[2].Number, 10);
    EXPECT_EQ(times.Slots[2].Row, Whole);
}

TEST(Benutzer_Zeiten, of_timer_B_begin_with_the_fifth_slot_and_hold_no_fingerprint) {
    Dataset dataset;
    dataset.Values.TimerMode = Timer_A_B;
    dataset.TimerTableB[0] = Whole;
    ProgSlot user;
    user.TimerName = "PB_2008TimB";
    const UserTimes times = Benutzer_Zeiten(dataset, user);
    ASSERT_EQ(times.Slots.size(), 5U);
    EXPECT_EQ(times.Slots[0].Number, 5);
    EXPECT_EQ(times.Slots[0].Row, Whole);
    user.Kind = SlotKind::Finger;
    EXPECT_FALSE(Benutzer_Zeiten(dataset, user).Limited);
}

TEST(Feiertag_Am, ends_a_single_holiday_before_the_day_that_is_sent_as_its_end) {
    Dataset dataset;
    dataset.HolidayTableA[0] = {28, 2, 28, 1, 3, 28}; // 28 and 29 February 2028
    EXPECT_FALSE(Feiertag_Am(dataset, {2028, 2, 27}));
    EXPECT_TRUE(Feiertag_Am(dataset, {2028, 2, 28}));
    EXPECT_TRUE(Feiertag_Am(dataset, {2028, 2, 29}));
    EXPECT_FALSE(Feiertag_Am(dataset, {2028, 3, 1}));
    EXPECT_FALSE(Feiertag_Am(dataset, {2027, 2, 28}));
    dataset.HolidayTableA[0] = {31, 12, 27, 2, 1, 28};
    EXPECT_TRUE(Feiertag_Am(dataset, {2028, 1, 1}));
    EXPECT_FALSE(Feiertag_Am(dataset, {2028, 1, 2}));
}

TEST(Feiertag_Am, holds_a_permanent_holiday_each_year_over_its_turn_with_its_end) {
    Dataset dataset;
    dataset.HolidayTableB[3] = {24, 12, 99, 2, 1, 99};
    for (const int year : {2024, 2031, 2099}) {
        EXPECT_FALSE(Feiertag_Am(dataset, {year, 12, 23}));
        EXPECT_TRUE(Feiertag_Am(dataset, {year, 12, 24}));
        EXPECT_TRUE(Feiertag_Am(dataset, {year, 1, 2}));
        EXPECT_FALSE(Feiertag_Am(dataset, {year, 1, 3}));
    }
    dataset.HolidayTableB[3] = {29, 2, 99, 29, 2, 99};
    EXPECT_TRUE(Feiertag_Am(dataset, {2028, 2, 29}).value().Permanent);
    EXPECT_FALSE(Feiertag_Am(dataset, {2027, 2, 28}));
}

} // namespace
} // namespace qvm::test
