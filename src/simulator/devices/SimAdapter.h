#pragma once

#include "VirtualDevices.h"

#include <cstdint>
#include <span>
#include <vector>

namespace qvm {

/// Where the identification reply carries the adapter's version. The place is this adapter's own choice.
inline constexpr std::uint8_t AdapterVersionIndex = 15;

struct AdapterReply {
    std::vector<std::uint8_t> Bytes; ///< bytes 0 to L + 1; empty: no reply
    int Channel = 0;                 ///< radio channel to go to; 0: none was named
};
/// Lets the adapter act on a telegram of its own.
AdapterReply TakeAdapterTelegram(VirtualAdapter& adapter, std::span<const std::uint8_t> frame);

} // namespace qvm
