#include "Programmierlauf.h"

#include "Antwort_Verteilen.h"
#include "Laufschritte.h"
#include "Modelle.h"
#include "PortFault.h"
#include "RunProgress.h"
#include "Schlosszeile.h"
#include "Seriennummer.h"
#include "Words.h"

#include <Lines.h>
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
        Rufen(Ansicht.Fortschritt);
    };
    Timer7.Ticked = [this] { Tick_Timer7(*this); };
    Timer8.Ticked = [this] {
        Timer8.Stop();
        TelKanalSetzen_Senden(link, kern.Config.Funkkanal());
    };
    Timer9.Ticked = [this] { Tick_Timer9(*this); };
    Timer11.Ticked = [this] { Tick_Timer11(*this); };
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
        Rufen(run.Ansicht.Wartebox_Schliessen);
        if (Zeile_Fehlgeschlagen(run, RunOutcome::NoPort, text)) {
            return;
        }
        const SerialPort& port = run.kern.Welt.Port;
        const std::string reason = PortFault_Text(run.kern, port.LastFault ? port.LastFault() : PortFault());
        Lauf_Beenden(run, RunOutcome::NoPort, reason.empty() ? text : reason);
        Ende_Zeigen(run);
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
    Rufen(run.Ansicht.Wartebox_Schliessen);
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
        Sitzung_Schliessen(run.link);
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

namespace {

/// A hook that runs one step.
std::function<void()> Haken(Programmierlauf& run, void (*step)(Programmierlauf&)) {
    return [&run, step] { step(run); };
}

AccountReply Antwort_Lesen(const Link& link) {
    constexpr std::uint8_t login = 0x04, block = 0x4A;
    const std::uint8_t code = link.RxByte(2);
    return {.Code = code,
            .Leads = Antwort_Fuehrt_Weiter(link),
            .Accepted = code == login ? Anmeldung_Angenommen(link) : code != block || Block_Angenommen(link.RxByte(14)),
            .Slot = link.RxByte(14) * 256 + link.RxByte(15)};
}

/// The hooks from the end of a lock on, and all refusals.
void Ende_Haken_Setzen(Programmierlauf& run, LinkHooks& hooks) {
    hooks.Daten_Schluss = Haken(run, Schritt_Daten_Schluss);
    hooks.Zweiter_Durchgang = Haken(run, Schritt_Zweiter_Durchgang);
    hooks.Schloss_Ende = Haken(run, Schritt_Schloss_Ende);
    hooks.Kanalwechsel_Ende = [&run] {
        run.kern.Meldung(run.kern.Zeile(Line::NewCodeAccepted), Buttons::Ok, Icon::Information);
    };
    hooks.Abbruch = Haken(run, Schritt_Abbruch);

    hooks.Unit_Fertig = Haken(run, Schritt_Unit_Fertig);
    hooks.Unit_Getrennt = Haken(run, Schritt_Unit_Getrennt);
    hooks.Unit_Bloecke_Start = Haken(run, Schritt_Unit_Bloecke_Start);
    hooks.Unit_Block_Quittung = Haken(run, Schritt_Unit_Block_Quittung);

    hooks.Code_Ergebnis = Haken(run, Schritt_Code_Ergebnis);

    hooks.Unit_Datenstart_Wiederholen = Haken(run, Schritt_Unit_Datenstart_Wiederholen);
    hooks.Unit_Naechster_Kanal = Haken(run, Schritt_Unit_Naechster_Kanal);
    hooks.Unit_Fehlgeschlagen = Haken(run, Schritt_Unit_Fehlgeschlagen);
    hooks.Unit_Kein_Kontakt = Haken(run, Schritt_Unit_Kein_Kontakt);
    hooks.Kanal_Weiter = Haken(run, Schritt_Kanal_Weiter);
    hooks.Kein_Kontakt = Haken(run, Schritt_Kein_Kontakt);
    hooks.Abgelehnt = Haken(run, Schritt_Abgelehnt);
    hooks.Key_Abgelehnt = Haken(run, Schritt_Key_Abgelehnt);
    hooks.Trennen_Aufgegeben = Haken(run, Schritt_Trennen_Aufgegeben);
    hooks.Karte_Abgelehnt = [&run] {
        if (Zeile_Fehlgeschlagen(run, RunOutcome::Refused, Fester_Text(run.kern, Word::CardNotRecognised, " "))) {
            return;
        }
        run.kern.Meldung(Fester_Text(run.kern, Word::CardNotRecognised), Buttons::Ok, Icon::None, "");
        Rufen(run.Ansicht.Hauptfenster_Freigeben);
    };
}

} // namespace

