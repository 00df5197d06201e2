#include "Gastzeiten.h"

#include "Dateisatz.h"
#include "Kern.h"
#include "Satzluecken.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Wochentage.h"
#include "Zeilen.h"
#include "Zeit.h"
#include "Zeitfenster.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace qvm {
namespace {

constexpr std::string_view SetupFile = "OFSTSETUPDT.FST", SelectionFile = "ASWTIMQVMLCK.FSN";
constexpr std::string_view LineEnd = "\r\n", HotelWord = "HOTEL", ObjectWord = "OBJEKT", Selected = "X";
constexpr std::string_view NoTime = "00:00";
/// Of the text files, from 0. The line before is the date of saving.
constexpr std::size_t FirstValue = 1;

std::string Offsetsatz(std::string_view name, std::string_view time, std::string_view base, std::string_view id) {
    std::string record;
    Feld_Schreiben(record, GuestOffset::Name, name);
    Feld_Schreiben(record, GuestOffset::Time, time);
    Feld_Schreiben(record, GuestOffset::Base, base);
    Feld_Schreiben(record, GuestOffset::OffsetId, id);
    return record;
}

/// The lines of a text file; none when it is missing or cannot be read.
ReadStatus Zeilen_Laden(const Kern& kern, std::string_view file, std::vector<std::string>& lines) {
    std::string bytes;
    const ReadStatus status = kern.Welt.Files.ReadAll(kern.DatPfad() + std::string(file), bytes);
    lines = Zeilen_Lesen(bytes);
    return status;
}

std::string_view Gekuerzte_Zeile(const std::vector<std::string>& lines, std::size_t index) {
    return index < lines.size() ? Trim(lines[index]) : std::string_view();
}

/// The line where it is a time of day.
void Zeit_Uebernehmen(std::string_view line, std::string& time) {
    if (line.size() == NoTime.size() && Uhrzeit_Lesen(line)) {
        time = line;
    }
}

std::string Textdatei(const Kern& kern, const std::vector<std::string_view>& lines) {
    std::string bytes = Datum_Text(Heute(kern.Welt.Now()));
    bytes += LineEnd;
    for (const std::string_view line : lines) {
        bytes.append(line).append(LineEnd);
    }
    return bytes;
}

NeueDatei Auswahldatei(const Kern& kern, const GuestSelection& selection) {
    std::vector<std::string_view> lines{selection.Hotel ? HotelWord : ObjectWord};
    for (const bool slot : selection.Slots) {
        lines.push_back(slot ? Selected : "0");
    }
    lines.emplace_back("ENDE");
    return {kern.DatPfad() + std::string(SelectionFile), Textdatei(kern, lines)};
}

/// What the file holds behind the four records stays. False when it cannot be read.
bool Offsetdatei(const Kern& kern, const Grid& grid, NeueDatei& file) {
    RecordFile offsets(GuestOffset::Record);
    if (offsets.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    for (int row = 1; row <= OffsetRows; ++row) {
        offsets.SetRecord(row, Offsetsatz(grid.Text(row, OffsetColumn::Name), grid.Text(row, OffsetColumn::Time),
                                          grid.Text(row, OffsetColumn::Base), grid.Text(row, OffsetColumn::Id)));
    }
    file = {kern.DatPfad() + std::string(GuestOffset::Record.File), offsets.Bytes()};
    return true;
}

} // namespace

std::string OffsetId_Von(int record) {
    return std::string(GuestOffset::IdPrefix) + Ziffern(record);
}

bool Offsets_Laden(Kern& kern, Grid& grid) {
    RecordFile offsets(GuestOffset::Record);
    const ReadStatus status = offsets.Laden(kern.Welt.Files, kern.DatPfad());
    if (status == ReadStatus::Error) {
        return false;
    }
    if (status == ReadStatus::Missing) {
        for (int record = 1; record <= OffsetRows; ++record) {
            offsets.SetRecord(record, Offsetsatz("OFF", NoTime, NoTime, OffsetId_Von(record)));
        }
        return offsets.Speichern(kern.Welt.Files, kern.DatPfad());
    }
    for (int row = 1; row <= OffsetRows; ++row) {
        const std::string id = offsets.Text(row, GuestOffset::OffsetId);
        grid.SetText(row, OffsetColumn::Name, offsets.Text(row, GuestOffset::Name));
        grid.SetText(row, OffsetColumn::Time, offsets.Text(row, GuestOffset::Time));
        grid.SetText(row, OffsetColumn::Base, offsets.Text(row, GuestOffset::Base));
        grid.SetText(row, OffsetColumn::Id, Trim(id).empty() ? OffsetId_Von(row) : id);
    }
    return true;
}

bool OffsetSetup_Laden(const Kern& kern, DefaultTimes& times) {
    times = {};
    std::vector<std::string> lines;
    if (Zeilen_Laden(kern, SetupFile, lines) == ReadStatus::Error) {
        return false;
    }
    Zeit_Uebernehmen(Gekuerzte_Zeile(lines, FirstValue), times.CheckIn);
    Zeit_Uebernehmen(Gekuerzte_Zeile(lines, FirstValue + 1), times.CheckOut);
    return true;
}

bool Auswahl_Laden(const Kern& kern, GuestSelection& selection) {
    selection = {};
    std::vector<std::string> lines;
    if (const ReadStatus status = Zeilen_Laden(kern, SelectionFile, lines); status != ReadStatus::Ok) {
        return status == ReadStatus::Missing;
    }
    selection.Hotel = Gekuerzte_Zeile(lines, FirstValue) == HotelWord;
    for (std::size_t n = 0; n < selection.Slots.size(); ++n) {
        selection.Slots[n] = Gekuerzte_Zeile(lines, FirstValue + 1 + n) == Selected;
    }
    return true;
}

SlotLoad Gastslots_Laden(const Kern& kern, GuestSlots& slots) {
    RecordFile file(TimeSlot::Record);
    if (file.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return {};
    }
    slots = {};
    for (int n = 0; n < GuestSlotRows && PersonSlots.First + n <= file.Count(); ++n) {
        const int record = PersonSlots.First + n;
        const int day = Feld_Byte(file.Record(record), TimeSlot::DayIndex);
        if (day > WochentageEnde) {
            return {.Read = true, .Damaged = record};
        }
        slots[static_cast<std::size_t>(n)] = {day, file.Text(record, TimeSlot::From), file.Text(record, TimeSlot::To)};
    }
    return {.Read = true};
}

bool Gastzeiten_Speichern(Kern& kern, const DefaultTimes& times, const Grid& offsets, const GuestSelection& selection) {
    std::array<NeueDatei, 3> files;
    files[0] = {kern.DatPfad() + std::string(SetupFile), Textdatei(kern, {times.CheckIn, times.CheckOut, "00", "01"})};
    if (!Offsetdatei(kern, offsets, files[1])) {
        return false;
    }
    files[2] = Auswahldatei(kern, selection);
    return Dateien_Ersetzen(kern.Welt.Files, files);
}

} // namespace qvm
