// Blocks, the filter line and how rows stand out, on the screen.

#include "GridFilterBar.h"
#include "GridView.h"
#include "Pictures.h"
#include "UiFixture.h"

#include <QAccessible>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

namespace qvm::test {
namespace {

using ui::GridFilterBar;
using ui::GridView;

/// A grid with a filter line in a window.
struct Grid_Blocks : ::testing::Test {
    VirtualPlatform world;
    Kern kern{world.World};
    Grid grid{41, 6};
    GridFilter filter{kern, grid, {1}};
    GridSelection cells{grid, GridSelection::Unit::Cells, &filter};
    QWidget window;
    GridFilterBar bar{filter, QStringLiteral("T.FGK"), &window};
    GridView view{grid, &window};
    QLineEdit* line = bar.findChild<QLineEdit*>();
    std::vector<std::pair<int, int>> Clicked;

    Grid_Blocks() {
        for (int row = 0; row < 41; ++row) {
            for (int column = 0; column < 6; ++column) {
                grid.SetText(row, column, std::to_string(row) + "/" + std::to_string(column));
            }
        }
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&bar);
        layout->addWidget(&view);
        view.setColumns({800, 1500, 1500, 0, 1500, 1500});
        view.setFrozenColumns(2);
        view.setBlocks(cells);
        view.setFilter(filter);
        view.onClick = [this](int row, int column) { Clicked.emplace_back(row, column); };
        filter.Changed = [this] { cells.FilterChanged(); };
        bar.leadTo(&view);
        bar.setWords(QStringLiteral("Name"), "Deutsch");
        window.resize(420, 500);
        Present(window);
        view.setFocus();
        view.setCurrentCell(3, 2);
    }
    QTableView* frozen() { return view.findChild<QTableView*>(); }
    QPoint middle(int row, int column) { return view.viewport()->mapFrom(&view, view.cellRect(row, column).center()); }
    QPoint frozenMiddle(int row, int column) {
        return frozen()->visualRect(frozen()->model()->index(row - 1, column)).center();
    }
    /// A mouse event with the left button, at a place of the viewport `on`.
    static void mouse(QEvent::Type type, QWidget* on, QPoint at, Qt::KeyboardModifiers keys = {}) {
        const bool up = type == QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, on->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          up ? Qt::NoButton : Qt::LeftButton, keys);
        QApplication::sendEvent(on, &event);
    }
    void drag(QWidget* on, QPoint from, QPoint to) {
        mouse(QEvent::MouseButtonPress, on, from);
        mouse(QEvent::MouseMove, on, to);
        mouse(QEvent::MouseButtonRelease, on, to);
    }
    QColor pixel(int row, int column) {
        UiFixture::Settle();
        const QRect cell = view.cellRect(row, column);
        return view.grab().toImage().pixelColor(cell.right() - 4, cell.top() + 3);
    }
};

TEST_F(Grid_Blocks, show_no_current_cell_while_nothing_is_selected) {
    cells.None();
    EXPECT_FALSE(view.currentIndex().isValid());
    EXPECT_TRUE(view.selectionModel()->selectedIndexes().isEmpty());
    cells.Go(5, 2);
    EXPECT_EQ(view.selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(Grid_Blocks, grow_and_shrink_with_shift_and_the_arrows) {
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(cells.Block(), (GridBlock{3, 2, 5, 4}));
    QTest::keyClick(&view, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(cells.Block(), (GridBlock{3, 2, 4, 4}));
    EXPECT_EQ(grid.Row, 4);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(cells.Block(), (GridBlock{5, 4, 5, 4}));
}

TEST_F(Grid_Blocks, stay_while_a_key_is_pressed_that_moves_nothing) {
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyPress(&view, Qt::Key_Control);
    QTest::keyRelease(&view, Qt::Key_Control);
    EXPECT_EQ(cells.Block(), (GridBlock{3, 2, 4, 2}));
}

TEST_F(Grid_Blocks, reach_to_a_click_with_shift_which_presses_nothing) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, middle(6, 4));
    EXPECT_EQ(cells.Block(), (GridBlock{3, 2, 6, 4}));
    QTest::mouseClick(frozen()->viewport(), Qt::LeftButton, Qt::ShiftModifier, frozenMiddle(2, 1));
    EXPECT_EQ(cells.Block(), (GridBlock{2, 1, 3, 2}));
    EXPECT_TRUE(Clicked.empty());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, middle(2, 2));
    EXPECT_EQ(cells.Block(), (GridBlock{2, 2, 2, 2}));
    EXPECT_EQ(Clicked.size(), 1U);
}

