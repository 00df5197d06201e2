// Lines of text whose keys the model's handler gets, alone and over a grid's cell.

#include "OverlayEditor.h"
#include "OverlayList.h"
#include "TextEdge.h"
#include "UiFixture.h"

#include <QAccessible>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace qvm::test {
namespace {

using ui::GridView;
using ui::KeyEdit;
using ui::OverlayEditor;
using ui::OverlayList;

struct KeyEdit_Test : ::testing::Test {
    TextBox box;
    QWidget window;
    KeyEdit edit{box, QStringLiteral("F11.Text1"), &window};
    std::vector<int> Keys;
    std::vector<std::string> Texts;

    KeyEdit_Test() {
        edit.onKey = [this](int key) { Keys.push_back(key); };
        Present(window);
        edit.setFocus();
    }
};

TEST_F(KeyEdit_Test, gives_every_key_to_the_handler_and_keeps_the_models_text) {
    QTest::keyClicks(&edit, QStringLiteral("a5"));
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(Keys, (std::vector<int>{'a', '5', Key::Backspace, Key::Delete, Key::Enter}));
    EXPECT_EQ(edit.text(), QString());
    box.Text = std::string("**");
    EXPECT_EQ(edit.text(), QStringLiteral("**"));
}

TEST_F(KeyEdit_Test, gives_umlauts_by_their_code_page_and_nothing_that_has_no_place_in_it) {
    QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_Adiaeresis, QString::fromUtf8("ä"), Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Click, &edit, Qt::Key_unknown, QString::fromUtf8("字"), Qt::NoModifier);
    QTest::keyClick(&edit, 'x', Qt::ControlModifier);
    EXPECT_EQ(Keys, (std::vector<int>{0xE4}));
}

TEST_F(KeyEdit_Test, lets_nothing_be_pasted_past_the_handler) {
    QApplication::clipboard()->setText(QStringLiteral("123456"));
    QTest::keyClick(&edit, 'v', Qt::ControlModifier);
    QTest::keyClick(&edit, Qt::Key_Insert, Qt::ShiftModifier);
    QTest::mouseClick(&edit, Qt::MiddleButton);
    EXPECT_EQ(edit.text(), QString());
    EXPECT_TRUE(Keys.empty());
}

TEST_F(KeyEdit_Test, leaves_tab_and_escape_to_the_window_unless_it_takes_them) {
    QTest::keyClick(&edit, Qt::Key_Tab);
    QTest::keyClick(&edit, Qt::Key_Escape);
    EXPECT_TRUE(Keys.empty());
    edit.takesTab = edit.takesEscape = true;
    QTest::keyClick(&edit, Qt::Key_Tab);
    QTest::keyClick(&edit, Qt::Key_Escape);
    EXPECT_EQ(Keys, (std::vector<int>{Key::Tab, Key::Escape}));
}

TEST_F(KeyEdit_Test, edits_itself_when_the_handler_wants_whole_texts) {
    edit.onText = [this](const std::string& text) { Texts.push_back(text); };
    QTest::keyClicks(&edit, QStringLiteral("ab"));
    QTest::keyClick(&edit, Qt::Key_Left);
    QTest::keyClicks(&edit, QStringLiteral("c"));
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(Texts, (std::vector<std::string>{"a", "ab", "acb"}));
    EXPECT_EQ(box.Text(), "acb");
    EXPECT_EQ(Keys, (std::vector<int>{Key::Enter}));
}

/// The line as the accessible tree has it.
QAccessibleEditableTextInterface& Heard(KeyEdit& edit) {
    return *QAccessible::queryAccessibleInterface(&edit)->editableTextInterface();
}

TEST_F(KeyEdit_Test, gives_a_text_that_came_without_a_key_to_the_handler_key_by_key) {
    edit.onKey = [this](int key) {
        Keys.push_back(key);
        const std::string before = box.Text();
        box.Text = key == Key::Backspace ? before.substr(1) : before + "*";
    };
    Heard(edit).replaceText(0, 0, QString::fromUtf8("1ä\r\t\x7F"));
    EXPECT_EQ(Keys, (std::vector<int>{'1', 0xE4})) << "a line end would confirm what it is part of";
    EXPECT_EQ(edit.text(), QStringLiteral("**"));
    Heard(edit).insertText(2, QStringLiteral("3"));
    EXPECT_EQ(Keys, (std::vector<int>{'1', 0xE4, '3'}));
    Heard(edit).replaceText(0, 3, QStringLiteral("7"));
    EXPECT_EQ(Keys, (std::vector<int>{'1', 0xE4, '3', Key::Backspace, Key::Backspace, Key::Backspace, '7'}));
    EXPECT_EQ(edit.text(), QStringLiteral("*"));
}

