#include "ClearStyle.h"

#include "Bind.h"
#include "Theme.h"

#include <QPainter>
#include <QStyleOption>

namespace qvm::ui {
namespace {

constexpr float FrameStrength = 0.55F; ///< of the text's colour

} // namespace

void ClearStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    palette = legiblePalette(palette);
}

void ClearStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool box = element == PE_IndicatorCheckBox;
    if ((!box && element != PE_IndicatorRadioButton) || !isDark(option->palette)) {
        return;
    }
    QColor frame = option->palette.color(QPalette::WindowText);
    frame.setAlphaF(FrameStrength);
    const QRectF edge = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->save();
    painter->setPen(frame);
    painter->setBrush(Qt::NoBrush);
    if (box) {
        painter->drawRect(edge);
    } else {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->drawEllipse(edge);
    }
    painter->restore();
}

void ClearStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    if (control != CC_ToolButton || button == nullptr || !isWaiting(widget)) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionToolButton resting(*button);
    resting.state &= ~(State_Enabled | State_MouseOver | State_Sunken | State_Raised);
    resting.palette.setCurrentColorGroup(QPalette::Disabled);
    QProxyStyle::drawComplexControl(control, &resting, painter, widget);
}

QIcon ClearStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    switch (icon) {
    case SP_MessageBoxInformation:
        return ownIcon(QStringLiteral("message-information"));
    case SP_MessageBoxQuestion:
        return ownIcon(QStringLiteral("message-question"));
    case SP_MessageBoxWarning:
    case SP_MessageBoxCritical:
        return ownIcon(QStringLiteral("message-warning"));
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

} // namespace qvm::ui
