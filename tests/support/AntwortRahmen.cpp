#include "AntwortRahmen.h"

#include <cstddef>

namespace qvm::test {

std::vector<std::uint8_t> ReplyWire(std::uint8_t code, std::uint8_t length, const std::vector<std::uint8_t>& payload) {
    std::vector<std::uint8_t> frame{0x02, length, code};
    frame.insert(frame.end(), payload.begin(), payload.end());
    frame.resize(std::size_t{length} + 2, 0);
    unsigned sum = 0;
    for (std::size_t n = 0; n <= length; ++n) {
        sum = (sum << 1U | sum >> 7U) & 0xFFU; // doubling with end-around carry
        sum += frame[n];
        sum = sum > 255 ? sum - 255 : sum;
    }
    frame.push_back(static_cast<std::uint8_t>(sum));
    std::vector<std::uint8_t> wire{frame[0], frame[1]};
    for (std::size_t n = 2; n < frame.size(); ++n) {
        wire.push_back(frame[n]);
        if (frame[n] == 0x02) {
            wire.push_back(0x00);
        }
    }
    return wire;
}

} // namespace qvm::test
