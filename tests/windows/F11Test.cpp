// The start dialog as it opens, and the keys in its code box.

#include "FensterFixture.h"

namespace qvm::test {
namespace {

struct F11_Laden : FensterFixture {
    F11_Laden() { Start(); }
    F11& Dialog() { return programm->Transfer->F11; }
    void Open(F11Opener opener = F11Opener::F13, const std::string& adapter = "") {
        Dialog().F11_Laden(opener, adapter);
    }
    void AdapterMode() { programm->kern.Config.PortAutomatik = "SET"; }
    std::string Cutoff() { return Dialog().Stichtag() ? Datum_Text(*Dialog().Stichtag()) : ""; }
    std::string Chosen() {
        const int index = Dialog().Combo1.Selected;
        return index < 0 ? "" : Dialog().Combo1.Entries()[static_cast<std::size_t>(index)];
    }
};

TEST_F(F11_Laden, takes_its_words_from_the_catalogue) {
    Open();
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_EQ(Dialog().Fenster.Title(), "L88");
    EXPECT_EQ(Dialog().OK.Text(), "L84");
    EXPECT_EQ(Dialog().Cancel.Text(), "L83");
    EXPECT_EQ(Dialog().Prompt.Text(), "L85");
    EXPECT_EQ(Dialog().CutoffText.Text(), "L179");
    EXPECT_EQ(Dialog().Check1.Text(), "L268");
}

TEST_F(F11_Laden, opens_with_the_box_checked_whatever_it_was_before) {
    Open();
    Dialog().Check1.Checked = false;
    Open();
    EXPECT_TRUE(Dialog().Check1.Checked);
}

TEST_F(F11_Laden, opens_with_an_empty_entry) {
    Open();
    Type("12");
    Open();
    EXPECT_EQ(Dialog().Text1.Text(), "");
    EXPECT_EQ(Dialog().Anzahl.Text(), "0");
    EXPECT_EQ(Dialog().Stellen(), 0);
}

TEST_F(F11_Laden, gives_the_code_box_the_focus_once_after_500_ms) {
    int focus = 0;
    Dialog().Text1.SetFocus = [&focus] { ++focus; };
    Open();
    world.RunFor(499);
    EXPECT_EQ(focus, 0);
    world.RunFor(1);
    EXPECT_EQ(focus, 1);
    world.RunFor(2000);
    EXPECT_EQ(focus, 1);
}

TEST_F(F11_Laden, fetches_nobody_back_who_has_typed_the_code_and_gone_on) {
    int focus = 0;
    Dialog().Text1.SetFocus = [&focus] { ++focus; };
    Open();
    world.RunFor(300);
    Type("123456");
    world.RunFor(2000);
    EXPECT_EQ(focus, 0);
}

TEST_F(F11_Laden, gives_no_focus_once_it_is_closed) {
    int focus = 0;
    Dialog().Text1.SetFocus = [&focus] { ++focus; };
    Open();
    Dialog().Cancel_Click();
    world.RunFor(2000);
    Open();
    Type("123456");
    Dialog().OK_Click();
    world.RunFor(2000);
    EXPECT_EQ(focus, 0);
}

// ---- cut-off

struct CutoffCase {
    const char* Name;
    RunTask What;
    F11Opener Opener;
    const char *Shown, *Cutoff;
    bool DateEnabled, BoxEnabled;
};

void PrintTo(const CutoffCase& c, std::ostream* out) {
    *out << c.Name;
}

constexpr const char* Dashes = "-- -- . -- -- . -- --";

struct F11_Grenzdatum : F11_Laden, ::testing::WithParamInterface<CutoffCase> {};

TEST_P(F11_Grenzdatum, stands_20_days_back_when_history_is_read_and_is_live_from_the_grid_only) {
    Lauf().Order.What = RunTask::HistoryOnly;
    Open();
    Dialog().Datum_Waehlen({.Year = 2001, .Month = 1, .Day = 1}); // of an earlier run
    Lauf().Order.What = GetParam().What;
    Open(GetParam().Opener);
    EXPECT_EQ(Dialog().CutoffDate.Text(), GetParam().Shown);
    EXPECT_EQ(Cutoff(), GetParam().Cutoff);
    EXPECT_EQ(Dialog().CutoffDate.Enabled, GetParam().DateEnabled);
    EXPECT_EQ(Dialog().CutoffText.Enabled, GetParam().DateEnabled);
    EXPECT_EQ(Dialog().Check1.Enabled, GetParam().BoxEnabled);
}

// Today is the 5th of March 2026; February has 28 days.
INSTANTIATE_TEST_SUITE_P(
    Runs, F11_Grenzdatum,
    ::testing::Values(
        CutoffCase{"program only", RunTask::Program, F11Opener::F13, Dashes, "", false, true},
        CutoffCase{"history only", RunTask::HistoryOnly, F11Opener::F13, "13.02.2026", "13.02.2026", true, true},
        CutoffCase{"history first", RunTask::HistoryFirst, F11Opener::F13, "13.02.2026", "13.02.2026", true, true},
        CutoffCase{"history from F12", RunTask::HistoryOnly, F11Opener::F12, "13.02.2026", "13.02.2026", false, false},
        CutoffCase{"history from F20", RunTask::HistoryFirst, F11Opener::F20, "13.02.2026", "13.02.2026", false, false},
        CutoffCase{"none from F12", RunTask::Program, F11Opener::F12, Dashes, "", false, false}));

TEST_F(F11_Laden, takes_a_picked_date_up_to_today) {
    Lauf().Order.What = RunTask::HistoryOnly;
    Open();
    Dialog().Datum_Waehlen({.Year = 2025, .Month = 12, .Day = 24});
    EXPECT_EQ(Cutoff(), "24.12.2025");
    EXPECT_EQ(Dialog().CutoffDate.Text(), "24.12.2025");
    Dialog().Datum_Waehlen({.Year = 2026, .Month = 3, .Day = 5});
    EXPECT_EQ(Cutoff(), "05.03.2026");
}

TEST_F(F11_Laden, takes_no_date_after_today_and_none_that_does_not_exist) {
    Lauf().Order.What = RunTask::HistoryOnly;
    Open();
    Dialog().Datum_Waehlen({.Year = 2026, .Month = 3, .Day = 6});
    Dialog().Datum_Waehlen({.Year = 2026, .Month = 2, .Day = 29});
    Dialog().Datum_Waehlen({.Year = 2025, .Month = 13, .Day = 1});
    EXPECT_EQ(Cutoff(), "13.02.2026");
    EXPECT_EQ(Dialog().CutoffDate.Text(), "13.02.2026");
}

TEST_F(F11_Laden, takes_no_date_when_no_history_is_read) {
    Open();
    Dialog().Datum_Waehlen({.Year = 2026, .Month = 1, .Day = 1});
    EXPECT_EQ(Cutoff(), "");
    EXPECT_EQ(Dialog().CutoffDate.Text(), Dashes);
}

// ---- adapters

TEST_F(F11_Laden, hides_the_adapter_list_without_the_adapter_mode) {
    AddAdapter("/1/2/3/4", "PROGSTATION-A", "7");
    Open();
    EXPECT_FALSE(Dialog().Combo1.Visible);
}

TEST_F(F11_Laden, from_the_grid_lists_all_adapters_but_the_enrolment_ones) {
    AdapterMode();
    AddAdapter("/1/2/3/4", "ENROLLMENT1-X", "6");
    AddAdapter("/5/6/7/8", "PROGSTATION-A", "7");
    AddAdapter("/9/9/9/9", "LAN-DACH", "8");
    AddAdapter("/1/1/1/1", "PROGSTATION-B", "9");
    AddAdapter("/2/2/2/2", "LAN-TOR", "10");
    Open();
    EXPECT_TRUE(Dialog().Combo1.Visible);
    EXPECT_THAT(Dialog().Combo1.Entries(), ElementsAre("PROGSTATION-A [/5/6/7/8]", "LAN-DACH [/9/9/9/9]",
                                                       "PROGSTATION-B [/1/1/1/1]", "LAN-TOR [/2/2/2/2]"));
    EXPECT_EQ(Chosen(), "PROGSTATION-B [/1/1/1/1]"); // the last programming station
}

TEST_F(F11_Laden, from_another_window_lists_the_programming_stations_only) {
    AdapterMode();
    AddAdapter("/1/2/3/4", "ENROLLMENT1-X", "6");
    AddAdapter("/5/6/7/8", "PROGSTATION-A", "7");
    AddAdapter("/9/9/9/9", "LAN-DACH", "8");
    for (const F11Opener opener : {F11Opener::F12, F11Opener::F20}) {
        Open(opener);
        EXPECT_THAT(Dialog().Combo1.Entries(), ElementsAre("PROGSTATION-A [/5/6/7/8]"));
        EXPECT_EQ(Chosen(), "PROGSTATION-A [/5/6/7/8]");
    }
}

TEST_F(F11_Laden, preselects_the_remembered_adapter_by_address_or_name) {
    AdapterMode();
    AddAdapter("/5/6/7/8", "PROGSTATION-A", "7");
    AddAdapter("/9/9/9/9", "LAN-DACH", "8");
    AddAdapter("/1/1/1/1", "PROGSTATION-B", "9");
    Open(F11Opener::F13, "/9/9/9/9");
    EXPECT_EQ(Chosen(), "LAN-DACH [/9/9/9/9]");
    Open(F11Opener::F13, "PROGSTATION-A");
    EXPECT_EQ(Chosen(), "PROGSTATION-A [/5/6/7/8]");
    Open(F11Opener::F13, "/7/7/7/7");
    EXPECT_EQ(Chosen(), "PROGSTATION-B [/1/1/1/1]");
}

TEST_F(F11_Laden, preselects_nothing_where_no_station_is) {
    AdapterMode();
    Open();
    EXPECT_THAT(Dialog().Combo1.Entries(), IsEmpty());
    EXPECT_EQ(Dialog().Combo1.Selected, -1);
}

// ---- code entry

TEST_F(F11_Laden, shows_a_star_and_the_count_for_each_key) {
    Open();
    Type("1");
    EXPECT_EQ(Dialog().Text1.Text(), "*");
    EXPECT_EQ(Dialog().Anzahl.Text(), "1");
    Type("2345");
    EXPECT_EQ(Dialog().Text1.Text(), "*****");
    EXPECT_EQ(Dialog().Anzahl.Text(), "5");
}

TEST_F(F11_Laden, drops_the_seventh_key) {
    Open();
    Type("1234567");
    EXPECT_EQ(Dialog().Text1.Text(), "******");
    EXPECT_EQ(Dialog().Anzahl.Text(), "6");
    Dialog().OK_Click();
    EXPECT_EQ(Lauf().Order.AdminCode, (AdminCodeBytes{0x12, 0x34, 0x56}));
}

TEST_F(F11_Laden, backspace_takes_one_back_and_stops_at_none) {
    Open();
    Type("12");
    Dialog().Text1_KeyPress(8);
    EXPECT_EQ(Dialog().Text1.Text(), "*");
    Dialog().Text1_KeyPress(8);
    Dialog().Text1_KeyPress(8);
    EXPECT_EQ(Dialog().Stellen(), 0);
    Type("987654");
    Dialog().Text1_KeyPress(8);
    Type("3");
    Dialog().OK_Click();
    EXPECT_EQ(Lauf().Order.AdminCode, (AdminCodeBytes{0x98, 0x76, 0x53}));
}

TEST_F(F11_Laden, escape_delete_and_tab_are_no_characters) {
    Open();
    for (const int key : {27, 127, 9, 1}) {
        Dialog().Text1_KeyPress(key);
    }
    EXPECT_EQ(Dialog().Stellen(), 0);
}

TEST_F(F11_Laden, return_with_fewer_than_six_characters_does_nothing) {
    Open();
    Type("12345");
    Dialog().Text1_KeyPress(13);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_EQ(Dialog().Stellen(), 5);
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F11_Laden, return_with_six_characters_is_the_ok_button) {
    Open();
    Type("123456\r");
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
}

struct CodeCase {
    const char* Keys;
    AdminCodeBytes Code;
};

void PrintTo(const CodeCase& c, std::ostream* out) {
    *out << c.Keys;
}

struct F11_Code : F11_Laden, ::testing::WithParamInterface<CodeCase> {};

TEST_P(F11_Code, goes_by_the_keypad_passes_over_other_keys_and_packs_a_zero_as_A) {
    Open();
    Type(GetParam().Keys);
    Dialog().OK_Click();
    EXPECT_EQ(Lauf().Order.AdminCode, GetParam().Code);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, F11_Code,
    ::testing::Values(CodeCase{"000000", {0xAA, 0xAA, 0xAA}}, CodeCase{"190909", {0x19, 0xA9, 0xA9}},
                      CodeCase{"ADGJMP", {0x23, 0x45, 0x67}}, CodeCase{"TWacfi", {0x89, 0x22, 0x34}},
                      CodeCase{"losvzZ", {0x56, 0x78, 0x99}}, CodeCase{"+,-.:;", {0x11, 0x11, 0xAA}},
                      CodeCase{"_1_2_3", {0xA1, 0xA2, 0xA3}}, CodeCase{"#7\xE4 (8)9;:_", {0x78, 0x9A, 0xAA}}));

// ---- patience with silent locks

TEST_F(F11_Laden, asks_how_long_a_list_waits_for_a_silent_lock_and_offers_a_minute_first) {
    Lauf().List.RunRows = 2;
    Open();
    EXPECT_TRUE(Dialog().Geduld.Visible);
    EXPECT_TRUE(Dialog().GeduldText.Visible);
    EXPECT_EQ(Dialog().GeduldText.Text(), "Stummes Schloss aufgeben nach");
    EXPECT_THAT(Dialog().Geduld.Entries(), ElementsAre("30 s", "60 s", "120 s", "300 s", "600 s", "nie"));
    EXPECT_EQ(Dialog().Geduld.Selected, 1);
    EXPECT_EQ(Dialog().Geduld_Sekunden(), 60);
    Dialog().Geduld.Selected = 5;
    EXPECT_EQ(Dialog().Geduld_Sekunden(), 0);
    Dialog().Geduld.Selected = -1;
    EXPECT_EQ(Dialog().Geduld_Sekunden(), 60);
    Open();
    EXPECT_EQ(Dialog().Geduld.Selected, 1);
}

TEST_F(F11_Laden, does_not_ask_so_for_a_single_lock) {
    Open();
    EXPECT_FALSE(Dialog().Geduld.Visible);
    EXPECT_FALSE(Dialog().GeduldText.Visible);
}

} // namespace
} // namespace qvm::test
