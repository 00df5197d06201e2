#pragma once

#include "Secret.h"
#include "Seriennummer.h"

#include <array>
#include <cstdint>
#include <string>

namespace qvm {

using AdminCodeBytes = std::array<std::uint8_t, 3>;

/// Text values of LockValues::TimerMode.
inline constexpr const char* TimerPB_UT = "TimerPB_UT";
inline constexpr const char* Timer_A_B = "Timer_A_B";
inline constexpr const char* Timer_ERROR = "Timer_ERROR";

/// Which replies of the chain may act.
enum class RunPhase : std::uint8_t {
    None,    ///< no run: only what a window asked for
    Open,    ///< all of them
    Closing, ///< a cancel was honoured: only those that close the session
};

/// Why events of a lock that were asked for are not all on the disk. Such a lock is not erased.
enum class HistoryLoss : std::uint8_t {
    None,
    Unwritten, ///< a record came that could not be written
    Broken,    ///< what came was no record and no end, or no part of the reading
    Endless,   ///< more records than any lock can hold
};

/// So many records a history has at most.
inline constexpr int MostHistoryRecords = 10000;

/// What is to be done with a lock.
enum class RunTask : std::uint8_t { Program, HistoryFirst, HistoryOnly };

/// What became of it.
enum class RunOutcome : std::uint8_t {
    Open,       ///< still running, or never begun
    Done,       ///< went through to its end
    Refused,    ///< the lock refused: wrong code, no free slot, a refusal reason
    NotReached, ///< no contact
    Cancelled,  ///< by the operator
    GivenUp,    ///< the lock stayed busy, or its events could not be kept
    NoPort,     ///< the port could not be opened; nothing was sent
    Incomplete, ///< came to its end, but the lock or a unit did not acknowledge all that it had to get
    PassedOver, ///< in a list: its data are not in order, or it has no adapter; nothing was sent
};

/// What is asked of a run: made as a whole before it, and handed to its start.
struct RunOrder {
    int LockNumber = 0; ///< 1 to 200
    std::string LockName{};
    std::uint32_t SerialValue = 0; ///< the lock's serial as one number
    Address LockAddress{};         ///< the lock's four serial bytes; TargetAddress is the unit's in a unit session
    std::uint8_t TargetChannel = 1;
    bool Search = false; ///< the login walks the channels, from TargetChannel on
    RunTask What = RunTask::Program;
    bool TwoPasses = false; ///< the lock is logged into a second time
    std::uint8_t EraseOption = 0;
    Secret<3> AdminCode{};       ///< gone when the run, or the list, has ended
    std::string HistoryCutoff{}; ///< "dd.mm.yyyy", or empty

