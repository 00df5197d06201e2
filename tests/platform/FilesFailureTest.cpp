#include "FilesFixture.h"
#include "OtherUser.h"

#include <csignal>
#include <gmock/gmock.h>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qvm {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Lets no file grow beyond `bytes` while it lives, as a full disk does: a write stops half-way, the next one fails.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*signal_)(int);
};

class Files_on_a_full_disk : public test::FilesFixture {};

class Files_without_right : public test::FilesFixture {
protected:
    void TearDown() override { ::chmod(Directory.Path().c_str(), 0700); }

    /// Everybody may read the directory, nobody may change it.
    void Lock() const {
        ASSERT_EQ(::chmod(Directory.Path().c_str(), 0555), 0);
        for (const std::string& name : Names()) {
            ASSERT_EQ(::chmod((Directory / name).c_str(), 0444), 0);
        }
    }
};

class Files_in_the_way : public test::FilesFixture {};

TEST_F(Files_on_a_full_disk, replace_leaves_the_old_file_and_no_sibling) {
    Put(Directory / "file", "old");
    bool done = true;
    {
        const FullDisk disk(8192);
        done = Files.Replace(Directory / "file", std::string(20000, 'x'));
    }
    EXPECT_FALSE(done);
    EXPECT_EQ(Held(Directory / "file"), "old");
    EXPECT_THAT(Names(), ElementsAre("file"));
}

TEST_F(Files_on_a_full_disk, replace_of_a_missing_file_leaves_nothing) {
    bool done = true;
    {
        const FullDisk disk(8192);
        done = Files.Replace(Directory / "file", std::string(20000, 'x'));
    }
    EXPECT_FALSE(done);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Files_on_a_full_disk, replace_works_as_soon_as_there_is_room) {
    {
        const FullDisk disk(8192);
        Files.Replace(Directory / "file", std::string(20000, 'x'));
    }
    EXPECT_TRUE(Files.Replace(Directory / "file", std::string(20000, 'x')));
    EXPECT_EQ(Held(Directory / "file"), std::string(20000, 'x'));
}

TEST_F(Files_on_a_full_disk, a_record_that_fits_half_puts_back_what_it_overwrote_and_the_size) {
    Put(Directory / "file", std::string(8000, 'o'));
    bool done = true;
    {
        const FullDisk disk(8192);
        done = Files.WriteAt(Directory / "file", 7900, std::string(419, 'n'));
    }
    EXPECT_FALSE(done);
    EXPECT_EQ(Held(Directory / "file"), std::string(8000, 'o'));
}

TEST_F(Files_on_a_full_disk, a_record_behind_a_gap_leaves_the_old_size) {
    Put(Directory / "file", "old");
    bool done = true;
    {
        const FullDisk disk(8192);
        done = Files.WriteAt(Directory / "file", 8190, std::string(419, 'n'));
    }
    EXPECT_FALSE(done);
    EXPECT_EQ(Held(Directory / "file"), "old");
}

TEST_F(Files_on_a_full_disk, a_record_of_a_missing_file_leaves_nothing) {
    bool done = true;
    {
        const FullDisk disk(100);
        done = Files.WriteAt(Directory / "file", 0, std::string(419, 'n'));
    }
    EXPECT_FALSE(done);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Files_on_a_full_disk, a_line_that_fits_half_is_taken_back) {
    Put(Directory / "file", std::string(8180, 'o'));
    bool done = true;
    {
        const FullDisk disk(8192);
        done = Files.Append(Directory / "file", std::string(100, 'n'));
    }
    EXPECT_FALSE(done);
    EXPECT_EQ(Held(Directory / "file"), std::string(8180, 'o'));
}

TEST_F(Files_on_a_full_disk, the_first_line_of_a_missing_file_leaves_nothing) {
    bool done = true;
    {
        const FullDisk disk(10);
        done = Files.Append(Directory / "file", std::string(100, 'n'));
    }
    EXPECT_FALSE(done);
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Files_on_a_full_disk, a_device_without_room_is_an_error) {
    EXPECT_FALSE(Files.Append("/dev/full", "x"));
}

