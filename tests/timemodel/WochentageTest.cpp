#include "Wochentage.h"

#include "TimeFixture.h"

namespace qvm {
namespace {

struct Wochentage : test::TimeFixture {};

TEST_F(Wochentage, eleven_selectors_stand_before_a_language_file_is_read) {
    EXPECT_EQ(Wochentag_Text(kern, 0), "OFF");
    EXPECT_EQ(Wochentag_Text(kern, 1), "Montag");
    EXPECT_EQ(Wochentag_Text(kern, 7), "Sonntag");
    EXPECT_EQ(Wochentag_Text(kern, 8), "Montag - Freitag");
    EXPECT_EQ(Wochentag_Text(kern, 9), "Samstag - Sonntag");
    EXPECT_EQ(Wochentag_Text(kern, 10), "Montag - Sonntag");
}

TEST_F(Wochentage, the_words_are_those_of_the_catalogue) {
    kern.Sprache.TagTexte[1] = "Monday";
    EXPECT_EQ(Wochentag_Text(kern, 1), "Monday");
    EXPECT_EQ(Wochentag_Index(kern, "Monday"), 1);
    EXPECT_EQ(Wochentag_Index(kern, "Montag"), -1);
}

TEST_F(Wochentage, the_twelfth_entry_and_all_outside_is_empty) {
    EXPECT_EQ(Wochentag_Text(kern, 11), "");
    EXPECT_EQ(Wochentag_Text(kern, 12), "");
    EXPECT_EQ(Wochentag_Text(kern, 255), "");
    EXPECT_EQ(Wochentag_Text(kern, -1), "");
}

TEST_F(Wochentage, a_text_is_compared_exactly) {
    EXPECT_EQ(Wochentag_Index(kern, "Montag - Sonntag"), 10);
    EXPECT_EQ(Wochentag_Index(kern, "montag"), -1);
    EXPECT_EQ(Wochentag_Index(kern, "Montag "), -1);
    EXPECT_EQ(Wochentag_Index(kern, ""), -1);
}

TEST_F(Wochentage, of_two_selectors_with_the_same_word_the_first_is_taken) {
    kern.Sprache.TagTexte[6] = "Weekend";
    kern.Sprache.TagTexte[9] = "Weekend";
    EXPECT_EQ(Wochentag_Index(kern, "Weekend"), 6);
}

} // namespace
} // namespace qvm
