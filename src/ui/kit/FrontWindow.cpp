#include "FrontWindow.h"

#include <QApplication>
#include <QWidget>

namespace qvm::ui {

QWidget* frontWindow() {
    if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr && modal->isVisible()) {
        return modal;
    }
    if (QWidget* active = QApplication::activeWindow()) {
        return active;
    }
    QWidget* last = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const bool real = window->windowType() == Qt::Window || window->windowType() == Qt::Dialog;
        if (real && window->isVisible() && (last == nullptr || window->isEnabled())) {
            last = window;
        }
    }
    return last;
}

void bringToFront() {
    QWidget* window = frontWindow();
    if (window == nullptr) {
        return;
    }
    if (window->isMinimized()) {
        window->showNormal();
    }
    window->raise();
    window->activateWindow();
}

} // namespace qvm::ui
