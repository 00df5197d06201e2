// Bindings between control models and widgets, both ways.

#include "Bind.h"

#include "PaintedTexts.h"
#include "Pictures.h"
#include "TextEdge.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace qvm::test {
namespace {

const QString Name = QStringLiteral("F0.Control");

TEST(TextEdge, carries_all_256_bytes_there_and_back) {
    std::string bytes;
    for (int n = 0; n < 256; ++n) {
        bytes += static_cast<char>(n);
    }
    EXPECT_EQ(ui::toQt(bytes).size(), 256);
    EXPECT_EQ(ui::fromQt(ui::toQt(bytes)), bytes);
    EXPECT_EQ(ui::toQt("\x80"), QString::fromUtf8("€"));
    EXPECT_EQ(ui::fromQt(QString::fromUtf8("Tür €")), "T\xFCr \x80");
    EXPECT_EQ(ui::fromQt(QString::fromUtf8("字😀")), "??");
    EXPECT_EQ(ui::captionOf("A&B"), QStringLiteral("A&&B"));
}

TEST(Bind, a_label_shows_text_colour_and_state) {
    Label model;
    QLabel widget;
    model.Text = std::string("<b>Tor</b>");
    ui::bind(model, &widget, Name);
    EXPECT_EQ(widget.objectName(), Name);
    EXPECT_EQ(widget.text(), QStringLiteral("<b>Tor</b>"));
    EXPECT_EQ(widget.textFormat(), Qt::PlainText);
    EXPECT_EQ(widget.accessibleName(), QStringLiteral("<b>Tor</b>"));
    model.ForeColor = Colour{0x0000FF};
    const QColor red = widget.palette().color(QPalette::WindowText);
    EXPECT_GE(wcagContrast(red, widget.palette().color(QPalette::Window)), 4.5);
    EXPECT_GT(red.red(), 150);
    EXPECT_EQ(red.green(), 0);
    EXPECT_EQ(red.blue(), 0);
    model.ForeColor = Black;
    EXPECT_EQ(widget.palette().color(QPalette::WindowText), QApplication::palette().color(QPalette::WindowText));
    model.Enabled = false;
    model.Visible = false;
    EXPECT_FALSE(widget.isEnabled());
    EXPECT_TRUE(widget.isHidden());
}

TEST(Bind, lets_the_model_go_when_the_widget_dies) {
    Label model;
    {
        QLabel widget;
        ui::bind(model, &widget, Name);
        EXPECT_TRUE(model.Text.Changed);
    }
    EXPECT_FALSE(model.Text.Changed);
    EXPECT_FALSE(model.Visible.Changed);
    model.Text = std::string("x");
}

TEST(Bind, a_text_box_goes_both_ways_and_keeps_its_length) {
    TextBox model;
    model.MaxLength = 3;
    QLineEdit widget;
    ui::bind(model, &widget, Name);
    model.Text = std::string("ab");
    EXPECT_EQ(widget.text(), QStringLiteral("ab"));
    QTest::keyClicks(&widget, QStringLiteral("cd"));
    EXPECT_EQ(model.Text(), "abc");
}

TEST(Bind, a_button_calls_its_handler_and_takes_an_ampersand_for_what_it_is) {
    Button model;
    QPushButton widget;
    int clicks = 0;
    ui::bind(model, &widget, Name, [&] { ++clicks; });
    model.Text = std::string("A & B");
    EXPECT_EQ(widget.text(), QStringLiteral("A && B"));
    EXPECT_EQ(widget.accessibleName(), QStringLiteral("A & B"));
    widget.click();
    model.Enabled = false;
    widget.click();
    EXPECT_EQ(clicks, 1);
}

TEST(Bind, a_check_box_asks_its_handler_and_shows_what_that_left) {
    CheckBox model;
    QCheckBox widget;
    std::vector<bool> seen;
    bool refuses = true;
    ui::bind(model, &widget, Name, [&](bool on) {
        EXPECT_FALSE(model.Checked);
        seen.push_back(on);
        model.Checked = on && !refuses;
    });
    widget.click();
    EXPECT_EQ(seen, (std::vector<bool>{true}));
    EXPECT_FALSE(widget.isChecked());
    refuses = false;
    widget.click();
    EXPECT_TRUE(widget.isChecked());
    EXPECT_TRUE(model.Checked);
}

TEST(Bind, a_check_box_without_a_handler_changes_its_model) {
    CheckBox model;
    QCheckBox widget;
    ui::bind(model, &widget, Name);
    widget.click();
    EXPECT_TRUE(model.Checked);
    model.Checked = false;
    EXPECT_FALSE(widget.isChecked());
}

TEST(Bind, a_check_box_for_display_takes_neither_mouse_nor_keys) {
    CheckBox model;
    QWidget window;
    auto* widget = new QCheckBox(&window);
    ui::bindDisplay(model, widget, Name);
    Present(window);
    QTest::mouseClick(&window, Qt::LeftButton, Qt::NoModifier, widget->geometry().center());
    EXPECT_FALSE(model.Checked);
    EXPECT_EQ(widget->focusPolicy(), Qt::NoFocus);
    model.Checked = true;
    EXPECT_TRUE(widget->isChecked());
}

TEST(Bind, a_bar_holds_a_value_beyond_its_ends) {
    ProgressBar model;
    QProgressBar widget;
    ui::bind(model, &widget, Name);
    model.Maximum = 160;
    model.Value = 170;
    EXPECT_EQ(widget.maximum(), 160);
    EXPECT_EQ(widget.value(), 160);
    model.Maximum = 200;
    EXPECT_EQ(widget.value(), 170);
}

TEST(Bind, a_combo_box_tells_only_the_users_own_choice) {
    ListBox model;
    QComboBox widget;
    std::vector<int> chosen;
    ui::bind(model, &widget, Name, [&](int index) {
        EXPECT_EQ(model.Selected, 1);
        chosen.push_back(index);
        model.Selected = index;
    });
    model.Entries = {"Kanal-1", "Kanal-2", "Kanal-3"};
    model.Selected = 1;
    EXPECT_EQ(widget.currentIndex(), 1);
    EXPECT_TRUE(chosen.empty());
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(chosen, (std::vector<int>{2}));
    EXPECT_EQ(widget.currentIndex(), 2);
    model.Entries = {"nur"};
    EXPECT_TRUE(chosen.size() == 1U);
}

TEST(Bind, a_list_tells_the_users_choice_and_shows_the_models) {
    ListBox model;
    QListWidget widget;
    std::vector<int> chosen;
    model.Entries = {"Deutsch", "English"};
    model.Selected = 0;
    ui::bind(model, &widget, Name, [&](int index) {
        chosen.push_back(index);
        model.Selected = index;
    });
    EXPECT_EQ(widget.currentRow(), 0);
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(chosen, (std::vector<int>{1}));
    EXPECT_EQ(model.Selected, 1);
    model.Selected = 0;
    EXPECT_EQ(widget.currentRow(), 0);
    EXPECT_EQ(chosen.size(), 1U);
}

TEST(Bind, a_choice_that_is_refused_does_not_stay_on_the_screen) {
    ListBox model;
    QComboBox box;
    model.Entries = {"Kanal-1", "Kanal-2"};
    model.Selected = 0;
    ui::bind(model, &box, Name, [](int) {});
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.currentIndex(), 0);
}

