#include "Bind.h"
#include "Geometry.h"
#include "TextEdge.h"

#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace qvm::ui {
namespace {

/// Lives as a child of its window and stands between it and the user's wish to close it.
class WindowBinding : public QObject {
public:
    WindowBinding(Window& model, QWidget* window, WindowHandlers handlers, bool remember)
        : QObject(window), model_(model), window_(window), handlers_(std::move(handlers)), remember_(remember) {
        window->installEventFilter(this);
    }

    void showVisible() {
        if (!model_.Visible) {
            if (window_->isVisible()) {
                noteFramePlace(window_);
            }
            window_->hide();
            return;
        }
        if (!placed_) {
            placed_ = true;
            if (!remember_ || !restoreGeometry(window_, window_->objectName())) {
                takeNaturalSize();
            }
        } else if (!window_->isMaximized()) {
            comeBack();
        }
        window_->show();
        window_->raise();
        if (!window_->testAttribute(Qt::WA_ShowWithoutActivating)) {
            window_->activateWindow();
        }
    }

    void showEnabled() {
        if (!model_.Enabled) {
            focus_ = window_->focusWidget();
        }
        window_->setEnabled(model_.Enabled);
        if (model_.Enabled && focus_ != nullptr) {
            focus_->setFocus(Qt::OtherFocusReason);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Close:
            // The model decides, now or later, whether the window goes.
            event->ignore();
            if (model_.Enabled) {
                call(handlers_.onClose);
            }
            return true;
        case QEvent::KeyPress:
            if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape && handlers_.onEscape) {
                call(handlers_.onEscape);
                return true;
            }
            break;
        case QEvent::EnabledChange:
            // A window that belongs to another one would be disabled along with it.
            if (window_->isEnabled() != model_.Enabled) {
                window_->setEnabled(model_.Enabled);
            }
            break;
        case QEvent::Hide:
            place_ = window_->geometry().topLeft();
            if (remember_ && !event->spontaneous()) {
                saveGeometry(window_, window_->objectName());
            }
            break;
        default:
            break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static void call(const std::function<void()>& handler) {
        if (handler) {
            handler();
        }
    }

    /// What the window was made for or its content needs, as far as the screen has it.
    void takeNaturalSize() {
        window_->ensurePolished();
        // What has been filled since the window was made is not in the hints that its layouts keep.
        for (QWidget* child : window_->findChildren<QWidget*>()) {
            child->updateGeometry();
        }
        if (QLayout* layout = window_->layout()) {
            layout->activate(); // asks those within it, too
        }
        const QSize wanted = window_->testAttribute(Qt::WA_Resized) ? window_->size() : window_->sizeHint();
        if (wanted.isValid()) {
            window_->resize(wanted.boundedTo(window_->screen()->availableSize() * 9 / 10));
        }
    }

    /// Where it stood when it was hidden, also when that was half over an edge; but on the screen when the middle of
    /// its upper edge is on none any more, by which it could be moved. A widget that is moved to where it believes to
    /// be moves nothing, and the window manager is not told a place; it would choose one anew. So the place is told to
    /// the window itself.
    void comeBack() {
        QRect place(place_, window_->size());
        if (QGuiApplication::screenAt(QPoint(place.center().x(), place.top())) == nullptr) {
            place = onScreen(place);
        }
        window_->setGeometry(place);
        if (QWindow* window = window_->windowHandle()) {
            window->setPosition(place.topLeft());
        }
    }

    Window& model_;
    QWidget* window_;
    WindowHandlers handlers_;
    QPointer<QWidget> focus_;
    QPoint place_; ///< where its content stood when it was hidden
    bool remember_;
    bool placed_ = false;
};

} // namespace

void bind(Window& model, QWidget* widget, const QString& name, WindowHandlers handlers, bool remember) {
    nameWidget(widget, name);
    auto* binding = new WindowBinding(model, widget, std::move(handlers), remember);
    watch(model.Title, widget, [&model, widget] {
        widget->setWindowTitle(toQt(model.Title()));
        widget->setAccessibleName(widget->windowTitle());
    });
    watch(model.Enabled, widget, [binding] { binding->showEnabled(); });
    watch(model.Visible, widget, [binding] { binding->showVisible(); });
}

} // namespace qvm::ui
