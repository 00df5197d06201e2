#include "GridModel.h"

#include "TextEdge.h"

#include <QFont>
#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace qvm::ui {
namespace {

/// The word that stands upright: a character a line, and an empty line for a blank.
QString inOneLine(const QString& upright) {
    QString word;
    for (int n = 0; n < upright.size(); n += 2) {
        word += upright[n] == QLatin1Char('\n') ? QLatin1Char(' ') : upright[n];
    }
    return word;
}

} // namespace

GridModel::GridModel(Grid& grid, QObject* parent, int headingRows)
    : QAbstractTableModel(parent), grid_(grid), headingRows_(headingRows),
      rows_(std::max(grid.Rows() - headingRows, 0)), columns_(grid.Columns()) {
    telling_.setSingleShot(true);
    telling_.setInterval(0);
    connect(&telling_, &QTimer::timeout, this, &GridModel::tellViews);
    grid_.CellChanged = [this](int row, int column) { cellChanged(row, column); };
}

GridModel::~GridModel() {
    grid_.CellChanged = {};
}

void GridModel::setPictures(PictureSet set) {
    pictures_ = set;
}

void GridModel::setActionIcon(int column, const QString& name) {
    actionIcons_[column] = name;
}

void GridModel::setBaseFontSize(int points) {
    baseFontSize_ = std::max(points, 1);
}

void GridModel::setAlignment(int column, Qt::Alignment alignment) {
    alignments_[column] = alignment;
}

void GridModel::setPictureText(int column, int picture, const QString& text) {
    pictureTexts_[column][picture] = text;
}

void GridModel::setTip(int column, std::function<QString(int row)> tip) {
    tips_[column] = std::move(tip);
}

QVariant GridModel::tip(int row, int column) const {
    const auto found = tips_.constFind(column);
    const QString text = found == tips_.constEnd() ? QString() : (*found)(row);
    return text.isEmpty() ? QVariant() : QVariant(text);
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

bool GridModel::isAction(int row, int column) const {
    const CellTone tone = cellTone(grid_.At(row, column).BackColor);
    return actionIcons_.contains(column) && (tone == CellTone::Action || tone == CellTone::Hover);
}

bool GridModel::isCheck(int row, int column) const {
    const Cell& cell = grid_.At(row, column);
    const CellTone tone = cellTone(cell.BackColor);
    return column == checkColumn_ && (tone == CellTone::Action || tone == CellTone::Hover || cell.Text == "X");
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const int row = gridRow(index.row());
    const Cell& cell = grid_.At(row, index.column());
    switch (role) {
    case Qt::DisplayRole:
        return isCheck(row, index.column()) ? QVariant() : toQt(cell.Text);
    case Qt::CheckStateRole:
        return isCheck(row, index.column()) ? QVariant(cell.Text == "X" ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::DecorationRole:
        return decoration(cell, row, index.column());
    case Qt::FontRole:
        return font(cell);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignment(index.column(), isAction(row, index.column())));
    case Qt::AccessibleTextRole:
        return accessibleText(index);
    case Qt::AccessibleDescriptionRole:
        return isBar(index.column()) ? QVariant() : tip(row, index.column());
    case Qt::ToolTipRole:
        // What shows only a picture says in words what it is.
        return cell.Text.empty() && !tip(row, index.column()).isValid() ? accessibleText(index)
                                                                        : tip(row, index.column());
    case BackColourRole:
        return cell.BackColor;
    case ForeColourRole:
        return cell.ForeColor;
    default:
        return {};
    }
}

QVariant GridModel::decoration(const Cell& cell, int row, int column) const {
    QIcon icon = pictureIcon(pictures_, cell.Picture);
    if (icon.isNull() && cell.Text.empty() && isAction(row, column) && !actionIcons_.value(column).isEmpty()) {
        icon = ownIcon(actionIcons_.value(column));
    }
    return icon.isNull() ? QVariant() : QVariant::fromValue(icon);
}

QVariant GridModel::font(const Cell& cell) const {
    if (!cell.Bold && cell.FontSize == baseFontSize_) {
        return {};
    }
    QFont font = QGuiApplication::font();
    font.setBold(cell.Bold);
    font.setPointSizeF(font.pointSizeF() * std::max(cell.FontSize, 1) / baseFontSize_);
    return font;
}

Qt::Alignment GridModel::alignment(int column, bool action) const {
    return alignments_.value(column, action ? Qt::Alignment(Qt::AlignCenter) : Qt::AlignLeft | Qt::AlignVCenter);
}

QVariant GridModel::accessibleText(const QModelIndex& index) const {
    const int row = gridRow(index.row());
    const int column = index.column();
    const Cell& cell = grid_.At(row, column);
    if (isCheck(row, column)) {
        return headingText(column);
    }
    if (isBar(column)) {
        return tip(row, column);
    }
    if (!cell.Text.empty()) {
        return toQt(cell.Text);
    }
    const QString picture = pictureTexts_.value(column).value(cell.Picture);
    if (!picture.isEmpty()) {
        return headingName(column) + QLatin1Char(' ') + picture;
    }
    return isAction(row, column) ? QVariant(headingText(column)) : QVariant();
}

QString GridModel::headingText(int column) const {
    return toQt(grid_.Text(headingRows_ - 1, column));
}

QString GridModel::headingName(int column) const {
    const QString text = headingText(column);
    return text.isEmpty() ? tip(0, column).toString() : text;
}

QString GridModel::uprightText(int column) const {
    return headingRows_ > 1 ? inOneLine(toQt(grid_.Text(0, column))) : QString();
}

std::vector<std::string> GridModel::headings() const {
    std::vector<std::string> texts;
    for (int row = 0; row < headingRows_; ++row) {
        for (int column = 0; column < columns_; ++column) {
            texts.push_back(grid_.Text(row, column));
        }
    }
    return texts;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columns_) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return headingText(section);
    case Qt::AccessibleTextRole:
        return (uprightText(section) + QLatin1Char(' ') + headingName(section)).trimmed();
    case Qt::DecorationRole:
        return QVariant::fromValue(pictureIcon(pictures_, grid_.At(headingRows_ - 1, section).Picture));
    case UprightRole:
        return uprightText(section);
    case BackColourRole:
        return grid_.At(headingRows_ - 1, section).BackColor;
    case ForeColourRole:
        return grid_.At(0, section).ForeColor;
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return tip(0, section);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignment(section, actionIcons_.contains(section) || section == checkColumn_));
    default:
        return {};
    }
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const bool check = isCheck(gridRow(index.row()), index.column());
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren |
           (check ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
}

