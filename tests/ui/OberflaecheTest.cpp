// All windows over one program: what they leave behind, and keys that are held down.

#include "Oberflaeche.h"

#include "UiFixture.h"

#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>

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

TEST_F(All_Windows, a_window_appears_in_the_main_windows_place_also_when_that_has_left_it) {
    Start();
    world.Disk.Files["/q/HIST/H.HST"] = "a\r\n";
    ui::Oberflaeche windows(*programm);
    programm->Main->F2.F2_Laden();
    Present(windows.Main.f2);
    windows.Main.f2.move(13, 17);
    programm->Main->F2.Fenster.Visible = false;
    windows.Main.f2.move(0, 0); // as a window manager may do
    programm->History->F7.F7_Oeffnen("/q/HIST/H.HST");
    EXPECT_EQ(windows.History.f7.pos(), QPoint(13, 17));
    programm->Transfer->F13.F13_FormLaden();
    EXPECT_EQ(windows.Transfer.f13.pos(), QPoint(13, 17));
    programm->Transfer->F91.F91_FormLaden(false);
    EXPECT_EQ(windows.Transfer.f91.pos(), QPoint(13, 17));
    programm->Main->F2.Beenden();
}

TEST_F(All_Windows, the_progress_of_a_list_stands_beside_the_list_and_belongs_to_it) {
    Start();
    ui::Oberflaeche windows(*programm);
    auto& f13 = windows.Transfer.f13;
    auto& f91 = windows.Transfer.f91;
    auto& f9 = windows.Transfer.f9;
    const QRect room = f91.screen()->availableGeometry();
    programm->Transfer->F91.F91_FormLaden(false);
    f91.setGeometry(room.left(), room.top(), 520, 340);
    programm->Transfer->F9.F9_Zeigen();
    EXPECT_EQ(f9.frameGeometry().left(),
              std::min(f91.frameGeometry().right() + 1, room.right() + 1 - f9.frameGeometry().width()));
    EXPECT_EQ(f9.windowHandle()->transientParent(), f91.windowHandle());
    programm->Transfer->F9.F9_Schliessen();
    programm->Transfer->F91.Fenster.Visible = false;
    programm->Transfer->F13.F13_FormLaden();
    f13.setGeometry(room.left() + 100, room.top() + 50, 640, 500);
    programm->Transfer->F9.F9_Zeigen();
    const QPoint away = f9.frameGeometry().center() - f13.frameGeometry().center();
    EXPECT_LE(away.manhattanLength(), 2);
    EXPECT_EQ(f9.windowHandle()->transientParent(), f13.windowHandle());
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
