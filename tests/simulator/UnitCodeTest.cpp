// A unit's code is changed, and it moves to another channel.

#include "SimBench.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t NewUnitSerial = 0x01600003;
const Bytes OldUnitCode{0x1A, 0x42, 0x12}, NewUnitCode{0x99, 0xAA, 0x11};

/// A session with a unit that listens on channel 1, as a change of its code has it.
struct UnitCodeBench : SimBench {
    explicit UnitCodeBench(int type) : SimBench(OneUnit(type)) { Mode = 1; }
    static VirtualWorld OneUnit(int type) {
        VirtualWorld world;
        VirtualUnit unit;
        unit.Type = type;
        unit.Serial = AddressOf(NewUnitSerial);
        unit.AdminCode = {0x1A, 0x42, 0x12};
        world.Units.push_back(unit);
        return world;
    }
    VirtualUnit& Unit() { return System.World().Units[0]; }
    int Begin(const Bytes& code = OldUnitCode) { return LogIn(code, 1); }
    /// Status of the change; -1 for anything else.
    int Change(const Bytes& from, const Bytes& to) {
        const Bytes reply = Ask(0x12, Join({{0x33, 0x33}, from, {0xEE, 0xEE}, to, {0xEE, 0xEE}}));
        return reply.size() > 14 && reply[2] == 0x12 ? reply[14] : -1;
    }
    void Move(std::uint8_t channel) {
        const auto less = static_cast<std::uint8_t>(channel - 1);
        EXPECT_EQ(Ask(0x28, {less})[2], 0x28);
        EXPECT_THAT(Say(0x66, {less}), IsEmpty());
        EXPECT_EQ(Ask(0x29, {less})[2], 0x29);
    }
};

struct UnitCode : testing::TestWithParam<int> {};

TEST_P(UnitCode, is_changed_and_the_unit_moves_and_is_found_there_with_the_new_code_alone) {
    UnitCodeBench bench(GetParam());
    EXPECT_EQ(bench.Begin(), 4);
    EXPECT_EQ(bench.Change(OldUnitCode, NewUnitCode), 4);
    bench.Move(7);
    EXPECT_EQ(bench.Ask(0x05)[2], 0x05) << "the adapter goes along";
    EXPECT_EQ(bench.System.JudgementLines(), "");
    EXPECT_EQ(bench.Closes, 1);
    EXPECT_EQ(bench.Unit().Sessions, 1);
    EXPECT_EQ(bench.Unit().Channel, 7);
    EXPECT_THAT(bench.Unit().AdminCode, ElementsAre(0x99, 0xAA, 0x11));
    EXPECT_EQ(bench.LogIn(NewUnitCode, 1), -1) << "not on its old channel";
    EXPECT_EQ(bench.LogIn(OldUnitCode, 7), 1);
    EXPECT_EQ(bench.LogIn(NewUnitCode, 7), 4);
}

TEST_P(UnitCode, stays_as_it_was_behind_a_refused_login) {
    UnitCodeBench bench(GetParam());
    EXPECT_EQ(bench.Begin(NewUnitCode), 1);
    EXPECT_EQ(bench.Change(NewUnitCode, NewUnitCode), 1) << "the status of that login";
    EXPECT_EQ(bench.System.JudgementLines(), "");
    EXPECT_EQ(bench.Ask(0x28, {6})[2], 0x69) << "no session is open";
    EXPECT_THAT(bench.Unit().AdminCode, ElementsAre(0x1A, 0x42, 0x12));
    EXPECT_EQ(bench.Begin(), 4);
}

TEST_P(UnitCode, is_refused_with_the_status_that_the_world_names) {
    UnitCodeBench bench(GetParam());
    bench.Unit().CodeStatus = 3;
    bench.Begin();
    EXPECT_EQ(bench.Change(OldUnitCode, NewUnitCode), 3);
    EXPECT_THAT(bench.Unit().AdminCode, ElementsAre(0x1A, 0x42, 0x12));
    EXPECT_EQ(bench.Ask(0x05)[2], 0x05);
    EXPECT_EQ(bench.System.JudgementLines(), "");
}

TEST_P(UnitCode, is_not_changed_without_a_login_or_twice) {
    UnitCodeBench bench(GetParam());
    EXPECT_EQ(bench.SayRaw(0x6B, {1, 0x01, 0x60, 0, 3, 0, 0, 0, 0, 0, 0, 0}).size(), 0U);
    EXPECT_EQ(bench.Change(OldUnitCode, NewUnitCode), -1);
    EXPECT_FALSE(bench.System.Judgements().empty());
    bench.Begin();
    bench.Change(OldUnitCode, NewUnitCode);
    bench.System.ClearJudgements();
    bench.Change(NewUnitCode, OldUnitCode);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Order);
}

TEST_P(UnitCode, a_move_without_a_change_and_the_setting_of_a_run_are_out_of_order) {
    UnitCodeBench bench(GetParam());
    bench.Begin();
    bench.Say(0x28, {6});
    bench.Begin();
    bench.Say(0x3D, {0, 0, 0x2C, 0x10});
    ASSERT_EQ(bench.System.Judgements().size(), 3U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Order);
    EXPECT_EQ(bench.System.Judgements()[1].Kind, Wrong::Range) << "no lock was programmed before";
    EXPECT_EQ(bench.System.Judgements()[2].Kind, Wrong::Order);
}

TEST_P(UnitCode, the_whole_session_is_in_the_address_mode_of_its_login) {
    UnitCodeBench bench(GetParam());
    bench.Begin();
    bench.Mode = 0;
    bench.Change(OldUnitCode, NewUnitCode);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Header);
}

INSTANTIATE_TEST_SUITE_P(BothTypes, UnitCode, testing::Values(1, 2));

TEST(UnitType1, takes_no_code_change_in_the_session_of_a_run) {
    UnitCodeBench bench(1);
    bench.Mode = 0;
    EXPECT_EQ(bench.Ask(0x04, {0x1A, 0x42, 0x12, 0xEE, 1})[14], 4);
    bench.Change(OldUnitCode, NewUnitCode);
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Order);
}

} // namespace
} // namespace qvm::test
