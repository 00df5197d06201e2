#include "Oberflaeche.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

#include <initializer_list>

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
    : words_(
          programm.kern.Windows.WordsChanged.Listen([this, &programm] { qtWords_.use(programm.kern.Config.Sprache); })),
      Main(*programm.Main), Transfer(*programm.Transfer, &Main.f2), History(*programm.History, &Main.f2),
      Persons(*programm.Persons, &Main.f2), Locks(*programm.Locks, &Main.f2), Times(*programm.Times, &Main.f2) {
    qtWords_.use(programm.kern.Config.Sprache);
    for (WindowBase* dialog : std::initializer_list<WindowBase*>{&Transfer.f11, &Transfer.f17, &Transfer.f18}) {
        dialog->alsoOf(&Locks.f20);
        dialog->alsoOf(&Locks.f12);
    }
    QCoreApplication::instance()->installEventFilter(new NoRepeat(&Main.f2));
}

} // namespace qvm::ui
