#include "Zutritt.h"

#include "Wochenbild.h"

#include <array>

namespace qvm {
namespace {

constexpr int MaskBits = 8;
constexpr int SlotsAB = 5;
/// Table B of a lock that knows two timers begins with the fifth person slot.
constexpr int FirstSlotA = 1, FirstSlotB = 5;
constexpr int Century = 100;

bool Markiert(const std::array<std::uint8_t, 3>& masks, std::size_t slot) {
    const std::uint8_t highest = 0x80;
    return (masks[slot / MaskBits] & (highest >> slot % MaskBits)) != 0;
}

UserTimes Nach_Gruppe(const Dataset& dataset, const ProgSlot& user) {
    UserTimes times;
    times.Limited = user.TimerBits != std::array<std::uint8_t, 3>{};
    for (std::size_t n = 0; n < dataset.TimerTableA.size(); ++n) {
        if (Markiert(user.TimerBits, n)) {
            times.Slots.push_back({static_cast<int>(n) + 1, dataset.TimerTableA[n]});
        }
    }
    return times;
}

UserTimes Nach_Auswahl(const Dataset& dataset, const ProgSlot& user) {
    const std::uint8_t choice =
        user.Kind == SlotKind::Code ? Timer_Auswahl(dataset.Values.TimerMode, user) : std::uint8_t{0};
    UserTimes times;
    times.Limited = choice != 0;
    for (std::size_t n = 0; times.Limited && n < SlotsAB; ++n) {
        const bool first = choice == 1;
        times.Slots.push_back({static_cast<int>(n) + (first ? FirstSlotA : FirstSlotB),
                               first ? dataset.TimerTableA[n] : dataset.TimerTableB[n]});
    }
    return times;
}

/// Year, month and day as one number that grows with them.
int Rang(int year, int month, int day) {
    return (year * Century + month) * Century + day;
}

bool Einzeltag_Haelt(const HolidayRow& row, const Datum& day) {
    const int at = Rang(day.Year % Century, day.Month, day.Day);
    return Rang(row[2], row[1], row[0]) <= at && at < Rang(row[5], row[4], row[3]);
}

bool Jahrestag_Haelt(const HolidayRow& row, const Datum& day) {
    const int at = Rang(0, day.Month, day.Day);
    const int from = Rang(0, row[1], row[0]), to = Rang(0, row[4], row[3]);
    return from <= to ? from <= at && at <= to : from <= at || at <= to;
}

} // namespace

UserTimes Benutzer_Zeiten(const Dataset& dataset, const ProgSlot& user) {
    if (dataset.Values.TimerMode == TimerPB_UT) {
        return Nach_Gruppe(dataset, user);
    }
    return dataset.Values.TimerMode == Timer_A_B ? Nach_Auswahl(dataset, user) : UserTimes{};
}

bool Zeit_Haelt(const TimerRow& row, int weekday, int minute) {
    const WeekSlot slot{.DayIndex = row[0], .From = row[1] * HourMinutes + row[2], .To = row[3] * HourMinutes + row[4]};
    return Wochenzeit_Haelt(slot, weekday, minute);
}

std::vector<UserTimes::Slot> Schloss_Zeiten(const Dataset& dataset) {
    std::vector<UserTimes::Slot> slots;
    if (dataset.Values.TimerMode != TimerPB_UT) {
        return slots;
    }
    for (std::size_t n = 0; n < dataset.TimerTableB.size(); ++n) {
        if (dataset.TimerTableB[n][0] != 0) {
            slots.push_back({static_cast<int>(n) + 1, dataset.TimerTableB[n]});
        }
    }
    return slots;
}

std::optional<HolidayHit> Feiertag_Am(const Dataset& dataset, const Datum& day) {
    for (const HolidayRow& row : dataset.HolidayTableA) {
        if (row != HolidayRow{} && Einzeltag_Haelt(row, day)) {
            return HolidayHit{.Permanent = false, .Row = row};
        }
    }
    for (const HolidayRow& row : dataset.HolidayTableB) {
        if (row != HolidayRow{} && Jahrestag_Haelt(row, day)) {
            return HolidayHit{.Permanent = true, .Row = row};
        }
    }
    return std::nullopt;
}

} // namespace qvm
