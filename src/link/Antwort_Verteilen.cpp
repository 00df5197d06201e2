#include "Antwort_Verteilen.h"

#include "Historienkette.h"
#include "Laufbedingungen.h"
#include "Modelle.h"
#include "SeriellesProtokoll.h"
#include "Telegramme.h"

#include <algorithm>
#include <string_view>

namespace qvm {
namespace {

constexpr int StatusIndex = 14;
constexpr std::uint8_t LoginAccepted = 4;
constexpr std::uint8_t StepDone = 0xFF;
constexpr std::uint8_t CodePending = 0xFF;
constexpr std::uint8_t CodeChanged = 4;
constexpr std::uint8_t RefusalCode = 0x69;

/// Replies that windows ask for, with and without a run.
bool Eines_Fensters(std::uint8_t code) {
    constexpr std::uint8_t firstOfWindows = 0x60;
    return code >= firstOfWindows || code == 0x12 || code == 0x4B;
}

void Geraet_Merken(Link& link) {
    for (int n = 0; n < 4; ++n) {
        link.Device.DeviceAddress[static_cast<std::size_t>(n)] = link.RxByte(3 + n);
        link.Device.Serial[static_cast<std::size_t>(n)] = link.RxByte(7 + n);
    }
    link.Device.Status = link.RxByte(StatusIndex);
}

/// Dispatcher branches that clear the receive buffer clear this much of it.
void RxBuffer_Leeren(Link& link, int last) {
    std::fill_n(link.Rx.RxBuffer.begin(), last + 1, std::uint8_t{0});
}

int Systemkanal(const Link& link) {
    return link.kern.Config.Funkkanal();
}

// Conditions.

bool Code_Erwartet(const Link& l) {
    return l.Lauf.Chain.CodeChangePending == CodePending;
}
bool Unit_Angenommen(const Link& l) {
    return Unit_Sitzung(l) && Anmeldung_Angenommen(l);
}
bool Kanalwechsel(const Link& l) {
    return l.Lauf.Chain.LaufZiel == "F22";
}
bool Units_Gesucht(const Link& l) {
    return l.Lauf.Chain.SuchLauf != 0;
}
bool Kanalsuche_Angenommen(const Link& l) {
    return l.Lauf.Chain.KanalSuche != 0 && Anmeldung_Angenommen(l);
}
bool Kanal_Gesucht(const Link& l) {
    return l.Lauf.Chain.KanalSuche != 0;
}
/// Not for a lock whose events could not be kept: a second pass would erase it.
bool Zweimal(const Link& l) {
    return !Historie_Aussteht(l) && l.Lauf.Chain.TwoPassFlag != 0 && BereichZweiDurchgaenge(l.Lauf.Order.SerialValue);
}
bool Id_Anstehend(const Link& l) {
    return BereichN(l.Lauf.Order.SerialValue) && l.Lauf.Chain.IdMarke == "P";
}
bool Id_Zweiter_Teil(const Link& l) {
    return BereichN(l.Lauf.Order.SerialValue) && l.Lauf.Chain.IdSecondPart;
}
bool Modus_PB(const Link& l) {
    return l.Lauf.Values.TimerMode == TimerPB_UT;
}
bool Modus_Nicht_PB(const Link& l) {
    return !Modus_PB(l);
}
bool Timer_Fertig(const Link& l) {
    return l.Lauf.Chain.TimerPart == StepDone;
}
bool Nicht_PB_Oder_Fertig(const Link& l) {
    return Modus_Nicht_PB(l) || Timer_Fertig(l);
}
bool Feiertage_Fertig(const Link& l) {
    return l.Lauf.Chain.HolidayPart == StepDone;
}
bool Ohne_Schlossmodus(const Link& l) {
    return l.Lauf.Values.LockMode == 0xFF;
}
bool Hoerfenster(const Link& l) {
    return l.Lauf.Values.ListenWindow;
}
bool Leser(const Link& l) {
    return BereichN(l.Lauf.Order.SerialValue);
}
bool Wird_Abgefragt(const Link& l) {
    return Datenstart_Antwort_Wartet(l.Lauf.Order.SerialValue);
}
bool Code_Beantwortet(const Link& l) {
    return l.AnswerDue == TelCodeAendern::Telegram.Code;
}
bool Code_Fertig_Kanalwechsel(const Link& l) {
    return Code_Beantwortet(l) && Kanalwechsel(l) && l.RxByte(StatusIndex) == CodeChanged;
}
bool Erwartet(const Link& l, const AdapterAntwort& wanted) {
    const std::uint8_t code = l.RxByte(2);
    return (code == wanted.Code || code == wanted.OtherCode) && l.Rx.RxLength >= wanted.Shortest &&
           l.Rx.RxLength <= wanted.Longest;
}
/// A search waits for an identification, and this is one: whole, and the first.
bool Kennung_Erwartet(const Link& l) {
    return l.ReplySeen == 0 && l.ReplyWanted && Erwartet(l, *l.ReplyWanted);
}

// Actions.

void Codeaenderung_Verbunden(Link& l) {
    l.Lauf.Chain.CodeChangePending = 0;
    l.Lauf.Chain.KanalSuche = 0;
    Geraet_Merken(l);
}
void Unit_Datenstart(Link& l) {
    l.Lauf.Chain.UnitVersuche = 0;
    l.Lauf.Chain.UnitRow = 0;
    l.Lauf.Chain.UnitPiece = 0;
    TelDatenStart_Senden(l, 0);
}
void Suche_Erfolgreich(Link& l) {
    l.Lauf.Chain.KanalSuche = 0;
    Geraet_Merken(l);
    TelKanalLesen_Senden(l, Systemkanal(l));
}
void Angemeldet(Link& l) {
    l.Lauf.Chain.WiederholZaehler = 0;
    Geraet_Merken(l);
    Nach_Verbunden(l);
}
void Anmeldung_Verweigert(Link& l) {
    Geraet_Merken(l);
    Rufen(l.Hooks.Anmeldung_Abgelehnt);
}
void Unit_Angemeldet(Link& l) {
    l.Lauf.Chain.WiederholZaehler = 0;
    TelUnitEinstellung_Senden(l, l.Lauf.Order.LockAddress);
}
void Suche_Verweigert(Link& l) {
    l.Lauf.Chain.KanalSuche = 0;
    Geraet_Merken(l);
    Rufen(l.Hooks.Suche_Abgelehnt);
}
void Unit_Getrennt(Link& l) {
    RxBuffer_Leeren(l, 64);
    Rufen(l.Hooks.Unit_Getrennt);
}
void Kanalwechsel_Fertig(Link& l) {
    l.Lauf.Chain.LaufZiel.clear();
    Rufen(l.Hooks.Kanalwechsel_Ende);
}
void Puffer_Leeren(Link& l) {
    RxBuffer_Leeren(l, 64);
}
void Lebenszeichen_Beantwortet(Link& l) {
    l.Lauf.Chain.AnswerSeen = true;
}

void Id_Zweiter(Link& l) {
    l.Lauf.Chain.IdSecondPart = false;
    l.DeviceClassByte = 0xC3;
    Rufen(l.Hooks.Id_Daten2);
}
void Id_Abschliessen(Link& l) {
    l.DeviceClassByte = 0x11;
    l.Lauf.Chain.IdMarke.clear();
    l.Lauf.Chain.IdSecondPart = false;
}
void Naechster_Benutzer(Link& l) {
    ++l.Lauf.Chain.SlotCursor;
    Rufen(l.Hooks.Benutzer_Beginnen);
}

void Schaltuhr_B_Beginnen(Link& l) {
    l.Lauf.Chain.TimerPart = 0;
    Rufen(l.Hooks.Schaltuhr_B);
}
void EinzelFeiertage_Beginnen(Link& l) {
    l.Lauf.Chain.TimerPart = 0;
    l.Lauf.Chain.HolidayPart = 0;
    Rufen(l.Hooks.EinzelFeiertage);
}
void PermFeiertage_Beginnen(Link& l) {
    l.Lauf.Chain.HolidayPart = 0;
    Rufen(l.Hooks.PermFeiertage);
}
void Benutzer_Anfangen(Link& l) {
    l.Lauf.Chain.HolidayPart = 0;
    l.Lauf.Chain.SlotCursor = 0;
    Rufen(l.Hooks.Benutzer_Beginnen);
}

void Datenstart_Beantwortet(Link& l) {
    Rufen(l.Hooks.Abfrage_Stoppen);
    TelKalenderFlag_Senden(l);
}
void Kanal_Gelesen(Link& l) {
    const auto channel = static_cast<std::uint8_t>(Systemkanal(l) - 1);
    TelEKeyAktion_Senden(l, channel, channel);
    Rufen(l.Hooks.Kanal_Setzen_Planen);
}
void Unit_Offen(Link& l) {
    l.Lauf.Chain.UnitModus = 0xFD;
    l.Lauf.Chain.UnitTry = 0;
    TelUnitOeffnen_Senden(l, l.Lauf.Order.LockAddress);
}
void Kanal_Gesetzt(Link& l) {
    l.Lauf.Chain.KanalSuche = 0;
    // From this reply on the lock listens on the system's channel; every later login of the run goes out on it.
    l.TargetChannel = static_cast<std::uint8_t>(Systemkanal(l));
    Rufen(l.Hooks.Kanal_Gesetzt);
    Nach_Verbunden(l);
}
void Unit_Schluessel(Link& l) {
    l.Lauf.SitzungsSchluessel = SitzungsSchluessel_Neu(l.kern.Welt);
    TelUnitSchluessel_Senden(l);
}
void Trennen(Link& l) {
    l.Lauf.Chain.WiederholZaehler = 0;
    TelTrennen_Senden(l);
}
/// The first wanted reply stays until the next wait: what comes behind it in the same event is not waited for.
void Antwort_Gesehen(Link& l) {
    if (l.ReplySeen == 0 && (!l.ReplyWanted || Erwartet(l, *l.ReplyWanted))) {
        l.ReplySeen = 1;
        const std::span<const std::uint8_t> frame = l.RxFrame();
        l.Reply.assign(frame.begin(), frame.end());
    }
}
void Adapter_Erkannt(Link& l) {
    Antwort_Gesehen(l);
    Rufen(l.Hooks.Adapter_Erkannt);
}
void Adapter_Daten(Link& l) {
    Antwort_Gesehen(l);
    Rufen(l.Hooks.Adapter_Daten);
}
void Schloss_Ende(Link& l) {
    Rufen(l.Hooks.Abfrage_Stoppen);
    Rufen(l.Hooks.Schloss_Ende);
}

/// The device that the run is with is not silent: the frame leads on, or is what the last telegram asked for. What a
/// polled lock says leads on only with the next tick.
bool Bricht_Stille(const Link& l, std::uint8_t code) {
    const bool polled =
        l.TxBuffer[2] == TelLebenszeichen::Telegram.Code && (code == 0x06 || code == 0x08 || code == 0x27);
    return polled || (l.AnswerDue != 0 && code == l.AnswerDue) || Antwort_Fuehrt_Weiter(l);
}

void Ablehnung(Link& l) {
    for (const ReplyRow& row : Ablehnung_Tabelle()) {
        if (row.Condition(l)) {
            row.Action(l);
            return;
        }
    }
}

constexpr ReplyRow Replies[] = {
    {0x03, "unit block transfer", Blocktransfer, Unit_Getrennt},
    {0x03, "otherwise", Immer, Puffer_Leeren},

    {0x04, "a code change waits for its login", Code_Erwartet, Codeaenderung_Verbunden},
    {0x04, "unit block transfer", Blocktransfer, Unit_Datenstart},
    {0x04, "unit session, accepted", Unit_Angenommen, Unit_Angemeldet},
    {0x04, "unit session, refused", Unit_Sitzung, [](Link& l) { Rufen(l.Hooks.Unit_Abgelehnt); }},
    {0x04, "units are searched by logins", Units_Gesucht, [](Link& l) { Rufen(l.Hooks.Suchlauf_Schritt); }},
    {0x04, "channel search, accepted", Kanalsuche_Angenommen, Suche_Erfolgreich},
    {0x04, "channel search, refused", Kanal_Gesucht, Suche_Verweigert},
    {0x04, "accepted", Anmeldung_Angenommen, Angemeldet},
    {0x04, "refused", Immer, Anmeldung_Verweigert},

    {0x05, "unit block transfer", Blocktransfer, [](Link& l) { TelUnitTrennen_Senden(l); }},
    {0x05, "channel change", Kanalwechsel, Kanalwechsel_Fertig},
    {0x05, "unit session", Unit_Sitzung, [](Link& l) { Rufen(l.Hooks.Unit_Fertig); }},
    {0x05, "first of two passes", Zweimal, [](Link& l) { Rufen(l.Hooks.Zweiter_Durchgang); }},
    {0x05, "otherwise", Immer, Schloss_Ende},

    {0x06, "always", Immer, Lebenszeichen_Beantwortet},
    {0x08, "always", Immer, Lebenszeichen_Beantwortet},

    {0x07, "always", Immer, [](Link& l) { TelUhrzeit_Senden(l); }},
    {0x09, "history wanted", Historie_Gewuenscht, Historie_Start},
    {0x09, "otherwise", Immer, [](Link& l) { TelPrioritaet_Senden(l); }},

    {0x0A, "always", Immer, [](Link& l) { Rufen(l.Hooks.Benutzer_Slot); }},
    {0x0B, "always", Immer, [](Link& l) { Rufen(l.Hooks.Benutzer_Name2); }},
    {0x0D, "always", Immer, [](Link& l) { Rufen(l.Hooks.Benutzer_Daten); }},
    {0x0E, "range N, identification pending", Id_Anstehend, [](Link& l) { Rufen(l.Hooks.Id_Daten1); }},
    {0x0E, "timers by user", Modus_PB, [](Link& l) { Rufen(l.Hooks.Benutzer_Zeitgruppen); }},
    {0x0E, "otherwise", Immer, Naechster_Benutzer},
    {0x43, "range N, second part pending", Id_Zweiter_Teil, Id_Zweiter},
    {0x43, "timers by user", Modus_PB, [](Link& l) { Id_Abschliessen(l), Rufen(l.Hooks.Benutzer_Zeitgruppen); }},
    {0x43, "otherwise", Immer, [](Link& l) { Id_Abschliessen(l), Naechster_Benutzer(l); }},
    {0x40, "always", Immer, [](Link& l) { Rufen(l.Hooks.Benutzer_Zeitgruppen); }},
    {0x37, "always", Immer, Naechster_Benutzer},

    {0x12, "done, channel change", Code_Fertig_Kanalwechsel, [](Link& l) { TelKanalLesen_Senden(l, Systemkanal(l)); }},
    {0x12, "a code change was sent", Code_Beantwortet, [](Link& l) { Rufen(l.Hooks.Code_Ergebnis); }},

    {0x15, "always", Immer, Trennen},

    {0x17, "no record, events wanted", Historie_Kein_Satz, [](Link& l) { Historie_Verlieren(l, HistoryLoss::Broken); }},
    {0x17, "a record too many", Historie_Satz_Zuviel, [](Link& l) { Historie_Verlieren(l, HistoryLoss::Endless); }},
    {0x17, "a record", Historie_Satz, Historie_Weiter},
    {0x17, "end, history only or lost", Historie_Ende_Des_Laufs, Historie_Beendet},
    {0x17, "end, programming follows", Immer, Historie_Vorbei},

    {0x19, "short tables", Modus_Nicht_PB, [](Link& l) { Rufen(l.Hooks.Schaltuhr_B_Kurz); }},
    {0x19, "last part", Timer_Fertig, Schaltuhr_B_Beginnen},
    {0x19, "otherwise", Immer, [](Link& l) { Rufen(l.Hooks.Schaltuhr_A); }},
    {0x1B, "short tables or last part", Nicht_PB_Oder_Fertig, EinzelFeiertage_Beginnen},
    {0x1B, "otherwise", Immer, [](Link& l) { Rufen(l.Hooks.Schaltuhr_B); }},
    {0x1F, "last part", Feiertage_Fertig, PermFeiertage_Beginnen},
    {0x1F, "otherwise", Immer, [](Link& l) { Rufen(l.Hooks.EinzelFeiertage); }},
    {0x21, "last part", Feiertage_Fertig, Benutzer_Anfangen},
    {0x21, "otherwise", Immer, [](Link& l) { Rufen(l.Hooks.PermFeiertage); }},

    {0x23, "no lock mode", Ohne_Schlossmodus, [](Link& l) { Rufen(l.Hooks.Daten_Schluss); }},
    {0x23, "otherwise", Immer, [](Link& l) { TelSchlossModus_Senden(l); }},
    {0x32, "always", Immer, [](Link& l) { Rufen(l.Hooks.Daten_Schluss); }},

    {0x25, "listen window", Hoerfenster, [](Link& l) { Rufen(l.Hooks.Zeitfenster); }},
    {0x25, "range N", Leser, [](Link& l) { Rufen(l.Hooks.ReaderEinstellung); }},
    {0x25, "otherwise", Immer, Zeit_Tabellen_Start},
    {0x33, "always", Immer, Zeit_Tabellen_Start},
    {0x3B, "always", Immer, Zeit_Tabellen_Start},

    {0x27, "unit block transfer", Blocktransfer, [](Link& l) { Rufen(l.Hooks.Unit_Bloecke_Start); }},
    {0x27, "the lock is polled", Wird_Abgefragt, Ohne_Wirkung},
    {0x27, "otherwise", Immer, Datenstart_Beantwortet},
    {0x2F, "always", Immer, Datenstart_Senden},

    {0x28, "always", Immer, Kanal_Gelesen},
    {0x29, "unit opening", Unit_Oeffnung, Unit_Offen},
    {0x29, "channel change", Kanalwechsel, [](Link& l) { TelTrennen_Senden(l); }},
    {0x29, "otherwise", Immer, Kanal_Gesetzt},

    {0x3D, "always", Immer, [](Link& l) { TelTrennen_Senden(l); }},
    {0x48, "always", Immer, [](Link& l) { TelUnitVerbinden_Senden(l); }},
    {0x49, "always", Immer, Unit_Schluessel},
    {0x4A, "always", Immer, [](Link& l) { Rufen(l.Hooks.Unit_Block_Quittung); }},
    {0x4B, "always", Immer, [](Link& l) { Rufen(l.Hooks.Unit_Gefunden); }},

    {0x68, "identification that is waited for", Kennung_Erwartet, Adapter_Erkannt},
    {0x6A, "identification that is waited for", Kennung_Erwartet, Adapter_Erkannt},
    {0x6C, "always", Immer, Adapter_Daten},
    {0x6D, "always", Immer, Antwort_Gesehen},
    {0x69, "always", Immer, Ablehnung},

    {0x6F, "always", Immer, [](Link& l) { Rufen(l.Hooks.Karte_Quittung); }},
    {0x72, "always", Immer, [](Link& l) { Rufen(l.Hooks.Karte_Start); }},
    {0x73, "always", Immer, [](Link& l) { Rufen(l.Hooks.Karte_Block); }},
    {0x81, "always", Immer, [](Link& l) { Rufen(l.Hooks.EKey_Ergebnis); }},
    {0xA1, "always", Immer, [](Link& l) { Rufen(l.Hooks.Finger_Schritt); }},
    {0xA2, "always", Immer, [](Link& l) { Rufen(l.Hooks.Finger_Daten); }},
    {0xA3, "always", Immer, [](Link& l) { Rufen(l.Hooks.Finger_Kennung); }},
};

} // namespace

bool Immer(const Link& /*link*/) {
    return true;
}

void Ohne_Wirkung(Link& /*link*/) {}

std::span<const ReplyRow> Antwort_Tabelle() {
    return Replies;
}

bool Antwort_Fuehrt_Weiter(const Link& link) {
    const std::uint8_t code = link.Rx.RxBuffer[2];
    const bool refusal = code == RefusalCode;
    if (!refusal && Eines_Fensters(code)) {
        return false;
    }
    const std::span<const ReplyRow> rows = refusal ? Ablehnung_Tabelle() : Antwort_Tabelle();
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const ReplyRow& candidate) {
        return candidate.Code == code && candidate.Condition(link);
    });
    return row != rows.end() && row->Action != Ohne_Wirkung && row->Action != Puffer_Leeren &&
           row->Action != Lebenszeichen_Beantwortet;
}

