// Colours, drawings, mnemonics, geometry and the month view.

#include "ElidedLabel.h"
#include "Geometry.h"
#include "Mnemonics.h"
#include "MonthView.h"
#include "Pictures.h"
#include "Theme.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QFile>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QToolButton>

#include <cmath>

namespace qvm::test {
namespace {

QPalette DarkPalette() {
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Text, QColor(235, 235, 235));
    palette.setColor(QPalette::Highlight, QColor(60, 120, 200));
    return palette;
}

QPalette LightPalette() {
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, QColor(20, 20, 20));
    palette.setColor(QPalette::Highlight, QColor(60, 120, 200));
    return palette;
}

double Linear(double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

/// Contrast ratio of two colours, 1 to 21, as the Web Content Accessibility Guidelines define it.
double Contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& c) {
        return 0.2126 * Linear(c.redF()) + 0.7152 * Linear(c.greenF()) + 0.0722 * Linear(c.blueF());
    };
    const double one = luminance(a) + 0.05;
    const double two = luminance(b) + 0.05;
    return one > two ? one / two : two / one;
}

TEST(ElidedLabel, cuts_no_text_that_has_the_room_it_asks_for) {
    ui::ElidedLabel label;
    label.show();
    for (int size = 8; size < 20; ++size) {
        QFont font = label.font();
        font.setPointSizeF(size + 0.3);
        label.setFont(font);
        for (const char* text : {"Benutzer: 25, freie Zeilen: 225", "Users: 7", "Tor: 12"}) {
            label.setFullText(QLatin1String(text));
            label.resize(label.sizeHint());
            UiFixture::Settle();
            EXPECT_EQ(label.text(), QLatin1String(text)) << size;
        }
    }
}

TEST(Theme, takes_red_from_the_lowest_byte) {
    EXPECT_EQ(ui::exactColour(0x0000FF), QColor(255, 0, 0));
    EXPECT_EQ(ui::exactColour(0x80FFFF), QColor(255, 255, 128));
}

TEST(Theme, keeps_meaning_colours_exact_and_takes_neutral_ones_from_the_palette) {
    for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
        EXPECT_EQ(ui::cellBackground(0x80FFFF, true, palette), QColor(255, 255, 128));
        EXPECT_EQ(ui::cellBackground(White, false, palette), palette.color(QPalette::Base));
        EXPECT_NE(ui::cellBackground(White, true, palette), palette.color(QPalette::Base));
        EXPECT_NE(ui::cellBackground(CellColour::Action, false, palette),
                  ui::cellBackground(CellColour::Hover, false, palette));
        EXPECT_EQ(ui::cellForeground(Black, White, palette), palette.color(QPalette::Text));
        EXPECT_EQ(ui::cellForeground(0x0000FF, White, palette), QColor(255, 0, 0));
    }
}

TEST(Theme, texts_stay_legible_on_every_ground_in_both_palettes) {
    for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
        for (const Colour ground : {White, CellColour::Action, CellColour::Hover, Colour{0x80FFFF}, Colour{0x0000FF},
                                    Colour{0x00FFFF}, Colour{0x00FF00}, Colour{0x800000}}) {
            for (const bool stripe : {false, true}) {
                EXPECT_GE(
                    Contrast(ui::cellBackground(ground, stripe, palette), ui::cellForeground(Black, ground, palette)),
                    4.5)
                    << std::hex << ground;
            }
        }
    }
}

TEST(Theme, a_coloured_text_on_a_neutral_ground_keeps_its_colour_as_far_as_it_can_be_read) {
    constexpr Colour Green = 0x00C000, Grey = 0x808080, Red = 0x0000FF;
    for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
        for (const ui::RowTint tint : {ui::RowTint::None, ui::RowTint::Current, ui::RowTint::Block}) {
            const QColor ground(ui::tinted(palette.color(QPalette::Base), tint, palette).rgb()); // as it is painted
            for (const Colour colour : {Green, Grey, Red}) {
                EXPECT_GE(Contrast(ground, ui::cellInk(colour, ground, palette, true)), 3.0) << std::hex << colour;
                const double most = Contrast(ground, palette.color(QPalette::Text));
                EXPECT_GE(Contrast(ground, ui::cellInk(colour, ground, palette, false)), std::min(4.5, most))
                    << std::hex << colour;
            }
        }
    }
    const QColor dark(20, 20, 20);
    EXPECT_EQ(ui::cellInk(Green, dark, DarkPalette(), true), QColor(0, 192, 0));
}

TEST(Theme, a_grey_mark_can_be_told_from_the_button_that_it_stands_on_in_both_palettes) {
    constexpr Colour Grey = 0x808080;
    for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
        for (const Colour ground : {CellColour::Action, CellColour::Hover}) {
            EXPECT_GE(Contrast(ui::cellBackground(ground, false, palette), ui::cellForeground(Grey, ground, palette)),
                      3.0);
        }
    }
    EXPECT_EQ(ui::cellForeground(Grey, CellColour::Action, LightPalette()), QColor(128, 128, 128));
}

