#pragma once

#include "F16Window.h"
#include "F51Window.h"
#include "F5Window.h"
#include "PersonWindows.h"

namespace qvm::ui {

struct PersonViews {
    PersonViews(PersonWindows& models, QWidget* mainWindow) : windows(models), main(mainWindow) {}

    PersonWindows& windows;
    QWidget* main;
    F5Window f5{windows.F5, windows.Schluessel, windows.Finger, main};
    F16Window f16{windows.F16, &f5};
    F51Window f51{windows.F51, &f5};
};

} // namespace qvm::ui
