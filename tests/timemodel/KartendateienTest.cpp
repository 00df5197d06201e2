// Permanent doors and the object group on the disk.

#include "Kartendateien.h"

#include "TimeFixture.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Kartendateien : TimeFixture {
    static constexpr char Perm[] = "/qvm/DAT/PERMSELECT.RFS", Group[] = "/qvm/DAT/ObJNR09DAT.OBN",
                          Times[] = "/qvm/DAT/OFSTSETUPDT.FST";

    int ReadGroup(const std::string& bytes) {
        files[Group] = bytes;
        int number = -1;
        EXPECT_EQ(GruppenNr_Laden(kern, number), ReadStatus::Ok);
        return number;
    }
};

TEST_F(Kartendateien, permanent_doors_are_written_line_by_line) {
    EXPECT_TRUE(PermSelect_Speichern(kern, {"00.0A.10.01", "00.0A.10.02"}));
    EXPECT_EQ(files[Perm], "05.03.2026\r\n00.0A.10.01\r\n00.0A.10.02\r\nENDE\r\n");
    EXPECT_TRUE(PermSelect_Speichern(kern, {}));
    EXPECT_EQ(files[Perm], "05.03.2026\r\nENDE\r\n");
}

TEST_F(Kartendateien, permanent_doors_are_read_up_to_the_end) {
    std::set<std::string> serials{"old"};
    EXPECT_EQ(PermSelect_Laden(kern, serials), ReadStatus::Missing);
    EXPECT_THAT(serials, IsEmpty());
    files[Perm] = "x\r\n 00.0A.10.01 \r\n\r\n00.0A.10.02\nENDE\r\n00.0A.10.03\r\n";
    EXPECT_EQ(PermSelect_Laden(kern, serials), ReadStatus::Ok);
    EXPECT_THAT(serials, ElementsAre("00.0A.10.01", "00.0A.10.02"));
    files[Perm] = "x\r\n00.0A.10.04"; // without an end
    EXPECT_EQ(PermSelect_Laden(kern, serials), ReadStatus::Ok);
    EXPECT_THAT(serials, ElementsAre("00.0A.10.04"));
}

TEST_F(Kartendateien, a_damaged_group_file_whose_third_line_is_not_the_second_plus_one_yields_group_1) {
    EXPECT_EQ(ReadGroup("x\r\n7\r\n8\r\n"), 7);
    EXPECT_EQ(ReadGroup("x\r\n0\r\n1\r\n"), 0);
    EXPECT_EQ(ReadGroup("x\r\n254\r\n255\r\n"), 254);
    for (const char* bytes : {"x\r\n7\r\n9\r\n", "x\r\n7\r\n", "", "x\r\n255\r\n256\r\n", "x\r\n-1\r\n0\r\n",
                              "x\r\n7a\r\n8\r\n", "x\r\n99999999999\r\n100000000000\r\n"}) {
        EXPECT_EQ(ReadGroup(bytes), 1) << bytes;
    }
}

TEST_F(Kartendateien, without_a_group_file_the_group_is_0) {
    int number = -1;
    EXPECT_EQ(GruppenNr_Laden(kern, number), ReadStatus::Missing);
    EXPECT_EQ(number, 0);
    EXPECT_TRUE(GruppenNr_Speichern(kern, 12));
    EXPECT_EQ(files[Group], "05.03.2026\r\n12\r\n13\r\n");
}

TEST_F(Kartendateien, default_times_stand_as_they_are_and_are_empty_without_a_file) {
    std::array<std::string, 2> times{"a", "b"};
    EXPECT_EQ(Kartenzeiten_Laden(kern, times), ReadStatus::Missing);
    EXPECT_THAT(times, ElementsAre("", ""));
    files[Times] = "x\r\n09:30 \r\n15:00\r\n00\r\n01\r\n";
    EXPECT_EQ(Kartenzeiten_Laden(kern, times), ReadStatus::Ok);
    EXPECT_THAT(times, ElementsAre("09:30 ", "15:00"));
}

TEST_F(Kartendateien, a_broken_disk_leaves_the_files_and_says_so) {
    files[Perm] = "old";
    Brechen(1);
    EXPECT_FALSE(PermSelect_Speichern(kern, {"00.0A.10.01"}));
    EXPECT_EQ(files[Perm], "old");
    Brechen(1);
    EXPECT_FALSE(GruppenNr_Speichern(kern, 3));
    EXPECT_FALSE(files.contains(Group));
    Brechen(1);
    std::set<std::string> serials{"old"};
    EXPECT_EQ(PermSelect_Laden(kern, serials), ReadStatus::Error);
    Brechen(1);
    int number = 9;
    EXPECT_EQ(GruppenNr_Laden(kern, number), ReadStatus::Error);
    EXPECT_EQ(number, 1);
}

} // namespace
} // namespace qvm::test
