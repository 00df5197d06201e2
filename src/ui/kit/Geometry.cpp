#include "Geometry.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>
#include <QWidget>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr const char* HiddenAt = "hiddenAt";       ///< property of a window
constexpr const char* NotKept = "geometryNotKept"; ///< property of the application

} // namespace

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
    place.moveTopLeft(withinRoom(place.topLeft(), place.size(), room));
    return place;
}

QPoint withinRoom(const QPoint& place, const QSize& size, const QRect& room) {
    return {std::max(room.left(), std::min(place.x(), room.right() + 1 - size.width())),
            std::max(room.top(), std::min(place.y(), room.bottom() + 1 - size.height()))};
}

QPoint beside(const QRect& other, const QSize& size, const QRect& room) {
    const int right = room.right() + 1 - size.width();
    const int left = other.left() - size.width();
    const int x = other.right() + 1 <= right ? other.right() + 1 : left >= room.left() ? left : right;
    return withinRoom({x, other.center().y() - size.height() / 2}, size, room);
}

void noteFramePlace(QWidget* window) {
    window->setProperty(HiddenAt, window->pos());
}

QPoint framePlace(const QWidget* window) {
    return window->isVisible() ? window->pos() : window->property(HiddenAt).toPoint();
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

void keepGeometry(bool on) {
    QCoreApplication::instance()->setProperty(NotKept, !on);
}

void saveGeometry(const QWidget* window, const QString& key) {
    if (QCoreApplication::instance()->property(NotKept).toBool()) {
        return;
    }
    QSettings settings(geometryFile(), QSettings::IniFormat);
    settings.setValue(key, window->saveGeometry());
}

} // namespace qvm::ui
