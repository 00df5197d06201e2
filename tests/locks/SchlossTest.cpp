#include "Schloss.h"

#include "LocksFixture.h"

namespace qvm {
namespace {

struct Schloss_Lesen_Aus : test::LocksFixture {
    RecordFile locks{LockRecord::Record};

    LockInfo Lesen(const std::string& bytes, int n) {
        files[Locks] = bytes;
        EXPECT_EQ(locks.Laden(kern.Welt.Files, kern.DatPfad()), ReadStatus::Ok);
        return Schloss_Lesen(locks, n);
    }
};

TEST_F(Schloss_Lesen_Aus, a_record_gives_all_its_parts) {
    const LockInfo lock =
        Lesen(test::LockBytes("Nord", "", "", "") + test::LockBytes("Tor 1", "OFST0x02", "0E 6E 90 01 ", "X X X"), 2);
    EXPECT_EQ(lock.Name, "Tor 1");
    EXPECT_EQ(lock.Serial, "0E.6E.90.01");
    EXPECT_EQ(lock.OffsetId, "OFST0x02");
    EXPECT_EQ(lock.Switches, (std::array<std::string, 5>{"X", "", "X", "", "X"}));
}

TEST_F(Schloss_Lesen_Aus, a_serial_with_a_blank_part_is_none) {
    EXPECT_EQ(Lesen(test::LockBytes("A", "", "   6E 90 01 ", ""), 1).Serial, "");
    EXPECT_EQ(Lesen(test::LockBytes("A", "", "0E    90 01 ", ""), 1).Serial, "");
    EXPECT_EQ(Lesen(test::LockBytes("A", "", "0E 6E    01 ", ""), 1).Serial, "");
    EXPECT_EQ(Lesen(test::LockBytes("A", "", "0E 6E 90    ", ""), 1).Serial, "");
}

TEST_F(Schloss_Lesen_Aus, a_record_that_the_file_does_not_hold_is_empty) {
    const std::string one = test::LockBytes("Tor 1", "OFST0x02", "0E 6E 90 01 ", "XXXXX");
    for (const int n : {-1, 0, 2, 200, 100000}) {
        const LockInfo lock = Lesen(one, n);
        EXPECT_EQ(lock.Name + lock.Serial + lock.OffsetId + lock.Switches[0], "") << n;
    }
}

TEST_F(Schloss_Lesen_Aus, a_record_cut_short_gives_what_it_has) {
    const LockInfo lock = Lesen(test::LockBytes("Tor 1", "OFST0x02", "0E 6E 90 01 ", "XXXXX").substr(0, 34), 1);
    EXPECT_EQ(lock.Name, "Tor 1");
    EXPECT_EQ(lock.OffsetId, "OFST0x02");
    EXPECT_EQ(lock.Serial, "");
}

} // namespace
} // namespace qvm
