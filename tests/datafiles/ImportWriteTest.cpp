#include "ConsoleFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string Emi = Dat + "LSOEMIPART.LMT";
/// The table with one mark, as long as every writer makes it.
const std::string OneX = "X" + std::string(199, ' ');
const std::string Settings = Dat + "ObJNR09DAT.OBN";
const std::string Backup = Dat + "backup-20260305-070809/";

/// Replaces one file that is there, and makes one that is not.
const std::string Both = R"({"format":"qvm7702-export","version":1,
    "tables":{"LockEmiRecord":[{"record":1,"Emi":"X"}]}, "lines":{"ObJNR09DAT.OBN":["05.03.2026","4","5"]}})";

class Import_Schreiben_ : public testing::Test {
protected:
    void SetUp() override { Disk.Files[Emi] = "YY"; }

    MemoryFiles Disk;
};

TEST_F(Import_Schreiben_, replaces_what_is_there_makes_what_is_not_and_keeps_a_dated_copy) {
    const ImportReport report = Import(Disk, Both);
    EXPECT_TRUE(report.Done);
    EXPECT_EQ(Disk.Files[Emi], OneX);
    EXPECT_EQ(Disk.Files[Settings], "05.03.2026\r\n4\r\n5\r\n");
    EXPECT_EQ(Disk.Files[Backup + "LSOEMIPART.LMT"], "YY");
    EXPECT_EQ(Disk.Files.size(), 3U);
    EXPECT_EQ(report.Backup, Backup);
    EXPECT_THAT(report.Replaced, ElementsAre("LSOEMIPART.LMT"));
    EXPECT_THAT(report.Created, ElementsAre("ObJNR09DAT.OBN"));
}

TEST_F(Import_Schreiben_, tables_that_the_document_does_not_hold_stay_as_they_are) {
    Disk.Files[Dat + "BX10X52WUJ9.UBW"] = "users";
    Import(Disk, Both);
    EXPECT_EQ(Disk.Files[Dat + "BX10X52WUJ9.UBW"], "users");
}

TEST_F(Import_Schreiben_, a_file_that_already_holds_these_bytes_is_neither_copied_nor_written) {
    Disk.Files[Emi] = OneX;
    const ImportReport report = Import(Disk, Document("LockEmiRecord", R"([{"record":1,"Emi":"X"}])"));
    EXPECT_TRUE(report.Done);
    EXPECT_THAT(report.Unchanged, ElementsAre("LSOEMIPART.LMT"));
    EXPECT_EQ(report.Backup, "");
    EXPECT_EQ(Disk.Files.size(), 1U);
}

TEST_F(Import_Schreiben_, an_import_within_the_same_second_keeps_the_first_ones_copies) {
    Import(Disk, Both);
    const ImportReport second = Import(Disk, Document("LockEmiRecord", "[]"));
    EXPECT_EQ(second.Backup, Dat + "backup-20260305-070809-2/");
    EXPECT_EQ(Disk.Files[Backup + "LSOEMIPART.LMT"], "YY");
    EXPECT_EQ(Disk.Files[second.Backup + "LSOEMIPART.LMT"], OneX);
    EXPECT_EQ(Disk.Files[Emi], std::string(200, ' '));
}

TEST_F(Import_Schreiben_, a_plan_with_faults_writes_nothing) {
    const ImportReport report = Import(Disk, Document("LockEmiRecord", "[5]"));
    EXPECT_FALSE(report.Done);
    EXPECT_EQ(Disk.Files.size(), 1U);
    EXPECT_EQ(Disk.Operations, 0);
}

/// Operations of this import: make the directory, read both files, make the copies' directory, write the copy, replace
/// both files.
constexpr int Steps = 7;

TEST_F(Import_Schreiben_, takes_seven_operations) {
    Import(Disk, Both);
    EXPECT_EQ(Disk.Operations, Steps);
}

TEST_F(Import_Schreiben_, when_any_one_operation_fails_the_data_files_are_as_before_and_it_is_reported) {
    for (int n = 1; n <= Steps; ++n) {
        MemoryFiles disk;
        disk.Files[Emi] = "YY";
        disk.FailAt = n;
        const ImportReport report = Import(disk, Both);
        EXPECT_FALSE(report.Done) << n;
        EXPECT_THAT(report.Faults, testing::Not(IsEmpty())) << n;
        EXPECT_EQ(disk.Files[Emi], "YY") << n;
        EXPECT_FALSE(disk.Files.contains(Settings)) << n;
    }
}

TEST_F(Import_Schreiben_, when_the_disk_stays_broken_the_report_says_where_the_copy_is) {
    Disk.FailAt = Steps;
    Disk.FailFromThere = true;
    const ImportReport report = Import(Disk, Both);
    EXPECT_FALSE(report.Done);
    EXPECT_THAT(report.Faults, ElementsAre("ObJNR09DAT.OBN cannot be written",
                                           "LSOEMIPART.LMT could not be put back; its copy is in " + Backup));
    EXPECT_EQ(Disk.Files[Backup + "LSOEMIPART.LMT"], "YY");
}

} // namespace
} // namespace qvm
