#pragma once

#include "Controls.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// The control model of a picture of a week: seven days of 24 hours with a bar for each time that something holds.
namespace qvm {

/// A time of a day, both ends included, in minutes since midnight: 0 <= From <= To < 1440.
struct WeekBar {
    int From = 0, To = 0;
    std::string Text; ///< what it says to the mouse and to a screen reader

    bool operator==(const WeekBar&) const = default;
};

struct WeekChart {
    static constexpr std::size_t DayCount = 7;
    static constexpr int DayMinutes = 24 * 60;

    struct Day {
        std::string Name;
        std::vector<WeekBar> Bars; ///< they may overlap

        bool operator==(const Day&) const = default;
    };

    std::array<Day, DayCount> Days; ///< Monday first
    int Today = -1;                 ///< index into Days; -1: no day is marked
    int Minute = 0;                 ///< of today that is marked, since midnight
    std::string Summary;            ///< all of it in words

    bool operator==(const WeekChart&) const = default;
};

/// A WeekChart on a window.
struct WeekPictureBox {
    Observed<WeekChart> Chart;
    Observed<bool> Visible{true};
};

} // namespace qvm
