// The windows of the switch clocks on the screen: grids, editors, lists, menus, the group under the pointer.

#include "GridView.h"
#include "OverlayChecks.h"
#include "OverlayEditor.h"
#include "OverlayList.h"
#include "TimeWindows.h"
#include "UiFixture.h"
#include "WeekPicture.h"
#include "WeekTimerWindow.h"
#include "Words.h"

#include <QAction>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QTest>

namespace qvm::test {
namespace {

struct Clock_View : UiFixture {
    std::unique_ptr<ui::WeekTimerWindow> persons, locks;
    ui::GridView *slotGrid = nullptr, *groupGrid = nullptr;

    void Open(bool ofPersons = true, std::string_view language = "Deutsch") {
        persons.reset();
        locks.reset();
        Start(language);
        persons = std::make_unique<ui::WeekTimerWindow>(F4(), nullptr);
        locks = std::make_unique<ui::WeekTimerWindow>(F41(), nullptr);
        ui::WeekTimerWindow& window = ofPersons ? *persons : *locks;
        (ofPersons ? F4() : F41()).FormLaden();
        Present(window);
        window.resize(900, 760);
        Settle();
        const QString name = ofPersons ? QStringLiteral("F4.") : QStringLiteral("F41.");
        slotGrid = window.findChild<ui::GridView*>(name + QStringLiteral("FGK1"));
        groupGrid = window.findChild<ui::GridView*>(name + QStringLiteral("FGK3"));
    }
    WeekTimer& F4() { return programm->Times->F4; }
    WeekTimer& F41() { return programm->Times->F41; }
    template <class W>
    W* Find(const char* name) {
        return persons->findChild<W*>(QStringLiteral("F4.") + QLatin1String(name));
    }
    static std::string Slot(const WeekTimer& clock, int row) {
        return clock.FGK1.Text(row, 1) + "|" + clock.FGK1.Text(row, 2) + "|" + clock.FGK1.Text(row, 3);
    }
    static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        Settle();
    }
    static void Type(std::string_view keys) {
        for (const char key : keys) {
            QTest::keyClick(QApplication::focusWidget(), key);
            Settle();
        }
    }
    static std::string Focus() { return QApplication::focusWidget()->objectName().toStdString(); }
};

TEST_F(Clock_View, shows_slots_and_groups_without_the_hidden_columns) {
    Open();
    EXPECT_EQ(persons->focusWidget()->objectName(), QStringLiteral("F4.FGK1"));
    EXPECT_EQ(slotGrid->gridModel().rowCount(), 10);
    EXPECT_EQ(groupGrid->gridModel().rowCount(), 7);
    EXPECT_TRUE(groupGrid->isColumnHidden(3));
    EXPECT_TRUE(groupGrid->isColumnHidden(4));
    EXPECT_NE(Find<QMenu>("F4_FGK3"), nullptr);
    EXPECT_NE(persons->findChild<QAction*>(QStringLiteral("F4.F5_FGK3_Loeschen")), nullptr);
    EXPECT_NE(locks->findChild<QMenu*>(QStringLiteral("F41.F41_FGK3")), nullptr);
    EXPECT_NE(locks->findChild<QAction*>(QStringLiteral("F41.F41_FGK3_Loeschen")), nullptr);
    EXPECT_FALSE(Find<ui::GridView>("FGK3i")->isVisible());
    EXPECT_FALSE(Find<ui::WeekPicture>("Woche")->isVisible());
    EXPECT_EQ(Find<ui::WeekPicture>("Woche")->accessibleName(), QStringLiteral("Wochenbild"));
}

TEST_F(Clock_View, enters_a_slot_and_a_group_by_the_keyboard_alone) {
    Open();
    Press(Qt::Key_Return);
    EXPECT_EQ(Focus(), "F4.List1");
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "F4.FGK1");
    Type("0830");
    EXPECT_EQ(Focus(), "F4.Text1");
    Press(Qt::Key_Tab);
    Press(Qt::Key_Return);
    Type("1745");
    Press(Qt::Key_Return);
    EXPECT_EQ(Slot(F4(), 1), "Dienstag|08:30|17:45");
    groupGrid->goTo(3, 1);
    Type("Night");
    EXPECT_EQ(Focus(), "F4.Text2");
    Press(Qt::Key_Return);
    EXPECT_EQ(Focus(), "F4.FGK3");
    Press(Qt::Key_Return);
    EXPECT_EQ(Focus(), "F4.List2");
    Press(Qt::Key_Space);
    Press(Qt::Key_Return);
    EXPECT_EQ(F4().Gruppen[3].Name, "Night");
    EXPECT_EQ(F4().Gruppen[3].Days, "X---------");
    EXPECT_EQ(groupGrid->grid().Text(3, 2), "1");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(F4().Gruppen[3].Days, "");
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(F4().Gruppen[3].Days, "X---------");
}

