#include "SimFrame.h"

namespace qvm {

namespace {
constexpr std::uint8_t Start = 0x02;
/// No telegram is shorter than the raw ones, whose bytes end at 14; a smaller length is a false start.
constexpr std::uint8_t ShortestLength = 3;
} // namespace

std::uint8_t SimSum(std::span<const std::uint8_t> bytes) {
    const auto wrap = [](int value) { return value > 255 ? value - 255 : value; };
    int sum = 0;
    for (const std::uint8_t byte : bytes) {
        sum = wrap(wrap(sum + sum) + byte);
    }
    return static_cast<std::uint8_t>(sum);
}

void FrameReader::Reset() {
    state_ = State::Idle;
    stuffed_ = done_ = false;
}

FrameReader::Event FrameReader::Begin(std::uint8_t byte) {
    frame_.assign(1, Start);
    done_ = stuffed_ = false;
    if (byte == Start) { // the byte taken for a start was none, this one may be
        state_ = State::Length;
        return Event::None;
    }
    if (byte < ShortestLength) {
        state_ = State::Idle;
        return Event::Garbage;
    }
    frame_.push_back(byte);
    state_ = State::Body;
    return Event::None;
}

FrameReader::Event FrameReader::Body(std::uint8_t byte) {
    if (stuffed_) {
        stuffed_ = false;
        if (byte != 0) {
            Begin(byte);
            return Event::BadStuffing;
        }
        if (done_) {
            Reset();
        }
        return Event::None;
    }
    if (done_) {
        Reset();
        return Take(byte);
    }
    frame_.push_back(byte);
    stuffed_ = byte == Start;
    const std::size_t length = frame_[1];
    if (frame_.size() < length + 2) {
        return Event::None;
    }
    done_ = true;
    const std::span<const std::uint8_t> all = frame_;
    return SimSum(all.first(length + 1)) == frame_.back() ? Event::Frame : Event::BadSum;
}

FrameReader::Event FrameReader::Take(std::uint8_t byte) {
    switch (state_) {
    case State::Length:
        return Begin(byte);
    case State::Body:
        return Body(byte);
    case State::Idle:
        break;
    }
    if (byte != Start) {
        return Event::Garbage;
    }
    state_ = State::Length;
    return Event::None;
}

std::vector<std::uint8_t> NewReply(std::uint8_t code, std::uint8_t length) {
    std::vector<std::uint8_t> reply(std::size_t{length} + 2, 0);
    reply[0] = Start;
    reply[1] = length;
    reply[2] = code;
    return reply;
}

namespace {
std::vector<std::uint8_t> Stuffed(std::span<const std::uint8_t> reply, std::uint8_t sum) {
    std::vector<std::uint8_t> wire;
    wire.reserve(reply.size() + 4);
    for (std::size_t n = 0; n <= reply.size(); ++n) {
        const std::uint8_t byte = n < reply.size() ? reply[n] : sum;
        wire.push_back(byte);
        if (n >= 2 && byte == Start) {
            wire.push_back(0);
        }
    }
    return wire;
}
} // namespace

std::vector<std::uint8_t> ReplyOnWire(std::span<const std::uint8_t> reply) {
    return reply.empty() ? std::vector<std::uint8_t>{} : Stuffed(reply, SimSum(reply.first(reply.size() - 1)));
}

std::vector<std::uint8_t> BrokenReply(std::span<const std::uint8_t> reply) {
    if (reply.empty()) {
        return {};
    }
    const std::uint8_t sum = SimSum(reply.first(reply.size() - 1));
    return Stuffed(reply, static_cast<std::uint8_t>(sum ^ 0x55));
}

} // namespace qvm
