// The window of the guest cards on the screen.

#include "F60Window.h"

#include "GridView.h"
#include "KeyEdit.h"
#include "MonthView.h"
#include "TimeWindows.h"
#include "UiFixture.h"

#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <utility>

namespace qvm::test {
namespace {

struct F60_Window : UiFixture {
    std::unique_ptr<ui::F60Window> window;
    ui::GridView* grid = nullptr;

    void Open(std::string_view mode = "HOTEL") {
        world.Disk.Files["/q/DAT/ASWTIMQVMLCK.FSN"] = "05.03.2026\r\n" + std::string(mode) + "\r\n";
        world.Disk.Files["/q/DAT/OFSTSETUPDT.FST"] = "05.03.2026\r\n15:00\r\n10:30\r\n00\r\n01\r\n";
        Start("Deutsch");
        window = std::make_unique<ui::F60Window>(Model(), nullptr);
        Model().F60_FormLaden();
        Present(*window);
        Settle();
        grid = window->findChild<ui::GridView*>();
    }
    F60& Model() { return programm->Times->F60; }
    template <class Widget>
    Widget* Part(const char* name) {
        return window->findChild<Widget*>(QStringLiteral("F60.") + QLatin1String(name));
    }
    static void Press(int key) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
        Settle();
    }
};

TEST_F(F60_Window, shows_the_doors_without_their_hidden_columns_and_has_the_keyboard_there) {
    Open();
    EXPECT_EQ(window->focusWidget(), grid);
    EXPECT_EQ(grid->gridModel().rowCount(), 200);
    for (int column = CardColumn::OffsetName; column < CardColumn::Count; ++column) {
        EXPECT_TRUE(grid->isColumnHidden(column)) << column;
    }
}

TEST_F(F60_Window, marks_a_door_by_the_mouse_and_by_the_keyboard) {
    Open();
    ClickCell(*grid, 3, CardColumn::Mark, Qt::LeftButton);
    EXPECT_EQ(Model().FGK60.Text(3, CardColumn::Mark), "X");
    grid->setFocus();
    Press(Qt::Key_Space);
    EXPECT_EQ(Model().FGK60.Text(3, CardColumn::Mark), "P");
    Press(Qt::Key_Return);
    EXPECT_EQ(Model().FGK60.Text(3, CardColumn::Mark), "");
}

TEST_F(F60_Window, tells_the_two_months_apart) {
    Open();
    for (const auto& [month, caption] : {std::pair{"MV1", "Label6"}, {"MV2", "Label7"}}) {
        EXPECT_EQ(Part<ui::MonthView>(month)->accessibleName(), Part<QLabel>(caption)->text());
        EXPECT_EQ(Part<ui::MonthView>(month)->findChild<QTableView*>()->accessibleName(),
                  Part<QLabel>(caption)->text());
    }
    EXPECT_NE(Part<QLabel>("Label6")->text(), Part<QLabel>("Label7")->text());
}

TEST_F(F60_Window, two_clicks_make_a_door_permanent_however_soon_they_follow) {
    Open();
    DoubleClickCell(*grid, 3, CardColumn::Mark);
    EXPECT_EQ(Model().FGK60.Text(3, CardColumn::Mark), "P");
    ClickCell(*grid, 3, CardColumn::Mark, Qt::RightButton);
    EXPECT_EQ(Model().FGK60.Text(3, CardColumn::Mark), "P");
}

TEST_F(F60_Window, takes_a_mark_back_by_key_and_from_its_menu) {
    Open();
    ClickCell(*grid, 2, CardColumn::Mark, Qt::LeftButton);
    ClickCell(*grid, 3, CardColumn::Mark, Qt::LeftButton);
    QTest::keyClick(grid, Qt::Key_Z, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(Model().FGK60.Text(3, CardColumn::Mark), "");
    EXPECT_EQ(Model().FGK60.Text(2, CardColumn::Mark), "X");
    ClickCell(*grid, 2, CardColumn::Mark, Qt::RightButton);
    auto* menu = Part<QMenu>("M_FGK60");
    ASSERT_TRUE(menu->isVisible());
    EXPECT_EQ(Model().FGK60.Text(2, CardColumn::Mark), "X") << "the right button marks nothing";
    auto* undo = Part<QAction>("F60_Undo");
    ASSERT_TRUE(menu->actions().contains(undo));
    menu->close();
    EXPECT_TRUE(undo->isEnabled());
    undo->trigger();
    EXPECT_EQ(Model().FGK60.Text(2, CardColumn::Mark), "");
}

TEST_F(F60_Window, a_day_that_is_picked_leads_to_the_key_that_writes) {
    Open();
    auto* month = Part<ui::MonthView>("MV2");
    month->onPick({2026, 3, 9});
    EXPECT_EQ(Model().CheckOut(), (Datum{2026, 3, 9}));
    EXPECT_EQ(month->day(), (Datum{2026, 3, 9}));
    EXPECT_EQ(QApplication::focusWidget(), Part<QPushButton>("Command2"));
}

TEST_F(F60_Window, times_are_typed_digit_by_digit_and_return_leads_on) {
    Open();
    auto* first = Part<ui::KeyEdit>("Text1");
    first->setFocus();
    Settle();
    Model().Text1.Caret = 0;
    QTest::keyClicks(first, QStringLiteral("245")); // 15:00 would become 25:00 first, which is 23:00
    EXPECT_EQ(first->text(), QStringLiteral("23:45"));
    Press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), Part<ui::KeyEdit>("Text2"));
}

TEST_F(F60_Window, groups_are_there_for_an_object_only) {
    Open("OBJEKT");
    EXPECT_TRUE(Part<QComboBox>("List1")->isVisible());
    EXPECT_TRUE(Part<QPushButton>("Command3")->isVisible());
    EXPECT_EQ(Part<QComboBox>("List1")->count(), 255);
    Model().Schliessen();
    world.Disk.Files["/q/DAT/ASWTIMQVMLCK.FSN"] = "05.03.2026\r\nHOTEL\r\n";
    Model().F60_FormLaden();
    Settle();
    EXPECT_FALSE(Part<QComboBox>("List1")->isVisible());
}

TEST_F(F60_Window, takes_a_day_that_a_screen_reader_writes_into_a_month) {
    Open();
    auto* month = Part<ui::MonthView>("MV1");
    const auto write = [&](const char* day) {
        QAccessible::queryAccessibleInterface(month)->editableTextInterface()->replaceText(0, -1, QLatin1String(day));
        Settle();
    };
    const QAccessibleTextInterface& text = *QAccessible::queryAccessibleInterface(month)->textInterface();
    write("24.12.2026");
    EXPECT_EQ(Model().CheckIn(), (Datum{2026, 12, 24}));
    EXPECT_EQ(text.text(0, -1), QStringLiteral("24.12.2026"));
    for (const char* none : {"", "31.02.2026", "24.12.", "24.12.1999", "01.01.2100", "x"}) {
        write(none);
        EXPECT_EQ(text.text(0, text.characterCount()), QStringLiteral("24.12.2026")) << none;
        EXPECT_EQ(Model().CheckIn(), (Datum{2026, 12, 24})) << none;
    }
    QAccessible::queryAccessibleInterface(month)->editableTextInterface()->replaceText(0, 2, QStringLiteral("25"));
    Settle();
    EXPECT_EQ(Model().CheckIn(), (Datum{2026, 12, 25}));
    month->setEnabled(false);
    write("26.12.2026");
    EXPECT_EQ(Model().CheckIn(), (Datum{2026, 12, 25}));
}

} // namespace
} // namespace qvm::test
