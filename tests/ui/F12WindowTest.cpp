// The lock window and that of a lock's units on the screen: grid, editors, menus, keys.

#include "F12Window.h"

#include "F20Window.h"
#include "GridView.h"
#include "LockWindows.h"
#include "OverlayBoxes.h"
#include "UiFixture.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace qvm::test {
namespace {

struct F12_Window : UiFixture {
    std::unique_ptr<ui::F12Window> window;
    std::unique_ptr<ui::F20Window> units;
    ui::GridView* grid = nullptr;

    void Open(std::string_view language = "Deutsch") {
        SettledLock(1, "Tor", "00.0A.10.01");
        SettledLock(2, "Keller", "00.0B.10.02");
        Start(language);
        window = std::make_unique<ui::F12Window>(Model(), nullptr);
        units = std::make_unique<ui::F20Window>(programm->Locks->F20, window.get());
        grid = window->findChild<ui::GridView*>(QStringLiteral("F12.FGK12"));
        Model().F12_FormLaden();
        Present(*window);
        window->resize(1100, 700);
        Settle();
        grid->setFocus();
    }
    F12& Model() { return programm->Locks->F12; }
    const std::string& Text(int row, int column) { return Model().FGK12.Text(row, column); }
    int Picture(int row, int column) { return Model().FGK12.At(row, column).Picture; }
    void Click(int row, int column, Qt::MouseButton button = Qt::LeftButton) { ClickCell(*grid, row, column, button); }
    static QWidget* Keyboard() { return QApplication::focusWidget(); }
    /// Each key to whatever has the keyboard then.
    static void TypeKeys(std::string_view keys) {
        for (const char key : keys) {
            QTest::keyClick(Keyboard(), key);
        }
    }
    static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(Keyboard(), static_cast<Qt::Key>(key), modifiers);
        Settle();
    }
    template <class Widget>
    Widget* Named(const char* name) {
        return window->findChild<Widget*>(QString::fromUtf8(name));
    }
    /// The menu that is open, and closes with this.
    std::string OpenMenu() {
        for (QMenu* menu : window->findChildren<QMenu*>()) {
            if (menu->isVisible()) {
                menu->close();
                return menu->objectName().toStdString();
            }
        }
        return {};
    }
};

TEST_F(F12_Window, shows_the_locks_with_the_keyboard_in_the_grid) {
    Open();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->focusWidget()->objectName(), QStringLiteral("F12.FGK12"));
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.rowCount(), 200);
    EXPECT_EQ(model.index(0, 1).data().toString(), QStringLiteral("Tor"));
    for (const int hidden : {3, 13, 14, 16, 18}) {
        EXPECT_TRUE(grid->isColumnHidden(hidden)) << hidden;
    }
}

TEST_F(F12_Window, shows_the_adapters_once_two_were_found) {
    Open();
    AddAdapter("/1/2/3/4", "PROGSTATION-1", "1");
    AddAdapter("/1/2/3/5", "PROGSTATION-2", "2");
    Model().F12_Schliessen();
    Model().F12_FormLaden();
    EXPECT_FALSE(grid->isColumnHidden(13));
}

TEST_F(F12_Window, its_headings_of_pictures_have_a_tip_and_a_spoken_name_and_differ) {
    Open();
    const auto& model = grid->gridModel();
    QList<QImage> seen;
    for (int column = 4; column <= 11; ++column) {
        const QString name = model.headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
        EXPECT_FALSE(name.isEmpty()) << column;
        EXPECT_EQ(model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString(), name);
        EXPECT_EQ(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(), QString());
        const auto icon = model.headerData(column, Qt::Horizontal, Qt::DecorationRole).value<QIcon>();
        ASSERT_FALSE(icon.isNull()) << column;
        const QImage image = icon.pixmap(24, 24).toImage();
        EXPECT_FALSE(seen.contains(image)) << column;
        seen += image;
    }
    EXPECT_EQ(model.headerData(9, Qt::Horizontal, Qt::AccessibleTextRole).toString(), QString::fromUtf8("Priorität"));
    EXPECT_TRUE(model.headerData(1, Qt::Horizontal, Qt::DecorationRole).value<QIcon>().isNull());
}

