// A network adapter takes a lock's dataset, programs the lock, and hands its history on.

#include "NetBench.h"

#include <fstream>
#include <gmock/gmock.h>
#include <numeric>
#include <sstream>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

NetReply Said(int block, int code) {
    return {.Block = static_cast<std::uint8_t>(block), .Code = static_cast<std::uint8_t>(code), .Body = {}};
}

std::vector<Bytes> NetUsers(int first, int last) {
    std::vector<Bytes> users;
    for (int n = first; n <= last; ++n) {
        users.push_back(NetBench::User(n));
    }
    return users;
}

Bytes Numbered(std::size_t count) {
    Bytes bytes(count);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{0});
    return bytes;
}

/// A template of `length` bytes, its two length bytes included.
Bytes NetTemplate(std::size_t length) {
    Bytes bytes = Numbered(length);
    bytes[0] = static_cast<std::uint8_t>(length % 256);
    bytes[1] = static_cast<std::uint8_t>(length / 256);
    return bytes;
}

HistoryLine NetEvent(int n) {
    HistoryLine line{};
    line[0] = static_cast<std::uint8_t>(1 + n % 28);
    line[1] = 2;
    line[2] = 26;
    line[3] = static_cast<std::uint8_t>(n % 24);
    line[5] = 'A';
    line[21] = 1;
    return line;
}

// ---- data

TEST(SimNetwork, one_block_and_the_clock_program_a_lock) {
    NetBench bench;
    Bytes fixed = NetBench::Fixed(1);
    const Bytes timer{3, 7, 30, 18, 0}, day{24, 12, 26, 25, 12, 26}, yearly{1, 5, 99, 1, 5, 99};
    std::copy(timer.begin(), timer.end(), fixed.begin() + 128 + 50);
    std::copy(timer.begin(), timer.end(), fixed.begin() + 256 + 25);
    std::copy(day.begin(), day.end(), fixed.begin() + 384);
    std::copy(yearly.begin(), yearly.end(), fixed.begin() + 512 + 114);
    EXPECT_THAT(bench.Take(bench.Only(fixed, {NetBench::User(7)})), ElementsAre(Said(1, 0x15)));
    EXPECT_FALSE(bench.Lock().DataComplete);
    EXPECT_THAT(bench.Take(bench.Clock()), ElementsAre(Said(1, 0x1F)));
    EXPECT_THAT(bench.After(4989), IsEmpty());
    EXPECT_THAT(bench.After(1), ElementsAre(Said(1, 0x20)));
    EXPECT_THAT(bench.Findings(), IsEmpty());

    const VirtualLock& lock = bench.Lock();
    EXPECT_TRUE(lock.DataComplete);
    EXPECT_EQ(lock.Clock, (LockClock{5, 3, 26, 10, 30, 0}));
    EXPECT_EQ(lock.LockMode, 0x14);
    EXPECT_EQ(lock.CalendarFlag, 1);
    EXPECT_EQ(lock.LockTimerFlag, 0);
    EXPECT_EQ(lock.Priority, 3);
    EXPECT_EQ(lock.EraseOption, 1);
    EXPECT_EQ(lock.Listen, (ListenTime{0, 1, 0x0E, 0x10}));
    EXPECT_EQ(lock.Reader, std::nullopt); // this serial has none
    EXPECT_EQ(lock.TableA[10], (TimerLine{3, 7, 30, 18, 0}));
    EXPECT_EQ(lock.TableB[5], (TimerLine{3, 7, 30, 18, 0}));
    EXPECT_EQ(lock.SingleDays[0], (DateLine{24, 12, 26, 25, 12, 26}));
    EXPECT_EQ(lock.PermanentDays[19], (DateLine{1, 5, 99, 1, 5, 99}));
    EXPECT_EQ(lock.FormA, TableForm::Block);
    ASSERT_EQ(lock.Users.size(), 1U);
    EXPECT_EQ(lock.Users[0].Slot, 1);
    EXPECT_EQ(lock.Users[0].Code, (std::array<std::uint8_t, 5>{0x1A, 0xA7, 0xEE, 0xEE, 0xEE}));
    EXPECT_EQ(lock.Users[0].Groups, (std::array<std::uint8_t, 3>{0x81, 0x42, 0x24}));
    EXPECT_EQ(lock.Users[0].Weighting, 0x0C);
    EXPECT_EQ(lock.Sessions, 1);
    EXPECT_EQ(bench.Closes, 1);
}

