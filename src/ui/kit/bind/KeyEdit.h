#pragma once

#include "Controls.h"

#include <QLineEdit>

#include <functional>
#include <string>
#include <string_view>

namespace qvm::ui {

/// A line of text whose keys go to the model's handler, which decides what the text becomes. A text that comes as a
/// whole, from a screen reader, goes there character by character, in the old one's place. Bound to the model's Text,
/// Caret, MaxLength, Visible, Enabled, SetFocus and SelectAll. The model must outlive the widget.
class KeyEdit : public QLineEdit {
    Q_OBJECT

public:
    KeyEdit(TextBox& model, const QString& name, QWidget* parent);
    ~KeyEdit() override;

    /// Every key that Keys.h has a code for. Tab and Escape only when `takesTab`, `takesEscape`.
    std::function<void(int key)> onKey;
    /// When set the line edits its text itself and tells every change here; onKey then gets Return, Tab and Escape
    /// only.
    std::function<void(const std::string& text)> onText;
    std::function<void()> onLostFocus;
    std::function<void()> onEntered; ///< it got the keyboard by a click, a key or the model
    bool takesTab = false;
    bool takesEscape = false;
    /// The text is a time, "hh:mm": arrow keys, Home, End and a click move the caret, which never stops at the colon,
    /// and no key goes past the box.
    bool holdsTime = false;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

    TextBox& model_;

private:
    bool forward(const QKeyEvent& event);
    void showText();
    void edited(const QString& text);
    void replaced();
    void typeOver(std::string_view characters);
    void typeAll(std::string_view characters);
    void moveCaret(int to);
    void moveCaret(const QKeyEvent& event);
};

} // namespace qvm::ui
