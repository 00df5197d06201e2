#pragma once

#include "Dataset.h"
#include "Historie.h"
#include "Link.h"
#include "RunAccount.h"
#include "Timer.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

struct UnitReport {
    enum class State {
        Untried,   ///< never spoken to
        BrokenOff, ///< its session was begun, and left before its end
        Done,
        Failed,
    } End = State::Untried;
    UnitProgress Progress; ///< how far the session came
    std::string Note;      ///< last text that the unit's blocks gave, or why it failed
    bool Refused = false;  ///< it answered the login, but did not accept it
};

struct RunReport {
    RunOutcome End = RunOutcome::Open;
    std::string Text; ///< the message or status text of the end
    HistoryLoss HistoryLost = HistoryLoss::None;
    bool ChannelUnsaved = false; ///< the lock moved to another channel, but its channel record could not be written
    std::array<UnitReport, 5> Units;
    int Telegrams = 0;               ///< that the lock had to get
    int Acknowledged = 0;            ///< and that it has acknowledged
    std::vector<AccountGap> Missing; ///< what the rest carries
    /// Whether the lock acknowledged its erase telegram; nothing when it was to get none. A lock that is polled goes on
    /// without that, so that a good run may lack it: what was in the lock before may still be there.
    std::optional<bool> EraseConfirmed;
    LockData Lock = LockData::Untouched;

    /// Done, every unit accepted its login, every event is on the disk.
    bool AllDone() const;
    /// All done, and nothing is left to be told: the erasing was confirmed, the radio channel is recorded.
    bool AllGood() const;
};

/// Where a run shows itself. Filled once, with designated initialisers; the windows stand behind it.
struct RunView {
    Hook<void()> Fortschritt;             ///< the two bars; values stand in RunState
    Hook<void()> F9_Zeigen;               ///< progress window, for the present lock
    Hook<void(int line)> Status;          ///< status label of the progress window, catalogue line (0: empty)
    Hook<void(int line)> Fertig;          ///< finished state with that status line; 0: with the report's text
    Hook<void()> F9_Schliessen_Freigeben; ///< the run can only be closed: no cancel any more
    Hook<void()> Historie_Beschriften;    ///< the reading of events begins
    Hook<void(std::uint8_t highNibble, const std::string& text)> Zustand; ///< first state report of a run
    Hook<void(int box)> Kaestchen;                                        ///< ticks check box 1 (lock) or unit + 2
    Hook<void(int box, const std::string& text)> Kaestchen_Beschriften;   ///< what became of its unit
    Hook<void()> Wartebox_Schliessen;
    Hook<void(int value)> Wartebox_Balken; ///< 100 to 200
    Hook<void(int line)> Wartebox_Text;
    Hook<void()> Zum_Schlossgitter;                       ///< F9 closes, F13 comes back
    Hook<void()> Schlossgitter_Freigeben;                 ///< F13 is enabled
    Hook<void(const std::string& path)> Historie_Oeffnen; ///< a history run made this file
    Hook<void()> Hauptfenster_Freigeben;
};

/// The list run's part at the end of a lock. Used only while ListState::RunRows is not 0.
struct ListView {
    Hook<void(std::string_view mark, const std::string& text)> Zeile_Markieren; ///< the present row
    Hook<void()> Naechste_Zeile; ///< the row is done: raises RunRow and plans the next one
    Hook<void()> Stoppen;
};

/// From when on the time that a run has left is reckoned.
struct RunPace {
    std::int64_t Since = 0; ///< Platform::Milliseconds
    int Done = 0;           ///< telegrams acknowledged by then
};

/// Where replies lead that windows ask for, with and without a run.
struct WindowHooks {
    Hook<void()> Suchlauf_Schritt; ///< 0x04 or 0x69 while units are searched by logins
    Hook<void()> Unit_Gefunden;    ///< 0x4B
    Hook<void()> Unit_Kanal_Leer;  ///< 0x69 in the unit-list scan
    // Those of cards and credentials come only while the device owes them: what nobody asked for leads nowhere.
    Hook<void()> Karte_Quittung;   ///< 0x6F
    Hook<void()> Karte_Start;      ///< 0x72
    Hook<void()> Karte_Block;      ///< 0x73
    Hook<void()> Karte_Abgelehnt;  ///< 0x69 for one of them; that there is no card the operator is told behind it
    Hook<void()> EKey_Ergebnis;    ///< 0x81
    Hook<void()> Finger_Schritt;   ///< 0xA1
    Hook<void()> Finger_Daten;     ///< 0xA2
    Hook<void()> Finger_Kennung;   ///< 0xA3
    Hook<void()> Leser_Fertig;     ///< 0x6F with 0xDC: the enrolment unit is done with a transponder
    Hook<void()> Leser_Abgelehnt;  ///< a reader of the desk refused; the operator is told behind it
    Hook<void()> Leser_Verspaetet; ///< 0x81 or 0xA3 behind a request that was withdrawn: nobody's
    Hook<void()> Code_Angemeldet;  ///< 0x04 while a code change waits for its login
    Hook<void()> Code_Gesucht;     ///< nobody answered that login, and its walk over the twelve channels begins
    /// There will be no such reply, as the lock has refused or was not reached; no telegram may go out.
    Hook<void(RunOutcome why)> Code_Abgelehnt;
    Hook<void()> Code_Beantwortet;       ///< 0x12, or a refusal of the code change; the reply is still there to be read
    Hook<void()> Unit_Umgezogen;         ///< a unit has its new code, and listens on the system's channel
    Hook<void()> Unit_Umzug_Gescheitert; ///< its session was refused behind the login; TxBuffer says at what
};

