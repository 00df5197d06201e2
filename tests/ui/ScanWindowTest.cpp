// What a scan of the radio channels shows on the screen, and over which windows.

#include "LockWindows.h"
#include "Oberflaeche.h"
#include "UiFixture.h"

#include <QTest>
#include <QWindow>

#include <set>
#include <string>
#include <tuple>

namespace qvm::test {
namespace {

struct Scan_Window : UiFixture {
    std::unique_ptr<ui::Oberflaeche> windows;

    void Open(std::string_view language = "Deutsch") {
        SettledLock(1, "Haupteingang");
        Start(language);
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

/// The units window, and its controls by their names.
struct Scan_Units : Scan_Window {
    void OpenUnits(std::string_view language = "Deutsch") {
        windows.reset();
        programm.reset();
        Open(language);
        programm->Locks->F12.SNA_Function_Click();
        Settle();
    }
    F20& Units() { return programm->Locks->F20; }
    std::set<std::string> Usable() {
        std::set<std::string> names;
        for (const char* name :
             {"Combo1", "Combo2", "Combo3", "Combo4", "Combo5", "Check1", "Check2", "Command1", "Command2"}) {
            if (windows->Locks.f20.findChild<QWidget*>(QLatin1String("F20.") + QLatin1String(name))->isEnabled()) {
                names.insert(name);
            }
        }
        return names;
    }
    QRect Grid() { return windows->Locks.f20.findChild<QWidget*>(QStringLiteral("F20.FGK20"))->geometry(); }
};

TEST_F(Scan_Units, are_grey_but_for_the_key_that_ends_it_and_come_back_as_they_were) {
    OpenUnits();
    const std::set<std::string> threshold{"Combo1", "Combo5", "Check2", "Command1", "Command2"};
    const std::set<std::string> window{"Combo1", "Combo2", "Combo3", "Combo4", "Check1", "Command1", "Command2"};
    const std::set<std::string> always{"Combo1", "Check1", "Command1", "Command2"};
    for (const auto& [mode, on, wanted] :
         {std::tuple{0, false, threshold}, std::tuple{1, false, window}, std::tuple{1, true, always}}) {
        Units().Combo1_Click(mode);
        Units().Check1_Click(on);
        Units().Combo1_Click(mode);
        ASSERT_EQ(Usable(), wanted);
        Units().Suche_Zeigen(3, "so far");
        EXPECT_EQ(Usable(), std::set<std::string>{"Command1"});
        Units().Suche_Zeigen(4, "so far");
        EXPECT_EQ(Usable(), std::set<std::string>{"Command1"});
        Units().Suche_Endet(std::string());
        EXPECT_EQ(Usable(), wanted);
    }
}

TEST_F(Scan_Units, stand_still_while_what_is_found_grows) {
    for (const std::string_view language : Languages) {
        OpenUnits(language);
        Units().Suche_Zeigen(1, Wort(programm->kern, Word::ScanNothing, {"1"}));
        Settle();
        const QRect before = Grid();
        Units().Suche_Zeigen(12, Wort(programm->kern, Word::ScanFound, {"12", "11", "00.00.30.01", "11"}));
        Settle();
        EXPECT_EQ(Grid(), before) << language;
        Units().Suche_Endet(std::string());
    }
}

} // namespace
} // namespace qvm::test
