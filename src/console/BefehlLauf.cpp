#include "AbbruchSignal.h"
#include "Befehle.h"
#include "CodeEingabe.h"
#include "Ereignisse.h"
#include "Schlosslauf.h"
#include "Text.h"
#include "TraceDatei.h"

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

std::string_view Unit_Wort(UnitReport::State state) {
    return state == UnitReport::State::Done ? "done" : state == UnitReport::State::Failed ? "failed" : "untried";
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
              {"messages", result.Messages},
              {"telegrams", result.Telegrams},
              {"seconds", result.Seconds}};
    Json units = Json::array();
    for (const LockResult::Unit& unit : result.Units) {
        units.push_back({{"name", unit.Name}, {"result", Unit_Wort(unit.End)}, {"note", unit.Note}});
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
    for (const LockResult::Unit& unit : result.Units) {
        out << "  unit \"" << unit.Name << "\": " << Unit_Wort(unit.End) << (unit.Note.empty() ? "" : ", ") << unit.Note
            << "\n";
    }
    if (!result.HistoryFile.empty()) {
        out << "  history: " << Anzeigetext(result.HistoryFile) << "\n";
        if (historyOnly) {
            out << Historie_Tabelle(Historie_Datei(world, result.HistoryFile));
        }
    } else if (historyOnly && result.End == LockEnd::Done) {
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

std::vector<LockResult> Abarbeiten(Schlosslauf& runner, const std::vector<int>& locks,
                                   const std::function<void(const LockResult&)>& done) {
    std::vector<LockResult> results;
    for (const int lock : locks) {
        results.push_back(runner.Abgebrochen() ? runner.Beschreiben(lock) : runner.Ausfuehren(lock));
        done(results.back());
    }
    return results;
}

} // namespace

ExitCode Befehl_Lauf(const Umgebung& world, const Console& console, const Optionen& options) {
    AbbruchSignal signal;
    const bool historyOnly = options.Wanted == Command::History;
    Programm program(world.Welt, world.AppPath);
    if (Programm_Start(program, false) == StartResult::NoDirectory) {
        console.Meldung("The directories DAT and HIST cannot be made in " + world.AppPath);
        return ExitCode::Fault;
    }
    Port_Waehlen(program, !options.Port.empty());
    Fortschritt progress(console);
    LaufAuftrag order{.HistoryOnly = historyOnly,
                      .HistoryFirst = options.HistoryFirst,
                      .Since = options.Since,
                      .Keep = options.Keep,
                      .Code = {},
                      .TimeoutSeconds = options.TimeoutSeconds,
                      .Interrupts = [&signal] { return signal.Anzahl(); }};
    Schlosslauf runner(program, order, progress);
    bool possible = true;
    for (const int lock : options.Locks) {
        if (const std::string why = runner.Hindernis(lock); !why.empty()) {
            console.Meldung("Lock " + std::to_string(lock) + " " + why + ".");
            possible = false;
        }
    }
    TraceDatei trace;
    if (possible && !options.Trace.empty() && !trace.Oeffnen(options.Trace, world.Welt.Now())) {
        console.Meldung("The trace file " + options.Trace + " cannot be written.");
        possible = false;
    }
    if (!possible) {
        return ExitCode::Fault;
    }
    const auto code = Code_Holen(world, console, options.CodeFrom, [&signal] { return signal.Anzahl() > 0; });
    if (!code) {
        return ExitCode::Fault;
    }
    order.Code = *code;
    program.link.Protokoll = [&](const TraceFrame& frame) {
        trace.Schreiben(frame);
        if (frame.Way == TraceFrame::Direction::Sent || frame.Way == TraceFrame::Direction::SentRaw) {
            runner.Gesendet();
        }
    };
    const auto results = Abarbeiten(runner, options.Locks, [&](const LockResult& result) {
        if (!console.Json) {
            Ergebnis_Text(world, console, result, historyOnly);
        }
    });
    const ExitCode exit = Gesamtcode(results);
    if (console.Json) {
        Json list = Json::array();
        for (const LockResult& result : results) {
            list.push_back(Ergebnis_Json(world, result));
        }
        console.Ergebnis({{"command", historyOnly ? "history" : "program"},
                          {"ok", exit == ExitCode::Good},
                          {"exit", static_cast<int>(exit)},
                          {"locks", list}});
    }
    return exit;
}

} // namespace qvm
