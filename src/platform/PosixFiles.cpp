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

bool IsLink(const std::string& name) {
    struct stat info {};
    return ::lstat(name.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
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
    return IsLink(name) ? Place{ReadStatus::Error, FileFault::LinkToNothing} : Place{ReadStatus::Missing};
}

/// True when a file may be made or changed there.
bool Writable(const std::string& name) {
    return LookAt(name).Status != ReadStatus::Error;
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

/// Flushes the entries of a directory. Some file systems cannot, and the files are whole either way.
void FlushDirectory(const std::string& directory) {
    const FileHandle handle(directory, O_RDONLY | O_DIRECTORY);
    if (handle.Good()) {
        ::fsync(handle.Number());
    }
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

bool Replace(const std::string& path, std::string_view bytes) {
    const auto name = FilePath_Nativ(path);
    if (!name || !Writable(*name)) {
        return false;
    }
    const std::string target = FilePath_Ziel(*name);
    const auto slash = target.rfind('/');
    const std::string directory = slash == std::string::npos ? "./" : target.substr(0, slash + 1);
    std::string siblingName = directory + "." + target.substr(slash + 1) + ".XXXXXX";
    FileHandle sibling(::mkostemp(siblingName.data(), O_CLOEXEC));
    if (!sibling.Good()) {
        return false;
    }
    if (!FillSibling(sibling, target, bytes) || ::rename(siblingName.c_str(), target.c_str()) != 0) {
        ::unlink(siblingName.c_str());
        return false;
    }
    FlushDirectory(directory);
    return true;
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
    if (!name || offset > LargestFile || bytes.size() > LargestFile || !Writable(*name)) {
        return false;
    }
    const bool made = !Exists(path);
    FileHandle file(*name, O_RDWR | O_CREAT | O_NONBLOCK, FileMode);
    const auto at = static_cast<off_t>(offset);
    const Before before = file.Good() ? Remember(file, at, bytes.size()) : Before{};
    if (!before.Known) {
        return false;
    }
    // The system reads a gap as 0x00.
    if (file.WriteAt(bytes, at) && ::fdatasync(file.Number()) == 0) {
        return file.Close();
    }
    PutBack(file, at, before);
    if (made) {
        ::unlink(name->c_str());
    }
    return false;
}

bool Append(const std::string& path, std::string_view bytes) {
    const auto name = FilePath_Nativ(path);
    if (!name || !Writable(*name)) {
        return false;
    }
    const bool made = !Exists(path);
    FileHandle file(*name, O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK, FileMode);
    struct stat info {};
    if (!file.Good() || ::fstat(file.Number(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return false;
    }
    if (file.Write(bytes)) {
        return file.Close();
    }
    [[maybe_unused]] const int done = ::ftruncate(file.Number(), info.st_size);
    if (made) {
        ::unlink(name->c_str());
    }
    return false;
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
    return {.Exists = Exists,
            .ReadAll = [last](const std::string& path, std::string& bytes) { return ReadAll(path, bytes, *last); },
            .Replace = Replace,
            .WriteAt = WriteAt,
            .Append = Append,
            .Remove = Remove,
            .MakeDirectory = MakeDirectory,
            .List = List,
            .LastFault = [last] { return *last; }};
}

} // namespace qvm
