// The lock window on the screen: its tool bar, its grid, its keys.

#include "F13Window.h"

#include "GridView.h"
#include "Pictures.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QAccessible>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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
        window = std::make_unique<ui::F13Window>(programm->Transfer->F13);
        grid = window->findChild<ui::GridView*>(QStringLiteral("F13.FGK13"));
        programm->Transfer->F13.F13_FormLaden();
        programm->Transfer->F13.Timer1.Stop();
        programm->Transfer->F13.Timer2.Stop();
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
    EXPECT_TRUE(programm->Transfer->F11.Fenster.Visible);
    EXPECT_FALSE(window->isEnabled());
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(1, F13Column::Mark), "X");
}

TEST_F(F13_Window, counts_each_of_two_quick_clicks_on_a_mark_and_starts_once) {
    Open();
    const auto twice = [&](int column) { DoubleClickCell(*grid, 1, column); };
    window->resize(1200, 500);
    Settle();
    const auto mark = [this] { return programm->Transfer->F13.FGK13.Text(1, F13Column::Mark); };
    const std::string before = mark();
    twice(F13Column::Mark);
    EXPECT_EQ(mark(), before);
    ClickCell(1, F13Column::Mark);
    EXPECT_NE(mark(), before);
    Expect(63, Answer::No);
    twice(F13Column::Program);
    EXPECT_TRUE(programm->Transfer->F11.Fenster.Visible);
}

TEST_F(F13_Window, acts_on_a_cell_by_keyboard_alone) {
    Open();
    grid->setFocus();
    grid->setCurrentCell(1, F13Column::Program);
    for (int n = 0; n < 4; ++n) {
        QTest::keyClick(grid, Qt::Key_Right); // history, code, status, mark
    }
    EXPECT_EQ(programm->Transfer->F13.FGK13.Column, F13Column::Mark);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(1, F13Column::Mark), "X");
    QTest::keyClick(grid, Qt::Key_Return);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(1, F13Column::Mark), "");
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
    programm->Transfer->F13.Timer1.Start(10);
    world.RunFor(30);
    EXPECT_EQ(programm->Transfer->F13.FGK13.At(1, F13Column::History).BackColor, CellColour::Hover);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(grid->viewport(), &leave);
    world.RunFor(30);
    EXPECT_EQ(programm->Transfer->F13.FGK13.At(1, F13Column::History).BackColor, CellColour::Action);
}

TEST_F(F13_Window, has_its_list_keys_dead_while_there_is_no_list) {
    Open();
    EXPECT_TRUE(Button("Prog.")->isEnabled());
    EXPECT_TRUE(Button("SaveHistory")->isEnabled());
    programm->Transfer->F13.Listenzeile_Uebernehmen = {};
    programm->Transfer->F13.F13_FormLaden();
    EXPECT_TRUE(Button("Zurück")->isEnabled());
    EXPECT_FALSE(Button("Prog.")->isEnabled());
    EXPECT_FALSE(Button("SaveHistory")->isEnabled());
    EXPECT_EQ(Button("Prog.")->toolTip(), QString::fromUtf8("Markierte Schlösser programmieren"));
}

TEST_F(F13_Window, goes_back_by_its_key_by_escape_and_by_its_frame) {
    Open();
    for (int way = 0; way < 3; ++way) {
        programm->Transfer->F13.F13_FormLaden();
        ASSERT_TRUE(window->isVisible());
        if (way == 0) {
            Button("Zurück")->click();
        } else if (way == 1) {
            QTest::keyClick(grid, Qt::Key_Escape);
        } else {
            window->close();
        }
        EXPECT_FALSE(window->isVisible()) << way;
        EXPECT_EQ(programm->Transfer->F13.Aufrufer, 0) << way;
    }
}

TEST_F(F13_Window, is_walked_with_tab_and_names_every_control) {
    Open();
    Button("Zurück")->setFocus();
    EXPECT_EQ(tabOrder(window.get()),
              (QStringList{QString::fromUtf8("F13.Toolbar1.Zurück"), QStringLiteral("F13.Toolbar1.Prog."),
                           QStringLiteral("F13.Toolbar1.SaveHistory"), QStringLiteral("F13.FGK13.Filter"),
                           QStringLiteral("F13.FGK13")}));
    EXPECT_EQ(unnamedControls(window.get()), QStringList());
}

TEST_F(F13_Window, marks_with_space_wherever_the_cell_and_starts_nothing) {
    Open();
    grid->setFocus();
    grid->setCurrentCell(1, F13Column::Program);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(1, F13Column::Mark), "X");
    EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible);
    QTest::keyClick(grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(2, F13Column::Mark), "X");
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(1, F13Column::Mark), "");
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(2, F13Column::Mark), "");
}

