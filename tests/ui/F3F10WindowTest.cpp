// The windows of the holidays on the screen: grid, month, list, menu, year.

#include "GridView.h"
#include "HolidayWindow.h"
#include "OverlayMonth.h"
#include "TimeWindows.h"
#include "UiFixture.h"
#include "Words.h"
#include "YearStrip.h"

#include <QAccessible>
#include <QCalendarWidget>
#include <QListWidget>
#include <QMenu>
#include <QTableView>
#include <QTest>
#include <QToolButton>

namespace qvm::test {
namespace {

struct Holiday_Window : UiFixture {
    std::unique_ptr<ui::HolidayWindow> single, permanent;
    ui::GridView* grid = nullptr;
    ui::OverlayMonth* month = nullptr;

    void Open(std::string_view language = "Deutsch") {
        Start(language);
        single = std::make_unique<ui::HolidayWindow>(F3(), nullptr);
        permanent = std::make_unique<ui::HolidayWindow>(F10(), nullptr);
        F3().FormLaden();
        Look(*single);
    }
    void OpenPermanent() {
        F10().FormLaden();
        Look(*permanent);
    }
    void Look(ui::HolidayWindow& window) {
        Present(window);
        window.resize(760, 620);
        Settle();
        grid = window.findChild<ui::GridView*>();
        month = window.findChild<ui::OverlayMonth*>();
        grid->setFocus();
    }
    HolidayCalendar& F3() { return programm->Times->F3; }
    HolidayCalendar& F10() { return programm->Times->F10; }
    static std::string Row(const HolidayCalendar& calendar, int row) {
        return calendar.FGK.Text(row, 1) + "|" + calendar.FGK.Text(row, 2) + "|" + calendar.FGK.Text(row, 3);
    }
    void Click(int row, int column, Qt::MouseButton button = Qt::LeftButton) { ClickCell(*grid, row, column, button); }
    void DoubleClick(int row, int column) { DoubleClickCell(*grid, row, column); }
    static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        Settle();
    }
};

TEST_F(Holiday_Window, shows_20_rows_with_the_keyboard_in_the_grid_and_hides_the_unused_columns) {
    Open();
    EXPECT_EQ(single->focusWidget()->objectName(), QStringLiteral("F3.FGK3"));
    EXPECT_EQ(grid->gridModel().rowCount(), 20);
    EXPECT_TRUE(grid->isColumnHidden(4));
    EXPECT_TRUE(grid->isColumnHidden(5));
    OpenPermanent();
    EXPECT_EQ(grid->objectName(), QStringLiteral("F10.FGK10"));
    EXPECT_EQ(month->objectName(), QStringLiteral("F10.MV10"));
    EXPECT_NE(permanent->findChild<QListWidget*>(QStringLiteral("F10.List10")), nullptr);
    EXPECT_NE(permanent->findChild<QMenu*>(QStringLiteral("F10.M_FGK10")), nullptr);
    EXPECT_NE(permanent->findChild<QAction*>(QStringLiteral("F10.F10_Loeschen")), nullptr);
}

TEST_F(Holiday_Window, enters_a_holiday_by_the_keyboard_alone) {
    Open();
    F3().Auswahl.Go(2, 1);
    Press(Qt::Key_Return);
    ASSERT_TRUE(month->isVisible());
    EXPECT_EQ(month->day(), (Datum{2026, 3, 5}));
    Press(Qt::Key_Right);
    Press(Qt::Key_Return);
    EXPECT_FALSE(month->isVisible());
    EXPECT_EQ(Row(F3(), 2), "06.03.2026||Einzelfeiertage");
    EXPECT_TRUE(grid->hasFocus());
    Press(Qt::Key_Right);
    Press(Qt::Key_Return);
    EXPECT_EQ(month->day(), (Datum{2026, 3, 5})) << "today again";
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(F3(), 2), "06.03.2026|12.03.2026|Einzelfeiertage");
}

