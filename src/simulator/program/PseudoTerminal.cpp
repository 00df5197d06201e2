#include "PseudoTerminal.h"

#include "FileText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

namespace qvm {

namespace {

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
    for (int* handle : {&line_, &peer_, &watch_}) {
        if (*handle >= 0) {
            ::close(*handle);
            *handle = -1;
        }
    }
}

/// Bytes go through as they are: no echo, no line editing, no signals.
bool PseudoTerminal::MakeRaw(std::string& fault) {
    termios settings{};
    bool good = ::tcgetattr(peer_, &settings) == 0;
    ::cfmakeraw(&settings);
    good = good && ::cfsetspeed(&settings, B19200) == 0 && ::tcsetattr(peer_, TCSANOW, &settings) == 0;
    if (!good) {
        fault = SystemFault("cannot set up " + name_);
    }
    return good;
}

bool PseudoTerminal::Open(std::string& fault) {
    line_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    std::array<char, 128> name{};
    if (line_ < 0 || ::grantpt(line_) != 0 || ::unlockpt(line_) != 0 ||
        ::ptsname_r(line_, name.data(), name.size()) != 0) {
        fault = SystemFault("cannot make a pseudo-terminal");
        return false;
    }
    name_ = name.data();
    peer_ = ::open(name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    watch_ = ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    if (peer_ < 0 || watch_ < 0 || ::inotify_add_watch(watch_, name_.c_str(), IN_OPEN | IN_CLOSE) < 0) {
        fault = SystemFault("cannot watch " + name_);
        return false;
    }
    return MakeRaw(fault);
}

bool PseudoTerminal::UpdateClients() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    bool gone = false;
    for (ssize_t count = ::read(watch_, buffer.data(), buffer.size()); count > 0;
         count = ::read(watch_, buffer.data(), buffer.size())) {
        // Nothing is watched below the device, so that every event has the same size, without a name.
        for (std::size_t at = 0; at + sizeof(inotify_event) <= static_cast<std::size_t>(count);
             at += sizeof(inotify_event)) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + at, sizeof event);
            const bool came = (event.mask & IN_OPEN) != 0;
            gone = gone || !came;
            clients_ = std::max(clients_ + (came ? 1 : -1), 0);
        }
    }
    if (gone && clients_ == 0) {
        ::ioctl(peer_, TIOCNXCL);
    }
    if (gone) {
        ::tcflush(peer_, TCIFLUSH); // the next client must not find what the last one did not read
    }
    return gone;
}

std::vector<std::uint8_t> PseudoTerminal::Read() {
    std::vector<std::uint8_t> bytes(4096);
    const ssize_t count = ::read(line_, bytes.data(), bytes.size());
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

std::size_t PseudoTerminal::Write(std::span<const std::uint8_t> bytes) {
    const ssize_t count = bytes.empty() ? 0 : ::write(line_, bytes.data(), bytes.size());
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
        fault = SystemFault("cannot make the link " + link);
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
