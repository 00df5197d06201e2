// The readers of the desk: keys, transponders, fingers.

#include "SimBench.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Credential Key(const Bytes& id, int delay = 100) {
    Credential key;
    key.Id = id;
    key.DelayMs = delay;
    key.Data = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    return key;
}

Credential Transponder(std::uint8_t slot, int delay = 100) {
    Credential transponder;
    transponder.What = Credential::Kind::Transponder;
    transponder.Slot = slot;
    transponder.DelayMs = delay;
    transponder.Id = {21, 22, 23, 24, 25, 26, 27, 28, 29, 30};
    transponder.Data.fill(7);
    return transponder;
}

Credential Finger() {
    Credential finger;
    finger.What = Credential::Kind::Finger;
    finger.DelayMs = 100;
    finger.StepMs = 10;
    finger.Template = {40, 41, 42, 43, 44};
    finger.PieceBytes = 2;
    return finger;
}

VirtualWorld Station(std::vector<Credential> presented = {}) {
    VirtualWorld world = OneLock(0x00002C10);
    world.Desk.Presented = std::move(presented);
    return world;
}

VirtualWorld Enrolment(std::vector<Credential> presented = {}) {
    VirtualWorld world = Station(std::move(presented));
    world.Adapter.Name = "ENROLLMENT1 desk";
    return world;
}

const Bytes LearnOnChannel5{5, 0};

/// The frames that came as sendings, each checked.
std::vector<Bytes> Frames(const SimBench& bench) {
    std::vector<Bytes> frames;
    for (const Bytes& wire : bench.Sendings) {
        frames.push_back(FromWire(wire));
    }
    return frames;
}

TEST(KeyReader, tells_of_the_key_after_its_delay) {
    SimBench bench(Station({Key({10, 20, 30, 40})}));
    EXPECT_THAT(bench.Say(0x67, LearnOnChannel5), IsEmpty());
    bench.Pass(99);
    EXPECT_THAT(bench.Wire, IsEmpty());
    bench.Pass(1);
    // By hand: 21 81, zeros, identification at 14, data at 18, one byte outside the sum.
    const Bytes frame = FromWire(bench.Wire);
    EXPECT_THAT(frame, ElementsAre(0x02, 0x21, 0x81, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 10, 20, 30, 40, 1, 2, 3, 4, 5, 6,
                                   7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 0));
    EXPECT_THAT(bench.System.World().Desk.Presented, IsEmpty());
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
    EXPECT_EQ(bench.Closes, 1);
}

