#include "GridDelegate.h"

#include "GridModel.h"

#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QTableView>
#include <QToolTip>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int ButtonInset = 2; ///< between a cell's edge and the button drawn in it
constexpr qreal ButtonRound = 4;

const GridModel& modelOf(const QModelIndex& index) {
    return static_cast<const GridModel&>(*index.model());
}

} // namespace

GridDelegate::GridDelegate(const QTableView& focusView, QObject* parent)
    : QStyledItemDelegate(parent), focusView_(focusView) {}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    painter->save();
    painter->setClipRect(option.rect);
    paintGround(painter, option, index);
    paintContent(painter, option, index);
    if (index == focusView_.currentIndex() && focusView_.hasFocus()) {
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
    const bool cut = metrics.horizontalAdvance(text) > option.rect.width() - 2 * CellMargin;
    if (event->type() == QEvent::ToolTip && cut) {
        QToolTip::showText(event->globalPos(), text, view);
        return true;
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

void GridDelegate::paintGround(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto back = index.data(GridModel::BackColourRole).value<Colour>();
    const bool alternate = index.row() % 2 == 1;
    const bool button = modelOf(index).isAction(index.row() + 1, index.column());
    const bool neutral = button || cellTone(back) != CellTone::Exact;
    painter->fillRect(option.rect, cellBackground(neutral ? White : back, alternate, option.palette));
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
    painter->setPen(cellForeground(fore, back, palette));
    const auto alignment = index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    painter->drawText(room, static_cast<int>(alignment) | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
}

} // namespace qvm::ui
