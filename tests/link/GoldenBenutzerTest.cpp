#include "LinkFixture.h"

#include <array>

namespace qvm {
namespace {

using test::LinkFixture;
using GoldenBenutzer = LinkFixture;

TEST_F(GoldenBenutzer, TelBenutzerBeginn) {
    EXPECT_TRUE(TelBenutzerBeginn_Senden(link));
    EXPECT_EQ(Wire(), "02 0D 0A 11 22 33 44 11 00 33 88 01 00 00 FE");
}

TEST_F(GoldenBenutzer, TelBenutzerName1_of_a_short_name_ends_in_zeros) {
    EXPECT_TRUE(TelBenutzerName1_Senden(link, "Meier"));
    EXPECT_EQ(Wire(), "02 1D 0B 11 22 33 44 11 00 33 88 01 00 00 4D 65 69 65 72 00 00 00 00 00 00 00 00 00 00 00 1F");
}

TEST_F(GoldenBenutzer, TelBenutzerName1_cuts_a_name_behind_16_characters) {
    EXPECT_TRUE(TelBenutzerName1_Senden(link, "ABCDEFGHIJKLMNOPQR"));
    EXPECT_EQ(Wire(), "02 1D 0B 11 22 33 44 11 00 33 88 01 00 00 41 42 43 44 45 46 47 48 49 4A 4B 4C 4D 4E 4F 50 F7");
}

// 0x81 is the u with two dots in the code page of the locks.
TEST_F(GoldenBenutzer, TelBenutzerName2) {
    EXPECT_TRUE(TelBenutzerName2_Senden(link, 0x0102, "M\x81ller"));
    EXPECT_EQ(Wire(), "02 1F 0D 11 22 33 44 11 00 33 88 01 00 00 01 02 00 4D 81 6C 6C 65 72 00 00 00 00 00 00 00 00 00 "
                      "00 35");
}

TEST_F(GoldenBenutzer, TelBenutzerDaten_without_an_identification) {
    EXPECT_TRUE(TelBenutzerDaten_Senden(link, {.Slot = 0x0BB7,
                                               .Code = {0x12, 0x34, 0xA6, 0xEE, 0xEE},
                                               .TimerSelector = 0x80,
                                               .Weighting = 0x0C,
                                               .Id = {1, 3, 4, 5},
                                               .IdData = {9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9}}));
    EXPECT_EQ(Wire(), "02 17 0E 11 22 33 44 11 00 33 88 01 00 00 0B B7 12 34 A6 EE EE 80 0C 00 38");
}

TEST_F(GoldenBenutzer, TelBenutzerDaten_with_an_identification) {
    EXPECT_TRUE(TelBenutzerDaten_Senden(link, {.Slot = 7,
                                               .Code = {0xEE, 0xEE, 0xEE, 0xEE, 0xEE},
                                               .TimerSelector = 1,
                                               .Weighting = 6,
                                               .WithId = true,
                                               .Id = {0xC8, 0x02, 0x7B, 0x04},
                                               .IdData = {0x10, 0x11, 0x12, 0x13, 0x14, 0x15, 0x16, 0x17, 0x18, 0x19,
                                                          0x1A, 0x1B, 0x1C, 0x1D, 0x1E, 0x1F}}));
    EXPECT_EQ(Wire(), "02 2B 0E 11 22 33 44 11 00 33 88 01 00 00 00 07 EE EE EE EE EE 01 06 01 C8 02 00 7B 04 10 11 12 "
                      "13 14 15 16 17 18 19 1A 1B 1C 1D 1E 1F 72");
}

TEST_F(GoldenBenutzer, TelBenutzerZeitgruppen_carries_the_third_mask_first) {
    EXPECT_TRUE(TelBenutzerZeitgruppen_Senden(link, 0x0123, {0x81, 0x42, 0x24}));
    EXPECT_EQ(Wire(), "02 12 37 11 22 33 44 11 00 33 88 01 00 00 01 23 24 42 81 D6");
}

TEST_F(GoldenBenutzer, TelBenutzerVorlage_puts_the_weighting_over_the_last_byte_of_the_slice) {
    std::array<std::uint8_t, 29> slice{};
    for (std::uint8_t n = 0; n < 29; ++n) {
        slice[n] = static_cast<std::uint8_t>(0x60 + n);
    }
    EXPECT_TRUE(TelBenutzerVorlage_Senden(link, 0x0104, "Eva", slice, 0x0D));
    EXPECT_EQ(Wire(), "02 3C 40 11 22 33 44 11 00 33 88 01 00 00 01 04 45 76 61 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                      "60 61 62 63 64 65 66 67 68 69 6A 6B 6C 6D 6E 6F 70 71 72 73 74 75 76 77 78 79 7A 7B 0D 5E");
}

TEST_F(GoldenBenutzer, TelIdDaten1) {
    EXPECT_TRUE(TelIdDaten1_Senden(
        link, 3, {0xA0, 0xA1, 0xA2, 0xA3, 0xA4, 0xA5, 0xA6, 0xA7, 0xA8, 0xA9, 0xAA, 0xAB, 0xAC, 0xAD, 0xAE, 0xAF}));
    EXPECT_EQ(Wire(), "02 20 43 11 22 33 44 11 00 33 88 01 00 00 01 01 03 A0 A1 A2 A3 A4 A5 A6 A7 A8 A9 AA AB AC AD AE "
                      "AF C8");
}

TEST_F(GoldenBenutzer, TelIdDaten2_goes_out_with_the_device_class_that_stands) {
    link.DeviceClassByte = 0xC3;
    EXPECT_TRUE(TelIdDaten2_Senden(link, 3, 0x0102, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0}));
    EXPECT_EQ(Wire(), "02 1D 43 11 22 33 44 C3 00 33 88 01 00 00 01 02 00 03 01 02 00 01 02 00 03 04 05 06 07 08 09 0A "
                      "00 EF");
}

} // namespace
} // namespace qvm
