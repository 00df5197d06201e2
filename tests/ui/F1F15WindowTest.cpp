// The about box and the choice of the language, and what the choice does to open windows.

#include "Oberflaeche.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace qvm::test {
namespace {

struct F1_F15_Window : UiFixture {
    std::unique_ptr<ui::Oberflaeche> windows;

    void Open(std::string_view language = "Deutsch") {
        Start(language);
        programm->Main->F1.CipherText = "AES-128";
        windows = std::make_unique<ui::Oberflaeche>(*programm);
        programm->Main->F2.F2_Laden();
        programm->Main->F2.Timer2.Stop();
        Present(windows->Main.f2);
    }
    ~F1_F15_Window() override {
        programm->Main->F2.Hooks.Ende = {}; // no event loop to leave
        programm->Main->F2.Beenden();
    }

    static QString Text(QWidget& window, const char* name) {
        return window.findChild<QLabel*>(QString::fromUtf8(name))->text();
    }
    /// Chooses a language as the operator does.
    void Choose(int row) {
        programm->Main->F2.F2_Sprache_Click();
        windows->Main.f15.findChild<QListWidget*>(QStringLiteral("F15.Sprachen"))->setCurrentRow(row);
        QTest::keyClick(&windows->Main.f15, Qt::Key_Return);
        Settle();
    }
};

using F1_Window = F1_F15_Window;
using F15_Window = F1_F15_Window;

TEST_F(F1_Window, tells_version_adapter_cipher_folder_and_licences) {
    Open();
    programm->Main->F2.AdapterVersion = 35;
    programm->Main->F2.F2_Version_Click();
    EXPECT_TRUE(windows->Main.f1.isVisible());
    EXPECT_EQ(windows->Main.f1.windowTitle(), QStringLiteral("QVM 7702 SOFTWARE SYSTEM - Version 4.2c"));
    EXPECT_EQ(Text(windows->Main.f1, "F1.VersionLabel"), QStringLiteral("QVM 7702 SOFTWARE SYSTEM - Version 4.2c"));
    EXPECT_EQ(Text(windows->Main.f1, "F1.AdapterLabel"), QStringLiteral("USB Wireless Adapter - 4.5"));
    EXPECT_EQ(Text(windows->Main.f1, "F1.CipherLabel"), QStringLiteral("AES-128"));
    EXPECT_EQ(Text(windows->Main.f1, "F1.DirectoryLabel"), QStringLiteral("/q/DAT/"));
    EXPECT_TRUE(Text(windows->Main.f1, "F1.LicenceLabel").contains(QStringLiteral("LGPL-3.0")));
    EXPECT_EQ(Text(windows->Main.f1, "F1.LicenceTexts"), QStringLiteral("Lizenztexte: bei den Paketen des Systems"));
}

TEST_F(F1_Window, stands_in_the_middle_of_the_main_window) {
    Open();
    windows->Main.f2.move(40, 30);
    programm->Main->F2.F2_Version_Click();
    const QPoint away = windows->Main.f1.frameGeometry().center() - windows->Main.f2.frameGeometry().center();
    EXPECT_LE(away.manhattanLength(), 2);
}

TEST_F(F1_Window, opens_the_support_page_and_closes_by_return_and_by_escape) {
    Open();
    programm->Main->F1.SupportPage = "https://www.example.com/qvm7702";
    programm->Main->F2.F2_Version_Click();
    Settle();
    windows->Main.f1.findChild<QPushButton*>(QStringLiteral("F1.Web"))->click();
    EXPECT_EQ(world.OpenedInLinkedApp, std::vector<std::string>{"https://www.example.com/qvm7702"});
    QTest::keyClick(&windows->Main.f1, Qt::Key_Return);
    EXPECT_FALSE(windows->Main.f1.isVisible());
    programm->Main->F2.F2_Version_Click();
    QTest::keyClick(&windows->Main.f1, Qt::Key_Escape);
    EXPECT_FALSE(windows->Main.f1.isVisible());
}

TEST_F(F15_Window, offers_the_four_languages_with_the_one_in_use_selected) {
    Open("Francais");
    programm->Main->F2.F2_Sprache_Click();
    const auto* list = windows->Main.f15.findChild<QListWidget*>(QStringLiteral("F15.Sprachen"));
    ASSERT_EQ(list->count(), 4);
    EXPECT_EQ(list->item(0)->text(), QStringLiteral("Deutsch"));
    EXPECT_EQ(list->item(2)->text(), QString::fromUtf8("Français"));
    EXPECT_EQ(list->item(3)->text(), QStringLiteral("Nederlands"));
    EXPECT_EQ(list->accessibleName(), QStringLiteral("Langue"));
    EXPECT_EQ(list->currentRow(), 2);
}

TEST_F(F15_Window, is_entered_at_the_language_in_use_again_behind_a_choice_that_was_cancelled) {
    Open("Francais");
    auto* list = windows->Main.f15.findChild<QListWidget*>(QStringLiteral("F15.Sprachen"));
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home}) {
        programm->Main->F2.F2_Sprache_Click();
        Settle();
        EXPECT_EQ(windows->Main.f15.focusWidget(), list);
        EXPECT_EQ(list->currentRow(), 2);
        EXPECT_EQ(list->selectedItems(), QList<QListWidgetItem*>{list->item(2)});
        QTest::keyClick(list, key);
        EXPECT_NE(list->currentRow(), 2);
        QTest::keyClick(list, Qt::Key_Escape);
    }
}