TEST(SimNetwork, the_lock_moves_to_the_channel_that_the_data_name) {
    NetBench bench;
    Bytes fixed = NetBench::Fixed(0);
    fixed[12] = 11;
    bench.Take(bench.Only(fixed));
    bench.Take(bench.Clock());
    bench.Pass(5000);
    EXPECT_EQ(bench.Lock().Channel, 12);
}

TEST(SimNetwork, twenty_nine_users_come_in_three_blocks) {
    NetBench bench;
    EXPECT_EQ(bench.Code(bench.Block(1, 3, 1258, 0x14, Join({NetBench::Fixed(29), Join(NetUsers(1, 9))}))), 0x14);
    EXPECT_THAT(bench.Take(bench.Block(2, 3, 1258, 0x14, Join(NetUsers(10, 28)))), ElementsAre(Said(2, 0x14)));
    EXPECT_EQ(bench.Code(bench.Block(3, 3, 32 + 64 + 1, 0x14, Join(NetUsers(29, 29)))), 0x15);
    EXPECT_EQ(bench.Code(bench.Clock()), 0x1F);
    bench.Pass(5000);
    EXPECT_THAT(bench.Findings(), IsEmpty());
    ASSERT_EQ(bench.Lock().Users.size(), 29U);
    EXPECT_EQ(bench.Lock().Users[28].Slot, 29);
    EXPECT_EQ(std::string(bench.Lock().Users[28].Name.begin(), bench.Lock().Users[28].Name.begin() + 7), "USER029");
}

TEST(SimNetwork, keys_of_both_forms_are_stored) {
    NetBench bench;
    Bytes plain = NetBench::User(1), longForm = NetBench::User(2);
    plain[0] = 2;
    const Bytes id = Numbered(16);
    std::copy_n(id.begin() + 1, 4, plain.begin() + 27);
    std::copy_n(id.begin(), 16, plain.begin() + 31);
    longForm[0] = 3;
    longForm[31] = 7;
    std::copy_n(id.begin() + 3, 10, longForm.begin() + 32);
    std::copy_n(id.begin(), 16, longForm.begin() + 42);
    bench.Take(bench.Only(NetBench::Fixed(2), {plain, longForm}));
    bench.Take(bench.Clock());
    bench.Pass(5000);
    EXPECT_THAT(bench.Findings(), IsEmpty());
    ASSERT_EQ(bench.Lock().Users.size(), 2U);
    const LockUser &first = bench.Lock().Users[0], &second = bench.Lock().Users[1];
    EXPECT_TRUE(first.HasId && !first.HasLongId);
    EXPECT_EQ(first.Id, (std::array<std::uint8_t, 4>{1, 2, 3, 4}));
    EXPECT_EQ(first.IdData[15], 15);
    EXPECT_TRUE(second.HasLongId && !second.HasId);
    EXPECT_EQ(second.GroupDigit, 7);
    EXPECT_EQ(second.LongId, (std::array<std::uint8_t, 11>{3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0}));
    EXPECT_EQ(second.LongIdData[15], 15);
}

TEST(SimNetwork, fingerprints_reach_the_lock_and_its_unit) {
    VirtualWorld world = NetworkWorld();
    world.Units.resize(2);
    world.Units[0].Serial = {0, 1, 0x2C, 0xCD};
    world.Units[0].Type = 2;
    world.Units[1].Serial = {1, 0x60, 0, 3};
    world.Units[0].AdminCode = world.Units[1].AdminCode = {0x1A, 0x42, 0x12};
    NetBench bench(world);
    bench.Units = {0, 1, 0x2C, 0xCD, 0, 0, 0, 0, 1, 0x60, 0, 3, 0, 0, 0, 0};
    // 1300 bytes of templates: 1263 in the first block, 43 with the three bytes before each in the second.
    const Bytes finger = NetTemplate(1300);
    const Bytes stream = Join({{1, 7, 1}, finger});
    const Bytes slice(finger.begin() + 70, finger.begin() + 99);
    EXPECT_EQ(bench.Code(bench.Block(1, 3, 1258, 0x14, Join({NetBench::Fixed(1), NetBench::FingerUser(263, slice)}))),
              0x15);
    EXPECT_EQ(bench.Code(bench.Block(2, 3, 1305, 0x16, Bytes(stream.begin(), stream.begin() + 1263))), 0x16);
    EXPECT_EQ(bench.Code(bench.Block(3, 3, 32 + 40 + 1, 0x16, Bytes(stream.begin() + 1263, stream.end()))), 0x17);
    bench.Take(bench.Clock());
    bench.Pass(5000);
    EXPECT_THAT(bench.Findings(), IsEmpty());
    ASSERT_EQ(bench.Lock().Users.size(), 1U);
    EXPECT_EQ(bench.Lock().Users[0].FingerNumber, 263);
    EXPECT_EQ(bench.Lock().Users[0].Weighting, 6);
    EXPECT_EQ(bench.Lock().Users[0].Groups, (std::array<std::uint8_t, 3>{8, 2, 4}));
    ASSERT_EQ(bench.Lock().Fingers.count(263), 1U);
    EXPECT_EQ(bench.Lock().Fingers.at(263)[27], 97);
    const VirtualUnit& reader = bench.System.World().Units[0];
    EXPECT_EQ(reader.Lock, (DeviceAddress{0, 0x0A, 0x10, 1}));
    ASSERT_EQ(reader.Rows.size(), 1U);
    EXPECT_EQ(reader.Rows[0].Type, 1);
    EXPECT_EQ(reader.Rows[0].Address, 263);
    EXPECT_EQ(reader.Rows[0].Bytes, Join({finger, Fill(12)}));
    EXPECT_EQ(bench.System.World().Units[1].Lock, (DeviceAddress{0, 0x0A, 0x10, 1}));
}

