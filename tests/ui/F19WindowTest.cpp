// What a scan found, on the screen: rows, signs, bars, keys, and the accessible tree.

#include "F19Window.h"

#include "F12Window.h"
#include "F20Window.h"
#include "GridView.h"
#include "LockWindows.h"
#include "UiFixture.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace qvm::test {
namespace {

struct F19_Window : UiFixture {
    std::unique_ptr<ui::F12Window> locks;
    std::unique_ptr<ui::F20Window> units;
    std::unique_ptr<ui::F19Window> window;
    ui::GridView* grid = nullptr;
    UnitScan scan;

    F19_Window() {
        scan.Entries[2] = {.Status = 1, .Serial = {0, 0, 0x30, 0x01}, .Signal = 60, .Type = 1};
        scan.Entries[4] = {.Status = ScanEntry::Well, .Serial = {0, 0, 0x30, 0x02}, .Signal = 64, .Type = 41};
        scan.Entries[9] = {.Status = ScanEntry::Well, .Serial = {0x01, 0x60, 0, 0x05}, .Signal = 20, .Type = 6};
    }
    void Open(std::string_view language = "Deutsch") {
        SettledLock(1, "Tor", "00.0A.10.01");
        Start(language);
        auto& models = *programm->Locks;
        locks = std::make_unique<ui::F12Window>(models.F12, nullptr);
        units = std::make_unique<ui::F20Window>(models.F20, locks.get());
        window = std::make_unique<ui::F19Window>(models.F19, units.get());
        window->alsoOf(locks.get());
        grid = window->findChild<ui::GridView*>(QStringLiteral("F19.FGK19"));
        models.F12.F12_FormLaden();
        models.F12.Auswahl.Go(1, 2);
        models.F12.SNA_Function_Click();
        models.F20.Fenster.Enabled = false;
        models.F19.F19_FormLaden(scan, F19Opener::Units, 3);
        Present(*window);
        Settle();
    }
    F19& Model() { return programm->Locks->F19; }
    template <class Widget>
    Widget* Named(const char* name) {
        return window->findChild<Widget*>(QString::fromUtf8(name));
    }
    void DoubleClick(int row) {
        const QPoint middle = grid->viewport()->mapFrom(grid, grid->cellRect(row, 1).center());
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        EXPECT_NE(Model().GewaehlteZeile, row) << "a single click only goes there";
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        QTest::mouseRelease(grid->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
        Settle();
    }
    void Press(int key) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
        Settle();
    }
    QAccessibleInterface* Cell(int row, int shown) {
        return QAccessible::queryAccessibleInterface(grid)->tableInterface()->cellAt(row - 1, shown);
    }
};

TEST_F(F19_Window, stands_over_its_caller_with_the_keyboard_on_the_best_unit) {
    Open();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_EQ(grid->currentIndex().row(), 3);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Funkeinheit - QVM 7702 SOFTWARE SYSTEM"));
    EXPECT_EQ(Named<QLabel>("F19.Label1")->accessibleName().left(11), QStringLiteral("00.00.30.02"));
    EXPECT_TRUE(Named<QComboBox>("F19.Combo2")->isEnabled());
    EXPECT_EQ(Named<QComboBox>("F19.Combo2")->accessibleName(), QStringLiteral("Empfangszeit Std."));
    for (int column = 6; column < 37; ++column) {
        EXPECT_TRUE(grid->isColumnHidden(column)) << column;
    }
    EXPECT_GE(grid->viewport()->height(), 12 * grid->rowHeight(0)) << "all channels are in sight";
}

TEST_F(F19_Window, speaks_the_bar_as_its_value_and_the_sign_as_words) {
    Open();
    EXPECT_EQ(Cell(4, 5)->text(QAccessible::Name), QStringLiteral("Signal 64 von 128"));
    EXPECT_EQ(Cell(4, 5)->text(QAccessible::Description), QString());
    EXPECT_EQ(Cell(5, 5)->text(QAccessible::Name), QString());
    EXPECT_EQ(Cell(2, 3)->text(QAccessible::Name), QStringLiteral("Signal schlecht geantwortet"));
    EXPECT_EQ(Cell(4, 3)->text(QAccessible::Name), QStringLiteral("Signal gut geantwortet"));
    EXPECT_EQ(grid->gridModel().index(3, 5).data(Qt::ToolTipRole).toString(), QStringLiteral("Signal 64 von 128"));
    EXPECT_EQ(Cell(4, 5)->tableCellInterface()->columnHeaderCells().value(0)->text(QAccessible::Name),
              QStringLiteral("Signal"));
}

TEST_F(F19_Window, draws_a_bar_as_long_as_the_signal_that_is_told_without_colour) {
    Open();
    ASSERT_EQ(grid->cellRect(4, 5).width(), grid->columnWidth(5)) << "the bar is in sight as a whole";
    const QImage image = grid->viewport()->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    const auto litPart = [&](int row) {
        const QRect cell = grid->cellRect(row, 5).translated(-grid->viewport()->pos());
        const int y = cell.center().y();
        const int ground = qGray(image.pixel(cell.left() + 2, y));
        int last = cell.left();
        // Cells of the bar, and the rim behind the last of them; the rim of the whole bar ends it.
        for (int x = cell.left() + 2; x < cell.right() - 12; ++x) {
            last = qGray(image.pixel(x, y)) != ground ? x : last;
        }
        return 100 * (last - cell.left()) / cell.width();
    };
    EXPECT_NEAR(litPart(4), 50, 4); // 16 of 32 cells
    EXPECT_NEAR(litPart(9), 16, 4); // 5
    EXPECT_NEAR(litPart(2), 47, 4); // 15
    EXPECT_EQ(litPart(1), 0);
}

TEST_F(F19_Window, a_double_click_and_a_press_of_a_screen_reader_choose) {
    Open();
    DoubleClick(9);
    EXPECT_EQ(Model().GewaehlteZeile, 9);
    EXPECT_FALSE(Named<QGroupBox>("F19.Frame1")->isEnabled());
    DoubleClick(2);
    EXPECT_EQ(Model().GewaehlteZeile, 2);
    Cell(4, 1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    Settle();
    EXPECT_EQ(Model().GewaehlteZeile, 4);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(F19_Window, is_used_by_the_keyboard_alone) {
    Open();
    for (int n = 0; n < 5; ++n) {
        Press(Qt::Key_Down);
    }
    Press(Qt::Key_Space);
    EXPECT_EQ(Model().GewaehlteZeile, 9);
    grid->setCurrentCell(4, 1);
    Press(Qt::Key_Return);
    EXPECT_EQ(Model().GewaehlteZeile, 4);
    EXPECT_TRUE(window->isVisible());
    Named<QCheckBox>("F19.Check1")->setFocus();
    Press(Qt::Key_Space);
    EXPECT_EQ(Model().Einstellung.AlwaysOn, "1");
    EXPECT_FALSE(Named<QComboBox>("F19.Combo4")->isEnabled());
    Press(Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(programm->Locks->F20.FGK20.Text(3, 2), "00.00.30.02");
    EXPECT_TRUE(units->isEnabled());
}

TEST_F(F19_Window, escape_cancels_and_takes_nothing) {
    Open();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(units->isEnabled());
    EXPECT_EQ(programm->Locks->F20.FGK20.Text(3, 2), "");
}

TEST_F(F19_Window, says_where_it_stands_that_nothing_was_chosen) {
    scan = {};
    Open("English");
    Press(Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(Named<QLabel>("F19.Hinweis")->accessibleName().left(27), QStringLiteral("No wireless unit is chosen,"));
    EXPECT_EQ(Named<QPushButton>("F19.Command2")->isEnabled(), true);
}

} // namespace
} // namespace qvm::test
