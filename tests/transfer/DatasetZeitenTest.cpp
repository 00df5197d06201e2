#include "DatasetFixture.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr TimerRow Empty{};

class Datensatz_Zeiten : public DatasetTest {
protected:
    Datensatz_Zeiten() { row.PersonTimers = "X"; }

    /// Sixteen records, each with its own times: record n runs from n:01 to n:02 on day selector n modulo 11.
    void AllSlots() {
        files.Slot(1, 1, "01:01", "01:02");
        files.Slot(2, 2, "02:01", "02:02");
        files.Slot(3, 3, "03:01", "03:02");
        files.Slot(4, 4, "04:01", "04:02");
        files.Slot(5, 5, "05:01", "05:02");
        files.Slot(6, 6, "06:01", "06:02");
        files.Slot(7, 7, "07:01", "07:02");
        files.Slot(8, 8, "08:01", "08:02");
        files.Slot(9, 9, "09:01", "09:02");
        files.Slot(10, 10, "10:01", "10:02");
        files.Slot(11, 0, "11:01", "11:02");
        files.Slot(12, 1, "12:01", "12:02");
        files.Slot(13, 2, "13:01", "13:02");
        files.Slot(14, 3, "14:01", "14:02");
        files.Slot(15, 4, "15:01", "15:02");
        files.Slot(16, 5, "16:01", "16:02");
    }
    /// Which of the three ways the lock of this serial goes when timers are wanted and there.
    std::string ModeOf(const char* serial, bool message = false) {
        row.Serial = serial;
        if (message) {
            Expect("two timers\n\rno others");
        }
        EXPECT_EQ(Load(), 0) << serial;
        EXPECT_TRUE(pc.Answers.empty()) << serial;
        pc.Answers.clear();
        return dataset.Values.TimerMode;
    }
};

TEST_F(Datensatz_Zeiten, records_1_to_11_become_table_A) {
    AllSlots();
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Values.TimerMode, "TimerPB_UT");
    EXPECT_THAT(dataset.TimerTableA,
                ElementsAre(TimerRow{1, 1, 1, 1, 2}, TimerRow{2, 2, 1, 2, 2}, TimerRow{3, 3, 1, 3, 2},
                            TimerRow{4, 4, 1, 4, 2}, TimerRow{5, 5, 1, 5, 2}, TimerRow{6, 6, 1, 6, 2},
                            TimerRow{7, 7, 1, 7, 2}, TimerRow{8, 8, 1, 8, 2}, TimerRow{9, 9, 1, 9, 2},
                            TimerRow{10, 10, 1, 10, 2}, TimerRow{0, 11, 1, 11, 2}));
    EXPECT_THAT(dataset.TimerTableB, Each(Empty));
}

TEST_F(Datensatz_Zeiten, the_locks_group_selects_the_rows_of_table_B_from_record_11_on) {
    AllSlots();
    files.LockHasGroup(1, "PB_812345678");
    files.LockGroup(3, "a group", "X-X-X", "PB_812345678");
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.TimerTableB, ElementsAre(TimerRow{0, 11, 1, 11, 2}, Empty, TimerRow{2, 13, 1, 13, 2}, Empty,
                                                 TimerRow{4, 15, 1, 15, 2}, Empty));
}

TEST_F(Datensatz_Zeiten, the_sixth_row_of_table_B_stays_empty_whatever_stands_behind_the_selection) {
    AllSlots();
    files.LockHasGroup(1, "PB_812345678");
    files.LockGroup(1, "a group", "XXXXXXXX", "PB_812345678"); // three characters run on into the field behind
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.TimerTableB[4], (TimerRow{4, 15, 1, 15, 2}));
    EXPECT_EQ(dataset.TimerTableB[5], Empty);
}

TEST_F(Datensatz_Zeiten, each_lock_reads_its_own_binding) {
    AllSlots();
    files.LockHasGroup(1, "PB_1");
    files.LockHasGroup(200, "PB_2");
    files.LockGroup(1, "a group", "X----", "PB_1");
    files.LockGroup(2, "a group", "----X", "PB_2");
    row.Number = 200;
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.TimerTableB[0], Empty);
    EXPECT_EQ(dataset.TimerTableB[4], (TimerRow{4, 15, 1, 15, 2}));
}

