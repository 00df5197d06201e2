#pragma once

#include "Controls.h"
#include "GridView.h"

#include <QFrame>
#include <QStringList>

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace qvm::ui {

class KeyEdit;

/// Boxes side by side, all as wide, that lie over the grid's current cell (Grid.Row, Grid.Column) while they are
/// visible. The first one has the keyboard then. The models must outlive the widget.
class OverlayBoxes : public QFrame {
    Q_OBJECT

public:
    /// `names`: the control's name of each box.
    OverlayBoxes(std::span<TextBox> boxes, Observed<bool>& visible, GridView& view, const QStringList& names);
    ~OverlayBoxes() override;

    std::function<void(std::size_t box, const std::string& text)> onText;
    std::function<void(std::size_t box, int key)> onKey; ///< Return, Tab and Escape
    std::function<void(std::size_t box)> onEntered;      ///< the box got the keyboard
    std::function<void()> onLostFocus;                   ///< the keyboard went elsewhere than to another box

private:
    void addBox(TextBox& model, std::size_t number, const QString& name);
    void showBoxes();
    void place();
    void left();

    Observed<bool>& visible_;
    GridView& view_;
    std::vector<KeyEdit*> boxes_;
};

} // namespace qvm::ui
