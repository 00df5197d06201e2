#pragma once

#include "Zeit.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace qvm {

enum class Command {
    Program,
    History,
    Run,
    Events,
    Dataset,
    Export,
    Import,
    Report,
    Check,
    Decode,
    Users,
    Locks,
    Units,
    ChangeCode,
    UnitCode,
    Scan,
    Times,
    When,
    Learn,
    FindKey,
    SyncKey,
    Card,
    Doctor
};

/// The command line, taken apart.
struct Optionen {
    Command Wanted = Command::Check;
    std::string Directory; ///< --dir; empty: by ProgramDirectory_Choose
    std::string Port;      ///< --port; empty: configuration
    bool Json = false;
    std::string Trace; ///< --trace; empty: none

    std::vector<int> Locks;     ///< program, history, run, dataset, change-code
    bool HistoryFirst = false;  ///< program --history, run --history
    bool HistoryOnly = false;   ///< run --history-only
    std::optional<DateTime> At; ///< run, when
    std::optional<Datum> Since; ///< program, history, run
    bool Keep = true;           ///< program --erase keep, run --erase keep
    bool Force = false;         ///< program, run, dataset: damaged data files are taken as they are
    std::string CodeFrom;       ///< a path, "-", or empty: ask on the terminal
    int TimeoutSeconds = 30;    ///< 0: wait for ever
    /// learn: "ekey", "transponder" or "finger"; card: "write" or "read"; report: "people", "doors", "persons",
    /// "receipt" or "events".
    std::string Kind;
    std::optional<DateTime> CheckIn, CheckOut; ///< card write
    std::optional<int> Group;                  ///< card write: of the object, 0 to 254
    int User = 0;                              ///< learn, report; when, 0: all of the lock
    bool Week = false;                         ///< when
    bool NewKey = false;                       ///< learn ekey: Yes at the question of a newer adapter
    bool Transponder = false;                  ///< find-key
    std::string Find;                          ///< users, locks: only with this text in the name
    /// users: only with a mark for this lock; units: only of it; 0: all. Which one in unit-code, scan, when, report.
    int Lock = 0;
    int Unit = 0;          ///< unit-code: 1 to 5; scan --row, 0: the first free one
    bool ForUnits = false; ///< scan --units
    std::string Take;      ///< scan: this serial number; empty: none
    std::string File;      ///< export, import, decode; report --out
    std::string Subject;   ///< report: of whom, or of which history file
    std::string Language;  ///< report --lang: "de", "en", "fr", "nl"; empty: the configured one

    std::vector<std::string> Files; ///< events; "-": standard input; none: all of HIST
    std::string Name, Event;        ///< events: only these; empty: all
    std::optional<Datum> Date;      ///< events: only of this day
    bool Csv = false;               ///< events, import
    bool DryRun = false;            ///< import --csv

    bool Fix = false; ///< doctor
    bool Yes = false; ///< doctor --fix: nobody is asked
};

/// Nothing when the program is to end at once, with `exitCode`: after a help text on `out`, or a fault on `err`.
/// `today`: a date behind it is no cut-off.
std::optional<Optionen> Befehlszeile_Lesen(int argc, const char* const* argv, const Datum& today, std::ostream& out,
                                           std::ostream& err, int& exitCode);

} // namespace qvm
