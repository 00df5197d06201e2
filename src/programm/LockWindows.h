#pragma once

#include "F12.h"
#include "F19.h"
#include "F20.h"
#include "Programm.h"

namespace qvm {

/// The windows where locks and their units are set up.
struct LockWindows {
    explicit LockWindows(Programm& whole) : programm(whole) {}

    Programm& programm;
    qvm::F12 F12{programm.kern, programm.Adapter};
    qvm::F19 F19{programm.kern};
    qvm::F20 F20{programm.kern};

    /// Fills the hooks of these windows.
    void Verbinden();
};

} // namespace qvm
