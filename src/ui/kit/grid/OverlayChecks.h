#pragma once

#include "CheckList.h"
#include "GridView.h"

#include <QListWidget>

#include <functional>

namespace qvm::ui {

/// A list of entries to check, laid over a grid as an OverlayList is, while its model is visible. Space and a click
/// into the box of an entry check it; Return, Tab and a click on the text of an entry accept the list. The model must
/// outlive the widget.
class OverlayChecks : public QListWidget {
    Q_OBJECT

public:
    OverlayChecks(CheckList& model, GridView& view, const QString& name);

    std::function<void(int index, bool checked)> onCheck; ///< the model then says what becomes of it
    std::function<void()> onAccept;
    std::function<void()> onCancel; ///< Escape, or the focus went elsewhere
    std::function<bool()> above;    ///< it would rather lie above its cell

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void showEntries();
    void place();
    void checked(int index);

    CheckList& model_;
    GridView& view_;
    bool toggled_ = false; ///< since the mouse button went down
};

} // namespace qvm::ui