TEST_F(Grid_Blocks, fall_together_at_a_click_on_the_current_cell) {
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, middle(3, 2));
    EXPECT_EQ(cells.Block(), (GridBlock{3, 2, 3, 2}));
}

TEST_F(Grid_Blocks, follow_a_drag_which_presses_nothing) {
    drag(view.viewport(), middle(4, 2), middle(8, 4));
    EXPECT_EQ(cells.Block(), (GridBlock{4, 2, 8, 4}));
    EXPECT_EQ(grid.Row, 8);
    EXPECT_TRUE(Clicked.empty());
}

TEST_F(Grid_Blocks, follow_a_drag_that_begins_on_a_frozen_column) {
    drag(frozen()->viewport(), frozenMiddle(2, 1),
         frozen()->viewport()->mapFromGlobal(view.viewport()->mapToGlobal(middle(5, 4))));
    EXPECT_EQ(cells.Block(), (GridBlock{2, 1, 5, 4}));
    EXPECT_TRUE(view.hasFocus());
    EXPECT_TRUE(Clicked.empty());
}

TEST_F(Grid_Blocks, are_no_click_when_the_drag_comes_back_to_where_it_began) {
    mouse(QEvent::MouseButtonPress, view.viewport(), middle(4, 2));
    mouse(QEvent::MouseMove, view.viewport(), middle(7, 2));
    mouse(QEvent::MouseMove, view.viewport(), middle(4, 2));
    mouse(QEvent::MouseButtonRelease, view.viewport(), middle(4, 2));
    EXPECT_EQ(cells.Block(), (GridBlock{4, 2, 4, 2}));
    EXPECT_TRUE(Clicked.empty());
}

TEST_F(Grid_Blocks, scroll_with_a_drag_beyond_the_edge) {
    drag(view.viewport(), middle(3, 2), QPoint(middle(3, 2).x(), view.viewport()->height() + 40));
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
    EXPECT_GT(cells.Block().Bottom, 10);
}

TEST_F(Grid_Blocks, stay_under_the_right_button_and_move_to_it_from_outside) {
    cells.Extend(6, 4);
    QTest::mouseClick(view.viewport(), Qt::RightButton, Qt::NoModifier, middle(5, 4));
    EXPECT_EQ(cells.Block(), (GridBlock{3, 2, 6, 4}));
    QTest::mouseClick(view.viewport(), Qt::RightButton, Qt::NoModifier, middle(8, 4));
    EXPECT_EQ(cells.Block(), (GridBlock{8, 4, 8, 4}));
}

TEST_F(Grid_Blocks, are_everything_with_ctrl_a) {
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(cells.Block(), (GridBlock{1, 0, 40, 5}));
    EXPECT_EQ(grid.Row, 3);
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
}

TEST_F(Grid_Blocks, are_copied_as_tab_separated_text_without_hidden_columns_and_rows) {
    QGuiApplication::clipboard()->clear();
    cells.Extend(4, 5);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "3/2\t3/4\t3/5\n4/2\t4/4\t4/5\n");
    filter.Set("17");
    cells.All();
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "17/0\t17/1\t17/2\t17/4\t17/5\n");
    filter.Set("nowhere");
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "17/0\t17/1\t17/2\t17/4\t17/5\n");
}

TEST_F(Grid_Blocks, lead_the_view_when_the_window_moves_them) {
    cells.Go(35, 4);
    EXPECT_EQ(view.currentIndex(), view.gridModel().index(34, 4));
    EXPECT_FALSE(view.cellRect(35, 4).isEmpty());
    EXPECT_EQ(cells.Block(), (GridBlock{35, 4, 35, 4}));
    cells.Extend(37, 4);
    EXPECT_EQ(cells.Block(), (GridBlock{35, 4, 37, 4}));
    EXPECT_EQ(view.currentIndex().row(), 36);
}

