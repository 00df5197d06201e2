#include "Keys.h"

#include "Controls.h"
#include "TextEdge.h"

#include <QKeyEvent>

namespace qvm::ui {

int keyCode(const QKeyEvent& event) {
    // AltGr reports itself as Ctrl and Alt together with the character it makes.
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (modifiers != Qt::NoModifier && modifiers != (Qt::ControlModifier | Qt::AltModifier)) {
        return 0;
    }
    switch (event.key()) {
    case Qt::Key_Backspace:
        return Key::Backspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return Key::Tab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::Enter;
    case Qt::Key_Escape:
        return Key::Escape;
    case Qt::Key_Delete:
        return Key::Delete;
    default:
        break;
    }
    const std::string text = fromQt(event.text());
    const bool lost = text == "?" && event.text() != QLatin1String("?");
    const int code = text.size() == 1 && !lost ? static_cast<unsigned char>(text.front()) : 0;
    return code >= ' ' && code != Key::Delete ? code : 0;
}

} // namespace qvm::ui
