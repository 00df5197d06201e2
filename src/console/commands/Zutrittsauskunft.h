#pragma once

#include "GroupTable.h"
#include "Kern.h"
#include "Zutritt.h"

#include <string>
#include <string_view>
#include <vector>

/// Whether the times of a lock let its users in at a moment, and why.
namespace qvm {

enum class WhyCode {
    NoMark,      ///< the user has no access to the lock
    NoGroup,     ///< no group: at any time
    GroupGone,   ///< a group that is not there any more: the lock is sent no limit
    GroupEmpty,  ///< a group without a slot: the lock is sent no limit
    AAndBOnly,   ///< the lock knows the timers A and B only, and the group is another: it is sent no limit
    Fingerprint, ///< the same for a fingerprint, for which such a lock is sent no timer at all
    NoTimes,     ///< the lock takes no times of persons
    TimesOff,    ///< the lock is sent its slots switched off
    Slot,        ///< one of the slots holds
    Outside      ///< none of the slots holds
};

/// The word for it in a document, as "group-gone".
std::string_view Grund_Wort(WhyCode why);

/// What is told of one user.
struct UserAnswer {
    int User = 0;
    std::string Name;  ///< UTF-8
    std::string Group; ///< its name, UTF-8; the identifier of one that is gone; empty without
    bool Admitted = false;
    WhyCode Why = WhyCode::NoGroup;
    UserTimes Times;
    std::vector<UserTimes::Slot> Open; ///< those of its slots that hold
};

/// All that the answers rest on, read from the data files.
struct AccessFacts {
    const Kern& kern;
    LockRow Row;
    Dataset Daten;
    GroupTable Groups;
    std::vector<std::string> UserNames; ///< by user number, UTF-8; empty for a record that is no user

    /// The answer for a user at the moment.
    UserAnswer Answer(int user, const DateTime& at) const;
    /// Users with access to the lock, in the order of the table.
    std::vector<int> Users() const;
    /// False for a number whose record is no user.
    bool Known(int user) const;
};

/// The groups and the names of the users. False on a file error.
bool Gruppen_Und_Namen_Laden(Kern& kern, AccessFacts& facts);

/// The minutes of a day at which the user comes in, as spans with both ends included.
struct MinuteSpan {
    int From = 0, To = 0;
    bool operator==(const MinuteSpan&) const = default;
};
std::vector<MinuteSpan> Tagesspannen(const UserTimes& times, int weekday);

} // namespace qvm