TEST(Bind, a_picture_follows_its_id) {
    Picture model;
    QLabel widget;
    ui::bind(model, &widget, Name, ui::PictureSet::State, 32);
    EXPECT_TRUE(widget.pixmap(Qt::ReturnByValue).isNull());
    model.Id = StatePicture::Image3;
    EXPECT_FALSE(widget.pixmap(Qt::ReturnByValue).isNull());
    model.Id = 99;
    EXPECT_TRUE(widget.pixmap(Qt::ReturnByValue).isNull());
}

TEST(Bind, a_picture_says_its_name) {
    Picture model;
    QLabel widget;
    ui::bind(model, &widget, Name, ui::PictureSet::State, 32);
    EXPECT_EQ(widget.accessibleName(), QString());
    model.Name = std::string("Zustand");
    EXPECT_EQ(widget.accessibleName(), QStringLiteral("Zustand"));
    EXPECT_EQ(widget.toolTip(), QStringLiteral("Zustand"));
    model.Name = std::string();
    EXPECT_EQ(widget.accessibleName(), QString());
}

TEST(Bind, a_menu_entry_without_a_text_is_not_there) {
    MenuEntry model;
    QAction action;
    int clicks = 0;
    ui::bind(model, &action, Name, [&] { ++clicks; });
    EXPECT_FALSE(action.isVisible());
    model.Text = std::string("Hilfe");
    EXPECT_TRUE(action.isVisible());
    action.trigger();
    model.Enabled = false;
    action.trigger();
    EXPECT_EQ(clicks, 1);
}

// ---- windows

struct BindWindow_Test : ::testing::Test {
    Window model;
    QWidget window;
    int Closed = 0;
    int Escaped = 0;

    BindWindow_Test() {
        ui::bind(model, &window, QStringLiteral("F0"),
                 {.onClose = [this] { ++Closed; }, .onEscape = [this] { ++Escaped; }}, false);
    }
};

TEST_F(BindWindow_Test, shows_title_and_visibility) {
    EXPECT_FALSE(window.isVisible());
    model.Title = std::string("Verwaltung f\xFCr T\xFCren");
    model.Visible = true;
    EXPECT_EQ(window.windowTitle(), QString::fromUtf8("Verwaltung für Türen"));
    EXPECT_TRUE(window.isVisible());
    model.Visible = false;
    EXPECT_FALSE(window.isVisible());
}

