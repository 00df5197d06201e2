#include "Oberflaeche.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace qvm::ui {
namespace {

/// Lets a window appear at the place, as far as the screen reaches.
class Placement : public QObject {
public:
    Placement(QWidget* window, const QPoint& place) : QObject(window), window_(window), place_(place) {
        window->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && !event->spontaneous() && !window_->isMaximized()) {
            const QRect room = window_->screen()->availableGeometry();
            const QSize size = window_->frameGeometry().size();
            window_->move(std::max(room.left(), std::min(place_.x(), room.right() + 1 - size.width())),
                          std::max(room.top(), std::min(place_.y(), room.bottom() + 1 - size.height())));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget* window_;
    const QPoint& place_;
};

/// Lets a dialog appear in the middle of the window that it belongs to.
class Centring : public QObject {
public:
    explicit Centring(QWidget* window) : QObject(window), window_(window) { window->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const QWidget* parent = window_->parentWidget();
        if (event->type() == QEvent::Show && !event->spontaneous() && parent != nullptr && parent->isVisible()) {
            QRect place(QPoint(), window_->frameGeometry().size());
            place.moveCenter(parent->frameGeometry().center());
            const QRect room = window_->screen()->availableGeometry();
            window_->move(std::max(room.left(), place.left()), std::max(room.top(), place.top()));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget* window_;
};

/// A key held down acts once: a Return or Escape that repeats itself would press a button of the window that the first
/// one has just opened or left behind, the cancel button of a run among them.
class NoRepeat : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const auto* press = static_cast<QKeyEvent*>(event);
            const int key = press->key();
            if (press->isAutoRepeat() && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape)) {
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

/// Where a window of this size stands beside another one: to its right, else to its left, else at the right edge of the
/// screen, where it covers neither names nor buttons.
QPoint beside(const QRect& other, const QSize& size, const QRect& room) {
    const int right = room.right() + 1 - size.width();
    const int left = other.left() - size.width();
    const int x = other.right() + 1 <= right ? other.right() + 1 : left >= room.left() ? left : right;
    const int y = other.center().y() - size.height() / 2;
    return {std::max(room.left(), x), std::max(room.top(), std::min(y, room.bottom() + 1 - size.height()))};
}

/// Lets a window belong to the run list while that is open, and stand beside it; else to the window that it was made
/// for.
class ListOwner : public QObject {
public:
    ListOwner(QWidget* window, QWidget* list) : QObject(window), window_(window), list_(list) {
        window->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && !event->spontaneous() && window_->windowHandle() != nullptr) {
            const QWidget* owner = list_->isVisible() ? list_ : window_->parentWidget();
            if (owner == list_) {
                window_->move(beside(list_->frameGeometry(), window_->frameGeometry().size(),
                                     list_->screen()->availableGeometry()));
            }
            window_->windowHandle()->setTransientParent(owner != nullptr ? owner->windowHandle() : nullptr);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget* window_;
    QWidget* list_;
};

} // namespace

Oberflaeche::Oberflaeche(Programm& programm)
    : f2(programm.F2), f1(programm.F1, &f2), f15(programm.F15, &f2), f6(programm.F6, &f2), f7(programm.F7),
      f8(programm.F8, &f7), f14(programm.F14, &f2), f13(programm.F13), f11(programm.F11, &f13), f9(programm.F9, &f13),
      f18(programm.F18, &f13), f91(programm.F91), f92(programm.F92, &f91), programm_(programm) {
    qtWords_.use(programm.kern.Config.Sprache);
    connectMainWindow();
    connectWords();
    QCoreApplication::instance()->installEventFilter(new NoRepeat(&f2));
    for (QWidget* window : {static_cast<QWidget*>(&f6), static_cast<QWidget*>(&f7), static_cast<QWidget*>(&f14),
                            static_cast<QWidget*>(&f13), static_cast<QWidget*>(&f91)}) {
        new Placement(window, place_);
    }
    new ListOwner(&f9, &f91);
    new ListOwner(&f18, &f91);
    for (QWidget* dialog : {static_cast<QWidget*>(&f1), static_cast<QWidget*>(&f15), static_cast<QWidget*>(&f11),
                            static_cast<QWidget*>(&f9), static_cast<QWidget*>(&f18)}) {
        new Centring(dialog);
    }
}

Oberflaeche::~Oberflaeche() {
    F2Hooks& hooks = programm_.F2.Hooks;
    hooks.Kalender_Menue = {};
    hooks.Schaltuhr_Menue = {};
    hooks.Ende = {};
    hooks.Historie_Oeffnen = [&program = programm_](const std::string& path) { program.F7.F7_Oeffnen(path); };
    programm_.F7_Oeffnen = {};
    for (auto& [hook, before] : replaced_) {
        *hook = std::move(before);
    }
}

void Oberflaeche::connectMainWindow() {
    F2Hooks& hooks = programm_.F2.Hooks;
    hooks.Kalender_Menue = [this] { f2.popUpCalendarMenu(); };
    hooks.Schaltuhr_Menue = [this] { f2.popUpClockMenu(); };
    // Not quit(): that asks every window first, and they leave the answer to their models.
    hooks.Ende = [] { QCoreApplication::exit(0); };
    for (std::function<void()>* hook : {&hooks.F6_Oeffnen, &hooks.F7_Oeffnen, &hooks.F13_Oeffnen, &hooks.F14_Oeffnen}) {
        keepPlace(*hook);
    }
    hooks.Historie_Oeffnen = [this](const std::string& path) {
        place_ = f2.pos();
        programm_.F7.F7_Oeffnen(path);
    };
    programm_.F7_Oeffnen = [this](const std::string& path) { programm_.F7.F7_Oeffnen(path); };
    programm_.F2.Tasten_Freigeben();
}

void Oberflaeche::keepPlace(std::function<void()>& hook) {
    if (hook) {
        replaced_.emplace_back(&hook, hook);
        hook = [this, open = std::move(hook)] {
            place_ = f2.pos();
            open();
        };
    }
}

void Oberflaeche::connectWords() {
    replaced_.emplace_back(&programm_.F15.Sprache_Gewechselt, programm_.F15.Sprache_Gewechselt);
    programm_.F15.Sprache_Gewechselt = [this, before = std::move(programm_.F15.Sprache_Gewechselt)] {
        if (before) {
            before();
        }
        setWords();
    };
}

void Oberflaeche::setWords() {
    qtWords_.use(programm_.kern.Config.Sprache);
    f2.setWords();
    for (WindowBase* window :
         std::initializer_list<WindowBase*>{&f1, &f6, &f7, &f8, &f9, &f11, &f13, &f14, &f15, &f18, &f91, &f92}) {
        window->setWords();
    }
}

} // namespace qvm::ui
