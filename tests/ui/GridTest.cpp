// The grid's model and its view.

#include "GridView.h"
#include "Pictures.h"
#include "TextEdge.h"
#include "UiFixture.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

namespace qvm::test {
namespace {

using ui::GridModel;
using ui::GridView;
using Place = std::pair<int, int>;

struct GridModel_Test : ::testing::Test {
    Grid grid{5, 3};
    GridModel model{grid};
    QString text(int row, int column) const { return model.index(row, column).data().toString(); }
};

TEST_F(GridModel_Test, passes_the_model_tester_while_the_grid_changes_and_grows) {
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    grid.SetText(2, 1, "x");
    UiFixture::Settle();
    grid.Resize(9, 4);
    UiFixture::Settle();
    grid.Resize(1, 2);
    UiFixture::Settle();
    grid.ClearRows();
    UiFixture::Settle();
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 2);
}

TEST_F(GridModel_Test, takes_row_0_as_header_and_the_rest_as_rows) {
    grid.SetText(0, 1, "Kopf");
    grid.SetText(1, 1, "T\xFCr");
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Kopf"));
    EXPECT_EQ(text(0, 1), QString::fromUtf8("Tür"));
}

TEST_F(GridModel_Test, takes_two_rows_as_header_with_a_word_upright_in_the_upper_one) {
    const GridModel two{grid, nullptr, 2};
    grid.SetText(0, 1, "A\nb\n\n\nc");
    grid.SetText(1, 1, "7");
    grid.SetText(2, 1, "x");
    EXPECT_EQ(two.rowCount(), 3);
    EXPECT_EQ(two.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("7"));
    EXPECT_EQ(two.headerData(1, Qt::Horizontal, GridModel::UprightRole).toString(), QStringLiteral("Ab c"));
    EXPECT_EQ(two.headerData(1, Qt::Horizontal, Qt::AccessibleTextRole).toString(), QStringLiteral("Ab c 7"));
    EXPECT_EQ(two.headerData(0, Qt::Horizontal, Qt::AccessibleTextRole).toString(), QString());
    EXPECT_EQ(two.index(0, 1).data().toString(), QStringLiteral("x"));
    EXPECT_EQ(two.cellIndex(2, 1), two.index(0, 1));
    EXPECT_FALSE(two.cellIndex(1, 1).isValid());
    EXPECT_EQ(two.gridRow(0), 2);
}

TEST_F(GridModel_Test, says_the_tip_of_a_column_at_its_heading_and_behind_its_texts) {
    model.setTip(1, [](int row) { return row == 3 ? QString() : QStringLiteral("Zeile %1").arg(row); });
    grid.SetText(2, 1, "x");
    grid.SetText(3, 1, "y");
    EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::ToolTipRole).toString(), QStringLiteral("Zeile 0"));
    EXPECT_EQ(model.index(1, 1).data(Qt::ToolTipRole).toString(), QStringLiteral("Zeile 2"));
    EXPECT_EQ(model.index(1, 1).data(Qt::AccessibleDescriptionRole).toString(), QStringLiteral("Zeile 2"));
    EXPECT_FALSE(model.index(2, 1).data(Qt::ToolTipRole).isValid());
    EXPECT_FALSE(model.index(1, 2).data(Qt::ToolTipRole).isValid());
    EXPECT_FALSE(model.headerData(2, Qt::Horizontal, Qt::ToolTipRole).isValid());
}

TEST_F(GridModel_Test, tells_the_views_of_many_changes_once_and_of_all_of_them) {
    const QSignalSpy spy(&model, &QAbstractItemModel::dataChanged);
    grid.SetText(2, 0, "a");
    grid.SetText(4, 2, "b");
    grid.SetText(3, 1, "c");
    EXPECT_EQ(spy.size(), 0);
    UiFixture::Settle();
    ASSERT_EQ(spy.size(), 1);
    EXPECT_EQ(spy[0][0].toModelIndex(), model.index(1, 0));
    EXPECT_EQ(spy[0][1].toModelIndex(), model.index(3, 2));
}

TEST_F(GridModel_Test, tells_a_change_of_the_header_as_one) {
    const QSignalSpy cells(&model, &QAbstractItemModel::dataChanged);
    const QSignalSpy header(&model, &QAbstractItemModel::headerDataChanged);
    grid.SetText(0, 2, "Neu");
    UiFixture::Settle();
    EXPECT_EQ(cells.size(), 0);
    ASSERT_EQ(header.size(), 1);
    EXPECT_EQ(header[0][1].toInt(), 2);
}

