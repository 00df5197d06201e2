#include "PseudoTerminal.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace qvm {

namespace {

std::string Why(const std::string& what) {
    return what + ": " + std::strerror(errno);
}

/// Bytes go through as they are: no echo, no line editing, no signals.
bool MakeRaw(const std::string& name, std::string& fault) {
    const int line = ::open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (line < 0) {
        fault = Why("cannot open " + name);
        return false;
    }
    termios settings{};
    bool good = ::tcgetattr(line, &settings) == 0;
    ::cfmakeraw(&settings);
    good = good && ::cfsetspeed(&settings, B19200) == 0 && ::tcsetattr(line, TCSANOW, &settings) == 0;
    if (!good) {
        fault = Why("cannot set up " + name);
    }
    ::close(line);
    return good;
}

std::string LinkTarget(const std::string& link) {
    std::array<char, 4096> target{};
    const ssize_t count = ::readlink(link.c_str(), target.data(), target.size());
    return count < 0 ? std::string{} : std::string(target.data(), static_cast<std::size_t>(count));
}

} // namespace

PseudoTerminal::~PseudoTerminal() {
    Close();
}

void PseudoTerminal::Close() {
    if (handle_ >= 0) {
        ::close(handle_);
        handle_ = -1;
    }
}

bool PseudoTerminal::Open(std::string& fault) {
    handle_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    std::array<char, 128> name{};
    if (handle_ < 0 || ::grantpt(handle_) != 0 || ::unlockpt(handle_) != 0 ||
        ::ptsname_r(handle_, name.data(), name.size()) != 0) {
        fault = Why("cannot make a pseudo-terminal");
        return false;
    }
    name_ = name.data();
    return MakeRaw(name_, fault);
}

std::optional<std::vector<std::uint8_t>> PseudoTerminal::Read() {
    std::vector<std::uint8_t> bytes(4096);
    const ssize_t count = ::read(handle_, bytes.data(), bytes.size());
    if (count < 0 && errno != EAGAIN && errno != EINTR) {
        return std::nullopt;
    }
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

std::size_t PseudoTerminal::Write(std::span<const std::uint8_t> bytes) {
    const ssize_t count = bytes.empty() ? 0 : ::write(handle_, bytes.data(), bytes.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

DeviceLink::~DeviceLink() {
    Remove();
}

bool DeviceLink::Make(const std::string& link, const std::string& device, std::string& fault) {
    struct stat present {};
    const bool there = ::lstat(link.c_str(), &present) == 0;
    if (there && !S_ISLNK(present.st_mode)) {
        fault = link + " is there and is no link; it stays";
        return false;
    }
    // By way of a sibling, so that a client never finds the name missing.
    const std::string sibling = link + ".new";
    ::unlink(sibling.c_str());
    if (::symlink(device.c_str(), sibling.c_str()) != 0 || ::rename(sibling.c_str(), link.c_str()) != 0) {
        fault = Why("cannot make the link " + link);
        ::unlink(sibling.c_str());
        return false;
    }
    link_ = link;
    device_ = device;
    return true;
}

void DeviceLink::Remove() {
    if (!link_.empty() && LinkTarget(link_) == device_) {
        ::unlink(link_.c_str());
    }
    link_.clear();
}

} // namespace qvm
