#pragma once

#include "F51.h"
#include "WindowBase.h"

class QProgressBar;

namespace qvm::ui {

/// F51 on the screen: how the enrolment of a finger goes on.
class F51Window : public WindowBase {
    Q_OBJECT

public:
    F51Window(F51& f51, QWidget* users);

    void setWords() override;

private:
    QLayout* makeStep();
    QLayout* makeButtons();

    F51& f51_;
    QProgressBar* bar_ = nullptr;
};

} // namespace qvm::ui
