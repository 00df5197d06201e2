#pragma once

class QWidget;

namespace qvm::ui {

/// The window in front of all others of the program: the one with the focus, else the last that was shown; null when
/// none is visible. What is opened next belongs to it.
QWidget* frontWindow();

/// Brings the program to the foreground, out of an icon if need be.
void bringToFront();

} // namespace qvm::ui
