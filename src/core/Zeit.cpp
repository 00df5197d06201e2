#include "Zeit.h"

#include "Text.h"

#include <algorithm>
#include <array>

namespace qvm {

namespace {

constexpr int FirstYear = 100;
constexpr int LastYear = 9999;

constexpr bool Schaltjahr(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

constexpr int Monatstage(int year, int month) {
    constexpr std::array<int, 12> Days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && Schaltjahr(year) ? 29 : Days[static_cast<std::size_t>(month - 1)];
}

/// Days before 1 January of a year, counted from 1 January of the year 1.
constexpr std::int64_t Tage_Vor_Jahr(int year) {
    const std::int64_t past = year - 1;
    return past * 365 + past / 4 - past / 100 + past / 400;
}

/// Days from 1 January of the year 1 to a valid date.
constexpr std::int64_t Tagnummer(const Datum& datum) {
    std::int64_t days = Tage_Vor_Jahr(datum.Year) + datum.Day - 1;
    for (int month = 1; month < datum.Month; ++month) {
        days += Monatstage(datum.Year, month);
    }
    return days;
}

constexpr std::int64_t FirstDay = Tagnummer({FirstYear, 1, 1});
constexpr std::int64_t LastDay = Tagnummer({LastYear, 12, 31});
constexpr std::int64_t Day2000 = Tagnummer({2000, 1, 1});

Datum Aus_Tagnummer(std::int64_t number) {
    Datum datum{static_cast<int>(number / 366) + 1, 1, 1}; // never too late a year
    while (Tage_Vor_Jahr(datum.Year + 1) <= number) {
        ++datum.Year;
    }
    auto rest = static_cast<int>(number - Tage_Vor_Jahr(datum.Year));
    while (rest >= Monatstage(datum.Year, datum.Month)) {
        rest -= Monatstage(datum.Year, datum.Month);
        ++datum.Month;
    }
    datum.Day = rest + 1;
    return datum;
}

bool Ein_Bis_Zwei_Ziffern(std::string_view text) {
    return !text.empty() && text.size() <= 2 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

bool Datum_Gueltig(const Datum& datum) {
    return datum.Year >= FirstYear && datum.Year <= LastYear && datum.Month >= 1 && datum.Month <= 12 &&
           datum.Day >= 1 && datum.Day <= Monatstage(datum.Year, datum.Month);
}

std::string Datum_Text(const Datum& datum) {
    return Ziffern(datum.Day, 2) + "." + Ziffern(datum.Month, 2) + "." + Ziffern(datum.Year, 4);
}

std::optional<Datum> Datum_Lesen(std::string_view text) {
    constexpr std::string_view Shape = "00.00.0000";
    const bool shaped = text.size() == Shape.size() &&
                        std::equal(text.begin(), text.end(), Shape.begin(),
                                   [](char c, char s) { return s == '.' ? c == '.' : c >= '0' && c <= '9'; });
    if (!shaped) {
        return std::nullopt;
    }
    const Datum datum{Zahlwert(Mid(text, 7, 4)), Zahlwert(Mid(text, 4, 2)), Zahlwert(Mid(text, 1, 2))};
    return Datum_Gueltig(datum) ? std::optional(datum) : std::nullopt;
}

std::optional<int> Uhrzeit_Lesen(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view hours = text.substr(0, colon), minutes = text.substr(colon + 1);
    if (!Ein_Bis_Zwei_Ziffern(hours) || !Ein_Bis_Zwei_Ziffern(minutes) || Zahlwert(hours) > 23 ||
        Zahlwert(minutes) > 59) {
        return std::nullopt;
    }
    return Zahlwert(hours) * 60 + Zahlwert(minutes);
}

std::string Uhrzeit_Text(int minutes) {
    return Ziffern(minutes / 60, 2) + ":" + Ziffern(minutes % 60, 2);
}

Datum Datum_Plus(const Datum& datum, int days) {
    if (!Datum_Gueltig(datum)) {
        return datum;
    }
    return Aus_Tagnummer(std::clamp(Tagnummer(datum) + days, FirstDay, LastDay));
}

Datum Heute(const DateTime& now) {
    return {now.Year, now.Month, now.Day};
}

std::int64_t Tage_Seit_2000(const DateTime& moment) {
    const Datum day = Heute(moment);
    return Datum_Gueltig(day) ? Tagnummer(day) - Day2000 : 0;
}

std::int64_t Sekunden_Seit_2000(const DateTime& moment) {
    return ((Tage_Seit_2000(moment) * 24 + moment.Hour) * 60 + moment.Minute) * 60 + moment.Second;
}

std::int64_t Halbieren_Gerade(std::int64_t value) {
    const std::int64_t below = value >> 1;
    const bool tie = (value & 1) != 0;
    return tie && (below & 1) != 0 ? below + 1 : below;
}

} // namespace qvm
