#include "RunBinary.h"

#include "Inhalt.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace qvm::test {

namespace fs = std::filesystem;

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
    id_ = fork();
    if (id_ == 0) {
        setsid(); // no terminal of its own
        signal(SIGPIPE, SIG_DFL);
        dup2(open(in.c_str(), O_RDONLY), STDIN_FILENO);
        dup2(open(out.c_str(), O_WRONLY), STDOUT_FILENO);
        dup2(open(err.c_str(), O_WRONLY), STDERR_FILENO);
        execv(program.c_str(), argv.data());
        _exit(127);
    }
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
