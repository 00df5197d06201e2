// The main window on the screen: menus, tool bar, link light, status bar.

#include "Oberflaeche.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

namespace qvm::test {
namespace {

/// Colour in the middle of a lamp.
QColor Middle(const QLabel* lamp) {
    const QImage image = lamp->pixmap().toImage();
    return image.pixelColor(image.width() / 2, image.height() / 2);
}

struct F2_Window : UiFixture {
    std::unique_ptr<ui::Oberflaeche> windows;
    std::vector<std::string> opened;

    void Open(std::string_view language = "Deutsch") {
        Start(language);
        windows = std::make_unique<ui::Oberflaeche>(*programm);
        programm->Main->F2.F2_Laden();
        programm->Main->F2.Timer2.Stop();
        Present(windows->Main.f2);
    }
    ~F2_Window() override {
        programm->Main->F2.Hooks.Ende = {}; // no event loop to leave
        programm->Main->F2.Beenden();
    }

    template <class T>
    T* Find(const char* name) {
        return windows->Main.f2.findChild<T*>(QString::fromUtf8(name));
    }
    QToolButton* Key(const char* key) {
        return windows->Main.f2.findChild<QToolButton*>(QStringLiteral("F2.Toolbar1.") + QString::fromUtf8(key));
    }
    void Connected() { programm->Main->F2.Verbunden = 1; }
    /// Every window that comes later is there.
    void FillHooks() {
        const auto note = [this](const char* name) { return [this, name] { opened.emplace_back(name); }; };
        for (const char* window : {"F3", "F10", "F4", "F41", "F42", "F7"}) {
            programm->kern.Windows.Open[window] = note(window);
        }
        programm->Main->F2.Tasten_Freigeben();
    }
};

TEST_F(F2_Window, bears_the_title_by_which_it_is_known) {
    Open();
    EXPECT_EQ(windows->Main.f2.windowTitle(), QStringLiteral("QVM 7702 SOFTWARE SYSTEM"));
    EXPECT_TRUE(windows->Main.f2.isVisible());
    EXPECT_EQ(windows->Main.f2.minimumSize(), windows->Main.f2.maximumSize());
}

TEST_F(F2_Window, has_the_menus_in_the_language_in_use) {
    Open("Nederlands");
    QStringList texts;
    for (const QAction* entry : Find<QMenu>("F2.Datei")->actions()) {
        if (entry->isVisible()) {
            texts += entry->isSeparator() ? QStringLiteral("-") : entry->text().remove(QLatin1Char('&'));
        }
    }
    EXPECT_EQ(texts, (QStringList{QStringLiteral("Interface"), QStringLiteral("Taal"), QStringLiteral("-"),
                                  QStringLiteral("Afsluiten")}));
    EXPECT_EQ(windows->Main.f2.menuBar()->actions().first()->text().remove(QLatin1Char('&')),
              QStringLiteral("Bestand"));
    EXPECT_EQ(windows->Main.f2.menuBar()->actions().last()->text().remove(QLatin1Char('&')), QStringLiteral("?"));
}

TEST_F(F2_Window, gives_no_mnemonic_twice_in_any_language) {
    Open();
    FillHooks();
    for (const std::string_view language : Languages) {
        programm->kern.Config.Sprache = language;
        Sprachdatei_Laden(programm->kern);
        programm->Main->F2.Texte_Setzen();
        Settle();
        for (const char* menu : {"F2.Datei", "F2.Hilfe", "F2.F2_Kalend", "F2.F2_Schaltuhr"}) {
            EXPECT_EQ(doubtfulMnemonics(Find<QMenu>(menu)), QStringList()) << language << ' ' << menu;
        }
    }
}

TEST_F(F2_Window, has_its_keys_in_order_with_words_and_tips) {
    Open();
    QStringList shown;
    for (const QToolButton* button : Find<QToolBar>("F2.Toolbar1")->findChildren<QToolButton*>()) {
        if (button->isVisible()) {
            shown += button->objectName().mid(static_cast<int>(std::string_view("F2.Toolbar1.").size()));
        }
    }
    EXPECT_EQ(shown, (QStringList{QStringLiteral("Ende"), QStringLiteral("EYE"), QStringLiteral("636I259"),
                                  QStringLiteral("Schaltuhr"), QStringLiteral("x1504"), QStringLiteral("Neu"),
                                  QStringLiteral("GastCard"), QStringLiteral("PROG"), QStringLiteral("lock4")}));
    EXPECT_EQ(Key("PROG")->toolTip(), QString::fromUtf8("Schlösser programmieren"));
    EXPECT_EQ(Key("PROG")->accessibleName(), QString::fromUtf8("Schlösser programmieren"));
}

TEST_F(F2_Window, has_the_menu_of_a_key_in_the_accessible_tree_while_it_is_open) {
    Open();
    QAccessibleInterface* top = QAccessible::queryAccessibleInterface(&windows->Main.f2);
    const auto menus = [top] {
        QList<QAccessibleInterface*> found;
        for (int n = 0; n < top->childCount(); ++n) {
            if (top->child(n)->role() == QAccessible::PopupMenu) {
                found += top->child(n);
            }
        }
        return found;
    };
    EXPECT_EQ(top->role(), QAccessible::Window);
    EXPECT_TRUE(menus().isEmpty());
    auto* menu = Find<QMenu>("F2.F2_Kalend");
    menu->popup(windows->Main.f2.mapToGlobal(QPoint(10, 10)));
    ASSERT_EQ(menus().size(), 1);
    EXPECT_EQ(menus().front()->child(0)->text(QAccessible::Name), QStringLiteral("Einzelfeiertage"));
    menu->close();
    EXPECT_TRUE(menus().isEmpty());
}

TEST_F(F2_Window, shows_keys_of_windows_that_do_not_exist_as_disabled) {
    Open();
    for (const char* window : {"F3", "F4", "F41", "F42", "F5", "F10", "F12", "F60"}) {
        programm->kern.Windows.Open.erase(window);
    }
    programm->Main->F2.Tasten_Freigeben();
    for (const char* key : {"636I259", "Schaltuhr", "x1504", "GastCard", "lock4"}) {
        EXPECT_TRUE(Key(key)->isVisible()) << key;
        EXPECT_FALSE(Key(key)->isEnabled()) << key;
    }
    for (const char* key : {"Ende", "Neu", "PROG"}) {
        EXPECT_TRUE(Key(key)->isEnabled()) << key;
    }
}

TEST_F(F2_Window, opens_the_lock_window_by_its_key_and_goes) {
    Open();
    Connected();
    Key("PROG")->click();
    EXPECT_TRUE(windows->Transfer.f13.isVisible());
    EXPECT_FALSE(windows->Main.f2.isVisible());
    windows->Transfer.f13.close();
    EXPECT_FALSE(windows->Transfer.f13.isVisible());
    EXPECT_TRUE(windows->Main.f2.isVisible());
    programm->Main->F2.Timer2.Stop();
}

TEST_F(F2_Window, begins_with_the_keyboard_where_return_and_space_do_nothing) {
    Open();
    Connected();
    FillHooks();
    int ends = 0;
    programm->Main->F2.Hooks.Ende = [&ends] { ++ends; };
    auto* state = Find<QLabel>("F2.State");
    EXPECT_EQ(windows->Main.f2.focusWidget(), state);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape}) {
        QTest::keyClick(state, key);
    }
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(windows->Main.f2.isVisible());
    EXPECT_TRUE(windows->Main.f2.isEnabled());
    EXPECT_TRUE(opened.empty());
}

