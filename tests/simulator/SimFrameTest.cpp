#include "SimFrame.h"

#include "SimBench.h"
#include "SimForms.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <rapidcheck.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using Event = FrameReader::Event;

/// Feeds bytes; gives all events but None.
std::vector<Event> Feed(FrameReader& reader, const Bytes& bytes) {
    std::vector<Event> events;
    for (const std::uint8_t byte : bytes) {
        if (const Event event = reader.Take(byte); event != Event::None) {
            events.push_back(event);
        }
    }
    return events;
}

// The login of lock 00.00.2C.10, code 104212, channel 5. Its sum, index by index: 02 18 34 68 D0 CD AB 68 D0 D4 32 65
// CA 95 45 CC AB 46 91 CD F0.
const Bytes LoginFrame{0x02, 0x14, 0x04, 0x00, 0x00, 0x2C, 0x10, 0x11, 0x00, 0x33, 0x88,
                       0x01, 0x00, 0x00, 0x1A, 0x42, 0x12, 0xEE, 0x05, 0xAA, 0x55, 0xF0};

TEST(SimSum, doubles_and_adds_with_end_around_carry) {
    EXPECT_EQ(SimSum(Bytes{}), 0);
    EXPECT_EQ(SimSum(Bytes{1, 1}), 3);
    EXPECT_EQ(SimSum(Bytes{0x80, 0x00}), 1);
    EXPECT_EQ(SimSum(Bytes{0x02, 0x03, 0x0A}), 24);
}

TEST(SimSum, two_hundred_and_fifty_five_stays_and_is_never_folded_to_zero) {
    EXPECT_EQ(SimSum(Bytes{255}), 255);
    EXPECT_EQ(SimSum(Bytes{0, 255}), 255);
    EXPECT_EQ(SimSum(Bytes{255, 0}), 255);
    EXPECT_EQ(SimSum(Bytes{255, 255}), 255);
}

TEST(FrameReader, a_login_frame_is_taken_whole) {
    FrameReader reader;
    EXPECT_THAT(Feed(reader, LoginFrame), ElementsAre(Event::Frame));
    EXPECT_THAT(reader.Bytes(), ElementsAreArray(LoginFrame));
}

TEST(FrameReader, a_frame_with_a_wrong_sum_is_dropped) {
    FrameReader reader;
    Bytes bad = LoginFrame;
    bad[21] = 0xF1;
    EXPECT_THAT(Feed(reader, bad), ElementsAre(Event::BadSum));
    EXPECT_THAT(Feed(reader, LoginFrame), ElementsAre(Event::Frame));
}

TEST(FrameReader, a_stuffed_zero_vanishes) {
    // 02 03 0A 02 with the sum 50: 2, 7, 24, 50.
    FrameReader reader;
    EXPECT_THAT(Feed(reader, {0x02, 0x03, 0x0A, 0x02, 0x00, 0x32}), ElementsAre(Event::Frame));
    EXPECT_THAT(reader.Bytes(), ElementsAre(0x02, 0x03, 0x0A, 0x02, 0x32));
}

TEST(FrameReader, a_sum_of_two_is_stuffed_and_the_next_frame_follows) {
    // 02 03 F4 FB: 2, 7, 258 - 255 = 3, 257 - 255 = 2.
    FrameReader reader;
    const Bytes frame{0x02, 0x03, 0xF4, 0xFB, 0x02, 0x00};
    EXPECT_THAT(Feed(reader, frame), ElementsAre(Event::Frame));
    EXPECT_THAT(Feed(reader, frame), ElementsAre(Event::Frame));
}

TEST(FrameReader, a_sum_of_two_without_its_zero_is_broken_stuffing_and_loses_nothing) {
    FrameReader reader;
    EXPECT_THAT(Feed(reader, Join({{0x02, 0x03, 0xF4, 0xFB, 0x02}, LoginFrame})),
                ElementsAre(Event::Frame, Event::BadStuffing, Event::Frame));
}

