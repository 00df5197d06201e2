#pragma once

#include "GridView.h"
#include "KeyEdit.h"

namespace qvm::ui {

/// The editor of a grid cell: lies over the grid's current cell (Grid.Row, Grid.Column) while its model is visible and
/// has the focus then. Tab, Return and Escape go to the handler, too.
class OverlayEditor : public KeyEdit {
    Q_OBJECT

public:
    OverlayEditor(TextBox& model, GridView& view, const QString& name);

private:
    void place();

    GridView& view_;
};

} // namespace qvm::ui
