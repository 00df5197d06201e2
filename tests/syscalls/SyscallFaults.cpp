#include "SyscallFaults.h"

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

namespace {

/// The fault that is wanted, and where it struck. One thread makes the calls.
struct Wanted {
    bool Armed = false;
    int Left = 0;
    int Error = 0;
    const char* Struck = "";
};

Wanted& Now() {
    static Wanted wanted;
    return wanted;
}

bool Strikes(const char* name) {
    Wanted& wanted = Now();
    if (!wanted.Armed || --wanted.Left != 0) {
        return false;
    }
    wanted.Struck = name;
    errno = wanted.Error;
    return true;
}

} // namespace

namespace qvm::test {

SyscallFault::SyscallFault(int number, int error) {
    Now() = {.Armed = true, .Left = number, .Error = error};
}

SyscallFault::~SyscallFault() {
    Now() = {};
}

std::string SyscallFault::Failed() const {
    return Now().Struck;
}

} // namespace qvm::test

// The names are the linker's: a call of f becomes one of __wrap_f, and __real_f is the system's.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,cert-dcl50-cpp,readability-identifier-naming)
#define QVM_WRAP(result, name, parameters, arguments)                                                                  \
    extern "C" result __real_##name parameters;                                                                        \
    extern "C" result __wrap_##name parameters;                                                                        \
    extern "C" result __wrap_##name parameters {                                                                       \
        return Strikes(#name) ? result{-1} : __real_##name arguments;                                                  \
    }

QVM_WRAP(ssize_t, read, (int file, void* bytes, std::size_t count), (file, bytes, count))
QVM_WRAP(ssize_t, write, (int file, const void* bytes, std::size_t count), (file, bytes, count))
QVM_WRAP(ssize_t, pread, (int file, void* bytes, std::size_t count, off_t at), (file, bytes, count, at))
QVM_WRAP(ssize_t, pwrite, (int file, const void* bytes, std::size_t count, off_t at), (file, bytes, count, at))
QVM_WRAP(int, fsync, (int file), (file))
QVM_WRAP(int, fdatasync, (int file), (file))
QVM_WRAP(int, rename, (const char* from, const char* to), (from, to))
QVM_WRAP(int, mkostemp, (char* pattern, int flags), (pattern, flags))
QVM_WRAP(int, stat, (const char* path, struct stat* info), (path, info))
QVM_WRAP(int, lstat, (const char* path, struct stat* info), (path, info))
QVM_WRAP(int, fstat, (int file, struct stat* info), (file, info))
QVM_WRAP(int, ftruncate, (int file, off_t size), (file, size))
QVM_WRAP(int, flock, (int file, int operation), (file, operation))

extern "C" int __real_close(int file);
extern "C" int __wrap_close(int file);
extern "C" int __wrap_close(int file) {
    const bool strikes = Strikes("close");
    const int error = errno;
    const int result = __real_close(file);
    errno = strikes ? error : errno;
    return strikes ? -1 : result;
}

extern "C" int __real_open(const char* path, int flags, ...);
extern "C" int __wrap_open(const char* path, int flags, ...);
extern "C" int __wrap_open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return Strikes("open") ? -1 : __real_open(path, flags, mode);
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,cert-dcl50-cpp,readability-identifier-naming)
