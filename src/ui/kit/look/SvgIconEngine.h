#pragma once

#include <QByteArray>
#include <QIconEngine>
#include <QPalette>

namespace qvm::ui {

/// Paints one of the program's line drawings. Black in the drawing stands for a colour of the palette, every other
/// colour is exact.
class SvgIconEngine : public QIconEngine {
public:
    /// `path` of the drawing, a resource as a rule; `ink`: what black stands for.
    SvgIconEngine(const QString& path, QPalette::ColorRole ink);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    QIconEngine* clone() const override;
    QString key() const override;
    bool isNull() override;

private:
    void draw(QPixmap& onto, QIcon::Mode mode) const;

    QColor inkOf(QIcon::Mode mode) const;

    QString path_;
    QPalette::ColorRole ink_;
};

} // namespace qvm::ui
