#pragma once

#include <cstdint>
#include <span>

namespace qvm {

/// The inverse of the program's block cipher: AES-128, one block, in place.
void SimDecipher(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key);

} // namespace qvm
