// Cells of a grid as they are used through the accessible tree: no key and no pointer.

#include "GridView.h"
#include "UiFixture.h"

#include <QAccessible>

namespace qvm::test {
namespace {

using ui::GridView;

/// Column 3 is hidden, column 4 may be written.
struct Cell_Access : ::testing::Test {
    VirtualPlatform world;
    Kern kern{world.World};
    Grid grid{11, 6};
    GridFilter filter{kern, grid, {1}};
    GridSelection cells{grid, GridSelection::Unit::Cells, &filter};
    GridView view{grid};
    std::vector<std::string> Told;

    Cell_Access() {
        for (int row = 0; row < 11; ++row) {
            for (int column = 0; column < 6; ++column) {
                grid.SetText(row, column, std::to_string(row) + "/" + std::to_string(column));
            }
        }
        view.setColumns({800, 800, 800, 0, 800, 800});
        view.setBlocks(cells);
        view.setFilter(filter);
        view.onMouseUp = [this](MouseButton button, int row, int column) {
            Told.push_back((button == MouseButton::Left ? "left " : "other ") + grid.Text(row, column));
        };
        view.onMenuKey = [this] { Told.push_back("menu " + grid.Text(grid.Row, grid.Column)); };
        view.mayWrite = [](int, int column) { return column == 4; };
        view.onWrite = [this](int row, int column, const std::string& text) {
            Told.push_back("write " + grid.Text(row, column) + " = " + text);
        };
        Present(view);
    }
    /// Row as the grid counts it, column as those in sight are counted.
    QAccessibleInterface* At(int row, int shown) {
        return QAccessible::queryAccessibleInterface(&view)->tableInterface()->cellAt(row - 1, shown);
    }
    void Do(int row, int shown, const QString& action) { At(row, shown)->actionInterface()->doAction(action); }
    static QString Press() { return QAccessibleActionInterface::pressAction(); }
    static QString Menu() { return QAccessibleActionInterface::showMenuAction(); }
    static QString Focus() { return QAccessibleActionInterface::setFocusAction(); }
};

TEST_F(Cell_Access, a_press_is_a_click_of_the_left_button_once_the_call_is_over) {
    Do(5, 2, Press());
    EXPECT_TRUE(Told.empty()) << "who calls waits for the end of it, which a box would put off";
    UiFixture::Settle();
    EXPECT_EQ(Told, std::vector<std::string>{"left 5/2"});
    EXPECT_EQ(std::pair(grid.Row, grid.Column), std::pair(5, 2));
}

TEST_F(Cell_Access, a_press_presses_what_return_presses) {
    view.onMouseUp = {};
    EXPECT_EQ(At(2, 2)->actionInterface()->actionNames(), QStringList({Menu(), Focus()})) << "nothing listens";
    view.onClick = [this](int row, int column) { Told.push_back("click " + grid.Text(row, column)); };
    Do(2, 3, Press());
    UiFixture::Settle();
    EXPECT_EQ(Told, std::vector<std::string>{"click 2/4"});
}

TEST_F(Cell_Access, shows_its_menu) {
    Do(7, 4, Menu());
    UiFixture::Settle();
    EXPECT_EQ(Told, std::vector<std::string>{"menu 7/5"});
    view.onMenuKey = {};
    EXPECT_FALSE(At(7, 4)->actionInterface()->actionNames().contains(Menu()));
}

TEST_F(Cell_Access, takes_the_keyboard_and_leaves_a_block) {
    view.clearFocus();
    cells.Go(1, 1);
    cells.Extend(3, 2);
    Do(4, 1, Focus());
    EXPECT_TRUE(view.hasFocus());
    EXPECT_TRUE(At(4, 1)->state().focused);
    EXPECT_EQ(cells.Block(), (GridBlock{4, 1, 4, 1}));
    EXPECT_TRUE(Told.empty());
}

TEST_F(Cell_Access, takes_a_text_where_it_may_be_written) {
    EXPECT_FALSE(At(6, 2)->state().editable);
    EXPECT_EQ(At(6, 2)->editableTextInterface(), nullptr);
    EXPECT_EQ(At(6, 2)->textInterface(), nullptr);
    QAccessibleInterface* cell = At(6, 3);
    EXPECT_TRUE(cell->state().editable);
    ASSERT_NE(cell->editableTextInterface(), nullptr);
    EXPECT_EQ(cell->textInterface()->text(0, -1), QStringLiteral("6/4"));
    EXPECT_EQ(cell->textInterface()->text(1, 3), QStringLiteral("/4"));
    EXPECT_EQ(cell->textInterface()->characterCount(), 3);
    cell->editableTextInterface()->replaceText(0, 3, QString::fromUtf8("Zoë"));
    cell->editableTextInterface()->insertText(1, QStringLiteral("x"));
    cell->editableTextInterface()->deleteText(1, 99);
    EXPECT_TRUE(Told.empty());
    UiFixture::Settle();
    EXPECT_EQ(Told, (std::vector<std::string>{"write 6/4 = Zo\xEB", "write 6/4 = 6x/4", "write 6/4 = 6"}));
    EXPECT_EQ(std::pair(grid.Row, grid.Column), std::pair(6, 4));
}

TEST_F(Cell_Access, does_nothing_where_nobody_could_click_or_type) {
    filter.Set("5/1");
    QAccessibleInterface* hidden = At(6, 3);
    hidden->actionInterface()->doAction(Press());
    hidden->editableTextInterface()->replaceText(0, 3, QStringLiteral("x"));
    UiFixture::Settle();
    filter.Set({});
    grid.Enabled = false;
    Do(6, 3, Press());
    Do(6, 3, Menu());
    Do(6, 3, QStringLiteral("Fly"));
    At(6, 3)->editableTextInterface()->replaceText(0, 3, QStringLiteral("x"));
    UiFixture::Settle();
    EXPECT_TRUE(Told.empty());
}

TEST_F(Cell_Access, a_heading_only_says_what_it_is) {
    QAccessibleInterface* heading = QAccessible::queryAccessibleInterface(&view)->child(1);
    ASSERT_EQ(heading->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(heading->actionInterface(), nullptr);
    EXPECT_EQ(heading->editableTextInterface(), nullptr);
}

} // namespace
} // namespace qvm::test
