#pragma once

#include "Platform.h"
#include "Text.h"

#include <string>

namespace qvm {

/// What the operator knows port `number` by: its number and the device behind it, or the number of a COM port where the
/// system has those.
inline std::string Portname(const Platform& world, int number) {
    const std::string device = world.PortDevice ? world.PortDevice(number) : std::string();
    return device.empty() ? "COM" + Ziffern(number) : Ziffern(number) + ": " + AusUtf8(device);
}

} // namespace qvm
