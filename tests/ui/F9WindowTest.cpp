// The progress window and the wait box on the screen.

#include "F9Window.h"

#include "F18Window.h"
#include "Pictures.h"
#include "Theme.h"
#include "UiFixture.h"
#include "WidgetChecks.h"
#include "Words.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace qvm::test {
namespace {

struct F9_Window : UiFixture {
    std::unique_ptr<ui::F9Window> window;

    void Open(std::string_view language = "Deutsch") {
        Start(language);
        window = std::make_unique<ui::F9Window>(programm->Transfer->F9, nullptr);
        programm->link.Lauf.Order.LockName = "Haupteingang";
        programm->Run.Daten.Units[0].Name = "Schranke Nord";
        programm->Run.Daten.Units[3].Name = "Leser";
        programm->Transfer->F9.F9_Vorbereiten(140);
        programm->Transfer->F9.F9_Zeigen();
        programm->Transfer->F9.Stille.Stop();
        Present(*window);
    }
    template <class Widget>
    Widget* Find(const char* name) {
        return window->findChild<Widget*>(QString::fromUtf8(name));
    }
    /// To whatever has the keyboard.
    void pressInFocus(Qt::Key key) const {
        QWidget* focused = window->focusWidget();
        QTest::keyClick(focused != nullptr ? focused : window.get(), key);
    }
};

TEST_F(F9_Window, shows_the_lock_and_only_the_units_that_there_are) {
    Open();
    EXPECT_EQ(Find<QLabel>("F9.NameLabel")->text(), QStringLiteral("Haupteingang"));
    EXPECT_EQ(Find<QCheckBox>("F9.Check1")->text(), QStringLiteral("Haupteingang"));
    EXPECT_EQ(Find<QCheckBox>("F9.Check2")->text(), QStringLiteral("Schranke Nord"));
    EXPECT_FALSE(Find<QCheckBox>("F9.Check3")->isVisible());
    EXPECT_TRUE(Find<QCheckBox>("F9.Check5")->isVisible());
    programm->Transfer->F9.Ankreuzen(2);
    EXPECT_TRUE(Find<QCheckBox>("F9.Check2")->isChecked());
}

TEST_F(F9_Window, follows_the_bars_and_the_state_report) {
    Open();
    auto* bar = Find<QProgressBar>("F9.Balken1");
    programm->Run.Konto = Konto_Anlegen(programm->Run.link.Lauf, programm->Run.Daten);
    programm->Run.Gesamtende = false;
    const int all = programm->Run.Konto.Gesamt();
    programm->Run.Konto.Items[0].Is = AccountItem::State::Acknowledged;
    programm->Transfer->F9.Fortschritt();
    EXPECT_EQ(bar->maximum(), all);
    EXPECT_EQ(bar->value(), 1);
    EXPECT_EQ(Find<QLabel>("F9.SchrittLabel")->text(), QString::fromUtf8("5 %, Löschen"));
    programm->Run.Konto.Items[0] = {.Part = AccountPart::History, .Code = 0x17};
    programm->Transfer->F9.Fortschritt();
    EXPECT_EQ(bar->maximum(), 0); // which the toolkit shows as an end that nobody knows
    EXPECT_EQ(Find<QLabel>("F9.SchrittLabel")->text(), QString::fromUtf8("Historie, 0 Ereignisse"));
    programm->Transfer->F9.Zustand_Zeigen(0x20, "Zustand: Stufe 2");
    EXPECT_FALSE(Find<QLabel>("F9.Zustandsbild")->pixmap(Qt::ReturnByValue).isNull());
    EXPECT_TRUE(Find<QLabel>("F9.Label15")->isVisible());
}

TEST_F(F9_Window, shows_and_says_how_the_run_ended) {
    Open();
    auto* sign = Find<QLabel>("F9.Zeichen");
    EXPECT_TRUE(sign->pixmap(Qt::ReturnByValue).isNull());
    RunReport& report = programm->Run.Bericht;
    report.End = RunOutcome::Incomplete;
    report.Text = "Es fehlt etwas.";
    report.Lock = LockData::Incomplete;
    programm->Transfer->F9.Fertig(0);
    Settle();
    EXPECT_FALSE(sign->pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(sign->accessibleName(), QStringLiteral("Achtung"));
    EXPECT_EQ(Find<QLabel>("F9.StatusLabel")->text(), QStringLiteral("Es fehlt etwas."));
    const QString outcome = QString::fromUtf8("Das Schloss enthält keine vollständigen Daten. Bitte programmieren Sie "
                                              "es noch einmal.");
    EXPECT_EQ(Find<QLabel>("F9.FolgeLabel")->text(), outcome);
    // The closing button has the keyboard: what is said of it is what a blind operator hears.
    EXPECT_EQ(Find<QPushButton>("F9.Command2")->accessibleDescription(),
              QStringLiteral("Achtung\nEs fehlt etwas.\n") + outcome);
    programm->Transfer->F9.F9_Vorbereiten(140);
    EXPECT_TRUE(sign->pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(sign->accessibleName(), QString());
    EXPECT_EQ(Find<QPushButton>("F9.Command2")->accessibleDescription(), QString());
}

TEST_F(F9_Window, has_a_sign_of_another_shape_for_each_end) {
    Open();
    QList<QImage> shapes;
    for (const int sign : {RunSign::Done, RunSign::Attention, RunSign::Failed}) {
        QImage shape = ui::pictureIcon(ui::PictureSet::RunEnd, sign).pixmap(26, 26).toImage();
        // Without colour: what is light and what is dark.
        shape = shape.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < shape.height(); ++y) {
            for (int x = 0; x < shape.width(); ++x) {
                const bool light = qGray(shape.pixel(x, y)) > 170 || qAlpha(shape.pixel(x, y)) < 128;
                shape.setPixel(x, y, light ? 0xFFFFFFFF : 0xFF000000);
            }
        }
        EXPECT_FALSE(shapes.contains(shape)) << sign;
        shapes += shape;
    }
}

TEST_F(F9_Window, does_not_jump_when_things_come_and_go) {
    Open();
    const QRect close = Find<QPushButton>("F9.Command2")->geometry();
    programm->Transfer->F9.Zustand_Zeigen(0x20, "Zustand: Stufe 2");
    programm->Transfer->F9.StilleLabel.Visible = true;
    programm->Transfer->F9.Fertig(110);
    Settle();
    EXPECT_EQ(Find<QPushButton>("F9.Command2")->geometry(), close);
}

TEST_F(F9_Window, closes_with_return_once_the_run_has_ended) {
    Open();
    programm->Transfer->F9.Fertig(110);
    programm->Run.Gesamtende = true;
    QTest::keyClick(window.get(), Qt::Key_Return);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(F9_Window, cancels_at_the_first_close_of_its_frame_and_goes_at_the_second) {
    Open();
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(Find<QLabel>("F9.StatusLabel")->text(), QStringLiteral("Vorgang abgebrochen"));
    window->close();
    EXPECT_FALSE(window->isVisible());
}

TEST_F(F9_Window, gives_no_button_the_keyboard_while_the_run_is_under_way) {
    Open();
    for (const bool cancelled : {false, true}) {
        if (cancelled) {
            programm->Transfer->F9.Command1_Click(); // which makes the closing button live
        }
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Tab, Qt::Key_Space}) {
            pressInFocus(key);
        }
        EXPECT_EQ(window->focusWidget(), nullptr) << cancelled;
        EXPECT_TRUE(window->isVisible()) << cancelled;
    }
    EXPECT_EQ(unnamedControls(window.get()), QStringList());
}

TEST_F(F9_Window, does_not_hear_the_key_that_began_the_run) {
    Open();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        pressInFocus(key);
    }
    EXPECT_EQ(Find<QLabel>("F9.StatusLabel")->text(), QString());
    EXPECT_FALSE(programm->Transfer->F9.Command2.Enabled);
}

