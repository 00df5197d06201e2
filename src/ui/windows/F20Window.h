#pragma once

#include "F20.h"
#include "WindowBase.h"

#include <optional>
#include <utility>

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

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLayout* makeMode();
    QGroupBox* makeTimes();
    QGroupBox* makeSignal();
    QGroupBox* newGroup(Label& model, const char* name);
    void makeGrid();
    void makeEditors();
    void makeMenus();
    QLayout* makeBottom();
    void popUp(F20Menu which);

    F20& f20_;
    GridView* grid_ = nullptr;
    QMenu* rowMenu_ = nullptr;
    QMenu* serialMenu_ = nullptr;
    std::optional<std::pair<int, int>> clicked_; ///< the cell whose click is being handled
};

} // namespace qvm::ui
