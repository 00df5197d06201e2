// The window of guest times on the screen: both grids, editors, list, menu.

#include "F42Window.h"

#include "GridView.h"
#include "KeyEdit.h"
#include "OverlayEditor.h"
#include "TextEdge.h"
#include "TimeWindows.h"
#include "UiFixture.h"

#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QTest>

namespace qvm::test {
namespace {

struct Guest_Times_Window : UiFixture {
    std::unique_ptr<ui::F42Window> window;
    ui::GridView *offsets = nullptr, *guestSlots = nullptr;

    void Open(std::string_view language = "Deutsch") {
        Start(language);
        F42().F42_FormLaden(); // makes the file of the offsets, which are there from the next time on
        window = std::make_unique<ui::F42Window>(F42(), nullptr);
        F42().F42_FormLaden();
        Present(*window);
        Settle();
        offsets = window->findChild<ui::GridView*>(QStringLiteral("F42.FGK42"));
        guestSlots = window->findChild<ui::GridView*>(QStringLiteral("F42.FGK42B"));
        offsets->setFocus();
    }
    qvm::F42& F42() { return programm->Times->F42; }
    std::string Row(int row) {
        const Grid& grid = F42().FGK42;
        return grid.Text(row, 1) + "|" + grid.Text(row, 2) + "|" + grid.Text(row, 3);
    }
    static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        Settle();
    }
    /// Each key goes to where the keyboard is by then.
    static void Type(std::string_view text) {
        for (const char key : text) {
            QTest::keyClick(QApplication::focusWidget(), key);
            Settle();
        }
    }
};

TEST_F(Guest_Times_Window, shows_all_rows_of_both_grids_with_the_keyboard_in_the_first) {
    Open();
    EXPECT_EQ(window->focusWidget()->objectName(), QStringLiteral("F42.FGK42"));
    EXPECT_TRUE(offsets->isColumnHidden(4));
    EXPECT_FALSE(offsets->cellRect(4, 1).isEmpty());
    EXPECT_FALSE(guestSlots->cellRect(8, 4).isEmpty());
    EXPECT_EQ(window->findChild<QComboBox*>(QStringLiteral("F42.Combo1"))->count(), 2);
}

TEST_F(Guest_Times_Window, enters_an_offset_by_the_keyboard_alone) {
    Open();
    F42().Auswahl.Go(2, 1);
    Type("Late");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("F42.Text4"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(2), "Late|00:00|00:00");
    EXPECT_EQ(QApplication::focusWidget(), offsets);
    F42().Auswahl.Go(2, 2);
    Type("0345");
    EXPECT_EQ(F42().Text3.Text(), "03:45");
    Press(Qt::Key_Return);
    F42().Auswahl.Go(2, 3);
    Press(Qt::Key_Return);
    ASSERT_TRUE(F42().List1.Visible);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(2), "Late|03:45|15:00");
}

TEST_F(Guest_Times_Window, gives_a_cell_back_its_text_at_escape_and_stays_open) {
    Open();
    F42().Auswahl.Go(1, 2);
    Type("2");
    Press(Qt::Key_Escape);
    EXPECT_EQ(Row(1), "OFF|00:00|00:00");
    EXPECT_TRUE(F42().Fenster.Visible);
}

TEST_F(Guest_Times_Window, types_over_a_default_time_digit_by_digit_past_the_colon) {
    Open();
    auto* first = window->findChild<ui::KeyEdit*>(QStringLiteral("F42.Text1"));
    first->setFocus();
    first->setCursorPosition(0);
    Settle();
    F42().Text1.Caret = 0;
    // 09:30: a 2 makes 29 of the hour, which is 23; the caret goes on to the minutes.
    Type("297x");
    EXPECT_EQ(F42().Text1.Text(), "23:57");
    EXPECT_EQ(first->text(), QStringLiteral("23:57"));
    Press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("F42.Text2"));
    Press(Qt::Key_Tab);
    EXPECT_NE(QApplication::focusWidget()->objectName(), QStringLiteral("F42.Text2"));
}

TEST_F(Guest_Times_Window, selects_a_slot_by_mouse_and_by_the_space_bar) {
    Open();
    ClickCell(*guestSlots, 3, 4);
    EXPECT_EQ(F42().FGK42B.Text(3, 4), "X");
    ClickCell(*guestSlots, 3, 1);
    EXPECT_EQ(F42().FGK42B.Text(3, 4), "X");
    guestSlots->setFocus();
    guestSlots->setCurrentCell(5, 4);
    Press(Qt::Key_Space);
    EXPECT_EQ(F42().FGK42B.Text(5, 4), "X");
    Press(Qt::Key_Return);
    EXPECT_EQ(F42().FGK42B.Text(5, 4), "");
}

TEST_F(Guest_Times_Window, counts_both_of_two_clicks_on_a_slot_however_soon_they_follow) {
    Open();
    DoubleClickCell(*guestSlots, 3, 4);
    EXPECT_EQ(F42().FGK42B.Text(3, 4), "");
    F42().Undo_Click();
    EXPECT_EQ(F42().FGK42B.Text(3, 4), "X");
    DoubleClickCell(*guestSlots, 3, 1);
    EXPECT_EQ(F42().FGK42B.Text(3, 4), "X");
}

TEST_F(Guest_Times_Window, speaks_on_of_the_day_that_the_keyboard_is_on_when_a_minute_has_passed) {
    Open();
    auto* week = window->findChild<QWidget*>(QStringLiteral("F42.Woche"));
    week->setFocus();
    Press(Qt::Key_Home);
    EXPECT_EQ(week->accessibleDescription(), QStringLiteral("Montag"));
    world.RunFor(61000);
    Settle();
    EXPECT_EQ(week->accessibleDescription(), QStringLiteral("Montag"));
    offsets->setFocus();
    EXPECT_EQ(week->accessibleDescription(), ui::toQt(F42().Woche.Chart().Summary));
}

TEST_F(Guest_Times_Window, deletes_an_offset_from_its_menu_and_takes_that_back_by_key) {
    Open();
    F42().FGK42.SetText(3, 1, "Late");
    ClickCell(*offsets, 3, 1, Qt::RightButton);
    auto* menu = window->findChild<QMenu*>(QStringLiteral("F42.M_FGK42"));
    ASSERT_TRUE(menu->isVisible());
    menu->close();
    window->findChild<QAction*>(QStringLiteral("F42.F42Loeschen"))->trigger();
    EXPECT_EQ(Row(3), "|00:00|00:00");
    offsets->setFocus();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Row(3), "Late|00:00|00:00");
}

} // namespace
} // namespace qvm::test
