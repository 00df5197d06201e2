// The scans of the radio channels from the command line, through the handlers of the lock windows.

#include "Befehle.h"
#include "CodeEingabe.h"
#include "Fortschritt.h"
#include "LockWindows.h"
#include "Secret.h"
#include "Text.h"
#include "Tischsitzung.h"
#include "TransferWindows.h"
#include "Vorpruefung.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace qvm {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view CommandWord = "scan";
/// Each channel has a wait of its own.
constexpr int NoTimeLimit = 0;

/// The administrator code for as long as the command needs it.
struct Anmeldecode {
    std::string Text;
    ~Anmeldecode() { Vergessen(Text); }
    Anmeldecode() = default;
    Anmeldecode(const Anmeldecode&) = delete;
    Anmeldecode& operator=(const Anmeldecode&) = delete;
};

/// What came of the scan.
struct Ausgang {
    TischEnde End = TischEnde::Fault;
    std::string Text = "The scan could not be begun.";
    UnitScan Found;
    bool Taken = false;
};

bool Fuer_Schloss(const Optionen& options) {
    return options.Lock != 0 && !options.ForUnits;
}

const ScanEntry& Fund(const UnitScan& scan, int channel) {
    return scan.Entries[static_cast<std::size_t>(channel)];
}

int Anzahl(const UnitScan& scan) {
    return static_cast<int>(std::count_if(scan.Entries.begin() + 1, scan.Entries.end(),
                                          [](const ScanEntry& entry) { return entry.Status != ScanEntry::Nothing; }));
}

/// The channel on which this serial number has answered; 0: on none.
int Kanal_Von(const UnitScan& scan, const Address& serial) {
    for (int channel = 1; channel <= UnitScan::Channels; ++channel) {
        if (Fund(scan, channel).Status != ScanEntry::Nothing && Fund(scan, channel).Serial == serial) {
            return channel;
        }
    }
    return 0;
}

/// The row for the unit: the one named, else the one that has it already, else the first one without name and number.
/// 0: all are taken.
int Zeile_Waehlen(const Grid& units, const Optionen& options) {
    if (options.Unit != 0 || options.Take.empty()) {
        return std::max(options.Unit, F20::FirstRow);
    }
    const auto wanted = Serie_Zerlegen(options.Take);
    int free = 0;
    for (int row = F20::LastRow; row >= F20::FirstRow; --row) {
        const std::string& serial = units.Text(row, UnitColumn::Serial);
        if (Serie_Zerlegen(serial) == wanted) {
            return row;
        }
        if (Trim(serial).empty() && Trim(units.Text(row, UnitColumn::Name)).empty()) {
            free = row;
        }
    }
    return free;
}

/// Opens the windows up to the one that scans. Gives why it cannot be, a sentence; empty when it stands.
std::string Fenster_Oeffnen(LockWindows& windows, const Optionen& options, int& row) {
    windows.Suche_Anbieten();
    if (options.Lock == 0) {
        return {};
    }
    windows.F12.F12_FormLaden();
    if (windows.F12.Tabelle.LoadFailed) {
        return "The files of the locks cannot be read; check names them.";
    }
    windows.F12.Auswahl.Go(options.Lock, LockColumn::Serial);
    if (!options.ForUnits) {
        return {};
    }
    windows.F12.SNA_Function_Click();
    if (!windows.F20.Fenster.Visible) {
        return "The units of lock " + std::to_string(options.Lock) + " cannot be read.";
    }
    row = Zeile_Waehlen(windows.F20.FGK20, options);
    if (row == 0) {
        return "Lock " + std::to_string(options.Lock) + " has five units; --row replaces one of them.";
    }
    windows.F20.Auswahl.Go(row, UnitColumn::Serial);
    return {};
}

/// The click that begins the scan.
void Anklicken(Programm& program, const Optionen& options, const std::string& code) {
    LockWindows& windows = *program.Locks;
    if (options.ForUnits) {
        windows.F20.F20_Keypad_Click();
    } else if (options.Lock == 0) {
        windows.Suche.Keypad_Suchen(F20::FirstRow);
    } else {
        windows.F12.SNA_save_Click();
        F11& login = program.Transfer->F11;
        if (login.Fenster.Visible) {
            for (const char key : code) {
                login.Text1_KeyPress(static_cast<unsigned char>(key));
            }
            login.OK_Click();
        }
        if (login.Fenster.Visible) {
            login.Cancel_Click();
        }
    }
}

/// From the click to the list of what was found. `outcome` is told when there is none.
bool Absuchen(Tischsitzung& session, const Console& console, const Optionen& options, const std::string& code,
              Ausgang& outcome) {
    LockWindows& windows = *session.program.Locks;
    ChannelScan& scan = windows.Scan;
    Fortschritt progress(console);
    progress.Beginnen("Scan");
    const Hook<void()> shown = scan.Fortschritt;
    scan.Fortschritt = [&] {
        shown();
        progress.Zeigen((scan.Kanal() - 1) * 100 / UnitScan::Channels,
                        "channel " + std::to_string(scan.Kanal()) + " of " + std::to_string(UnitScan::Channels) + ", " +
                            std::to_string(Anzahl(scan.Funde)) + " found");
    };
    Anklicken(session.program, options, code);
    const bool begun = scan.Laeuft;
    TischEnde end = TischEnde::Fault;
    if (begun) {
        end = session.Warten([&scan] { return !scan.Laeuft; }, NoTimeLimit);
        windows.Suche.Abbrechen();
    }
    progress.Beenden();
    scan.Fortschritt = shown;
    if (windows.F19.Fenster.Visible) {
        outcome.Found = scan.Funde;
        return true;
    }
    if (begun) {
        const bool cancelled = end == TischEnde::Cancelled;
        outcome.End = cancelled ? TischEnde::Cancelled : TischEnde::Silent;
        outcome.Text = cancelled ? "The scan was cancelled; nothing was taken."
                                 : "The adapter was disconnected; nothing was taken.";
    }
    return false;
}