TEST_F(Clock_View, moves_the_caret_of_a_time_by_arrows_and_clicks_past_the_colon_and_nothing_else) {
    Open();
    DoubleClickCell(*slotGrid, 2, 2);
    auto* box = Find<ui::OverlayEditor>("Text1");
    ASSERT_TRUE(box->isVisible());
    for (const auto& [key, caret] : {std::pair{Qt::Key_Right, 1},
                                     {Qt::Key_Right, 3},
                                     {Qt::Key_Right, 4},
                                     {Qt::Key_Right, 5},
                                     {Qt::Key_Right, 5},
                                     {Qt::Key_Home, 0},
                                     {Qt::Key_Left, 0},
                                     {Qt::Key_End, 5},
                                     {Qt::Key_Left, 4},
                                     {Qt::Key_Left, 3},
                                     {Qt::Key_Left, 1},
                                     {Qt::Key_Down, 1},
                                     {Qt::Key_PageDown, 1},
                                     {Qt::Key_Delete, 1},
                                     {Qt::Key_Backspace, 1}}) {
        Press(key);
        EXPECT_EQ(box->cursorPosition(), caret) << key;
        EXPECT_EQ(F4().Text1.Caret(), caret) << key;
    }
    EXPECT_EQ(box->text(), QStringLiteral("00:00"));
    EXPECT_EQ(F4().FGK1.Row, 2);
    for (int x = 1; x < box->width(); x += 3) {
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(x, box->height() / 2));
        EXPECT_EQ(box->cursorPosition(), F4().Text1.Caret());
        EXPECT_NE(box->cursorPosition(), 2);
    }
    Press(Qt::Key_Home);
    Type("2959");
    EXPECT_EQ(box->text(), QStringLiteral("23:59"));
    Press(Qt::Key_Escape);
    EXPECT_FALSE(box->isVisible());
    EXPECT_EQ(Slot(F4(), 2), "OFF|00:00|00:00");
    EXPECT_TRUE(F4().Fenster.Visible());
}

TEST_F(Clock_View, takes_a_whole_time_from_a_screen_reader) {
    Open();
    DoubleClickCell(*slotGrid, 2, 2);
    auto* box = Find<ui::OverlayEditor>("Text1");
    for (const char* time : {"08:30", "21:07", "23:59", "00:00"}) {
        box->setText(QLatin1String(time));
        EXPECT_EQ(F4().Text1.Text(), time);
    }
    Press(Qt::Key_Escape);
    slotGrid->write(2, 1, "Montag");
    slotGrid->write(2, 2, "09:15");
    EXPECT_EQ(Slot(F4(), 2), "Montag|09:15|00:00");
    groupGrid->write(4, 1, "Night");
    EXPECT_EQ(F4().Gruppen[4].Name, "Night");
    groupGrid->write(1, 1, "Day");
    EXPECT_EQ(F4().Gruppen[1].Name, "Timer-A");
}

TEST_F(Clock_View, checks_slots_by_a_click_into_their_box_and_accepts_by_one_on_their_text) {
    Open(false);
    F41().FGK1_Eintragen(2, 1, "Sonntag");
    DoubleClickCell(*groupGrid, 1, 2);
    auto* list = locks->findChild<ui::OverlayChecks*>(QStringLiteral("F41.List2"));
    ASSERT_TRUE(list->isVisible());
    EXPECT_TRUE(groupGrid->rect().contains(list->geometry())) << "it stays within the grid";
    const auto click = [&](int row, int x) {
        const QRect place = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(place.left() + x, place.center().y()));
        Settle();
    };
    click(1, 8);
    EXPECT_TRUE(F41().SlotWahl[1]);
    EXPECT_EQ(list->item(1)->checkState(), Qt::Checked);
    EXPECT_TRUE(list->isVisible());
    Expect(175, Answer::Ok);
    click(0, 8);
    EXPECT_EQ(list->item(0)->checkState(), Qt::Unchecked);
    EXPECT_TRUE(list->isVisible());
    click(1, 60);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(F41().Gruppen[1].Days, "-X---");
    DoubleClickCell(*groupGrid, 1, 2);
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    EXPECT_FALSE(F41().SlotWahl[1]);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(F41().Gruppen[1].Days, "-X---");
}

TEST_F(Clock_View, keeps_every_list_within_its_grid) {
    for (const bool ofPersons : {true, false}) {
        Open(ofPersons);
        WeekTimer& clock = ofPersons ? F4() : F41();
        ui::WeekTimerWindow& window = ofPersons ? *persons : *locks;
        auto* days = window.findChild<ui::OverlayList*>();
        for (int row = 1; row < clock.FGK1.Rows(); ++row) {
            DoubleClickCell(*slotGrid, row, 1);
            ASSERT_TRUE(days->isVisible());
            EXPECT_TRUE(slotGrid->rect().contains(days->geometry())) << row;
            Press(Qt::Key_Escape);
        }
        auto* chosen = window.findChild<ui::OverlayChecks*>();
        for (int row = clock.Traits.FirstFree; row < clock.FGK3.Rows(); ++row) {
            DoubleClickCell(*groupGrid, row, 2);
            ASSERT_TRUE(chosen->isVisible());
            EXPECT_TRUE(groupGrid->rect().contains(chosen->geometry())) << row;
            Press(Qt::Key_Escape);
        }
    }
}

