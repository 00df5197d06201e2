#include "Oberflaeche.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

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
    : programm_(programm),
      words_(programm.kern.Windows.WordsChanged.Listen([this] { qtWords_.use(programm_.kern.Config.Sprache); })),
      f2(programm.F2), f1(programm.F1, &f2), f15(programm.F15, &f2), f6(programm.F6, &f2), f7(programm.F7, &f2),
      f8(programm.F8, &f7), f14(programm.F14, &f2), f13(programm.F13, &f2), f91(programm.F91, &f2),
      f11(programm.F11, &f13), f9(programm.F9, &f13, &f91), f18(programm.F18, &f13, &f91), f92(programm.F92, &f91) {
    qtWords_.use(programm.kern.Config.Sprache);
    programm_.F7_Oeffnen = [this](const std::string& path) { programm_.F7.F7_Oeffnen(path); };
    QCoreApplication::instance()->installEventFilter(new NoRepeat(&f2));
}

Oberflaeche::~Oberflaeche() {
    programm_.F7_Oeffnen = {};
}

} // namespace qvm::ui
