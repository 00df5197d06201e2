#pragma once

#include "F7Window.h"
#include "F8Window.h"
#include "HistoryWindows.h"

namespace qvm::ui {

/// While they are there, the history that a run has read is shown.
struct HistoryViews {
    HistoryViews(HistoryWindows& models, QWidget* mainWindow) : windows(models), main(mainWindow) {
        windows.programm.F7_Oeffnen = [this](const std::string& path) { windows.F7.F7_Oeffnen(path); };
    }
    ~HistoryViews() { windows.programm.F7_Oeffnen = {}; }
    HistoryViews(const HistoryViews&) = delete;
    HistoryViews& operator=(const HistoryViews&) = delete;

    HistoryWindows& windows;
    QWidget* main;
    F7Window f7{windows.F7, main};
    F8Window f8{windows.F8, &f7};
};

} // namespace qvm::ui
