// What the main window tells beside the light: facts that lead to windows, keys that rest, the latest histories.

#include "OverviewCard.h"

#include "ClearStyle.h"
#include "Oberflaeche.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QAccessible>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QToolButton>

namespace qvm::test {
namespace {

struct Overview_Card : UiFixture {
    std::unique_ptr<ui::Oberflaeche> windows;

    void Open(std::string_view language = "Deutsch", bool harmless = true) {
        SettledLock(1, "Tor");
        SettledLock(2, "Keller", "00.0A.10.02");
        files.Channel(2, "3", "4", "1");
        Start(language);
        AddAdapter("/46/108/1/2", "PROGSTATION-1", "5");
        programm->Adapter.ProgAdresse = "/46/108/1/2";
        windows = std::make_unique<ui::Oberflaeche>(*programm);
        programm->Main->F2.F2_Laden();
        programm->Adapter.ProgAdresse = "/46/108/1/2";
        AddAdapter("/46/108/1/2", "PROGSTATION-1", "5");
        programm->Main->F2.Uebersicht_Lesen();
        programm->Main->F2.Timer2.Stop();
        programm->Main->F2.Verbunden = harmless ? 1 : 0;
        Present(windows->Main.f2);
    }
    ~Overview_Card() override {
        programm->Main->F2.Hooks.Ende = {}; // no event loop to leave
        programm->Main->F2.Beenden();
    }
    template <class T>
    T* Find(const char* name) {
        return windows->Main.f2.findChild<T*>(QLatin1String(name));
    }
    ui::FactButton* Fact(const char* name) {
        return windows->Main.f2.findChild<ui::FactButton*>(QStringLiteral("F2.Uebersicht.") + QLatin1String(name));
    }
    QToolButton* Key(const char* key) {
        return windows->Main.f2.findChild<QToolButton*>(QStringLiteral("F2.Toolbar1.") + QLatin1String(key));
    }
};

TEST_F(Overview_Card, tells_each_fact_by_caption_and_value) {
    Open();
    EXPECT_EQ(Fact("Adapter")->text(), QStringLiteral("PROGSTATION-1 (/46/108/1/2)"));
    EXPECT_EQ(Fact("Adapter")->accessibleName(), QStringLiteral("Adapter: PROGSTATION-1 (/46/108/1/2)"));
    EXPECT_EQ(Fact("Funkkanal")->accessibleName(), QStringLiteral("Funkkanal: 3"));
    EXPECT_EQ(Fact("Schloesser")->text(), QStringLiteral("2"));
    EXPECT_EQ(Fact("Kanalwechsel")->accessibleName(), QStringLiteral("Kanalwechsel offen: 1"));
    EXPECT_EQ(Find<QLabel>("F2.Uebersicht.Anschluss.Caption")->text(), QStringLiteral("Anschluss"));
}

TEST_F(Overview_Card, leads_by_mouse_and_by_keyboard_to_the_window_of_a_fact) {
    Open();
    QTest::mouseClick(Fact("Funkkanal"), Qt::LeftButton);
    EXPECT_TRUE(windows->Main.f14.isVisible());
    windows->Main.f14.close();
    Fact("Anschluss")->setFocus();
    QTest::keyClick(Fact("Anschluss"), Qt::Key_Return);
    EXPECT_TRUE(windows->Main.f6.isVisible());
    programm->Main->F6.Toolbar1_ButtonClick(programm->Main->F6.Toolbar1[0].Key);
    programm->Main->F2.Verbunden = 1;
    QTest::keyClick(Fact("Kanalwechsel"), Qt::Key_Space);
    EXPECT_TRUE(windows->Transfer.f13.isVisible());
    windows->Transfer.f13.close();
    programm->Main->F2.Timer2.Stop();
}

TEST_F(Overview_Card, a_fact_without_a_window_is_text_and_no_button) {
    Open();
    programm->kern.Windows.Open.erase("F5");
    programm->Main->F2.Tasten_Freigeben();
    EXPECT_FALSE(Fact("Personen")->isVisible());
    auto* people = Find<QLabel>("F2.Uebersicht.Personen.Text");
    EXPECT_TRUE(people->isVisible());
    EXPECT_EQ(people->text(), QStringLiteral("0"));
    EXPECT_EQ(people->accessibleName(), QStringLiteral("Personen: 0"));
    programm->kern.Windows.Open["F5"] = [] {};
    programm->Main->F2.Tasten_Freigeben();
    EXPECT_TRUE(Fact("Personen")->isVisible());
    EXPECT_FALSE(people->isVisible());
}

TEST_F(Overview_Card, a_question_mark_says_at_the_mouse_which_file_it_is) {
    Open();
    auto& fact = programm->Main->F2.Zeile(F2::Angabe::Schloesser);
    fact.Text = std::string("?");
    fact.Tip = std::string("C64UX12H3D.EBW");
    EXPECT_EQ(Fact("Schloesser")->toolTip(), QStringLiteral("C64UX12H3D.EBW"));
    EXPECT_EQ(Fact("Schloesser")->accessibleDescription(), QStringLiteral("C64UX12H3D.EBW"));
    auto& people = programm->Main->F2.Zeile(F2::Angabe::Personen);
    people.Tip = std::string("BX10X52WUJ9.UBW");
    windows->Main.f2.adjustSize();
    Settle();
    EXPECT_EQ(Find<QLabel>("F2.Uebersicht.Personen.Text")->toolTip(), QStringLiteral("BX10X52WUJ9.UBW"));
}

TEST_F(Overview_Card, keeps_the_window_as_large_as_it_is_whatever_it_tells) {
    Open();
    const QSize before = windows->Main.f2.size();
    for (F2::Angabe which : {F2::Angabe::Adapter, F2::Angabe::Anschluss, F2::Angabe::Schloesser}) {
        programm->Main->F2.Zeile(which).Text = std::string(200, 'M');
    }
    Settle();
    EXPECT_EQ(windows->Main.f2.size(), before);
    EXPECT_EQ(Fact("Adapter")->toolTip(), QString(200, QLatin1Char('M')));
}

// ---- keys that rest

TEST_F(Overview_Card, a_key_that_rests_says_why_and_keeps_the_keyboard) {
    Open("English");
    Key("PROG")->setFocus();
    programm->Main->F2.Warten_Zeigen(true);
    const QString why = QStringLiteral(
        "The wireless adapter is being searched for. The buttons can be used as soon as the search is over.");
    EXPECT_TRUE(Key("PROG")->hasFocus());
    EXPECT_EQ(Key("PROG")->toolTip(), QStringLiteral("Program locks\n") + why);
    EXPECT_EQ(Key("PROG")->accessibleName(), QStringLiteral("Program locks"));
    EXPECT_EQ(Key("PROG")->accessibleDescription(), why);
    EXPECT_EQ(Fact("Schloesser")->accessibleDescription(), why);
    EXPECT_EQ(Find<QLabel>("F2.Meldezeile")->text(), why);
    programm->Main->F2.Warten_Zeigen(false);
    EXPECT_TRUE(Key("PROG")->hasFocus());
    EXPECT_EQ(Key("PROG")->toolTip(), QStringLiteral("Program locks"));
    EXPECT_EQ(Key("PROG")->accessibleDescription(), QString());
    EXPECT_EQ(Find<QLabel>("F2.Meldezeile")->text(), QString());
}

TEST_F(Overview_Card, a_key_that_rests_looks_as_a_disabled_one) {
    Open();
    ui::ClearStyle style(QStringLiteral("Fusion"));
    auto* key = Key("PROG");
    key->setStyle(&style);
    key->clearFocus();
    const QImage acting = key->grab().toImage();
    programm->Main->F2.Warten_Zeigen(true);
    const QImage resting = key->grab().toImage();
    programm->Main->F2.Warten_Zeigen(false);
    EXPECT_EQ(key->grab().toImage(), acting);
    key->setEnabled(false);
    EXPECT_EQ(resting, key->grab().toImage());
    EXPECT_NE(resting, acting);
    key->setStyle(nullptr);
}

// ---- the latest histories

TEST_F(Overview_Card, its_menu_offers_the_latest_histories_by_their_digits_and_keeps_exit_last) {
    world.Disk.Files["/q/HIST/H_20260104_083000_Tor.HST"] = "00.0A.10.01\r\n";
    world.Disk.Files["/q/HIST/H_20260305_170159_Keller.HST"] = "00.0A.10.02\r\n";
    Open("English", false);
    auto* menu = Find<QMenu>("F2.Datei");
    menu->popup(QPoint(10, 10));
    QStringList shown;
    for (const QAction* entry : menu->actions()) {
        if (entry->isVisible()) {
            shown += entry->text();
        }
    }
    EXPECT_EQ(shown, (QStringList{QStringLiteral("&Interface"), QStringLiteral("&Language"),
                                  QStringLiteral("Recent histories"), QStringLiteral("&1  Keller, 05.03.2026 17:01"),
                                  QStringLiteral("&2  Tor, 04.01.2026 08:30"), QString(), QStringLiteral("&Exit")}));
    QTest::keyClick(menu, Qt::Key_2);
    EXPECT_TRUE(windows->History.f7.isVisible());
    EXPECT_FALSE(windows->Main.f2.isVisible());
    EXPECT_NE(programm->History->F7.Meldezeile.Text().find("H_20260104_083000_Tor.HST"), std::string::npos);
    windows->History.f7.close();
    EXPECT_TRUE(windows->Main.f2.isVisible());
    programm->Main->F2.Timer2.Stop();
}

struct Overview_Sprachen : Overview_Card, ::testing::WithParamInterface<std::string_view> {};

TEST_P(Overview_Sprachen, fits_every_text_and_takes_less_than_the_keys_above) {
    Open(GetParam());
    for (const bool waiting : {false, true}) {
        programm->Main->F2.Warten_Zeigen(waiting);
        Settle();
        EXPECT_EQ(allTextsFit(&windows->Main.f2), QStringList());
        EXPECT_EQ(unnamedControls(&windows->Main.f2), QStringList());
        EXPECT_LT(Find<QWidget>("F2.Uebersicht")->minimumSizeHint().width(), 600);
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Overview_Sprachen, ::testing::ValuesIn(Languages));

} // namespace
} // namespace qvm::test
