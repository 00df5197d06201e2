#include "FilesFixture.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qvm {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

using Files_Exists = test::FilesFixture;
using Files_ReadAll = test::FilesFixture;
using Files_Replace = test::FilesFixture;
using Files_WriteAt = test::FilesFixture;
using Files_Append = test::FilesFixture;
using Files_Remove = test::FilesFixture;
using Files_MakeDirectory = test::FilesFixture;
using Files_List = test::FilesFixture;
using Files_Names = test::FilesFixture;

mode_t ModeOf(const std::string& path) {
    struct stat info {};
    ::stat(path.c_str(), &info);
    return info.st_mode & 07777U;
}

TEST_F(Files_Exists, a_file_is_there_a_directory_or_nothing_is_not) {
    Put(Directory / "file", "");
    EXPECT_TRUE(Files.Datei_Vorhanden(Directory / "file"));
    EXPECT_FALSE(Files.Datei_Vorhanden(Directory / "nothing"));
    EXPECT_FALSE(Files.Datei_Vorhanden(Directory.Path()));
    EXPECT_FALSE(Files.Datei_Vorhanden(""));
    EXPECT_FALSE(Files.Datei_Vorhanden(Directory / "file\0more"s));
}

TEST_F(Files_ReadAll, every_byte_value_comes_back) {
    std::string all;
    for (int value = 0; value < 256; ++value) {
        all += static_cast<char>(value);
    }
    Put(Directory / "file", all);
    std::string bytes = "before";
    EXPECT_EQ(Files.ReadAll(Directory / "file", bytes), ReadStatus::Ok);
    EXPECT_EQ(bytes, all);
}

TEST_F(Files_ReadAll, an_empty_file_is_read_as_nothing) {
    Put(Directory / "file", "");
    std::string bytes = "before";
    EXPECT_EQ(Files.ReadAll(Directory / "file", bytes), ReadStatus::Ok);
    EXPECT_EQ(bytes, "");
}

TEST_F(Files_ReadAll, sizes_around_that_of_a_page_come_back_whole) {
    for (const std::size_t size : {4095U, 4096U, 4097U, 8192U, 100000U}) {
        Put(Directory / "file", std::string(size, 'x'));
        std::string bytes;
        EXPECT_EQ(Files.ReadAll(Directory / "file", bytes), ReadStatus::Ok);
        EXPECT_EQ(bytes.size(), size);
    }
}

TEST_F(Files_ReadAll, a_missing_file_is_missing_and_gives_nothing) {
    std::string bytes = "before";
    EXPECT_EQ(Files.ReadAll(Directory / "nothing", bytes), ReadStatus::Missing);
    EXPECT_EQ(bytes, "");
}

TEST_F(Files_ReadAll, a_directory_is_an_error_and_gives_nothing) {
    std::string bytes = "before";
    EXPECT_EQ(Files.ReadAll(Directory.Path(), bytes), ReadStatus::Error);
    EXPECT_EQ(bytes, "");
}

TEST_F(Files_ReadAll, a_file_in_the_place_of_a_directory_is_an_error) {
    Put(Directory / "file", "text");
    std::string bytes;
    EXPECT_EQ(Files.ReadAll(Directory / "file/below", bytes), ReadStatus::Error);
}

TEST_F(Files_ReadAll, a_path_that_no_file_can_have_is_an_error) {
    Put(Directory / "file", "text");
    std::string bytes;
    EXPECT_EQ(Files.ReadAll("", bytes), ReadStatus::Error);
    EXPECT_EQ(Files.ReadAll(Directory / "file\0more"s, bytes), ReadStatus::Error);
}

TEST_F(Files_ReadAll, a_file_larger_than_any_of_the_system_is_an_error) {
    Put(Directory / "file", "");
    ASSERT_EQ(::truncate((Directory / "file").c_str(), (64 << 20) + 1), 0);
    std::string bytes;
    EXPECT_EQ(Files.ReadAll(Directory / "file", bytes), ReadStatus::Error);
    EXPECT_EQ(bytes, "");
    ASSERT_EQ(::truncate((Directory / "file").c_str(), 64 << 20), 0);
    EXPECT_EQ(Files.ReadAll(Directory / "file", bytes), ReadStatus::Ok);
    EXPECT_EQ(bytes.size(), 64U << 20U);
}

