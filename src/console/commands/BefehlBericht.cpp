// Reports as PDF.

#include "Befehle.h"
#include "Berichte.h"
#include "F5_Laden.h"
#include "HistorieLesen.h"
#include "Kern.h"
#include "Pdf.h"
#include "Text.h"
#include "TextSlots.h"
#include "Zeitgruppen.h"

#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

namespace qvm {

namespace {

/// What becomes of a report: it, or why there is none.
struct Berichtsversuch {
    std::optional<Report> Made = std::nullopt;
    std::string Why{}; ///< a sentence in English, UTF-8
};

/// Words as the desktop program would show them. Gives what is missing, a sentence; empty when all is well.
std::string Sprache_Nehmen(Kern& kern, const std::string& language) {
    Konfiguration_Laden(kern);
    constexpr std::array<std::string_view, SprachNamen.size()> words{"de", "en", "fr", "nl"};
    for (std::size_t n = 0; n < words.size(); ++n) {
        if (words[n] == language) {
            kern.Config.Sprache = SprachNamen[n];
        }
    }
    return Sprachdatei_Laden(kern) == SprachdateiStatus::Fehlt
               ? "The language file QVM_" + NachUtf8(kern.Config.Sprache) + ".DAT is missing beside the program."
               : std::string();
}

Berichtsversuch Der_Person(Kern& kern, const UserTable& table, const Optionen& options) {
    if (Trim(table.FGK4.Text(UserGrid::RowOf(options.User), UserColumn::Name)).empty()) {
        return {.Why = "User " + std::to_string(options.User) + " has no name."};
    }
    if (options.Kind == "doors") {
        return {.Made = Bericht_Tueren(kern, table, options.User)};
    }
    std::optional<Report> receipt = Bericht_Empfang(kern, table, options.User);
    return receipt
               ? Berichtsversuch{.Made = std::move(receipt)}
               : Berichtsversuch{.Why = "The file of the time slots cannot be read, or is damaged; check names it."};
}

Berichtsversuch Aus_Tabelle(Kern& kern, const Optionen& options) {
    UserTable table;
    table.GroupTablePerson = PersonGruppen_Vorgabe();
    if (!PersonGruppen_Laden(kern, table.GroupTablePerson) || !F5_TabelleLaden(kern, table)) {
        return {.Why = "The files of the users cannot be read; check names them."};
    }
    if (options.Kind == "people") {
        return {.Made = Bericht_Benutzer(kern, table)};
    }
    if (options.Kind != "persons") {
        return Der_Person(kern, table, options);
    }
    const std::string name = Schlossname(table.FGK4, UserGrid::ColumnOf(options.Lock));
    return name.empty() ? Berichtsversuch{.Why = "Lock " + std::to_string(options.Lock) + " has no name."}
                        : Berichtsversuch{.Made = Bericht_Personen(kern, table, options.Lock, name)};
}

Berichtsversuch Aus_Historie(const Kern& kern, const std::string& file, const std::string& bytes) {
    std::vector<ReportEvent> events;
    for (const HistoryLine& line : Historie_Zeilen(bytes).Lines) {
        events.push_back(line.Fields);
    }
    const std::string name = file == "-" ? std::string() : AusUtf8(file.substr(file.find_last_of('/') + 1));
    return {.Made = Bericht_Ereignisse(kern, name, events)};
}

ExitCode Bericht_Ausgeben(const Umgebung& world, const Console& console, const Optionen& options,
                          const Report& report) {
    const ReportPages pages = Seiten_Setzen(report);
    const std::optional<std::string> bytes = Pdf_Text(pages);
    if (!bytes) {
        return console.Fehlschlag("report", {"There is not memory enough for the report."});
    }
    if (options.File == "-") {
        console.Out << *bytes;
        console.Out.flush();
        return console.Out.good() ? ExitCode::Good : ExitCode::Fault;
    }
    if (!Ausgabedatei_Schreiben(world, options.File, *bytes)) {
        return console.Fehlschlag("report", {"The file " + options.File + " cannot be written."});
    }
    if (console.Json) {
        console.Ergebnis({{"command", "report"},
                          {"ok", true},
                          {"exit", 0},
                          {"kind", options.Kind},
                          {"file", options.File},
                          {"pages", pages.Pages.size()}});
    } else {
        console.Out << "Wrote " << pages.Pages.size() << (pages.Pages.size() == 1 ? " page" : " pages") << " to "
                    << Anzeigetext(options.File) << "\n";
    }
    return ExitCode::Good;
}

} // namespace

ExitCode Befehl_Bericht(const Umgebung& world, const Console& console, const Optionen& options) {
    const bool events = options.Kind == "events";
    std::string bytes;
    if (const std::string why = events ? Eingabe_Lesen(world, options.Subject, bytes) : std::string(); !why.empty()) {
        return console.Fehlschlag("report", {why});
    }
    Kern kern(world.Welt);
    kern.AppPath = world.AppPath;
    Berichtsversuch report;
    {
        if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
            return console.Fehlschlag("report", {why});
        }
        const DataLock lock(world.DatPfad(), DataLock::Use::Read);
        Sperre_Holen(lock, console);
        if (const std::string why = Sprache_Nehmen(kern, options.Language); !why.empty()) {
            return console.Fehlschlag("report", {why});
        }
        report = events ? Aus_Historie(kern, options.Subject, bytes) : Aus_Tabelle(kern, options);
    }
    return report.Made ? Bericht_Ausgeben(world, console, options, *report.Made)
                       : console.Fehlschlag("report", {report.Why});
}

} // namespace qvm
