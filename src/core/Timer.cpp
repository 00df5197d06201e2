#include "Timer.h"

namespace qvm {

void Timer::Start() {
    Stop();
    id_ = platform_.StartTimer(interval_, [this] {
        // A copy, since the handler may give the timer another one.
        const std::function<void()> handler = Ticked;
        if (handler) {
            handler();
        }
    });
}

void Timer::Start(int interval) {
    interval_ = interval;
    Start();
}

void Timer::Stop() {
    if (id_) {
        platform_.StopTimer(*id_);
        id_.reset();
    }
}

void Timer::SetInterval(int interval) {
    interval_ = interval;
    if (Running()) {
        Start();
    }
}

} // namespace qvm
