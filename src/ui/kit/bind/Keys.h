#pragma once

class QKeyEvent;

namespace qvm::ui {

/// The code of a key as the windows' handlers take it: characters by their code page 1252 value, and the names of
/// qvm::Key. 0 for a key that has none, and for every combination with Ctrl, Alt or Meta.
int keyCode(const QKeyEvent& event);

} // namespace qvm::ui
