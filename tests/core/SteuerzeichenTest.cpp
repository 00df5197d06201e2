#include "Steuerzeichen.h"

#include "Csv.h"

#include <gtest/gtest.h>

namespace qvm {
namespace {

using namespace std::string_literals;

TEST(Steuerzeichen_Ersetzen, control_characters_become_blanks_and_undefined_bytes_question_marks) {
    EXPECT_EQ(Steuerzeichen_Ersetzen("A\0B\x1B[31m\x7F\r\nC"s), "A B [31m   C");
    EXPECT_EQ(Steuerzeichen_Ersetzen("\x81\x8D\x8F\x90\x9D"), "?????");
}

TEST(Steuerzeichen_Ersetzen, everything_else_stays) {
    std::string text;
    for (int byte = 0x20; byte <= 0xFF; ++byte) {
        if (byte != 0x7F && byte != 0x81 && byte != 0x8D && byte != 0x8F && byte != 0x90 && byte != 0x9D) {
            text += static_cast<char>(byte);
        }
    }
    EXPECT_EQ(Steuerzeichen_Ersetzen(text), text);
    EXPECT_EQ(Steuerzeichen_Ersetzen_Utf8("Zoë € 中 😀"), "Zoë € 中 😀");
}

TEST(Steuerzeichen_Ersetzen_Utf8, replaces_the_control_characters_of_both_ranges) {
    EXPECT_EQ(Steuerzeichen_Ersetzen_Utf8("A\0B\x1B[31m\x7F\n"s), "A B [31m  ");
    // CSI as one character, and the last of its range; 0xA0 behind it is none.
    EXPECT_EQ(Steuerzeichen_Ersetzen_Utf8("a\xC2\x9B"
                                          "b\xC2\x9F\xC2\xA0"),
              "a?b?\xC2\xA0");
}

TEST(Steuerzeichen_Ersetzen_Utf8, a_byte_that_belongs_to_no_character_is_a_question_mark) {
    EXPECT_EQ(Steuerzeichen_Ersetzen_Utf8("a\x9B"
                                          "b\xC3"),
              "a?b?");
    EXPECT_EQ(Steuerzeichen_Ersetzen_Utf8("\xC0\x80\xED"), "???");
    EXPECT_EQ(Utf8_Laenge(""), 0U);
}

TEST(Csv_Feld, a_plain_text_stays_as_it_is) {
    EXPECT_EQ(Csv_Feld(""), "");
    EXPECT_EQ(Csv_Feld("Anna Maria = 1"), "Anna Maria = 1");
    EXPECT_EQ(Csv_Feld("'"), "'");
}

TEST(Csv_Feld, what_would_end_the_field_or_the_line_stands_in_quotes) {
    EXPECT_EQ(Csv_Feld("a;b"), "\"a;b\"");
    EXPECT_EQ(Csv_Feld("a\"b"), "\"a\"\"b\"");
    EXPECT_EQ(Csv_Feld("a\nb"), "\"a\nb\"");
    EXPECT_EQ(Csv_Feld("a\rb"), "\"a\rb\"");
}

TEST(Csv_Feld, a_dash_alone_is_no_formula) {
    EXPECT_EQ(Csv_Feld("-"), "-");
    EXPECT_EQ(Csv_Feld("--"), "'--");
}

TEST(Csv_Feld, what_a_spreadsheet_would_run_is_a_text) {
    EXPECT_EQ(Csv_Feld("=1+1"), "'=1+1");
    EXPECT_EQ(Csv_Feld("+1"), "'+1");
    EXPECT_EQ(Csv_Feld("-1"), "'-1");
    EXPECT_EQ(Csv_Feld("@SUM(A1)"), "'@SUM(A1)");
    EXPECT_EQ(Csv_Feld("\t=1"), "'\t=1");
    EXPECT_EQ(Csv_Feld("\r=1"), "\"'\r=1\"");
    EXPECT_EQ(Csv_Feld("=HYPERLINK(\"x\";\"y\")"), "\"'=HYPERLINK(\"\"x\"\";\"\"y\"\")\"");
}

} // namespace
} // namespace qvm
