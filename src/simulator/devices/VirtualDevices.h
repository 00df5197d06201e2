#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// What the devices of a virtual lock system are and hold. Plain data: a test reads and writes it directly.
namespace qvm {

using DeviceAddress = std::array<std::uint8_t, 4>; ///< the serial, first byte first

/// The four serial bytes as one number, first byte highest.
constexpr std::uint32_t SerialNumber(const DeviceAddress& address) {
    return (std::uint32_t{address[0]} << 24) | (std::uint32_t{address[1]} << 16) | (std::uint32_t{address[2]} << 8) |
           std::uint32_t{address[3]};
}

/// How long a network adapter takes, and how much of a history it sends at once.
struct NetworkWaits {
    int AnswerMs = 10;       ///< from a telegram to the answer that comes at once
    int FetchMs = 3000;      ///< from the start of a history reading to the first block
    int ProgramMs = 5000;    ///< from the clock to the lock's result
    int HistoryBytes = 1152; ///< of records in one block, 1 to 1152
};

/// The wireless adapter on the serial line: for programming, or, by a name that begins "ENROLLMENT1", for enrolment. A
/// programming adapter with an address of the network range takes whole datasets and programs the locks on its own.
struct VirtualAdapter {
    std::string Name = "PROGSTATION 1"; ///< code page 1252, at most 20 bytes
    std::uint8_t Version = 12;
    DeviceAddress Address{10, 20, 30, 40};
    std::array<std::uint8_t, 16> Key{};  ///< transfer key; its record carries it disguised
    std::array<std::uint8_t, 5> Probe{}; ///< of the last identification since it was plugged in

    NetworkWaits Waits;

    /// An adapter for enrolment reaches no lock.
    bool Enrolment() const { return Name.starts_with("ENROLLMENT1"); }
    bool Network() const {
        constexpr std::uint32_t first = 0x3E00001, last = 0x3F00000;
        return Name.starts_with("PROGSTATION") && SerialNumber(Address) >= first && SerialNumber(Address) <= last;
    }
};

/// One user as the lock keeps it.
struct LockUser {
    std::uint16_t Slot = 0;
    bool Finger = false;
    std::array<std::uint8_t, 16> Name{}; ///< OEM code page
    std::uint8_t Weighting = 0;
    // Code users.
    std::array<std::uint8_t, 5> Code{}; ///< two digits a byte, A for 0, E for none
    std::uint8_t TimerSelector = 0;
    bool HasId = false; ///< identification sent along with the user's data
    std::array<std::uint8_t, 4> Id{};
    std::array<std::uint8_t, 16> IdData{};
    bool HasLongId = false; ///< identification sent in two parts of its own
    std::uint8_t GroupDigit = 0;
    std::array<std::uint8_t, 11> LongId{};
    std::array<std::uint8_t, 16> LongIdData{};
    // Fingerprint users.
    std::uint16_t FingerNumber = 0;
    std::array<std::uint8_t, 28> Slice{};
    // Both.
    bool HasGroups = false;
    std::array<std::uint8_t, 3> Groups{}; ///< masks of the timer slots 1 to 8, 9 to 16, 17 to 24

