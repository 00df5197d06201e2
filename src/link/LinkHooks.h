#pragma once

#include <functional>

namespace qvm {

/// Where the reply chain leads into tables, windows and files. Filled once, with designated initialisers. A hook sends
/// at most one telegram unless its line says otherwise.
struct LinkHooks {
    // Every telegram to a device, and every good frame that may act.
    std::function<void()> Telegramm_Geht;   ///< TxBuffer is about to go out; no telegram
    std::function<void()> Antwort_Gekommen; ///< before the chain acts on it; no telegram

    // Login.
    std::function<void()> Anmeldung_Abgelehnt; ///< 0x04 with another status than 4
    std::function<void()> Suche_Abgelehnt;     ///< the same while channels are searched
    std::function<void()> Unit_Abgelehnt;      ///< the same in a unit session
    std::function<void()> Suchlauf_Schritt;    ///< 0x04 or 0x69 while units are searched by logins
    std::function<void()> Kanal_Setzen_Planen; ///< 10 ms later TelKanalSetzen
    std::function<void()> Kanal_Gesetzt;       ///< 0x29: the lock moved to the system's channel; no telegram

    // History and erase.
    std::function<void()> Historie_Anzeigen; ///< reading begins; no telegram
    std::function<void()> Historie_Eintrag;  ///< a record came; no telegram
    std::function<void()> Historie_Fertig;   ///< behind the last record; no telegram
    std::function<void()> Abfrage_Starten;   ///< Timer7, 2000 ms; no telegram
    std::function<void()> Abfrage_Stoppen;   ///< no telegram goes out by a timer any more

    // Settings and tables. TimerPart and HolidayPart name the part to send and are stepped, to 0xFF behind the last.
    std::function<void()> Zeitfenster;
    std::function<void()> ReaderEinstellung;
    std::function<void()> Schaltuhr_A;
    std::function<void()> Schaltuhr_A_Kurz;
    std::function<void()> Schaltuhr_B;
    std::function<void()> Schaltuhr_B_Kurz;
    std::function<void()> EinzelFeiertage;
    std::function<void()> PermFeiertage;

    // Users.
    std::function<void()> Benutzer_Beginnen; ///< the user at SlotCursor, or TelSperrTimerFlag behind the last
    std::function<void()> Benutzer_Slot;     ///< 0x0A
    std::function<void()> Benutzer_Name2;    ///< 0x0B
    std::function<void()> Benutzer_Daten;    ///< 0x0D
    std::function<void()> Id_Daten1;
    std::function<void()> Id_Daten2;
    std::function<void()> Benutzer_Zeitgruppen;

    // End of a lock.
    std::function<void()> Daten_Schluss;
    std::function<void()> Zweiter_Durchgang; ///< logs in again
    std::function<void()> Schloss_Ende;      ///< 0x05: units, next row or finished; no telegram
    std::function<void()> Kanalwechsel_Ende; ///< 0x05 under "F22"; no telegram
    std::function<void()> Abbruch; ///< a cancel was wished: stops timers and whatever would follow; no telegram

    // Units.
    std::function<void()> Unit_Fertig;         ///< 0x05 under "UNIT": the next unit follows; no telegram
    std::function<void()> Unit_Getrennt;       ///< 0x03 in a unit session; no telegram
    std::function<void()> Unit_Bloecke_Start;  ///< 0x27 in a unit session; waits, then the first block or TelTrennen
    std::function<void()> Unit_Block_Quittung; ///< 0x4A; may wait between rows
    std::function<void()> Unit_Gefunden;       ///< 0x4B
    std::function<void()> Unit_Kanal_Leer;     ///< 0x69 in the unit-list scan

    // Code change.
    std::function<void()> Code_Ergebnis; ///< 0x12; no telegram

    // Refusals, 0x69.
    std::function<void()> Unit_Datenstart_Wiederholen; ///< waits, then TelDatenStart, or TelTrennen after 20 times
    std::function<void()> Unit_Naechster_Kanal;        ///< 500 ms later; no telegram
    std::function<void()> Unit_Fehlgeschlagen;         ///< no telegram
    std::function<void()> Unit_Kein_Kontakt;           ///< 0x64 under "UNIT": one repeat, then the end
    std::function<void()> Kanal_Weiter;                ///< 0x64 in a channel search
    std::function<void()> Kein_Kontakt;                ///< 0x64 otherwise; no telegram
    std::function<void()> Abgelehnt;                   ///< 0x65; no telegram
    std::function<void()> Key_Abgelehnt;               ///< 0x66; no telegram
    std::function<void()> Trennen_Aufgegeben;          ///< 0x67 for the 40th time; no telegram
    std::function<void()> Karte_Abgelehnt;             ///< 0x6A; no telegram

    // Adapters, cards, credentials.
    std::function<void()> Adapter_Erkannt; ///< 0x68, 0x6A
    std::function<void()> Adapter_Daten;   ///< 0x6C
    std::function<void()> Karte_Quittung;  ///< 0x6F
    std::function<void()> Karte_Start;     ///< 0x72
    std::function<void()> Karte_Block;     ///< 0x73
    std::function<void()> EKey_Ergebnis;   ///< 0x81
    std::function<void()> Finger_Schritt;  ///< 0xA1
    std::function<void()> Finger_Daten;    ///< 0xA2
    std::function<void()> Finger_Kennung;  ///< 0xA3

    // Progress.
    std::function<void()> Fortschritt; ///< after each sent telegram; the values stand in RunState
};

/// Calls a hook that may be empty.
inline void Rufen(const std::function<void()>& hook) {
    if (hook) {
        hook();
    }
}

} // namespace qvm
