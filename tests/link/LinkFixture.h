#pragma once

#include "SeriellesProtokoll.h"
#include "Text.h"
#include "VirtualPlatform.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

/// "02 0D .." to bytes.
inline std::vector<std::uint8_t> Hex(std::string_view text) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t n = 0; n + 1 < text.size(); n += 3) {
        bytes.push_back(static_cast<std::uint8_t>(HexWert(text.substr(n, 2))));
    }
    return bytes;
}

inline std::string HexZeile(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += (text.empty() ? "" : " ") + HexText(byte, 2);
    }
    return text;
}

/// A link on an open virtual port, to the address 11 22 33 44. The transmit buffer is full of bytes of an earlier
/// telegram, none of which may go out.
class LinkFixture : public ::testing::Test {
protected:
    LinkFixture() {
        platform.PortOpen = true;
        link.PortNummer = 1;
        link.TxBuffer.fill(0x5A);
        link.TargetAddress = {0x11, 0x22, 0x33, 0x44};
        link.Lauf.Order.AdminCode = {0x12, 0x3A, 0x45};
    }

    /// Everything that went over the line so far.
    std::string Wire() const { return HexZeile(platform.Written); }

    VirtualPlatform platform;
    Kern kern{platform.World};
    Link link{kern};
};

} // namespace qvm::test