TEST(FrameReader, a_frame_cut_short_does_not_cost_the_next_one) {
    FrameReader reader;
    for (std::size_t length = 1; length < LoginFrame.size(); ++length) {
        Bytes bytes(LoginFrame.begin(), LoginFrame.begin() + static_cast<std::ptrdiff_t>(length));
        bytes.insert(bytes.end(), LoginFrame.begin(), LoginFrame.end());
        const auto events = Feed(reader, bytes);
        ASSERT_FALSE(events.empty()) << length;
        EXPECT_EQ(events.back(), Event::Frame) << length;
        EXPECT_THAT(reader.Bytes(), ElementsAreArray(LoginFrame)) << length;
    }
}

TEST(FrameReader, bytes_before_a_start_are_garbage) {
    FrameReader reader;
    EXPECT_THAT(Feed(reader, {0x00, 0x33}), ElementsAre(Event::Garbage, Event::Garbage));
    EXPECT_FALSE(reader.Unfinished());
}

TEST(FrameReader, a_length_of_zero_is_a_false_start) {
    FrameReader reader;
    EXPECT_THAT(Feed(reader, {0x02, 0x00}), ElementsAre(Event::Garbage));
    EXPECT_THAT(Feed(reader, LoginFrame), ElementsAre(Event::Frame));
}

TEST(FrameReader, recovers_from_any_bytes_with_the_next_good_frame) {
    EXPECT_TRUE(rc::check([] {
        FrameReader reader;
        Feed(reader, *rc::gen::container<Bytes>(rc::gen::weightedOneOf<std::uint8_t>(
                         {{3, rc::gen::arbitrary<std::uint8_t>()}, {1, rc::gen::just<std::uint8_t>(2)}})));
        const auto events = Feed(reader, LoginFrame);
        RC_ASSERT(!events.empty());
        RC_ASSERT(events.back() == Event::Frame);
        const auto frame = reader.Bytes();
        RC_ASSERT(Bytes(frame.begin(), frame.end()) == LoginFrame);
    }));
}

TEST(FrameReader, takes_every_stuffed_frame_as_it_was) {
    EXPECT_TRUE(rc::check([] {
        Bytes frame = *rc::gen::container<Bytes>(rc::gen::weightedOneOf<std::uint8_t>(
            {{2, rc::gen::arbitrary<std::uint8_t>()}, {1, rc::gen::just<std::uint8_t>(2)}}));
        frame.resize(std::clamp<std::size_t>(frame.size(), 4, 250));
        frame[0] = 2;
        frame[1] = static_cast<std::uint8_t>(frame.size() - 1);
        FrameReader reader;
        const auto events = Feed(reader, OnWire(frame));
        RC_ASSERT(events == std::vector<Event>{Event::Frame});
        const auto taken = reader.Bytes();
        RC_ASSERT(Bytes(taken.begin(), taken.end() - 1) == frame);
    }));
}

TEST(ReplyOnWire, the_sum_stands_behind_a_byte_that_it_leaves_out) {
    // 02 03 05 | 07 -> sum over 0 to 3: 2, 7, 19, 45; index 4 lies outside.
    Bytes reply = NewReply(0x05, 3);
    reply[3] = 0x07;
    reply[4] = 0x99;
    EXPECT_THAT(ReplyOnWire(reply), ElementsAre(0x02, 0x03, 0x05, 0x07, 0x99, 0x2D));
}

TEST(ReplyOnWire, stuffs_from_index_two_on) {
    Bytes reply = NewReply(0x02, 3);
    reply[3] = 0x02;
    reply[4] = 0x02;
    // 2, 7, 16, 34.
    EXPECT_THAT(ReplyOnWire(reply), ElementsAre(0x02, 0x03, 0x02, 0x00, 0x02, 0x00, 0x02, 0x00, 0x22));
}

TEST(SimForms, the_parts_of_every_form_tile_its_payload) {
    for (const Form& form : Forms()) {
        int next = FirstPayload(form);
        for (const FormPart& part : form.Parts) {
            EXPECT_EQ(part.First, next) << form.Name << ", " << part.Name;
            EXPECT_GE(part.Last, part.First) << form.Name << ", " << part.Name;
            next = part.Last + 1;
        }
        EXPECT_EQ(next, form.Length + 1) << form.Name;
    }
}

