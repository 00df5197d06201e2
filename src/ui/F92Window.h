#pragma once

#include "F92.h"
#include "WindowBase.h"

#include <functional>

class QHBoxLayout;

namespace qvm::ui {

class MonthView;

/// F92 on the screen: day, hour and minute of a delayed start.
class F92Window : public WindowBase {
    Q_OBJECT

public:
    F92Window(F92& f92, QWidget* parent);
    ~F92Window() override;

private:
    void makeHead();
    void makeChoice();
    void makeButton();
    void addList(QHBoxLayout* row, ListBox& model, const char* name, const char* caption,
                 std::function<void(int)> choose);

    F92& f92_;
    MonthView* month_ = nullptr;
};

} // namespace qvm::ui
