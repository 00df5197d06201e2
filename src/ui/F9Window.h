#pragma once

#include "F9.h"
#include "WindowBase.h"

namespace qvm::ui {

/// F9 on the screen: the progress of one lock's run.
class F9Window : public WindowBase {
    Q_OBJECT

public:
    F9Window(F9& f9, QWidget* parent);

private:
    void makeHead();
    void makeProgress();
    void makeBoxes();
    void makeButtons();

    F9& f9_;
};

} // namespace qvm::ui
