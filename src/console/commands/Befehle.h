#pragma once

#include "Console.h"
#include "Optionen.h"

#include <string>
#include <vector>

/// The commands, one for each word of the command line. Each reports and gives the exit code.
namespace qvm {

/// `file`: empty or "-" for standard output. A written file gets mode 0600.
ExitCode Befehl_Export(const Umgebung& world, const Console& console, const std::string& file);

/// `file`: a path, or "-" for standard input.
ExitCode Befehl_Import(const Umgebung& world, const Console& console, const std::string& file);

/// import --csv: a spreadsheet of the users or of the locks, told apart by its headings. With something refused, and
/// with
/// --dry-run, nothing is written.
ExitCode Befehl_Tabelle(const Umgebung& world, const Console& console, const Optionen& options);

/// report: one of the reports as PDF.
ExitCode Befehl_Bericht(const Umgebung& world, const Console& console, const Optionen& options);

ExitCode Befehl_Check(const Umgebung& world, const Console& console);

/// doctor: whether the PC is fit for the program; with --fix it mends what needs no judgement, and asks before.
ExitCode Befehl_Doktor(const Umgebung& world, const Console& console, const Optionen& options);

/// program and history, lock by lock; run: a list of locks, as the run list does it.
ExitCode Befehl_Lauf(const Umgebung& world, const Console& console, const Optionen& options);

/// A table of the users, without codes and identifications.
ExitCode Befehl_Benutzer(const Umgebung& world, const Console& console, const Optionen& options);

/// A table of the locks, and one of their wireless units.
ExitCode Befehl_Schloesser(const Umgebung& world, const Console& console, const Optionen& options);
ExitCode Befehl_Units(const Umgebung& world, const Console& console, const Optionen& options);

/// change-code: the administrator code of one lock; unit-code: that of one of its units.
ExitCode Befehl_Code(const Umgebung& world, const Console& console, const Optionen& options);

/// scan: who listens on the radio channels; one of them is taken as a lock, or as a unit of one.
ExitCode Befehl_Suche(const Umgebung& world, const Console& console, const Optionen& options);

/// Switch clocks, groups, calendars and offsets as tables.
ExitCode Befehl_Zeiten(const Umgebung& world, const Console& console);

/// when: whether the times of a lock let its users in at a moment, and why; or the week as a picture. Nothing is sent.
ExitCode Befehl_Zutritt(const Umgebung& world, const Console& console, const Optionen& options);

/// learn, find-key and sync-key, with the readers of the desk.
ExitCode Befehl_Anlernen(const Umgebung& world, const Console& console, const Optionen& options);
ExitCode Befehl_Key_Suchen(const Umgebung& world, const Console& console, const Optionen& options);

/// card write and card read, through the handlers of the window of the guest cards.
ExitCode Befehl_Karte(const Umgebung& world, const Console& console, const Optionen& options);

/// Prints the events of .HST files; without a file those of all in HIST.
ExitCode Befehl_Ereignisse(const Umgebung& world, const Console& console, const Optionen& options);

/// What a lock would get, telegram by telegram. Nothing is sent and nothing is written.
/// `force`: damaged data files are taken as they are.
ExitCode Befehl_Dataset(const Umgebung& world, const Console& console, int lock, bool force);

/// `file`: a path, or empty or "-" for standard input. Codes stay hidden.
ExitCode Befehl_Decode(const Umgebung& world, const Console& console, const std::string& file);

/// The whole of what the command line names: a file, a pipe or a device up to its end, standard input for "-". Gives
/// why it cannot be read, a sentence; empty when all is well.
std::string Eingabe_Lesen(const Umgebung& world, const std::string& file, std::string& bytes);
/// Replaces the file that the command line names, all or nothing, mode 0600. What is no file, as a device or a pipe, is
/// written into. False when it could not be written.
bool Ausgabedatei_Schreiben(const Umgebung& world, const std::string& file, const std::string& text);
/// As Eingabe_Lesen, of a file that nobody named. A pipe or a device in its place is refused.
std::string Datei_Lesen(const Umgebung& world, const std::string& file, std::string& bytes);

} // namespace qvm
