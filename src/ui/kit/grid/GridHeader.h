#pragma once

#include "LineCache.h"

#include <QHeaderView>

namespace qvm::ui {

/// The heading of a grid: its texts stand above those of the cells, with the same margin. A tinted heading says where
/// the mouse is. Above the texts there may be upright ones.
class GridHeader : public QHeaderView {
public:
    explicit GridHeader(QWidget* parent);

    /// The height of upright texts that take so many twips, in pixels; 0 for 0. Letters are whole pixels apart, and
    /// those that go below the line touch neither the next one nor the row of texts.
    static int uprightHeight(int twips, const QFontMetrics& metrics);
    /// Of the upright texts, which may be 0, and of the row of texts.
    void setHeights(int upright, int row);
    /// The height that was set: no text is measured for it, as a view asks for it at every change of a column.
    QSize sizeHint() const override { return {length(), height()}; }

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

private:
    void paintText(QPainter* painter, const QRect& line, int section) const;
    void paintUpright(QPainter* painter, const QRect& room, int section) const;

    int rowHeight_ = 0;
    mutable LineCache texts_;
};

} // namespace qvm::ui
