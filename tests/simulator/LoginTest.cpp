#include "SimBench.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t OldLock = 0x00002C10;

TEST(Login, the_right_code_on_the_right_channel_is_accepted) {
    SimBench bench(OneLock(OldLock));
    // By hand: 0E 04, address twice, status 4 at index 14, one byte outside the sum. Sum 0 to 14: 02 12 28 50 A0 6D EA
    // D5 AB 83 17 2E 5C B8 75.
    bench.SayWire({0x02, 0x14, 0x04, 0x00, 0x00, 0x2C, 0x10, 0x11, 0x00, 0x33, 0x88,
                   0x01, 0x00, 0x00, 0x1A, 0x42, 0x12, 0xEE, 0x05, 0xAA, 0x55, 0xF0});
    EXPECT_THAT(bench.Wire, ElementsAre(0x02, 0x0E, 0x04, 0x00, 0x00, 0x2C, 0x10, 0x00, 0x00, 0x2C, 0x10, 0x00, 0x00,
                                        0x00, 0x04, 0x00, 0x75));
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(Login, a_wrong_code_gets_status_1_and_no_session) {
    SimBench bench(OneLock(OldLock));
    EXPECT_EQ(bench.LogIn({0x1A, 0x42, 0x13}), 1);
    const Bytes reply = bench.Ask(0x17, {0});
    EXPECT_EQ(reply[2], 0x69);
    EXPECT_EQ(reply[3], 0x65);
    EXPECT_EQ(bench.System.Judgements().size(), 1U);
}

TEST(Login, another_channel_is_no_contact) {
    SimBench bench(OneLock(OldLock));
    const Bytes reply = bench.Ask(0x04, {0x1A, 0x42, 0x12, 0xEE, 4, 0xAA, 0x55});
    ASSERT_EQ(reply.size(), 15U);
    EXPECT_EQ(reply[2], 0x69);
    EXPECT_EQ(reply[3], 0x64);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(Login, another_address_is_no_contact) {
    SimBench bench(OneLock(OldLock));
    bench.To = AddressOf(0x00002C11);
    const Bytes reply = bench.Ask(0x04, {0x1A, 0x42, 0x12, 0xEE, 5, 0xAA, 0x55});
    EXPECT_EQ(reply[2], 0x69);
    EXPECT_EQ(reply[3], 0x64);
}

TEST(Login, the_lock_can_be_told_to_answer_with_another_status) {
    VirtualWorld world = OneLock(OldLock);
    world.Locks[0].LoginStatus = 3;
    SimBench bench(world);
    EXPECT_EQ(bench.LogIn(), 3);
}

TEST(Login, a_channel_search_finds_the_lock_on_its_channel) {
    SimBench bench(OneLock(OldLock));
    for (std::uint8_t channel = 1; channel < 5; ++channel) {
        EXPECT_EQ(bench.LogIn({0x1A, 0x42, 0x12}, channel), -1);
    }
    EXPECT_EQ(bench.LogIn({0x1A, 0x42, 0x12}, 5), 4);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(ChannelChange, the_lock_listens_on_the_new_channel_behind_the_reply_to_0x29) {
    SimBench bench(OneLock(OldLock));
    bench.LogIn();
    EXPECT_EQ(bench.Ask(0x28, {8})[2], 0x28);
    EXPECT_THAT(bench.Say(0x66, {8}), IsEmpty());
    EXPECT_EQ(bench.System.World().Locks[0].Channel, 5);
    EXPECT_EQ(bench.Ask(0x29, {8})[2], 0x29);
    EXPECT_EQ(bench.System.World().Locks[0].Channel, 9);
    EXPECT_EQ(bench.Ask(0x05)[2], 0x05); // the adapter goes along
    EXPECT_EQ(bench.LogIn({0x1A, 0x42, 0x12}, 5), -1);
    EXPECT_EQ(bench.LogIn({0x1A, 0x42, 0x12}, 9), 4);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(ChannelChange, three_different_channels_are_found_out) {
    SimBench bench(OneLock(OldLock));
    bench.LogIn();
    bench.Ask(0x28, {8});
    bench.Say(0x66, {7});
    bench.Ask(0x29, {6});
    ASSERT_EQ(bench.System.Judgements().size(), 2U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Range);
    EXPECT_EQ(bench.System.Judgements()[1].Code, 0x29);
}

Bytes CodeChange(const Bytes& oldCode, const Bytes& newCode) {
    return Join({{0x33, 0x33}, oldCode, {0xEE, 0xEE}, newCode, {0xEE, 0xEE}});
}

TEST(CodeChange, the_right_old_code_gives_status_4_and_the_new_code_holds) {
    SimBench bench(OneLock(OldLock));
    bench.LogIn();
    EXPECT_EQ(bench.Ask(0x12, CodeChange({0x1A, 0x42, 0x12}, {0x99, 0xAA, 0x11}))[14], 4);
    bench.Ask(0x05);
    EXPECT_EQ(bench.LogIn(), 1);
    EXPECT_EQ(bench.LogIn({0x99, 0xAA, 0x11}), 4);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(CodeChange, a_wrong_old_code_gives_status_1_and_changes_nothing) {
    SimBench bench(OneLock(OldLock));
    bench.LogIn();
    EXPECT_EQ(bench.Ask(0x12, CodeChange({0x1A, 0x42, 0x13}, {0x99, 0xAA, 0x11}))[14], 1);
    EXPECT_EQ(bench.LogIn(), 4);
}

HistoryLine Record(std::uint8_t day, const std::string& name, std::uint8_t event) {
    HistoryLine line{day, 3, 26, 10, 30};
    std::copy(name.begin(), name.end(), line.begin() + 5);
    line[21] = event;
    return line;
}

TEST(History, comes_record_by_record_and_ends_with_0xFF_in_the_event_byte) {
    VirtualWorld world = OneLock(OldLock);
    world.Locks[0].History = {Record(5, "ANNA", 0x11), Record(4, "BERT", 0x02)};
    SimBench bench(world);
    bench.LogIn();
    const Bytes first = bench.Ask(0x17, {0});
    ASSERT_EQ(first.size(), 37U);
    EXPECT_EQ(first[1], 35);
    EXPECT_THAT(Bytes(first.begin() + 7, first.begin() + 11), ElementsAre(0x00, 0x00, 0x2C, 0x10));
    EXPECT_THAT(Bytes(first.begin() + 14, first.begin() + 23), ElementsAre(5, 3, 26, 10, 30, 'A', 'N', 'N', 'A'));
    EXPECT_EQ(first[35], 0x11);
    EXPECT_EQ(bench.Ask(0x17, {2})[14], 4);
    EXPECT_EQ(bench.Ask(0x17, {2})[35], 0xFF);
    bench.Ask(0x05);
    bench.LogIn();
    EXPECT_EQ(bench.Ask(0x17, {0})[14], 5) << "reading takes nothing away";
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(History, an_empty_memory_answers_at_once_with_0xFF) {
    SimBench bench(OneLock(OldLock));
    bench.LogIn();
    EXPECT_EQ(bench.Ask(0x17, {0})[35], 0xFF);
    bench.Ask(0x05);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(History, asking_on_behind_the_end_is_out_of_order) {
    SimBench bench(OneLock(OldLock));
    bench.LogIn();
    bench.Ask(0x17, {0});
    bench.Ask(0x17, {2});
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Order);
}

TEST(Adapter, identifies_itself_with_its_version_at_index_15) {
    VirtualWorld world;
    world.Adapter.Version = 17;
    SimBench bench(world);
    const auto replies = bench.SayRaw(0x68, {1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0});
    ASSERT_EQ(replies.size(), 1U);
    EXPECT_EQ(replies[0][1], 0x0F);
    EXPECT_EQ(replies[0][15], 17);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

const Bytes RecordProbe{0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0, 0, 0, 0, 0, 0, 0};

TEST(Adapter, gives_its_complete_record_with_the_key_disguised_by_the_last_probe) {
    VirtualWorld world;
    world.Adapter.Name = "PROGSTATION 7";
    world.Adapter.Address = {3, 224, 0, 1};
    world.Adapter.Key = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    SimBench bench(world);
    bench.SayRaw(0x68, {1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0});
    const auto replies = bench.SayRaw(0x6C, RecordProbe);
    ASSERT_EQ(replies.size(), 1U);
    const Bytes& record = replies[0];
    EXPECT_EQ(record[1], 0x2E);
    EXPECT_THAT(Bytes(record.begin() + 3, record.begin() + 7), ElementsAre(3, 224, 0, 1));
    EXPECT_EQ(std::string(record.begin() + 8, record.begin() + 28), "PROGSTATION 7       ");
    // By hand: key byte, probe byte and constant of its place.
    EXPECT_THAT(
        Bytes(record.begin() + 30, record.begin() + 46),
        ElementsAre(0x5B, 0xC0, 0x2E, 0x92, 0x7B, 0xEF, 0x17, 0xBB, 0x46, 0xDE, 0x33, 0x86, 0x6A, 0xF1, 0x10, 0xB2));
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(Adapter, forgets_the_probe_when_it_is_plugged_in_anew) {
    SimBench bench(VirtualWorld{}); // its key is all zero
    bench.SayRaw(0x68, {1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0});
    bench.System.Plug();
    const auto replies = bench.SayRaw(0x6C, RecordProbe);
    ASSERT_EQ(replies.size(), 1U);
    // The constants alone.
    EXPECT_THAT(
        Bytes(replies[0].begin() + 30, replies[0].begin() + 46),
        ElementsAre(0x5B, 0xC6, 0x2F, 0x93, 0x7D, 0xE8, 0x14, 0xB1, 0x4A, 0xD7, 0x39, 0x8E, 0x65, 0xFA, 0x1C, 0xA3));
}

TEST(Adapter, one_for_enrolment_answers_for_itself_and_reaches_no_lock) {
    VirtualWorld world = OneLock(OldLock);
    world.Adapter.Name = "ENROLLMENT1 desk";
    SimBench bench(world);
    bench.To = AddressOf(OldLock);
    EXPECT_EQ(bench.SayRaw(0x68, {1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0}).size(), 1U);
    EXPECT_EQ(bench.SayRaw(0x6C, RecordProbe).size(), 1U);
    EXPECT_THAT(bench.Say(0x04, {0x1A, 0x42, 0x12, 0xEE, 5, 0xAA, 0x55}), IsEmpty());
    EXPECT_THAT(bench.SayRaw(0x6B, {5, 0, 0, 0x2C, 0x10, 0, 0, 0, 0, 0, 0, 0}), IsEmpty());
    EXPECT_THAT(bench.Say(0x05), IsEmpty());
    Bytes name{'P', 'R', 'O', 'G', 'S', 'T', 'A', 'T', 'I', 'O', 'N'};
    name.resize(22, 0);
    EXPECT_EQ(bench.SayRaw(0x6D, name).size(), 1U);
    EXPECT_EQ(bench.Say(0x04, {0x1A, 0x42, 0x12, 0xEE, 5, 0xAA, 0x55}).size(), 1U); // it is one for programming now
}

TEST(Adapter, takes_a_new_name_and_echoes_it_from_index_8) {
    SimBench bench(VirtualWorld{});
    Bytes body{'P', 'R', 'O', 'G', ' ', '2'};
    body.resize(22, 0);
    const auto replies = bench.SayRaw(0x6D, body);
    ASSERT_EQ(replies.size(), 1U);
    EXPECT_EQ(std::string(replies[0].begin() + 8, replies[0].begin() + 15), "PROG 2 ");
    EXPECT_EQ(bench.System.World().Adapter.Name, "PROG 2");
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(Adapter, goes_to_a_channel_and_says_nothing) {
    SimBench bench(OneLock(OldLock));
    EXPECT_THAT(bench.SayRaw(0x6B, {5, 0, 0, 0x2C, 0x10, 0, 0, 0, 0, 0, 0, 0}), IsEmpty());
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
    EXPECT_EQ(bench.Ask(0x05)[2], 0x05);
}

TEST(VirtualSystem, answers_after_the_time_that_the_world_names) {
    VirtualWorld world = OneLock(OldLock);
    world.ReplyMs = 30;
    SimBench bench(world);
    EXPECT_THAT(bench.Say(0x04, {0x1A, 0x42, 0x12, 0xEE, 5, 0xAA, 0x55}), IsEmpty());
    bench.Pass(29);
    EXPECT_THAT(bench.Wire, IsEmpty());
    bench.Pass(1);
    EXPECT_EQ(FromWire(bench.Wire)[2], 0x04);
}

TEST(VirtualSystem, keeps_every_telegram_and_counts) {
    SimBench bench(OneLock(OldLock));
    bench.LogIn();
    bench.Ask(0x05);
    EXPECT_THAT(bench.System.Codes(), ElementsAre(0x04, 0x05));
    EXPECT_EQ(bench.System.Telegrams()[1].size(), 15U);
    EXPECT_EQ(bench.System.Counters().Telegrams, 2);
    EXPECT_EQ(bench.System.Counters().Replies, 2);
    EXPECT_EQ(bench.Closes, 1);
    EXPECT_EQ(bench.System.World().Locks[0].Sessions, 1);
}

} // namespace
} // namespace qvm::test
