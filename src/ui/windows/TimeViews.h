#pragma once

#include "F42Window.h"
#include "F60Window.h"
#include "HolidayWindow.h"
#include "TimeWindows.h"
#include "WeekTimerWindow.h"

namespace qvm::ui {

struct TimeViews {
    TimeViews(TimeWindows& models, QWidget* mainWindow) : windows(models), main(mainWindow) {}

    TimeWindows& windows;
    QWidget* main;
    HolidayWindow f3{windows.F3, main};
    HolidayWindow f10{windows.F10, main};
    F42Window f42{windows.F42, main};
    WeekTimerWindow f4{windows.F4, main};
    WeekTimerWindow f41{windows.F41, main};
    F60Window f60{windows.F60, main};
};

} // namespace qvm::ui
