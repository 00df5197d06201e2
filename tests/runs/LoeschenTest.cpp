// A lock that is polled while it erases, and what its run may say of the erasing.

#include "RunKinds.h"
#include "Text.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace qvm::test {
namespace {

using Fault = SimFault::Kind;

struct Polled_Erase : ::testing::Test {
    Scene scene{RunKind::Polled};
    int erase = 0; ///< number of the erase telegram

    Polled_Erase() {
        Scene good(RunKind::Polled);
        good.Begin();
        good.Start();
        EXPECT_TRUE(good.Finish());
        const std::vector<int> codes = good.DeviceCodes();
        erase = static_cast<int>(std::find(codes.begin(), codes.end(), 0x27) - codes.begin());
    }
    void Play(const std::vector<SimFault>& faults) {
        scene.devices.Faults = faults;
        scene.Begin();
        scene.Start();
        ASSERT_TRUE(scene.Finish(60000));
    }
    std::optional<bool> Confirmed() const { return scene.programm->Run.Bericht.EraseConfirmed; }
    std::size_t Users() { return scene.Lock(Serial::Z).Users.size(); }
};

TEST_F(Polled_Erase, that_was_acknowledged_is_confirmed) {
    Play({});
    EXPECT_EQ(scene.Outcome(), RunOutcome::Done);
    EXPECT_EQ(Confirmed(), true);
    EXPECT_EQ(scene.Status(), "L110");
    EXPECT_EQ(Users(), 1U);
}

TEST_F(Polled_Erase, that_the_lock_never_heard_is_not_confirmed_and_the_window_says_so) {
    Play({{.What = Fault::Silent, .Telegram = erase}});
    EXPECT_EQ(scene.Outcome(), RunOutcome::Done);
    EXPECT_EQ(Confirmed(), false);
    EXPECT_EQ(Users(), 2U) << "the old user is still there";
    EXPECT_EQ(scene.Status(), u8"L110. Das Schloss hat das Löschen nicht bestätigt: Alte Einträge können noch "
                              u8"vorhanden sein."_w);
}

TEST_F(Polled_Erase, that_is_refused_behind_the_first_sign_of_life_is_not_done) {
    // Nobody can tell whether the refusal is of the sign of life or of the erasing.
    Play({{.What = Fault::Silent, .Telegram = erase}, {.What = Fault::Refuse, .Telegram = erase + 1, .Value = 0x68}});
    EXPECT_EQ(scene.Outcome(), RunOutcome::Incomplete);
    EXPECT_THAT(scene.Status(), ::testing::HasSubstr(u8"(Löschen)"_w));
}

TEST_F(Polled_Erase, whose_sign_of_life_is_refused_behind_the_acknowledge_is_done) {
    Play({{.What = Fault::Refuse, .Telegram = erase + 1, .Value = 0x68}});
    EXPECT_EQ(scene.Outcome(), RunOutcome::Done);
    EXPECT_EQ(Confirmed(), true);
}

TEST_F(Polled_Erase, whose_acknowledge_comes_late_is_done_and_confirmed) {
    // Between two signs of life, and just behind the polling, which ends at 4 s.
    for (const int late : {3500, 4010, 4200}) {
        SCOPED_TRACE(late);
        Scene again(RunKind::Polled);
        again.devices.ReplyMs = 30;
        again.devices.Faults = {{.What = Fault::Late, .Telegram = erase, .Value = late}};
        again.Begin();
        again.Start();
        ASSERT_TRUE(again.Finish(60000));
        EXPECT_EQ(again.Outcome(), RunOutcome::Done);
        EXPECT_EQ(again.programm->Run.Bericht.EraseConfirmed, true);
        EXPECT_EQ(again.Status(), "L110");
    }
}

TEST_F(Polled_Erase, whose_sign_of_life_is_answered_in_the_middle_of_the_tables_is_done) {
    // Sent at 3 s, answered behind the one sent at 4 s, which the lock answers at once; the run goes on at 5 s.
    for (const int late : {1500, 1990, 2010, 2050, 2100, 2300}) {
        SCOPED_TRACE(late);
        Scene again(RunKind::Polled);
        again.devices.ReplyMs = 30;
        again.devices.Faults = {{.What = Fault::Late, .Telegram = erase + 2, .Value = late}};
        again.Begin();
        again.Start();
        ASSERT_TRUE(again.Finish(60000));
        EXPECT_EQ(again.Outcome(), RunOutcome::Done);
    }
}

} // namespace
} // namespace qvm::test
