#pragma once

#include "Programmierlauf.h"

#include <string>
#include <string_view>

/// The steps of a run, to which the rows of the reply chain lead. A step sends at most one telegram unless its line
/// says otherwise.
namespace qvm {

// Login, channel and code (LaufAnmeldung.cpp)
/// Title of the code change's messages.
inline constexpr std::string_view CodeTitle = "QVM 5508 Businnes";
/// The clock follows, else the history, else the erase telegram.
void Schritt_Angemeldet(Programmierlauf& run);
void Schritt_Anmeldung_Abgelehnt(Programmierlauf& run);
/// The same of a lock that was searched on all channels.
void Schritt_Suche_Abgelehnt(Programmierlauf& run);
void Schritt_Unit_Abgelehnt(Programmierlauf& run);
void Schritt_Zweiter_Durchgang(Programmierlauf& run);
void Schritt_Kanal_Weiter(Programmierlauf& run);
/// The lock answered on this channel: it is moved to the system's.
void Schritt_Kanal_Gefunden(Programmierlauf& run);
void Schritt_Kanal_Lesen(Programmierlauf& run);
/// 10 ms later TelKanalSetzen follows.
void Schritt_Kanal_Gelesen(Programmierlauf& run);
/// The lock has moved; the run goes on as behind its login.
void Schritt_Kanal_Gesetzt(Programmierlauf& run);
void Schritt_Code_Verbunden(Programmierlauf& run);
void Schritt_Code_Ergebnis(Programmierlauf& run);
/// A code change that waits for its login is told why there will be none, and ends the wait itself; one that has gone
/// out is told that it was refused.
void Codeaenderung_Gescheitert(Programmierlauf& run, RunOutcome why);
/// Catalogue line of a refused login's status: `Line::CheckCode`, `CodeNotAccepted`, `AccessDenied`, or 0 for none.
int Anmeldung_Zeile(std::uint8_t status);

// The code of a wireless unit (LaufUnitCode.cpp)
/// Turns the link to the unit, 1 to 12 being the channel on which it is to listen, for the login that checks its code.
/// One that nobody answers then walks all channels. No telegram.
void Unit_Code_Beginnen(Programmierlauf& run, const Address& unit, int channel);
/// Nothing of that is left behind, a telegram that is planned included.
void Unit_Code_Beenden(Programmierlauf& run);
/// The unit has the new code: its session goes on, and moves it to the system's channel.
void Schritt_Unit_Code_Genommen(Programmierlauf& run);
/// The login was refused, or nobody was found on any channel; the operator is told. No telegram.
void Schritt_Unit_Login_Abgelehnt(Programmierlauf& run);
/// The session behind the login was refused: its window is told how far it came, or the farewell is repeated.
void Schritt_Unit_Code_Abgelehnt(Programmierlauf& run);
/// The unit has moved, and the operator is told; no telegram.
void Schritt_Kanalwechsel_Ende(Programmierlauf& run);

// Tables and settings (LaufTabellen.cpp). TimerPart and HolidayPart name the part to send and are stepped, to StepDone
// behind the last.
void Schritt_Zeitfenster(Programmierlauf& run);
void Schritt_ReaderEinstellung(Programmierlauf& run);
/// The timer tables, or the calendars for a lock without them.
void Zeit_Tabellen_Start(Programmierlauf& run);
void Schritt_Schaltuhr_A(Programmierlauf& run);
void Schritt_Schaltuhr_B(Programmierlauf& run);
void Schritt_Schaltuhr_B_Beginnen(Programmierlauf& run);
void Schritt_Schaltuhr_B_Kurz(Programmierlauf& run);
void Schritt_EinzelFeiertage(Programmierlauf& run);
void Schritt_EinzelFeiertage_Beginnen(Programmierlauf& run);
void Schritt_PermFeiertage(Programmierlauf& run);
void Schritt_PermFeiertage_Beginnen(Programmierlauf& run);
void Schritt_Daten_Schluss(Programmierlauf& run);
/// TelDatenStart to a lock; starts the polling where the lock wants it.
void Datenstart_Senden(Programmierlauf& run);
void Schritt_Geloescht(Programmierlauf& run);
void Schritt_Lebenszeichen(Programmierlauf& run);
/// No telegram goes out by a timer any more.
void Abfrage_Stoppen(Programmierlauf& run);
void Tick_Timer7(Programmierlauf& run);

// Users (LaufBenutzer.cpp)
/// The user at SlotCursor, or TelSperrTimerFlag behind the last.
void Schritt_Benutzer_Beginnen(Programmierlauf& run);
void Schritt_Erster_Benutzer(Programmierlauf& run);
void Schritt_Naechster_Benutzer(Programmierlauf& run);
void Schritt_Benutzer_Slot(Programmierlauf& run);
void Schritt_Benutzer_Name2(Programmierlauf& run);
void Schritt_Benutzer_Daten(Programmierlauf& run);
void Schritt_Id_Daten1(Programmierlauf& run);
void Schritt_Id_Daten2(Programmierlauf& run);
/// The identification is through: what follows the user's data.
void Schritt_Id_Zeitgruppen(Programmierlauf& run);
void Schritt_Id_Naechster_Benutzer(Programmierlauf& run);
void Schritt_Benutzer_Zeitgruppen(Programmierlauf& run);

// Refusals (Ablehnungen.cpp)
void Schritt_Kein_Kontakt(Programmierlauf& run);
void Schritt_Abgelehnt(Programmierlauf& run);
void Schritt_Leser_Abgelehnt(Programmierlauf& run);
void Schritt_Key_Abgelehnt(Programmierlauf& run);
void Schritt_Karte_Abgelehnt(Programmierlauf& run);
void Schritt_Belegt(Programmierlauf& run);

// End of a lock (LaufEnde.cpp)
void Schritt_Trennen(Programmierlauf& run);
/// TelTrennen to a device that may not let itself be disconnected: at the 40th time the run gives up.
void Noch_Einmal_Trennen(Programmierlauf& run);
/// Units, next row or finished; no telegram.
void Schritt_Schloss_Ende(Programmierlauf& run);
void Schritt_Puffer_Leeren(Programmierlauf& run);
/// Bytes 0 to `last` of the frame received.
void RxBuffer_Leeren(Link& link, int last);
/// The chain leads nowhere any more; the list is not told.
void Kette_Abbrechen(Programmierlauf& run);
/// The same by the operator's cancel, which stops the list.
void Schritt_Abbruch(Programmierlauf& run);
/// And ends the session, with TelTrennen in place of whatever would follow.
void Abbruch_Ausfuehren(Programmierlauf& run);
/// That closing telegram alone; nobody is told of it.
void Sitzung_Schliessen(Programmierlauf& run);
/// The lock is done: the list's next row, or the finished state.
void Schloss_Fertig(Programmierlauf& run);
/// The lock failed. With a list its row is marked "#" with `text`; the result says whether there was a list.
bool Zeile_Fehlgeschlagen(Programmierlauf& run, RunOutcome outcome, std::string_view text);
/// Direct end with a message: the progress window closes and the lock grid comes back.
void Mit_Meldung_Enden(Programmierlauf& run, RunOutcome outcome, int line);
/// Ends the run once; later calls change nothing.
void Lauf_Beenden(Programmierlauf& run, RunOutcome outcome, std::string_view text);
/// Timers 6 to 9 and 11.
void Timer_Anhalten(Programmierlauf& run);
/// Address, mode and class back to the lock's.
void Zum_Schloss_Zurueck(Programmierlauf& run);

/// What stands below the text of a box of a run that has ended: its lock, and what that holds where it is not whole.
std::string Worum(const Programmierlauf& run);
/// The same of a box about the present wireless unit, which is named; the lock is done when it is.
std::string Worum_Unit(const Programmierlauf& run);

// The account at the end of a run (LaufNachweis.cpp)
/// What the account says of lock and units, into the report.
void Bericht_Fuellen(Programmierlauf& run);
/// Why the run must not be called done although it came to its end: a sentence about the lock, else about the first
/// unit that is not done and has not refused either. Empty when all is proven.
std::string Unbewiesen(const Programmierlauf& run);
/// What must be said of a run that is done nevertheless; empty for nothing.
std::string Erledigt_Zusatz(const Programmierlauf& run);
/// Which units refused their login, as a sentence; empty when none did.
std::string Units_Abgelehnt(const Programmierlauf& run);
/// Says at the check box of each unit that was left in its session what became of it.
void Units_Zeigen(const Programmierlauf& run);

// Units (LaufUnits.cpp)
bool Units_Uebrig(const Programmierlauf& run);
/// The present unit's report; nullptr while there is none.
UnitReport* Unit_Bericht(Programmierlauf& run);
/// The last text that the units of this run gave, "" for none.
std::string Unit_Notiz(const Programmierlauf& run);
/// An ordered wait inside a step. The lock's silence is not counted meanwhile. False when the step must not go on: the
/// run was cancelled or has ended in the wait, or another one has begun. A cancel that was wished in the wait is
/// honoured at its end: the closing telegram goes out in place of the next one.
bool Warten(Programmierlauf& run, int interval, int limit);
void Tick_Timer9(Programmierlauf& run);
void Tick_Timer11(Programmierlauf& run);
void Schritt_Unit_Angemeldet(Programmierlauf& run);
/// The next unit follows; no telegram.
void Schritt_Unit_Fertig(Programmierlauf& run);
/// 500 ms later; no telegram.
void Schritt_Unit_Naechster_Kanal(Programmierlauf& run);
void Schritt_Unit_Fehlgeschlagen(Programmierlauf& run);
/// One repeat, then the end.
void Schritt_Unit_Kein_Kontakt(Programmierlauf& run);

// Blocks of a unit of type 2 (LaufUnitBloecke.cpp)
void Schritt_Unit_Offen(Programmierlauf& run);
void Schritt_Unit_Schluessel(Programmierlauf& run);
void Schritt_Unit_Datenstart(Programmierlauf& run);
/// Waits, then TelDatenStart, or TelTrennen after 20 times.
void Schritt_Unit_Datenstart_Wiederholen(Programmierlauf& run);
/// Waits, then the first block, or TelTrennen.
void Schritt_Unit_Bloecke_Start(Programmierlauf& run);
/// May wait between two rows.
void Schritt_Unit_Block_Quittung(Programmierlauf& run);
void Schritt_Unit_Getrennt(Programmierlauf& run);
/// Whether the status of a block's acknowledge lets the block pass. Some that do have a text of their own.
bool Block_Angenommen(std::uint8_t status);

} // namespace qvm
