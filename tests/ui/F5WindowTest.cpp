// The user window on the screen: its grid, its editors, its menus, its keys.

#include "F5Window.h"

#include "F16Window.h"
#include "GridView.h"
#include "Oberflaeche.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QToolButton>

namespace qvm::test {
namespace {

constexpr int FirstLock = 8, Group = 2, Right = 3, Code = 4, Designation = 5, KeyColumn = 6, Finger = 7;

struct F5_Window : UiFixture {
    std::unique_ptr<ui::F5Window> window;
    ui::GridView* grid = nullptr;

    void Open(std::string_view language = "Deutsch") {
        SettledLock(1, "Tor");
        SettledLock(2, "Keller A");
        files.User(1, {.Name = "Anna", .Code = "111111", .Marks = {{1, 'X'}}});
        files.User(2, {.Name = "Bert", .Code = "222222", .FingerFlag = "FS", .FingerId = "7"});
        Start(language);
        window =
            std::make_unique<ui::F5Window>(Model(), programm->Persons->Schluessel, programm->Persons->Finger, nullptr);
        grid = window->findChild<ui::GridView*>(QStringLiteral("F5.FGK4"));
        Model().F5_FormLaden();
        Present(*window);
        window->resize(1100, 700);
        Settle();
        grid->setFocus();
    }
    F5& Model() { return programm->Persons->F5; }
    const std::string& Text(int row, int column) { return Model().FGK4.Text(row, column); }
    void Click(int row, int column, Qt::MouseButton button = Qt::LeftButton) { ClickCell(*grid, row, column, button); }
    void DoubleClick(int row, int column) { DoubleClickCell(*grid, row, column); }
    /// Each key to whatever has the keyboard then.
    void Type(std::string_view keys) {
        for (const char key : keys) {
            QTest::keyClick(window->focusWidget(), key);
        }
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window->focusWidget(), static_cast<Qt::Key>(key), modifiers);
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

TEST_F(F5_Window, shows_users_below_two_heading_rows) {
    Open();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("QVM 7702 SOFTWARE SYSTEM"));
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.rowCount(), 250);
    EXPECT_EQ(model.index(0, 1).data().toString(), QStringLiteral("Anna"));
    EXPECT_EQ(model.index(0, 0).data().toString(), QStringLiteral("1"));
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Name"));
    EXPECT_EQ(model.headerData(FirstLock, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("1"));
    EXPECT_FALSE(grid->isColumnHidden(207));
    EXPECT_TRUE(grid->isColumnHidden(208)); // data of a key, identifier of a finger
    EXPECT_TRUE(grid->isColumnHidden(209));
}

TEST_F(F5_Window, begins_with_the_keyboard_in_the_grid_also_behind_a_disabled_main_window) {
    SettledLock(1, "Tor");
    Start();
    ui::Oberflaeche windows(*programm);
    programm->Main->F2.F2_Laden();
    programm->Main->F2.Timer2.Stop();
    programm->Main->F2.Verbunden = 1;
    Present(windows.Main.f2);
    programm->Main->F2.Toolbar1_ButtonClick("x1504");
    Settle();
    EXPECT_FALSE(windows.Main.f2.isEnabled());
    ASSERT_TRUE(windows.Persons.f5.isVisible());
    EXPECT_EQ(windows.Persons.f5.focusWidget()->objectName(), QStringLiteral("F5.FGK4"));
    windows.Persons.f5.close();
    EXPECT_TRUE(windows.Main.f2.isEnabled());
    programm->Main->F2.Timer2.Stop();
}

TEST_F(F5_Window, writes_the_names_of_locks_upright_and_speaks_them_in_one_word) {
    Open();
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.headerData(FirstLock, Qt::Horizontal, ui::GridModel::UprightRole).toString(),
              QStringLiteral("Tor"));
    EXPECT_EQ(model.headerData(FirstLock, Qt::Horizontal, Qt::AccessibleTextRole).toString(), QStringLiteral("Tor 1"));
    EXPECT_EQ(model.headerData(FirstLock + 1, Qt::Horizontal, Qt::AccessibleTextRole).toString(),
              QStringLiteral("Keller A 2"));
    // Ten letters at least have room: 2000 twips of 240 a line.
    const int line = QFontMetrics(grid->font()).lineSpacing();
    EXPECT_GE(grid->horizontalHeader()->height(), 2000 * line / 240 + QFontMetrics(grid->font()).height());
}

TEST_F(F5_Window, types_a_user_by_keyboard_alone) {
    Open();
    grid->setCurrentCell(4, 1);
    Type("Cora");
    auto* editor = Named<QLineEdit>("F5.Text1");
    ASSERT_TRUE(editor->hasFocus());
    EXPECT_EQ(editor->text(), QStringLiteral("Cora"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(4, 1), "Cora");
    EXPECT_EQ(Text(4, Group), "-");
    ASSERT_TRUE(grid->hasFocus());
    EXPECT_EQ(Model().FGK4.Column, Code);
    Type("3");
    Type("a3d33;");
    EXPECT_EQ(Named<QLineEdit>("F5.Text2")->text(), QStringLiteral("3A3D33"));
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(4, Code), "3A3D33");
    Press(Qt::Key_Return);
    Type("Chip");
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(4, Designation), "Chip");
    EXPECT_TRUE(Model().Tabelle.UserDirty);
}

