// Pictures on labels, and the signs of message boxes.

#include "LabelDrawing.h"

#include "Bind.h"
#include "ClearStyle.h"
#include "Pictures.h"
#include "UiFixture.h"

#include <QLabel>

namespace qvm::test {
namespace {

/// Sets the program's palette to a colour of text for as long as it lives.
struct TextColour {
    explicit TextColour(const QColor& colour) : before(QApplication::palette()) {
        QPalette palette = before;
        palette.setColor(QPalette::WindowText, colour);
        QApplication::setPalette(palette);
        UiFixture::Settle();
    }
    ~TextColour() { QApplication::setPalette(before); }
    QPalette before;
};

int PixelsOf(const QLabel& label, const QColor& colour) {
    const QImage drawn = label.pixmap().toImage();
    int count = 0;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            count += drawn.pixelColor(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

TEST(Label_Drawing, takes_the_colours_of_a_new_palette) {
    Picture picture;
    picture.Id = ChannelPicture::Image7;
    QLabel label;
    ui::bind(picture, &label, QStringLiteral("Picture"), ui::PictureSet::Channel, 32);
    Present(label);
    const QColor pink(250, 10, 200);
    EXPECT_EQ(PixelsOf(label, pink), 0);
    const TextColour changed(pink);
    EXPECT_GT(PixelsOf(label, pink), 10);
}

TEST(Label_Drawing, draws_for_the_ratio_of_its_screen) {
    QLabel label;
    std::vector<qreal> ratios;
    ui::LabelDrawing drawing(&label, [&ratios](qreal ratio) {
        ratios.push_back(ratio);
        return QPixmap(4, 4);
    });
    drawing.show();
    EXPECT_EQ(ratios, (std::vector<qreal>{label.devicePixelRatioF(), label.devicePixelRatioF()}));
}

TEST(Label_Drawing, of_no_picture_is_empty) {
    Picture picture;
    QLabel label;
    ui::bind(picture, &label, QStringLiteral("Picture"), ui::PictureSet::Channel, 32);
    EXPECT_TRUE(label.pixmap().isNull());
    picture.Id = ChannelPicture::Image8;
    EXPECT_FALSE(label.pixmap().isNull());
}

TEST(Clear_Style, draws_the_signs_of_message_boxes_sharp_at_twice_the_size) {
    const ui::ClearStyle style(QStringLiteral("Fusion"));
    QImage seen[3];
    int n = 0;
    for (const QStyle::StandardPixmap sign :
         {QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxQuestion, QStyle::SP_MessageBoxWarning}) {
        const QPixmap drawn = style.standardIcon(sign, nullptr, nullptr).pixmap(QSize(48, 48), 2.0);
        EXPECT_EQ(drawn.size(), QSize(96, 96));
        seen[n++] = drawn.toImage();
    }
    EXPECT_NE(seen[0], seen[1]);
    EXPECT_NE(seen[1], seen[2]);
    EXPECT_NE(seen[0], seen[2]);
}

} // namespace
} // namespace qvm::test
