#pragma once

#include "Kalender.h"
#include "Zeit.h"

#include <vector>

namespace qvm {

/// What is to be said of a row of a calendar grid.
enum class HolidayRowState {
    Empty,
    Unfinished, ///< lacks a date or the kind: a save drops it
    NoSpan,     ///< a date does not exist, or the end of a single holiday lies before its beginning
    Span
};

/// The days that the rows of a calendar grid hold, as it stands, both ends of a span included. A span of the permanent
/// calendar is there every year, and goes over the turn of the year when its end lies before its beginning.
class HolidayDays {
public:
    HolidayDays() = default;
    HolidayDays(const Grid& grid, KalenderBlock block);

    /// How many rows hold the day.
    int Count(const Datum& day) const;
    /// Rows that hold the day, from the top.
    std::vector<int> Rows(const Datum& day) const;
    /// Other rows that share a day with this one, from the top.
    std::vector<int> Others(int row) const;
    /// Empty for a row that the grid does not have.
    HolidayRowState State(int row) const;

private:
    struct Span {
        int Row = 0;
        Datum From, To; ///< of a permanent holiday in the leap year 2000
    };

    bool Holds(const Span& span, const Datum& day) const;
    bool Overlap(const Span& one, const Span& other) const;

    KalenderBlock block_ = KalenderBlock::Einzel;
    std::vector<Span> spans_;
    std::vector<HolidayRowState> states_; ///< by row
};

} // namespace qvm