void Lauf_Haken_Setzen(Programmierlauf& run, LinkHooks& hooks) {
    hooks.Telegramm_Geht = [&run] {
        if (!run.Gesamtende && !run.Cancelled) {
            Konto_Gesendet(run.Konto, run.link.TxBuffer, run.link.Lauf);
        }
    };
    hooks.Antwort_Gekommen = [&run] {
        if (!run.Gesamtende && !run.Cancelled) {
            Konto_Antwort(run.Konto, Antwort_Lesen(run.link));
        }
    };
    hooks.Anmeldung_Abgelehnt = Haken(run, Schritt_Anmeldung_Abgelehnt);
    hooks.Suche_Abgelehnt = Haken(run, Schritt_Anmeldung_Abgelehnt);
    hooks.Unit_Abgelehnt = Haken(run, Schritt_Unit_Abgelehnt);
    hooks.Kanal_Setzen_Planen = [&run] { run.Timer8.Start(10); };
    hooks.Kanal_Gesetzt = Haken(run, Schritt_Kanal_Gesetzt);

    hooks.Historie_Anzeigen = [&run] { Rufen(run.Ansicht.Historie_Beschriften); };
    hooks.Historie_Eintrag = [&run] {
        if (!Historie_Eintrag(run.link, run.link.Lauf.Order.LockName, run.Ansicht.Zustand, Lauf_Schloss(run))) {
            run.link.Lauf.Chain.HistoryLost = HistoryLoss::Unwritten;
        }
    };
    hooks.Historie_Fertig = Haken(run, Schritt_Historie_Fertig);
    hooks.Abfrage_Starten = [&run] { run.Timer7.Start(2000); };
    hooks.Abfrage_Stoppen = [&run] {
        run.Timer7.Stop();
        run.Timer8.Stop();
    };

    hooks.Zeitfenster = Haken(run, Schritt_Zeitfenster);
    hooks.ReaderEinstellung = Haken(run, Schritt_ReaderEinstellung);
    hooks.Schaltuhr_A = Haken(run, Schritt_Schaltuhr_A);
    hooks.Schaltuhr_A_Kurz = [&run] { TelSchaltuhrAKurz_Senden(run.link, run.Daten.TimerTableA); };
    hooks.Schaltuhr_B = Haken(run, Schritt_Schaltuhr_B);
    hooks.Schaltuhr_B_Kurz = [&run] { TelSchaltuhrBKurz_Senden(run.link, run.Daten.TimerTableB); };
    hooks.EinzelFeiertage = Haken(run, Schritt_EinzelFeiertage);
    hooks.PermFeiertage = Haken(run, Schritt_PermFeiertage);

    hooks.Benutzer_Beginnen = Haken(run, Schritt_Benutzer_Beginnen);
    hooks.Benutzer_Slot = Haken(run, Schritt_Benutzer_Slot);
    hooks.Benutzer_Name2 = Haken(run, Schritt_Benutzer_Name2);
    hooks.Benutzer_Daten = Haken(run, Schritt_Benutzer_Daten);
    hooks.Id_Daten1 = Haken(run, Schritt_Id_Daten1);
    hooks.Id_Daten2 = Haken(run, Schritt_Id_Daten2);
    hooks.Benutzer_Zeitgruppen = Haken(run, Schritt_Benutzer_Zeitgruppen);

    Ende_Haken_Setzen(run, hooks);
    hooks.Fortschritt = [&run] { Rufen(run.Ansicht.Fortschritt); };
}

} // namespace qvm
