// The program with its main window: what opens what, what comes back, words at run time, second start, shut-down.

#include "Inhalt.h"
#include "MainWindows.h"
#include "Text.h"
#include "TextSlots.h"
#include "TransferWindows.h"
#include "VirtualPlatform.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

using ::testing::IsEmpty;

/// The program over the delivered language files and a fixed port behind which nothing answers.
struct Programm_Hauptfenster : ::testing::Test {
    VirtualPlatform world;
    Programm programm{world.World, "/q"};

    void SetUp() override {
        for (const std::string_view language : SprachNamen) {
            const std::string name = "QVM_" + std::string(language) + ".DAT";
            const std::string bytes = test::Inhalt(std::string(QVM_BINARY_DIR) + "/lang/" + name);
            ASSERT_FALSE(bytes.empty()) << name;
            world.Disk.Files["/q/" + name] = bytes;
        }
        world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port5\r\n3\r\n";
        world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "RESET\r\n";
        ASSERT_EQ(Programm_Start(programm, true), StartResult::Started);
        programm.Main->F2.F2_Laden();
    }
    /// As if the first scan had found the adapter.
    void Connected() { programm.Main->F2.Adapter_Erkannt(); }
    void Choose(int language) {
        programm.Main->F2.F2_Sprache_Click();
        programm.Main->F15.Sprachen_Click(language);
        programm.Main->F15.OK_Click();
    }
    ToolButton& Key(std::string_view key) {
        return *std::find_if(programm.Main->F2.Toolbar1.begin(), programm.Main->F2.Toolbar1.end(),
                             [key](const ToolButton& button) { return button.Key == key; });
    }
};

// ---- opening and coming back

TEST_F(Programm_Hauptfenster, keys_and_entries_live_as_far_as_their_windows_exist) {
    for (const char* window : {"F3", "F4", "F41", "F42", "F5", "F10", "F12", "F60"}) {
        programm.kern.Windows.Open.erase(window);
    }
    programm.Main->F2.Tasten_Freigeben();
    for (const char* key : {"Ende", "EYE", "Neu", "PROG"}) {
        EXPECT_TRUE(Key(key).Enabled) << key;
        EXPECT_TRUE(Key(key).Visible) << key;
    }
    for (const char* key : {"636I259", "Schaltuhr", "x1504", "GastCard", "lock4"}) {
        EXPECT_FALSE(Key(key).Enabled) << key;
        EXPECT_TRUE(Key(key).Visible) << key;
    }
    for (const MenuEntry* entry :
         {&programm.Main->F2.F2_Schnittstelle, &programm.Main->F2.F2_Sprache, &programm.Main->F2.F2_Ende,
          &programm.Main->F2.F2_Help, &programm.Main->F2.F2_Version}) {
        EXPECT_TRUE(entry->Enabled) << entry->Text();
    }
    for (const MenuEntry* entry :
         {&programm.Main->F2.F2_Einzel, &programm.Main->F2.F2_Perm, &programm.Main->F2.F2_PersonB,
          &programm.Main->F2.F2_SchlossB, &programm.Main->F2.F2_Gasttimer}) {
        EXPECT_FALSE(entry->Enabled) << entry->Text();
    }
}

TEST_F(Programm_Hauptfenster, prog_leads_to_the_lock_grid_and_back) {
    Connected();
    programm.Main->F2.Toolbar1_ButtonClick("PROG");
    EXPECT_TRUE(programm.Transfer->F13.Fenster.Visible);
    EXPECT_FALSE(programm.Main->F2.Fenster.Visible);
    EXPECT_FALSE(programm.Main->F2.Timer2.Running());
    programm.Transfer->F13.Toolbar1_ButtonClick(u8"Zurück"_w);
    EXPECT_FALSE(programm.Transfer->F13.Fenster.Visible);
    EXPECT_TRUE(programm.Main->F2.Fenster.Visible);
    EXPECT_TRUE(programm.Main->F2.Timer2.Running());
}

TEST_F(Programm_Hauptfenster, neu_leads_to_the_radio_channel_and_back) {
    Connected();
    programm.Main->F2.Toolbar1_ButtonClick("Neu");
    EXPECT_TRUE(programm.Main->F14.Fenster.Visible);
    EXPECT_TRUE(programm.Main->F2.Fenster.Visible);
    EXPECT_FALSE(programm.Main->F2.Fenster.Enabled);
    EXPECT_FALSE(programm.Main->F2.Timer2.Running());
    programm.Main->F14.Toolbar1_ButtonClick(u8"Zurück"_w);
    EXPECT_FALSE(programm.Main->F14.Fenster.Visible);
    EXPECT_TRUE(programm.Main->F2.Fenster.Enabled);
    EXPECT_TRUE(programm.Main->F2.Timer2.Running());
}

