#pragma once

#include "Record.h"

#include <array>

/// How the lock table reads the files of its neighbours: the fields that it looks at, the rest in one piece. The
/// owners' layouts lie in other layers; a test holds these views against them.
namespace qvm {

/// Offset groups: name and identifier.
namespace OffsetView {
inline constexpr RecordField Name{"Name", 0, 20}, Times{"Times", 20, 10}, OffsetId{"OffsetId", 30, 8};
inline constexpr std::array Fields{Name, Times, OffsetId};
inline constexpr RecordLayout Record{"OffsetView", "T4OFFSETGST.FST", 38, 1, 4, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 38)>) == 1);
} // namespace OffsetView

/// Lock timer groups.
namespace LockGroupView {
inline constexpr RecordField Num{"Num", 0, 3}, Name{"Name", 3, 40}, Days{"Days", 43, 5}, Count{"Count", 48, 3},
    PbId{"PbId", 51, 15};
inline constexpr std::array Fields{Num, Name, Days, Count, PbId};
inline constexpr RecordLayout Record{"LockGroupView", "TIMGRP44T8_S.SBS", 66, 1, 5, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 66)>) == 1);
} // namespace LockGroupView

/// Adapters: address and name. The file has a record more than the list looks at.
namespace AdapterView {
inline constexpr RecordField Adresse{"Adresse", 0, 16}, Name{"Name", 16, 20}, Rest{"Rest", 36, 29};
inline constexpr std::array Fields{Adresse, Name, Rest};
inline constexpr RecordLayout Record{"AdapterView", "COMSETUPADAPTER.ADP", 65, 1, 19, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 65)>) == 1);
} // namespace AdapterView

/// Wireless units: the class of the lock's reception.
namespace UnitModeView {
inline constexpr RecordField UnitMode{"UnitMode", 0, 1}, Rest{"Rest", 1, 240};
inline constexpr std::array Fields{UnitMode, Rest};
inline constexpr RecordLayout Record{"UnitModeView", "T6WRSSISN.TSD", 241, 1, 200, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 241)>) == 1);
} // namespace UnitModeView

} // namespace qvm
