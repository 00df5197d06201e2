#include "PortHolder.h"

#include "ProcessNames.h"

#include <algorithm>
#include <cctype>
#include <dirent.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
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

bool Holds(const std::string& process, dev_t device, const std::string& except) {
    const std::string handles = process + "/fd/";
    const std::vector<std::string> names = Entries(handles);
    return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
        struct stat info {};
        return IsNumber(name) && name != except && ::stat((handles + name).c_str(), &info) == 0 &&
               S_ISCHR(info.st_mode) && info.st_rdev == device;
    });
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
        if (IsNumber(number) && Holds(process, info.st_rdev, except)) {
            return Named(Process_Name(number), number);
        }
    }
    return {};
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
