#include "DataLock.h"

#include "OtherProgram.h"
#include "OtherUser.h"
#include "RealWorld.h"

#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace qvm {
namespace {

namespace fs = std::filesystem;
using Use = DataLock::Use;

class Data_Lock : public test::RealWorld {
protected:
    Data_Lock() { fs::create_directory(Dat); }

    std::string Dat = Directory / "DAT";
};

std::string OwnName() {
    const passwd* const entry = ::getpwuid(::getuid());
    return entry != nullptr ? entry->pw_name : std::to_string(::getuid());
}

TEST_F(Data_Lock, one_program_at_a_time_may_write_and_another_is_told_which) {
    const test::OtherProgram other({"--hold-data", Dat, "write"});
    ASSERT_EQ(other.Line(), "ready");
    const DataLock lock(Dat, Use::Write);
    EXPECT_FALSE(lock.Try());
    const DataHolder holder = lock.Holder();
    EXPECT_EQ(holder.Program, "holder");
    EXPECT_EQ(holder.Process, other.Id());
    EXPECT_EQ(holder.User, OwnName());
}

TEST_F(Data_Lock, a_program_that_was_killed_holds_nothing) {
    test::OtherProgram other({"--hold-data", Dat, "write"});
    ASSERT_EQ(other.Line(), "ready");
    other.Kill();
    EXPECT_TRUE(DataLock(Dat, Use::Write).Try());
}

TEST_F(Data_Lock, asking_again_is_granted) {
    const DataLock lock(Dat, Use::Write);
    EXPECT_TRUE(lock.Try());
    EXPECT_TRUE(lock.Try());
    EXPECT_FALSE(DataLock(Dat, Use::Write).Try());
}

TEST_F(Data_Lock, many_read_at_a_time_beside_one_who_may_write) {
    const DataLock writer(Dat, Use::Write), one(Dat, Use::Read), two(Dat, Use::Read);
    EXPECT_TRUE(writer.Try());
    EXPECT_TRUE(one.Try());
    EXPECT_TRUE(two.Try());
}

TEST_F(Data_Lock, who_replaces_is_alone) {
    const DataLock replacing(Dat, Use::Replace);
    {
        const DataLock reading(Dat, Use::Read);
        EXPECT_TRUE(reading.Try());
        EXPECT_FALSE(replacing.Try());
    }
    EXPECT_TRUE(replacing.Try());
    EXPECT_FALSE(DataLock(Dat, Use::Read).Try());
    EXPECT_FALSE(DataLock(Dat, Use::Replace).Try());
}

TEST_F(Data_Lock, who_waits_gets_it_when_the_other_ends) {
    test::OtherProgram other({"--hold-data", Dat, "replace"});
    ASSERT_EQ(other.Line(), "ready");
    const DataLock lock(Dat, Use::Read);
    EXPECT_FALSE(lock.Try());
    std::thread end([&other] { other.Kill(); });
    lock.Wait();
    end.join();
    EXPECT_TRUE(lock.Try());
}

TEST_F(Data_Lock, a_directory_by_another_name_is_the_same) {
    fs::create_directory(Directory / "elsewhere");
    fs::create_directory_symlink(Dat, Directory / "elsewhere/DAT");
    const DataLock writer(Dat, Use::Write), reading(Dat, Use::Read);
    ASSERT_TRUE(writer.Try());
    ASSERT_TRUE(reading.Try());
    EXPECT_FALSE(DataLock(Directory / "elsewhere/DAT/", Use::Write).Try());
    EXPECT_FALSE(DataLock(Directory / "elsewhere/DAT/", Use::Replace).Try());
}

TEST_F(Data_Lock, another_directory_is_another_lock) {
    fs::create_directories(Directory / "elsewhere/DAT");
    const DataLock writer(Dat, Use::Write);
    ASSERT_TRUE(writer.Try());
    EXPECT_TRUE(DataLock(Directory / "elsewhere/DAT", Use::Write).Try());
}

TEST_F(Data_Lock, leaves_no_trace_in_the_directory) {
    {
        const DataLock writer(Dat, Use::Write), reading(Dat, Use::Read);
        ASSERT_TRUE(writer.Try() && reading.Try());
    }
    EXPECT_TRUE(fs::is_empty(Dat));
}

TEST_F(Data_Lock, holds_between_users_and_in_a_directory_that_can_only_be_read) {
    fs::permissions(Directory.Path(), fs::perms(0755));
    fs::permissions(Dat, fs::perms(0555));
    const test::OtherProgram other({"--hold-data", Dat, "write"});
    ASSERT_EQ(other.Line(), "ready");
    const test::OtherUser user;
    ASSERT_TRUE(user.Good());
    const DataLock lock(Dat, Use::Write);
    EXPECT_FALSE(lock.Try());
    EXPECT_EQ(lock.Holder().Process, other.Id());
    EXPECT_EQ(lock.Holder().User, OwnName());
    EXPECT_TRUE(DataLock(Dat, Use::Read).Try());
}

TEST_F(Data_Lock, of_a_directory_that_is_not_there_is_granted) {
    const DataLock lock(Directory / "missing", Use::Write);
    EXPECT_TRUE(lock.Try());
    lock.Wait();
    EXPECT_EQ(lock.Holder().Process, 0);
}

TEST_F(Data_Lock, the_world_claims_once_and_keeps_it_to_its_end) {
    {
        QtPlatform first(test::OptionsFor(Directory.Path()));
        EXPECT_FALSE(first.World().ClaimData(Dat));
        EXPECT_FALSE(first.World().ClaimData(Dat));
        const auto holder = World().ClaimData(Dat);
        ASSERT_TRUE(holder);
        EXPECT_EQ(holder->Process, ::getpid());
    }
    EXPECT_FALSE(World().ClaimData(Dat));
}

} // namespace
} // namespace qvm
