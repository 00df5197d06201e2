#pragma once

#include "Controls.h"
#include "Theme.h"

#include <QObject>
#include <QString>

#include <functional>
#include <string_view>
#include <utility>

class QAbstractButton;
class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QMenuBar;
class QProgressBar;
class QRadioButton;
class QToolBar;
class QToolButton;
class QWidget;

/// Ties control models to widgets: the widget shows what the model holds, and the user's changes go to the model and
/// then to the handler. A model has one view at a time and must outlive its widget; when the widget dies, the model is
/// let go. `name` is the control's name, "F13.FGK13" for one, and becomes the object name.
namespace qvm::ui {

class ElidedLabel;

/// Calls `show` now and whenever the value changes, until `owner` dies.
template <class T>
void watch(Observed<T>& value, QObject* owner, const std::function<void()>& show) {
    value.Changed = show;
    QObject::connect(owner, &QObject::destroyed, [&value] { value.Changed = {}; });
    show();
}

/// Object name, and the accessible name unless it is empty.
void nameWidget(QWidget* widget, const QString& name, const QString& accessibleName = {});

/// The accessible name follows the text.
void bind(Label& model, QLabel* widget, const QString& name);
/// The same with as much of the text as there is room for.
void bind(Label& model, ElidedLabel* widget, const QString& name);
/// A label that can be pressed.
void bind(Label& model, QAbstractButton* widget, const QString& name, std::function<void()> onClick);
void bind(TextBox& model, QLineEdit* widget, const QString& name);
void bind(Button& model, QAbstractButton* widget, const QString& name, std::function<void()> onClick);
/// With a handler it decides what becomes of the model, which takes the new state by itself only without one. The
/// widget shows what the model then holds.
void bind(CheckBox& model, QCheckBox* widget, const QString& name, std::function<void(bool on)> onClick = {});
void bind(ProgressBar& model, QProgressBar* widget, const QString& name);
/// Likewise. Only the user's own choice calls the handler.
void bind(ListBox& model, QComboBox* widget, const QString& name, std::function<void(int index)> onSelect = {});
void bind(ListBox& model, QListWidget* widget, const QString& name, std::function<void(int index)> onSelect = {});
/// `size` in device independent pixels.
void bind(Picture& model, QLabel* widget, const QString& name, PictureSet set, int size);
void bind(MenuEntry& model, QAction* action, const QString& name, std::function<void()> onClick);

/// A new action at the end of the menu, for the entry.
QAction* addMenuEntry(QMenu* menu, MenuEntry& model, const QString& name, std::function<void()> onClick);
/// A new menu at the end of the menu, or the menu bar, for the entry; its own name is that of the entry with ".Menu".
QMenu* addMenu(QMenu* menu, MenuEntry& model, const QString& name);
QMenu* addMenu(QMenuBar* bar, MenuEntry& model, const QString& name);

/// One of several, of which one is chosen: Tab goes to that one, the arrow keys to the others.
void bindOption(CheckBox& model, QRadioButton* widget, const QString& name, std::function<void()> onClick);

/// A check box that only shows: it takes neither mouse nor keys.
void bindDisplay(CheckBox& model, QCheckBox* widget, const QString& name);

/// A button at the end of the tool bar: icon by key, the tip under it in at most two lines, and as tool tip and
/// accessible name. Reached with Tab, pressed with space or Return. Object name: the bar's name, a point, the key.
QToolButton* addToolButton(ToolButton& model, QToolBar* bar, std::function<void(std::string_view key)> onClick);

/// Return presses the button as space does.
void pressByReturn(QToolButton* button);
/// A button that does nothing at present, and why: it is drawn as disabled and keeps the keyboard, which would jump
/// away from a disabled one. An empty reason: it acts.
void setWaiting(QToolButton* button, const QString& why);
bool isWaiting(const QWidget* widget);

/// What the user can do to a window as a whole. An empty handler ignores it.
struct WindowHandlers {
    std::function<void()> onClose;  ///< the frame's close button; the window itself stays as it is
    std::function<void()> onEscape; ///< Escape that no control wanted
};

/// Title, Visible and Enabled. Showing brings the window to the front, where it stood when it was hidden; enabling
/// gives the focus back to the widget that had it. A window whose model is disabled cannot be closed. The window's
/// place and size are remembered under `name` when `remember` is set.
void bind(Window& model, QWidget* widget, const QString& name, WindowHandlers handlers, bool remember = true);

} // namespace qvm::ui