TEST_F(Datensatz_Zeiten, the_group_is_found_by_its_identifier_and_not_by_its_name) {
    AllSlots();
    files.Put("SBSCLKZU.SB1", 55, 1, 0, 5, "PB_77");
    files.Put("SBSCLKZU.SB1", 55, 1, 15, 8, "Cleaning");
    files.LockGroup(1, "a group", "XXXXX", "PB_66");
    files.Put("TIMGRP44T8_S.SBS", 66, 1, 3, 8, "Cleaning");
    files.LockGroup(2, "a group", "-X---", "PB_77");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.TimerTableB[0], Empty);
    EXPECT_EQ(dataset.TimerTableB[1], (TimerRow{1, 12, 1, 12, 2}));
}

TEST_F(Datensatz_Zeiten, no_group_and_an_unknown_group_select_nothing) {
    AllSlots();
    files.LockGroup(1, "a group", "XXXXX", "-");
    files.LockGroup(2, "a group", "XXXXX", "");
    files.LockGroup(6, "a group", "XXXXX", "PB_6"); // only five groups can be chosen
    for (const char* group : {"-              ", "               ", "PB_5           ", "PB_6           "}) {
        files.LockHasGroup(1, group);
        ASSERT_EQ(Load(), 0);
        EXPECT_THAT(dataset.TimerTableB, Each(Empty)) << group;
    }
}

TEST_F(Datensatz_Zeiten, an_old_lock_says_that_it_has_two_timers_and_gets_records_1_to_5_and_5_to_9) {
    AllSlots();
    row.Serial = "02.00.00.01";
    Expect("two timers\n\rno others");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Values.TimerMode, "Timer_A_B");
    EXPECT_THAT(dataset.TimerTableA, ElementsAre(TimerRow{1, 1, 1, 1, 2}, TimerRow{2, 2, 1, 2, 2},
                                                 TimerRow{3, 3, 1, 3, 2}, TimerRow{4, 4, 1, 4, 2},
                                                 TimerRow{5, 5, 1, 5, 2}, Empty, Empty, Empty, Empty, Empty, Empty));
    EXPECT_THAT(dataset.TimerTableB,
                ElementsAre(TimerRow{5, 5, 1, 5, 2}, TimerRow{6, 6, 1, 6, 2}, TimerRow{7, 7, 1, 7, 2},
                            TimerRow{8, 8, 1, 8, 2}, TimerRow{9, 9, 1, 9, 2}, Empty));
    ASSERT_EQ(pc.Shown.size(), 1U);
    EXPECT_EQ(pc.Shown[0], (Message{.Text = "two timers\n\rno others",
                                    .Title = "QVM 7702 SOFTWARE SYSTEM",
                                    .Choice = Buttons::Ok,
                                    .Sign = Icon::Information,
                                    .About = "Schloss 1: Front door"}));
}

TEST_F(Datensatz_Zeiten, the_serial_decides_which_tables_a_lock_gets) {
    AllSlots();
    EXPECT_EQ(ModeOf("01.00.00.00", true), "Timer_A_B");
    EXPECT_EQ(ModeOf("01.00.00.01"), "TimerPB_UT");
    EXPECT_EQ(ModeOf("01.50.0C.05"), "TimerPB_UT");
    EXPECT_EQ(ModeOf("01.50.0C.06"), "TimerPB_UT");
    EXPECT_EQ(ModeOf("01.60.00.00"), "TimerPB_UT");
    EXPECT_EQ(ModeOf("01.60.00.01", true), "Timer_A_B");
    EXPECT_EQ(ModeOf("01.C0.00.00", true), "Timer_A_B");
    EXPECT_EQ(ModeOf("01.C0.00.01"), "TimerPB_UT");
    EXPECT_EQ(ModeOf("01.D0.00.00"), "TimerPB_UT");
    EXPECT_EQ(ModeOf("01.D0.00.01"), "TimerPB_UT");
    EXPECT_EQ(ModeOf("02.00.00.00"), "TimerPB_UT");
    EXPECT_EQ(ModeOf("02.00.00.01", true), "Timer_A_B");
    EXPECT_EQ(ModeOf("0B.49.FF.FF", true), "Timer_A_B");
    EXPECT_EQ(ModeOf("0B.4A.00.00"), "Timer_ERROR");
    EXPECT_EQ(ModeOf("FF.FF.FF.FF"), "Timer_ERROR");
}

