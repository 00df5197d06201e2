#pragma once

#include "Grid.h"

#include <string_view>

/// Weekly slots of TX33Y98BSG9.TBW in a grid: row n holds slot n of a clock.
namespace qvm {

struct Kern;

/// Columns of a slot grid.
namespace SlotColumn {
inline constexpr int Number = 0, Day = 1, From = 2, To = 3, Count = 4;
}

/// The records of one clock.
struct SlotRange {
    int First; ///< record of slot 1
    int Count; ///< slots
};
inline constexpr SlotRange PersonSlots{1, 10}, LockSlots{11, 5};
inline constexpr int SlotRecords = 15;

/// What became of a load.
struct SlotLoad {
    bool Read = false; ///< false: a file error; the grid is as it was and must not be saved
    int Damaged = 0;   ///< record that ended the load, from 1, 0: none; a save would overwrite it and those behind it

    explicit operator bool() const { return Read; }
};

/// Reads the clock's records into rows 1 on. A missing file is created with all 15 records, switched off, and the grid
/// stays as it is. A day index above 11 ends the load at its record; index 11 gives an empty day. Rows of records that
/// the file does not hold stay as they are.
SlotLoad Zeitfenster_Laden(Kern& kern, Grid& grid, const SlotRange& range);

/// Writes the rows as the clock's records, all or nothing. A day text that the day table does not hold keeps the index
/// of the row before it, 0 in the first row. All other records stay; those that the file lacks up to number 15 are
/// switched-off slots. False on a file error: the file is as it was.
bool Zeitfenster_Speichern(Kern& kern, const Grid& grid, const SlotRange& range);

/// Numbers the rows and switches off those whose day is "OFF" or whose start is empty: day table entry 0, both times
/// "00:00". Runs on the new grid, before the load.
void Zeitfenster_Normalisieren(const Kern& kern, Grid& grid);

enum class SlotEnde {
    Gut,      ///< end at or after start
    Verkehrt, ///< end before start: a slot never spans midnight
    Unlesbar  ///< a text is no time of day
};
/// Compares start and end of a slot, both "hh:mm".
SlotEnde Zeitfenster_EndePruefen(std::string_view from, std::string_view to);

} // namespace qvm
