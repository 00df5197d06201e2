#pragma once

#include <string>

namespace qvm::test {

/// Lets one call of the system fail, of all that the program makes while this lives. The link options of this test
/// program lead the calls here first.
class SyscallFault {
public:
    /// The call of this number, from 1, fails with `error`, and does nothing. A close that fails has closed.
    SyscallFault(int number, int error);
    ~SyscallFault();
    SyscallFault(const SyscallFault&) = delete;
    SyscallFault& operator=(const SyscallFault&) = delete;

    /// Name of the call that failed; empty as long as none did.
    std::string Failed() const;
};

} // namespace qvm::test
