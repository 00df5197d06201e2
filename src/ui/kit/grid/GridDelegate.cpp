#include "GridDelegate.h"

#include "GridView.h"
#include "TextEdge.h"

#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QToolTip>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int ButtonInset = 2; ///< between a cell's edge and the button drawn in it
constexpr qreal ButtonRound = 4;
constexpr int BarInset = 6;                      ///< of a bar to the cell's edge above and below
constexpr int LargestCheck = 22, CheckInset = 5; ///< of a check box: its side, and to the cell's edge above and below

const GridModel& modelOf(const QModelIndex& index) {
    return static_cast<const GridModel&>(*index.model());
}

/// Round the current cell: the highlight's colour, as far towards the text's as it needs to be seen on the cell.
void paintFrame(QPainter* painter, const QStyleOptionViewItem& option, const QColor& ground) {
    constexpr qreal Seen = 3;
    const QPalette& palette = option.palette;
    painter->save();
    painter->setClipRect(option.rect);
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setBrush(Qt::NoBrush);
    QPen pen(legible(palette.color(QPalette::Highlight), ground, palette.color(QPalette::Text), Seen), 2);
    pen.setJoinStyle(Qt::MiterJoin);
    painter->setPen(pen);
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    painter->restore();
}

} // namespace

GridDelegate::GridDelegate(const GridView& view, QObject* parent) : QStyledItemDelegate(parent), view_(view) {}

// A screen shows thousands of cells: what a cell is, is asked of the grid once and not by roles.
void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const GridModel& model = modelOf(index);
    const int row = model.gridRow(index.row());
    const Cell& content = model.grid().At(row, index.column());
    Painted cell{.Option = option,
                 .Index = index,
                 .Content = content,
                 .Tone = model.isBar(index.column()) ? CellTone::Plain : cellTone(content.BackColor),
                 .Button = model.isAction(row, index.column()),
                 .Check = model.isCheck(row, index.column()),
                 .Ground = {}};
    cell.Ground = groundOf(cell);
    painter->fillRect(option.rect, cell.Ground);
    if (cell.Button) {
        paintButton(painter, cell);
    }
    if (cell.Check) {
        paintCheck(painter, cell);
    } else if (model.isBar(index.column())) {
        paintBar(painter, cell);
    } else {
        paintContent(painter, cell);
    }
    if (index == view_.currentIndex() && view_.hasFocus()) {
        paintFrame(painter, option, cell.Ground);
    }
}

bool GridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    const QString text = index.data(Qt::DisplayRole).toString();
    const QVariant font = index.data(Qt::FontRole);
    const QFontMetrics metrics(font.isValid() ? font.value<QFont>() : option.font);
    const bool cut = text.size() > 1 && metrics.horizontalAdvance(text) > option.rect.width() - 2 * CellMargin;
    if (event->type() == QEvent::ToolTip && cut) {
        QToolTip::showText(event->globalPos(), text, view);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

QColor GridDelegate::groundOf(const Painted& cell) const {
    const QPalette& palette = cell.Option.palette;
    // What can be clicked shows it by itself; other cells only tell where the mouse is.
    const bool clickable = cell.Tone == CellTone::Action || cell.Button || cell.Check;
    const bool plain = clickable || modelOf(cell.Index).isBar(cell.Index.column());
    const QColor ground =
        cellBackground(plain ? White : cell.Content.BackColor, view_.isStripe(cell.Index.row()), palette);
    const RowTint tint =
        cell.Tone == CellTone::Exact ? RowTint::None : view_.tintOf(cell.Index.row(), cell.Index.column());
    return tinted(ground, tint, palette);
}

void GridDelegate::paintButton(QPainter* painter, const Painted& cell) const {
    const QPalette& palette = cell.Option.palette;
    QColor rim = palette.color(QPalette::Text);
    rim.setAlphaF(0.25F);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(rim, 1));
    painter->setBrush(cellBackground(cell.Content.BackColor, view_.isStripe(cell.Index.row()), palette));
    const QRectF shape =
        QRectF(cell.Option.rect).adjusted(ButtonInset + 1.5, ButtonInset + 0.5, -ButtonInset - 1.5, -ButtonInset - 0.5);
    painter->drawRoundedRect(shape, ButtonRound, ButtonRound);
    painter->restore();
}

void GridDelegate::paintCheck(QPainter* painter, const Painted& cell) {
    const QStyleOptionViewItem& option = cell.Option;
    const QStyle& style = *option.widget->style();
    const int side = std::min(LargestCheck, option.rect.height() - 2 * CheckInset);
    QStyleOptionButton box;
    box.palette = option.palette;
    box.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, QSize(side, side), option.rect);
    box.state = option.state & QStyle::State_Enabled;
    box.state |= cell.Content.Text == "X" ? QStyle::State_On : QStyle::State_Off;
    if (cell.Tone == CellTone::Hover) {
        box.state |= QStyle::State_MouseOver;
    }
    painter->save();
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, option.widget);
    painter->restore();
}

