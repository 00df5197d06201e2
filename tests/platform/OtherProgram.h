#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace qvm::test {

/// This test program once more, as another process in one of its other roles (see RoleOf). It is killed with the
/// object, without a chance to clean up.
class OtherProgram {
public:
    explicit OtherProgram(const std::vector<std::string>& arguments);
    ~OtherProgram() { Kill(); }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    pid_t Id() const { return id_; }
    /// The next line that it prints; empty when there will be none. Waits for it.
    std::string Line() const;
    void Kill();
    /// Its exit code, once it has ended by itself; -1 when it did not.
    int ExitCode();

private:
    pid_t id_ = -1;
    int output_ = -1;
};

/// Runs the role that the arguments ask for and gives the exit code; -1 when they ask for none.
///     --hold-port DEVICE [NAME]   calls itself NAME, opens the device in exclusive mode, prints "ready", stays
///     --claim DIRECTORY   prints "only" or "second"; the only one stays and prints "shown" when it is called
///     --hold-data DIRECTORY write|replace   calls itself "holder", takes that lock, prints "ready", stays
int RoleOf(int argc, char** argv);

} // namespace qvm::test
