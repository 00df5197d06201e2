// The start dialog on the screen.

#include "F11Window.h"

#include "MonthView.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace qvm::test {
namespace {

struct F11_Window : UiFixture {
    int listRows = 0; ///< of the list that is begun
    std::unique_ptr<ui::F11Window> window;

    /// Opened from the lock window, a history wanted.
    void Open(std::string_view language = "Deutsch", std::string_view mode = "RESET") {
        SettledLock(1, "Haupteingang");
        Start(language, mode);
        if (mode == "SET") {
            AddAdapter("00.11.22.33", "PROGSTATION USB", "1");
            AddAdapter("00.11.22.44", "NETWORK-1 Nordhalle", "2");
        }
        programm->link.Lauf.Order.What = RunTask::HistoryOnly;
        programm->Run.link.Lauf.List.RunRows = listRows;
        window = std::make_unique<ui::F11Window>(programm->Transfer->F11, nullptr);
        programm->Transfer->F11.F11_Laden(F11Opener::F13, "");
        Present(*window);
    }
    template <class Widget>
    Widget* Find(const char* name) {
        return window->findChild<Widget*>(QString::fromUtf8(name));
    }
};

TEST_F(F11_Window, gives_the_code_box_the_focus_after_half_a_second_and_counts_stars) {
    Open();
    auto* code = Find<QLineEdit>("F11.Text1");
    Find<QPushButton>("F11.Cancel")->setFocus();
    world.RunFor(600);
    EXPECT_TRUE(code->hasFocus());
    QTest::keyClicks(code, QStringLiteral("12a4"));
    EXPECT_EQ(code->text(), QStringLiteral("****"));
    EXPECT_EQ(Find<QLabel>("F11.Anzahl")->text(), QStringLiteral("4"));
    QTest::keyClick(code, Qt::Key_Backspace);
    EXPECT_EQ(code->text(), QStringLiteral("***"));
    EXPECT_EQ(code->accessibleName(), QStringLiteral("Administrator-Code"));
}

TEST_F(F11_Window, its_boxes_end_at_one_edge) {
    Open("Deutsch", "SET");
    const auto right = [this](QWidget* box) { return box->mapTo(window.get(), box->rect().topRight()).x(); };
    EXPECT_EQ(right(Find<QComboBox>("F11.Combo1")), right(Find<QPushButton>("F11.CutoffDate")));
}

TEST_F(F11_Window, names_the_lock_over_the_code_and_nothing_for_a_list) {
    programm.reset();
    Start();
    programm->link.Lauf.Order.LockNumber = 3;
    programm->link.Lauf.Order.LockName = "T\xFCr";
    window = std::make_unique<ui::F11Window>(programm->Transfer->F11, nullptr);
    programm->Transfer->F11.F11_Laden(F11Opener::F13, "");
    Present(*window);
    auto* lock = Find<QLabel>("F11.Schloss");
    EXPECT_EQ(lock->text(), QString::fromUtf8("Schloss 3: Tür"));
    EXPECT_TRUE(lock->isVisible());
    EXPECT_LT(lock->geometry().bottom(), Find<QLabel>("F11.Prompt")->geometry().top());
    programm->Run.link.Lauf.List.RunRows = 2;
    programm->Transfer->F11.F11_Laden(F11Opener::F13, "");
    EXPECT_FALSE(lock->isVisible());
    window.reset();
}

TEST_F(F11_Window, runs_ok_with_return_in_the_code_box_once_six_characters_stand) {
    Open();
    auto* code = Find<QLineEdit>("F11.Text1");
    code->setFocus();
    QTest::keyClicks(code, QStringLiteral("12345"));
    QTest::keyClick(code, Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
    QTest::keyClicks(code, QStringLiteral("6"));
    QTest::keyClick(code, Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
}

TEST_F(F11_Window, says_that_the_code_is_too_short_at_ok) {
    Open();
    Expect(61, Answer::Ok);
    Find<QPushButton>("F11.OK")->click();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(F11_Window, cancels_by_button_escape_and_frame) {
    Open();
    for (int way = 0; way < 3; ++way) {
        programm->Transfer->F11.F11_Laden(F11Opener::F13, "");
        ASSERT_TRUE(window->isVisible());
        if (way == 0) {
            Find<QPushButton>("F11.Cancel")->click();
        } else if (way == 1) {
            QTest::keyClick(Find<QLineEdit>("F11.Text1"), Qt::Key_Escape);
        } else {
            window->close();
        }
        EXPECT_FALSE(window->isVisible()) << way;
    }
}

TEST_F(F11_Window, picks_the_cut_off_date_in_a_month_up_to_today) {
    Open();
    auto* date = Find<QPushButton>("F11.CutoffDate");
    EXPECT_EQ(date->text(), QStringLiteral("13.02.2026"));
    date->click();
    auto* month = Find<ui::MonthView>("F11.MonthView");
    EXPECT_TRUE(month->isVisible());
    EXPECT_EQ(month->day(), (Datum{.Year = 2026, .Month = 2, .Day = 13}));
    EXPECT_EQ(month->maximumDate(), QDate(2026, 3, 5));
    month->onPick({.Year = 2026, .Month = 1, .Day = 31});
    EXPECT_FALSE(month->isVisible());
    EXPECT_EQ(date->text(), QStringLiteral("31.01.2026"));
    EXPECT_EQ(programm->Transfer->F11.Stichtag(), (Datum{.Year = 2026, .Month = 1, .Day = 31}));
}

TEST_F(F11_Window, shows_the_adapters_only_in_adapter_mode) {
    Open();
    EXPECT_FALSE(Find<QComboBox>("F11.Combo1")->isVisible());
}

TEST_F(F11_Window, lists_the_adapters_and_hands_the_choice_on) {
    Open("Deutsch", "SET");
    auto* list = Find<QComboBox>("F11.Combo1");
    ASSERT_TRUE(list->isVisible());
    ASSERT_EQ(list->count(), 2);
    EXPECT_EQ(list->itemText(1), QStringLiteral("NETWORK-1 Nordhalle [00.11.22.44]"));
    EXPECT_EQ(list->currentIndex(), 0);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(programm->Transfer->F11.Combo1.Selected, 1);
}

TEST_F(F11_Window, is_walked_with_tab_in_reading_order_and_names_every_control) {
    Open("Deutsch", "SET");
    Find<QLineEdit>("F11.Text1")->setFocus();
    EXPECT_EQ(tabOrder(window.get()),
              (QStringList{QStringLiteral("F11.Text1"), QStringLiteral("F11.Combo1"), QStringLiteral("F11.CutoffDate"),
                           QStringLiteral("F11.Check1"), QStringLiteral("F11.OK"), QStringLiteral("F11.Cancel")}));
    EXPECT_EQ(unnamedControls(window.get()), QStringList());
}

TEST_F(F11_Window, asks_for_the_patience_with_a_silent_lock_when_a_list_is_begun) {
    listRows = 3;
    Open("Deutsch", "SET");
    auto* patience = Find<QComboBox>("F11.Geduld");
    ASSERT_TRUE(patience->isVisible());
    EXPECT_TRUE(Find<QLabel>("F11.GeduldText")->isVisible());
    EXPECT_EQ(patience->accessibleName(), QStringLiteral("Stummes Schloss aufgeben nach"));
    EXPECT_EQ(patience->currentText(), QStringLiteral("60 s"));
    QTest::keyClick(patience, Qt::Key_End);
    EXPECT_EQ(patience->currentText(), QStringLiteral("nie"));
    EXPECT_EQ(programm->Transfer->F11.Geduld_Sekunden(), 0);
    Find<QLineEdit>("F11.Text1")->setFocus();
    EXPECT_EQ(tabOrder(window.get()),
              (QStringList{QStringLiteral("F11.Text1"), QStringLiteral("F11.Combo1"), QStringLiteral("F11.CutoffDate"),
                           QStringLiteral("F11.Geduld"), QStringLiteral("F11.Check1"), QStringLiteral("F11.OK"),
                           QStringLiteral("F11.Cancel")}));
    EXPECT_EQ(unnamedControls(window.get()), QStringList());
}

TEST_F(F11_Window, does_not_ask_for_it_when_a_single_lock_is_begun) {
    Open();
    EXPECT_FALSE(Find<QComboBox>("F11.Geduld")->isVisible());
    EXPECT_FALSE(Find<QLabel>("F11.GeduldText")->isVisible());
}

struct F11_Sprachen : F11_Window, ::testing::WithParamInterface<std::string_view> {};

TEST_P(F11_Sprachen, fits_every_text) {
    listRows = 3;
    Open(GetParam(), "SET");
    EXPECT_EQ(allTextsFit(window.get()), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Languages, F11_Sprachen, ::testing::ValuesIn(Languages));

} // namespace
} // namespace qvm::test
