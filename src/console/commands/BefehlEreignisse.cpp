#include "Befehle.h"
#include "Ereignisse.h"
#include "Text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view Ending = ".HST";

/// All history files of the installation. Their names begin with the moment they were made at, so that sorted by name
/// they stand in the order of time.
std::vector<std::string> Alle_Dateien(const Umgebung& world) {
    std::vector<std::string> paths;
    for (const std::string& name : world.Welt.Files.List(world.AppPath + "HIST")) {
        if (GrossText(name).ends_with(Ending)) {
            paths.push_back(world.AppPath + "HIST/" + name);
        }
    }
    return paths;
}

/// As the search window compares: the whole text, upper and lower case alike, without the blanks at its end.
bool Gleich(std::string_view text, const std::string& wanted) {
    return PasstInCp1252(wanted) && GrossText(RTrim(text)) == GrossText(RTrim(AusUtf8(wanted)));
}

bool Gesucht(const HistoryEvent& event, const Optionen& options) {
    return (options.Name.empty() || Gleich(event.Name, options.Name)) &&
           (!options.Date || RTrim(event.Date) == Datum_Text(*options.Date)) &&
           (options.Event.empty() || Gleich(event.Event, options.Event) || Gleich(event.State, options.Event));
}

bool Mit_Filter(const Optionen& options) {
    return !options.Name.empty() || options.Date || !options.Event.empty();
}

/// Eingabe_Lesen or Datei_Lesen.
using LeseRoutine = std::string(const Umgebung&, const std::string&, std::string&);

/// Where the files of a command come together.
struct Ausgabe {
    const Umgebung& world;
    const Console& console;
    const Optionen& options;
    Json files = Json::array();
    std::vector<std::string> messages = {};
    bool whole = true; ///< every file could be read

    void Datei(const std::string& file, LeseRoutine* read);

private:
    void Zeigen(const std::string& file, const HistoryFile& history);
};

void Ausgabe::Datei(const std::string& file, LeseRoutine* read) {
    std::string bytes;
    if (const std::string why = read(world, file, bytes); !why.empty()) {
        messages.push_back(why);
        whole = false;
        return;
    }
    HistoryFile history = Historie_Lesen(bytes);
    if (history.Skipped > 0) {
        messages.push_back(file + ": " + std::to_string(history.Skipped) +
                           (history.Skipped == 1 ? " line is" : " lines are") + " neither event nor state.");
    }
    std::erase_if(history.Events, [this](const HistoryEvent& event) { return !Gesucht(event, options); });
    if (!history.Events.empty() || !Mit_Filter(options)) {
        Zeigen(file, history);
    }
}

void Ausgabe::Zeigen(const std::string& file, const HistoryFile& history) {
    if (console.Json) {
        files.push_back(
            {{"file", file}, {"lock", NachUtf8(RTrim(history.Serial))}, {"events", Historie_Json(history)}});
    } else if (options.Csv) {
        console.Out << Historie_Csv(file, history);
    } else {
        console.Out << Anzeigetext(file) << ": " << Anzeige_Aus_1252(RTrim(history.Serial)) << "\n"
                    << (history.Events.empty() ? "no events\n" : Historie_Tabelle(history));
    }
}

} // namespace

ExitCode Befehl_Ereignisse(const Umgebung& world, const Console& console, const Optionen& options) {
    std::vector<std::string> files = options.Files;
    if (files.empty()) {
        if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
            return console.Fehlschlag("events", {why});
        }
        files = Alle_Dateien(world);
    }
    Ausgabe output{.world = world, .console = console, .options = options};
    if (files.empty()) {
        output.messages.push_back("There are no history files in " + world.AppPath + "HIST.");
    }
    if (options.Csv) {
        console.Out << Historie_Csv_Kopf();
    }
    for (const std::string& file : files) {
        output.Datei(file, options.Files.empty() ? Datei_Lesen : Eingabe_Lesen);
    }
    console.Out.flush();
    const ExitCode exit = output.whole && console.Out.good() ? ExitCode::Good : ExitCode::Fault;
    for (const std::string& message : output.messages) {
        console.Meldung(message);
    }
    if (console.Json) {
        console.Ergebnis({{"command", "events"},
                          {"ok", exit == ExitCode::Good},
                          {"exit", static_cast<int>(exit)},
                          {"messages", output.messages},
                          {"files", output.files}});
    }
    return exit;
}

} // namespace qvm