TEST_F(F5_Window, selects_the_whole_text_when_return_opens_an_editor) {
    Open();
    grid->setCurrentCell(2, 1);
    Press(Qt::Key_Return);
    EXPECT_EQ(Named<QLineEdit>("F5.Text1")->selectedText(), QStringLiteral("Anna"));
    Type("Ada");
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(2, 1), "Ada");
}

TEST_F(F5_Window, leaves_an_editor_with_escape_as_it_was_and_stays_open) {
    Open();
    grid->setCurrentCell(2, 1);
    Type("xyz");
    Press(Qt::Key_Escape);
    EXPECT_EQ(Text(2, 1), "Anna");
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(grid->hasFocus());
}

TEST_F(F5_Window, takes_an_editor_over_at_a_click_elsewhere) {
    Open();
    grid->setCurrentCell(2, 1);
    Type("Bert");
    Click(3, Code);
    EXPECT_EQ(Text(2, 1), "Bert"); // nobody compares it
    EXPECT_EQ(Model().OpenColumn, 0);
    EXPECT_EQ(Model().FGK4.Row, 3);
}

TEST_F(F5_Window, opens_an_editor_at_a_double_click) {
    Open();
    DoubleClick(2, Code);
    EXPECT_TRUE(Named<QLineEdit>("F5.Text2")->hasFocus());
    EXPECT_EQ(Named<QLineEdit>("F5.Text2")->text(), QStringLiteral("111111"));
}

TEST_F(F5_Window, chooses_groups_and_rights_from_lists) {
    Open();
    grid->setCurrentCell(2, Right);
    Press(Qt::Key_Return);
    auto* rights = Named<QListWidget>("F5.List2");
    ASSERT_TRUE(rights->hasFocus());
    EXPECT_EQ(rights->count(), 6);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(2, Right), "0");
    grid->setCurrentCell(2, Group);
    Press(Qt::Key_Return);
    auto* groups = Named<QListWidget>("F5.List1");
    ASSERT_TRUE(groups->hasFocus());
    EXPECT_EQ(groups->item(0)->text(), QStringLiteral(" - "));
    Press(Qt::Key_Down);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Text(2, Group), groups->item(1)->text().toStdString());
    EXPECT_TRUE(grid->hasFocus());
    Press(Qt::Key_Return);
    Press(Qt::Key_Up);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Text(2, Group), groups->item(1)->text().toStdString());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(F5_Window, opens_a_list_above_its_cell_near_the_end_of_the_table) {
    Open();
    grid->setCurrentCell(251, Right);
    Settle();
    grid->setCurrentCell(245, Right);
    Press(Qt::Key_Return);
    EXPECT_LE(Named<QListWidget>("F5.List2")->geometry().bottom(), grid->cellRect(245, Right).top());
}

TEST_F(F5_Window, steps_a_mark_with_every_click_of_a_double_click) {
    Open();
    Click(2, FirstLock);
    EXPECT_EQ(Text(2, FirstLock), "");
    DoubleClick(3, FirstLock);
    EXPECT_EQ(Text(3, FirstLock), "F"); // none, X, F as there is a finger
}

