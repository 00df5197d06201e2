#include "LineClock.h"

namespace qvm {

namespace {
constexpr Nanoseconds Second = 1000000000;
}

void LineClock::Push(std::span<const std::uint8_t> bytes, Nanoseconds now) {
    if (!paced_) {
        for (const std::uint8_t byte : bytes) {
            queue_.push_back({byte, now});
        }
        return;
    }
    if (now > burstStart_ + burstBytes_ * Second / BytesPerSecond) {
        burstStart_ = now;
        burstBytes_ = 0;
    }
    for (const std::uint8_t byte : bytes) {
        ++burstBytes_;
        queue_.push_back({byte, burstStart_ + burstBytes_ * Second / BytesPerSecond});
    }
}

std::optional<Nanoseconds> LineClock::NextDue() const {
    return queue_.empty() ? std::nullopt : std::optional{queue_.front().Due};
}

std::optional<LineClock::Byte> LineClock::Pop(Nanoseconds now) {
    if (queue_.empty() || queue_.front().Due > now) {
        return std::nullopt;
    }
    const Byte byte = queue_.front();
    queue_.pop_front();
    return byte;
}

std::vector<std::uint8_t> LineClock::PopAll(Nanoseconds now) {
    std::vector<std::uint8_t> bytes;
    while (const auto byte = Pop(now)) {
        bytes.push_back(byte->Value);
    }
    return bytes;
}

} // namespace qvm
