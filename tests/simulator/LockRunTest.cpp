#include "ProgrammingRun.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LockRun, a_lock_with_short_tables_and_no_user_takes_eighteen_telegrams) {
    ProgrammingRun run(OneLock(S));
    run.Open();
    run.Do(0x25, {1});
    run.ShortTables();
    run.Holidays();
    run.Finish();

    EXPECT_EQ(run.System.JudgementLines(), "");
    EXPECT_THAT(run.System.Codes(), ElementsAre(0x04, 0x07, 0x09, 0x2F, 0x27, 0x25, 0x19, 0x1B, 0x1F, 0x1F, 0x1F, 0x21,
                                                0x21, 0x21, 0x23, 0x32, 0x15, 0x05));
    const VirtualLock& lock = run.Lock();
    EXPECT_EQ(lock.Clock, (LockClock{5, 3, 26, 10, 30, 59}));
    EXPECT_EQ(lock.Priority, 2);
    EXPECT_EQ(lock.EraseOption, 0);
    EXPECT_EQ(lock.CalendarFlag, 1);
    EXPECT_EQ(lock.LockTimerFlag, 1);
    EXPECT_EQ(lock.LockMode, 0x0A);
    EXPECT_EQ(lock.FormA, TableForm::Short);
    EXPECT_EQ(lock.TableA[0], (TimerLine{8, 7, 30, 18, 0}));
    EXPECT_EQ(lock.TableA[1], TimerLine{});
    EXPECT_EQ(lock.TableB[0], (TimerLine{1, 8, 0, 12, 0}));
    EXPECT_EQ(lock.SingleDays[0], (DateLine{24, 12, 26, 27, 12, 26}));
    EXPECT_EQ(lock.PermanentDays[0], (DateLine{1, 5, 99, 1, 5, 99}));
    EXPECT_TRUE(lock.DataComplete);
    EXPECT_EQ(lock.Sessions, 1);
    EXPECT_THAT(lock.Users, IsEmpty());
}

TEST(LockRun, tables_in_parts_fill_their_rows_in_order) {
    VirtualWorld world = OneLock(Z);
    world.Locks[0].EraseBusyMs = 0;
    ProgrammingRun run(world);
    run.Open();
    run.Do(0x25, {0});
    run.TablesInParts();
    run.Holidays();
    run.Finish();

    EXPECT_EQ(run.System.JudgementLines(), "");
    const VirtualLock& lock = run.Lock();
    EXPECT_EQ(lock.FormA, TableForm::Parts);
    EXPECT_EQ(lock.TableA[7], (TimerLine{10, 0, 0, 23, 59}));
    EXPECT_EQ(lock.TableA[8], (TimerLine{9, 9, 0, 12, 0}));
    EXPECT_EQ(lock.TableA[9], (TimerLine{1, 1, 1, 2, 2}));
    EXPECT_EQ(lock.TableA[16], TimerLine{});
}

TEST(LockRun, holidays_of_the_parts_stand_behind_each_other) {
    ProgrammingRun run(OneLock(S));
    run.Open();
    run.Do(0x25, {0});
    run.ShortTables();
    const Bytes row{1, 1, 26, 2, 1, 26};
    const Bytes seven = Join({row, row, row, row, row, row, row});
    run.Do(0x1F, Join({{0}, seven}));
    run.Do(0x1F, Join({{1}, {3, 1, 26, 4, 1, 26}, Fill(36)}));
    run.Do(0x1F, Join({{2}, Fill(42)}));
    const Bytes days{1, 5, 99, 1, 5, 99};
    run.Do(0x21, Join({{0}, days, days, days, days, days, days, {3, 10, 99, 3, 10}}));
    run.Do(0x21, Join({{1}, Fill(41)}));
    run.Do(0x21, Join({{2}, days, Fill(35)}));
    run.Finish();

    EXPECT_EQ(run.System.JudgementLines(), "");
    EXPECT_EQ(run.Lock().SingleDays[7], (DateLine{3, 1, 26, 4, 1, 26}));
    EXPECT_EQ(run.Lock().PermanentDays[6], (DateLine{3, 10, 99, 3, 10, 0})) << "the last byte never comes";
    EXPECT_EQ(run.Lock().PermanentDays[14], (DateLine{1, 5, 99, 1, 5, 99}));
}

