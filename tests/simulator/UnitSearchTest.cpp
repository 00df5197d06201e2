// What a search of the radio channels hears, telegram by telegram.

#include "SimBench.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t FoundUnit = 0x01600003, OtherUnit = 0x00003D20;
const Bytes SearchOnWire{0x02, 0x0D, 0x4B, 0, 0, 0, 0, 0x11, 0x01, 0x33, 0x88, 0x01, 0, 0, 0x4B};
const Bytes GoodCode{0x1A, 0x42, 0x12}, WrongCode{0x99, 0x42, 0x12};

VirtualUnit NewUnit(std::uint32_t serial, std::uint8_t signal, int channel = 1) {
    VirtualUnit unit;
    unit.Serial = AddressOf(serial);
    unit.AdminCode = {0x1A, 0x42, 0x12};
    unit.Channel = channel;
    unit.Air.Signal = signal;
    return unit;
}

/// A lock on channel 5, and a unit that nobody has programmed yet.
struct SearchBench : SimBench {
    explicit SearchBench(const std::vector<VirtualUnit>& units) : SimBench(WithUnits(units)) {
        To = {};
        Mode = 1;
    }
    static VirtualWorld WithUnits(const std::vector<VirtualUnit>& units) {
        VirtualWorld world = OneLock(0x00002C10);
        world.Units = units;
        return world;
    }
    void Tune(std::uint8_t channel) {
        EXPECT_THAT(SayRaw(0x6B, {channel, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}), IsEmpty());
    }
    std::vector<Bytes> Search(std::uint8_t channel) {
        Tune(channel);
        return SayWire(SearchOnWire);
    }
    /// Code and index 3 of the one answer; 0 and 0 when nothing came.
    std::pair<int, int> Answer(std::uint8_t channel) {
        const auto frames = Search(channel);
        EXPECT_LE(frames.size(), 1U);
        return frames.empty() ? std::pair{0, 0} : std::pair<int, int>{frames[0][2], frames[0][3]};
    }
    /// The serial that answers; empty when no unit does.
    Bytes Serial(std::uint8_t channel) {
        const auto frames = Search(channel);
        const bool found = frames.size() == 1 && frames[0][2] == 0x4B;
        return found ? Bytes(frames[0].begin() + 7, frames[0].begin() + 11) : Bytes{};
    }
    /// All that comes for a login that names no device, on the channel to which the adapter is sent for it.
    std::vector<Bytes> Call(std::uint8_t channel, const Bytes& code = GoodCode) {
        Tune(channel);
        return CallAgain(channel, code);
    }
    std::vector<Bytes> CallAgain(std::uint8_t channel, const Bytes& code = GoodCode) {
        return Say(0x04, Join({code, {0xEE, channel, 0xAA, 0x55}}));
    }
    std::vector<Wrong> Findings() const {
        std::vector<Wrong> kinds;
        for (const Judgement& judgement : System.Judgements()) {
            kinds.push_back(judgement.Kind);
        }
        return kinds;
    }
};

TEST(UnitSearch, a_new_unit_on_channel_1_tells_its_serial_its_signal_and_what_it_is) {
    SearchBench bench({NewUnit(FoundUnit, 0x5C)});
    EXPECT_EQ(bench.Search(1).size(), 1U);
    // By hand: signal at 4, type at 6, serial at 7 to 10; the byte before the sum lies outside it.
    const Bytes wire{0x02, 0x0D, 0x4B, 0, 0x5C, 0, 6, 0x01, 0x60, 0, 0x03, 0, 0, 0, 0, 0x8B};
    EXPECT_EQ(bench.Wire, wire);
    EXPECT_EQ(bench.System.JudgementLines(), "");
}

TEST(UnitSearch, hears_units_of_both_types_and_no_lock) {
    VirtualUnit second = NewUnit(OtherUnit, 40, 2);
    second.Type = 2;
    second.Air.ScanType = 41;
    SearchBench bench({NewUnit(FoundUnit, 40), second});
    EXPECT_THAT(bench.Serial(1), ElementsAre(0x01, 0x60, 0x00, 0x03));
    EXPECT_THAT(bench.Serial(2), ElementsAre(0x00, 0x00, 0x3D, 0x20));
    EXPECT_EQ(bench.Search(2).at(0)[6], 41);
    EXPECT_EQ(bench.Answer(5), std::pair(0x69, 0x64)) << "there is but a lock";
    EXPECT_EQ(bench.System.JudgementLines(), "");
}

