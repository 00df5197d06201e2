#pragma once

#include "Grid.h"
#include "Theme.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QTimer>

#include <functional>

namespace qvm::ui {

/// A grid as Qt's views take it. It keeps no cell of its own. Row 0 of the grid is the header, so that row r of this
/// model is row r + 1 of the grid; columns are the same. The grid must outlive the model.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Role { BackColourRole = Qt::UserRole + 1, ForeColourRole };

    explicit GridModel(Grid& grid, QObject* parent = nullptr);
    ~GridModel() override;

    Grid& grid() const { return grid_; }
    /// The picture ids of this grid's cells.
    void setPictures(PictureSet set);
    /// Cells of the column look like buttons while their background says that they can be clicked, and those without
    /// text bear this icon of ownIcon; an empty name: no icon.
    void setActionIcon(int column, const QString& name);
    /// Cells of the column that can be clicked, or hold an "X", are check boxes: an "X" checks them. A screen reader
    /// hears the heading and the state.
    void setCheckColumn(int column) { checkColumn_ = column; }
    /// The font size, in points, of cells that show in the view's own font; others are larger or smaller in
    /// proportion.
    void setBaseFontSize(int points);
    /// Left, but for action cells, which are centred.
    void setAlignment(int column, Qt::Alignment alignment);
    /// What a screen reader says, behind the column's heading, of cells that hold this picture and no text.
    void setPictureText(int column, int picture, const QString& text);

    /// What cells of the column say in a tool tip, and to a screen reader behind their text: `tip` gives it for a row
    /// of the grid, row 0 is the heading; an empty text: nothing.
    void setTip(int column, std::function<QString(int row)> tip);

    /// True for a cell that looks like a button; `row` as in the grid.
    bool isAction(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void cellChanged(int row, int column);
    void tellViews();
    bool isCheck(int row, int column) const;
    QVariant accessibleText(const QModelIndex& index) const;
    QVariant tip(int row, int column) const;
    QVariant decoration(const Cell& cell, int row, int column) const;
    QVariant font(const Cell& cell) const;

    Grid& grid_;
    PictureSet pictures_ = PictureSet::None;
    QHash<int, QString> actionIcons_;
    QHash<int, QHash<int, QString>> pictureTexts_;
    QHash<int, Qt::Alignment> alignments_;
    QHash<int, std::function<QString(int row)>> tips_;
    int checkColumn_ = -1;
    int baseFontSize_ = 8;
    int rows_ = 0; ///< as the views know it
    int columns_ = 0;
    // Changes since the views were last told, in rows and columns of the grid; none while the first exceeds the last.
    int firstRow_ = 0, lastRow_ = -1, firstColumn_ = 0, lastColumn_ = -1;
    QTimer telling_;
};

} // namespace qvm::ui