TEST_F(F2_Window, opens_the_lock_window_by_keyboard_alone) {
    Open();
    Connected();
    Key("Ende")->setFocus();
    while (windows->Main.f2.focusWidget() != Key("PROG")) {
        const QWidget* before = windows->Main.f2.focusWidget();
        QTest::keyClick(windows->Main.f2.focusWidget(), Qt::Key_Tab);
        ASSERT_NE(windows->Main.f2.focusWidget(), before);
    }
    QTest::keyClick(Key("PROG"), Qt::Key_Return);
    EXPECT_TRUE(windows->Transfer.f13.isVisible());
    windows->Transfer.f13.close();
    programm->Main->F2.Timer2.Stop();
}

TEST_F(F2_Window, hands_its_place_to_the_window_that_it_opens) {
    Open();
    Connected();
    windows->Transfer.f13.resize(500, 400);
    windows->Main.f2.move(40, 30);
    Key("PROG")->click();
    EXPECT_EQ(windows->Transfer.f13.pos(), QPoint(40, 30));
    windows->Transfer.f13.close();
    programm->Main->F2.Timer2.Stop();
}

TEST_F(F2_Window, keeps_the_window_that_it_opens_on_the_screen) {
    Open();
    Connected();
    windows->Transfer.f13.resize(500, 400);
    const QRect room = windows->Transfer.f13.screen()->availableGeometry();
    windows->Main.f2.move(room.right() - 10, room.bottom() - 10);
    Key("PROG")->click();
    EXPECT_TRUE(room.contains(windows->Transfer.f13.frameGeometry()));
    windows->Transfer.f13.close();
    programm->Main->F2.Timer2.Stop();
}

