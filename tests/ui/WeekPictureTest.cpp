// The picture of a week.

#include "WeekPicture.h"

#include "UiFixture.h"

#include <QTest>

namespace qvm::test {
namespace {

struct Week_Picture_Widget : ::testing::Test {
    WeekPictureBox model;

    void SetUp() override {
        WeekChart chart;
        const char* const names[] = {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"};
        for (std::size_t day = 0; day < 7; ++day) {
            chart.Days[day].Name = names[day];
        }
        chart.Days[1].Bars = {{480, 600, "08:00 - 10:00"}, {720, 1439, "12:00 - 23:59"}};
        chart.Today = 1;
        chart.Minute = 660;
        chart.Summary = "whole week";
        model.Chart = chart;
    }
};

TEST_F(Week_Picture_Widget, draws_bars_from_their_first_to_behind_their_last_minute) {
    ui::WeekPicture picture(model, QStringLiteral("W"), nullptr);
    picture.resize(900, 300);
    const QRectF room = picture.dayRoom(1);
    const auto at = [&](int minute) { return picture.barAt({picture.edgeOf(minute), room.center().y()}); };
    EXPECT_FALSE(at(470));
    ASSERT_TRUE(at(490));
    EXPECT_EQ(at(490)->Text, "08:00 - 10:00");
    EXPECT_FALSE(at(660));
    ASSERT_TRUE(at(1430));
    EXPECT_EQ(at(1430)->Text, "12:00 - 23:59");
    EXPECT_FALSE(picture.barAt({picture.edgeOf(490), picture.dayRoom(0).center().y()}));
    const QImage drawn = picture.grab().toImage();
    const auto colour = [&](int minute) {
        return drawn.pixelColor(static_cast<int>(picture.edgeOf(minute)), static_cast<int>(room.center().y()));
    };
    EXPECT_NE(colour(540), colour(450));
    EXPECT_EQ(colour(540), colour(1300));
    EXPECT_NE(colour(660), colour(640)) << "now";
}

TEST_F(Week_Picture_Widget, tells_a_screen_reader_the_week_and_the_day_that_the_keys_go_to) {
    QWidget window;
    auto* picture = new ui::WeekPicture(model, QStringLiteral("W"), &window);
    EXPECT_EQ(picture->accessibleDescription(), QStringLiteral("whole week"));
    Present(window);
    picture->setFocus();
    EXPECT_EQ(picture->currentDay(), 1U) << "today";
    QTest::keyClick(picture, Qt::Key_Up);
    EXPECT_EQ(picture->accessibleDescription(), QStringLiteral("Mo"));
    QTest::keyClick(picture, Qt::Key_Up);
    EXPECT_EQ(picture->currentDay(), 0U);
    QTest::keyClick(picture, Qt::Key_Down);
    EXPECT_EQ(picture->accessibleDescription(), QStringLiteral("Di: 08:00 - 10:00, 12:00 - 23:59"));
    QTest::keyClick(picture, Qt::Key_End);
    EXPECT_EQ(picture->currentDay(), 6U);
    QTest::keyClick(picture, Qt::Key_Down);
    EXPECT_EQ(picture->currentDay(), 6U);
    QTest::keyClick(picture, Qt::Key_Home);
    EXPECT_EQ(picture->currentDay(), 0U);
}

TEST_F(Week_Picture_Widget, comes_and_goes_with_its_model_and_stays_within_its_size) {
    QWidget window;
    auto* picture = new ui::WeekPicture(model, QStringLiteral("W"), &window);
    EXPECT_FALSE(picture->isHidden());
    model.Visible = false;
    EXPECT_TRUE(picture->isHidden());
    picture->resize(picture->minimumSizeHint());
    EXPECT_LE(picture->edgeOf(1440), picture->width());
    EXPECT_LE(picture->dayRoom(6).bottom(), picture->height());
}

} // namespace
} // namespace qvm::test
