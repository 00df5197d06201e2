#pragma once

#include "F15.h"
#include "WindowBase.h"

class QListWidget;

namespace qvm::ui {

/// The choice of the language.
class F15Window : public WindowBase {
    Q_OBJECT

public:
    F15Window(F15& model, QWidget* owner);

    void setWords() override;

private:
    F15& f15_;
    QListWidget* list_;
};

} // namespace qvm::ui
