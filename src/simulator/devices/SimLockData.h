#pragma once

#include "SimJudge.h"
#include "SimOrder.h"
#include "VirtualDevices.h"

#include <cstdint>
#include <span>

namespace qvm {

/// Slot numbers run from 1 to here.
inline constexpr std::uint16_t LastSlot = 2999;
/// The lowest slot number that no user has; 0 when the lock is full.
std::uint16_t FreeSlot(const VirtualLock& lock);

/// Stores what a data telegram brings: clock, flags, tables, users. `pending` is the user that the last "user begin"
/// opened. Telegrams without data change nothing.
void StoreLockData(VirtualLock& lock, LockUser& pending, Step step, std::span<const std::uint8_t> frame, Judge& judge);

} // namespace qvm
