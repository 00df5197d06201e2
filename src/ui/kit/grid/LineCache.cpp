#include "LineCache.h"

#include <QFontMetricsF>
#include <QPainter>

namespace qvm::ui {
namespace {

constexpr int MostLines = 4000; ///< more than a screen shows

} // namespace

const LineCache::Line& LineCache::line(const QPainter& painter, const QString& text) {
    if (height_ <= 0 || painter.font() != font_ || lines_.size() > MostLines) {
        lines_.clear();
        font_ = painter.font();
        height_ = QFontMetricsF(font_, painter.device()).height();
    }
    const auto known = lines_.constFind(text);
    if (known != lines_.constEnd()) {
        return *known;
    }
    Line line;
    line.Text.setText(text);
    line.Text.setTextFormat(Qt::PlainText);
    line.Text.setPerformanceHint(QStaticText::AggressiveCaching);
    line.Text.prepare(painter.transform(), font_);
    line.Width = line.Text.size().width();
    return *lines_.insert(text, line);
}

void LineCache::paint(QPainter* painter, const QRect& room, Qt::Alignment alignment, const QString& text) {
    const bool fits = line(*painter, text).Width <= room.width();
    paintWhole(painter, room, alignment,
               fits ? text : painter->fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
}

void LineCache::paintWhole(QPainter* painter, const QRectF& room, Qt::Alignment alignment, const QString& text) {
    const Line& shown = line(*painter, text);
    const qreal across = room.width() - shown.Width;
    const qreal left = alignment.testFlag(Qt::AlignRight)     ? across
                       : alignment.testFlag(Qt::AlignHCenter) ? across / 2
                                                              : 0;
    painter->drawStaticText(room.topLeft() + QPointF(left, (room.height() - height_) / 2), shown.Text);
}

} // namespace qvm::ui
