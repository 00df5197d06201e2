#include "PathLook.h"

#include "FileHandle.h"
#include "PcLook.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <system_error>
#include <unistd.h>

namespace qvm {

namespace {

constexpr unsigned Permissions = 0777;

DateTime LocalTime(std::time_t moment) {
    std::tm local{};
    ::localtime_r(&moment, &local);
    return {.Year = local.tm_year + 1900,
            .Month = local.tm_mon + 1,
            .Day = local.tm_mday,
            .Hour = local.tm_hour,
            .Minute = local.tm_min,
            .Second = local.tm_sec};
}

/// `name`: the path behind the program's directory.
PathFacts LookAtPath(PcFacts& facts, const std::string& path, const std::string& name) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) {
        return {.Told = errno == ENOENT || errno == ENOTDIR};
    }
    if (S_ISREG(info.st_mode)) {
        const DateTime changed = LocalTime(info.st_mtim.tv_sec);
        if (!facts.Newest || *facts.Newest < changed) {
            facts.Newest = changed;
            facts.NewestFile = name;
        }
    }
    const bool directory = S_ISDIR(info.st_mode);
    return {.There = true,
            .Directory = directory,
            .Readable = ::access(path.c_str(), directory ? R_OK | X_OK : R_OK) == 0,
            .Writable = ::access(path.c_str(), W_OK) == 0,
            .Own = info.st_uid == ::geteuid(),
            .Mode = info.st_mode & Permissions,
            .Owner = User_Name(info.st_uid)};
}

void LookInside(PcFacts& facts, const std::string& directory, const std::string& folder) {
    facts.Paths[folder] = LookAtPath(facts, directory + folder, folder);
    std::error_code none;
    for (std::filesystem::directory_iterator entry(directory + folder, none), end; !none && entry != end;
         entry.increment(none)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with('.')) {
            std::string path = folder;
            path.append("/").append(name);
            const PathFacts found = LookAtPath(facts, directory + path, path);
            if (folder == "DAT") {
                facts.Paths[path] = found;
            }
        }
    }
}

/// The name behind the folder of the zones; empty when there is no such folder in it.
std::string ZoneOf(std::string_view path) {
    constexpr std::string_view folder = "zoneinfo/";
    const std::size_t at = path.find(folder);
    return at == std::string_view::npos ? std::string() : std::string(path.substr(at + folder.size()));
}

void LookAtZone(PcFacts& facts) {
    const char* const own = std::getenv("TZ");
    std::error_code none;
    if (own != nullptr && *own != '\0') {
        facts.Zone = own[0] == ':' ? own + 1 : own;
        if (const std::string behind = ZoneOf(facts.Zone); !behind.empty()) {
            facts.Zone = behind;
        }
    } else {
        facts.Zone = ZoneOf(std::filesystem::read_symlink("/etc/localtime", none).string());
    }
    facts.ZoneThere = !facts.Zone.empty() && std::filesystem::exists("/usr/share/zoneinfo/" + facts.Zone, none);
}

} // namespace

std::string User_Name(uid_t number) {
    const passwd* const entry = ::getpwuid(number);
    return entry != nullptr ? entry->pw_name : std::to_string(number);
}

void PathFacts_Look(PcFacts& facts, const std::string& directory) {
    LookInside(facts, directory, "DAT");
    LookInside(facts, directory, "HIST");
    struct statvfs system {};
    if (::statvfs((directory + "DAT").c_str(), &system) == 0) {
        facts.FreeBytes = static_cast<std::uint64_t>(system.f_bavail) * system.f_frsize;
        facts.ReadOnly = (system.f_flag & ST_RDONLY) != 0;
    }
    LookAtZone(facts);
}

std::string Path_Permit(const std::string& path, unsigned more, unsigned less) {
    // What may not be read cannot be opened, either, but for its place alone.
    const FileHandle handle(path, O_PATH | O_NOFOLLOW);
    struct stat info {};
    if (!handle.Good() || ::fstat(handle.Number(), &info) != 0) {
        return std::strerror(errno);
    }
    if (info.st_uid != ::geteuid() || !(S_ISREG(info.st_mode) || S_ISDIR(info.st_mode))) {
        return std::strerror(EPERM);
    }
    const auto mode = static_cast<mode_t>(((info.st_mode & 07777U) | (more & S_IRWXU)) & ~(less & Permissions));
    const std::string place = "/proc/self/fd/" + std::to_string(handle.Number());
    return ::chmod(place.c_str(), mode) == 0 ? std::string() : std::strerror(errno);
}

} // namespace qvm
