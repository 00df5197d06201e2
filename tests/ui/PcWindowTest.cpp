// The window of the check of the PC: keys, clipboard, and what a screen reader hears.

#include "GridView.h"
#include "Oberflaeche.h"
#include "UiFixture.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace qvm::test {
namespace {

struct Pc_Window : UiFixture {
    std::unique_ptr<ui::Oberflaeche> windows;
    int Looks = 0;

    void Open() {
        Start("English");
        windows = std::make_unique<ui::Oberflaeche>(*programm);
        PcHaken& hooks = programm->Main->Pc.Haken;
        hooks.Ansehen = [this](const std::vector<int>&) {
            ++Looks;
            PcFacts facts;
            facts.Now = {.Year = 2026, .Month = 3, .Day = 5, .Hour = 10, .Minute = 30};
            facts.Paths["DAT"] = {.There = true, .Directory = true, .Readable = true, .Writable = true};
            facts.Paths["HIST"] = {};
            return facts;
        };
        hooks.Beheben = [](const DoctorFix&) { return std::string(); };
        programm->Main->F2.F2_Laden();
        programm->Main->F2.Timer2.Stop();
        Present(windows->Main.f2);
        programm->Main->F2.F2_Pc_Click();
        Present(windows->Main.pc);
        Done();
    }
    ~Pc_Window() override {
        programm->Main->F2.Hooks.Ende = {}; // no event loop to leave
        programm->Main->F2.Beenden();
    }
    void Done() {
        ASSERT_TRUE(world.RunUntil([this] { return programm->Main->Pc.Erneut.Enabled(); }));
        Settle();
    }
    QPushButton* Key(const char* name) {
        return windows->Main.pc.findChild<QPushButton*>(QStringLiteral("Pc.") + QLatin1String(name));
    }
    ui::GridView* List() { return windows->Main.pc.findChild<ui::GridView*>(QStringLiteral("Pc.FGK")); }
};

TEST_F(Pc_Window, is_worked_by_the_keyboard_alone) {
    Open();
    EXPECT_EQ(windows->Main.pc.windowTitle(), QStringLiteral("QVM 7702 SOFTWARE SYSTEM - Check this PC"));
    EXPECT_EQ(QApplication::focusWidget(), List());
    const auto* detail = windows->Main.pc.findChild<QLabel*>(QStringLiteral("Pc.Einzelheit"));
    QTest::keyClick(List(), Qt::Key_Down);
    QTest::keyClick(List(), Qt::Key_Up);
    EXPECT_EQ(detail->text(), QStringLiteral("nothing is there\nPlug the adapter in, or choose its port in the "
                                             "settings"));
    const int before = Looks;
    Key("Erneut")->setFocus();
    QTest::keyClick(Key("Erneut"), Qt::Key_Space);
    EXPECT_FALSE(Key("Erneut")->isEnabled());
    Done();
    EXPECT_GT(Looks, before);
    QTest::keyClick(&windows->Main.pc, Qt::Key_Escape);
    EXPECT_FALSE(windows->Main.pc.isVisible());
    EXPECT_TRUE(windows->Main.f2.isEnabled());
}

TEST_F(Pc_Window, puts_the_report_on_the_clipboard) {
    Open();
    Key("Kopieren")->setFocus();
    QTest::keyClick(Key("Kopieren"), Qt::Key_Space);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(QStringLiteral("fault  Folder HIST: is not in /q/")));
    EXPECT_EQ(windows->Main.pc.findChild<QLabel*>(QStringLiteral("Pc.Stand"))->text(),
              QStringLiteral("The report is on the clipboard."));
}

TEST_F(Pc_Window, asks_before_it_mends) {
    Open();
    world.Answers.push_back({.Text = "*", .Reply = Answer::No});
    const int before = Looks;
    QTest::mouseClick(Key("Beheben"), Qt::LeftButton);
    EXPECT_EQ(world.Shown.size(), 1U);
    EXPECT_EQ(Looks, before);
}

TEST_F(Pc_Window, tells_a_verdict_by_its_word_to_a_screen_reader_and_by_a_sign) {
    Open();
    const ui::GridModel& cells = List()->gridModel();
    const QModelIndex first = cells.index(0, PcColumn::Verdict);
    EXPECT_EQ(first.data(Qt::DisplayRole).toString(), QStringLiteral("fault"));
    EXPECT_FALSE(first.data(Qt::DecorationRole).isNull());
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(List());
    ASSERT_NE(list, nullptr);
    EXPECT_FALSE(list->text(QAccessible::Name).isEmpty());
    EXPECT_EQ(list->tableInterface()->cellAt(0, PcColumn::Verdict)->text(QAccessible::Name), QStringLiteral("fault"));
}

} // namespace
} // namespace qvm::test
