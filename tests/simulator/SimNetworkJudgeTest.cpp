// Every wrong field of a network telegram is found, and nothing else with it.

#include "NetBench.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// One byte of the first block's values and tables that is not as it should be.
struct FixedCase {
    const char* Part; ///< how the finding begins
    std::size_t Index;
    std::uint8_t Value;
};
void PrintTo(const FixedCase& c, std::ostream* out) {
    *out << c.Part << " at " << c.Index;
}

class BadFixed : public testing::TestWithParam<FixedCase> {};

TEST_P(BadFixed, is_judged_once) {
    NetBench bench;
    Bytes fixed = NetBench::Fixed(0);
    fixed[GetParam().Index] = GetParam().Value;
    EXPECT_EQ(bench.Code(bench.Only(fixed)), 0x15);
    EXPECT_THAT(bench.Findings(), ElementsAre(StartsWith(std::string{"range: "} + GetParam().Part)));
}

INSTANTIATE_TEST_SUITE_P(
    All, BadFixed,
    testing::Values(FixedCase{"the administrator code is not the same twice", 4, 0x13},
                    FixedCase{"code filler", 5, 0xEF}, FixedCase{"code filler", 11, 0},
                    FixedCase{"channel less 1", 12, 12}, FixedCase{"lock mode", 13, 0x15},
                    FixedCase{"calendar flag", 14, 2}, FixedCase{"lock timer flag", 15, 2},
                    FixedCase{"priority", 16, 5}, FixedCase{"level", 17, 0}, FixedCase{"signal", 18, 0},
                    FixedCase{"signal", 19, 3}, FixedCase{"first option", 20, 1}, FixedCase{"second option", 21, 2},
                    FixedCase{"erase option", 24, 2}, FixedCase{"rest of the values", 25, 1},
                    FixedCase{"rest of the values", 127, 1}, FixedCase{"timer table A", 128, 11},
                    FixedCase{"timer table A", 129, 24}, FixedCase{"timer table A", 182, 60},
                    FixedCase{"rest of timer table A", 183, 1}, FixedCase{"timer table B", 259, 24},
                    FixedCase{"rest of timer table B", 286, 1}, FixedCase{"single holidays", 384, 1},
                    FixedCase{"rest of the single holidays", 504, 1}, FixedCase{"permanent holidays", 512, 1},
                    FixedCase{"rest of the permanent holidays", 639, 1}));

TEST(BadFixedBytes, an_administrator_code_with_a_nibble_0_is_judged_in_both_places) {
    NetBench bench;
    Bytes fixed = NetBench::Fixed(0);
    fixed[2] = fixed[7] = 0x10;
    bench.Take(bench.Only(fixed));
    EXPECT_THAT(bench.Findings(),
                ElementsAre(StartsWith("range: administrator code:"), StartsWith("range: administrator code again:")));
}

TEST(BadFixedBytes, a_lock_mode_must_not_go_to_a_lock_that_has_none) {
    for (const auto& [serial, findings] : {std::pair<DeviceAddress, std::size_t>{{0x0C, 0, 0, 1}, 1U},
                                           {{0x0B, 0x49, 0xFF, 0xFF}, 0U},
                                           {{0x0D, 0xFF, 0xB9, 0xEF}, 0U}}) {
        NetBench bench;
        bench.To = serial;
        bench.Take(bench.Only(NetBench::Fixed(0)));
        EXPECT_EQ(bench.Findings().size(), findings) << HexBytes(serial);
    }
    NetBench bench;
    bench.To = {0x0C, 0, 0, 1};
    Bytes fixed = NetBench::Fixed(0);
    fixed[13] = 0xFF;
    bench.Take(bench.Only(fixed));
    EXPECT_THAT(bench.Findings(), IsEmpty());
}

/// One byte of a user's record.
struct UserCase {
    const char* Part;
    std::uint8_t Kind;
    std::size_t Index;
    std::uint8_t Value;
};
void PrintTo(const UserCase& c, std::ostream* out) {
    *out << c.Part << " at " << c.Index << " of kind " << int{c.Kind};
}

class BadUser : public testing::TestWithParam<UserCase> {};

