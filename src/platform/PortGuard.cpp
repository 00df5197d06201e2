#include "PortGuard.h"

#include "PortHolder.h"
#include "Text.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <grp.h>
#include <memory>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace qvm {

namespace {

std::string GroupOf(const std::string& device) {
    struct stat info {};
    if (::stat(device.c_str(), &info) != 0) {
        return {};
    }
    const group* const entry = ::getgrgid(info.st_gid);
    return entry != nullptr ? entry->gr_name : std::to_string(info.st_gid);
}

/// Device nodes younger than this many seconds are taken for just plugged in: in that time modem and braille services
/// look what is behind a new port.
constexpr std::time_t NewSeconds = 60;

bool JustPlugged(const std::string& device) {
    struct stat info {};
    return ::stat(device.c_str(), &info) == 0 && std::time(nullptr) - info.st_ctime < NewSeconds;
}

/// True when the device is in exclusive mode, which does not keep the administrator out, and somebody has it open.
bool ExclusivelyHeld(const std::string& device, int handle) {
    int exclusive = 0;
    return ::ioctl(handle, TIOCGEXCL, &exclusive) == 0 && exclusive != 0 && !PortHolder_Name(device, handle).empty();
}

/// 0 when the device is held now, else an errno value.
int Take(const std::string& device, const FileHandle& handle) {
    if (!handle.Good()) {
        return errno;
    }
    if (::isatty(handle.Number()) == 0) {
        return ENOTTY;
    }
    if (ExclusivelyHeld(device, handle.Number())) {
        return EBUSY;
    }
    return ::flock(handle.Number(), LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
}

} // namespace

PortGuard::PortGuard(const std::string& device) : handle_(device, O_RDWR | O_NONBLOCK) {
    if (const int error = Take(device, handle_); error != 0) {
        // Closed first, or this program would be found as the one that holds the device.
        handle_.Close();
        fault_ = PortFault_Of(device, error);
    }
}

void PortGuard::ExclusiveModeSet() const {
    // Numbers of the terminals of /dev/pts.
    constexpr unsigned first = 136, last = 143;
    struct stat info {};
    if (::fstat(handle_.Number(), &info) == 0 && major(info.st_rdev) >= first && major(info.st_rdev) <= last) {
        ::ioctl(handle_.Number(), TIOCNXCL);
    }
}

PortFault PortFault_HeldNow(const std::string& device) {
    const std::string holder = PortHolder_Name(device);
    if (PortHolder_IsService(holder)) {
        return {.What = PortFault::Kind::HeldByService, .Device = AusUtf8(device), .Detail = AusUtf8(holder)};
    }
    // Services run for another user, whose open files the system does not show.
    const std::string service = holder.empty() && JustPlugged(device) ? PortHolder_Service() : std::string();
    if (!service.empty()) {
        return {.What = PortFault::Kind::HeldByService, .Device = AusUtf8(device), .Detail = AusUtf8(service)};
    }
    return {.What = PortFault::Kind::Held, .Device = AusUtf8(device), .Detail = AusUtf8(holder)};
}

PortFault PortFault_Of(const std::string& device, int error) {
    using Kind = PortFault::Kind;
    switch (error) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return {.What = Kind::NotThere, .Device = AusUtf8(device)};
    case EACCES:
    case EPERM:
        return {.What = Kind::NoRight, .Device = AusUtf8(device), .Detail = GroupOf(device)};
    case EBUSY:
    case EWOULDBLOCK:
        return PortFault_HeldNow(device);
    case ENOTTY:
    case EISDIR:
    case ENOTDIR:
    case EIO:
        return {.What = Kind::NotSerial, .Device = AusUtf8(device)};
    default:
        return {.What = Kind::Other, .Device = AusUtf8(device), .Detail = AusUtf8(std::strerror(error))};
    }
}

} // namespace qvm
