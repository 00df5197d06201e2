#pragma once

#include <unistd.h>

namespace qvm::test {

/// Takes the rights of the administrator away while it lives, so that modes of files count. Does nothing for others.
class OtherUser {
public:
    OtherUser() : root_(::geteuid() == 0) {
        if (root_) {
            taken_ = ::seteuid(Nobody) == 0;
        }
    }
    ~OtherUser() {
        if (root_) {
            [[maybe_unused]] const int done = ::seteuid(0);
        }
    }
    OtherUser(const OtherUser&) = delete;
    OtherUser& operator=(const OtherUser&) = delete;

    /// False when the rights could not be taken away.
    bool Good() const { return !root_ || taken_; }

private:
    static constexpr uid_t Nobody = 65534;

    bool root_;
    bool taken_ = false;
};

} // namespace qvm::test