TEST_F(Programm_Hauptfenster, schnittstelle_leads_to_the_adapters_and_back) {
    world.RunFor(3000); // the first scan, which nobody answers
    programm.Main->F2.F2_Schnittstelle_Click();
    EXPECT_TRUE(programm.Main->F6.Fenster.Visible);
    EXPECT_FALSE(programm.Main->F2.Fenster.Enabled);
    EXPECT_FALSE(programm.Main->F2.Timer2.Running());
    programm.Main->F6.Toolbar1_ButtonClick(u8"Zurück"_w);
    EXPECT_FALSE(programm.Main->F6.Fenster.Visible);
    EXPECT_TRUE(programm.Main->F2.Fenster.Enabled);
    EXPECT_TRUE(programm.Main->F2.Timer2.Running());
}

TEST_F(Programm_Hauptfenster, a_port_set_up_in_the_adapter_window_is_searched_once_the_main_window_is_back) {
    world.RunFor(3000);
    programm.Main->F2.F2_Schnittstelle_Click();
    programm.Main->F6.Port_Eingerichtet();
    EXPECT_EQ(programm.Main->F2.Label1.ForeColor, Lampe::Gelb);
    EXPECT_FALSE(programm.Main->F2.Timer2.Running());
    programm.kern.Windows.BackToMain();
    EXPECT_TRUE(programm.Main->F2.Timer2.Running());
    EXPECT_EQ(programm.Main->F2.Timer2.Interval(), 200);
}

TEST_F(Programm_Hauptfenster, version_shows_the_about_box_with_the_adapters_version) {
    programm.Main->F2.F2_Version_Click();
    EXPECT_TRUE(programm.Main->F1.Fenster.Visible);
    EXPECT_FALSE(programm.Main->F1.AdapterLabel.Visible);
    programm.Main->F2.AdapterVersion = 12;
    programm.Main->F2.F2_Version_Click();
    EXPECT_EQ(programm.Main->F1.AdapterLabel.Text(), "USB Wireless Adapter - 2.2");
    EXPECT_TRUE(programm.Main->F2.Timer2.Running());
}

TEST_F(Programm_Hauptfenster, a_refused_key_in_the_middle_of_a_run_does_not_bring_the_main_window_back) {
    Connected();
    programm.Main->F2.Toolbar1_ButtonClick("PROG");
    programm.Run.Ansicht.Hauptfenster_Freigeben();
    EXPECT_FALSE(programm.Main->F2.Fenster.Visible);
    programm.Transfer->F13.Fenster.Visible = false;
    programm.link.Lauf.Chain.Phase = RunPhase::Open;
    programm.Run.Ansicht.Hauptfenster_Freigeben();
    EXPECT_FALSE(programm.Main->F2.Fenster.Visible);
    programm.link.Lauf.Chain.Phase = RunPhase::None;
    programm.Run.Ansicht.Hauptfenster_Freigeben();
    EXPECT_TRUE(programm.Main->F2.Fenster.Visible);
}

// ---- a console has no main window

TEST(Programm_Konsole, without_an_opened_main_window_a_return_shows_nothing_and_starts_no_supervision) {
    VirtualPlatform world;
    Programm programm(world.World, "/q");
    ASSERT_EQ(Programm_Start(programm, false), StartResult::Started);
    programm.kern.Windows.BackToMain();
    programm.Run.Ansicht.Hauptfenster_Freigeben();
    EXPECT_FALSE(programm.Main->F2.Fenster.Visible);
    EXPECT_FALSE(programm.Main->F2.Timer2.Running());
    EXPECT_FALSE(world.PortChanged);
    EXPECT_EQ(world.Opens, 0);
}

// ---- words at run time