TEST_F(Holiday_Window, enters_a_holiday_by_the_mouse) {
    Open();
    OpenPermanent();
    DoubleClick(3, 1);
    ASSERT_TRUE(month->isVisible());
    auto* days = month->findChild<QTableView*>(QStringLiteral("qt_calendar_calendarview"));
    for (int row = 1; row < days->model()->rowCount(); ++row) {
        for (int column = 0; column < 7; ++column) {
            const QModelIndex index = days->model()->index(row, column);
            if (index.data().toInt() == 17) {
                QTest::mouseClick(days->viewport(), Qt::LeftButton, Qt::NoModifier, days->visualRect(index).center());
            }
        }
    }
    Settle();
    EXPECT_FALSE(month->isVisible());
    EXPECT_EQ(Row(F10(), 3), "17.03. - -||Perm. Feiertage");
}

TEST_F(Holiday_Window, leaves_the_month_by_escape_and_by_a_click_elsewhere_and_stays_itself) {
    Open();
    DoubleClick(1, 2);
    ASSERT_TRUE(month->isVisible());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(month->isVisible());
    EXPECT_TRUE(single->isVisible());
    EXPECT_TRUE(grid->hasFocus());
    DoubleClick(1, 1);
    Click(5, 1);
    EXPECT_FALSE(month->isVisible());
    EXPECT_EQ(Row(F3(), 1), "||");
}

TEST_F(Holiday_Window, keeps_tab_within_the_month) {
    Open();
    DoubleClick(1, 1);
    QWidget* days = QApplication::focusWidget();
    ASSERT_TRUE(month->isAncestorOf(days));
    for (const int key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        Press(key);
        EXPECT_TRUE(month->isVisible());
        EXPECT_EQ(QApplication::focusWidget(), days);
    }
}

TEST_F(Holiday_Window, has_the_month_within_the_grid_wherever_the_cell_is) {
    Open();
    single->resize(single->minimumSize());
    Settle();
    for (const int row : {1, 10, 20}) {
        for (const int column : {1, 2}) {
            F3().FGK_DblClick(row, column);
            Settle();
            EXPECT_TRUE(month->isVisible());
            EXPECT_TRUE(grid->rect().contains(month->geometry())) << row << " " << column;
            F3().Editor_Schliessen();
        }
    }
}

TEST_F(Holiday_Window, chooses_a_kind_from_the_list_by_keyboard) {
    Open();
    F3().Auswahl.Go(4, 3);
    Press(Qt::Key_Return);
    auto* list = single->findChild<QListWidget*>(QStringLiteral("F3.List1"));
    ASSERT_TRUE(list->isVisible());
    EXPECT_EQ(list->currentRow(), 0);
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(F3(), 4), "||Perm. Feiertage");
    Press(Qt::Key_Return);
    EXPECT_EQ(Row(F3(), 4), "||Einzelfeiertage");
    EXPECT_FALSE(list->isVisible());
}

TEST_F(Holiday_Window, deletes_a_block_by_its_menu_and_takes_it_back_by_key) {
    Open();
    for (int row = 1; row <= 3; ++row) {
        F3().FGK_DblClick(row, 1);
        F3().MV_Waehlen({2026, 5, row});
    }
    F3().Auswahl.Go(1, 1);
    F3().Auswahl.Extend(2, 1);
    Settle();
    Click(2, 1, Qt::RightButton);
    auto* menu = single->findChild<QMenu*>(QStringLiteral("F3.M_FGK3"));
    ASSERT_TRUE(menu->isVisible());
    menu->close();
    single->findChild<QAction*>(QStringLiteral("F3.F3_Loeschen"))->trigger();
    EXPECT_EQ(Row(F3(), 1), "||");
    EXPECT_EQ(Row(F3(), 2), "||");
    EXPECT_EQ(Row(F3(), 3), "03.05.2026||Einzelfeiertage");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Row(F3(), 2), "02.05.2026||Einzelfeiertage");
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Row(F3(), 2), "||");
}

TEST_F(Holiday_Window, keeps_the_keyboard_where_it_was_when_it_saves) {
    Open();
    F3().FGK_DblClick(1, 1);
    F3().MV_Waehlen({2026, 5, 1});
    Settle();
    ASSERT_TRUE(grid->hasFocus());
    single->findChild<QToolButton*>(QStringLiteral("F3.Toolbar1.Speichern"))->click();
    Settle();
    EXPECT_TRUE(grid->isVisible());
    EXPECT_TRUE(grid->hasFocus());
    EXPECT_FALSE(F3().Geaendert);
}

