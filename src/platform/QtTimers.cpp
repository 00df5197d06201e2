#include "QtTimers.h"

#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace qvm {

TimerId QtTimers::Start(int interval, std::function<void()> tick) {
    const TimerId timer = next_++;
    const int qtId = startTimer(std::max(interval, 0), Qt::PreciseTimer);
    running_.emplace(timer, Running{.QtId = qtId, .Tick = std::move(tick)});
    byQtId_.emplace(qtId, timer);
    return timer;
}

void QtTimers::Stop(TimerId timer) {
    const auto found = running_.find(timer);
    if (found == running_.end()) {
        return;
    }
    killTimer(found->second.QtId);
    byQtId_.erase(found->second.QtId);
    running_.erase(found);
}

void QtTimers::timerEvent(QTimerEvent* event) {
    const auto known = byQtId_.find(event->timerId());
    if (known == byQtId_.end()) {
        return;
    }
    const TimerId timer = known->second;
    Running& running = running_.at(timer);
    if (running.InTick || !running.Tick) {
        return;
    }
    running.InTick = true;
    const std::function<void()> tick = running.Tick; // the tick may stop its timer
    tick();
    if (const auto found = running_.find(timer); found != running_.end()) {
        found->second.InTick = false;
    }
}

} // namespace qvm
