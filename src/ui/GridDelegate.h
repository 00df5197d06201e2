#pragma once

#include <QStyledItemDelegate>

class QTableView;

namespace qvm::ui {

/// Between a cell's edge and its text.
inline constexpr int CellMargin = 6;

/// Paints a cell of a GridModel: striped, exact or button-like ground, picture, text, and a frame round the current
/// cell of `focusView` while that view has the focus.
class GridDelegate : public QStyledItemDelegate {
public:
    GridDelegate(const QTableView& focusView, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// A text that is cut stands whole in the tool tip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    void paintGround(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintContent(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    const QTableView& focusView_;
};

} // namespace qvm::ui