TEST_F(F15_Window, leaves_everything_as_it_was_when_cancelled) {
    Open();
    programm->Main->F2.F2_Sprache_Click();
    windows->Main.f15.findChild<QListWidget*>(QStringLiteral("F15.Sprachen"))->setCurrentRow(1);
    QTest::keyClick(&windows->Main.f15, Qt::Key_Escape);
    EXPECT_FALSE(windows->Main.f15.isVisible());
    EXPECT_EQ(programm->kern.Config.Sprache, "Deutsch");
    EXPECT_EQ(windows->Main.f2.findChild<QToolButton*>(QStringLiteral("F2.Toolbar1.PROG"))->toolTip(),
              QString::fromUtf8("Schlösser programmieren"));
}

TEST_F(F15_Window, changes_the_words_of_the_main_window_at_once) {
    Open();
    programm->Main->F2.Label1.ForeColor = Lampe::Rot;
    Choose(1);
    EXPECT_FALSE(windows->Main.f15.isVisible());
    EXPECT_EQ(programm->kern.Config.Sprache, "English");
    EXPECT_EQ(windows->Main.f2.findChild<QToolButton*>(QStringLiteral("F2.Toolbar1.PROG"))->toolTip(),
              QStringLiteral("Program locks"));
    EXPECT_EQ(windows->Main.f2.findChild<QToolButton*>(QStringLiteral("F2.Toolbar1.PROG"))->text(),
              QStringLiteral("Program\nlocks"));
    EXPECT_EQ(Text(windows->Main.f2, "F2.State"), QStringLiteral("Not connected"));
    const auto* file = windows->Main.f2.findChild<QMenu*>(QStringLiteral("F2.Datei"));
    EXPECT_EQ(file->title().remove(QLatin1Char('&')), QStringLiteral("File"));
    Choose(2);
    EXPECT_EQ(Text(windows->Main.f2, "F2.State"), QString::fromUtf8("Non connecté"));
    EXPECT_EQ(Text(windows->Main.f2, "F2.Version"), QStringLiteral("Version 4.2c"));
    Choose(3);
    EXPECT_EQ(Text(windows->Main.f2, "F2.Version"), QStringLiteral("Versie 4.2c"));
}

TEST_F(F15_Window, leaves_every_text_of_every_window_room_after_each_change) {
    Open();
    for (const int row : {1, 2, 3, 0}) {
        Choose(row);
        EXPECT_EQ(allTextsFit(&windows->Main.f2), QStringList()) << row;
        programm->Main->F2.F2_Version_Click();
        Settle();
        EXPECT_EQ(allTextsFit(&windows->Main.f1), QStringList()) << row;
        programm->Main->F1.OK_Click();
        programm->Main->F2.F2_Sprache_Click();
        Settle();
        EXPECT_EQ(allTextsFit(&windows->Main.f15), QStringList()) << row;
        programm->Main->F15.Cancel_Click();
    }
}

TEST_F(F1_Window, is_walked_with_tab_and_names_every_control) {
    Open();
    programm->Main->F1.SupportPage = "https://www.example.com/qvm7702";
    programm->Main->F2.F2_Version_Click();
    Present(windows->Main.f1);
    windows->Main.f1.findChild<QPushButton*>(QStringLiteral("F1.Web"))->setFocus();
    EXPECT_EQ(tabOrder(&windows->Main.f1), (QStringList{QStringLiteral("F1.Web"), QStringLiteral("F1.OK")}));
    EXPECT_EQ(unnamedControls(&windows->Main.f1), QStringList());
}

TEST_F(F15_Window, is_walked_with_tab_and_names_every_control) {
    Open();
    programm->Main->F2.F2_Sprache_Click();
    Present(windows->Main.f15);
    windows->Main.f15.findChild<QListWidget*>(QStringLiteral("F15.Sprachen"))->setFocus();
    EXPECT_EQ(tabOrder(&windows->Main.f15),
              (QStringList{QStringLiteral("F15.Sprachen"), QStringLiteral("F15.OK"), QStringLiteral("F15.Cancel")}));
    EXPECT_EQ(unnamedControls(&windows->Main.f15), QStringList());
}

} // namespace
} // namespace qvm::test
