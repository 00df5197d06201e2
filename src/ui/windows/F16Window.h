#pragma once

#include "F16.h"
#include "WindowBase.h"

namespace qvm::ui {

/// F16 on the screen: the column to search, and the text to search for.
class F16Window : public WindowBase {
    Q_OBJECT

public:
    F16Window(F16& f16, QWidget* users);

private:
    void makeOptions();
    void makeSearch();

    F16& f16_;
};

} // namespace qvm::ui
