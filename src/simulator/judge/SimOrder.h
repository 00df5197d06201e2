#pragma once

#include "SimSteps.h"

#include <cstdint>
#include <string>

/// What may follow what in a session, as a device sees it.
namespace qvm {

/// How the lock's timer tables came, which decides whether user time groups follow.
enum class TimerTables : std::uint8_t { Unknown, None, Short, Parts };

/// A session with one device.
struct Session {
    bool Open = false;
    Step Last = Step::None;
    TimerTables Tables = TimerTables::Unknown;
};

/// Why this step is not due in a lock's session; empty when it is. `serial`: the lock's serial as a number.
std::string LockOrderFault(const Session& session, Step next, std::uint32_t serial);
/// The same for units of type 1 and 2. `service`: the session is one for a code change, which is alike for both.
std::string UnitOrderFault(const Session& session, Step next, int type, bool service);
/// True when a lock's session may be closed behind this step without leaving data half sent.
bool MayCloseBehind(Step last);

/// Locks of these serials poll through the erase; those of the second range have a reader setting and take long
/// identifications in two parts.
constexpr bool ErasesInBackground(std::uint32_t serial) {
    return serial >= 0x1000001 && serial <= 0x2000000;
}
constexpr bool HasReaderSetting(std::uint32_t serial) {
    return (serial >= 0x1500C06 && serial <= 0x1600000) || (serial >= 0x1C000AE && serial <= 0x1D00000);
}

} // namespace qvm
