#include "Bestandslese.h"

#include "LockRecords.h"
#include "Record.h"
#include "Schloss.h"
#include "Text.h"
#include "UserRecords.h"
#include "Zeit.h"

#include <algorithm>
#include <utility>

namespace qvm {
namespace {

/// Its records, or none when it cannot be read.
bool Gelesen(const Kern& kern, RecordFile& file) {
    return file.Laden(kern.Welt.Files, kern.DatPfad()) != ReadStatus::Error;
}

Anzahl Unlesbar(const RecordFile& file) {
    return {.Wert = std::nullopt, .Datei = std::string(file.Layout().File)};
}

Anzahl Personen_Zaehlen(const Kern& kern) {
    RecordFile users(UserRecord::Record);
    if (!Gelesen(kern, users)) {
        return Unlesbar(users);
    }
    int count = 0;
    for (int n = 1; n <= users.Layout().Last; ++n) {
        count += users.Text(n, UserRecord::UserName).empty() ? 0 : 1;
    }
    return {.Wert = count, .Datei = {}};
}

} // namespace

Bestand Bestand_Lesen(const Kern& kern) {
    Bestand found{.Personen = Personen_Zaehlen(kern), .Schloesser = {}, .Kanalwechsel = {}};
    RecordFile locks(LockRecord::Record);
    if (!Gelesen(kern, locks)) {
        found.Schloesser = found.Kanalwechsel = Unlesbar(locks);
        return found;
    }
    RecordFile channels(ChannelRecord::Record);
    const bool channelsRead = Gelesen(kern, channels);
    int count = 0;
    int waiting = 0;
    for (int n = 1; n <= locks.Layout().Last; ++n) {
        // A row of the lock table without a serial can neither be programmed nor moved.
        if (!Schloss_Lesen(locks, n).Serial.empty()) {
            ++count;
            waiting += channels.Text(n, ChannelRecord::LockChange) == "1" ? 1 : 0;
        }
    }
    found.Schloesser.Wert = count;
    found.Kanalwechsel = channelsRead ? Anzahl{.Wert = waiting, .Datei = {}} : Unlesbar(channels);
    return found;
}

namespace {

/// "H_", eight digits, "_", six digits, "_", the lock, ".HST".
struct Dateimuster {
    std::string_view Datum, Uhrzeit, Schloss;
};

std::optional<Dateimuster> Zerlegen(std::string_view file) {
    constexpr std::string_view begin = "H_", end = ".HST";
    constexpr std::size_t dateAt = 2, timeAt = 11, lockAt = 18;
    if (file.size() <= lockAt + end.size() || !file.starts_with(begin) || !file.ends_with(end) ||
        file[timeAt - 1] != '_' || file[lockAt - 1] != '_') {
        return std::nullopt;
    }
    const Dateimuster parts{.Datum = file.substr(dateAt, 8),
                            .Uhrzeit = file.substr(timeAt, 6),
                            .Schloss = file.substr(lockAt, file.size() - lockAt - end.size())};
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    const bool numbers = std::all_of(parts.Datum.begin(), parts.Datum.end(), digit) &&
                         std::all_of(parts.Uhrzeit.begin(), parts.Uhrzeit.end(), digit);
    return numbers ? std::optional(parts) : std::nullopt;
}

} // namespace

std::string Historie_Beschreiben(std::string_view file) {
    const auto parts = Zerlegen(file);
    if (!parts) {
        return {};
    }
    const Datum day{.Year = Zahlwert(parts->Datum.substr(0, 4)),
                    .Month = Zahlwert(parts->Datum.substr(4, 2)),
                    .Day = Zahlwert(parts->Datum.substr(6, 2))};
    const int hour = Zahlwert(parts->Uhrzeit.substr(0, 2));
    const int minute = Zahlwert(parts->Uhrzeit.substr(2, 2));
    if (!Datum_Gueltig(day) || hour > 23 || minute > 59) {
        return {};
    }
    return AusUtf8(parts->Schloss) + ", " + Datum_Text(day) + " " + Ziffern(hour, 2) + ":" + Ziffern(minute, 2);
}

std::vector<Historiendatei> Historien_Liste(const Kern& kern) {
    std::vector<std::string> names = kern.Welt.Files.List(kern.HistPfad());
    std::erase_if(names, [](const std::string& name) { return Historie_Beschreiben(name).empty(); });
    // By date and time; of one moment by name.
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) { return a > b; });
    names.resize(std::min(names.size(), LetzteHistorien));
    std::vector<Historiendatei> files;
    files.reserve(names.size());
    for (const std::string& name : names) {
        files.push_back({.Pfad = kern.HistPfad() + name, .Text = Historie_Beschreiben(name)});
    }
    return files;
}

} // namespace qvm