/// Saves the lock table with the lock that was found.
bool Schloss_Speichern(LockWindows& windows) {
    windows.F12.Tabelle.LockDirty = true;
    windows.F12.Toolbar1_ButtonClick("Speichern");
    return !windows.F12.Tabelle.LockDirty;
}

/// Takes what answered on this channel, as the windows take it.
void Uebernehmen(LockWindows& windows, const Optionen& options, int channel, int row, Ausgang& outcome) {
    windows.F19.FGK19_DblClick(channel);
    const std::string serial = windows.F19.UnitSn;
    windows.F19.Command2_Click();
    bool saved = false;
    if (!windows.F19.Fenster.Visible) {
        if (options.ForUnits && windows.F20.FGK20.Text(row, UnitColumn::Module) == "0") {
            outcome.End = TischEnde::Refused;
            outcome.Text = serial + " is no unit of a lock; nothing was taken.";
            return;
        }
        if (options.ForUnits) {
            windows.F20.Command2_Click();
            saved = !windows.F20.Fenster.Visible;
        } else {
            saved = Schloss_Speichern(windows);
        }
    }
    const std::string where =
        "Lock " + std::to_string(options.Lock) + (options.ForUnits ? " unit " + std::to_string(row) : std::string());
    outcome.Taken = saved;
    outcome.End = saved ? TischEnde::Done : TischEnde::Fault;
    outcome.Text = where + ": " + serial + " on channel " + std::to_string(channel) +
                   (saved ? " was taken" : " could not be saved");
}

/// What becomes of the list that the scan has found.
void Auswerten(LockWindows& windows, const Optionen& options, int row, Ausgang& outcome) {
    const int count = Anzahl(outcome.Found);
    outcome.End = TischEnde::Done;
    outcome.Text = count == 0   ? "Nobody answered on any channel."
                   : count == 1 ? "1 device answered."
                                : std::to_string(count) + " devices answered.";
    if (options.Take.empty()) {
        windows.F19.Command1_Click();
        return;
    }
    const Address serial = Serie_Zerlegen(options.Take).value_or(Address());
    const int channel = Kanal_Von(outcome.Found, serial);
    if (channel == 0) {
        windows.F19.Command1_Click();
        outcome.End = TischEnde::Silent;
        outcome.Text = Serie_Text(serial) + " did not answer; nothing was taken.";
        return;
    }
    Uebernehmen(windows, options, channel, row, outcome);
}

std::string Typ(const Kern& kern, const ScanEntry& entry) {
    return Anzeige_Aus_1252(Trim(kern.Zeile(Unit_Textzeile(entry.Type))));
}

Json Dokument(const Kern& kern, const Optionen& options, const Ausgang& outcome, int row) {
    Json found = Json::array();
    for (int channel = 1; channel <= UnitScan::Channels; ++channel) {
        const ScanEntry& entry = Fund(outcome.Found, channel);
        if (entry.Status != ScanEntry::Nothing) {
            found.push_back({{"channel", channel},
                             {"serial", Serie_Text(entry.Serial)},
                             {"type", Typ(kern, entry)},
                             {"signal", Signalwert(entry.Signal)},
                             {"well", entry.Status == ScanEntry::Well}});
        }
    }
    Json document{{"lock", options.Lock}, {"taken", outcome.Taken}, {"found", found}};
    if (outcome.Taken && options.ForUnits) {
        document["unit"] = row;
    }
    return document;
}

void Funde_Schreiben(std::ostream& out, const Json& found) {
    for (const Json& entry : found) {
        out << "Channel " << entry["channel"].get<int>() << ": " << entry["serial"].get<std::string>() << ", "
            << entry["type"].get<std::string>() << ", signal " << entry["signal"].get<int>()
            << (entry["well"].get<bool>() ? "" : ", answered poorly") << "\n";
    }
}

} // namespace

ExitCode Befehl_Suche(const Umgebung& world, const Console& console, const Optionen& options) {
    Tischsitzung session(world, console, options, CommandWord);
    if (const auto refused = session.Beginnen()) {
        return *refused;
    }
    Programm& program = session.program;
    if (!Dateien_Vorpruefen(console, CommandWord, program, {}, false, false)) {
        return ExitCode::Fault;
    }
    session.Meldungen_Uebernehmen(false);
    LockWindows& windows = *program.Locks;
    int row = 0;
    if (const std::string why = Fenster_Oeffnen(windows, options, row); !why.empty()) {
        return session.Fehlschlag(why);
    }
    Anmeldecode code;
    if (Fuer_Schloss(options)) {
        const std::string why = Code_Holen(
            options.CodeFrom, [&] { return session.Unterbrochen(); }, code.Text);
        if (!why.empty()) {
            return session.Fehlschlag(why);
        }
    }
    Ausgang outcome;
    if (!session.Adapter_Suchen()) {
        outcome.End = TischEnde::Cancelled;
        outcome.Text = "The scan was cancelled; nothing was taken.";
    } else if (Absuchen(session, console, options, code.Text, outcome)) {
        Auswerten(windows, options, row, outcome);
    }
    const Json document = Dokument(program.kern, options, outcome, row);
    if (!console.Json) {
        Funde_Schreiben(console.Out, document["found"]);
    }
    return session.Abschliessen(outcome.End, outcome.Text, document);
}

} // namespace qvm