TEST_F(Files_Replace, a_new_file_holds_the_bytes_is_private_and_alone) {
    EXPECT_TRUE(Files.Replace(Directory / "file", "a\0b\xFF"s));
    EXPECT_EQ(Held(Directory / "file"), "a\0b\xFF"s);
    EXPECT_EQ(ModeOf(Directory / "file"), 0600U);
    EXPECT_THAT(Names(), ElementsAre("file"));
}

TEST_F(Files_Replace, an_old_file_is_replaced_whole_and_becomes_private) {
    Put(Directory / "file", "a longer content than the new one");
    ASSERT_EQ(::chmod((Directory / "file").c_str(), 0644), 0);
    EXPECT_TRUE(Files.Replace(Directory / "file", "new"));
    EXPECT_EQ(Held(Directory / "file"), "new");
    EXPECT_EQ(ModeOf(Directory / "file"), 0600U);
    EXPECT_THAT(Names(), ElementsAre("file"));
}

TEST_F(Files_Replace, nothing_makes_an_empty_file) {
    Put(Directory / "file", "old");
    EXPECT_TRUE(Files.Replace(Directory / "file", ""));
    EXPECT_EQ(Held(Directory / "file"), "");
}

TEST_F(Files_Replace, a_reader_that_has_the_old_file_open_goes_on_to_see_it) {
    Put(Directory / "file", "old");
    std::ifstream reader(Directory / "file", std::ios::binary);
    EXPECT_TRUE(Files.Replace(Directory / "file", "new"));
    std::string seen;
    std::getline(reader, seen);
    EXPECT_EQ(seen, "old");
}

TEST_F(Files_Replace, a_link_stays_a_link_and_the_file_behind_it_is_replaced) {
    std::filesystem::create_directory(Directory / "elsewhere");
    Put(Directory / "elsewhere/file", "old");
    std::filesystem::create_symlink("elsewhere/file", Directory / "link");
    EXPECT_TRUE(Files.Replace(Directory / "link", "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(Directory / "link"));
    EXPECT_EQ(Held(Directory / "elsewhere/file"), "new");
    EXPECT_THAT(Names(), ElementsAre("elsewhere", "link"));
}

TEST_F(Files_Replace, the_owner_stays_when_the_administrator_replaces) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "files of others are the administrator's business";
    }
    Put(Directory / "file", "old");
    ASSERT_EQ(::chown((Directory / "file").c_str(), 65534, 65534), 0);
    EXPECT_TRUE(Files.Replace(Directory / "file", "new"));
    struct stat info {};
    ASSERT_EQ(::stat((Directory / "file").c_str(), &info), 0);
    EXPECT_EQ(info.st_uid, 65534U);
    EXPECT_EQ(info.st_gid, 65534U);
}

TEST_F(Files_Replace, a_path_without_a_directory_means_the_current_one) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(Directory.Path());
    EXPECT_TRUE(Files.Replace("file", "text"));
    std::filesystem::current_path(before);
    EXPECT_EQ(Held(Directory / "file"), "text");
}

TEST_F(Files_WriteAt, bytes_in_the_middle_change_and_no_others) {
    Put(Directory / "file", "0123456789");
    EXPECT_TRUE(Files.WriteAt(Directory / "file", 3, "abc"));
    EXPECT_EQ(Held(Directory / "file"), "012abc6789");
}

TEST_F(Files_WriteAt, writing_over_the_end_makes_the_file_longer) {
    Put(Directory / "file", "0123");
    EXPECT_TRUE(Files.WriteAt(Directory / "file", 2, "abcd"));
    EXPECT_EQ(Held(Directory / "file"), "01abcd");
}

TEST_F(Files_WriteAt, a_gap_is_filled_with_zeros) {
    Put(Directory / "file", "ab");
    EXPECT_TRUE(Files.WriteAt(Directory / "file", 5, "z"));
    EXPECT_EQ(Held(Directory / "file"), "ab\0\0\0z"s);
}

TEST_F(Files_WriteAt, a_missing_file_is_made_and_private) {
    EXPECT_TRUE(Files.WriteAt(Directory / "file", 2, "x"));
    EXPECT_EQ(Held(Directory / "file"), "\0\0x"s);
    EXPECT_EQ(ModeOf(Directory / "file"), 0600U);
}

TEST_F(Files_Append, bytes_go_behind_the_last) {
    Put(Directory / "file", "one\r\n");
    EXPECT_TRUE(Files.Append(Directory / "file", "two\r\n"));
    EXPECT_TRUE(Files.Append(Directory / "file", ""));
    EXPECT_EQ(Held(Directory / "file"), "one\r\ntwo\r\n");
}