TEST_F(GridModel_Test, lets_the_grid_go_when_it_dies) {
    { const GridModel other(grid); }
    EXPECT_FALSE(grid.CellChanged);
    grid.SetText(1, 1, "x");
}

TEST_F(GridModel_Test, shows_an_icon_only_in_cells_that_can_be_clicked) {
    model.setActionIcon(1, QStringLiteral("program"));
    grid.SetBackColor(1, 1, CellColour::Action);
    grid.SetBackColor(2, 1, CellColour::Hover);
    EXPECT_FALSE(model.index(0, 1).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_FALSE(model.index(1, 1).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_FALSE(model.index(2, 1).data(Qt::DecorationRole).isValid());
    EXPECT_TRUE(model.isAction(1, 1));
    EXPECT_FALSE(model.isAction(3, 1));
    EXPECT_FALSE(model.isAction(1, 2));
}

TEST_F(GridModel_Test, says_in_words_what_shows_only_a_picture) {
    grid.SetText(0, 1, "Programm");
    grid.SetText(0, 2, "Funkkanal");
    model.setActionIcon(1, QStringLiteral("program"));
    model.setPictures(ui::PictureSet::Channel);
    model.setPictureText(2, ChannelPicture::Image8, QStringLiteral("OK"));
    grid.SetBackColor(1, 1, CellColour::Action);
    grid.SetPicture(1, 2, ChannelPicture::Image8);
    EXPECT_EQ(model.index(0, 1).data(Qt::AccessibleTextRole).toString(), QStringLiteral("Programm"));
    EXPECT_EQ(model.index(0, 1).data(Qt::ToolTipRole).toString(), QStringLiteral("Programm"));
    EXPECT_EQ(model.index(0, 2).data(Qt::AccessibleTextRole).toString(), QStringLiteral("Funkkanal OK"));
    grid.SetText(1, 2, "Text");
    EXPECT_EQ(model.index(0, 2).data(Qt::AccessibleTextRole).toString(), QStringLiteral("Text"));
    EXPECT_FALSE(model.index(0, 2).data(Qt::ToolTipRole).isValid());
}

TEST_F(GridModel_Test, enlarges_a_font_in_proportion_to_the_grids_own) {
    model.setBaseFontSize(12);
    grid.SetFontSize(1, 1, 12);
    grid.SetFontSize(2, 1, 24);
    EXPECT_FALSE(model.index(0, 1).data(Qt::FontRole).isValid());
    EXPECT_DOUBLE_EQ(model.index(1, 1).data(Qt::FontRole).value<QFont>().pointSizeF(),
                     2 * QApplication::font().pointSizeF());
}

// ---- the view

struct GridView_Test : ::testing::Test {
    Grid grid{201, 16};
    GridView view{grid};
    std::vector<Place> Clicks;
    std::vector<int> Keys;

    GridView_Test() {
        for (int row = 0; row < 201; ++row) {
            for (int column = 0; column < 16; ++column) {
                grid.SetText(row, column, std::to_string(row) + "/" + std::to_string(column));
            }
        }
        view.setColumns(std::vector<int>(16, 1500));
        view.setFrozenColumns(2);
        view.onClick = [this](int row, int column) { Clicks.emplace_back(row, column); };
        view.resize(500, 400);
        Present(view);
    }
    QTableView* frozen() { return view.findChild<QTableView*>(); }
    void clickAt(QWidget* on, QPoint at) { QTest::mouseClick(on, Qt::LeftButton, Qt::NoModifier, at); }
};

TEST_F(GridView_Test, keeps_the_first_columns_beside_the_rows_when_it_scrolls_down) {
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 2);
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
    EXPECT_EQ(frozen()->verticalScrollBar()->value(), view.verticalScrollBar()->value());
    const int y = 100;
    EXPECT_EQ(frozen()->rowAt(y), view.rowAt(y));
}

TEST_F(GridView_Test, keeps_the_first_columns_in_sight_when_it_scrolls_across) {
    const QRect before = view.cellRect(1, 0);
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum());
    EXPECT_GT(view.horizontalScrollBar()->value(), 0);
    EXPECT_TRUE(frozen()->isVisible());
    EXPECT_EQ(frozen()->columnAt(5), 0);
    EXPECT_EQ(frozen()->horizontalScrollBar()->value(), 0);
    EXPECT_EQ(frozen()->geometry().left(), before.left());
    EXPECT_GE(frozen()->width(), view.columnWidth(0) + view.columnWidth(1));
    EXPECT_TRUE(frozen()->isColumnHidden(2));
}

