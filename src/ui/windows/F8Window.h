#pragma once

#include "F8.h"
#include "WindowBase.h"

class QLineEdit;

namespace qvm::ui {

/// F8 on the screen: the column to search, whether a part of its text is enough, the text to search for.
class F8Window : public WindowBase {
    Q_OBJECT

public:
    F8Window(F8& f8, QWidget* owner);

private:
    void makeOptions();
    void makeSearch();

    F8& f8_;
};

} // namespace qvm::ui
