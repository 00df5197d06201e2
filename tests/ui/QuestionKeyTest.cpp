// The key "?", which opens the manual unless it is typed.

#include "F5Window.h"
#include "GridView.h"
#include "Handbuch.h"
#include "KeyEdit.h"
#include "Oberflaeche.h"
#include "Tour.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

bool types(const QWidget& control) {
    const auto* grid = qobject_cast<const ui::GridView*>(&control);
    return qobject_cast<const QLineEdit*>(&control) != nullptr ||
           (grid != nullptr && grid->takesAnyText && grid->takesAnyText(grid->currentIndex().column()));
}

struct OpensTheManual : TourLook {
    static constexpr Turn When = Turn::MovesFocus;
    int Windows = 0;
    int Controls = 0;

    void at(QWidget& window, const char* name) override {
        if (window.windowType() == Qt::Popup || qobject_cast<QDialog*>(&window) != nullptr) {
            return; // menus and the like, messages
        }
        ++Windows;
        Present(window);
        for (const QString& control : controlsOf(&window)) {
            auto* widget = window.findChild<QWidget*>(control);
            widget->setFocus();
            if (!types(*widget) && QApplication::focusWidget() == widget) {
                ++Controls;
                pressAt(*widget, window, name);
            }
        }
    }
    static void pressAt(QWidget& widget, const QWidget& window, const char* name) {
        const std::size_t before = Tour::manualPlaces().size();
        QTest::keyClick(&widget, Qt::Key_Question, Qt::ShiftModifier);
        EXPECT_EQ(Tour::manualPlaces().size(), before + 1) << name << ": " << widget.objectName().toStdString();
        EXPECT_EQ(Tour::manualPlaces().empty() ? "none" : Tour::manualPlaces().back(),
                  Handbuch_Kapitel(window.objectName().toStdString()))
            << name;
    }
    void end() override {
        EXPECT_GE(Windows, 22);
        EXPECT_GE(Controls, 80);
    }
};

struct Question_Key : UiFixture, ::testing::WithParamInterface<std::string_view> {};

TEST_P(Question_Key, opens_the_manual_at_every_control_that_takes_no_text) {
    take<OpensTheManual>(GetParam(), *this);
}

INSTANTIATE_TEST_SUITE_P(Languages, Question_Key, ::testing::ValuesIn(Languages));

struct Question_Typed : UiFixture {
    std::unique_ptr<ui::Oberflaeche> windows;
    ui::GridView* grid = nullptr;
    std::vector<std::string> Places;

    void Open() {
        files.User(1, {.Name = "Anna", .Code = "102030"});
        world.Disk.Files["/q/QVM_System_de.pdf"] = "%PDF";
        world.World.OpenDocumentAt = [this](const std::string&, const std::string& destination) {
            Places.push_back(destination);
            return true;
        };
        Start();
        windows = std::make_unique<ui::Oberflaeche>(*programm);
        programm->kern.Windows.Weg("F5")();
        Present(windows->Persons.f5);
        grid = windows->Persons.f5.findChild<ui::GridView*>(QStringLiteral("F5.FGK4"));
    }
    void Press(int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        grid->setFocus();
        grid->setCurrentCell(UserGrid::FirstRow, column);
        QTest::keyClick(grid, Qt::Key_Question, modifiers);
    }
    ui::KeyEdit* Editor(const char* name) {
        return windows->Persons.f5.findChild<ui::KeyEdit*>(QString::fromUtf8(name));
    }
};

TEST_F(Question_Typed, counts_with_and_without_Shift) {
    Open();
    Press(UserColumn::Name);
    Press(UserColumn::Name, Qt::ShiftModifier);
    EXPECT_THAT(Places, ::testing::ElementsAre("people", "people"));
    EXPECT_FALSE(Editor("F5.Text1")->isVisible());
}

TEST_F(Question_Typed, is_an_entry_of_the_menu_bar_for_the_mouse) {
    Open();
    auto* bar = windows->Persons.f5.findChild<QMenuBar*>(QStringLiteral("F5.Menu"));
    const QRect entry = bar->actionGeometry(bar->actions().last());
    EXPECT_TRUE(bar->rect().contains(entry));
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, entry.center());
    EXPECT_THAT(Places, ::testing::ElementsAre("people"));
}

TEST_F(Question_Typed, begins_an_entry_where_any_character_does) {
    Open();
    Press(UserColumn::KeyLabel, Qt::ShiftModifier);
    EXPECT_THAT(Places, ::testing::IsEmpty());
    ui::KeyEdit* editor = Editor("F5.Text7");
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(editor->text(), QStringLiteral("?"));
    QTest::keyClick(editor, Qt::Key_Question, Qt::ShiftModifier);
    EXPECT_EQ(editor->text(), QStringLiteral("??"));
    EXPECT_THAT(Places, ::testing::IsEmpty());
}

TEST_F(Question_Typed, is_the_keypads_in_a_code) {
    Open();
    Press(UserColumn::Code);
    EXPECT_EQ(Places.size(), 1U);
    QTest::keyClick(grid, Qt::Key_1);
    ui::KeyEdit* editor = Editor("F5.Text2");
    ASSERT_TRUE(editor->isVisible());
    QTest::keyClick(editor, Qt::Key_Question, Qt::ShiftModifier);
    EXPECT_EQ(editor->text(), QStringLiteral("1"));
    EXPECT_EQ(Places.size(), 1U);
}

} // namespace
} // namespace qvm::test
