#pragma once

#include "SimLock.h"
#include "SimSteps.h"

#include <array>
#include <cstdint>
#include <span>

/// What locks and units answer alike.
namespace qvm {

/// An acknowledge that carries a status byte.
DeviceReply StatusReply(std::uint8_t code, const DeviceAddress& serial, std::uint8_t status);

/// Status of a login: `forced` unless it is 0, else by the administrator code that the telegram carries.
std::uint8_t LoginStatus(std::uint8_t forced, const std::array<std::uint8_t, 3>& code,
                         std::span<const std::uint8_t> frame);

/// The reply to the telegrams behind the one that asked for a channel. `asked`: that channel less 1. `channel`: of the
/// device, 1 to 12, set where the step is the one that moves it.
DeviceReply ChannelReply(Step step, std::span<const std::uint8_t> frame, const DeviceAddress& serial, int asked,
                         int& channel, Judge& judge);

} // namespace qvm
