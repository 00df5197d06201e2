// The run list and the time of a delayed start on the screen.

#include "F91Window.h"
#include "F92Window.h"
#include "F9Window.h"
#include "GridView.h"
#include "ListMark.h"
#include "MonthView.h"
#include "Pictures.h"
#include "Theme.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

namespace qvm::test {
namespace {

struct F91_Window : UiFixture {
    std::unique_ptr<ui::F91Window> window;
    std::unique_ptr<ui::F92Window> time;
    ui::GridView* grid = nullptr;

    void Open(std::string_view language = "Deutsch") {
        for (int n = 1; n <= 40; ++n) {
            SettledLock(n, n == 1 ? "Haupteingang Nordost" : "Keller " + std::to_string(n));
        }
        Start(language);
        window = std::make_unique<ui::F91Window>(programm->Transfer->F91);
        time = std::make_unique<ui::F92Window>(programm->Transfer->F92, window.get());
        grid = window->findChild<ui::GridView*>(QStringLiteral("F91.FGK91"));
        programm->Transfer->F13.F13_FormLaden();
        programm->Transfer->F13.Timer1.Stop();
        programm->Transfer->F13.Timer2.Stop();
        programm->Transfer->F91.Liste_Leeren();
        for (int n = 1; n <= 40; ++n) {
            programm->Transfer->F91.Listenzeile_Uebernehmen(programm->Transfer->F13.FGK13, n, n);
        }
        programm->link.Lauf.List.RunRows = 40;
        programm->Transfer->F91.Liste_Starten(false);
        Present(*window);
    }
    void OpenTime(std::string_view language = "Deutsch") {
        Open(language);
        programm->Transfer->F91.Liste_Starten(true);
        Present(*time);
    }
    template <class Widget>
    Widget* Find(const char* name) {
        return window->findChild<Widget*>(QString::fromUtf8(name));
    }
    void Everything() {
        F91& list = programm->Transfer->F91;
        for (const int row : {1, 2, 3, 4, 5, 6}) {
            const int lines[] = {266, 263, 66, 261, 255, 259};
            list.FGK91.SetText(row, F91Column::Mark, row == 3 ? "#" : ">>");
            list.FGK91.SetText(row, F91Column::StateText, programm->kern.Zeile(lines[row - 1]));
        }
        list.Status_Zeigen(267, 81);
        list.Balken.Visible = true;
        list.Balken.Value = 18;
        list.StartLabel.Text = programm->kern.Zeile(270) + " 22:30 / 05.03.2026";
        list.JetztLabel.Text = programm->kern.Zeile(271) + " 10:30 / 05.03.2026";
        list.RestLabel.Text = programm->kern.Zeile(272) + " [ 12 : 00 ]  hh:mm";
        for (Label* label : {&list.StartLabel, &list.JetztLabel, &list.RestLabel}) {
            label->Visible = true;
        }
        Settle();
    }
};

TEST_F(F91_Window, shows_the_rows_under_their_headings) {
    Open();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("QVM 7702 SOFTWARE SYSTEM - Markierte Schlösser programmieren"));
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.rowCount(), 40);
    EXPECT_EQ(model.index(0, F91Column::Name).data().toString(), QStringLiteral("Haupteingang Nordost"));
    EXPECT_EQ(model.headerData(F91Column::Mark, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Prg"));
    EXPECT_EQ(model.headerData(F91Column::StateText, Qt::Horizontal, Qt::DisplayRole).toString(),
              QStringLiteral("Status"));
    for (const int column : {0, 1, 2, 16, 17}) {
        EXPECT_FALSE(grid->isColumnHidden(column)) << column;
    }
    for (int column = 3; column < 16; ++column) {
        EXPECT_TRUE(grid->isColumnHidden(column)) << column;
    }
}

TEST_F(F91_Window, explains_each_mark_and_all_of_them_at_the_heading) {
    Open("English");
    programm->Transfer->F91.FGK91.SetText(3, F91Column::Mark, "#");
    const auto& model = grid->gridModel();
    const QModelIndex mark = model.index(2, F91Column::Mark);
    EXPECT_EQ(mark.data(Qt::ToolTipRole).toString(), QStringLiteral("failed, the reason is given beside it"));
    EXPECT_EQ(mark.data(Qt::AccessibleDescriptionRole).toString(), mark.data(Qt::ToolTipRole).toString());
    EXPECT_EQ(mark.data(Qt::AccessibleTextRole).toString(), QStringLiteral("#"));
    EXPECT_FALSE(model.index(39, F91Column::Mark).data(Qt::ToolTipRole).isValid());
    EXPECT_EQ(model.headerData(F91Column::Mark, Qt::Horizontal, Qt::ToolTipRole).toString(),
              QStringLiteral("*   waiting\n-   skipped, the reason is given beside it\n>>   programmed\n"
                             "<<   history read\n#   failed, the reason is given beside it"));
    EXPECT_FALSE(model.headerData(F91Column::Name, Qt::Horizontal, Qt::ToolTipRole).isValid());
}

TEST_F(F91_Window, a_failed_row_is_told_by_sign_and_colour_that_can_be_read_in_light_and_dark) {
    Open();
    programm->Transfer->F91.FGK91.SetText(3, F91Column::StateText, "x");
    programm->Transfer->F91.FGK91.SetPicture(3, F91Column::StateText, ListPicture::Failed);
    programm->Transfer->F91.FGK91.SetBackColor(3, F91Column::StateText, F91::FailedColour);
    Settle();
    const QModelIndex state = grid->gridModel().index(2, F91Column::StateText);
    EXPECT_FALSE(state.data(Qt::DecorationRole).value<QIcon>().isNull());
    const QRect cell = grid->cellRect(3, F91Column::StateText);
    EXPECT_EQ(grid->grab(cell).toImage().pixelColor(cell.width() - 3, 4), QColor(0xFF, 0xC0, 0xC0));
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::Text, QColor(Qt::white));
    for (const QPalette& palette : {QPalette(Qt::white), dark}) {
        EXPECT_EQ(ui::cellBackground(F91::FailedColour, true, palette), QColor(0xFF, 0xC0, 0xC0));
        EXPECT_EQ(ui::cellForeground(Black, F91::FailedColour, palette), QColor(Qt::black));
    }
}

TEST_F(F91_Window, has_a_progress_window_at_every_row_that_takes_no_keyboard) {
    Open();
    const auto progress = std::make_unique<ui::F9Window>(programm->Transfer->F9, nullptr);
    for (int row = 1; row <= 2; ++row) {
        ASSERT_TRUE(world.RunUntil([&] { return programm->Transfer->F91.Arbeit() != F91::Work::None; }));
        Settle();
        EXPECT_TRUE(progress->isVisible());
        EXPECT_TRUE(progress->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
        EXPECT_TRUE(progress->testAttribute(Qt::WA_ShowWithoutActivating));
        programm->Transfer->F91.Zeile_Aufgeben();
    }
    programm->Transfer->F91.F91_Schliessen();
    // A single lock's window has the keyboard again.
    programm->Transfer->F9.F9_Vorbereiten(140);
    programm->Transfer->F9.F9_Zeigen();
    Settle();
    EXPECT_TRUE(progress->isVisible());
    EXPECT_FALSE(progress->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_FALSE(progress->testAttribute(Qt::WA_ShowWithoutActivating));
    programm->Transfer->F9.Stille.Stop();
}

TEST_F(F91_Window, shows_how_far_the_list_is_and_the_row_under_way_in_light_and_dark) {
    Open("English");
    ASSERT_TRUE(world.RunUntil([this] { return programm->Transfer->F91.Arbeit() != F91::Work::None; }));
    Settle();
    EXPECT_EQ(Find<QLabel>("F91.StandLabel")->text(), QStringLiteral("Lock 1 of 40   0 done, 0 failed or skipped"));
    const QModelIndex name = grid->gridModel().index(0, F91Column::Name);
    EXPECT_EQ(programm->Transfer->F91.FGK91.At(1, F91Column::Name).BackColor, F91::UnderWayColour);
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::Text, QColor(Qt::white));
    for (const QPalette& palette : {QPalette(Qt::white), dark}) {
        const QColor ground = ui::cellBackground(F91::UnderWayColour, false, palette);
        const QColor ink = ui::cellForeground(Black, F91::UnderWayColour, palette);
        EXPECT_NE(ground, palette.color(QPalette::Base));
        EXPECT_GT(std::abs(ground.lightness() - ink.lightness()), 120) << name.data().toString().toStdString();
    }
}

TEST_F(F91_Window, keeps_the_present_row_in_sight) {
    Open();
    ASSERT_TRUE(grid->cellRect(40, F91Column::StateText).isEmpty());
    programm->Transfer->F91.Zeile_Zeigen(40);
    Settle();
    EXPECT_FALSE(grid->cellRect(40, F91Column::StateText).isEmpty());
}

TEST_F(F91_Window, leaves_cell_and_block_where_the_operator_put_them_while_the_list_goes_on) {
    Open();
    F91& list = programm->Transfer->F91;
    list.Auswahl.Go(5, F91Column::Name);
    QTest::keyClick(grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(grid, Qt::Key_Down, Qt::ShiftModifier);
    const auto expectBlock = [&] {
        EXPECT_EQ(list.FGK91.Row, 7);
        EXPECT_EQ(list.Auswahl.Block().Top, 5);
        EXPECT_EQ(list.Auswahl.Block().Bottom, 7);
    };
    expectBlock();
    ASSERT_TRUE(world.RunUntil([&] { return list.Arbeit() != F91::Work::None; }));
    expectBlock();
    list.Zeile_Aufgeben();
    ASSERT_TRUE(world.RunUntil([&] { return list.Arbeit() != F91::Work::None; }));
    expectBlock();
    list.Zeile_Zeigen(40);
    Settle();
    EXPECT_FALSE(grid->cellRect(40, F91Column::StateText).isEmpty());
    expectBlock();
}

TEST_F(F91_Window, goes_to_no_row_that_the_filter_hides_and_says_which_one_is_under_way) {
    Open("English");
    F91& list = programm->Transfer->F91;
    list.Filter.Set("keller 3");
    list.Auswahl.Go(30, F91Column::Name);
    ASSERT_TRUE(world.RunUntil([&] { return list.Arbeit() != F91::Work::None; }));
    Settle();
    EXPECT_EQ(list.FGK91.Row, 30);
    EXPECT_TRUE(grid->isRowHidden(0));
    EXPECT_TRUE(grid->cellRect(1, F91Column::Name).isEmpty());
    EXPECT_EQ(Find<QLabel>("F91.StandLabel")->text(),
              QStringLiteral("Lock 1 of 40   hidden by the filter: Lock 1: Haupteingang Nordost   0 done, 0 failed or "
                             "skipped"));
}

TEST_F(F91_Window, finds_a_lock_of_the_list_by_its_filter_line) {
    Open();
    auto* line = Find<QLineEdit>("F91.FGK91.Filter");
    QTest::keyClick(grid, Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(line->hasFocus());
    QTest::keyClicks(line, QStringLiteral("keller 3"));
    EXPECT_EQ(Find<QLabel>("F91.FGK91.Count")->text(), QStringLiteral("11 von 40"));
    EXPECT_FALSE(grid->isRowHidden(29));
    EXPECT_TRUE(grid->isRowHidden(0));
    programm->Transfer->F91.F91_FormLaden(false);
    EXPECT_EQ(line->text(), QString());
    EXPECT_FALSE(grid->isRowHidden(0));
}

TEST_F(F91_Window, gives_its_results_to_the_clipboard) {
    Open();
    programm->Transfer->F91.FGK91.SetText(2, F91Column::Mark, ListMark::Failed);
    programm->Transfer->F91.FGK91.SetText(2, F91Column::StateText, "Keine Antwort");
    programm->Transfer->F91.Auswahl.Go(2, F91Column::Name);
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("2\tKeller 2\t00.0A.10.01\t#\tKeine Antwort\n"));
}

TEST_F(F91_Window, does_not_jump_when_things_come_and_go) {
    Open();
    const QRect close = Find<QPushButton>("F91.Command1")->geometry();
    Everything();
    EXPECT_EQ(Find<QPushButton>("F91.Command1")->geometry(), close);
    EXPECT_EQ(Find<QProgressBar>("F91.Balken")->value(), 18);
    EXPECT_EQ(Find<QLabel>("F91.StatusLabel")->text(), QStringLiteral("Schloss wird programmiert. Bitte warten ..."));
}

TEST_F(F91_Window, the_frame_closes_a_list_that_is_not_under_way) {
    Open();
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes});
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(programm->Transfer->F91.Laeuft());
}

TEST_F(F91_Window, escape_leaves_a_list_that_waits_only_after_a_question) {
    Open();
    world.Answers.push_back({.Text = "*", .Reply = Answer::Cancel});
    QTest::keyClick(grid, Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(programm->Transfer->F91.Laeuft());
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes});
    QTest::keyClick(grid, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(F91_Window, names_its_controls_and_is_walked_with_tab) {
    Open();
    grid->setFocus();
    EXPECT_EQ(tabOrder(window.get()),
              (QStringList{QStringLiteral("F91.FGK91"), QStringLiteral("F91.Command2"), QStringLiteral("F91.Command1"),
                           QStringLiteral("F91.FGK91.Filter")}));
    EXPECT_EQ(unnamedControls(window.get()), QStringList());
}

TEST_F(F91_Window, shows_the_longest_state_of_a_row_whole) {
    Open();
    window->resize(window->sizeHint());
    programm->Transfer->F91.FGK91.SetText(39, F91Column::StateText,
                                          programm->kern.Zeile(70) + "  /  " + programm->kern.Zeile(66));
    Settle();
    const QString text = grid->gridModel().index(38, F91Column::StateText).data().toString();
    EXPECT_EQ(text, QString::fromUtf8("Bitte überprüfen Sie den Code!  /  Verbindung fehlgeschlagen!"));
    EXPECT_GE(grid->columnWidth(F91Column::StateText), grid->fontMetrics().horizontalAdvance(text) + 12);
    EXPECT_EQ(grid->horizontalScrollBar()->maximum(), 0);
}

struct F91_Sprachen : F91_Window, ::testing::WithParamInterface<std::string_view> {};

TEST_P(F91_Sprachen, fits_every_text) {
    Open(GetParam());
    Everything();
    EXPECT_EQ(allTextsFit(window.get()), QStringList());
}

TEST_P(F91_Sprachen, fits_the_time_window_too) {
    OpenTime(GetParam());
    EXPECT_EQ(allTextsFit(time.get()), QStringList());
    EXPECT_EQ(unnamedControls(time.get()), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Languages, F91_Sprachen, ::testing::ValuesIn(Languages));

struct F92_Window : F91_Window {
    QListWidget* List(const char* name) { return time->findChild<QListWidget*>(QString::fromUtf8(name)); }
};

TEST_F(F92_Window, is_preset_to_now_and_shows_what_is_chosen) {
    OpenTime();
    auto* head = time->findChild<QLabel*>(QStringLiteral("F92.Kopf"));
    EXPECT_EQ(head->text(), QStringLiteral("10:30 / 05.03.2026"));
    EXPECT_EQ(List("F92.Stunden")->count(), 24);
    EXPECT_EQ(List("F92.Minuten")->count(), 60);
    EXPECT_EQ(List("F92.Stunden")->currentRow(), 10);
    EXPECT_EQ(List("F92.Minuten")->currentRow(), 30);
    List("F92.Stunden")->setFocus();
    QTest::keyClick(List("F92.Stunden"), Qt::Key_Down);
    QTest::keyClick(List("F92.Minuten"), Qt::Key_Up);
    EXPECT_EQ(head->text(), QStringLiteral("11:29 / 05.03.2026"));
    auto* month = time->findChild<ui::MonthView*>();
    month->setSelectedDate(QDate(2026, 4, 1));
    EXPECT_EQ(head->text(), QStringLiteral("11:29 / 01.04.2026"));
    EXPECT_EQ(month->minimumDate(), QDate(2026, 3, 5));
}

TEST_F(F92_Window, shows_whole_rows_beside_a_month_of_the_same_height) {
    OpenTime();
    for (const char* name : {"F92.Stunden", "F92.Minuten"}) {
        EXPECT_EQ(List(name)->viewport()->height() % List(name)->sizeHintForRow(0), 0) << name;
    }
    const auto* month = time->findChild<ui::MonthView*>();
    EXPECT_EQ(month->geometry().bottom(), List("F92.Stunden")->geometry().bottom());
}

TEST_F(F92_Window, return_takes_the_time_and_the_list_waits) {
    OpenTime();
    List("F92.Stunden")->setFocus();
    QTest::keyClick(List("F92.Stunden"), Qt::Key_Down);
    time->findChild<QPushButton*>(QStringLiteral("F92.OK"))->click();
    EXPECT_FALSE(time->isVisible());
    EXPECT_TRUE(programm->Transfer->F91.Timer3.Running());
    EXPECT_TRUE(programm->Transfer->F91.Laeuft());
}

TEST_F(F92_Window, opens_with_the_keyboard_on_the_month_and_no_key_there_starts_the_list) {
    OpenTime();
    auto* month = time->findChild<ui::MonthView*>();
    ASSERT_NE(time->focusWidget(), nullptr);
    EXPECT_TRUE(month->isAncestorOf(time->focusWidget()));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyClick(time->focusWidget(), key);
        QTest::keyClick(List("F92.Stunden"), key);
        EXPECT_TRUE(time->isVisible());
    }
    auto* ok = time->findChild<QPushButton*>(QStringLiteral("F92.OK"));
    ok->setFocus();
    QTest::keyClick(ok, Qt::Key_Return);
    EXPECT_FALSE(time->isVisible());
    EXPECT_TRUE(programm->Transfer->F91.Laeuft());
}

TEST_F(F92_Window, cancel_gives_the_list_up) {
    OpenTime();
    auto* cancel = time->findChild<QPushButton*>(QStringLiteral("F92.Abbrechen"));
    EXPECT_EQ(cancel->accessibleName(), QStringLiteral("Abbrechen"));
    cancel->click();
    EXPECT_FALSE(time->isVisible());
    EXPECT_FALSE(programm->Transfer->F91.Laeuft());
}

TEST_F(F92_Window, escape_gives_the_list_up) {
    OpenTime();
    QTest::keyClick(time.get(), Qt::Key_Escape);
    EXPECT_FALSE(time->isVisible());
    EXPECT_FALSE(programm->Transfer->F91.Laeuft());
}

} // namespace
} // namespace qvm::test
