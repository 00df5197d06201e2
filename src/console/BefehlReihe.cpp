#include "AbbruchSignal.h"
#include "AdapterScan.h"
#include "AutoRegister.h"
#include "Befehle.h"
#include "CodeEingabe.h"
#include "Ergebnis.h"
#include "Reihenlauf.h"
#include "TraceDatei.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>

namespace qvm {

namespace {

constexpr std::string_view Word = "run";

/// Which adapters there are, as a row may go through one of them. Nothing of it is saved.
void Adapter_Kennenlernen(Programm& program, bool deviceNamed) {
    Konfiguration& config = program.kern.Config;
    if (deviceNamed || !config.AdapterModus()) {
        Port_Waehlen(program, deviceNamed);
        config.PortNummer = program.link.PortNummer;
    } else {
        Ports_Ermitteln(program.kern, program.Adapter);
    }
    Adapter_Suchen(program.link, program.Adapter);
    if (config.PortAutomatik == "RESET") {
        program.link.PortNummer = config.PortNummer;
    }
}

LaufAuftrag Auftrag(const Optionen& options) {
    return {.HistoryOnly = options.HistoryOnly,
            .HistoryFirst = options.HistoryFirst,
            .Since = options.Since,
            .Keep = options.Keep,
            .Code = {},
            .TimeoutSeconds = options.TimeoutSeconds,
            .Interrupts = {}};
}

/// A message for each lock that cannot be run.
std::vector<std::string> Hindernisse(Programm& program, const std::vector<int>& locks) {
    program.F13.TuerInfo_laden();
    std::vector<std::string> messages;
    for (const int lock : locks) {
        if (program.F13.FGK13.Text(lock, F13Column::Serial).empty()) {
            messages.push_back("Lock " + std::to_string(lock) + " has no serial number in the lock table.");
        }
    }
    return messages;
}

/// One document a line, so that a reader can follow the list.
void Zeile_Ausgeben(const Umgebung& world, const Console& console, const Reihenlauf& runner, const LockResult& result) {
    nlohmann::ordered_json json = Ergebnis_Json(world, result);
    json["route"] = runner.Weg(result.Lock);
    console.Out << json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    console.Out.flush();
}

ExitCode Abarbeiten(const Umgebung& world, const Console& console, const Optionen& options, Reihenlauf& runner,
                    TraceDatei& trace) {
    const auto results = runner.Ausfuehren(options.Locks, [&](const LockResult& result) {
        trace.Ablegen();
        if (console.Json) {
            Zeile_Ausgeben(world, console, runner, result);
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
        return console.Fehlschlag(Word, {why});
    }
    AbbruchSignal signal;
    Programm program(world.Welt, world.AppPath);
    if (Programm_Start(program, false) == StartResult::NoDirectory) {
        return console.Fehlschlag(Word, {"The directories DAT and HIST cannot be made in " + world.AppPath + "."});
    }
    if (const auto messages = Hindernisse(program, options.Locks); !messages.empty()) {
        return console.Fehlschlag(Word, messages);
    }
    LaufAuftrag order = Auftrag(options);
    order.Interrupts = [&signal] { return signal.Anzahl(); };
    TraceDatei trace;
    if (!options.Trace.empty() && !trace.Oeffnen(options.Trace, world.Welt.Now())) {
        return console.Fehlschlag(Word, {"The trace file " + options.Trace + " cannot be written."});
    }
    if (const std::string why = Code_Holen(
            options.CodeFrom, [&signal] { return signal.Anzahl() > 0; }, order.Code);
        !why.empty()) {
        return console.Fehlschlag(Word, {why});
    }
    program.link.Protokoll = [&trace](const TraceFrame& frame) { trace.Schreiben(frame); };
    Adapter_Kennenlernen(program, !options.Port.empty());
    Tafel table(console);
    Reihenlauf runner(program, order, options.At, table);
    program.link.Protokoll = [&](const TraceFrame& frame) {
        trace.Schreiben(frame);
        if (frame.Way == TraceFrame::Direction::Sent || frame.Way == TraceFrame::Direction::SentRaw) {
            runner.Gesendet();
        }
    };
    return Abarbeiten(world, console, options, runner, trace);
}

} // namespace qvm
