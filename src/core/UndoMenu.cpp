#include "UndoMenu.h"

namespace qvm {
namespace {

void Schritt_Zeigen(const Kern& kern, const UndoStep* step, MenuEntry& entry, Word withStep, Word without) {
    entry.Text = step == nullptr ? Wort(kern, without) : Wort(kern, withStep, {Wort(kern, step->What)});
    entry.Enabled = step != nullptr;
}

} // namespace

void Schritte_Zeigen(const Kern& kern, const GridUndo& steps, MenuEntry& undo, MenuEntry& redo) {
    Schritt_Zeigen(kern, steps.NextUndo(), undo, Word::Undo, Word::UndoNothing);
    Schritt_Zeigen(kern, steps.NextRedo(), redo, Word::Redo, Word::RedoNothing);
}

bool Schritt_Tun(const Kern& kern, GridUndo& steps, Word what, const std::function<void()>& change, MenuEntry& undo,
                 MenuEntry& redo) {
    steps.Begin(what);
    change();
    if (!steps.End()) {
        return false;
    }
    Schritte_Zeigen(kern, steps, undo, redo);
    return true;
}

std::string Schritt_Meldung(const Kern& kern, Word told, const UndoStep& step) {
    return Wort(kern, told, {Wort(kern, step.What)}) + (step.Stays ? " " + Wort(kern, *step.Stays) : std::string());
}

} // namespace qvm