TEST(Theme, has_a_drawing_for_every_key_and_picture) {
    for (const std::string_view key :
         {std::string_view("Ende"), std::string_view("EYE"), std::string_view("636I259"), std::string_view("Schaltuhr"),
          std::string_view("x1504"), std::string_view("Neu"), std::string_view("GastCard"), std::string_view("PROG"),
          std::string_view("lock4"), u8"Zurück"_w, std::string_view("Speichern"), std::string_view("Prog."),
          std::string_view("SaveHistory"), std::string_view("Suchen"), std::string_view("Aufsteigend sortieren"),
          std::string_view("CSV-Print")}) {
        EXPECT_FALSE(ui::toolIcon(key).isNull()) << key;
    }
    EXPECT_TRUE(ui::toolIcon("nothing").isNull());
    for (int id = 1; id <= 5; ++id) {
        EXPECT_FALSE(ui::pictureIcon(ui::PictureSet::State, id).isNull()) << id;
    }
    EXPECT_FALSE(ui::pictureIcon(ui::PictureSet::Channel, 7).isNull());
    EXPECT_FALSE(ui::pictureIcon(ui::PictureSet::Channel, 8).isNull());
    EXPECT_FALSE(ui::pictureIcon(ui::PictureSet::Adapter, 1).isNull());
    EXPECT_FALSE(ui::pictureIcon(ui::PictureSet::Adapter, 2).isNull());
    EXPECT_TRUE(ui::pictureIcon(ui::PictureSet::Channel, 0).isNull());
    EXPECT_TRUE(ui::pictureIcon(ui::PictureSet::None, 7).isNull());
    EXPECT_FALSE(ui::programIcon().isNull());
}

TEST(Theme, draws_in_the_colour_of_the_palettes_text) {
    const QPalette before = QApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::WindowText, QColor(250, 10, 10));
    QApplication::setPalette(palette);
    const QImage drawn = ui::ownIcon(QStringLiteral("calendar")).pixmap(QSize(32, 32)).toImage();
    QApplication::setPalette(before);
    int inked = 0;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            const QColor pixel = drawn.pixelColor(x, y);
            inked += pixel.alpha() > 200 ? 1 : 0;
            EXPECT_TRUE(pixel.alpha() < 200 || (pixel.red() > 200 && pixel.green() < 60)) << x << "," << y;
        }
    }
    EXPECT_GT(inked, 50);
}

TEST(Theme, the_lamp_shows_its_colour_in_the_middle) {
    const QImage lamp = ui::lampPixmap(0x00FFFF, 20, 2).toImage();
    EXPECT_EQ(lamp.size(), QSize(40, 40));
    EXPECT_EQ(lamp.pixelColor(20, 20), QColor(255, 255, 0));
    EXPECT_EQ(lamp.pixelColor(0, 0).alpha(), 0);
}

// ---- mnemonics

TEST(Mnemonics, gives_every_entry_a_letter_of_its_own) {
    QMenu menu;
    ui::uniqueMnemonics(&menu);
    menu.addAction(QStringLiteral("Schnittstelle"));
    menu.addAction(QStringLiteral("Sprache"));
    menu.addSeparator();
    menu.addAction(QStringLiteral("Schloss suchen"));
    EXPECT_EQ(doubtfulMnemonics(&menu), QStringList());
    EXPECT_EQ(menu.actions()[0]->text(), QStringLiteral("&Schnittstelle"));
    EXPECT_EQ(menu.actions()[1]->text(), QStringLiteral("S&prache"));
    EXPECT_EQ(menu.actions()[3]->text(), QStringLiteral("S&chloss suchen"));
}

TEST(Mnemonics, follows_new_texts_and_keeps_an_ampersand) {
    QMenu menu;
    QAction* one = menu.addAction(QStringLiteral("Datei"));
    QAction* two = menu.addAction(QStringLiteral("Hilfe"));
    ui::uniqueMnemonics(&menu);
    two->setText(QStringLiteral("Druck && Daten"));
    EXPECT_EQ(one->text(), QStringLiteral("&Datei"));
    EXPECT_EQ(two->text(), QStringLiteral("D&ruck && Daten"));
}

TEST(Mnemonics, leaves_an_entry_alone_whose_letters_are_all_taken) {
    QMenu menu;
    menu.addAction(QStringLiteral("?"));
    menu.addAction(QStringLiteral("A"));
    menu.addAction(QStringLiteral("a"));
    ui::uniqueMnemonics(&menu);
    EXPECT_EQ(menu.actions()[0]->text(), QStringLiteral("?"));
    EXPECT_EQ(menu.actions()[1]->text(), QStringLiteral("&A"));
    EXPECT_EQ(menu.actions()[2]->text(), QStringLiteral("a"));
}

// ---- geometry

struct Geometry_Test : ::testing::Test {
    Geometry_Test() { QFile::remove(ui::geometryFile()); }
    ~Geometry_Test() override { QFile::remove(ui::geometryFile()); }
};

