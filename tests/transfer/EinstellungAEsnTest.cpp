#include "Dataset.h"

#include <gtest/gtest.h>

namespace qvm {
namespace {

TEST(Einstellung_AEsn, a_serial_gives_its_digits_and_its_four_bytes) {
    Address address{};
    EXPECT_EQ(Einstellung_AEsn("01.50.0C.06", address), "01500C06");
    EXPECT_EQ(address, (Address{0x01, 0x50, 0x0C, 0x06}));
}

TEST(Einstellung_AEsn, small_letters_and_single_digits_are_taken) {
    Address address{};
    EXPECT_EQ(Einstellung_AEsn(" 1.c0.0.ae ", address), "01C000AE");
    EXPECT_EQ(address, (Address{0x01, 0xC0, 0x00, 0xAE}));
}

TEST(Einstellung_AEsn, what_is_no_serial_gives_FEHLER_and_leaves_the_address) {
    for (const char* text : {"", "   ", ".", "...", "01.50.0C", "01.50.0C.", "01.50.0C.06.07", "01.50.0G.06",
                             "01 50 0C 06", "100.50.0C.06", "-1.50.0C.06", "01.50..06"}) {
        Address address{9, 8, 7, 6};
        EXPECT_EQ(Einstellung_AEsn(text, address), "FEHLER") << text;
        EXPECT_EQ(address, (Address{9, 8, 7, 6})) << text;
    }
}

} // namespace
} // namespace qvm
