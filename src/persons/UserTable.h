#pragma once

#include "Grid.h"
#include "GroupTable.h"
#include "LockRecords.h"
#include "Pictures.h"
#include "UserRecords.h"

namespace qvm {

/// Where users and locks stand in FGK4.
namespace UserGrid {
inline constexpr int Users = UserRecord::Record.Last; ///< record n of the file is user n
inline constexpr int Locks = LockRecord::Record.Last;
inline constexpr int FirstRow = 2, LastRow = 251; ///< rows of the users
constexpr int RowOf(int user) {
    return user + 1;
}
constexpr int ColumnOf(int lock) {
    return lock + 7;
}
/// The column holds the marks of a lock.
constexpr bool IsLock(int column) {
    return column >= ColumnOf(1) && column <= ColumnOf(Locks);
}
} // namespace UserGrid

/// Columns of FGK4 beside those of the locks, 8 to 207.
namespace UserColumn {
inline constexpr int Number = 0, Name = 1, Group = 2, Right = 3, Code = 4, KeyLabel = 5, KeyId = 6, Finger = 7,
                     KeyData = 208, FingerId = 209;
}

/// Looks of the cells. A mark's colour is part of its state: "F" in any other colour than its own is no mark.
namespace UserLook {
inline constexpr Colour MarkAccess = 0x00C000, MarkFinger = 0x808080, MarkNone = White;
inline constexpr int MarkSize = 16, PlainSize = 8; ///< points
inline constexpr Colour KeyOutOfStep = 0x0000FF;   ///< column 6: the E-Key is still on another channel
inline constexpr Colour KeyInStep = Black;
inline constexpr Colour LockName = 0xC00000;
} // namespace UserLook

/// The user table: the working copy of the whole file. Load fills it, save writes every row.
struct UserTable {
    Grid FGK4{252, 210};
    GroupTable GroupTablePerson{}; ///< the person timer groups: what column 2 offers, loads and saves
    bool UserDirty = false;        ///< something is to be saved
    int LongestLockName = 0;       ///< characters
    /// A load ended in a file error, so that the table lacks rows or marks that the files may hold. It must not be
    /// saved.
    bool LoadFailed = false;
};

} // namespace qvm
