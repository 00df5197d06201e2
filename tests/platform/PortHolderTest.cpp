#include "PortHolder.h"

#include "CableFixture.h"
#include "OtherUser.h"
#include "ProcessGuard.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qvm {
namespace {

/// Another process that does `work` and then stays until this object ends; `work` gives true when it could be done.
class Neighbour {
public:
    template <class Work>
    explicit Neighbour(Work work) {
        int line[2] = {-1, -1};
        EXPECT_EQ(::pipe(line), 0);
        id_ = ::fork();
        if (id_ == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            const char said = work() ? 'y' : 'n';
            [[maybe_unused]] const ssize_t count = ::write(line[1], &said, 1);
            for (;;) {
                ::pause();
            }
        }
        ::close(line[1]);
        char said = 'n';
        EXPECT_EQ(::read(line[0], &said, 1), 1);
        ::close(line[0]);
        ready_ = said == 'y';
    }
    ~Neighbour() {
        ::kill(id_, SIGKILL);
        ::waitpid(id_, nullptr, 0);
    }
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;

    bool Ready() const { return ready_; }
    std::string Number() const { return "(" + std::to_string(id_) + ")"; }

private:
    pid_t id_ = -1;
    bool ready_ = false;
};

class PortHolder_Test : public test::CableFixture {};

TEST_F(PortHolder_Test, a_program_that_hides_its_open_files_is_found_by_its_lock) {
    const std::string device = Cable.Device();
    const Neighbour holder([&device] {
        const int handle = ::open(device.c_str(), O_RDWR | O_NOCTTY);
        return handle >= 0 && ::flock(handle, LOCK_EX | LOCK_NB) == 0 && Memory_Protect();
    });
    ASSERT_TRUE(holder.Ready());
    EXPECT_THAT(PortHolder_Name(device), testing::HasSubstr(holder.Number()));
    const test::OtherUser other;
    ASSERT_TRUE(other.Good());
    EXPECT_THAT(PortHolder_Name(device), testing::HasSubstr(holder.Number()));
}

/// A second /dev/pts, with a terminal of the same number in it, open. False when the system does not allow it.
bool OpenNamesake(const std::string& device, const std::string& directory) {
    const int flags = CLONE_NEWNS | (::geteuid() == 0 ? 0 : CLONE_NEWUSER);
    if (::unshare(flags) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("devpts", directory.c_str(), "devpts", 0, "newinstance,ptmxmode=0666") != 0) {
        return false;
    }
    const std::string wanted = directory + device.substr(device.rfind('/'));
    for (int n = 0; n < 4096; ++n) {
        const int master = ::open((directory + "/ptmx").c_str(), O_RDWR | O_NOCTTY);
        int unlocked = 0;
        if (master < 0 || ::ioctl(master, TIOCSPTLCK, &unlocked) != 0) {
            return false;
        }
        if (const int handle = ::open(wanted.c_str(), O_RDWR | O_NOCTTY); handle >= 0) {
            return true;
        }
    }
    return false;
}

TEST_F(PortHolder_Test, a_terminal_of_the_same_number_in_another_dev_pts_is_another_device) {
    const std::string device = Cable.Device();
    const std::string directory = Directory / "pts";
    ASSERT_EQ(::mkdir(directory.c_str(), 0755), 0);
    const Neighbour neighbour([&] { return OpenNamesake(device, directory); });
    if (!neighbour.Ready()) {
        GTEST_SKIP() << "a second /dev/pts cannot be mounted here";
    }
    EXPECT_THAT(PortHolder_Name(device), testing::Not(testing::HasSubstr(neighbour.Number())));
}

} // namespace
} // namespace qvm
