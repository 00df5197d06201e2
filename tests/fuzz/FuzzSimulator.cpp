// The virtual system behind its line: the first byte chooses the devices, the rest are bytes from the PC. A stretch
// that begins with 0xFE goes through the frame builder, so that telegrams with good checksums get to the devices as
// well.

#include "VirtualSystem.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <span>
#include <utility>
#include <vector>

using namespace qvm;

namespace {

constexpr std::uint8_t BuildMark = 0xFE;

VirtualWorld WorldOf(std::uint8_t choice) {
    constexpr std::array<DeviceAddress, 4> serials{
        {{0x00, 0x00, 0x2C, 0x10}, {0x01, 0x50, 0x0C, 0x10}, {0x0B, 0x00, 0x00, 0x00}, {0x0E, 0x6E, 0x90, 0x10}}};
    VirtualWorld world;
    VirtualLock lock;
    lock.Serial = serials[choice & 3];
    lock.AdminCode = {0x11, 0x11, 0x11};
    lock.EraseBusyMs = 0;
    lock.History.resize(2);
    world.Locks.push_back(lock);
    VirtualUnit unit;
    unit.Serial = {0x00, 0x00, 0x3D, 0x20};
    unit.AdminCode = lock.AdminCode;
    unit.Type = (choice & 4) != 0 ? 2 : 1;
    world.Units.push_back(unit);
    if ((choice & 8) != 0) {
        world.Adapter.Name = "ENROLLMENT1";
    }
    for (const auto kind : {Credential::Kind::Key, Credential::Kind::Transponder, Credential::Kind::Finger}) {
        world.Desk.Presented.push_back({.What = kind, .Slot = choice, .Template = {1, 2, 3}, .PieceBytes = 2});
    }
    return world;
}

/// A frame with a good header and checksum: `code`, whether it goes to the unit, and the payload.
std::vector<std::uint8_t> Built(const VirtualWorld& world, std::span<const std::uint8_t> bytes) {
    const DeviceAddress& to = (bytes[1] & 1) != 0 ? world.Units[0].Serial : world.Locks[0].Serial;
    std::vector<std::uint8_t> frame{2, 0, bytes[0], to[0], to[1], to[2], to[3], 0x11, 0, 0x33, 0x88, 1, 0, 0};
    frame.insert(frame.end(), bytes.begin() + 2, bytes.end());
    frame[1] = static_cast<std::uint8_t>(frame.size() - 1);
    frame.push_back(SimSum(frame));
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
    SimSurroundings around;
    around.Now = [&now] { return now += 10; };
    std::vector<std::function<void()>> planned;
    around.After = [&planned](int, std::function<void()> action) { planned.push_back(std::move(action)); };
    around.Send = [](const std::vector<std::uint8_t>&) {};
    VirtualSystem system(WorldOf(data[0]), around);
    std::span<const std::uint8_t> rest{data + 1, size - 1};
    while (!rest.empty()) {
        // Mark, count, code, device, payload.
        const std::size_t count = rest.size() > 4 ? std::min<std::size_t>(rest[1] % 48U + 2U, rest.size() - 2) : 0;
        if (rest[0] == BuildMark && count >= 2) {
            system.Receive(Built(system.World(), rest.subspan(2, count)));
            rest = rest.subspan(2 + count);
        } else {
            system.Receive(rest.first(1));
            rest = rest.subspan(1);
        }
    }
    for (std::size_t n = 0; n < planned.size(); ++n) {
        const auto action = std::move(planned[n]); // it may plan more
        action();
    }
    // Whatever came, the next good telegram is heard.
    const std::vector<std::uint8_t> login =
        Built(system.World(), std::vector<std::uint8_t>{0x04, 0, 0x11, 0x11, 0x11, 0xEE, 1, 0xAA, 0x55});
    const int before = system.Counters().Telegrams;
    system.Receive(login);
    if (system.Counters().Telegrams <= before || system.JudgementLines().size() > 10'000'000) {
        std::abort();
    }
    return 0;
}
