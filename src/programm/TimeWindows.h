#pragma once

#include "F42.h"
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
};

} // namespace qvm
