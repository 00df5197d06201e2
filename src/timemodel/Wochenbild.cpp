#include "Wochenbild.h"

#include "Kern.h"
#include "Text.h"
#include "Wochentage.h"
#include "Words.h"
#include "Zeit.h"
#include "Zeitfenster.h"

#include <algorithm>
#include <string>

namespace qvm {
namespace {

constexpr int MinutesOfHour = 60;
constexpr std::string_view Between = " - ";

std::string Spanne_Text(const WeekSlot& slot) {
    return Uhrzeit_Text(slot.From) + std::string(Between) + Uhrzeit_Text(slot.To);
}

/// The slot holds a minute of some day.
bool Haelt_Etwas(const WeekSlot& slot) {
    return slot.DayIndex >= 1 && slot.DayIndex <= LetzterWochentag && slot.From <= slot.To;
}

std::string In_Worten(const Kern& kern, std::span<const WeekSlot> slots, int weekday, int minute) {
    std::string text;
    bool open = false;
    for (const WeekSlot& slot : slots) {
        if (Haelt_Etwas(slot)) {
            text += (text.empty() ? "" : "; ") + Wochentag_Text(kern, slot.DayIndex) + " " + Spanne_Text(slot);
            open = open || Wochenzeit_Haelt(slot, weekday, minute);
        }
    }
    if (text.empty()) {
        return Wort(kern, Word::WeekEmpty);
    }
    const std::string now = Wochentag_Text(kern, weekday) + " " + Uhrzeit_Text(minute);
    return text + ". " + Wort(kern, open ? Word::WeekNowInside : Word::WeekNowOutside, {now});
}

} // namespace

WeekSlot Wochenzeit(const Kern& kern, const Grid& slots, int row) {
    return {.DayIndex = std::max(0, Wochentag_Index(kern, slots.Text(row, SlotColumn::Day))),
            .From = Uhrzeit_Lesen(slots.Text(row, SlotColumn::From)).value_or(0),
            .To = Uhrzeit_Lesen(slots.Text(row, SlotColumn::To)).value_or(0)};
}

std::vector<WeekSlot> Wochenzeiten(const Kern& kern, const Grid& slots, std::string_view map) {
    std::vector<WeekSlot> marked;
    for (int row = 1; row < slots.Rows() && static_cast<std::size_t>(row) <= map.size(); ++row) {
        if (map[static_cast<std::size_t>(row) - 1] == 'X') {
            marked.push_back(Wochenzeit(kern, slots, row));
        }
    }
    return marked;
}

bool Wochenzeit_Haelt(const WeekSlot& slot, int weekday, int minute) {
    return Wochentag_Haelt(slot.DayIndex, weekday) && slot.From <= minute && minute <= slot.To;
}

WeekChart Wochenbild(const Kern& kern, std::span<const WeekSlot> slots) {
    const DateTime now = kern.Welt.Now();
    const int today = Wochentag(Heute(now));
    WeekChart chart;
    chart.Today = today - 1;
    chart.Minute = now.Hour * MinutesOfHour + now.Minute;
    for (int weekday = 1; weekday <= static_cast<int>(WeekChart::DayCount); ++weekday) {
        WeekChart::Day& day = chart.Days[static_cast<std::size_t>(weekday) - 1];
        day.Name = Wochentag_Text(kern, weekday);
        for (const WeekSlot& slot : slots) {
            if (Haelt_Etwas(slot) && Wochentag_Haelt(slot.DayIndex, weekday)) {
                day.Bars.push_back({.From = slot.From, .To = slot.To, .Text = Spanne_Text(slot)});
            }
        }
    }
    chart.Summary = In_Worten(kern, slots, today, chart.Minute);
    return chart;
}

} // namespace qvm