    bool operator==(const LockUser&) const = default;
};

using TimerLine = std::array<std::uint8_t, 5>; ///< day selector, start hour, minute, end hour, minute
using DateLine = std::array<std::uint8_t, 6>;  ///< start day, month, year, end day, month, year
using HistoryLine = std::array<std::uint8_t, 22>;

/// How a timer table came: by which telegrams, or in a network adapter's block.
enum class TableForm : std::uint8_t { None, Short, Parts, Block };

struct LockClock {
    std::uint8_t Day = 0, Month = 0, Year = 0, Hour = 0, Minute = 0, Second = 0;
    bool operator==(const LockClock&) const = default;
};

struct ListenTime {
    std::uint8_t First = 0, Second = 0, High = 0, Low = 0;
    bool operator==(const ListenTime&) const = default;
};

struct ReaderSetting {
    std::uint8_t Level = 0, First = 0, Second = 0;
    bool operator==(const ReaderSetting&) const = default;
};

/// How a device answers a search, and a login.
enum class Answering : std::uint8_t {
    Well,
    Poorly,   ///< the answer arrives with a broken checksum
    Refusing, ///< it does not want to: a refusal comes
    Never,    ///< nothing comes, not even that nobody is there
};

/// What a search of the radio channels hears of a device.
struct OnAir {
    std::uint8_t Signal = 100; ///< as the line carries it: up to 127 as it stands, above counting downwards
    std::uint8_t ScanType = 1; ///< what kind of device it says it is
    Answering Answers = Answering::Well;
    bool Away = false; ///< it was taken away: out of the reach of every adapter
};

struct VirtualLock {
    std::string Label; ///< for people only, UTF-8
    DeviceAddress Serial{};
    std::array<std::uint8_t, 3> AdminCode{0x12, 0x34, 0x56};
    int Channel = 1; ///< radio channel it listens on, 1 to 12

    // Behaviour.
    std::uint8_t LoginStatus = 0;            ///< 0: by the code; else the status that every login gets
    std::uint8_t CodeStatus = 0;             ///< 0: by the old code; else the status that every code change gets
    int EraseBusyMs = 2500;                  ///< how long a lock of 0x1000001 to 0x2000000 is deaf after an erase
    bool EchoErase = true;                   ///< whether such a lock acknowledges the erase before it goes deaf
    std::uint8_t AliveReply = 0x08;          ///< reply code to a sign of life: 0x06 or 0x08
    std::optional<std::uint16_t> ForcedSlot; ///< the slot number given out instead of a free one
    OnAir Air;

    // Memory.
    std::vector<LockUser> Users;                                   ///< erased by every data start
    std::map<std::uint16_t, std::array<std::uint8_t, 28>> Fingers; ///< by number; erased by data start option 1 only
    TableForm FormA = TableForm::None, FormB = TableForm::None;
    std::array<TimerLine, 24> TableA{};
    std::array<TimerLine, 16> TableB{};
    std::array<DateLine, 21> SingleDays{};
    std::array<DateLine, 21> PermanentDays{}; ///< the last byte of the last line never reaches the lock
    std::optional<LockClock> Clock;
    std::optional<std::uint8_t> LockTimerFlag, CalendarFlag, Priority, LockMode, EraseOption;
    std::optional<ListenTime> Listen;
    std::optional<ReaderSetting> Reader;
    std::vector<HistoryLine> History; ///< in the order in which it is read out; never erased
    int Erases = 0;                   ///< data starts taken
    int Sessions = 0;                 ///< sessions closed
    bool DataComplete = false;        ///< the end of data came after the last data start
};

/// One template row that a unit of type 2 took.
struct UnitRow {
    std::uint16_t Number = 0; ///< as sent, from 1
    std::uint8_t Type = 0;
    std::uint16_t Address = 0;
    std::vector<std::uint8_t> Bytes; ///< deciphered pieces, padding included
    bool operator==(const UnitRow&) const = default;
};

struct VirtualUnit {
    std::string Label;
    int Type = 1; ///< 1 or 2
    DeviceAddress Serial{};
    std::array<std::uint8_t, 3> AdminCode{0x12, 0x34, 0x56};
    int Channel = 1; ///< where a new one listens

    // Behaviour.
    std::uint8_t LoginStatus = 0;
    std::uint8_t CodeStatus = 0;
    OnAir Air{.ScanType = 6};
    int RefusedErases = 0;        ///< so many data starts are refused before one is taken
    std::uint8_t BlockStatus = 0; ///< status byte of every block's acknowledge

    // Memory.
    std::optional<DeviceAddress> Lock; ///< the lock it was told of
    std::array<std::uint8_t, 16> Key{};
    std::uint16_t RowsAnnounced = 0;
    std::vector<UnitRow> Rows;
    int Erases = 0;
    int Sessions = 0;
};

} // namespace qvm
