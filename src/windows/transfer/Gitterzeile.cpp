#include "Gitterzeile.h"

#include "Text.h"

namespace qvm {

LockRow Gitterzeile_Lesen(const Grid& grid, int row) {
    return {.Number = Zahlwert(grid.Text(row, F13Column::Number)),
            .Name = grid.Text(row, F13Column::Name),
            .Serial = grid.Text(row, F13Column::Serial),
            .PersonTimers = grid.Text(row, F13Column::PersonTimers),
            .Calendars = grid.Text(row, F13Column::Calendars),
            .LockTimer = grid.Text(row, F13Column::LockTimer),
            .CalendarFlag = grid.Text(row, F13Column::CalendarFlag),
            .SetClock = grid.Text(row, F13Column::SetClock)};
}

const AdapterSatz* Adapter_Der_Zeile(const AdapterListe& adapters, const Grid& grid, int row) {
    const AdapterSatz* adapter = Adapter_Finden(adapters, grid.Text(row, F13Column::AdapterId));
    return adapter != nullptr ? adapter : Adapter_Finden(adapters, grid.Text(row, F13Column::AdapterName));
}

} // namespace qvm
