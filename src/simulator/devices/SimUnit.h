#pragma once

#include "SimLock.h"
#include "SimOrder.h"
#include "VirtualDevices.h"

#include <cstdint>
#include <functional>
#include <span>

namespace qvm {

/// Deciphers one 16-byte block in place.
using DecipherFunction = std::function<void(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key)>;

struct UnitSession : Session {
    std::uint8_t ChannelAsked = 0; ///< channel less 1
    int LastPiece = -1;            ///< number of the last piece taken; -1 before the first
};

/// Lets the unit act on a telegram that has reached it.
DeviceReply UnitAnswers(VirtualUnit& unit, UnitSession& session, std::span<const std::uint8_t> frame,
                        const DecipherFunction& decipher, Judge& judge);

} // namespace qvm
