#include "VirtualTime.h"

#include <algorithm>
#include <utility>

namespace qvm {

void VirtualTime::Fill(Platform& world) {
    world.Milliseconds = [this] { return Milliseconds(); };
    world.StartTimer = [this](int interval, std::function<void()> tick) {
        return StartTimer(interval, std::move(tick));
    };
    world.StopTimer = [this](TimerId timer) { StopTimer(timer); };
}

void VirtualTime::Plan(std::int64_t inMicroseconds, std::function<void()> action) {
    events_.emplace(now_ + std::max<std::int64_t>(inMicroseconds, 0), Event{.Action = std::move(action)});
}

bool VirtualTime::Step(std::int64_t until) {
    const auto next = events_.begin();
    if (next == events_.end() || next->first > until) {
        return false;
    }
    SkipTo(next->first);
    const Event event = std::move(next->second);
    events_.erase(next);
    if (event.Timer != 0) {
        Tick(event.Timer);
    } else {
        event.Action();
    }
    return true;
}

void VirtualTime::SkipTo(std::int64_t microsecond) {
    now_ = std::max(now_, microsecond);
}

TimerId VirtualTime::StartTimer(int milliseconds, std::function<void()> tick) {
    const TimerId timer = nextTimer_++;
    timers_[timer] = {.Interval = std::max(milliseconds, 1) * MicrosecondsPerMs, .Tick = std::move(tick), .Due = now_};
    PlanTick(timer);
    return timer;
}

void VirtualTime::StopTimer(TimerId timer) {
    timers_.erase(timer);
    std::erase_if(events_, [timer](const auto& event) { return event.second.Timer == timer; });
}

void VirtualTime::PlanTick(TimerId timer) {
    RunningTimer& running = timers_.at(timer);
    while (running.Due <= now_) {
        running.Due += running.Interval;
    }
    events_.emplace(running.Due, Event{.Action = {}, .Timer = timer});
}

void VirtualTime::Tick(TimerId timer) {
    RunningTimer& running = timers_.at(timer);
    if (running.InTick) {
        running.Missed = true;
        return;
    }
    PlanTick(timer);
    running.InTick = true;
    const std::function<void()> tick = running.Tick; // the timer may be stopped while it runs
    struct Ende {
        VirtualTime& time;
        TimerId timer;
        ~Ende() {
            const auto found = time.timers_.find(timer);
            if (found == time.timers_.end()) {
                return;
            }
            found->second.InTick = false;
            if (std::exchange(found->second.Missed, false)) {
                time.PlanTick(timer);
            }
        }
    } const ende{*this, timer};
    tick();
}

} // namespace qvm
