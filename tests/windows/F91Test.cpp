// The run list: its rows, words, buttons, label, and the steps that need no device.

#include "FensterFixture.h"
#include "Pictures.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct F91_Fenster : FensterFixture {
    F91_Fenster() {
        SettledLock(1, "Tor", SerialS, "X X X");
        SettledLock(2, "Keller", "00.0A.10.02");
        SettledLock(7, "Dach", "00.0A.10.07");
    }
    F91& List() { return programm->Transfer->F91; }
    void Open(const std::vector<int>& locks, Answer history = Answer::No, Answer delayed = Answer::No) {
        Begin();
        Prog(locks, history, delayed);
    }
    void Prog(const std::vector<int>& locks, Answer history = Answer::No, Answer delayed = Answer::No) {
        for (const int lock : locks) {
            programm->Transfer->F13.FGK13.SetText(lock, F13Column::Mark, "X");
        }
        Expect(63, history);
        Expect(269, delayed);
        programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
        Type("123456");
        programm->Transfer->F11.OK_Click();
    }
    std::string Mark(int row) { return List().FGK91.Text(row, F91Column::Mark); }
    std::string State(int row) { return List().FGK91.Text(row, F91Column::StateText); }
};

TEST_F(F91_Fenster, the_list_keys_of_the_lock_grid_live) {
    Begin();
    EXPECT_TRUE(programm->Transfer->F13.Toolbar1[1].Enabled);
    EXPECT_TRUE(programm->Transfer->F13.Toolbar1[2].Enabled);
}

TEST_F(F91_Fenster, takes_the_marked_rows_with_their_flags_and_adapters) {
    Begin();
    programm->Transfer->F13.FGK13.SetText(7, F13Column::AdapterId, "/1/2/3/4");
    programm->Transfer->F13.FGK13.SetText(7, F13Column::AdapterName, "PROGSTATION 2");
    Prog({1, 7});
    const Grid& list = List().FGK91;
    ASSERT_EQ(list.Rows(), 3);
    ASSERT_EQ(list.Columns(), 18);
    EXPECT_EQ(list.Text(1, 0), "1");
    EXPECT_EQ(list.Text(1, 1), "Tor");
    EXPECT_EQ(list.Text(1, 2), "00.0A.10.01");
    EXPECT_EQ(list.Text(1, 4), "X");
    EXPECT_EQ(list.Text(1, 5), "");
    EXPECT_EQ(list.Text(1, 8), "X");
    EXPECT_EQ(list.Text(1, 9), "");
    EXPECT_EQ(list.Text(1, 15), ""); // the mark stays behind
    EXPECT_EQ(list.Text(2, 0), "7");
    EXPECT_EQ(list.Text(2, 13), "/1/2/3/4");
    EXPECT_EQ(list.Text(2, 14), "PROGSTATION 2");
}

TEST_F(F91_Fenster, opens_alone_with_its_words) {
    Open({1});
    EXPECT_TRUE(List().Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F11.Fenster.Visible);
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Visible);
    EXPECT_EQ(List().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L11");
    EXPECT_EQ(List().FGK91.Text(0, 0), "L37");
    EXPECT_EQ(List().FGK91.Text(0, 1), "L9");
    EXPECT_EQ(List().FGK91.Text(0, 2), "L10");
    EXPECT_EQ(List().FGK91.Text(0, 16), "Prg");
    EXPECT_EQ(List().FGK91.Text(0, 17), "Status");
    EXPECT_EQ(List().Command1.Text(), "L119");
    EXPECT_EQ(List().Command2.Text(), "L83");
    EXPECT_FALSE(List().Balken.Visible);
    EXPECT_EQ(List().ProgStep, "PrgStart");
    EXPECT_EQ(List().Timer1.Interval(), 1000);
    EXPECT_TRUE(List().Timer1.Running());
    EXPECT_FALSE(List().Timer3.Running());
    EXPECT_FALSE(programm->Transfer->F92.Fenster.Visible);
}

