#include "Wochenbild.h"

#include "TimeFixture.h"
#include "Wochentage.h"
#include "Words.h"
#include "Zeitfenster.h"

#include <random>

namespace qvm {
namespace {

/// Thursday, 05.03.2026, 10:30.
struct Week_Picture : test::TimeFixture {
    Grid slots{11, SlotColumn::Count};

    Week_Picture() { Zeitfenster_Normalisieren(kern, slots); }
    void Slot(int row, int day, const char* from, const char* to) {
        slots.SetText(row, SlotColumn::Day, Wochentag_Text(kern, day));
        slots.SetText(row, SlotColumn::From, from);
        slots.SetText(row, SlotColumn::To, to);
    }
    WeekChart Bild(std::string_view map) const { return Wochenbild(kern, Wochenzeiten(kern, slots, map)); }
};

TEST_F(Week_Picture, has_a_bar_for_each_day_of_a_marked_slot_and_marks_now) {
    Slot(2, 8, "08:00", "17:30");
    Slot(4, 6, "09:05", "12:00");
    Slot(5, 7, "00:00", "23:59");
    const WeekChart chart = Bild("-X-X------");
    for (std::size_t day = 0; day < 5; ++day) {
        EXPECT_EQ(chart.Days[day].Bars, (std::vector<WeekBar>{{480, 1050, "08:00 - 17:30"}})) << day;
    }
    EXPECT_EQ(chart.Days[5].Bars, (std::vector<WeekBar>{{545, 720, "09:05 - 12:00"}}));
    EXPECT_TRUE(chart.Days[6].Bars.empty());
    EXPECT_EQ(chart.Days[0].Name, "Montag");
    EXPECT_EQ(chart.Today, 3);
    EXPECT_EQ(chart.Minute, 630);
    EXPECT_EQ(chart.Summary,
              "Montag - Freitag 08:00 - 17:30; Samstag 09:05 - 12:00. Jetzt, Donnerstag 10:30: innerhalb.");
}

TEST_F(Week_Picture, has_no_bar_for_a_slot_that_is_off_or_ends_before_it_starts) {
    Slot(2, 4, "17:00", "08:00");
    const WeekChart chart = Bild("XX");
    for (const WeekChart::Day& day : chart.Days) {
        EXPECT_TRUE(day.Bars.empty());
    }
    EXPECT_EQ(chart.Summary, "In der ganzen Woche gilt keine Zeit.");
}

TEST_F(Week_Picture, says_that_now_is_outside_one_minute_behind_the_end) {
    Slot(1, 4, "08:00", "10:29");
    EXPECT_EQ(Bild("X").Summary, "Donnerstag 08:00 - 10:29. Jetzt, Donnerstag 10:30: "
                                 "au\xDF"
                                 "erhalb.");
    Slot(1, 4, "08:00", "10:30");
    EXPECT_EQ(Bild("X").Summary, "Donnerstag 08:00 - 10:30. Jetzt, Donnerstag 10:30: innerhalb.");
}

TEST_F(Week_Picture, takes_texts_that_are_no_times_as_a_lock_is_sent_them) {
    Slot(1, 4, "ab:cd", "99");
    EXPECT_EQ(Bild("X").Days[3].Bars, (std::vector<WeekBar>{{0, 0, "00:00 - 00:00"}}));
    slots.SetText(1, SlotColumn::Day, "no day");
    EXPECT_TRUE(Bild("X").Days[3].Bars.empty());
}

TEST_F(Week_Picture, leaves_marks_behind_the_last_slot_out) {
    Slot(10, 1, "01:00", "02:00");
    EXPECT_EQ(Bild(std::string(40, 'X')).Days[0].Bars.size(), 1U);
    EXPECT_EQ(Bild("---------").Days[0].Bars.size(), 0U);
}

/// Which days a selector means, written down once more.
TEST_F(Week_Picture, covers_exactly_the_minutes_that_one_of_its_slots_holds) {
    constexpr const char* DaysOf[] = {"-------", "X------", "-X-----", "--X----", "---X---", "----X--",
                                      "-----X-", "------X", "XXXXX--", "-----XX", "XXXXXXX"};
    std::mt19937 dice{7};
    const auto below = [&dice](int n) { return static_cast<int>(dice() % static_cast<unsigned>(n)); };
    for (int round = 0; round < 300; ++round) {
        std::vector<WeekSlot> week;
        for (int n = below(5); n >= 0; --n) {
            week.push_back({.DayIndex = below(12), .From = below(1440), .To = below(1440)});
        }
        const WeekChart chart = Wochenbild(kern, week);
        for (int day = 0; day < 7; ++day) {
            for (int minute = 0; minute < 1440; minute += 1 + below(7)) {
                bool held = false;
                for (const WeekSlot& slot : week) {
                    held = held || (slot.DayIndex < 11 && DaysOf[slot.DayIndex][day] == 'X' && slot.From <= minute &&
                                    minute <= slot.To);
                }
                bool drawn = false;
                for (const WeekBar& bar : chart.Days[static_cast<std::size_t>(day)].Bars) {
                    drawn = drawn || (bar.From <= minute && minute <= bar.To);
                }
                ASSERT_EQ(drawn, held) << round << " " << day << " " << minute;
            }
        }
    }
}

TEST(Wochentag_Haelt, no_day_is_held_by_selectors_that_mean_none) {
    for (const int index : {-1, 0, 11, 12, 255}) {
        for (int weekday = 1; weekday <= 7; ++weekday) {
            EXPECT_FALSE(Wochentag_Haelt(index, weekday)) << index;
        }
    }
    EXPECT_FALSE(Wochentag_Haelt(10, 0));
    EXPECT_FALSE(Wochentag_Haelt(10, 8));
    EXPECT_TRUE(Wochentag_Haelt(10, 7));
}

} // namespace
} // namespace qvm
