#include "GridView.h"

#include "Bind.h"
#include "FrozenView.h"
#include "GridAccess.h"
#include "GridDelegate.h"
#include "GridHeader.h"
#include "Stelle.h"

#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace qvm::ui {
namespace {

constexpr int HintedRows = 18;                  ///< that a window shows at first, when there are as many
constexpr int SampleRows = 40;                  ///< rows whose texts a column's width is taken from
constexpr int CellPadding = 2 * CellMargin + 8; ///< both sides together
constexpr double TwipsPerLine = 240;            ///< of the width that a row of the view's font is high: 12 points
constexpr int WidestFactor = 2;                 ///< a column grows to this many times its given width

} // namespace

GridView::GridView(Grid& grid, QWidget* parent, int headingRows)
    : QTableView(parent), model_(new GridModel(grid, this, headingRows)), frozen_(new FrozenView(this)),
      edge_(new QWidget(this)), twips_(static_cast<std::size_t>(grid.Columns()), 1000) {
    describeGrids();
    prepare(*this);
    prepare(*frozen_);
    setItemDelegate(new GridDelegate(*this, this));
    frozen_->setItemDelegate(itemDelegate());
    frozen_->setSelectionModel(selectionModel());
    frozen_->setFocusPolicy(Qt::NoFocus);
    frozen_->setFrameShape(QFrame::NoFrame);
    frozen_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    frozen_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    frozen_->viewport()->installEventFilter(this);
    horizontalHeader()->viewport()->installEventFilter(this);
    frozen_->hide();
    edge_->setAutoFillBackground(true);
    edge_->setBackgroundRole(QPalette::Mid);
    edge_->setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, frozen_->verticalScrollBar(), &QScrollBar::setValue);
    connect(frozen_->verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(), &QScrollBar::setValue);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        frozen_->setColumnWidth(column, width);
        placeFrozen();
    });
    connect(model_, &QAbstractItemModel::headerDataChanged, this, &GridView::fitColumns);
    connect(model_, &QAbstractItemModel::dataChanged, this, &GridView::growStretched);
    for (QTableView* view : {static_cast<QTableView*>(this), frozen_}) {
        connect(model_, &GridModel::headingsRecoloured, view->horizontalHeader()->viewport(),
                qOverload<>(&QWidget::update));
    }
    connect(model_, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& first, const QModelIndex& last) { tellChecks(this, first, last); });
    watch(grid.Enabled, this, [this] { setEnabled(this->grid().Enabled); });
    // A grid that its window hides for a moment, as for a sort, comes back with the keyboard.
    watch(grid.Visible, this, [this, hadKeyboard = false]() mutable {
        const bool visible = this->grid().Visible;
        const bool back = std::exchange(hadKeyboard, !visible && hasFocus()) && visible;
        setVisible(visible);
        if (back) {
            setFocus(Qt::OtherFocusReason);
        }
    });
    setCurrentIndex(model_->index(0, 0));
}

GridView::~GridView() {
    if (selection_ != nullptr) {
        selection_->Changed = {};
    }
    if (filter_ != nullptr) {
        filter_->RowsChanged = {};
    }
}