TEST(SimNetwork, erase_option_one_wipes_the_fingers) {
    NetBench bench;
    bench.Lock().Fingers[7] = {};
    Bytes fixed = NetBench::Fixed(0);
    fixed[24] = 0;
    for (const std::size_t left : {1U, 0U}) {
        bench.Take(bench.Only(fixed));
        bench.Take(bench.Clock());
        bench.Pass(5000);
        EXPECT_EQ(bench.Lock().Fingers.size(), left);
        fixed[24] = 1;
    }
}

// ---- what the sender may do again, and what it may not

TEST(SimNetwork, a_block_that_comes_again_is_answered_again_and_counts_once) {
    NetBench bench;
    const Bytes first = bench.Block(1, 2, 1258, 0x14, Join({NetBench::Fixed(10), Join(NetUsers(1, 9))}));
    const Bytes second = bench.Block(2, 2, 32 + 64 + 1, 0x14, Join(NetUsers(10, 10)));
    for (const Bytes& frame : {first, first, second, second}) {
        bench.Send(frame);
        bench.Pass(10);
    }
    EXPECT_EQ(bench.Code(bench.Clock()), 0x1F);
    EXPECT_EQ(bench.Code(bench.Clock()), 0x1F);
    EXPECT_THAT(bench.After(10000), ElementsAre(Said(1, 0x20)));
    EXPECT_THAT(bench.Findings(), IsEmpty());
    EXPECT_EQ(bench.Lock().Users.size(), 10U);
    EXPECT_EQ(bench.Lock().Erases, 1);
}

TEST(SimNetwork, a_clock_behind_the_result_has_the_result_said_again) {
    NetBench bench;
    bench.Take(bench.Only(NetBench::Fixed(0)));
    bench.Take(bench.Clock());
    bench.Pass(5000);
    EXPECT_EQ(bench.Code(bench.Clock()), 0x1F);
    EXPECT_THAT(bench.After(5000), ElementsAre(Said(1, 0x20)));
    EXPECT_EQ(bench.Lock().Erases, 1);
}

TEST(SimNetwork, what_is_not_due_gets_no_answer) {
    NetBench bench;
    EXPECT_THAT(bench.Take(bench.Clock()), IsEmpty());
    EXPECT_THAT(bench.Take(bench.HistoryNext(1)), IsEmpty());
    EXPECT_THAT(bench.Take(bench.Block(2, 2, 97, 0x14, Join(NetUsers(1, 1)))), IsEmpty());
    EXPECT_THAT(bench.Take(bench.Block(1, 1, 50, 0x16, Fill(17))), IsEmpty());
    EXPECT_THAT(bench.Findings(), ElementsAre("order: the clock is not due", "order: no history block follows number 1",
                                              "order: block 2 is not due", "order: block 1 is not due"));
}

TEST(SimNetwork, a_new_run_in_the_middle_of_another_is_judged) {
    NetBench bench;
    bench.Take(bench.Block(1, 2, 1258, 0x14, Join({NetBench::Fixed(10), Join(NetUsers(1, 9))})));
    EXPECT_EQ(bench.Code(bench.Only(NetBench::Fixed(0))), 0x15);
    EXPECT_THAT(bench.Findings(), ElementsAre("unfinished: a new run behind block 1"));
}

