#pragma once

#include "SimNetworkForm.h"
#include "VirtualDevices.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace qvm {

/// Everything that a network adapter has taken for one lock.
struct NetworkDataset {
    DeviceAddress Serial{};
    std::array<DeviceAddress, 4> Units{};  ///< type 2 in the first two places, type 1 behind; 0 for none
    std::vector<std::uint8_t> Fixed;       ///< NetworkFixedBytes bytes
    std::vector<std::uint8_t> Users;       ///< records
    std::vector<std::uint8_t> FingerBytes; ///< of all fingerprint blocks
    std::vector<NetworkTemplate> Fingers;
    LockClock Clock;
};

/// True when the lock can be programmed or read with this administrator code.
bool NetworkReaches(const VirtualLock& lock, std::span<const std::uint8_t> adminCode);

/// Programs the lock, on whatever channel it listens, and its units of this system that have the same administrator
/// code. The lock moves to the channel that the data name.
void StoreNetworkDataset(const NetworkDataset& data, VirtualLock& lock, std::vector<VirtualUnit>& units, Judge& judge);

} // namespace qvm