TEST_F(F91_Fenster, an_entry_of_five_characters_opens_nothing) {
    Begin();
    programm->Transfer->F13.FGK13.SetText(1, F13Column::Mark, "X");
    Expect(63, Answer::No);
    Expect(269, Answer::No);
    programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
    Type("12345");
    Expect(61);
    programm->Transfer->F11.OK_Click();
    EXPECT_FALSE(List().Fenster.Visible);
    EXPECT_FALSE(List().Timer1.Running());
}

TEST_F(F91_Fenster, says_in_red_that_the_rows_are_checked) {
    Open({1, 2});
    world.RunFor(1001);
    EXPECT_EQ(List().StatusLabel.Text(), "L260");
    EXPECT_EQ(List().StatusLabel.ForeColor, 0x0000FFU);
    EXPECT_EQ(Mark(1), "*");
    EXPECT_EQ(State(1), "L259");
    world.RunUntil([this] { return List().Arbeit() != F91::Work::None; });
    EXPECT_EQ(Mark(2), "*");
    EXPECT_EQ(List().StatusLabel.ForeColor, Black);
}

TEST_F(F91_Fenster, a_direct_row_shows_the_progress_window_with_the_date_and_time_that_the_lock_gets) {
    Open({1});
    world.RunFor(2000);
    EXPECT_EQ(List().Arbeit(), F91::Work::Direct);
    EXPECT_TRUE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_EQ(programm->Transfer->F9.Fenster.Title(), "Tor");
    EXPECT_EQ(programm->Transfer->F9.DatumLabel.Text(), "L55 : 05.03.2026");
    EXPECT_EQ(programm->Transfer->F9.ZeitLabel.Text(), "L56 : 10:30:01");
    EXPECT_TRUE(programm->Transfer->F9.InListe);
    EXPECT_EQ(Lauf().Values.FlagSetClock, 1);
    EXPECT_EQ(Lauf().Chain.KanalSuche, 1);
    EXPECT_EQ(programm->link.TargetChannel, 3);
    EXPECT_THAT(SentCodes(), ElementsAre(0x04));
    EXPECT_FALSE(List().Command1.Enabled);
    EXPECT_TRUE(List().Command2.Enabled);
}

TEST_F(F91_Fenster, a_row_with_history_searches_no_channel) {
    Open({1}, Answer::Yes);
    world.RunFor(2000);
    EXPECT_EQ(List().Arbeit(), F91::Work::Direct);
    EXPECT_EQ(Lauf().Chain.KanalSuche, 0);
    EXPECT_EQ(Lauf().Chain.ReadHistoryFirst, 1);
    EXPECT_EQ(Lauf().Chain.HistoryOnly, 0);
    EXPECT_EQ(Lauf().List.NetMode, 0xFF);
}

TEST_F(F91_Fenster, close_asks_while_something_of_the_list_is_still_to_come) {
    Open({1, 2});
    for (const Answer stay : {Answer::No, Answer::Cancel}) {
        world.Answers.push_back(
            {.Text = AusUtf8("Die Liste ist noch nicht abgearbeitet. Wenn Sie das Fenster verlassen, "
                             "werden die übrigen Schlösser nicht mehr bearbeitet. Trotzdem "
                             "verlassen?"),
             .Reply = stay});
        List().Command1_Click();
        EXPECT_EQ(world.Shown.back().Choice, Buttons::YesNo);
        EXPECT_EQ(world.Shown.back().DefaultButton, 2);
        EXPECT_TRUE(List().Fenster.Visible);
        EXPECT_TRUE(List().Laeuft());
    }
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes});
    List().Command1_Click();
    EXPECT_FALSE(List().Fenster.Visible);
    EXPECT_FALSE(List().Laeuft());
    EXPECT_THAT(SentCodes(), IsEmpty());
}

TEST_F(F91_Fenster, begins_no_row_while_it_is_asked_whether_to_leave) {
    Open({1, 2});
    world.Answers.push_back({.Text = "*", .Reply = Answer::No, .AfterMs = 60000});
    List().Command1_Click();
    EXPECT_THAT(SentCodes(), IsEmpty());
    EXPECT_EQ(Mark(1), "");
    EXPECT_TRUE(world.RunUntil([this] { return List().Arbeit() == F91::Work::Direct; }, 5000));
}

