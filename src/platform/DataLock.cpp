#include "DataLock.h"

#include "FilePath.h"
#include "ProcessNames.h"
#include "Text.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <optional>
#include <sstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace qvm {

namespace {

/// Write is a lock on the directory; Read and Replace are one on that which it lies in, found from itself, so that a
/// link to a directory leads to the same.
int Opened(const std::string& directory, bool parent) {
    const auto name = FilePath_Nativ(directory);
    if (!name) {
        return -1;
    }
    const FileHandle handle(*name, O_RDONLY | O_DIRECTORY);
    return handle.Good() ? ::openat(handle.Number(), parent ? ".." : ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1;
}

/// A line of /proc/locks: "1: FLOCK  ADVISORY  WRITE 4711 fe:00:11174022 0 EOF".
struct LockLine {
    std::string Process;
    unsigned Major = 0, Minor = 0;
    ino_t File = 0;
};

/// Nothing for other kinds of locks and for those who only wait ("1: -> FLOCK ...").
std::optional<LockLine> Lock_Of(const std::string& text) {
    std::istringstream words(text);
    std::string number, kind, manner, way, place;
    LockLine line;
    if (!(words >> number >> kind >> manner >> way >> line.Process >> place) || kind != "FLOCK") {
        return std::nullopt;
    }
    std::istringstream parts(place);
    char colon = 0;
    parts >> std::hex >> line.Major >> colon >> line.Minor >> colon >> std::dec >> line.File;
    return parts ? std::optional(line) : std::nullopt;
}

/// The process that has a lock on the file; empty when the system does not tell.
std::string HolderOf(const struct stat& file) {
    std::ifstream list("/proc/locks");
    std::string text, likely;
    while (std::getline(list, text)) {
        const auto line = Lock_Of(text);
        if (!line || line->File != file.st_ino || line->Process.starts_with('-') || line->Process == "0") {
            continue;
        }
        if (line->Major == major(file.st_dev) && line->Minor == minor(file.st_dev)) {
            return line->Process;
        }
        // Some file systems give a device here that no other call gives.
        likely = line->Process;
    }
    return likely;
}

} // namespace

DataLock::DataLock(const std::string& directory, Use use) : use_(use), handle_(Opened(directory, use != Use::Write)) {}

int DataLock::Kind() const {
    return use_ == Use::Read ? LOCK_SH : LOCK_EX;
}

bool DataLock::Try() const {
    return !handle_.Good() || ::flock(handle_.Number(), Kind() | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void DataLock::Wait() const {
    while (handle_.Good() && ::flock(handle_.Number(), Kind()) != 0 && errno == EINTR) {
    }
}

DataHolder DataLock::Holder() const {
    struct stat info {};
    const std::string number = handle_.Good() && ::fstat(handle_.Number(), &info) == 0 ? HolderOf(info) : std::string();
    if (number.empty()) {
        return {};
    }
    return {.Program = AusUtf8(Process_Name(number)),
            .Process = std::atoi(number.c_str()),
            .User = AusUtf8(Process_User(number))};
}

} // namespace qvm
