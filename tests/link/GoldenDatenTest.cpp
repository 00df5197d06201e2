#include "LinkFixture.h"

#include <array>

namespace qvm {
namespace {

using test::LinkFixture;

/// Row n of table A is n1 n2 n3 n4 n5 in hexadecimal digits, that of table B begins with a letter.
constexpr std::array<TimerRow, 10> TableA{
    TimerRow{0x01, 0x11, 0x21, 0x31, 0x41}, TimerRow{0x03, 0x12, 0x22, 0x32, 0x42},
    TimerRow{0x04, 0x13, 0x23, 0x33, 0x43}, TimerRow{0x05, 0x14, 0x24, 0x34, 0x44},
    TimerRow{0x06, 0x15, 0x25, 0x35, 0x45}, TimerRow{0x07, 0x16, 0x26, 0x36, 0x46},
    TimerRow{0x08, 0x17, 0x27, 0x37, 0x47}, TimerRow{0x09, 0x18, 0x28, 0x38, 0x48},
    TimerRow{0x0A, 0x19, 0x29, 0x39, 0x49}, TimerRow{0x0B, 0x1A, 0x2A, 0x3A, 0x4A}};

constexpr std::array<TimerRow, 6> TableB{
    TimerRow{0xA1, 0x51, 0x61, 0x71, 0x81}, TimerRow{0xA2, 0x52, 0x62, 0x72, 0x82},
    TimerRow{0xA3, 0x53, 0x63, 0x73, 0x83}, TimerRow{0xA4, 0x54, 0x64, 0x74, 0x84},
    TimerRow{0xA5, 0x55, 0x65, 0x75, 0x85}, TimerRow{0xA6, 0x56, 0x66, 0x76, 0x86}};

/// 21 days, day n of month 1 in year 26; row 21 is one that no part may carry.
std::array<HolidayRow, 22> Feiertagstabelle(std::uint8_t year) {
    std::array<HolidayRow, 22> table{};
    for (std::uint8_t n = 0; n < 22; ++n) {
        table[n] = {static_cast<std::uint8_t>(0x30 + n), 1, year, static_cast<std::uint8_t>(0x31 + n), 1, year};
    }
    return table;
}

class GoldenDaten : public LinkFixture {
protected:
    std::array<HolidayRow, 22> singles = Feiertagstabelle(0x1A);
    std::array<HolidayRow, 22> permanent = Feiertagstabelle(0x63);
};

TEST_F(GoldenDaten, TelSchaltuhrA_part_0_has_rows_0_to_7) {
    EXPECT_TRUE(TelSchaltuhrA_Senden(link, TableA, 0));
    EXPECT_EQ(Wire(), "02 36 19 11 22 33 44 11 00 33 88 01 00 00 01 11 21 31 41 03 12 22 32 42 04 13 23 33 43 05 14 24 "
                      "34 44 06 15 25 35 45 07 16 26 36 46 08 17 27 37 47 09 18 28 38 48 00 03");
}

TEST_F(GoldenDaten, TelSchaltuhrA_part_1_has_rows_8_and_9_and_six_empty_ones) {
    EXPECT_TRUE(TelSchaltuhrA_Senden(link, TableA, 1));
    EXPECT_EQ(Wire(), "02 36 19 11 22 33 44 11 00 33 88 01 00 00 0A 19 29 39 49 0B 1A 2A 3A 4A 00 00 00 00 00 00 00 00 "
                      "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01 26");
}

TEST_F(GoldenDaten, TelSchaltuhrA_part_2_is_empty) {
    EXPECT_TRUE(TelSchaltuhrA_Senden(link, TableA, 2));
    EXPECT_EQ(Wire(), "02 36 19 11 22 33 44 11 00 33 88 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                      "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 02 00 16");
}

TEST_F(GoldenDaten, TelSchaltuhrA_of_a_shorter_table_ends_in_empty_rows) {
    EXPECT_TRUE(TelSchaltuhrA_Senden(link, std::span(TableA).first(1), 0));
    EXPECT_EQ(Wire(), "02 36 19 11 22 33 44 11 00 33 88 01 00 00 01 11 21 31 41 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                      "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 20");
}

TEST_F(GoldenDaten, TelSchaltuhrAKurz_has_rows_0_to_7_and_no_part) {
    EXPECT_TRUE(TelSchaltuhrAKurz_Senden(link, TableA));
    EXPECT_EQ(Wire(), "02 35 19 11 22 33 44 11 00 33 88 01 00 00 01 11 21 31 41 03 12 22 32 42 04 13 23 33 43 05 14 24 "
                      "34 44 06 15 25 35 45 07 16 26 36 46 08 17 27 37 47 09 18 28 38 48 71");
}

TEST_F(GoldenDaten, TelSchaltuhrB_part_0_has_rows_0_to_5_and_two_empty_ones) {
    EXPECT_TRUE(TelSchaltuhrB_Senden(link, TableB, 0));
    EXPECT_EQ(Wire(), "02 36 1B 11 22 33 44 11 00 33 88 01 00 00 A1 51 61 71 81 A2 52 62 72 82 A3 53 63 73 83 A4 54 64 "
                      "74 84 A5 55 65 75 85 A6 56 66 76 86 00 00 00 00 00 00 00 00 00 00 00 01");
}

TEST_F(GoldenDaten, TelSchaltuhrB_takes_no_seventh_row) {
    EXPECT_TRUE(TelSchaltuhrB_Senden(link, TableA, 0));
    EXPECT_EQ(Wire(), "02 36 1B 11 22 33 44 11 00 33 88 01 00 00 01 11 21 31 41 03 12 22 32 42 04 13 23 33 43 05 14 24 "
                      "34 44 06 15 25 35 45 07 16 26 36 46 00 00 00 00 00 00 00 00 00 00 00 EA");
}

TEST_F(GoldenDaten, TelSchaltuhrB_part_1_is_empty) {
    EXPECT_TRUE(TelSchaltuhrB_Senden(link, TableB, 1));
    EXPECT_EQ(Wire(), "02 36 1B 11 22 33 44 11 00 33 88 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                      "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01 35");
}

TEST_F(GoldenDaten, TelSchaltuhrBKurz_has_rows_0_to_5_and_no_part) {
    EXPECT_TRUE(TelSchaltuhrBKurz_Senden(link, TableB));
    EXPECT_EQ(Wire(), "02 35 1B 11 22 33 44 11 00 33 88 01 00 00 A1 51 61 71 81 A2 52 62 72 82 A3 53 63 73 83 A4 54 64 "
                      "74 84 A5 55 65 75 85 A6 56 66 76 86 00 00 00 00 00 00 00 00 00 00 70");
}

TEST_F(GoldenDaten, TelEinzelFeiertage_part_0_has_rows_0_to_6) {
    EXPECT_TRUE(TelEinzelFeiertage_Senden(link, singles, 0));
    EXPECT_EQ(Wire(), "02 38 1F 11 22 33 44 11 00 33 88 01 00 00 00 30 01 1A 31 01 1A 31 01 1A 32 01 1A 32 01 1A 33 01 "
                      "1A 33 01 1A 34 01 1A 34 01 1A 35 01 1A 35 01 1A 36 01 1A 36 01 1A 37 01 1A 70");
}

TEST_F(GoldenDaten, TelEinzelFeiertage_part_1_has_rows_7_to_13) {
    EXPECT_TRUE(TelEinzelFeiertage_Senden(link, singles, 1));
    EXPECT_EQ(Wire(), "02 38 1F 11 22 33 44 11 00 33 88 01 00 00 01 37 01 1A 38 01 1A 38 01 1A 39 01 1A 39 01 1A 3A 01 "
                      "1A 3A 01 1A 3B 01 1A 3B 01 1A 3C 01 1A 3C 01 1A 3D 01 1A 3D 01 1A 3E 01 1A 80");
}

TEST_F(GoldenDaten, TelEinzelFeiertage_part_2_has_rows_14_to_20) {
    EXPECT_TRUE(TelEinzelFeiertage_Senden(link, singles, 2));
    EXPECT_EQ(Wire(), "02 38 1F 11 22 33 44 11 00 33 88 01 00 00 02 00 3E 01 1A 3F 01 1A 3F 01 1A 40 01 1A 40 01 1A 41 "
                      "01 1A 41 01 1A 42 01 1A 42 01 1A 43 01 1A 43 01 1A 44 01 1A 44 01 1A 45 01 1A 90");
}

TEST_F(GoldenDaten, TelPermFeiertage_part_0_loses_the_last_byte_of_row_6_to_the_checksum) {
    EXPECT_TRUE(TelPermFeiertage_Senden(link, permanent, 0));
    EXPECT_EQ(Wire(), "02 37 21 11 22 33 44 11 00 33 88 01 00 00 00 30 01 63 31 01 63 31 01 63 32 01 63 32 01 63 33 01 "
                      "63 33 01 63 34 01 63 34 01 63 35 01 63 35 01 63 36 01 63 36 01 63 37 01 5F");
}

TEST_F(GoldenDaten, TelPermFeiertage_part_1_has_rows_7_to_13) {
    EXPECT_TRUE(TelPermFeiertage_Senden(link, permanent, 1));
    EXPECT_EQ(Wire(), "02 37 21 11 22 33 44 11 00 33 88 01 00 00 01 37 01 63 38 01 63 38 01 63 39 01 63 39 01 63 3A 01 "
                      "63 3A 01 63 3B 01 63 3B 01 63 3C 01 63 3C 01 63 3D 01 63 3D 01 63 3E 01 67");
}

TEST_F(GoldenDaten, TelPermFeiertage_part_2_has_rows_14_to_20) {
    EXPECT_TRUE(TelPermFeiertage_Senden(link, permanent, 2));
    EXPECT_EQ(Wire(), "02 37 21 11 22 33 44 11 00 33 88 01 00 00 02 00 3E 01 63 3F 01 63 3F 01 63 40 01 63 40 01 63 41 "
                      "01 63 41 01 63 42 01 63 42 01 63 43 01 63 43 01 63 44 01 63 44 01 63 45 01 6F");
}

TEST_F(GoldenDaten, TelEinzelFeiertage_of_an_empty_table_is_all_zero) {
    EXPECT_TRUE(TelEinzelFeiertage_Senden(link, {}, 0));
    EXPECT_EQ(Wire(), "02 38 1F 11 22 33 44 11 00 33 88 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                      "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 D2");
}

} // namespace
} // namespace qvm
