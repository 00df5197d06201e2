#include "LinkFixture.h"

#include <array>

namespace qvm {
namespace {

using test::LinkFixture;

class GoldenUnit : public LinkFixture {
protected:
    GoldenUnit() {
        link.Lauf.SitzungsSchluessel = {0x01, 0x03, 0x05, 0x07, 0x09, 0x0B, 0x0D, 0x0F,
                                        0x11, 0x13, 0x15, 0x17, 0x19, 0x1B, 0x1D, 0x1F};
    }
};

TEST_F(GoldenUnit, TelUnitEinstellung) {
    EXPECT_TRUE(TelUnitEinstellung_Senden(link, {0x0D, 0xF0, 0x01, 0x7E}));
    EXPECT_EQ(Wire(), "02 11 3D 11 22 33 44 11 00 33 88 01 00 00 0D F0 01 7E 3A");
}

TEST_F(GoldenUnit, TelUnitSchluessel_carries_the_key_in_the_clear) {
    EXPECT_TRUE(TelUnitSchluessel_Senden(link));
    EXPECT_EQ(Wire(), "02 1D 48 11 22 33 44 11 00 33 88 01 00 00 01 03 05 07 09 0B 0D 0F 11 13 15 17 19 1B 1D 1F D1");
}

TEST_F(GoldenUnit, TelUnitOeffnen) {
    EXPECT_TRUE(TelUnitOeffnen_Senden(link, {0x0D, 0xF0, 0x01, 0x7E}));
    EXPECT_EQ(Wire(), "02 11 49 11 22 33 44 11 00 33 88 01 00 00 0D F0 01 7E 40");
}

// The cipher of this test adds the key byte by byte. The inner sum, over 0, 1 and everything up to the last clear data
// byte, is worked out before that.
TEST_F(GoldenUnit, TelUnitBlock_sums_the_clear_bytes_and_enciphers_them_in_two_halves) {
    int calls = 0;
    platform.World.encryptData = [&](std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
        ++calls;
        for (std::size_t n = 0; n < 16; ++n) {
            block[n] = static_cast<std::uint8_t>(block[n] + key[n] + calls);
        }
    };
    UnitBlock block{.Rows = 0x0104, .Row = 0x0103, .Piece = 5, .Type = 1, .RowAddress = 0x0699};
    block.Data[0] = 0x20;
    block.Data[15] = 0x30;
    block.Data[16] = 0x40;
    block.Data[31] = 0x50;
    EXPECT_TRUE(TelUnitBlock_Senden(link, block));
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(Wire(), "02 37 4A 11 22 33 44 11 00 33 88 01 00 00 01 01 04 01 03 05 01 06 99 22 04 06 08 0A 0C 0E 10 12 "
                      "14 16 18 1A 1C 1E 50 43 05 07 09 0B 0D 0F 11 13 15 17 19 1B 1D 1F 71 55 0E");
}

TEST_F(GoldenUnit, TelUnitSuche_goes_to_address_0_in_mode_1_and_leaves_both_as_they_were) {
    link.AddressMode = 2;
    EXPECT_TRUE(TelUnitSuche_Senden(link));
    EXPECT_EQ(Wire(), "02 0D 4B 00 00 00 00 11 01 33 88 01 00 00 4B");
    EXPECT_EQ(link.TargetAddress, (Address{0x11, 0x22, 0x33, 0x44}));
    EXPECT_EQ(link.AddressMode, 2);
}

TEST_F(GoldenUnit, TelUnitVerbinden) {
    EXPECT_TRUE(TelUnitVerbinden_Senden(link));
    EXPECT_EQ(Wire(), "02 14 FE 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EE EE AA 55 89");
}

TEST_F(GoldenUnit, TelEKeyAktion_loses_its_second_parameter) {
    EXPECT_TRUE(TelEKeyAktion_Senden(link, 4, 0x99));
    EXPECT_EQ(Wire(), "02 0E 66 11 22 33 44 11 00 33 88 01 00 00 04 E7");
}

TEST_F(GoldenUnit, TelEKeyLesen_for_a_newer_adapter) {
    EXPECT_TRUE(TelEKeyLesen_Senden(link, 5, 0x64, false));
    EXPECT_EQ(Wire(), "02 0F 67 11 22 33 44 11 00 33 88 01 00 00 05 64 96");
}

TEST_F(GoldenUnit, TelEKeyLesen_for_an_older_adapter_has_one_parameter) {
    EXPECT_TRUE(TelEKeyLesen_Senden(link, 5, 0x64, true));
    EXPECT_EQ(Wire(), "02 0E 67 11 22 33 44 11 00 33 88 01 00 00 05 F8");
}

TEST_F(GoldenUnit, TelFingerLoeschen_carries_the_slot) {
    EXPECT_TRUE(TelFingerLoeschen_Senden(link, 0x83));
    EXPECT_EQ(Wire(), "02 0E 70 11 22 33 44 11 00 33 88 01 00 00 83 08");
}

TEST_F(GoldenUnit, TelFingerAnlernen_carries_no_parameter) {
    EXPECT_TRUE(TelFingerAnlernen_Senden(link, 0x77, 0x78));
    EXPECT_EQ(Wire(), "02 0D A1 11 22 33 44 11 00 33 88 01 00 00 BB");
}

TEST_F(GoldenUnit, TelFingerAbfrage_carries_no_parameter) {
    EXPECT_TRUE(TelFingerAbfrage_Senden(link, 0x77, 0x78));
    EXPECT_EQ(Wire(), "02 0D A3 11 22 33 44 11 00 33 88 01 00 00 CB");
}

TEST_F(GoldenUnit, TelKarteStart) {
    EXPECT_TRUE(TelKarteStart_Senden(link));
    EXPECT_EQ(Wire(), "02 12 72 11 22 33 44 11 00 33 88 01 00 00 01 AA 55 AA 55 B7");
}

TEST_F(GoldenUnit, TelKarteLesen) {
    EXPECT_TRUE(TelKarteLesen_Senden(link, 2));
    EXPECT_EQ(Wire(), "02 12 73 11 22 33 44 11 00 33 88 01 00 00 02 00 AA 55 AA 55 C8");
}

constexpr std::array<std::uint8_t, 26> CardHead{3,  0,  17, 17,   0x80, 1,    5,    3,    26,   14,   30,   9,    3,
                                                26, 11, 0,  0x25, 0x6B, 0x41, 0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48};
constexpr std::array<std::array<std::uint8_t, 4>, 6> CardRows{{{0x50, 0x51, 0x52, 0x53},
                                                               {0x54, 0x55, 0x56, 0x57},
                                                               {0x58, 0x59, 0x5A, 0x5B},
                                                               {0x5C, 0x5D, 0x5E, 0x5F},
                                                               {0x60, 0x61, 0x62, 0x63},
                                                               {0x64, 0x65, 0x66, 0x67}}};

TEST_F(GoldenUnit, TelKarteSchreiben_takes_at_most_five_rows_and_ends_with_the_mode) {
    EXPECT_TRUE(TelKarteSchreiben_Senden(link, CardHead, CardRows, 9));
    EXPECT_EQ(Wire(), "02 3C 6F 11 22 33 44 11 00 33 88 01 00 00 03 00 11 11 80 01 05 03 1A 0E 1E 09 03 1A 0B 00 25 6B "
                      "41 42 43 44 45 46 47 48 50 51 52 53 54 55 56 57 58 59 5A 5B 5C 5D 5E 5F 60 61 62 63 09 4F");
}

TEST_F(GoldenUnit, TelKarteSchreiben_with_one_row_is_sixteen_bytes_shorter) {
    EXPECT_TRUE(TelKarteSchreiben_Senden(link, CardHead, std::span(CardRows).first(1), 9));
    EXPECT_EQ(Wire(), "02 2C 6F 11 22 33 44 11 00 33 88 01 00 00 03 00 11 11 80 01 05 03 1A 0E 1E 09 03 1A 0B 00 25 6B "
                      "41 42 43 44 45 46 47 48 50 51 52 53 09 EE");
}

TEST_F(GoldenUnit, TelKarteFolge_of_eleven_rows_ends_with_the_first_byte_of_the_twelfth) {
    std::array<std::uint8_t, 48> bytes{};
    for (std::uint8_t n = 0; n < 48; ++n) {
        bytes[n] = static_cast<std::uint8_t>(0x80 + n);
    }
    EXPECT_TRUE(TelKarteFolge_Senden(link, std::array<std::uint8_t, 2>{3, 1}, bytes, 11));
    EXPECT_EQ(Wire(), "02 3C 6F 11 22 33 44 11 00 33 88 01 00 00 03 01 80 81 82 83 84 85 86 87 88 89 8A 8B 8C 8D 8E 8F "
                      "90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F A0 A1 A2 A3 A4 A5 A6 A7 A8 A9 AA AB AC F0");
}

TEST_F(GoldenUnit, TelKarteFolge_of_one_row_fills_what_is_missing_with_zeros) {
    EXPECT_TRUE(TelKarteFolge_Senden(link, std::array<std::uint8_t, 2>{0, 3}, std::array<std::uint8_t, 3>{7, 8, 9}, 1));
    EXPECT_EQ(Wire(), "02 14 6F 11 22 33 44 11 00 33 88 01 00 00 00 03 07 08 09 00 00 82");
}

} // namespace
} // namespace qvm
