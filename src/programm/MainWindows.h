#pragma once

#include "F1.h"
#include "F14.h"
#include "F15.h"
#include "F2.h"
#include "F6.h"
#include "PcFenster.h"
#include "Programm.h"

namespace qvm {

/// The main window, and the windows where the program itself is set up.
struct MainWindows {
    explicit MainWindows(Programm& whole) : programm(whole) {}

    Programm& programm;
    qvm::F2 F2{programm.link, programm.Adapter};
    qvm::F1 F1{programm.kern};
    qvm::F15 F15{programm.kern};
    qvm::F6 F6{programm.link, programm.Adapter};
    qvm::F14 F14{programm.kern};
    PcFenster Pc{programm.link, programm.Adapter};

    /// Fills the hooks of these windows, and those that lead to them.
    void Verbinden();
};

} // namespace qvm
