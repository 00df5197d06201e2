#include "Befehle.h"
#include "CodeEingabe.h"
#include "LockResult.h"
#include "Secret.h"
#include "Seriennummer.h"
#include "Telegramme.h"
#include "Tischsitzung.h"
#include "TransferWindows.h"
#include "Vorpruefung.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <optional>

namespace qvm {

namespace {

constexpr std::string_view CommandWord = "change-code";
/// The window itself gives a silent lock up.
constexpr int ForEver = 0;

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
        session.Sagen("The change has been sent; the lock's answer is waited for. Once more Ctrl-C gives up.");
        end = session.Warten(over, ForEver);
    }
    if (end != TischEnde::Done) {
        window.Ergebnis = CodeOutcome::Unconfirmed;
    }
    return end;
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
    case CodeOutcome::Open:
    case CodeOutcome::Silent:
    case CodeOutcome::Unconfirmed:
        break;
    }
    return TischEnde::Silent;
}

std::string Schlosskopf(const LockResult& lock) {
    return "Lock " + std::to_string(lock.Lock) + " \"" + lock.Name + "\" " + lock.Serial + ": ";
}

/// Opens the window on the lock. Gives why it cannot be, a sentence; empty when it stands.
std::string Fenster_Oeffnen(Tischsitzung& session, int lock) {
    TransferWindows& windows = *session.program.Transfer;
    windows.F17_Anbieten();
    windows.F13.F13_FormLaden();
    windows.F13.Timer1.Stop();
    windows.F13.Timer2.Stop();
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
    case CodeOutcome::Refused:
        return "the change was refused";
    case CodeOutcome::Incomplete:
        return "a code has fewer than six characters; nothing was changed";
    case CodeOutcome::Different:
        return "new code and repeat differ; nothing was changed";
    case CodeOutcome::Unconfirmed:
        return "the change was sent and not confirmed; which code the lock has is not certain";
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
    Tischsitzung session(world, console, options, CommandWord);
    if (const auto refused = session.Beginnen()) {
        return *refused;
    }
    Programm& program = session.program;
    const int lock = options.Locks.front();
    if (!Dateien_Vorpruefen(console, CommandWord, program, options.Locks, false, false)) {
        return ExitCode::Fault;
    }
    session.Meldungen_Uebernehmen(false);
    if (const std::string why = Fenster_Oeffnen(session, lock); !why.empty()) {
        return session.Fehlschlag(why);
    }
    Codes codes;
    if (const std::string why = Codes_Holen(
            options.CodeFrom, [&] { return session.Unterbrochen(); }, codes.Wanted);
        !why.empty()) {
        return session.Fehlschlag(why);
    }
    const LockResult told = Schloss_Beschreiben(program, lock);
    F17& window = program.Transfer->F17;
    TischEnde end = TischEnde::Cancelled;
    CodeOutcome outcome = CodeOutcome::Cancelled;
    if (session.Adapter_Suchen()) {
        program.Transfer->F13.FGK13_Click(lock, F13Column::Code);
        end = TischEnde::Fault;
        outcome = CodeOutcome::Unsent;
        if (window.Fenster.Visible) {
            Tippen(window, codes);
            end = Aendern(session);
            outcome = window.Ergebnis;
        }
    }
    const TischEnde whole = end == TischEnde::Done ? Ende(outcome) : end;
    return session.Abschliessen(whole, Schlosskopf(told) + std::string(Bericht(outcome)),
                                {{"lock", lock}, {"name", told.Name}, {"serial", told.Serial}});
}

} // namespace qvm
