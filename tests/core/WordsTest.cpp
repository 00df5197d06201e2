#include "Words.h"

#include "Kern.h"
#include "VirtualPlatform.h"

#include <gtest/gtest.h>
#include <string>

namespace qvm {
namespace {

TEST(Wort, gives_the_text_of_the_language_in_use) {
    test::VirtualPlatform world;
    Kern kern{world.World};
    kern.Config.Sprache = "Francais";
    EXPECT_EQ(Wort(kern, Word::Month), "Mois");
    kern.Config.Sprache = "Nederlands          ";
    EXPECT_EQ(Wort(kern, Word::Month), "Maand");
}

TEST(Wort, is_german_in_a_language_that_it_does_not_know) {
    EXPECT_EQ(Wort(Word::Year, "Klingon"), "Jahr");
    EXPECT_EQ(Wort(Word::Year, ""), "Jahr");
}

TEST(Wort, comes_in_code_page_1252) {
    EXPECT_EQ(Wort(Word::Locks, "Deutsch"), "Schl\xF6sser");
}

TEST(Fester_Text, stands_in_german_and_is_followed_by_its_translation_in_other_languages) {
    test::VirtualPlatform world;
    Kern kern{world.World};
    kern.Config.Sprache = "Deutsch";
    EXPECT_EQ(Fester_Text(kern, Word::CardNotRecognised), "Karte nicht erkannt!");
    kern.Config.Sprache = "English";
    EXPECT_EQ(Fester_Text(kern, Word::CardNotRecognised), "Karte nicht erkannt!\r\nCard not recognised!");
    EXPECT_EQ(Fester_Text(kern, Word::CardNotRecognised, " / "), "Karte nicht erkannt! / Card not recognised!");
}

TEST(Fenstertitel, is_the_systems_title_and_what_the_window_is_for) {
    EXPECT_EQ(Fenstertitel("Suchen"), "QVM 7702 SOFTWARE SYSTEM - Suchen");
    EXPECT_EQ(Fenstertitel(""), "QVM 7702 SOFTWARE SYSTEM");
}

TEST(Ausfuellen, puts_each_text_in_its_place_as_often_as_it_stands) {
    EXPECT_EQ(Ausfuellen("%2 of %1, %2", {"ten", "three"}), "three of ten, three");
}

TEST(Ausfuellen, leaves_a_place_inside_a_filled_in_text_alone) {
    EXPECT_EQ(Ausfuellen("<%1><%2>", {"%2", "b"}), "<%2><b>");
}

TEST(Ausfuellen, makes_a_place_without_a_text_empty) {
    EXPECT_EQ(Ausfuellen("a%3b", {"x"}), "ab");
}

TEST(Ausfuellen, leaves_other_percent_signs) {
    EXPECT_EQ(Ausfuellen("100 % %0 %", {"x"}), "100 % %0 %");
}

} // namespace
} // namespace qvm
