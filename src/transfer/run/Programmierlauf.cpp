#include "Programmierlauf.h"

#include "Antwort_Verteilen.h"
#include "Laufschritte.h"
#include "Modelle.h"
#include "PortFault.h"
#include "RunProgress.h"
#include "Schlosszeile.h"
#include "Seriennummer.h"
#include "Words.h"

#include <utility>

namespace qvm {
namespace {

/// Milliseconds, until a step sets others.
constexpr int BarMs = 500, PollMs = 1000, ChannelMs = 20, NextUnitMs = 900, UnitChannelMs = 500;

} // namespace

Programmierlauf::Programmierlauf(Link& serialLink)
    : link(serialLink), kern(serialLink.kern), Timer6(kern.Welt, BarMs), Timer7(kern.Welt, PollMs),
      Timer8(kern.Welt, ChannelMs), Timer9(kern.Welt, NextUnitMs), Timer11(kern.Welt, UnitChannelMs) {
    Timer6.Ticked = [this] {
        int& second = link.Lauf.Progress.SecondProgress;
        second = second + 4 > 27 ? 0 : second + 4;
        Ansicht.Fortschritt();
    };
    Timer7.Ticked = [this] { Tick_Timer7(*this); };
    Timer8.Ticked = [this] {
        Timer8.Stop();
        TelKanalSetzen_Senden(link, kern.Config.Funkkanal());
    };
    Timer9.Ticked = [this] { Tick_Timer9(*this); };
    Timer11.Ticked = [this] { Tick_Timer11(*this); };
    link.Hooks.Telegramm_Geht = [this] {
        if (!Gesamtende && !Cancelled) {
            Konto_Gesendet(Konto, link.TxBuffer, link.Lauf);
        }
    };
    link.Hooks.Fortschritt = [this] { Ansicht.Fortschritt(); };
    link.Hooks.Antwort_Gekommen = [this] { return Antwort_Verteilen(*this); };
}

void Lauf_Ruecksetzen(Programmierlauf& run) {
    run.link.Lauf.Chain = {};
    run.link.DeviceClassByte = 0x11;
    run.link.AddressMode = 0;
    run.Bericht = {};
    run.Cancelled = false;
    run.Gesamtende = true;
}

void Lauf_Timer_Ruecksetzen(Programmierlauf& run) {
    for (const auto& [timer, interval] : {std::pair{&run.Timer7, PollMs}, std::pair{&run.Timer8, ChannelMs},
                                          std::pair{&run.Timer9, NextUnitMs}, std::pair{&run.Timer11, UnitChannelMs}}) {
        timer->Stop();
        timer->SetInterval(interval);
    }
}

std::optional<RunOrder> Lauf_Auftrag(RunOrder wish, const LockRow& lock, const Dataset& dataset) {
    const auto address = Serie_Zerlegen(lock.Serial);
    if (!address) {
        return std::nullopt;
    }
    wish.LockAddress = *address;
    wish.LockNumber = lock.Number;
    wish.LockName = lock.Name;
    wish.SerialValue = Serie_Zahl(*address);
    wish.TwoPasses =
        wish.What != RunTask::HistoryOnly && BereichZweiDurchgaenge(wish.SerialValue) && dataset.AnyTransponder;
    if (dataset.AnyFinger) {
        wish.EraseOption = 0;
    }
    return wish;
}

void Lauf_Vorbereiten(Programmierlauf& run, const RunOrder& order) {
    RunState& lauf = run.link.Lauf;
    lauf.Order = order;
    lauf.Values = run.Daten.Values;
    lauf.Chain = {};
    lauf.Chain.HistoryOnly = order.What == RunTask::HistoryOnly ? 1 : 0;
    lauf.Chain.ReadHistoryFirst = order.What == RunTask::HistoryFirst ? 1 : 0;
    lauf.Chain.TwoPassFlag = order.TwoPasses ? 1 : 0;
    lauf.Chain.KanalSuche = order.Search ? 1 : 0;
    run.link.TargetAddress = order.LockAddress;
    run.link.TargetChannel = order.TargetChannel;
}

void Lauf_Beginnen(Programmierlauf& run, const RunOrder& order) {
    Lauf_Vorbereiten(run, order);
    run.Bericht = {};
    run.Cancelled = false;
    run.Gesamtende = false;
    run.UnitGood = run.UnitRepeated = run.BlockRefused = run.Waiting = false;
    ++run.RunNumber;
    RunState& lauf = run.link.Lauf;
    lauf.Chain.Phase = RunPhase::Open;
    lauf.Chain.LastAnswer = run.kern.Welt.Milliseconds();
    run.link.AddressMode = 0;
    run.link.Rx.Ruecksetzen();
    run.Konto = Konto_Anlegen(lauf, run.Daten);
    Lauf_Tempo_Neu(run);
    if (!TelVerbinden_Senden(run.link)) {
        const std::string text = run.kern.Zeile(Line::PortNotOpened);
        run.Ansicht.Wartebox_Schliessen();
        if (Zeile_Fehlgeschlagen(run, RunOutcome::NoPort, text)) {
            return;
        }
        const SerialPort& port = run.kern.Welt.Port;
        const std::string reason = PortFault_Text(run.kern, port.LastFault ? port.LastFault() : PortFault());
        Lauf_Beenden(run, RunOutcome::NoPort, reason.empty() ? text : reason);
        run.Ansicht.Fertig(0);
    }
}

void Lauf_Abbrechen(Programmierlauf& run) {
    if (!run.Gesamtende) {
        run.link.Lauf.Chain.AbbruchWunsch = 1;
    }
}

namespace {

/// Whatever the run still waits for does not come any more.
void Warten_Beenden(Programmierlauf& run, RunOutcome outcome, std::string_view text) {
    run.Ansicht.Wartebox_Schliessen();
    Zum_Schloss_Zurueck(run);
    run.link.Lauf.Chain.UnitModus = 0;
    Lauf_Beenden(run, outcome, text);
}

} // namespace

void Lauf_Aufgeben(Programmierlauf& run, RunOutcome outcome) {
    Schritt_Abbruch(run);
    run.kern.Welt.Port.Close();
    Warten_Beenden(run, outcome, run.kern.Zeile(Line::Cancelled));
}

void Lauf_Verlassen(Programmierlauf& run, RunOutcome outcome, std::string_view text) {
    // Only a cancel by the operator ends the list with its row.
    if (outcome == RunOutcome::Cancelled) {
        Schritt_Abbruch(run);
    } else {
        Kette_Abbrechen(run);
    }
    if (run.kern.Welt.Port.IsOpen()) {
        Sitzung_Schliessen(run);
    }
    Warten_Beenden(run, outcome, text);
}

std::string Lauf_Schloss(const Programmierlauf& run) {
    return Schloss_Zeile(run.kern, run.link.Lauf.Order.LockNumber, run.link.Lauf.Order.LockName);
}

bool Lauf_Ohne_Adapter(const Programmierlauf& run) {
    return !run.Gesamtende && !run.kern.Welt.Port.IsOpen();
}

bool Lauf_Abgebrochen(const Programmierlauf& run) {
    return run.Cancelled || run.link.Lauf.Chain.AbbruchWunsch != 0;
}

bool Lauf_Wartet(const Programmierlauf& run) {
    return run.Waiting || run.Timer7.Running() || run.Timer8.Running() || run.Timer9.Running() || run.Timer11.Running();
}

std::int64_t Lauf_Stille(const Programmierlauf& run) {
    // A lock that is polled may be silent for good.
    const bool own = Lauf_Wartet(run) && !run.Timer7.Running();
    return run.Gesamtende || own ? 0 : run.kern.Welt.Milliseconds() - run.link.Lauf.Chain.LastAnswer;
}

} // namespace qvm
