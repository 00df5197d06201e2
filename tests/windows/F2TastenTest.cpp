// The tool bar of the main window: every key, with and without an adapter.

#include "F2Fixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct KeyRow {
    std::string_view Key;
    const char* Opens;
    bool StopsTimer;
    bool StaysVisible, StaysEnabled;
    bool TellsMissingAdapter;
};

void PrintTo(const KeyRow& row, std::ostream* out) {
    *out << row.Key;
}

constexpr KeyRow Rows[] = {
    {"EYE", "F7", true, false, true, true},    {"636I259", "F2_Kalend", false, true, true, true},
    {"x1504", "F5", true, true, false, true},  {"Neu", "F14", true, true, false, true},
    {"PROG", "F13", true, false, true, true},  {"GastCard", "F60", true, false, true, false},
    {"lock4", "F12", true, false, true, true},
};

struct F2_Taste : F2Fixture, ::testing::WithParamInterface<KeyRow> {};

TEST_P(F2_Taste, opens_its_window_once_the_adapter_is_there) {
    Connect();
    NoteWindows();
    ASSERT_TRUE(Main().Timer2.Running());
    const int probes = Probes();
    Press(GetParam().Key);
    EXPECT_THAT(Opened, ElementsAre(GetParam().Opens));
    EXPECT_EQ(Main().Timer2.Running(), !GetParam().StopsTimer);
    EXPECT_EQ(Main().Fenster.Visible, GetParam().StaysVisible);
    EXPECT_EQ(Main().Fenster.Enabled, GetParam().StaysEnabled);
    EXPECT_EQ(Probes(), probes);
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_P(F2_Taste, tells_that_no_adapter_is_there_and_opens_nothing) {
    AdapterAnswers = false;
    Open();
    NoteWindows();
    ASSERT_TRUE(ScanEnds());
    if (GetParam().TellsMissingAdapter) {
        Expect(91);
    }
    Press(GetParam().Key);
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_EQ(world.Shown.size(), GetParam().TellsMissingAdapter ? 1U : 0U);
    EXPECT_TRUE(Main().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
    EXPECT_TRUE(Main().Timer2.Running());
    EXPECT_EQ(Main().Timer2.Interval(), 30000);
}

TEST_P(F2_Taste, does_nothing_at_all_during_a_scan) {
    Connect();
    NoteWindows();
    AdapterAnswers = false;
    int pressed = 0;
    InNextScan([&] {
        ++pressed;
        EXPECT_EQ(Main().ScanLaeuft, 1);
        Press(GetParam().Key);
        EXPECT_EQ(Main().ScanLaeuft, 1);
        EXPECT_EQ(Main().Timer2.Interval(), 40000);
        EXPECT_FALSE(Main().Timer2.Running());
    });
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(pressed, 1);
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_P(F2_Taste, stands_disabled_and_does_nothing_while_its_window_does_not_exist) {
    Connect();
    programm->kern.Windows.Open.clear();
    Main().Tasten_Freigeben();
    EXPECT_TRUE(Key(GetParam().Key).Visible);
    EXPECT_FALSE(Key(GetParam().Key).Enabled);
    Press(GetParam().Key);
    EXPECT_TRUE(Main().Timer2.Running());
    EXPECT_TRUE(Main().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
    NoteWindows();
    Main().Tasten_Freigeben();
    EXPECT_TRUE(Key(GetParam().Key).Enabled);
}

INSTANTIATE_TEST_SUITE_P(Keys, F2_Taste, ::testing::ValuesIn(Rows),
                         [](const auto& test) { return std::string(test.param.Opens); });

struct F2_Tasten : F2Fixture {};

// ---- "Schaltuhr": its menu comes and goes

TEST_F(F2_Tasten, schaltuhr_stops_the_supervision_while_its_menu_is_open_only) {
    Connect();
    NoteWindows();
    bool running = true;
    programm->kern.Windows.Open["F2_Schaltuhr"] = [&] { running = Main().Timer2.Running(); };
    Press("Schaltuhr");
    EXPECT_FALSE(running);
    EXPECT_TRUE(Main().Timer2.Running());
    EXPECT_EQ(Main().Timer2.Interval(), 40000);
}

TEST_F(F2_Tasten, schaltuhr_leaves_the_supervision_stopped_when_its_menu_opened_a_window) {
    Connect();
    NoteWindows();
    programm->kern.Windows.Open["F2_Schaltuhr"] = [this] { Main().F2_PersonB_Click(); };
    Press("Schaltuhr");
    EXPECT_THAT(Opened, ElementsAre("F4"));
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_FALSE(Main().Fenster.Visible);
}

TEST_F(F2_Tasten, schaltuhr_without_an_adapter_shows_no_menu) {
    AdapterAnswers = false;
    Open();
    NoteWindows();
    ASSERT_TRUE(ScanEnds());
    Expect(91);
    Press("Schaltuhr");
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_TRUE(Main().Timer2.Running());
}

TEST_F(F2_Tasten, a_menu_key_stands_disabled_while_none_of_its_windows_exists) {
    Connect();
    NoteWindows();
    auto& open = programm->kern.Windows.Open;
    for (const char* window : {"F3", "F10", "F4", "F41", "F42"}) {
        open.erase(window);
    }
    Main().Tasten_Freigeben();
    EXPECT_FALSE(Key("636I259").Enabled);
    EXPECT_FALSE(Key("Schaltuhr").Enabled);
    Press("636I259");
    Press("Schaltuhr");
    EXPECT_THAT(Opened, IsEmpty());
    open["F10"] = open["F42"] = [] {};
    Main().Tasten_Freigeben();
    EXPECT_TRUE(Key("636I259").Enabled);
    EXPECT_TRUE(Key("Schaltuhr").Enabled);
}

TEST_F(F2_Tasten, eye_stops_the_supervision_while_the_file_is_chosen_only) {
    Connect();
    NoteWindows();
    bool running = true;
    programm->kern.Windows.Open["F7"] = [&] { running = Main().Timer2.Running(); };
    Press("EYE");
    EXPECT_FALSE(running);
    EXPECT_TRUE(Main().Fenster.Visible);
    EXPECT_TRUE(Main().Timer2.Running());
}

// ---- keys without a task

TEST_F(F2_Tasten, info_oeffnen_speichern_and_rfidcard_are_hidden_and_never_act) {
    AdapterAnswers = false;
    Open();
    NoteWindows();
    Main().Tasten_Freigeben();
    ASSERT_TRUE(ScanEnds());
    const std::string_view oeffnen = u8"Öffnen"_w;
    for (const int connected : {0, 1}) {
        Main().Verbunden = connected;
        for (const std::string_view key :
             {std::string_view("INFO"), oeffnen, std::string_view("Speichern"), std::string_view("RfidCard")}) {
            EXPECT_FALSE(Key(key).Visible) << key;
            EXPECT_FALSE(Key(key).Enabled) << key;
            Press(key);
        }
    }
    Press("no key");
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_THAT(world.Shown, IsEmpty());
    EXPECT_TRUE(Main().Timer2.Running());
}

// ---- "Ende"

TEST_F(F2_Tasten, ende_shuts_down_with_an_adapter_and_without) {
    for (const bool connected : {true, false}) {
        programm.reset();
        Opened.clear();
        AdapterAnswers = connected;
        Open();
        NoteWindows();
        ASSERT_TRUE(ScanEnds());
        ASSERT_EQ(Main().Verbunden, connected ? 1 : 0);
        Press("Ende");
        EXPECT_THAT(Opened, ElementsAre("end"));
        EXPECT_FALSE(Main().Timer2.Running());
        EXPECT_FALSE(world.PortOpen);
    }
}

TEST_F(F2_Tasten, ende_does_nothing_during_a_scan) {
    AdapterAnswers = false;
    Open();
    NoteWindows();
    InNextScan([this] { Press("Ende"); });
    ASSERT_TRUE(ScanEnds());
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_TRUE(world.PortOpen);
}

// ---- a key while the light is green and the adapter does not answer any more

struct F2_Nachsuche : F2Fixture {
    void SetUp() override {
        Connect();
        NoteWindows();
        AdapterAnswers = false;
        ASSERT_TRUE(ScanEnds());
        ASSERT_EQ(Light(), Lampe::Gruen);
        ASSERT_EQ(Main().Verbunden, 0);
    }
};

TEST_F(F2_Nachsuche, reopens_the_port_searches_and_then_acts_when_the_adapter_answers) {
    AdapterAnswers = true;
    const int opens = world.Opens;
    const int probes = Probes();
    Press("PROG");
    EXPECT_GT(world.Opens, opens);
    EXPECT_EQ(Probes(), probes + 1);
    EXPECT_THAT(Opened, ElementsAre("F13"));
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_EQ(Main().ScanLaeuft, 0);
}

TEST_F(F2_Nachsuche, tells_the_missing_adapter_after_the_search_and_tries_again_in_30_seconds) {
    Expect(91);
    const auto start = world.Elapsed();
    const int probes = Probes();
    Press("PROG");
    EXPECT_EQ(Probes(), probes + 4);
    EXPECT_GE(world.Elapsed() - start, 16000);
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_EQ(Main().Timer2.Interval(), 30000);
    EXPECT_TRUE(Main().Timer2.Running());
}

TEST_F(F2_Nachsuche, lets_no_second_key_in_while_it_searches) {
    Expect(91);
    world.At(1000, [this] { Press("lock4"); });
    Press("PROG");
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_EQ(world.Shown.size(), 1U);
}

TEST_F(F2_Nachsuche, opens_nothing_once_another_window_stands_before) {
    AdapterAnswers = true;
    AdapterDelayMs = 2000;
    world.At(1000, [this] { Main().F2_Einzel_Click(); });
    Press("PROG");
    EXPECT_THAT(Opened, ElementsAre("F3"));
    EXPECT_FALSE(Main().Fenster.Visible);
}

TEST_F(F2_Tasten, with_a_yellow_or_red_light_a_key_does_not_search) {
    AdapterAnswers = false;
    Open();
    NoteWindows();
    ASSERT_TRUE(ScanEnds());
    for (const Colour colour : {Lampe::Gelb, Lampe::Rot}) {
        Main().Label1.ForeColor = colour;
        const int probes = Probes();
        const int opens = world.Opens;
        Expect(91);
        Press("PROG");
        EXPECT_EQ(Probes(), probes);
        EXPECT_EQ(world.Opens, opens);
        EXPECT_TRUE(Main().Timer2.Running());
        EXPECT_EQ(Main().Timer2.Interval(), 30000);
    }
}

TEST_F(F2_Tasten, a_window_that_closes_again_at_once_leaves_the_main_window_in_view) {
    Connect();
    programm->kern.Windows.Open["F60"] = [this] { programm->kern.Windows.BackToMain(); };
    Press("GastCard");
    EXPECT_TRUE(Main().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
    EXPECT_TRUE(Main().Timer2.Running());
}

} // namespace
} // namespace qvm::test
