// OK and cancel of the start dialog, by the three routes.

#include "FensterFixture.h"

namespace qvm::test {
namespace {

struct F11_OK : FensterFixture {
    std::vector<std::string> Calls;

    F11_OK() {
        SettledLock(1, "Tor");
        SettledLock(2, "Keller");
    }
    void Open() {
        Begin();
        programm->Transfer->F11.Antworttabelle_Leeren = [this] { Calls.emplace_back("answers"); };
        programm->Transfer->F11.Liste_Starten = [this] { Calls.emplace_back("list"); };
        programm->Transfer->F11.Netzlauf_Starten = [this] { Calls.emplace_back("network"); };
    }
    void OpenHistory() {
        Expect(65);
        Click(1, F13Column::History);
    }
    void Ok(std::string_view code = "123456") {
        Type(code);
        programm->Transfer->F11.OK_Click();
    }
    F11& Dialog() { return programm->Transfer->F11; }
};

// ---- direct route

TEST_F(F11_OK, sends_the_login_and_shows_the_progress_window_with_the_locks_name) {
    Open();
    OpenStart();
    Ok();
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
    EXPECT_EQ(Lauf().Order.AdminCode, (AdminCodeBytes{0x12, 0x34, 0x56}));
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_EQ(programm->Transfer->F9.Fenster.Title(), "Tor");
    EXPECT_EQ(programm->Transfer->F9.NameLabel.Text(), "Tor");
    EXPECT_FALSE(programm->Transfer->F18.Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_THAT(Calls, ElementsAre("answers"));
}

TEST_F(F11_OK, clears_the_entry_when_the_code_is_taken) {
    Open();
    OpenStart();
    Ok();
    EXPECT_EQ(Dialog().Stellen(), 0);
    EXPECT_EQ(Dialog().Text1.Text(), "");
}

TEST_F(F11_OK, shows_the_wait_box_instead_while_channels_are_searched) {
    files.Channel(1, "7", "3", "1");
    Open();
    OpenStart();
    Ok();
    EXPECT_TRUE(programm->Transfer->F18.Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
}

TEST_F(F11_OK, clears_the_X_of_the_locks_row_and_of_no_other) {
    Open();
    Click(2, F13Column::Mark);
    OpenStart(1);
    EXPECT_EQ(Mark(1), "X");
    Ok();
    EXPECT_EQ(Mark(1), "");
    EXPECT_EQ(Mark(2), "X");
}

TEST_F(F11_OK, with_fewer_than_six_characters_says_so_and_clears_the_entry) {
    Open();
    OpenStart();
    Expect(61);
    Ok("12345");
    EXPECT_EQ(Dialog().Stellen(), 0);
    EXPECT_EQ(Dialog().Text1.Text(), "");
    EXPECT_EQ(Dialog().Anzahl.Text(), "0");
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_THAT(world.Written, IsEmpty());
    EXPECT_EQ(Mark(1), ""); // cleared before the code is looked at
    EXPECT_EQ(world.Shown.back().Title, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(world.Shown.back().Choice, Buttons::Ok);
}

TEST_F(F11_OK, can_be_tried_again_after_a_short_code) {
    Open();
    OpenStart();
    Expect(61);
    Ok("");
    Ok("654321");
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
    EXPECT_EQ(Lauf().Order.AdminCode, (AdminCodeBytes{0x65, 0x43, 0x21}));
}

TEST_F(F11_OK, hands_the_run_the_cut_off_date_that_was_picked) {
    Open();
    OpenHistory();
    Dialog().Datum_Waehlen({.Year = 2026, .Month = 1, .Day = 31});
    Ok();
    EXPECT_EQ(Lauf().Order.HistoryCutoff, "31.01.2026");
}

TEST_F(F11_OK, takes_the_erase_option_from_the_check_box) {
    Open();
    OpenStart();
    Lauf().Order.EraseOption = 1;
    Ok();
    EXPECT_EQ(Lauf().Order.EraseOption, 0);

    programm->Transfer->F9.Command1_Click();
    programm->Transfer->F9.Command2_Click();
    OpenStart();
    Dialog().Check1.Checked = false;
    Ok();
    EXPECT_EQ(Lauf().Order.EraseOption, 1);
}

TEST_F(F11_OK, clears_the_last_status_text) {
    Open();
    programm->Transfer->F9.StatusLabel.Text = std::string("L110");
    OpenStart();
    Ok();
    EXPECT_EQ(programm->Transfer->F9.StatusLabel.Text(), "");
}

TEST_F(F11_OK, reopens_the_links_port) {
    Open();
    OpenStart();
    const int opens = world.Opens;
    const int closes = world.Closes;
    Ok();
    EXPECT_EQ(world.Closes, closes + 1);
    EXPECT_EQ(world.Opens, opens + 1);
    EXPECT_EQ(world.PortNumber, 5);
    EXPECT_TRUE(world.Rts);
}

TEST_F(F11_OK, without_a_port_sends_nothing_and_ends_the_run) {
    Open();
    OpenStart();
    world.PortCanOpen = false;
    Ok();
    EXPECT_THAT(world.Written, IsEmpty());
    EXPECT_TRUE(programm->Run.Gesamtende);
    EXPECT_EQ(programm->Run.Bericht.End, RunOutcome::NoPort);
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
    programm->Transfer->F9.Command2_Click();
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
}

TEST_F(F11_OK, without_a_port_the_report_says_why_in_the_language_in_use) {
    Open();
    programm->kern.Sprache.LanguageText[295] = u8"%1 wird gerade vom Systemdienst %2 geprüft."_w;
    OpenStart();
    world.PortCanOpen = false;
    world.PortFaultNow = PortFault{.What = PortFault::Kind::HeldByService, .Device = "ttyUSB0", .Detail = "brltty"};
    Ok();
    EXPECT_EQ(programm->Run.Bericht.Text, u8"ttyUSB0 wird gerade vom Systemdienst brltty geprüft."_w);
}

// ---- the first bar's maximum

struct BarCase {
    int Users;
    int Maximum;
};

void PrintTo(const BarCase& c, std::ostream* out) {
    *out << c.Users << " users";
}

struct F11_Balken : F11_OK, ::testing::WithParamInterface<BarCase> {};

TEST_P(F11_Balken, is_the_datasets_total_plus_20_above_30_and_else_160) {
    for (int user = 1; user <= GetParam().Users; ++user) {
        files.User(user, {.Name = "U" + std::to_string(user), .Marks = {{1, 'X'}}});
    }
    Open();
    OpenStart();
    Ok();
    EXPECT_EQ(Lauf().Progress.ProgressMaximum, GetParam().Maximum);
}

// A dataset counts 20 and 8 a user.
INSTANTIATE_TEST_SUITE_P(Datasets, F11_Balken,
                         ::testing::Values(BarCase{0, 160}, BarCase{1, 160}, BarCase{2, 56}, BarCase{10, 120}));

TEST_F(F11_OK, a_history_has_4020_on_the_first_bar) {
    Open();
    OpenHistory();
    Ok();
    EXPECT_EQ(Lauf().Progress.ProgressMaximum, 4020);
}

TEST_F(F11_OK, a_history_after_a_programming_has_4020_and_the_other_way_round_160) {
    Open();
    OpenStart();
    Dialog().Cancel_Click();
    OpenHistory();
    Dialog().Cancel_Click();
    OpenStart();
    Ok();
    EXPECT_EQ(Lauf().Progress.ProgressMaximum, 160);
}

TEST_F(F11_OK, the_bars_begin_anew) {
    Open();
    Lauf().Progress.TelegramCounter = 77;
    Lauf().Progress.SecondProgress = 20;
    OpenStart();
    Ok();
    EXPECT_EQ(Lauf().Progress.ProgressValue, 1);        // the login
    EXPECT_EQ(programm->Transfer->F9.Balken1.Value, 0); // not acknowledged
    EXPECT_EQ(programm->Transfer->F9.Balken2.Value, 4);
}

// ---- adapters

struct F11_Adapter : F11_OK {
    std::vector<std::string> Tested;
    bool Network = false;

    void OpenAdapters() {
        Config("SET", 3, 5);
        Start();
        AddAdapter("/1/2/3/4", "PROGSTATION-A", "7");
        AddAdapter("/5/6/7/8", "PROGSTATION-B", "9");
        programm->Adapter.Saetze[0].TransferKey.fill(0xA1);
        programm->Adapter.Saetze[1].TransferKey.fill(0xB2);
        std::string& record = files.File("LOCKCLASSCOMX.CMB");
        record.assign(std::size_t{48} * 200, ' ');
        record.replace(0, 8, "/1/2/3/4");
        record.replace(16, 13, "PROGSTATION-A");
        Open();
        programm->Transfer->F11.Adapter_Test = [this](const AdapterSatz& adapter) {
            Tested.push_back(adapter.Adresse);
            return Network;
        };
    }
};

TEST_F(F11_Adapter, of_the_lock_is_preselected_and_gives_port_and_transfer_key) {
    OpenAdapters();
    OpenStart();
    EXPECT_EQ(Dialog().Combo1.Selected, 0);
    Ok();
    EXPECT_EQ(world.PortNumber, 7);
    EXPECT_THAT(Lauf().SitzungsSchluessel.Bytes(), ::testing::Each(0xA1));
    EXPECT_THAT(Tested, ElementsAre("/1/2/3/4"));
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
}

TEST_F(F11_Adapter, chosen_by_hand_gives_port_and_transfer_key) {
    OpenAdapters();
    OpenStart();
    Dialog().Combo1.Selected = 1;
    Ok();
    EXPECT_EQ(world.PortNumber, 9);
    EXPECT_EQ(programm->link.PortNummer, 9);
    EXPECT_THAT(Lauf().SitzungsSchluessel.Bytes(), ::testing::Each(0xB2));
    EXPECT_THAT(Tested, ElementsAre("/5/6/7/8"));
}

TEST_F(F11_Adapter, of_a_changed_address_is_preselected_by_its_name) {
    OpenAdapters();
    programm->Adapter.Saetze[0].Adresse = "/4/3/2/1";
    OpenStart();
    EXPECT_EQ(Dialog().Combo1.Selected, 0);
}

TEST_F(F11_Adapter, that_nobody_chose_leaves_the_port_of_the_click) {
    OpenAdapters();
    OpenStart();
    Dialog().Combo1.Selected = -1;
    Ok();
    EXPECT_EQ(world.PortNumber, 7);
    EXPECT_THAT(Tested, IsEmpty());
}

TEST_F(F11_Adapter, is_not_looked_at_without_the_adapter_mode) {
    OpenAdapters();
    programm->kern.Config.PortAutomatik = "RESET";
    OpenStart();
    Dialog().Combo1.Selected = 1;
    const int port = world.PortNumber;
    Ok();
    EXPECT_EQ(world.PortNumber, port);
    EXPECT_THAT(Tested, IsEmpty());
}

TEST_F(F11_Adapter, of_the_network_takes_the_network_route) {
    OpenAdapters();
    Network = true;
    OpenStart();
    Ok();
    EXPECT_THAT(Calls, ElementsAre("network"));
    EXPECT_EQ(Lauf().List.Wish.AdminCode, (AdminCodeBytes{0x12, 0x34, 0x56}));
    EXPECT_EQ(Lauf().List.NetMode, 0);
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_THAT(world.Written, IsEmpty());
    EXPECT_EQ(Mark(1), "X"); // the direct route alone clears it
}

TEST_F(F11_Adapter, of_the_network_reads_a_history_in_net_mode_0x80) {
    OpenAdapters();
    Network = true;
    OpenHistory();
    Ok();
    EXPECT_THAT(Calls, ElementsAre("network"));
    EXPECT_EQ(Lauf().List.NetMode, 0x80);
}

TEST_F(F11_Adapter, of_the_network_needs_six_characters_too) {
    OpenAdapters();
    Network = true;
    OpenHistory();
    Expect(61);
    Ok("123");
    EXPECT_THAT(Calls, IsEmpty());
    EXPECT_EQ(Lauf().List.NetMode, 0);
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_EQ(Dialog().Stellen(), 0);
}

TEST_F(F11_Adapter, hands_a_scan_its_port_and_code_be_it_of_the_network_or_not) {
    OpenAdapters();
    std::vector<RunOrder> scans;
    Dialog().Suche_Beauftragt = [&scans](const RunOrder& order) { scans.push_back(order); };
    for (const bool network : {true, false}) {
        Network = network;
        scans.clear();
        Dialog().F11_Laden(F11Opener::F20, "/1/2/3/4");
        Ok();
        ASSERT_EQ(scans.size(), 1U);
        EXPECT_EQ(scans[0].AdminCode, (AdminCodeBytes{0x12, 0x34, 0x56}));
        EXPECT_EQ(world.PortNumber, 7);
        EXPECT_FALSE(Dialog().Fenster.Visible);
        EXPECT_EQ(Dialog().Stellen(), 0);
        EXPECT_THAT(Calls, IsEmpty()) << "no run begins";
    }
    EXPECT_THAT(world.Written, IsEmpty());
}

// ---- list route

struct F11_Liste : F11_OK {
    void OpenList() {
        Open();
        Click(1, F13Column::Mark);
        Expect(63, Answer::No);
        Expect(269, Answer::No);
        programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
    }
};

TEST_F(F11_Liste, hands_over_to_the_list_and_hides_both_windows) {
    OpenList();
    const int opens = world.Opens;
    Ok("987654");
    EXPECT_THAT(Calls, ElementsAre("list"));
    EXPECT_EQ(Lauf().List.Wish.AdminCode, (AdminCodeBytes{0x98, 0x76, 0x54}));
    EXPECT_EQ(Lauf().List.Wish.EraseOption, 0);
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_EQ(world.Opens, opens);
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F11_Liste, takes_the_erase_option_from_the_check_box) {
    OpenList();
    Dialog().Check1.Checked = false;
    Ok();
    EXPECT_EQ(Lauf().List.Wish.EraseOption, 1);
}

TEST_F(F11_Liste, does_not_begin_with_fewer_than_six_characters) {
    OpenList();
    Expect(61);
    Ok("12345");
    EXPECT_THAT(Calls, IsEmpty());
    EXPECT_TRUE(Dialog().Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Visible);
    EXPECT_EQ(Dialog().Stellen(), 0);
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F11_Liste, that_was_cancelled_does_not_stick_to_the_next_click) {
    OpenList();
    Dialog().Cancel_Click();
    EXPECT_EQ(programm->link.Lauf.List.RunRows, 0);
    OpenStart(2);
    Ok();
    EXPECT_THAT(Calls, ElementsAre("answers"));
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
}

// ---- cancel

TEST_F(F11_OK, cancel_clears_the_entry_and_gives_the_grid_back) {
    Open();
    OpenStart();
    Type("123");
    Dialog().Cancel_Click();
    EXPECT_EQ(Dialog().Stellen(), 0);
    EXPECT_FALSE(Dialog().Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F11_OK, cancel_returns_to_whichever_window_opened_it) {
    Open();
    int grid = 0, others = 0;
    Dialog().Zurueck = [&grid] { ++grid; };
    Dialog().Suche_Verworfen = [&others] { ++others; };
    Dialog().Cancel_Click();
    EXPECT_EQ(grid * 10 + others, 10);
    for (const F11Opener opener : {F11Opener::F12, F11Opener::F20}) {
        others = 0;
        Dialog().F11_Laden(opener, "");
        Dialog().Cancel_Click();
        EXPECT_EQ(grid * 10 + others, 11);
    }
}

} // namespace
} // namespace qvm::test
