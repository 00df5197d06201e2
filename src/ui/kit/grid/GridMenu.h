#pragma once

#include <QString>

#include <functional>
#include <span>
#include <string_view>

class QMenu;
class QToolBar;
class QWidget;

namespace qvm {
struct MenuEntry;
struct ToolButton;
} // namespace qvm

/// What the windows with a table have in their menus and tool bars.
namespace qvm::ui {

class GridView;

/// Opens the menu below the cell of the grid whose click is being handled; without one below the current cell, where
/// the keyboard is on the first entry then.
void popUpAtCell(QMenu& menu, GridView& grid);

/// The two entries that take a step back and do it again, at the end of the menu and behind a line. Their keys work
/// anywhere in the window. They are named "<name>_Undo" and "<name>_Redo".
void addUndoEntries(QMenu* menu, QWidget* window, const QString& name, MenuEntry& undo, MenuEntry& redo,
                    std::function<void()> onUndo, std::function<void()> onRedo);

/// The keys of a table's tool bar. "Neu" empties the table, which is another thing than in the main window, and has
/// another picture.
void addTableButtons(QToolBar* bar, std::span<ToolButton> models,
                     const std::function<void(std::string_view key)>& onClick);

} // namespace qvm::ui