TEST_F(Holiday_Window, shows_and_tells_the_days_of_the_year) {
    Open();
    auto* strip = single->findChild<ui::YearStrip*>();
    const QImage empty = strip->grab().toImage();
    F3().FGK_DblClick(1, 1);
    F3().MV_Waehlen({2026, 7, 20});
    F3().FGK_DblClick(1, 2);
    F3().MV_Waehlen({2026, 7, 24});
    Settle();
    EXPECT_NE(strip->grab().toImage(), empty);
    EXPECT_EQ(strip->accessibleDescription(), QStringLiteral("2026: Eingetragene Tage: 5"));
    const int middle = qRound((strip->edgeOf({2026, 7, 22}) + strip->edgeOf({2026, 7, 23})) / 2);
    EXPECT_EQ(strip->dayAt(middle), (Datum{2026, 7, 22}));
    EXPECT_EQ(strip->dayAt(0), (Datum{2026, 1, 1}));
    EXPECT_EQ(strip->dayAt(strip->width() - 1), (Datum{2026, 12, 31}));
    EXPECT_FALSE(strip->dayAt(strip->width()).has_value());
    EXPECT_FALSE(strip->dayAt(-1).has_value());
    auto* later = single->findChild<QToolButton*>(QStringLiteral("F3.SpaeteresJahr"));
    later->setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(strip->accessibleDescription(), QStringLiteral("2027: Eingetragene Tage: 0"));
    EXPECT_EQ(strip->grab().toImage(), empty);
}

TEST_F(Holiday_Window, says_of_a_day_in_the_month_which_rows_hold_it) {
    Open();
    for (const int row : {1, 3}) {
        F3().FGK_DblClick(row, 1);
        F3().MV_Waehlen({2026, 3, 6});
        F3().FGK_DblClick(row, 2);
        F3().MV_Waehlen({2026, 3, 6});
    }
    F3().Auswahl.Go(5, 1);
    Press(Qt::Key_Return);
    const auto said = [this] {
        QWidget* days = month->findChild<QTableView*>(QStringLiteral("qt_calendar_calendarview"));
        return QAccessible::queryAccessibleInterface(days)->text(QAccessible::Description);
    };
    EXPECT_EQ(month->day(), (Datum{2026, 3, 5}));
    EXPECT_EQ(said(), QString());
    Press(Qt::Key_Right);
    EXPECT_EQ(said(), QStringLiteral("06.03.2026: Zeile 1, 3"));
    Press(Qt::Key_Right);
    EXPECT_EQ(said(), QString());
    month->setDay({2026, 3, 6});
    Press(Qt::Key_Escape);
    F3().FGK_Eintragen(3, 1, "05.03.2026");
    F3().FGK_DblClick(5, 1);
    Settle();
    EXPECT_EQ(month->day(), (Datum{2026, 3, 5}));
    EXPECT_EQ(said(), QStringLiteral("05.03.2026: Zeile 3"));
}

TEST_F(Holiday_Window, marks_the_days_that_are_entered_in_the_month) {
    Open();
    F3().FGK_DblClick(1, 1);
    Settle();
    const QImage empty = month->grab().toImage();
    F3().MV_Waehlen({2026, 3, 17});
    F3().FGK_DblClick(1, 2);
    F3().MV_Waehlen({2026, 3, 17});
    F3().FGK_DblClick(1, 2);
    Settle();
    const QImage one = month->grab().toImage();
    EXPECT_NE(one, empty);
    F3().Editor_Schliessen();
    F3().FGK_DblClick(2, 1);
    F3().MV_Waehlen({2026, 3, 17});
    F3().FGK_DblClick(2, 2);
    F3().MV_Waehlen({2026, 3, 17});
    F3().FGK_DblClick(1, 2);
    Settle();
    EXPECT_NE(month->grab().toImage(), one) << "two bars";
}

} // namespace
} // namespace qvm::test