TEST_F(F13_Window, marks_all_that_the_filter_shows_with_ctrl_a_and_space) {
    SettledLock(3, "Kellertor");
    Open();
    auto* line = window->findChild<QLineEdit*>(QStringLiteral("F13.FGK13.Filter"));
    QTest::keyClick(grid, Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(line->hasFocus());
    QTest::keyClicks(line, QStringLiteral("keller"));
    EXPECT_EQ(window->findChild<QLabel*>(QStringLiteral("F13.FGK13.Count"))->text(), QStringLiteral("2 von 3"));
    QTest::keyClick(line, Qt::Key_Return);
    QTest::keyClick(grid, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(grid, Qt::Key_Space);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(1, F13Column::Mark), "");
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(2, F13Column::Mark), "X");
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(3, F13Column::Mark), "X");
    auto* marks = window->findChild<QLabel*>(QStringLiteral("F13.Markenzahl"));
    EXPECT_EQ(marks->text(), QStringLiteral("2 markiert"));
    line->setText(QStringLiteral("haupt"));
    EXPECT_EQ(marks->accessibleName(), QStringLiteral("2 markiert, davon 2 nicht angezeigt"));
}

TEST_F(F13_Window, clears_the_filter_with_escape_and_goes_back_with_the_next_one) {
    Open();
    programm->Transfer->F13.Filter.Set("keller");
    QTest::keyClick(grid, Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(programm->Transfer->F13.Filter.Active());
    QTest::keyClick(grid, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(F13_Window, goes_to_the_name_that_is_typed) {
    Open();
    grid->setFocus();
    grid->setCurrentCell(1, F13Column::Serial);
    QTest::keyClicks(grid, QStringLiteral("ke"));
    EXPECT_EQ(grid->currentIndex(), grid->gridModel().index(1, F13Column::Serial));
}

TEST_F(F13_Window, selects_rows_by_a_drag_across_its_keys_and_starts_nothing) {
    Open();
    const QPoint from = grid->viewport()->mapFrom(grid, grid->cellRect(1, F13Column::Program).center());
    const QPoint to = grid->viewport()->mapFrom(grid, grid->cellRect(3, F13Column::Program).center());
    QTest::mousePress(grid->viewport(), Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent move(QEvent::MouseMove, to, grid->viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(grid->viewport(), &move);
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, Qt::NoModifier, to);
    EXPECT_EQ(programm->Transfer->F13.Auswahl.Rows(), (std::vector<int>{1, 2, 3}));
    EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible);
}

TEST_F(F13_Window, reads_its_marks_as_check_boxes_that_a_click_still_toggles) {
    Open();
    grid->setCurrentCell(2, F13Column::Mark); // into sight
    ClickCell(2, F13Column::Mark);
    constexpr int Mark = 7; // of the columns in sight
    QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(grid)->tableInterface();
    EXPECT_TRUE(table->cellAt(1, Mark)->state().checked);
    EXPECT_FALSE(table->cellAt(0, Mark)->state().checked);
    EXPECT_TRUE(table->cellAt(0, Mark)->state().checkable);
    EXPECT_FALSE(table->cellAt(9, Mark)->state().checkable);
    EXPECT_EQ(table->cellAt(1, Mark)->text(QAccessible::Name), QStringLiteral("Prg."));
    ClickCell(2, F13Column::Mark);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(2, F13Column::Mark), "");
}

TEST_F(F13_Window, keeps_its_keys_near_the_name_in_a_wide_window) {
    Open();
    const int narrow = grid->cellRect(1, F13Column::Program).left();
    window->resize(1900, 700);
    UiFixture::Settle();
    EXPECT_EQ(grid->cellRect(1, F13Column::Program).left(), narrow);
    window->resize(500, 400); // its size is remembered
}

TEST_F(F13_Window, shows_a_pending_channel_by_a_shape_of_its_own) {
    Open();
    const auto shape = [this](int row) {
        const auto icon = grid->gridModel().index(row - 1, F13Column::Status).data(Qt::DecorationRole).value<QIcon>();
        return icon.pixmap(24, 24).toImage().convertToFormat(QImage::Format_Alpha8);
    };
    const QImage settled = shape(1);
    const QImage pending = shape(2);
    ASSERT_EQ(settled.size(), pending.size());
    int different = 0;
    for (int y = 0; y < settled.height(); ++y) {
        for (int x = 0; x < settled.width(); ++x) {
            const bool one = qAlpha(settled.pixel(x, y)) > 127;
            different += one != (qAlpha(pending.pixel(x, y)) > 127) ? 1 : 0;
        }
    }
    EXPECT_GT(different, settled.width() * settled.height() / 4);
}

TEST_F(F13_Window, has_a_key_for_what_the_last_list_did_not_finish) {
    Open();
    auto* again = window->findChild<QPushButton*>(QStringLiteral("F13.Command1"));
    EXPECT_TRUE(again->isHidden());
    programm->Transfer->F13.Gescheiterte_Schloesser = [] { return std::vector<int>{2}; };
    programm->Transfer->F13.F13_FormLaden();
    ASSERT_TRUE(again->isVisible());
    EXPECT_EQ(again->text(), QStringLiteral("Gescheiterte markieren"));
    QTest::keyClick(grid, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(2, F13Column::Mark), "X");
    EXPECT_EQ(programm->Transfer->F13.FGK13.Text(1, F13Column::Mark), "");
}

TEST_F(F13_Window, lets_go_of_the_mouse_when_it_dies) {
    Open();
    window.reset();
    EXPECT_FALSE(programm->Transfer->F13.Maus_Zelle);
    programm->Transfer->F13.F13_FormLaden();
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
