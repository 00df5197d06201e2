#pragma once

#include "Record.h"

#include <array>

/// Records of the switch clocks, calendars and offsets.
namespace qvm {

/// A weekly slot. Records 1 to 10: persons; 11 to 15: locks.
namespace TimeSlot {
/// Indexes into the table of day selectors.
inline constexpr std::string_view DaySelectors{"\x00\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0A", 11};
inline constexpr RecordField DayIndex{"DayIndex", 0, 1, Fill::Byte, DaySelectors}, From{"From", 1, 5}, To{"To", 6, 5};
inline constexpr std::array Fields{DayIndex, From, To};
inline constexpr RecordLayout Record{"TimeSlot", "TX33Y98BSG9.TBW", 11, 1, 15, Fields, 15};
static_assert(sizeof(GapAtField<RecordError(Fields, 11)>) == 1);
} // namespace TimeSlot

/// A person timer group: a selection of the ten person slots under a permanent identifier.
namespace TimeGroup {
inline constexpr RecordField Num{"Num", 0, 3}, Name{"Name", 3, 40}, Days{"Days", 43, 10, Fill::Blank, "X-"},
    Count{"Count", 53, 3}, PbId{"PbId", 56, 15};
inline constexpr std::array Fields{Num, Name, Days, Count, PbId};
inline constexpr RecordLayout Record{"TimeGroup", "TIMGRP33T7.PBG", 71, 1, 8, Fields, 8};
static_assert(sizeof(GapAtField<RecordError(Fields, 71)>) == 1);
} // namespace TimeGroup

/// A lock timer group: a selection of the five lock slots.
namespace LockTimeGroup {
inline constexpr int LastUsed = 5; ///< the records behind it are always empty
inline constexpr RecordField Num{"Num", 0, 3}, Name{"Name", 3, 40}, Days{"Days", 43, 5, Fill::Blank, "X-"},
    Count{"Count", 48, 3}, PbId{"PbId", 51, 15};
inline constexpr std::array Fields{Num, Name, Days, Count, PbId};
inline constexpr RecordLayout Record{"LockTimeGroup", "TIMGRP44T8_S.SBS", 66, 1, 8, Fields, 8};
static_assert(sizeof(GapAtField<RecordError(Fields, 66)>) == 1);
} // namespace LockTimeGroup

/// A holiday span. Records 1 to 20: single, 21: unused, 22 to 41: permanent.
namespace CalendarEntry {
inline constexpr RecordField DateFrom{"DateFrom", 0, 10}, DateTo{"DateTo", 10, 10}, Kind{"Kind", 20, 1};
inline constexpr std::array Fields{DateFrom, DateTo, Kind};
inline constexpr RecordLayout Record{"CalendarEntry", "KL10X49WTTI.CBW", 21, 1, 41, Fields, 20, true};
static_assert(sizeof(GapAtField<RecordError(Fields, 21)>) == 1);
} // namespace CalendarEntry

/// A named time offset. The identifier is fixed for the life of the file.
namespace GuestOffset {
/// With the number of its record behind it, what an offset is called for ever.
inline constexpr std::string_view IdPrefix = "OFST0x0";
inline constexpr RecordField Name{"Name", 0, 20}, Time{"Time", 20, 5}, Base{"Base", 25, 5}, OffsetId{"OffsetId", 30, 8};
inline constexpr std::array Fields{Name, Time, Base, OffsetId};
inline constexpr RecordLayout Record{"GuestOffset", "T4OFFSETGST.FST", 38, 1, 4, Fields, 4};
static_assert(sizeof(GapAtField<RecordError(Fields, 38)>) == 1);
} // namespace GuestOffset

} // namespace qvm
