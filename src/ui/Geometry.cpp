#include "Geometry.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QWidget>

#include <algorithm>

namespace qvm::ui {
namespace {

/// Moves and shrinks the window so that all of it lies on one screen.
void keepOnScreen(QWidget* window) {
    const QScreen* screen = QGuiApplication::screenAt(window->geometry().center());
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    if (screen == nullptr || window->isMaximized() || window->isFullScreen()) {
        return;
    }
    const QRect room = screen->availableGeometry();
    QRect place = window->geometry();
    place.setSize(place.size().boundedTo(room.size()));
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() - place.width() + 1));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() - place.height() + 1));
    window->setGeometry(place);
}

} // namespace

QString geometryFile() {
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/windows.ini");
}

bool restoreGeometry(QWidget* window, const QString& key) {
    const QSettings settings(geometryFile(), QSettings::IniFormat);
    const QByteArray state = settings.value(key).toByteArray();
    if (state.isEmpty() || !window->restoreGeometry(state)) {
        return false;
    }
    keepOnScreen(window);
    return true;
}

void saveGeometry(const QWidget* window, const QString& key) {
    QSettings settings(geometryFile(), QSettings::IniFormat);
    settings.setValue(key, window->saveGeometry());
}

} // namespace qvm::ui
