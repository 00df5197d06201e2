#include "Schlossserie.h"

#include "LockRecords.h"
#include "LocksFixture.h"

namespace qvm {
namespace {

const SerialFields Fields{RecordField{"a", 0, 3}, RecordField{"b", 3, 3}, RecordField{"c", 6, 3},
                          RecordField{"d", 9, 3}};

std::string Geschrieben(std::string_view serial) {
    std::string record;
    Serie_Schreiben(record, Fields, serial);
    return record;
}

TEST(Serie_Schreiben, cuts_the_text_at_its_points) {
    EXPECT_EQ(Geschrieben("0A.1B.2C.3D"), "0A 1B 2C 3D ");
}

TEST(Serie_Schreiben, a_missing_part_is_blank) {
    EXPECT_EQ(Geschrieben(""), "            ");
    EXPECT_EQ(Geschrieben("0A.1B"), "0A 1B       ");
    EXPECT_EQ(Geschrieben(".1B..3D"), "   1B    3D ");
}

TEST(Serie_Schreiben, what_does_not_fit_is_dropped) {
    EXPECT_EQ(Geschrieben("12345.1.2.3.4"), "1231  2  3  ");
    EXPECT_EQ(Geschrieben(" 0A . 1B .2C.3D "), "0A 1B 2C 3D ");
}

TEST(Serie_Wert, is_the_number_of_the_four_pairs_with_the_first_highest) {
    EXPECT_EQ(Serie_Wert("0B.49.FF.FF"), 0x0B49FFFF);
    EXPECT_EQ(Serie_Wert("00.00.00.01"), 1);
    EXPECT_EQ(Serie_Wert("ff.ff.ff.ff"), 0xFFFFFFFF);
    EXPECT_EQ(Serie_Wert(" 01.02.03.04 "), 0x01020304);
}

TEST(Serie_Wert, a_text_of_another_shape_has_none) {
    for (const char* text : {"", "0B.49.FF", "0B49FFFF", "0B.49.FF.FG", "0.B49.FF.FF", "0B.49.FF.F", "0B.49.FF.FFF",
                             "0B49..FF.FF", "...", "0B.49.FF FF"}) {
        EXPECT_EQ(Serie_Wert(text), -1) << text;
    }
}

struct Serie_Lesen_Aus : test::LocksFixture {
    std::string Lesen(const std::string& serial12) {
        files[Locks] = test::LockBytes("", "", serial12, "");
        RecordFile locks(LockRecord::Record);
        EXPECT_EQ(locks.Laden(kern.Welt.Files, kern.DatPfad()), ReadStatus::Ok);
        return Serie_Lesen(locks, 1, {LockRecord::Sn1, LockRecord::Sn2, LockRecord::Sn3, LockRecord::Sn4});
    }
};

TEST_F(Serie_Lesen_Aus, the_parts_are_trimmed_and_joined_by_points) {
    EXPECT_EQ(Lesen("0A 1B 2C 3D "), "0A.1B.2C.3D");
    EXPECT_EQ(Lesen(" 0A  1 2C 3D "), "0A.1.2C.3D");
}

TEST_F(Serie_Lesen_Aus, a_blank_part_keeps_its_place) {
    EXPECT_EQ(Lesen("   1B    3D "), ".1B..3D");
}

TEST_F(Serie_Lesen_Aus, four_blank_parts_are_an_empty_text) {
    EXPECT_EQ(Lesen("            "), "");
}

} // namespace
} // namespace qvm