TEST(UnitSearch, a_channel_where_nobody_listens_is_no_contact) {
    SearchBench bench({NewUnit(FoundUnit, 40, 7)});
    for (std::uint8_t channel = 1; channel <= 12; ++channel) {
        EXPECT_EQ(bench.Answer(channel), channel == 7 ? std::pair(0x4B, 0) : std::pair(0x69, 0x64)) << int{channel};
    }
    EXPECT_EQ(bench.System.JudgementLines(), "");
}

TEST(UnitSearch, the_loudest_of_several_answers_and_the_first_of_two_that_are_as_loud) {
    // 0xA8 is 88, as it counts downwards from 128.
    SearchBench bench({NewUnit(0x11, 20), NewUnit(0x12, 0xA8), NewUnit(0x13, 87), NewUnit(0x14, 88)});
    EXPECT_THAT(bench.Serial(1), ElementsAre(0, 0, 0, 0x12));
}

TEST(UnitSearch, one_that_answers_poorly_is_heard_with_a_broken_checksum) {
    VirtualUnit unit = NewUnit(FoundUnit, 0x5C);
    unit.Air.Answers = Answering::Poorly;
    SearchBench bench({unit});
    EXPECT_THAT(bench.Search(1), IsEmpty());
    ASSERT_EQ(bench.Wire.size(), 16U);
    EXPECT_EQ(Bytes(bench.Wire.begin() + 7, bench.Wire.begin() + 11), (Bytes{0x01, 0x60, 0x00, 0x03}));
    EXPECT_NE(bench.Wire[15], 0x8B);
}

TEST(UnitSearch, one_that_refuses_is_told_as_a_refusal_of_its_own) {
    VirtualUnit unit = NewUnit(FoundUnit, 40);
    unit.Air.Answers = Answering::Refusing;
    SearchBench bench({unit});
    EXPECT_EQ(bench.Answer(1), std::pair(0x69, 0x65));
}

TEST(UnitSearch, one_that_never_answers_leaves_the_line_silent_unless_another_answers) {
    VirtualUnit mute = NewUnit(FoundUnit, 127);
    mute.Air.Answers = Answering::Never;
    SearchBench bench({mute});
    EXPECT_THAT(bench.Search(1), IsEmpty());
    EXPECT_THAT(bench.Wire, IsEmpty());
    bench.System.World().Units.push_back(NewUnit(OtherUnit, 0));
    EXPECT_THAT(bench.Serial(1), ElementsAre(0x00, 0x00, 0x3D, 0x20));
}