TEST_F(Files_Append, a_missing_file_is_made_and_private) {
    EXPECT_TRUE(Files.Append(Directory / "file", "x"));
    EXPECT_EQ(Held(Directory / "file"), "x");
    EXPECT_EQ(ModeOf(Directory / "file"), 0600U);
}

TEST_F(Files_Remove, a_file_is_gone_and_a_second_time_there_is_none) {
    Put(Directory / "file", "x");
    EXPECT_TRUE(Files.Remove(Directory / "file"));
    EXPECT_FALSE(Files.Remove(Directory / "file"));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Files_Remove, a_directory_stays) {
    std::filesystem::create_directory(Directory / "below");
    EXPECT_FALSE(Files.Remove(Directory / "below"));
    EXPECT_THAT(Names(), ElementsAre("below"));
}

TEST_F(Files_MakeDirectory, a_directory_is_made_once_and_may_be_there_already) {
    const mode_t before = ::umask(022);
    EXPECT_TRUE(Files.MakeDirectory(Directory / "DAT"));
    ::umask(before);
    EXPECT_TRUE(std::filesystem::is_directory(Directory / "DAT"));
    EXPECT_EQ(ModeOf(Directory / "DAT"), 0755U);
    Put(Directory / "DAT/file", "x");
    EXPECT_TRUE(Files.MakeDirectory(Directory / "DAT"));
    EXPECT_TRUE(Files.MakeDirectory(Directory / "DAT/"));
    EXPECT_EQ(Held(Directory / "DAT/file"), "x");
}

TEST_F(Files_MakeDirectory, a_file_of_that_name_stands_in_the_way) {
    Put(Directory / "DAT", "x");
    EXPECT_FALSE(Files.MakeDirectory(Directory / "DAT"));
    EXPECT_EQ(Held(Directory / "DAT"), "x");
}

TEST_F(Files_MakeDirectory, a_directory_above_must_be_there) {
    EXPECT_FALSE(Files.MakeDirectory(Directory / "a/b"));
}

TEST_F(Files_List, all_names_but_hidden_ones_come_sorted) {
    for (const char* const name : {"b", "a", "C", ".hidden", ".file.AbCdEf"}) {
        Put(Directory / name, "x");
    }
    std::filesystem::create_directory(Directory / "below");
    std::filesystem::create_symlink("a", Directory / "link");
    std::filesystem::create_symlink("nothing", Directory / "dangling");
    EXPECT_THAT(Files.List(Directory.Path()), ElementsAre("C", "a", "b", "below", "dangling", "link"));
}

TEST_F(Files_List, a_directory_that_cannot_be_read_is_empty) {
    Put(Directory / "file", "x");
    EXPECT_THAT(Files.List(Directory / "nothing"), IsEmpty());
    EXPECT_THAT(Files.List(Directory / "file"), IsEmpty());
    EXPECT_THAT(Files.List(""), IsEmpty());
}

TEST_F(Files_Names, a_name_in_code_page_1252_is_stored_in_utf_8_and_found_by_both) {
    EXPECT_TRUE(Files.Append(Directory / "H_Haust\xFCr\x80.HST", "x"));
    EXPECT_THAT(Names(), ElementsAre("H_Haust\xC3\xBCr\xE2\x82\xAC.HST"));
    EXPECT_TRUE(Files.Datei_Vorhanden(Directory / "H_Haust\xFCr\x80.HST"));
    EXPECT_TRUE(Files.Datei_Vorhanden(Directory / "H_Haust\xC3\xBCr\xE2\x82\xAC.HST"));
}

TEST_F(Files_Names, utf_8_above_and_code_page_1252_below_go_together) {
    std::filesystem::create_directory(Directory / "B\xC3\xBCro");
    EXPECT_TRUE(Files.Replace(Directory / "B\xC3\xBCro/T\xFCr", "x"));
    EXPECT_EQ(Held(Directory / "B\xC3\xBCro/T\xC3\xBCr"), "x");
}

TEST_F(Files_Names, a_utf_8_character_cut_short_counts_as_single_bytes) {
    EXPECT_TRUE(Files.Append(Directory / "a\xE2\x82", "x"));
    EXPECT_THAT(Names(), ElementsAre("a\xC3\xA2\xE2\x80\x9A")); // 0xE2 and 0x82 of the code page
}

} // namespace
} // namespace qvm
