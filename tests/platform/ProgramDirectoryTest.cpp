// Which directory is the program's, and what becomes of it at the first start.

#include "ProgramDirectory.h"

#include "OtherUser.h"
#include "TempDirectory.h"

#include <QCoreApplication>

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace qvm::test {
namespace {

namespace fs = std::filesystem;

using ::testing::EndsWith;

struct Program_directory : ::testing::Test {
    TempDirectory Place;
    ProgramPlaces Places{.Executable = Place / "bin", .UserData = Place / "home/share"};

    Program_directory() { fs::create_directories(Place / "bin"); }

    static unsigned Mode(const std::string& path) {
        struct stat info {};
        return ::stat(path.c_str(), &info) == 0 ? info.st_mode & 07777U : 0U;
    }
    std::string Chosen() const { return ProgramDirectory_Choose(Places).Path; }
    std::string Made() const { return ProgramDirectory_Make(ProgramDirectory_Choose(Places)); }
};

TEST_F(Program_directory, is_the_users_when_nothing_else_is_said) {
    EXPECT_EQ(Chosen(), Place / "home/share/qvm7702/");
    EXPECT_TRUE(ProgramDirectory_Choose(Places).OfUser);
    EXPECT_FALSE(fs::exists(Place / "home"));
}

TEST_F(Program_directory, is_the_executables_when_the_folder_DAT_lies_there) {
    fs::create_directory(Place / "bin/DAT");
    EXPECT_EQ(Chosen(), Place / "bin/");
    EXPECT_FALSE(ProgramDirectory_Choose(Places).OfUser);
}

TEST_F(Program_directory, is_not_the_executables_for_a_file_of_the_name_DAT) {
    std::ofstream(Place / "bin/DAT") << "x";
    EXPECT_EQ(Chosen(), Place / "home/share/qvm7702/");
}

TEST_F(Program_directory, of_QVM_DIR_goes_before_the_executables_and_need_not_be_there) {
    fs::create_directory(Place / "bin/DAT");
    Places.Environment = Place / "elsewhere";
    EXPECT_EQ(Chosen(), Place / "elsewhere/");
    EXPECT_EQ(Made(), "");
    EXPECT_FALSE(fs::exists(Place / "elsewhere"));
}

TEST_F(Program_directory, of_QVM_DIR_is_told_whole_when_it_is_relative) {
    Places.Environment = "installation";
    EXPECT_EQ(Chosen(), (fs::current_path() / "installation").string() + "/");
}

TEST_F(Program_directory, of_the_command_line_goes_before_all_and_stays_as_it_was_typed) {
    fs::create_directory(Place / "bin/DAT");
    Places.Environment = Place / "elsewhere";
    Places.Named = "typed";
    EXPECT_EQ(Chosen(), "typed/");
    Places.Named = "typed/";
    EXPECT_EQ(Chosen(), "typed/");
}

TEST_F(Program_directory, of_the_user_is_made_for_him_alone_with_those_above_it) {
    fs::create_directory(Place / "home");
    fs::permissions(Place / "home", fs::perms(0755));
    EXPECT_EQ(Made(), "");
    EXPECT_EQ(Mode(Place / "home"), 0755U);
    EXPECT_EQ(Mode(Place / "home/share"), 0700U);
    EXPECT_EQ(Mode(Place / "home/share/qvm7702"), 0700U);
}

TEST_F(Program_directory, of_the_user_that_is_there_stays_as_it_is) {
    fs::create_directories(Place / "home/share/qvm7702/DAT");
    fs::permissions(Place / "home/share/qvm7702", fs::perms(0750));
    EXPECT_EQ(Made(), "");
    EXPECT_EQ(Mode(Place / "home/share/qvm7702"), 0750U);
    EXPECT_TRUE(fs::exists(Place / "home/share/qvm7702/DAT"));
}

TEST_F(Program_directory, is_told_not_to_be_made_where_a_file_has_its_name) {
    fs::create_directories(Place / "home/share");
    std::ofstream(Place / "home/share/qvm7702") << "mine";
    EXPECT_EQ(Made(), "Not a directory");
    EXPECT_EQ(fs::file_size(Place / "home/share/qvm7702"), 4U);
}

TEST_F(Program_directory, is_told_not_to_be_made_where_a_link_leads_nowhere) {
    fs::create_directories(Place / "home/share");
    fs::create_symlink(Place / "gone", Place / "home/share/qvm7702");
    EXPECT_EQ(Made(), "Not a directory");
}

TEST_F(Program_directory, is_told_not_to_be_made_in_a_home_that_cannot_be_written) {
    fs::create_directory(Place / "home");
    fs::permissions(Place.Path(), fs::perms(0755));
    fs::permissions(Place / "home", fs::perms(0555));
    const OtherUser other;
    ASSERT_TRUE(other.Good());
    EXPECT_EQ(Made(), "Permission denied");
}

TEST_F(Program_directory, has_what_comes_with_the_program_in_share_or_else_beside_it) {
    EXPECT_EQ(ProgramFiles_Of(Place / "bin"), Place / "bin/");
    fs::create_directories(Place / "share/qvm7702");
    EXPECT_EQ(ProgramFiles_Of(Place / "bin"), Place / "share/qvm7702/");
}

TEST(Program_places, are_those_of_the_process) {
    ::setenv("QVM_DIR", "/srv/locks", 1);
    ::setenv("XDG_DATA_HOME", "/somewhere/data", 1);
    const ProgramPlaces here = ProgramPlaces_Here("named");
    ::unsetenv("QVM_DIR");
    ::unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(here.Named, "named");
    EXPECT_EQ(here.Environment, "/srv/locks");
    EXPECT_EQ(here.UserData, "/somewhere/data");
    EXPECT_THAT(here.Executable, EndsWith("/tests"));
    EXPECT_THAT(ProgramPlaces_Here({}).UserData, EndsWith("/.local/share"));
    EXPECT_EQ(ProgramPlaces_Here({}).Environment, "");
}

} // namespace
} // namespace qvm::test
