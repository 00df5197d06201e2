#include "SimBench.h"

#include <gmock/gmock.h>
#include <rapidcheck.h>

namespace qvm::test {
namespace {

using testing::IsEmpty;

constexpr std::uint32_t S = 0x00002C10;

/// A telegram whose form is judged before anything else; it need not be due.
struct FieldCase {
    const char* Name;
    std::uint8_t Code;
    Bytes Payload;
};
void PrintTo(const FieldCase& c, std::ostream* out) {
    *out << c.Name;
}

std::vector<Judgement> Of(const SimBench& bench, Wrong kind) {
    std::vector<Judgement> list;
    for (const Judgement& judgement : bench.System.Judgements()) {
        if (judgement.Kind == kind) {
            list.push_back(judgement);
        }
    }
    return list;
}

Bytes With(Bytes bytes, std::size_t index, std::uint8_t value) {
    bytes.at(index) = value;
    return bytes;
}

const Bytes Login{0x1A, 0x42, 0x12, 0xEE, 5, 0xAA, 0x55};
const Bytes UserShort = CodeUserData(1);
const Bytes UserLong = Join({{0, 1, 0x12, 0x34, 0xEE, 0xEE, 0xEE, 0, 6, 1}, Fill(20)});
const Bytes FingerUser = Join({{0, 7}, Name16("A_007_FP"), Fill(28), {0x0C}});
const Bytes CodeChange{0x33, 0x33, 0x1A, 0x42, 0x12, 0xEE, 0xEE, 0x99, 0x99, 0xAA, 0xEE, 0xEE};

class GoodField : public testing::TestWithParam<FieldCase> {};
class BadField : public testing::TestWithParam<FieldCase> {};

TEST_P(GoodField, passes) {
    SimBench bench(OneLock(S));
    bench.Say(GetParam().Code, GetParam().Payload);
    for (const Wrong kind : {Wrong::Range, Wrong::Length, Wrong::Code, Wrong::Header}) {
        EXPECT_THAT(Of(bench, kind), IsEmpty());
    }
}

TEST_P(BadField, is_judged_once) {
    SimBench bench(OneLock(S));
    bench.Say(GetParam().Code, GetParam().Payload);
    const auto list = Of(bench, Wrong::Range);
    ASSERT_EQ(list.size(), 1U) << bench.System.JudgementLines();
    EXPECT_EQ(list[0].Code, GetParam().Code);
}

INSTANTIATE_TEST_SUITE_P(
    All, GoodField,
    testing::Values(FieldCase{"login", 0x04, Login}, FieldCase{"leap day", 0x07, {29, 2, 24}},
                    FieldCase{"last second", 0x09, {23, 59, 59}}, FieldCase{"user", 0x0E, UserShort},
                    FieldCase{"user with identification", 0x0E, UserLong}, FieldCase{"finger", 0x40, FingerUser},
                    FieldCase{"key slot name",
                              0x0B,
                              {'K', 'E', 'Y', 0, ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '}},
                    FieldCase{"finger code", 0x0E, With(With(UserShort, 2, 0xEE), 3, 0xEE)},
                    FieldCase{"odd code length", 0x0E, With(UserShort, 3, 0x3E)},
                    FieldCase{"code change", 0x12, CodeChange}, FieldCase{"mode X", 0x32, {0x0A}},
                    FieldCase{"mode Y", 0x32, {0x14}}, FieldCase{"lowest priority", 0x2F, {0}},
                    FieldCase{"highest priority", 0x2F, {4}}, FieldCase{"listen time", 0x33, {1, 1, 0xFE, 0xFF, 0}},
                    FieldCase{"yearly leap day", 0x21, Join({{0}, {29, 2, 99, 29, 2, 99}, Fill(35)})}));

INSTANTIATE_TEST_SUITE_P(
    All, BadField,
    testing::Values(
        FieldCase{"login code with a nibble 0", 0x04, With(Login, 0, 0x10)},
        FieldCase{"login code with a filler", 0x04, With(Login, 2, 0x1E)},
        FieldCase{"login filler", 0x04, With(Login, 3, 0)}, FieldCase{"login channel 0", 0x04, With(Login, 4, 0)},
        FieldCase{"login channel 13", 0x04, With(Login, 4, 13)}, FieldCase{"login mark", 0x04, With(Login, 5, 0x55)},
        FieldCase{"day 0", 0x07, {0, 3, 26}}, FieldCase{"month 13", 0x07, {1, 13, 26}},
        FieldCase{"31 April", 0x07, {31, 4, 26}}, FieldCase{"29 February 2026", 0x07, {29, 2, 26}},
        FieldCase{"year 100", 0x07, {1, 1, 100}}, FieldCase{"hour 24", 0x09, {24, 0, 0}},
        FieldCase{"minute 60", 0x09, {0, 60, 0}}, FieldCase{"second 60", 0x09, {0, 0, 60}},
        FieldCase{"empty name", 0x0B, Fill(16)},
        FieldCase{"control character in a name", 0x0B, With(Name16("A"), 3, 7)},
        FieldCase{"code with nibble 0", 0x0E, With(UserShort, 2, 0x01)},
        FieldCase{"code filler 0", 0x0E, With(UserShort, 6, 0x00)},
        FieldCase{"digit behind the filler", 0x0E, With(UserShort, 6, 0x12)},
        FieldCase{"weighting", 0x0E, With(UserShort, 8, 1)},
        FieldCase{"identification mark in the short form", 0x0E, With(UserShort, 9, 1)},
        FieldCase{"no identification mark in the long form", 0x0E, With(UserLong, 9, 0)},
        FieldCase{"code change mark", 0x12, With(CodeChange, 0, 0)},
        FieldCase{"code change filler", 0x12, With(CodeChange, 11, 0)}, FieldCase{"history parameter", 0x17, {1}},
        FieldCase{"part 3 of table A", 0x19, Join({Fill(40), {3}})},
        FieldCase{"day selector 11", 0x19, With(Fill(40), 0, 11)},
        FieldCase{"timer hour 24", 0x19, With(Fill(40), 1, 24)},
        FieldCase{"timer minute 60", 0x19, With(Fill(40), 39, 60)},
        FieldCase{"row 2 in part 1 of table A", 0x19, Join({With(Fill(40), 10, 1), {1}})},
        FieldCase{"row in part 2 of table A", 0x19, Join({With(Fill(40), 0, 1), {2}})},
        FieldCase{"row 6 of table B", 0x1B, With(Fill(40), 30, 1)},
        FieldCase{"row in part 1 of table B", 0x1B, Join({With(Fill(40), 0, 1), {1}})},
        FieldCase{"holiday month 0", 0x1F, Join({{0}, {1, 0, 26, 2, 1, 26}, Fill(36)})},
        FieldCase{"holiday behind a gap", 0x1F, Join({{0}, Fill(6), {1, 1, 26, 2, 1, 26}, Fill(30)})},
        FieldCase{"holiday that ends before it begins", 0x1F, Join({{0}, {2, 1, 26, 1, 1, 26}, Fill(36)})},
        FieldCase{"part 3 of the single days", 0x1F, Join({{3}, Fill(42)})},
        FieldCase{"permanent day with a year", 0x21, Join({{0}, {1, 5, 26, 1, 5, 26}, Fill(35)})},
        FieldCase{"permanent day 32", 0x21, Join({{0}, {32, 5, 99, 1, 5, 99}, Fill(35)})},
        FieldCase{"flag 2", 0x23, {2}}, FieldCase{"calendar flag 2", 0x25, {2}}, FieldCase{"erase option 2", 0x27, {2}},
        FieldCase{"channel 13", 0x28, {12}}, FieldCase{"priority 5", 0x2F, {5}}, FieldCase{"mode 0xFF", 0x32, {0xFF}},
        FieldCase{"listen option 2", 0x33, {2, 0, 0, 0, 0}}, FieldCase{"listen filler", 0x33, {0, 0, 0, 0, 9}},
        FieldCase{"reader mark", 0x3B, {0, 0x5A, 0, 0}}, FieldCase{"reader level", 0x3B, {1, 0x5B, 0, 0}},
        FieldCase{"reader pair", 0x3B, {1, 0x5A, 3, 0}},
        FieldCase{"finger weighting", 0x40, With(FingerUser, 46, 0x0B)},
        FieldCase{"group digit as a character", 0x43, Join({{1, 1, '7'}, Fill(16)})},
        FieldCase{"identification part 2 in the first form", 0x43, Join({{1, 2, 7}, Fill(16)})}));

TEST(Judge, a_wrong_length_is_told_and_the_telegram_dropped) {
    SimBench bench(OneLock(S));
    bench.LogIn();
    EXPECT_THAT(bench.Say(0x27, {0, 0}), IsEmpty());
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Length);
    EXPECT_EQ(bench.System.World().Locks[0].Erases, 0);
}

TEST(Judge, an_unknown_code_is_told) {
    SimBench bench(OneLock(S));
    EXPECT_THAT(bench.Say(0x30), IsEmpty());
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Code);
}

TEST(Judge, a_wrong_checksum_is_told_and_nothing_comes_back) {
    SimBench bench(OneLock(S));
    Bytes wire = bench.Telegram(0x05, {});
    wire.back() ^= 1;
    EXPECT_THAT(bench.SayWire(wire), IsEmpty());
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Checksum);
    EXPECT_EQ(bench.System.Judgements()[0].Code, 0x05);
    EXPECT_EQ(bench.System.Counters().BadSums, 1);
}

TEST(Judge, every_fixed_byte_of_the_header_is_told) {
    for (const std::size_t index : {7U, 9U, 10U, 11U, 12U, 13U}) {
        SimBench bench(OneLock(S));
        Bytes frame = bench.Telegram(0x05, {});
        frame.pop_back();
        frame[index] = 0x5A;
        bench.SayWire(OnWire(frame));
        ASSERT_EQ(Of(bench, Wrong::Header).size(), 1U) << index;
    }
}

TEST(Judge, a_lock_wants_address_mode_0) {
    SimBench bench(OneLock(S));
    bench.LogIn();
    bench.Mode = 1;
    bench.Say(0x05);
    EXPECT_EQ(Of(bench, Wrong::Header).size(), 1U);
    bench.Mode = 3;
    bench.Say(0x05);
    EXPECT_EQ(Of(bench, Wrong::Header).size(), 2U);
}

TEST(Judge, the_identification_class_belongs_to_one_telegram) {
    SimBench bench(OneLock(S));
    bench.Class = 0xC3;
    bench.Say(0x05);
    EXPECT_EQ(Of(bench, Wrong::Header).size(), 1U);
    bench.Say(0x43, Join({{1, 2, 7, 0, 1}, Fill(11)}));
    EXPECT_EQ(Of(bench, Wrong::Header).size(), 1U);
    bench.Class = 0x11;
    bench.Say(0x43, Join({{1, 2, 7, 0, 1}, Fill(11)}));
    EXPECT_EQ(Of(bench, Wrong::Header).size(), 2U);
}

TEST(Judge, bytes_between_frames_and_broken_stuffing_are_told) {
    SimBench bench(OneLock(S));
    bench.SayWire({0x55});
    bench.SayWire({0x02, 0x0D, 0x05, 0x02, 0x07});
    bench.SayWire(bench.Telegram(0x04, Login));
    EXPECT_EQ(Of(bench, Wrong::Line).size(), 3U) << "the byte, the broken frame, and the false frame behind it";
    EXPECT_EQ(bench.System.Counters().Garbage, 1);
    EXPECT_EQ(bench.System.Counters().BadStuffings, 2);
    EXPECT_EQ(bench.System.Counters().Telegrams, 1);
}

TEST(Judge, the_adapters_own_telegrams_are_judged_too) {
    SimBench bench(OneLock(S));
    bench.SayRaw(0x68, {1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 0, 9});
    bench.SayRaw(0x6B, {13, 0, 0, 0x2C, 0x10, 0, 0, 0, 0, 0, 0, 0});
    bench.SayRaw(0x6C, {0xAA, 0xBB, 0xCC, 0xDD, 0xEF, 0, 0, 0, 0, 0, 0, 0});
    bench.SayRaw(0x6D, Fill(22));
    bench.SayRaw(0x6F, {5, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(Of(bench, Wrong::Range).size(), 5U) << bench.System.JudgementLines();
}

struct SlotCase {
    const char* Name;
    std::uint8_t Code;
    Bytes Payload;
    std::uint8_t Class;
};
void PrintTo(const SlotCase& c, std::ostream* out) {
    *out << c.Name;
}
class WrongSlot : public testing::TestWithParam<SlotCase> {};

TEST_P(WrongSlot, is_judged) {
    SimBench bench(OneLock(S));
    bench.LogIn();
    bench.Say(0x0A);
    bench.Say(0x0B, Name16("A"));
    bench.System.ClearJudgements();
    bench.Class = GetParam().Class;
    bench.Say(GetParam().Code, GetParam().Payload);
    EXPECT_EQ(Of(bench, Wrong::Range).size(), 1U) << bench.System.JudgementLines();
}
INSTANTIATE_TEST_SUITE_P(All, WrongSlot,
                         testing::Values(SlotCase{"name", 0x0D, Join({{0, 2}, Name16("A")}), 0x11},
                                         SlotCase{"data", 0x0E, CodeUserData(256), 0x11},
                                         SlotCase{"groups", 0x37, {0, 0, 0, 0, 0}, 0x11},
                                         SlotCase{"identification", 0x43, Join({{1, 2, 7, 1, 1}, Fill(11)}), 0xC3},
                                         SlotCase{"another name", 0x0D, Join({{0, 1}, Name16("B")}), 0x11}));

TEST(Judge, a_timer_selector_must_fit_the_tables) {
    SimBench bench(OneLock(S));
    bench.LogIn();
    bench.Say(0x0A);
    bench.System.World().Locks[0].FormA = TableForm::Short;
    bench.System.ClearJudgements();
    bench.Say(0x0E, CodeUserData(1, 3));
    EXPECT_EQ(Of(bench, Wrong::Range).size(), 1U);
    bench.System.World().Locks[0].FormA = TableForm::None;
    bench.Say(0x0E, CodeUserData(1, 1));
    EXPECT_EQ(Of(bench, Wrong::Range).size(), 2U);
}

TEST(Judge, keeps_a_thousand_findings_and_counts_the_rest) {
    SimBench bench(OneLock(S));
    bench.SayWire(Fill(1005, 0x55));
    EXPECT_EQ(bench.System.Judgements().size(), 1000U);
    EXPECT_THAT(bench.System.JudgementLines(), testing::HasSubstr("and 5 more"));
}

TEST(Judge, wild_bytes_never_harm_and_the_next_login_is_served) {
    EXPECT_TRUE(rc::check([] {
        VirtualWorld world = OneLock(S);
        VirtualUnit unit;
        unit.Type = *rc::gen::element(1, 2);
        unit.Serial = AddressOf(0x00003D20);
        unit.Channel = 5;
        world.Units.push_back(unit);
        SimBench bench(world);
        bench.LogIn();
        const auto wild = *rc::gen::container<Bytes>(rc::gen::arbitrary<std::uint8_t>());
        bench.SayWire(wild);
        RC_ASSERT(bench.LogIn() == 4);
    }));
}

TEST(Judge, wild_telegrams_with_good_checksums_never_harm) {
    EXPECT_TRUE(rc::check([] {
        VirtualWorld world = OneLock(*rc::gen::element<std::uint32_t>(0x2C10, 0x01500C10, 0x0E000000));
        world.Locks[0].EraseBusyMs = 0;
        VirtualUnit unit;
        unit.Type = *rc::gen::element(1, 2);
        unit.Serial = AddressOf(0x00003D20);
        unit.Channel = 5;
        world.Units.push_back(unit);
        SimBench bench(world);
        bench.LogIn();
        const int count = *rc::gen::inRange(1, 60);
        for (int n = 0; n < count; ++n) {
            const auto forms = Forms();
            const Form& form = forms[*rc::gen::inRange<std::size_t>(0, forms.size())];
            const auto byte = rc::gen::weightedOneOf<std::uint8_t>(
                {{1, rc::gen::arbitrary<std::uint8_t>()}, {2, rc::gen::inRange<std::uint8_t>(0, 4)}});
            Bytes body = *rc::gen::container<Bytes>(form.Length - std::size_t{form.Raw ? 2U : 13U}, byte);
            if (form.Raw) {
                bench.SayRaw(form.Code, body);
            } else {
                bench.To =
                    *rc::gen::element(AddressOf(0x00003D20), bench.System.World().Locks[0].Serial, DeviceAddress{});
                bench.Mode = *rc::gen::element<std::uint8_t>(0, 1);
                bench.Say(form.Code, body);
            }
        }
        const Judgement last = bench.System.Judgements().empty() ? Judgement{} : bench.System.Judgements().back();
        RC_ASSERT(last.Kind != Wrong::Checksum || last.Code == 0x4A);
        RC_ASSERT(bench.System.Counters().Telegrams == count + 1);
    }));
}

} // namespace
} // namespace qvm::test