TEST(KeyReader, takes_the_short_telegram_of_old_programs) {
    SimBench bench(Station({Key({10, 20, 30, 40})}));
    bench.Say(0x67, {5});
    bench.Pass(100);
    EXPECT_EQ(FromWire(bench.Wire).at(2), 0x81);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(KeyReader, refuses_with_0x66_when_no_key_comes) {
    SimBench bench(Station({Transponder(1)}));
    bench.Say(0x67, {5, 100});
    bench.Pass(9999);
    EXPECT_THAT(bench.Wire, IsEmpty());
    bench.Pass(1);
    const Bytes frame = FromWire(bench.Wire);
    ASSERT_EQ(frame.size(), 15U);
    EXPECT_EQ(frame[2], 0x69);
    EXPECT_EQ(frame[3], 0x66);
    EXPECT_EQ(bench.System.World().Desk.Presented.size(), 1U);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(KeyReader, waits_for_ever_when_it_is_told_to) {
    VirtualWorld world = Station();
    world.Desk.PatienceMs = 0;
    SimBench bench(world);
    bench.Say(0x67, LearnOnChannel5);
    bench.Pass(1000000);
    EXPECT_THAT(bench.Wire, IsEmpty());
    bench.System.Present(Key({1, 2, 3, 4}));
    bench.Pass(100);
    EXPECT_EQ(FromWire(bench.Wire).at(14), 1);
}

TEST(KeyReader, hears_of_a_key_that_is_presented_while_it_waits_and_is_not_impatient_any_more) {
    SimBench bench(Station());
    bench.Say(0x67, LearnOnChannel5);
    bench.Pass(9950);
    bench.System.Present(Key({1, 2, 3, 4}));
    bench.Pass(100);
    EXPECT_EQ(FromWire(bench.Wire).at(2), 0x81);
}

TEST(KeyReader, forgets_a_request_when_the_next_one_comes) {
    SimBench bench(Station({Key({1, 2, 3, 4}), Key({5, 6, 7, 8})}));
    bench.Say(0x67, LearnOnChannel5);
    bench.Pass(50);
    bench.Say(0x67, LearnOnChannel5);
    bench.Pass(20000);
    ASSERT_EQ(bench.Sendings.size(), 1U);
    EXPECT_EQ(FromWire(bench.Wire).at(14), 5);
}

TEST(KeyReader, judges_channel_and_wish) {
    SimBench bench(Station());
    bench.Say(0x67, {13, 0});
    bench.Say(0x67, {1, 2});
    ASSERT_EQ(bench.System.Judgements().size(), 2U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Range);
    EXPECT_EQ(bench.System.Judgements()[1].Kind, Wrong::Range);
}

TEST(KeyReader, is_no_part_of_an_adapter_for_enrolment) {
    SimBench bench(Enrolment({Key({1, 2, 3, 4})}));
    const Bytes reply = bench.Ask(0x67, LearnOnChannel5);
    EXPECT_EQ(reply.at(2), 0x69);
    EXPECT_EQ(reply.at(3), 0x65);
}

TEST(KeyReader, plays_the_fault_of_the_request_on_its_reply) {
    VirtualWorld world = Station({Key({1, 2, 3, 4})});
    world.Faults = {{.What = SimFault::Kind::Doubled, .Telegram = 0}};
    SimBench bench(world);
    bench.Say(0x67, LearnOnChannel5);
    bench.Pass(100);
    EXPECT_EQ(bench.Sendings.size(), 2U);
}

TEST(KeyReader, says_nothing_once_the_adapter_is_pulled_out) {
    SimBench bench(Station({Key({1, 2, 3, 4})}));
    bench.Say(0x67, LearnOnChannel5);
    bench.System.Plug();
    bench.Pass(20000);
    EXPECT_THAT(bench.Wire, IsEmpty());
}

TEST(TransponderReader, tells_of_the_transponder_and_then_that_the_user_window_may_go_on) {
    SimBench bench(Enrolment({Transponder(3)}));
    bench.Say(0xA3);
    bench.Pass(200);
    const auto frames = Frames(bench);
    ASSERT_EQ(frames.size(), 2U);
    // By hand: 1D A3, slot at 3, ten bytes at 4, sixteen at 14, one byte outside the sum.
    EXPECT_THAT(frames[0], ElementsAre(0x02, 0x1D, 0xA3, 3, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 7, 7, 7, 7, 7, 7, 7,
                                       7, 7, 7, 7, 7, 7, 7, 7, 7, 0));
    EXPECT_EQ(frames[1].at(2), 0x6F);
    EXPECT_EQ(frames[1].at(3), 0xDC);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(TransponderReader, gives_up_with_0xDC_alone) {
    SimBench bench(Enrolment());
    bench.Say(0xA3);
    bench.Pass(10000);
    const auto frames = Frames(bench);
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_EQ(frames[0].at(2), 0x6F);
    EXPECT_EQ(frames[0].at(3), 0xDC);
}

TEST(TransponderReader, frees_a_used_slot_without_a_word) {
    SimBench bench(Enrolment({Transponder(129)}));
    bench.Say(0xA3);
    bench.Pass(200);
    EXPECT_THAT(bench.Say(0x70, {129}), IsEmpty());
    EXPECT_THAT(bench.System.World().Desk.Freed, ElementsAre(129));
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(TransponderReader, judges_a_slot_that_it_did_not_report_as_used) {
    SimBench bench(Enrolment({Transponder(129)}));
    bench.Say(0xA3);
    bench.Pass(200);
    bench.Say(0x70, {130});
    ASSERT_EQ(bench.System.Judgements().size(), 1U);
    EXPECT_EQ(bench.System.Judgements()[0].Kind, Wrong::Range);
}

TEST(TransponderReader, is_no_part_of_a_programming_adapter) {
    SimBench bench(Station({Transponder(1)}));
    EXPECT_EQ(bench.Ask(0xA3).at(3), 0x65);
    EXPECT_EQ(bench.Ask(0xA1).at(3), 0x65);
}

TEST(FingerReader, steps_through_five_swipes_and_sends_the_template_in_pieces_before_it_is_done) {
    SimBench bench(Enrolment({Finger()}));
    bench.Say(0xA1);
    bench.Pass(1000);
    const auto frames = Frames(bench);
    ASSERT_EQ(frames.size(), 9U);
    Bytes steps;
    for (const std::size_t n : {0U, 1U, 2U, 3U, 4U, 8U}) {
        EXPECT_EQ(frames[n].at(2), 0xA1);
        steps.push_back(frames[n].at(13));
    }
    EXPECT_THAT(steps, ElementsAre(0x0C, 0x0D, 0x0E, 0x26, 0x27, 0x0A));
    EXPECT_THAT(frames[5], ElementsAre(0x02, 0x06, 0xA2, 1, 2, 40, 41, 0));
    EXPECT_THAT(frames[6], ElementsAre(0x02, 0x06, 0xA2, 2, 2, 42, 43, 0));
    EXPECT_THAT(frames[7], ElementsAre(0x02, 0x05, 0xA2, 3, 1, 44, 0));
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(FingerReader, takes_its_time_from_step_to_step) {
    SimBench bench(Enrolment({Finger()}));
    bench.Say(0xA1);
    bench.Pass(100);
    EXPECT_EQ(bench.Sendings.size(), 1U);
    bench.Pass(9);
    EXPECT_EQ(bench.Sendings.size(), 1U);
    bench.Pass(1);
    EXPECT_EQ(bench.Sendings.size(), 2U);
}

TEST(FingerReader, tells_of_the_four_errors_where_the_world_wants_them) {
    Credential finger = Finger();
    finger.Steps = {0x0C, 0x1C, 0x1D, 0x1E, 0x24, 0x0D};
    SimBench bench(Enrolment({finger}));
    bench.Say(0xA1);
    bench.Pass(1000);
    Bytes steps;
    for (const Bytes& frame : Frames(bench)) {
        steps.push_back(frame.at(13));
    }
    EXPECT_THAT(steps, ElementsAre(0x0C, 0x1C, 0x1D, 0x1E, 0x24, 0x0D)) << "never done, so no template";
}

TEST(CodeChange, behind_a_refused_login_gets_the_status_of_the_login) {
    SimBench bench(OneLock(0x00002C10));
    EXPECT_EQ(bench.LogIn({0x1A, 0x42, 0x13}), 1);
    const Bytes change{0x33, 0x33, 0x1A, 0x42, 0x12, 0xEE, 0xEE, 0x99, 0xAA, 0x11, 0xEE, 0xEE};
    EXPECT_EQ(bench.Ask(0x12, change).at(14), 1);
    EXPECT_EQ(bench.LogIn(), 4) << "the old code holds";
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

TEST(CodeChange, can_be_told_to_answer_with_any_status) {
    for (const int status : {1, 2, 3, 9}) {
        VirtualWorld world = OneLock(0x00002C10);
        world.Locks[0].CodeStatus = static_cast<std::uint8_t>(status);
        SimBench bench(world);
        bench.LogIn();
        const Bytes change{0x33, 0x33, 0x1A, 0x42, 0x12, 0xEE, 0xEE, 0x99, 0xAA, 0x11, 0xEE, 0xEE};
        EXPECT_EQ(bench.Ask(0x12, change).at(14), status);
        EXPECT_EQ(bench.LogIn(), 4) << "the old code holds";
    }
}

TEST(CodeChange, needs_no_farewell_before_the_next_login) {
    SimBench bench(OneLock(0x00002C10));
    bench.LogIn();
    bench.Ask(0x12, {0x33, 0x33, 0x1A, 0x42, 0x12, 0xEE, 0xEE, 0x99, 0xAA, 0x11, 0xEE, 0xEE});
    EXPECT_EQ(bench.LogIn(), 1) << "the old code is refused";
    EXPECT_EQ(bench.LogIn({0x99, 0xAA, 0x11}), 4);
    EXPECT_THAT(bench.System.Judgements(), IsEmpty());
}

} // namespace
} // namespace qvm::test