TEST_F(Datensatz_Zeiten, a_lock_without_timers_gets_empty_tables) {
    AllSlots();
    files.LockHasGroup(1, "PB_1");
    files.LockGroup(1, "a group", "XXXXX", "PB_1");
    row.Serial = "0B.4A.00.00";
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.TimerTableA, Each(Empty));
    EXPECT_THAT(dataset.TimerTableB, Each(Empty));
}

TEST_F(Datensatz_Zeiten, without_the_switch_every_lock_up_to_the_limit_counts_as_one_with_two_timers) {
    AllSlots();
    row.PersonTimers = " ";
    for (const char* serial : {"01.00.00.00", "01.50.0C.06", "01.60.00.01", "0B.49.FF.FF"}) {
        EXPECT_EQ(ModeOf(serial), "Timer_A_B");
        EXPECT_THAT(dataset.TimerTableA, Each(Empty)) << serial;
        EXPECT_THAT(dataset.TimerTableB, Each(Empty)) << serial;
    }
    EXPECT_EQ(ModeOf("0B.4A.00.00"), "TimerPB_UT");
}

TEST_F(Datensatz_Zeiten, without_the_file_it_is_the_same_as_without_the_switch) {
    EXPECT_EQ(ModeOf("01.50.0C.06"), "Timer_A_B");
    EXPECT_EQ(ModeOf("0B.49.FF.FF"), "Timer_A_B");
    EXPECT_EQ(ModeOf("0B.4A.00.00"), "TimerPB_UT");
}

TEST_F(Datensatz_Zeiten, what_a_lock_had_before_is_gone) {
    AllSlots();
    files.LockHasGroup(1, "PB_1");
    files.LockGroup(1, "a group", "XXXXX", "PB_1");
    ASSERT_EQ(Load(), 0);
    row.PersonTimers = "";
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.TimerTableA, Each(Empty));
    EXPECT_THAT(dataset.TimerTableB, Each(Empty));
}

TEST_F(Datensatz_Zeiten, a_file_that_ends_early_gives_what_it_has) {
    AllSlots();
    files.File("TX33Y98BSG9.TBW").resize(11 + 6); // the second record ends behind its first time
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.TimerTableA[0], (TimerRow{1, 1, 1, 1, 2}));
    EXPECT_EQ(dataset.TimerTableA[1], (TimerRow{2, 2, 1, 0, 0}));
    EXPECT_EQ(dataset.TimerTableA[2], Empty);
}

TEST_F(Datensatz_Zeiten, a_time_that_does_not_exist_is_midnight_and_the_day_byte_stays) {
    files.Slot(1, 10, "24:00", "12:60");
    files.Slot(2, 8, "\xFF\xFF:\xFF\xFF", "-1:30");
    files.Slot(3, 255, "08:15", "12345");
    files.Slot(4, 1, " 8:15", "23:59");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.TimerTableA[0], (TimerRow{10, 0, 0, 0, 0}));
    EXPECT_EQ(dataset.TimerTableA[1], (TimerRow{8, 0, 0, 0, 0}));
    EXPECT_EQ(dataset.TimerTableA[2], (TimerRow{255, 8, 15, 0, 0}));
    EXPECT_EQ(dataset.TimerTableA[3], (TimerRow{1, 8, 15, 23, 59}));
}

TEST_F(Datensatz_Zeiten, columns_6_to_8_become_the_flags_of_the_run) {
    row.LockTimer = "X";
    row.CalendarFlag = " ";
    row.SetClock = " X ";
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Values.FlagLockTimer, 1);
    EXPECT_EQ(dataset.Values.FlagCalendar, 0);
    EXPECT_EQ(dataset.Values.FlagSetClock, 1);
    row.LockTimer = "";
    row.CalendarFlag = "X";
    row.SetClock = "";
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Values.FlagLockTimer, 0);
    EXPECT_EQ(dataset.Values.FlagCalendar, 1);
    EXPECT_EQ(dataset.Values.FlagSetClock, 0);
}

} // namespace
} // namespace qvm::test
