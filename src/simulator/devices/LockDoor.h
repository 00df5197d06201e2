#pragma once

#include "LockTimes.h"
#include "VirtualDevices.h"

#include <cstdint>
#include <span>
#include <string_view>

/// The virtual lock's own judgement of someone who wants to come in.
namespace qvm {

enum class DoorAnswer : std::uint8_t {
    Opens,
    NotProgrammed, ///< it was never told who may come in, or not to the end
    Unknown,       ///< nobody whom it knows has this
    OutsideTimes,  ///< somebody has, but none of his time slots holds
};

struct DoorTry {
    DoorAnswer Answer = DoorAnswer::Unknown;
    std::array<std::uint8_t, 16> Name{}; ///< of who was told by it, in the OEM code page; 0 for nobody
    LockVerdict Times{};                 ///< of that user
};

/// Somebody types a code of up to ten digits. Of several users with one code one who may come in counts, else the
/// first. A door that opens makes two records, the later one first, as a history is read out: 3 that it was opened, 1
/// by a code. What a real lock notes of one that stays shut is not known; this one notes nothing.
/// @param now the lock's clock, the year with two digits
DoorTry Door_Code(VirtualLock& lock, std::string_view digits, const LockClock& now);

/// Somebody holds an E-Key against it, told by its identification of 4 bytes. The same, with 2 for the E-Key.
DoorTry Door_Key(VirtualLock& lock, std::span<const std::uint8_t> id, const LockClock& now);

} // namespace qvm
