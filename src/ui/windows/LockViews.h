#pragma once

#include "F12Window.h"
#include "F19Window.h"
#include "F20Window.h"
#include "LockWindows.h"

namespace qvm::ui {

struct LockViews {
    LockViews(LockWindows& models, QWidget* mainWindow) : windows(models), main(mainWindow) {
        windows.Suche_Anbieten();
        f19.alsoOf(&f12);
    }

    LockWindows& windows;
    QWidget* main;
    F12Window f12{windows.F12, main};
    F20Window f20{windows.F20, &f12};
    F19Window f19{windows.F19, &f20}; // or of F12, where the scan was begun there
};

} // namespace qvm::ui