TEST_P(BadUser, is_judged_once) {
    NetBench bench;
    const bool finger = GetParam().Kind == 4;
    Bytes record = finger ? NetBench::FingerUser(7, Fill(29)) : NetBench::User(1);
    record[0] = GetParam().Kind;
    record[GetParam().Index] = GetParam().Value;
    // A template of two bytes goes with the finger.
    const int count = finger ? 2 : 1;
    const std::size_t word = finger ? 1258 : 742;
    EXPECT_EQ(bench.Code(bench.Block(1, count, word, 0x14, Join({NetBench::Fixed(1), record}))), 0x15);
    EXPECT_THAT(bench.Findings(), ElementsAre(StartsWith(std::string{"range: user 1, "} + GetParam().Part)));
}

INSTANTIATE_TEST_SUITE_P(
    All, BadUser,
    testing::Values(UserCase{"kind", 0, 0, 0}, UserCase{"kind", 5, 0, 5}, UserCase{"name", 1, 1, 0},
                    UserCase{"name", 2, 16, 0x1F}, UserCase{"code", 1, 17, 0x0A}, UserCase{"code", 3, 21, 0x11},
                    UserCase{"timer number", 1, 22, 3}, UserCase{"weighting", 1, 26, 1}, UserCase{"rest", 1, 27, 1},
                    UserCase{"rest", 1, 63, 1}, UserCase{"rest", 2, 47, 1}, UserCase{"filler", 3, 27, 1},
                    UserCase{"filler", 3, 30, 1}, UserCase{"group digit", 3, 31, 10}, UserCase{"rest", 3, 58, 1},
                    UserCase{"name", 4, 1, 0}, UserCase{"timer number", 4, 19, 3}, UserCase{"weighting", 4, 23, 1},
                    UserCase{"premium flag", 4, 24, 2}, UserCase{"rest", 4, 54, 1}));

// ---- headers and lengths

/// One byte of a clock telegram's header.
struct HeaderCase {
    std::size_t Index;
    std::uint8_t Value;
    const char* Finding;
};
void PrintTo(const HeaderCase& c, std::ostream* out) {
    *out << c.Finding;
}

class BadHeader : public testing::TestWithParam<HeaderCase> {};

TEST_P(BadHeader, is_judged_once) {
    NetBench bench;
    bench.Take(bench.Only(NetBench::Fixed(0)));
    Bytes frame = bench.Clock();
    frame[GetParam().Index] = GetParam().Value;
    EXPECT_EQ(bench.Code(frame), 0x1F);
    EXPECT_THAT(bench.Findings(), ElementsAre(std::string{"header: "} + GetParam().Finding));
}

INSTANTIATE_TEST_SUITE_P(All, BadHeader,
                         testing::Values(HeaderCase{28, 0xFE, "byte 28 is 0xFE, not 0xFF"},
                                         HeaderCase{29, 0, "byte 29 is 0x00, not 0xFF"},
                                         HeaderCase{30, 1, "byte 30 is 0x01, not 0x00"},
                                         HeaderCase{31, 9, "byte 31 is 0x09, not 0x00"},
                                         HeaderCase{3, 3, "block 1 of 3"}, HeaderCase{1, 3, "block 3 of 1"},
                                         HeaderCase{9, 8, "another lock than in block 1"}));

TEST(BadHeaderBytes, the_mark_at_26_must_be_there_on_the_line_and_not_in_the_sum) {
    NetBench bench;
    Bytes wire = NetworkWire(bench.Clock(), bench.System.World().Adapter.Key);
    ASSERT_EQ(wire[26], 1);
    wire[26] = 0;
    bench.System.Receive(wire);
    EXPECT_THAT(bench.Findings(), ElementsAre("header: byte 26 is 0x00, not 0x01", "order: the clock is not due"));
}

TEST(BadHeaderBytes, count_and_units_stay_the_same_through_a_run) {
    NetBench bench;
    std::vector<Bytes> users;
    for (int n = 1; n <= 10; ++n) {
        users.push_back(NetBench::User(n));
    }
    const Bytes first = Join({NetBench::Fixed(10), Join({users.begin(), users.end() - 1})});
    bench.Take(bench.Block(1, 2, 1258, 0x14, first));
    bench.Units[0] = 1;
    EXPECT_EQ(bench.Code(bench.Block(2, 3, 97, 0x14, users[9])), 0x15);
    EXPECT_THAT(bench.Findings(),
                ElementsAre("header: the count of blocks has changed", "header: the units have changed"));
}

