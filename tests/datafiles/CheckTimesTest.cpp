#include "CheckFixture.h"

namespace qvm {
namespace {

using namespace test;

constexpr std::string_view Slots = "TX33Y98BSG9.TBW", Groups = "TIMGRP33T7.PBG", LockGroups = "TIMGRP44T8_S.SBS",
                           Calendar = "KL10X49WTTI.CBW", Offsets = "T4OFFSETGST.FST";
constexpr std::size_t Group3 = 2 * 71, Group4 = 3 * 71, Permanent1 = 21 * 21;

TEST_F(Daten_Pruefen_, a_day_selector_beyond_ten_is_out_of_range) {
    Write(Slots, 0, "\x0B");
    EXPECT_EQ(Findings(), "range TimeSlot, record 1, DayIndex: 11 is not a day selector from 0 to 10\n");
}

TEST_F(Daten_Pruefen_, times_out_of_range) {
    Write(Slots, 1, "24:00");
    Write(Slots, 6, "12.30");
    EXPECT_EQ(Findings(), "range TimeSlot, record 1, From: \"24:00\" is not a time\n"
                          "range TimeSlot, record 1, To: \"12.30\" is not a time\n");
}

TEST_F(Daten_Pruefen_, a_slot_that_ends_before_it_begins_is_out_of_range) {
    Write(Slots, 6, "07:59");
    EXPECT_EQ(Findings(), "range TimeSlot, record 1, To: the slot ends before it begins\n");
}

TEST_F(Daten_Pruefen_, groups_of_one_name_and_one_identifier_are_doubled) {
    Write(Groups, Group4, "4  Tag");
    Write(Groups, Group4 + 43, "---------X1  PB_500");
    EXPECT_EQ(Findings(), "doubled TimeGroup, record 4, Name: \"Tag\" is the name of group 3, too\n"
                          "doubled TimeGroup, record 4, PbId: \"PB_500\" is the identifier of group 3, too\n");
}

TEST_F(Daten_Pruefen_, a_group_whose_fields_do_not_agree_is_out_of_range) {
    Write(Groups, Group3 + 43, "XO");
    Write(Groups, Group3 + 53, "2");
    EXPECT_EQ(Findings(), "range TimeGroup, record 3, Days: \"XO--------\" holds more than \"X\" and \"-\"\n"
                          "range TimeGroup, record 3, Count: \"2\" is not the number of slots, which is 1\n");
}

TEST_F(Daten_Pruefen_, a_lock_group_without_an_identifier_is_out_of_range_and_its_locks_dangle) {
    Write(LockGroups, 51, "      ");
    EXPECT_EQ(Findings(), "dangling LockGroupRecord, record 1, GroupId: there is no lock timer group \"PB_600\"\n"
                          "range LockTimeGroup, record 1, PbId: the group has a name but no identifier, so nobody can "
                          "be bound to it\n");
}

TEST_F(Daten_Pruefen_, the_programs_own_two_groups_may_hold_anything) {
    Write(Groups, 0, "x  whatever");
    Write(Groups, 53, "abc");
    EXPECT_EQ(Findings(), "");
}

TEST_F(Daten_Pruefen_, a_single_holiday_with_days_that_are_not_there) {
    Write(Calendar, 0, "29.02.2027");
    Write(Calendar, 10, "01.01.2100");
    EXPECT_EQ(Findings(), "range CalendarEntry, record 1, DateFrom: \"29.02.2027\" is not a date from 2000 to 2099\n"
                          "range CalendarEntry, record 1, DateTo: \"01.01.2100\" is not a date from 2000 to 2099\n");
}

TEST_F(Daten_Pruefen_, the_last_day_of_2099_is_no_end_that_a_lock_can_be_sent) {
    Write(Calendar, 10, "30.12.2099");
    EXPECT_EQ(Findings(), "");
    Write(Calendar, 10, "31.12.2099");
    EXPECT_EQ(Findings(), "range CalendarEntry, record 1, DateTo: is too late: locks get the day behind it, and take "
                          "its year 2100 for 2000\n");
}

TEST_F(Daten_Pruefen_, a_single_holiday_that_ends_before_it_begins_and_has_no_kind) {
    Write(Calendar, 10, "23.12.2026 ");
    EXPECT_EQ(Findings(), "range CalendarEntry, record 1, DateTo: lies before the first day\n"
                          "range CalendarEntry, record 1, Kind: is missing, so locks do not get this holiday\n");
}

TEST_F(Daten_Pruefen_, a_permanent_holiday_with_a_year_is_out_of_range) {
    Write(Calendar, Permanent1, "30.02. - -");
    Write(Calendar, Permanent1 + 10, "01.03.2026");
    EXPECT_EQ(Findings(), "range CalendarEntry, record 22, DateFrom: \"30.02. - -\" is not a day of the year\n"
                          "range CalendarEntry, record 22, DateTo: \"01.03.2026\" is not a day of the year\n");
}

TEST_F(Daten_Pruefen_, an_offset_with_bad_times_and_the_identifier_of_another) {
    Write(Offsets, 20, "1:000");
    Write(Offsets, 30, "OFST0x02");
    EXPECT_EQ(Findings(), "range GuestOffset, record 1, Time: \"1:000\" is not a time\n"
                          "range GuestOffset, record 1, OffsetId: \"OFST0x02\" is not the identifier of offset 1\n");
}

TEST_F(Daten_Pruefen_, settings_out_of_range) {
    Lines("EST7CSB29A.I_1", "Klingon\r\n1\r\nUSB-Port17\r\n13\r\n");
    Lines("CHEUSB25C.I_2", "MAYBE     \r\n");
    EXPECT_EQ(Findings(), "dangling EST7CSB29A.I_1, line 1, Sprache: there is no language \"Klingon\"\n"
                          "range EST7CSB29A.I_1, line 3, PortName: \"17\" is not a port from 1 to 16\n"
                          "range EST7CSB29A.I_1, line 4, RadioChannel: \"13\" is not a channel from 1 to 12\n"
                          "range CHEUSB25C.I_2, line 1, PortAutomatik: \"MAYBE\" is neither SET nor RESET\n");
}

TEST_F(Daten_Pruefen_, the_settings_of_a_new_installation_are_good) {
    Lines("EST7CSB29A.I_1", "Deutsch\r\n1\r\nUSB-PORT\r\n\r\n");
    EXPECT_EQ(Findings(), "");
}

TEST_F(Daten_Pruefen_, files_of_the_guest_cards_out_of_range) {
    Lines("OFSTSETUPDT.FST", "05.03.2026\r\n9:30\r\n15:00\r\n00\r\n01\r\n");
    Lines("ASWTIMQVMLCK.FSN", "05.03.2026\r\nMOTEL\r\nX\r\nY\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n");
    Lines("ObJNR09DAT.OBN", "05.03.2026\r\n7\r\n9\r\n");
    Lines("PERMSELECT.RFS", "05.03.2026\r\n00.0A.10.01\r\n00.0A.10.01\r\n01.02.03.04\r\n");
    EXPECT_EQ(Findings(), "range OFSTSETUPDT.FST, line 2: \"9:30\" is not a time\n"
                          "range ASWTIMQVMLCK.FSN, line 2: there is no mode \"MOTEL\"; it counts as OBJEKT\n"
                          "range ASWTIMQVMLCK.FSN, line 4: a slot is marked \"X\" or \"0\", not \"Y\"\n"
                          "damaged ASWTIMQVMLCK.FSN, line 11: does not end with \"ENDE\"\n"
                          "damaged ObJNR09DAT.OBN, line 3: is not the group's number plus 1\n"
                          "doubled PERMSELECT.RFS, line 3: \"00.0A.10.01\" stands in line 2, too\n"
                          "dangling PERMSELECT.RFS, line 4: no lock has the serial \"01.02.03.04\"\n"
                          "damaged PERMSELECT.RFS: does not end with \"ENDE\"\n");
}

} // namespace
} // namespace qvm
