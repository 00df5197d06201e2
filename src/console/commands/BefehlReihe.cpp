#include "AbbruchSignal.h"
#include "AdapterKunde.h"
#include "Befehle.h"
#include "CodeEingabe.h"
#include "Ergebnis.h"
#include "Reihenlauf.h"
#include "TraceDatei.h"
#include "TransferWindows.h"
#include "Vorpruefung.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

namespace {

constexpr std::string_view RunWord = "run";

LaufAuftrag Listenauftrag(const Optionen& options) {
    return {.HistoryOnly = options.HistoryOnly,
            .HistoryFirst = options.HistoryFirst,
            .Since = options.Since,
            .Keep = options.Keep,
            .Code = {},
            .Device = options.Port,
            .TimeoutSeconds = options.TimeoutSeconds,
            .Interrupts = {}};
}

/// A message for each lock that cannot be run.
std::vector<std::string> Hindernisse(Programm& program, const std::vector<int>& locks) {
    program.Transfer->F13.TuerInfo_laden();
    std::vector<std::string> messages;
    for (const int lock : locks) {
        if (program.Transfer->F13.FGK13.Text(lock, F13Column::Serial).empty()) {
            messages.push_back("Lock " + std::to_string(lock) + " has no serial number in the lock table.");
        }
    }
    return messages;
}

/// One document a line, so that a reader can follow the list.
void Zeile_Ausgeben(const Umgebung& world, const Console& console, const LockResult& result) {
    console.Out << Json_Text(Ergebnis_Json(world, result), -1) << '\n';
    console.Out.flush();
}

std::vector<LockResult> Unversucht(const Programm& program, std::vector<int> locks) {
    std::sort(locks.begin(), locks.end());
    std::vector<LockResult> results;
    std::transform(locks.begin(), locks.end(), std::back_inserter(results),
                   [&program](int lock) { return Schloss_Beschreiben(program, lock); });
    return results;
}

/// The rows as they end, from `work`; then the report and the exit code of all.
ExitCode
Liste_Abarbeiten(const Umgebung& world, const Console& console, const Optionen& options, TraceDatei& trace,
                 const std::function<std::vector<LockResult>(const std::function<void(const LockResult&)>&)>& work) {
    const auto results = work([&](const LockResult& result) {
        trace.Ablegen();
        if (console.Json) {
            Zeile_Ausgeben(world, console, result);
        }
    });
    trace.Ablegen();
    if (!console.Json) {
        for (const LockResult& result : results) {
            Ergebnis_Text(world, console, result, options.HistoryOnly);
        }
    }
    if (!trace.Vollstaendig()) {
        console.Meldung("The trace file " + options.Trace + " could not be written whole.");
    }
    return Gesamtcode(results);
}

} // namespace

ExitCode Befehl_Reihe(const Umgebung& world, const Console& console, const Optionen& options) {
    if (const std::string why = world.Datenverzeichnis_Fehler(); !why.empty()) {
        return console.Fehlschlag(RunWord, {why});
    }
    AbbruchSignal signal;
    Programm program(world.Welt, world.AppPath);
    if (const std::string why = Programm_Beginnen(program, world); !why.empty()) {
        return console.Fehlschlag(RunWord, {why});
    }
    if (!Dateien_Vorpruefen(console, RunWord, program, options.Locks, !options.HistoryOnly, options.Force)) {
        return ExitCode::Fault;
    }
    if (const auto messages = Hindernisse(program, options.Locks); !messages.empty()) {
        return console.Fehlschlag(RunWord, messages);
    }
    LaufAuftrag order = Listenauftrag(options);
    order.Interrupts = [&signal] { return signal.Anzahl(); };
    TraceDatei trace;
    if (!options.Trace.empty() && !trace.Oeffnen(options.Trace, world.Welt.Now())) {
        return console.Fehlschlag(RunWord, {"The trace file " + options.Trace + " cannot be written."});
    }
    if (const std::string why = Code_Holen(
            options.CodeFrom, [&signal] { return signal.Anzahl() > 0; }, order.Code);
        !why.empty()) {
        return console.Fehlschlag(RunWord, {why});
    }
    program.link.Protokoll = [&trace](const TraceFrame& frame) { trace.Schreiben(frame); };
    if (!Adapter_Kennenlernen(program, console,
                              {.Device = options.Port, .FixedToo = true, .Interrupts = order.Interrupts})) {
        return Liste_Abarbeiten(world, console, options, trace, [&](const auto& tell) {
            std::vector<LockResult> results = Unversucht(program, options.Locks);
            std::for_each(results.begin(), results.end(), tell);
            return results;
        });
    }
    Tafel table(console);
    Reihenlauf runner(program, order, options.At, table);
    program.link.Protokoll = [&](const TraceFrame& frame) {
        trace.Schreiben(frame);
        if (frame.Way == TraceFrame::Direction::Sent || frame.Way == TraceFrame::Direction::SentRaw) {
            runner.Gesendet();
        }
    };
    return Liste_Abarbeiten(world, console, options, trace,
                            [&](const auto& tell) { return runner.Ausfuehren(options.Locks, tell); });
}

} // namespace qvm
