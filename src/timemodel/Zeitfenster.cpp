#include "Zeitfenster.h"

#include "Kern.h"
#include "Satzluecken.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Wochentage.h"

#include <algorithm>

namespace qvm {

namespace {

namespace Col = SlotColumn;

constexpr std::string_view Midnight = "00:00";

std::string Satz(int day, std::string_view from, std::string_view to) {
    std::string record;
    Feld_Byte_Schreiben(record, TimeSlot::DayIndex, static_cast<std::uint8_t>(day));
    Feld_Schreiben(record, TimeSlot::From, from);
    Feld_Schreiben(record, TimeSlot::To, to);
    return record;
}

void Abschalten(const Kern& kern, Grid& grid, int row) {
    grid.SetText(row, Col::Day, Wochentag_Text(kern, 0));
    grid.SetText(row, Col::From, Midnight);
    grid.SetText(row, Col::To, Midnight);
}

bool Nur_Ziffern(std::string_view text) {
    return !text.empty() && text.size() <= 2 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Minutes since midnight; -1 for a text that is no time of day.
int Minuten(std::string_view text) {
    const std::string_view time = Trim(text);
    const std::size_t colon = time.find(':');
    if (colon == std::string_view::npos) {
        return -1;
    }
    const std::string_view hours = time.substr(0, colon), minutes = time.substr(colon + 1);
    if (!Nur_Ziffern(hours) || !Nur_Ziffern(minutes) || Zahlwert(hours) > 23 || Zahlwert(minutes) > 59) {
        return -1;
    }
    return Zahlwert(hours) * 60 + Zahlwert(minutes);
}

} // namespace

bool Zeitfenster_Laden(Kern& kern, Grid& grid, const SlotRange& range) {
    RecordFile slots(TimeSlot::Record);
    const ReadStatus status = slots.Laden(kern.Welt.Files, kern.DatPfad());
    if (status == ReadStatus::Error) {
        return false;
    }
    if (status == ReadStatus::Missing) {
        Satzluecken_Fuellen(slots, SlotRecords, Satz(0, Midnight, Midnight));
        return slots.Speichern(kern.Welt.Files, kern.DatPfad());
    }
    for (int slot = 1; slot <= range.Count; ++slot) {
        const int record = range.First + slot - 1;
        const int day = Feld_Byte(slots.Record(record), TimeSlot::DayIndex);
        if (record > slots.Count() || day > WochentageEnde) {
            break;
        }
        grid.SetText(slot, Col::Day, Wochentag_Text(kern, day));
        grid.SetText(slot, Col::From, slots.Text(record, TimeSlot::From));
        grid.SetText(slot, Col::To, slots.Text(record, TimeSlot::To));
    }
    return true;
}

bool Zeitfenster_Speichern(Kern& kern, const Grid& grid, const SlotRange& range) {
    RecordFile slots(TimeSlot::Record);
    if (slots.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    Satzluecken_Fuellen(slots, SlotRecords, Satz(0, Midnight, Midnight));
    int day = 0;
    for (int slot = 1; slot <= range.Count; ++slot) {
        const int index = Wochentag_Index(kern, grid.Text(slot, Col::Day));
        day = index < 0 ? day : index;
        slots.SetRecord(range.First + slot - 1, Satz(day, grid.Text(slot, Col::From), grid.Text(slot, Col::To)));
    }
    return slots.Speichern(kern.Welt.Files, kern.DatPfad());
}

void Zeitfenster_Normalisieren(const Kern& kern, Grid& grid) {
    for (int row = 1; row < grid.Rows(); ++row) {
        grid.SetText(row, Col::Number, Ziffern(row));
        if (Trim(grid.Text(row, Col::Day)) == "OFF" || Trim(grid.Text(row, Col::From)).empty()) {
            Abschalten(kern, grid, row);
        }
    }
}

SlotEnde Zeitfenster_EndePruefen(std::string_view from, std::string_view to) {
    const int start = Minuten(from), end = Minuten(to);
    if (start < 0 || end < 0) {
        return SlotEnde::Unlesbar;
    }
    return end < start ? SlotEnde::Verkehrt : SlotEnde::Gut;
}

} // namespace qvm
