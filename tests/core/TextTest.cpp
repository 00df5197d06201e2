#include "Text.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <rapidcheck.h>
#include <string>
#include <vector>

namespace qvm {
namespace {

TEST(NachUtf8, ascii_stays_as_it_is) {
    EXPECT_EQ(NachUtf8("Code 7, \"x\"~"), "Code 7, \"x\"~");
}

TEST(NachUtf8, umlauts_become_two_bytes_and_the_euro_sign_three) {
    EXPECT_EQ(NachUtf8("Zur\xFC"
                       "ck"),
              "Zur\xC3\xBC"
              "ck");
    EXPECT_EQ(NachUtf8("\x80"), "\xE2\x82\xAC");
    EXPECT_EQ(NachUtf8("\x9F"), "\xC5\xB8");
}

TEST(NachUtf8, the_five_undefined_bytes_become_the_control_characters_of_their_number) {
    EXPECT_EQ(NachUtf8("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(AusUtf8, what_the_code_page_lacks_becomes_one_question_mark) {
    EXPECT_EQ(AusUtf8("\xCE\xB1"), "?");         // alpha
    EXPECT_EQ(AusUtf8("\xF0\x9F\x94\x91"), "?"); // a key, beyond 16 bits
    EXPECT_EQ(AusUtf8("\xC2\x80"), "?");         // the control character whose byte is the euro sign's
}

TEST(AusUtf8, a_broken_sequence_becomes_one_question_mark_and_the_rest_is_read_on) {
    EXPECT_EQ(AusUtf8("a\xE2\x82z"), "a?z");
    EXPECT_EQ(AusUtf8("\xC3"), "?");
    EXPECT_EQ(AusUtf8("\xBC."), "?.");
    EXPECT_EQ(AusUtf8("\xFF."), "?.");
}

TEST(AusUtf8, forms_that_are_too_long_and_surrogates_are_broken) {
    EXPECT_EQ(AusUtf8("\xC0\xAF"), "??");
    EXPECT_EQ(AusUtf8("\xE0\x80\xAF"), "?");
    EXPECT_EQ(AusUtf8("\xED\xA0\x80"), "?");
    EXPECT_EQ(AusUtf8("\xF4\x90\x80\x80"), "?");
}

TEST(PasstInCp1252, tells_what_can_be_stored) {
    EXPECT_TRUE(PasstInCp1252(""));
    EXPECT_TRUE(PasstInCp1252("Fran\xC3\xA7"
                              "ais \xE2\x82\xAC"));
    EXPECT_FALSE(PasstInCp1252("\xCE\xB1"));
    EXPECT_FALSE(PasstInCp1252("abc\xC3"));
}

TEST(PasstInCp1252, a_question_mark_is_a_character_like_any_other) {
    EXPECT_TRUE(PasstInCp1252("?"));
}

TEST(Cp1252, every_byte_survives_the_way_to_utf8_and_back) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        EXPECT_EQ(AusUtf8(NachUtf8(one)), one) << byte;
        EXPECT_TRUE(PasstInCp1252(NachUtf8(one))) << byte;
    }
}

TEST(Cp1252, every_text_survives_the_way_to_utf8_and_back) {
    EXPECT_TRUE(rc::check([](const std::vector<std::uint8_t>& bytes) {
        const std::string text(bytes.begin(), bytes.end());
        RC_ASSERT(AusUtf8(NachUtf8(text)) == text);
    }));
}

TEST(Cp1252, any_bytes_can_be_read_as_utf8) {
    EXPECT_TRUE(rc::check([](const std::vector<std::uint8_t>& bytes) {
        const std::string text(bytes.begin(), bytes.end());
        RC_ASSERT(AusUtf8(text).size() <= text.size());
        RC_ASSERT(!PasstInCp1252(text) || NachUtf8(AusUtf8(text)) == text);
    }));
}

TEST(Literal, is_converted_at_compile_time) {
    static_assert(u8"Zurück"_w.size() == 6);
    EXPECT_EQ(u8"Zurück"_w, "Zur\xFC"
                            "ck");
    EXPECT_EQ(u8"€"_w, "\x80");
    EXPECT_EQ(u8""_w, "");
}

TEST(Trim, takes_blanks_and_nothing_else) {
    EXPECT_EQ(Trim("  a b \t "), "a b \t");
    EXPECT_EQ(LTrim("  a  "), "a  ");
    EXPECT_EQ(RTrim("  a  "), "  a");
}

TEST(Trim, a_text_of_blanks_becomes_empty) {
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(LTrim("   "), "");
    EXPECT_EQ(RTrim("   "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(Mid, counts_from_one_and_stops_at_the_end) {
    EXPECT_EQ(Mid("USB-Port17", 9), "17");
    EXPECT_EQ(Mid("abcdef", 2, 3), "bcd");
    EXPECT_EQ(Mid("abcdef", 5, 9), "ef");
    EXPECT_EQ(Mid("abc", 4), "");
    EXPECT_EQ(Mid("abc", 400, 2), "");
    EXPECT_EQ(Mid("", 1), "");
    EXPECT_EQ(Mid("abc", 0, 2), "ab");
}

TEST(GrossText, raises_ascii_and_the_letters_of_the_code_page) {
    EXPECT_EQ(GrossText("abcxyz09_"), "ABCXYZ09_");
    EXPECT_EQ(GrossText(u8"äöüéçœšžÿ"_w), u8"ÄÖÜÉÇŒŠŽŸ"_w);
}

TEST(GrossText, leaves_what_has_no_capital_in_the_code_page) {
    EXPECT_EQ(GrossText(u8"ß÷µƒ€×"_w), u8"ß÷µƒ€×"_w);
}

TEST(Zahlwert, reads_the_number_that_the_text_begins_with) {
    EXPECT_EQ(Zahlwert("17"), 17);
    EXPECT_EQ(Zahlwert("  007x9"), 7);
    EXPECT_EQ(Zahlwert("-12"), -12);
    EXPECT_EQ(Zahlwert("+3"), 3);
}

TEST(Zahlwert, gives_zero_when_there_is_no_number) {
    EXPECT_EQ(Zahlwert(""), 0);
    EXPECT_EQ(Zahlwert("x1"), 0);
    EXPECT_EQ(Zahlwert("- 1"), 0);
    EXPECT_EQ(Zahlwert("-"), 0);
}

TEST(Zahlwert, holds_at_the_limits_of_32_bits) {
    EXPECT_EQ(Zahlwert("2147483647"), 2147483647);
    EXPECT_EQ(Zahlwert("2147483648"), 2147483647);
    EXPECT_EQ(Zahlwert("-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Zahlwert("-99999999999999999999999999"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Zahlwert("99999999999999999999999999"), 2147483647);
}

TEST(Ziffern, pads_with_zeros_and_never_cuts) {
    EXPECT_EQ(Ziffern(7, 2), "07");
    EXPECT_EQ(Ziffern(123, 2), "123");
    EXPECT_EQ(Ziffern(0), "0");
    EXPECT_EQ(Ziffern(-5, 3), "-005");
}

TEST(HexText, is_upper_case_and_padded) {
    EXPECT_EQ(HexText(0xAB, 2), "AB");
    EXPECT_EQ(HexText(0x0F, 2), "0F");
    EXPECT_EQ(HexText(0, 2), "00");
    EXPECT_EQ(HexText(0x1500C06, 8), "01500C06");
    EXPECT_EQ(HexText(0x123, 2), "123");
}

TEST(HexWert, reads_one_to_eight_digits_of_either_case) {
    EXPECT_EQ(HexWert("0"), 0);
    EXPECT_EQ(HexWert("fF"), 255);
    EXPECT_EQ(HexWert("FFFFFFFF"), 4294967295);
}

TEST(HexWert, refuses_all_else) {
    EXPECT_EQ(HexWert(""), -1);
    EXPECT_EQ(HexWert("123456789"), -1);
    EXPECT_EQ(HexWert("G"), -1);
    EXPECT_EQ(HexWert(" 1"), -1);
    EXPECT_EQ(HexWert("-1"), -1);
}

} // namespace
} // namespace qvm
