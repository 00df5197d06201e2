#pragma once

#include "F12Window.h"
#include "F20Window.h"
#include "LockWindows.h"

namespace qvm::ui {

struct LockViews {
    LockViews(LockWindows& models, QWidget* mainWindow) : windows(models), main(mainWindow) {}

    LockWindows& windows;
    QWidget* main;
    F12Window f12{windows.F12, main};
    F20Window f20{windows.F20, &f12};
};

} // namespace qvm::ui
