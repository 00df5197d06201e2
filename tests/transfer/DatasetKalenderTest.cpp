#include "DatasetFixture.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::Each;

constexpr HolidayRow Empty{};

class Datensatz_Kalender : public DatasetTest {
protected:
    Datensatz_Kalender() { row.Calendars = "X"; }

    void TwentySingleDays() {
        for (int n = 1; n <= 20; ++n) {
            const std::string day = (n < 10 ? "0" : "") + std::to_string(n) + ".04.2026";
            files.Holiday(n, day, day, '0');
        }
    }
};

/// Only locks between these serials, neither of them included, take everything in one table.
constexpr const char* OneTable = "0A.00.00.01";

TEST_F(Datensatz_Kalender, a_single_holiday_ends_a_day_later) {
    files.Holiday(1, "24.12.2026", "26.12.2026", '0');
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableA[0], (HolidayRow{24, 12, 26, 27, 12, 26}));
    EXPECT_EQ(dataset.HolidayTableA[1], Empty);
}

TEST_F(Datensatz_Kalender, the_later_day_crosses_months_years_and_centuries) {
    files.Holiday(1, "30.04.2026", "30.04.2026", '0');
    files.Holiday(2, "31.12.2026", "31.12.2026", '1');
    files.Holiday(3, "31.12.1999", "31.12.1999", '0');
    files.Holiday(4, "28.02.2026", "28.02.2026", '0');
    files.Holiday(5, "28.02.2028", "28.02.2028", '0');
    files.Holiday(6, "29.02.2028", "29.02.2028", '0');
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableA[0], (HolidayRow{30, 4, 26, 1, 5, 26}));
    EXPECT_EQ(dataset.HolidayTableA[1], (HolidayRow{31, 12, 26, 1, 1, 27}));
    EXPECT_EQ(dataset.HolidayTableA[2], (HolidayRow{31, 12, 99, 1, 1, 0}));
    EXPECT_EQ(dataset.HolidayTableA[3], (HolidayRow{28, 2, 26, 1, 3, 26}));
    EXPECT_EQ(dataset.HolidayTableA[4], (HolidayRow{28, 2, 28, 29, 2, 28}));
    EXPECT_EQ(dataset.HolidayTableA[5], (HolidayRow{29, 2, 28, 1, 3, 28}));
}

TEST_F(Datensatz_Kalender, the_day_behind_the_last_one_that_two_digits_can_name_has_the_year_0) {
    files.Holiday(1, "24.12.2099", "31.12.2099", '0');
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableA[0], (HolidayRow{24, 12, 99, 1, 1, 0}));
}

TEST_F(Datensatz_Kalender, a_record_without_a_kind_leaves_no_gap) {
    files.Holiday(1, "01.05.2026", "01.05.2026", ' ');
    files.Holiday(2, "02.05.2026", "02.05.2026", '1');
    files.Holiday(3, "          ", "          ", ' ');
    files.Holiday(4, "03.05.2026", "03.05.2026", '2');
    files.Holiday(20, "04.05.2026", "04.05.2026", '0');
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableA[0], (HolidayRow{2, 5, 26, 3, 5, 26}));
    EXPECT_EQ(dataset.HolidayTableA[1], (HolidayRow{4, 5, 26, 5, 5, 26}));
    EXPECT_EQ(dataset.HolidayTableA[2], Empty);
}

TEST_F(Datensatz_Kalender, record_21_belongs_to_neither_calendar) {
    files.Holiday(21, "01.05.2026", "01.05.2026", '0');
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.HolidayTableA, Each(Empty));
    EXPECT_THAT(dataset.HolidayTableB, Each(Empty));
}

TEST_F(Datensatz_Kalender, permanent_holidays_stand_packed_in_table_B_with_the_year_99_and_their_own_end) {
    files.Holiday(22, "01.01. - -", "01.01. - -", ' ');
    files.Holiday(24, "24.12. - -", "26.12. - -", ' ');
    files.Holiday(41, "29.02. - -", "29.02. - -", ' ');
    files.Holiday(42, "03.03. - -", "03.03. - -", ' ');
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableB[0], (HolidayRow{1, 1, 99, 1, 1, 99}));
    EXPECT_EQ(dataset.HolidayTableB[1], (HolidayRow{24, 12, 99, 26, 12, 99}));
    EXPECT_EQ(dataset.HolidayTableB[2], (HolidayRow{29, 2, 99, 29, 2, 99}));
    EXPECT_EQ(dataset.HolidayTableB[3], Empty);
    EXPECT_THAT(dataset.HolidayTableA, Each(Empty));
}

