#pragma once

#include "Platform.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <map>

namespace qvm {

/// A clock that jumps to the next planned event, with the timers of a `Platform`. It begins at 0 and never goes back.
class VirtualTime {
public:
    static constexpr std::int64_t EndOfTime = std::numeric_limits<std::int64_t>::max();
    static constexpr std::int64_t MicrosecondsPerMs = 1000;

    VirtualTime() = default;
    VirtualTime(const VirtualTime&) = delete;
    VirtualTime& operator=(const VirtualTime&) = delete;

    std::int64_t Microseconds() const { return now_; }
    std::int64_t Milliseconds() const { return now_ / MicrosecondsPerMs; }

    /// Fills clock and timers of a platform, which must not outlive this.
    void Fill(Platform& world);
    /// Runs `action` so many microseconds from now, at once for less than none; events of one moment in the order of
    /// planning.
    void Plan(std::int64_t inMicroseconds, std::function<void()> action);
    /// Handles the next event that is due at the microsecond `until` or before. False when there is none.
    bool Step(std::int64_t until = EndOfTime);
    /// Sets the clock to that microsecond, if it is not behind it yet; events that were due stay.
    void SkipTo(std::int64_t microsecond);

private:
    struct Event {
        std::function<void()> Action;
        TimerId Timer = 0; ///< not 0: a tick of this timer
    };
    struct RunningTimer {
        std::int64_t Interval; ///< microseconds
        std::function<void()> Tick;
        std::int64_t Due = 0;
        bool InTick = false;
        bool Missed = false; ///< was due while its tick was on the stack
    };

    TimerId StartTimer(int milliseconds, std::function<void()> tick);
    void StopTimer(TimerId timer);
    void PlanTick(TimerId timer);
    void Tick(TimerId timer);

    std::int64_t now_ = 0;
    TimerId nextTimer_ = 1;
    std::multimap<std::int64_t, Event> events_;
    std::map<TimerId, RunningTimer> timers_;
};

} // namespace qvm
