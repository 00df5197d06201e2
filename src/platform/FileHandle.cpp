#include "FileHandle.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace qvm {

namespace {

/// Repeats a system call that a signal interrupted.
template <class Call>
auto Repeated(const Call& call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace

FileHandle::FileHandle(const std::string& path, int flags, mode_t mode)
    : number_(Repeated([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); })) {}

ssize_t FileHandle::Read(char* bytes, std::size_t count) const {
    return Repeated([&] { return ::read(number_, bytes, count); });
}

bool FileHandle::Write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = Repeated([&] { return ::write(number_, bytes.data(), bytes.size()); });
        if (count <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool FileHandle::WriteAt(std::string_view bytes, off_t offset) const {
    while (!bytes.empty()) {
        const ssize_t count = Repeated([&] { return ::pwrite(number_, bytes.data(), bytes.size(), offset); });
        if (count <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
        offset += count;
    }
    return true;
}

bool FileHandle::ReadAt(std::string& bytes, off_t offset) const {
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t count = Repeated([&] {
            return ::pread(number_, bytes.data() + done, bytes.size() - done, offset + static_cast<off_t>(done));
        });
        if (count <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(count);
    }
    return true;
}

bool FileHandle::Close() {
    // Not repeated after EINTR: the number is free then, and may be another file's already.
    const int number = std::exchange(number_, -1);
    return number < 0 || ::close(number) == 0 || errno == EINTR;
}

} // namespace qvm
