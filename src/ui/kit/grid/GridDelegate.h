#pragma once

#include <QStyledItemDelegate>

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
    QColor groundOf(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintGround(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    static void paintCheck(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index);
    void paintContent(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    const GridView& view_;
};

} // namespace qvm::ui
