#include "Optionen.h"

#include "Befehlszeile.h"
#include "Console.h"
#include "OptionTexts.h"

#include <CLI/CLI.hpp>
#include <functional>

namespace qvm {

namespace {

void Lauf_Optionen(CLI::App& command, Optionen& options, OptionTexts& texts) {
    command.add_option("LOCK", options.Locks, "lock numbers, 1 to 200")->required()->check(CLI::Range(1, 200));
    command.add_option("--since", texts.Since, "oldest event wanted, DD.MM.YYYY (default: 20 days before today)");
    command
        .add_option("--code-from", options.CodeFrom,
                    "read the administrator code as one line from FILE, or from standard input with -")
        ->type_name("FILE");
    command
        .add_option("--timeout", options.TimeoutSeconds,
                    "seconds of silence before the run is given up; 0 waits for ever (default: 30)")
        ->check(CLI::Range(0, 86400));
}

void Force_Option(CLI::App& command, Optionen& options) {
    command.add_flag("--force", options.Force, "go on although a data file is damaged");
}

void Erase_Option(CLI::App& command, OptionTexts& texts) {
    command.add_option("--erase", texts.Erase, "fingerprints that the lock holds: keep (default) or wipe")
        ->check(CLI::IsMember({"keep", "wipe"}));
}

void Ereignis_Optionen(CLI::App& command, Optionen& options, OptionTexts& texts) {
    command.add_option("FILE", options.Files, "history files, - for standard input (default: all of HIST)");
    command.add_option("--name", options.Name, "only events of this name");
    command.add_option("--date", texts.Date, "only events of this day, DD.MM.YYYY");
    command.add_option("--event", options.Event, "only events with this text as event or state");
    command.add_flag("--csv", options.Csv, "a line for each event, fields separated by semicolons");
}

void Timeout_Option(CLI::App& command, Optionen& options) {
    command
        .add_option("--timeout", options.TimeoutSeconds,
                    "seconds of silence before the reader is given up; 0 waits for ever (default: 30)")
        ->check(CLI::Range(0, 86400));
}

void Import_Optionen(CLI::App& command, Optionen& options) {
    command.add_option("FILE", options.File, "document or table to read, - for standard input")->required();
    CLI::Option* csv =
        command.add_flag("--csv", options.Csv, "FILE is a table of users or locks, as the windows export them");
    command.add_flag("--dry-run", options.DryRun, "only show what the table would change")->needs(csv);
}

void Bericht_Optionen(CLI::App& command, Optionen& options) {
    command
        .add_option("KIND", options.Kind,
                    "people, doors (of a user), persons (of a lock), receipt (for a user) or events (of a history)")
        ->required()
        ->check(CLI::IsMember({"people", "doors", "persons", "receipt", "events"}));
    command.add_option("OF", options.Subject,
                       "user number, lock number, or history file (- for standard input); none for people");
    command.add_option("--out", options.File, "the PDF to write, - for standard output")->required();
    command.add_option("--lang", options.Language, "de, en, fr or nl (default: the configured language)")
        ->check(CLI::IsMember({"de", "en", "fr", "nl"}));
}

using CommandMaker = std::function<CLI::App*(const char* name, const char* text, Command which)>;

void Ein_Schloss(CLI::App& command, Optionen& options) {
    command.add_option("LOCK", options.Locks, "lock number, 1 to 200")
        ->required()
        ->expected(1)
        ->check(CLI::Range(1, 200));
}

void Codes_Option(CLI::App& command, Optionen& options) {
    command
        .add_option("--codes-from", options.CodeFrom,
                    "read old code, new code and new code again, a line each, from FILE, or from standard input "
                    "with -")
        ->type_name("FILE");
}

void Scan_Optionen(CLI::App& command, Optionen& options) {
    CLI::Option* lock = command.add_option("--lock", options.Lock, "for this lock, by logins; needs its code");
    lock->check(CLI::Range(1, 200));
    CLI::Option* units = command.add_option_function<int>(
        "--units",
        [&options](int number) {
            options.Lock = number;
            options.ForUnits = true;
        },
        "for the units of this lock");
    units->check(CLI::Range(1, 200))->excludes(lock);
    CLI::Option* take = command.add_option("--take", options.Take, "take the device with this serial number");
    command.add_option("--row", options.Unit, "which unit it becomes, 1 to 5 (default: the first free one)")
        ->check(CLI::Range(1, 5))
        ->needs(units)
        ->needs(take);
    command
        .add_option("--code-from", options.CodeFrom,
                    "read the administrator code as one line from FILE, or from standard input with -")
        ->type_name("FILE")
        ->needs(lock);
}

/// What is about locks, units and their codes.
void Schlossbefehle_Anlegen(const CommandMaker& add, Optionen& options) {
    add("locks", "list the locks", Command::Locks)
        ->add_option("--find", options.Find, "only locks with this text in their name");
    add("units", "list the wireless units of the locks", Command::Units)
        ->add_option("LOCK", options.Lock, "only those of this lock")
        ->check(CLI::Range(1, 200));
    CLI::App* change = add("change-code", "change the administrator code of a lock", Command::ChangeCode);
    Ein_Schloss(*change, options);
    Codes_Option(*change, options);
    CLI::App* unit = add("unit-code", "change the code of a lock's unit, and move it to the system's radio channel",
                         Command::UnitCode);
    unit->add_option("LOCK", options.Lock, "lock number, 1 to 200")->required()->check(CLI::Range(1, 200));
    unit->add_option("UNIT", options.Unit, "unit number, 1 to 5")->required()->check(CLI::Range(1, 5));
    Codes_Option(*unit, options);
    Scan_Optionen(*add("scan", "list who listens on the radio channels, and take one of them", Command::Scan), options);
}

/// What is about persons.
void Personenbefehle_Anlegen(const CommandMaker& add, Optionen& options) {
    CLI::App* users = add("users", "list the users, without their codes", Command::Users);
    users->add_option("--find", options.Find, "only users with this text in their name");
    users->add_option("--lock", options.Lock, "only users with a mark for this lock")->check(CLI::Range(1, 200));
    CLI::App* learn = add("learn", "give a user what a reader of the desk reads", Command::Learn);
    learn->add_option("KIND", options.Kind, "ekey, transponder or finger")
        ->required()
        ->check(CLI::IsMember({"ekey", "transponder", "finger"}));
    learn->add_option("USER", options.User, "user number, 1 to 250")->required()->check(CLI::Range(1, 250));
    learn->add_flag("--new", options.NewKey, "E-Key: learn it as a new one");
    Timeout_Option(*learn, options);
    CLI::App* find = add("find-key", "tell whose E-Key, or transponder, a reader of the desk reads", Command::FindKey);
    find->add_flag("--transponder", options.Transponder, "a transponder instead of an E-Key");
    Timeout_Option(*find, options);
    Timeout_Option(*add("sync-key", "note that an E-Key is on the system's radio channel", Command::SyncKey), options);
}

/// Guest cards.
void Kartenbefehl_Anlegen(const CommandMaker& add, Optionen& options, OptionTexts& texts) {
    CLI::App* card = add("card", "write a guest card, or read one", Command::Card);
    card->add_option("KIND", options.Kind, "write or read")->required()->check(CLI::IsMember({"write", "read"}));
    card->add_option("--in", texts.CheckIn, "write: check-in, \"DD.MM.YYYY hh:mm\"");
    card->add_option("--out", texts.CheckOut, "write: check-out, \"DD.MM.YYYY hh:mm\"");
    card->add_option("--door", options.Locks, "write: locks that it opens beside the permanent doors, 1 to 200")
        ->expected(1, 200)
        ->check(CLI::Range(1, 200));
    card->add_option("--group", options.Group, "write: object group (default: the current one)")
        ->check(CLI::Range(0, 254));
    Timeout_Option(*card, options);
}

/// What is about times.
void Zeitbefehle_Anlegen(const CommandMaker& add, Optionen& options, OptionTexts& texts) {
    add("times", "list the switch clocks, their groups, the calendars and the offsets", Command::Times);
    CLI::App* when = add("when",
                         "tell whether the times of a lock let its users in, by what the lock would be sent: at every "
                         "minute that one of a user's slots holds. How a lock's own firmware takes several slots, lock "
                         "timers and holidays, it decides itself; they are told beside",
                         Command::When);
    when->add_option("LOCK", options.Lock, "lock number, 1 to 200")->required()->check(CLI::Range(1, 200));
    when->add_option("USER", options.User, "only this user, 1 to 250")->check(CLI::Range(1, 250));
    when->add_option("--at", texts.At, "at this time, \"DD.MM.YYYY hh:mm\" (default: now)");
    when->add_flag("--week", options.Week, "the whole week, Monday to Sunday, as a picture");
}

/// The state of the PC.
void Doktorbefehl_Anlegen(const CommandMaker& add, Optionen& options) {
    CLI::App* doctor =
        add("doctor", "look whether the PC is fit for the program; locks are sent nothing", Command::Doctor);
    CLI::Option* fix = doctor->add_flag("--fix", options.Fix, "mend what needs no judgement; asks before each");
    doctor->add_flag("--yes", options.Yes, "mend without asking")->needs(fix);
}

void Befehle_Anlegen(CLI::App& app, Optionen& options, OptionTexts& texts) {
    const CommandMaker add = [&](const char* name, const char* text, Command which) {
        CLI::App* command = app.add_subcommand(name, text);
        command->callback([&options, which] { options.Wanted = which; });
        return command;
    };
    CLI::App* program = add("program", "program locks from the data files", Command::Program);
    Lauf_Optionen(*program, options, texts);
    program->add_flag("--history", options.HistoryFirst, "read the history before programming");
    Erase_Option(*program, texts);
    Force_Option(*program, options);
    Lauf_Optionen(*add("history", "read the history of locks", Command::History), options, texts);
    CLI::App* run = add("run", "work a list of locks off, directly or through network adapters", Command::Run);
    Lauf_Optionen(*run, options, texts);
    Erase_Option(*run, texts);
    Force_Option(*run, options);
    run->add_flag("--history", options.HistoryFirst, "read the history before programming");
    run->add_flag("--history-only", options.HistoryOnly, "read the history, program nothing")->excludes("--history");
    run->add_option("--at", texts.At, "begin at this time, \"DD.MM.YYYY hh:mm\"");
    Ereignis_Optionen(*add("events", "print the events of history files", Command::Events), options, texts);
    CLI::App* dataset = add("dataset", "show what a lock would get; sends nothing", Command::Dataset);
    Force_Option(*dataset, options);
    Ein_Schloss(*dataset, options);
    add("export", "write all data files as one JSON document", Command::Export)
        ->add_option("FILE", options.File, "file to write (default: standard output)");
    Import_Optionen(
        *add("import", "read such a document into the data files, or a table of a spreadsheet", Command::Import),
        options);
    Bericht_Optionen(*add("report", "write a report as PDF, without codes", Command::Report), options);
    add("check", "look for faults in the data files", Command::Check);
    add("decode", "bytes as hexadecimal text, or a trace, to readable telegrams", Command::Decode)
        ->add_option("FILE", options.File, "file to read (default: standard input)");
    Schlossbefehle_Anlegen(add, options);
    Personenbefehle_Anlegen(add, options);
    Zeitbefehle_Anlegen(add, options, texts);
    Kartenbefehl_Anlegen(add, options, texts);
    Doktorbefehl_Anlegen(add, options);
}

/// The command line with the places that it fills.
struct Befehlszeile {
    Optionen Options;
    OptionTexts Texts;
    CLI::App App{"Console companion of QVM 7702: programs locks from the data files, reads their history, and looks "
                 "after the data files.",
                 "qvmctl"};

