#include "SimBench.h"

#include <gtest/gtest.h>

namespace qvm {
void PrintTo(const Judgement& judgement, std::ostream* out) {
    *out << JudgementText(judgement);
}
} // namespace qvm

namespace qvm::test {

std::uint8_t RotateSum(const Bytes& bytes) {
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum = ((sum << 1) | (sum >> 7)) & 0xFF;
        sum += byte;
        sum = (sum & 0xFF) + (sum >> 8);
    }
    return static_cast<std::uint8_t>(sum);
}

Bytes OnWire(Bytes frame) {
    frame.push_back(RotateSum(frame));
    Bytes wire{frame[0], frame[1]};
    for (std::size_t n = 2; n < frame.size(); ++n) {
        wire.push_back(frame[n]);
        if (frame[n] == 2) {
            wire.push_back(0);
        }
    }
    return wire;
}

namespace {

/// Takes one reply from the front of `wire`; empty when none stands there.
Bytes TakeReply(Bytes& wire) {
    Bytes frame;
    std::size_t at = 0;
    while (at < wire.size()) {
        frame.push_back(wire[at++]);
        if (frame.size() > 2 && frame.back() == 2) {
            if (at == wire.size() || wire[at++] != 0) {
                return {};
            }
        }
        if (frame.size() > 1 && frame.size() == std::size_t{frame[1]} + 3) {
            break;
        }
    }
    if (frame.size() < 5 || frame[0] != 2 || frame.size() != std::size_t{frame[1]} + 3) {
        return {};
    }
    const Bytes summed(frame.begin(), frame.end() - 2);
    if (RotateSum(summed) != frame.back()) {
        return {};
    }
    wire.erase(wire.begin(), wire.begin() + static_cast<std::ptrdiff_t>(at));
    frame.pop_back();
    return frame;
}

} // namespace

Bytes FromWire(const Bytes& wire) {
    Bytes rest = wire;
    Bytes frame = TakeReply(rest);
    return rest.empty() ? frame : Bytes{};
}

Bytes Join(const std::vector<Bytes>& parts) {
    Bytes all;
    for (const Bytes& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

Bytes Fill(std::size_t count, std::uint8_t value) {
    return Bytes(count, value);
}

Bytes Name16(const std::string& name) {
    Bytes bytes(name.begin(), name.end());
    bytes.resize(16, 0);
    return bytes;
}

DeviceAddress AddressOf(std::uint32_t serial) {
    return {static_cast<std::uint8_t>(serial >> 24), static_cast<std::uint8_t>((serial >> 16) & 0xFF),
            static_cast<std::uint8_t>((serial >> 8) & 0xFF), static_cast<std::uint8_t>(serial & 0xFF)};
}

VirtualWorld OneLock(std::uint32_t serial) {
    VirtualWorld world;
    VirtualLock lock;
    lock.Serial = AddressOf(serial);
    lock.AdminCode = {0x1A, 0x42, 0x12};
    lock.Channel = 5;
    world.Locks.push_back(lock);
    return world;
}

Bytes CodeUserData(std::uint16_t slot, std::uint8_t selector) {
    return {static_cast<std::uint8_t>(slot >> 8),
            static_cast<std::uint8_t>(slot & 0xFF),
            0x12,
            0x3A,
            0xEE,
            0xEE,
            0xEE,
            selector,
            0x0C,
            0x00};
}

SimBench::SimBench(VirtualWorld world) : System(std::move(world), Surroundings()) {
    if (!System.World().Locks.empty()) {
        To = System.World().Locks[0].Serial;
    } else if (!System.World().Units.empty()) {
        To = System.World().Units[0].Serial;
    }
}

SimSurroundings SimBench::Surroundings() {
    SimSurroundings around;
    around.Now = [this] { return Clock; };
    around.After = [this](int ms, std::function<void()> action) { planned_.emplace(Clock + ms, std::move(action)); };
    around.Send = [this](const Bytes& bytes) {
        Sendings.push_back(bytes);
        Wire.insert(Wire.end(), bytes.begin(), bytes.end());
    };
    // A cipher that a test can work out: every byte is xored with the key's.
    around.Decipher = [](std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
        for (std::size_t n = 0; n < 16; ++n) {
            block[n] = static_cast<std::uint8_t>(block[n] ^ key[n]);
        }
    };
    around.Unplug = [this] { ++Unplugs; };
    around.SessionClosed = [this] { ++Closes; };
    return around;
}

Bytes SimBench::Telegram(std::uint8_t code, const Bytes& payload) const {
    Bytes frame{0x02, static_cast<std::uint8_t>(13 + payload.size()), code, To[0], To[1], To[2], To[3]};
    for (const int byte : {int{Class}, int{Mode}, 0x33, 0x88, 1, 0, 0}) {
        frame.push_back(static_cast<std::uint8_t>(byte));
    }
    frame.insert(frame.end(), payload.begin(), payload.end());
    return OnWire(frame);
}

std::vector<Bytes> SimBench::SayWire(const Bytes& wire) {
    Wire.clear();
    Sendings.clear();
    System.Receive(wire);
    std::vector<Bytes> frames;
    Bytes rest = Wire;
    for (Bytes frame = TakeReply(rest); !frame.empty(); frame = TakeReply(rest)) {
        frames.push_back(frame);
    }
    return frames;
}

std::vector<Bytes> SimBench::Say(std::uint8_t code, const Bytes& payload) {
    return SayWire(Telegram(code, payload));
}

std::vector<Bytes> SimBench::SayRaw(std::uint8_t code, const Bytes& body) {
    Bytes frame{0x02, static_cast<std::uint8_t>(2 + body.size()), code};
    frame.insert(frame.end(), body.begin(), body.end());
    return SayWire(OnWire(frame));
}

Bytes SimBench::Ask(std::uint8_t code, const Bytes& payload) {
    const auto frames = Say(code, payload);
    EXPECT_EQ(frames.size(), 1U) << "replies to telegram " << Hex(code);
    return frames.size() == 1 ? frames[0] : Bytes{};
}

int SimBench::LogIn(const Bytes& code, std::uint8_t channel) {
    const Bytes reply = Ask(0x04, Join({code, {0xEE, channel, 0xAA, 0x55}}));
    return reply.size() > 14 && reply[2] == 0x04 ? reply[14] : -1;
}

void SimBench::Pass(int ms) {
    const std::int64_t end = Clock + ms;
    while (!planned_.empty() && planned_.begin()->first <= end) {
        Clock = planned_.begin()->first;
        const auto action = planned_.begin()->second;
        planned_.erase(planned_.begin());
        action();
    }
    Clock = end;
}

} // namespace qvm::test
