// The directory that the binary works on when none is named on its command line.

#include "RunBinary.h"

#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;

constexpr const char* Groups =
    R"({"format":"qvm7702-export","version":1,"tables":{"LockEmiRecord":[{"record":1,"Emi":"X"}]}})";
constexpr const char* EmiFile = "DAT/LSOEMIPART.LMT";

/// A home and an environment of its own.
struct Binary_directory : testing::Test {
    TempDirectory Home;

    Binary_directory() {
        ::setenv("XDG_DATA_HOME", (Home.Path() + "data").c_str(), 1);
        ::unsetenv("QVM_DIR");
    }
    ~Binary_directory() override {
        ::unsetenv("XDG_DATA_HOME");
        ::unsetenv("QVM_DIR");
    }
    unsigned Mode(const std::string& name) const {
        struct stat info {};
        return ::stat((Home.Path() + name).c_str(), &info) == 0 ? info.st_mode & 07777U : 0U;
    }
};

TEST_F(Binary_directory, is_the_users_own_made_for_him_alone) {
    EXPECT_EQ(Qvmctl({"import", "-"}, Groups).Code, 0);
    EXPECT_EQ(Mode("data/qvm7702"), 0700U);
    EXPECT_TRUE(Home.Has(std::string("data/qvm7702/") + EmiFile));
}

TEST_F(Binary_directory, is_that_of_QVM_DIR_and_the_users_own_is_not_made) {
    std::filesystem::create_directory(Home.Path() + "named");
    ::setenv("QVM_DIR", (Home.Path() + "named").c_str(), 1);
    EXPECT_EQ(Qvmctl({"import", "-"}, Groups).Code, 0);
    EXPECT_TRUE(Home.Has(std::string("named/") + EmiFile));
    EXPECT_FALSE(Home.Has("data"));
}

TEST_F(Binary_directory, of_the_command_line_goes_before_that_of_QVM_DIR) {
    std::filesystem::create_directory(Home.Path() + "typed");
    ::setenv("QVM_DIR", (Home.Path() + "named").c_str(), 1);
    EXPECT_EQ(Qvmctl({"--dir", Home.Path() + "typed", "import", "-"}, Groups).Code, 0);
    EXPECT_TRUE(Home.Has(std::string("typed/") + EmiFile));
    EXPECT_FALSE(Home.Has("named"));
}

TEST_F(Binary_directory, that_QVM_DIR_names_and_that_is_not_there_is_told_and_not_made) {
    ::setenv("QVM_DIR", (Home.Path() + "named").c_str(), 1);
    const RunResult result = Qvmctl({"users"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("There is no directory " + Home.Path() + "named/DAT."));
    EXPECT_FALSE(Home.Has("named"));
}

TEST_F(Binary_directory, that_cannot_be_made_is_told_and_what_needs_none_goes_on) {
    Home.Write("data", "a file where a folder is to be");
    const RunResult refused = Qvmctl({"import", "-"}, Groups);
    EXPECT_EQ(refused.Code, 1);
    EXPECT_THAT(refused.Err, HasSubstr("The folder " + Home.Path() + "data/qvm7702/ cannot be made: Not a directory."));
    EXPECT_EQ(Qvmctl({"decode"}, "").Code, 0);
    EXPECT_EQ(Home.Read("data"), "a file where a folder is to be");
}

} // namespace
} // namespace qvm
