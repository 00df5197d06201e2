// The change of a code and the enrolment of a finger on the screen.

#include "F17Window.h"
#include "F51Window.h"
#include "LockWindows.h"
#include "Oberflaeche.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QWindow>

namespace qvm::test {
namespace {

struct F17_Window : UiFixture {
    std::unique_ptr<ui::F17Window> window;

    void Open() {
        SettledLock(1, "Haupteingang");
        Start();
        window = std::make_unique<ui::F17Window>(Model(), nullptr);
        Model().F17_FormLoad();
        Present(*window);
    }
    F17& Model() { return programm->Transfer->F17; }
    QLineEdit* Box(const char* name) { return window->findChild<QLineEdit*>(QLatin1String(name)); }
    void Type(const char* name, const char* keys) { QTest::keyClicks(Box(name), QLatin1String(keys)); }
};

TEST_F(F17_Window, begins_in_the_old_code_and_shows_nothing_of_what_is_typed) {
    Open();
    EXPECT_TRUE(Box("F17.Text1")->hasFocus());
    for (const char* name : {"F17.Text1", "F17.Text2", "F17.Text3"}) {
        Type(name, "10a2");
        EXPECT_EQ(Box(name)->text(), QStringLiteral("****")) << name;
        const QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(Box(name));
        EXPECT_TRUE(heard->state().passwordEdit) << name;
        EXPECT_FALSE(heard->text(QAccessible::Value).contains(QLatin1Char('1'))) << name;
    }
    EXPECT_EQ(Box("F17.Text2")->accessibleName(), window->findChild<QLabel*>(QStringLiteral("F17.Label2"))->text());
    EXPECT_EQ(unnamedControls(window.get()), QStringList());
}

TEST_F(F17_Window, is_walked_with_tab_from_the_old_code_to_cancel) {
    Open();
    Box("F17.Text1")->setFocus();
    EXPECT_EQ(tabOrder(window.get()),
              (QStringList{QStringLiteral("F17.Text1"), QStringLiteral("F17.Text2"), QStringLiteral("F17.Text3"),
                           QStringLiteral("F17.Command1"), QStringLiteral("F17.Command2")}));
}

TEST_F(F17_Window, asks_the_lock_at_return_in_the_full_repetition_and_not_before) {
    Open();
    Type("F17.Text1", "104212");
    Type("F17.Text2", "271828");
    QTest::keyClick(Box("F17.Text2"), Qt::Key_Return);
    Type("F17.Text3", "27182");
    QTest::keyClick(Box("F17.Text3"), Qt::Key_Return);
    EXPECT_EQ(programm->link.Lauf.Chain.CodeChangePending, 0);
    Type("F17.Text3", "8");
    QTest::keyClick(Box("F17.Text3"), Qt::Key_Return);
    EXPECT_NE(programm->link.Lauf.Chain.CodeChangePending, 0);
    EXPECT_FALSE(window->findChild<QPushButton*>(QStringLiteral("F17.Command1"))->isEnabled());
}

TEST_F(F17_Window, goes_by_escape_by_its_button_and_by_its_frame_and_keeps_no_code) {
    Open();
    for (int way = 0; way < 3; ++way) {
        Model().F17_FormLoad();
        Type("F17.Text1", "10");
        if (way == 0) {
            QTest::keyClick(Box("F17.Text1"), Qt::Key_Escape);
        } else if (way == 1) {
            window->findChild<QPushButton*>(QStringLiteral("F17.Command2"))->click();
        } else {
            window->close();
        }
        EXPECT_FALSE(window->isVisible()) << way;
        EXPECT_EQ(Box("F17.Text1")->text(), QString()) << way;
    }
}

TEST_F(F17_Window, is_what_the_code_cells_of_the_lock_window_lead_to) {
    SettledLock(1, "Haupteingang");
    Start();
    ui::Oberflaeche windows(*programm);
    programm->Transfer->F13.F13_FormLaden();
    EXPECT_EQ(programm->Transfer->F13.FGK13.At(1, F13Column::Code).BackColor, 0xF0F0F0U);
    ASSERT_TRUE(programm->Transfer->F13.F17_Oeffnen);
    programm->Transfer->F13.F17_Oeffnen();
    EXPECT_TRUE(windows.Transfer.f17.isVisible());
}

TEST_F(F17_Window, and_its_wait_box_stand_over_the_units_when_they_have_asked) {
    SettledLock(1, "Haupteingang");
    files.Unit(1, 1, "Tastatur", "01600005", '1', "7");
    Start();
    ui::Oberflaeche windows(*programm);
    programm->Locks->F12.F12_FormLaden();
    programm->Locks->F12.Auswahl.Go(1, 2);
    programm->Locks->F12.SNA_Function_Click();
    struct F20& units = programm->Locks->F20;
    units.Auswahl.Go(1, 2);
    units.SN_Codechange_Click();
    const ui::F17Window& code = windows.Transfer.f17;
    ASSERT_TRUE(code.isVisible() && code.isEnabled());
    EXPECT_EQ(code.windowHandle()->transientParent(), windows.Locks.f20.windowHandle());
    EXPECT_FALSE(windows.Transfer.f13.isVisible());
    Model().Command1_Click();
    ASSERT_TRUE(windows.Transfer.f18.isVisible());
    EXPECT_EQ(windows.Transfer.f18.windowHandle()->transientParent(), windows.Locks.f20.windowHandle());
    Model().Command2_Click();
    EXPECT_FALSE(code.isVisible());
    EXPECT_TRUE(windows.Locks.f20.isEnabled());
    units.Command1_Click();
    programm->Transfer->F13.F13_FormLaden();
    programm->Transfer->F13.F17_Oeffnen();
    EXPECT_EQ(code.windowHandle()->transientParent(), windows.Transfer.f13.windowHandle()) << "a lock's again";
}

struct F51_Window : UiFixture {
    std::unique_ptr<ui::F51Window> window;

