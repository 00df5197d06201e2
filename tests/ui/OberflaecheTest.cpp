// All windows over one program: what they leave behind, and keys that are held down.

#include "Oberflaeche.h"

#include "UiFixture.h"

#include <QKeyEvent>

namespace qvm::test {
namespace {

struct All_Windows : UiFixture {};

void press(QWidget& window, int key, bool repeats) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeats);
    QWidget* const target = window.focusWidget() != nullptr ? window.focusWidget() : &window;
    QCoreApplication::sendEvent(target, &event);
}

TEST_F(All_Windows, leave_a_program_that_goes_on_without_them_when_they_go) {
    Start();
    { const ui::Oberflaeche windows(*programm); }
    programm->Main->F14.F14_Laden();
    programm->kern.Sprache.LanguageText[35] = "Channel";
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(programm->Main->F14.Combo1.Entries()[6], "Channel-7");
    programm->kern.Windows.Open["F14"]();
    EXPECT_TRUE(programm->Main->F14.Fenster.Visible);
    EXPECT_FALSE(programm->kern.Windows.Weg("F2_Kalend"));
    EXPECT_FALSE(programm->kern.Windows.Weg("F2_Schaltuhr"));
    EXPECT_FALSE(programm->F7_Oeffnen);
}

TEST_F(All_Windows, the_main_window_comes_back_where_the_operator_put_it) {
    Start();
    ui::Oberflaeche windows(*programm);
    programm->Main->F2.F2_Laden();
    Present(windows.Main.f2);
    windows.Main.f2.move(211, 97);
    Settle();
    programm->Main->F2.Fenster.Visible = false;
    windows.Main.f2.move(0, 0); // as a window manager may place it
    windows.Main.f2.setAttribute(Qt::WA_Moved, false);
    programm->Main->F2.F2_Zeigen();
    Settle();
    EXPECT_EQ(windows.Main.f2.pos(), QPoint(211, 97));
    EXPECT_TRUE(windows.Main.f2.testAttribute(Qt::WA_Moved)); // asks the window manager for that place
    programm->Main->F2.Hooks.Ende = {};
    programm->Main->F2.Beenden();
}

TEST_F(All_Windows, a_return_held_down_presses_no_button) {
    Start();
    ui::Oberflaeche windows(*programm);
    programm->Transfer->F9.F9_Vorbereiten(100);
    programm->Transfer->F9.F9_Zeigen();
    programm->Transfer->F9.Fertig(110);
    Present(windows.Transfer.f9);
    press(windows.Transfer.f9, Qt::Key_Return, true);
    EXPECT_TRUE(windows.Transfer.f9.isVisible());
    press(windows.Transfer.f9, Qt::Key_Return, false);
    EXPECT_FALSE(windows.Transfer.f9.isVisible());
}

} // namespace
} // namespace qvm::test
