#include "AbbruchSignal.h"
#include "AdapterKunde.h"
#include "Befehle.h"
#include "CodeEingabe.h"
#include "Ergebnis.h"
#include "Schlosslauf.h"
#include "Text.h"
#include "TraceDatei.h"
#include "TransferWindows.h"
#include "Vorpruefung.h"

#include <functional>
#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

std::string_view Befehlswort(bool historyOnly) {
    return historyOnly ? "history" : "program";
}

LaufAuftrag Auftrag(const Optionen& options) {
    return {.HistoryOnly = options.Wanted == Command::History,
            .HistoryFirst = options.HistoryFirst,
            .Since = options.Since,
            .Keep = options.Keep,
            .Code = {},
            .Device = options.Port,
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

/// Works the locks off by `run`, reports each, and gives the exit code of all.
ExitCode Abarbeiten(const Umgebung& world, const Console& console, const Optionen& options, TraceDatei& trace,
                    const std::function<LockResult(int lock)>& run) {
    const bool historyOnly = options.Wanted == Command::History;
    Json list = Json::array();
    std::vector<LockResult> results;
    for (const int lock : options.Locks) {
        results.push_back(run(lock));
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
    if (const std::string why = Programm_Beginnen(program, world); !why.empty()) {
        return console.Fehlschlag(word, {why});
    }
    if (!Dateien_Vorpruefen(console, word, program, options.Locks, options.Wanted == Command::Program, options.Force)) {
        return ExitCode::Fault;
    }
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
    program.link.Protokoll = [&](const TraceFrame& frame) { trace.Schreiben(frame); };
    const bool known = Adapter_Kennenlernen(
        program, console, {.Device = options.Port, .FixedToo = false, .Interrupts = order.Interrupts});
    // With what the search has found.
    program.Transfer->F13.Adapter_Spalten_Laden();
    program.link.Protokoll = [&](const TraceFrame& frame) {
        trace.Schreiben(frame);
        if (frame.Way == TraceFrame::Direction::Sent || frame.Way == TraceFrame::Direction::SentRaw) {
            runner.Gesendet();
        }
    };
    return Abarbeiten(world, console, options, trace, [&](int lock) {
        return known && !runner.Abgebrochen() ? runner.Ausfuehren(lock) : Schloss_Beschreiben(program, lock);
    });
}

} // namespace qvm