/// A direct run of one lock: the reply chain, its timers, and what became of it. The link's frames drive it; nothing in
/// here waits for a reply.
struct Programmierlauf {
    /// Takes the link's hooks for itself, but for Adapter_Erkannt.
    explicit Programmierlauf(Link& serialLink);

    Link& link;
    Kern& kern;
    Dataset Daten;
    RunView Ansicht;
    ListView Liste;
    WindowHooks Fenster;
    RunReport Bericht;
    RunAccount Konto; ///< of the run that is on, or ended last
    RunPace Tempo;

    bool SchadenHinnehmen = false; ///< damaged data files are taken as they are, without a question
    bool Cancelled = false;
    bool UnitGood = false;     ///< the present unit's session went well
    bool UnitRepeated = false; ///< its login was repeated once
    bool BlockRefused = false; ///< it did not accept a block
    bool Waiting = false;      ///< an ordered wait inside a reply step is on
    int RunNumber = 0;         ///< which run this is: a wait of an earlier one may still be on the stack
    bool Gesamtende = true;    ///< the run has ended, one way or the other

    Timer Timer6;  ///< second bar during the end of a run
    Timer Timer7;  ///< polling of a lock that is erasing
    Timer Timer8;  ///< one shot: TelKanalSetzen
    Timer Timer9;  ///< step to the next unit
    Timer Timer11; ///< one shot: next radio channel of a unit's opening
};

/// Nothing of an earlier run is left in chain and report, before a lock is begun. The list stays.
void Lauf_Ruecksetzen(Programmierlauf& run);
/// The timers of a run stop and have the intervals that they begin with.
void Lauf_Timer_Ruecksetzen(Programmierlauf& run);
/// `wish` for one lock: with its number, name and serial, and with what follows from its dataset. A lock that needs two
/// passes gets them where it is programmed; the fingers of one that holds some are not erased. Nothing when its serial
/// is none. How the lock is reached, and what is done with it, `wish` says.
std::optional<RunOrder> Lauf_Auftrag(RunOrder wish, const LockRow& lock, const Dataset& dataset);
/// Order, dataset values and a fresh chain stand where both routes, and the windows, read them.
void Lauf_Vorbereiten(Programmierlauf& run, const RunOrder& order);
/// Prepares the same and starts the chain with the login telegram. Clears the report. Without a port the run ends at
/// once (NoPort) in the finished state.
void Lauf_Beginnen(Programmierlauf& run, const RunOrder& order);
/// The operator's cancel: honoured at the next frame, behind an ordered wait and at the next tick of the polling.
void Lauf_Abbrechen(Programmierlauf& run);
/// Gives up a run that nobody answers: stops the timers, closes the port and ends with `outcome`.
void Lauf_Aufgeben(Programmierlauf& run, RunOutcome outcome);
/// Leaves a lock that is silent, so that a list can go on: its session is closed as by a cancel while the port is open,
/// but nobody waits for the answer. The port stays as it is; the report says `outcome` and `text`. Cancelled ends the
/// list, too.
void Lauf_Verlassen(Programmierlauf& run, RunOutcome outcome, std::string_view text);
/// Milliseconds since the lock last answered what it was asked, or said what leads the run on; 0 while the run is in a
/// wait of its own or has ended.
std::int64_t Lauf_Stille(const Programmierlauf& run);
/// A run is on whose adapter was pulled out: nothing can be sent, and no reply will come.
bool Lauf_Ohne_Adapter(const Programmierlauf& run);
/// The operator has cancelled the run, whether or not the cancel has taken effect.
bool Lauf_Abgebrochen(const Programmierlauf& run);
/// True while no reply is awaited: in an ordered wait, between two units, and while an erasing lock is polled.
bool Lauf_Wartet(const Programmierlauf& run);
/// "Lock 3: Serverraum": the lock that the run is for, in the language in use.
std::string Lauf_Schloss(const Programmierlauf& run);

} // namespace qvm
