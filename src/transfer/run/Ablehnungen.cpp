// A refusal, 0x69: the rows of its reasons, and their steps.

#include "Antwort_Verteilen.h"
#include "Kanal.h"
#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "Schlosszeile.h"
#include "Telegramme.h"
#include "Words.h"

namespace qvm {
namespace {

/// The last telegram sent stays readable in TxBuffer.
template <std::uint8_t Code>
bool Zuletzt(const Programmierlauf& r) {
    return r.link.TxBuffer[2] == Code;
}
template <std::uint8_t Reason>
bool Grund(const Programmierlauf& r) {
    return r.link.RxByte(3) == Reason;
}
bool Unit_Datenstart_Zuletzt(const Programmierlauf& r) {
    return Zuletzt<TelDatenStart::Telegram.Code>(r) && Blocktransfer(r);
}
bool Unit_Kanaele_Uebrig(const Programmierlauf& r) {
    return Kette(r).UnitTry == 0x38 && Kette(r).EintragFertig < UnitChannels;
}
bool Unit_Typ2(const Programmierlauf& r) {
    return Unit_Oeffnung(r) || Blocktransfer(r);
}
bool Unitliste_Gesucht(const Programmierlauf& r) {
    return Kette(r).SuchMarke == 0xAD;
}
bool Stumm_In_Suche(const Programmierlauf& r) {
    return Grund<0x64>(r) && Kette(r).KanalSuche != 0;
}
bool Unit_Nicht_Hier(const Programmierlauf& r) {
    return Grund<0x64>(r) && Unit_Code_Geprueft(r) && Kette(r).KanalIndex < UnitChannels;
}
/// The reason is one that ends something.
bool Grund_Endet(const Programmierlauf& r) {
    const std::uint8_t reason = r.link.RxByte(RpAblehnung::Reason.Offset);
    return reason >= 0x64 && reason <= 0x6A && reason != 0x68 && reason != 0x69;
}
bool Unit_Login_Abgelehnt(const Programmierlauf& r) {
    return Unit_Code_Geprueft(r) && Grund_Endet(r);
}
bool Unit_Code_Abgelehnt(const Programmierlauf& r) {
    return Kanalwechsel(r) && Grund_Endet(r);
}
bool Leser_Gefragt(const Programmierlauf& r) {
    const std::uint8_t due = r.link.AnswerDue;
    return due == TelEKeyLesen::Telegram.Code || due == TelFingerAbfrage::Telegram.Code ||
           due == TelFingerAnlernen::Telegram.Code;
}
bool Karte_Gefragt(const Programmierlauf& r) {
    const std::uint8_t due = r.link.AnswerDue;
    const bool card = due == TelKarteSchreiben::Telegram.Code || due == TelKarteStart::Telegram.Code ||
                      due == TelKarteLesen::Telegram.Code;
    return card && Grund_Endet(r) && !Grund<0x6A>(r);
}
bool Stumm_In_Unit(const Programmierlauf& r) {
    return Grund<0x64>(r) && Unit_Sitzung(r);
}

constexpr ReplyRow Refusals[] = {
    {0x69, "TelDatenStart in a unit session", Unit_Datenstart_Zuletzt, Schritt_Unit_Datenstart_Wiederholen},
    {0x69, "unit opening, channels left", Unit_Kanaele_Uebrig, Schritt_Unit_Naechster_Kanal},
    {0x69, "unit session otherwise", Unit_Typ2, Schritt_Unit_Fehlgeschlagen},
    {0x69, "TelLebenszeichen", Zuletzt<TelLebenszeichen::Telegram.Code>, Ohne_Wirkung},
    {0x69, "unit-list scan", Unitliste_Gesucht, Zum_Fenster<&WindowHooks::Unit_Kanal_Leer>},
    {0x69, "units are searched by logins", Units_Gesucht, Zum_Fenster<&WindowHooks::Suchlauf_Schritt>},
    {0x69, "a reader of the desk", Leser_Gefragt, Schritt_Leser_Abgelehnt},
    {0x69, "a card writer", Karte_Gefragt, Zum_Fenster<&WindowHooks::Karte_Abgelehnt>},
    {0x69, "a unit whose code is checked, channels left", Unit_Nicht_Hier, Schritt_Kanal_Weiter},
    {0x69, "a unit whose code is checked", Unit_Login_Abgelehnt, Schritt_Unit_Login_Abgelehnt},
    {0x69, "a unit whose code was changed", Unit_Code_Abgelehnt, Schritt_Unit_Code_Abgelehnt},
    {0x69, "no contact, channel search", Stumm_In_Suche, Schritt_Kanal_Weiter},
    {0x69, "no contact, unit session", Stumm_In_Unit, Schritt_Unit_Kein_Kontakt},
    {0x69, "no contact", Grund<0x64>, Schritt_Kein_Kontakt},
    {0x69, "refused", Grund<0x65>, Schritt_Abgelehnt},
    {0x69, "key refused", Grund<0x66>, Schritt_Key_Abgelehnt},
    {0x69, "busy", Grund<0x67>, Schritt_Belegt},
    {0x69, "card refused", Grund<0x6A>, Schritt_Karte_Abgelehnt},
    {0x69, "any other reason", Immer, Ohne_Wirkung},
};

} // namespace

std::span<const ReplyRow> Ablehnung_Tabelle() {
    return Refusals;
}

void Schritt_Kein_Kontakt(Programmierlauf& run) {
    Timer_Anhalten(run);
    ChainState& chain = Kette(run);
    if (run.Cancelled && chain.Phase == RunPhase::Closing) {
        // The session that the cancel wanted to close is gone.
        Schloss_Fertig(run);
        return;
    }
    const bool codeChange = chain.CodeChangePending != 0 || run.link.TxBuffer[2] == TelCodeAendern::Telegram.Code;
    if (!codeChange && chain.Phase == RunPhase::None) {
        return;
    }
    Codeaenderung_Gescheitert(run, RunOutcome::NotReached);
    if (Zeile_Fehlgeschlagen(run, RunOutcome::NotReached, run.kern.Zeile(Line::ConnectionFailed))) {
        return;
    }
    Kanal_Offen(run.kern, run.link.Lauf.Order.LockNumber);
    Mit_Meldung_Enden(run, RunOutcome::NotReached, Line::NotReachable);
}

void Schritt_Abgelehnt(Programmierlauf& run) {
    Timer_Anhalten(run);
    if (run.Cancelled && Kette(run).Phase == RunPhase::Closing) {
        Schloss_Fertig(run);
        return;
    }
    Codeaenderung_Gescheitert(run, RunOutcome::Refused);
    if (!Zeile_Fehlgeschlagen(run, RunOutcome::Refused, run.kern.Zeile(Line::DeviceRefused))) {
        Mit_Meldung_Enden(run, RunOutcome::Refused, Line::DeviceRefused);
    }
}

namespace {

int Key_Zeile(const Programmierlauf& run) {
    constexpr int lines[] = {Line::KeyNotLearned, Line::KeyNotSynchronised, Line::KeyNotFound};
    const auto mode = run.link.Lauf.KeyMode;
    return lines[mode < 3 ? mode : 0];
}

} // namespace

void Schritt_Leser_Abgelehnt(Programmierlauf& run) {
    const std::uint8_t reason = run.link.RxByte(RpAblehnung::Reason.Offset);
    run.Fenster.Leser_Abgelehnt();
    switch (reason) {
    case 0x66:
        run.kern.Meldung(run.kern.Zeile(Key_Zeile(run)), Buttons::Ok, Icon::Information);
        break;
    case 0x64:
        run.kern.Meldung(run.kern.Zeile(Line::NotReachable), Buttons::Ok, Icon::Exclamation);
        break;
    case 0x68:
    case 0x69:
        break;
    default:
        run.kern.Meldung(run.kern.Zeile(Line::DeviceRefused), Buttons::Ok, Icon::Exclamation);
        break;
    }
}

void Schritt_Key_Abgelehnt(Programmierlauf& run) {
    const int line = Key_Zeile(run);
    if (!Zeile_Fehlgeschlagen(run, RunOutcome::Refused, run.kern.Zeile(line))) {
        // What a reader of keys asked for is no lock's affair.
        Meldung_Zu(run.kern, run.Gesamtende ? std::string() : Lauf_Schloss(run), run.kern.Zeile(line), Buttons::Ok,
                   Icon::Information);
        run.Ansicht.Hauptfenster_Freigeben();
    }
}

void Schritt_Belegt(Programmierlauf& run) {
    Abfrage_Stoppen(run);
    Noch_Einmal_Trennen(run);
}

void Schritt_Karte_Abgelehnt(Programmierlauf& run) {
    run.Fenster.Karte_Abgelehnt();
    if (Zeile_Fehlgeschlagen(run, RunOutcome::Refused, Fester_Text(run.kern, Word::CardNotRecognised, " "))) {
        return;
    }
    run.kern.Meldung(Fester_Text(run.kern, Word::CardNotRecognised), Buttons::Ok, Icon::None, "");
    run.Ansicht.Hauptfenster_Freigeben();
}

} // namespace qvm
