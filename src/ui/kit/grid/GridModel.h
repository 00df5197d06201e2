#pragma once

#include "Grid.h"
#include "Theme.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QTimer>

#include <functional>
#include <string>
#include <vector>

namespace qvm::ui {

/// A grid as Qt's views take it. It keeps no cell of its own. The first rows of the grid are the header, so that the
/// rows of this model count from the one behind them; columns are the same. The grid must outlive the model.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// UprightRole: of a heading of two rows, the word that stands upright above it.
    enum Role { BackColourRole = Qt::UserRole + 1, ForeColourRole, UprightRole };

    /// `headingRows`: 1, or 2 with upright texts above the headings.
    explicit GridModel(Grid& grid, QObject* parent = nullptr, int headingRows = 1);
    ~GridModel() override;

    Grid& grid() const { return grid_; }
    int headingRows() const { return headingRows_; }
    /// The row of the grid that a row of this model is.
    int gridRow(int row) const { return row + headingRows_; }
    /// A cell of the grid in this model; of a heading, and outside the grid, an invalid index.
    QModelIndex cellIndex(int row, int column) const { return index(row - headingRows_, column); }
    /// The picture ids of this grid's cells. A heading with one shows the picture; its tip is its name then.
    void setPictures(PictureSet set);
    /// Cells of the column look like buttons while their background says that they can be clicked, and those without
    /// text bear this icon of ownIcon; an empty name: no icon.
    void setActionIcon(int column, const QString& name);
    /// Cells of the column that can be clicked, or hold an "X", are check boxes: an "X" checks them. A screen reader
    /// hears the heading and the state.
    void setCheckColumn(int column) { checkColumn_ = column; }
    /// The cells from this column on are one bar, drawn in its first column: those are lit whose background is not
    /// white. The others have no place of their own. Its tip is all that a screen reader says of it.
    void setBar(int firstColumn) { barColumn_ = firstColumn; }
    bool isBar(int column) const { return column == barColumn_; }
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
    /// True for a cell that is a check box; `row` as in the grid.
    bool isCheck(int row, int column) const;
    /// The font of a cell where it is not the view's own.
    QVariant font(const Cell& cell) const;
    /// Of a column's cells; `action`: of one that looks like a button.
    Qt::Alignment alignment(int column, bool action) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    /// Headings have another colour, and the texts that they had.
    void headingsRecoloured();

private:
    void cellChanged(int row, int column);
    void tellViews();
    void tellHeadings(int firstColumn, int lastColumn);
    QVariant accessibleText(const QModelIndex& index) const;
    QVariant tip(int row, int column) const;
    QString headingText(int column) const;
    /// What a heading is called: its text, or the tip of one that shows a picture alone.
    QString headingName(int column) const;
    QString uprightText(int column) const;
    std::vector<std::string> headings() const;
    QVariant decoration(const Cell& cell, int row, int column) const;

    Grid& grid_;
    PictureSet pictures_ = PictureSet::None;
    QHash<int, QString> actionIcons_;
    QHash<int, QHash<int, QString>> pictureTexts_;
    QHash<int, Qt::Alignment> alignments_;
    QHash<int, std::function<QString(int row)>> tips_;
    int checkColumn_ = -1;
    int barColumn_ = -1;
    int baseFontSize_ = 8;
    int headingRows_;
    std::vector<std::string> headings_; ///< as the views know them
    int rows_ = 0;                      ///< likewise
    int columns_ = 0;
    // Changes since the views were last told, in rows and columns of the grid; none while the first exceeds the last.
    int firstRow_ = 0, lastRow_ = -1, firstColumn_ = 0, lastColumn_ = -1;
    bool everything_ = false; ///< the whole grid may have changed
    QTimer telling_;
};

} // namespace qvm::ui
