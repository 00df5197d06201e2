#pragma once

#include "Controls.h"
#include "GridUndo.h"
#include "Kern.h"
#include "Words.h"

#include <functional>
#include <string>

/// The words of undo and redo, the same in every window with a grid.
namespace qvm {

/// The two entries name the steps that they would take, and are disabled without one.
void Schritte_Zeigen(const Kern& kern, const GridUndo& steps, MenuEntry& undo, MenuEntry& redo);

/// One step: what `change` does to the grid. False when it did nothing; else the entries name the steps anew.
bool Schritt_Tun(const Kern& kern, GridUndo& steps, Word what, const std::function<void()>& change, MenuEntry& undo,
                 MenuEntry& redo);

/// What the status line says behind a step that was taken. `told`: Word::UndoDone or Word::RedoDone. What of the step
/// is on the disk and stays is part of it.
std::string Schritt_Meldung(const Kern& kern, Word told, const UndoStep& step);

} // namespace qvm
