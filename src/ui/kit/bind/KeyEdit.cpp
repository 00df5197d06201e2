#include "KeyEdit.h"

#include "Bind.h"
#include "Keys.h"
#include "Secret.h"
#include "TextEdge.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>

namespace qvm::ui {

KeyEdit::KeyEdit(TextBox& model, const QString& name, QWidget* parent) : QLineEdit(parent), model_(model) {
    nameWidget(this, name);
    setAcceptDrops(false);
    watch(model.Text, this, [this] { showText(); });
    watch(model.Caret, this, [this] { showText(); });
    watch(model.Visible, this, [this] { setVisible(model_.Visible); });
    watch(model.Enabled, this, [this] { setEnabled(model_.Enabled); });
    model.SetFocus = [this] { setFocus(Qt::OtherFocusReason); };
    model.SelectAll = [this] { selectAll(); };
    connect(this, &QObject::destroyed, [&model] { model.SetFocus = model.SelectAll = {}; });
    connect(this, &QLineEdit::textEdited, this, &KeyEdit::edited);
    connect(this, &QLineEdit::textChanged, this, &KeyEdit::replaced);
}

KeyEdit::~KeyEdit() = default;

void KeyEdit::showText() {
    const QString wanted = toQt(model_.Text());
    if (text() != wanted) {
        const QSignalBlocker quiet(this);
        setMaxLength(model_.MaxLength > 0 ? model_.MaxLength : 32767);
        setText(wanted);
        update();
    }
    // A line that edits itself keeps its own caret.
    if (!onText) {
        setCursorPosition(model_.Caret);
    }
}

void KeyEdit::edited(const QString& text) {
    if (!onText) {
        showText();
        return;
    }
    const std::string typed = fromQt(text);
    model_.Text = typed;
    model_.Caret = cursorPosition();
    onText(typed);
    showText();
    if (this->text() != text) {
        setCursorPosition(model_.Caret); // another text has put it at its end
    }
}

// A screen reader gives the line a text without a key.
void KeyEdit::replaced() {
    const QString wanted = text();
    if (wanted == toQt(model_.Text())) {
        return;
    }
    if (onText) {
        edited(wanted);
        return;
    }
    std::string characters = fromQt(wanted);
    showText();
    if (isEnabled()) {
        typeOver(characters);
    }
    Vergessen(characters);
}

/// What both begin with stays.
void KeyEdit::typeOver(std::string_view characters) {
    if (holdsTime) {
        // An hour that was left half written would be corrected in between, so all goes by way of 00:00.
        moveCaret(0);
        typeAll("0000");
        moveCaret(0);
        typeAll(characters);
        return;
    }
    const std::string before = model_.Text();
    const auto same = std::mismatch(before.begin(), before.end(), characters.begin(), characters.end());
    for (auto left = before.end() - same.first; onKey && left > 0; --left) {
        onKey(Key::Backspace);
    }
    characters.remove_prefix(static_cast<std::size_t>(same.second - characters.begin()));
    typeAll(characters);
}

void KeyEdit::typeAll(std::string_view characters) {
    for (const char character : characters) {
        const int code = static_cast<unsigned char>(character);
        if (onKey && code >= ' ' && code != Key::Delete) {
            onKey(code);
        }
    }
}

bool KeyEdit::forward(const QKeyEvent& event) {
    const int code = keyCode(event);
    const bool tab = code == Key::Tab;
    const bool escape = code == Key::Escape;
    if (code == 0 || !onKey || (tab && !takesTab) || (escape && !takesEscape)) {
        return false;
    }
    if (onText && !tab && !escape && code != Key::Enter) {
        return false;
    }
    onKey(code);
    return true;
}

bool KeyEdit::event(QEvent* event) {
    // Tab would move the focus before it reaches keyPressEvent.
    if (event->type() == QEvent::KeyPress && takesTab) {
        const auto& key = static_cast<QKeyEvent&>(*event);
        if (keyCode(key) == Key::Tab && forward(key)) {
            event->accept();
            return true;
        }
    }
    // The handler decides what the text becomes: nothing may be pasted past it.
    if (event->type() == QEvent::MouseButtonRelease && !onText &&
        static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton) {
        return true;
    }
    return QLineEdit::event(event);
}

void KeyEdit::keyPressEvent(QKeyEvent* event) {
    if (forward(*event)) {
        event->accept();
    } else if (holdsTime) {
        moveCaret(*event);
        event->accept();
    } else if (onText && event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter &&
               event->key() != Qt::Key_Escape) {
        QLineEdit::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

void KeyEdit::moveCaret(int to) {
    constexpr int colon = 2;
    const int end = static_cast<int>(model_.Text().size());
    const bool left = to < model_.Caret;
    const int place = std::clamp(to, 0, end);
    model_.Caret = place != colon ? place : left ? colon - 1 : colon + 1;
}

void KeyEdit::moveCaret(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Left:
        moveCaret(model_.Caret - 1);
        break;
    case Qt::Key_Right:
        moveCaret(model_.Caret + 1);
        break;
    case Qt::Key_Home:
        moveCaret(0);
        break;
    case Qt::Key_End:
        moveCaret(static_cast<int>(model_.Text().size()));
        break;
    default:
        break;
    }
}

void KeyEdit::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (holdsTime) {
        moveCaret(cursorPosition());
        deselect();
        setCursorPosition(model_.Caret);
    }
}

void KeyEdit::inputMethodEvent(QInputMethodEvent* event) {
    if (onText) {
        QLineEdit::inputMethodEvent(event);
    }
}

void KeyEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // Another program or a menu that was in front is no new beginning.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason && onEntered) {
        onEntered();
    }
}

void KeyEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // Another program or a menu in front is no end of the editing.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason && model_.Visible &&
        onLostFocus) {
        onLostFocus();
    }
}

void KeyEdit::contextMenuEvent(QContextMenuEvent* event) {
    if (onText) {
        QLineEdit::contextMenuEvent(event);
    }
}

} // namespace qvm::ui