    void Open() {
        Start();
        window = std::make_unique<ui::F51Window>(Model(), nullptr);
        Model().F51_FormLaden();
        Model().Wache.Stop();
        Present(*window);
    }
    F51& Model() { return programm->Persons->F51; }
    QLabel* Sign(const char* name) { return window->findChild<QLabel*>(QLatin1String(name)); }
    std::string Seen() {
        std::string seen;
        for (const char* name : {"F51.Arbeit", "F51.Fertig", "F51.Fehlbild"}) {
            const bool drawn = Sign(name)->isVisible() && !Sign(name)->pixmap(Qt::ReturnByValue).isNull();
            seen += drawn ? std::string(name) + " " : "";
        }
        return seen;
    }
};

TEST_F(F51_Window, shows_each_step_with_its_picture_and_its_bar) {
    Open();
    auto* bar = window->findChild<QProgressBar*>(QStringLiteral("F51.Balken"));
    EXPECT_EQ(Seen(), "F51.Arbeit ");
    Model().Schritt_Zeigen(FingerStep::Third);
    EXPECT_EQ(bar->value(), 600);
    EXPECT_EQ(bar->maximum(), 1500);
    EXPECT_EQ(Sign("F51.Schritt")->text(), QStringLiteral("Swipe finger - 3x"));
    EXPECT_FALSE(Sign("F51.Fehler")->isVisible());
    Model().Schritt_Zeigen(FingerStep::TooFast);
    EXPECT_EQ(Seen(), "F51.Fehlbild ");
    EXPECT_TRUE(Sign("F51.Fehler")->isVisible());
    world.RunFor(2100);
    EXPECT_EQ(Seen(), "F51.Arbeit ");
    Model().Schritt_Zeigen(FingerStep::Done);
    EXPECT_EQ(Seen(), "F51.Fertig ");
    EXPECT_EQ(unnamedControls(window.get()), QStringList());
    world.RunFor(2100);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(F51_Window, is_left_by_both_buttons_by_escape_and_by_its_frame) {
    Open();
    for (int way = 0; way < 4; ++way) {
        Model().F51_FormLaden();
        ASSERT_TRUE(window->isVisible());
        if (way < 2) {
            window->findChild<QPushButton*>(QLatin1String(way == 0 ? "F51.Command1" : "F51.Command2"))->click();
        } else if (way == 2) {
            QTest::keyClick(window.get(), Qt::Key_Escape);
        } else {
            window->close();
        }
        EXPECT_FALSE(window->isVisible()) << way;
    }
}

} // namespace
} // namespace qvm::test
