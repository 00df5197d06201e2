// What the readers of the desk are asked from the command line, through the handlers of the user window.

#include "Befehle.h"
#include "F5_Speichern.h"
#include "PersonWindows.h"
#include "TelegrammeUnit.h"
#include "Text.h"
#include "Tischsitzung.h"

#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

/// The user window while a command works at it. Nothing of it is left to be saved behind the command.
class Benutzerfenster {
public:
    explicit Benutzerfenster(Programm& program) : persons_(*program.Persons) {
        persons_.F5.F5_FormLaden();
        persons_.Schluessel.Geduld = std::numeric_limits<int>::max(); // the command has a patience of its own
    }
    ~Benutzerfenster() {
        persons_.F5.Fenster.Enabled = true;
        persons_.F5.Tabelle.UserDirty = false;
        persons_.F5.F5_Schliessen();
    }
    Benutzerfenster(const Benutzerfenster&) = delete;
    Benutzerfenster& operator=(const Benutzerfenster&) = delete;

    bool Lesbar() const { return !persons_.F5.Tabelle.LoadFailed; }
    std::string Name(int row) const { return Anzeige_Aus_1252(persons_.F5.FGK4.Text(row, UserColumn::Name)); }

private:
    PersonWindows& persons_;
};

/// Program, messages, adapters, window. Nothing when the command may go on.
std::optional<ExitCode> Vorbereiten(Tischsitzung& session, const Optionen& options,
                                    std::optional<Benutzerfenster>& window) {
    if (const auto refused = session.Beginnen()) {
        return refused;
    }
    session.Meldungen_Uebernehmen(options.NewKey);
    window.emplace(session.program);
    if (!window->Lesbar()) {
        return session.Fehlschlag("The files of the users cannot be read; check names them.");
    }
    return std::nullopt;
}

bool Key_Offen(const Programm& program) {
    return program.link.AnswerDue == TelEKeyLesen::Telegram.Code;
}

/// Waits for an E-Key, which `ask` has asked for.
TischEnde EKey_Abwarten(Tischsitzung& session, int timeout) {
    Programm& program = session.program;
    if (!Key_Offen(program)) {
        return TischEnde::Fault; // told by a message
    }
    const TischEnde end = session.Warten([&] { return !Key_Offen(program); }, timeout);
    if (end != TischEnde::Done) {
        program.link.AnswerDue = 0; // what still comes is nobody's
    }
    // The window looks at its adapter as well, and gives the answer up with it.
    return program.link.AnswerWithdrawn == TelEKeyLesen::Telegram.Code ? TischEnde::Silent : end;
}

TischEnde Transponder_Abwarten(Tischsitzung& session, int timeout) {
    F5Schluessel& keys = session.program.Persons->Schluessel;
    if (!keys.Wartet()) {
        return session.Meldungen.empty() ? TischEnde::Silent : TischEnde::Fault;
    }
    session.Sagen("Please hold the transponder to the enrolment unit.");
    const TischEnde end = session.Warten([&] { return !keys.Wartet(); }, timeout);
    keys.Leser_Fertig();
    // The window looks at its adapter as well.
    return session.Getrennt() ? TischEnde::Silent : end;
}

TischEnde Finger_Abwarten(Tischsitzung& session, int timeout) {
    F51& enrolment = session.program.Persons->F51;
    if (!enrolment.Fenster.Visible) {
        return TischEnde::Fault;
    }
    session.Sagen(Anzeige_Aus_1252(enrolment.Anleitung.Text()));
    enrolment.Anleitung.Text.Changed = [&] {
        if (!enrolment.Anleitung.Text().empty()) {
            session.Sagen(Anzeige_Aus_1252(enrolment.Anleitung.Text()));
        }
    };
    enrolment.Fehler.Visible.Changed = [&] {
        if (enrolment.Fehler.Visible) {
            session.Sagen(Anzeige_Aus_1252(enrolment.Fehler.Text()));
        }
    };
    const TischEnde end = session.Warten([&] { return !enrolment.Fenster.Visible; }, timeout);
    enrolment.Anleitung.Text.Changed = {};
    enrolment.Fehler.Visible.Changed = {};
    enrolment.Schliessen();
    return end;
}