TEST(LockRun, a_lock_that_erases_in_the_background_is_deaf_and_then_gives_signs_of_life) {
    VirtualWorld world = OneLock(Z);
    world.Locks[0].EraseBusyMs = 2500;
    ProgrammingRun run(world);
    run.Open();
    run.Pass(2000);
    EXPECT_THAT(run.Say(0x08), IsEmpty());
    run.Pass(1000);
    EXPECT_EQ(run.Ask(0x08)[2], 0x08);
    run.Do(0x25, {0});
    EXPECT_EQ(run.System.JudgementLines(), "");
}

TEST(LockRun, such_a_lock_can_keep_the_acknowledge_of_the_erase_to_itself) {
    VirtualWorld world = OneLock(Z);
    world.Locks[0].EchoErase = false;
    world.Locks[0].AliveReply = 0x06;
    ProgrammingRun run(world);
    run.LogIn();
    EXPECT_THAT(run.Say(0x27, {0}), IsEmpty());
    run.Pass(3000);
    EXPECT_EQ(run.Ask(0x08)[2], 0x06);
    EXPECT_EQ(run.System.JudgementLines(), "");
}

TEST(LockRun, data_sent_into_the_erase_is_lost_and_out_of_order) {
    ProgrammingRun run(OneLock(Z));
    run.Open();
    EXPECT_THAT(run.Say(0x25, {1}), IsEmpty());
    EXPECT_FALSE(run.Lock().CalendarFlag.has_value());
    ASSERT_EQ(run.System.Judgements().size(), 1U);
    EXPECT_EQ(run.System.Judgements()[0].Kind, Wrong::Order);
}

TEST(LockRun, behind_ten_signs_of_life_without_an_answer_data_may_come) {
    VirtualWorld world = OneLock(Z);
    world.Locks[0].EraseBusyMs = 60000;
    ProgrammingRun run(world);
    run.Open();
    for (int n = 0; n < 10; ++n) {
        run.Pass(1000);
        run.Say(0x08);
    }
    EXPECT_THAT(run.Say(0x25, {1}), IsEmpty());
    EXPECT_EQ(run.System.JudgementLines(), "");
}

TEST(LockRun, the_last_serial_of_that_range_answers_at_once) {
    ProgrammingRun run(OneLock(0x02000000));
    run.Open();
    run.Do(0x25, {0});
    EXPECT_EQ(run.System.JudgementLines(), "");
}

TEST(LockRun, a_late_lock_takes_no_timer_tables) {
    ProgrammingRun run(OneLock(Terr));
    run.Open();
    run.Do(0x25, {0});
    run.Holidays();
    run.Finish();
    EXPECT_EQ(run.System.JudgementLines(), "");
    EXPECT_EQ(run.System.Codes().size(), 16U);
    EXPECT_EQ(run.Lock().FormA, TableForm::None);
}

TEST(LockRun, a_reader_setting_or_a_listen_time_comes_before_the_tables) {
    VirtualWorld world = OneLock(ZwithReader);
    world.Locks[0].EraseBusyMs = 0;
    ProgrammingRun run(world);
    run.Open();
    run.Do(0x25, {0});
    run.Do(0x3B, {1, 0xAA, 3, 1});
    run.TablesInParts();
    EXPECT_EQ(run.System.JudgementLines(), "");
    EXPECT_EQ(run.Lock().Reader, (ReaderSetting{0xAA, 3, 1}));

    ProgrammingRun other(OneLock(S));
    other.Open();
    other.Do(0x25, {0});
    other.Do(0x33, {1, 0, 1, 44, 0});
    other.ShortTables();
    EXPECT_EQ(other.System.JudgementLines(), "");
    EXPECT_EQ(other.Lock().Listen, (ListenTime{1, 0, 1, 44}));
}

