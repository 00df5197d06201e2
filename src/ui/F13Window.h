#pragma once

#include "F13.h"
#include "WindowBase.h"

namespace qvm::ui {

class GridView;

/// F13 on the screen: tool bar and lock grid.
class F13Window : public WindowBase {
    Q_OBJECT

public:
    explicit F13Window(F13& f13, QWidget* parent = nullptr);
    ~F13Window() override;

    void setWords() override;

private:
    void makeGrid();

    F13& f13_;
    GridView* grid_ = nullptr;
};

} // namespace qvm::ui
