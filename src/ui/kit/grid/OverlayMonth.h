#pragma once

#include "Controls.h"
#include "GridView.h"
#include "MonthView.h"

#include <functional>

namespace qvm::ui {

/// A month laid beside the grid's current cell (Grid.Row, Grid.Column), left of there or higher where it would leave
/// the grid, while its model is visible. Tab leads to its days. The model must outlive the widget.
class OverlayMonth : public MonthView {
    Q_OBJECT

public:
    OverlayMonth(Observed<bool>& visible, GridView& view, const QString& name);

    std::function<Datum()> dayOf;   ///< the day that it shows when it comes
    std::function<void()> onCancel; ///< Escape, or the focus went elsewhere in the window

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void place();
    void cancel() const;

    Observed<bool>& visible_;
    GridView& view_;
};

} // namespace qvm::ui
