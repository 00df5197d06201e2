#pragma once

#include "Grid.h"
#include "Zeitfenster.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// What a guest card needs beside the guest's own dates: default times, offsets, mode, and the person slots that apply.
namespace qvm {

struct Kern;

/// Columns of the grid of the offsets. The last one is hidden.
namespace OffsetColumn {
inline constexpr int Number = 0, Name = 1, Time = 2, Base = 3, Id = 4, Count = 5;
}
inline constexpr int OffsetRows = 4;
inline constexpr int OffsetNameLength = 20; ///< characters

/// The default times of the establishment.
struct DefaultTimes {
    std::string CheckIn{"09:30"}, CheckOut{"15:00"}; ///< "hh:mm"; these hold without a file
};

/// Slots of the person clock that guests can be offered, of its ten.
inline constexpr int GuestSlotRows = 8;

/// Mode bytes of the guest-card telegrams.
namespace GuestMode {
inline constexpr std::uint8_t Hotel = 0x80, Object = 0x81;
}

/// Mode, and which slots apply to guests.
struct GuestSelection {
    bool Hotel = true; ///< otherwise "OBJEKT"
    std::array<bool, GuestSlotRows> Slots{};

    std::uint8_t Mode() const { return Hotel ? GuestMode::Hotel : GuestMode::Object; }
};

/// A slot of the person clock as it is shown.
struct GuestSlot {
    int Day = 0; ///< index of the day table
    std::string From{"00:00"}, To{"00:00"};
};
using GuestSlots = std::array<GuestSlot, GuestSlotRows>;

/// "OFST0x0" and the record's number, 1 to 4: what an offset is called for ever.
std::string OffsetId_Von(int record);

/// T4OFFSETGST.FST: its four records into rows 1 to 4. A blank identifier is read as that of its record. A missing file
/// is created with four records "OFF", "00:00", "00:00", and the grid stays as it is. False on a file error: the grid
/// is as it was and must not be saved.
bool Offsets_Laden(Kern& kern, Grid& grid);

/// OFSTSETUPDT.FST: lines 2 and 3. A line that is no time of day gives way to the default, as a missing file does.
/// False on a file error.
bool OffsetSetup_Laden(const Kern& kern, DefaultTimes& times);

/// ASWTIMQVMLCK.FSN. The mode is "HOTEL" when the file says so or is missing; any other word means "OBJEKT". Lines that
/// the file lacks select nothing. False on a file error.
bool Auswahl_Laden(const Kern& kern, GuestSelection& selection);

/// The first eight person slots of TX33Y98BSG9.TBW; switched off where the file holds none, and from a record on whose
/// day index is above 11. The file is not created. On a file error they stay as they are.
SlotLoad Gastslots_Laden(const Kern& kern, GuestSlots& slots);

/// Writes default times, offsets and selection, in this order, all or nothing. Line 1 of both text files is today's
/// date, which nobody reads. Names are cut to 20 characters. False on a file error: the files are as they were.
bool Gastzeiten_Speichern(Kern& kern, const DefaultTimes& times, const Grid& offsets, const GuestSelection& selection);

} // namespace qvm
