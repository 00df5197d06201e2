#pragma once

#include "SimLock.h"
#include "SimSteps.h"
#include "VirtualDevices.h"

#include <array>
#include <cstdint>
#include <functional>
#include <span>

/// What locks and units answer alike.
namespace qvm {

/// What comes of the turn of a device that answers in this manner. One that refuses, or never answers, takes no turn.
DeviceReply InManner(Answering how, const std::function<DeviceReply()>& turn);

/// An acknowledge that carries a status byte.
DeviceReply StatusReply(std::uint8_t code, const DeviceAddress& serial, std::uint8_t status);

/// Status of a login: `forced` unless it is 0, else by the administrator code that the telegram carries.
std::uint8_t LoginStatus(std::uint8_t forced, const std::array<std::uint8_t, 3>& code,
                         std::span<const std::uint8_t> frame);

/// Status of a code change: `forced` unless it is 0, else by the old code that the telegram carries. Sets `code` to the
/// new one when that is accepted.
std::uint8_t ChangeCode(std::uint8_t forced, std::array<std::uint8_t, 3>& code, std::span<const std::uint8_t> frame);

/// The reply to the telegrams behind the one that asked for a channel. `asked`: that channel less 1. `channel`: of the
/// device, 1 to 12, set where the step is the one that moves it.
DeviceReply ChannelReply(Step step, std::span<const std::uint8_t> frame, const DeviceAddress& serial, int asked,
                         int& channel, Judge& judge);

} // namespace qvm
