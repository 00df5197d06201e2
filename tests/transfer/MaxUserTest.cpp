#include "Dataset.h"

#include <gtest/gtest.h>

namespace qvm {
namespace {

TEST(MaxUserAnz, the_first_family_takes_299_users) {
    EXPECT_EQ(MaxUserAnz(0x1000001), 299);
    EXPECT_EQ(MaxUserAnz(0x1004579), 299);
}

TEST(MaxUserAnz, the_small_family_takes_47_users_from_its_first_to_its_last_serial) {
    EXPECT_EQ(MaxUserAnz(0x1005901), 299);
    EXPECT_EQ(MaxUserAnz(0x1005902), 47);
    EXPECT_EQ(MaxUserAnz(0x1200000), 47);
    EXPECT_EQ(MaxUserAnz(0x1500000), 47);
}

TEST(MaxUserAnz, the_large_families_take_1999_users) {
    EXPECT_EQ(MaxUserAnz(0x1500001), 1999);
    EXPECT_EQ(MaxUserAnz(0x1500424), 1999);
    EXPECT_EQ(MaxUserAnz(0x1500425), 299);
    EXPECT_EQ(MaxUserAnz(0x150080C), 299);
    EXPECT_EQ(MaxUserAnz(0x150080D), 1999);
    EXPECT_EQ(MaxUserAnz(0x1600000), 1999);
}

TEST(MaxUserAnz, every_other_lock_takes_299_users) {
    EXPECT_EQ(MaxUserAnz(0), 299);
    EXPECT_EQ(MaxUserAnz(0x1000000), 299);
    EXPECT_EQ(MaxUserAnz(0x100457A), 299);
    EXPECT_EQ(MaxUserAnz(0x1600001), 299);
    EXPECT_EQ(MaxUserAnz(0xFFFFFFFF), 299);
}

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