/// How long it is says as much as its colours: lit cells and the whole bar have a rim that reads on every palette.
void GridDelegate::paintBar(QPainter* painter, const Painted& cell) const {
    const Grid& grid = modelOf(cell.Index).grid();
    const int row = modelOf(cell.Index).gridRow(cell.Index.row());
    const int first = cell.Index.column();
    const int cells = grid.Columns() - first;
    const QRect room = cell.Option.rect.adjusted(CellMargin, BarInset, -CellMargin, -BarInset);
    const auto edge = [&room, cells](int n) { return room.left() + room.width() * n / cells; };
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, false);
    int lit = 0;
    for (; lit < cells && grid.At(row, first + lit).BackColor != White; ++lit) {
        painter->fillRect(QRect(edge(lit), room.top(), edge(lit + 1) - edge(lit), room.height()),
                          exactColour(grid.At(row, first + lit).BackColor));
    }
    painter->setBrush(Qt::NoBrush);
    painter->setPen(weakText(cell.Option.palette.color(QPalette::Text), cell.Ground));
    if (lit > 0) {
        painter->drawRect(room.adjusted(0, 0, -1, -1));
        painter->drawLine(edge(lit) - 1, room.top(), edge(lit) - 1, room.bottom());
    }
    painter->restore();
}

void GridDelegate::paintContent(QPainter* painter, const Painted& cell) const {
    const QStyleOptionViewItem& option = cell.Option;
    QRect room = option.rect.adjusted(CellMargin, 1, -CellMargin, -1);
    const bool picture = cell.Content.Picture != 0 || cell.Button;
    if (const auto icon = picture ? cell.Index.data(Qt::DecorationRole).value<QIcon>() : QIcon(); !icon.isNull()) {
        const bool enabled = (option.state & QStyle::State_Enabled) != 0;
        const bool alone = cell.Content.Text.empty();
        const int side = std::min(room.height() - 2, option.decorationSize.height());
        const Qt::Alignment place = alone ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
        icon.paint(painter, room.left(), room.top() + (room.height() - side) / 2, alone ? room.width() : side, side,
                   place, enabled ? QIcon::Normal : QIcon::Disabled);
        room.setLeft(room.left() + side + CellMargin);
    }
    if (!cell.Content.Text.empty()) {
        paintText(painter, cell, room);
    }
}

void GridDelegate::paintText(QPainter* painter, const Painted& cell, const QRect& room) const {
    const GridModel& model = modelOf(cell.Index);
    const QString text = toQt(cell.Content.Text);
    const QVariant font = model.font(cell.Content);
    const Qt::Alignment alignment = model.alignment(cell.Index.column(), cell.Button);
    painter->setPen(inkOf(cell, text.size() == 1));
    // A sign may be larger than its cell has room beside it.
    const bool sign = text.size() == 1 && alignment.testFlag(Qt::AlignHCenter);
    if (!font.isValid()) {
        painter->setFont(cell.Option.font);
        sign ? texts_.paintWhole(painter, cell.Option.rect, alignment, text)
             : texts_.paint(painter, room, alignment, text);
        return;
    }
    painter->setFont(font.value<QFont>());
    painter->drawText(sign ? cell.Option.rect : room, static_cast<int>(alignment) | Qt::TextSingleLine,
                      sign ? text : painter->fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
}

QColor GridDelegate::inkOf(const Painted& cell, bool sign) const {
    const bool enabled = (cell.Option.state & QStyle::State_Enabled) != 0;
    QPalette palette = cell.Option.palette;
    palette.setCurrentColorGroup(enabled ? QPalette::Active : QPalette::Disabled);
    const bool inked = cell.Content.ForeColor != Black && enabled && !cell.Button && cell.Tone != CellTone::Exact;
    if (!inked) {
        return cellForeground(cell.Content.ForeColor, cell.Content.BackColor, palette);
    }
    constexpr int MostInks = 200;
    constexpr unsigned High = 32;
    const std::pair key{quint64{cell.Content.ForeColor} << High | cell.Ground.rgb(),
                        quint64{palette.color(QPalette::Text).rgba()} << 1U | (sign ? 1U : 0U)};
    if (inks_.size() > MostInks) {
        inks_.clear();
    }
    auto known = inks_.find(key);
    if (known == inks_.end()) {
        known = inks_.insert(key, cellInk(cell.Content.ForeColor, cell.Ground, palette, sign));
    }
    return *known;
}

} // namespace qvm::ui
