#pragma once

#include "F14Window.h"
#include "F15Window.h"
#include "F1Window.h"
#include "F2Window.h"
#include "F6Window.h"
#include "MainWindows.h"
#include "PcWindow.h"

namespace qvm::ui {

struct MainViews {
    explicit MainViews(MainWindows& models) : windows(models) {}

    MainWindows& windows;
    F2Window f2{windows.F2};
    F1Window f1{windows.F1, &f2};
    F15Window f15{windows.F15, &f2};
    F6Window f6{windows.F6, &f2};
    F14Window f14{windows.F14, &f2};
    PcWindow pc{windows.Pc, &f2};
};

} // namespace qvm::ui
