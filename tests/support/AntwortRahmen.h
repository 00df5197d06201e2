#pragma once

#include <cstdint>
#include <vector>

namespace qvm::test {

/// A reply as it comes over the line: `length` at index 1, `payload` from index 3 on, zeros up to the byte outside the
/// sum, the checksum, all stuffed. Made here, not by the program's own routines.
std::vector<std::uint8_t> ReplyWire(std::uint8_t code, std::uint8_t length, const std::vector<std::uint8_t>& payload);

} // namespace qvm::test
