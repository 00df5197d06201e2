// Pages of a report as a printer draws them.

#include "PagePrinter.h"

#include "Seiten.h"
#include "UiFixture.h"

#include <QImage>
#include <QPainter>

namespace qvm::test {
namespace {

constexpr int Scale = 2; // pixels a point

/// The sheet as an image.
QImage painted(const ReportPage& page, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    ui::paintPage(painter, page, QRectF(QPointF(0, 0), QSizeF(size)));
    return image;
}

QImage painted(const ReportPage& page) {
    return painted(page, QSize(PageWidth, PageHeight) * Scale / 1000);
}

/// The rectangle that holds all that is not white.
QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255)) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

TEST(paintPage, puts_a_text_where_it_is_meant_and_no_wider) {
    for (const std::string_view words : {"Haupteingang", "WWWWWWWWWWWW", "illillillill", "M\xFCller, J\xF6rg"}) {
        const PageText text{.X = 100000, .Y = 200000, .Size = 12, .Bold = true, .Text = std::string(words)};
        const QRect ink = inkOf(painted({.Texts = {text}}));
        ASSERT_FALSE(ink.isEmpty()) << words;
        const int width = Textbreite(words, 12, true) * Scale / 1000;
        EXPECT_GE(ink.left(), 100 * Scale - 2) << words;
        EXPECT_LE(ink.right(), 100 * Scale + width + 2) << words;
        EXPECT_GE(ink.width(), width * 3 / 5) << words;
        // On the line, with what hangs below it.
        EXPECT_GE(ink.top(), 200 * Scale - 13 * Scale) << words;
        EXPECT_LE(ink.bottom(), 200 * Scale + 4 * Scale) << words;
    }
}

TEST(paintPage, draws_its_rules) {
    const QRect ink = inkOf(painted({.Rules = {{.X = 50000, .Y = 300000, .Width = 200000}}}));
    EXPECT_NEAR(ink.left(), 50 * Scale, 2);
    EXPECT_NEAR(ink.right(), 250 * Scale, 2);
    EXPECT_NEAR(ink.center().y(), 300 * Scale, 2);
    EXPECT_LE(ink.height(), 3);
}

TEST(paintPage, keeps_its_shape_on_a_sheet_of_another_one) {
    // As wide as it is high: the sheet stands in the middle.
    const int side = PageHeight * Scale / 1000;
    const QRect ink = inkOf(painted({.Rules = {{.X = 0, .Y = 400000, .Width = PageWidth}}}, QSize(side, side)));
    EXPECT_NEAR(ink.width(), PageWidth * Scale / 1000, 3);
    EXPECT_NEAR(ink.center().x(), side / 2, 3);
}

} // namespace
} // namespace qvm::test
