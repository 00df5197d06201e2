#pragma once

#include "F18.h"
#include "WindowBase.h"

namespace qvm::ui {

/// F18 on the screen: the wait box of a channel search.
class F18Window : public WindowBase {
    Q_OBJECT

public:
    F18Window(F18& f18, QWidget* parent);
};

} // namespace qvm::ui
