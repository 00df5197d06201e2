#include "Geometry.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QWidget>

#include <algorithm>

namespace qvm::ui {

QRect onScreen(QRect place) {
    const QScreen* screen = QGuiApplication::screenAt(place.center());
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    if (screen == nullptr) {
        return place;
    }
    const QRect room = screen->availableGeometry();
    place.setSize(place.size().boundedTo(room.size()));
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() - place.width() + 1));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() - place.height() + 1));
    return place;
}

QString geometryFile() {
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/windows.ini");
}

bool restoreGeometry(QWidget* window, const QString& key) {
    const QSettings settings(geometryFile(), QSettings::IniFormat);
    const QByteArray state = settings.value(key).toByteArray();
    if (state.isEmpty() || !window->restoreGeometry(state)) {
        return false;
    }
    if (!window->isMaximized() && !window->isFullScreen()) {
        window->setGeometry(onScreen(window->geometry()));
    }
    return true;
}

void saveGeometry(const QWidget* window, const QString& key) {
    QSettings settings(geometryFile(), QSettings::IniFormat);
    settings.setValue(key, window->saveGeometry());
}

} // namespace qvm::ui