TEST(SimForms, a_code_with_another_length_has_no_form) {
    const Bytes frame{0x02, 0x0E, 0x05, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    const FormChoice choice = FindForm(frame);
    EXPECT_EQ(choice.Found, nullptr);
    EXPECT_TRUE(choice.CodeKnown);
    EXPECT_FALSE(choice.LengthKnown);
}

// ---- telegrams for a network adapter

/// A history request with its number, 38 bytes; its sum is not looked at here.
Bytes NetworkFrame(std::uint8_t number) {
    Bytes frame(38, 0x55);
    const Bytes head{0x02, number, 0x90, 1, 0, 37};
    std::copy(head.begin(), head.end(), frame.begin());
    return frame;
}

FrameReader NetworkReader() {
    FrameReader reader;
    reader.HearNetwork(true);
    return reader;
}

TEST(NetworkFrameReader, tells_both_kinds_on_one_line) {
    FrameReader reader = NetworkReader();
    for (const std::uint8_t number : Bytes{1, 2, 3, 255}) {
        EXPECT_THAT(Feed(reader, LoginFrame), ElementsAre(Event::Frame));
        EXPECT_THAT(reader.Bytes(), ElementsAreArray(LoginFrame));
        EXPECT_THAT(Feed(reader, NetworkFrame(number)), ElementsAre(Event::Network)) << int{number};
        EXPECT_THAT(reader.Bytes(), ElementsAreArray(NetworkFrame(number)));
        EXPECT_FALSE(reader.Unfinished());
    }
}

TEST(NetworkFrameReader, drops_the_stuffing_from_index_2_on) {
    FrameReader reader = NetworkReader();
    const Bytes frame = NetworkFrame(2);
    Bytes wire = frame, want = frame;
    wire[37] = want[37] = 0x02;
    wire[10] = want[10] = 0x02;
    wire.insert(wire.begin() + 11, 0);
    wire.push_back(0);
    EXPECT_THAT(Feed(reader, wire), ElementsAre(Event::Network));
    EXPECT_THAT(reader.Bytes(), ElementsAreArray(want));
    EXPECT_THAT(Feed(reader, LoginFrame), ElementsAre(Event::Frame));
}

TEST(NetworkFrameReader, the_clock_has_one_byte_more_than_its_length_word_tells) {
    FrameReader reader = NetworkReader();
    Bytes clock = NetworkFrame(1);
    clock[27] = 0x1E;
    EXPECT_THAT(Feed(reader, clock), testing::IsEmpty());
    EXPECT_THAT(Feed(reader, {0x77}), ElementsAre(Event::Network));
    EXPECT_EQ(reader.Bytes().size(), 39U);
}

TEST(NetworkFrameReader, a_frame_that_breaks_off_does_not_cost_the_next_one) {
    FrameReader reader = NetworkReader();
    const Bytes frame = NetworkFrame(2), half(frame.begin(), frame.begin() + 20);
    EXPECT_THAT(Feed(reader, Join({half, LoginFrame})), ElementsAre(Event::BadStuffing, Event::Frame));
    EXPECT_THAT(Feed(reader, Join({half, frame})), ElementsAre(Event::BadStuffing, Event::Network));
    const Bytes halfLogin(LoginFrame.begin(), LoginFrame.begin() + 9);
    EXPECT_THAT(Feed(reader, Join({halfLogin, frame})), ElementsAre(Event::BadStuffing, Event::Network));
}

TEST(NetworkFrameReader, a_start_byte_too_many_does_not_cost_a_serial_frame) {
    FrameReader reader = NetworkReader();
    EXPECT_THAT(Feed(reader, Join({{0x02}, LoginFrame})), ElementsAre(Event::Frame));
    EXPECT_THAT(Feed(reader, Join({{0x02, 0x01}, LoginFrame})), ElementsAre(Event::Garbage, Event::Frame));
}

TEST(NetworkFrameReader, whatever_came_before_the_second_good_frame_is_heard) {
    rc::check("the second of two good frames is taken", [](const Bytes& before, bool network) {
        FrameReader reader = NetworkReader();
        Feed(reader, before);
        const Bytes good = network ? NetworkFrame(1) : LoginFrame;
        Feed(reader, good);
        const auto events = Feed(reader, good);
        RC_ASSERT(!events.empty());
        RC_ASSERT(events.back() == (network ? Event::Network : Event::Frame));
    });
}

} // namespace
} // namespace qvm::test