TEST_F(Programm_Hauptfenster, every_language_reaches_the_main_window_at_once) {
    const std::vector<std::string> file{"Datei", "File", "Fichier", "Bestand"};
    const std::string_view german = u8"Schlösser programmieren"_w;
    const std::vector<std::string_view> prog{german, "Program locks", "Programmer les serrures", "Sloten programmeren"};
    const std::vector<std::string> adapter{"USB-Funkadapter", "USB wireless adapter", "Adaptateur radio USB",
                                           "USB-radioadapter"};
    for (const int language : {1, 2, 3, 0}) {
        Choose(language);
        const auto n = static_cast<std::size_t>(language);
        EXPECT_EQ(programm.Main->F2.F2_Datei.Text(), file[n]);
        EXPECT_EQ(Key("PROG").Tip(), prog[n]);
        EXPECT_EQ(programm.Main->F2.Label7.Text(), adapter[n]);
        EXPECT_EQ(programm.Main->F2.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM");
    }
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(Programm_Hauptfenster, open_windows_take_their_words_anew_and_keep_their_cells) {
    Connected();
    programm.Main->F2.F2_Sprache_Click();
    programm.Main->F2.Toolbar1_ButtonClick("PROG");
    programm.Transfer->F13.FGK13.SetText(1, F13Column::Name, "Tresor");
    programm.Transfer->F11.F11_Laden(F11Opener::F13, "");
    programm.Transfer->F9.F9_Vorbereiten(100);
    programm.Transfer->F9.F9_Zeigen();
    programm.Transfer->F9.Status_Zeigen(82);
    programm.Transfer->F18.F18_Zeigen();
    const std::string date = programm.Transfer->F9.DatumLabel.Text();
    EXPECT_EQ(programm.Transfer->F13.FGK13.Text(0, F13Column::Number), "Nr.");
    programm.Main->F15.Sprachen_Click(1);
    programm.Main->F15.OK_Click();
    const Kern& kern = programm.kern;
    EXPECT_EQ(programm.Transfer->F13.FGK13.Text(0, F13Column::Number), "No.");
    EXPECT_EQ(programm.Transfer->F13.FGK13.Text(1, F13Column::Name), "Tresor");
    EXPECT_EQ(programm.Transfer->F11.Cancel.Text(), "Cancel");
    EXPECT_EQ(programm.Transfer->F11.Fenster.Title(), kern.Zeile(88));
    EXPECT_EQ(programm.Transfer->F9.StatusLabel.Text(), kern.Zeile(82));
    EXPECT_NE(programm.Transfer->F9.DatumLabel.Text(), date);
    EXPECT_EQ(programm.Transfer->F18.Command1.Text(), "Cancel");
    EXPECT_EQ(programm.Main->F15.Cancel.Text(), "Cancel");
}

TEST_F(Programm_Hauptfenster, the_channel_window_takes_its_words_anew_and_keeps_the_choice) {
    Connected();
    programm.Main->F2.F2_Sprache_Click();
    programm.Main->F2.Toolbar1_ButtonClick("Neu");
    programm.Main->F14.Combo1_Click(6);
    EXPECT_EQ(programm.Main->F14.Combo1.Entries()[6], "Funkkanal-7");
    programm.Main->F15.Sprachen_Click(1);
    programm.Main->F15.OK_Click();
    EXPECT_EQ(programm.Main->F14.Combo1.Entries()[6], "Radio channel-7");
    EXPECT_EQ(programm.Main->F14.Combo1.Selected, 6);
    EXPECT_EQ(programm.Main->F14.Toolbar1[0].Tip(), "Back");
}

TEST_F(Programm_Hauptfenster, the_adapter_window_takes_its_words_anew) {
    world.RunFor(10000);
    programm.Main->F2.F2_Sprache_Click();
    programm.Main->F2.F2_Schnittstelle_Click();
    ASSERT_TRUE(programm.Main->F6.Fenster.Visible);
    programm.Main->F15.Sprachen_Click(1);
    programm.Main->F15.OK_Click();
    EXPECT_EQ(programm.Main->F6.Command1.Text(), "Search adapters");
    EXPECT_EQ(programm.Main->F6.FGK6.Text(0, F6Column::Number), "No.");
}

// ---- second start, shut-down

TEST(Programm_Zweitstart, opens_no_window_and_no_port) {
    VirtualPlatform world;
    world.OnlyInstance = false;
    Programm programm(world.World, "/q");
    EXPECT_EQ(Programm_Start(programm, true), StartResult::AlreadyRunning);
    EXPECT_FALSE(programm.Main->F2.Fenster.Visible);
    EXPECT_EQ(world.Opens, 0);
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(Programm_Hauptfenster, the_end_saves_what_the_windows_left_in_the_configuration) {
    int ends = 0;
    programm.Main->F2.Hooks.Ende = [&ends] { ++ends; };
    Choose(3);
    programm.Main->F2.Toolbar1_ButtonClick("Ende");
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(world.Disk.Files["/q/DAT/EST7CSB29A.I_1"], "Nederlands\r\n1\r\nUSB-Port5\r\n3\r\n");
    EXPECT_FALSE(world.PortOpen);
    EXPECT_FALSE(world.Rts);
}

TEST_F(Programm_Hauptfenster, the_end_in_the_middle_of_a_run_asks_nothing) {
    int ends = 0;
    programm.Main->F2.Hooks.Ende = [&ends] { ++ends; };
    programm.link.Lauf.Chain.Phase = RunPhase::Open;
    programm.Main->F2.Beenden();
    EXPECT_EQ(ends, 1);
    EXPECT_THAT(world.Shown, IsEmpty());
    EXPECT_FALSE(world.PortOpen);
}

} // namespace
} // namespace qvm::test