TEST_F(Datensatz_Kalender, a_lock_with_one_table_gets_them_behind_the_single_ones_with_the_present_year) {
    row.Serial = OneTable;
    files.Holiday(5, "01.05.2027", "01.05.2027", '0');
    files.Holiday(23, "01.01. - -", "02.01. - -", ' ');
    files.Holiday(30, "24.12. - -", "26.12. - -", ' ');
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableA[0], (HolidayRow{1, 5, 27, 2, 5, 27}));
    EXPECT_EQ(dataset.HolidayTableA[1], (HolidayRow{1, 1, 26, 2, 1, 26}));
    EXPECT_EQ(dataset.HolidayTableA[2], (HolidayRow{24, 12, 26, 26, 12, 26}));
    EXPECT_EQ(dataset.HolidayTableA[3], Empty);
    EXPECT_THAT(dataset.HolidayTableB, Each(Empty));
}

TEST_F(Datensatz_Kalender, twenty_single_holidays_leave_no_room_for_permanent_ones) {
    row.Serial = OneTable;
    TwentySingleDays();
    files.Holiday(22, "24.12. - -", "24.12. - -", ' ');
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableA[19], (HolidayRow{20, 4, 26, 21, 4, 26}));
    EXPECT_EQ(dataset.HolidayTableA[20], Empty);
    EXPECT_EQ(dataset.HolidayTableA[21], Empty);
    EXPECT_THAT(dataset.HolidayTableB, Each(Empty));
}

TEST_F(Datensatz_Kalender, the_room_that_is_left_goes_to_the_first_permanent_days_that_are_not_blank) {
    row.Serial = OneTable;
    TwentySingleDays();
    files.Holiday(7, "07.04.2026", "07.04.2026", ' ');
    files.Holiday(22, "          ", "          ", ' ');
    files.Holiday(40, "24.12. - -", "24.12. - -", ' ');
    files.Holiday(41, "25.12. - -", "25.12. - -", ' ');
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableA[18], (HolidayRow{20, 4, 26, 21, 4, 26}));
    EXPECT_EQ(dataset.HolidayTableA[19], (HolidayRow{24, 12, 26, 24, 12, 26}));
    EXPECT_EQ(dataset.HolidayTableA[20], Empty);
}

TEST_F(Datensatz_Kalender, the_locks_with_one_table_lie_between_two_serials_that_are_none_of_them) {
    files.Holiday(22, "24.12. - -", "24.12. - -", ' ');
    for (const char* serial : {"0A.00.00.01", "0D.91.2D.63"}) {
        row.Serial = serial;
        ASSERT_EQ(Load(), 0);
        EXPECT_EQ(dataset.HolidayTableA[0], (HolidayRow{24, 12, 26, 24, 12, 26})) << serial;
        EXPECT_EQ(dataset.HolidayTableB[0], Empty) << serial;
    }
    for (const char* serial : {"0A.00.00.00", "0D.91.2D.64"}) {
        row.Serial = serial;
        ASSERT_EQ(Load(), 0);
        EXPECT_EQ(dataset.HolidayTableA[0], Empty) << serial;
        EXPECT_EQ(dataset.HolidayTableB[0], (HolidayRow{24, 12, 99, 24, 12, 99})) << serial;
    }
}

TEST_F(Datensatz_Kalender, without_the_switch_or_the_file_both_tables_are_empty) {
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.HolidayTableA, Each(Empty));
    files.Holiday(1, "01.05.2026", "01.05.2026", '0');
    files.Holiday(22, "24.12. - -", "24.12. - -", ' ');
    row.Calendars = " ";
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.HolidayTableA, Each(Empty));
    EXPECT_THAT(dataset.HolidayTableB, Each(Empty));
}

TEST_F(Datensatz_Kalender, an_entry_whose_date_does_not_exist_is_left_out) {
    files.Holiday(1, "31.02.2026", "01.03.2026", '0');
    files.Holiday(2, "01.03.2026", "99.99.9999", '0');
    files.Holiday(3, "\xFF\x01.\x80\x7F.2026", "01.03.2026", '0');
    files.Holiday(4, "01/03/2026", "01.03.2026", '1');
    files.Holiday(5, "05.03.2026", "05.03.2026", '1');
    files.Holiday(22, "32.01. - -", "01.02. - -", ' ');
    files.Holiday(23, "01.01. - -", "          ", ' ');
    files.Holiday(24, "xx.yy. - -", "01.02. - -", ' ');
    files.Holiday(25, "06.01. - -", "06.01. - -", ' ');
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableA[0], (HolidayRow{5, 3, 26, 6, 3, 26}));
    EXPECT_EQ(dataset.HolidayTableA[1], Empty);
    EXPECT_EQ(dataset.HolidayTableB[0], (HolidayRow{6, 1, 99, 6, 1, 99}));
    EXPECT_EQ(dataset.HolidayTableB[1], Empty);
}

TEST_F(Datensatz_Kalender, zero_bytes_where_no_single_calendar_was_ever_saved_are_no_holidays) {
    files.File("KL10X49WTTI.CBW").assign(21U * 21U, '\0');
    files.Holiday(22, "24.12. - -", "24.12. - -", ' ');
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.HolidayTableA, Each(Empty));
    EXPECT_EQ(dataset.HolidayTableB[0], (HolidayRow{24, 12, 99, 24, 12, 99}));
}

} // namespace
} // namespace qvm::test
