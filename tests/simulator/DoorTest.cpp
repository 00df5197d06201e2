// The lock's judgement of someone at the door, and devices that were taken away.

#include "LockDoor.h"
#include "ProgrammingRun.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::IsEmpty;

/// Friday, 5 March 2027, at this time.
LockClock Friday(std::uint8_t hour, std::uint8_t minute) {
    return {.Day = 5, .Month = 3, .Year = 27, .Hour = hour, .Minute = minute, .Second = 0};
}

LockUser CodeUser(std::uint16_t slot, std::array<std::uint8_t, 5> code) {
    LockUser user;
    user.Slot = slot;
    user.Name = {'U', static_cast<std::uint8_t>('0' + slot)};
    user.Code = code;
    return user;
}

/// Users 1 with 102030, 2 with 1020304050, 3 with 999999 in the first slot, Monday to Friday 8:00 to 17:00.
VirtualLock Programmed() {
    VirtualLock lock;
    lock.DataComplete = true;
    lock.FormA = TableForm::Parts;
    lock.TableA[0] = {8, 8, 0, 17, 0};
    lock.Users = {CodeUser(1, {0x1A, 0x2A, 0x3A, 0xEE, 0xEE}), CodeUser(2, {0x1A, 0x2A, 0x3A, 0x4A, 0x5A}),
                  CodeUser(3, {0x99, 0x99, 0x99, 0xEE, 0xEE})};
    lock.Users[2].HasGroups = true;
    lock.Users[2].Groups = {0x80, 0, 0};
    return lock;
}

TEST(Door, opens_for_a_code_that_a_user_has_and_notes_both) {
    VirtualLock lock = Programmed();
    const DoorTry result = Door_Code(lock, "102030", Friday(23, 59));
    EXPECT_EQ(result.Answer, DoorAnswer::Opens);
    EXPECT_EQ(result.Name, lock.Users[0].Name);
    ASSERT_EQ(lock.History.size(), 2U);
    EXPECT_EQ(lock.History[0], (HistoryLine{5, 3, 27, 23, 59, 'U', '1', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3}));
    EXPECT_EQ(lock.History[1], (HistoryLine{5, 3, 27, 23, 59, 'U', '1', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}));
}

TEST(Door, takes_a_code_whole_and_no_part_of_it) {
    VirtualLock lock = Programmed();
    EXPECT_EQ(Door_Code(lock, "1020304050", Friday(9, 0)).Name, lock.Users[1].Name);
    for (const char* digits : {"", "1", "10203", "1020304", "10203040501", "102O30", "-02030", "AA2030", "102030 "}) {
        EXPECT_EQ(Door_Code(lock, digits, Friday(9, 0)).Answer, DoorAnswer::Unknown) << digits;
    }
    EXPECT_EQ(lock.History.size(), 2U) << "of the first alone";
}

TEST(Door, opens_within_the_slots_of_the_user_both_ends_included) {
    VirtualLock lock = Programmed();
    EXPECT_EQ(Door_Code(lock, "999999", Friday(7, 59)).Answer, DoorAnswer::OutsideTimes);
    EXPECT_THAT(lock.History, IsEmpty());
    EXPECT_EQ(Door_Code(lock, "999999", Friday(8, 0)).Answer, DoorAnswer::Opens);
    EXPECT_EQ(Door_Code(lock, "999999", Friday(17, 0)).Answer, DoorAnswer::Opens);
    EXPECT_EQ(Door_Code(lock, "999999", Friday(17, 1)).Answer, DoorAnswer::OutsideTimes);
    LockClock sunday = Friday(9, 0);
    sunday.Day = 7;
    EXPECT_EQ(Door_Code(lock, "999999", sunday).Name, lock.Users[2].Name) << "it is known who was sent away";
}

TEST(Door, of_two_users_with_one_code_lets_in_whose_time_it_is) {
    VirtualLock lock = Programmed();
    lock.Users.push_back(lock.Users[2]);
    lock.Users[3].Name = {'U', '4'};
    lock.Users[3].HasGroups = false;
    const DoorTry late = Door_Code(lock, "999999", Friday(20, 0));
    EXPECT_EQ(late.Answer, DoorAnswer::Opens);
    EXPECT_EQ(late.Name, lock.Users[3].Name);
}

TEST(Door, stays_shut_while_the_lock_does_not_hold_all_its_data) {
    VirtualLock lock = Programmed();
    lock.DataComplete = false;
    EXPECT_EQ(Door_Code(lock, "102030", Friday(9, 0)).Answer, DoorAnswer::NotProgrammed);
    EXPECT_THAT(lock.History, IsEmpty());
}

TEST(Door, knows_keys_by_their_identification_and_fingers_by_nothing) {
    VirtualLock lock = Programmed();
    lock.Users[1].HasId = true;
    lock.Users[1].Id = {10, 20, 30, 40};
    lock.Users[0].Finger = true;
    const std::array<std::uint8_t, 4> id{10, 20, 30, 40};
    const std::array<std::uint8_t, 4> none{};
    EXPECT_EQ(Door_Key(lock, id, Friday(9, 0)).Name, lock.Users[1].Name);
    ASSERT_EQ(lock.History.size(), 2U);
    EXPECT_EQ(lock.History[1].back(), 2);
    EXPECT_EQ(Door_Key(lock, none, Friday(9, 0)).Answer, DoorAnswer::Unknown) << "users without a key have none of 0";
    EXPECT_EQ(Door_Code(lock, "102030", Friday(9, 0)).Answer, DoorAnswer::Unknown);
}

TEST(Door, stays_shut_in_the_middle_of_a_run) {
    ProgrammingRun run(OneLock(S));
    run.Open();
    run.Do(0x25, {1});
    run.ShortTables();
    EXPECT_EQ(Door_Code(run.Lock(), "1", Friday(9, 0)).Answer, DoorAnswer::NotProgrammed);
}

TEST(Taken_Away, a_lock_is_not_reached_until_it_is_back) {
    ProgrammingRun run(OneLock(S));
    run.Lock().Air.Away = true;
    const Bytes refusal = run.Ask(0x04, {0x1A, 0x42, 0x12, 0xEE, 5, 0xAA, 0x55});
    ASSERT_GT(refusal.size(), 3U);
    EXPECT_EQ(refusal[2], 0x69);
    EXPECT_EQ(refusal[3], 0x64);
    run.Lock().Air.Away = false;
    EXPECT_EQ(run.LogIn(), 4);
}

TEST(Pulled_Out, by_hand_the_adapter_says_nothing_until_it_is_put_back) {
    ProgrammingRun run(OneLock(S));
    EXPECT_EQ(run.LogIn(), 4);
    run.System.Unplug();
    EXPECT_EQ(run.Unplugs, 1);
    EXPECT_THAT(run.Say(0x08), IsEmpty());
    run.System.Plug();
    EXPECT_EQ(run.LogIn(), 4);
}

} // namespace
} // namespace qvm::test
