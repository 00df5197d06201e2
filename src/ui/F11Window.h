#pragma once

#include "F11.h"
#include "WindowBase.h"

class QPushButton;

namespace qvm::ui {

class MonthView;

/// F11 on the screen: the start dialog over the window that opened it.
class F11Window : public WindowBase {
    Q_OBJECT

public:
    F11Window(F11& f11, QWidget* parent);

private:
    void makeCode();
    void makeCutoff();
    void makeAdapters();
    void makeButtons();
    void pickDate();

    F11& f11_;
    QPushButton* date_ = nullptr;
    MonthView* month_ = nullptr;
};

} // namespace qvm::ui
