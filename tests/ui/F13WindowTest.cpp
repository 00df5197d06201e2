// The lock window on the screen: its tool bar, its grid, its keys.

#include "F13Window.h"

#include "GridView.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QTest>
#include <QToolButton>

namespace qvm::test {
namespace {

struct F13_Window : UiFixture {
    std::unique_ptr<ui::F13Window> window;
    ui::GridView* grid = nullptr;

    void Open(std::string_view language = "Deutsch") {
        SettledLock(1, "Haupteingang");
        SettledLock(2, "Keller");
        files.Channel(2, "3", "4", "1");
        Start(language);
        window = std::make_unique<ui::F13Window>(programm->F13);
        grid = window->findChild<ui::GridView*>(QStringLiteral("F13.FGK13"));
        programm->F13.F13_FormLaden();
        programm->F13.Timer1.Stop();
        programm->F13.Timer2.Stop();
        Present(*window);
    }
    QToolButton* Button(const char* key) {
        return window->findChild<QToolButton*>(QStringLiteral("F13.Toolbar1.") + QString::fromUtf8(key));
    }
    void ClickCell(int row, int column) {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                          grid->viewport()->mapFrom(grid, grid->cellRect(row, column).center()));
    }
};

TEST_F(F13_Window, shows_the_locks_under_their_headings) {
    Open();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("QVM 7702 SOFTWARE SYSTEM - Schlösser programmieren"));
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.rowCount(), 200);
    EXPECT_EQ(model.headerData(F13Column::Name, Qt::Horizontal, Qt::DisplayRole).toString(),
              QString::fromUtf8("Türschloss"));
    EXPECT_EQ(model.index(0, F13Column::Name).data().toString(), QStringLiteral("Haupteingang"));
    for (const int column : {3, 4, 5, 6, 7, 8, 13, 14}) {
        EXPECT_TRUE(grid->isColumnHidden(column)) << column;
    }
    for (const int column : {0, 1, 2, 9, 10, 11, 12, 15}) {
        EXPECT_FALSE(grid->isColumnHidden(column)) << column;
    }
}

TEST_F(F13_Window, keeps_the_given_proportions_of_its_columns) {
    Open();
    EXPECT_GT(grid->columnWidth(F13Column::Name), grid->columnWidth(F13Column::Serial));
    EXPECT_GT(grid->columnWidth(F13Column::Serial), grid->columnWidth(F13Column::Program));
    EXPECT_GT(grid->columnWidth(F13Column::Program), grid->columnWidth(F13Column::Mark));
}

TEST_F(F13_Window, asks_and_opens_the_start_dialog_at_a_click_on_a_program_cell) {
    Open();
    Expect(63, Answer::No);
    ClickCell(1, F13Column::Program);
    EXPECT_TRUE(programm->F11.Fenster.Visible);
    EXPECT_FALSE(window->isEnabled());
    EXPECT_EQ(programm->F13.FGK13.Text(1, F13Column::Mark), "X");
}

TEST_F(F13_Window, acts_on_a_cell_by_keyboard_alone) {
    Open();
    grid->setFocus();
    grid->setCurrentCell(1, F13Column::Program);
    for (int n = 0; n < 4; ++n) {
        QTest::keyClick(grid, Qt::Key_Right); // history, code, status, mark
    }
    EXPECT_EQ(programm->F13.FGK13.Column, F13Column::Mark);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(programm->F13.FGK13.Text(1, F13Column::Mark), "X");
    QTest::keyClick(grid, Qt::Key_Return);
    EXPECT_EQ(programm->F13.FGK13.Text(1, F13Column::Mark), "");
}

TEST_F(F13_Window, marks_and_says_what_can_be_clicked) {
    Open();
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.index(0, F13Column::Program).data(Qt::AccessibleTextRole).toString(), QStringLiteral("Programm"));
    EXPECT_FALSE(model.index(0, F13Column::Program).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_FALSE(model.index(5, F13Column::Program).data(Qt::DecorationRole).isValid());
    EXPECT_FALSE(model.index(0, F13Column::Code).data(Qt::DecorationRole).isValid());
    EXPECT_EQ(model.index(0, F13Column::Status).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("Funkkanal eingestellt"));
    EXPECT_EQ(model.index(1, F13Column::Status).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("Funkkanal noch umzustellen"));
}

TEST_F(F13_Window, lights_the_cell_under_the_mouse_and_puts_it_out_again) {
    Open();
    QTest::mouseMove(grid->viewport(), grid->viewport()->mapFrom(grid, grid->cellRect(1, F13Column::History).center()));
    Settle();
    programm->F13.Timer1.Start(10);
    world.RunFor(30);
    EXPECT_EQ(programm->F13.FGK13.At(1, F13Column::History).BackColor, F13::HoverColour);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(grid->viewport(), &leave);
    world.RunFor(30);
    EXPECT_EQ(programm->F13.FGK13.At(1, F13Column::History).BackColor, F13::ActionColour);
}

TEST_F(F13_Window, has_its_list_keys_dead_while_there_is_no_list) {
    Open();
    EXPECT_TRUE(Button("Prog.")->isEnabled());
    EXPECT_TRUE(Button("SaveHistory")->isEnabled());
    programm->F13.Listenzeile_Uebernehmen = {};
    programm->F13.F13_FormLaden();
    EXPECT_TRUE(Button("Zurück")->isEnabled());
    EXPECT_FALSE(Button("Prog.")->isEnabled());
    EXPECT_FALSE(Button("SaveHistory")->isEnabled());
    EXPECT_EQ(Button("Prog.")->toolTip(), QString::fromUtf8("Markierte Schlösser programmieren"));
}

TEST_F(F13_Window, goes_back_by_its_key_by_escape_and_by_its_frame) {
    Open();
    for (int way = 0; way < 3; ++way) {
        programm->F13.F13_FormLaden();
        ASSERT_TRUE(window->isVisible());
        if (way == 0) {
            Button("Zurück")->click();
        } else if (way == 1) {
            QTest::keyClick(grid, Qt::Key_Escape);
        } else {
            window->close();
        }
        EXPECT_FALSE(window->isVisible()) << way;
        EXPECT_EQ(programm->F13.Aufrufer, 0) << way;
    }
}

TEST_F(F13_Window, is_walked_with_tab_and_names_every_control) {
    Open();
    Button("Zurück")->setFocus();
    EXPECT_EQ(tabOrder(window.get()),
              (QStringList{QString::fromUtf8("F13.Toolbar1.Zurück"), QStringLiteral("F13.Toolbar1.Prog."),
                           QStringLiteral("F13.Toolbar1.SaveHistory"), QStringLiteral("F13.FGK13")}));
    EXPECT_EQ(unnamedControls(window.get()), QStringList());
}

TEST_F(F13_Window, lets_go_of_the_mouse_when_it_dies) {
    Open();
    window.reset();
    EXPECT_FALSE(programm->F13.Maus_Zelle);
    programm->F13.F13_FormLaden();
    world.RunFor(50);
}

struct F13_Sprachen : F13_Window, ::testing::WithParamInterface<std::string_view> {};

TEST_P(F13_Sprachen, fits_every_text) {
    Open(GetParam());
    EXPECT_EQ(allTextsFit(window.get()), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Languages, F13_Sprachen, ::testing::ValuesIn(Languages));

} // namespace
} // namespace qvm::test
