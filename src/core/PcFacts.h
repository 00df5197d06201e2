#pragma once

#include "Platform.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// What the PC is found to be at one moment, for a look at whether the program can work on it. Texts are UTF-8. What
/// the system does not tell is an empty text or nothing, and never a value.
namespace qvm {

/// A serial port at which an adapter may be.
struct PortFacts {
    int Number = 0;
    std::string Device{}; ///< as the operator knows it, "com1 -> /dev/ttyUSB0"
    bool There = false;   ///< something is behind it
    bool Serial = false;  ///< and it is a character device
    bool Right = false;   ///< this program may read and write it
    std::string Owner{}, Group{};
    bool GroupMay = false;          ///< its group may read and write it
    bool GroupListed = false;       ///< the PC lists the user in that group, whether this session knows it or not
    bool Own = false;               ///< this program itself has it open
    bool Busy = false;              ///< and works with it, so that it cannot be asked
    bool Asking = false;            ///< it is being asked
    std::string Holder{};           ///< "name (process number)" of another program that has it open
    bool Held = false;              ///< it could not be opened, as another program, maybe unseen, has it
    std::string Refusal{};          ///< why it could not be opened, a sentence
    bool LeftAlone = false;         ///< the system tells its modem service to leave it alone
    bool TimerTold = false;         ///< LatencyMs can be relied on
    std::optional<int> LatencyMs{}; ///< how long its converter holds bytes back; nothing: it has no such timer
    bool Opened = false;          ///< the program has opened it, and asked for a short timer, before LatencyMs was read
    std::string LatencyFile{};    ///< where that is set
    bool Asked = false;           ///< it was asked who it is
    std::optional<int> Version{}; ///< of the adapter that answered; 0: it does not tell
    std::string AdapterName{};    ///< code page 1252
};

/// A file or directory.
struct PathFacts {
    bool There = false;
    bool Told = true; ///< false: the system does not say what is there
    bool Directory = false;
    bool Readable = false;
    bool Writable = false;
    bool Own = false;  ///< belongs to the user of this program
    unsigned Mode = 0; ///< permission bits
    std::string Owner{};
};

struct PcFacts {
    std::string User{};
    std::vector<std::string> Groups{};       ///< of this session
    std::vector<PortFacts> Ports{};          ///< those that can hold an adapter, or the one that is configured
    std::vector<std::string> OtherDevices{}; ///< "ttyUSB0 (1a86:7523)", serial devices at which none is looked for
    bool ServicesTold = false;
    std::vector<std::string> Services{}; ///< "ModemManager (812)", services that open new serial ports
    DateTime Now{};
    std::optional<DateTime> Newest{};         ///< when a file of the data or history directory was changed last
    std::string NewestFile{};                 ///< which one that is, "DAT/NAME"
    std::string Zone{};                       ///< "Europe/Berlin"
    bool ZoneThere = false;                   ///< the PC has the rules of that zone
    std::optional<std::uint64_t> FreeBytes{}; ///< for the user, where the data files lie
    bool ReadOnly = false;                    ///< that file system takes no change
    /// By the path behind the program's directory: "DAT", "HIST", "DAT/NAME" for all that lies in DAT.
    std::map<std::string, PathFacts> Paths{};
};

} // namespace qvm
