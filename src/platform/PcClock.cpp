#include "PcClock.h"

#include <algorithm>
#include <ctime>

namespace qvm {

DateTime Clock_Now() {
    std::timespec now{};
    std::timespec_get(&now, TIME_UTC);
    std::tm local{};
    ::localtime_r(&now.tv_sec, &local);
    return {.Year = local.tm_year + 1900,
            .Month = local.tm_mon + 1,
            .Day = local.tm_mday,
            .Hour = local.tm_hour,
            .Minute = local.tm_min,
            .Second = std::min(local.tm_sec, 59),
            .Millisecond = static_cast<int>(now.tv_nsec / 1000000)};
}

std::int64_t Clock_Milliseconds() {
    std::timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

} // namespace qvm