bool Anmeldung_Angenommen(const Link& link) {
    return link.Rx.RxLength + 1 >= StatusIndex && link.RxByte(StatusIndex) == LoginAccepted;
}

// A cancel does not cut a session off: it is closed at the next frame, which is discarded.
void Abbruch_Ausfuehren(Link& link) {
    Rufen(link.Hooks.Abbruch);
    Sitzung_Schliessen(link);
}

void Sitzung_Schliessen(Link& link) {
    RxBuffer_Leeren(link, 65); // the code that is left is RpNeustart
    Port_Neu(link);
    link.Lauf.Chain.AbbruchWunsch = 0;
    TelTrennen_Senden(link);
}

void Nach_Verbunden(Link& link) {
    if (link.Lauf.Values.FlagSetClock == 1) {
        TelDatum_Senden(link);
    } else if (Historie_Gewuenscht(link)) {
        Historie_Start(link);
    } else {
        // Without clock and history the priority telegram is not sent: the erase telegram follows the login at once.
        Datenstart_Senden(link);
    }
}

void Datenstart_Senden(Link& link) {
    if (BereichZ(link.Lauf.Order.SerialValue) && link.Lauf.Chain.UnitModus != 0xFD) {
        link.Lauf.Chain.AnswerSeen = false;
        link.Lauf.Chain.AnswerTicks = 0;
        Rufen(link.Hooks.Abfrage_Starten);
    }
    TelDatenStart_Senden(link, link.Lauf.Order.EraseOption);
}

