#include "DatensatzStand.h"
#include "LockRecords.h"
#include "Modelle.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Zeit.h"
#include "Zeitfenster.h"
#include "Zeitgruppen.h"

#include <utility>

namespace qvm {
namespace {

constexpr int PersonRecords = 11; // record 11 is the first lock timer and serves both tables, deliberately so
constexpr int TimersAB = 5;
/// Old locks get their second timer from record 5 on, one slot before the group "Timer-B" begins.
constexpr int FirstRecordB = 5;

/// Hour and minute of "hh:mm"; 00:00 for a text that is no time of day.
std::pair<std::uint8_t, std::uint8_t> Uhrzeit(std::string_view text) {
    const int minutes = Uhrzeit_Lesen(text).value_or(0);
    return {static_cast<std::uint8_t>(minutes / 60), static_cast<std::uint8_t>(minutes % 60)};
}

/// The day selector goes out as it stands. What a lock does with one above 10 is not known.
TimerRow Zeile_Lesen(const RecordFile& slots, int record) {
    const auto from = Uhrzeit(slots.Text(record, TimeSlot::From));
    const auto to = Uhrzeit(slots.Text(record, TimeSlot::To));
    return {Feld_Byte(slots.Record(record), TimeSlot::DayIndex), from.first, from.second, to.first, to.second};
}

void Volle_Tabellen_Fuellen(Dataset& dataset, const RecordFile& slots, std::string_view selection) {
    for (int n = 0; n < PersonRecords; ++n) {
        dataset.TimerTableA[static_cast<std::size_t>(n)] = Zeile_Lesen(slots, n + 1);
    }
    for (std::size_t n = 0; n < dataset.TimerTableB.size() && n < selection.size(); ++n) {
        if (selection[n] == 'X') {
            dataset.TimerTableB[n] = Zeile_Lesen(slots, static_cast<int>(n) + LockSlots.First);
        }
    }
}

void Timer_A_B_Fuellen(Dataset& dataset, const RecordFile& slots) {
    for (int n = 0; n < TimersAB; ++n) {
        dataset.TimerTableA[static_cast<std::size_t>(n)] = Zeile_Lesen(slots, n + 1);
        dataset.TimerTableB[static_cast<std::size_t>(n)] = Zeile_Lesen(slots, n + FirstRecordB);
    }
}

void Zwei_Timer_Melden(const DatasetStand& stand) {
    const Kern& kern = stand.kern;
    stand.Melden(kern.Zeile(Line::TimersABOnly) + "\n\r" + kern.Zeile(Line::OtherTimersIdle), Icon::Information);
}

} // namespace

bool QVM_SbGruppenz_laden(const DatasetStand& stand, std::string& group) {
    RecordFile bindings(LockGroupRecord::Record);
    if (!Datei_Lesen(stand, bindings)) {
        return false;
    }
    group = bindings.Text(stand.row.Number, LockGroupRecord::GroupId);
    if (group.empty()) {
        group = "-";
    }
    return true;
}

bool QVM_SbGruppe_Laden(const DatasetStand& stand, std::string_view group, std::string& selection) {
    RecordFile groups(LockTimeGroup::Record);
    if (!Datei_Lesen(stand, groups)) {
        return false;
    }
    selection.clear();
    if (group == "-") {
        return true;
    }
    for (int n = 1; n <= LockGroupRows; ++n) {
        if (groups.Text(n, LockTimeGroup::PbId) == group) {
            selection = Feld_Roh(groups.Record(n), LockTimeGroup::Days);
            break;
        }
    }
    return true;
}

bool Schaltuhr_Laden(DatasetStand& stand, std::string_view selection) {
    std::string& mode = stand.dataset.Values.TimerMode;
    const Kern& kern = stand.kern;
    RecordFile slots(TimeSlot::Record);
    ReadStatus file = ReadStatus::Missing;
    if (!Trim(stand.row.PersonTimers).empty()) {
        file = slots.Laden(kern.Welt.Files, kern.DatPfad());
    }
    if (file == ReadStatus::Error) {
        return false;
    }
    if (file == ReadStatus::Missing) {
        // For all others the full mode stays, and empty tables go out in it.
        if (Timer_A_Und_B(stand.serial)) {
            mode = Timer_A_B;
        }
    } else if (Volle_Zeittabellen(stand.serial)) {
        Volle_Tabellen_Fuellen(stand.dataset, slots, selection);
    } else if (Timer_A_Und_B(stand.serial)) {
        Zwei_Timer_Melden(stand);
        mode = Timer_A_B;
        Timer_A_B_Fuellen(stand.dataset, slots);
    } else {
        mode = Timer_ERROR;
    }
    return true;
}

} // namespace qvm
