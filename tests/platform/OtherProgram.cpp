#include "OtherProgram.h"

#include "DataLock.h"
#include "QtPlatform.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qvm::test {

namespace {

void Print(const char* line) {
    std::puts(line);
    std::fflush(stdout);
}

int HoldPort(const char* device, const char* name) {
    ::prctl(PR_SET_NAME, name);
    const int handle = ::open(device, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (handle < 0 || ::ioctl(handle, TIOCEXCL) != 0) {
        return 1;
    }
    Print("ready");
    ::pause();
    return 0;
}

int Claim(const char* directory) {
    QtPlatform platform({.Directory = directory,
                         .PortDevice = {},
                         .ShowMessage = {},
                         .OpenFile = {},
                         .SaveFile = {},
                         .OpenWithLinkedApp = {},
                         .BringToFront = [] { Print("shown"); }});
    if (!platform.World().ClaimInstance()) {
        Print("second");
        return 0;
    }
    Print("only");
    return QCoreApplication::exec();
}

int HoldData(const char* directory, std::string_view use) {
    ::prctl(PR_SET_NAME, "holder");
    const DataLock lock(directory, use == "write" ? DataLock::Use::Write : DataLock::Use::Replace);
    if (!lock.Try()) {
        return 1;
    }
    Print("ready");
    ::pause();
    return 0;
}

} // namespace

OtherProgram::OtherProgram(const std::vector<std::string>& arguments) {
    int line[2]{};
    EXPECT_EQ(::pipe2(line, O_CLOEXEC), 0);
    std::vector<std::string> all{"/proc/self/exe"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    for (std::string& word : all) {
        words.push_back(word.data());
    }
    words.push_back(nullptr);
    id_ = ::fork();
    if (id_ == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::dup2(line[1], STDOUT_FILENO);
        ::execv(words[0], words.data());
        ::_exit(127);
    }
    ::close(line[1]);
    output_ = line[0];
}

std::string OtherProgram::Line() const {
    std::string text;
    for (char character = 0; ::read(output_, &character, 1) == 1 && character != '\n';) {
        text += character;
    }
    return text;
}

void OtherProgram::Kill() {
    if (id_ > 0) {
        ::kill(id_, SIGKILL);
        ::waitpid(id_, nullptr, 0);
        ::close(output_);
        id_ = -1;
    }
}

int OtherProgram::ExitCode() {
    int status = 0;
    ::waitpid(id_, &status, 0);
    ::close(output_);
    id_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int RoleOf(int argc, char** argv) {
    const std::string_view role = argc > 2 ? argv[1] : "";
    if (role == "--hold-port") {
        return HoldPort(argv[2], argc > 3 ? argv[3] : "exe");
    }
    if (role == "--hold-data") {
        return HoldData(argv[2], argc > 3 ? argv[3] : "");
    }
    return role == "--claim" ? Claim(argv[2]) : -1;
}

} // namespace qvm::test
