#pragma once

#include "F42.h"
#include "F60.h"
#include "HolidayCalendar.h"
#include "Programm.h"
#include "WeekTimer.h"

namespace qvm {

/// The windows where times are set.
struct TimeWindows {
    explicit TimeWindows(Programm& whole) : programm(whole) {}

    Programm& programm;
    HolidayCalendar F3{programm.kern, SingleCalendarTraits};
    HolidayCalendar F10{programm.kern, PermanentCalendarTraits};
    qvm::F42 F42{programm.kern};
    WeekTimer F4{programm.kern, PersonClockTraits};
    WeekTimer F41{programm.kern, LockClockTraits};
    qvm::F60 F60{programm.kern, programm.link, programm.Adapter};

    /// Fills the hooks of these windows, and those that lead to them. Behind PersonWindows.
    void Verbinden();
};

} // namespace qvm
