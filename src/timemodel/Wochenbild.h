#pragma once

#include "Grid.h"
#include "WeekChart.h"

#include <span>
#include <string_view>
#include <vector>

namespace qvm {

struct Kern;

/// A weekly slot as a lock is sent it.
struct WeekSlot {
    int DayIndex = 0;     ///< of the day table; 0, and one that it does not hold: no day
    int From = 0, To = 0; ///< minutes since midnight

    bool operator==(const WeekSlot&) const = default;
};

/// The slot in a row of a slot grid. A day that the table does not hold is day 0, a time that is none 00:00, as a lock
/// is sent them.
WeekSlot Wochenzeit(const Kern& kern, const Grid& slots, int row);

/// The slots of a slot grid that a group's map marks with "X", from the top. Marks behind the last row count for
/// nothing.
std::vector<WeekSlot> Wochenzeiten(const Kern& kern, const Grid& slots, std::string_view map);

/// Whether the slot holds the minute, start and end included.
/// @param weekday 1, Monday, to 7
/// @param minute  since midnight
bool Wochenzeit_Haelt(const WeekSlot& slot, int weekday, int minute);

/// The picture of the slots, with this day and this minute marked, and all of it in words.
WeekChart Wochenbild(const Kern& kern, std::span<const WeekSlot> slots);

} // namespace qvm
