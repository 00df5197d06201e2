// What the main window tells of adapter and installation, and the keys that rest during a search.

#include "F2Fixture.h"
#include "Text.h"

#include <algorithm>
#include <utility>

namespace qvm::test {
namespace {

using Angabe = F2::Angabe;

struct F2_Uebersicht : F2Fixture {
    static constexpr const char* Locks = "/q/DAT/C64UX12H3D.EBW";
    static constexpr const char* Channels = "/q/DAT/RFCHANDIF12.RFX";
    static constexpr const char* Users = "/q/DAT/BX10X52WUJ9.UBW";

    /// Files that cannot be read from now on.
    std::vector<std::string> Broken;
    int Reads = 0; ///< of the file of locks

    F2_Uebersicht() {
        SettledLock(1, "Tor");
        SettledLock(2, "Keller", "00.0A.10.02");
        files.Channel(2, "3", "4", "1");
        SettledLock(7, "Dach", "00.0A.10.07");
        files.Channel(7, "3", "4", "1");
        files.Lock(8, "ohne Seriennummer", "           ");
        files.Channel(8, "3", "4", "1");
        files.User(1, {.Name = "Anna"});
        files.User(2, {.Name = "Bert"});
        files.User(200, {.Name = "Carla"});
        const auto read = world.World.Files.ReadAll;
        world.World.Files.ReadAll = [this, read](const std::string& path, std::string& bytes) {
            Reads += path == Locks ? 1 : 0;
            return std::find(Broken.begin(), Broken.end(), path) == Broken.end() ? read(path, bytes)
                                                                                 : ReadStatus::Error;
        };
    }
    std::string Text(Angabe which) { return Main().Zeile(which).Text; }
    std::string Tip(Angabe which) { return Main().Zeile(which).Tip; }
    bool Leads(Angabe which) { return Main().Zeile(which).Leads; }
};

// ---- facts

TEST_F(F2_Uebersicht, tells_adapter_port_channel_people_locks_and_what_waits_for_its_channel) {
    Connect();
    EXPECT_EQ(Text(Angabe::Adapter), "PROGSTATION (/10/20/30/40)");
    EXPECT_EQ(Text(Angabe::Anschluss), "COM5");
    EXPECT_EQ(Text(Angabe::Funkkanal), "3");
    EXPECT_EQ(Text(Angabe::Personen), "3");
    EXPECT_EQ(Text(Angabe::Schloesser), "3"); // without a serial none can be programmed
    EXPECT_EQ(Text(Angabe::Kanalwechsel), "2");
    EXPECT_EQ(Main().Zeile(Angabe::Adapter).Caption(), "Adapter");
    EXPECT_EQ(Main().Zeile(Angabe::Anschluss).Caption(), "L283");
    EXPECT_EQ(Main().Zeile(Angabe::Funkkanal).Caption(), "L35");
    EXPECT_EQ(Main().Zeile(Angabe::Kanalwechsel).Caption(), "Kanalwechsel offen");
    for (const Fact& fact : Main().Uebersicht) {
        EXPECT_EQ(fact.Tip(), "");
    }
}

TEST_F(F2_Uebersicht, of_an_empty_installation_there_is_nothing) {
    for (const char* file : {Locks, Channels, Users}) {
        world.Disk.Files.erase(file);
    }
    AdapterAnswers = false;
    Open();
    EXPECT_EQ(Text(Angabe::Adapter), "keiner");
    EXPECT_EQ(Text(Angabe::Personen), "0");
    EXPECT_EQ(Text(Angabe::Schloesser), "0");
    EXPECT_EQ(Text(Angabe::Kanalwechsel), "0");
}

TEST_F(F2_Uebersicht, a_file_that_cannot_be_read_is_a_question_mark_that_names_it) {
    Broken = {Locks, Users};
    Open();
    for (const Angabe which : {Angabe::Personen, Angabe::Schloesser, Angabe::Kanalwechsel}) {
        EXPECT_EQ(Text(which), "?");
    }
    EXPECT_EQ(Tip(Angabe::Personen),
              "Eine Datei kann nicht gelesen werden (BX10X52WUJ9.UBW). Was sie enth\xE4lt, fehlt hier.");
    EXPECT_EQ(Tip(Angabe::Schloesser),
              "Eine Datei kann nicht gelesen werden (C64UX12H3D.EBW). Was sie enth\xE4lt, fehlt hier.");
    Broken = {Channels};
    Main().Uebersicht_Lesen();
    EXPECT_EQ(Text(Angabe::Schloesser), "3");
    EXPECT_EQ(Tip(Angabe::Schloesser), "");
    EXPECT_EQ(Text(Angabe::Kanalwechsel), "?");
}

TEST_F(F2_Uebersicht, is_read_when_the_window_comes_back_and_by_no_timer) {
    Connect();
    NoteWindows();
    EXPECT_EQ(Reads, 1);
    world.RunFor(200000);
    EXPECT_EQ(Reads, 1);
    Press("Neu");
    files.Channel(1, "3", "4", "1");
    programm->kern.Config.RadioChannel = "4";
    world.RunFor(10000);
    EXPECT_EQ(Text(Angabe::Kanalwechsel), "2");
    Main().F2_Zeigen();
    EXPECT_EQ(Reads, 2);
    EXPECT_EQ(Text(Angabe::Kanalwechsel), "3");
    EXPECT_EQ(Text(Angabe::Funkkanal), "4");
}

TEST_F(F2_Uebersicht, an_adapter_pulled_out_is_gone_from_it_at_once) {
    Connect();
    world.AdapterPortNumbers.clear();
    world.PortCanOpen = false;
    world.PortChanged(PortChange::Removed);
    EXPECT_EQ(Text(Angabe::Adapter), "keiner");
    EXPECT_EQ(Text(Angabe::Anschluss), "keiner");
}

TEST_F(F2_Uebersicht, of_several_adapters_the_one_in_use_is_named_and_the_tip_names_all) {
    Connect();
    AddAdapter("/1/2/3/4", "PROGSTATION Hof", "6");
    Main().Uebersicht_Lesen();
    EXPECT_EQ(Text(Angabe::Adapter), "PROGSTATION (/10/20/30/40) + 1");
    EXPECT_EQ(Tip(Angabe::Adapter), "PROGSTATION (/10/20/30/40)\r\nPROGSTATION Hof (/1/2/3/4)");
}

TEST_F(F2_Uebersicht, names_the_device_where_the_system_has_no_com_ports) {
    world.World.PortDevice = [](int number) { return "/dev/ttyUSB" + std::to_string(number - 1); };
    Connect();
    EXPECT_EQ(Text(Angabe::Anschluss), "5: /dev/ttyUSB4");
}

TEST_F(F2_Uebersicht, a_click_leads_to_the_window_of_a_fact) {
    Connect();
    NoteWindows();
    Main().Tasten_Freigeben();
    const std::pair<Angabe, const char*> ways[] = {{Angabe::Adapter, "F6"},     {Angabe::Anschluss, "F6"},
                                                   {Angabe::Funkkanal, "F14"},  {Angabe::Personen, "F5"},
                                                   {Angabe::Schloesser, "F13"}, {Angabe::Kanalwechsel, "F13"}};
    for (const auto& [which, window] : ways) {
        Opened.clear();
        EXPECT_TRUE(Leads(which)) << window;
        Main().Angabe_Click(which);
        EXPECT_THAT(Opened, ElementsAre(window));
        Main().F2_Zeigen();
    }
}

TEST_F(F2_Uebersicht, a_fact_whose_window_does_not_exist_leads_nowhere) {
    Connect();
    programm->kern.Windows.Open.erase("F5");
    Main().Tasten_Freigeben();
    EXPECT_FALSE(Leads(Angabe::Personen));
    EXPECT_TRUE(Leads(Angabe::Schloesser));
    Main().Angabe_Click(Angabe::Personen);
    EXPECT_TRUE(Main().Fenster.Visible);
    EXPECT_TRUE(Main().Fenster.Enabled);
}

TEST_F(F2_Uebersicht, without_an_adapter_the_channel_and_the_locks_say_so_as_their_keys_do) {
    AdapterAnswers = false;
    Open();
    NoteWindows();
    ASSERT_TRUE(ScanEnds());
    for (const Angabe which : {Angabe::Funkkanal, Angabe::Schloesser}) {
        Expect(91);
        Main().Angabe_Click(which);
    }
    EXPECT_THAT(Opened, IsEmpty());
    EXPECT_EQ(world.Shown.size(), 2U);
}

// ---- keys that rest

TEST_F(F2_Uebersicht, a_search_that_takes_its_time_says_at_each_key_why_it_does_nothing) {
    AdapterAnswers = false;
    Open();
    int looked = 0;
    InNextScan(
        [&] {
            ++looked;
            EXPECT_EQ(Main().Suchzeile.Text(), "");
            EXPECT_EQ(Key("PROG").Warum(), "");
        },
        299);
    world.At(200 + 301, [&] {
        ++looked;
        const std::string why =
            AusUtf8("Der Funkadapter wird gesucht. Die Schaltflächen sind verfügbar, sobald die Suche beendet ist.");
        EXPECT_EQ(Main().ScanLaeuft, 1);
        EXPECT_EQ(Main().Suchzeile.Text(), why);
        for (const char* key : {"Ende", "PROG", "Neu", "EYE"}) {
            EXPECT_EQ(Key(key).Warum(), why);
            EXPECT_TRUE(Key(key).Enabled); // the keyboard may rest on it
        }
        EXPECT_EQ(Main().Zeile(Angabe::Schloesser).Warum(), why);
        EXPECT_EQ(Main().Zeile(Angabe::Anschluss).Warum(), ""); // its window waits for the end of the search
    });
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(looked, 2);
    EXPECT_EQ(Main().Suchzeile.Text(), "");
    EXPECT_EQ(Key("PROG").Warum(), "");
    EXPECT_EQ(Main().Zeile(Angabe::Schloesser).Warum(), "");
}

TEST_F(F2_Uebersicht, the_search_that_finds_a_good_adapter_at_once_is_not_told) {
    Connect();
    int told = 0;
    Main().Suchzeile.Text.Changed = [&] { ++told; };
    Key("PROG").Warum.Changed = [&] { ++told; };
    for (int n = 0; n < 5; ++n) {
        ASSERT_TRUE(ScanEnds());
    }
    world.RunFor(1000);
    EXPECT_EQ(told, 0);
    Main().Suchzeile.Text.Changed = {};
    Key("PROG").Warum.Changed = {};
}

// ---- the latest histories

struct F2_Historien : F2_Uebersicht {
    void History(const std::string& name) { world.Disk.Files["/q/HIST/" + name] = "00.0A.10.01\r\n"; }
    std::vector<std::string> Entries() {
        std::vector<std::string> texts;
        for (const MenuEntry& entry : Main().Historien) {
            if (!entry.Text().empty()) {
                texts.push_back(entry.Text);
            }
        }
        return texts;
    }
};

TEST_F(F2_Historien, stand_with_lock_and_date_the_newest_first) {
    History("H_20260104_083000_Tor.HST");
    History("H_20260305_170159_T\xC3\xBCr_Hof.HST");
    History("H_20251231_235959_Keller.HST");
    Open();
    Main().Historien_Lesen();
    EXPECT_THAT(Entries(), ElementsAre("1  T\xFCr_Hof, 05.03.2026 17:01", "2  Tor, 04.01.2026 08:30",
                                       "3  Keller, 31.12.2025 23:59"));
}

TEST_F(F2_Historien, are_ten_at_most_and_a_name_that_tells_no_lock_or_no_date_is_left_out) {
    for (int day = 10; day < 22; ++day) {
        History("H_202602" + std::to_string(day) + "_120000_Tor.HST");
    }
    for (const char* name : {"H_20260230_120000_Tor.HST", "H_20260228_250000_Tor.HST", "H_20260228_126000_Tor.HST",
                             "H_20260228_120000_.HST", "H_2026022x_120000_Tor.HST", "Kopie.HST", "H_.HST",
                             "H_20260228_120000_LOCK.txt", "H_20260228-120000-Tor.HST"}) {
        History(name);
    }
    Open();
    Main().Historien_Lesen();
    const std::vector<std::string> entries = Entries();
    ASSERT_EQ(entries.size(), 10U);
    EXPECT_EQ(entries.front(), "1  Tor, 21.02.2026 12:00");
    EXPECT_EQ(entries.back(), "0  Tor, 12.02.2026 12:00");
}

TEST_F(F2_Historien, open_without_an_adapter_and_the_main_window_comes_back_behind_them) {
    AdapterAnswers = false;
    History("H_20260104_083000_Tor.HST");
    History("H_20260305_170159_Keller.HST");
    Open();
    ASSERT_TRUE(ScanEnds());
    Main().Historien_Lesen();
    Main().Historie_Click(1);
    EXPECT_TRUE(programm->History->F7.Fenster.Visible);
    EXPECT_FALSE(Main().Fenster.Visible);
    EXPECT_FALSE(Main().Timer2.Running());
    EXPECT_NE(programm->History->F7.Meldezeile.Text().find("H_20260104_083000_Tor.HST"), std::string::npos);
    EXPECT_THAT(world.Shown, IsEmpty());
    programm->History->F7.Toolbar1_ButtonClick("W95MBX01");
    EXPECT_TRUE(Main().Fenster.Visible);
    EXPECT_TRUE(Main().Timer2.Running());
}

TEST_F(F2_Historien, one_that_went_meanwhile_is_told_and_a_number_without_one_does_nothing) {
    History("H_20260104_083000_Tor.HST");
    Open();
    Main().Historie_Click(0); // not read yet
    Main().Historien_Lesen();
    Main().Historie_Click(1);
    Main().Historie_Click(10);
    EXPECT_FALSE(programm->History->F7.Fenster.Visible);
    world.Disk.Files.erase("/q/HIST/H_20260104_083000_Tor.HST");
    world.Answers.push_back({.Text = "L288 H_20260104_083000_Tor.HST"});
    Main().Historie_Click(0);
    EXPECT_TRUE(programm->History->F7.Fenster.Visible);
}

} // namespace
} // namespace qvm::test
