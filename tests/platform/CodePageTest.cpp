#include "RealWorld.h"
#include "Text.h"

#include <string>

namespace qvm {
namespace {

using namespace std::string_literals;

class CharToOem : public test::RealWorld {};
class OemToChar : public test::RealWorld {};

std::string Ascii() {
    std::string text;
    for (int value = 0; value < 0x80; ++value) {
        text += static_cast<char>(value);
    }
    return text;
}

TEST_F(CharToOem, the_letters_of_the_four_languages_have_their_places_in_code_page_850) {
    EXPECT_EQ(World().CharToOem(u8"äöüÄÖÜß"_w), "\x84\x94\x81\x8E\x99\x9A\xE1");
    EXPECT_EQ(World().CharToOem(u8"éèêëàâçîïôùûœ"_w), "\x82\x8A\x88\x89\x85\x83\x87\x8C\x8B\x93\x97\x96?");
    EXPECT_EQ(World().CharToOem(u8"§°µ£ƒ"_w), "\xF5\xF8\xE6\x9C\x9F");
}

TEST_F(CharToOem, ascii_stays_as_it_is_control_characters_and_zero_too) {
    EXPECT_EQ(World().CharToOem(Ascii()), Ascii());
}

TEST_F(CharToOem, a_character_that_the_page_has_not_becomes_a_question_mark) {
    EXPECT_EQ(World().CharToOem(u8"1 € „x“ …"_w), "1 ? ?x? ?");
    EXPECT_EQ(World().CharToOem("\x81\x8D\x8F\x90\x9D"), "?????"); // undefined in code page 1252
}

TEST_F(CharToOem, a_text_keeps_its_length) {
    std::string all;
    for (int value = 0; value < 256; ++value) {
        all += static_cast<char>(value);
    }
    EXPECT_EQ(World().CharToOem(all).size(), 256U);
    EXPECT_EQ(World().OemToChar(all).size(), 256U);
    EXPECT_EQ(World().CharToOem(""), "");
}

TEST_F(OemToChar, the_letters_come_back) {
    EXPECT_EQ(World().OemToChar("\x84\x94\x81\x8E\x99\x9A\xE1"), u8"äöüÄÖÜß"_w);
    EXPECT_EQ(World().OemToChar(Ascii()), Ascii());
}

TEST_F(OemToChar, line_drawing_and_blocks_become_question_marks) {
    EXPECT_EQ(World().OemToChar("\xC4\xB3\xDB\xB0\xD5"), "?????"); // 0xD5: the i without a dot
}

TEST_F(OemToChar, every_character_from_0xA0_on_survives_the_way_there_and_back) {
    std::string latin;
    for (int value = 0xA0; value < 0x100; ++value) {
        latin += static_cast<char>(value);
    }
    EXPECT_EQ(World().OemToChar(World().CharToOem(latin)), latin);
}

} // namespace
} // namespace qvm
