#pragma once

#include "F9.h"
#include "WindowBase.h"

class QProgressBar;

namespace qvm::ui {

/// F9 on the screen: the progress of one lock's run.
class F9Window : public WindowBase {
    Q_OBJECT

public:
    /// `list`: the run list.
    F9Window(F9& f9, QWidget* owner, QWidget* list = nullptr);

    void setWords() override;

private:
    void makeHead();
    void makeStatus();
    void makeProgress();
    void makeBoxes();
    void makeButtons();

    F9& f9_;
    QProgressBar* telegrams_ = nullptr;
    QProgressBar* activity_ = nullptr;
};

} // namespace qvm::ui
