#include "LinkFixture.h"

#include <array>

namespace qvm {
namespace {

using Code = std::array<std::uint8_t, 5>;

TEST(Code_Packen, puts_two_digits_into_a_byte_and_sends_0_as_A) {
    EXPECT_EQ(Code_Packen("1203456789"), (Code{0x12, 0xA3, 0x45, 0x67, 0x89}));
}

TEST(Code_Packen, fills_a_code_shorter_than_ten_digits_with_E) {
    EXPECT_EQ(Code_Packen("12345"), (Code{0x12, 0x34, 0x5E, 0xEE, 0xEE}));
    EXPECT_EQ(Code_Packen(""), (Code{0xEE, 0xEE, 0xEE, 0xEE, 0xEE}));
}

TEST(Code_Packen, leaves_0_in_the_remaining_bytes_with_a_filler_of_0) {
    EXPECT_EQ(Code_Packen("12345", 0), (Code{0x12, 0x34, 0x50, 0x00, 0x00}));
}

TEST(Code_Packen, takes_A_for_0_and_any_other_character_for_no_digit) {
    EXPECT_EQ(Code_Packen("A1 2x3"), (Code{0xA1, 0xE2, 0xE3, 0xEE, 0xEE}));
}

TEST(Code_Packen, takes_no_more_than_ten_digits) {
    EXPECT_EQ(Code_Packen("123456789123"), (Code{0x12, 0x34, 0x56, 0x78, 0x91}));
}

TEST(AdminCode_Packen, puts_the_first_digit_high_and_sends_0_as_A) {
    EXPECT_EQ(AdminCode_Packen({1, 2, 0, 4, 5, 0}), (AdminCodeBytes{0x12, 0xA4, 0x5A}));
}

TEST(Gruppenmaske, takes_the_first_character_for_the_highest_bit) {
    EXPECT_EQ(Gruppenmaske("X-------"), 0x80);
    EXPECT_EQ(Gruppenmaske("-------X"), 0x01);
    EXPECT_EQ(Gruppenmaske("XX-X--X-"), 0xD2);
}

TEST(Gruppenmaske, takes_what_is_missing_and_every_other_character_for_no_bit) {
    EXPECT_EQ(Gruppenmaske("X"), 0x80);
    EXPECT_EQ(Gruppenmaske(""), 0);
    EXPECT_EQ(Gruppenmaske("x1 +????"), 0);
    EXPECT_EQ(Gruppenmaske("-------XX"), 0x01);
}

TEST(Wertigkeit, has_a_value_for_each_right_and_0C_for_anything_else) {
    EXPECT_EQ(Wertigkeit("1"), 0x0C);
    EXPECT_EQ(Wertigkeit("0"), 0x00);
    EXPECT_EQ(Wertigkeit("1/2"), 0x06);
    EXPECT_EQ(Wertigkeit("1/3"), 0x04);
    EXPECT_EQ(Wertigkeit("ADMI"), 0x0D);
    EXPECT_EQ(Wertigkeit("FS+"), 0x0A);
    EXPECT_EQ(Wertigkeit(""), 0x0C);
    EXPECT_EQ(Wertigkeit("admi"), 0x0C);
}

TEST(Pegelbyte, has_a_value_for_each_level_and_FF_for_anything_else) {
    EXPECT_EQ(Pegelbyte("090"), 0x5A);
    EXPECT_EQ(Pegelbyte("130"), 0x82);
    EXPECT_EQ(Pegelbyte("170"), 0xAA);
    EXPECT_EQ(Pegelbyte("210"), 0xD2);
    EXPECT_EQ(Pegelbyte("255"), 0xFF);
    EXPECT_EQ(Pegelbyte("000"), 0xFF);
    EXPECT_EQ(Pegelbyte(""), 0xFF);
}

TEST(SitzungsSchluessel_Neu, makes_bytes_from_1_to_255) {
    test::VirtualPlatform platform;
    platform.RandomValues = {0.0, 0.9999999, 0.5, 0.001, 0.002, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    const std::array<std::uint8_t, 16> key = SitzungsSchluessel_Neu(platform.World);
    EXPECT_EQ(key[0], 1);
    EXPECT_EQ(key[1], 255);
    EXPECT_EQ(key[2], 128);
    // 0.254 and 0.508 before the 1.
    EXPECT_EQ(key[3], 1);
    EXPECT_EQ(key[4], 2);
    EXPECT_TRUE(platform.RandomValues.empty());
}

} // namespace
} // namespace qvm
