#pragma once

#include "GridFilter.h"

#include <QWidget>

#include <string_view>

class QHBoxLayout;
class QLineEdit;

namespace qvm::ui {

/// The filter line over a grid with its count, and room for more beside it. Ctrl+F leads to it from anywhere in the
/// window; Escape clears it and goes back to the grid, Return and the arrow down go there and leave it as it is.
class GridFilterBar : public QWidget {
    Q_OBJECT

public:
    /// `name`: the grid's, "F13.FGK13" for one; the line is "<name>.Filter". To be made before the grid, as Tab goes.
    GridFilterBar(GridFilter& filter, const QString& name, QWidget* parent);

    /// Where the keyboard goes from here.
    void leadTo(QWidget* grid) { grid_ = grid; }
    /// `hint` stands in the empty line.
    void setWords(const QString& hint, std::string_view language);
    /// Puts a widget to the right.
    void addWidget(QWidget* widget, int stretch = 0);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    GridFilter& filter_;
    QWidget* grid_ = nullptr;
    QLineEdit* line_;
    QHBoxLayout* row_;
};

} // namespace qvm::ui