TEST(BadLength, a_length_word_that_does_not_fit_the_users_is_judged) {
    NetBench alone;
    alone.Take(alone.Block(1, 1, 678, 0x14, NetBench::Fixed(0)));
    EXPECT_THAT(alone.Findings(), ElementsAre("length: block 1 has the length word 678, not 677"));
    NetBench first;
    first.Take(first.Block(1, 2, 677, 0x14, NetBench::Fixed(0)));
    EXPECT_THAT(first.Findings(), ElementsAre("length: block 1 has the length word 677, not 1258"));
}

TEST(BadLength, too_few_blocks_for_the_users_are_judged) {
    NetBench bench;
    std::vector<Bytes> users(9, NetBench::User(1));
    bench.Take(bench.Block(1, 1, 1258, 0x14, Join({NetBench::Fixed(10), Join(users)})));
    EXPECT_THAT(bench.Findings(), ElementsAre("header: 1 blocks for 10 users"));
}

TEST(BadLength, more_users_than_there_can_be_are_not_taken) {
    NetBench bench;
    Bytes fixed = NetBench::Fixed(0);
    fixed[0] = 2;
    EXPECT_THAT(bench.Take(bench.Block(1, 30, 1258, 0x14, Join({fixed, Fill(576)}))), IsEmpty());
    EXPECT_THAT(bench.Findings(), ElementsAre("range: a first block for 512 users"));
}

TEST(BadLength, a_length_word_that_no_telegram_has_is_judged_at_once) {
    for (const std::size_t word : {36U, 1306U, 0xFFFFU}) {
        NetBench bench;
        Bytes head = bench.Clock();
        head[4] = static_cast<std::uint8_t>(word / 256);
        head[5] = static_cast<std::uint8_t>(word % 256);
        bench.System.Receive(Bytes(head.begin(), head.begin() + 6));
        EXPECT_THAT(bench.Findings(), ElementsAre(HasSubstr("as long as the length word tells")));
        EXPECT_EQ(bench.Code(bench.Only(NetBench::Fixed(0))), 0x15); // the next one is heard
    }
}

TEST(BadCode, an_unknown_code_gets_no_answer) {
    NetBench bench;
    Bytes frame = bench.HistoryNext(1);
    frame[27] = 0x0B;
    EXPECT_THAT(bench.Take(frame), IsEmpty());
    EXPECT_THAT(bench.Findings(), ElementsAre("code: no network telegram has the code 0x0B"));
}

// ---- sums

TEST(BadSum, a_block_is_dropped_and_may_come_again) {
    NetBench bench;
    const Bytes good = bench.Only(NetBench::Fixed(1), {NetBench::User(1)});
    Bytes frame = good;
    frame.back() ^= 1;
    EXPECT_THAT(bench.Take(frame), IsEmpty());
    EXPECT_THAT(bench.Findings(), ElementsAre("checksum: the frame's checksum does not fit the deciphered bytes"));
    EXPECT_EQ(bench.Code(good), 0x15);
}

TEST(BadSum, each_inner_sum_is_looked_at) {
    for (const std::size_t at : {160U, 289U, 418U, 547U, 676U, 741U}) {
        NetBench bench;
        Bytes frame = bench.Only(NetBench::Fixed(1), {NetBench::User(1)});
        frame[at] ^= 1;
        frame.pop_back();
        frame.push_back(RotateSum(frame));
        EXPECT_THAT(bench.Take(frame), IsEmpty());
        EXPECT_THAT(bench.Findings(),
                    ElementsAre("checksum: the inner sum at " + std::to_string(at) + " does not fit"));
    }
}

TEST(BadSum, clock_and_history_have_theirs_over_their_own_place_too) {
    NetBench bench;
    bench.Take(bench.Only(NetBench::Fixed(0)));
    Bytes clock = bench.Clock();
    clock.back() = RotateSum({5, 3, 26, 10, 30, 0}); // without its own place
    EXPECT_THAT(bench.Take(clock), IsEmpty());
    Bytes start = bench.HistoryStart(), next = bench.HistoryNext(1);
    start[37] ^= 1;
    next[37] ^= 1;
    EXPECT_THAT(bench.Take(start), IsEmpty());
    EXPECT_THAT(bench.Take(next), IsEmpty());
    EXPECT_THAT(bench.Findings(),
                ElementsAre("checksum: the inner sum at 38 does not fit", "checksum: the inner sum at 37 does not fit",
                            "checksum: the inner sum at 37 does not fit"));
}

// ---- clock, history, fingerprints