TEST_F(F91_Fenster, a_list_whose_hour_comes_during_the_question_waits_for_the_answer) {
    Open({1}, Answer::No, Answer::Yes);
    programm->Transfer->F92.Zeit_Waehlen(10, 31);
    programm->Transfer->F92.OK_Click();
    world.RunFor(20000);
    ASSERT_TRUE(List().RestLabel.Visible);
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes, .AfterMs = 600000});
    List().Command1_Click();
    EXPECT_FALSE(List().Fenster.Visible);
    EXPECT_THAT(SentCodes(), IsEmpty());
}

TEST_F(F91_Fenster, close_behind_the_end_of_a_list_asks_nothing) {
    Open({1});
    List().Command2_Click();
    world.Shown.clear();
    List().Command1_Click();
    EXPECT_FALSE(List().Fenster.Visible);
    EXPECT_THAT(world.Shown, IsEmpty());
}

TEST_F(F91_Fenster, passes_over_a_row_whose_adapter_is_unknown_after_a_second) {
    Config("SET", 3, 5);
    Begin();
    AddAdapter("/10/20/30/40", "PROGSTATION 1", "5");
    programm->Transfer->F13.FGK13.SetText(2, F13Column::AdapterId, "/10/20/30/40");
    Prog({1, 2});
    world.RunUntil([this] { return Mark(1) == "-"; });
    EXPECT_EQ(State(1), "L262");
    EXPECT_EQ(List().ProgStep, "PrgFehler");
    EXPECT_EQ(List().Timer1.Interval(), 1000);
    EXPECT_EQ(Lauf().List.RunRow, 2);
    EXPECT_EQ(List().StandLabel.Text(), u8"0 erledigt, 1 gescheitert oder übersprungen"_w);
    world.RunFor(1100);
    EXPECT_EQ(List().Arbeit(), F91::Work::Direct);
    EXPECT_EQ(world.PortNumber, 5);
}

TEST_F(F91_Fenster, a_port_above_15_has_the_words_that_the_lock_grid_has_for_it) {
    Config("SET", 3, 5);
    Begin();
    AddAdapter("/10/20/30/40", "PROGSTATION 1", "16");
    programm->Transfer->F13.FGK13.SetText(1, F13Column::AdapterId, "/10/20/30/40");
    Prog({1});
    world.RunUntil([this] { return Mark(1) == "-"; });
    EXPECT_EQ(State(1), "L194");
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F91_Fenster, finds_the_adapter_by_its_name_too) {
    Config("SET", 3, 5);
    Begin();
    AddAdapter("/10/20/30/40", "PROGSTATION 1", "6");
    programm->Transfer->F13.FGK13.SetText(1, F13Column::AdapterName, "PROGSTATION 1");
    Prog({1});
    world.RunFor(2000);
    EXPECT_EQ(List().Arbeit(), F91::Work::Direct);
    EXPECT_EQ(world.PortNumber, 6);
}

TEST_F(F91_Fenster, a_network_row_begins_its_blocks_after_two_seconds) {
    Config("SET", 3, 5);
    Begin();
    AddAdapter("/3/224/0/1", "NETZ", "4");
    programm->Adapter.Saetze[0].TransferKey[3] = 0x77;
    programm->Transfer->F13.FGK13.SetText(1, F13Column::AdapterId, "/3/224/0/1");
    Prog({1});
    world.RunUntil([this] { return List().Arbeit() != F91::Work::None; });
    EXPECT_EQ(List().Arbeit(), F91::Work::Network);
    EXPECT_EQ(List().ProgStep, "TxDNetzwDaten");
    EXPECT_EQ(List().Timer1.Interval(), 2000);
    EXPECT_EQ(programm->Netz.TransferKey[3], 0x77);
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
    EXPECT_EQ(world.PortNumber, 4);
    EXPECT_THAT(world.Written, IsEmpty());
    const std::int64_t begun = world.Elapsed();
    std::vector<std::int64_t> sent;
    // The telegram goes out in two writes, the second behind its first byte.
    world.OnWrite = [&](std::span<const std::uint8_t>) {
        sent.push_back(world.Elapsed() - begun);
        EXPECT_EQ(List().StatusLabel.Text(), "L81");
        EXPECT_TRUE(List().Balken.Visible);
        EXPECT_EQ(List().Balken.Maximum, 38);
        EXPECT_EQ(List().Balken.Value, 6);
    };
    world.RunFor(2100);
    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent.front(), 2000);
}

