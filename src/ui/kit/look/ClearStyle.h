#pragma once

#include <QProxyStyle>

namespace qvm::ui {

/// The platform's style, with frames round check boxes and options that can be seen on a dark palette, too: styles that
/// derive a frame from the window's colour draw it dark on dark. The desktop's palette is made legible where it is not.
/// The signs of message boxes are the program's own drawings. A tool button that waits is drawn as a disabled one.
class ClearStyle : public QProxyStyle {
public:
    using QProxyStyle::polish;
    using QProxyStyle::QProxyStyle;

    void polish(QPalette& palette) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

} // namespace qvm::ui