TEST_F(KeyEdit_Test, tells_a_text_that_came_without_a_key_where_whole_texts_are_wanted) {
    edit.onText = [this](const std::string& text) {
        Texts.push_back(text);
        box.Text = text.substr(0, 2);
    };
    Heard(edit).replaceText(0, 0, QStringLiteral("abc"));
    EXPECT_EQ(Texts, std::vector<std::string>{"abc"});
    EXPECT_EQ(edit.text(), QStringLiteral("ab"));
    edit.setEnabled(false);
    edit.onText = {};
    Heard(edit).replaceText(0, 2, QStringLiteral("x"));
    EXPECT_TRUE(Keys.empty());
    EXPECT_EQ(edit.text(), QStringLiteral("ab"));
}

TEST_F(KeyEdit_Test, shows_what_the_handler_makes_of_a_text) {
    edit.onText = [this](const std::string& text) { box.Text = text.substr(0, 2); };
    QTest::keyClicks(&edit, QStringLiteral("abcd"));
    EXPECT_EQ(edit.text(), QStringLiteral("ab"));
}

TEST_F(KeyEdit_Test, has_the_caret_where_the_handler_wants_it_when_it_makes_another_text) {
    box.Text = std::string("Mler");
    edit.onText = [this](const std::string& text) {
        if (text.find('!') != std::string::npos) {
            box.Text = std::string("Mler");
            box.Caret = 1;
        }
    };
    edit.setCursorPosition(1);
    QTest::keyClicks(&edit, QStringLiteral("!"));
    EXPECT_EQ(edit.text(), QStringLiteral("Mler"));
    EXPECT_EQ(edit.cursorPosition(), 1);
    QTest::keyClicks(&edit, QStringLiteral("ux"));
    EXPECT_EQ(edit.text(), QStringLiteral("Muxler"));
    EXPECT_EQ(edit.cursorPosition(), 3);
}

TEST_F(KeyEdit_Test, takes_the_focus_when_the_model_asks) {
    edit.clearFocus();
    ASSERT_TRUE(box.SetFocus);
    box.SetFocus();
    EXPECT_TRUE(edit.hasFocus());
}

TEST_F(KeyEdit_Test, lets_the_model_go_when_it_dies) {
    TextBox other;
    { const KeyEdit short_lived(other, QStringLiteral("x"), nullptr); }
    EXPECT_FALSE(other.SetFocus);
    EXPECT_FALSE(other.Text.Changed);
    other.Text = std::string("x");
}

// ---- over a cell

struct Overlay_Test : ::testing::Test {
    Grid grid{50, 4};
    TextBox box;
    ListBox list;
    QWidget window;
    GridView* view;
    OverlayEditor* editor;
    OverlayList* choices;
    std::vector<int> Keys;
    int Lost = 0;

    Overlay_Test() {
        box.Visible = false;
        list.Visible = false;
        view = new GridView(grid, &window);
        view->setGeometry(0, 0, 600, 300);
        editor = new OverlayEditor(box, *view, QStringLiteral("F6.Text3"));
        choices = new OverlayList(list, *view, QStringLiteral("F5.List1"));
        editor->onKey = [this](int key) { Keys.push_back(key); };
        editor->onLostFocus = [this] { ++Lost; };
        grid.SetText(0, 2, "Name");
        window.resize(640, 360);
        Present(window);
        view->setFocus();
    }
    void open(int row, int column) {
        grid.Row = row;
        grid.Column = column;
        box.Visible = true;
    }
};