TEST_F(F91_Fenster, the_label_blinks_every_800_ms_and_is_seen_at_the_end) {
    Open({1});
    List().Blinken(true);
    EXPECT_TRUE(List().StatusLabel.Visible);
    world.RunFor(801);
    EXPECT_FALSE(List().StatusLabel.Visible);
    world.RunFor(800);
    EXPECT_TRUE(List().StatusLabel.Visible);
    world.RunFor(800);
    List().Blinken(false);
    EXPECT_TRUE(List().StatusLabel.Visible);
    world.RunFor(2000);
    EXPECT_TRUE(List().StatusLabel.Visible);
}

TEST_F(F91_Fenster, takes_other_words_while_it_is_open) {
    Open({1});
    List().Status_Zeigen(264, 81);
    EXPECT_EQ(List().StatusLabel.Text(), "L264. L81");
    world.Disk.Files["/q/QVM_English.DAT"] = [] {
        std::string words;
        for (int line = 1; line <= 300; ++line) {
            words += "E" + std::to_string(line) + "\r\n";
        }
        return words;
    }();
    programm->kern.Config.Sprache = "English";
    Sprachdatei_Laden(programm->kern);
    programm->kern.Windows.WordsChanged();
    EXPECT_EQ(List().StatusLabel.Text(), "E264. E81");
    EXPECT_EQ(List().Command1.Text(), "E119");
    EXPECT_EQ(List().FGK91.Text(0, 1), "E9");
    EXPECT_EQ(List().FGK91.Text(1, 1), "Tor");
}

TEST_F(F91_Fenster, a_mark_or_a_next_row_without_a_row_under_way_changes_nothing) {
    Open({1, 2});
    world.RunFor(1100);
    List().Stoppen();
    EXPECT_EQ(Mark(1), "#");
    EXPECT_EQ(State(1), "L82");
    List().Zeile_Markieren(">>", {.End = RunOutcome::Done, .Text = "x"});
    List().Naechste_Zeile("PrgNextDataset");
    EXPECT_EQ(Mark(1), "#");
    EXPECT_EQ(State(1), "L82");
    EXPECT_EQ(Lauf().List.RunRow, 1);
    EXPECT_FALSE(List().Timer1.Running());
}

TEST_F(F91_Fenster, a_row_that_failed_bears_a_sign_and_a_colour_and_no_other_row_does) {
    Open({1, 2});
    world.RunFor(1100);
    EXPECT_EQ(List().FGK91.At(1, F91Column::StateText).Picture, ListPicture::None);
    List().Zeile_Aufgeben();
    EXPECT_EQ(Mark(1), "#");
    EXPECT_EQ(List().FGK91.At(1, F91Column::StateText).Picture, ListPicture::Failed);
    EXPECT_EQ(List().FGK91.At(1, F91Column::Mark).BackColor, 0xC0C0FFU);
    EXPECT_EQ(List().FGK91.At(1, F91Column::StateText).BackColor, 0xC0C0FFU);
    EXPECT_EQ(List().FGK91.At(1, F91Column::Name).BackColor, White);
    world.RunFor(3100);
    List().Zeile_Markieren(">>", {.End = RunOutcome::Done, .Text = "L266"});
    EXPECT_EQ(List().FGK91.At(2, F91Column::StateText).Picture, ListPicture::None);
    EXPECT_EQ(List().FGK91.At(2, F91Column::Mark).BackColor, White);
    EXPECT_EQ(List().FGK91.At(2, F91Column::StateText).BackColor, White);
}

