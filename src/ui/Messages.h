#pragma once

#include "Kern.h"
#include "Platform.h"

#include <QString>

class QMessageBox;

namespace qvm::ui {

/// The program's message boxes: modal, over the window in front, their buttons in the language in use. Boxes may
/// stack; each waits for those above it.
class MessageBoxes {
public:
    /// Whose words and language the buttons take from now on. Until then they are English.
    void setWords(const Kern& kern) { kern_ = &kern; }
    /// Shows the message and waits for the answer. A box closed otherwise counts as Cancel, No or OK, whichever of them
    /// it has.
    Answer show(const Message& message) const;
    /// Puts text, sign and buttons into the box.
    void fill(QMessageBox& box, const Message& message) const;

private:
    QString text(Answer button) const;

    const Kern* kern_ = nullptr;
};

} // namespace qvm::ui