TEST_F(BindWindow_Test, asks_the_handler_instead_of_closing) {
    model.Visible = true;
    EXPECT_FALSE(window.close());
    EXPECT_EQ(Closed, 1);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(BindWindow_Test, cannot_be_closed_while_it_is_disabled) {
    model.Visible = true;
    model.Enabled = false;
    window.close();
    EXPECT_EQ(Closed, 0);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(BindWindow_Test, hears_escape_that_no_control_wanted) {
    auto* edit = new QLineEdit(&window);
    model.Visible = true;
    Present(window);
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_EQ(Escaped, 1);
}

TEST_F(BindWindow_Test, gives_the_focus_back_when_it_is_enabled_again) {
    auto* first = new QLineEdit(&window);
    auto* second = new QLineEdit(&window);
    model.Visible = true;
    Present(window);
    second->setFocus();
    model.Enabled = false;
    EXPECT_FALSE(first->isEnabled());
    model.Enabled = true;
    EXPECT_TRUE(second->hasFocus());
}

TEST_F(BindWindow_Test, comes_back_where_it_was) {
    const QRect room = window.screen()->availableGeometry();
    const QRect place(room.topLeft() + QPoint(60, 70), QSize(200, 100));
    model.Visible = true;
    window.setGeometry(place);
    model.Visible = false;
    model.Visible = true;
    EXPECT_EQ(window.geometry(), place);
}

TEST_F(BindWindow_Test, comes_back_on_the_screen_when_its_place_is_gone) {
    const QRect room = window.screen()->availableGeometry();
    model.Visible = true;
    // As on a screen that was taken away.
    window.setGeometry(QRect(room.bottomRight() + QPoint(3000, 40), QSize(200, 100)));
    model.Visible = false;
    model.Visible = true;
    EXPECT_TRUE(room.contains(window.geometry())) << window.x() << ' ' << window.y();
    EXPECT_EQ(window.size(), QSize(200, 100));
}

// ---- tool bars

struct ToolBar_Test : ::testing::Test {
    ToolButton first{.Key = "PROG"};
    ToolButton second{.Key = "EYE"};
    QWidget window;
    QToolBar* bar = nullptr;
    QToolButton* one = nullptr;
    QToolButton* two = nullptr;
    std::vector<std::string> Pressed;

    ToolBar_Test() {
        bar = new QToolBar(&window);
        bar->setObjectName(QStringLiteral("F2.Toolbar1"));
        bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        const auto press = [this](std::string_view key) { Pressed.emplace_back(key); };
        one = ui::addToolButton(first, bar, press);
        two = ui::addToolButton(second, bar, press);
        first.Tip = std::string("Markierte Schl\xF6sser programmieren");
        second.Tip = std::string("Historie");
        bar->resize(bar->sizeHint());
        Present(window);
    }
};

TEST_F(ToolBar_Test, shows_icon_tip_and_a_caption_in_two_lines) {
    EXPECT_EQ(one->objectName(), QStringLiteral("F2.Toolbar1.PROG"));
    EXPECT_EQ(one->text(), QString::fromUtf8("Markierte Schlösser\nprogrammieren"));
    EXPECT_EQ(two->text(), QStringLiteral("Historie\n ")); // so that the icons stand in one row
    EXPECT_EQ(one->toolTip(), QString::fromUtf8("Markierte Schlösser programmieren"));
    EXPECT_EQ(one->accessibleName(), one->toolTip());
    EXPECT_FALSE(one->icon().isNull());
}

TEST_F(ToolBar_Test, presses_by_mouse_space_and_return) {
    QTest::mouseClick(one, Qt::LeftButton);
    one->setFocus();
    QTest::keyClick(one, Qt::Key_Space);
    QTest::keyClick(one, Qt::Key_Return);
    EXPECT_EQ(Pressed, (std::vector<std::string>{"PROG", "PROG", "PROG"}));
}

TEST_F(ToolBar_Test, is_reached_by_tab_in_order_and_passes_what_is_disabled) {
    EXPECT_EQ(tabOrder(&window), (QStringList{QStringLiteral("F2.Toolbar1.PROG"), QStringLiteral("F2.Toolbar1.EYE")}));
    second.Enabled = false;
    EXPECT_FALSE(two->isEnabled());
    one->setFocus();
    EXPECT_EQ(tabOrder(&window), (QStringList{QStringLiteral("F2.Toolbar1.PROG")}));
    first.Visible = false;
    UiFixture::Settle();
    EXPECT_FALSE(one->isVisible());
}

} // namespace
} // namespace qvm::test