TEST(LockUsers, a_code_user_is_kept_with_slot_name_code_timer_and_weighting) {
    ProgrammingRun run(OneLock(S));
    run.Open();
    run.Do(0x25, {0});
    run.ShortTables();
    run.Holidays();
    run.Name(1, "ANNA");
    run.Do(0x0E, CodeUserData(1, 2));
    run.Name(2, "BERT");
    run.Do(0x0E, Join({{0, 2, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0, 0x0D, 1}, {9, 8, 7, 6}, Fill(16, 0x42)}));
    run.Finish();

    EXPECT_EQ(run.System.JudgementLines(), "");
    const auto& users = run.Lock().Users;
    ASSERT_EQ(users.size(), 2U);
    EXPECT_EQ(users[0].Slot, 1);
    EXPECT_EQ(Bytes(users[0].Name.begin(), users[0].Name.end()), Name16("ANNA"));
    EXPECT_THAT(users[0].Code, ElementsAre(0x12, 0x3A, 0xEE, 0xEE, 0xEE));
    EXPECT_EQ(users[0].TimerSelector, 2);
    EXPECT_EQ(users[0].Weighting, 0x0C);
    EXPECT_FALSE(users[0].HasId);
    EXPECT_TRUE(users[1].HasId);
    EXPECT_THAT(users[1].Id, ElementsAre(9, 8, 7, 6));
    EXPECT_EQ(users[1].IdData[15], 0x42);
    EXPECT_EQ(users[1].Weighting, 0x0D);
}

TEST(LockUsers, time_groups_follow_when_the_tables_came_in_parts) {
    VirtualWorld world = OneLock(Z);
    world.Locks[0].EraseBusyMs = 0;
    ProgrammingRun run(world);
    run.Open();
    run.Do(0x25, {0});
    run.TablesInParts();
    run.Holidays();
    run.Name(1, "ANNA");
    run.Do(0x0E, CodeUserData(1, 0x80));
    run.Do(0x37, {0, 1, 0x03, 0x02, 0x80});
    run.Finish();
    EXPECT_EQ(run.System.JudgementLines(), "");
    EXPECT_THAT(run.Lock().Users[0].Groups, ElementsAre(0x80, 0x02, 0x03)) << "the third mask comes first";
}

TEST(LockUsers, the_first_group_mask_must_be_the_timer_selector) {
    VirtualWorld world = OneLock(Z);
    world.Locks[0].EraseBusyMs = 0;
    ProgrammingRun run(world);
    run.Open();
    run.Do(0x25, {0});
    run.TablesInParts();
    run.Holidays();
    run.Name(1, "ANNA");
    run.Do(0x0E, CodeUserData(1, 0x80));
    run.Do(0x37, {0, 1, 0x80, 0, 0});
    ASSERT_EQ(run.System.Judgements().size(), 1U);
    EXPECT_EQ(run.System.Judgements()[0].Kind, Wrong::Range);
}

TEST(LockUsers, a_fingerprint_user_is_kept_with_number_name_slice_and_weighting) {
    ProgrammingRun run(OneLock(S));
    run.Open();
    run.Do(0x25, {0});
    run.ShortTables();
    run.Holidays();
    EXPECT_EQ(run.Ask(0x0A)[15], 1);
    Bytes slice = Fill(28, 0x70);
    slice[27] = 0x61;
    run.Do(0x40, Join({{0x01, 0x2C}, Name16("CARL_300_FP     "), slice, {0x0A}}));
    run.Do(0x37, {0, 1, 0, 0, 0x40});
    run.Finish();

    EXPECT_EQ(run.System.JudgementLines(), "");
    const auto& users = run.Lock().Users;
    ASSERT_EQ(users.size(), 1U);
    EXPECT_TRUE(users[0].Finger);
    EXPECT_EQ(users[0].FingerNumber, 300);
    EXPECT_EQ(users[0].Slice[27], 0x61);
    EXPECT_EQ(users[0].Weighting, 0x0A);
    EXPECT_THAT(users[0].Groups, ElementsAre(0x40, 0, 0));
    EXPECT_EQ(run.Lock().Fingers.count(300), 1U);
}

