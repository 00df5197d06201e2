#pragma once

#include <QHeaderView>

namespace qvm::ui {

/// The heading row of a grid: its texts stand above those of the cells, with the same margin.
class GridHeader : public QHeaderView {
public:
    explicit GridHeader(QWidget* parent);

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
};

} // namespace qvm::ui