TEST_F(Clock_View, tells_a_name_that_is_taken_once_and_puts_the_old_one_back_by_a_click) {
    Open();
    groupGrid->goTo(3, 1);
    Type("Timer-A");
    Expect(75, Answer::Ok);
    ClickCell(*groupGrid, 5, 1);
    EXPECT_TRUE(world.Answers.empty());
    EXPECT_FALSE(F4().Text2.Visible());
    EXPECT_EQ(F4().FGK3.Text(3, 1), "");
    EXPECT_EQ(F4().FGK3.Row, 5);
}

TEST_F(Clock_View, opens_the_menu_over_a_name_and_deletes_its_group) {
    Open();
    groupGrid->write(3, 1, "Night");
    ClickCell(*groupGrid, 1, 1, Qt::RightButton);
    auto* menu = Find<QMenu>("F4_FGK3");
    EXPECT_FALSE(menu->isVisible());
    ClickCell(*groupGrid, 3, 1, Qt::RightButton);
    ASSERT_TRUE(menu->isVisible());
    menu->close();
    persons->findChild<QAction*>(QStringLiteral("F4.F5_FGK3_Loeschen"))->trigger();
    EXPECT_EQ(F4().Gruppen[3].Name, "");
    ClickCell(*slotGrid, 1, 1, Qt::RightButton);
    EXPECT_TRUE(Find<QMenu>("FGK1_Menue")->isVisible());
    Find<QMenu>("FGK1_Menue")->close();
}

TEST_F(Clock_View, shows_the_group_under_the_keyboard_as_grid_and_picture_and_says_it) {
    Open();
    slotGrid->write(1, 1, "Montag - Freitag");
    slotGrid->write(1, 3, "17:00");
    groupGrid->setFocus();
    Press(Qt::Key_Up);
    Press(Qt::Key_Up);
    world.RunFor(1700);
    Settle();
    auto* week = Find<ui::WeekPicture>("Woche");
    EXPECT_TRUE(Find<ui::GridView>("FGK3i")->isVisible());
    EXPECT_EQ(Find<QLabel>("Label2")->text(), QStringLiteral("Timer-A"));
    ASSERT_TRUE(week->isVisible());
    EXPECT_EQ(week->accessibleDescription(),
              QStringLiteral("Montag - Freitag 00:00 - 17:00. Jetzt, Donnerstag 10:30: innerhalb."));
    week->setFocus();
    EXPECT_EQ(week->currentDay(), 3U);
    world.RunFor(2500);
    EXPECT_TRUE(week->isVisible()) << "the keyboard is on it";
    slotGrid->setFocus();
    world.RunFor(2500);
    EXPECT_FALSE(week->isVisible());
    EXPECT_FALSE(Find<ui::GridView>("FGK3i")->isVisible());
}

TEST_F(Clock_View, keeps_the_group_in_sight_while_the_mouse_rests_on_the_heading) {
    Open();
    const auto rest = [this](QWidget* on, QPoint at) {
        QTest::mouseMove(on, at);
        Settle();
        world.RunFor(2500);
        Settle();
    };
    auto* info = Find<ui::GridView>("FGK3i");
    QHeaderView* heading = groupGrid->horizontalHeader();
    rest(groupGrid->viewport(), CellPlace(*groupGrid, 2, 1));
    ASSERT_TRUE(info->isVisible());
    rest(heading->viewport(), QPoint(heading->sectionViewportPosition(1) + 5, heading->height() / 2));
    EXPECT_TRUE(info->isVisible());
    rest(slotGrid->viewport(), CellPlace(*slotGrid, 2, 1));
    EXPECT_FALSE(info->isVisible());
}

TEST_F(Clock_View, hides_without_a_question_by_its_frame_and_asks_at_escape) {
    Open();
    slotGrid->write(1, 1, "Montag");
    persons->close();
    EXPECT_FALSE(F4().Fenster.Visible());
    F4().FormLaden();
    Settle();
    EXPECT_EQ(F4().FGK1.Text(1, 1), "Montag");
    Expect(60, Answer::No);
    slotGrid->setFocus();
    Press(Qt::Key_Escape);
    EXPECT_TRUE(world.Answers.empty());
    EXPECT_FALSE(F4().Fenster.Visible());
}

} // namespace
} // namespace qvm::test
