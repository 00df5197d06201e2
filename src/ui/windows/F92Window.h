#pragma once

#include "F92.h"
#include "WindowBase.h"

#include <functional>

class QHBoxLayout;
class QListWidget;

namespace qvm::ui {

class MonthView;

/// F92 on the screen: day, hour and minute of a delayed start.
class F92Window : public WindowBase {
    Q_OBJECT

public:
    F92Window(F92& f92, QWidget* owner);
    ~F92Window() override;

    void setWords() override;

private:
    void makeHead();
    void makeChoice();
    void makeButtons();
    QListWidget* addList(QHBoxLayout* row, ListBox& model, const char* name, const char* caption,
                         std::function<void(int)> choose);

    F92& f92_;
    MonthView* month_ = nullptr;
    QListWidget* hours_ = nullptr;
    QListWidget* minutes_ = nullptr;
};

} // namespace qvm::ui
