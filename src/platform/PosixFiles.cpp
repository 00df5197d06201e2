#include "PosixFiles.h"

#include "FileHandle.h"
#include "FilePath.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <span>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qvm {

namespace {

constexpr mode_t FileMode = 0600;
constexpr mode_t DirectoryMode = 0755;

bool Exists(const std::string& path) {
    struct stat info {};
    const auto name = FilePath_Nativ(path);
    return name && ::stat(name->c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

FileFault Fault_Of_Kind(mode_t mode) {
    switch (mode & S_IFMT) {
    case S_IFREG:
        return FileFault::None;
    case S_IFDIR:
        return FileFault::Directory;
    case S_IFIFO:
        return FileFault::Pipe;
    case S_IFSOCK:
        return FileFault::Socket;
    default:
        return FileFault::Device;
    }
}

FileFault Fault_Of_Error(int error) {
    switch (error) {
    case EACCES:
    case EPERM:
        return FileFault::NoRight;
    case ELOOP:
        return FileFault::LinkLoop;
    case EMFILE:
    case ENFILE:
        return FileFault::TooManyOpen;
    case EIO:
        return FileFault::Broken;
    default:
        return FileFault::Other;
    }
}

/// What stands at a name, before it is opened.
struct Place {
    ReadStatus Status = ReadStatus::Ok; ///< Ok: a plain file
    FileFault Fault = FileFault::None;
};

Place LookAt(const std::string& name) {
    struct stat info {};
    if (::stat(name.c_str(), &info) == 0) {
        const FileFault fault = Fault_Of_Kind(info.st_mode);
        return {fault == FileFault::None ? ReadStatus::Ok : ReadStatus::Error, fault};
    }
    if (errno != ENOENT) {
        return {ReadStatus::Error, Fault_Of_Error(errno)};
    }
    if (::lstat(name.c_str(), &info) == 0) {
        return {ReadStatus::Error, FileFault::LinkToNothing};
    }
    return errno == ENOENT ? Place{ReadStatus::Missing} : Place{ReadStatus::Error, Fault_Of_Error(errno)};
}

/// Reads to the end. False with errno when that fails; too much is EFBIG.
bool ReadWhole(const FileHandle& file, off_t expected, std::string& bytes) {
    // One more than the file holds, so that the end shows without another turn. The files of /proc have no size.
    std::size_t room = static_cast<std::size_t>(std::clamp<off_t>(expected, 4095, LargestFile)) + 1;
    std::size_t size = 0;
    while (size <= LargestFile) {
        bytes.resize(std::min(room, LargestFile + 1));
        const ssize_t count = file.Read(bytes.data() + size, bytes.size() - size);
        if (count <= 0) {
            bytes.resize(count < 0 ? 0 : size);
            return count == 0;
        }
        size += static_cast<std::size_t>(count);
        room = size < room ? room : room * 2;
    }
    bytes.clear();
    errno = EFBIG;
    return false;
}

ReadStatus ReadAll(const std::string& path, std::string& bytes, FileFault& fault) {
    bytes.clear();
    fault = FileFault::None;
    const auto name = FilePath_Nativ(path);
    if (!name) {
        fault = FileFault::Other;
        return ReadStatus::Error;
    }
    const Place place = LookAt(*name);
    fault = place.Fault;
    if (place.Status != ReadStatus::Ok) {
        return place.Status;
    }
    // It may have become something else meanwhile.
    const FileHandle file(*name, O_RDONLY | O_NONBLOCK);
    struct stat info {};
    if (!file.Good() || ::fstat(file.Number(), &info) != 0) {
        fault = Fault_Of_Error(errno);
        return ReadStatus::Error;
    }
    fault = Fault_Of_Kind(info.st_mode);
    if (fault == FileFault::None && !ReadWhole(file, info.st_size, bytes)) {
        fault = errno == EFBIG ? FileFault::TooLarge : Fault_Of_Error(errno);
    }
    return fault == FileFault::None ? ReadStatus::Ok : ReadStatus::Error;
}

/// Flushes the entries of a directory. Some file systems cannot, and a user who may write there need not be allowed to
/// read it: neither is a fault of the disk. False for such a one.
bool FlushDirectory(const std::string& directory) {
    const FileHandle handle(directory, O_RDONLY | O_DIRECTORY);
    if (!handle.Good()) {
        return errno == EACCES;
    }
    return ::fsync(handle.Number()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

std::string DirectoryOf(const std::string& target) {
    const auto slash = target.rfind('/');
    return slash == std::string::npos ? "./" : target.substr(0, slash + 1);
}

bool FillSibling(FileHandle& sibling, const std::string& target, std::string_view bytes) {
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0 && (old.st_uid != ::geteuid() || old.st_gid != ::getegid())) {
        // Only the administrator may give files away; for anybody else the new file is his own.
        [[maybe_unused]] const int done = ::fchown(sibling.Number(), old.st_uid, old.st_gid);
    }
    const bool written = sibling.Write(bytes) && ::fsync(sibling.Number()) == 0;
    return sibling.Close() && written;
}

/// A sibling on which this program holds a lock. Sweep of another program may have taken the first one for left behind.
int LockedSibling(const std::string& pattern, std::string& name) {
    constexpr int Tries = 10;
    for (int n = 0; n < Tries; ++n) {
        name = pattern;
        const int file = ::mkostemp(name.data(), O_CLOEXEC);
        struct stat info {};
        if (file < 0) {
            return file;
        }
        // Where there are no locks, nobody sweeps either.
        ::flock(file, LOCK_EX);
        if (::fstat(file, &info) != 0 || info.st_nlink > 0) {
            return file;
        }
        ::close(file);
    }
    return -1;
}

bool Replace(const std::string& path, std::string_view bytes) {
    const auto name = FilePath_Nativ(path);
    if (!name || LookAt(*name).Status == ReadStatus::Error) {
        return false;
    }
    const std::string target = FilePath_Ziel(*name);
    const std::string directory = DirectoryOf(target);
    const std::string entry = target.substr(target.rfind('/') + 1);
    std::string siblingName;
    FileHandle sibling(LockedSibling(directory + "." + entry + ".XXXXXX", siblingName));
    if (!sibling.Good()) {
        return false;
    }
    // The lock lasts until the file has its name; it goes with the last descriptor.
    const FileHandle held(::fcntl(sibling.Number(), F_DUPFD_CLOEXEC, 0));
    if (!FillSibling(sibling, target, bytes) || ::rename(siblingName.c_str(), target.c_str()) != 0) {
        ::unlink(siblingName.c_str());
        return false;
    }
    // The file is whole either way.
    FlushDirectory(directory);
    return true;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// True for "-YYYYMMDD-HHMMSS" and the same with "-N" behind it, as a copy kept beside a file has it behind the name.
bool IsDate(std::string_view mark) {
    constexpr std::string_view Pattern = "-00000000-000000", Longest = "-00000000-000000-00";
    const bool length =
        mark.size() == Pattern.size() || (mark.size() > Pattern.size() + 1 && mark.size() <= Longest.size());
    return length && std::equal(mark.begin(), mark.end(), Longest.begin(),
                                [](char c, char like) { return like == '0' ? IsDigit(c) : c == like; });
}

/// True for `.NAME.XXXXXX`, as mkostemp makes it of one of the names or of its dated copy.
bool IsSibling(std::string_view entry, std::span<const std::string_view> names) {
    constexpr std::size_t Random = 6;
    if (entry.size() < Random + 2 || entry[0] != '.' || entry[entry.size() - Random - 1] != '.' ||
        !std::all_of(entry.end() - Random, entry.end(),
                     [](char c) { return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); })) {
        return false;
    }
    const std::string_view target = entry.substr(1, entry.size() - Random - 2);
    return std::any_of(names.begin(), names.end(), [target](std::string_view name) {
        return target == name || (target.starts_with(name) && IsDate(target.substr(name.size())));
    });
}

void Sweep(const std::string& path, std::span<const std::string_view> names) {
    const auto native = FilePath_Nativ(path);
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(native ? ::opendir(native->c_str()) : nullptr, &::closedir);
    while (directory) {
        const dirent* const entry = ::readdir(directory.get());
        if (entry == nullptr) {
            break;
        }
        struct stat info {};
        const int within = ::dirfd(directory.get());
        if (!IsSibling(entry->d_name, names) || ::fstatat(within, entry->d_name, &info, AT_SYMLINK_NOFOLLOW) != 0 ||
            !S_ISREG(info.st_mode)) {
            continue;
        }
        const FileHandle file(::openat(within, entry->d_name, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
        if (file.Good() && ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0) {
            ::unlinkat(within, entry->d_name, 0);
        }
    }
}

/// What a failed write must put back.
struct Before {
    off_t Size = 0;
    std::string Overwritten;
    bool Known = false;
};

Before Remember(const FileHandle& file, off_t offset, std::size_t count) {
    Before before;
    struct stat info {};
    if (::fstat(file.Number(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return before;
    }
    before.Size = info.st_size;
    before.Overwritten.resize(offset < info.st_size ? std::min(count, static_cast<std::size_t>(info.st_size - offset))
                                                    : 0);
    before.Known = file.ReadAt(before.Overwritten, offset);
    return before;
}

void PutBack(const FileHandle& file, off_t offset, const Before& before) {
    file.WriteAt(before.Overwritten, offset);
    [[maybe_unused]] const int done = ::ftruncate(file.Number(), before.Size);
}

bool WriteAt(const std::string& path, std::uint64_t offset, std::string_view bytes) {
    const auto name = FilePath_Nativ(path);
    if (!name || offset > LargestFile || bytes.size() > LargestFile) {
        return false;
    }
    const ReadStatus before = LookAt(*name).Status;
    if (before == ReadStatus::Error) {
        return false;
    }
    FileHandle file(*name, O_RDWR | O_CREAT | O_NONBLOCK, FileMode);
    const auto at = static_cast<off_t>(offset);
    const Before old = file.Good() ? Remember(file, at, bytes.size()) : Before{};
    // The system reads a gap as 0x00. What is on the disk stays there, whatever closing says.
    if (old.Known && file.WriteAt(bytes, at) && ::fdatasync(file.Number()) == 0) {
        return true;
    }
    if (old.Known) {
        PutBack(file, at, old);
    }
    if (file.Good() && before == ReadStatus::Missing) {
        ::unlink(name->c_str());
    }
    return false;
}

bool Append(const std::string& path, std::string_view bytes) {
    const auto name = FilePath_Nativ(path);
    const ReadStatus before = name ? LookAt(*name).Status : ReadStatus::Error;
    if (before == ReadStatus::Error) {
        return false;
    }
    FileHandle file(*name, O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK, FileMode);
    struct stat info {};
    if (!file.Good()) {
        return false;
    }
    const bool known = ::fstat(file.Number(), &info) == 0 && S_ISREG(info.st_mode);
    if (known && file.Write(bytes)) {
        return file.Close();
    }
    if (known) {
        [[maybe_unused]] const int done = ::ftruncate(file.Number(), info.st_size);
    }
    if (before == ReadStatus::Missing) {
        ::unlink(name->c_str());
    }
    return false;
}

bool Flush(const std::string& path) {
    const auto name = FilePath_Nativ(path);
    if (!name || LookAt(*name).Status != ReadStatus::Ok) {
        return false;
    }
    const FileHandle file(*name, O_RDONLY | O_NONBLOCK);
    return file.Good() && ::fsync(file.Number()) == 0 && FlushDirectory(DirectoryOf(FilePath_Ziel(*name)));
}

bool Remove(const std::string& path) {
    const auto name = FilePath_Nativ(path);
    return name && ::unlink(name->c_str()) == 0;
}

bool MakeDirectory(const std::string& path) {
    struct stat info {};
    const auto name = FilePath_Nativ(path);
    return name && (::mkdir(name->c_str(), DirectoryMode) == 0 ||
                    (errno == EEXIST && ::stat(name->c_str(), &info) == 0 && S_ISDIR(info.st_mode)));
}

std::vector<std::string> List(const std::string& path) {
    std::vector<std::string> names;
    const auto name = FilePath_Nativ(path);
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(name ? ::opendir(name->c_str()) : nullptr, &::closedir);
    while (directory) {
        const dirent* const entry = ::readdir(directory.get());
        if (entry == nullptr) {
            break;
        }
        if (entry->d_name[0] != '.') {
            names.emplace_back(entry->d_name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

FileStore PosixFiles() {
    const auto last = std::make_shared<FileFault>(FileFault::None);
    return {.Datei_Vorhanden = Exists,
            .ReadAll = [last](const std::string& path, std::string& bytes) { return ReadAll(path, bytes, *last); },
            .Replace = Replace,
            .WriteAt = WriteAt,
            .Append = Append,
            .Flush = Flush,
            .Remove = Remove,
            .MakeDirectory = MakeDirectory,
            .List = List,
            .LastFault = [last] { return *last; },
            .Sweep = Sweep};
}

} // namespace qvm
