// The lock window and the unit window as they are used through the accessible tree: no key and no pointer.

#include "F12Window.h"
#include "F20Window.h"
#include "GridView.h"
#include "LockWindows.h"
#include "Text.h"
#include "UiFixture.h"
#include "Words.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace qvm::test {
namespace {

struct F12_Access : UiFixture {
    std::unique_ptr<ui::F12Window> window;
    std::unique_ptr<ui::F20Window> units;

    void SetUp() override {
        SettledLock(1, "Tor");
        SettledLock(2, "Keller", "00.0B.10.02");
        Start();
        window = std::make_unique<ui::F12Window>(programm->Locks->F12, nullptr);
        units = std::make_unique<ui::F20Window>(programm->Locks->F20, window.get());
        programm->Locks->F12.F12_FormLaden();
        Present(*window);
        Settle();
    }
    const std::string& Text(int row, int column) { return programm->Locks->F12.FGK12.Text(row, column); }
    const std::string& UnitText(int row, int column) { return programm->Locks->F20.FGK20.Text(row, column); }
    static QAccessibleInterface* Cell(QWidget& owner, const char* grid, int row, int shown) {
        auto* view = owner.findChild<ui::GridView*>(QString::fromUtf8(grid));
        return QAccessible::queryAccessibleInterface(view)->tableInterface()->cellAt(row - 1, shown);
    }
    /// Columns as those in sight are counted: 3 and, without adapters, 13, 14, 16 and 18 are hidden.
    QAccessibleInterface* Lock(int row, int shown) { return Cell(*window, "F12.FGK12", row, shown); }
    QAccessibleInterface* Unit(int row, int shown) { return Cell(*units, "F20.FGK20", row, shown); }
    static void Write(QAccessibleInterface* cell, const char* text) {
        ASSERT_NE(cell->editableTextInterface(), nullptr);
        cell->editableTextInterface()->replaceText(0, -1, QString::fromUtf8(text));
        Settle();
    }
};

TEST_F(F12_Access, a_lock_gets_its_name_its_serial_number_and_its_door_mode) {
    Write(Lock(3, 1), "Büro");
    EXPECT_EQ(Text(3, 1), u8"Büro"_w);
    Write(Lock(3, 2), "00.0A.10.07");
    EXPECT_EQ(Text(3, 2), "00.0A.10.07");
    Write(Lock(3, 13), "Zimmertür");
    EXPECT_EQ(Text(3, 17), u8"Zimmertür"_w);
    EXPECT_EQ(Lock(3, 3)->editableTextInterface(), nullptr) << "a switch is pressed";
    EXPECT_EQ(Lock(3, 0)->editableTextInterface(), nullptr);
    EXPECT_TRUE(programm->Locks->F12.Tabelle.LockDirty);
}

TEST_F(F12_Access, a_name_that_another_lock_has_stays_in_its_box) {
    Expect(62, Answer::Ok);
    Write(Lock(1, 1), "Keller");
    EXPECT_EQ(Text(1, 1), "Tor");
    auto* box = window->findChild<QLineEdit*>(QStringLiteral("F12.Text1"));
    EXPECT_TRUE(box->isVisible());
    EXPECT_EQ(box->text(), QStringLiteral("Keller"));
}

TEST_F(F12_Access, a_unit_gets_its_name_and_serial_number_by_the_rules_of_typing) {
    programm->Locks->F12.Auswahl.Go(2, 2);
    programm->Locks->F12.SNA_Function_Click();
    Present(*units);
    Settle();
    Write(Unit(1, 1), "Leser");
    Write(Unit(1, 2), "01.60.00.05");
    EXPECT_EQ(UnitText(1, 1) + "|" + UnitText(1, 2) + "|" + UnitText(1, 3), "Leser|01.60.00.05|1");
    world.Answers.push_back({.Text = Fester_Text(programm->kern, Word::WrongModule), .Reply = Answer::Ok});
    Write(Unit(1, 2), "FF.60.00.05");
    EXPECT_EQ(UnitText(1, 2) + "|" + UnitText(1, 3), "|0");
    Expect(62, Answer::Ok);
    Write(Unit(2, 1), "Leser");
    EXPECT_EQ(UnitText(2, 1), "");
    EXPECT_EQ(Unit(1, 0)->editableTextInterface(), nullptr);
}

TEST_F(F12_Access, an_entry_of_a_combo_box_is_chosen_in_its_open_list) {
    programm->Locks->F12.Auswahl.Go(2, 2);
    programm->Locks->F12.SNA_Function_Click();
    programm->Locks->F20.Combo1_Click(1);
    Present(*units);
    Settle();
    auto* box = units->findChild<QComboBox*>(QStringLiteral("F20.Combo3"));
    const auto toggle = [box](int entry) {
        QAccessible::queryAccessibleInterface(box->view())
            ->child(entry)
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
        Settle();
    };
    toggle(12); // the list is shut
    EXPECT_EQ(programm->Locks->F20.Einstellung.MinuteEntry, 0);
    for (const int entry : {12, 5, 59, 0}) {
        box->showPopup();
        Settle();
        toggle(entry);
        EXPECT_FALSE(box->view()->isVisible()) << entry;
        EXPECT_EQ(programm->Locks->F20.Einstellung.MinuteEntry, entry);
        EXPECT_EQ(box->currentIndex(), entry);
    }
    box->showPopup();
    Settle();
    QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(box->view(), Qt::Key_Down);
    Settle();
    EXPECT_TRUE(box->view()->isVisible()) << "keys go from entry to entry as ever";
    EXPECT_EQ(programm->Locks->F20.Einstellung.MinuteEntry, 0);
    QTest::keyClick(box->view(), Qt::Key_Return);
    EXPECT_EQ(programm->Locks->F20.Einstellung.MinuteEntry, 2);
}

} // namespace
} // namespace qvm::test
