#include "Laufsitzung.h"

#include "AdapterKunde.h"
#include "CodeEingabe.h"
#include "Ergebnis.h"
#include "Programmstart.h"
#include "Seriennummer.h"
#include "TransferWindows.h"
#include "Vorpruefung.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <utility>

namespace qvm {

namespace {

std::string_view Befehlswort(Command command) {
    switch (command) {
    case Command::History:
        return "history";
    case Command::Run:
        return "run";
    default:
        return "program";
    }
}

/// What the command line orders; the code and Ctrl-C are not there yet.
LaufAuftrag Auftrag_Aus(const Optionen& options) {
    return {.HistoryOnly = options.Wanted == Command::History || options.HistoryOnly,
            .HistoryFirst = options.HistoryFirst,
            .Since = options.Since,
            .Keep = options.Keep,
            .Code = {},
            .Device = options.Port,
            .TimeoutSeconds = options.TimeoutSeconds,
            .Interrupts = {}};
}

/// Why a lock of the grid cannot be run; empty when it can.
std::string Hindernis(const Grid& grid, int lock) {
    const std::string& serial = grid.Text(lock, F13Column::Serial);
    if (serial.empty()) {
        return "has no serial number in the lock table";
    }
    return Serie_Zerlegen(serial) ? "" : "has a serial number that is not hexadecimal";
}

} // namespace

Laufsitzung::Laufsitzung(const Umgebung& world, const Console& console, const Optionen& options)
    : program(world.Welt, world.AppPath), Auftrag(Auftrag_Aus(options)), Locks(options.Locks), world_(world),
      console_(console), options_(options), word_(Befehlswort(options.Wanted)), table_(options.Wanted == Command::Run) {
    Auftrag.Interrupts = [this] { return signal_.Anzahl(); };
    if (table_) {
        std::sort(Locks.begin(), Locks.end()); // as the rows of the lock grid stand
    }
}

std::vector<std::string> Laufsitzung::Hindernisse() {
    std::vector<std::string> notes;
    const auto shownBefore = std::exchange(program.kern.Welt.ShowMessage, [&notes](const Message& message) {
        notes.push_back(Anzeige_Aus_1252(message.Text));
        return Answer::Ok;
    });
    program.Transfer->F13.F13_FormLaden();
    program.Transfer->F13.F13_Schliessen();
    program.kern.Welt.ShowMessage = shownBefore;
    std::vector<std::string> messages;
    for (const int lock : options_.Locks) {
        if (const std::string why = Hindernis(program.Transfer->F13.FGK13, lock); !why.empty()) {
            messages.push_back("Lock " + std::to_string(lock) + " " + why + ".");
        }
    }
    if (!messages.empty()) {
        // A table that cannot be read is why a lock has no serial number.
        messages.insert(messages.begin(), notes.begin(), notes.end());
    }
    return messages;
}

std::optional<ExitCode> Laufsitzung::Beginnen() {
    if (const std::string why = world_.Datenverzeichnis_Fehler(); !why.empty()) {
        return console_.Fehlschlag(word_, {why});
    }
    if (const std::string why = Programm_Beginnen(program, world_); !why.empty()) {
        return console_.Fehlschlag(word_, {why});
    }
    if (!Dateien_Vorpruefen(console_, word_, program, options_.Locks, !Auftrag.HistoryOnly, options_.Force)) {
        return ExitCode::Fault;
    }
    if (const auto messages = Hindernisse(); !messages.empty()) {
        return console_.Fehlschlag(word_, messages);
    }
    // Without a path there is no trace.
    if (!options_.Trace.empty() && !trace_.Oeffnen(options_.Trace, world_.Welt.Now())) {
        return console_.Fehlschlag(word_, {"The trace file " + options_.Trace + " cannot be written."});
    }
    const auto interrupted = [this] { return signal_.Anzahl() > 0; };
    if (const std::string why = Code_Holen(options_.CodeFrom, interrupted, Auftrag.Code); !why.empty()) {
        return console_.Fehlschlag(word_, {why});
    }
    Mitschreiben();
    // A list decides by the kind of the adapter which route a lock takes.
    cancelled_ = !Adapter_Kennenlernen(program, console_,
                                       {.Device = options_.Port, .FixedToo = table_, .Interrupts = Auftrag.Interrupts});
    Telegramme = 0;
    return std::nullopt;
}

void Laufsitzung::Mitschreiben() {
    program.link.Protokoll = [this](const TraceFrame& frame) {
        trace_.Schreiben(frame);
        if (frame.Way == TraceFrame::Direction::Sent || frame.Way == TraceFrame::Direction::SentRaw) {
            ++Telegramme;
        }
    };
}

void Laufsitzung::Melden(const LockResult& result) {
    results_.push_back(result);
    trace_.Ablegen();
    if (table_ && console_.Json) {
        console_.Out << Json_Text(Ergebnis_Json(world_, result), -1) << '\n';
        console_.Out.flush();
    } else if (!table_ && !console_.Json) {
        Ergebnis_Text(world_, console_, result, Auftrag.HistoryOnly);
    }
}

ExitCode Laufsitzung::Abschliessen() {
    trace_.Ablegen();
    if (table_ && !console_.Json) {
        for (const LockResult& result : results_) {
            Ergebnis_Text(world_, console_, result, Auftrag.HistoryOnly);
        }
    }
    std::vector<std::string> messages;
    if (!trace_.Vollstaendig()) {
        messages.push_back("The trace file " + options_.Trace + " could not be written whole.");
        console_.Meldung(messages.back());
    }
    const ExitCode exit = Gesamtcode(results_);
    if (console_.Json && !table_) {
        auto locks = nlohmann::ordered_json::array();
        for (const LockResult& result : results_) {
            locks.push_back(Ergebnis_Json(world_, result));
        }
        console_.Ergebnis({{"command", word_},
                           {"ok", exit == ExitCode::Good},
                           {"exit", static_cast<int>(exit)},
                           {"messages", messages},
                           {"locks", locks}});
    }
    return exit;
}

} // namespace qvm