TEST_F(F5_Window, marks_a_block_that_was_dragged_or_selected_with_shift) {
    Open();
    QTest::mousePress(grid->viewport(), Qt::LeftButton, Qt::NoModifier, CellPlace(*grid, 2, FirstLock + 1));
    QMouseEvent move(QEvent::MouseMove, CellPlace(*grid, 3, FirstLock + 1),
                     grid->viewport()->mapToGlobal(CellPlace(*grid, 3, 9)), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(grid->viewport(), &move);
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, Qt::NoModifier, CellPlace(*grid, 3, FirstLock + 1));
    EXPECT_EQ(Text(3, FirstLock + 1), "");
    Press(Qt::Key_Space);
    EXPECT_EQ(Text(2, FirstLock + 1) + Text(3, FirstLock + 1), "XX");
    grid->setCurrentCell(2, FirstLock);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(2, FirstLock) + Text(3, FirstLock) + Text(2, 9) + Text(3, 9), "XF");
}

TEST_F(F5_Window, copies_the_block_and_takes_changes_back_and_does_them_again) {
    Open();
    grid->setCurrentCell(2, 1);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Anna\nBert\n"));
    Click(2, FirstLock);
    EXPECT_EQ(Text(2, FirstLock), "");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(2, FirstLock), "X");
    EXPECT_NE(Named<QLabel>("F5.Hinweis")->text(), QString());
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Text(2, FirstLock), "");
}

TEST_F(F5_Window, opens_no_editor_by_ctrl_and_a_letter) {
    Open();
    grid->setCurrentCell(2, 1);
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_C, Qt::Key_K, Qt::Key_V}) {
        Press(key, Qt::ControlModifier);
        EXPECT_EQ(Model().OpenColumn, 0) << key;
    }
}

TEST_F(F5_Window, goes_right_with_tab_to_column_200_and_leaves_with_shift_tab) {
    Open();
    grid->setCurrentCell(2, 199);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Model().FGK4.Column, 200);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Model().FGK4.Column, 200);
    EXPECT_TRUE(grid->hasFocus());
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_FALSE(grid->hasFocus());
}

TEST_F(F5_Window, keeps_out_of_the_column_of_numbers) {
    Open();
    grid->setCurrentCell(3, 1);
    Press(Qt::Key_Left);
    EXPECT_EQ(grid->currentIndex(), grid->gridModel().index(1, 1));
    grid->setCurrentCell(3, Code);
    Press(Qt::Key_Home);
    EXPECT_EQ(Model().FGK4.Column, 1);
    Click(2, 0);
    EXPECT_EQ(grid->currentIndex().column(), 1);
    EXPECT_EQ(grid->currentIndex().column(), Model().FGK4.Column);
}

TEST_F(F5_Window, opens_each_menu_by_its_button_and_by_the_key_for_menus) {
    Open();
    const auto openedBy = [this](int column, Qt::MouseButton button) {
        grid->setCurrentCell(2, column);
        Click(2, column, button);
        return OpenMenu();
    };
    EXPECT_EQ(openedBy(KeyColumn, Qt::LeftButton), "F5.F5_E_Key");
    EXPECT_EQ(openedBy(Finger, Qt::LeftButton), "F5.F5_Fingerscan");
    EXPECT_EQ(openedBy(1, Qt::RightButton), "F5.M_FGK4");
    EXPECT_EQ(openedBy(FirstLock, Qt::RightButton), "F5.M_FGK4");
    EXPECT_EQ(openedBy(Designation, Qt::RightButton), "");
    EXPECT_EQ(openedBy(1, Qt::LeftButton), "");
    grid->setCurrentCell(2, KeyColumn);
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(grid, &menuKey);
    EXPECT_EQ(OpenMenu(), "F5.F5_E_Key");
    grid->setCurrentCell(2, Finger);
    Press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(OpenMenu(), "F5.F5_Fingerscan");
}

TEST_F(F5_Window, opens_the_manual_at_its_chapter_also_from_an_entry) {
    Open();
    std::vector<std::string> told;
    world.World.OpenDocumentAt = [&](const std::string& path, const std::string& destination) {
        told.push_back(path + "#" + destination);
        return true;
    };
    world.Disk.Files["/q/QVM_System_de.pdf"] = "%PDF";
    grid->setCurrentCell(2, 1);
    Press(Qt::Key_F1);
    EXPECT_THAT(told, testing::ElementsAre("/q/QVM_System_de.pdf#people"));
    Press(Qt::Key_A); // an entry has begun
    Press(Qt::Key_F1);
    EXPECT_EQ(told.size(), 2U);
}