TEST_F(F91_Fenster, a_failed_row_that_is_marked_anew_loses_sign_and_colour) {
    Open({1});
    world.RunFor(1100);
    List().Zeile_Markieren("#", {.End = RunOutcome::NotReached, .Text = "L66"});
    List().Zeile_Markieren("<<", {.End = RunOutcome::Done, .Text = "L263"});
    EXPECT_EQ(List().FGK91.At(1, F91Column::StateText).Picture, ListPicture::None);
    EXPECT_EQ(List().FGK91.At(1, F91Column::Mark).BackColor, White);
}

TEST_F(F91_Fenster, explains_its_marks_in_the_language_in_use) {
    Begin();
    Kern& kern = programm->kern;
    kern.Config.Sprache = "Deutsch";
    EXPECT_EQ(Marken_Legende(kern), u8"*   wartet\n"
                                    u8"-   übersprungen, der Grund steht daneben\n"
                                    u8">>   programmiert\n"
                                    u8"<<   Historie gelesen\n"
                                    u8"#   fehlgeschlagen, der Grund steht daneben"_w);
    kern.Config.Sprache = "English";
    EXPECT_EQ(Marke_Erklaeren(kern, "#"), "failed, the reason is given beside it");
    EXPECT_EQ(Marke_Erklaeren(kern, "<<"), "history read");
    EXPECT_EQ(Marke_Erklaeren(kern, ""), "");
    EXPECT_EQ(Marke_Erklaeren(kern, "x"), "");
}

TEST_F(F91_Fenster, the_progress_window_has_nothing_to_cancel_between_two_rows) {
    Open({1, 2});
    world.RunFor(1100);
    List().Zeile_Aufgeben();
    EXPECT_EQ(List().Arbeit(), F91::Work::None);
    programm->Transfer->F9.Command1_Click();
    EXPECT_FALSE(programm->Transfer->F9.Command2.Enabled);
    EXPECT_NE(programm->Transfer->F9.StatusLabel.Text(), "L82");
    world.RunFor(3100);
    EXPECT_EQ(Mark(1), "#");
    EXPECT_EQ(Lauf().List.RunRow, 2);
    EXPECT_EQ(List().Arbeit(), F91::Work::Direct);
    EXPECT_TRUE(programm->Transfer->F9.Command1.Enabled);
}

TEST_F(F91_Fenster, closing_goes_back_to_the_main_window_with_an_empty_list) {
    Open({1});
    bool back = false;
    const Listener listener = programm->kern.Windows.BackToMain.Listen([&] { back = true; });
    world.Answers.push_back({.Text = "*", .Reply = Answer::Yes});
    List().Command1_Click();
    EXPECT_TRUE(back);
    EXPECT_FALSE(List().Fenster.Visible);
    EXPECT_FALSE(List().Laeuft());
    EXPECT_EQ(List().FGK91.Rows(), 1);
    EXPECT_EQ(Lauf().List.RunRows, 0);
    world.RunFor(10000);
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F91_Fenster, a_stop_while_the_rows_are_checked_ends_the_list) {
    Open({1, 2});
    world.RunFor(1001);
    List().Command2_Click();
    world.RunFor(10000);
    EXPECT_EQ(List().StatusLabel.Text(), "L82");
    EXPECT_EQ(Mark(2), "");
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F91_Fenster, the_row_under_way_is_highlighted_and_no_other) {
    Open({1, 2, 7});
    const auto colours = [this](int column) {
        std::vector<Colour> all;
        for (int row = 1; row < List().FGK91.Rows(); ++row) {
            all.push_back(List().FGK91.At(row, column).BackColor);
        }
        return all;
    };
    const Colour blue = 0xFFE0C8;
    EXPECT_THAT(colours(F91Column::Name), ElementsAre(White, White, White));
    world.RunFor(1100);
    EXPECT_EQ(List().Arbeit(), F91::Work::Direct);
    for (const int column : {F91Column::Number, F91Column::Name, F91Column::Serial}) {
        EXPECT_THAT(colours(column), ElementsAre(blue, White, White));
    }
    List().Zeile_Aufgeben();
    EXPECT_THAT(colours(F91Column::Name), ElementsAre(White, White, White));
    world.RunFor(3100);
    EXPECT_THAT(colours(F91Column::Name), ElementsAre(White, blue, White));
    List().Stoppen();
    EXPECT_THAT(colours(F91Column::Name), ElementsAre(White, White, White));
}

