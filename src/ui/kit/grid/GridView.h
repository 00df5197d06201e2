#pragma once

#include "GridFilter.h"
#include "GridModel.h"
#include "GridPointer.h"
#include "GridSelection.h"
#include "MouseButton.h"

#include <QPersistentModelIndex>
#include <QTableView>

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace qvm::ui {

/// A grid on the screen: header and first columns stay in sight, rows are striped. All rows and columns in this
/// interface are those of the grid. The grid's Row and Column follow the current cell, its Enabled and Visible are
/// bound. One view a grid.
class GridView : public QTableView {
    Q_OBJECT

public:
    /// `headingRows`: as GridModel takes it.
    explicit GridView(Grid& grid, QWidget* parent = nullptr, int headingRows = 1);
    ~GridView() override;

    GridModel& gridModel() { return *model_; }
    const GridModel& gridModel() const { return *model_; }
    Grid& grid() const { return model_->grid(); }

    /// One entry a column: its width in twips, of which the proportions count; 0 hides it. A column is as wide as its
    /// header and a sample of its texts need, within limits; `stretch` takes what is left over, -1: none does.
    void setColumns(std::vector<int> twips, int stretch = -1);
    /// Measures the columns anew, after new texts.
    void fitColumns();
    /// The first columns stay in sight.
    void setFrozenColumns(int count);
    /// Room for the upright texts of a heading of two rows.
    void setUprightHeight(int twips);
    /// Blocks are selected with Shift and the arrows, with Shift and a click, by a drag and with Ctrl+A; Ctrl+C copies
    /// what of the block is shown. The selection must outlive the view.
    void setBlocks(GridSelection& selection);
    /// Rows that the filter hides are not shown; Escape clears it before it leaves the window. It must outlive the
    /// view.
    void setFilter(GridFilter& filter);
    /// Makes the cell the current one and scrolls to it.
    void setCurrentCell(int row, int column);
    /// The same, with the keyboard; a larger block falls together. False, and nothing, on a cell that is not shown and
    /// in a grid that is disabled.
    bool goTo(int row, int column);
    /// What a click with the left button does on the cell, and the key for context menus; without mouse and keyboard.
    void press(int row, int column);
    void showMenu(int row, int column);
    /// The cell gets the text as if it had been typed and confirmed, where `mayWrite` says so.
    void write(int row, int column, const std::string& text);
    /// Scrolls to the row, unless the filter hides it; the current cell and the block stay where they are.
    void scrollToRow(int row);
    /// The first row in sight.
    int topRow() const;
    /// The cell's rectangle in coordinates of this widget; empty outside the grid and while scrolled out of sight.
    QRect cellRect(int row, int column) const;
    /// Where the cell of the model lies, in the same coordinates, in sight or not.
    QRect placeOf(const QModelIndex& index) const;
    /// The cell at a place of the viewport, as the model counts it; frozen columns lie over others.
    QModelIndex cellAt(QPoint inViewport) const;
    /// A widget over the grid, an editor or a list, comes with the keyboard to the grid's current cell (Grid.Row,
    /// Grid.Column), where `place` puts it, or goes and gives the keyboard back.
    void showOver(QWidget* overlay, bool visible, const std::function<void()>& place);
    /// The cell whose onMouseUp is being handled, row and column.
    const std::optional<std::pair<int, int>>& clickedCell() const { return clicked_; }
    /// The cell under the mouse pointer, as the last mouse event told. False when it is over none.
    bool cellUnderMouse(int& row, int& column) const;
    /// The same with the heading, and with the place in coordinates of the heading's or the cells' room.
    GridPointer pointer() const;
    /// How a cell of the model stands out.
    RowTint tintOf(int row, int column) const;
    /// The row of the model is one of the darker ones; of the rows that are shown every second one is.
    bool isStripe(int row) const;
    /// Width that shows every column.
    int columnsWidth() const;

    QSize sizeHint() const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    std::function<void(int row, int column)> onClick; ///< mouse, Return or space on a cell
    std::function<void(int key)> onKey;               ///< a key typed on the current cell, as Keys.h codes it
    /// In these columns any character begins an entry, so that none is a shortcut.
    std::function<bool(int column)> takesAnyText;
    std::function<void()> onSpace; ///< the space bar, instead of a click
    /// The left or the right mouse button went down and up on a cell, without a drag or Shift. Return and space then go
    /// to onKey.
    std::function<void(MouseButton button, int row, int column)> onMouseUp;
    std::function<void(int row, int column)> onDoubleClick; ///< behind its second onMouseUp
    /// Rows of which one is chosen: a double click, where nothing listens to single ones, and what a screen reader
    /// presses.
    std::function<void(int row, int column)> onChoose;
    std::function<void()> onMenuKey; ///< the key for context menus, or Shift+F10
    /// A text that an operator gives a cell without an editor, as by a screen reader; only where it may be written.
    std::function<void(int row, int column, const std::string& text)> onWrite;
    std::function<bool(int row, int column)> mayWrite;
    bool takesTab = false; ///< Tab goes to onKey; Shift+Tab leaves the grid

signals:
    /// Cells have moved on the screen: scrolled, resized.
    void cellsMoved();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void paintEvent(QPaintEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void prepare(QTableView& view);
    void placeFrozen();
    void stretchColumns();
    void click(const QModelIndex& index);
    /// A click is a press and a release on the same cell, without a drag or Shift.
    void released(const QMouseEvent& event, const QModelIndex& index);
    void mouseUp(Qt::MouseButton button, int row, int column);
    /// The mouse on the frozen columns; true when nothing is left for their own view.
    bool frozenMouse(const QMouseEvent& event);
    bool editKey(QKeyEvent* event);
    void copy() const;
    /// Does what moves the current cell; the block reaches to it or is left behind.
    void moving(bool extend, const std::function<void()>& move);
    /// False when the press leaves block and current cell as they are.
    bool pressMoves(const QMouseEvent& event, const QModelIndex& index) const;
    void dragTo(QPoint inViewport);
    void showSelection();
    void showRows();
    void findHoverRow();
    void updateRow(int row);
    int uprightPixels() const;
    int givenWidth(int column) const;
    /// Of the rows first to last of the model, or a sample of them; within limits.
    int textWidth(int column, int first, int last) const;
    int contentWidth(int column) const;
    void growStretched(const QModelIndex& first, const QModelIndex& last);
    int frozenWidth() const;
    void trackMouse(QWidget* on, QEvent* event);

    GridModel* model_;
    QTableView* frozen_;
    QWidget* edge_; ///< of the frozen columns, while others have slid under them
    std::vector<int> twips_;
    int uprightTwips_ = 0;
    std::vector<int> natural_; ///< measured widths
    int stretch_ = -1;
    int frozenColumns_ = 0;
    GridSelection* selection_ = nullptr;
    GridFilter* filter_ = nullptr;
    bool blockShown_ = false; ///< the block was larger than a cell when it was shown last
    bool extending_ = false;  ///< what moves the current cell now takes the block along
    std::optional<std::pair<int, int>> clicked_;
    bool twice_ = false;              ///< the mouse button went down for the second time of a double click
    bool following_ = false;          ///< the current cell is moved because the selection has moved
    bool dragged_ = false;            ///< over other cells, since the mouse button went down
    int hoverRow_ = -1;               ///< of the model, under the mouse
    std::vector<bool> stripes_;       ///< by row of the model, while a filter decides on them
    std::optional<QPoint> mouse_;     ///< in the viewport; none outside
    std::optional<QPoint> onHeading_; ///< the mouse on the heading, likewise
    QPersistentModelIndex pressed_;   ///< where the mouse button went down
};

/// What setColumns takes: for each column of the grid what `width` says of it, in twips.
template <class Width>
std::vector<int> columnWidths(const Grid& grid, const Width& width) {
    std::vector<int> twips(static_cast<std::size_t>(grid.Columns()));
    for (int column = 0; column < grid.Columns(); ++column) {
        twips[static_cast<std::size_t>(column)] = width(column);
    }
    return twips;
}

} // namespace qvm::ui