TEST_F(Geometry_Test, gives_a_window_its_place_and_size_again) {
    QWidget window;
    window.setGeometry(40, 50, 300, 200);
    window.show();
    ui::saveGeometry(&window, QStringLiteral("F13"));
    QWidget again;
    EXPECT_TRUE(ui::restoreGeometry(&again, QStringLiteral("F13")));
    EXPECT_EQ(again.size(), QSize(300, 200));
    EXPECT_EQ(again.geometry().topLeft(), QPoint(40, 50));
    EXPECT_FALSE(ui::restoreGeometry(&again, QStringLiteral("F99")));
}

TEST_F(Geometry_Test, never_puts_a_window_off_the_screen) {
    QWidget window;
    window.setGeometry(5000, 4000, 300, 200);
    window.show();
    ui::saveGeometry(&window, QStringLiteral("F13"));
    QWidget again;
    ASSERT_TRUE(ui::restoreGeometry(&again, QStringLiteral("F13")));
    EXPECT_TRUE(QApplication::primaryScreen()->availableGeometry().contains(again.geometry()));
}

// ---- month view

TEST(MonthView, begins_weeks_on_monday_in_the_programs_language) {
    ui::MonthView month(QStringLiteral("F11.MonthView"));
    month.setLanguage("Francais");
    EXPECT_EQ(month.firstDayOfWeek(), Qt::Monday);
    EXPECT_EQ(month.locale().language(), QLocale::French);
    month.setLanguage("English");
    EXPECT_EQ(month.locale().language(), QLocale::English);
    EXPECT_EQ(month.firstDayOfWeek(), Qt::Monday);
    month.setLanguage("?");
    EXPECT_EQ(month.locale().language(), QLocale::German);
}

TEST(MonthView, says_of_every_part_what_it_is_in_the_language_in_use) {
    ui::MonthView month(QStringLiteral("F11.MonthView"));
    const auto part = [&month](const char* name) { return month.findChild<QWidget*>(QString::fromLatin1(name)); };
    month.setLanguage("Deutsch");
    EXPECT_EQ(part("qt_calendar_prevmonth")->toolTip(), QStringLiteral("Vorheriger Monat"));
    EXPECT_EQ(part("qt_calendar_nextmonth")->accessibleName(), QString::fromUtf8("Nächster Monat"));
    EXPECT_EQ(part("qt_calendar_yearbutton")->accessibleName(), QStringLiteral("Jahr"));
    month.setLanguage("English");
    EXPECT_EQ(part("qt_calendar_prevmonth")->accessibleName(), QStringLiteral("Previous month"));
    EXPECT_EQ(part("qt_calendar_monthbutton")->toolTip(), QStringLiteral("Month"));
    EXPECT_EQ(part("qt_calendar_calendarview")->accessibleName(), QStringLiteral("Days"));
}

/// The colour of the darkest or brightest ink of an icon.
QColor InkOf(const QIcon& icon) {
    const QImage drawn = icon.pixmap(QSize(32, 32)).toImage();
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            if (drawn.pixelColor(x, y).alpha() == 255) {
                return drawn.pixelColor(x, y);
            }
        }
    }
    return {};
}

TEST(MonthView, draws_its_arrows_as_legible_as_the_words_between_them) {
    const QPalette before = QApplication::palette();
    ui::MonthView month(QStringLiteral("F11.MonthView"));
    QPalette palette = before;
    palette.setColor(QPalette::Highlight, QColor(20, 60, 140));
    palette.setColor(QPalette::HighlightedText, QColor(250, 250, 250));
    QApplication::setPalette(palette);
    UiFixture::Settle();
    for (const char* name : {"qt_calendar_prevmonth", "qt_calendar_nextmonth"}) {
        EXPECT_EQ(InkOf(month.findChild<QToolButton*>(QString::fromLatin1(name))->icon()), QColor(250, 250, 250));
    }
    const QColor words =
        month.findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"))->palette().color(QPalette::ButtonText);
    QApplication::setPalette(before);
    EXPECT_EQ(words, QColor(250, 250, 250));
}

TEST(MonthView, holds_a_day_and_its_limit) {
    ui::MonthView month(QStringLiteral("F11.MonthView"));
    month.setLastDay({.Year = 2026, .Month = 3, .Day = 5});
    month.setDay({.Year = 2026, .Month = 2, .Day = 13});
    EXPECT_EQ(month.day(), (Datum{.Year = 2026, .Month = 2, .Day = 13}));
    month.setDay({.Year = 2026, .Month = 4, .Day = 1});
    EXPECT_EQ(month.day(), (Datum{.Year = 2026, .Month = 3, .Day = 5}));
}

TEST(MonthView, tells_the_day_chosen_with_return_once) {
    QWidget window;
    window.resize(300, 200);
    Present(window);
    ui::MonthView month(QStringLiteral("F11.MonthView"), &window);
    std::vector<Datum> picked;
    month.onPick = [&](const Datum& day) {
        picked.push_back(day);
        month.close();
    };
    month.setDay({.Year = 2026, .Month = 2, .Day = 13});
    month.popUpUnder(&window);
    UiFixture::Settle();
    QWidget* view = month.findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
    ASSERT_NE(view, nullptr);
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Left);
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(picked, (std::vector<Datum>{{.Year = 2026, .Month = 2, .Day = 12}}));
}

} // namespace
} // namespace qvm::test
