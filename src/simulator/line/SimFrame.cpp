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

/// The byte behind the start byte: the length, or the number of a block.
FrameReader::Event FrameReader::Begin(std::uint8_t byte) {
    frame_.assign(1, Start);
    done_ = stuffed_ = false;
    if (network_) {
        frame_.push_back(byte);
        state_ = State::Kind;
        return Event::None;
    }
    if (byte == Start) { // the byte taken for a start was none, this one may be
        state_ = State::Length;
        return Event::None;
    }
    frame_.push_back(byte);
    return BeginSerial();
}

FrameReader::Event FrameReader::BeginSerial() {
    if (frame_[1] < ShortestLength) {
        state_ = State::Idle;
        return Event::Garbage;
    }
    state_ = State::Body;
    return Event::None;
}

/// The byte at index 2. Block 2 begins like a frame whose start byte comes twice.
FrameReader::Event FrameReader::TellKind(std::uint8_t byte) {
    if (byte == NetworkMark) {
        frame_.push_back(byte);
        state_ = State::Block;
        return Event::None;
    }
    if (frame_[1] == Start) {
        return Begin(byte);
    }
    if (BeginSerial() == Event::Garbage) {
        Take(byte); // it may be the next start
        return Event::Garbage;
    }
    return Body(byte);
}

/// Tells whether the frame is complete, now that a byte was put to it.
FrameReader::Event FrameReader::Finish() {
    const std::span<const std::uint8_t> all = frame_;
    if (state_ == State::Block) {
        if (all.size() < 6) {
            return Event::None;
        }
        const std::size_t length = std::size_t{all[4]} * 256 + all[5];
        if (length < ShortestNetworkLength || length > LongestNetworkLength) {
            Reset();
            return Event::BadLength;
        }
        const bool clock = all.size() > NetworkCodeIndex && all[NetworkCodeIndex] == NetworkClock;
        done_ = all.size() >= length + (clock ? 2 : 1);
        return done_ ? Event::Network : Event::None;
    }
    const std::size_t length = all[1];
    if (all.size() < length + 2) {
        return Event::None;
    }
    done_ = true;
    return SimSum(all.first(length + 1)) == all.back() ? Event::Frame : Event::BadSum;
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
    return Finish();
}

FrameReader::Event FrameReader::Take(std::uint8_t byte) {
    switch (state_) {
    case State::Length:
        return Begin(byte);
    case State::Kind:
        return TellKind(byte);
    case State::Body:
    case State::Block:
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
