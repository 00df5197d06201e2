// How far a run is, as windows and console show it.

#include "RunProgress.h"

#include "RunKinds.h"

#include <utility>

namespace qvm::test {
namespace {

struct Run_Progress : ::testing::TestWithParam<RunKind> {};

TEST_P(Run_Progress, fills_the_bar_exactly_at_the_end_of_a_good_run_and_takes_nothing_back_on_the_way) {
    Scene scene(GetParam());
    scene.Begin();
    const F9& window = scene.programm->Transfer->F9;
    const Programmierlauf& run = scene.programm->Run;
    int before = 0;
    bool endless = false;
    const auto devices = scene.world.OnWrite;
    scene.world.OnWrite = [&](std::span<const std::uint8_t> bytes) {
        const RunProgress progress = Lauf_Fortschritt(run);
        EXPECT_GE(progress.Done, before);
        EXPECT_LT(progress.Done, progress.Total);
        EXPECT_LT(progress.Percent, 100);
        before = progress.Done;
        endless = endless || progress.Endless;
        devices(bytes);
    };
    scene.Start();
    ASSERT_TRUE(scene.Finish());
    ASSERT_EQ(scene.Outcome(), RunOutcome::Done);
    EXPECT_GT(before, 0);
    EXPECT_EQ(endless, OnlyHistory(GetParam()) || GetParam() == RunKind::HistoryFirst);
    EXPECT_EQ(Lauf_Fortschritt(run).Percent, 100);
    EXPECT_GT(window.Balken1.Maximum(), 0);
    EXPECT_EQ(window.Balken1.Value(), window.Balken1.Maximum());
    EXPECT_TRUE(window.Balken1.Visible);
    EXPECT_EQ(window.SchrittLabel.Text(), "");
}

INSTANTIATE_TEST_SUITE_P(Kinds, Run_Progress, ::testing::ValuesIn(AllKinds),
                         [](const auto& kind) { return KindName(kind.param); });

struct Run_Step : RunFixture {
    Run_Step() {
        AddLock(1, "Tresor", Serial::S, " XXXX");
        files.Emi(1, 'Y');
        for (int user = 1; user <= 3; ++user) {
            files.User(user, {.Name = "Anna " + std::to_string(user), .Marks = {{1, 'X'}}});
        }
    }
};

TEST_F(Run_Step, is_told_in_words_from_the_login_to_the_end) {
    Begin();
    std::vector<std::string> steps;
    const auto lock = world.OnWrite;
    world.OnWrite = [&](std::span<const std::uint8_t> bytes) {
        const std::string step = Lauf_Fortschritt(programm->Run).Step;
        if (steps.empty() || steps.back() != step) {
            steps.push_back(step);
        }
        lock(bytes);
    };
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(steps, ElementsAre("Anmeldung", "Datum und Uhrzeit", "Priorit\xE4t", "L\xF6schen", "Kalenderschalter",
                                   "Schaltuhr", "Feiertage", "Benutzer 1 von 3", "Benutzer 2 von 3", "Benutzer 3 von 3",
                                   "Schaltuhrschalter", "Schlossmodus", "Datenende", "Abmeldung"));
    EXPECT_EQ(Lauf_Fortschritt(programm->Run).Step, "");
}

TEST_F(Run_Step, counts_the_events_whose_number_nobody_knows) {
    for (int n = 0; n < 3; ++n) {
        HistoryLine line{};
        line[0] = 4;
        line[1] = 3;
        line[2] = 26;
        devices.Locks[0].History.push_back(line);
    }
    devices.Faults.push_back({.What = SimFault::Kind::Silent, .Telegram = 5});
    Begin();
    History(1);
    EXPECT_FALSE(Finish(20000));
    EXPECT_EQ(Fortschritt_Text(programm->kern, Lauf_Fortschritt(programm->Run)), "Historie, 2 Ereignisse");
    EXPECT_EQ(programm->Transfer->F9.SchrittLabel.Text(), "Historie, 2 Ereignisse");
    EXPECT_EQ(programm->Transfer->F9.Balken1.Maximum(), 0);
    for (const auto& [language, text] :
         {std::pair{"English", "History, 2 events"}, std::pair{"Francais", "Historique, 2 \xE9v\xE9nements"},
          std::pair{"Nederlands", "Historie, 2 gebeurtenissen"}}) {
        programm->kern.Config.Sprache = language;
        programm->Transfer->F9.Fortschritt();
        EXPECT_EQ(programm->Transfer->F9.SchrittLabel.Text(), text); // nothing stands before it
    }
}

TEST_F(Run_Step, names_a_unit_and_its_templates) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(1, 1, "Leser", "00012CCD", '2');
    AddUnit("00012CCD", 2);
    files.User(
        4, {.Name = "Finger 1", .Label = "Slot_Nr: 001", .FingerFlag = "FS", .FingerId = "8001", .Marks = {{1, 'F'}}});
    files.Template(250, "8001", {3, 0, 1});
    Begin();
    Expect(63, Answer::No);
    Expect(273);
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    TypeCode("123456");
    world.RunUntil([this] { return !system->Codes().empty() && system->Codes().back() == 0x49; });
    EXPECT_EQ(Lauf_Fortschritt(programm->Run).Step, "Funkeinheit Leser");
    world.RunUntil([this] { return system->Codes().back() == 0x4A; });
    EXPECT_EQ(Lauf_Fortschritt(programm->Run).Step, "Funkeinheit Leser, Fingervorlage 1 von 1");
}

TEST_F(Run_Step, stands_with_the_share_that_is_done_and_the_time_left) {
    Begin();
    Program(1);
    // Login, date, time, priority, erase, calendar, two of timers, six of holidays; four a user; timer switch, mode,
    // end of data, disconnect: 14, 12 and 4.
    RunAccount& account = programm->Run.Konto;
    ASSERT_EQ(account.Items.size(), 30U);
    for (std::size_t n = 0; n < 15; ++n) {
        account.Items[n].Is = AccountItem::State::Acknowledged;
    }
    account.Awaited = 15;
    programm->Run.Tempo = {.Since = programm->kern.Welt.Milliseconds() - 60000, .Done = 0};
    // 15 of 30 in a minute.
    EXPECT_EQ(Fortschritt_Text(programm->kern, Lauf_Fortschritt(programm->Run)),
              "50 %, Benutzer 1 von 3, noch etwa 60 s");
    programm->Run.Tempo.Since -= 75000;
    EXPECT_EQ(Fortschritt_Text(programm->kern, Lauf_Fortschritt(programm->Run)),
              "50 %, Benutzer 1 von 3, noch etwa 3 min");
    programm->Run.Tempo.Done = 11; // four telegrams are too few to go by
    EXPECT_EQ(Fortschritt_Text(programm->kern, Lauf_Fortschritt(programm->Run)), "50 %, Benutzer 1 von 3");
    programm->kern.Config.Sprache = "English";
    EXPECT_EQ(Fortschritt_Text(programm->kern, Lauf_Fortschritt(programm->Run)), "50 %, user 1 of 3");
}

TEST_F(Run_Step, leaves_out_what_a_unit_that_failed_was_to_get) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(1, 1, "Leser", "01600001", '1');
    AddUnit("01600001", 1).LoginStatus = 2;
    Begin();
    Expect(71);
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(programm->Transfer->F9.Balken1.Value(), programm->Transfer->F9.Balken1.Maximum());
}

TEST_F(Run_Step, share_is_rounded_down) {
    EXPECT_EQ(Prozent(0, 0), 0);
    EXPECT_EQ(Prozent(-1, 10), 0);
    EXPECT_EQ(Prozent(299, 300), 99);
    EXPECT_EQ(Prozent(300, 300), 100);
    EXPECT_EQ(Prozent(7, 5), 100);
    EXPECT_EQ(Prozent(2000000000, 2147483647), 93);
}

} // namespace
} // namespace qvm::test
