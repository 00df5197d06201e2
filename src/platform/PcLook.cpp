#include "PcLook.h"

#include "FileHandle.h"
#include "PathLook.h"
#include "PcClock.h"
#include "PortHolder.h"
#include "PortNumbers.h"
#include "ProcessNames.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <grp.h>
#include <pwd.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
#include <system_error>
#include <unistd.h>

namespace qvm {

namespace {

std::string StartOf(const std::string& path) {
    std::array<char, 4096> bytes{};
    const FileHandle file(path, O_RDONLY | O_NONBLOCK);
    const ssize_t count = file.Good() ? file.Read(bytes.data(), bytes.size()) : 0;
    return {bytes.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

std::string GroupName(gid_t number) {
    const group* const entry = ::getgrgid(number);
    return entry != nullptr ? entry->gr_name : std::to_string(number);
}

bool Lists(gid_t number, const std::string& user) {
    const group* const entry = ::getgrgid(number);
    char** member = entry != nullptr ? entry->gr_mem : nullptr;
    for (; member != nullptr && *member != nullptr; ++member) {
        if (user == *member) {
            return true;
        }
    }
    return false;
}

/// The modem service's own marks in what the system's device manager knows of the device.
bool ToldToLeave(const struct stat& device) {
    const std::string known = StartOf("/run/udev/data/c" + std::to_string(major(device.st_rdev)) + ":" +
                                      std::to_string(minor(device.st_rdev)));
    return known.find("E:ID_MM_DEVICE_IGNORE=1") != std::string::npos ||
           known.find("E:ID_MM_PORT_IGNORE=1") != std::string::npos;
}

void ReadTimer(PortFacts& port) {
    struct stat info {};
    port.TimerTold = ::stat("/sys/class/tty", &info) == 0;
    port.LatencyMs.reset();
    if (::stat(port.LatencyFile.c_str(), &info) != 0) {
        return;
    }
    const std::string text = StartOf(port.LatencyFile);
    int value = 0;
    const bool number = std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc();
    port.TimerTold = number;
    if (number) {
        port.LatencyMs = value;
    }
}

void LookAtTimer(PortFacts& port, const std::string& target) {
    port.LatencyFile = "/sys/class/tty/" + target.substr(target.rfind('/') + 1) + "/device/latency_timer";
    ReadTimer(port);
}

PortFacts LookAtPort(const PortNumbers& numbers, int number, const std::string& user) {
    const std::string device = numbers.Device(number);
    PortFacts port{.Number = number, .Device = numbers.Describe(number)};
    struct stat info {};
    port.There = ::stat(device.c_str(), &info) == 0;
    port.Serial = port.There && S_ISCHR(info.st_mode);
    if (!port.Serial) {
        return port;
    }
    port.Right = ::access(device.c_str(), R_OK | W_OK) == 0;
    port.Owner = User_Name(info.st_uid);
    port.Group = GroupName(info.st_gid);
    port.GroupMay = (info.st_mode & (S_IRGRP | S_IWGRP)) == (S_IRGRP | S_IWGRP);
    port.GroupListed = Lists(info.st_gid, user);
    port.Holder = PortHolder_Blocking(device);
    port.LeftAlone = ToldToLeave(info);
    std::error_code none;
    LookAtTimer(port, std::filesystem::canonical(device, none).string());
    return port;
}

void LookAtUser(PcFacts& facts) {
    facts.User = User_Name(::geteuid());
    std::vector<gid_t> groups(static_cast<std::size_t>(std::max(::getgroups(0, nullptr), 0)));
    const int count = ::getgroups(static_cast<int>(groups.size()), groups.data());
    groups.resize(static_cast<std::size_t>(std::max(count, 0)));
    for (const gid_t number : groups) {
        facts.Groups.push_back(GroupName(number));
    }
}

/// Services of other users are seen unless the system hides them, and then it hides the first process, too.
void LookAtServices(PcFacts& facts) {
    facts.ServicesTold = !Process_Name("1").empty();
    std::error_code none;
    for (std::filesystem::directory_iterator entry("/proc", none), end; !none && entry != end; entry.increment(none)) {
        const std::string number = entry->path().filename().string();
        const bool process = number.find_first_not_of("0123456789") == std::string::npos;
        const std::string name = process ? Process_Name(number) : std::string();
        if (PortHolder_IsService(name)) {
            facts.Services.push_back(name);
            facts.Services.back().append(" (").append(number).append(")");
        }
    }
    std::sort(facts.Services.begin(), facts.Services.end());
}

void LookAtDevices(PcFacts& facts, const PortNumbers& numbers) {
    const std::vector<SerialDevice> devices = SerialDevices();
    for (const SerialDevice& device : devices) {
        const bool candidate = std::any_of(facts.Ports.begin(), facts.Ports.end(), [&](const PortFacts& port) {
            std::error_code none;
            return std::filesystem::equivalent(numbers.Device(port.Number), "/dev/" + device.Name, none);
        });
        if (!candidate) {
            std::array<char, 16> identity{};
            std::snprintf(identity.data(), identity.size(), "%04x:%04x", static_cast<unsigned>(device.Vendor) & 0xFFFFU,
                          static_cast<unsigned>(device.Product) & 0xFFFFU);
            facts.OtherDevices.push_back(device.Name +
                                         (device.Vendor > 0 ? " (" + std::string(identity.data()) + ")" : ""));
        }
    }
}

} // namespace

PcFacts PcFacts_Look(const std::string& directory, const std::optional<std::string>& device,
                     const std::vector<int>& ports) {
    PcFacts facts;
    LookAtUser(facts);
    const PortNumbers numbers(directory, device);
    for (const int number : ports) {
        facts.Ports.push_back(LookAtPort(numbers, number, facts.User));
    }
    LookAtDevices(facts, numbers);
    LookAtServices(facts);
    facts.Now = Clock_Now();
    PathFacts_Look(facts, directory);
    return facts;
}

void Latency_LookAgain(PortFacts& port) {
    port.Opened = true;
    ReadTimer(port);
}

std::string Latency_Shorten(const std::string& file) {
    const FileHandle handle(file, O_WRONLY);
    return handle.Good() && handle.Write("1\n") ? std::string() : std::strerror(errno);
}

std::string Pc_Mend(const std::string& directory, const FileStore& files, const DoctorFix& fix) {
    switch (fix.What) {
    case DoctorFix::Kind::Permissions:
        return Path_Permit(directory + fix.Path, fix.More, fix.Less);
    case DoctorFix::Kind::MakeDirectory:
        return files.MakeDirectory(directory + fix.Path) ? std::string() : std::strerror(errno);
    case DoctorFix::Kind::ShortLatency:
        return Latency_Shorten(fix.Path);
    case DoctorFix::Kind::None:
        break;
    }
    return {};
}

} // namespace qvm
