#pragma once

#include "F13.h"
#include "WindowBase.h"

class QPushButton;

namespace qvm::ui {

class GridFilterBar;
class GridView;

/// F13 on the screen: tool bar, filter line and lock grid.
class F13Window : public WindowBase {
    Q_OBJECT

public:
    explicit F13Window(F13& f13, QWidget* main = nullptr);
    ~F13Window() override;

    void setWords() override;

private:
    void makeGrid();
    void makeFilterBar();

    F13& f13_;
    GridView* grid_ = nullptr;
    GridFilterBar* bar_ = nullptr;
    QPushButton* again_ = nullptr;
};

} // namespace qvm::ui