TEST_F(F12_Window, its_pictures_differ_without_colour_and_are_spoken) {
    Open();
    QList<QImage> seen;
    for (const int id : {LockPicture::On, LockPicture::Off, LockPicture::NotApplicable}) {
        const QIcon icon = ui::pictureIcon(ui::PictureSet::Lock, id);
        ASSERT_FALSE(icon.isNull()) << id;
        const QImage image = icon.pixmap(24, 24).toImage().convertToFormat(QImage::Format_Alpha8);
        EXPECT_FALSE(seen.contains(image)) << id;
        seen += image;
    }
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.index(0, 5).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("Nur freigegebene Kalender / Gruppen ein"));
    EXPECT_EQ(model.index(9, 10).data(Qt::AccessibleTextRole).toString(), QStringLiteral("EMI nicht einstellbar"));
}

TEST_F(F12_Window, a_lock_is_named_numbered_and_set_by_the_keyboard_alone) {
    Open();
    grid->setCurrentCell(4, 1);
    TypeKeys("Lager");
    EXPECT_EQ(Keyboard()->objectName(), QStringLiteral("F12.Text1"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(4, 1), "Lager");
    ASSERT_TRUE(grid->hasFocus());
    TypeKeys("00");
    EXPECT_EQ(Keyboard()->objectName(), QStringLiteral("F12.Text4"));
    TypeKeys("ag1001"); // no g; behind the last box nothing is entered
    EXPECT_EQ(Keyboard()->objectName(), QStringLiteral("F12.Text6"));
    TypeKeys("7");
    EXPECT_EQ(Named<QLineEdit>("F12.Text4")->text(), QStringLiteral("A1"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(4, 2), "00.A1.00.17");
    ASSERT_TRUE(grid->hasFocus());
    Press(Qt::Key_Tab);
    EXPECT_EQ(Model().FGK12.Column, 4);
    Press(Qt::Key_Space);
    EXPECT_EQ(Picture(4, 4), LockPicture::Off);
    grid->setCurrentCell(4, 17);
    Press(Qt::Key_Return);
    EXPECT_EQ(Keyboard()->objectName(), QStringLiteral("F12.List5"));
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(4, 17), u8"Zimmertür"_w);
    ASSERT_TRUE(grid->hasFocus());
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(4, 17), "");
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_NE(Text(4, 17), "");
}

TEST_F(F12_Window, the_boxes_of_a_serial_number_lie_over_its_cell_and_escape_closes_them) {
    Open();
    grid->setCurrentCell(1, 2);
    Press(Qt::Key_Return);
    auto* boxes = grid->findChild<ui::OverlayBoxes*>();
    ASSERT_TRUE(boxes->isVisible());
    EXPECT_EQ(boxes->geometry(), grid->cellRect(1, 2));
    int right = -1;
    for (const char* name : {"F12.Text3", "F12.Text4", "F12.Text5", "F12.Text6"}) {
        const auto* box = Named<QLineEdit>(name);
        EXPECT_GT(box->x(), right) << name;
        EXPECT_NEAR(box->width(), (boxes->width() - 5) / 4, 1) << name; // five lines around and between them
        EXPECT_TRUE(box->accessibleName().startsWith(QStringLiteral("Serien-Nr. "))) << name;
        EXPECT_GE(box->width(), QFontMetrics(box->font()).horizontalAdvance(QStringLiteral("DD")) + 8) << name;
        right = box->x();
    }
    TypeKeys("12");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(boxes->isVisible());
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(Text(1, 2), "00.0A.10.01");
    EXPECT_TRUE(window->isVisible());
}

TEST_F(F12_Window, a_box_that_is_clicked_is_emptied_and_a_click_elsewhere_takes_the_number_over) {
    Open();
    grid->setCurrentCell(1, 2);
    Press(Qt::Key_Return);
    TypeKeys("0C000009");
    auto* second = Named<QLineEdit>("F12.Text4");
    QTest::mouseClick(second, Qt::LeftButton);
    Settle();
    EXPECT_EQ(second->text(), QString());
    TypeKeys("77");
    EXPECT_EQ(Keyboard()->objectName(), QStringLiteral("F12.Text5"));
    EXPECT_EQ(Named<QLineEdit>("F12.Text5")->text(), QString());
    TypeKeys("66");
    TypeKeys("55");
    Click(3, 12);
    EXPECT_EQ(Text(1, 2), "0C.77.66.55");
    EXPECT_FALSE(grid->findChild<ui::OverlayBoxes*>()->isVisible());
}

