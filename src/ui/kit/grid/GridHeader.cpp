#include "GridHeader.h"

#include "GridDelegate.h"

#include <QPainter>

namespace qvm::ui {

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(false);
    setHighlightSections(false);
    setMinimumSectionSize(8);
}

void GridHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
    QHeaderView::initStyleOptionForIndex(option, section);
    option->text.clear();
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    painter->save();
    QHeaderView::paintSection(painter, rect, section);
    painter->restore();
    const auto alignment = model()->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>();
    const QRect room = rect.adjusted(CellMargin, 0, -CellMargin, 0);
    const QString text = model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
    painter->setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    painter->drawText(room, static_cast<int>(alignment) | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
}

} // namespace qvm::ui
