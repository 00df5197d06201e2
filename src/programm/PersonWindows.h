#pragma once

#include "F16.h"
#include "F5.h"
#include "F51.h"
#include "F5Finger.h"
#include "F5Schluessel.h"
#include "Programm.h"

namespace qvm {

/// The windows of users and their credentials.
struct PersonWindows {
    explicit PersonWindows(Programm& whole) : programm(whole) {}

    Programm& programm;
    qvm::F5 F5{programm.kern};
    qvm::F16 F16{F5};
    qvm::F51 F51{programm.kern};
    F5Schluessel Schluessel{F5, F16, programm.link, programm.Adapter};
    F5Finger Finger{F5, F51, programm.link, programm.Adapter};

    /// Fills the hooks of these windows, and those that lead to them. Behind MainWindows and TransferWindows.
    void Verbinden();
};

} // namespace qvm
