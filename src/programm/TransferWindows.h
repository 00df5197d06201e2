#pragma once

#include "F11.h"
#include "F13.h"
#include "F17.h"
#include "F18.h"
#include "F9.h"
#include "F91.h"
#include "F92.h"
#include "Programm.h"

namespace qvm {

/// The windows by which locks are programmed and their histories read.
struct TransferWindows {
    explicit TransferWindows(Programm& whole) : programm(whole) {}

    Programm& programm;
    qvm::F9 F9{programm.Run};
    qvm::F18 F18{programm.Run};
    qvm::F17 F17{programm.Run, F18, programm.Adapter};
    qvm::F11 F11{programm.Run, F9, F18, programm.Adapter};
    qvm::F13 F13{programm.Run, F11, programm.Adapter};
    qvm::F91 F91{programm.Run, programm.Netz, F9, programm.Adapter};
    qvm::F92 F92{programm.kern};

    /// The lock grid or the run list stands open, in the main window's place.
    bool Offen() const { return F13.Fenster.Visible || F91.Fenster.Visible; }
    /// The cells of the lock grid, and the menu of a unit, that change a code lead to F17: for front ends that show it.
    void F17_Anbieten();
    /// Fills the hooks of these windows, and those that lead to them. Behind MainWindows.
    void Verbinden();

private:
    void Hauptfenster_Verbinden();
    void Codeaenderung_Verbinden();
    void Schlossgitter_Freigeben(bool moved);
    void Lauf_Verbinden();
    void Liste_Verbinden();
    void Listenlauf_Verbinden();
};

} // namespace qvm
