#include "Oberflaeche.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

#include <initializer_list>
#include <utility>

namespace qvm::ui {
namespace {

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

} // namespace

Oberflaeche::Oberflaeche(Programm& programm)
    : f2(programm.F2), f1(programm.F1, &f2), f15(programm.F15, &f2), f6(programm.F6, &f2), f7(programm.F7, &f2),
      f8(programm.F8, &f7), f14(programm.F14, &f2), f13(programm.F13, &f2), f91(programm.F91, &f2),
      f11(programm.F11, &f13), f9(programm.F9, &f13, &f91), f18(programm.F18, &f13, &f91), f92(programm.F92, &f91),
      programm_(programm) {
    qtWords_.use(programm.kern.Config.Sprache);
    connectMainWindow();
    connectWords();
    QCoreApplication::instance()->installEventFilter(new NoRepeat(&f2));
}

Oberflaeche::~Oberflaeche() {
    F2Hooks& hooks = programm_.F2.Hooks;
    hooks.Kalender_Menue = {};
    hooks.Schaltuhr_Menue = {};
    hooks.Ende = {};
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
    programm_.F7_Oeffnen = [this](const std::string& path) { programm_.F7.F7_Oeffnen(path); };
    programm_.F2.Tasten_Freigeben();
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