TEST_F(F91_Fenster, says_how_far_the_list_is_and_how_long_it_may_still_take) {
    Open({1, 2, 7});
    EXPECT_EQ(List().StandLabel.Text(), "");
    world.RunFor(1100);
    EXPECT_EQ(List().StandLabel.Text(), u8"Schloss 1 von 3   0 erledigt, 0 gescheitert oder übersprungen"_w);
    // 37 s for the first row and 3 s behind it; two such rows are to come.
    world.RunFor(37000);
    List().Zeile_Markieren(">>", {.End = RunOutcome::Done, .Text = "L266"});
    List().Naechste_Zeile("PrgNextDataset");
    EXPECT_EQ(List().StandLabel.Text(), u8"1 erledigt, 0 gescheitert oder übersprungen   noch etwa 2 min"_w);
    world.RunFor(3100);
    EXPECT_EQ(List().StandLabel.Text(),
              u8"Schloss 2 von 3   1 erledigt, 0 gescheitert oder übersprungen   noch etwa 2 min"_w);
    List().Zeile_Aufgeben();
    world.RunFor(3100);
    EXPECT_EQ(List().StandLabel.Text(),
              u8"Schloss 3 von 3   1 erledigt, 1 gescheitert oder übersprungen   noch etwa 1 min"_w);
    List().Zeile_Markieren(">>", {.End = RunOutcome::Done, .Text = "L266"});
    List().Naechste_Zeile("PrgNextDataset");
    EXPECT_EQ(List().StandLabel.Text(), u8"2 erledigt, 1 gescheitert oder übersprungen"_w);
}

TEST_F(F91_Fenster, the_time_left_counts_on_while_a_row_is_under_way) {
    Open({1, 2, 7});
    List().Geduld = 0;
    world.RunFor(1100);
    world.RunFor(176000);
    List().Zeile_Markieren(">>", {.End = RunOutcome::Done, .Text = "L266"});
    List().Naechste_Zeile("PrgNextDataset");
    // 176 s for the first row and 3 s behind it; two such rows are to come.
    EXPECT_EQ(List().StandLabel.Text(), u8"1 erledigt, 0 gescheitert oder übersprungen   noch etwa 6 min"_w);
    world.RunFor(3100);
    const std::string_view german = u8"Schloss 2 von 3   1 erledigt, 0 gescheitert oder übersprungen   "_w;
    const std::string position(german);
    EXPECT_EQ(List().StandLabel.Text(), position + "noch etwa 6 min");
    world.RunFor(130000);
    EXPECT_EQ(List().StandLabel.Text(), position + "noch etwa 4 min");
    // Longer than the first row took: one more row is to come in any case.
    world.RunFor(300000);
    EXPECT_EQ(List().StandLabel.Text(), position + "noch etwa 3 min");
    List().Zeile_Markieren(">>", {.End = RunOutcome::Done, .Text = "L266"});
    List().Naechste_Zeile("PrgNextDataset");
    world.RunFor(3100);
    // The last one takes longer than any before it: nobody knows how long.
    world.RunFor(600000);
    EXPECT_EQ(List().StandLabel.Text(), u8"Schloss 3 von 3   2 erledigt, 0 gescheitert oder übersprungen"_w);
}

TEST_F(F91_Fenster, a_list_that_was_stopped_has_no_time_left) {
    Open({1, 2, 7});
    world.RunFor(38000);
    List().Zeile_Markieren(">>", {.End = RunOutcome::Done, .Text = "L266"});
    List().Naechste_Zeile("PrgNextDataset");
    world.RunFor(3100);
    ASSERT_EQ(List().Arbeit(), F91::Work::Direct);
    List().Command2_Click();
    const std::string_view position = u8"Schloss 2 von 3   1 erledigt, 0 gescheitert oder übersprungen"_w;
    EXPECT_EQ(List().StandLabel.Text(), position);
    world.RunFor(5000);
    EXPECT_EQ(List().StandLabel.Text(), position);
}

