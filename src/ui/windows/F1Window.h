#pragma once

#include "F1.h"
#include "WindowBase.h"

class QLabel;
class QPushButton;

namespace qvm::ui {

/// The about box.
class F1Window : public WindowBase {
    Q_OBJECT

public:
    F1Window(F1& model, QWidget* owner);

    void setWords() override;

private:
    QLayout* makeHead();
    QLayout* makeFacts();
    QLayout* makeButtons();

    F1& f1_;
    QLabel* cipherCaption_ = nullptr;
    QLabel* directoryCaption_ = nullptr;
    QLabel* licenceCaption_ = nullptr;
    QLabel* licenceTexts_ = nullptr;
    QPushButton* ok_ = nullptr;
};

} // namespace qvm::ui