TEST_F(F5_Window, deletes_by_its_menu) {
    Open();
    Click(2, Code, Qt::RightButton);
    EXPECT_EQ(OpenMenu(), "F5.M_FGK4");
    Named<QAction>("F5.F5_Loeschen")->trigger();
    EXPECT_EQ(Text(2, Code), "");
    EXPECT_EQ(Text(3, Code), "222222");
}

TEST_F(F5_Window, keeps_names_in_sight_while_it_is_scrolled_until_a_click_in_the_groups) {
    Open();
    grid->setCurrentCell(2, 100);
    Settle();
    EXPECT_EQ(Model().FixedCols, 2);
    EXPECT_FALSE(grid->cellRect(2, 1).isEmpty());
    QWidget* names = grid->findChild<QTableView*>()->viewport();
    const QPoint name = names->mapFrom(grid, grid->cellRect(2, 1).center());
    QTest::mouseDClick(names, Qt::LeftButton, Qt::NoModifier, name);
    QTest::mouseRelease(names, Qt::LeftButton, Qt::NoModifier, name);
    EXPECT_TRUE(grid->cellRect(2, 1).intersects(Named<QLineEdit>("F5.Text1")->geometry()));
    Press(Qt::Key_Escape);
    grid->horizontalScrollBar()->setValue(1);
    Click(2, Group);
    EXPECT_EQ(Model().FixedCols, 1);
    EXPECT_EQ(grid->horizontalScrollBar()->value(), 0);
}

TEST_F(F5_Window, says_in_a_tip_who_and_which_lock_also_without_a_mark) {
    Open();
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.index(0, FirstLock).data(Qt::ToolTipRole).toString(), QStringLiteral("Anna, Tor: Zugang"));
    EXPECT_EQ(model.index(1, FirstLock + 1).data(Qt::ToolTipRole).toString(),
              QStringLiteral("Bert, Keller A: kein Zugang"));
    EXPECT_EQ(model.index(1, Finger).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("FS Fingerprint vorhanden"));
    EXPECT_FALSE(model.index(9, FirstLock).data(Qt::ToolTipRole).isValid());
}

TEST_F(F5_Window, has_a_picture_of_its_own_for_each_state_of_a_finger) {
    QList<QImage> seen;
    for (const int id : {FingerPicture::None, FingerPicture::Standard, FingerPicture::Premium, FingerPicture::Off}) {
        const QIcon icon = ui::pictureIcon(ui::PictureSet::Finger, id);
        ASSERT_FALSE(icon.isNull()) << id;
        const QImage image = icon.pixmap(24, 24).toImage();
        EXPECT_FALSE(seen.contains(image)) << id;
        seen += image;
    }
}

TEST_F(F5_Window, tints_the_heads_of_the_cell_under_the_mouse) {
    Open();
    QTest::mouseMove(grid->viewport(), CellPlace(*grid, 3, FirstLock));
    Settle();
    world.RunFor(40);
    EXPECT_EQ(Model().FGK4.At(3, 0).BackColor, 0xE0E0E0U);
    EXPECT_EQ(Model().FGK4.At(1, FirstLock).BackColor, 0xDCDCDCU);
    Settle();
    const int x = grid->horizontalHeader()->sectionViewportPosition(FirstLock) + 3;
    const auto seen = [&](int at) {
        return grid->horizontalHeader()->grab().toImage().pixelColor(at, 0 + grid->horizontalHeader()->height() - 6);
    };
    EXPECT_NE(seen(x), seen(x + grid->columnWidth(FirstLock)));
}

TEST_F(F5_Window, measures_its_columns_at_new_headings_and_not_at_tints) {
    Open();
    int moves = 0;
    QObject::connect(grid, &ui::GridView::cellsMoved, [&moves] { ++moves; });
    Model().FGK4.SetBackColor(1, FirstLock, 0xDCDCDC);
    Settle();
    EXPECT_EQ(moves, 0);
    Model().FGK4.SetText(1, FirstLock, "a new heading");
    Settle();
    EXPECT_GT(moves, 0);
}

