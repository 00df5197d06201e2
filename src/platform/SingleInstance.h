#pragma once

#include "FileHandle.h"

#include <functional>
#include <memory>
#include <string>

class QSocketNotifier;

namespace qvm {

/// One instance of the program for each user and program directory. A lock on a file of the user's run-time directory
/// says who it is; the kernel frees it however the program ends. A local socket beside it carries the wish of a later
/// instance to see the running one.
class SingleInstance {
public:
    /// `directory`: the program's, UTF-8. `bringToFront`: what the running instance does when another was started.
    SingleInstance(std::string directory, std::function<void()> bringToFront);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// True when this is the only instance, or when that cannot be found out. False when another runs; it was told.
    bool Claim();

private:
    bool Listen();
    void Call() const;
    void Called() const;

    std::string directory_;
    std::function<void()> bringToFront_;
    std::string base_; ///< path of the lock file and the socket without their endings
    std::unique_ptr<FileHandle> lock_;
    std::unique_ptr<FileHandle> socket_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace qvm
