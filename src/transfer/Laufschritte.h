#pragma once

#include "Programmierlauf.h"

#include <string>
#include <string_view>

/// The steps of a run, one for each hook of the reply chain. Nothing outside the run includes this.
namespace qvm {

// Login (LaufAnmeldung.cpp)
void Schritt_Anmeldung_Abgelehnt(Programmierlauf& run);
void Schritt_Unit_Abgelehnt(Programmierlauf& run);
void Schritt_Kanal_Weiter(Programmierlauf& run);
void Schritt_Kanal_Gesetzt(Programmierlauf& run);
void Schritt_Zweiter_Durchgang(Programmierlauf& run);
/// Catalogue line of a refused login's status: 70, 71, 111, or 0 for none.
int Anmeldung_Zeile(std::uint8_t status);

// Tables and settings (LaufTabellen.cpp)
void Schritt_Zeitfenster(Programmierlauf& run);
void Schritt_ReaderEinstellung(Programmierlauf& run);
void Schritt_Schaltuhr_A(Programmierlauf& run);
void Schritt_Schaltuhr_B(Programmierlauf& run);
void Schritt_EinzelFeiertage(Programmierlauf& run);
void Schritt_PermFeiertage(Programmierlauf& run);
void Schritt_Daten_Schluss(Programmierlauf& run);
void Tick_Timer7(Programmierlauf& run);

// Users (LaufBenutzer.cpp)
void Schritt_Benutzer_Beginnen(Programmierlauf& run);
void Schritt_Benutzer_Slot(Programmierlauf& run);
void Schritt_Benutzer_Name2(Programmierlauf& run);
void Schritt_Benutzer_Daten(Programmierlauf& run);
void Schritt_Id_Daten1(Programmierlauf& run);
void Schritt_Id_Daten2(Programmierlauf& run);
void Schritt_Benutzer_Zeitgruppen(Programmierlauf& run);

// End of a lock (LaufEnde.cpp)
void Schritt_Schloss_Ende(Programmierlauf& run);
void Schritt_Historie_Fertig(Programmierlauf& run);
/// The chain leads nowhere any more; the list is not told.
void Kette_Abbrechen(Programmierlauf& run);
/// The same by the operator's cancel, which stops the list.
void Schritt_Abbruch(Programmierlauf& run);
void Schritt_Kein_Kontakt(Programmierlauf& run);
void Schritt_Abgelehnt(Programmierlauf& run);
void Schritt_Key_Abgelehnt(Programmierlauf& run);
void Schritt_Trennen_Aufgegeben(Programmierlauf& run);
void Schritt_Code_Ergebnis(Programmierlauf& run);
/// The lock is done: the list's next row, or the finished state.
void Schloss_Fertig(Programmierlauf& run);
/// The lock failed. With a list its row is marked "#" with `text`; the result says whether there was a list.
bool Zeile_Fehlgeschlagen(Programmierlauf& run, RunOutcome outcome, std::string_view text);
/// A code change that waits for its login is told that there will be none.
void Codeaenderung_Gescheitert(Programmierlauf& run);
/// Direct end with a message: the progress window closes and the lock grid comes back.
void Mit_Meldung_Enden(Programmierlauf& run, RunOutcome outcome, int line);
/// Ends the run once; later calls change nothing.
void Lauf_Beenden(Programmierlauf& run, RunOutcome outcome, std::string_view text);
/// Finished state of the progress window, with that status line, or with the report's text.
void Ende_Zeigen(const Programmierlauf& run, int line = 0);
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
void Tick_Timer9(Programmierlauf& run);
void Tick_Timer11(Programmierlauf& run);
void Schritt_Unit_Fertig(Programmierlauf& run);
void Schritt_Unit_Getrennt(Programmierlauf& run);
void Schritt_Unit_Bloecke_Start(Programmierlauf& run);
void Schritt_Unit_Block_Quittung(Programmierlauf& run);
void Schritt_Unit_Datenstart_Wiederholen(Programmierlauf& run);
void Schritt_Unit_Naechster_Kanal(Programmierlauf& run);
void Schritt_Unit_Fehlgeschlagen(Programmierlauf& run);
void Schritt_Unit_Kein_Kontakt(Programmierlauf& run);
/// Whether the status of a block's acknowledge lets the block pass. Some that do have a text of their own.
bool Block_Angenommen(std::uint8_t status);
/// The last text that the units of this run gave, "" for none.
std::string Unit_Notiz(const Programmierlauf& run);

} // namespace qvm
