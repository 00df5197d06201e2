#pragma once

#include "F20.h"
#include "ListenTimeBox.h"
#include "WindowBase.h"

#include <optional>

class QGroupBox;
class QMenu;

namespace qvm::ui {

class GridView;

/// F20 on the screen: how the units of a lock listen, and the grid of its units with its editors.
class F20Window : public WindowBase {
    Q_OBJECT

public:
    F20Window(F20& f20, QWidget* locks);
    ~F20Window() override;

    void setWords() override;

private:
    QLayout* makeMode();
    QGroupBox* makeSignal();
    void makeGrid();
    void makeEditors();
    void makeMenus();
    QLayout* makeBottom();
    void popUp(F20Menu which);

    F20& f20_;
    std::optional<ListenTimeBox<F20>> times_; ///< from the constructor on, which makes it in its turn
    GridView* grid_ = nullptr;
    QMenu* rowMenu_ = nullptr;
    QMenu* serialMenu_ = nullptr;
};

} // namespace qvm::ui
