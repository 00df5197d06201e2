#pragma once

#include "Platform.h"

#include <functional>

namespace qvm {

/// A timer control: fires every Interval milliseconds while it runs, until stopped. It does not fire inside its own
/// handler unless that handler started it anew.
class Timer {
public:
    explicit Timer(Platform& platform, int interval = 1000) : platform_(platform), interval_(interval) {}
    ~Timer() { Stop(); }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    std::function<void()> Ticked;

    /// Starts, or starts anew, with the interval given last.
    void Start();
    void Start(int interval);
    void Stop();
    bool Running() const { return id_.has_value(); }
    int Interval() const { return interval_; }
    /// Takes effect at once when the timer runs.
    void SetInterval(int interval);

private:
    Platform& platform_;
    int interval_;
    std::optional<TimerId> id_;
};

} // namespace qvm
