#include "SvgIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr qreal DisabledOpacity = 0.38;

} // namespace

SvgIconEngine::SvgIconEngine(const QString& path, QPalette::ColorRole ink) : path_(path), ink_(ink) {}

QColor SvgIconEngine::inkOf(QIcon::Mode mode) const {
    return QGuiApplication::palette().color(QPalette::Active,
                                            mode == QIcon::Selected ? QPalette::HighlightedText : ink_);
}

void SvgIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) {
    // By way of the cache: a grid paints the same drawing hundreds of times.
    const qreal scale = painter->device()->devicePixelRatioF();
    const int side = std::min(rect.width(), rect.height());
    const QRect place(rect.left() + (rect.width() - side) / 2, rect.top() + (rect.height() - side) / 2, side, side);
    painter->drawPixmap(place, scaledPixmap(place.size() * scale, mode, state, scale));
}

void SvgIconEngine::draw(QPixmap& onto, QIcon::Mode mode) const {
    QFile file(path_);
    if (!file.open(QIODevice::ReadOnly)) {
        return;
    }
    QSvgRenderer renderer(file.readAll().replace("#000000", inkOf(mode).name().toLatin1()));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&onto);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(mode == QIcon::Disabled ? DisabledOpacity : 1);
    renderer.render(&painter, QRectF(onto.rect()));
}

QPixmap SvgIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) {
    const QString key = QStringLiteral("qvm:%1:%2x%3:%4:%5")
                            .arg(path_)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(static_cast<int>(mode))
                            .arg(inkOf(mode).name());
    QPixmap drawn;
    if (!QPixmapCache::find(key, &drawn)) {
        drawn = QPixmap(size);
        drawn.fill(Qt::transparent);
        draw(drawn, mode);
        QPixmapCache::insert(key, drawn);
    }
    return drawn;
}

QPixmap SvgIconEngine::scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) {
    QPixmap drawn = pixmap(size, mode, state);
    drawn.setDevicePixelRatio(scale);
    return drawn;
}

QIconEngine* SvgIconEngine::clone() const {
    return new SvgIconEngine(path_, ink_);
}

QString SvgIconEngine::key() const {
    return QStringLiteral("qvm");
}

bool SvgIconEngine::isNull() {
    return !QFile::exists(path_);
}

} // namespace qvm::ui
