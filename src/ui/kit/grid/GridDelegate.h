#pragma once

#include "Grid.h"
#include "LineCache.h"
#include "Theme.h"

#include <QHash>
#include <QStyledItemDelegate>

#include <utility>

namespace qvm::ui {

class GridView;

/// Between a cell's edge and its text.
inline constexpr int CellMargin = 6;

/// Paints a cell of a GridModel: striped, tinted, exact or button-like ground, picture, check box, text, and a frame
/// round the current cell of `view` while that has the focus.
class GridDelegate : public QStyledItemDelegate {
public:
    GridDelegate(const GridView& view, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// A text that is cut stands whole in the tool tip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    /// A cell that is being painted.
    struct Painted {
        const QStyleOptionViewItem& Option;
        const QModelIndex& Index;
        const Cell& Content;
        CellTone Tone;
        bool Button, Check;
        QColor Ground; ///< of the cell itself: a button stands on it
    };
    QColor groundOf(const Painted& cell) const;
    void paintButton(QPainter* painter, const Painted& cell) const;
    static void paintCheck(QPainter* painter, const Painted& cell);
    void paintBar(QPainter* painter, const Painted& cell) const;
    void paintContent(QPainter* painter, const Painted& cell) const;
    void paintText(QPainter* painter, const Painted& cell, const QRect& room) const;
    QColor inkOf(const Painted& cell, bool sign) const;

    const GridView& view_;
    mutable LineCache texts_;
    /// Inks that were worked out, by what decides on them: text colour and ground, palette text and kind of text.
    mutable QHash<std::pair<quint64, quint64>, QColor> inks_;
};

} // namespace qvm::ui
