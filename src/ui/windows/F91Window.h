#pragma once

#include "F91.h"
#include "WindowBase.h"

class QProgressBar;

namespace qvm::ui {

class GridFilterBar;
class GridView;

/// F91 on the screen: the run list with a filter line.
class F91Window : public WindowBase {
    Q_OBJECT

public:
    explicit F91Window(F91& f91, QWidget* main = nullptr);
    ~F91Window() override;

    void setWords() override;

private:
    void makeGrid();
    void makeState();
    void makeButtons();
    /// Closes the window, or stops the list while it cannot be closed.
    void leave();

    F91& f91_;
    GridView* grid_ = nullptr;
    GridFilterBar* filter_ = nullptr;
    QProgressBar* bar_ = nullptr;
};

} // namespace qvm::ui
