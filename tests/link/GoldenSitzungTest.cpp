#include "LinkFixture.h"

namespace qvm {
namespace {

using test::LinkFixture;
using GoldenSitzung = LinkFixture;

TEST_F(GoldenSitzung, TelUnitTrennen) {
    EXPECT_TRUE(TelUnitTrennen_Senden(link));
    EXPECT_EQ(Wire(), "02 0D 03 11 22 33 44 11 00 33 88 01 00 00 C6");
}

TEST_F(GoldenSitzung, TelVerbinden) {
    link.TargetChannel = 7;
    EXPECT_TRUE(TelVerbinden_Senden(link));
    EXPECT_EQ(Wire(), "02 14 04 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EE 07 AA 55 FD");
}

TEST_F(GoldenSitzung, TelVerbinden_on_channel_2_is_stuffed) {
    link.TargetChannel = 2;
    EXPECT_TRUE(TelVerbinden_Senden(link));
    EXPECT_EQ(Wire(), "02 14 04 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EE 02 00 AA 55 E9");
}

TEST_F(GoldenSitzung, TelVerbindenKurz) {
    link.TargetChannel = 12;
    EXPECT_TRUE(TelVerbindenKurz_Senden(link));
    EXPECT_EQ(Wire(), "02 12 04 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EE 0C D5");
}

TEST_F(GoldenSitzung, TelTrennen) {
    EXPECT_TRUE(TelTrennen_Senden(link));
    EXPECT_EQ(Wire(), "02 0D 05 11 22 33 44 11 00 33 88 01 00 00 D6");
}

TEST_F(GoldenSitzung, TelDatum_carries_the_date_of_the_PC) {
    EXPECT_TRUE(TelDatum_Senden(link));
    EXPECT_EQ(Wire(), "02 10 07 11 22 33 44 11 00 33 88 01 00 00 05 03 1A EC");
}

TEST_F(GoldenSitzung, TelLebenszeichen) {
    EXPECT_TRUE(TelLebenszeichen_Senden(link));
    EXPECT_EQ(Wire(), "02 0D 08 11 22 33 44 11 00 33 88 01 00 00 EE");
}

TEST_F(GoldenSitzung, TelUhrzeit_carries_the_time_of_the_PC) {
    platform.RunFor(7000);
    EXPECT_TRUE(TelUhrzeit_Senden(link));
    EXPECT_EQ(Wire(), "02 10 09 11 22 33 44 11 00 33 88 01 00 00 0A 1E 07 A4");
}

TEST_F(GoldenSitzung, TelCodeAendern) {
    EXPECT_TRUE(TelCodeAendern_Senden(link, {0x12, 0x34, 0x56}, {0x9A, 0x87, 0x65}));
    EXPECT_EQ(Wire(), "02 19 12 11 22 33 44 11 00 33 88 01 00 00 33 33 12 34 56 EE EE 9A 87 65 EE EE CB");
}

TEST_F(GoldenSitzung, TelDatenEnde) {
    EXPECT_TRUE(TelDatenEnde_Senden(link));
    EXPECT_EQ(Wire(), "02 0D 15 11 22 33 44 11 00 33 88 01 00 00 57");
}

TEST_F(GoldenSitzung, TelHistorie_for_the_first_record) {
    EXPECT_TRUE(TelHistorie_Senden(link, 0));
    EXPECT_EQ(Wire(), "02 0E 17 11 22 33 44 11 00 33 88 01 00 00 00 EE");
}

TEST_F(GoldenSitzung, TelHistorie_for_the_next_record) {
    EXPECT_TRUE(TelHistorie_Senden(link, 2));
    EXPECT_EQ(Wire(), "02 0E 17 11 22 33 44 11 00 33 88 01 00 00 02 00 F0");
}

TEST_F(GoldenSitzung, TelSperrTimerFlag) {
    link.Lauf.Values.FlagLockTimer = 1;
    EXPECT_TRUE(TelSperrTimerFlag_Senden(link));
    EXPECT_EQ(Wire(), "02 0E 23 11 22 33 44 11 00 33 88 01 00 00 01 B0");
}

TEST_F(GoldenSitzung, TelKalenderFlag) {
    link.Lauf.Values.FlagCalendar = 1;
    EXPECT_TRUE(TelKalenderFlag_Senden(link));
    EXPECT_EQ(Wire(), "02 0E 25 11 22 33 44 11 00 33 88 01 00 00 01 D0");
}

TEST_F(GoldenSitzung, TelDatenStart_carries_the_given_option_and_not_the_one_of_the_run) {
    link.Lauf.Order.EraseOption = 1;
    EXPECT_TRUE(TelDatenStart_Senden(link, 0));
    EXPECT_EQ(Wire(), "02 0E 27 11 22 33 44 11 00 33 88 01 00 00 00 EF");
}

TEST_F(GoldenSitzung, TelDatenStart_with_erase) {
    EXPECT_TRUE(TelDatenStart_Senden(link, 1));
    EXPECT_EQ(Wire(), "02 0E 27 11 22 33 44 11 00 33 88 01 00 00 01 F0");
}

TEST_F(GoldenSitzung, TelKanalLesen_carries_the_channel_less_1) {
    EXPECT_TRUE(TelKanalLesen_Senden(link, 1));
    EXPECT_EQ(Wire(), "02 0E 28 11 22 33 44 11 00 33 88 01 00 00 00 FF");
}

TEST_F(GoldenSitzung, TelKanalLesen_of_the_last_channel) {
    EXPECT_TRUE(TelKanalLesen_Senden(link, 12));
    EXPECT_EQ(Wire(), "02 0E 28 11 22 33 44 11 00 33 88 01 00 00 0B 0B");
}

TEST_F(GoldenSitzung, TelKanalSetzen_carries_the_channel_less_1) {
    EXPECT_TRUE(TelKanalSetzen_Senden(link, 12));
    EXPECT_EQ(Wire(), "02 0E 29 11 22 33 44 11 00 33 88 01 00 00 0B 1B");
}

TEST_F(GoldenSitzung, TelPrioritaet) {
    link.Lauf.Values.PriorityCode = 3;
    EXPECT_TRUE(TelPrioritaet_Senden(link));
    EXPECT_EQ(Wire(), "02 0E 2F 11 22 33 44 11 00 33 88 01 00 00 03 73");
}

TEST_F(GoldenSitzung, TelSchlossModus) {
    link.Lauf.Values.LockMode = 0x14;
    EXPECT_TRUE(TelSchlossModus_Senden(link));
    EXPECT_EQ(Wire(), "02 0E 32 11 22 33 44 11 00 33 88 01 00 00 14 B4");
}

TEST_F(GoldenSitzung, TelZeitfenster_of_two_hours) {
    EXPECT_TRUE(TelZeitfenster_Senden(link, 1, 0, 7200));
    EXPECT_EQ(Wire(), "02 12 33 11 22 33 44 11 00 33 88 01 00 00 01 00 1C 20 00 D3");
}

TEST_F(GoldenSitzung, TelZeitfenster_of_one_second_has_no_high_byte) {
    EXPECT_TRUE(TelZeitfenster_Senden(link, 0, 1, 1));
    EXPECT_EQ(Wire(), "02 12 33 11 22 33 44 11 00 33 88 01 00 00 00 01 00 01 00 1D");
}

// 900, 450, 225, 112.5, 56, 28, 14, 7, 3.5: the two ties go to the even 112 and 4, where 900 / 256 would give 3.
TEST_F(GoldenSitzung, TelZeitfenster_of_a_quarter_hour_rounds_ties_to_even) {
    EXPECT_TRUE(TelZeitfenster_Senden(link, 1, 1, 900));
    EXPECT_EQ(Wire(), "02 12 33 11 22 33 44 11 00 33 88 01 00 00 01 01 04 84 00 44");
}

TEST_F(GoldenSitzung, TelReaderEinstellung_with_the_flag) {
    EXPECT_TRUE(TelReaderEinstellung_Senden(link, 0x82, true));
    EXPECT_EQ(Wire(), "02 11 3B 11 22 33 44 11 00 33 88 01 00 00 01 82 03 01 A5");
}

TEST_F(GoldenSitzung, TelReaderEinstellung_without_the_flag) {
    EXPECT_TRUE(TelReaderEinstellung_Senden(link, 0xFF, false));
    EXPECT_EQ(Wire(), "02 11 3B 11 22 33 44 11 00 33 88 01 00 00 01 FF 00 00 94");
}

} // namespace
} // namespace qvm