TEST_F(Grid_Blocks, are_selected_to_a_screen_reader) {
    cells.Extend(5, 4);
    QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&view)->tableInterface();
    constexpr int Fourth = 3; // of the columns in sight
    EXPECT_TRUE(table->cellAt(4, Fourth)->state().selected);
    EXPECT_FALSE(table->cellAt(5, Fourth)->state().selected);
    EXPECT_TRUE(table->cellAt(4, Fourth)->state().focused);
}

TEST_F(Grid_Blocks, let_selection_and_filter_go_with_the_view) {
    GridSelection other(grid, GridSelection::Unit::Rows);
    GridFilter sieve(kern, grid, {1});
    {
        Grid second{5, 2};
        GridView brief(second);
        brief.setBlocks(other);
        brief.setFilter(sieve);
    }
    EXPECT_FALSE(other.Changed);
    EXPECT_FALSE(sieve.RowsChanged);
}

// ---- how rows stand out

TEST_F(Grid_Blocks, tint_the_current_row_and_their_own_cells_more) {
    const QColor plain = pixel(7, 2);
    EXPECT_NE(pixel(3, 4), plain);
    cells.Extend(5, 2);
    EXPECT_NE(pixel(3, 2), plain);
    EXPECT_EQ(pixel(3, 4), plain);
    EXPECT_NE(pixel(5, 4), pixel(5, 2));
}

TEST_F(Grid_Blocks, leave_the_row_under_the_mouse_tinted_as_far_as_the_edge) {
    window.resize(1200, 500);
    UiFixture::Settle();
    const auto beside = [&] {
        const QRect cell = view.cellRect(9, 5);
        return view.grab().toImage().pixelColor(cell.right() + 60, cell.center().y());
    };
    const QColor plain = pixel(9, 2);
    EXPECT_EQ(beside(), plain);
    QTest::mouseMove(view.viewport(), middle(9, 4));
    EXPECT_NE(pixel(9, 2), plain);
    EXPECT_NE(pixel(9, 1), plain);
    EXPECT_EQ(beside(), pixel(9, 2));
    QTest::mouseMove(frozen()->viewport(), frozenMiddle(11, 1));
    EXPECT_EQ(pixel(9, 2), plain);
    EXPECT_EQ(pixel(11, 2), beside().isValid() ? pixel(11, 4) : QColor());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(frozen()->viewport(), &leave);
    EXPECT_EQ(pixel(11, 2), plain);
}

TEST_F(Grid_Blocks, never_tint_a_colour_that_carries_a_meaning) {
    grid.SetBackColor(3, 4, 0x0000FF);
    EXPECT_EQ(pixel(3, 4), QColor(255, 0, 0));
}

TEST_F(Grid_Blocks, keep_every_second_shown_row_darker) {
    filter.Set("5/1");
    cells.Go(35, 2);
    EXPECT_FALSE(view.isStripe(4));  // row 5
    EXPECT_TRUE(view.isStripe(14));  // row 15
    EXPECT_FALSE(view.isStripe(24)); // row 25
    filter.Set("");
    EXPECT_FALSE(view.isStripe(4));
    EXPECT_TRUE(view.isStripe(5));
}

// ---- the filter line

