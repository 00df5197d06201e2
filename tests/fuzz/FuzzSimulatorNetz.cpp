// The virtual network adapter behind its line: bytes from the PC, and stretches that go through a frame builder, so
// that telegrams with good checksums get to the adapter as well. A stretch begins with 0xFE, then what the frame is to
// be.

#include "VirtualSystem.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <span>
#include <vector>

using namespace qvm;

namespace {

constexpr std::uint8_t NetMark = 0xFE;

VirtualWorld NetWorldOf(std::uint8_t choice) {
    VirtualWorld world;
    world.Adapter.Address = {0x03, 0xE0, 0x00, 0x01};
    world.Adapter.Waits = {.AnswerMs = 0, .FetchMs = 0, .ProgramMs = 0, .HistoryBytes = 1 + choice};
    VirtualLock lock;
    lock.Serial = {0x01, 0x50, 0x0C, 0x10};
    lock.AdminCode = {0x11, 0x11, 0x11};
    lock.History.resize(choice % 32U);
    world.Locks.push_back(lock);
    VirtualUnit unit;
    unit.Serial = {0x00, 0x01, 0x2C, 0xCD};
    unit.AdminCode = lock.AdminCode;
    unit.Type = (choice & 1) != 0 ? 2 : 1;
    world.Units.push_back(unit);
    if ((choice & 2) != 0) {
        world.Faults.push_back({.What = static_cast<SimFault::Kind>(choice % 11), .Telegram = choice % 7});
    }
    return world;
}

void AppendByte(std::vector<std::uint8_t>& frame, std::size_t value) {
    frame.push_back(static_cast<std::uint8_t>(value));
}

/// The rest of a frame behind its header: groups with their sums, zeros up to the length word, the frame's sum.
void AppendBody(std::vector<std::uint8_t>& frame, std::span<const std::uint8_t> data, std::size_t word) {
    for (std::size_t at = 0; at < data.size(); at += 128) {
        const auto group = data.subspan(at, std::min<std::size_t>(128, data.size() - at));
        frame.insert(frame.end(), group.begin(), group.end());
        frame.push_back(SimSum(group));
    }
    frame.resize(std::max(word, frame.size()), 0);
    frame.push_back(SimSum(frame));
}

/// A frame of this code, number and count. The first data block has `users` users; the bytes overwrite what a good one
/// would hold, from place 4 times `where` on.
std::vector<std::uint8_t> NetFrame(std::span<const std::uint8_t> order, std::span<const std::uint8_t> bytes) {
    const std::uint8_t code = order[0], users = order[3], where = order[4];
    const bool data = code == 0x14, fingers = code == 0x16, first = data && order[1] == 1;
    std::vector<std::uint8_t> body;
    if (first) {
        body = {0, users, 0x11, 0x11, 0x11, 0xEE, 0xEE, 0x11, 0x11, 0x11, 0xEE, 0xEE};
        body.resize(640 + 64 * std::min<std::size_t>(users, 9), 0);
    } else if (data) {
        body.resize(64 * std::max<std::size_t>(1, users % 20U), 0);
    } else if (fingers) {
        body.resize(std::max<std::size_t>(1, users * 5U % 1263U), 0);
    }
    const std::size_t from = std::size_t{where} * 4;
    for (std::size_t n = 0; n < bytes.size() && from + n < body.size(); ++n) {
        body[from + n] = bytes[n];
    }
    std::size_t word = code == 0x0A ? 48 : 37;
    if (data || fingers) {
        word = first && order[2] > 1 ? 1258 : 32 + body.size() + (body.size() + 127) / 128;
    }
    std::vector<std::uint8_t> frame{0x02, order[1], 0x90, order[2]};
    AppendByte(frame, word / 256);
    AppendByte(frame, word % 256);
    frame.insert(frame.end(), {0x01, 0x50, 0x0C, 0x10, 0x00, 0x01, 0x2C, 0xCD});
    frame.resize(26, 0);
    frame.insert(frame.end(), {0, code, 0xFF, 0xFF, 0, 0});
    if (data || fingers) {
        AppendBody(frame, body, word);
    } else {
        std::vector<std::uint8_t> rest{0x11, 0x11, 0x11, 0xEE, 0xEE};
        if (code == 0x1E) {
            rest = {5, 3, 26, 10, 30, 0};
        }
        std::copy_n(bytes.begin(), std::min(bytes.size(), rest.size()), rest.begin());
        rest.push_back(0);
        rest.back() = SimSum(rest);
        frame.insert(frame.end(), rest.begin(), rest.end());
        frame.resize(std::max(frame.size(), word + 1), 0);
    }
    frame[26] = 1;
    return frame;
}

std::vector<std::uint8_t> Stuffed(const std::vector<std::uint8_t>& frame) {
    std::vector<std::uint8_t> wire;
    for (std::size_t n = 0; n < frame.size(); ++n) {
        wire.push_back(frame[n]);
        if (n >= 2 && frame[n] == 2) {
            wire.push_back(0);
        }
    }
    return wire;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    std::int64_t now = 0;
    std::vector<std::function<void()>> planned;
    SimSurroundings around;
    around.Now = [&now] { return now += 10; };
    around.After = [&planned](int, std::function<void()> action) { planned.push_back(std::move(action)); };
    around.Send = [](const std::vector<std::uint8_t>& wire) {
        if (wire.size() > 4000) {
            std::abort();
        }
    };
    VirtualSystem system(NetWorldOf(data[0]), around);
    std::span<const std::uint8_t> rest{data + 1, size - 1};
    while (!rest.empty()) {
        // Mark, code, number, count, users, place, count of bytes, bytes.
        constexpr std::size_t order = 5, head = order + 2;
        const std::size_t count = rest.size() < head ? 0 : std::min<std::size_t>(rest[head - 1], rest.size() - head);
        if (rest[0] == NetMark && rest.size() >= head) {
            system.Receive(Stuffed(NetFrame(rest.subspan(1, order), rest.subspan(head, count))));
            rest = rest.subspan(head + count);
        } else {
            system.Receive(rest.first(1));
            rest = rest.subspan(1);
        }
        while (!planned.empty()) {
            const auto action = std::move(planned.front());
            planned.erase(planned.begin());
            action();
        }
    }
    for (const VirtualLock& lock : system.World().Locks) {
        if (lock.Channel < 1 || lock.Channel > 12 || lock.Users.size() > 301) {
            std::abort();
        }
    }
    // Whatever came, one of the next two good telegrams is heard.
    const std::vector<std::uint8_t> good = Stuffed(NetFrame(std::vector<std::uint8_t>{0x14, 1, 1, 0, 0}, {}));
    const int before = system.Counters().Telegrams;
    system.Receive(good);
    system.Receive(good);
    if (!system.Unplugged() && system.Counters().Telegrams <= before) {
        std::abort();
    }
    return 0;
}