TEST_F(F2_Window, stays_disabled_beneath_the_channel_window_which_is_not) {
    Open();
    Connected();
    Key("Neu")->click();
    EXPECT_TRUE(windows->Main.f14.isVisible());
    EXPECT_TRUE(windows->Main.f14.isEnabled());
    EXPECT_TRUE(windows->Main.f2.isVisible());
    EXPECT_FALSE(windows->Main.f2.isEnabled());
    windows->Main.f14.close();
    EXPECT_TRUE(windows->Main.f2.isEnabled());
    programm->Main->F2.Timer2.Stop();
}

TEST_F(F2_Window, pops_up_the_calendar_menu_under_its_key) {
    Open();
    Connected();
    FillHooks();
    auto* menu = Find<QMenu>("F2.F2_Kalend");
    QPoint corner;
    QTimer::singleShot(0, menu, [menu, &corner] {
        corner = menu->pos();
        menu->actions().last()->trigger();
        menu->close();
    });
    Key("636I259")->click();
    Settle();
    EXPECT_EQ(opened, std::vector<std::string>{"F10"});
    EXPECT_EQ(corner, Key("636I259")->mapToGlobal(Key("636I259")->rect().bottomLeft()));
    EXPECT_FALSE(windows->Main.f2.isVisible());
}

TEST_F(F2_Window, has_three_entries_in_the_clock_menu) {
    Open();
    Connected();
    FillHooks();
    auto* menu = Find<QMenu>("F2.F2_Schaltuhr");
    for (int entry = 0; entry < 3; ++entry) {
        programm->Main->F2.F2_Zeigen();
        QTimer::singleShot(0, menu, [menu, entry] {
            menu->actions().at(entry)->trigger();
            menu->close();
        });
        Key("Schaltuhr")->click();
        Settle();
    }
    EXPECT_EQ(opened, (std::vector<std::string>{"F4", "F41", "F42"}));
    programm->Main->F2.Timer2.Stop();
}

TEST_F(F2_Window, shows_the_link_light_in_exact_colours_and_in_words) {
    Open();
    const auto* lamp = Find<QLabel>("F2.Label1");
    programm->Main->F2.Meldezeile.Text = std::string();
    programm->Main->F2.Label1.ForeColor = Lampe::Rot;
    EXPECT_EQ(Middle(lamp), QColor(0xFF, 0, 0));
    EXPECT_EQ(lamp->accessibleName(), QStringLiteral("Nicht verbunden"));
    programm->Main->F2.Label1.ForeColor = Lampe::Gelb;
    EXPECT_EQ(Middle(lamp), QColor(0xFF, 0xFF, 0));
    EXPECT_EQ(lamp->accessibleName(), QStringLiteral("Funkadapter wird gesucht"));
    programm->Main->F2.Label1.ForeColor = Lampe::Gruen;
    EXPECT_EQ(Middle(lamp), QColor(0, 0xFF, 0));
    EXPECT_EQ(lamp->accessibleName(), QStringLiteral("Bereit"));
    EXPECT_EQ(lamp->toolTip(), QStringLiteral("Bereit"));
}

TEST_F(F2_Window, calls_a_green_light_ready_only_while_an_adapter_answers) {
    Open();
    programm->Main->F2.Label1.ForeColor = Lampe::Gruen;
    programm->Main->F2.Verbunden = 1;
    programm->Main->F2.Meldezeile.Text = std::string();
    const QString ready = Find<QLabel>("F2.State")->text();
    programm->Main->F2.Verbunden = 0;
    programm->Main->F2.Meldezeile.Text = std::string("Keine Verbindung zum Funkadapter!");
    const QString mute = Find<QLabel>("F2.State")->text();
    programm->Main->F2.Label1.ForeColor = Lampe::Rot;
    EXPECT_EQ(mute, Find<QLabel>("F2.State")->text());
    EXPECT_NE(mute, ready);
}

