#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

namespace qvm {

/// An open file, closed with the object. Interrupted and short reads and writes are carried on.
class FileHandle {
public:
    explicit FileHandle(int number) : number_(number) {}
    /// Opens; `errno` says why it is not Good().
    FileHandle(const std::string& path, int flags, mode_t mode = 0);
    ~FileHandle() { Close(); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    bool Good() const { return number_ >= 0; }
    int Number() const { return number_; }

    /// As read(), but never interrupted.
    ssize_t Read(char* bytes, std::size_t count) const;
    /// All of `bytes`, or false.
    bool Write(std::string_view bytes) const;
    bool WriteAt(std::string_view bytes, off_t offset) const;
    /// Fills `bytes` to its size, or false.
    bool ReadAt(std::string& bytes, off_t offset) const;
    /// False when the system reports a late error.
    bool Close();

private:
    int number_;
};

} // namespace qvm
