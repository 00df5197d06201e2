#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace qvm {

using Nanoseconds = std::int64_t;

/// One direction of a serial line: when each byte has come through. The schedule is absolute, a byte that is fetched
/// late does not move those behind it.
class LineClock {
public:
    static constexpr std::int64_t BytesPerSecond = 1920; ///< 19200 baud, ten bits a byte

    /// Without pacing every byte is through at once.
    explicit LineClock(bool paced) : paced_(paced) {}

    /// Bytes that begin to go over the line at `now`, behind what is still on it.
    void Push(std::span<const std::uint8_t> bytes, Nanoseconds now);
    /// When the next byte is through; nothing when the line is idle.
    std::optional<Nanoseconds> NextDue() const;
    struct Byte {
        std::uint8_t Value;
        Nanoseconds Due;
    };
    /// The next byte if it is through at `now`.
    std::optional<Byte> Pop(Nanoseconds now);
    /// All bytes that are through at `now`.
    std::vector<std::uint8_t> PopAll(Nanoseconds now);
    void Clear() { queue_.clear(); }
    bool Idle() const { return queue_.empty(); }

private:
    bool paced_;
    std::deque<Byte> queue_;
    Nanoseconds burstStart_ = 0; ///< when the present burst of bytes began
    std::int64_t burstBytes_ = 0;
};

} // namespace qvm