TischEnde Anlernen(Tischsitzung& session, const Optionen& options) {
    PersonWindows& persons = *session.program.Persons;
    const int row = UserGrid::RowOf(options.User);
    persons.F5.MenuRow = persons.F5.FsRow = row;
    TischEnde end = TischEnde::Fault;
    if (options.Kind == "ekey") {
        persons.Schluessel.Save_Ekey_Click();
        end = EKey_Abwarten(session, options.TimeoutSeconds);
    } else if (options.Kind == "transponder") {
        persons.Schluessel.Save_RFID_Click();
        end = Transponder_Abwarten(session, options.TimeoutSeconds);
    } else {
        persons.Finger.FS_anerlen_Click();
        end = Finger_Abwarten(session, options.TimeoutSeconds);
    }
    if (end != TischEnde::Done) {
        return end;
    }
    if (!persons.F5.Tabelle.UserDirty) {
        return TischEnde::Refused;
    }
    // A key that was learned has nothing to tell but that its radio channel could not be recorded.
    const bool whole = options.Kind == "finger" || session.Meldungen.empty();
    persons.F5.Toolbar1_ButtonClick("Speichern");
    return persons.F5.Tabelle.UserDirty || !whole ? TischEnde::Fault : TischEnde::Done;
}

std::string Warum(const Tischsitzung& session) {
    return session.Meldungen.empty() ? "nothing was read" : session.Meldungen.back();
}

std::string Lernbericht(const Tischsitzung& session, TischEnde end, const std::string& kind) {
    switch (end) {
    case TischEnde::Done:
        return kind + " learned";
    case TischEnde::Silent:
        return session.Getrennt() ? "the adapter was disconnected" : "the reader said nothing";
    case TischEnde::Cancelled:
        return "cancelled";
    case TischEnde::Refused:
    case TischEnde::Fault:
        break;
    }
    return Warum(session);
}

} // namespace

ExitCode Befehl_Anlernen(const Umgebung& world, const Console& console, const Optionen& options) {
    Tischsitzung session(world, console, options, "learn");
    std::optional<Benutzerfenster> window;
    if (const auto refused = Vorbereiten(session, options, window)) {
        return *refused;
    }
    const std::string name = window->Name(UserGrid::RowOf(options.User));
    if (name.empty()) {
        return session.Fehlschlag("User " + std::to_string(options.User) + " has no name in the user table.");
    }
    // The reader's answer changes files before the table is saved, so what refuses the save is to be found first.
    if (!F5_Pruefen(session.program.kern, session.program.Persons->F5.Tabelle)) {
        return session.Fehlschlag("The user table cannot be saved as it stands; no reader was asked.");
    }
    const TischEnde end = session.Adapter_Suchen() ? Anlernen(session, options) : TischEnde::Cancelled;
    return session.Abschliessen(
        end, "User " + std::to_string(options.User) + " \"" + name + "\": " + Lernbericht(session, end, options.Kind),
        {{"kind", options.Kind}, {"user", options.User}, {"name", name}});
}

namespace {

/// Asks, and waits for what is found.
TischEnde Suchen(Tischsitzung& session, const Optionen& options) {
    F5Schluessel& keys = session.program.Persons->Schluessel;
    TischEnde end = TischEnde::Fault;
    if (options.Transponder) {
        keys.Search_RFID_Click();
        end = Transponder_Abwarten(session, options.TimeoutSeconds);
    } else {
        if (options.Wanted == Command::FindKey) {
            keys.Search_Ekey_Click();
        } else {
            keys.key_synchron_Click();
        }
        end = EKey_Abwarten(session, options.TimeoutSeconds);
    }
    if (end != TischEnde::Done || keys.Fund.Row != 0) {
        return end == TischEnde::Done && keys.Fund.Unsaved ? TischEnde::Fault : end;
    }
    return TischEnde::Refused;
}

} // namespace

ExitCode Befehl_Key_Suchen(const Umgebung& world, const Console& console, const Optionen& options) {
    const bool find = options.Wanted == Command::FindKey;
    Tischsitzung session(world, console, options, find ? "find-key" : "sync-key");
    std::optional<Benutzerfenster> window;
    if (const auto refused = Vorbereiten(session, options, window)) {
        return *refused;
    }
    const TischEnde end = session.Adapter_Suchen() ? Suchen(session, options) : TischEnde::Cancelled;
    Json document = Json::object();
    std::string text =
        end == TischEnde::Refused && session.Meldungen.empty() ? "nobody has this key" : Lernbericht(session, end, "");
    if (const KeyFund fund = session.program.Persons->Schluessel.Fund; fund.Row != 0) {
        const int user = fund.Row - UserGrid::RowOf(0);
        document = {{"user", user}, {"name", window->Name(fund.Row)}};
        text = "User " + std::to_string(user) + " \"" + window->Name(fund.Row) + "\"" +
               (find           ? ""
                : fund.Unsaved ? ": the radio channel could not be recorded"
                               : ": synchronised");
    }
    return session.Abschliessen(end, text, document);
}

} // namespace qvm
