#pragma once

#include <QColor>
#include <QRect>
#include <QString>

#include <vector>

class QWidget;

namespace qvm::test {

/// A text as it was put on the screen.
struct PaintedText {
    QString Text;
    QRect Where;   ///< in the window
    QColor Ink;    ///< as painted on its ground
    QColor Ground; ///< the colour that most of its place has beside
};

/// Every text that the window and all within it paint, by whatever routine: labels, keys, cells, headings, entries.
std::vector<PaintedText> paintedTexts(QWidget& window);

/// Contrast ratio of two colours, 1 to 21, as the Web Content Accessibility Guidelines define it.
double wcagContrast(const QColor& a, const QColor& b);

} // namespace qvm::test
