#include "Antwort_Verteilen.h"
#include "Historienkette.h"
#include "Laufbedingungen.h"
#include "Laufschritte.h"
#include "Modelle.h"
#include "Telegramme.h"

namespace qvm {
namespace {

constexpr std::uint8_t CodePending = 0xFF, CodeChanged = 4, NoLockMode = 0xFF;

bool Code_Erwartet(const Programmierlauf& r) {
    return Kette(r).CodeChangePending == CodePending;
}
bool Unit_Angenommen(const Programmierlauf& r) {
    return Unit_Sitzung(r) && Anmeldung_Angenommen(r.link);
}
bool Kanal_Gesucht(const Programmierlauf& r) {
    return Kette(r).KanalSuche != 0;
}
bool Kanalsuche_Angenommen(const Programmierlauf& r) {
    return Kanal_Gesucht(r) && Anmeldung_Angenommen(r.link);
}
bool Angenommen(const Programmierlauf& r) {
    return Anmeldung_Angenommen(r.link);
}
/// Not for a lock whose events could not be kept: a second pass would erase it.
bool Zweimal(const Programmierlauf& r) {
    return !Historie_Aussteht(r) && Kette(r).TwoPassFlag != 0 && BereichZweiDurchgaenge(r.link.Lauf.Order.SerialValue);
}
bool Leser(const Programmierlauf& r) {
    return BereichN(r.link.Lauf.Order.SerialValue);
}
bool Id_Anstehend(const Programmierlauf& r) {
    return Leser(r) && Kette(r).IdMarke == "P";
}
bool Id_Zweiter_Teil(const Programmierlauf& r) {
    return Leser(r) && Kette(r).IdSecondPart;
}
bool Modus_PB(const Programmierlauf& r) {
    return r.link.Lauf.Values.TimerMode == TimerPB_UT;
}
bool Modus_Nicht_PB(const Programmierlauf& r) {
    return !Modus_PB(r);
}
bool Timer_Fertig(const Programmierlauf& r) {
    return Kette(r).TimerPart == StepDone;
}
bool Nicht_PB_Oder_Fertig(const Programmierlauf& r) {
    return Modus_Nicht_PB(r) || Timer_Fertig(r);
}
bool Feiertage_Fertig(const Programmierlauf& r) {
    return Kette(r).HolidayPart == StepDone;
}
bool Ohne_Schlossmodus(const Programmierlauf& r) {
    return r.link.Lauf.Values.LockMode == NoLockMode;
}
bool Hoerfenster(const Programmierlauf& r) {
    return r.link.Lauf.Values.ListenWindow;
}
bool Wird_Abgefragt(const Programmierlauf& r) {
    return Datenstart_Antwort_Wartet(r.link.Lauf.Order.SerialValue);
}
/// What was asked last, and has not been answered yet.
template <std::uint8_t Code>
bool Gefragt(const Programmierlauf& r) {
    return r.link.AnswerDue == Code;
}
constexpr auto Code_Beantwortet = Gefragt<TelCodeAendern::Telegram.Code>;
/// And is not wanted any more.
template <std::uint8_t Code>
bool Zurueckgezogen(const Programmierlauf& r) {
    return r.link.AnswerWithdrawn == Code;
}
/// The enrolment unit is done with a transponder, whether or not it has told of one.
bool Transponder_Vorbei(const Programmierlauf& r) {
    return Gefragt<TelFingerAbfrage::Telegram.Code>(r) && Leser_Fertig(r.link);
}
bool Code_Fertig_Kanalwechsel(const Programmierlauf& r) {
    return Code_Beantwortet(r) && Kanalwechsel(r) && r.link.RxByte(StatusIndex) == CodeChanged;
}

constexpr ReplyRow Replies[] = {
    // Sessions.
    {0x03, "unit block transfer", Blocktransfer, Schritt_Unit_Getrennt},
    {0x03, "otherwise", Immer, Schritt_Puffer_Leeren},

    {0x04, "a code change waits for its login", Code_Erwartet, Schritt_Code_Verbunden},
    {0x04, "unit block transfer", Blocktransfer, Schritt_Unit_Datenstart},
    {0x04, "unit session, accepted", Unit_Angenommen, Schritt_Unit_Angemeldet},
    {0x04, "unit session, refused", Unit_Sitzung, Schritt_Unit_Abgelehnt},
    {0x04, "units are searched by logins", Units_Gesucht, Zum_Fenster<&WindowHooks::Suchlauf_Schritt>},
    {0x04, "channel search, accepted", Kanalsuche_Angenommen, Schritt_Kanal_Gefunden},
    {0x04, "channel search, refused", Kanal_Gesucht, Schritt_Suche_Abgelehnt},
    {0x04, "accepted", Angenommen, Schritt_Angemeldet},
    {0x04, "refused", Immer, Schritt_Anmeldung_Abgelehnt},

    {0x05, "unit block transfer", Blocktransfer, Senden<TelUnitTrennen_Senden>},
    {0x05, "channel change", Kanalwechsel, Schritt_Kanalwechsel_Ende},
    {0x05, "unit session", Unit_Sitzung, Schritt_Unit_Fertig},
    {0x05, "first of two passes", Zweimal, Schritt_Zweiter_Durchgang},
    {0x05, "otherwise", Immer, Schritt_Schloss_Ende},

    {0x06, "always", Immer, Schritt_Lebenszeichen},
    {0x08, "always", Immer, Schritt_Lebenszeichen},

    // Clock, history, erase.
    {0x07, "always", Immer, Senden<TelUhrzeit_Senden>},
    {0x09, "history wanted", Historie_Gewuenscht, Historie_Start},
    {0x09, "otherwise", Immer, Senden<TelPrioritaet_Senden>},

    {0x17, "no record, events wanted", Historie_Kein_Satz, Historie_Gebrochen},
    {0x17, "a record too many", Historie_Satz_Zuviel, Historie_Endlos},
    {0x17, "a record", Historie_Satz, Historie_Weiter},
    {0x17, "end, history only or lost", Historie_Ende_Des_Laufs, Historie_Beendet},
    {0x17, "end, programming follows", Immer, Historie_Vorbei},

    {0x27, "unit block transfer", Blocktransfer, Schritt_Unit_Bloecke_Start},
    {0x27, "the lock is polled", Wird_Abgefragt, Ohne_Wirkung},
    {0x27, "otherwise", Immer, Schritt_Geloescht},
    {0x2F, "always", Immer, Datenstart_Senden},

    // Settings and tables.
    {0x25, "listen window", Hoerfenster, Schritt_Zeitfenster},
    {0x25, "range N", Leser, Schritt_ReaderEinstellung},
    {0x25, "otherwise", Immer, Zeit_Tabellen_Start},
    {0x33, "always", Immer, Zeit_Tabellen_Start},
    {0x3B, "always", Immer, Zeit_Tabellen_Start},

    {0x19, "short tables", Modus_Nicht_PB, Schritt_Schaltuhr_B_Kurz},
    {0x19, "last part", Timer_Fertig, Schritt_Schaltuhr_B_Beginnen},
    {0x19, "otherwise", Immer, Schritt_Schaltuhr_A},
    {0x1B, "short tables or last part", Nicht_PB_Oder_Fertig, Schritt_EinzelFeiertage_Beginnen},
    {0x1B, "otherwise", Immer, Schritt_Schaltuhr_B},
    {0x1F, "last part", Feiertage_Fertig, Schritt_PermFeiertage_Beginnen},
    {0x1F, "otherwise", Immer, Schritt_EinzelFeiertage},
    {0x21, "last part", Feiertage_Fertig, Schritt_Erster_Benutzer},
    {0x21, "otherwise", Immer, Schritt_PermFeiertage},

    // Users.
    {0x0A, "always", Immer, Schritt_Benutzer_Slot},
    {0x0B, "always", Immer, Schritt_Benutzer_Name2},
    {0x0D, "always", Immer, Schritt_Benutzer_Daten},
    {0x0E, "range N, identification pending", Id_Anstehend, Schritt_Id_Daten1},
    {0x0E, "timers by user", Modus_PB, Schritt_Benutzer_Zeitgruppen},
    {0x0E, "otherwise", Immer, Schritt_Naechster_Benutzer},
    {0x43, "range N, second part pending", Id_Zweiter_Teil, Schritt_Id_Daten2},
    {0x43, "timers by user", Modus_PB, Schritt_Id_Zeitgruppen},
    {0x43, "otherwise", Immer, Schritt_Id_Naechster_Benutzer},
    {0x40, "always", Immer, Schritt_Benutzer_Zeitgruppen},
    {0x37, "always", Immer, Schritt_Naechster_Benutzer},

    // End of a lock.
    {0x23, "no lock mode", Ohne_Schlossmodus, Schritt_Daten_Schluss},
    {0x23, "otherwise", Immer, Senden<TelSchlossModus_Senden>},
    {0x32, "always", Immer, Schritt_Daten_Schluss},
    {0x15, "always", Immer, Schritt_Trennen},

    // Channel and code.
    {0x28, "always", Immer, Schritt_Kanal_Gelesen},
    {0x29, "unit opening", Unit_Oeffnung, Schritt_Unit_Offen},
    {0x29, "channel change", Kanalwechsel, Senden<TelTrennen_Senden>},
    {0x29, "otherwise", Immer, Schritt_Kanal_Gesetzt},
    {0x12, "done, channel change", Code_Fertig_Kanalwechsel, Schritt_Unit_Code_Genommen},
    {0x12, "a code change was sent", Code_Beantwortet, Schritt_Code_Ergebnis},

    // Units.
    {0x3D, "always", Immer, Senden<TelTrennen_Senden>},
    {0x48, "always", Immer, Senden<TelUnitVerbinden_Senden>},
    {0x49, "always", Immer, Schritt_Unit_Schluessel},
    {0x4A, "always", Immer, Schritt_Unit_Block_Quittung},
    {0x4B, "always", Immer, Zum_Fenster<&WindowHooks::Unit_Gefunden>},

    // Cards and credentials.
    {0x6F, "the user window, a transponder was asked for", Transponder_Vorbei, Zum_Fenster<&WindowHooks::Leser_Fertig>},
    {0x6F, "a card was being written", Gefragt<0x6F>, Zum_Fenster<&WindowHooks::Karte_Quittung>},
    {0x72, "asked for", Gefragt<0x72>, Zum_Fenster<&WindowHooks::Karte_Start>},
    {0x73, "asked for", Gefragt<0x73>, Zum_Fenster<&WindowHooks::Karte_Block>},
    {0x81, "asked for", Gefragt<0x67>, Zum_Fenster<&WindowHooks::EKey_Ergebnis>},
    {0x81, "withdrawn", Zurueckgezogen<0x67>, Zum_Fenster<&WindowHooks::Leser_Verspaetet>},
    {0xA1, "a finger is being enrolled", Gefragt<0xA1>, Zum_Fenster<&WindowHooks::Finger_Schritt>},
    {0xA2, "a finger is being enrolled", Gefragt<0xA1>, Zum_Fenster<&WindowHooks::Finger_Daten>},
    {0xA3, "asked for", Gefragt<0xA3>, Zum_Fenster<&WindowHooks::Finger_Kennung>},
    {0xA3, "withdrawn", Zurueckgezogen<0xA3>, Zum_Fenster<&WindowHooks::Leser_Verspaetet>},
};

} // namespace

std::span<const ReplyRow> Antwort_Tabelle() {
    return Replies;
}

} // namespace qvm
