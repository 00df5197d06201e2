#include "NetzRahmen.h"

#include <algorithm>

namespace qvm::test {
namespace {

/// Doubling with end-around carry, modulo 255; 255 stays.
std::uint8_t Sum(std::span<const std::uint8_t> bytes) {
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum = sum * 2 + byte;
        while (sum > 255) {
            sum -= 255;
        }
    }
    return static_cast<std::uint8_t>(sum);
}

} // namespace

std::vector<std::uint8_t> NetReplyWire(std::uint8_t code, std::uint8_t block, const std::vector<std::uint8_t>& payload,
                                       const std::array<std::uint8_t, 4>& lock) {
    std::vector<std::uint8_t> frame(32, 0);
    frame[0] = 0x02;
    frame[1] = block;
    frame[2] = 0x90;
    frame[3] = 1;
    std::copy(lock.begin(), lock.end(), frame.begin() + 6);
    frame[27] = code;
    frame.insert(frame.end(), payload.begin(), payload.end());
    const std::size_t length = frame.size() + 1;
    frame[4] = static_cast<std::uint8_t>(length / 256);
    frame[5] = static_cast<std::uint8_t>(length % 256);
    frame.push_back(Sum(frame));
    std::vector<std::uint8_t> wire;
    for (std::size_t at = 0; at < frame.size(); ++at) {
        wire.push_back(frame[at]);
        if (at > 1 && frame[at] == 0x02) {
            wire.push_back(0);
        }
    }
    wire.push_back(0x0D);
    return wire;
}

std::vector<std::uint8_t> NetUnstuffed(std::span<const std::uint8_t> wire) {
    std::vector<std::uint8_t> frame;
    for (std::size_t n = 0; n < wire.size(); ++n) {
        frame.push_back(wire[n]);
        n += frame.size() > 2 && wire[n] == 0x02 ? 1 : 0;
    }
    return frame;
}

} // namespace qvm::test
