// A cancel while the run waits of its own accord: the closing telegram goes out in place of the next one, and the
// report says what became of the unit.

#include "RunKinds.h"
#include "Text.h"

#include <algorithm>
#include <functional>

namespace qvm::test {
namespace {

/// Codes behind the lock's disconnect, without those to the adapter itself.
Codes BehindTheLock(const Scene& scene) {
    const std::vector<int> all = scene.DeviceCodes();
    const auto end = std::find(all.begin(), all.end(), 0x05);
    return {end == all.end() ? end : end + 1, all.end()};
}

/// Does `act` as soon as the scanner has been told to erase and its memory is waited for. The wait is on the stack
/// then, so that nothing else gets a turn but what was planned.
void When_Erasing(Scene& scene, const std::function<void()>& act) {
    scene.world.At(100, [&scene, act] {
        const std::vector<int> codes = scene.DeviceCodes();
        if (scene.programm->Run.Waiting && !codes.empty() && codes.back() == 0x27) {
            act();
        } else {
            When_Erasing(scene, act);
        }
    });
}

TEST(Cancel_In_An_Ordered_Wait, closes_the_session_of_a_unit_in_place_of_the_next_block) {
    Scene scene(RunKind::Unit2);
    scene.Begin();
    scene.Start();
    When_Erasing(scene, [&scene] {
        EXPECT_TRUE(Lauf_Wartet(scene.programm->Run));
        scene.programm->Transfer->F9.Command1_Click();
    });
    ASSERT_TRUE(scene.Finish());
    EXPECT_THAT(BehindTheLock(scene), ElementsAre(0x28, 0x66, 0x29, 0x49, 0x48, 0xFE, 0x27, 0x05, 0x03));
    EXPECT_EQ(scene.Outcome(), RunOutcome::Cancelled);
    EXPECT_EQ(scene.system->World().Units[0].Sessions, 1);
    EXPECT_EQ(scene.system->World().Units[0].Erases, 1);
}

TEST(Cancel_In_An_Ordered_Wait, leaves_a_report_of_what_the_unit_lost) {
    Scene scene(RunKind::BothUnits);
    scene.Begin();
    scene.Start();
    When_Erasing(scene, [&scene] { scene.programm->Transfer->F9.Command1_Click(); });
    ASSERT_TRUE(scene.Finish());
    const auto& units = scene.programm->Run.Bericht.Units;
    EXPECT_EQ(units[0].End, UnitReport::State::Done);
    EXPECT_EQ(units[1].End, UnitReport::State::BrokenOff);
    EXPECT_EQ(units[1].Progress, (UnitProgress{.Stage = UnitStage::Changed, .Templates = 0, .TemplatesWanted = 1}));
    EXPECT_EQ(units[2].End, UnitReport::State::Untried);
    EXPECT_EQ(scene.programm->Transfer->F9.Check[2].Text(), u8"Unit: gelöscht, 0 von 1 Fingervorlagen übertragen."_w);
}

TEST(Cancel_In_An_Ordered_Wait, of_a_port_that_is_closed_at_once_names_the_unit_too) {
    Scene scene(RunKind::Unit2);
    scene.Begin();
    scene.Start();
    When_Erasing(scene, [&scene] {
        scene.programm->Transfer->F9.Command1_Click();
        scene.programm->Transfer->F9.Command2_Click();
    });
    ASSERT_TRUE(scene.Finish());
    EXPECT_EQ(scene.Outcome(), RunOutcome::Cancelled);
    EXPECT_EQ(scene.programm->Run.Bericht.Units[0].End, UnitReport::State::BrokenOff);
    EXPECT_EQ(scene.programm->Run.Bericht.Units[0].Progress.Stage, UnitStage::Changed);
}

/// A polled lock whose run is cancelled `afterMs` behind its erase telegram: what went out from that on.
Codes CancelledPolling(Scene& scene, int afterMs) {
    scene.Begin();
    scene.Start();
    EXPECT_TRUE(scene.world.RunUntil(
        [&scene] { return scene.programm->Run.Timer7.Running() && scene.DeviceCodes().back() == 0x27; }));
    scene.world.RunFor(afterMs);
    EXPECT_TRUE(Lauf_Wartet(scene.programm->Run));
    scene.programm->Transfer->F9.Command1_Click();
    EXPECT_TRUE(scene.Finish(60000));
    EXPECT_EQ(scene.Outcome(), RunOutcome::Cancelled);
    EXPECT_EQ(scene.Lock(Serial::Z).Sessions, 1) << "the session was left open";
    const std::vector<int> all = scene.DeviceCodes();
    return {std::find(all.begin(), all.end(), 0x27), all.end()};
}

TEST(Cancel_In_An_Ordered_Wait, of_a_lock_that_hears_again_closes_its_session_at_the_answer) {
    Scene scene(RunKind::Polled);
    scene.devices.Locks[0].EraseBusyMs = 1500; // less than the first tick
    EXPECT_THAT(CancelledPolling(scene, 1000), ElementsAre(0x27, 0x08, 0x05));
}

TEST(Cancel_In_An_Ordered_Wait, of_a_deaf_lock_goes_on_polling_it_until_it_hears_the_disconnect) {
    // Deaf for 2.5 s; the ticks are at 2 s and at 3 s. Once before the acknowledge of the erase telegram, once behind.
    for (const int afterMs : {0, 1000, 2200}) {
        SCOPED_TRACE(afterMs);
        Scene scene(RunKind::Polled);
        EXPECT_THAT(CancelledPolling(scene, afterMs), ElementsAre(0x27, 0x08, 0x08, 0x05));
    }
}

TEST(Cancel_In_An_Ordered_Wait, of_a_lock_that_never_answers_its_polling_goes_out_behind_the_last_try) {
    Scene scene(RunKind::Polled);
    scene.devices.Locks[0].EraseBusyMs = 12500; // ten ticks unanswered from 2 s on; the eleventh is at 12 s
    scene.Begin();
    scene.Start();
    ASSERT_TRUE(scene.world.RunUntil([&scene] { return scene.DeviceCodes().back() == 0x08; }));
    scene.programm->Transfer->F9.Command1_Click();
    EXPECT_FALSE(scene.Finish(30000)); // the disconnect is lost
    const std::vector<int> all = scene.DeviceCodes();
    EXPECT_EQ(std::count(all.begin(), all.end(), 0x08), 10);
    EXPECT_EQ(all.back(), 0x05);
}

TEST(Unfinished_Run, names_what_the_lock_did_not_get) {
    Scene scene(RunKind::Old);
    scene.devices.Faults = {{.What = SimFault::Kind::Wrong, .Telegram = 0, .Value = 0x05}};
    scene.Begin();
    scene.Start();
    ASSERT_TRUE(scene.Finish());
    const RunReport& report = scene.programm->Run.Bericht;
    EXPECT_EQ(report.End, RunOutcome::Incomplete);
    // Login, date, time, priority, erase, calendar switch, two short timer tables, two holiday tables of three parts,
    // four telegrams of the user, timer switch, lock mode, end of data, disconnect.
    EXPECT_EQ(report.Telegrams, 22);
    EXPECT_EQ(report.Acknowledged, 0);
    EXPECT_EQ(scene.Status(), u8"Nicht vollständig: 22 von 22 Telegrammen wurden vom Schloss nicht bestätigt "
                              u8"(Anmeldung, Datum und Uhrzeit, Priorität, Löschen, Kalenderschalter, Schaltuhr, "
                              u8"Feiertage, Benutzer 1, Schaltuhrschalter, Schlossmodus, Datenende, Abmeldung). "
                              u8"Bitte wiederholen Sie den Vorgang."_w);
    EXPECT_FALSE(scene.programm->Transfer->F9.Check[0].Checked);
}

TEST(Unfinished_Run, names_what_a_lock_did_not_get_that_became_busy) {
    Scene scene(RunKind::Old);
    scene.devices.Faults = {{.What = SimFault::Kind::Refuse, .Telegram = 19, .Value = 0x67}};
    scene.Begin();
    scene.Start();
    ASSERT_TRUE(scene.Finish());
    // The lock mode is refused; the disconnect that goes out in its place is taken, so that only the end of data is
    // missing beside it.
    EXPECT_EQ(scene.DeviceCodes()[19], 0x32);
    EXPECT_EQ(scene.Outcome(), RunOutcome::Incomplete);
    EXPECT_EQ(scene.Status(), u8"Nicht vollständig: 2 von 22 Telegrammen wurden vom Schloss nicht bestätigt "
                              u8"(Schlossmodus, Datenende). Bitte wiederholen Sie den Vorgang."_w);
    EXPECT_EQ(scene.programm->Run.Bericht.Text, scene.Status());
}

} // namespace
} // namespace qvm::test
