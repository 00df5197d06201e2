#pragma once

#include "UserTable.h"

#include <string>
#include <vector>

/// What reports take from the user table: never a code, an identification or the data of a key or finger.
namespace qvm {

enum class ReportKey { None, EKey, Transponder };

struct ReportLock {
    int Number = 0;
    std::string Name;
    bool ByFinger = false;
};

struct ReportUser {
    int Number = 0;
    std::string Name, Group, Right;
    ReportKey Key = ReportKey::None;
    std::string KeyLabel; ///< the key's designation; empty without a key
    bool HasCode = false;
    std::vector<ReportLock> Locks; ///< with a mark, by number
};

/// The user with the number, 1 to 250; without a name when there is none.
ReportUser Berichtsbenutzer(const UserTable& table, int user);

/// All users with a name, by number.
std::vector<ReportUser> Berichtsbenutzer(const UserTable& table);

} // namespace qvm
