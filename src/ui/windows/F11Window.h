#pragma once

#include "F11.h"
#include "WindowBase.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace qvm::ui {

class KeyEdit;
class MonthView;

/// F11 on the screen: the start dialog over the window that opened it.
class F11Window : public WindowBase {
    Q_OBJECT

public:
    F11Window(F11& f11, QWidget* owner);

    void setWords() override;

private:
    void makeCode();
    void makeCutoff();
    void makeAdapters();
    void makePatience();
    void makeButtons();
    void pickDate();
    void tellCount();
    void nameDate();

    F11& f11_;
    QLabel* adapterCaption_ = nullptr;
    QComboBox* adapters_ = nullptr;
    KeyEdit* code_ = nullptr;
    QLabel* count_ = nullptr;
    QPushButton* date_ = nullptr;
    MonthView* month_ = nullptr;
};

} // namespace qvm::ui