TEST_F(Overlay_Test, lies_over_the_current_cell_with_the_focus_and_the_columns_name) {
    EXPECT_FALSE(editor->isVisible());
    open(3, 2);
    EXPECT_TRUE(editor->isVisible());
    EXPECT_TRUE(editor->hasFocus());
    EXPECT_EQ(editor->geometry(), view->cellRect(3, 2));
    EXPECT_EQ(editor->accessibleName(), QStringLiteral("Name"));
}

TEST_F(Overlay_Test, gives_tab_return_and_escape_to_the_handler) {
    open(3, 2);
    QTest::keyClick(editor, Qt::Key_Tab);
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(Keys, (std::vector<int>{Key::Tab, Key::Enter, Key::Escape}));
    EXPECT_TRUE(editor->isVisible());
}

TEST_F(Overlay_Test, moves_with_its_cell) {
    open(3, 2);
    const int before = editor->y();
    view->verticalScrollBar()->setValue(10);
    EXPECT_EQ(editor->y(), before - 10);
}

TEST_F(Overlay_Test, tells_that_the_focus_went_elsewhere_but_not_when_the_model_closes_it) {
    open(3, 2);
    view->setFocus();
    EXPECT_EQ(Lost, 1);
    box.Visible = false;
    open(4, 2);
    box.Visible = false;
    EXPECT_EQ(Lost, 1);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_TRUE(view->hasFocus());
}

TEST_F(Overlay_Test, selects_its_whole_text_when_the_model_says_so) {
    box.Text = std::string("Anna");
    open(3, 2);
    ASSERT_TRUE(box.SelectAll);
    box.SelectAll();
    EXPECT_EQ(editor->selectedText(), QStringLiteral("Anna"));
}

TEST_F(Overlay_Test, a_list_takes_tab_for_a_choice_and_return_without_one_for_none) {
    std::vector<int> chosen;
    int cancelled = 0;
    int left = 0;
    choices->onChoose = [&](int index) { chosen.push_back(index); };
    choices->onCancel = [&] { ++cancelled; };
    choices->onLostFocus = [&] { ++left; };
    list.Entries = {"1", "0"};
    list.Selected = 1;
    grid.Row = 2;
    grid.Column = 1;
    list.Visible = true;
    QTest::keyClick(choices, Qt::Key_Tab);
    EXPECT_EQ(chosen, (std::vector<int>{1}));
    list.Selected = -1;
    QTest::keyClick(choices, Qt::Key_Return);
    EXPECT_EQ(chosen.size(), 1U);
    EXPECT_EQ(cancelled, 1);
    view->setFocus();
    EXPECT_EQ(left, 1);
    EXPECT_EQ(cancelled, 1);
}

TEST_F(Overlay_Test, a_list_lies_above_its_cell_when_it_would_rather_and_has_the_room) {
    list.Entries = {"1", "0"};
    choices->above = [] { return true; };
    grid.Row = 5;
    grid.Column = 1;
    list.Visible = true;
    EXPECT_EQ(choices->geometry().bottom() + 1, view->cellRect(5, 1).top());
    list.Visible = false;
    grid.Row = 1;
    list.Visible = true;
    EXPECT_EQ(choices->y(), view->cellRect(1, 1).bottom() + 1);
}

TEST_F(Overlay_Test, a_list_opens_below_its_cell_and_tells_the_choice) {
    std::vector<int> chosen;
    int cancelled = 0;
    choices->onChoose = [&](int index) { chosen.push_back(index); };
    choices->onCancel = [&] { ++cancelled; };
    list.Entries = {"OFF", "Montag", "Dienstag"};
    grid.Row = 2;
    grid.Column = 1;
    list.Visible = true;
    EXPECT_EQ(choices->y(), view->cellRect(2, 1).bottom() + 1);
    EXPECT_TRUE(choices->hasFocus());
    QTest::keyClick(choices, Qt::Key_Down);
    QTest::keyClick(choices, Qt::Key_Down);
    QTest::keyClick(choices, Qt::Key_Return);
    EXPECT_EQ(chosen.size(), 1U);
    EXPECT_EQ(list.Selected, chosen.front());
    QTest::keyClick(choices, Qt::Key_Escape);
    EXPECT_EQ(cancelled, 1);
    list.Visible = false;
    EXPECT_TRUE(view->hasFocus());
    EXPECT_EQ(cancelled, 1);
}

} // namespace
} // namespace qvm::test
