#include "Filter.h"

#include "Text.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace qvm {
namespace {

std::string Tastatur(std::string_view text) {
    std::string out;
    for (const char character : text) {
        out += F13_ASCII_FILTER(character);
    }
    return out;
}

/// What of the keys a filter lets through.
std::string Durchgelassen(int (*filter)(int), std::string_view keys) {
    std::string out;
    for (const char key : keys) {
        if (const int passed = filter(static_cast<unsigned char>(key)); passed != 0) {
            out += static_cast<char>(passed);
        }
    }
    return out;
}

constexpr std::string_view Digits = "0123456789";
constexpr std::string_view Capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view Smalls = "abcdefghijklmnopqrstuvwxyz";

TEST(F13_ASCII_FILTER, digits_stay) {
    EXPECT_EQ(Tastatur(Digits), "0123456789");
}

TEST(F13_ASCII_FILTER, letters_go_by_the_keypad_in_both_cases) {
    EXPECT_EQ(Tastatur(Capitals), "22233344455566677778889999");
    EXPECT_EQ(Tastatur(Smalls), "22233344455566677778889999");
}

TEST(F13_ASCII_FILTER, signs_of_the_one_key_give_1) {
    EXPECT_EQ(Tastatur("+,-."), "1111");
}

TEST(F13_ASCII_FILTER, everything_else_gives_0) {
    EXPECT_EQ(Tastatur(":;_"), "000");
    EXPECT_EQ(Tastatur(" /@[`{*#\r\t"), "0000000000");
    EXPECT_EQ(Tastatur(u8"äß€ÿ"_w), "0000");
    EXPECT_EQ(F13_ASCII_FILTER('\0'), '0');
}

TEST(F13_ASCII_FILTER, backspace_escape_and_delete_stay) {
    EXPECT_EQ(Tastatur("\x08\x1B\x7F"), "\x08\x1B\x7F");
}

TEST(Name_Filter, digits_letters_blank_and_the_german_letters_pass) {
    EXPECT_EQ(Durchgelassen(Name_Filter, Digits), Digits);
    EXPECT_EQ(Durchgelassen(Name_Filter, Capitals), Capitals);
    EXPECT_EQ(Durchgelassen(Name_Filter, Smalls), Smalls);
    EXPECT_EQ(Durchgelassen(Name_Filter, u8"ÄÖÜßäöü"_w), u8"ÄÖÜßäöü"_w);
    EXPECT_EQ(Durchgelassen(Name_Filter, " \x08\x7F"), " \x08\x7F");
}

TEST(Name_Filter, all_else_is_swallowed) {
    EXPECT_EQ(Durchgelassen(Name_Filter, "\t\r\x1B!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~"), "");
    EXPECT_EQ(Durchgelassen(Name_Filter, u8"éàÅØ€"_w), "");
    EXPECT_EQ(Name_Filter(0), 0);
    EXPECT_EQ(Name_Filter(-28), 0); // the umlaut's byte as a signed character
    EXPECT_EQ(Name_Filter(0x1C4), 0);
}

TEST(F5_ASCII_FILTER, digits_and_capitals_pass_and_small_letters_become_capitals) {
    EXPECT_EQ(Durchgelassen(F5_ASCII_FILTER, Digits), Digits);
    EXPECT_EQ(Durchgelassen(F5_ASCII_FILTER, Capitals), Capitals);
    EXPECT_EQ(Durchgelassen(F5_ASCII_FILTER, Smalls), Capitals);
    EXPECT_EQ(Durchgelassen(F5_ASCII_FILTER, "\x08\x1B\x7F"), "\x08\x1B\x7F");
}

TEST(F5_ASCII_FILTER, the_signs_of_the_keys_0_and_1_become_digits) {
    EXPECT_EQ(Durchgelassen(F5_ASCII_FILTER, ":;_"), "000");
    EXPECT_EQ(Durchgelassen(F5_ASCII_FILTER, "+,-."), "1111");
}

TEST(F5_ASCII_FILTER, all_else_is_swallowed) {
    EXPECT_EQ(Durchgelassen(F5_ASCII_FILTER, "\t\r !\"#$%&'()*/<=>?@[\\]^`{|}~"), "");
    EXPECT_EQ(Durchgelassen(F5_ASCII_FILTER, u8"äÖß"_w), "");
    EXPECT_EQ(F5_ASCII_FILTER(0), 0);
    EXPECT_EQ(F5_ASCII_FILTER(-1), 0);
}

TEST(SN_ASCII_FILTER, hexadecimal_digits_pass_in_capitals) {
    EXPECT_EQ(Durchgelassen(SN_ASCII_FILTER, Digits), Digits);
    EXPECT_EQ(Durchgelassen(SN_ASCII_FILTER, Capitals), "ABCDEF");
    EXPECT_EQ(Durchgelassen(SN_ASCII_FILTER, Smalls), "ABCDEF");
    EXPECT_EQ(Durchgelassen(SN_ASCII_FILTER, "\x08\x1B\x7F"), "\x08\x1B\x7F");
}

TEST(SN_ASCII_FILTER, typing_a_gives_capital_a_and_g_is_swallowed) {
    EXPECT_EQ(SN_ASCII_FILTER('a'), 'A');
    EXPECT_EQ(SN_ASCII_FILTER('G'), 0);
    EXPECT_EQ(SN_ASCII_FILTER('g'), 0);
    EXPECT_EQ(Durchgelassen(SN_ASCII_FILTER, " .:/@`\t\r"), "");
    EXPECT_EQ(SN_ASCII_FILTER(-1), 0);
}

TEST(ASCII_FILTER_F20, is_the_same_rule_as_that_of_the_lock_window) {
    EXPECT_EQ(ASCII_FILTER_F20('f'), 'F');
    EXPECT_EQ(ASCII_FILTER_F20('9'), '9');
    EXPECT_EQ(ASCII_FILTER_F20('g'), 0);
    EXPECT_EQ(ASCII_FILTER_F20(Key::Delete), Key::Delete);
}

} // namespace
} // namespace qvm
