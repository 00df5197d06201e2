#include "Seriennummer.h"

#include <gtest/gtest.h>
#include <optional>
#include <rapidcheck.h>

namespace qvm {
namespace {

TEST(Serie_Zerlegen, four_pairs_are_the_four_bytes) {
    EXPECT_EQ(Serie_Zerlegen("01.50.0C.06"), (Address{0x01, 0x50, 0x0C, 0x06}));
    EXPECT_EQ(Serie_Zerlegen("FF.FF.FF.FF"), (Address{0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(Serie_Zerlegen, blanks_small_letters_single_digits_and_leading_zeros_are_taken) {
    EXPECT_EQ(Serie_Zerlegen(" 1 . c0.0.00ae "), (Address{0x01, 0xC0, 0x00, 0xAE}));
}

TEST(Serie_Zerlegen, refuses_all_else) {
    for (const char* text :
         {"", "   ", ".", "...", "01.50.0C", "01.50.0C.", "01.50.0C.06.", "01.50.0C.06.07", "01.50.0G.06", "01500C06",
          "01 50 0C 06", "100.50.0C.06", "-1.50.0C.06", "01.50..06", "01.50.0 C.06", "000000001.50.0C.06"}) {
        EXPECT_EQ(Serie_Zerlegen(text), std::nullopt) << text;
    }
}

TEST(Serie_Zahl, has_the_first_byte_highest) {
    EXPECT_EQ(Serie_Zahl({0x01, 0x50, 0x0C, 0x06}), 0x01500C06U);
    EXPECT_EQ(Serie_Zahl({0xFF, 0, 0, 0x01}), 0xFF000001U);
    EXPECT_EQ(Serie_Zahl({}), 0U);
}

TEST(Serie_Text, is_four_pairs_of_capital_digits) {
    EXPECT_EQ(Serie_Text({0x01, 0xC0, 0x00, 0xAE}), "01.C0.00.AE");
    EXPECT_EQ(Serie_Text({}), "00.00.00.00");
}

TEST(Serie_Text, comes_back_as_the_bytes_that_it_was_made_of) {
    EXPECT_TRUE(rc::check([](const Address& bytes) { return Serie_Zerlegen(Serie_Text(bytes)) == bytes; }));
}

} // namespace
} // namespace qvm