TEST_F(Files_without_right, nothing_can_be_changed_and_all_stays_as_it_was) {
    Put(Directory / "file", "old");
    Lock();
    {
        const test::OtherUser user;
        ASSERT_TRUE(user.Good());
        EXPECT_FALSE(Files.Replace(Directory / "file", "new"));
        EXPECT_FALSE(Files.Replace(Directory / "other", "new"));
        EXPECT_FALSE(Files.WriteAt(Directory / "file", 0, "new"));
        EXPECT_FALSE(Files.WriteAt(Directory / "other", 0, "new"));
        EXPECT_FALSE(Files.Append(Directory / "file", "new"));
        EXPECT_FALSE(Files.Append(Directory / "other", "new"));
        EXPECT_FALSE(Files.Remove(Directory / "file"));
        EXPECT_FALSE(Files.MakeDirectory(Directory / "DAT"));
    }
    EXPECT_EQ(Held(Directory / "file"), "old");
    EXPECT_THAT(Names(), ElementsAre("file"));
}

TEST_F(Files_without_right, a_file_that_may_not_be_read_is_an_error_and_not_missing) {
    Put(Directory / "file", "old");
    Lock();
    ASSERT_EQ(::chmod((Directory / "file").c_str(), 0), 0);
    const test::OtherUser user;
    ASSERT_TRUE(user.Good());
    std::string bytes = "before";
    EXPECT_EQ(Files.ReadAll(Directory / "file", bytes), ReadStatus::Error);
    EXPECT_EQ(bytes, "");
}

TEST_F(Files_without_right, a_directory_that_may_not_be_entered_shows_nothing) {
    Put(Directory / "file", "old");
    ASSERT_EQ(::chmod(Directory.Path().c_str(), 0), 0);
    const test::OtherUser user;
    ASSERT_TRUE(user.Good());
    std::string bytes;
    EXPECT_FALSE(Files.Datei_Vorhanden(Directory / "file"));
    EXPECT_EQ(Files.ReadAll(Directory / "file", bytes), ReadStatus::Error);
    EXPECT_THAT(Files.List(Directory.Path()), IsEmpty());
}

TEST_F(Files_in_the_way, a_directory_of_the_name_is_never_replaced) {
    std::filesystem::create_directory(Directory / "file");
    Put(Directory / "file/inside", "x");
    EXPECT_FALSE(Files.Replace(Directory / "file", "new"));
    EXPECT_FALSE(Files.WriteAt(Directory / "file", 0, "new"));
    EXPECT_FALSE(Files.Append(Directory / "file", "new"));
    EXPECT_EQ(Held(Directory / "file/inside"), "x");
    EXPECT_THAT(Names(), ElementsAre("file"));
}

TEST_F(Files_in_the_way, a_missing_directory_is_not_made) {
    EXPECT_FALSE(Files.Replace(Directory / "DAT/file", "new"));
    EXPECT_FALSE(Files.WriteAt(Directory / "DAT/file", 0, "new"));
    EXPECT_FALSE(Files.Append(Directory / "DAT/file", "new"));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Files_in_the_way, a_path_that_no_file_can_have_changes_nothing) {
    using namespace std::string_literals;
    const std::string broken = Directory / "file\0more"s;
    EXPECT_FALSE(Files.Replace(broken, "new"));
    EXPECT_FALSE(Files.WriteAt(broken, 0, "new"));
    EXPECT_FALSE(Files.Append(broken, "new"));
    EXPECT_FALSE(Files.Remove(broken));
    EXPECT_FALSE(Files.MakeDirectory(broken));
    EXPECT_FALSE(Files.Replace("", "new"));
    EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(Files_in_the_way, an_offset_beyond_any_file_of_the_system_is_refused) {
    Put(Directory / "file", "old");
    EXPECT_FALSE(Files.WriteAt(Directory / "file", std::numeric_limits<std::uint64_t>::max(), "x"));
    EXPECT_FALSE(Files.WriteAt(Directory / "file", (std::uint64_t{64} << 20U) + 1, "x"));
    EXPECT_EQ(Held(Directory / "file"), "old");
}

} // namespace
} // namespace qvm
