#pragma once

#include "Grid.h"

/// The two calendars of KL10X49WTTI.CBW, each a block of 20 records over a grid of 20 rows.
namespace qvm {

struct Kern;

/// Columns of a calendar grid. The grid of the single calendar has two more, which are never used.
namespace CalendarColumn {
inline constexpr int Number = 0, From = 1, To = 2, Kind = 3;
}
inline constexpr int CalendarRows = 20;

enum class KalenderBlock {
    Einzel,   ///< records 1 to 20: dates "dd.mm.yyyy" that hold once
    Permanent ///< records 22 to 41: dates "dd.mm. - -" that repeat every year
};

/// Fills columns 1 to 3 of rows 1 to 20; rows of unused records are emptied. The kind of a permanent date is always the
/// second. A missing file is no error; for the single calendar it is created, empty, if the disk lets it. False when
/// the file cannot be read: the grid is as it was and must not be saved.
bool Kalender_Laden(Kern& kern, Grid& grid, KalenderBlock block);

/// Sorts the grid's rows by the text of column 1, empty ones last, numbers them from 1, and writes them as the block's
/// records, all or nothing. A row that lacks a date or the kind is stored as an unused record, but stays in the grid.
/// All other records stay; those before the block that the file lacks become unused. False on a file error: the file is
/// as it was.
bool Kalender_Speichern(Kern& kern, Grid& grid, KalenderBlock block);

} // namespace qvm
