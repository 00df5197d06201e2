#include "MemoryFiles.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

using namespace std::string_literals;

struct Dateien : testing::Test {
    MemoryFiles disk;
    FileStore files = disk.Store();
    std::string bytes = "before";
};

TEST_F(Dateien, a_missing_file_is_told_from_an_empty_one) {
    EXPECT_EQ(files.ReadAll("/a", bytes), ReadStatus::Missing);
    EXPECT_EQ(bytes, "");
    disk.Files["/a"] = "";
    EXPECT_EQ(files.ReadAll("/a", bytes), ReadStatus::Ok);
    EXPECT_TRUE(files.Datei_Vorhanden("/a"));
    EXPECT_FALSE(files.Datei_Vorhanden("/b"));
}

TEST_F(Dateien, replaced_appended_and_removed) {
    EXPECT_TRUE(files.Replace("/a", "long text"));
    EXPECT_TRUE(files.Replace("/a", "ab"));
    EXPECT_TRUE(files.Append("/a", "cd"));
    EXPECT_EQ(disk.Files["/a"], "abcd");
    EXPECT_TRUE(files.Remove("/a"));
    EXPECT_FALSE(files.Remove("/a"));
    EXPECT_FALSE(files.Datei_Vorhanden("/a"));
}

TEST_F(Dateien, writing_in_place_keeps_the_tail_and_fills_a_gap_with_zeros) {
    disk.Files["/a"] = "abcdef";
    EXPECT_TRUE(files.WriteAt("/a", 2, "XY"));
    EXPECT_EQ(disk.Files["/a"], "abXYef");
    EXPECT_TRUE(files.WriteAt("/b", 3, "Z"));
    EXPECT_EQ(disk.Files["/b"], "\0\0\0Z"s);
    EXPECT_FALSE(files.WriteAt("/c", 1ULL << 60U, "Z"));
    EXPECT_FALSE(files.Datei_Vorhanden("/c"));
}

TEST_F(Dateien, a_directory_lists_its_own_files_sorted) {
    disk.Files = {{"/q/HIST/b", ""}, {"/q/HIST/a", ""}, {"/q/HIST/sub/c", ""}, {"/q/HISTORY", ""}};
    EXPECT_EQ(files.List("/q/HIST/"), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(files.List("/q/HIST"), (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(files.List("/none").empty());
}

TEST_F(Dateien, a_directory_is_made_once) {
    EXPECT_TRUE(files.MakeDirectory("/q/DAT"));
    EXPECT_TRUE(files.MakeDirectory("/q/DAT"));
    EXPECT_EQ(disk.Directories, (std::vector<std::string>{"/q/DAT"}));
}

TEST_F(Dateien, the_operation_of_the_given_number_fails_and_no_other) {
    disk.FailAt = 2;
    EXPECT_TRUE(files.Replace("/a", "1"));
    EXPECT_FALSE(files.Replace("/a", "2"));
    EXPECT_EQ(disk.Files["/a"], "1");
    EXPECT_TRUE(files.Replace("/a", "3"));
    EXPECT_EQ(disk.Operations, 3);
}

TEST_F(Dateien, all_operations_from_one_on_fail_when_the_disk_has_died) {
    disk.Files["/a"] = "1";
    disk.FailAt = 1;
    disk.FailFromThere = true;
    EXPECT_EQ(files.ReadAll("/a", bytes), ReadStatus::Error);
    EXPECT_EQ(bytes, "");
    EXPECT_FALSE(files.Replace("/a", "2"));
    EXPECT_FALSE(files.WriteAt("/a", 0, "2"));
    EXPECT_FALSE(files.Append("/a", "2"));
    EXPECT_FALSE(files.Remove("/a"));
    EXPECT_FALSE(files.MakeDirectory("/d"));
    EXPECT_EQ(disk.Files["/a"], "1");
    EXPECT_TRUE(disk.Directories.empty());
    EXPECT_EQ(disk.Operations, 6);
}

TEST_F(Dateien, looking_is_no_operation) {
    files.Datei_Vorhanden("/a");
    files.List("/");
    EXPECT_EQ(disk.Operations, 0);
}

} // namespace
} // namespace qvm::test
