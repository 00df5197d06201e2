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
    bool Service = false;          ///< begun by the login in front of a code change
    std::uint8_t RefusedLogin = 0; ///< status of that login when it was refused: the code change gets the same
    std::uint8_t ChannelAsked = 0; ///< channel less 1
    int LastPiece = -1;            ///< number of the last piece taken; -1 before the first
};

/// The login in front of a code change: the long one, in the address mode of units of type 2. Units of both types take
/// it.
bool ServiceLogin(std::span<const std::uint8_t> frame);

/// Lets the unit act on a telegram that has reached it.
DeviceReply UnitAnswers(VirtualUnit& unit, UnitSession& session, std::span<const std::uint8_t> frame,
                        const DecipherFunction& decipher, Judge& judge);

} // namespace qvm
