// The families of devices at every end of their ranges of serials.

#include "Modelle.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <initializer_list>

namespace qvm {
namespace {

using Serials = std::initializer_list<std::int64_t>;

/// Every rule holds for the serials just inside of its ends and not for those just outside.
void Ends(const SerialRule& rule, Serials inside, Serials outside) {
    for (const std::int64_t serial : inside) {
        EXPECT_TRUE(rule(serial)) << rule.Name << " " << std::hex << serial;
    }
    for (const std::int64_t serial : outside) {
        EXPECT_FALSE(rule(serial)) << rule.Name << " " << std::hex << serial;
    }
    EXPECT_FALSE(rule(-1)) << rule.Name << " holds for what is no serial";
}

TEST(BereichN, is_1500C06_to_1600000_and_1C000AE_to_1D00000) {
    Ends(BereichN, {0x1500C06, 0x1500C07, 0x15FFFFF, 0x1600000, 0x1C000AE, 0x1C000AF, 0x1CFFFFF, 0x1D00000},
         {0, 0x1500C05, 0x1600001, 0x1C000AD, 0x1D00001, 0xFFFFFFFF});
}

TEST(BereichZ, is_1000001_to_2000000) {
    Ends(BereichZ, {0x1000001, 0x1000002, 0x1FFFFFF, 0x2000000}, {0, 0x1000000, 0x2000001, 0xFFFFFFFF});
}

TEST(Datenstart_Antwort_Wartet, is_range_Z_without_its_last_serial) {
    Ends(Datenstart_Antwort_Wartet, {0x1000001, 0x1000002, 0x1FFFFFE, 0x1FFFFFF},
         {0, 0x1000000, 0x2000000, 0x2000001, 0xFFFFFFFF});
}

TEST(BereichZweiDurchgaenge, is_above_E6E9000_and_below_FDFF59C) {
    Ends(BereichZweiDurchgaenge, {0xE6E9001, 0xFDFF59B}, {0, 0xE6E8FFF, 0xE6E9000, 0xFDFF59C, 0xFDFF59D, 0xFFFFFFFF});
}

TEST(Volle_Zeittabellen, is_1000001_to_1600000_and_1C00001_to_2000000_in_one) {
    Ends(Volle_Zeittabellen, {0x1000001, 0x1600000, 0x1C00001, 0x1D00000, 0x1D00001, 0x2000000},
         {0, 0x1000000, 0x1600001, 0x1C00000, 0x2000001, 0xFFFFFFFF});
}

TEST(Timer_A_Und_B, is_up_to_B49FFFF) {
    Ends(Timer_A_Und_B, {0, 1, 0xB49FFFE, 0xB49FFFF}, {0xB4A0000, 0xFFFFFFFF});
}

TEST(Eine_Feiertagstabelle, is_above_A000000_and_below_D912D64) {
    Ends(Eine_Feiertagstabelle, {0xA000001, 0xD912D63}, {0, 0x9FFFFFF, 0xA000000, 0xD912D64, 0xD912D65, 0xFFFFFFFF});
}

TEST(Ohne_Emi, is_above_B49FFFF_and_below_DFFB9EF) {
    Ends(Ohne_Emi, {189399040, 234863086}, {0, 189399038, 189399039, 234863087, 234863088, 0xFFFFFFFF});
}

TEST(Unit_Klasse_1, is_23068673_to_23330816) {
    Ends(Unit_Klasse_1, {23068673, 23068674, 23330815, 23330816}, {0, 5242880, 23068672, 23330817, 0xFFFFFFFF});
}

TEST(Unit_Klasse_2, is_1_to_5242880) {
    Ends(Unit_Klasse_2, {1, 2, 5242879, 5242880}, {0, 5242881, 23068673, 0xFFFFFFFF});
}

TEST(Unit_Mit_Kleiner_Nummer, is_11469_to_5242880) {
    Ends(Unit_Mit_Kleiner_Nummer, {11469, 11470, 5242879, 5242880}, {0, 1, 11468, 5242881, 0xFFFFFFFF});
}

TEST(Netzadapter, is_3E00001_to_3F00000) {
    Ends(Netzadapter, {0x3E00001, 0x3E00002, 0x3EFFFFF, 0x3F00000}, {0, 0x3E00000, 0x3F00001, 0xFFFFFFFF});
}

TEST(MaxUserAnz, changes_at_each_end_of_its_four_ranges) {
    struct Limit {
        std::uint32_t Serial;
        int Users;
    };
    for (const Limit& limit : {Limit{0x1000000, 299},
                               {0x1000001, 299},
                               {0x1004579, 299},
                               {0x100457A, 299}, // first
                               {0x1005901, 299},
                               {0x1005902, 47},
                               {0x1200000, 47},
                               {0x1500000, 47}, // third
                               {0x1500001, 1999},
                               {0x1500424, 1999},
                               {0x1500425, 299}, // second
                               {0x150080C, 299},
                               {0x150080D, 1999},
                               {0x1600000, 1999},
                               {0x1600001, 299}, // fourth
                               {0, 299},
                               {0xFFFFFFFF, 299}}) {
        EXPECT_EQ(MaxUserAnz(limit.Serial), limit.Users) << std::hex << limit.Serial;
    }
}

TEST(Sn_Klasse, class_1_is_1600001_to_1640000) {
    EXPECT_EQ(Sn_Klasse(23068672), '0');
    EXPECT_EQ(Sn_Klasse(23068673), '1');
    EXPECT_EQ(Sn_Klasse(23330816), '1');
    EXPECT_EQ(Sn_Klasse(23330817), '0');
}

TEST(Sn_Klasse, class_2_is_1_to_500000) {
    EXPECT_EQ(Sn_Klasse(1), '2');
    EXPECT_EQ(Sn_Klasse(5242880), '2');
    EXPECT_EQ(Sn_Klasse(5242881), '0');
}

TEST(Sn_Klasse, nothing_zero_and_the_largest_serial_are_refused) {
    EXPECT_EQ(Sn_Klasse(0), '0');
    EXPECT_EQ(Sn_Klasse(-1), '0');
    EXPECT_EQ(Sn_Klasse(0xFFFFFFFF), '0');
}

} // namespace
} // namespace qvm
