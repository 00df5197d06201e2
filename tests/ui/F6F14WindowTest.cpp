// The port and adapter window and the channel window on the screen.

#include "GridDelegate.h"
#include "GridView.h"
#include "Oberflaeche.h"
#include "TextEdge.h"
#include "UiFixture.h"
#include "WidgetChecks.h"
#include "Words.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QWindow>

namespace qvm::test {
namespace {

/// A record of the adapter list: address, name, port; the rest is not used.
std::string AdapterRecordBytes(std::string address, std::string name, std::string port) {
    address.resize(16, ' ');
    name.resize(20, ' ');
    port.resize(2, ' ');
    return address + name + port + std::string(10, ' ') + std::string(17, '\0');
}

struct F6_Window : UiFixture {
    std::unique_ptr<ui::Oberflaeche> windows;
    ui::GridView* grid = nullptr;

    void Prepare(std::string_view language, std::string_view mode) {
        world.Disk.Files["/q/DAT/COMSETUPADAPTER.ADP"] =
            AdapterRecordBytes("/1/2/3/4", "PROGSTATION-1", "5") + AdapterRecordBytes("/1/2/3/5", "PROGSTATION-2", "6");
        Start(language, mode);
        windows = std::make_unique<ui::Oberflaeche>(*programm);
        programm->Main->F2.F2_Laden();
        AddAdapter("/1/2/3/4", "PROGSTATION-1", "5");
        programm->Main->F2.Timer2.Stop();
    }
    void Open(std::string_view language = "Deutsch", std::string_view mode = "SET") {
        Prepare(language, mode);
        programm->Main->F2.F2_Schnittstelle_Click();
        Present(windows->Main.f6);
        grid = windows->Main.f6.findChild<ui::GridView*>(QStringLiteral("F6.FGK6"));
    }
    ~F6_Window() override {
        programm->Main->F2.Hooks.Ende = {}; // no event loop to leave
        programm->Main->F2.Beenden();
    }

