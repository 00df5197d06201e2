#pragma once

#include "Bind.h"
#include "Kern.h"

#include <QWidget>

#include <functional>
#include <initializer_list>
#include <vector>

class QLabel;
class QLayout;
class QMenuBar;
class QPushButton;
class QToolBar;
class QVBoxLayout;

namespace qvm::ui {

/// Lets a widget keep its room while it is hidden, so that nothing jumps when it comes and goes.
void keepRoom(QWidget* widget);

/// The line that says what a window is about, which stands out; without a text it takes no room. The parent's.
QLabel* newHeading(Label& model, const QString& name, QWidget* parent);

/// What kind of window it is, and where it appears.
enum class Stand {
    InPlaceOfMain, ///< a window of its own, where the main window stands or stood
    OverMain,      ///< a dialog of the main window at the same place
    Centred,       ///< a dialog in the middle of the window that it belongs to
    Dialog,        ///< a dialog where it was last, or where the window manager puts it
};

/// What every window but the main window starts from: icon, binding, an optional tool bar over a content area, a button
/// that Return presses, and F1 and "?", which open the manual at the window's chapter. Windows are never deleted while
/// the program runs, only hidden: their handlers may be on the stack when they close.
class WindowBase : public QWidget {
    Q_OBJECT

public:
    /// `name`: "F13" for one. `owner`: the window that it belongs to, or in whose place it stands; may be nullptr. No
    /// click brings an owner before its dialog: only of dialogs does a window manager learn whom they belong to.
    template <class Model>
    WindowBase(Model& model, const QString& name, Stand stand, QWidget* owner)
        : WindowBase(model.kern, model.Fenster, name, stand, owner) {}

    /// Words of the front end's own in the language in use. Happens when another one is chosen, and whenever the window
    /// appears.
    virtual void setWords() {}
    /// While that window is open, and the owner is not, this one belongs to it. Of several the first counts.
    void alsoOf(QWidget* other) { others_.push_back(other); }

protected:
    /// A tool bar with big icons and text at the top; named "<name>.Toolbar1".
    QToolBar* addToolBar();
    /// A menu bar above everything else; named "<name>.Menu". Its last entry, "?", opens the manual.
    QMenuBar* addMenuBar();
    /// Where the window's content goes.
    QVBoxLayout* content() const { return content_; }
    /// The grid that takes the room and has the keyboard whenever the window appears, and the line below it.
    void addGrid(QWidget* grid, QLayout* foot);
    /// Buttons side by side at the end of a line.
    static QLayout* buttonRow(std::initializer_list<QWidget*> buttons);
    /// Return presses this button wherever the focus stands, unless the control there wants the key itself. Once it is
    /// enabled it takes a focus that nothing else has.
    void setDefaultButton(QPushButton* button);
    /// This control has the keyboard whenever the window appears: one that is disabled along with its owner, as at the
    /// key that opens it, would lose it.
    void setFirst(QWidget* control) { first_ = control; }
    /// In device independent pixels: the window never gets smaller than this, nor than its content needs.
    void setLeastSize(int width, int height = 0);
    /// While that window is open this one belongs to it instead, and stands beside it.
    void setBeside(QWidget* other) { beside_ = other; }
    /// To be called at the end of the constructor: title, visibility, place. `remember`: place and size.
    void finish(WindowHandlers handlers, bool remember = true);
    /// The frame's close button and Escape do the same, as in most windows.
    void finish(const std::function<void()>& leave, bool remember = true);
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    WindowBase(Kern& kern, Window& model, const QString& name, Stand stand, QWidget* owner);
    void keepLeastSize();
    void place();
    QWidget* presentOwner() const;
    void placeBy(const QWidget& owner);

    Window& model_;
    Stand stand_;
    QWidget* owner_;
    QWidget* beside_ = nullptr;
    std::vector<QWidget*> others_;
    std::function<void()> manual_; ///< opens it at the window's chapter
    QMenuBar* menus_ = nullptr;
    QVBoxLayout* outer_;
    QVBoxLayout* content_;
    QPushButton* default_ = nullptr;
    QWidget* first_ = nullptr;
    QSize least_; ///< as set
    Listener words_;
};

} // namespace qvm::ui
