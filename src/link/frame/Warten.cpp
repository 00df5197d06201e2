#include "Link.h"

#include <algorithm>
#include <cmath>

namespace qvm {
namespace {

constexpr int TickSumMaximum = 30000;

bool Erwartet(const Link& link, const AdapterAntwort& wanted) {
    const std::uint8_t code = link.RxByte(2);
    return (code == wanted.Code || code == wanted.OtherCode) && link.Rx.RxLength >= wanted.Shortest &&
           link.Rx.RxLength <= wanted.Longest;
}

/// A search waits for an identification, and this is one: whole, and the first.
bool Kennung_Erwartet(const Link& link) {
    return link.ReplySeen == 0 && link.ReplyWanted && Erwartet(link, *link.ReplyWanted);
}

/// The first wanted reply stays until the next wait: what comes behind it in the same event is not waited for.
void Antwort_Gesehen(Link& link) {
    if (link.ReplySeen == 0 && (!link.ReplyWanted || Erwartet(link, *link.ReplyWanted))) {
        link.ReplySeen = 1;
        const std::span<const std::uint8_t> frame = link.RxFrame();
        link.Reply.assign(frame.begin(), frame.end());
    }
}

} // namespace

void Adapter_Antwort(Link& link, std::uint8_t code) {
    const bool identification = code == 0x68 || code == 0x6A;
    if (identification && Kennung_Erwartet(link)) {
        Antwort_Gesehen(link);
        link.Hooks.Adapter_Erkannt();
    } else if (code == 0x6C || code == 0x6D) {
        Antwort_Gesehen(link);
    }
}

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
