// Loaded before the program: its steps on the disk below a folder are noted, and it is killed at one of them.
//
//   QVM_STEPS_BELOW  the folder, with the slash behind it
//   QVM_STEPS        file to which each step is added as a line: the call and the name below the folder
//   QVM_KILL_AT      number of the step, from 1 on, that is not made any more, of a write the first half; 0: none

#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::atomic<int> steps{0};

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

void Note(const std::string& line) {
    const int notes = ::open(Environment("QVM_STEPS").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    ::syscall(SYS_write, notes, line.data(), line.size());
    ::close(notes);
}

/// True when the program is to end at this step.
bool LastStep(const char* call, const std::string& path) {
    const std::string folder = Environment("QVM_STEPS_BELOW");
    if (folder.empty() || (path + "/").compare(0, folder.size(), folder) != 0) {
        return false;
    }
    Note(std::string(call) + " " + (path.size() < folder.size() ? "." : path.substr(folder.size())) + "\n");
    return ++steps == std::atoi(Environment("QVM_KILL_AT").c_str());
}

bool LastStep(const char* call, int file) {
    char path[4096];
    const ssize_t size = ::readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), path, sizeof path);
    return size > 0 && LastStep(call, std::string(path, static_cast<std::size_t>(size)));
}

void End() {
    ::kill(::getpid(), SIGKILL);
}

} // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
    if (LastStep("write", file)) {
        ::syscall(SYS_write, file, bytes, count / 2);
        End();
    }
    return ::syscall(SYS_write, file, bytes, count);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset) {
    if (LastStep("pwrite", file)) {
        End();
    }
    return ::syscall(SYS_pwrite64, file, bytes, count, offset);
}

int fsync(int file) {
    if (LastStep("fsync", file)) {
        End();
    }
    return static_cast<int>(::syscall(SYS_fsync, file));
}

int fdatasync(int file) {
    if (LastStep("fdatasync", file)) {
        End();
    }
    return static_cast<int>(::syscall(SYS_fdatasync, file));
}

int rename(const char* from, const char* to) noexcept {
    if (LastStep("rename", to)) {
        End();
    }
    return ::renameat(AT_FDCWD, from, AT_FDCWD, to);
}
}
