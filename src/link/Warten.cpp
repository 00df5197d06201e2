#include "Link.h"

#include <algorithm>
#include <cmath>

namespace qvm {
namespace {

constexpr int TickSumMaximum = 30000;

} // namespace

void Warte_Ticks(Link& link, int interval, int limit) {
    const int tick = std::clamp(interval, 1, TickSumMaximum);
    const int reachable = std::min(limit, TickSumMaximum - tick);
    // A reply that comes during a wait may lead to another one. The outer wait goes on where the inner one ends.
    const bool nested = link.Timer10.Running();
    const int outerInterval = link.Timer10.Interval();
    const int outerSum = link.TickSum;

    link.Timer10.Stop();
    link.TickSum = 0;
    link.Timer10.Start(tick);
    while (link.TickSum <= reachable) {
        link.kern.Welt.ProcessEvents();
    }
    link.Timer10.Stop();

    if (nested) {
        link.TickSum = std::min(outerSum + link.TickSum, TickSumMaximum);
        link.Timer10.Start(outerInterval);
    }
}

void Warte_Antwort(Link& link, double seconds) {
    const Platform& world = link.kern.Welt;
    const std::int64_t start = world.Milliseconds();
    const auto limit = static_cast<std::int64_t>(std::floor(std::max(seconds, 0.0) * 1000.0));
    const auto left = [&] { return limit - (world.Milliseconds() - start); };
    // Ends the wait for events when nothing else happens until the deadline.
    Timer wake(link.kern.Welt);
    wake.Ticked = [&wake] { wake.Stop(); };
    while (link.ReplySeen == 0 && left() >= 0) {
        if (!wake.Running()) {
            wake.Start(static_cast<int>(left()) + 1);
        }
        world.ProcessEvents();
    }
}

} // namespace qvm
