#include "OverlayEditor.h"

#include "Bind.h"

namespace qvm::ui {

OverlayEditor::OverlayEditor(TextBox& model, GridView& view, const QString& name)
    : KeyEdit(model, name, &view), view_(view) {
    takesTab = takesEscape = true;
    connect(&view, &GridView::cellsMoved, this, &OverlayEditor::place);
    watch(model.Visible, this, [this] { showModel(); });
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

void OverlayEditor::showModel() {
    if (!model_.Visible) {
        const bool focused = hasFocus();
        hide();
        if (focused) {
            view_.setFocus(Qt::OtherFocusReason);
        }
        return;
    }
    view_.setCurrentCell(view_.grid().Row, view_.grid().Column);
    setAccessibleName(view_.gridModel().headerData(view_.grid().Column, Qt::Horizontal, Qt::DisplayRole).toString());
    place();
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
}

} // namespace qvm::ui
