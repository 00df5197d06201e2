#include "LockTimes.h"

#include <algorithm>
#include <bitset>
#include <tuple>

namespace qvm {

namespace {

/// 0, Sunday, to 6. Source: Tomohiko Sakamoto's method for the Gregorian calendar.
int WeekdayOf(const LockClock& now) {
    constexpr std::array<int, 12> shifts{0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
    const int year = 2000 + now.Year - (now.Month < 3 ? 1 : 0);
    return (year + year / 4 - year / 100 + year / 400 + shifts[(now.Month + 11U) % 12] + now.Day) % 7;
}

/// The days that a selector stands for, Sunday in bit 0.
unsigned DaysOf(std::uint8_t selector) {
    constexpr std::array<unsigned, 11> days{0,         0b0000010, 0b0000100, 0b0001000, 0b0010000, 0b0100000,
                                            0b1000000, 0b0000001, 0b0111110, 0b1000001, 0b1111111};
    return selector < days.size() ? days[selector] : 0;
}

bool Holds(const TimerLine& line, const LockClock& now) {
    const auto time = std::pair{now.Hour, now.Minute};
    return ((DaysOf(line[0]) >> WeekdayOf(now)) & 1U) != 0 && std::pair{line[1], line[2]} <= time &&
           time <= std::pair{line[3], line[4]};
}

/// Locks that take masks of up to 24 slots; the others choose between table A and table B. Of a lock that was
/// programmed directly the form of its tables tells.
bool TakesMasks(const VirtualLock& lock) {
    const std::uint32_t serial = SerialNumber(lock.Serial);
    const bool full = (serial >= 0x1000001 && serial <= 0x1600000) || (serial >= 0x1C00001 && serial <= 0x2000000);
    return lock.FormA == TableForm::Parts || (lock.FormA == TableForm::Block && (full || serial > 0xB49FFFF));
}

std::vector<OpenRow> RowsOf(const VirtualLock& lock, const LockUser& user) {
    std::vector<OpenRow> rows;
    if (TakesMasks(lock)) {
        // The first slot is the highest bit of the first byte.
        for (std::size_t row = 0; user.HasGroups && row < lock.TableA.size(); ++row) {
            if (std::bitset<8>(user.Groups[row / 8])[7 - row % 8]) {
                rows.push_back({'A', static_cast<int>(row)});
            }
        }
        return rows;
    }
    if (lock.FormA != TableForm::None && !user.Finger && (user.TimerSelector == 1 || user.TimerSelector == 2)) {
        for (int row = 0; row < 5; ++row) {
            rows.push_back({user.TimerSelector == 1 ? 'A' : 'B', row});
        }
    }
    return rows;
}

const TimerLine& LineOf(const VirtualLock& lock, const OpenRow& row) {
    const auto at = static_cast<std::size_t>(row.Row);
    return row.Table == 'A' ? lock.TableA[at] : lock.TableB[at];
}

bool SingleHolds(const DateLine& line, const LockClock& now) {
    const auto day = std::tuple{now.Year, now.Month, now.Day};
    return std::tuple{line[2], line[1], line[0]} <= day && day < std::tuple{line[5], line[4], line[3]};
}

bool PermanentHolds(const DateLine& line, const LockClock& now) {
    const auto day = std::pair{now.Month, now.Day}, from = std::pair{line[1], line[0]},
               to = std::pair{line[4], line[3]};
    const bool overNewYear = to < from;
    return line != DateLine{} && (overNewYear ? day >= from || day <= to : day >= from && day <= to);
}

} // namespace

LockVerdict JudgeTimes(const VirtualLock& lock, const LockUser& user, const LockClock& now) {
    LockVerdict verdict;
    const std::vector<OpenRow> rows = RowsOf(lock, user);
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(verdict.Open),
                 [&](const OpenRow& row) { return Holds(LineOf(lock, row), now); });
    verdict.Admits = rows.empty() || !verdict.Open.empty();
    for (int row = 0; TakesMasks(lock) && row < 6; ++row) {
        if (Holds(lock.TableB[static_cast<std::size_t>(row)], now)) {
            verdict.LockTimers.push_back(row);
        }
    }
    verdict.SingleDay = std::any_of(lock.SingleDays.begin(), lock.SingleDays.end(),
                                    [&](const DateLine& line) { return SingleHolds(line, now); });
    verdict.PermanentDay = std::any_of(lock.PermanentDays.begin(), lock.PermanentDays.end(),
                                       [&](const DateLine& line) { return PermanentHolds(line, now); });
    return verdict;
}

} // namespace qvm