TEST(SimNetwork, a_block_for_another_key_has_no_sum_that_fits) {
    NetBench bench;
    std::array<std::uint8_t, 16> other = bench.System.World().Adapter.Key;
    other[15] ^= 1;
    bench.System.Receive(NetworkWire(bench.Only(NetBench::Fixed(0)), other));
    EXPECT_THAT(bench.After(10), IsEmpty());
    EXPECT_THAT(bench.Findings(), ElementsAre("checksum: the frame's checksum does not fit the deciphered bytes"));
}

// ---- locks that are not reached

TEST(SimNetwork, a_lock_that_does_not_exist_is_not_reached) {
    NetBench bench;
    bench.To = {0, 0x0A, 0x10, 9};
    EXPECT_EQ(bench.Code(bench.Only(NetBench::Fixed(0))), 0x15);
    EXPECT_EQ(bench.Code(bench.Clock()), 0x1F);
    EXPECT_THAT(bench.After(5000), ElementsAre(Said(1, 0xFF)));
    EXPECT_EQ(bench.Code(bench.HistoryStart()), 0x0B);
    EXPECT_THAT(bench.After(3000), ElementsAre(Said(1, 0xFF)));
    EXPECT_THAT(bench.Findings(), IsEmpty());
}

TEST(SimNetwork, a_lock_with_another_code_is_not_reached_and_stays_as_it_was) {
    NetBench bench;
    bench.Lock().AdminCode = {0x99, 0x99, 0x99};
    bench.Take(bench.Only(NetBench::Fixed(1), NetUsers(1, 1)));
    bench.Take(bench.Clock());
    EXPECT_THAT(bench.After(5000), ElementsAre(Said(1, 0xFF)));
    EXPECT_THAT(bench.Lock().Users, IsEmpty());
    EXPECT_EQ(bench.Lock().Erases, 0);
}

// ---- history

TEST(SimNetwork, an_empty_history_is_one_last_block_without_records) {
    NetBench bench;
    EXPECT_THAT(bench.Take(bench.HistoryStart()), ElementsAre(Said(1, 0x0B)));
    EXPECT_THAT(bench.After(2989), IsEmpty());
    EXPECT_THAT(bench.After(1), ElementsAre(Said(1, 0x0D)));
    EXPECT_THAT(bench.Findings(), IsEmpty());
}

TEST(SimNetwork, records_are_cut_at_the_end_of_a_block_and_groups_have_their_sum) {
    NetBench bench;
    bench.System.World().Adapter.Waits.HistoryBytes = 140;
    Bytes all;
    for (int n = 0; n < 7; ++n) { // 154 bytes: 140 and 14
        bench.Lock().History.push_back(NetEvent(n));
        all.insert(all.end(), bench.Lock().History.back().begin(), bench.Lock().History.back().end());
    }
    bench.Take(bench.HistoryStart());
    const auto first = bench.After(3000);
    const Bytes group(all.begin(), all.begin() + 128);
    EXPECT_THAT(first, ElementsAre(NetReply{
                           1, 0x0C, Join({group, {RotateSum(group)}, Bytes(all.begin() + 128, all.begin() + 140)})}));
    const NetReply last{2, 0x0D, Bytes(all.begin() + 140, all.end())};
    EXPECT_THAT(bench.Take(bench.HistoryNext(1)), ElementsAre(last));
    EXPECT_THAT(bench.Take(bench.HistoryNext(1)), ElementsAre(last)); // asked again
    EXPECT_THAT(bench.Findings(), IsEmpty());
    EXPECT_THAT(bench.Take(bench.HistoryNext(2)), IsEmpty());
    EXPECT_THAT(bench.Findings(), ElementsAre("order: no history block follows number 2"));
}

TEST(SimNetwork, serial_telegrams_and_blocks_share_the_line) {
    NetBench bench;
    const auto identified = bench.SayRaw(0x68, {1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0});
    ASSERT_EQ(identified.size(), 1U);
    EXPECT_EQ(identified[0][2], 0x68);
    EXPECT_EQ(bench.Code(bench.Only(NetBench::Fixed(0))), 0x15);
    EXPECT_EQ(bench.SayRaw(0x68, {1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0}).size(), 1U);
    EXPECT_EQ(bench.Code(bench.Clock()), 0x1F);
    EXPECT_THAT(bench.Findings(), IsEmpty());
    EXPECT_EQ(bench.System.Counters().DeviceTelegrams, 2);
}