TEST_F(F9_Window, is_cancelled_by_escape) {
    Open();
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_EQ(Find<QLabel>("F9.StatusLabel")->text(), QStringLiteral("Vorgang abgebrochen"));
    EXPECT_TRUE(window->isVisible());
}

TEST_F(F9_Window, is_cancelled_by_the_mnemonic_of_its_button) {
    Open();
    QTest::keyClick(window.get(), Qt::Key_A, Qt::AltModifier);
    // The button shows that it is pressed before it acts.
    ASSERT_TRUE(QTest::qWaitFor([this] { return programm->Transfer->F9.Command2.Enabled(); }));
    EXPECT_EQ(Find<QLabel>("F9.StatusLabel")->text(), QStringLiteral("Vorgang abgebrochen"));
    EXPECT_EQ(window->focusWidget(), nullptr);
}

TEST_F(F9_Window, gives_the_keyboard_to_its_closing_button_at_the_end_and_takes_it_back_for_the_next_run) {
    Open();
    programm->Transfer->F9.Fertig(110);
    EXPECT_EQ(window->focusWidget(), Find<QPushButton>("F9.Command2"));
    EXPECT_EQ(tabOrder(window.get()), QStringList{QStringLiteral("F9.Command2")});
    programm->Transfer->F9.F9_Vorbereiten(140);
    EXPECT_EQ(window->focusWidget(), nullptr);
}

