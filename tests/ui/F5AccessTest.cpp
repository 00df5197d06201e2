// The user window as it is used through the accessible tree: no key and no pointer.

#include "F5Window.h"
#include "GridView.h"
#include "UiFixture.h"

#include <QAccessible>
#include <QMenu>

namespace qvm::test {
namespace {

constexpr int NameOf = 1, RightOf = 3, KeyOf = 6, MarkOf = 8; // columns

struct F5_Access : UiFixture {
    std::unique_ptr<ui::F5Window> window;
    ui::GridView* grid = nullptr;

    void SetUp() override {
        SettledLock(1, "Tor");
        files.User(1, {.Name = "Anna", .Code = "111111", .KeyId = "1 : 2 : 3 : 4"});
        Start();
        auto& persons = *programm->Persons;
        window = std::make_unique<ui::F5Window>(persons.F5, persons.Schluessel, persons.Finger, nullptr);
        grid = window->findChild<ui::GridView*>(QStringLiteral("F5.FGK4"));
        persons.F5.F5_FormLaden();
        Present(*window);
        Settle();
    }
    const std::string& Text(int row, int column) { return programm->Persons->F5.FGK4.Text(row, column); }
    QAccessibleInterface* Cell(int row, int column) {
        return QAccessible::queryAccessibleInterface(grid)->tableInterface()->cellAt(row - 2, column);
    }
    void Do(QAccessibleInterface* node, const QString& action) {
        node->actionInterface()->doAction(action);
        Settle();
    }
    /// The menu among the window's children.
    QAccessibleInterface* Menu() {
        QAccessibleInterface* top = QAccessible::queryAccessibleInterface(window.get());
        for (int n = 0; n < top->childCount(); ++n) {
            if (top->child(n)->role() == QAccessible::PopupMenu) {
                EXPECT_EQ(top->indexOfChild(top->child(n)), n);
                return top->child(n);
            }
        }
        return nullptr;
    }
};

TEST_F(F5_Access, has_the_menu_of_a_cell_in_the_tree_while_it_is_open) {
    EXPECT_EQ(Menu(), nullptr);
    Do(Cell(2, KeyOf), QAccessibleActionInterface::showMenuAction());
    QAccessibleInterface* menu = Menu();
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->child(1)->text(QAccessible::Name), QString::fromUtf8("Löschen"));
    window->findChild<QMenu*>(QStringLiteral("F5.F5_E_Key"))->close();
    EXPECT_EQ(Menu(), nullptr);
}

TEST_F(F5_Access, an_entry_that_is_chosen_in_the_tree_closes_the_menu_before_it_acts) {
    Do(Cell(2, KeyOf), QAccessibleActionInterface::showMenuAction());
    Expect(77, Answer::Ok);
    QAccessibleInterface* entry = Menu()->child(1);
    ASSERT_EQ(entry->text(QAccessible::Name), QString::fromUtf8("Löschen"));
    entry->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Menu(), nullptr);
    EXPECT_EQ(Text(2, KeyOf), "1 : 2 : 3 : 4") << "the caller does not wait for the question's end";
    Settle();
    EXPECT_EQ(Text(2, KeyOf), "");
}

TEST_F(F5_Access, names_rights_and_marks_are_given_without_an_editor) {
    Cell(3, NameOf)->editableTextInterface()->insertText(0, QStringLiteral("Bert"));
    Settle();
    EXPECT_EQ(Text(3, NameOf), "Bert");
    EXPECT_EQ(Text(3, RightOf), "1");
    Cell(3, RightOf)->editableTextInterface()->replaceText(0, 1, QStringLiteral("ADMI"));
    Do(Cell(3, MarkOf), QAccessibleActionInterface::pressAction());
    EXPECT_EQ(Text(3, RightOf), "ADMI");
    EXPECT_EQ(Text(3, MarkOf), "X");
    EXPECT_EQ(Cell(3, KeyOf)->editableTextInterface(), nullptr) << "a key is learned";
}

} // namespace
} // namespace qvm::test
