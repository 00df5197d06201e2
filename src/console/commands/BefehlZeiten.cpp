#include "Befehle.h"
#include "Liste.h"
#include "Record.h"
#include "Text.h"
#include "TimeRecords.h"
#include "Zeitfenster.h"
#include "Zeitgruppen.h"
#include "Zeitworte.h"

#include <algorithm>
#include <array>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

std::string Feldtext(const RecordFile& file, int record, const RecordField& field) {
    return Anzeige_Aus_1252(Trim(file.Text(record, field)));
}

/// The files that hold times.
struct Zeitdateien {
    RecordFile Slots{TimeSlot::Record}, LockGroups{LockTimeGroup::Record}, Days{CalendarEntry::Record},
        Offsets{GuestOffset::Record};
    GroupTable Groups = PersonGruppen_Vorgabe();

    bool Laden(Kern& kern) {
        bool good = PersonGruppen_Laden(kern, Groups);
        for (RecordFile* file : {&Slots, &LockGroups, &Days, &Offsets}) {
            good = file->Laden(kern.Welt.Files, kern.DatPfad()) != ReadStatus::Error && good;
        }
        return good;
    }
};

/// A table and its documents, whose fields have the names of the columns, the list that of the title, in small letters.
struct Abschnitt {
    std::string Title;
    std::vector<std::string> Headings;
    std::vector<std::vector<std::string>> Rows{};
};

Abschnitt Slots(const Zeitdateien& files) {
    Abschnitt part{.Title = "Slots", .Headings = {"Clock", "Slot", "Day", "From", "To"}};
    const auto add = [&](const char* clock, const SlotRange& range) {
        for (int n = 1; n <= range.Count; ++n) {
            const int record = range.First + n - 1;
            if (record > files.Slots.Count()) {
                return;
            }
            part.Rows.push_back(
                {clock, std::to_string(n), Tag_Wort(Feld_Byte(files.Slots.Record(record), TimeSlot::DayIndex)),
                 Feldtext(files.Slots, record, TimeSlot::From), Feldtext(files.Slots, record, TimeSlot::To)});
        }
    };
    add("person", PersonSlots);
    add("lock", LockSlots);
    return part;
}

Abschnitt Gruppen(const Zeitdateien& files) {
    Abschnitt part{.Title = "Groups", .Headings = {"Clock", "Group", "Name", "Slots", "Id"}};
    const auto add = [&](const char* clock, int number, std::string_view name, std::string_view days,
                         std::string_view id) {
        if (!Trim(name).empty() || !Trim(id).empty()) {
            part.Rows.push_back({clock, std::to_string(number), Anzeige_Aus_1252(Trim(name)),
                                 Anzeige_Aus_1252(Trim(days)), Anzeige_Aus_1252(Trim(id))});
        }
    };
    for (int n = 1; n <= PersonGroupRows; ++n) {
        const GroupEntry& group = files.Groups[static_cast<std::size_t>(n)];
        add("person", n, group.Name, group.Days, group.PbId);
    }
    const RecordFile& groups = files.LockGroups;
    for (int n = 1; n <= LockGroupRows; ++n) {
        add("lock", n, groups.Text(n, LockTimeGroup::Name), groups.Text(n, LockTimeGroup::Days),
            groups.Text(n, LockTimeGroup::PbId));
    }
    return part;
}

/// What the third column of the window shows, empty when it shows nothing. The permanent calendar stores none.
std::string Tagesart(bool single, std::string_view stored) {
    return !single || stored == "1" ? "permanent" : stored == "0" ? "single" : "";
}

Abschnitt Feiertage(const Zeitdateien& files) {
    Abschnitt part{.Title = "Holidays", .Headings = {"Calendar", "Row", "From", "To", "Kind"}};
    constexpr int Permanent = 22;
    for (int record = 1; record <= std::min<int>(files.Days.Count(), CalendarEntry::Record.Last); ++record) {
        const std::string from = Feldtext(files.Days, record, CalendarEntry::DateFrom);
        const bool single = record <= Permanent - 2;
        if (!from.empty() && (single || record >= Permanent)) {
            part.Rows.push_back({single ? "single" : "permanent",
                                 std::to_string(single ? record : record - Permanent + 1), from,
                                 Feldtext(files.Days, record, CalendarEntry::DateTo),
                                 Tagesart(single, Feldtext(files.Days, record, CalendarEntry::Kind))});
        }
    }
    return part;
}

Abschnitt Offsets(const Zeitdateien& files) {
    Abschnitt part{.Title = "Offsets", .Headings = {"Offset", "Name", "Time", "Base", "Id"}};
    const RecordLayout& layout = files.Offsets.Layout();
    for (int n = layout.First; n <= std::min<int>(layout.Last, files.Offsets.Count()); ++n) {
        std::vector<std::string> row{std::to_string(n)};
        for (const RecordField& field : GuestOffset::Fields) {
            row.push_back(Feldtext(files.Offsets, n, field));
        }
        part.Rows.push_back(std::move(row));
    }
    return part;
}

void Abschnitt_Schreiben(std::ostream& out, const Abschnitt& part) {
    out << part.Title << "\n";
    if (part.Rows.empty()) {
        out << "none\n";
        return;
    }
    std::vector<std::vector<std::string>> rows{part.Headings};
    rows.insert(rows.end(), part.Rows.begin(), part.Rows.end());
    Tabelle_Schreiben(out, rows);
}

std::string Feldname(std::string heading) {
    heading.front() = static_cast<char>(heading.front() - 'A' + 'a');
    return heading;
}

Json Abschnitt_Json(const Abschnitt& part) {
    Json list = Json::array();
    for (const auto& row : part.Rows) {
        Json record;
        for (std::size_t n = 0; n < row.size(); ++n) {
            record[Feldname(part.Headings[n])] = row[n];
        }
        list.push_back(std::move(record));
    }
    return list;
}

} // namespace

ExitCode Befehl_Zeiten(const Umgebung& world, const Console& console) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag("times", {why});
    }
    Zeitdateien files;
    {
        const DataLock lock(world.DatPfad(), DataLock::Use::Read);
        Sperre_Holen(lock, console);
        Kern kern(world.Welt);
        kern.AppPath = world.AppPath;
        if (!files.Laden(kern)) {
            return console.Fehlschlag("times", {"The files of the times cannot be read; check names them."});
        }
    }
    Json document{{"command", "times"}, {"ok", true}, {"exit", 0}};
    const char* between = "";
    for (const Abschnitt& part : {Slots(files), Gruppen(files), Feiertage(files), Offsets(files)}) {
        if (console.Json) {
            document[Feldname(part.Title)] = Abschnitt_Json(part);
        } else {
            console.Out << between;
            Abschnitt_Schreiben(console.Out, part);
            between = "\n";
        }
    }
    if (console.Json) {
        console.Ergebnis(document);
    }
    return ExitCode::Good;
}

} // namespace qvm
