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

/// The change went out, and the lock has not answered it.
bool Aenderung_Offen(const Programm& program) {
    return program.link.AnswerDue == TelCodeAendern::Telegram.Code;
}

bool Beendet(const Programm& program) {
    return program.link.Lauf.Chain.CodeChangePending == 0 && !Aenderung_Offen(program);
}

bool Zuletzt_Gemeldet(const Tischsitzung& session, int line) {
    return !session.Meldungen.empty() && session.Meldungen.back() == Anzeige_Aus_1252(session.program.kern.Zeile(line));
}

/// From the click on OK to the end.
TischEnde Aendern(Tischsitzung& session) {
    Programm& program = session.program;
    F17& window = program.Transfer->F17;
    window.Command1_Click();
    TischEnde end = session.Warten([&] { return Beendet(program); }, ForEver);
    if (end != TischEnde::Done && window.Fenster.Visible) {
        window.Command2_Click();
        return end;
    }
    if (end == TischEnde::Cancelled) {
        session.Sagen("The change has been sent; the lock's answer is waited for. Once more Ctrl-C gives up.");
        end = session.Warten([&] { return Beendet(program); }, ForEver);
    }
    if (window.Geaendert) {
        return TischEnde::Done;
    }
    if (end == TischEnde::Cancelled) {
        return end;
    }
    // The window stays where the login was not answered, and where the entries were no change.
    const bool open = end != TischEnde::Done || window.Fenster.Visible || window.Unbestaetigt;
    return open && !Zuletzt_Gemeldet(session, Line::DeviceRefused) && !Zuletzt_Gemeldet(session, Line::CodesDiffer)
               ? TischEnde::Silent
               : TischEnde::Refused;
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

std::string Bericht(TischEnde end, const LockResult& lock) {
    const std::string head = "Lock " + std::to_string(lock.Lock) + " \"" + lock.Name + "\" " + lock.Serial + ": ";
    switch (end) {
    case TischEnde::Done:
        return head + "the code was changed";
    case TischEnde::Refused:
        return head + "the change was refused";
    case TischEnde::Silent:
        return head + "no answer; which code it has is not certain once the change was sent";
    case TischEnde::Cancelled:
        return head + "cancelled";
    case TischEnde::Fault:
        break;
    }
    return head + "the change could not be begun";
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
    TischEnde end = TischEnde::Cancelled;
    if (session.Adapter_Suchen()) {
        program.Transfer->F13.FGK13_Click(lock, F13Column::Code);
        end = TischEnde::Fault;
        if (program.Transfer->F17.Fenster.Visible) {
            Tippen(program.Transfer->F17, codes);
            end = Aendern(session);
        }
    }
    return session.Abschliessen(end, Bericht(end, told),
                                {{"lock", lock}, {"name", told.Name}, {"serial", told.Serial}});
}

} // namespace qvm