TEST_F(GridView_Test, keeps_the_headings_of_the_first_columns_above_them) {
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum());
    const QPoint heading(view.frameWidth() + 5, view.frameWidth() + 5);
    const QWidget* there = view.childAt(heading);
    ASSERT_NE(there, nullptr);
    EXPECT_EQ(there->parentWidget(), frozen()->horizontalHeader());
}

TEST_F(GridView_Test, scrolls_a_cell_out_from_under_the_frozen_columns) {
    view.setCurrentCell(1, 15);
    view.setCurrentCell(1, 2);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 0);
    EXPECT_GE(view.cellRect(1, 2).left(), frozen()->geometry().right());
}

TEST_F(GridView_Test, scrolls_only_down_for_a_frozen_cell) {
    view.horizontalScrollBar()->setValue(200);
    view.setCurrentCell(150, 0);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 200);
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
}

TEST_F(GridView_Test, clicks_the_cell_under_the_mouse_and_makes_it_the_current_one) {
    const QRect cell = view.cellRect(3, 2);
    clickAt(view.viewport(), view.viewport()->mapFrom(&view, cell.center()));
    EXPECT_EQ(Clicks, (std::vector<Place>{{3, 2}}));
    EXPECT_EQ(grid.Row, 3);
    EXPECT_EQ(grid.Column, 2);
}

TEST_F(GridView_Test, clicks_a_frozen_cell_as_any_other) {
    view.horizontalScrollBar()->setValue(200);
    clickAt(frozen()->viewport(), frozen()->visualRect(frozen()->model()->index(4, 1)).center());
    EXPECT_EQ(Clicks, (std::vector<Place>{{5, 1}}));
    EXPECT_EQ(grid.Row, 5);
    EXPECT_EQ(grid.Column, 1);
    EXPECT_TRUE(view.hasFocus());
}

TEST_F(GridView_Test, takes_a_release_on_another_cell_for_no_click) {
    const QPoint from = view.viewport()->mapFrom(&view, view.cellRect(3, 2).center());
    const QPoint to = view.viewport()->mapFrom(&view, view.cellRect(5, 2).center());
    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(view.viewport(), to);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, to);
    QTest::mouseClick(view.viewport(), Qt::RightButton, Qt::NoModifier, from);
    EXPECT_TRUE(Clicks.empty());
}

TEST_F(GridView_Test, moves_with_the_arrows_and_clicks_with_return_and_space) {
    view.setCurrentCell(2, 2);
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Right);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(grid.Row, 3);
    EXPECT_EQ(grid.Column, 3);
    EXPECT_EQ(Clicks, (std::vector<Place>{{3, 3}, {3, 3}}));
}

TEST_F(GridView_Test, hands_typed_keys_to_its_handler) {
    view.onKey = [this](int key) { Keys.push_back(key); };
    QTest::keyClick(&view, 'a');
    QTest::keyClick(&view, Qt::Key_Backspace);
    QTest::keyClick(&view, Qt::Key_Delete);
    QTest::keyClick(&view, 'c', Qt::ControlModifier);
    EXPECT_EQ(Keys, (std::vector<int>{'a', Key::Backspace, Key::Delete}));
}

TEST_F(GridView_Test, leaves_with_tab) {
    QWidget window;
    auto* first = new GridView(grid, &window);
    auto* second = new QWidget(&window);
    second->setFocusPolicy(Qt::StrongFocus);
    Present(window);
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
}

TEST_F(GridView_Test, says_which_cell_the_mouse_is_over) {
    int row = 0;
    int column = 0;
    QTest::mouseMove(view.viewport(), view.viewport()->mapFrom(&view, view.cellRect(4, 3).center()));
    UiFixture::Settle();
    ASSERT_TRUE(view.cellUnderMouse(row, column));
    EXPECT_EQ(Place(row, column), Place(4, 3));
    QTest::mouseMove(frozen()->viewport(), frozen()->visualRect(frozen()->model()->index(1, 1)).center());
    UiFixture::Settle();
    ASSERT_TRUE(view.cellUnderMouse(row, column));
    EXPECT_EQ(Place(row, column), Place(2, 1));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(view.viewport(), &leave);
    EXPECT_FALSE(view.cellUnderMouse(row, column));
}

