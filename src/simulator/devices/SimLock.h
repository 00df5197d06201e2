#pragma once

#include "SimJudge.h"
#include "SimOrder.h"
#include "VirtualDevices.h"

#include <cstdint>
#include <span>
#include <vector>

namespace qvm {

/// What a device does on a telegram.
struct DeviceReply {
    std::vector<std::uint8_t> Bytes; ///< bytes 0 to L + 1; empty: no reply
    int NewChannel = 0;              ///< the device moved to this radio channel; 0: it did not
    bool Closed = false;             ///< its session is over
    bool Garbled = false;            ///< its checksum is broken on the way
};

/// Reasons of a refusal, reply 0x69.
namespace Refusal {
inline constexpr std::uint8_t NoContact = 0x64, NotAccepted = 0x65, NoKey = 0x66;
}
std::vector<std::uint8_t> RefusalReply(std::uint8_t reason);
/// A positive acknowledge: the code back, address at 3 to 6, serial at 7 to 10. `length` at least 13.
std::vector<std::uint8_t> Acknowledge(std::uint8_t code, const DeviceAddress& device, std::uint8_t length = 13);

/// Login status.
inline constexpr std::uint8_t StatusAccepted = 4, StatusWrongCode = 1, StatusBadNewCode = 2;

/// A session with a lock, and what the lock is busy with.
struct LockSession : Session {
    bool Disturbed = false;        ///< a fault was played since the login: a second login may come
    std::uint8_t RefusedLogin = 0; ///< status of the login just refused: a code change behind it gets the same
    std::size_t HistoryAt = 0;
    bool HistoryEnded = false;
    LockUser Pending; ///< the user that is being built up
    std::int64_t BusyUntil = 0;
    int AliveWhileBusy = 0;
    std::uint8_t ChannelAsked = 0; ///< channel less 1
};

/// Lets the lock act on a telegram that has reached it. `now`: milliseconds.
DeviceReply LockAnswers(VirtualLock& lock, LockSession& session, std::span<const std::uint8_t> frame, std::int64_t now,
                        Judge& judge);

} // namespace qvm
