// What a scan of the radio channels shows on the screen, and over which windows.

#include "LockWindows.h"
#include "Oberflaeche.h"
#include "UiFixture.h"

#include <QTest>
#include <QWindow>

namespace qvm::test {
namespace {

struct Scan_Window : UiFixture {
    std::unique_ptr<ui::Oberflaeche> windows;

    void Open() {
        SettledLock(1, "Haupteingang");
        Start();
        windows = std::make_unique<ui::Oberflaeche>(*programm);
        programm->Locks->Suche_Anbieten();
        programm->Locks->F12.F12_FormLaden();
        programm->Locks->F12.Auswahl.Go(1, 2);
    }
    void TypeTheCode() {
        for (const char key : std::string_view("123456")) {
            programm->Transfer->F11.Text1_KeyPress(key);
        }
        programm->Transfer->F11.OK_Click();
        Settle();
    }
    static QWindow* OwnerOf(const QWidget& window) { return window.windowHandle()->transientParent(); }
};

TEST_F(Scan_Window, start_dialog_and_wait_box_stand_over_the_locks_and_escape_ends_it) {
    Open();
    programm->Locks->F12.SNA_save_Click();
    ASSERT_TRUE(windows->Transfer.f11.isVisible() && windows->Transfer.f11.isEnabled());
    EXPECT_EQ(OwnerOf(windows->Transfer.f11), windows->Locks.f12.windowHandle());
    EXPECT_FALSE(windows->Locks.f12.isEnabled());
    TypeTheCode();
    ASSERT_TRUE(windows->Transfer.f18.isVisible());
    EXPECT_EQ(OwnerOf(windows->Transfer.f18), windows->Locks.f12.windowHandle());
    QTest::keyClick(&windows->Transfer.f18, Qt::Key_Escape);
    EXPECT_FALSE(windows->Transfer.f18.isVisible());
    EXPECT_TRUE(windows->Locks.f12.isEnabled());
    EXPECT_FALSE(programm->Locks->Scan.Laeuft);
}

TEST_F(Scan_Window, the_start_dialog_of_a_unit_stands_over_the_units_where_the_scan_is_seen_and_ended) {
    Open();
    programm->Locks->F12.SNA_Function_Click();
    programm->Locks->F20.Auswahl.Go(2, 2);
    programm->Locks->F20.F20_Readunit_Click();
    ASSERT_TRUE(windows->Transfer.f11.isVisible());
    EXPECT_EQ(OwnerOf(windows->Transfer.f11), windows->Locks.f20.windowHandle());
    TypeTheCode();
    EXPECT_FALSE(windows->Transfer.f18.isVisible());
    ASSERT_TRUE(windows->Locks.f20.isEnabled());
    EXPECT_TRUE(programm->Locks->Scan.Laeuft);
    QTest::keyClick(&windows->Locks.f20, Qt::Key_Escape);
    EXPECT_FALSE(programm->Locks->Scan.Laeuft);
    EXPECT_TRUE(windows->Locks.f20.isVisible());
    QTest::keyClick(&windows->Locks.f20, Qt::Key_Escape);
    EXPECT_FALSE(windows->Locks.f20.isVisible());
}

} // namespace
} // namespace qvm::test
