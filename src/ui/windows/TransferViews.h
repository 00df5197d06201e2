#pragma once

#include "F11Window.h"
#include "F13Window.h"
#include "F17Window.h"
#include "F18Window.h"
#include "F91Window.h"
#include "F92Window.h"
#include "F9Window.h"
#include "TransferWindows.h"

namespace qvm::ui {

struct TransferViews {
    TransferViews(TransferWindows& models, QWidget* mainWindow) : windows(models), main(mainWindow) {
        windows.F17_Anbieten();
    }

    TransferWindows& windows;
    QWidget* main;
    F13Window f13{windows.F13, main};
    F91Window f91{windows.F91, main};
    F11Window f11{windows.F11, &f13};
    F9Window f9{windows.F9, &f13, &f91};
    F18Window f18{windows.F18, &f13, &f91};
    F92Window f92{windows.F92, &f91};
    F17Window f17{windows.F17, &f13};
};

} // namespace qvm::ui
