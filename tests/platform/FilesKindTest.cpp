// What stands in the place of a file and is none. That nothing hangs shows by the tests coming to their end.

#include "FilesFixture.h"
#include "OtherUser.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace qvm {
namespace {

using testing::ElementsAre;

class Files_that_are_none : public test::FilesFixture {
protected:
    /// Reads, and expects an error with nothing in hand.
    FileFault Fault(const std::string& path) const {
        std::string bytes = "before";
        EXPECT_EQ(Files.ReadAll(path, bytes), ReadStatus::Error);
        EXPECT_EQ(bytes, "");
        return Files.LastFault();
    }

    void Refused(const std::string& path) const {
        EXPECT_FALSE(Files.Replace(path, "new"));
        EXPECT_FALSE(Files.WriteAt(path, 0, "new"));
        EXPECT_FALSE(Files.Append(path, "new"));
    }
};

TEST_F(Files_that_are_none, a_pipe_without_a_writer_is_named_at_once_and_stays_a_pipe) {
    ASSERT_EQ(::mkfifo((Directory / "file").c_str(), 0600), 0);
    EXPECT_EQ(Fault(Directory / "file"), FileFault::Pipe);
    Refused(Directory / "file");
    EXPECT_EQ(std::filesystem::status(Directory / "file").type(), std::filesystem::file_type::fifo);
    EXPECT_THAT(Names(), ElementsAre("file"));
}

TEST_F(Files_that_are_none, a_pipe_with_a_writer_is_left_alone) {
    ASSERT_EQ(::mkfifo((Directory / "file").c_str(), 0600), 0);
    const int both = ::open((Directory / "file").c_str(), O_RDWR);
    ASSERT_GE(both, 0);
    EXPECT_EQ(::write(both, "text", 4), 4);
    EXPECT_EQ(Fault(Directory / "file"), FileFault::Pipe);
    char held[5]{};
    EXPECT_EQ(::read(both, held, 4), 4);
    EXPECT_STREQ(held, "text");
    ::close(both);
}

TEST_F(Files_that_are_none, a_device_is_neither_read_nor_written_nor_replaced) {
    std::filesystem::create_symlink("/dev/zero", Directory / "file");
    EXPECT_EQ(Fault(Directory / "file"), FileFault::Device);
    Refused(Directory / "file");
    EXPECT_EQ(std::filesystem::read_symlink(Directory / "file"), "/dev/zero");
}

TEST_F(Files_that_are_none, a_directory_is_named) {
    std::filesystem::create_directory(Directory / "file");
    EXPECT_EQ(Fault(Directory / "file"), FileFault::Directory);
    Refused(Directory / "file");
}

TEST_F(Files_that_are_none, a_link_to_itself_is_named_and_stays) {
    std::filesystem::create_symlink("file", Directory / "file");
    EXPECT_EQ(Fault(Directory / "file"), FileFault::LinkLoop);
    Refused(Directory / "file");
    EXPECT_TRUE(std::filesystem::is_symlink(Directory / "file"));
}

TEST_F(Files_that_are_none, a_link_to_nothing_is_not_a_missing_file) {
    std::filesystem::create_symlink("elsewhere", Directory / "file");
    EXPECT_EQ(Fault(Directory / "file"), FileFault::LinkToNothing);
    Refused(Directory / "file");
    EXPECT_THAT(Names(), ElementsAre("file"));
}

TEST_F(Files_that_are_none, a_socket_is_named) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = Directory / "file";
    ASSERT_LT(path.size(), sizeof(address.sun_path));
    path.copy(address.sun_path, path.size());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    EXPECT_EQ(Fault(path), FileFault::Socket);
    Refused(path);
    ::close(socket);
}

TEST_F(Files_that_are_none, a_file_without_the_right_to_read_it_says_so) {
    Put(Directory / "file", "text");
    ASSERT_EQ(::chmod(Directory.Path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod((Directory / "file").c_str(), 0), 0);
    const test::OtherUser user;
    ASSERT_TRUE(user.Good());
    EXPECT_EQ(Fault(Directory / "file"), FileFault::NoRight);
}

TEST_F(Files_that_are_none, no_room_for_an_open_file_says_so) {
    Put(Directory / "file", "text");
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{.rlim_cur = 0, .rlim_max = before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    std::string bytes;
    const ReadStatus status = Files.ReadAll(Directory / "file", bytes);
    const FileFault fault = Files.LastFault();
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(status, ReadStatus::Error);
    EXPECT_EQ(fault, FileFault::TooManyOpen);
}

TEST_F(Files_that_are_none, the_fault_is_forgotten_with_the_next_good_read) {
    Put(Directory / "good", "text");
    EXPECT_EQ(Fault(Directory.Path()), FileFault::Directory);
    std::string bytes;
    EXPECT_EQ(Files.ReadAll(Directory / "good", bytes), ReadStatus::Ok);
    EXPECT_EQ(Files.LastFault(), FileFault::None);
    EXPECT_EQ(Fault(Directory.Path()), FileFault::Directory);
    EXPECT_EQ(Files.ReadAll(Directory / "nothing", bytes), ReadStatus::Missing);
    EXPECT_EQ(Files.LastFault(), FileFault::None);
}

TEST_F(Files_that_are_none, more_than_any_file_of_the_system_says_so) {
    Put(Directory / "file", "");
    ASSERT_EQ(::truncate((Directory / "file").c_str(), (64 << 20) + 1), 0);
    EXPECT_EQ(Fault(Directory / "file"), FileFault::TooLarge);
}

} // namespace
} // namespace qvm
