#pragma once

#include <QFont>
#include <QHash>
#include <QStaticText>
#include <QString>

class QPainter;

namespace qvm::ui {

/// Paints texts of one line as QPainter::drawText does, each of which is laid out only once: a grid shows the same few
/// texts in thousands of cells.
class LineCache {
public:
    /// In the painter's font and pen. A text that is wider than the room ends in an ellipsis.
    void paint(QPainter* painter, const QRect& room, Qt::Alignment alignment, const QString& text);
    /// The same without an ellipsis: a text that is too wide or too high goes beyond the room on both sides.
    void paintWhole(QPainter* painter, const QRectF& room, Qt::Alignment alignment, const QString& text);

private:
    struct Line {
        QStaticText Text;
        qreal Width = 0;
    };
    const Line& line(const QPainter& painter, const QString& text);

    QHash<QString, Line> lines_; ///< in font_
    QFont font_;
    qreal height_ = 0;
};

} // namespace qvm::ui
