#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace qvm::test {

/// A reply of a network adapter as it comes over the line: header, payload from index 32 on, length word, checksum and
/// the byte that ends it, stuffed. `lock`: the serial in the header, none when all bytes are 0. Made here, not by the
/// program's own routines.
std::vector<std::uint8_t> NetReplyWire(std::uint8_t code, std::uint8_t block, const std::vector<std::uint8_t>& payload,
                                       const std::array<std::uint8_t, 4>& lock = {});

/// A network telegram without the byte that follows each 0x02 behind the header's first two bytes.
std::vector<std::uint8_t> NetUnstuffed(std::span<const std::uint8_t> wire);

} // namespace qvm::test
