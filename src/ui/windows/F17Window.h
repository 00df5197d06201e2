#pragma once

#include "F17.h"
#include "WindowBase.h"

class QGridLayout;

namespace qvm::ui {

/// F17 on the screen: the old code of a lock, the new one, and the new one again.
class F17Window : public WindowBase {
    Q_OBJECT

public:
    F17Window(F17& f17, QWidget* owner);

private:
    void addCode(QGridLayout* lines, Label& caption, TextBox& code, const QString& number,
                 const std::function<void(int key)>& onKey);
    void makeButtons();

    F17& f17_;
};

} // namespace qvm::ui
