#pragma once

#include "Dataset.h"
#include "Wochentage.h"
#include "Zeit.h"

#include <optional>
#include <vector>

/// What the times that a lock is sent say of a moment: worked out from its dataset, as the lock gets it. How a lock's
/// own firmware takes them is not known; here a user is let in at every minute that one of his slots holds.
namespace qvm {

inline constexpr int HourMinutes = 60, DayMinutes = 24 * HourMinutes;

/// The weekly slots that a user of a lock is held to.
struct UserTimes {
    struct Slot {
        int Number = 0; ///< of the person slots, 1 to 10; 11: the first lock slot, which closes the table of persons
        TimerRow Row{};
    };
    bool Limited = false; ///< otherwise the lock is told of no slot, and the user comes in at any time
    std::vector<Slot> Slots;
};

/// By the timer mode: all slots that the group's masks mark; of the timers A and B the one that is chosen; or none.
/// Fingerprint users have no choice between A and B.
UserTimes Benutzer_Zeiten(const Dataset& dataset, const ProgSlot& user);

/// Whether a slot holds the minute, start and end included.
/// @param weekday 1, Monday, to 7
/// @param minute  since midnight
bool Zeit_Haelt(const TimerRow& row, int weekday, int minute);

/// The lock timers that the lock is sent, by number, 1 to 5. None in a lock that does not take the full tables.
std::vector<UserTimes::Slot> Schloss_Zeiten(const Dataset& dataset);

/// An entry of the holiday tables.
struct HolidayHit {
    bool Permanent = false; ///< of the table of permanent holidays
    HolidayRow Row{};
};
/// The first entry that holds the day: a single holiday up to the day before its end, a permanent one every year, up to
/// its end, also over the turn of the year. Whether FlagCalendar lets the lock look at them is not asked here.
std::optional<HolidayHit> Feiertag_Am(const Dataset& dataset, const Datum& day);

} // namespace qvm
