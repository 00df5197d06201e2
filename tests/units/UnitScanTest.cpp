// What a scan of the channels has found, and how its values are read.

#include "UnitScan.h"

#include "Catalogue.h"

#include <cstddef>
#include <gtest/gtest.h>

namespace qvm::test {
namespace {

UnitScan Found(int channel, std::uint8_t signal, std::uint8_t status = ScanEntry::Well) {
    UnitScan scan;
    scan.Entries[static_cast<std::size_t>(channel)] = {.Status = status, .Serial = {}, .Signal = signal, .Type = 6};
    return scan;
}

TEST(Signalwert, of_the_upper_half_counts_downwards) {
    EXPECT_EQ(Signalwert(0), 0);
    EXPECT_EQ(Signalwert(127), 127);
    EXPECT_EQ(Signalwert(128), 128);
    EXPECT_EQ(Signalwert(129), 127);
    EXPECT_EQ(Signalwert(255), 1);
}

TEST(Unit_Textzeile, goes_by_the_type_and_a_type_that_is_not_known_is_a_reader) {
    for (const int type : {0, 1, 5, 11, 40, 46, 50, 52, 255}) {
        EXPECT_EQ(Unit_Textzeile(static_cast<std::uint8_t>(type)), Line::UnitAE) << type;
    }
    for (const int type : {6, 10}) {
        EXPECT_EQ(Unit_Textzeile(static_cast<std::uint8_t>(type)), Line::UnitTA) << type;
    }
    for (const int type : {41, 45}) {
        EXPECT_EQ(Unit_Textzeile(static_cast<std::uint8_t>(type)), Line::UnitSTE) << type;
    }
    EXPECT_EQ(Unit_Textzeile(51), Line::UnitAEOther);
}

TEST(Unit_Typmarke, goes_by_the_short_label) {
    EXPECT_EQ(Unit_Typmarke("TA "), "1");
    EXPECT_EQ(Unit_Typmarke("AE "), "2");
    EXPECT_EQ(Unit_Typmarke("STE"), "3");
    EXPECT_EQ(Unit_Typmarke(""), "2");
}

TEST(Balken_Laenge, is_a_cell_for_each_four_steps_of_the_signal) {
    EXPECT_EQ(Balken_Laenge(-1), 0);
    EXPECT_EQ(Balken_Laenge(3), 0);
    EXPECT_EQ(Balken_Laenge(4), 1);
    EXPECT_EQ(Balken_Laenge(127), 31);
    EXPECT_EQ(Balken_Laenge(128), 32);
    EXPECT_EQ(Balken_Laenge(4000), 32);
}

TEST(Balken_Farbe, rises_from_dark_red_to_light_green_in_five_bands) {
    EXPECT_EQ(Balken_Farbe(0), 0xC0U);
    EXPECT_EQ(Balken_Farbe(5), 0xC0U);
    EXPECT_EQ(Balken_Farbe(6), 0xFFU);
    EXPECT_EQ(Balken_Farbe(12), 0x80FFU);
    EXPECT_EQ(Balken_Farbe(18), 0x80FFFFU);
    EXPECT_EQ(Balken_Farbe(24), 0x80FF80U);
    EXPECT_EQ(Balken_Farbe(31), 0x80FF80U);
}

TEST(Bester_Kanal, is_the_strongest_that_answered_well) {
    EXPECT_EQ(Bester_Kanal({}), 0);
    EXPECT_EQ(Bester_Kanal(Found(12, 1)), 12);
    EXPECT_EQ(Bester_Kanal(Found(3, 90, 1)), 0) << "answered poorly";
    UnitScan scan = Found(2, 40);
    scan.Entries[5] = {.Status = ScanEntry::Well, .Serial = {}, .Signal = 140, .Type = 6}; // 116
    scan.Entries[7] = {.Status = 1, .Serial = {}, .Signal = 127, .Type = 6};
    EXPECT_EQ(Bester_Kanal(scan), 5);
}

TEST(Bester_Kanal, of_equals_is_the_first) {
    UnitScan scan = Found(4, 127);
    scan.Entries[9] = {.Status = ScanEntry::Well, .Serial = {}, .Signal = 129, .Type = 6};
    EXPECT_EQ(Bester_Kanal(scan), 4);
    scan.Entries[9].Signal = 128;
    EXPECT_EQ(Bester_Kanal(scan), 9);
}

} // namespace
} // namespace qvm::test
