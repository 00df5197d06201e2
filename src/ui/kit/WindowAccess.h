#pragma once

class QWidget;

namespace qvm::ui {

/// What a screen reader is told of the program's own kinds of windows: a window is a window, a dialog a dialog, a month
/// or a menu that pops up belongs to the window that it pops up over. To be called before the first of them is made;
/// again does no harm.
void describeWindows();

/// Tells the screen reader that a popup has come into its window, or is about to leave it.
void tellPopup(QWidget* popup, bool comes);

} // namespace qvm::ui
