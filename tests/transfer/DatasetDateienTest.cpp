#include "DatasetFixture.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;

/// A lock that has something in every data file.
class Datensatz_Dateien : public DatasetTest {
protected:
    Datensatz_Dateien() {
        row.PersonTimers = row.Calendars = row.LockTimer = row.CalendarFlag = row.SetClock = "X";
        Add(1, {.Name = "Anna", .Group = "PB_7", .KeyId = "1:2:3:4"});
        AddFinger(2, "Bert", "Slot_Nr: 002", "1001");
        files.Template(251, "1001", "3 : 0 : 9 : ");
        files.Slot(1, 8, "08:00", "17:30");
        files.Slot(11, 9, "10:00", "12:00");
        files.Group(3, "a group", "X---------", "PB_7");
        files.LockGroup(1, "a group", "X----", "PB_9");
        files.LockHasGroup(1, "PB_9");
        files.Holiday(1, "01.05.2026", "01.05.2026", '0');
        files.Holiday(22, "24.12. - -", "26.12. - -", ' ');
        files.Unit(1, 1, "Reader", "01600001", '1', "11");
        files.Put("CPRT88X3FDA.PRT", 12, 1, 0, 3, "5  ");
        files.File("LSOEMIPART.LMT") = "X";
    }
    void Remove(const char* name) { ASSERT_EQ(pc.Disk.Files.erase(std::string("/qvm/DAT/") + name), 1U); }
};

TEST_F(Datensatz_Dateien, a_whole_installation_gives_a_whole_dataset) {
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Values.TimerMode, "TimerPB_UT");
    EXPECT_EQ(dataset.Values.PriorityCode, 4);
    EXPECT_EQ(dataset.Values.LockMode, 10);
    EXPECT_EQ(dataset.MaxUser, 1999);
    EXPECT_EQ(dataset.Slots.size(), 2U);
    EXPECT_THAT(dataset.Slots.at(0).TimerBits, ElementsAre(0x80, 0, 0));
    EXPECT_THAT(dataset.Slots.at(1).Template, ElementsAre(3, 0, 9));
    EXPECT_EQ(dataset.TimerTableA[0], (TimerRow{8, 8, 0, 17, 30}));
    EXPECT_EQ(dataset.TimerTableB[0], (TimerRow{9, 10, 0, 12, 0}));
    EXPECT_EQ(dataset.HolidayTableA[0], (HolidayRow{1, 5, 26, 2, 5, 26}));
    EXPECT_EQ(dataset.HolidayTableB[0], (HolidayRow{24, 12, 99, 26, 12, 99}));
    EXPECT_EQ(dataset.UnitCount, 1);
    EXPECT_EQ(dataset.ProgressStored, 36);
}

TEST_F(Datensatz_Dateien, every_file_is_read_exactly_once_and_none_is_written) {
    const auto before = pc.Disk.Files;
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(pc.Disk.Operations, 10);
    EXPECT_EQ(pc.Disk.Files, before);
}

TEST_F(Datensatz_Dateien, each_read_that_fails_ends_the_assembly_without_a_run) {
    for (int n = 1; n <= 10; ++n) {
        pc.Disk.Operations = 0;
        pc.Disk.FailAt = n;
        // The store of templates is the sixth file and read at the first finger.
        EXPECT_EQ(Load(DatasetVariant::Network), 95) << "read " << n;
        EXPECT_EQ(dataset.Notes.size(), n >= 6 ? 1U : 0U) << "read " << n;
        pc.Disk.Operations = 0;
        pc.Answers.clear();
        pc.Disk.FailAt = n;
        if (n >= 6) {
            Expect("mind the adapter");
        }
        EXPECT_EQ(Load(), 13) << "read " << n;
    }
}

TEST_F(Datensatz_Dateien, without_the_user_table_there_are_no_users) {
    Remove("BX10X52WUJ9.UBW");
    ASSERT_EQ(Load(), 0);
    EXPECT_TRUE(dataset.Slots.empty());
    EXPECT_EQ(dataset.TimerTableA[0], (TimerRow{8, 8, 0, 17, 30}));
}

TEST_F(Datensatz_Dateien, without_the_groups_of_persons_a_group_selects_nothing) {
    Remove("TIMGRP33T7.PBG");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.Slots.at(0).TimerBits, ElementsAre(0, 0, 0));
    EXPECT_EQ(dataset.Slots.at(0).TimerName, "PB_7");
}

TEST_F(Datensatz_Dateien, without_the_binding_or_the_lock_groups_table_B_is_empty) {
    const auto whole = pc.Disk.Files;
    for (const char* name : {"SBSCLKZU.SB1", "TIMGRP44T8_S.SBS"}) {
        pc.Disk.Files = whole;
        Remove(name);
        Expect("mind the adapter");
        ASSERT_EQ(Load(), 0) << name;
        EXPECT_EQ(dataset.TimerTableB[0], TimerRow{}) << name;
        EXPECT_EQ(dataset.TimerTableA[10], (TimerRow{9, 10, 0, 12, 0})) << name;
    }
}

