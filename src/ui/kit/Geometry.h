#pragma once

#include <QPoint>

class QRect;
class QSize;
class QString;
class QWidget;

/// Places and sizes of the windows, in a file of their own among the user's settings.
namespace qvm::ui {

/// Whether they are kept from now on. Those that were kept are used in any case.
void keepGeometry(bool on);

/// Path of the file.
QString geometryFile();

/// The place, moved and shrunk so that all of it lies on one screen; as it is when there is no screen.
QRect onScreen(QRect place);

/// Where a window of this size goes that is wanted at `place`, so that as much of it as possible lies in `room`, its
/// upper left corner first.
QPoint withinRoom(const QPoint& place, const QSize& size, const QRect& room);

/// Where a window of this size stands beside another one: to its right, else to its left, else at the right edge of the
/// room, where it covers neither names nor buttons.
QPoint beside(const QRect& other, const QSize& size, const QRect& room);

/// Where the window's frame stands, or stood when this was noted last, before the window was hidden.
QPoint framePlace(const QWidget* window);
void noteFramePlace(QWidget* window);

/// Gives the window the place and size it had last, always on a screen. False when none is known.
bool restoreGeometry(QWidget* window, const QString& key);

/// Remembers the window's place and size.
void saveGeometry(const QWidget* window, const QString& key);

} // namespace qvm::ui