TEST_F(F12_Window, a_click_toggles_a_switch_and_opens_the_menus) {
    Open();
    Click(1, 5);
    EXPECT_EQ(Picture(1, 5), LockPicture::Off);
    Click(1, 2);
    EXPECT_EQ(OpenMenu(), "F12.FGK12_AN");
    Click(1, 1, Qt::RightButton);
    EXPECT_EQ(OpenMenu(), "F12.F12_del");
    grid->setCurrentCell(1, 2);
    Press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(OpenMenu(), "F12.FGK12_AN");
}

TEST_F(F12_Window, says_in_sign_tip_and_status_line_that_two_locks_have_one_number) {
    Open();
    Model().Aendern(Word::StepEdit, [this] { Model().FGK12.SetText(2, 2, "00.0A.10.01"); });
    Settle();
    const auto& model = grid->gridModel();
    EXPECT_FALSE(model.index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_TRUE(model.index(2, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(model.index(0, 2).data(Qt::ToolTipRole).toString(),
              QStringLiteral("Diese Seriennummer hat auch: Schloss 2: Keller"));
    EXPECT_EQ(Named<QLabel>("F12.Doppelt")->accessibleName(), model.index(0, 2).data(Qt::ToolTipRole).toString());
}

TEST_F(F12_Window, a_name_that_another_lock_has_stays_in_its_box_which_keeps_the_keyboard) {
    Open();
    grid->setCurrentCell(1, 1);
    Press(Qt::Key_Return);
    Named<QLineEdit>("F12.Text1")->clear();
    TypeKeys("Keller");
    Expect(62, Answer::Ok);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Named<QLineEdit>("F12.Text1")->isVisible());
    EXPECT_EQ(Keyboard()->objectName(), QStringLiteral("F12.Text1"));
    EXPECT_EQ(Text(1, 1), "Tor");
}

TEST_F(F12_Window, a_scan_for_a_unit_is_seen_channel_by_channel_and_ended_by_escape) {
    Open();
    int ended = 0;
    Model().SNA_Function_Click();
    F20& model = programm->Locks->F20;
    model.Suche_Abbrechen = [&ended] { ++ended; };
    model.Suche_Zeigen(3, "Channel 3");
    Present(*units);
    Settle();
    auto* bar = units->findChild<QProgressBar*>(QStringLiteral("F20.F20Prg01"));
    auto* state = units->findChild<QLabel*>(QStringLiteral("F20.Suchstand"));
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->value() * 100 + bar->maximum(), 312);
    EXPECT_EQ(state->accessibleName(), QStringLiteral("Channel 3"));
    EXPECT_FALSE(units->findChild<QPushButton*>(QStringLiteral("F20.Command2"))->isEnabled());
    QTest::keyClick(units.get(), Qt::Key_Escape);
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(units->isVisible());
    model.Suche_Endet("Ended");
    Settle();
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(state->accessibleName(), QString());
}

TEST_F(F12_Window, the_units_of_a_lock_stand_over_it_and_are_set_by_keyboard) {
    Open();
    grid->setCurrentCell(2, 2);
    Model().SNA_Function_Click();
    Settle();
    ASSERT_TRUE(units->isVisible());
    EXPECT_FALSE(window->isEnabled());
    auto* rows = units->findChild<ui::GridView*>(QStringLiteral("F20.FGK20"));
    QApplication::setActiveWindow(units.get());
    rows->setFocus();
    rows->setCurrentCell(1, 1);
    TypeKeys("Taste");
    Press(Qt::Key_Return);
    TypeKeys("00003001");
    Press(Qt::Key_Return);
    F20& model = programm->Locks->F20;
    EXPECT_EQ(model.FGK20.Text(1, 1) + " " + model.FGK20.Text(1, 2), "Taste 00.00.30.01");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(model.FGK20.Text(1, 2), "");
    Press(Qt::Key_Y, Qt::ControlModifier);
    units->findChild<QComboBox*>(QStringLiteral("F20.Combo1"))->setFocus();
    Press(Qt::Key_Down);
    EXPECT_EQ(model.Einstellung.Mode, 1);
    EXPECT_TRUE(units->findChild<QComboBox*>(QStringLiteral("F20.Combo3"))->isEnabled());
    model.Combo4_Click(5);
    units->findChild<QPushButton*>(QStringLiteral("F20.Command2"))->click();
    EXPECT_FALSE(units->isVisible());
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(Text(2, 11), "STE");
    EXPECT_EQ(world.Disk.Files["/q/DAT/T6WRSSISN.TSD"].substr(241, 12), "30000 0 0 5 ");
}

} // namespace
} // namespace qvm::test
