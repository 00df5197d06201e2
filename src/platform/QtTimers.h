#pragma once

#include "Platform.h"

#include <QObject>

#include <functional>
#include <map>

namespace qvm {

/// The timers of Platform, on Qt's event loop. Precise to the millisecond.
class QtTimers : public QObject {
public:
    /// `interval` in ms; below 0 counts as 0, which ticks at each turn of the event loop.
    TimerId Start(int interval, std::function<void()> tick);
    void Stop(TimerId timer);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Running {
        int QtId = 0;
        std::function<void()> Tick;
        bool InTick = false;
    };

    std::map<TimerId, Running> running_;
    std::map<int, TimerId> byQtId_;
    TimerId next_ = 1;
};

} // namespace qvm
