#include "PortGuard.h"

#include "PortHolder.h"
#include "Text.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
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

std::string NoRightText(const std::string& device) {
    const std::string group = GroupOf(device);
    std::string text = "No right to use " + AusUtf8(device) + ".";
    if (!group.empty()) {
        text += " It belongs to the group " + group + ": run \"sudo usermod -aG " + group +
                " $USER\", then log out and in again.";
    }
    return text;
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
        fault_ = PortFault_Text(device, error);
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

std::string PortFault_Held(const std::string& device) {
    const std::string holder = PortHolder_Name(device);
    std::string text =
        AusUtf8(device) + " is in use by " + (holder.empty() ? "another program" : AusUtf8(holder)) + ".";
    if (holder.find("ModemManager") != std::string::npos) {
        return text + " It lets go after a short while; \"sudo systemctl stop ModemManager\" keeps it away.";
    }
    return text + " Close that program and try again.";
}

std::string PortFault_Text(const std::string& device, int error) {
    switch (error) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
        return AusUtf8(device) + " is not there. Is the adapter plugged in?";
    case EACCES:
    case EPERM:
        return NoRightText(device);
    case EBUSY:
    case EWOULDBLOCK:
        return PortFault_Held(device);
    case ENOTTY:
    case EISDIR:
    case ENOTDIR:
    case EIO:
        return AusUtf8(device) + " is no serial port that works.";
    default:
        return AusUtf8(device) + " cannot be opened: " + std::strerror(error) + ".";
    }
}

} // namespace qvm
