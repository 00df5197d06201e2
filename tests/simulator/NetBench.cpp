#include "NetBench.h"

#include <gtest/gtest.h>

namespace qvm::test {

void PrintTo(const NetReply& reply, std::ostream* out) {
    *out << "block " << int{reply.Block} << " code " << Hex(reply.Code) << " body " << HexBytes(reply.Body);
}

VirtualWorld NetworkWorld() {
    VirtualWorld world = OneLock(0x000A1001);
    world.Adapter.Name = "PROGSTATION N";
    world.Adapter.Address = {0x03, 0xE0, 0x00, 0x01};
    for (std::size_t n = 0; n < 16; ++n) {
        world.Adapter.Key[n] = static_cast<std::uint8_t>(0xA0 + n);
    }
    world.Adapter.Waits.AnswerMs = 10;
    return world;
}

NetBench::NetBench() : NetBench(NetworkWorld()) {}

NetBench::NetBench(VirtualWorld world) : SimBench(std::move(world)) {}

Bytes NetBench::Fixed(int users) {
    Bytes data{0, static_cast<std::uint8_t>(users), 0x1A, 0x42, 0x12, 0xEE, 0xEE, 0x1A, 0x42, 0x12, 0xEE, 0xEE};
    // Channel 5, mode, calendar flag, lock timer flag, priority, filler, signal, 0, always on, time, erase option.
    const Bytes values{4, 0x14, 1, 0, 3, 0xFF, 3, 1, 0, 1, 0x0E, 0x10, 1};
    data.insert(data.end(), values.begin(), values.end());
    data.resize(640, 0);
    return data;
}

Bytes NetBench::User(int n) {
    const std::string digits = std::to_string(1000 + n);
    const std::string name = "USER" + digits.substr(1);
    Bytes record{1};
    record.insert(record.end(), name.begin(), name.end());
    record.resize(17, 0);
    const auto nibble = [&digits](std::size_t at) { return digits[at] == '0' ? 0xA : digits[at] - '0'; };
    record.push_back(static_cast<std::uint8_t>(nibble(0) * 16 + nibble(1)));
    record.push_back(static_cast<std::uint8_t>(nibble(2) * 16 + nibble(3)));
    // Three fillers, timer number, masks with the last slots first, weighting.
    const Bytes rest{0xEE, 0xEE, 0xEE, 0, 0x24, 0x42, 0x81, 0x0C};
    record.insert(record.end(), rest.begin(), rest.end());
    record.resize(64, 0);
    return record;
}

Bytes NetBench::FingerUser(int number, const Bytes& slice) {
    Bytes record{4, 'D', 'o', 'r', 'a'};
    record.resize(17, ' ');
    record.push_back(static_cast<std::uint8_t>(number / 256));
    record.push_back(static_cast<std::uint8_t>(number % 256));
    const Bytes rest{0, 4, 2, 8, 6, 1};
    record.insert(record.end(), rest.begin(), rest.end());
    record.insert(record.end(), slice.begin(), slice.end());
    record.resize(64, 0);
    return record;
}

Bytes NetBench::Header(int number, int count, std::size_t word, std::uint8_t code) const {
    Bytes head{0x02,
               static_cast<std::uint8_t>(number),
               0x90,
               static_cast<std::uint8_t>(count),
               static_cast<std::uint8_t>(word / 256),
               static_cast<std::uint8_t>(word % 256),
               To[0],
               To[1],
               To[2],
               To[3]};
    head.insert(head.end(), Units.begin(), Units.end());
    for (const int byte : {0, int{code}, 0xFF, 0xFF, 0, 0}) {
        head.push_back(static_cast<std::uint8_t>(byte));
    }
    return head;
}

Bytes NetBench::Block(int number, int count, std::size_t word, std::uint8_t code, const Bytes& data) const {
    Bytes frame = Header(number, count, word, code);
    Bytes group;
    for (std::size_t at = 0; at < data.size(); ++at) {
        group.push_back(data[at]);
        if (group.size() == 128 || at + 1 == data.size()) {
            frame.insert(frame.end(), group.begin(), group.end());
            frame.push_back(RotateSum(group));
            group.clear();
        }
    }
    frame.resize(word, 0);
    frame.push_back(RotateSum(frame));
    return frame;
}

Bytes NetBench::Only(const Bytes& fixed, const std::vector<Bytes>& users) const {
    const std::size_t n = users.size();
    return Block(1, 1, 677 + 64 * n + (n + 1) / 2, 0x14, Join({fixed, Join(users)}));
}

Bytes NetBench::Clock(const Bytes& time) const {
    Bytes frame = Join({Header(1, 1, 37, 0x1E), time});
    frame.push_back(RotateSum(Join({time, {0}})));
    return frame;
}

Bytes NetBench::HistoryStart(const Bytes& code) const {
    Bytes frame = Join({Header(1, 1, 48, 0x0A), code, {0xEE, 0xEE}});
    frame.push_back(RotateSum(Join({code, {0xEE, 0xEE, 0}})));
    frame.resize(49, 0);
    return frame;
}

Bytes NetBench::HistoryNext(int number) const {
    const Bytes body{0x1A, 0x42, 0x12, 0xEE, 0xEE};
    Bytes frame = Join({Header(number, 1, 37, 0x0C), body});
    frame.push_back(RotateSum(Join({body, {0}})));
    return frame;
}

Bytes NetworkWire(Bytes frame, const std::array<std::uint8_t, 16>& key) {
    const bool blocks = frame[27] == 0x14 || frame[27] == 0x16;
    // Where a byte stands within its group: 128 bytes and a plain sum, or in the end what is left before the frame's
    // sum, its own sum with it.
    for (std::size_t at = 32; at + 1 < frame.size(); ++at) {
        const std::size_t begin = 32 + (at - 32) / 129 * 129, end = std::min(begin + 128, frame.size() - 1);
        const std::size_t whole = begin + (end - begin) / 16 * 16;
        if ((blocks && at < whole) || (frame[27] == 0x0A && at < 48)) {
            frame[at] = static_cast<std::uint8_t>(frame[at] ^ key[(at - begin) % 16]);
        }
    }
    frame[26] = 1;
    Bytes wire{frame[0], frame[1]};
    for (std::size_t n = 2; n < frame.size(); ++n) {
        wire.push_back(frame[n]);
        if (frame[n] == 2) {
            wire.push_back(0);
        }
    }
    return wire;
}

void NetBench::Send(const Bytes& frame) {
    Sendings.clear();
    Wire.clear();
    System.Receive(NetworkWire(frame, System.World().Adapter.Key));
}

std::vector<NetReply> NetBench::Take(const Bytes& frame) {
    Send(frame);
    Pass(10);
    return Replies();
}

int NetBench::Code(const Bytes& frame) {
    const std::vector<NetReply> replies = Take(frame);
    return replies.size() == 1 ? replies[0].Code : -1;
}

std::vector<NetReply> NetBench::After(int ms) {
    Sendings.clear();
    Pass(ms);
    return Replies();
}

std::vector<NetReply> NetBench::Replies() const {
    std::vector<NetReply> replies;
    for (const Bytes& wire : Sendings) {
        Bytes frame;
        for (std::size_t n = 0; n < wire.size(); ++n) {
            frame.push_back(wire[n]);
            if (frame.size() > 2 && wire[n] == 2) {
                ++n;
                EXPECT_TRUE(n < wire.size() && wire[n] == 0) << "0x02 without its 0x00";
            }
        }
        const std::size_t word = frame.size() < 34 ? 0 : frame[4] * 256U + frame[5];
        if (word == 0 || frame.size() != word + 1 || frame[2] != 0x90) {
            ADD_FAILURE() << "no network frame: " << HexBytes(frame);
            continue;
        }
        const Bytes summed(frame.begin(), frame.end() - 2);
        EXPECT_EQ(RotateSum(summed), frame[word - 1]);
        replies.push_back({.Block = frame[1], .Code = frame[27], .Body = Bytes(frame.begin() + 32, frame.end() - 2)});
    }
    return replies;
}

std::vector<std::string> NetBench::Findings() const {
    std::vector<std::string> all;
    for (const Judgement& judgement : System.Judgements()) {
        all.push_back(std::string{WrongName(judgement.Kind)} + ": " + judgement.Text);
    }
    return all;
}

} // namespace qvm::test
