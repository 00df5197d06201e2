#pragma once

#include <cstdint>
#include <span>
#include <vector>

/// The device's side of the serial frame.
///
/// From the PC: 0x02, L, code, bytes 3 to L, checksum at L + 1 over 0 to L.
/// To the PC: 0x02, L, code, bytes 3 to L + 1, checksum at L + 2 over 0 to L; the byte at L + 1 lies outside the sum.
/// Both ways a 0x02 from index 2 on, the checksum included, is followed by a 0x00 on the wire.
///
/// A telegram for a network adapter comes over the same line. It is told by 0x90 at index 2, which no serial frame
/// carries; index 1 then is the block's number, and indexes 4 and 5 hold N, high byte first, where bytes 0 to N come.
/// The clock (0x1E at index 27) alone has one byte more.
namespace qvm {

/// Sum with end-around carry: each step doubles, then adds, and both take 255 off what exceeds it.
std::uint8_t SimSum(std::span<const std::uint8_t> bytes);

/// What tells a telegram for a network adapter, and where in it.
inline constexpr std::uint8_t NetworkMark = 0x90;
/// Index of the code of such a telegram, and the code of the clock.
inline constexpr std::size_t NetworkCodeIndex = 27;
inline constexpr std::uint8_t NetworkClock = 0x1E;
/// No network telegram is shorter or longer than these values of N allow.
inline constexpr std::size_t ShortestNetworkLength = 37, LongestNetworkLength = 1305;

/// Takes the PC's bytes one at a time. A broken frame is dropped; a 0x02 that is followed by anything but 0x00 begins
/// the next one, so that a good frame behind a broken one is never lost.
class FrameReader {
public:
    enum class Event {
        None,
        Frame,
        BadSum,
        BadStuffing,
        Garbage,
        Network,   ///< a whole network telegram; its sums are not looked at here
        BadLength, ///< a network telegram of a length that none has
    };

    /// Whether network telegrams are told from serial frames. Else 0x90 is a code like any other.
    void HearNetwork(bool hear) { network_ = hear; }
    Event Take(std::uint8_t byte);
    /// The last frame, unstuffed, from the start byte to the last. Valid after Frame, BadSum and Network.
    std::span<const std::uint8_t> Bytes() const { return frame_; }
    /// Bytes of an unfinished frame, if one stands.
    bool Unfinished() const { return state_ != State::Idle && !done_; }
    void Reset();

private:
    enum class State { Idle, Length, Kind, Body, Block };

    Event Begin(std::uint8_t byte);
    Event BeginSerial();
    Event TellKind(std::uint8_t byte);
    Event Finish();
    Event Body(std::uint8_t byte);

    State state_ = State::Idle;
    bool network_ = false;
    std::vector<std::uint8_t> frame_;
    bool stuffed_ = false; ///< the last byte was a 0x02 that still wants its 0x00
    bool done_ = false;    ///< the frame is complete; only that 0x00 may be open
};

/// A reply of `length` with `code`: bytes 0 to length + 1, those from 3 on zero.
std::vector<std::uint8_t> NewReply(std::uint8_t code, std::uint8_t length);

/// The reply as it goes over the wire: with checksum and stuffing.
std::vector<std::uint8_t> ReplyOnWire(std::span<const std::uint8_t> reply);
/// The same with a checksum that does not fit.
std::vector<std::uint8_t> BrokenReply(std::span<const std::uint8_t> reply);

} // namespace qvm
