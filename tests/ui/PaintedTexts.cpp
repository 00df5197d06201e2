#include "PaintedTexts.h"

#include "GridView.h"

#include <QCalendarWidget>
#include <QHash>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <utility>

namespace qvm::test {
namespace {

/// Notes the texts and paints nothing.
class TextEngine : public QPaintEngine {
public:
    explicit TextEngine(std::vector<PaintedText>& texts) : QPaintEngine(AllFeatures), texts_(texts) {}

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    void drawPixmap(const QRectF& /*to*/, const QPixmap& /*what*/, const QRectF& /*from*/) override {}
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}

    void drawTextItem(const QPointF& at, const QTextItem& item) override {
        if (item.text().trimmed().isEmpty()) {
            return;
        }
        const QRectF place(at.x(), at.y() - item.ascent(), item.width(), item.ascent() + item.descent());
        QRectF seen = painter()->deviceTransform().mapRect(place);
        if (painter()->hasClipping()) {
            seen &= painter()->deviceTransform().mapRect(painter()->clipBoundingRect());
        }
        // The edges of the widget.
        if (!systemClip().isEmpty()) {
            seen &= systemClip().boundingRect();
        }
        const PaintedText text{item.text(), seen.toAlignedRect(), painter()->pen().color(), {}};
        forgetShadow(text);
        texts_.push_back(text);
    }

private:
    /// Styles put a light shadow under a disabled text: the same text a pixel aside, just before. A mnemonic cuts a
    /// text into parts.
    void forgetShadow(const PaintedText& text) {
        constexpr std::size_t Parts = 4;
        const std::size_t first = texts_.size() - std::min(texts_.size(), Parts);
        for (std::size_t n = first; n < texts_.size(); ++n) {
            const QPoint aside = texts_[n].Where.topLeft() - text.Where.topLeft();
            if (texts_[n].Text == text.Text && aside.manhattanLength() <= 3) {
                texts_.erase(texts_.begin() + static_cast<std::ptrdiff_t>(n));
                return;
            }
        }
    }

    std::vector<PaintedText>& texts_;
};

class TextDevice : public QPaintDevice {
public:
    TextDevice(const QWidget& like, std::vector<PaintedText>& texts) : like_(like), engine_(texts) {}

    QPaintEngine* paintEngine() const override { return &engine_; }

protected:
    int metric(PaintDeviceMetric which) const override {
        switch (which) {
        case PdmWidth:
            return like_.width();
        case PdmHeight:
            return like_.height();
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return like_.logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return like_.logicalDpiY();
        default:
            return 0;
        }
    }

private:
    const QWidget& like_;
    mutable TextEngine engine_;
};

/// The colour that most of the place has besides the ink, which fills the place of a narrow letter; the ink itself when
/// there is hardly anything else. Shades next to each other, as a button has them, count as one.
QColor groundOf(const QImage& image, const QRect& place, QRgb ink) {
    constexpr QRgb Shade = 0xFFF0F0F0;
    constexpr double Hidden = 0.6;
    struct Count {
        int Pixels = 0;
        QRgb One = 0;
    };
    QHash<QRgb, Count> counts;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            Count& count = counts[pixel == ink ? ink : pixel & Shade];
            ++count.Pixels;
            count.One = pixel;
        }
    }
    const int inked = counts.take(ink).Pixels;
    Count best;
    for (const Count& count : std::as_const(counts)) {
        best = count.Pixels > best.Pixels ? count : best;
    }
    const bool hidden = best.Pixels == 0 || inked > Hidden * place.width() * place.height();
    return QColor::fromRgb(hidden ? ink : best.One);
}

/// Under an editor, a list or a month that lies over its grid, which does not know what they hide.
bool isCovered(const QWidget& window, const PaintedText& text, const QImage& image) {
    const QWidget* over = window.childAt(text.Where.center());
    while (over != nullptr && qobject_cast<const ui::GridView*>(over->parentWidget()) == nullptr) {
        over = over->parentWidget();
    }
    const bool editor = qobject_cast<const QLineEdit*>(over) != nullptr ||
                        qobject_cast<const QListWidget*>(over) != nullptr ||
                        qobject_cast<const QCalendarWidget*>(over) != nullptr;
    const QRect middle = text.Where.adjusted(0, text.Where.height() / 3, 0, -text.Where.height() / 3);
    for (int y = middle.top(); editor && y <= middle.bottom(); ++y) {
        for (int x = middle.left(); x <= middle.right(); ++x) {
            if (image.pixel(x, y) == (text.Ink.rgb() | 0xFF000000)) {
                return false;
            }
        }
    }
    return editor;
}

QColor over(const QColor& ink, const QColor& ground) {
    const auto mix = [&](int a, int b) { return (a * ink.alpha() + b * (255 - ink.alpha())) / 255; };
    return {mix(ink.red(), ground.red()), mix(ink.green(), ground.green()), mix(ink.blue(), ground.blue())};
}

double linear(double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

std::vector<PaintedText> paintedTexts(QWidget& window) {
    std::vector<PaintedText> texts;
    TextDevice device(window, texts);
    QPainter painter(&device);
    window.render(&painter);
    painter.end();
    const QImage image = window.grab().toImage();
    std::vector<PaintedText> seen;
    for (PaintedText& text : texts) {
        text.Where &= image.rect();
        if (!text.Where.isEmpty() && !isCovered(window, text, image)) {
            text.Ground = groundOf(image, text.Where, text.Ink.rgb() | 0xFF000000);
            text.Ink = over(text.Ink, text.Ground);
            seen.push_back(text);
        }
    }
    return seen;
}

double wcagContrast(const QColor& a, const QColor& b) {
    const double one = luminance(a) + 0.05;
    const double two = luminance(b) + 0.05;
    return one > two ? one / two : two / one;
}

} // namespace qvm::test