TEST_F(GridView_Test, says_where_on_the_heading_or_on_a_cell_the_mouse_is) {
    const QPoint cell = view.viewport()->mapFrom(&view, view.cellRect(4, 3).center());
    QTest::mouseMove(view.viewport(), cell);
    UiFixture::Settle();
    EXPECT_EQ(view.pointer(), (GridPointer{4, 3, cell.x(), cell.y()}));
    QTest::mouseMove(view.viewport(), cell + QPoint(1, 0));
    UiFixture::Settle();
    EXPECT_EQ(view.pointer(), (GridPointer{4, 3, cell.x() + 1, cell.y()}));
    auto* heading = view.horizontalHeader();
    const QPoint title(heading->sectionViewportPosition(4) + 2, 3);
    QTest::mouseMove(heading->viewport(), title);
    UiFixture::Settle();
    EXPECT_EQ(view.pointer(), (GridPointer{0, 4, title.x(), title.y()}));
    QEvent leave(QEvent::Leave);
    for (QWidget* part : {heading->viewport(), view.viewport()}) {
        QApplication::sendEvent(part, &leave);
    }
    EXPECT_EQ(view.pointer(), GridPointer());
}

TEST_F(GridView_Test, hides_columns_of_width_0_and_stretches_one) {
    std::vector<int> twips(16, 0);
    twips[0] = 650;
    twips[1] = 3500;
    twips[9] = 1300;
    view.setColumns(twips, 1);
    UiFixture::Settle();
    EXPECT_FALSE(view.isColumnHidden(9));
    EXPECT_TRUE(view.isColumnHidden(2));
    EXPECT_EQ(view.columnWidth(0) + view.columnWidth(1) + view.columnWidth(9), view.viewport()->width());
}

TEST_F(GridView_Test, makes_room_for_a_long_heading_but_not_for_every_long_text) {
    std::vector<int> twips(16, 600);
    grid.SetText(0, 3, "Ein ziemlich langer Spaltenkopf");
    grid.SetText(1, 4, std::string(200, 'm'));
    view.setColumns(twips);
    UiFixture::Settle();
    EXPECT_GE(view.columnWidth(3),
              view.horizontalHeader()->fontMetrics().horizontalAdvance("Ein ziemlich langer Spaltenkopf"));
    EXPECT_LE(view.columnWidth(4), view.columnWidth(5) * 3);
}

TEST_F(GridView_Test, widens_its_stretched_column_for_a_longer_text_that_comes_later) {
    std::vector<int> twips(16, 0);
    twips[0] = 650;
    twips[9] = 6000;
    view.setColumns(twips, 9);
    UiFixture::Settle();
    const std::string text(60, 'm');
    ASSERT_LT(view.columnWidth(9), view.fontMetrics().horizontalAdvance(QString(60, 'm')));
    grid.SetText(177, 9, text);
    UiFixture::Settle();
    EXPECT_GE(view.columnWidth(9), view.fontMetrics().horizontalAdvance(QString(60, 'm')));
    grid.SetText(178, 9, std::string(2000, 'm'));
    UiFixture::Settle();
    EXPECT_LT(view.columnWidth(9), view.fontMetrics().horizontalAdvance(QString(100, 'm')));
}

TEST_F(GridView_Test, shows_a_text_that_is_cut_whole_in_the_tool_tip) {
    grid.SetText(3, 3, std::string(200, 'm'));
    UiFixture::Settle();
    const auto tipAt = [this](int row, int column) {
        QToolTip::hideText();
        const QPoint at = view.viewport()->mapFrom(&view, view.cellRect(row, column).center());
        QHelpEvent help(QEvent::ToolTip, at, view.viewport()->mapToGlobal(at));
        QApplication::sendEvent(view.viewport(), &help);
        return QToolTip::text();
    };
    EXPECT_EQ(tipAt(4, 3), QString());
    EXPECT_EQ(tipAt(3, 3), QString(200, 'm'));
}

TEST_F(GridView_Test, is_one_table_to_a_screen_reader) {
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(heard, nullptr);
    EXPECT_EQ(heard->role(), QAccessible::Table);
    EXPECT_FALSE(heard->state().invisible);
    QAccessibleInterface* unheard = QAccessible::queryAccessibleInterface(frozen());
    ASSERT_NE(unheard, nullptr);
    EXPECT_TRUE(unheard->state().invisible);
    EXPECT_EQ(unheard->childCount(), 0);
    EXPECT_EQ(unheard->tableInterface(), nullptr);
}

TEST_F(GridView_Test, follows_the_grids_enabled_and_visible) {
    grid.Enabled = false;
    EXPECT_FALSE(view.isEnabled());
    grid.Visible = false;
    EXPECT_TRUE(view.isHidden());
    grid.Visible = true;
    EXPECT_FALSE(view.isHidden());
}

} // namespace
} // namespace qvm::test
