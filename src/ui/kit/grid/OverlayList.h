#pragma once

#include "Controls.h"
#include "GridView.h"

#include <QListWidget>

#include <functional>

namespace qvm::ui {

/// Lays a list of some rows under the grid's current cell, above it where there is no room below or where it would
/// rather lie there. False while the cell is out of sight: the list stays where it is.
bool layUnderCell(QListWidget& list, const GridView& view, bool above);

/// A list laid under the grid's current cell (Grid.Row, Grid.Column), above it where there is no room below, while its
/// model is visible. The model must outlive the widget.
class OverlayList : public QListWidget {
    Q_OBJECT

public:
    OverlayList(ListBox& model, GridView& view, const QString& name);

    std::function<void(int index)> onChoose; ///< a click on an entry, Return or Tab; the model's Selected is set before
    std::function<void()> onCancel;          ///< Escape, or Return with nothing selected
    std::function<void()> onLostFocus;       ///< the focus went elsewhere; as onCancel when empty
    std::function<bool()> above;             ///< it would rather lie above its cell

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void place();
    void choose(int index);
    void cancel() const;

    ListBox& model_;
    GridView& view_;
};

} // namespace qvm::ui
