#pragma once

#include "Bind.h"

#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;
class QToolBar;
class QVBoxLayout;

namespace qvm::ui {

/// Lets a widget keep its room while it is hidden, so that nothing jumps when it comes and goes.
void keepRoom(QWidget* widget);

/// The line that says what a window is about, which stands out; without a text it takes no room.
void bindHeading(Label& model, QLabel* widget, const QString& name);

/// What every window but the main window starts from: icon, binding, an optional tool bar over a content area, and a
/// button that Return presses. Windows are never deleted while the program runs, only hidden: their handlers may be on
/// the stack when they close.
class WindowBase : public QWidget {
    Q_OBJECT

public:
    /// `flags`: Qt::Window, or Qt::Dialog for one that stands over its parent, which no click may bring before it: only
    /// of dialogs does a window manager learn whom they belong to. `name`: "F13" for one.
    WindowBase(Window& model, const QString& name, Qt::WindowFlags flags, QWidget* parent);

    /// Words of the front end's own in the language in use. Happens whenever the window appears, too.
    virtual void setWords() {}

protected:
    /// A tool bar with big icons and text at the top; named "<name>.Toolbar1".
    QToolBar* addToolBar();
    /// Where the window's content goes.
    QVBoxLayout* content() const { return content_; }
    /// Return presses this button wherever the focus stands, unless the control there wants the key itself. Once it is
    /// enabled it takes a focus that nothing else has.
    void setDefaultButton(QPushButton* button);
    /// In device independent pixels: the window never gets smaller than this, nor than its content needs.
    void setLeastSize(int width, int height = 0);
    /// To be called at the end of the constructor: title, visibility, place. `remember`: place and size.
    void finish(WindowHandlers handlers, bool remember = true);
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    Window& windowModel() const { return model_; }

private:
    void keepLeastSize();

    Window& model_;
    QVBoxLayout* outer_;
    QVBoxLayout* content_;
    QPushButton* default_ = nullptr;
    QSize least_; ///< as set
};

} // namespace qvm::ui
