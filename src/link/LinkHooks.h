#pragma once

#include <cstdint>
#include <functional>

namespace qvm {

/// Where the reply chain leads into windows, tables and files. Filled once, with designated initialisers.
/// Every hook sends at most one telegram unless its line says otherwise.
struct LinkHooks {
    // Login.
    std::function<void()> Nach_Verbunden;           ///< 0x04 accepted: clock, history or erase
    std::function<void()> Anmeldung_Abgelehnt;      ///< 0x04 with another status than 4; no telegram
    std::function<void()> Suche_Abgelehnt;          ///< the same while channels are searched
    std::function<void()> Unit_Abgelehnt;           ///< the same in a unit session
    std::function<void()> Suchlauf_Schritt;         ///< 0x04 or 0x69 while units are searched by logins
    std::function<void()> Kanal_Gesetzt;            ///< 0x29: the lock moved to the system's channel
    std::function<void()> Kanal_Setzen_Planen;      ///< 10 ms later TelKanalSetzen

    // Clock, history, erase.
    std::function<void()> Historie_Start;
    std::function<void()> Historie_Schritt;         ///< 0x17
    std::function<void()> Datenstart;               ///< 0x2F: TelDatenStart, and Timer7 where the lock wants polling
    std::function<void()> Datenstart_Antwort;       ///< 0x27 outside a unit session
    std::function<void()> Kalenderflag_Antwort;     ///< 0x25

    // Tables.
    std::function<void()> Zeit_Tabellen_Start;
    std::function<void()> Schaltuhr_A_Weiter;       ///< 0x19
    std::function<void()> Schaltuhr_B_Weiter;       ///< 0x1B
    std::function<void()> EinzelFeiertage_Weiter;   ///< 0x1F
    std::function<void()> PermFeiertage_Weiter;     ///< 0x21

    // Users.
    std::function<void()> Benutzer_Slot;            ///< 0x0A
    std::function<void()> Benutzer_Name2;           ///< 0x0B
    std::function<void()> Benutzer_Daten;           ///< 0x0D
    std::function<void()> Benutzer_Daten_Fertig;    ///< 0x0E
    std::function<void()> Id_Daten_Fertig;          ///< 0x43
    std::function<void()> Benutzer_Zeitgruppen;     ///< 0x40
    std::function<void()> Naechster_Benutzer;       ///< 0x37

    // Closing.
    std::function<void()> Daten_Schluss;            ///< 0x23 without a lock mode, 0x32
    std::function<void()> Zweiter_Durchgang;        ///< 0x05 in a two-pass run: logs in again
    std::function<void()> Schloss_Ende;             ///< 0x05: units, next row or finished
    std::function<void()> Abbruch_Fertig;           ///< 0x05 after a cancel
    std::function<void()> Kanalwechsel_Ende;        ///< 0x05 under "F22"
    std::function<void()> Abbruch;                  ///< a cancel was wished: port reopened, chain stopped, TelTrennen

    // Units.
    std::function<void()> Unit_Schritt;             ///< 0x05 under "UNIT": the next unit, 600 ms later
    std::function<void()> Unit_Oeffnen;             ///< 0x29 in unit opening
    std::function<void()> Unit_Schluessel;          ///< 0x49
    std::function<void()> Unit_Bloecke_Start;       ///< 0x27 in a unit session; waits, then the first block or TelTrennen
    std::function<void()> Unit_Block_Quittung;      ///< 0x4A; may wait between rows
    std::function<void()> Unit_Getrennt;            ///< 0x03
    std::function<void()> Unit_Datenstart_Antwort;  ///< 0x04 in block transfer
    std::function<void()> Unit_Gefunden;            ///< 0x4B
    std::function<void()> Unit_Kanal_Leer;          ///< 0x69 in the unit-list scan

    // Code change.
    std::function<void()> Code_Ergebnis;            ///< 0x12

    // Refusals, 0x69.
    std::function<void()> Unit_Datenstart_Wiederholen;
    std::function<void()> Unit_Naechster_Kanal;
    std::function<void()> Unit_Fehlgeschlagen;
    std::function<void()> Kanal_Weiter;             ///< 0x64 in a channel search
    std::function<void()> Unit_Kein_Kontakt;        ///< 0x64 under "UNIT"
    std::function<void()> Kein_Kontakt;             ///< 0x64 otherwise
    std::function<void()> Abgelehnt;                ///< 0x65
    std::function<void()> Key_Abgelehnt;            ///< 0x66
    std::function<void()> Trennen_Aufgegeben;       ///< 0x67 for the 40th time
    std::function<void()> Karte_Abgelehnt;          ///< 0x6A

    // Adapters, cards, credentials: windows.
    std::function<void()> Adapter_Erkannt;          ///< 0x68, 0x6A
    std::function<void()> Adapter_Daten;            ///< 0x6C
    std::function<void()> Karte_Quittung;           ///< 0x6F
    std::function<void()> Karte_Start;              ///< 0x72
    std::function<void()> Karte_Block;              ///< 0x73
    std::function<void()> EKey_Ergebnis;            ///< 0x81
    std::function<void()> Finger_Schritt;           ///< 0xA1
    std::function<void()> Finger_Daten;             ///< 0xA2
    std::function<void()> Finger_Kennung;           ///< 0xA3

    // Progress.
    std::function<void()> Fortschritt;              ///< after each sent telegram; the values stand in RunState
};

} // namespace qvm
