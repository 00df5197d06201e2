#pragma once

#include "F14.h"
#include "WindowBase.h"

class QComboBox;
class QLabel;

namespace qvm::ui {

/// The radio channel.
class F14Window : public WindowBase {
    Q_OBJECT

public:
    F14Window(F14& model, QWidget* main);

    void setWords() override;

private:
    F14& f14_;
    QLabel* caption_;
    QComboBox* channels_;
};

} // namespace qvm::ui