void Zeit_Tabellen_Start(Link& link) {
    link.Lauf.Chain.TimerPart = 0;
    link.Lauf.Chain.HolidayPart = 0;
    if (link.Lauf.Values.TimerMode == TimerPB_UT) {
        Rufen(link.Hooks.Schaltuhr_A);
    } else if (link.Lauf.Values.TimerMode == Timer_ERROR) {
        Rufen(link.Hooks.EinzelFeiertage);
    } else {
        Rufen(link.Hooks.Schaltuhr_A_Kurz);
    }
}

void Antwort_Verteilen(Link& link) {
    const std::int64_t now = link.kern.Welt.Milliseconds();
    const std::uint8_t code = link.Rx.RxBuffer[2];
    // A lock that has just acknowledged its erasing is deaf: the cancel waits until it answers the polling.
    const bool deaf = code == 0x27 && link.TxBuffer[2] == code && !Blocktransfer(link) && Wird_Abgefragt(link);
    if (link.Lauf.Chain.AbbruchWunsch != 0 && !deaf) {
        link.Lauf.Chain.LastAnswer = now;
        Abbruch_Ausfuehren(link);
        return;
    }
    if (!Antwort_Zulaessig(link, code)) {
        return;
    }
    if (Bricht_Stille(link, code)) {
        link.Lauf.Chain.LastAnswer = now;
    }
    Rufen(link.Hooks.Antwort_Gekommen);
    if (Gefaehrdet_Ereignisse(link, code)) {
        Historie_Verlieren(link, HistoryLoss::Broken);
        return;
    }
    for (const ReplyRow& row : Antwort_Tabelle()) {
        if (row.Code == code && row.Condition(link)) {
            Antwort_Abhaken(link, code);
            row.Action(link);
            return;
        }
    }
}

} // namespace qvm