TEST_F(Datensatz_Dateien, without_the_calendar_the_holiday_tables_are_empty) {
    Remove("KL10X49WTTI.CBW");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.HolidayTableA[0], HolidayRow{});
    EXPECT_EQ(dataset.HolidayTableB[0], HolidayRow{});
}

TEST_F(Datensatz_Dateien, without_the_unit_table_the_lock_has_no_units) {
    Remove("T6WRSSISN.TSD");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.UnitCount, 0);
    EXPECT_EQ(dataset.UnitMode, "");
    EXPECT_EQ(dataset.ListenSeconds, 0);
}

TEST_F(Datensatz_Dateien, without_any_file_there_is_still_a_dataset) {
    pc.Disk.Files.clear();
    ASSERT_EQ(Load(), 0);
    EXPECT_TRUE(dataset.Slots.empty());
    EXPECT_EQ(dataset.Values.TimerMode, "Timer_A_B");
    EXPECT_EQ(dataset.Values.PriorityCode, 2);
    EXPECT_EQ(dataset.Values.LockMode, 0xFF);
    EXPECT_EQ(dataset.Values.FlagCalendar, 1);
    EXPECT_EQ(dataset.ProgressStored, 20);
}

TEST_F(Datensatz_Dateien, files_that_are_there_but_empty_give_the_same_tables_in_the_locks_own_mode) {
    for (auto& file : pc.Disk.Files) {
        file.second.clear();
    }
    ASSERT_EQ(Load(), 0);
    EXPECT_TRUE(dataset.Slots.empty());
    EXPECT_EQ(dataset.Values.TimerMode, "TimerPB_UT");
    EXPECT_EQ(dataset.TimerTableA[0], TimerRow{});
    EXPECT_EQ(dataset.HolidayTableA[0], HolidayRow{});
    EXPECT_EQ(dataset.UnitCount, 0);
}

TEST_F(Datensatz_Dateien, a_lock_without_a_serial_has_no_dataset_and_reads_nothing) {
    for (const char* serial : {"", "01.50.0C", "01.50.0C.0G"}) {
        row.Serial = serial;
        EXPECT_EQ(Load(), 13) << serial;
        EXPECT_EQ(Load(DatasetVariant::Network), 95) << serial;
    }
    EXPECT_EQ(pc.Disk.Operations, 0);
    EXPECT_TRUE(dataset.Slots.empty());
}

TEST_F(Datensatz_Dateien, a_lock_number_outside_the_table_has_no_dataset) {
    for (const int number : {-1, 0, 201, 1000000}) {
        row.Number = number;
        EXPECT_EQ(Load(), 13) << number;
    }
    EXPECT_EQ(pc.Disk.Operations, 0);
}

TEST_F(Datensatz_Dateien, the_message_on_two_timers_comes_before_the_warning_on_fingers) {
    row.Serial = "02.00.00.01";
    Expect("two timers\n\rno others");
    Expect("mind the adapter");
    EXPECT_EQ(Load(), 0);
}

TEST_F(Datensatz_Dateien, a_finger_is_known_even_when_the_assembly_stops) {
    Remove("TEmpTCD0UPK.FSD");
    Expect("mind the adapter");
    Expect("Bert_002_FP     : no fingerprint data");
    EXPECT_EQ(Load(), 13);
    EXPECT_TRUE(dataset.AnyFinger);
}

TEST_F(Datensatz_Dateien, whatever_bytes_the_files_hold_the_assembly_ends_within_its_tables) {
    unsigned random = 20080905;
    const auto next = [&random] { return random = random * 1664525U + 1013904223U; };
    const auto whole = pc.Disk.Files;
    row.Name = "";
    for (int round = 0; round < 400; ++round) {
        pc.Disk.Files = whole;
        for (auto& file : pc.Disk.Files) {
            std::string& bytes = file.second;
            for (int n = 0; n < 12 && !bytes.empty(); ++n) {
                bytes[next() % bytes.size()] = static_cast<char>(next() >> 16U);
            }
            bytes.erase(bytes.size() - next() % (bytes.size() / 8 + 1)); // 0 to an eighth of the end is cut off
        }
        pc.Answers.assign(3, {.Text = "*"});
        const int status = Load();
        pc.Answers.clear();
        EXPECT_TRUE(status == 0 || status == 13);
        EXPECT_LE(dataset.Slots.size(), 2U);
        EXPECT_GE(dataset.ListenSeconds, 0);
        EXPECT_LE(dataset.ListenSeconds, 64799);
        for (const ProgSlot& slot : dataset.Slots) {
            EXPECT_LE(slot.Name.size(), 16U);
            EXPECT_LE(slot.CodeDigits.size(), 10U);
            EXPECT_LE(slot.Template.size(), 1000U);
        }
    }
}

} // namespace
} // namespace qvm::test
