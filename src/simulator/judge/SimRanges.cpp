#include "SimRanges.h"

#include "SimJudge.h"

#include <algorithm>
#include <array>

namespace qvm {

namespace {

using Bytes = std::span<const std::uint8_t>;

bool AllZero(Bytes bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t b) { return b == 0; });
}

bool OneOf(std::uint8_t value, std::initializer_list<std::uint8_t> values) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

std::string EachBetween(Bytes bytes, std::uint8_t low, std::uint8_t high) {
    for (std::size_t n = 0; n < bytes.size(); ++n) {
        if (bytes[n] < low || bytes[n] > high) {
            const std::string wanted = low == high ? Hex(low) : Hex(low) + " to " + Hex(high);
            return "byte " + std::to_string(n) + " is " + Hex(bytes[n]) + ", not " + wanted;
        }
    }
    return {};
}

/// A name is not empty; control characters other than the 0x00 that fills it up have no place in it.
std::string TextFault(Bytes bytes) {
    if (bytes[0] == 0 || bytes[0] == ' ') {
        return "begins with " + Hex(bytes[0]);
    }
    for (const std::uint8_t b : bytes) {
        if (b != 0 && b < ' ') {
            return "holds " + Hex(b);
        }
    }
    return {};
}

std::string CodeFault(Bytes bytes, bool mayEnd) {
    bool ended = false;
    for (std::size_t n = 0; n < 2 * bytes.size(); ++n) {
        const int nibble = n % 2 == 0 ? bytes[n / 2] >> 4 : bytes[n / 2] & 15;
        const bool digit = nibble >= 1 && nibble <= 0xA;
        if (digit && ended) {
            return "a digit behind the end of the code: " + HexBytes(bytes);
        }
        if (!digit && !(mayEnd && nibble == 0xE)) {
            return "nibble " + std::to_string(n) + " is " + std::to_string(nibble) + ": " + HexBytes(bytes);
        }
        ended = ended || !digit;
    }
    return {};
}

std::string DateFault(Bytes date, int year) {
    if (date[1] < 1 || date[1] > 12) {
        return "month " + std::to_string(date[1]);
    }
    if (date[0] < 1 || date[0] > DaysOfMonth(date[1], year)) {
        return "day " + std::to_string(date[0]) + " of month " + std::to_string(date[1]);
    }
    return date[2] > 99 ? "year " + std::to_string(date[2]) : std::string{};
}

std::string TimeFault(Bytes time) {
    if (time[0] > 23) {
        return "hour " + std::to_string(time[0]);
    }
    for (const std::uint8_t sixtieth : time.subspan(1)) {
        if (sixtieth > 59) {
            return "minute or second " + std::to_string(sixtieth);
        }
    }
    return {};
}

std::string TimerRowsFault(Bytes bytes, std::size_t usable) {
    constexpr std::uint8_t lastDaySelector = 10;
    for (std::size_t row = 0; row < bytes.size() / 5; ++row) {
        const Bytes line = bytes.subspan(5 * row, 5);
        const std::string where = "row " + std::to_string(row) + ": ";
        if (row >= usable && !AllZero(line)) {
            return where + "must be zero";
        }
        if (line[0] > lastDaySelector) {
            return where + "day selector " + std::to_string(line[0]);
        }
        for (const std::size_t at : {std::size_t{1}, std::size_t{3}}) {
            if (const std::string fault = TimeFault(line.subspan(at, 2)); !fault.empty()) {
                return where + fault;
            }
        }
    }
    return {};
}

/// 29 February is a day of every year here: a yearly day carries 99, or the year in which the lock was programmed.
std::string YearlyRowsFault(Bytes bytes) {
    constexpr int leapYear = 0;
    for (std::size_t at = 0; at < bytes.size(); at += 6) {
        const Bytes line = bytes.subspan(at, std::min<std::size_t>(6, bytes.size() - at));
        if (AllZero(line)) {
            continue;
        }
        const std::string where = "row " + std::to_string(at / 6) + ": ";
        const std::array<std::uint8_t, 3> end{line[3], line[4], line[2]};
        for (const Bytes date : {line.first(3), Bytes{end}}) {
            if (const std::string fault = DateFault(date, leapYear); !fault.empty()) {
                return where + fault;
            }
        }
        if (line[2] != 99 || (line.size() == 6 && line[5] != 99)) {
            return where + "the year is not 99";
        }
    }
    return {};
}

std::string HolidayRowsFault(Bytes bytes) {
    bool ended = false;
    for (std::size_t row = 0; row < bytes.size() / 6; ++row) {
        const Bytes line = bytes.subspan(6 * row, 6);
        if (AllZero(line)) {
            ended = true;
            continue;
        }
        const std::string where = "row " + std::to_string(row) + ": ";
        if (ended) {
            return where + "stands behind an empty one";
        }
        constexpr int leapYear = 0;
        for (const Bytes date : {line.first(3), line.subspan(3)}) {
            if (const std::string fault = DateFault(date, leapYear); !fault.empty()) {
                return where + fault;
            }
        }
        const auto order = [](Bytes d) { return (d[2] * 16 + d[1]) * 32 + d[0]; };
        if (order(line.subspan(3)) < order(line)) {
            return where + "ends before it begins";
        }
    }
    return {};
}

std::string ListFault(const FormPart& part, Bytes bytes) {
    bool good = true;
    switch (part.How) {
    case Check::Weighting:
        good = OneOf(bytes[0], {0x0C, 0x00, 0x06, 0x04, 0x0D, 0x0A});
        break;
    case Check::Level:
        good = OneOf(bytes[0], {0x5A, 0x82, 0xAA, 0xD2, 0xFF});
        break;
    case Check::KeyWish:
        good = OneOf(bytes[0], {0, 1, 0x64});
        break;
    case Check::LockMode:
        good = OneOf(bytes[0], {0x0A, 0x14});
        break;
    case Check::ReaderPair:
        good = (bytes[0] == 3 && bytes[1] == 1) || (bytes[0] == 0 && bytes[1] == 0);
        break;
    case Check::Probe: {
        constexpr std::array<std::uint8_t, 5> probe{0xAA, 0xBB, 0xCC, 0xDD, 0xEE};
        good = std::equal(bytes.begin(), bytes.end(), probe.begin(), probe.end());
        break;
    }
    default:
        break;
    }
    return good ? std::string{} : HexBytes(bytes);
}

} // namespace

int DaysOfMonth(int month, int year) {
    constexpr std::array days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12) {
        return 0;
    }
    return days[static_cast<std::size_t>(month - 1)] + (month == 2 && year % 4 == 0 ? 1 : 0);
}

std::string RangeFault(const FormPart& part, std::span<const std::uint8_t> bytes) {
    switch (part.How) {
    case Check::Any:
        return {};
    case Check::Exactly:
        return EachBetween(bytes, part.A, part.A);
    case Check::Between:
        return EachBetween(bytes, part.A, part.B);
    case Check::NotZero:
        return EachBetween(bytes, 1, 255);
    case Check::Text:
        return TextFault(bytes);
    case Check::AdminCode:
        return CodeFault(bytes, false);
    case Check::UserCode:
        return CodeFault(bytes, true);
    case Check::Date:
        return DateFault(bytes, bytes[2]);
    case Check::Time:
        return TimeFault(bytes);
    case Check::TimerRows:
        return TimerRowsFault(bytes, part.A);
    case Check::HolidayRows:
        return HolidayRowsFault(bytes);
    case Check::YearlyRows:
        return YearlyRowsFault(bytes);
    default:
        return ListFault(part, bytes);
    }
}

} // namespace qvm
