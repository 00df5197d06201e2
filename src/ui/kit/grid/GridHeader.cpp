#include "GridHeader.h"

#include "GridDelegate.h"
#include "GridModel.h"
#include "Pictures.h"

#include <QIcon>
#include <QPainter>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int TwipsPerLetter = 200, LineTwips = 240; ///< of an upright text
constexpr int UprightMargin = 2;                     ///< above and below it

/// From letter to letter.
int letterStep(const QFontMetrics& metrics) {
    return (metrics.lineSpacing() * TwipsPerLetter + LineTwips - 1) / LineTwips;
}

} // namespace

int GridHeader::uprightHeight(int twips, const QFontMetrics& metrics) {
    return twips <= 0 ? 0 : twips * letterStep(metrics) / TwipsPerLetter + 2 * UprightMargin;
}

GridHeader::GridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setSectionsClickable(false);
    setHighlightSections(false);
    setMinimumSectionSize(8);
}

void GridHeader::setHeights(int upright, int row) {
    rowHeight_ = row;
    setFixedHeight(upright + row);
}

void GridHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const {
    QHeaderView::initStyleOptionForIndex(option, section);
    option->text.clear();
    option->icon = QIcon();
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    QRect line = rect;
    line.setTop(rect.bottom() + 1 - std::min(rowHeight_, rect.height()));
    painter->save();
    QHeaderView::paintSection(painter, line, section);
    painter->restore();
    if (model()->headerData(section, Qt::Horizontal, GridModel::BackColourRole).value<Colour>() != White) {
        painter->fillRect(line.adjusted(0, 0, -1, -1), cellBackground(CellColour::Hover, false, palette()));
    }
    paintText(painter, line, section);
    paintUpright(painter, QRect(rect.topLeft(), line.topRight() - QPoint(0, 1)), section);
}

void GridHeader::paintText(QPainter* painter, const QRect& line, int section) const {
    const auto alignment = model()->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::Alignment>();
    const QRect room = line.adjusted(CellMargin, 0, -CellMargin, 0);
    const auto picture = model()->headerData(section, Qt::Horizontal, Qt::DecorationRole).value<QIcon>();
    if (!picture.isNull()) {
        constexpr int inset = 4;
        picture.paint(painter, line.adjusted(0, inset, 0, -inset), Qt::AlignCenter,
                      isEnabled() ? QIcon::Normal : QIcon::Disabled);
        return;
    }
    const QString text = model()->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
    painter->setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    texts_.paint(painter, room, alignment, text);
}

/// At the bottom, the letters as close as can be read.
void GridHeader::paintUpright(QPainter* painter, const QRect& room, int section) const {
    if (room.isEmpty()) {
        return;
    }
    painter->fillRect(room, palette().color(QPalette::Button));
    painter->fillRect(room.right(), room.top(), 1, room.height(), palette().color(QPalette::Mid));
    const QString text = model()->headerData(section, Qt::Horizontal, GridModel::UprightRole).toString();
    const auto colour = model()->headerData(section, Qt::Horizontal, GridModel::ForeColourRole).value<Colour>();
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor plain = palette().color(group, QPalette::ButtonText);
    painter->setPen(isEnabled() ? labelForeground(colour, plain, palette().color(group, QPalette::Button)) : plain);
    const int step = letterStep(painter->fontMetrics());
    int top = room.bottom() + 1 - UprightMargin - static_cast<int>(text.size()) * step;
    for (const QChar letter : text) {
        const QRect line(room.left(), top, room.width(), step);
        texts_.paintWhole(painter, line, Qt::AlignCenter, letter);
        top += step;
    }
}

} // namespace qvm::ui