TEST(LockUsers, a_long_identification_comes_in_two_parts_of_which_the_second_has_a_class_of_its_own) {
    VirtualWorld world = OneLock(ZwithReader);
    world.Locks[0].EraseBusyMs = 0;
    ProgrammingRun run(world);
    run.Open();
    run.Do(0x25, {0});
    run.Do(0x3B, {1, 0xFF, 0, 0});
    run.TablesInParts();
    run.Holidays();
    run.Name(1, "DORA");
    run.Do(0x0E, CodeUserData(1));
    run.Do(0x43, Join({{1, 1, 7}, Fill(16, 0x11)}));
    run.Class = 0xC3;
    run.Do(0x43, Join({{1, 2, 7, 0, 1}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0}}));
    run.Class = 0x11;
    run.Do(0x37, {0, 1, 0, 0, 0});
    run.Finish();

    EXPECT_EQ(run.System.JudgementLines(), "");
    const LockUser& user = run.Lock().Users.at(0);
    EXPECT_TRUE(user.HasLongId);
    EXPECT_EQ(user.GroupDigit, 7);
    EXPECT_THAT(user.LongId, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0));
    EXPECT_EQ(user.LongIdData[0], 0x11);
}

TEST(LockUsers, a_data_start_erases_users_and_with_option_1_the_fingerprints_too) {
    VirtualWorld world = OneLock(S);
    world.Locks[0].Users.resize(3);
    world.Locks[0].Fingers[5] = {};
    world.Locks[0].History.resize(2);
    ProgrammingRun run(world);
    run.LogIn();
    run.Do(0x27, {0});
    EXPECT_THAT(run.Lock().Users, IsEmpty());
    EXPECT_EQ(run.Lock().Fingers.size(), 1U);
    run.Do(0x05);
    run.LogIn();
    run.Do(0x27, {1});
    EXPECT_TRUE(run.Lock().Fingers.empty());
    EXPECT_EQ(run.Lock().History.size(), 2U);
    EXPECT_EQ(run.Lock().Erases, 2);
}

TEST(LockUsers, a_lock_can_be_told_which_slot_to_give_out) {
    VirtualWorld world = OneLock(S);
    world.Locks[0].ForcedSlot = 3000;
    ProgrammingRun run(world);
    run.Open();
    run.Do(0x25, {0});
    run.ShortTables();
    run.Holidays();
    const Bytes reply = run.Ask(0x0A);
    EXPECT_EQ(reply[14], 0x0B);
    EXPECT_EQ(reply[15], 0xB8);
}

TEST(LockRun, a_second_pass_is_a_login_behind_the_first_close) {
    ProgrammingRun run(OneLock(0x0E6E9010));
    for (int pass = 0; pass < 2; ++pass) {
        run.Open();
        run.Do(0x25, {0});
        run.Holidays();
        run.Name(1, "ANNA");
        run.Do(0x0E, CodeUserData(1));
        run.Finish();
    }
    EXPECT_EQ(run.System.JudgementLines(), "");
    EXPECT_EQ(run.Lock().Users.size(), 1U);
    EXPECT_EQ(run.Lock().Sessions, 2);
    EXPECT_EQ(run.Closes, 2);
}

TEST(LockRun, history_first_leads_to_the_priority_and_back_into_the_run) {
    ProgrammingRun run(OneLock(T));
    run.LogIn();
    run.Do(0x17, {0});
    run.Do(0x2F, {4});
    run.Do(0x27, {1});
    EXPECT_EQ(run.System.JudgementLines(), "");
}

} // namespace
} // namespace qvm::test
