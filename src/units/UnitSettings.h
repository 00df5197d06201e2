#pragma once

#include "Grid.h"

#include <string>
#include <string_view>

namespace qvm {

struct Kern;

/// Columns of FGK20. Its rows 1 to 5 are the units of the lock, row 0 the headers.
namespace UnitColumn {
inline constexpr int Number = 0, Name = 1, Serial = 2, Module = 3, UnitNo = 4;
}

/// What the unit window of a lock holds beside its grid: the texts of the record and the state of the controls.
struct UnitSettings {
    std::string UnitMode;
    std::string AlwaysOn = "9";  ///< "9": nobody has set it
    std::string Reserved1 = "9"; ///< "9" until the first save
    std::string ScanSignal;
    std::string Hours, Minutes, Seconds;
    std::string SignalFlag;
    std::string RssiLevel;

    int Mode = 0;                 ///< Combo1: 0 threshold, 1 time window
    int HourEntry = 0;            ///< Combo2, 0 to 17
    int MinuteEntry = 0;          ///< Combo3, 0 to 59
    int SecondEntry = 0;          ///< Combo4, 0 to 59
    int LevelEntry = 4;           ///< Combo5, 0 to 4
    bool AlwaysOnChecked = false; ///< Check1
    bool SignalChecked = false;   ///< Check2
    bool TimeControls = false;    ///< Combo2, Combo3, Combo4, Check1 and Label2 are on
    bool SignalControls = true;   ///< Frame1, Check2, Combo5 and Label3 are on

    bool operator==(const UnitSettings&) const = default;
};

/// Loads the record of a lock (1 to 200) into the settings and rows 1 to 5 of the grid. A missing file is a blank
/// record. False, with everything as it was, when the lock does not exist or the file could not be read.
bool Units_Laden(const Kern& kern, int lock, UnitSettings& settings, Grid& FGK20);

/// What the accepting key does with the settings: the mode from its list, the times from theirs, a signal set by hand.
/// False when the time window has no length; the caller says so and the window stays.
bool Units_Uebernehmen(UnitSettings& settings);

/// False when a time window of no length would be saved: mode "3", all times 0, not always on.
bool Units_Zeit_Gueltig(const UnitSettings& settings);

/// Writes the record of the lock (1 to 200) in place, units from the grid's rows as they stand. False, with nothing
/// written, when the time is not valid, the lock does not exist, or on a file error.
bool Units_Speichern(const Kern& kern, int lock, const UnitSettings& settings, const Grid& FGK20);

/// Where the record of the lock (1 to 200) has a unit with this serial number, as shown, its channel becomes `channel`.
/// Touches nothing else. False on a file error; true also where there is no such unit.
bool Unit_Kanal_Merken(const Kern& kern, int lock, std::string_view serial, int channel);

/// False when another row has that name already. An empty name is always free; serials may be equal.
bool Unit_Name_Frei(const Grid& FGK20, int row, std::string_view name);

} // namespace qvm