// A window's load writes thousands of cells in one go. The views hear of them once, when the load is over.
void GridModel::cellChanged(int row, int column) {
    if (row < 0 || column < 0) {
        const int rows = std::max(grid_.Rows() - headingRows_, 0);
        if (rows_ != rows || columns_ != grid_.Columns()) {
            beginResetModel();
            rows_ = rows;
            columns_ = grid_.Columns();
            endResetModel();
            return;
        }
        everything_ = true;
        firstRow_ = firstColumn_ = 0;
        lastRow_ = gridRow(rows_ - 1);
        lastColumn_ = columns_ - 1;
    } else if (lastRow_ < firstRow_) {
        firstRow_ = lastRow_ = row;
        firstColumn_ = lastColumn_ = column;
    } else {
        firstRow_ = std::min(firstRow_, row);
        lastRow_ = std::max(lastRow_, row);
        firstColumn_ = std::min(firstColumn_, column);
        lastColumn_ = std::max(lastColumn_, column);
    }
    if (!telling_.isActive()) {
        telling_.start();
    }
}

/// Columns are measured at a new heading, which a mere tint is not.
void GridModel::tellHeadings(int firstColumn, int lastColumn) {
    std::vector<std::string> texts = headings();
    if (std::exchange(everything_, false) || texts != headings_) {
        headings_ = std::move(texts);
        emit headerDataChanged(Qt::Horizontal, firstColumn, lastColumn);
    } else {
        emit headingsRecoloured();
    }
}

void GridModel::tellViews() {
    const int firstRow = firstRow_;
    const int firstColumn = firstColumn_;
    const int lastRow = std::min(lastRow_, gridRow(rows_ - 1));
    const int lastColumn = std::min(lastColumn_, columns_ - 1);
    firstRow_ = 0;
    lastRow_ = -1;
    if (lastRow < firstRow || lastColumn < firstColumn) {
        return;
    }
    if (firstRow < headingRows_) {
        tellHeadings(firstColumn, lastColumn);
    }
    if (lastRow >= headingRows_) {
        emit dataChanged(cellIndex(std::max(firstRow, headingRows_), firstColumn), cellIndex(lastRow, lastColumn));
    }
}

} // namespace qvm::ui