    Befehlszeile() {
        App.require_subcommand(1);
        App.fallthrough();
        App.add_option("--dir", Options.Directory,
                       "program directory with DAT and HIST (default: QVM_DIR, else the folder of qvmctl when DAT lies "
                       "there, else the user's own)")
            ->type_name("DIR");
        App.add_option("--port", Options.Port, "device path of the adapter; replaces configuration and search")
            ->type_name("DEVICE");
        App.add_flag("--json", Options.Json, "every result as one JSON document on standard output");
        App.add_option("--trace", Options.Trace, "append a trace of all telegrams to FILE, codes masked")
            ->type_name("FILE");
        App.footer("Exit codes: 0 all done; 1 wrong use or local fault, nothing was sent; 2 refused by the lock;\n"
                   "3 not reached or given up; 4 some of several locks failed; 5 doctor: no fault, something worth "
                   "knowing.");
        Befehle_Anlegen(App, Options, Texts);
    }
};

} // namespace

void Befehlszeile_Zeigen(const std::function<void(const CLI::App& app)>& visitor) {
    const Befehlszeile line;
    visitor(line.App);
}

std::optional<Optionen> Befehlszeile_Lesen(int argc, const char* const* argv, const Datum& today, std::ostream& out,
                                           std::ostream& err, int& exitCode) {
    Befehlszeile line;
    try {
        line.App.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const bool good = line.App.exit(error, out, err) == 0;
        exitCode = static_cast<int>(good ? ExitCode::Good : ExitCode::Fault);
        return std::nullopt;
    }
    if (const std::string fault = Optionen_Nachpruefen(line.Options, line.Texts, today); !fault.empty()) {
        err << fault << "\n";
        exitCode = static_cast<int>(ExitCode::Fault);
        return std::nullopt;
    }
    return line.Options;
}

} // namespace qvm
