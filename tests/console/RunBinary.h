#pragma once

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace qvm::test {

/// What a program left behind.
struct RunResult {
    int Code = -1; ///< exit code, -1 when a signal ended it
    std::string Out;
    std::string Err;
};

/// A directory that goes away with its object.
class TempDirectory {
public:
    TempDirectory();
    ~TempDirectory();
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    /// The path with a trailing separator.
    const std::string& Path() const { return path_; }
    std::string Write(const std::string& name, const std::string& bytes) const;
    std::string Read(const std::string& name) const;
    bool Has(const std::string& name) const;
    /// Names below `name`, sorted.
    std::vector<std::string> List(const std::string& name) const;

private:
    std::string path_;
};

/// A program that runs beside the test, without a terminal. Ended with SIGKILL when the object goes away before it.
class Process {
public:
    /// `program`: a path, or a name that is looked up as a shell does.
    Process(const std::string& program, const std::vector<std::string>& arguments, const std::string& input = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void Signal(int number) const;
    /// Waits for the end; ends it by force after `seconds`.
    RunResult Wait(int seconds = 60);
    /// What stands on standard output so far.
    std::string OutSoFar() const { return files_.Read("out"); }
    std::string ErrSoFar() const { return files_.Read("err"); }
    /// Waits until `what` stands on one of both outputs. False after `seconds`.
    bool WaitFor(const std::string& what, int seconds = 20) const;
    pid_t Id() const { return id_; }

private:
    TempDirectory files_;
    pid_t id_ = -1;
};

/// Looks every few milliseconds whether `done` is true. False after `seconds`.
bool WaitUntil(const std::function<bool()>& done, int seconds = 20);

/// The console companion under test.
std::string QvmctlPath();
RunResult Qvmctl(const std::vector<std::string>& arguments, const std::string& input = {});

} // namespace qvm::test