    template <class T>
    T* Find(const char* name) {
        return windows->Main.f6.findChild<T*>(QString::fromUtf8(name));
    }
    QLineEdit* Editor() { return Find<QLineEdit>("F6.Text3"); }
    void ClickCell(int row, int column) {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                          grid->viewport()->mapFrom(grid, grid->cellRect(row, column).center()));
    }
};

TEST_F(F6_Window, shows_the_list_in_automatic_mode_and_the_ports_in_manual_mode) {
    Open();
    EXPECT_TRUE(Find<QCheckBox>("F6.Check1")->isChecked());
    EXPECT_TRUE(grid->isVisible());
    EXPECT_FALSE(Find<QComboBox>("F6.Combo1")->isVisible());
    Find<QCheckBox>("F6.Check1")->click();
    EXPECT_FALSE(grid->isVisible());
    auto* ports = Find<QComboBox>("F6.Combo1");
    EXPECT_TRUE(ports->isVisible());
    EXPECT_EQ(ports->count(), 16);
    EXPECT_EQ(ports->itemText(6), QStringLiteral("Prolific USB-to-Serial Comm Port ( COM7 )"));
}

TEST_F(F6_Window, shows_the_adapters_with_their_state_in_pictures_and_words) {
    Open();
    const auto& model = grid->gridModel();
    EXPECT_EQ(model.index(0, F6Column::Name).data().toString(), QStringLiteral("PROGSTATION-1"));
    EXPECT_EQ(model.index(1, F6Column::Address).data().toString(), QStringLiteral("/1/2/3/5"));
    EXPECT_FALSE(model.index(0, F6Column::State).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(model.index(0, F6Column::State).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("Status angeschlossen"));
    EXPECT_EQ(model.index(1, F6Column::State).data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("Status nicht angeschlossen"));
}

TEST_F(F6_Window, says_of_an_adapter_with_a_strange_name_what_is_to_be_done) {
    Prepare("English", "SET");
    programm->Adapter.Fremde.push_back({.Adresse = "/1/2/3/5", .Name = "Keller", .Port = "6"});
    programm->Main->F2.F2_Schnittstelle_Click();
    Present(windows->Main.f6);
    grid = windows->Main.f6.findChild<ui::GridView*>(QStringLiteral("F6.FGK6"));
    const auto& model = grid->gridModel();
    const QModelIndex state = model.index(1, F6Column::State);
    EXPECT_EQ(state.data().toString(), QStringLiteral("not usable"));
    EXPECT_FALSE(state.data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(
        state.data(Qt::ToolTipRole).toString(),
        QStringLiteral("The name begins neither with PROGSTATION nor with ENROLLMENT1, so the adapter is not used "
                       "for programming. Please give it a name that begins this way."));
    EXPECT_EQ(state.data(Qt::AccessibleDescriptionRole), state.data(Qt::ToolTipRole));
    EXPECT_EQ(model.index(0, F6Column::State).data(Qt::ToolTipRole).toString(), QStringLiteral("Status connected"));
}

TEST_F(F6_Window, has_room_for_every_state_in_every_language) {
    Open();
    for (const std::string_view language : Languages) {
        const QString state = ui::toQt(Wort(Word::AdapterUnusable, language));
        const int needed = grid->fontMetrics().horizontalAdvance(state) + grid->iconSize().width() + 3 * ui::CellMargin;
        EXPECT_GE(grid->columnWidth(F6Column::State), needed) << language;
    }
}

TEST_F(F6_Window, stands_over_the_main_window_as_the_channel_window_does) {
    Open();
    EXPECT_EQ(windows->Main.f6.windowType(), Qt::Dialog); // else no window manager learns whom it belongs to
    EXPECT_EQ(windows->Main.f6.windowHandle()->transientParent(), windows->Main.f2.windowHandle());
    programm->Main->F6.Toolbar1_ButtonClick(u8"Zurück"_w);
    programm->Main->F14.F14_Laden();
    Present(windows->Main.f14);
    EXPECT_EQ(windows->Main.f14.windowType(), Qt::Dialog);
    EXPECT_EQ(windows->Main.f14.windowHandle()->transientParent(), windows->Main.f2.windowHandle());
    programm->Main->F14.Toolbar1_ButtonClick(u8"Zurück"_w);
}

TEST_F(F6_Window, opens_the_editor_over_a_name_that_is_clicked) {
    Open();
    EXPECT_FALSE(Editor()->isVisible());
    ClickCell(2, F6Column::Name);
    ASSERT_TRUE(Editor()->isVisible());
    EXPECT_EQ(Editor()->text(), QStringLiteral("PROGSTATION-2"));
    EXPECT_EQ(Editor()->geometry(), grid->cellRect(2, F6Column::Name));
    EXPECT_EQ(windows->Main.f6.focusWidget(), Editor());
}

TEST_F(F6_Window, puts_the_old_name_back_at_escape_and_stays_open) {
    Open();
    ClickCell(2, F6Column::Name);
    QTest::keyClicks(Editor(), QStringLiteral("xy"));
    EXPECT_EQ(Editor()->text(), QStringLiteral("PROGSTATION-2xy"));
    QTest::keyClick(Editor(), Qt::Key_Escape);
    EXPECT_FALSE(Editor()->isVisible());
    EXPECT_TRUE(windows->Main.f6.isVisible());
    EXPECT_EQ(programm->Main->F6.FGK6.Text(2, F6Column::Name), "PROGSTATION-2");
}

TEST_F(F6_Window, edits_a_name_by_keyboard_alone) {
    Open();
    grid->setFocus();
    grid->setCurrentCell(2, F6Column::Name);
    QTest::keyClick(grid, Qt::Key_Return);
    ASSERT_TRUE(Editor()->isVisible());
    Editor()->selectAll();
    QTest::keyClicks(Editor(), QStringLiteral("PROGSTATION-9"));
    Expect(191, Answer::Ok);
    QTest::keyClick(Editor(), Qt::Key_Return);
    EXPECT_FALSE(Editor()->isVisible());
    EXPECT_EQ(programm->Main->F6.FGK6.Text(2, F6Column::Name), "PROGSTATION-9");
    Expect(60, Answer::No); // on the way out
    QTest::keyClick(grid, Qt::Key_Escape);
    EXPECT_FALSE(windows->Main.f6.isVisible());
}

TEST_F(F6_Window, takes_over_what_stands_in_the_editor_when_a_tool_is_clicked) {
    Open();
    ClickCell(2, F6Column::Name);
    Editor()->selectAll();
    QTest::keyClicks(Editor(), QStringLiteral("PROGSTATION-9"));
    Expect(191, Answer::Ok);
    QTest::mouseClick(Find<QToolButton>("F6.Toolbar1.Speichern"), Qt::LeftButton);
    EXPECT_FALSE(Editor()->isVisible());
    EXPECT_EQ(world.Disk.Files["/q/DAT/COMSETUPADAPTER.ADP"].substr(65 + 16, 20), "PROGSTATION-9       ");
}

TEST_F(F6_Window, gives_the_main_window_back) {
    Open();
    EXPECT_FALSE(windows->Main.f2.isEnabled());
    EXPECT_TRUE(windows->Main.f6.isEnabled());
    windows->Main.f6.close();
    EXPECT_FALSE(windows->Main.f6.isVisible());
    EXPECT_TRUE(windows->Main.f2.isEnabled());
}

TEST_F(F6_Window, is_walked_with_tab_and_names_every_control) {
    Open();
    Find<QToolButton>("F6.Toolbar1.Zurück")->setFocus();
    EXPECT_EQ(tabOrder(&windows->Main.f6),
              (QStringList{QString::fromUtf8("F6.Toolbar1.Zurück"), QStringLiteral("F6.Toolbar1.Speichern"),
                           QStringLiteral("F6.Check1"), QStringLiteral("F6.FGK6"), QStringLiteral("F6.Command1")}));
    EXPECT_EQ(unnamedControls(&windows->Main.f6), QStringList());
    EXPECT_EQ(Find<QToolButton>("F6.Toolbar1.Speichern")->toolTip(), QStringLiteral("Speichern"));
}

struct F6_Sprachen : F6_Window, ::testing::WithParamInterface<std::string_view> {};

TEST_P(F6_Sprachen, fits_every_text) {
    Open(GetParam());
    EXPECT_EQ(allTextsFit(&windows->Main.f6), QStringList());
    Find<QCheckBox>("F6.Check1")->click();
    Settle();
    EXPECT_EQ(allTextsFit(&windows->Main.f6), QStringList());
}

TEST_P(F6_Sprachen, fits_every_text_of_the_channel_window) {
    Prepare(GetParam(), "SET");
    programm->Main->F14.F14_Laden();
    Present(windows->Main.f14);
    EXPECT_EQ(allTextsFit(&windows->Main.f14), QStringList());
    EXPECT_EQ(unnamedControls(&windows->Main.f14), QStringList());
    programm->Main->F14.Toolbar1_ButtonClick(u8"Zurück"_w);
}

INSTANTIATE_TEST_SUITE_P(Languages, F6_Sprachen, ::testing::ValuesIn(Languages));

struct F14_Window : F6_Window {
    QComboBox* channels = nullptr;

    void OpenChannel() {
        Prepare("Deutsch", "RESET");
        programm->Main->F2.Verbunden = 1;
        programm->Main->F2.Toolbar1_ButtonClick("Neu");
        Present(windows->Main.f14);
        channels = windows->Main.f14.findChild<QComboBox*>(QStringLiteral("F14.Combo1"));
    }
};

TEST_F(F14_Window, offers_twelve_channels_and_has_the_configured_one_selected) {
    OpenChannel();
    ASSERT_EQ(channels->count(), 12);
    EXPECT_EQ(channels->itemText(11), QStringLiteral("Funkkanal-12"));
    EXPECT_EQ(channels->currentIndex(), 2);
    EXPECT_EQ(windows->Main.f14.focusWidget(), channels);
}

TEST_F(F14_Window, asks_before_a_change_is_lost_and_goes_back_by_escape) {
    OpenChannel();
    QTest::keyClick(channels, Qt::Key_Down);
    EXPECT_EQ(channels->currentIndex(), 3);
    Expect(60, Answer::No);
    QTest::keyClick(channels, Qt::Key_Escape);
    EXPECT_FALSE(windows->Main.f14.isVisible());
    EXPECT_TRUE(windows->Main.f2.isEnabled());
    EXPECT_EQ(programm->kern.Config.RadioChannel, "3");
}

TEST_F(F14_Window, is_walked_with_tab) {
    OpenChannel();
    windows->Main.f14.findChild<QToolButton*>(QString::fromUtf8("F14.Toolbar1.Zurück"))->setFocus();
    EXPECT_EQ(tabOrder(&windows->Main.f14),
              (QStringList{QString::fromUtf8("F14.Toolbar1.Zurück"), QStringLiteral("F14.Toolbar1.Speichern"),
                           QStringLiteral("F14.Combo1")}));
}

} // namespace
} // namespace qvm::test
