#include "Schlossregeln.h"

#include "LocksFixture.h"
#include "Text.h"

namespace qvm {
namespace {

TEST(Emi_Bild, a_serial_inside_the_range_has_no_emi_setting) {
    EXPECT_EQ(Emi_Bild("0B.4A.00.00"), LockPicture::NotApplicable);
    EXPECT_EQ(Emi_Bild("0C.00.00.00"), LockPicture::NotApplicable);
    EXPECT_EQ(Emi_Bild("0D.FF.B9.EE"), LockPicture::NotApplicable);
}

TEST(Emi_Bild, both_ends_of_the_range_are_outside) {
    EXPECT_EQ(Emi_Bild("0B.49.FF.FF"), LockPicture::Off);
    EXPECT_EQ(Emi_Bild("0D.FF.B9.EF"), LockPicture::Off);
}

TEST(Emi_Bild, any_other_serial_is_off) {
    EXPECT_EQ(Emi_Bild("00.00.00.00"), LockPicture::Off);
    EXPECT_EQ(Emi_Bild("FF.FF.FF.FF"), LockPicture::Off);
    EXPECT_EQ(Emi_Bild("..."), LockPicture::Off);
}

TEST(Emi_Bild, without_a_serial_nothing_applies) {
    EXPECT_EQ(Emi_Bild(""), LockPicture::NotApplicable);
    EXPECT_EQ(Emi_Bild("  "), LockPicture::NotApplicable);
}

TEST(Prioritaet_Code, counts_from_nought) {
    EXPECT_EQ(Prioritaet_Code("1"), 0);
    EXPECT_EQ(Prioritaet_Code("2"), 1);
    EXPECT_EQ(Prioritaet_Code("3"), 2);
    EXPECT_EQ(Prioritaet_Code("4"), 3);
    EXPECT_EQ(Prioritaet_Code("5"), 4);
}

TEST(Prioritaet_Code, blank_and_any_other_text_is_the_middle) {
    for (const char* text : {"", " ", "0", "6", "33", "x", "-1"}) {
        EXPECT_EQ(Prioritaet_Code(text), 2) << text;
    }
}

struct Tuermodus : test::LocksFixture {};

TEST_F(Tuermodus, the_two_modes_are_catalogue_lines) {
    EXPECT_EQ(Tuermodus_Text(kern, "AA"), "Zimmer");
    EXPECT_EQ(Tuermodus_Text(kern, "BB"), "Gemeinschaft");
    EXPECT_EQ(Tuermodus_Kennung(kern, "Zimmer"), "AA");
    EXPECT_EQ(Tuermodus_Kennung(kern, "Gemeinschaft"), "BB");
}

TEST_F(Tuermodus, anything_else_is_no_mode) {
    EXPECT_EQ(Tuermodus_Text(kern, ""), "");
    EXPECT_EQ(Tuermodus_Text(kern, "AB"), "");
    EXPECT_EQ(Tuermodus_Kennung(kern, ""), "");
    EXPECT_EQ(Tuermodus_Kennung(kern, "-"), "");
}

TEST_F(Tuermodus, without_a_language_file_the_mode_shows_as_stored_and_an_empty_cell_is_no_mode) {
    kern.Sprache.LanguageText[218].clear();
    kern.Sprache.LanguageText[219].clear();
    EXPECT_EQ(Tuermodus_Text(kern, "AA"), "AA");
    EXPECT_EQ(Tuermodus_Kennung(kern, "AA"), "AA");
    EXPECT_EQ(Tuermodus_Kennung(kern, "BB"), "BB");
    EXPECT_EQ(Tuermodus_Kennung(kern, ""), "");
}

} // namespace
} // namespace qvm
