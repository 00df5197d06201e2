#pragma once

#include "Console.h"
#include "Programm.h"
#include "Secret.h"
#include "Zeit.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the locks of a command are to get, and what became of them.
namespace qvm {

/// What the locks of one command line are to get.
struct LaufAuftrag {
    ~LaufAuftrag() { Vergessen(Code); }

    bool HistoryOnly = false;  ///< column 10 of the lock grid instead of column 9
    bool HistoryFirst = false; ///< Yes at the question before programming
    std::optional<Datum> Since;
    bool Keep = true;                ///< the check box of the start dialog
    std::string Code;                ///< six characters
    std::string Device;              ///< of the adapter, as the command line names it; empty: it names none
    int TimeoutSeconds = 30;         ///< 0: wait for ever
    std::function<int()> Interrupts; ///< how often the operator pressed Ctrl-C
};

/// What became of one lock.
enum class LockEnd {
    Done,
    Fault, ///< a local fault; nothing was sent
    Refused,
    NotReached,
    Silent,    ///< given up because it kept silent
    Busy,      ///< given up because it stayed busy
    Failed,    ///< came to its end with something missing
    Cancelled, ///< by the operator
    Untried,   ///< another lock's run was cancelled before
};

/// Texts are UTF-8.
struct LockResult {
    int Lock = 0;
    std::string Name, Serial;
    LockEnd End = LockEnd::Untried;
    std::string Text;                  ///< why, empty when all went well
    std::vector<std::string> Messages; ///< of message boxes
    std::vector<std::string> Faults;   ///< what the PC could not record of a run that went on nevertheless
    struct Unit {
        std::string Name;
        UnitReport::State End;
        std::string Note;
        bool Refused = false; ///< with Failed: it answered, but did not accept the login
        bool Scanner = false; ///< it takes templates
        UnitProgress Progress{};
    };
    std::vector<Unit> Units;
    int Telegrams = 0;
    int Wanted = 0, Acknowledged = 0; ///< telegrams that the lock had to get, and that it has acknowledged
    std::vector<AccountGap> Missing;  ///< what the rest carries
    HistoryLoss HistoryLost = HistoryLoss::None;
    std::optional<bool> EraseConfirmed; ///< by the lock; nothing when it was to get no erase telegram
    double Seconds = 0;
    std::string HistoryFile; ///< path; empty: none was made
    std::string_view Route;  ///< "direct" or "network"; empty: the lock was not begun
};

/// "programmed", "refused by the lock" and so on; for programs: "done", "refused".
std::string_view Ende_Text(LockEnd end, bool historyOnly);
std::string_view Ende_Wort(LockEnd end);
/// The exit code of one lock.
ExitCode Ende_Code(const LockResult& result);

/// Number, name and serial of a lock that is not tried. The lock grid is filled.
LockResult Schloss_Beschreiben(const Programm& program, int lock);

/// What became of a lock, by its run's end and by what was lost of its events. Open and Cancelled are Cancelled.
LockEnd Ende_Des_Laufs(RunOutcome end, HistoryLoss lost);
/// Faults, history file and units of a run that ended, into `result`. `report`: of that run; an empty one for a row
/// through a network adapter.
void Bericht_Uebernehmen(const Programm& program, const RunReport& report, bool historyOnly, bool historyWanted,
                         LockResult& result);

} // namespace qvm
