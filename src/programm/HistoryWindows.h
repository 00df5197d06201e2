#pragma once

#include "F7.h"
#include "F8.h"
#include "Programm.h"

namespace qvm {

/// The view of a history file, and its search.
struct HistoryWindows {
    explicit HistoryWindows(Programm& whole) : programm(whole) {}

    Programm& programm;
    qvm::F7 F7{programm.kern};
    qvm::F8 F8{F7};

    /// Fills the hooks of these windows, and those that lead to them. Behind MainWindows and TransferWindows.
    void Verbinden();
};

} // namespace qvm
