#include "CheckFixture.h"

namespace qvm {
namespace {

using namespace test;

constexpr std::string_view Locks = "C64UX12H3D.EBW", Units = "T6WRSSISN.TSD", Doors = "DOOR1MODEDT.DTA",
                           LockAdapters = "LOCKCLASSCOMX.CMB", Adapters = "COMSETUPADAPTER.ADP";
constexpr std::size_t Lock2 = 45;

TEST_F(Daten_Pruefen_, locks_of_one_name_and_one_serial_are_doubled) {
    Write(Locks, Lock2, std::string_view("Tor\0\0\0", 6));
    Write(Locks, Lock2 + 28, "00 A  10 1  ");
    EXPECT_EQ(Findings(), "doubled LockRecord, record 2, Name: \"Tor\" is the name of lock 1, too\n"
                          "doubled LockRecord, record 2, Sn1: \"00.A.10.1\" is the serial of lock 1, too\n");
}

TEST_F(Daten_Pruefen_, a_serial_that_is_not_hexadecimal_is_out_of_range) {
    Write(Locks, Lock2 + 34, "2G ");
    EXPECT_EQ(Findings(),
              "range LockRecord, record 2, Sn1: \"01.1A.2G.05\" is not a serial of four hexadecimal pairs\n");
}

TEST_F(Daten_Pruefen_, a_switch_other_than_X_is_out_of_range) {
    Write(Locks, 44, "Y");
    EXPECT_EQ(Findings(), "range LockRecord, record 1, Switch5: there is no setting \"Y\"\n");
}

TEST_F(Daten_Pruefen_, an_offset_that_is_not_there_is_dangling) {
    Write(Locks, Lock2 + 20, "OFST0x05");
    EXPECT_EQ(Findings(), "dangling LockRecord, record 2, OffsetId: there is no time offset \"OFST0x05\"\n");
}

TEST_F(Daten_Pruefen_, an_offset_without_the_file_of_offsets_is_dangling) {
    Disk.Files.erase(Dat + "T4OFFSETGST.FST");
    EXPECT_EQ(Findings(), "dangling LockRecord, record 1, OffsetId: there is no time offset \"OFST0x01\"\n");
}

TEST_F(Daten_Pruefen_, settings_of_a_lock_out_of_range) {
    Write("CPRT88X3FDA.PRT", 0, "6");
    Write("LSOEMIPART.LMT", 0, "Z");
    Write(Doors, 0, "CC");
    Write(Doors, 14, "x");
    EXPECT_EQ(Findings(), "range LockPrioRecord, record 1, Prio: there is no setting \"6\"\n"
                          "range LockEmiRecord, record 1, Emi: there is no setting \"Z\"\n"
                          "range DoorModeRecord, record 1, Mode: there is no setting \"CC\"\n"
                          "range DoorModeRecord, record 1, Days: \"x500\" is not a number of days\n");
}

TEST_F(Daten_Pruefen_, a_lock_timer_group_that_is_not_there_is_dangling) {
    Write("SBSCLKZU.SB1", 0, "PB_601");
    EXPECT_EQ(Findings(), "dangling LockGroupRecord, record 1, GroupId: there is no lock timer group \"PB_601\"\n");
}

TEST_F(Daten_Pruefen_, an_adapter_that_is_not_there_is_dangling) {
    Write(LockAdapters, 0, "/1/2/3/5");
    Write(LockAdapters, 16, "PROGSTATION-2");
    EXPECT_EQ(Findings(), "dangling LockAdapterRecord, record 1, AdapterId: there is no adapter \"/1/2/3/5\"\n");
}

TEST_F(Daten_Pruefen_, an_adapter_is_found_by_its_name_as_well) {
    Write(LockAdapters, 0, "/1/2/3/5");
    EXPECT_EQ(Findings(), "");
}

TEST_F(Daten_Pruefen_, a_side_file_with_another_serial_is_dangling) {
    Write(Doors, 11, "02 ");
    Write(LockAdapters, 45, "02 ");
    EXPECT_EQ(Findings(), "dangling LockAdapterRecord, record 1, Sn1: \"00.0A.10.02\" is not the serial of lock 1, "
                          "\"00.0A.10.01\"\n"
                          "dangling DoorModeRecord, record 1, Sn1: \"00.0A.10.02\" is not the serial of lock 1, "
                          "\"00.0A.10.01\"\n");
}

TEST_F(Daten_Pruefen_, a_lock_with_more_users_than_it_holds_is_out_of_range) {
    // 01.1A.20.05 holds 47 users. Users 3 to 49 are marked besides user 1.
    for (std::size_t user = 3; user <= 49; ++user) {
        Write("BX10X52WUJ9.UBW", (user - 1) * 419, "User " + std::to_string(user));
        Write("BX10X52WUJ9.UBW", (user - 1) * 419 + 218, "-X");
    }
    EXPECT_EQ(Findings(), "range LockRecord, record 2: 48 users are marked, the lock holds 47\n");
}

TEST_F(Daten_Pruefen_, adapters_of_one_address_one_name_and_a_port_out_of_range) {
    Write(Adapters, 65, "/1/2/3/4        PROGSTATION-1       17");
    EXPECT_EQ(Findings(), "doubled AdapterRecord, record 2, Adresse: \"/1/2/3/4\" stands in record 1, too\n"
                          "doubled AdapterRecord, record 2, Name: \"PROGSTATION-1\" stands in record 1, too\n"
                          "range AdapterRecord, record 2, Port: \"17\" is not a port from 1 to 16\n");
}

TEST_F(Daten_Pruefen_, reception_settings_out_of_range) {
    Write(Units, 0, "4");
    Write(Units, 1, "2");
    Write(Units, 6, "18");
    Write(Units, 10, "60");
    Write(Units, 13, "091");
    EXPECT_EQ(Findings(), "range WirelessUnitRecord, record 1, UnitMode: there is no setting \"4\"\n"
                          "range WirelessUnitRecord, record 1, AlwaysOn: there is no setting \"2\"\n"
                          "range WirelessUnitRecord, record 1, RssiLevel: there is no setting \"091\"\n"
                          "range WirelessUnitRecord, record 1, Hours: \"18\" is not a number from 0 to 17\n"
                          "range WirelessUnitRecord, record 1, Seconds: \"60\" is not a number from 0 to 59\n");
}

TEST_F(Daten_Pruefen_, a_listen_time_of_zero_needs_a_unit_that_is_always_on) {
    Write(Units, 6, "0");
    EXPECT_EQ(Findings(),
              "range WirelessUnitRecord, record 1, Hours: the listen time is zero and the unit is not always on\n");
    Write(Units, 1, "1");
    EXPECT_EQ(Findings(), "");
}

TEST_F(Daten_Pruefen_, units_out_of_range_and_doubled) {
    Write(Units, 58, "2");                    // class of unit 1
    Write(Units, 61 + 30, "01 60 00 01 1");   // unit 2: the same serial
    Write(Units, 106 + 30, "01 64 00 01 1");  // unit 3: one beyond class 1
    Write(Units, 151 + 30, "00 50 00 0X 2");  // unit 4: not hexadecimal
    Write(Units, 196 + 30, "00 50 00 00 3A"); // unit 5: last of class 2, wrong class and number
    EXPECT_EQ(Findings(),
              "range WirelessUnitRecord, record 1, Module1: the serial \"01.60.00.01\" is one of class 1\n"
              "doubled WirelessUnitRecord, record 1, Sn1_2: \"01.60.00.01\" stands twice at this lock\n"
              "range WirelessUnitRecord, record 1, Sn1_3: \"01.64.00.01\" is not the serial of a unit\n"
              "range WirelessUnitRecord, record 1, Sn1_4: \"00.50.00.0X\" is not a serial of four hexadecimal pairs\n"
              "range WirelessUnitRecord, record 1, UnitNo5: \"A\" is not a unit's address\n"
              "range WirelessUnitRecord, record 1, Module5: there is no module class \"3\"\n");
}

} // namespace
} // namespace qvm
