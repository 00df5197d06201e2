#include "Netzzeile.h"

#include "AdapterKunde.h"
#include "RunProgress.h"
#include "Takt.h"
#include "Text.h"
#include "TransferWindows.h"

namespace qvm {

namespace {

std::string Grund(const Programm& program, const LaufAuftrag& order, const RowResult& row, LockEnd end) {
    if (end == LockEnd::Done) {
        return {};
    }
    if (end == LockEnd::Silent) {
        if (const std::string lost = program.kern.Welt.Port.LastError(); !lost.empty()) {
            return Anzeigetext(lost); // the port's own words, UTF-8
        }
        return order.TimeoutSeconds > 0 && program.Transfer->F91.Arbeit() == F91::Work::Direct
                   ? "no answer for " + std::to_string(order.TimeoutSeconds) + " s"
                   : "no answer from the network adapter";
    }
    const SerialPort& port = program.kern.Welt.Port;
    const PortFault fault = port.LastFault ? port.LastFault() : PortFault();
    const bool held = fault.What == PortFault::Kind::Held || fault.What == PortFault::Kind::HeldByService;
    if (end == LockEnd::Fault && !row.Skipped && held) {
        return Anzeige_Aus_1252(PortFault_Text(program.kern, fault));
    }
    return Anzeige_Aus_1252(row.Text);
}

} // namespace

void Zeile_Uebernehmen(const Programm& program, const LaufAuftrag& order, int row, LockResult& result) {
    const F91::Work work = program.Transfer->F91.Arbeit();
    const bool network = work == F91::Work::Network;
    const RowResult& end = program.Transfer->F91.Ergebnis(row);
    result.End = end.Silent ? LockEnd::Silent
                            : Ende_Des_Laufs(end.End, network ? program.link.Lauf.Chain.HistoryLost
                                                              : program.Run.Bericht.HistoryLost);
    result.Text = Grund(program, order, end, result.End);
    result.Faults.clear();
    if (work == F91::Work::None) {
        return;
    }
    result.Units.clear();
    Bericht_Uebernehmen(program, network ? RunReport() : program.Run.Bericht, order.HistoryOnly || network,
                        order.HistoryOnly || order.HistoryFirst, result);
    if (network) {
        result.HistoryLost = program.link.Lauf.Chain.HistoryLost;
        if (result.HistoryLost == HistoryLoss::Unwritten) {
            result.Faults.emplace_back("the history could not be written");
        }
    }
}

bool Netzzeile_Stumm(const Programm& program, const LaufAuftrag& order) {
    return order.TimeoutSeconds > 0 && program.Transfer->F91.Steht &&
           Net_Stille(program.Netz) >= std::int64_t{1000} * order.TimeoutSeconds;
}

Netzzeile::Netzzeile(Programm& program, const LaufAuftrag& order, Fortschritt& progress, LockResult& result,
                     Bedienung& user)
    : program_(program), order_(order), progress_(progress), result_(result), operator_(user),
      watch_(program.kern.Welt, WatchMs) {
    program_.Transfer->F91.Zeile_Beginnt = [this](int) { result_.Route = "network"; };
    program_.Transfer->F91.Zeile_Fertig = [this](int row) { Zeile_Uebernehmen(program_, order_, row, result_); };
    program_.Transfer->F91.Hinweis.Text.Changed = [this] {
        if (const std::string& text = program_.Transfer->F91.Hinweis.Text(); !text.empty()) {
            progress_.Meldung(Anzeige_Aus_1252(text));
        }
    };
    program_.Adapter.Suche_Zeigen = [this](const SuchSchritt& step) {
        progress_.Meldung(Suchzeile(step, order_.Device));
    };
    watch_.Ticked = [this] {
        if (program_.Transfer->F91.Laeuft()) { // not a run that goes out directly
            Tick();
        }
    };
    watch_.Start();
}

Netzzeile::~Netzzeile() {
    program_.Transfer->F91.Zeile_Beginnt = {};
    program_.Transfer->F91.Zeile_Fertig = {};
    program_.Transfer->F91.Hinweis.Text.Changed = {};
    program_.Adapter.Suche_Zeigen = {};
    if (program_.Transfer->F91.Fenster.Visible) {
        program_.Transfer->F91.F91_Schliessen();
    }
}

void Netzzeile::Abwarten() {
    while (program_.Transfer->F91.Laeuft()) {
        program_.kern.Welt.ProcessEvents();
    }
    watch_.Stop();
}

void Netzzeile::Tick() {
    const F91& list = program_.Transfer->F91;
    progress_.Zeigen(Prozent(list.Balken.Value, list.Balken.Maximum), Anzeige_Aus_1252(list.StatusLabel.Text()));
    if (operator_.Unterbrochen()) {
        progress_.Meldung("Cancelled; what the network adapter has by now it may still carry out.");
        result_.End = LockEnd::Cancelled; // unless the row has begun and says it itself
        program_.Transfer->F91.Command2_Click();
    } else if (Netzzeile_Stumm(program_, order_)) {
        progress_.Meldung("No answer from the network adapter; the run is given up.");
        program_.Transfer->F91.Zeile_Aufgeben();
    }
}

} // namespace qvm
