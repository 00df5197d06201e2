#include "F17.h"

#include "AntwortLayouts.h"
#include "ChannelScan.h"
#include "Laufschritte.h"
#include "Modelle.h"
#include "PortFault.h"
#include "SeriellesProtokoll.h"
#include "Telegramme.h"
#include "Words.h"

#include <string>

namespace qvm {
namespace {

/// For the login, and for the twelve channels behind it together.
constexpr int PatienceMs = 36000;
static_assert(PatienceMs == UnitScan::Channels * ChannelScan::AnswerMs);
constexpr std::uint8_t Pending = 0xFF, CodeTaken = 4, NoContact = 0x64;

} // namespace

F17::F17(Programmierlauf& programmierlauf, F18& wait, AdapterListe& adapters)
    : run(programmierlauf), kern(programmierlauf.kern), f18(wait), Adapter(adapters),
      Frist(programmierlauf.kern.Welt, PatienceMs), Bestaetigung(programmierlauf.kern.Welt, PatienceMs) {
    Text1.MaxLength = Text2.MaxLength = Text3.MaxLength = CodeEntry::Length;
    Frist.Ticked = [this] { Frist_Abgelaufen(); };
    Bestaetigung.Ticked = [this] { Nicht_Bestaetigt(); };
}

bool F17::Wartet() const {
    return run.link.Lauf.Chain.CodeChangePending != 0;
}

bool F17::Unterwegs() const {
    return run.link.Lauf.Chain.LaufZiel == "F22";
}

void F17::F17_FormLoad() {
    unit_.reset();
    Oeffnen();
}

void F17::Oeffnen() {
    old_.Leeren();
    new_.Leeren();
    repeat_.Leeren();
    Texte_Setzen();
    Command1.Enabled = true;
    Fenster.Visible = true;
    Rufen(Text1.SetFocus);
}

void F17::Texte_Setzen() {
    Fenster.Title = kern.Zeile(Line::AdminCode);
    Schloss.Text = unit_ ? Wort(kern, Word::UnitLine, {unit_->Serial}) : Lauf_Schloss(run);
    Label1.Text = kern.Zeile(Line::OldCode);
    Label2.Text = kern.Zeile(Line::NewCode);
    Label3.Text = kern.Zeile(Line::RepeatCode);
    Command1.Text = kern.Zeile(Line::Ok);
    Command2.Text = kern.Zeile(Line::Cancel);
}

void F17::Tippen(CodeEntry& entry, int key) {
    if (!Wartet()) {
        entry.Taste(key);
    }
}

void F17::Text3_KeyPress(int key) {
    if (key != Key::Enter) {
        Tippen(repeat_, key);
    } else if (repeat_.Vollstaendig()) {
        Command1_Click();
    }
}

void F17::Melden(int line) const {
    kern.Meldung(kern.Zeile(line), Buttons::Ok, Icon::Exclamation, CodeTitle);
}

void F17::Command1_Click() {
    if (Wartet()) {
        return;
    }
    RunState& lauf = run.link.Lauf;
    lauf.Order.AdminCode = old_.Gepackt();
    // A search before this one may have ended anywhere.
    if (unit_) {
        Unit_Code_Beginnen(run, unit_->Device, unit_->Channel);
    } else {
        lauf.Chain.KanalSuche = lauf.Order.Search ? 1 : 0;
        lauf.Chain.KanalIndex = 0;
        run.link.TargetChannel = lauf.Order.TargetChannel;
    }
    Ergebnis = CodeOutcome::Open;
    lauf.Chain.CodeChangePending = Pending;
    Command1.Enabled = false;
    f18.F18_Zeigen();
    f18.Schloss.Text = Schloss.Text();
    Frist.Start(PatienceMs);
    if (!TelVerbinden_Senden(run.link)) {
        Warten_Beenden(CodeOutcome::Unsent);
        Melden(Line::PortNotOpened);
    }
}

void F17::Warten_Beenden(CodeOutcome outcome) {
    Ergebnis = outcome;
    Frist.Stop();
    run.link.Lauf.Chain.CodeChangePending = 0;
    run.link.Lauf.Chain.KanalSuche = 0;
    if (run.link.AnswerDue == TelVerbinden::Telegram.Code) {
        run.link.AnswerWithdrawn = TelVerbinden::Telegram.Code; // it may still come
    }
    run.link.AnswerDue = 0;
    Geheimnisse_Vergessen(run.link);
    f18.F18_Schliessen();
    Command1.Enabled = true;
}

void F17::Frist_Abgelaufen() {
    if (!Wartet()) {
        Frist.Stop();
        return;
    }
    Warten_Beenden(CodeOutcome::Silent);
    Melden(Line::CheckCode);
}

void F17::Gesucht() {
    Frist.Start(PatienceMs);
}

void F17::Abgelehnt(RunOutcome why) {
    Warten_Beenden(why == RunOutcome::Refused ? CodeOutcome::Refused : CodeOutcome::Silent);
}

void F17::Abbrechen() {
    Warten_Beenden(CodeOutcome::Cancelled);
}

void F17::Nicht_Bestaetigt() {
    Bestaetigung.Stop();
    if (Unterwegs()) {
        Unit_Aufgeben(Unit_Stand());
        return;
    }
    const std::uint8_t due = run.link.AnswerDue;
    // Another try may be under way, or over, by now.
    if (Ergebnis == CodeOutcome::Open && !Wartet()) {
        Ergebnis = CodeOutcome::Unconfirmed;
    }
    // What was sent meanwhile goes on, with the secrets that it needs.
    if (due == 0 || due == TelCodeAendern::Telegram.Code) {
        run.link.AnswerDue = 0;
        Geheimnisse_Loslassen();
    }
    Unbestaetigt_Melden();
}

void F17::Unbestaetigt_Melden() const {
    kern.Meldung(Wort(kern, Word::CodeUnanswered), Buttons::Ok, Icon::Exclamation, CodeTitle);
}

CodeOutcome F17::Pruefen() const {
    if (!old_.Vollstaendig() || !new_.Vollstaendig()) {
        return CodeOutcome::Incomplete;
    }
    return new_.Gleicht(repeat_) ? CodeOutcome::Open : CodeOutcome::Different;
}

void F17::Angemeldet() {
    Warten_Beenden(Pruefen());
    if (Ergebnis != CodeOutcome::Open) {
        Melden(Ergebnis == CodeOutcome::Different ? Line::CodesDiffer
               : old_.Vollstaendig()              ? Line::EntryInvalid
                                                  : Line::CheckCode);
        return;
    }
    AdminCodeBytes from = old_.Gepackt();
    AdminCodeBytes to = new_.Gepackt();
    taken_ = false;
    if (unit_) {
        run.link.Lauf.Chain.LaufZiel = "F22";
        Rufen(Unit_Beginnt);
    }
    Schliessen();
    Rufen(unit_ ? Zu_F20 : Zu_F13);
    if (TelCodeAendern_Senden(run.link, from, to)) {
        Bestaetigung.Start(PatienceMs);
    } else {
        Ergebnis = CodeOutcome::Unsent;
        if (unit_) {
            Unit_Abschliessen(CodeOutcome::Unsent);
        }
        Melden(Line::PortNotOpened);
    }
    Ueberschreiben(from);
    Ueberschreiben(to);
}

CodeOutcome F17::Antwort() const {
    const Link& link = run.link;
    if (link.RxByte(2) == RpCodeErgebnis::Reply.Code) {
        return link.RxByte(RpCodeErgebnis::Status.Offset) == CodeTaken ? CodeOutcome::Changed : CodeOutcome::Refused;
    }
    // The device may have got what its adapter has no answer to.
    return link.RxByte(RpAblehnung::Reason.Offset) == NoContact ? CodeOutcome::Unconfirmed : CodeOutcome::Refused;
}

void F17::Beantwortet() {
    Bestaetigung.Stop();
    const CodeOutcome outcome = Antwort();
    if (Unterwegs() && outcome == CodeOutcome::Changed) {
        taken_ = true;
        Geheimnisse_Loslassen();
        Bestaetigung.Start(PatienceMs); // for its move
        return;
    }
    if (Unterwegs()) {
        Unit_Abschliessen(outcome);
    }
    Ergebnis = outcome;
    Geheimnisse_Loslassen();
    if (Ergebnis == CodeOutcome::Unconfirmed) {
        Unbestaetigt_Melden();
    }
}

void F17::Geheimnisse_Loslassen() {
    // What has begun meanwhile needs its own, and forgets them at its end.
    const bool scanning = run.link.Lauf.Chain.SuchLauf != 0;
    if (run.Gesamtende && run.link.Lauf.List.RunRows == 0 && !scanning) {
        Geheimnisse_Vergessen(run.link);
    }
}

void F17::Schliessen() {
    old_.Leeren();
    new_.Leeren();
    repeat_.Leeren();
    Fenster.Visible = false;
}

void F17::Command2_Click() {
    if (Wartet()) {
        Abbrechen();
    }
    if (unit_) {
        Unit_Code_Beenden(run);
    }
    Schliessen();
    Rufen(unit_ ? Zu_F20 : Zu_F13);
}

} // namespace qvm