void GridView::prepare(QTableView& view) {
    view.setHorizontalHeader(new GridHeader(&view));
    view.setModel(model_);
    view.setSelectionMode(QAbstractItemView::NoSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTabKeyNavigation(false);
    view.setShowGrid(false);
    view.setWordWrap(false);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view.setMouseTracking(true);
    view.viewport()->setMouseTracking(true);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

void GridView::setColumns(std::vector<int> twips, int stretch) {
    twips_ = std::move(twips);
    twips_.resize(static_cast<std::size_t>(model_->columnCount()), 0);
    stretch_ = stretch;
    for (int column = 0; column < model_->columnCount(); ++column) {
        setColumnHidden(column, twips_[At(column)] == 0);
    }
    fitColumns();
}

void GridView::setFrozenColumns(int count) {
    frozenColumns_ = count;
    for (int column = 0; column < model_->columnCount(); ++column) {
        frozen_->setColumnHidden(column, column >= count || isColumnHidden(column));
    }
    frozen_->setVisible(count > 0);
    frozen_->raise(); // above the heading of this view, too
    placeFrozen();
}

void GridView::setUprightHeight(int twips) {
    if (twips != uprightTwips_) {
        uprightTwips_ = twips;
        fitColumns();
    }
}

int GridView::uprightPixels() const {
    return GridHeader::uprightHeight(uprightTwips_, horizontalHeader()->fontMetrics());
}

int GridView::givenWidth(int column) const {
    return qRound(twips_[At(column)] / TwipsPerLine * QFontMetrics(font()).lineSpacing());
}

int GridView::textWidth(int column, int first, int last) const {
    int texts = 0;
    const Cell* before = nullptr;
    const int step = std::max(1, (last - first + 1) / SampleRows);
    for (int row = first; row <= last; row += step) {
        const Cell& cell = grid().At(model_->gridRow(row), column);
        // A column of marks has the same text in every row.
        const bool same = before != nullptr && before->Text == cell.Text && before->Picture == cell.Picture;
        before = &cell;
        if (cell.Text.empty() || same) {
            continue;
        }
        const int picture = cell.Picture != 0 ? iconSize().width() + CellMargin : 0;
        const QModelIndex index = model_->index(row, column);
        const QString text = index.data(Qt::DisplayRole).toString();
        const QVariant own = index.data(Qt::FontRole); // a larger or bolder one; a sign may be larger than its cell
        const QFontMetrics metrics(own.isValid() && text.size() > 1 ? own.value<QFont>() : font());
        texts = std::max(texts, metrics.horizontalAdvance(text) + picture);
    }
    return std::min(texts, givenWidth(column) * WidestFactor) + CellPadding;
}

int GridView::contentWidth(int column) const {
    const int heading = horizontalHeader()->fontMetrics().horizontalAdvance(
        model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    return std::max({givenWidth(column), heading + CellPadding, textWidth(column, 0, model_->rowCount() - 1)});
}

// The rows of a run get their texts one after the other, long after the columns were measured.
void GridView::growStretched(const QModelIndex& first, const QModelIndex& last) {
    if (stretch_ < first.column() || stretch_ > last.column() || natural_.empty() || isColumnHidden(stretch_)) {
        return;
    }
    const int needed = textWidth(stretch_, first.row(), last.row());
    if (needed > natural_[At(stretch_)]) {
        natural_[At(stretch_)] = needed;
        stretchColumns();
    }
}

void GridView::fitColumns() {
    const int rowHeight = QFontMetrics(font()).height() + 12;
    natural_.assign(static_cast<std::size_t>(model_->columnCount()), 0);
    for (QTableView* view : {static_cast<QTableView*>(this), frozen_}) {
        view->verticalHeader()->setDefaultSectionSize(rowHeight);
        static_cast<GridHeader*>(view->horizontalHeader())->setHeights(uprightPixels(), rowHeight + 2);
        view->setIconSize(QSize(rowHeight - 8, rowHeight - 8));
    }
    for (int column = 0; column < model_->columnCount(); ++column) {
        if (!isColumnHidden(column)) {
            natural_[At(column)] = contentWidth(column);
        }
    }
    stretchColumns();
    setFrozenColumns(frozenColumns_);
}

int GridView::columnsWidth() const {
    int width = 0;
    for (int column = 0; column < model_->columnCount(); ++column) {
        width += isColumnHidden(column) ? 0 : contentWidth(column);
    }
    return width + 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
}

QSize GridView::sizeHint() const {
    const int rows = std::min(model_->rowCount(), HintedRows);
    return {columnsWidth(), horizontalHeader()->height() + rows * verticalHeader()->defaultSectionSize() +
                                2 * frameWidth() + horizontalScrollBar()->sizeHint().height()};
}

void GridView::stretchColumns() {
    int width = 0;
    for (const int part : natural_) {
        width += part;
    }
    const int left = std::max(0, viewport()->width() - width);
    for (int column = 0; column < static_cast<int>(natural_.size()); ++column) {
        const int part = natural_[At(column)];
        if (part > 0) {
            setColumnWidth(column, part + (column == stretch_ ? left : 0));
        }
    }
}

int GridView::frozenWidth() const {
    int width = 0;
    for (int column = 0; column < frozenColumns_; ++column) {
        width += columnWidth(column);
    }
    return width;
}

void GridView::placeFrozen() {
    frozen_->setGeometry(frameWidth(), frameWidth(), std::min(frozenWidth(), viewport()->width()),
                         viewport()->height() + horizontalHeader()->height());
    edge_->setGeometry(frozen_->geometry().right() + 1, frameWidth(), 1, frozen_->height());
    edge_->raise();
    edge_->setVisible(frozenColumns_ > 0 && horizontalScrollBar()->value() > 0);
    emit cellsMoved();
}

void GridView::setCurrentCell(int row, int column) {
    setCurrentIndex(model_->cellIndex(row, column));
}

void GridView::showOver(QWidget* overlay, bool visible, const std::function<void()>& place) {
    if (!visible) {
        const bool focused = overlay->hasFocus();
        overlay->hide();
        if (focused) {
            setFocus(Qt::OtherFocusReason);
        }
        return;
    }
    setCurrentCell(grid().Row, grid().Column);
    overlay->setAccessibleName(model_->headerData(grid().Column, Qt::Horizontal, Qt::AccessibleTextRole).toString());
    place();
    overlay->show();
    overlay->raise();
    overlay->setFocus(Qt::OtherFocusReason);
}

QRect GridView::cellRect(int row, int column) const {
    const QModelIndex index = model_->cellIndex(row, column);
    if (!index.isValid() || isColumnHidden(column)) {
        return {};
    }
    QRect room = viewport()->geometry();
    if (column >= frozenColumns_) {
        room.setLeft(room.left() + frozenWidth());
    }
    const QRect seen = placeOf(index) & room;
    return seen.isEmpty() ? QRect() : seen;
}

QRect GridView::placeOf(const QModelIndex& index) const {
    const QTableView* view = index.column() < frozenColumns_ ? frozen_ : static_cast<const QTableView*>(this);
    return view->visualRect(index).translated(view->viewport()->mapTo(this, QPoint(0, 0)));
}

int GridView::topRow() const {
    return model_->gridRow(std::max(rowAt(0), 0));
}

void GridView::scrollToRow(int row) {
    scrollTo(model_->cellIndex(row, 0));
}

void GridView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!index.isValid()) {
        return;
    }
    const int across = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    if (index.column() < frozenColumns_) {
        horizontalScrollBar()->setValue(across);
        return;
    }
    // What lies under the frozen columns counts as out of sight.
    const int hidden = frozenWidth() - visualRect(index).left();
    if (hidden > 0) {
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - hidden);
    }
}

} // namespace qvm::ui
