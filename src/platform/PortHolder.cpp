#include "PortHolder.h"

#include "ProcessNames.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sstream>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>
#include <vector>

namespace qvm {

namespace {

std::vector<std::string> Entries(const std::string& path) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(path.c_str()), &::closedir);
    while (directory) {
        const dirent* const entry = ::readdir(directory.get());
        if (entry == nullptr) {
            break;
        }
        names.emplace_back(entry->d_name);
    }
    return names;
}

bool IsNumber(std::string_view name) {
    return !name.empty() &&
           std::all_of(name.begin(), name.end(), [](unsigned char digit) { return std::isdigit(digit) != 0; });
}

bool PseudoTerminal(const struct stat& device) {
    constexpr unsigned first = 136, last = 143;
    const unsigned kind = major(device.st_rdev);
    return kind >= first && kind <= last;
}

/// True when both are the same device. A number of its own has a device whatever node leads to it, but for the
/// terminals of /dev/pts: each mount of that directory counts its own from 0.
bool SameDevice(const struct stat& a, const struct stat& b) {
    return S_ISCHR(b.st_mode) && a.st_rdev == b.st_rdev && (!PseudoTerminal(a) || a.st_dev == b.st_dev);
}

bool Holds(const std::string& process, const struct stat& device, const std::string& except) {
    const std::string handles = process + "/fd/";
    const std::vector<std::string> names = Entries(handles);
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        struct stat info {};
        return IsNumber(name) && name != except && ::stat((handles + name).c_str(), &info) == 0 &&
               SameDevice(device, info);
    });
}

std::string TextOf(const std::string& path) {
    std::string text;
    std::array<char, 4096> piece{};
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    for (ssize_t count = 1; file >= 0 && count > 0;) {
        count = ::read(file, piece.data(), piece.size());
        text.append(piece.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    if (file >= 0) {
        ::close(file);
    }
    return text;
}

/// Number of the process that holds the advisory lock of a serial port's node, as this program does; empty when none
/// does. Everybody may read the system's list, and it names programs, too, whose open files are hidden.
std::string LockHolder(const struct stat& node) {
    std::array<char, 64> place{};
    std::snprintf(place.data(), place.size(), "%02x:%02x:%ju", major(node.st_dev), minor(node.st_dev),
                  static_cast<std::uintmax_t>(node.st_ino));
    std::istringstream lines(TextOf("/proc/locks"));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string number, kind, how, access, process, where;
        words >> number >> kind >> how >> access >> process >> where;
        if (kind == "FLOCK" && where == place.data() && IsNumber(process) && process != "0") {
            return process;
        }
    }
    return {};
}

std::string Named(const std::string& name, const std::string& number) {
    return (name.empty() ? "process" : name) + " (" + number + ")";
}

} // namespace

std::string PortHolder_Name(const std::string& device, int ownHandle) {
    struct stat info {};
    if (::stat(device.c_str(), &info) != 0 || !S_ISCHR(info.st_mode)) {
        return {};
    }
    const std::string self = std::to_string(::getpid());
    for (const std::string& number : Entries("/proc")) {
        const std::string process = "/proc/" + number;
        const std::string except = number == self ? std::to_string(ownHandle) : std::string();
        if (IsNumber(number) && Holds(process, info, except)) {
            return Named(Process_Name(number), number);
        }
    }
    const std::string holder = LockHolder(info);
    return holder.empty() || holder == self ? std::string() : Named(Process_Name(holder), holder);
}

std::string PortHolder_Blocking(const std::string& device) {
    struct stat info {};
    if (::stat(device.c_str(), &info) != 0 || !PseudoTerminal(info)) {
        return PortHolder_Name(device);
    }
    const std::string holder = LockHolder(info);
    return holder.empty() || holder == std::to_string(::getpid()) ? std::string() : Named(Process_Name(holder), holder);
}

bool PortHolder_IsService(std::string_view holder) {
    const std::string_view name = holder.substr(0, holder.find(' '));
    return name == "ModemManager" || name == "brltty";
}

std::string PortHolder_Service() {
    for (const std::string& number : Entries("/proc")) {
        const std::string name = IsNumber(number) ? Process_Name(number) : std::string();
        if (PortHolder_IsService(name)) {
            return Named(name, number);
        }
    }
    return {};
}

} // namespace qvm