TEST(SimNetwork, an_adapter_of_another_address_or_for_enrolment_hears_no_blocks) {
    for (const auto& [name, last] : {std::pair{"PROGSTATION N", 0}, std::pair{"ENROLLMENT1", 1}}) {
        VirtualWorld world = NetworkWorld();
        world.Adapter.Name = name;
        world.Adapter.Address[3] = static_cast<std::uint8_t>(last);
        NetBench bench(world);
        EXPECT_THAT(bench.Take(bench.Only(NetBench::Fixed(0))), IsEmpty());
        EXPECT_EQ(bench.System.Counters().Telegrams, 0);
    }
}

// ---- frames that were put together and enciphered by other tools

Bytes GoldenFrame(const std::string& name) {
    std::ifstream file(QVM_SOURCE_DIR "/tests/network/golden.txt");
    Bytes bytes;
    bool here = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('[')) {
            here = line == "[" + name + "]";
            continue;
        }
        std::istringstream words(line);
        for (std::string word; here && words >> word;) {
            bytes.push_back(static_cast<std::uint8_t>(std::stoi(word, nullptr, 16)));
        }
    }
    return bytes;
}

/// A decipherer that knows the blocks of one frame in both forms, and fails on any other place or key.
DecipherFunction Known(const Bytes& enciphered, const Bytes& plain) {
    std::map<Bytes, Bytes> blocks;
    for (std::size_t at = 32; at + 16 < enciphered.size(); ++at) {
        const auto from = static_cast<std::ptrdiff_t>(at);
        blocks[Bytes(enciphered.begin() + from, enciphered.begin() + from + 16)] =
            Bytes(plain.begin() + from, plain.begin() + from + 16);
    }
    return [blocks](std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
        EXPECT_EQ(key[0], 0xA0);
        EXPECT_EQ(key[15], 0xAF);
        const auto found = blocks.find(Bytes(block.begin(), block.end()));
        ASSERT_TRUE(found != blocks.end());
        std::copy(found->second.begin(), found->second.end(), block.begin());
    };
}

class GoldenTelegram : public testing::TestWithParam<const char*> {};

TEST_P(GoldenTelegram, is_deciphered_and_its_sums_fit) {
    const std::string name = GetParam();
    const Bytes plain = GoldenFrame(name + ", plain"), enciphered = GoldenFrame(name + ", enciphered");
    ASSERT_GT(plain.size(), 48U);
    ASSERT_NE(plain, enciphered);
    std::array<std::uint8_t, 16> key{};
    std::iota(key.begin(), key.end(), std::uint8_t{0xA0});
    const NetworkTelegram telegram = PlainNetwork(enciphered, Known(enciphered, plain), key);
    EXPECT_EQ(telegram.Frame, plain);
    Judge judge;
    if (telegram.Code() == 0x0A) {
        EXPECT_TRUE(ShortNetworkSumFits(telegram, 5, judge));
    } else {
        const bool filled = name == "data, each kind of user"; // five users, and zeros for the rest of nine
        const std::size_t used = filled ? 5 * 129 + 2 * 129 + 65 : plain.size() - 33;
        EXPECT_TRUE(OpenNetworkBlock(telegram, used, judge).has_value());
    }
    JudgeNetworkHeader(telegram, judge);
    EXPECT_THAT(judge.List(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, GoldenTelegram,
                         testing::Values("data, 0 users", "data, 1 users", "data, 9 users", "data, 10 users, block 1",
                                         "data, 10 users, block 2", "data, each kind of user",
                                         "fingerprints, 127 bytes, block 1", "fingerprints, 128 bytes, block 1",
                                         "fingerprints, 129 bytes, block 1", "fingerprints, 1263 bytes, block 1",
                                         "fingerprints, 1264 bytes, block 1", "history start"));

TEST(GoldenTelegram, the_clock_and_the_next_history_block_have_one_sum) {
    Judge judge;
    EXPECT_TRUE(ShortNetworkSumFits({.Frame = GoldenFrame("clock")}, 6, judge));
    EXPECT_TRUE(ShortNetworkSumFits({.Frame = GoldenFrame("history next 7")}, 5, judge));
    EXPECT_THAT(judge.List(), IsEmpty());
}

} // namespace
} // namespace qvm::test
