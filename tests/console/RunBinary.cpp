#include "RunBinary.h"

#include "Inhalt.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace qvm::test {

namespace fs = std::filesystem;

namespace {

/// Starts a program with these files as input, output and errors, without a terminal. Returns its number, or -1.
///
/// Not by a fork: that copies the tables of the sanitizers' memory for each program that is started.
pid_t Start(std::vector<char*>& argv, const std::string& in, const std::string& out, const std::string& err) {
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, in.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, out.c_str(), O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, err.c_str(), O_WRONLY, 0);
    sigset_t pipe;
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    posix_spawnattr_t how;
    posix_spawnattr_init(&how);
    posix_spawnattr_setsigdefault(&how, &pipe);
    posix_spawnattr_setflags(&how, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF);
    pid_t id = -1;
    const int error = posix_spawnp(&id, argv.front(), &files, &how, argv.data(), environ);
    posix_spawnattr_destroy(&how);
    posix_spawn_file_actions_destroy(&files);
    return error == 0 ? id : -1;
}

} // namespace

TempDirectory::TempDirectory() {
    std::string name = (fs::temp_directory_path() / "qvm-console-XXXXXX").string();
    path_ = std::string(mkdtemp(name.data())) + "/";
}

TempDirectory::~TempDirectory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TempDirectory::Write(const std::string& name, const std::string& bytes) const {
    const fs::path path = path_ + name;
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
}

std::string TempDirectory::Read(const std::string& name) const {
    return Inhalt(path_ + name);
}

bool TempDirectory::Has(const std::string& name) const {
    return fs::exists(path_ + name);
}

std::vector<std::string> TempDirectory::List(const std::string& name) const {
    std::vector<std::string> names;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(path_ + name, ignored)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

Process::Process(const std::string& program, const std::vector<std::string>& arguments, const std::string& input) {
    const std::string in = files_.Write("in", input);
    const std::string out = files_.Write("out", "");
    const std::string err = files_.Write("err", "");
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    id_ = Start(argv, in, out, err);
}

Process::~Process() {
    if (id_ > 0) {
        kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
    }
}

void Process::Signal(int number) const {
    // A negative number would mean every program there is.
    if (id_ > 0) {
        kill(id_, number);
    }
}

RunResult Process::Wait(int seconds) {
    if (id_ < 0) {
        ADD_FAILURE() << "the program was not started";
        return {.Code = -1, .Out = {}, .Err = {}};
    }
    int status = 0;
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (waitpid(id_, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > limit) {
            ADD_FAILURE() << "the program did not end within " << seconds << " s";
            kill(id_, SIGKILL);
            waitpid(id_, &status, 0);
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    id_ = -1;
    return {.Code = WIFEXITED(status) ? WEXITSTATUS(status) : -1, .Out = OutSoFar(), .Err = ErrSoFar()};
}

bool Process::WaitFor(const std::string& what, int seconds) const {
    return WaitUntil(
        [&] { return OutSoFar().find(what) != std::string::npos || ErrSoFar().find(what) != std::string::npos; },
        seconds);
}

bool WaitUntil(const std::function<bool()>& done, int seconds) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    while (std::chrono::steady_clock::now() < limit) {
        if (done()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

std::string QvmctlPath() {
    return QVM_BINARY_DIR "/src/console/qvmctl";
}

RunResult Qvmctl(const std::vector<std::string>& arguments, const std::string& input) {
    return Process(QvmctlPath(), arguments, input).Wait();
}

} // namespace qvm::test
