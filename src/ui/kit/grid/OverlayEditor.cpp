#include "OverlayEditor.h"

#include "Bind.h"

namespace qvm::ui {

OverlayEditor::OverlayEditor(TextBox& model, GridView& view, const QString& name)
    : KeyEdit(model, name, &view), view_(view) {
    takesTab = takesEscape = true;
    connect(&view, &GridView::cellsMoved, this, &OverlayEditor::place);
    watch(model.Visible, this, [this] { view_.showOver(this, model_.Visible, [this] { place(); }); });
}

void OverlayEditor::place() {
    if (!model_.Visible) {
        return;
    }
    const QRect cell = view_.cellRect(view_.grid().Row, view_.grid().Column);
    // Scrolled out of sight it stays where it is and keeps what has been typed.
    if (!cell.isEmpty()) {
        setGeometry(cell);
    }
}

} // namespace qvm::ui
