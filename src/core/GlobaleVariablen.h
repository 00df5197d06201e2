#pragma once

#include <array>
#include <string>

namespace qvm {

/// Defaults that stand before anything is read. The link's and the runs' flags begin at 0 in their own records.
struct GlobaleVariablen {
    int UserRows = 251;  ///< rows of the user table plus one
    int LockRows = 201;  ///< rows of the lock table plus one
    int MaxAdapter = 21; ///< entries of the adapter list
    int UserCount = 250; ///< users
    int LockCount = 200; ///< locks
    /// Texts read back from devices during runs.
    std::array<std::string, 9> Versions{"0", "0", "0", "0", "0", "0", "0", "0", "0"};
};

} // namespace qvm