TEST_F(F2_Window, says_why_the_port_is_not_open_in_the_status_bar_and_at_the_light) {
    Open();
    programm->Main->F2.Label1.ForeColor = Lampe::Rot;
    const QSize before = windows->Main.f2.size();
    const std::string reason(300, 'x');
    programm->Main->F2.Meldezeile.Text = reason;
    Settle();
    const auto* line = Find<QLabel>("F2.Meldezeile");
    EXPECT_EQ(Find<QLabel>("F2.Label1")->toolTip(), QStringLiteral("Nicht verbunden\n") + QString(300, 'x'));
    EXPECT_TRUE(line->text().endsWith(QChar(0x2026)));
    EXPECT_EQ(line->toolTip(), QString(300, 'x'));
    EXPECT_EQ(line->accessibleName(), QString(300, 'x'));
    EXPECT_EQ(windows->Main.f2.size(), before);
    programm->Main->F2.Meldezeile.Text = std::string("kurz");
    EXPECT_EQ(line->text(), QStringLiteral("kurz"));
    EXPECT_EQ(line->toolTip(), QString());
}

TEST_F(F2_Window, shows_the_adapter_while_one_is_known_and_never_its_counters) {
    Open();
    programm->Main->F2.Label7.Visible = true;
    programm->Main->F2.Picture1.Visible = true;
    EXPECT_TRUE(Find<QLabel>("F2.Label7")->isVisible());
    EXPECT_EQ(Find<QLabel>("F2.Label7")->text(), QStringLiteral("USB-Funkadapter"));
    EXPECT_FALSE(Find<QLabel>("F2.Picture1")->pixmap().isNull());
    EXPECT_FALSE(Find<QLabel>("F2.Label3")->isVisible());
    EXPECT_FALSE(Find<QLabel>("F2.Label6")->isVisible());
    programm->Main->F2.Label7.Visible = false;
    EXPECT_FALSE(Find<QLabel>("F2.Label7")->isVisible());
}

TEST_F(F2_Window, shuts_down_when_it_is_closed) {
    Open();
    int ends = 0;
    programm->Main->F2.Hooks.Ende = [&ends] { ++ends; };
    windows->Main.f2.close();
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(windows->Main.f2.isVisible());
}

TEST_F(F2_Window, is_walked_with_tab_and_names_every_control) {
    Open();
    for (const char* window : {"F5", "F12", "F60"}) {
        programm->kern.Windows.Open.erase(window);
    }
    FillHooks();
    Settle();
    Key("Ende")->setFocus();
    EXPECT_EQ(tabOrder(&windows->Main.f2),
              (QStringList{QStringLiteral("F2.Toolbar1.Ende"), QStringLiteral("F2.Toolbar1.EYE"),
                           QStringLiteral("F2.Toolbar1.636I259"), QStringLiteral("F2.Toolbar1.Schaltuhr"),
                           QStringLiteral("F2.Toolbar1.Neu"), QStringLiteral("F2.Toolbar1.PROG"),
                           QStringLiteral("F2.Uebersicht.Adapter"), QStringLiteral("F2.Uebersicht.Anschluss"),
                           QStringLiteral("F2.Uebersicht.Schloesser"), QStringLiteral("F2.Uebersicht.Funkkanal"),
                           QStringLiteral("F2.Uebersicht.Kanalwechsel"), QStringLiteral("F2.State")}));
    EXPECT_EQ(unnamedControls(&windows->Main.f2), QStringList());
}

struct F2_Sprachen : F2_Window, ::testing::WithParamInterface<std::string_view> {};

TEST_P(F2_Sprachen, fits_every_text) {
    Open(GetParam());
    for (const Colour light : {Lampe::Rot, Lampe::Gelb, Lampe::Gruen}) {
        programm->Main->F2.Label1.ForeColor = light;
        programm->Main->F2.Label7.Visible = true;
        Settle();
        EXPECT_EQ(allTextsFit(&windows->Main.f2), QStringList());
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, F2_Sprachen, ::testing::ValuesIn(Languages));

} // namespace
} // namespace qvm::test