TEST(BadClock, date_and_time_are_judged) {
    for (const auto& [time, finding] : {std::pair{Bytes{31, 4, 26, 10, 30, 0}, "range: date: day 31 of month 4"},
                                        std::pair{Bytes{5, 3, 26, 24, 30, 0}, "range: time: hour 24"}}) {
        NetBench bench;
        bench.Take(bench.Only(NetBench::Fixed(0)));
        EXPECT_EQ(bench.Code(bench.Clock(time)), 0x1F);
        EXPECT_THAT(bench.Findings(), ElementsAre(finding));
    }
}

TEST(BadHistoryRequest, code_filler_and_rest_are_judged) {
    NetBench bench;
    Bytes frame = bench.HistoryStart({0x1A, 0x42, 0x02});
    frame[48] = 1;
    EXPECT_EQ(bench.Code(frame), 0x0B);
    EXPECT_THAT(bench.Findings(),
                ElementsAre(StartsWith("range: administrator code"), "range: something stands behind the inner sum"));
}

/// A run with one finger of number 7 and 40 bytes, up to the fingerprint block with these bytes.
std::vector<std::string> FingerFindings(const Bytes& stream) {
    NetBench bench;
    bench.Take(bench.Block(1, 2, 1258, 0x14, Join({NetBench::Fixed(1), NetBench::FingerUser(7, Fill(29))})));
    const std::size_t groups = (stream.size() + 127) / 128;
    EXPECT_EQ(bench.Code(bench.Block(2, 2, 32 + stream.size() + groups, 0x16, stream)), 0x17);
    return bench.Findings();
}

TEST(BadFingers, a_fingerprint_must_fit_its_user) {
    const Bytes finger = Join({{0, 7, 1, 40, 0}, Fill(38, 9)});
    EXPECT_THAT(FingerFindings(finger), IsEmpty());
    Bytes other = finger;
    other[1] = 8;
    EXPECT_THAT(FingerFindings(other), ElementsAre("range: user 1 and fingerprint 1 differ"));
    other = finger;
    other[2] = 0;
    EXPECT_THAT(FingerFindings(other), ElementsAre("range: user 1 and fingerprint 1 differ"));
    EXPECT_THAT(FingerFindings(Join({{0, 7, 1, 99, 0}, Fill(97, 9)})),
                ElementsAre("range: user 1 and fingerprint 1 differ")); // its slice is not zero
    EXPECT_THAT(FingerFindings(Join({finger, finger})), ElementsAre("range: 2 fingerprints for 1 users"));
}

TEST(BadFingers, a_fingerprint_that_is_cut_short_is_judged) {
    EXPECT_THAT(
        FingerFindings(Join({{0, 7, 1, 40, 0}, Fill(37, 9)})),
        ElementsAre("range: fingerprint 1 is 40 bytes long, and 42 are left", "range: user 1 has no fingerprint"));
    EXPECT_THAT(FingerFindings({0, 7, 1, 1, 0, 0}), ElementsAre("range: fingerprint 1 is 1 bytes long, and 6 are left",
                                                                "range: user 1 has no fingerprint"));
}

TEST(BadFingers, a_finger_without_fingerprint_blocks_is_judged) {
    NetBench bench;
    EXPECT_EQ(bench.Code(bench.Only(NetBench::Fixed(1), {NetBench::FingerUser(7, Fill(29))})), 0x15);
    EXPECT_THAT(bench.Findings(), ElementsAre("range: user 1 has no fingerprint"));
}

TEST(BadFingers, only_the_last_block_may_be_short) {
    NetBench bench;
    bench.Take(bench.Block(1, 3, 1258, 0x14, NetBench::Fixed(0)));
    EXPECT_EQ(bench.Code(bench.Block(2, 3, 49, 0x16, Fill(16))), 0x16);
    EXPECT_THAT(bench.Findings(), ElementsAre("length: block 2 of the fingerprints is not full: 49"));
}

TEST(BadUnits, a_unit_in_the_place_of_the_other_type_is_judged) {
    VirtualWorld world = NetworkWorld();
    world.Units.resize(1);
    world.Units[0].Serial = {1, 0x60, 0, 3};
    world.Units[0].AdminCode = {0x1A, 0x42, 0x12};
    NetBench bench(world);
    bench.Units = Join({{1, 0x60, 0, 3}, Fill(12)});
    bench.Take(bench.Only(NetBench::Fixed(0)));
    bench.Take(bench.Clock());
    bench.Pass(5000);
    EXPECT_THAT(bench.Findings(), ElementsAre("range: place 0 holds a unit of type 1"));
}

} // namespace
} // namespace qvm::test
