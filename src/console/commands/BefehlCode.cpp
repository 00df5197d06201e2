#include "Befehle.h"
#include "CodeEingabe.h"
#include "LockResult.h"
#include "LockWindows.h"
#include "Secret.h"
#include "Seriennummer.h"
#include "Telegramme.h"
#include "Text.h"
#include "Tischsitzung.h"
#include "TransferWindows.h"
#include "Vorpruefung.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <optional>

namespace qvm {

namespace {

/// The window itself gives a silent device up.
constexpr int ForEver = 0;

/// Whose code it is.
struct Ziel {
    int Lock = 0;
    int Unit = 0; ///< 1 to 5; 0: the lock's own

    std::string_view Wort() const { return Unit == 0 ? "change-code" : "unit-code"; }
};

struct Codes {
    std::array<CodeFrage, 3> Wanted{CodeFrage{.Prompt = "Old administrator code: ", .Code = {}},
                                    CodeFrage{.Prompt = "New administrator code: ", .Code = {}},
                                    CodeFrage{.Prompt = "New code again: ", .Code = {}}};
    ~Codes() {
        for (CodeFrage& code : Wanted) {
            Vergessen(code.Code);
        }
    }
    Codes() = default;
    Codes(const Codes&) = delete;
    Codes& operator=(const Codes&) = delete;
};

void Tippen(F17& window, const Codes& codes) {
    for (const char key : codes.Wanted[0].Code) {
        window.Text1_KeyPress(static_cast<unsigned char>(key));
    }
    for (const char key : codes.Wanted[1].Code) {
        window.Text2_KeyPress(static_cast<unsigned char>(key));
    }
    for (const char key : codes.Wanted[2].Code) {
        window.Text3_KeyPress(static_cast<unsigned char>(key));
    }
}

/// From the click on OK to the end. Gives how the wait for it ended.
TischEnde Aendern(Tischsitzung& session) {
    F17& window = session.program.Transfer->F17;
    const auto over = [&window] { return window.Ergebnis != CodeOutcome::Open; };
    window.Command1_Click();
    TischEnde end = session.Warten(over, ForEver);
    if (end != TischEnde::Done && window.Fenster.Visible) {
        window.Command2_Click();
        window.Ergebnis = end == TischEnde::Cancelled ? CodeOutcome::Cancelled : CodeOutcome::Silent;
        return end;
    }
    if (end == TischEnde::Cancelled) {
        session.Sagen("The change has been sent; the answer is waited for. Once more Ctrl-C gives up.");
        end = session.Warten(over, ForEver);
    }
    if (end != TischEnde::Done) {
        window.Ergebnis = CodeOutcome::Unconfirmed;
        window.Umzug_Abbrechen(); // of a unit, which says how far it came
    }
    return window.Ergebnis == CodeOutcome::Changed ? TischEnde::Done : end;
}

/// How the command ends by what the window says, when the wait itself came to its end.
TischEnde Ende(CodeOutcome outcome) {
    switch (outcome) {
    case CodeOutcome::Changed:
        return TischEnde::Done;
    case CodeOutcome::Refused:
    case CodeOutcome::Incomplete:
    case CodeOutcome::Different:
        return TischEnde::Refused;
    case CodeOutcome::Cancelled:
        return TischEnde::Cancelled;
    case CodeOutcome::Unsent:
        return TischEnde::Fault;
    case CodeOutcome::Unmoved:
    case CodeOutcome::Open:
    case CodeOutcome::Silent:
    case CodeOutcome::Unconfirmed:
        break;
    }
    return TischEnde::Silent;
}

/// The unit's row in the unit window.
std::string Unittext(const Programm& program, const Ziel& target, int column) {
    return Anzeige_Aus_1252(program.Locks->F20.FGK20.Text(target.Unit, column));
}

std::string Kopf(const Programm& program, const Ziel& target, const LockResult& lock) {
    std::string head = "Lock " + std::to_string(lock.Lock) + " \"" + lock.Name + "\"";
    if (target.Unit == 0) {
        return head + " " + lock.Serial + ": ";
    }
    return head + " unit " + std::to_string(target.Unit) + " \"" + Unittext(program, target, UnitColumn::Name) + "\" " +
           Unittext(program, target, UnitColumn::Serial) + ": ";
}

nlohmann::ordered_json Dokument(const Programm& program, const Ziel& target, const LockResult& lock) {
    nlohmann::ordered_json document{{"lock", lock.Lock}, {"name", lock.Name}, {"serial", lock.Serial}};
    if (target.Unit != 0) {
        document["unit"] = target.Unit;
        document["unitName"] = Unittext(program, target, UnitColumn::Name);
        document["unitSerial"] = Unittext(program, target, UnitColumn::Serial);
        document["channel"] = Zahlwert(program.Locks->F20.FGK20.Text(target.Unit, UnitColumn::UnitNo));
    }
    return document;
}

/// Opens the window of the lock's units. Gives why it cannot be, a sentence; empty when it stands.
std::string Units_Oeffnen(Programm& program, const Ziel& target) {
    F20& units = program.Locks->F20;
    if (!units.F20_FormLaden(target.Lock, program.Transfer->F13.FGK13.Text(target.Lock, F13Column::Name))) {
        return "The units of lock " + std::to_string(target.Lock) + " cannot be read.";
    }
    const std::string& serial = units.FGK20.Text(target.Unit, UnitColumn::Serial);
    if (Serie_Zerlegen(serial)) {
        return {};
    }
    return "Unit " + std::to_string(target.Unit) + " of lock " + std::to_string(target.Lock) +
           (serial.empty() ? " has no serial number." : " has a serial number that is not hexadecimal.");
}

/// The click that leads to the window of the code.
void Anklicken(Programm& program, const Ziel& target) {
    if (target.Unit == 0) {
        program.Transfer->F13.FGK13_Click(target.Lock, F13Column::Code);
        return;
    }
    F20& units = program.Locks->F20;
    units.Auswahl.Go(target.Unit, UnitColumn::Serial);
    units.SN_Codechange_Click();
}

/// Opens the windows up to the one with the device. Gives why it cannot be, a sentence; empty when it stands.
std::string Fenster_Oeffnen(Tischsitzung& session, const Ziel& target) {
    const int lock = target.Lock;
    TransferWindows& windows = *session.program.Transfer;
    windows.F17_Anbieten();
    windows.F13.F13_FormLaden();
    windows.F13.Timer1.Stop();
    windows.F13.Timer2.Stop();
    if (target.Unit != 0) {
        return Units_Oeffnen(session.program, target);
    }
    const std::string& serial = windows.F13.FGK13.Text(lock, F13Column::Serial);
    if (!Serie_Zerlegen(serial)) {
        return "Lock " + std::to_string(lock) +
               (serial.empty() ? " has no serial number in the lock table."
                               : " has a serial number that is not hexadecimal.");
    }
    return {};
}

std::string_view Bericht(CodeOutcome outcome) {
    switch (outcome) {
    case CodeOutcome::Changed:
        return "the code was changed";
    case CodeOutcome::Unmoved:
        return "the code was changed, but which channel the unit listens on is not certain";
    case CodeOutcome::Refused:
        return "the change was refused";
    case CodeOutcome::Incomplete:
        return "a code has fewer than six characters; nothing was changed";
    case CodeOutcome::Different:
        return "new code and repeat differ; nothing was changed";
    case CodeOutcome::Unconfirmed:
        return "the change was sent and not confirmed; which code holds is not certain";
    case CodeOutcome::Cancelled:
        return "cancelled; nothing was changed";
    case CodeOutcome::Unsent:
        return "the port could not be used; nothing was changed";
    case CodeOutcome::Open:
    case CodeOutcome::Silent:
        break;
    }
    return "no answer; nothing was changed";
}

} // namespace

ExitCode Befehl_Code(const Umgebung& world, const Console& console, const Optionen& options) {
    const bool unit = options.Wanted == Command::UnitCode;
    const Ziel target{.Lock = unit ? options.Lock : options.Locks.front(), .Unit = unit ? options.Unit : 0};
    Tischsitzung session(world, console, options, target.Wort());
    if (const auto refused = session.Beginnen()) {
        return *refused;
    }
    Programm& program = session.program;
    if (!Dateien_Vorpruefen(console, target.Wort(), program, {target.Lock}, false, false)) {
        return ExitCode::Fault;
    }
    session.Meldungen_Uebernehmen(false);
    if (const std::string why = Fenster_Oeffnen(session, target); !why.empty()) {
        return session.Fehlschlag(why);
    }
    Codes codes;
    if (const std::string why = Codes_Holen(
            options.CodeFrom, [&] { return session.Unterbrochen(); }, codes.Wanted);
        !why.empty()) {
        return session.Fehlschlag(why);
    }
    const LockResult told = Schloss_Beschreiben(program, target.Lock);
    F17& window = program.Transfer->F17;
    TischEnde end = TischEnde::Cancelled;
    CodeOutcome outcome = CodeOutcome::Cancelled;
    if (session.Adapter_Suchen()) {
        Anklicken(program, target);
        end = TischEnde::Fault;
        outcome = CodeOutcome::Unsent;
        if (window.Fenster.Visible) {
            Tippen(window, codes);
            end = Aendern(session);
            outcome = window.Ergebnis;
        }
    }
    const TischEnde whole = end == TischEnde::Done ? Ende(outcome) : end;
    return session.Abschliessen(whole, Kopf(program, target, told) + std::string(Bericht(outcome)),
                                Dokument(program, target, told));
}

} // namespace qvm
