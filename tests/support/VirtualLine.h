#pragma once

#include "VirtualPlatform.h"
#include "VirtualSystem.h"

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace qvm::test {

/// Time and line of a virtual PC, for a virtual system at any of its ports. Nothing is deciphered, and the adapter
/// cannot be pulled out.
inline SimSurroundings LineOf(VirtualPlatform& world) {
    return {.Now = [&world] { return world.Elapsed(); },
            .After = [&world](int ms, std::function<void()> action) { world.At(ms, std::move(action)); },
            .Send = [&world](std::vector<std::uint8_t> bytes) { world.Deliver(std::move(bytes)); },
            .Decipher = {},
            .Unplug = {},
            .SessionClosed = {},
            .Trace = {}};
}

} // namespace qvm::test
