// Frames round boxes that can be seen on a dark palette.

#include "ClearStyle.h"

#include <QCheckBox>
#include <QImage>
#include <QRadioButton>
#include <QStyleOptionButton>

#include <gtest/gtest.h>

namespace qvm::test {
namespace {

/// How far the brightest spot on the row through the middle of the box stands out from the window.
template <class Box>
int contrast(const QPalette& palette) {
    ui::ClearStyle style(QStringLiteral("Fusion"));
    Box box;
    box.setStyle(&style);
    box.setPalette(palette);
    box.setAutoFillBackground(true);
    box.resize(box.sizeHint());
    const QImage image = box.grab().toImage();
    QStyleOptionButton option;
    option.initFrom(&box);
    const QRect where = style.subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
    const int window = qGray(palette.color(QPalette::Window).rgb());
    int most = 0;
    for (int x = where.left(); x <= where.left() + 3; ++x) {
        most = std::max(most, std::abs(qGray(image.pixel(x, where.center().y())) - window));
    }
    return most;
}

const QPalette Dark(QColor(55, 55, 58), QColor(45, 45, 48));
const QPalette Light(QColor(239, 239, 239), QColor(239, 239, 239));

TEST(Clear_Style, frames_an_empty_check_box_and_option_on_a_dark_window) {
    EXPECT_GE(contrast<QCheckBox>(Dark), 60);
    EXPECT_GE(contrast<QRadioButton>(Dark), 60);
}

TEST(Clear_Style, leaves_a_light_window_as_the_style_has_it) {
    QCheckBox plain;
    QCheckBox framed;
    ui::ClearStyle style(QStringLiteral("Fusion"));
    framed.setStyle(&style);
    plain.setPalette(Light);
    framed.setPalette(Light);
    plain.resize(20, 20);
    framed.resize(20, 20);
    EXPECT_EQ(plain.grab().toImage(), framed.grab().toImage());
}

} // namespace
} // namespace qvm::test
