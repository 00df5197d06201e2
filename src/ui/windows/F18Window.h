#pragma once

#include "F18.h"
#include "WindowBase.h"

class QProgressBar;

namespace qvm::ui {

/// F18 on the screen: the wait box of a channel search.
class F18Window : public WindowBase {
    Q_OBJECT

public:
    /// `list`: the run list.
    F18Window(F18& f18, QWidget* owner, QWidget* list = nullptr);

    void setWords() override;

private:
    F18& f18_;
    QProgressBar* bar_;
};

} // namespace qvm::ui
