#pragma once

#include "VirtualSystem.h"

#include <cstdint>
#include <functional>
#include <map>
#include <ostream>
#include <vector>

namespace qvm {
void PrintTo(const Judgement& judgement, std::ostream* out);
}

namespace qvm::test {

using Bytes = std::vector<std::uint8_t>;

/// Checksum in another form than the simulator's: rotate left by one bit, then add with end-around carry.
std::uint8_t RotateSum(const Bytes& bytes);
/// A frame of the PC as it goes over the wire. `frame`: from the start byte to the last byte under the checksum.
Bytes OnWire(Bytes frame);
/// The frame of a reply from its wire form, checked: start, length, stuffing and checksum. Empty when it is broken.
Bytes FromWire(const Bytes& wire);
Bytes Join(const std::vector<Bytes>& parts);
/// `count` bytes of the same value.
Bytes Fill(std::size_t count, std::uint8_t value = 0);
/// A name with its rest filled with 0.
Bytes Name16(const std::string& name);

/// A virtual system with a clock that the test moves, and a PC that says what the test wants.
class SimBench {
public:
    explicit SimBench(VirtualWorld world);

    /// An addressed telegram to the device that `To` names, and all that came back for it, frame by frame.
    std::vector<Bytes> Say(std::uint8_t code, const Bytes& payload = {});
    /// The one reply that must come; a failed test and an empty frame when there is none or more.
    Bytes Ask(std::uint8_t code, const Bytes& payload = {});
    /// Status byte of the reply to a login with this code on this channel.
    int LogIn(const Bytes& code = {0x1A, 0x42, 0x12}, std::uint8_t channel = 5);
    /// A telegram to the adapter itself; `body` begins at index 3.
    std::vector<Bytes> SayRaw(std::uint8_t code, const Bytes& body);
    /// Wire bytes as they are.
    std::vector<Bytes> SayWire(const Bytes& wire);
    /// An addressed telegram as wire bytes.
    Bytes Telegram(std::uint8_t code, const Bytes& payload) const;
    /// Lets time go on.
    void Pass(int ms);

    DeviceAddress To{};
    std::uint8_t Class = 0x11;
    std::uint8_t Mode = 0;
    std::int64_t Clock = 0;
    int Unplugs = 0;
    int Closes = 0;
    Bytes Wire; ///< everything that came back since the last telegram
    std::vector<Bytes> Sendings;
    VirtualSystem System;

private:
    SimSurroundings Surroundings();

    std::multimap<std::int64_t, std::function<void()>> planned_;
};

/// A world of one lock on channel 5 with the administrator code 104212.
VirtualWorld OneLock(std::uint32_t serial);
DeviceAddress AddressOf(std::uint32_t serial);

/// Bytes of one user's telegrams, with their slot.
Bytes CodeUserData(std::uint16_t slot, std::uint8_t selector = 0);

} // namespace qvm::test