TEST_F(F9_Window, says_what_its_bars_show_in_the_language_in_use) {
    Open("Francais");
    EXPECT_EQ(Find<QProgressBar>("F9.Balken1")->accessibleName(), QStringLiteral("Progression"));
    EXPECT_EQ(Find<QProgressBar>("F9.Balken2")->accessibleName(), QString::fromUtf8("Échange de données"));
}

struct F9_Sprachen : F9_Window, ::testing::WithParamInterface<std::string_view> {
    std::unique_ptr<ui::F18Window> wait;
};

TEST_P(F9_Sprachen, fits_every_text) {
    Open(GetParam());
    programm->Transfer->F9.Fertig(276);
    programm->Transfer->F9.Zustand_Zeigen(0x50, programm->kern.Zeile(114));
    programm->Transfer->F9.StilleLabel.Text = programm->kern.Zeile(274) + " 125 s";
    programm->Transfer->F9.StilleLabel.Visible = true;
    Settle();
    EXPECT_EQ(allTextsFit(window.get()), QStringList());
}

TEST_P(F9_Sprachen, grows_for_a_long_reason) {
    Open(GetParam());
    RunReport& report = programm->Run.Bericht;
    report.End = RunOutcome::Incomplete;
    report.Lock = LockData::Incomplete;
    // A lock that was erased and got nothing else.
    programm->Run.Konto = Konto_Anlegen(programm->Run.link.Lauf, programm->Run.Daten);
    report.Text = Konto_Fehlendes(programm->kern, programm->Run.Konto);
    ASSERT_GT(report.Text.size(), 150U); // more than two lines
    programm->Transfer->F9.Fertig(0);
    Settle();
    EXPECT_EQ(allTextsFit(window.get()), QStringList());
}

TEST_P(F9_Sprachen, fits_the_wait_box_too) {
    Open(GetParam());
    wait = std::make_unique<ui::F18Window>(programm->Transfer->F18, nullptr);
    programm->Transfer->F18.F18_Zeigen();
    Present(*wait);
    EXPECT_EQ(allTextsFit(wait.get()), QStringList());
    EXPECT_EQ(unnamedControls(wait.get()), QStringList());
    programm->Transfer->F18.Text.Text = Wort(programm->kern, Word::AdapterPulled);
    Settle();
    EXPECT_EQ(allTextsFit(wait.get()), QStringList());
}

INSTANTIATE_TEST_SUITE_P(Languages, F9_Sprachen, ::testing::ValuesIn(Languages));

struct F18_Window : UiFixture {};

TEST_F(F18_Window, does_not_hear_the_key_that_began_the_search) {
    Start("English");
    ui::F18Window window(programm->Transfer->F18, nullptr);
    programm->Transfer->F18.F18_Zeigen();
    Present(window);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        QTest::keyClick(window.focusWidget() != nullptr ? window.focusWidget() : &window, key);
    }
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(&window, Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&window] { return !window.isVisible(); }));
}

TEST_F(F18_Window, names_the_lock) {
    Start("English");
    programm->link.Lauf.Order.LockNumber = 7;
    programm->link.Lauf.Order.LockName = "Keller";
    ui::F18Window window(programm->Transfer->F18, nullptr);
    programm->Transfer->F18.F18_Zeigen();
    Present(window);
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("F18.Schloss"))->text(), QStringLiteral("Lock 7: Keller"));
}

TEST_F(F18_Window, shows_the_channels_tried_and_ends_the_search_by_button_escape_and_frame) {
    Start();
    ui::F18Window window(programm->Transfer->F18, nullptr);
    for (int way = 0; way < 3; ++way) {
        programm->Run.link.Lauf.Chain.KanalIndex = 0;
        programm->Transfer->F18.F18_Zeigen();
        Present(window);
        programm->Transfer->F18.Balken.Value = 118;
        EXPECT_EQ(window.findChild<QProgressBar*>()->value(), 118);
        auto* cancel = window.findChild<QPushButton*>(QStringLiteral("F18.Command1"));
        if (way == 0) {
            cancel->click();
        } else if (way == 1) {
            QTest::keyClick(cancel, Qt::Key_Escape);
        } else {
            window.close();
        }
        EXPECT_EQ(programm->Run.link.Lauf.Chain.KanalIndex, 12) << way;
        EXPECT_FALSE(window.isVisible()) << way;
    }
}

} // namespace
} // namespace qvm::test
