// What Programm wires between link, run and windows.

#include "AntwortRahmen.h"
#include "Text.h"
#include "TransferWindows.h"
#include "VirtualPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

using ::testing::ElementsAre;

struct Programm_Haken : ::testing::Test {
    VirtualPlatform world;
    Programm programm{world.World, "/q"};

    Programm_Haken() {
        EXPECT_EQ(Programm_Start(programm, true), StartResult::Started);
        Port_Oeffnen(programm.link, 1);
    }
    void Reply(std::uint8_t code, const std::vector<std::uint8_t>& payload) {
        world.Deliver(ReplyWire(code, 0x0D, payload));
        world.RunFor(1);
    }
};

TEST_F(Programm_Haken, stands_without_any_front_end) {
    for (const int code : {0x4B, 0x6F, 0x72, 0x73, 0x81, 0xA1, 0xA2, 0xA3}) {
        Reply(static_cast<std::uint8_t>(code), {});
    }
    programm.Run.Ansicht.Historie_Oeffnen("/q/HIST/H.HST");
    programm.Run.Ansicht.Hauptfenster_Freigeben();
    programm.Transfer->F13.F13_FormLaden();
    programm.Transfer->F13.Toolbar1_ButtonClick(u8"Zurück"_w);
    EXPECT_FALSE(programm.Transfer->F13.Fenster.Visible);
}

TEST_F(Programm_Haken, shows_a_history_file_through_the_front_end) {
    std::vector<std::string> opened;
    programm.F7_Oeffnen = [&opened](const std::string& path) { opened.push_back(path); };
    programm.Run.Ansicht.Historie_Oeffnen("/q/HIST/H.HST");
    EXPECT_THAT(opened, ElementsAre("/q/HIST/H.HST"));
}

TEST_F(Programm_Haken, a_run_that_goes_back_to_the_grid_closes_progress_and_wait_box) {
    programm.Transfer->F9.F9_Zeigen();
    programm.Transfer->F18.F18_Zeigen();
    programm.Transfer->F13.Fenster.Enabled = false;
    programm.Run.Ansicht.Zum_Schlossgitter();
    EXPECT_FALSE(programm.Transfer->F9.Fenster.Visible);
    EXPECT_FALSE(programm.Transfer->F9.Stille.Running());
    EXPECT_FALSE(programm.Transfer->F18.Fenster.Visible);
    EXPECT_TRUE(programm.Transfer->F13.Fenster.Enabled);
}

TEST_F(Programm_Haken, a_code_and_channel_change_ends_with_a_report) {
    world.Answers.push_back({.Text = "*"});
    programm.kern.Sprache.LanguageText[204] = "L204";
    programm.link.Lauf.Chain.LaufZiel = "F22";
    Reply(0x05, {});
    EXPECT_TRUE(world.Shown.empty()) << "nobody has asked for it";
    TelTrennen_Senden(programm.link);
    Reply(0x05, {});
    ASSERT_EQ(world.Shown.size(), 1U);
    EXPECT_EQ(world.Shown[0].Text, "L204");
    EXPECT_EQ(world.Shown[0].Sign, Icon::Information);
    EXPECT_EQ(world.Shown[0].Title, "QVM 7702 SOFTWARE SYSTEM");
}

TEST_F(Programm_Haken, a_card_that_is_not_known_is_told_without_a_title_and_frees_the_main_window) {
    int shown = 0;
    const Listener listener = programm.kern.Windows.BackToMain.Listen([&shown] { ++shown; });
    world.Answers.push_back({.Text = "Karte nicht erkannt!"});
    TelKarteStart_Senden(programm.link);
    Reply(0x69, {0x6A});
    EXPECT_EQ(world.Shown[0].Title, "");
    EXPECT_EQ(shown, 1);
}

} // namespace
} // namespace qvm::test
