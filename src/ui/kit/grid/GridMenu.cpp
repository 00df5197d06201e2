#include "GridMenu.h"

#include "Bind.h"
#include "Controls.h"
#include "GridView.h"
#include "Theme.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <utility>

namespace qvm::ui {

void popUpAtCell(QMenu& menu, GridView& grid) {
    const auto clicked = grid.clickedCell();
    const auto [row, column] = clicked.value_or(std::pair{grid.grid().Row, grid.grid().Column});
    if (!clicked) {
        grid.scrollTo(grid.currentIndex());
    }
    menu.popup(grid.mapToGlobal(grid.cellRect(row, column).bottomLeft()));
    if (!clicked) {
        menu.setActiveAction(menu.actions().constFirst());
    }
}

void addUndoEntries(QMenu* menu, QWidget* window, const QString& name, MenuEntry& undo, MenuEntry& redo,
                    std::function<void()> onUndo, std::function<void()> onRedo) {
    if (!menu->isEmpty()) {
        menu->addSeparator();
    }
    QAction* back = addMenuEntry(menu, undo, name + QStringLiteral("_Undo"), std::move(onUndo));
    QAction* again = addMenuEntry(menu, redo, name + QStringLiteral("_Redo"), std::move(onRedo));
    back->setShortcut(Qt::CTRL | Qt::Key_Z);
    again->setShortcut(Qt::CTRL | Qt::Key_Y);
    window->addActions({back, again}); // a menu that is not part of a bar does not tell the window of their keys
}

void addTableButtons(QToolBar* bar, std::span<ToolButton> models,
                     const std::function<void(std::string_view key)>& onClick) {
    for (ToolButton& model : models) {
        QToolButton* button = addToolButton(model, bar, onClick);
        if (model.Key == "Neu") {
            button->defaultAction()->setIcon(ownIcon(QStringLiteral("clear")));
        }
    }
}

} // namespace qvm::ui
