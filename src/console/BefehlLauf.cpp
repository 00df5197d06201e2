#include "AbbruchSignal.h"
#include "Befehle.h"
#include "CodeEingabe.h"
#include "Ereignisse.h"
#include "Schlosslauf.h"
#include "Text.h"
#include "TraceDatei.h"

#include <algorithm>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

std::string_view Befehlswort(bool historyOnly) {
    return historyOnly ? "history" : "program";
}

std::string_view Unit_Wort(const LockResult::Unit& unit) {
    switch (unit.End) {
    case UnitReport::State::Done:
        return "done";
    case UnitReport::State::Failed:
        return unit.Refused ? "refused" : "failed";
    case UnitReport::State::Untried:
        break;
    }
    return "untried";
}

HistoryFile Historie_Datei(const Umgebung& world, const std::string& path) {
    std::string bytes;
    if (path.empty() || world.Welt.Files.ReadAll(path, bytes) != ReadStatus::Ok) {
        return {};
    }
    return Historie_Lesen(bytes);
}

Json Ergebnis_Json(const Umgebung& world, const LockResult& result) {
    Json json{{"lock", result.Lock},
              {"name", result.Name},
              {"serial", result.Serial},
              {"result", Ende_Wort(result.End)},
              {"exit", static_cast<int>(Ende_Code(result))},
              {"text", result.Text},
              {"faults", result.Faults},
              {"messages", result.Messages},
              {"telegrams", result.Telegrams},
              {"seconds", result.Seconds}};
    Json units = Json::array();
    for (const LockResult::Unit& unit : result.Units) {
        units.push_back({{"name", unit.Name}, {"result", Unit_Wort(unit)}, {"note", unit.Note}});
    }
    json["units"] = units;
    if (!result.HistoryFile.empty()) {
        json["historyFile"] = result.HistoryFile;
        json["events"] = Historie_Json(Historie_Datei(world, result.HistoryFile));
    }
    return json;
}

void Ergebnis_Text(const Umgebung& world, const Console& console, const LockResult& result, bool historyOnly) {
    std::ostream& out = console.Out;
    out << "Lock " << result.Lock << " \"" << result.Name << "\" " << result.Serial << ": "
        << Ende_Text(result.End, historyOnly);
    if (result.Telegrams > 0) {
        out << ", " << result.Telegrams << (result.Telegrams == 1 ? " telegram in " : " telegrams in ") << std::fixed
            << std::setprecision(1) << result.Seconds << " s";
    }
    out << (result.Text.empty() ? "" : ": ") << result.Text << "\n";
    for (const std::string& fault : result.Faults) {
        out << "  " << fault << "\n";
    }
    for (const LockResult::Unit& unit : result.Units) {
        out << "  unit \"" << unit.Name << "\": " << Unit_Wort(unit) << (unit.Note.empty() ? "" : ", ") << unit.Note
            << "\n";
    }
    if (!result.HistoryFile.empty()) {
        out << "  history: " << Anzeigetext(result.HistoryFile) << "\n";
        if (historyOnly) {
            out << Historie_Tabelle(Historie_Datei(world, result.HistoryFile));
        }
    } else if (historyOnly && result.End == LockEnd::Done && result.Faults.empty()) {
        out << "  the lock's history is empty\n";
    }
    out.flush();
}

ExitCode Gesamtcode(const std::vector<LockResult>& results) {
    const ExitCode first = Ende_Code(results.front());
    const bool same = std::all_of(results.begin(), results.end(),
                                  [first](const LockResult& result) { return Ende_Code(result) == first; });
    return same ? first : ExitCode::SomeFailed;
}

LaufAuftrag Auftrag(const Optionen& options) {
    return {.HistoryOnly = options.Wanted == Command::History,
            .HistoryFirst = options.HistoryFirst,
            .Since = options.Since,
            .Keep = options.Keep,
            .Code = {},
            .TimeoutSeconds = options.TimeoutSeconds,
            .Interrupts = {}};
}

/// A message for each lock that cannot be run.
std::vector<std::string> Hindernisse(const Schlosslauf& runner, const std::vector<int>& locks) {
    std::vector<std::string> messages;
    for (const int lock : locks) {
        if (const std::string why = runner.Hindernis(lock); !why.empty()) {
            messages.push_back("Lock " + std::to_string(lock) + " " + why + ".");
        }
    }
    return messages;
}

std::string Trace_Fehler(const std::string& path) {
    return "The trace file " + path + " cannot be written.";
}

/// Works the locks off, reports each, and gives the exit code of all.
ExitCode Abarbeiten(const Umgebung& world, const Console& console, const Optionen& options, Schlosslauf& runner,
                    TraceDatei& trace) {
    const bool historyOnly = options.Wanted == Command::History;
    Json list = Json::array();
    std::vector<LockResult> results;
    for (const int lock : options.Locks) {
        results.push_back(runner.Abgebrochen() ? runner.Beschreiben(lock) : runner.Ausfuehren(lock));
        trace.Ablegen();
        if (console.Json) {
            list.push_back(Ergebnis_Json(world, results.back()));
        } else {
            Ergebnis_Text(world, console, results.back(), historyOnly);
        }
    }
    const ExitCode exit = Gesamtcode(results);
    Json messages = Json::array();
    if (!trace.Vollstaendig()) {
        messages.push_back("The trace file " + options.Trace + " could not be written whole.");
        console.Meldung(messages.back().get<std::string>());
    }
    if (console.Json) {
        console.Ergebnis({{"command", Befehlswort(historyOnly)},
                          {"ok", exit == ExitCode::Good},
                          {"exit", static_cast<int>(exit)},
                          {"messages", messages},
                          {"locks", list}});
    }
    return exit;
}

} // namespace

ExitCode Befehl_Lauf(const Umgebung& world, const Console& console, const Optionen& options) {
    const std::string_view word = Befehlswort(options.Wanted == Command::History);
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag(word, {why});
    }
    AbbruchSignal signal;
    Programm program(world.Welt, world.AppPath);
    if (Programm_Start(program, false) == StartResult::NoDirectory) {
        return console.Fehlschlag(word, {"The directories DAT and HIST cannot be made in " + world.AppPath + "."});
    }
    Port_Waehlen(program, !options.Port.empty());
    Fortschritt progress(console);
    LaufAuftrag order = Auftrag(options);
    order.Interrupts = [&signal] { return signal.Anzahl(); };
    Schlosslauf runner(program, order, progress);
    TraceDatei trace;
    if (const auto messages = Hindernisse(runner, options.Locks); !messages.empty()) {
        return console.Fehlschlag(word, messages);
    }
    // Without a path there is no trace.
    if (!options.Trace.empty() && !trace.Oeffnen(options.Trace, world.Welt.Now())) {
        return console.Fehlschlag(word, {Trace_Fehler(options.Trace)});
    }
    if (const std::string why = Code_Holen(
            options.CodeFrom, [&signal] { return signal.Anzahl() > 0; }, order.Code);
        !why.empty()) {
        return console.Fehlschlag(word, {why});
    }
    program.link.Protokoll = [&](const TraceFrame& frame) {
        trace.Schreiben(frame);
        if (frame.Way == TraceFrame::Direction::Sent || frame.Way == TraceFrame::Direction::SentRaw) {
            runner.Gesendet();
        }
    };
    return Abarbeiten(world, console, options, runner, trace);
}

} // namespace qvm
