#include "FarEnd.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

namespace qvm::test {

FarEnd::FarEnd() : handle_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
    std::array<char, 128> name{};
    EXPECT_TRUE(handle_ >= 0 && ::grantpt(handle_) == 0 && ::unlockpt(handle_) == 0 &&
                ::ptsname_r(handle_, name.data(), name.size()) == 0);
    device_ = name.data();
    // Raw from the start: what is sent before the program opens the line must not come back as an echo.
    termios settings{};
    ::tcgetattr(handle_, &settings);
    ::cfmakeraw(&settings);
    ::tcsetattr(handle_, TCSANOW, &settings);
}

bool FarEnd::Send(std::span<const std::uint8_t> bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = ::write(handle_, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            pollfd line{.fd = handle_, .events = POLLOUT, .revents = 0};
            ::poll(&line, 1, 100);
        } else {
            return false;
        }
    }
    return true;
}

std::vector<std::uint8_t> FarEnd::Received() const {
    std::vector<std::uint8_t> all;
    std::array<std::uint8_t, 4096> bytes{};
    for (;;) {
        const ssize_t count = ::read(handle_, bytes.data(), bytes.size());
        if (count <= 0) {
            return all;
        }
        all.insert(all.end(), bytes.begin(), bytes.begin() + count);
    }
}

termios FarEnd::Settings() const {
    termios settings{};
    EXPECT_EQ(::tcgetattr(handle_, &settings), 0);
    return settings;
}

void FarEnd::Unplug() {
    if (handle_ >= 0) {
        ::close(handle_);
        handle_ = -1;
    }
}

} // namespace qvm::test