TEST_F(Grid_Blocks, are_led_to_their_filter_by_ctrl_f_and_back_by_escape) {
    QTest::keyClick(&view, Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(line->hasFocus());
    QTest::keyClicks(line, QStringLiteral("17"));
    EXPECT_EQ(filter.Count.Text(), "1 von 40");
    EXPECT_FALSE(view.isRowHidden(16));
    EXPECT_TRUE(view.isRowHidden(17));
    EXPECT_TRUE(frozen()->isRowHidden(17));
    EXPECT_EQ(bar.findChild<QLabel*>(QStringLiteral("T.FGK.Count"))->text(), QStringLiteral("1 von 40"));
    QTest::keyClick(line, Qt::Key_Escape);
    EXPECT_TRUE(view.hasFocus());
    EXPECT_EQ(line->text(), QString());
    EXPECT_FALSE(view.isRowHidden(17));
    EXPECT_EQ(grid.Row, 17);
}

TEST_F(Grid_Blocks, take_the_keyboard_from_the_filter_with_return_or_the_arrow) {
    for (const int key : {static_cast<int>(Qt::Key_Return), static_cast<int>(Qt::Key_Down)}) {
        QTest::keyClick(&view, Qt::Key_F, Qt::ControlModifier);
        line->setText(QStringLiteral("17"));
        QTest::keyClick(line, static_cast<Qt::Key>(key));
        EXPECT_TRUE(view.hasFocus());
        EXPECT_EQ(line->text(), QStringLiteral("17"));
    }
    EXPECT_TRUE(Clicked.empty());
}

TEST_F(Grid_Blocks, clear_the_filter_with_escape_before_they_leave_the_window) {
    filter.Set("17");
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(filter.Active());
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&view, &escape);
    EXPECT_FALSE(escape.isAccepted());
}

TEST_F(Grid_Blocks, step_over_hidden_rows_and_press_none) {
    filter.Set("5/1");
    EXPECT_EQ(grid.Row, 5);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(grid.Row, 15);
    filter.Set("nowhere");
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_TRUE(Clicked.empty());
}

TEST_F(Grid_Blocks, bring_the_current_row_into_sight_when_the_filter_goes) {
    filter.Set("38");
    filter.Set("");
    EXPECT_EQ(grid.Row, 38);
    EXPECT_FALSE(view.cellRect(38, 2).isEmpty());
}

TEST_F(Grid_Blocks, keep_the_filter_over_a_grid_that_grows_anew) {
    filter.Set("5/1");
    grid.Resize(1, 6);
    UiFixture::Settle();
    grid.Resize(7, 6);
    grid.SetText(5, 1, "5/1");
    filter.Apply();
    UiFixture::Settle();
    EXPECT_TRUE(view.isRowHidden(0));
    EXPECT_FALSE(view.isRowHidden(4));
    EXPECT_EQ(filter.Count.Text(), "1 von 1");
}

TEST_F(Grid_Blocks, have_a_filter_line_that_says_what_it_is) {
    EXPECT_EQ(line->accessibleName(), QStringLiteral("Filter"));
    EXPECT_EQ(line->placeholderText(), QStringLiteral("Name"));
    EXPECT_TRUE(line->toolTip().contains(QLatin1String("Ctrl+F"))) << line->toolTip().toStdString();
}

// ---- check boxes

TEST_F(Grid_Blocks, read_an_x_as_a_checked_box) {
    view.gridModel().setCheckColumn(5);
    grid.SetText(0, 5, "Prg.");
    grid.SetText(3, 5, "");
    grid.SetBackColor(3, 5, CellColour::Action);
    grid.SetText(4, 5, "X");
    grid.SetBackColor(4, 5, CellColour::Hover);
    grid.SetText(5, 5, "");
    constexpr int Fifth = 4; // of the columns in sight
    QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&view)->tableInterface();
    EXPECT_TRUE(table->cellAt(2, Fifth)->state().checkable);
    EXPECT_FALSE(table->cellAt(2, Fifth)->state().checked);
    EXPECT_TRUE(table->cellAt(3, Fifth)->state().checked);
    EXPECT_FALSE(table->cellAt(4, Fifth)->state().checkable);
    EXPECT_EQ(table->cellAt(3, Fifth)->text(QAccessible::Name), QStringLiteral("Prg."));
    EXPECT_FALSE(view.gridModel().index(3, 5).data().isValid());
}

TEST_F(Grid_Blocks, draw_a_box_that_differs_when_checked) {
    view.gridModel().setCheckColumn(5);
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum());
    grid.SetText(8, 5, "");
    grid.SetBackColor(8, 5, CellColour::Action);
    const auto picture = [this] {
        UiFixture::Settle();
        return view.grab(view.cellRect(8, 5)).toImage();
    };
    const QImage empty = picture();
    grid.SetText(8, 5, "X");
    EXPECT_NE(picture(), empty);
}

} // namespace
} // namespace qvm::test