    bool operator==(const RunOrder&) const = default;
};

/// What the data files say of a lock and its telegrams carry.
struct LockValues {
    std::string TimerMode = TimerPB_UT;
    std::uint8_t FlagSetClock = 0; ///< 1: date and time go out after the login
    bool ListenWindow = false;     ///< the lock's unit mode is "3": TelZeitfenster goes out
    std::uint8_t FlagLockTimer = 0;
    std::uint8_t FlagCalendar = 0;
    std::uint8_t PriorityCode = 2;
    std::uint8_t LockMode = 0xFF; ///< 0xFF: TelSchlossModus is not sent
};

/// Where the reply chain stands. It begins anew with each lock: nothing in here outlives a run.
struct ChainState {
    RunPhase Phase = RunPhase::None;
    std::uint8_t AbbruchWunsch = 0;     ///< set by cancel buttons, honoured at the next frame
    std::string LaufZiel;               ///< "", "UNIT", "F20" or "F22": who asked for the login
    std::uint8_t UnitModus = 0;         ///< 0 normal, 0xFA unit opening, 0xFD unit block transfer
    std::uint8_t HistoryOnly = 0;       ///< 1 while only history is read
    std::uint8_t ReadHistoryFirst = 0;  ///< 1 when history is read before the lock is programmed
    std::uint8_t TwoPassFlag = 0;       ///< the run must log in again after its first 0x05
    std::uint8_t KanalSuche = 0;        ///< non-zero while the login walks the channels
    std::uint8_t KanalIndex = 0;        ///< channel step of such a search, 0 to 12
    std::uint8_t SuchLauf = 0;          ///< non-zero while a unit search by logins runs
    std::uint8_t SuchMarke = 0;         ///< 0xAD while the unit-list scan runs
    std::uint8_t CodeChangePending = 0; ///< 0xFF while the code change waits for its login
    int SlotCursor = 0;                 ///< current row of the user list
    std::uint8_t TimerPart = 0;         ///< step of the table telegrams, 0xFF when done
    std::uint8_t HolidayPart = 0;
    int WiederholZaehler = 0; ///< counts reason 0x67
    int UnitVersuche = 0;     ///< repeats of TelDatenStart in a unit session
    int UnitTry = 0;          ///< 0x38 while a type 2 unit is being opened
    int EintragFertig = 0;    ///< channel tries of a unit's opening
    int UnitIndex = 0xFF;     ///< current wireless unit, 0 to 4; 0xFF before the first
    int UnitRow = 0;          ///< template row and its piece in a unit block transfer, from 0
    int UnitPiece = 0;
    std::uint8_t HistoryStop = 0; ///< 0xFF when a record older than the cut-off has come
    std::uint8_t HistoryFileOpen = 0;
    HistoryLoss HistoryLost = HistoryLoss::None; ///< of this run
    bool HistoryRead = false;                    ///< the end of this run's reading came
    int HistoryRecords = 0;                      ///< records of the reading so far
    bool HistoryDateTold = false;                ///< a date that does not exist was reported
    std::uint8_t HistoryStateShown = 0;          ///< 1 when the run's first record with a state was shown
    std::string HistoryFileName;                 ///< full path of the run's .HST file
    std::string IdMarke;                         ///< "P" while a long transponder identification is pending
    bool IdSecondPart = false;                   ///< and its second telegram is still to go
    std::uint16_t UserSlot = 0;                  ///< the slot that the lock gave for the current user
    bool AnswerSeen = false;                     ///< a reply 0x06 or 0x08 came since TelLebenszeichen
    int AnswerTicks = 0;                         ///< ticks of Timer7 without an answer
    /// Platform::Milliseconds of the last frame that broke the device's silence, or of the end of an ordered wait. What
    /// nobody asked for, and what leads nowhere, does not break it.
    std::int64_t LastAnswer = 0;

    bool operator==(const ChainState&) const = default;
};

/// The list run that the lock is a row of. It outlives its rows.
struct ListState {
    int RunRow = 0; ///< current and total rows of the list run; RunRows 0: no list
    int RunRows = 0;
    std::uint8_t NetMode = 0; ///< 0 program only, 0xFF history and program, 0x80 history only
    RunOrder Wish{};          ///< of each row; what is the lock's own is added row by row

    bool operator==(const ListState&) const = default;
};

constexpr std::uint8_t NetMode_Von(RunTask what) {
    return what == RunTask::Program ? 0 : what == RunTask::HistoryFirst ? 0xFF : 0x80;
}

/// The progress window's bars.
struct ProgressState {
    int TelegramCounter = 0;
    int ProgressMaximum = 1500; ///< maximum of the first bar
    int ProgressValue = 0;
    int SecondProgress = 0; ///< running indicator, 0 to 27
};

/// What windows and reply chain know of the run, in records of one life span each.
struct RunState {
    RunOrder Order; ///< of the run that is prepared, or on
    LockValues Values;
    ChainState Chain;
    ListState List;
    ProgressState Progress;
    std::uint8_t KeyMode = 0;      ///< what an E-Key read is for: 0 learn, 1 synchronise, 2 search
    Secret<16> SitzungsSchluessel; ///< gone when the run, or the list, has ended
};

} // namespace qvm
