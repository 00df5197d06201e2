#include "Zeitfenster.h"

#include "Kern.h"
#include "Satzluecken.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Wochentage.h"
#include "Zeit.h"

namespace qvm {

namespace {

constexpr std::string_view Midnight = "00:00";

std::string Satz(int day, std::string_view from, std::string_view to) {
    std::string record;
    Feld_Byte_Schreiben(record, TimeSlot::DayIndex, static_cast<std::uint8_t>(day));
    Feld_Schreiben(record, TimeSlot::From, from);
    Feld_Schreiben(record, TimeSlot::To, to);
    return record;
}

void Abschalten(const Kern& kern, Grid& grid, int row) {
    grid.SetText(row, SlotColumn::Day, Wochentag_Text(kern, 0));
    grid.SetText(row, SlotColumn::From, Midnight);
    grid.SetText(row, SlotColumn::To, Midnight);
}

} // namespace

SlotLoad Zeitfenster_Laden(Kern& kern, Grid& grid, const SlotRange& range) {
    RecordFile slots(TimeSlot::Record);
    const ReadStatus status = slots.Laden(kern.Welt.Files, kern.DatPfad());
    if (status == ReadStatus::Error) {
        return {};
    }
    if (status == ReadStatus::Missing) {
        Satzluecken_Fuellen(slots, SlotRecords, Satz(0, Midnight, Midnight));
        return {.Read = slots.Speichern(kern.Welt.Files, kern.DatPfad())};
    }
    for (int slot = 1; slot <= range.Count; ++slot) {
        const int record = range.First + slot - 1;
        const int day = Feld_Byte(slots.Record(record), TimeSlot::DayIndex);
        if (record > slots.Count()) {
            break;
        }
        if (day > WochentageEnde) {
            return {.Read = true, .Damaged = record};
        }
        grid.SetText(slot, SlotColumn::Day, Wochentag_Text(kern, day));
        grid.SetText(slot, SlotColumn::From, slots.Text(record, TimeSlot::From));
        grid.SetText(slot, SlotColumn::To, slots.Text(record, TimeSlot::To));
    }
    return {.Read = true};
}

bool Zeitfenster_Speichern(Kern& kern, const Grid& grid, const SlotRange& range) {
    RecordFile slots(TimeSlot::Record);
    if (slots.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    Satzluecken_Fuellen(slots, SlotRecords, Satz(0, Midnight, Midnight));
    int day = 0;
    for (int slot = 1; slot <= range.Count; ++slot) {
        const int index = Wochentag_Index(kern, grid.Text(slot, SlotColumn::Day));
        day = index < 0 ? day : index;
        slots.SetRecord(range.First + slot - 1,
                        Satz(day, grid.Text(slot, SlotColumn::From), grid.Text(slot, SlotColumn::To)));
    }
    return slots.Speichern(kern.Welt.Files, kern.DatPfad());
}

void Zeitfenster_Normalisieren(const Kern& kern, Grid& grid) {
    for (int row = 1; row < grid.Rows(); ++row) {
        grid.SetText(row, SlotColumn::Number, Ziffern(row));
        if (Trim(grid.Text(row, SlotColumn::Day)) == "OFF" || Trim(grid.Text(row, SlotColumn::From)).empty()) {
            Abschalten(kern, grid, row);
        }
    }
}

SlotEnde Zeitfenster_EndePruefen(std::string_view from, std::string_view to) {
    const auto start = Uhrzeit_Lesen(Trim(from)), end = Uhrzeit_Lesen(Trim(to));
    if (!start || !end) {
        return SlotEnde::Unlesbar;
    }
    return *end < *start ? SlotEnde::Verkehrt : SlotEnde::Gut;
}

} // namespace qvm
