#pragma once

namespace qvm {

/// Bounds that stand before anything is read. The link's and the runs' flags begin at 0 in their own records.
struct GlobaleVariablen {
    int UserRows = 251; ///< rows of the user table plus one
    int LockRows = 201; ///< rows of the lock table plus one
};

/// Back to the bounds of the system.
inline void Globale_Defaults(GlobaleVariablen& globals) {
    globals = {};
}

} // namespace qvm
