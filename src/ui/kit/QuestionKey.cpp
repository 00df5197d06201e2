#include "QuestionKey.h"

#include <QShortcut>

namespace qvm::ui {

void addQuestionKey(QWidget* window, const std::function<void()>& open) {
    // Whether Shift counts as a part of it goes by the keyboard's layout and by the platform; where it goes by either,
    // Qt calls the two ambiguous.
    auto* keys = new QShortcut(window);
    keys->setKeys({Qt::Key_Question, Qt::SHIFT | Qt::Key_Question});
    QObject::connect(keys, &QShortcut::activated, window, open);
    QObject::connect(keys, &QShortcut::activatedAmbiguously, window, open);
}

} // namespace qvm::ui
