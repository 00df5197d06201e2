#pragma once

class QRect;
class QString;
class QWidget;

/// Places and sizes of the windows, in a file of their own among the user's settings.
namespace qvm::ui {

/// Path of the file.
QString geometryFile();

/// The place, moved and shrunk so that all of it lies on one screen; as it is when there is no screen.
QRect onScreen(QRect place);

/// Gives the window the place and size it had last, always on a screen. False when none is known.
bool restoreGeometry(QWidget* window, const QString& key);

/// Remembers the window's place and size.
void saveGeometry(const QWidget* window, const QString& key);

} // namespace qvm::ui
