#pragma once

#include "Kern.h"
#include "Platform.h"

#include <QString>

#include <vector>

class QMessageBox;

namespace qvm::ui {

/// The program's message boxes: modal, over the window in front, their buttons in the language in use. A question may
/// come over an open box, which waits for it. What only tells something waits until no box is open, and is told once:
/// a line that goes wrong must not pile up boxes.
class MessageBoxes {
public:
    /// Whose words and language the buttons take from now on. Until then they are English.
    void setWords(const Kern& kern) { kern_ = &kern; }
    /// Shows the message and waits for the answer; one that only tells something, while a box is open, is put off and
    /// counts as answered. A box closed without an answer gives Cancel, or OK when it has nothing else.
    Answer show(const Message& message);
    /// Puts text, sign and buttons into the box.
    void fill(QMessageBox& box, const Message& message) const;

private:
    QString text(Answer button) const;
    Answer showNow(const Message& message);

    const Kern* kern_ = nullptr;
    std::vector<Message> open_;    ///< the boxes on the screen, the last in front
    std::vector<Message> waiting_; ///< what is told when they are gone
};

} // namespace qvm::ui
