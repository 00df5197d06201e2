#include "GridDelegate.h"

#include "GridView.h"

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
constexpr int LargestCheck = 22, CheckInset = 5; ///< of a check box: its side, and to the cell's edge above and below

const GridModel& modelOf(const QModelIndex& index) {
    return static_cast<const GridModel&>(*index.model());
}

bool isButton(const QModelIndex& index) {
    const GridModel& model = modelOf(index);
    return model.isAction(model.gridRow(index.row()), index.column());
}

} // namespace

GridDelegate::GridDelegate(const GridView& view, QObject* parent) : QStyledItemDelegate(parent), view_(view) {}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    painter->save();
    painter->setClipRect(option.rect);
    paintGround(painter, option, index);
    if (index.data(Qt::CheckStateRole).isValid()) {
        paintCheck(painter, option, index);
    } else {
        paintContent(painter, option, index);
    }
    if (index == view_.currentIndex() && view_.hasFocus()) {
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->setBrush(Qt::NoBrush);
        QPen pen(option.palette.color(QPalette::Highlight), 2);
        pen.setJoinStyle(Qt::MiterJoin);
        painter->setPen(pen);
        painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    }
    painter->restore();
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

/// Of the cell itself: a button stands on it.
QColor GridDelegate::groundOf(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto back = index.data(GridModel::BackColourRole).value<Colour>();
    const CellTone tone = cellTone(back);
    const bool neutral = tone != CellTone::Exact;
    // What can be clicked shows it by itself; other cells only tell where the mouse is.
    const bool clickable = tone == CellTone::Action || isButton(index) || index.data(Qt::CheckStateRole).isValid();
    const QColor ground = cellBackground(clickable ? White : back, view_.isStripe(index.row()), option.palette);
    const RowTint tint = neutral ? view_.tintOf(index.row(), index.column()) : RowTint::None;
    return tinted(ground, tint, option.palette);
}

void GridDelegate::paintGround(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto back = index.data(GridModel::BackColourRole).value<Colour>();
    const bool alternate = view_.isStripe(index.row());
    const bool button = isButton(index);
    painter->fillRect(option.rect, groundOf(option, index));
    if (!button) {
        return;
    }
    const QColor face = cellBackground(back, alternate, option.palette);
    QColor rim = option.palette.color(QPalette::Text);
    rim.setAlphaF(0.25F);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(rim, 1));
    painter->setBrush(face);
    const QRectF shape =
        QRectF(option.rect).adjusted(ButtonInset + 1.5, ButtonInset + 0.5, -ButtonInset - 1.5, -ButtonInset - 0.5);
    painter->drawRoundedRect(shape, ButtonRound, ButtonRound);
}

void GridDelegate::paintCheck(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
    const QStyle& style = *option.widget->style();
    const int side = std::min(LargestCheck, option.rect.height() - 2 * CheckInset);
    QStyleOptionButton box;
    box.palette = option.palette;
    box.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, QSize(side, side), option.rect);
    box.state = option.state & QStyle::State_Enabled;
    box.state |= index.data(Qt::CheckStateRole) == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    if (cellTone(index.data(GridModel::BackColourRole).value<Colour>()) == CellTone::Hover) {
        box.state |= QStyle::State_MouseOver;
    }
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, option.widget);
}

void GridDelegate::paintContent(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QRect room = option.rect.adjusted(CellMargin, 1, -CellMargin, -1);
    const QString text = index.data(Qt::DisplayRole).toString();
    const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
    const bool enabled = (option.state & QStyle::State_Enabled) != 0;
    if (!icon.isNull()) {
        const int side = std::min(room.height() - 2, option.decorationSize.height());
        const Qt::Alignment place = text.isEmpty() ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter;
        icon.paint(painter, room.left(), room.top() + (room.height() - side) / 2, text.isEmpty() ? room.width() : side,
                   side, place, enabled ? QIcon::Normal : QIcon::Disabled);
        room.setLeft(room.left() + side + CellMargin);
    }
    if (text.isEmpty()) {
        return;
    }
    const QVariant font = index.data(Qt::FontRole);
    painter->setFont(font.isValid() ? font.value<QFont>() : option.font);
    const auto fore = index.data(GridModel::ForeColourRole).value<Colour>();
    const auto back = index.data(GridModel::BackColourRole).value<Colour>();
    QPalette palette = option.palette;
    palette.setCurrentColorGroup(enabled ? QPalette::Active : QPalette::Disabled);
    const bool inked = fore != Black && enabled && !isButton(index) && cellTone(back) != CellTone::Exact;
    painter->setPen(inked ? cellInk(fore, groundOf(option, index), palette, text.size() == 1)
                          : cellForeground(fore, back, palette));
    const auto alignment = index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    // A sign may be larger than its cell has room beside it.
    const bool sign = text.size() == 1 && alignment.testFlag(Qt::AlignHCenter);
    painter->drawText(sign ? option.rect : room, static_cast<int>(alignment) | Qt::TextSingleLine,
                      sign ? text : painter->fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
}

} // namespace qvm::ui