TEST(UnitSearch, an_answer_can_be_late) {
    VirtualWorld world = SearchBench::WithUnits({NewUnit(FoundUnit, 40)});
    world.Faults = {*FaultFromText("late@0=700")};
    SimBench bench(world);
    bench.SayRaw(0x6B, {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_THAT(bench.SayWire(SearchOnWire), IsEmpty());
    bench.Pass(699);
    EXPECT_THAT(bench.Wire, IsEmpty());
    bench.Pass(1);
    EXPECT_EQ(FromWire(bench.Wire).at(2), 0x4B);
}

TEST(UnitSearch, an_older_adapter_does_not_know_it) {
    SearchBench bench({NewUnit(FoundUnit, 40)});
    bench.System.World().Adapter.Version = 11;
    EXPECT_THAT(bench.Search(1), IsEmpty());
    EXPECT_THAT(bench.Wire, IsEmpty());
    EXPECT_THAT(bench.Findings(), ElementsAre(Wrong::Code));
}

TEST(UnitSearch, with_an_address_or_in_another_mode_is_judged_and_answered) {
    SearchBench bench({NewUnit(FoundUnit, 40)});
    bench.To = AddressOf(FoundUnit);
    bench.Mode = 0;
    bench.Tune(1);
    EXPECT_EQ(bench.Ask(0x4B)[2], 0x4B);
    EXPECT_THAT(bench.Findings(), ElementsAre(Wrong::Header, Wrong::Header));
}

TEST(UnitSearch, needs_the_adapter_to_be_sent_to_the_channel_each_time) {
    SearchBench bench({NewUnit(FoundUnit, 40)});
    bench.Search(1);
    bench.SayWire(SearchOnWire);
    EXPECT_THAT(bench.Findings(), ElementsAre(Wrong::Order)) << "twice for one channel";
    bench.System.ClearJudgements();
    EXPECT_THAT(bench.SayRaw(0x6B, {1, 0, 0, 0x2C, 0x10, 0, 0, 0, 0, 0, 0, 0}), IsEmpty());
    bench.SayWire(SearchOnWire);
    EXPECT_THAT(bench.Findings(), ElementsAre(Wrong::Order)) << "sent to a lock";
    bench.System.ClearJudgements();
    bench.Tune(1);
    bench.To = AddressOf(OtherUnit);
    bench.Say(0x05);
    bench.SayWire(SearchOnWire);
    EXPECT_THAT(bench.Findings(), ElementsAre(Wrong::Order)) << "something else in between";
}

TEST(UnitSearch, an_adapter_for_enrolment_hears_nobody) {
    SearchBench bench({NewUnit(FoundUnit, 40)});
    bench.System.World().Adapter.Name = "ENROLLMENT1";
    EXPECT_THAT(bench.Search(1), IsEmpty());
}

// ---- the search by logins

TEST(LoginSearch, finds_a_lock_on_its_channel_and_begins_no_session) {
    SearchBench bench({});
    bench.System.World().Locks[0].Air = {.Signal = 0x5C, .ScanType = 3};
    for (std::uint8_t channel = 1; channel <= 12; ++channel) {
        const auto frames = bench.Call(channel);
        ASSERT_EQ(frames.size(), 1U);
        if (channel != 5) {
            EXPECT_EQ(frames[0][2], 0x69);
            EXPECT_EQ(frames[0][3], 0x64);
            continue;
        }
        const Bytes found{0x02, 0x0E, 0x04, 0, 0x5C, 0, 3, 0x00, 0x00, 0x2C, 0x10, 0, 0, 0, 4, 0};
        EXPECT_EQ(frames[0], found);
    }
    EXPECT_EQ(bench.System.JudgementLines(), "");
    bench.To = AddressOf(0x00002C10);
    bench.Mode = 0;
    EXPECT_EQ(bench.LogIn(), 4);
    bench.Ask(0x05);
    EXPECT_EQ(bench.System.World().Locks[0].Sessions, 1) << "the one that named it";
    EXPECT_EQ(bench.System.JudgementLines(), "");
}

TEST(LoginSearch, finds_units_as_well_and_tells_the_status_of_the_code) {
    VirtualUnit strange = NewUnit(OtherUnit, 40, 2);
    strange.LoginStatus = 3;
    SearchBench bench({NewUnit(FoundUnit, 40), strange});
    EXPECT_EQ(bench.Call(1).at(0)[14], 4);
    EXPECT_EQ(bench.Call(1, WrongCode).at(0)[14], 1);
    EXPECT_EQ(bench.Call(2).at(0)[14], 3);
    EXPECT_EQ(bench.System.JudgementLines(), "");
}

TEST(LoginSearch, needs_the_adapter_to_be_sent_to_the_channel_each_time) {
    SearchBench bench({NewUnit(FoundUnit, 40)});
    bench.Call(1);
    EXPECT_EQ(bench.System.JudgementLines(), "");
    bench.CallAgain(1);
    EXPECT_THAT(bench.Findings(), ElementsAre(Wrong::Order)) << "twice for one channel";
    bench.System.ClearJudgements();
    bench.Call(1);
    bench.SayWire(SearchOnWire);
    EXPECT_THAT(bench.Findings(), ElementsAre(Wrong::Order)) << "the channel was for the login";
}

TEST(LoginSearch, the_louder_of_a_lock_and_a_unit_answers) {
    SearchBench bench({NewUnit(FoundUnit, 101, 5)});
    EXPECT_EQ(bench.Call(5).at(0)[7], 0x01);
    bench.System.World().Locks[0].Air.Signal = 101;
    EXPECT_EQ(bench.Call(5).at(0)[9], 0x2C);
}

TEST(LoginSearch, and_a_login_by_name_are_answered_in_the_devices_manner) {
    SearchBench bench({NewUnit(FoundUnit, 40)});
    for (const bool named : {false, true}) {
        bench.To = named ? AddressOf(FoundUnit) : DeviceAddress{};
        Answering& manner = bench.System.World().Units[0].Air.Answers;
        manner = Answering::Never;
        EXPECT_THAT(bench.Call(1), IsEmpty());
        EXPECT_THAT(bench.Wire, IsEmpty());
        manner = Answering::Refusing;
        EXPECT_EQ(bench.Call(1).at(0)[3], 0x65);
        manner = Answering::Poorly;
        EXPECT_THAT(bench.Call(1), IsEmpty());
        EXPECT_GT(bench.Wire.size(), 15U) << "it came broken";
        manner = Answering::Well;
        EXPECT_EQ(bench.Call(1).at(0)[14], 4);
    }
}

} // namespace
} // namespace qvm::test
