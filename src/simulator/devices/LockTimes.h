#pragma once

#include "VirtualDevices.h"

#include <vector>

/// The virtual lock's own judgement of the times that it was sent. What a real lock does with several slots of a user
/// is not known: this one lets him in while one of them holds, start and end included.
namespace qvm {

struct OpenRow {
    char Table = 'A'; ///< 'A' or 'B'
    int Row = 0;      ///< from 0
    bool operator==(const OpenRow&) const = default;
};

struct LockVerdict {
    bool Admits = false;
    std::vector<OpenRow> Open;   ///< the user's rows that hold now; none for one without slots, who always comes in
    std::vector<int> LockTimers; ///< rows of the lock timers that hold now, from 0
    bool SingleDay = false;      ///< a single holiday: the day of its end does not belong to it any more
    bool PermanentDay = false;   ///< a holiday of every year: the day of its end belongs to it
};

/// @param now the year with two digits, of the years 2000 to 2099
LockVerdict JudgeTimes(const VirtualLock& lock, const LockUser& user, const LockClock& now);

} // namespace qvm
