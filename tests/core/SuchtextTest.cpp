#include "Suchtext.h"

#include "Text.h"

#include <gtest/gtest.h>

namespace qvm::test {
namespace {

TEST(Text_Enthaelt, finds_any_part_whatever_its_case) {
    EXPECT_TRUE(Text_Enthaelt("Haupteingang", "EIN"));
    EXPECT_TRUE(Text_Enthaelt("01.5A.0C.10", "5a.0c"));
    EXPECT_FALSE(Text_Enthaelt("Haupteingang", "einx"));
    EXPECT_FALSE(Text_Enthaelt("", "a"));
    EXPECT_TRUE(Text_Enthaelt("Tor", ""));
}

TEST(Text_Enthaelt, takes_an_umlaut_its_base_letter_and_its_two_letters_for_the_same) {
    EXPECT_TRUE(Text_Enthaelt(u8"Türschloß"_w, "tur"));
    EXPECT_TRUE(Text_Enthaelt(u8"Türschloß"_w, "Tuer"));
    EXPECT_TRUE(Text_Enthaelt(u8"Türschloß"_w, u8"TÜR"_w));
    EXPECT_TRUE(Text_Enthaelt(u8"Türschloß"_w, "schloss"));
    EXPECT_TRUE(Text_Enthaelt("Tuer 4", u8"tür"_w));
    EXPECT_TRUE(Text_Enthaelt("Tur 4", u8"tür"_w));
    EXPECT_TRUE(Text_Enthaelt(u8"ÄRZTE"_w, u8"ärzte"_w));
    EXPECT_FALSE(Text_Enthaelt("Tor", u8"tör e"_w));
}

TEST(Text_Enthaelt, passes_over_the_accents_of_other_languages) {
    EXPECT_TRUE(Text_Enthaelt(u8"Entrée Façade Noël"_w, "entree facade noel"));
    EXPECT_TRUE(Text_Enthaelt("entree", u8"ENTRÉE"_w));
    EXPECT_TRUE(Text_Enthaelt(u8"Œuvre Æther Šport Žurnal Ÿ"_w, "oeuvre aether sport zurnal y"));
    EXPECT_TRUE(Text_Enthaelt(u8"Ærø"_w, "aero"));
}

TEST(Sortierform, puts_an_umlaut_with_its_base_letter_and_capitals_with_small_letters) {
    EXPECT_EQ(Sortierform(u8"Ährenweg Straße ÖL"_w), "ahrenweg strasse ol");
    EXPECT_EQ(Sortierform(""), "");
}

TEST(Text_Enthaelt, leaves_signs_that_are_no_letters_what_they_are) {
    EXPECT_TRUE(Text_Enthaelt(u8"3 × 4 €"_w, u8"× 4 €"_w));
    EXPECT_FALSE(Text_Enthaelt("3 x 4", u8"×"_w));
    EXPECT_FALSE(Text_Enthaelt("3 : 4", u8"÷"_w));
}

TEST(Text_Beginnt, compares_the_beginning_alone) {
    EXPECT_TRUE(Text_Beginnt(u8"Übergang"_w, "u"));
    EXPECT_TRUE(Text_Beginnt(u8"Übergang"_w, "UEB"));
    EXPECT_FALSE(Text_Beginnt("Haupteingang", "ein"));
    EXPECT_FALSE(Text_Beginnt("Tor", "Tore"));
    EXPECT_TRUE(Text_Beginnt("Tor", ""));
}

} // namespace
} // namespace qvm::test
