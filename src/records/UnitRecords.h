#pragma once

#include "Record.h"

#include <array>

/// Records of the wireless units of a lock. Record number = lock number, 1 to 200.
namespace qvm {

/// Reception setting of a lock and its five units, 45 bytes a unit from offset 16.
namespace WirelessUnitRecord {
inline constexpr RecordField UnitMode{"UnitMode", 0, 1}, AlwaysOn{"AlwaysOn", 1, 1}, Reserved1{"Reserved1", 2, 1},
    ScanSignal{"ScanSignal", 3, 3}, Hours{"Hours", 6, 2}, Minutes{"Minutes", 8, 2}, Seconds{"Seconds", 10, 2},
    SignalFlag{"SignalFlag", 12, 1}, RssiLevel{"RssiLevel", 13, 3}, Name1{"Name1", 16, 30}, Sn1_1{"Sn1_1", 46, 3},
    Sn2_1{"Sn2_1", 49, 3}, Sn3_1{"Sn3_1", 52, 3}, Sn4_1{"Sn4_1", 55, 3}, Module1{"Module1", 58, 1},
    UnitNo1{"UnitNo1", 59, 2}, Name2{"Name2", 61, 30}, Sn1_2{"Sn1_2", 91, 3}, Sn2_2{"Sn2_2", 94, 3},
    Sn3_2{"Sn3_2", 97, 3}, Sn4_2{"Sn4_2", 100, 3}, Module2{"Module2", 103, 1}, UnitNo2{"UnitNo2", 104, 2},
    Name3{"Name3", 106, 30}, Sn1_3{"Sn1_3", 136, 3}, Sn2_3{"Sn2_3", 139, 3}, Sn3_3{"Sn3_3", 142, 3},
    Sn4_3{"Sn4_3", 145, 3}, Module3{"Module3", 148, 1}, UnitNo3{"UnitNo3", 149, 2}, Name4{"Name4", 151, 30},
    Sn1_4{"Sn1_4", 181, 3}, Sn2_4{"Sn2_4", 184, 3}, Sn3_4{"Sn3_4", 187, 3}, Sn4_4{"Sn4_4", 190, 3},
    Module4{"Module4", 193, 1}, UnitNo4{"UnitNo4", 194, 2}, Name5{"Name5", 196, 30}, Sn1_5{"Sn1_5", 226, 3},
    Sn2_5{"Sn2_5", 229, 3}, Sn3_5{"Sn3_5", 232, 3}, Sn4_5{"Sn4_5", 235, 3}, Module5{"Module5", 238, 1},
    UnitNo5{"UnitNo5", 239, 2};
inline constexpr std::array Fields{
    UnitMode, AlwaysOn, Reserved1, ScanSignal, Hours,   Minutes, Seconds, SignalFlag, RssiLevel, Name1,   Sn1_1,
    Sn2_1,    Sn3_1,    Sn4_1,     Module1,    UnitNo1, Name2,   Sn1_2,   Sn2_2,      Sn3_2,     Sn4_2,   Module2,
    UnitNo2,  Name3,    Sn1_3,     Sn2_3,      Sn3_3,   Sn4_3,   Module3, UnitNo3,    Name4,     Sn1_4,   Sn2_4,
    Sn3_4,    Sn4_4,    Module4,   UnitNo4,    Name5,   Sn1_5,   Sn2_5,   Sn3_5,      Sn4_5,     Module5, UnitNo5};
inline constexpr RecordLayout Record{"WirelessUnitRecord", "T6WRSSISN.TSD", 241, 1, 200, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 241)>) == 1);
} // namespace WirelessUnitRecord

/// The form before units were stored.
namespace UnitRecordOld {
inline constexpr RecordField UnitMode{"UnitMode", 0, 1}, AlwaysOn{"AlwaysOn", 1, 1}, Reserved1{"Reserved1", 2, 1},
    ScanSignal{"ScanSignal", 3, 3}, Hours{"Hours", 6, 2}, Minutes{"Minutes", 8, 2}, Seconds{"Seconds", 10, 2};
inline constexpr std::array Fields{UnitMode, AlwaysOn, Reserved1, ScanSignal, Hours, Minutes, Seconds};
inline constexpr RecordLayout Record{"UnitRecordOld", "DEVRSSISN.TSD", 12, 1, 201, Fields};
static_assert(sizeof(GapAtField<RecordError(Fields, 12)>) == 1);
} // namespace UnitRecordOld

} // namespace qvm
