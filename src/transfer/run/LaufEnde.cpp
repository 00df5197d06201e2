#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "ListMark.h"
#include "RunProgress.h"
#include "Schlosszeile.h"
#include "Words.h"

#include <algorithm>

namespace qvm {
namespace {

constexpr int NoUnitLeft = 4;
/// The device may not let itself be disconnected.
constexpr int MostDisconnects = 40;

/// The device stays busy.
void Trennen_Aufgeben(Programmierlauf& run) {
    Timer_Anhalten(run);
    Codeaenderung_Gescheitert(run, RunOutcome::GivenUp);
    const std::string open = run.Cancelled ? run.kern.Zeile(Line::Cancelled) : Unbewiesen(run);
    const std::string text = open.empty() ? run.kern.Zeile(Line::ConnectionFailed) : open;
    if (Zeile_Fehlgeschlagen(run, RunOutcome::GivenUp, text)) {
        return;
    }
    Zum_Schloss_Zurueck(run);
    Kette(run).UnitModus = 0;
    Lauf_Beenden(run, run.Cancelled ? RunOutcome::Cancelled : RunOutcome::GivenUp, text);
    run.Ansicht.Fertig(0);
}

} // namespace

std::string Worum(const Programmierlauf& run) {
    const bool open = Konto_Schloss(run.Konto) == LockData::Incomplete;
    return Lauf_Schloss(run) + (open ? "\n" + Wort(run.kern, Word::LockIncomplete) : "");
}

std::string Worum_Unit(const Programmierlauf& run) {
    const int unit = Kette(run).UnitIndex;
    const bool known = unit >= 0 && unit < static_cast<int>(run.Daten.Units.size());
    const std::string name = known ? run.Daten.Units[static_cast<std::size_t>(unit)].Name : std::string();
    const bool done = Konto_Schloss(run.Konto) == LockData::Complete;
    return Worum(run) + "\n" + Wort(run.kern, Word::UnitLine, {name}) +
           (done ? "\n" + Wort(run.kern, Word::LockDone) : "");
}

void Mit_Meldung_Enden(Programmierlauf& run, RunOutcome outcome, int line) {
    const std::string text = run.kern.Zeile(line);
    run.Ansicht.Wartebox_Schliessen();
    Lauf_Beenden(run, outcome, text);
    Meldung_Zu(run.kern, Worum(run), text, Buttons::Ok, Icon::Exclamation);
    run.Ansicht.Zum_Schlossgitter();
}

void Lauf_Beenden(Programmierlauf& run, RunOutcome outcome, std::string_view text) {
    if (!run.Gesamtende) {
        run.Gesamtende = true;
        Bericht_Fuellen(run);
        Units_Zeigen(run);
        run.Bericht.End = outcome;
        run.Bericht.Text = text;
        Kette(run).Phase = RunPhase::None;
        Kette(run).AbbruchWunsch = 0;
        run.link.AnswerDue = 0;
        // A list uses them for its next row.
        if (run.link.Lauf.List.RunRows == 0) {
            Geheimnisse_Vergessen(run.link);
        }
    }
}

void Timer_Anhalten(Programmierlauf& run) {
    run.Timer6.Stop();
    run.Timer7.Stop();
    run.Timer8.Stop();
    run.Timer9.Stop();
    run.Timer11.Stop();
}

void Zum_Schloss_Zurueck(Programmierlauf& run) {
    run.link.TargetAddress = run.link.Lauf.Order.LockAddress;
    run.link.AddressMode = 0;
    run.link.DeviceClassByte = 0x11;
    Kette(run).LaufZiel.clear();
    Kette(run).UnitTry = 0;
}

bool Zeile_Fehlgeschlagen(Programmierlauf& run, RunOutcome outcome, std::string_view text) {
    if (run.link.Lauf.List.RunRows == 0) {
        return false;
    }
    // The next row may be another lock: nothing of this one may still go out.
    Timer_Anhalten(run);
    Lauf_Beenden(run, outcome, text);
    const std::string moved = run.Bericht.ChannelUnsaved ? " - " + Wort(run.kern, Word::ChannelUnsaved) : "";
    run.Liste.Zeile_Markieren(ListMark::Failed, std::string(text) + moved);
    run.Liste.Naechste_Zeile();
    return true;
}

namespace {

/// How a run that came to its end has ended, and why it is not done.
struct Urteil {
    RunOutcome Outcome = RunOutcome::Done;
    std::string Why;
    int Line = 0; ///< of the catalogue, where `Why` is one
};

Urteil Beurteilen(const Programmierlauf& run) {
    const ChainState& chain = Kette(run);
    const Kern& kern = run.kern;
    if (run.Cancelled) {
        return {.Outcome = RunOutcome::Cancelled, .Why = kern.Zeile(Line::Cancelled), .Line = Line::Cancelled};
    }
    if (chain.HistoryLost != HistoryLoss::None) {
        return {.Outcome = RunOutcome::GivenUp, .Why = Historie_Verlust_Text(kern, chain.HistoryLost)};
    }
    if (std::string open = Unbewiesen(run); !open.empty()) {
        return {.Outcome = RunOutcome::Incomplete, .Why = std::move(open)};
    }
    const std::string more = Erledigt_Zusatz(run);
    if (const std::string refused = Units_Abgelehnt(run); !refused.empty()) {
        return {.Why = refused + (more.empty() ? "" : " " + more)};
    }
    if (!more.empty()) {
        return {.Why = kern.Zeile(Line::Finished) + ". " + more};
    }
    return {.Why = kern.Zeile(Line::Finished), .Line = Line::Finished};
}

void Einzelnes_Schloss_Zeigen(Programmierlauf& run, const Urteil& judged) {
    const ChainState& chain = Kette(run);
    run.Ansicht.Fertig(judged.Line);
    if (chain.HistoryLost != HistoryLoss::None) {
        Meldung_Zu(run.kern, Worum(run), Historie_Verlust_Text(run.kern, chain.HistoryLost), Buttons::Ok,
                   Icon::Exclamation);
    }
    if (!run.Cancelled && chain.HistoryOnly != 0 && chain.HistoryFileOpen != 0) {
        run.Ansicht.Historie_Oeffnen(chain.HistoryFileName);
    }
}

} // namespace

void Schloss_Fertig(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    Zum_Schloss_Zurueck(run);
    lauf.Chain.UnitModus = 0;
    const Urteil judged = Beurteilen(run);
    const bool good = judged.Outcome == RunOutcome::Done || run.Cancelled;
    if (!good && Zeile_Fehlgeschlagen(run, judged.Outcome, judged.Why)) {
        return;
    }
    Lauf_Beenden(run, judged.Outcome, judged.Why);
    if (lauf.List.RunRows == 0 || run.Cancelled) {
        Einzelnes_Schloss_Zeigen(run, judged);
        return;
    }
    std::string text = run.kern.Zeile(lauf.Chain.HistoryOnly != 0 ? Line::HistoryRead : Line::Programmed);
    for (const std::string& note : {Unit_Notiz(run), Erledigt_Zusatz(run)}) {
        text += note.empty() ? "" : " - " + note;
    }
    run.Liste.Zeile_Markieren(lauf.Chain.HistoryOnly != 0 ? ListMark::HistoryRead : ListMark::Programmed, text);
    run.Liste.Naechste_Zeile();
}

void Schritt_Trennen(Programmierlauf& run) {
    Kette(run).WiederholZaehler = 0;
    TelTrennen_Senden(run.link);
}

void Noch_Einmal_Trennen(Programmierlauf& run) {
    if (++Kette(run).WiederholZaehler < MostDisconnects) {
        TelTrennen_Senden(run.link);
    } else {
        Trennen_Aufgeben(run);
    }
}

void Schritt_Schloss_Ende(Programmierlauf& run) {
    Abfrage_Stoppen(run);
    const ChainState& chain = Kette(run);
    if (chain.HistoryOnly == 0 && chain.HistoryLost == HistoryLoss::None && !run.Cancelled && Units_Uebrig(run)) {
        run.Ansicht.Kaestchen(1);
        run.Timer9.Start(1200);
        return;
    }
    Schloss_Fertig(run);
}

// What a cleared frame leaves, its code among it, is 0.
void RxBuffer_Leeren(Link& link, int last) {
    std::fill_n(link.Rx.RxBuffer.begin(), last + 1, std::uint8_t{0});
}

void Schritt_Puffer_Leeren(Programmierlauf& run) {
    RxBuffer_Leeren(run.link, 64);
}

void Sitzung_Schliessen(Programmierlauf& run) {
    RxBuffer_Leeren(run.link, 65); // the code that is left is RpNeustart
    Port_Neu(run.link);
    Kette(run).AbbruchWunsch = 0;
    TelTrennen_Senden(run.link);
}

// A cancel does not cut a session off: it is closed at the next frame, which is discarded.
void Abbruch_Ausfuehren(Programmierlauf& run) {
    Schritt_Abbruch(run);
    Sitzung_Schliessen(run);
}

void Kette_Abbrechen(Programmierlauf& run) {
    ChainState& chain = Kette(run);
    Timer_Anhalten(run);
    run.Cancelled = true;
    chain.TwoPassFlag = chain.KanalSuche = chain.ReadHistoryFirst = 0;
    chain.Phase = RunPhase::Closing;
    chain.CodeChangePending = 0;
    chain.LaufZiel.clear();
    chain.UnitIndex = NoUnitLeft;
    chain.UnitTry = 0;
    chain.IdMarke.clear();
    chain.IdSecondPart = false;
    run.link.DeviceClassByte = 0x11;
    if (Unit_Oeffnung(run)) {
        // The unit was not open yet; what is open is the lock. A block transfer stays, so that its end closes the unit.
        chain.UnitModus = 0;
        Zum_Schloss_Zurueck(run);
    }
}

void Schritt_Abbruch(Programmierlauf& run) {
    Kette_Abbrechen(run);
    ListState& list = run.link.Lauf.List;
    if (list.RunRows != 0) {
        // The list tells of its row while it stops.
        Bericht_Fuellen(run);
        run.Liste.Stoppen();
        list.RunRow = list.RunRows = 0;
    }
}

} // namespace qvm
