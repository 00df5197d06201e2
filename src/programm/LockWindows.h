#pragma once

#include "F12.h"
#include "F19.h"
#include "F19Suche.h"
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
    ChannelScan Scan{programm.Run, programm.Adapter};
    F19Suche Suche{Scan, programm.Adapter, F12, F19, F20};

    /// Fills the hooks of these windows. Behind TransferWindows.
    void Verbinden();
    /// The menu entries that scan the channels lead to F19: for front ends that show it.
    void Suche_Anbieten();

private:
    void Suche_Verbinden();
};

} // namespace qvm
