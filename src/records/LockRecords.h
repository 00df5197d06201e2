#pragma once

#include "Record.h"

#include <array>

/// Records of the lock table. Record number = lock number, 1 to 200, in every file.
namespace qvm {

/// Name, offset group, serial as four hexadecimal pairs, five switches ("X" on, " " off).
namespace LockRecord {
inline constexpr RecordField Name{"Name", 0, 20, Fill::Null}, OffsetId{"OffsetId", 20, 8}, Sn1{"Sn1", 28, 3},
    Sn2{"Sn2", 31, 3}, Sn3{"Sn3", 34, 3}, Sn4{"Sn4", 37, 3}, Switch1{"Switch1", 40, 1}, Switch2{"Switch2", 41, 1},
    Switch3{"Switch3", 42, 1}, Switch4{"Switch4", 43, 1}, Switch5{"Switch5", 44, 1};
inline constexpr std::array Switches{&Switch1, &Switch2, &Switch3, &Switch4, &Switch5};
inline constexpr std::array Fields{Name, OffsetId, Sn1, Sn2, Sn3, Sn4, Switch1, Switch2, Switch3, Switch4, Switch5};
inline constexpr RecordLayout Record{"LockRecord", "C64UX12H3D.EBW", 45, 1, 200, Fields, 200};
static_assert(sizeof(GapAtField<RecordError(Fields, 45)>) == 1);
} // namespace LockRecord

/// Priority text "1" to "5", then three fields that always hold "3".
namespace LockPrioRecord {
inline constexpr RecordField Prio{"Prio", 0, 3}, Spare1{"Spare1", 3, 3}, Spare2{"Spare2", 6, 3}, Spare3{"Spare3", 9, 3};
inline constexpr std::array Fields{Prio, Spare1, Spare2, Spare3};
inline constexpr RecordLayout Record{"LockPrioRecord", "CPRT88X3FDA.PRT", 12, 1, 200, Fields, 200};
static_assert(sizeof(GapAtField<RecordError(Fields, 12)>) == 1);
} // namespace LockPrioRecord

/// EMI state: "X" on, "Y" off, " " not applicable.
namespace LockEmiRecord {
inline constexpr RecordField Emi{"Emi", 0, 1};
inline constexpr std::array Fields{Emi};
inline constexpr RecordLayout Record{"LockEmiRecord", "LSOEMIPART.LMT", 1, 1, 200, Fields, 200};
static_assert(sizeof(GapAtField<RecordError(Fields, 1)>) == 1);
} // namespace LockEmiRecord

/// Lock timer group: the identifier binds ("-" for none), the name is redundant.
namespace LockGroupRecord {
inline constexpr RecordField GroupId{"GroupId", 0, 15}, GroupName{"GroupName", 15, 40};
inline constexpr std::array Fields{GroupId, GroupName};
inline constexpr RecordLayout Record{"LockGroupRecord", "SBSCLKZU.SB1", 55, 1, 200, Fields, 200};
static_assert(sizeof(GapAtField<RecordError(Fields, 55)>) == 1);
} // namespace LockGroupRecord

/// The adapter that serves the lock.
namespace LockAdapterRecord {
inline constexpr RecordField AdapterId{"AdapterId", 0, 16}, AdapterName{"AdapterName", 16, 20}, Sn1{"Sn1", 36, 3},
    Sn2{"Sn2", 39, 3}, Sn3{"Sn3", 42, 3}, Sn4{"Sn4", 45, 3};
inline constexpr std::array Fields{AdapterId, AdapterName, Sn1, Sn2, Sn3, Sn4};
inline constexpr RecordLayout Record{"LockAdapterRecord", "LOCKCLASSCOMX.CMB", 48, 1, 200, Fields, 200};
static_assert(sizeof(GapAtField<RecordError(Fields, 48)>) == 1);
} // namespace LockAdapterRecord

/// Door mode "AA", "BB" or blank, and the days from 01.01.2000 to the day of setting.
namespace DoorModeRecord {
inline constexpr RecordField Mode{"Mode", 0, 2}, Sn1{"Sn1", 2, 3}, Sn2{"Sn2", 5, 3}, Sn3{"Sn3", 8, 3},
    Sn4{"Sn4", 11, 3}, Days{"Days", 14, 16};
inline constexpr std::array Fields{Mode, Sn1, Sn2, Sn3, Sn4, Days};
inline constexpr RecordLayout Record{"DoorModeRecord", "DOOR1MODEDT.DTA", 30, 1, 200, Fields, 200};
static_assert(sizeof(GapAtField<RecordError(Fields, 30)>) == 1);
} // namespace DoorModeRecord

} // namespace qvm
