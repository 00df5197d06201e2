#include "Kanal.h"
#include "Laufschritte.h"
#include "RunProgress.h"
#include "Schlosszeile.h"
#include "Telegramme.h"
#include "Words.h"

#include <Lines.h>

namespace qvm {
namespace {

constexpr int NoUnitLeft = 4;

/// Title of the code change's messages.
constexpr std::string_view CodeTitle = "QVM 5508 Businnes";

} // namespace

std::string Worum(const Programmierlauf& run) {
    const bool open = Konto_Schloss(run.Konto) == LockData::Incomplete;
    return Lauf_Schloss(run) + (open ? "\n" + Wort(run.kern, Word::LockIncomplete) : "");
}

std::string Worum_Unit(const Programmierlauf& run) {
    const int unit = run.link.Lauf.Chain.UnitIndex;
    const bool known = unit >= 0 && unit < static_cast<int>(run.Daten.Units.size());
    const std::string name = known ? run.Daten.Units[static_cast<std::size_t>(unit)].Name : std::string();
    const bool done = Konto_Schloss(run.Konto) == LockData::Complete;
    return Worum(run) + "\n" + Wort(run.kern, Word::UnitLine, {name}) +
           (done ? "\n" + Wort(run.kern, Word::LockDone) : "");
}

void Mit_Meldung_Enden(Programmierlauf& run, RunOutcome outcome, int line) {
    const std::string text = run.kern.Zeile(line);
    Rufen(run.Ansicht.Wartebox_Schliessen);
    Lauf_Beenden(run, outcome, text);
    Meldung_Zu(run.kern, Worum(run), text, Buttons::Ok, Icon::Exclamation);
    Rufen(run.Ansicht.Zum_Schlossgitter);
}

void Codeaenderung_Gescheitert(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    if (lauf.Chain.CodeChangePending != 0) {
        lauf.Chain.CodeChangePending = 0;
        lauf.Chain.CodeChangeRefused = 1;
    }
}

void Lauf_Beenden(Programmierlauf& run, RunOutcome outcome, std::string_view text) {
    if (!run.Gesamtende) {
        run.Gesamtende = true;
        Bericht_Fuellen(run);
        Units_Zeigen(run);
        run.Bericht.End = outcome;
        run.Bericht.Text = text;
        run.link.Lauf.Chain.Phase = RunPhase::None;
        run.link.Lauf.Chain.AbbruchWunsch = 0;
        run.link.AnswerDue = 0;
        // A list uses them for its next row.
        if (run.link.Lauf.List.RunRows == 0) {
            Geheimnisse_Vergessen(run.link);
        }
    }
}

void Ende_Zeigen(const Programmierlauf& run, int line) {
    if (run.Ansicht.Fertig) {
        run.Ansicht.Fertig(line);
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
    run.link.Lauf.Chain.LaufZiel.clear();
    run.link.Lauf.Chain.UnitTry = 0;
}

bool Zeile_Fehlgeschlagen(Programmierlauf& run, RunOutcome outcome, std::string_view text) {
    if (run.link.Lauf.List.RunRows == 0) {
        return false;
    }
    // The next row may be another lock: nothing of this one may still go out.
    Timer_Anhalten(run);
    Lauf_Beenden(run, outcome, text);
    if (run.Liste.Zeile_Markieren) {
        const std::string moved = run.Bericht.ChannelUnsaved ? " - " + Wort(run.kern, Word::ChannelUnsaved) : "";
        run.Liste.Zeile_Markieren("#", std::string(text) + moved);
    }
    Rufen(run.Liste.Naechste_Zeile);
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
    const RunState& lauf = run.link.Lauf;
    const Kern& kern = run.kern;
    if (run.Cancelled) {
        return {.Outcome = RunOutcome::Cancelled, .Why = kern.Zeile(Line::Cancelled), .Line = Line::Cancelled};
    }
    if (lauf.Chain.HistoryLost != HistoryLoss::None) {
        return {.Outcome = RunOutcome::GivenUp, .Why = Historie_Verlust_Text(kern, lauf.Chain.HistoryLost)};
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
    const RunState& lauf = run.link.Lauf;
    Ende_Zeigen(run, judged.Line);
    if (lauf.Chain.HistoryLost != HistoryLoss::None) {
        Meldung_Zu(run.kern, Worum(run), Historie_Verlust_Text(run.kern, lauf.Chain.HistoryLost), Buttons::Ok,
                   Icon::Exclamation);
    }
    if (!run.Cancelled && lauf.Chain.HistoryOnly != 0 && lauf.Chain.HistoryFileOpen != 0 &&
        run.Ansicht.Historie_Oeffnen) {
        run.Ansicht.Historie_Oeffnen(lauf.Chain.HistoryFileName);
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
    if (run.Liste.Zeile_Markieren) {
        run.Liste.Zeile_Markieren(lauf.Chain.HistoryOnly != 0 ? "<<" : ">>", text);
    }
    Rufen(run.Liste.Naechste_Zeile);
}

void Schritt_Schloss_Ende(Programmierlauf& run) {
    const RunState& lauf = run.link.Lauf;
    if (lauf.Chain.HistoryOnly == 0 && lauf.Chain.HistoryLost == HistoryLoss::None && !run.Cancelled &&
        Units_Uebrig(run)) {
        if (run.Ansicht.Kaestchen) {
            run.Ansicht.Kaestchen(1);
        }
        run.Timer9.Start(1200);
        return;
    }
    Schloss_Fertig(run);
}

void Schritt_Historie_Fertig(Programmierlauf& run) {
    const RunState& lauf = run.link.Lauf;
    if (lauf.Chain.HistoryRead && Historie_Sichern(run.link)) {
        Konto_Historie_Fertig(run.Konto);
    }
    Lauf_Tempo_Neu(run);
    const bool single = lauf.Chain.HistoryOnly != 0 && lauf.List.RunRows == 0;
    if (run.Ansicht.Status && (lauf.Chain.HistoryOnly == 0 || single)) {
        run.Ansicht.Status(single ? Line::Completing : 0);
    }
    // There is nothing left to cancel, but it is not the end yet: the session is still to be closed.
    if (single) {
        Rufen(run.Ansicht.F9_Schliessen_Freigeben);
    }
}

void Kette_Abbrechen(Programmierlauf& run) {
    RunState& lauf = run.link.Lauf;
    Timer_Anhalten(run);
    run.Cancelled = true;
    lauf.Chain.TwoPassFlag = lauf.Chain.KanalSuche = lauf.Chain.ReadHistoryFirst = 0;
    lauf.Chain.Phase = RunPhase::Closing;
    lauf.Chain.CodeChangePending = 0;
    lauf.Chain.LaufZiel.clear();
    lauf.Chain.UnitIndex = NoUnitLeft;
    lauf.Chain.UnitTry = 0;
    lauf.Chain.IdMarke.clear();
    lauf.Chain.IdSecondPart = false;
    run.link.DeviceClassByte = 0x11;
    if (lauf.Chain.UnitModus == 0xFA) {
        // The unit was not open yet; what is open is the lock. A block transfer stays, so that its end closes the unit.
        lauf.Chain.UnitModus = 0;
        Zum_Schloss_Zurueck(run);
    }
}

void Schritt_Abbruch(Programmierlauf& run) {
    Kette_Abbrechen(run);
    ListState& list = run.link.Lauf.List;
    if (list.RunRows != 0) {
        // The list tells of its row while it stops.
        Bericht_Fuellen(run);
        Rufen(run.Liste.Stoppen);
        list.RunRow = list.RunRows = 0;
    }
}

void Schritt_Kein_Kontakt(Programmierlauf& run) {
    Timer_Anhalten(run);
    RunState& lauf = run.link.Lauf;
    if (run.Cancelled && lauf.Chain.Phase == RunPhase::Closing) {
        // The session that the cancel wanted to close is gone.
        Schloss_Fertig(run);
        return;
    }
    const bool codeChange = lauf.Chain.CodeChangePending != 0 || run.link.TxBuffer[2] == TelCodeAendern::Telegram.Code;
    if (!codeChange && lauf.Chain.Phase == RunPhase::None) {
        return;
    }
    Codeaenderung_Gescheitert(run);
    if (Zeile_Fehlgeschlagen(run, RunOutcome::NotReached, run.kern.Zeile(Line::ConnectionFailed))) {
        return;
    }
    Kanal_Offen(run.kern, run.link.Lauf.Order.LockNumber);
    Mit_Meldung_Enden(run, RunOutcome::NotReached, Line::NotReachable);
}

void Schritt_Abgelehnt(Programmierlauf& run) {
    Timer_Anhalten(run);
    if (run.Cancelled && run.link.Lauf.Chain.Phase == RunPhase::Closing) {
        Schloss_Fertig(run);
        return;
    }
    Codeaenderung_Gescheitert(run);
    if (!Zeile_Fehlgeschlagen(run, RunOutcome::Refused, run.kern.Zeile(Line::DeviceRefused))) {
        Mit_Meldung_Enden(run, RunOutcome::Refused, Line::DeviceRefused);
    }
}

void Schritt_Key_Abgelehnt(Programmierlauf& run) {
    constexpr int lines[] = {Line::KeyNotLearned, Line::KeyNotSynchronised, Line::KeyNotFound};
    const auto mode = run.link.Lauf.KeyMode;
    const int line = lines[mode < 3 ? mode : 0];
    if (!Zeile_Fehlgeschlagen(run, RunOutcome::Refused, run.kern.Zeile(line))) {
        // What a reader of keys asked for is no lock's affair.
        Meldung_Zu(run.kern, run.Gesamtende ? std::string() : Lauf_Schloss(run), run.kern.Zeile(line), Buttons::Ok,
                   Icon::Information);
        Rufen(run.Ansicht.Hauptfenster_Freigeben);
    }
}

void Schritt_Trennen_Aufgegeben(Programmierlauf& run) {
    Timer_Anhalten(run);
    Codeaenderung_Gescheitert(run);
    const std::string open = run.Cancelled ? run.kern.Zeile(Line::Cancelled) : Unbewiesen(run);
    const std::string text = open.empty() ? run.kern.Zeile(Line::ConnectionFailed) : open;
    if (Zeile_Fehlgeschlagen(run, RunOutcome::GivenUp, text)) {
        return;
    }
    Zum_Schloss_Zurueck(run);
    run.link.Lauf.Chain.UnitModus = 0;
    Lauf_Beenden(run, run.Cancelled ? RunOutcome::Cancelled : RunOutcome::GivenUp, text);
    Ende_Zeigen(run);
}

void Schritt_Code_Ergebnis(Programmierlauf& run) {
    const Kern& kern = run.kern;
    const std::uint8_t status = run.link.RxByte(14);
    if (status == 4) {
        kern.Meldung(kern.Zeile(Line::NewCodeAccepted), Buttons::Ok, Icon::Information, CodeTitle);
        return;
    }
    const int line = Anmeldung_Zeile(status);
    std::string text = kern.Zeile(line != 0 ? line : Line::CheckCode);
    if (line != 0) {
        text += "  -  Codechange_Error_0x0" + std::to_string(status);
    }
    Rufen(run.Ansicht.Wartebox_Schliessen);
    Rufen(run.Ansicht.Schlossgitter_Freigeben);
    kern.Meldung(text, Buttons::Ok, Icon::Exclamation, CodeTitle);
}

} // namespace qvm
