// Searches: who listens on the adapter's radio channel, whatever its serial.

#include "SimAnswers.h"
#include "VirtualSystem.h"

#include <algorithm>

namespace qvm {

namespace {

/// Adapters before this version do not know the search of units.
constexpr std::uint8_t SearchingVersion = 12;
constexpr std::uint8_t SearchMode = 1;
constexpr std::size_t SignalIndex = 4, TypeIndex = 6;

/// A device as a search hears it.
struct Voice {
    OnAir Air;
    DeviceAddress Serial{};
    std::uint8_t ForcedStatus = 0;
    std::array<std::uint8_t, 3> AdminCode{};
};

template <typename Devices>
void Hear(const Devices& devices, int channel, std::vector<Voice>& heard) {
    for (const auto& device : devices) {
        if (device.Channel == channel && !device.Air.Away) {
            heard.push_back({.Air = device.Air,
                             .Serial = device.Serial,
                             .ForcedStatus = device.LoginStatus,
                             .AdminCode = device.AdminCode});
        }
    }
}

/// Above 127 the value on the line counts downwards. One that never answers is drowned by any other.
int Strength(const Voice& voice) {
    const int raw = voice.Air.Signal;
    return voice.Air.Answers == Answering::Never ? -1 : raw <= 127 ? raw : 256 - raw;
}

DeviceReply Introduction(const Voice& voice, std::span<const std::uint8_t> frame) {
    const std::uint8_t code = frame[2];
    DeviceReply reply = code == SearchCode
                            ? DeviceReply{.Bytes = Acknowledge(code, voice.Serial)}
                            : StatusReply(code, voice.Serial, LoginStatus(voice.ForcedStatus, voice.AdminCode, frame));
    std::fill_n(reply.Bytes.begin() + 3, voice.Serial.size(), std::uint8_t{0});
    reply.Bytes[SignalIndex] = voice.Air.Signal;
    reply.Bytes[TypeIndex] = voice.Air.ScanType;
    return reply;
}

} // namespace

void VirtualSystem::JudgeSearch(std::span<const std::uint8_t> frame) {
    const std::uint8_t code = frame[2];
    if (world_.Adapter.Version < SearchingVersion) {
        judge_.Note(Wrong::Code, code,
                    "an adapter of version " + std::to_string(world_.Adapter.Version) + " searches no units");
    }
    JudgeMode(frame, SearchMode);
    if (std::any_of(frame.begin() + 3, frame.begin() + 7, [](std::uint8_t b) { return b != 0; })) {
        judge_.Note(Wrong::Header, code, "a search has no address: " + HexBytes(frame.subspan(3, 4)));
    }
}

DeviceReply VirtualSystem::SearchTurn(std::span<const std::uint8_t> frame) {
    if (!searchTuned_) {
        judge_.Note(Wrong::Order, frame[2], "the adapter was not sent to a channel for this search");
    }
    searchTuned_ = false;
    std::vector<Voice> heard;
    if (frame[2] == SearchCode) {
        JudgeSearch(frame);
        if (world_.Adapter.Version < SearchingVersion) {
            return {};
        }
    } else {
        Hear(world_.Locks, tunedChannel_, heard);
    }
    Hear(world_.Units, tunedChannel_, heard);
    const auto loudest = std::max_element(heard.begin(), heard.end(),
                                          [](const Voice& a, const Voice& b) { return Strength(a) < Strength(b); });
    if (loudest == heard.end()) {
        return {.Bytes = RefusalReply(Refusal::NoContact)};
    }
    return InManner(loudest->Air.Answers, [&] { return Introduction(*loudest, frame); });
}

} // namespace qvm
