#include "Wochentage.h"

#include "Kern.h"

#include <cstdint>

namespace qvm {

const std::string& Wochentag_Text(const Kern& kern, int index) {
    static const std::string None;
    return index >= 0 && index <= LetzterWochentag ? kern.Sprache.TagTexte[static_cast<std::size_t>(index)] : None;
}

int Wochentag_Index(const Kern& kern, std::string_view text) {
    for (int index = 0; index <= LetzterWochentag; ++index) {
        if (Wochentag_Text(kern, index) == text) {
            return index;
        }
    }
    return -1;
}

bool Wochentag_Haelt(int index, int weekday) {
    constexpr int Monday = 1, Friday = 5, Saturday = 6, Sunday = 7;
    constexpr int WorkingDays = 8, Weekend = 9, WholeWeek = 10;
    switch (index) {
    case WorkingDays:
        return weekday >= Monday && weekday <= Friday;
    case Weekend:
        return weekday == Saturday || weekday == Sunday;
    case WholeWeek:
        return weekday >= Monday && weekday <= Sunday;
    default:
        return index >= Monday && index <= Sunday && index == weekday;
    }
}

int Wochentag(const Datum& day) {
    constexpr std::int64_t Week = 7, Start = 5; // 01.01.2000 was a Saturday
    const std::int64_t days = Tage_Seit_2000({.Year = day.Year, .Month = day.Month, .Day = day.Day});
    return static_cast<int>(((days + Start) % Week + Week) % Week) + 1;
}

} // namespace qvm
