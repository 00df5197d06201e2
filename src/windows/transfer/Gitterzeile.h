#pragma once

#include "AdapterListe.h"
#include "Dataset.h"
#include "Grid.h"

/// A row of the lock grid, which the run list copies: its cells, and what a run needs of them.
namespace qvm {

/// Columns of the lock grid.
namespace F13Column {
inline constexpr int Number = 0, Name = 1, Serial = 2, Offset = 3, PersonTimers = 4, Calendars = 5, LockTimer = 6,
                     CalendarFlag = 7, SetClock = 8, Program = 9, History = 10, Code = 11, Status = 12, AdapterId = 13,
                     AdapterName = 14, Mark = 15, Count = 16;
}

/// Columns of the run list. Those that it copies from the lock grid stand where they stand there.
namespace F91Column {
inline constexpr int Number = F13Column::Number, Name = F13Column::Name, Serial = F13Column::Serial,
                     SetClock = F13Column::SetClock, Status = F13Column::Status, AdapterId = F13Column::AdapterId,
                     AdapterName = F13Column::AdapterName, Mark = 16, StateText = 17, Count = 18;
}

/// Ports that a lock's adapter may stand at.
inline constexpr int LowestPort = 1, HighestPort = 15;

/// The cells of a row of either grid that the dataset is gathered by.
LockRow Gitterzeile_Lesen(const Grid& grid, int row);
/// The adapter of a row of either grid: by its address, or else by its name. nullptr when none is known.
const AdapterSatz* Adapter_Der_Zeile(const AdapterListe& adapters, const Grid& grid, int row);

} // namespace qvm