TEST_F(F5_Window, counts_in_its_status_line) {
    Open();
    EXPECT_EQ(Named<QLabel>("F5.Benutzerzahl")->accessibleName().toStdString(),
              QString::fromLatin1(Model().Benutzerzahl.Text()).toStdString());
    EXPECT_TRUE(Named<QLabel>("F5.Benutzerzahl")->accessibleName().contains(QStringLiteral("248")));
    grid->setCurrentCell(2, FirstLock);
    EXPECT_TRUE(Named<QLabel>("F5.Benutzermarken")->accessibleName().contains(QStringLiteral("Anna")));
    EXPECT_TRUE(Named<QLabel>("F5.Schlossmarken")->accessibleName().contains(QStringLiteral("Tor")));
}

TEST_F(F5_Window, goes_back_by_its_key_by_escape_and_by_its_frame_and_asks_about_changes) {
    Open();
    for (int way = 0; way < 3; ++way) {
        Model().F5_FormLaden();
        Click(2, FirstLock);
        Expect(60, Answer::No);
        if (way == 0) {
            Named<QToolButton>("F5.Toolbar1.Zurück")->click();
        } else if (way == 1) {
            grid->setFocus();
            Press(Qt::Key_Escape);
        } else {
            window->close();
        }
        EXPECT_FALSE(window->isVisible()) << way;
        EXPECT_TRUE(world.Answers.empty()) << way;
    }
}

TEST_F(F5_Window, saves_what_was_typed_and_shows_it_again) {
    Open();
    grid->setCurrentCell(4, 1);
    Type("Cora");
    Named<QToolButton>("F5.Toolbar1.Speichern")->click();
    EXPECT_EQ(world.Disk.Files["/q/DAT/BX10X52WUJ9.UBW"].substr(2 * 419, 4), "Cora");
    EXPECT_FALSE(Model().Tabelle.UserDirty);
}

TEST_F(F5_Window, is_walked_with_tab_and_names_every_control) {
    Open();
    Named<QToolButton>("F5.Toolbar1.Zurück")->setFocus();
    EXPECT_EQ(tabOrder(window.get()),
              (QStringList{QString::fromUtf8("F5.Toolbar1.Zurück"), QStringLiteral("F5.Toolbar1.Aufsteigend sortieren"),
                           QStringLiteral("F5.Toolbar1.Suchen"), QStringLiteral("F5.Toolbar1.Neu"),
                           QStringLiteral("F5.Toolbar1.CSV-Print"), QStringLiteral("F5.Toolbar1.Speichern"),
                           QStringLiteral("F5.FGK4")}));
    EXPECT_EQ(unnamedControls(window.get()), QStringList());
}

TEST_F(F5_Window, has_a_key_of_its_own_for_every_entry_of_every_menu) {
    for (const std::string_view language : Languages) {
        Open(language);
        for (const QMenu* menu : window->findChildren<QMenu*>()) {
            EXPECT_EQ(doubtfulMnemonics(menu), QStringList()) << menu->objectName().toStdString();
        }
        window.reset();
    }
}

TEST_F(F5_Window, finds_a_user_by_ctrl_f_and_marks_the_hit) {
    Open();
    ui::F16Window search(programm->Persons->F16, window.get());
    Press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(search.isVisible());
    EXPECT_FALSE(window->isEnabled());
    QApplication::setActiveWindow(&search);
    auto* line = search.findChild<QLineEdit*>(QStringLiteral("F16.Text1"));
    QTest::keyClicks(line, QStringLiteral("bert"));
    QTest::keyClick(line, Qt::Key_Return);
    Settle();
    EXPECT_FALSE(search.isVisible());
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(grid->currentIndex(), grid->gridModel().index(1, 1));
    EXPECT_EQ(Model().FGK4.At(3, 1).BackColor, F16::HitGround);
}

TEST_F(F5_Window, comes_back_from_the_search_at_escape) {
    Open();
    ui::F16Window search(programm->Persons->F16, window.get());
    Named<QToolButton>("F5.Toolbar1.Suchen")->click();
    ASSERT_TRUE(search.isVisible());
    auto* line = search.findChild<QLineEdit*>(QStringLiteral("F16.Text1"));
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_FALSE(search.isVisible());
    EXPECT_TRUE(window->isEnabled());
    EXPECT_TRUE(window->isVisible());
}

} // namespace
} // namespace qvm::test