TEST_F(F91_Fenster, rows_passed_over_make_no_row_last_longer) {
    Config("SET", 3, 5);
    Begin();
    AddAdapter("/10/20/30/40", "PROGSTATION 1", "5");
    for (const int lock : {1, 7}) {
        programm->Transfer->F13.FGK13.SetText(lock, F13Column::AdapterId, "/10/20/30/40");
    }
    Prog({1, 2, 7});
    List().Geduld = 0;
    ASSERT_TRUE(world.RunUntil([this] { return List().Arbeit() == F91::Work::Direct; }));
    world.RunFor(56000);
    List().Zeile_Markieren(">>", {.End = RunOutcome::Done, .Text = "L266"});
    List().Naechste_Zeile("PrgNextDataset");
    ASSERT_TRUE(world.RunUntil([this] { return Mark(2) == "-"; }));
    ASSERT_TRUE(world.RunUntil([this] { return List().Arbeit() == F91::Work::Direct; }));
    // 56 s for the first row and 3 s behind it.
    EXPECT_EQ(List().StandLabel.Text(),
              u8"Schloss 3 von 3   1 erledigt, 1 gescheitert oder übersprungen   noch etwa 1 min"_w);
}

TEST_F(F91_Fenster, names_the_row_under_way_while_the_filter_hides_it) {
    Open({1, 2, 7});
    world.RunFor(1100);
    ASSERT_EQ(List().Arbeit(), F91::Work::Direct);
    List().Filter.Set("Keller");
    EXPECT_EQ(List().StandLabel.Text(), u8"Schloss 1 von 3   vom Filter verborgen: Schloss 1: Tor   0 erledigt, 0 "
                                        u8"gescheitert oder übersprungen"_w);
    List().Zeile_Aufgeben();
    world.RunFor(3100);
    EXPECT_THAT(List().StandLabel.Text(), ::testing::StartsWith("Schloss 2 von 3   0 erledigt"));
    List().Filter.Set("Dach");
    EXPECT_THAT(List().StandLabel.Text(), ::testing::HasSubstr("   vom Filter verborgen: Schloss 2: Keller   "));
    List().Filter.Set("");
    EXPECT_THAT(List().StandLabel.Text(), ::testing::StartsWith("Schloss 2 von 3   0 erledigt"));
}

TEST_F(F91_Fenster, a_history_that_is_not_the_end_of_its_row_counts_as_open) {
    Open({1, 2}, Answer::Yes);
    world.RunFor(1100);
    List().Zeile_Markieren("<<", {.End = RunOutcome::Done, .Text = "L263"});
    List().Texte_Setzen();
    EXPECT_EQ(List().StandLabel.Text(), u8"Schloss 1 von 2   0 erledigt, 0 gescheitert oder übersprungen"_w);
}

TEST_F(F91_Fenster, escape_cancels_the_lock_that_a_stopped_list_waits_for_and_nothing_before) {
    Open({1, 2});
    world.RunFor(1100);
    List().Escape();
    EXPECT_EQ(Lauf().Chain.AbbruchWunsch, 0);
    EXPECT_EQ(List().Arbeit(), F91::Work::Direct);
    List().Command2_Click();
    EXPECT_EQ(Lauf().Chain.AbbruchWunsch, 0);
    List().Escape();
    EXPECT_EQ(Lauf().Chain.AbbruchWunsch, 1);
    EXPECT_EQ(programm->Transfer->F9.StatusLabel.Text(), "L82");
    List().Escape(); // a silent lock: it is given up
    EXPECT_EQ(Mark(1), "#");
    EXPECT_EQ(State(1), "L82");
    EXPECT_FALSE(List().Laeuft());
    EXPECT_FALSE(programm->Transfer->F9.Fenster.Visible);
}

} // namespace
} // namespace qvm::test
