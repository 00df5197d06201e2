#include "Feiertage.h"

#include "Text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>

namespace qvm {
namespace {

constexpr int YearOfAll = 2000;        // in which permanent dates are compared: a leap year
constexpr std::size_t DayAndMonth = 6; // "dd.mm.", which " - -" follows

std::optional<Datum> Datum_Der_Zelle(const std::string& text, KalenderBlock block) {
    return block == KalenderBlock::Einzel ? Datum_Lesen(text)
                                          : Datum_Lesen(text.substr(0, DayAndMonth) + Ziffern(YearOfAll));
}

} // namespace

HolidayDays::HolidayDays(const Grid& grid, KalenderBlock block) : block_(block) {
    states_.assign(CalendarRows + 1, HolidayRowState::Empty);
    for (int row = 1; row <= CalendarRows; ++row) {
        const std::string from(Trim(grid.Text(row, CalendarColumn::From)));
        const std::string to(Trim(grid.Text(row, CalendarColumn::To)));
        const bool kind = !Trim(grid.Text(row, CalendarColumn::Kind)).empty();
        HolidayRowState& state = states_[static_cast<std::size_t>(row)];
        if (from.empty() || to.empty() || !kind) {
            state = from.empty() && to.empty() && !kind ? HolidayRowState::Empty : HolidayRowState::Unfinished;
            continue;
        }
        const auto first = Datum_Der_Zelle(from, block);
        const auto last = Datum_Der_Zelle(to, block);
        if (!first || !last || (block == KalenderBlock::Einzel && *last < *first)) {
            state = HolidayRowState::NoSpan;
            continue;
        }
        state = HolidayRowState::Span;
        spans_.push_back({.Row = row, .From = *first, .To = *last});
    }
}

bool HolidayDays::Holds(const Span& span, const Datum& day) const {
    if (block_ == KalenderBlock::Einzel) {
        return span.From <= day && day <= span.To;
    }
    const Datum ofAll{.Year = YearOfAll, .Month = day.Month, .Day = day.Day};
    return span.From <= span.To ? span.From <= ofAll && ofAll <= span.To : span.From <= ofAll || ofAll <= span.To;
}

/// Of two spans that share a day, one holds the first day of the other; over the turn of the year, too.
bool HolidayDays::Overlap(const Span& one, const Span& other) const {
    return Holds(one, other.From) || Holds(other, one.From);
}

int HolidayDays::Count(const Datum& day) const {
    return static_cast<int>(
        std::count_if(spans_.begin(), spans_.end(), [&](const Span& span) { return Holds(span, day); }));
}

std::vector<int> HolidayDays::Rows(const Datum& day) const {
    std::vector<int> rows;
    for (const Span& span : spans_) {
        if (Holds(span, day)) {
            rows.push_back(span.Row);
        }
    }
    return rows;
}

std::vector<int> HolidayDays::Others(int row) const {
    std::vector<int> rows;
    const auto own = std::find_if(spans_.begin(), spans_.end(), [row](const Span& span) { return span.Row == row; });
    for (const Span& span : spans_) {
        if (own != spans_.end() && span.Row != row && Overlap(*own, span)) {
            rows.push_back(span.Row);
        }
    }
    return rows;
}

HolidayRowState HolidayDays::State(int row) const {
    return row >= 0 && static_cast<std::size_t>(row) < states_.size() ? states_[static_cast<std::size_t>(row)]
                                                                      : HolidayRowState::Empty;
}

} // namespace qvm
