#include "LinkFixture.h"
#include "Protokoll.h"

#include <gmock/gmock.h>
#include <rapidcheck.h>
#include <string>
#include <vector>

namespace qvm {
namespace {

using test::HexZeile;
using Way = TraceFrame::Direction;

constexpr std::string_view Login = "02 14 04 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EE 02 AA 55 E9";
constexpr std::string_view LoginOnTheWire = "02 14 04 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EE 02 00 AA 55 E9";
constexpr std::string_view Refusal = "02 02 69 64 75";
constexpr std::string_view Slot = "02 0E 0A 11 22 33 44 00 00 00 00 00 00 00 02 02 A0";
constexpr std::string_view SlotOnTheWire = "02 0E 0A 11 22 33 44 00 00 00 00 00 00 00 02 00 02 00 A0";

std::string Text(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += part;
    }
    return text;
}

TEST(Protokoll_Lesen_Test, reads_trace_lines_back) {
    const TraceText trace =
        Protokoll_Lesen(Text({"> ", Login, " | TelVerbinden: anything\n", "< ", Refusal, " | RpAblehnung\n"}));
    EXPECT_TRUE(trace.Errors.empty());
    ASSERT_EQ(trace.Frames.size(), 2U);
    EXPECT_EQ(trace.Frames[0].Way, Way::Sent);
    EXPECT_EQ(HexZeile(trace.Frames[0].Bytes), Login);
    EXPECT_EQ(trace.Frames[0].Line, 1);
    EXPECT_EQ(trace.Frames[1].Way, Way::Received);
    EXPECT_EQ(HexZeile(trace.Frames[1].Bytes), Refusal);
    EXPECT_EQ(trace.Frames[1].Line, 2);
}

TEST(Protokoll_Lesen_Test, passes_over_blank_lines_and_remarks_and_takes_line_ends_of_both_kinds) {
    const TraceText trace = Protokoll_Lesen(Text({"# taken on Monday\r\n", "\r\n", "   \n", Refusal, "\r\n"}));
    EXPECT_TRUE(trace.Errors.empty());
    ASSERT_EQ(trace.Frames.size(), 1U);
    EXPECT_EQ(trace.Frames[0].Line, 4);
}

TEST(Protokoll_Lesen_Test, reads_hidden_bytes_as_hidden) {
    const TraceText trace =
        Protokoll_Lesen("> 02 12 04 11 22 33 44 11 00 33 88 01 00 00 ** ** ** EE 07 ** | TelVerbindenKurz");
    EXPECT_TRUE(trace.Errors.empty());
    ASSERT_EQ(trace.Frames.size(), 1U);
    const DecodedTelegram telegram = Dekodieren(trace.Frames[0], Geheimnis::Zeigen);
    EXPECT_EQ(telegram.Name, "TelVerbindenKurz");
    EXPECT_EQ(telegram.Fields[3].Text, "hidden");
    EXPECT_EQ(telegram.Fields.back().Text, "7");
    EXPECT_TRUE(telegram.Remarks.empty());
    EXPECT_EQ(Protokoll_Zeile(trace.Frames[0], Geheimnis::Zeigen).substr(0, 61),
              "> 02 12 04 11 22 33 44 11 00 33 88 01 00 00 ** ** ** EE 07 **");
}

TEST(Protokoll_Lesen_Test, keeps_a_traced_frame_that_is_broken) {
    const TraceText trace = Protokoll_Lesen("< 02 03 73 01 55 99 | dropped");
    EXPECT_TRUE(trace.Errors.empty());
    ASSERT_EQ(trace.Frames.size(), 1U);
    EXPECT_THAT(Dekodieren(trace.Frames[0]).Remarks, ::testing::ElementsAre("wrong checksum"));
}

TEST(Protokoll_Lesen_Test, tells_the_direction_by_the_place_of_the_checksum) {
    const TraceText trace = Protokoll_Lesen(Text({Login, "\n", Slot, "\n"}));
    EXPECT_TRUE(trace.Errors.empty());
    ASSERT_EQ(trace.Frames.size(), 2U);
    EXPECT_EQ(trace.Frames[0].Way, Way::Sent);
    EXPECT_EQ(trace.Frames[1].Way, Way::Received);
}

TEST(Protokoll_Lesen_Test, takes_stuffed_bytes_as_they_come_from_the_line) {
    const TraceText trace = Protokoll_Lesen(Text({LoginOnTheWire, "\n", SlotOnTheWire, "\n> ", LoginOnTheWire, "\n"}));
    EXPECT_TRUE(trace.Errors.empty());
    ASSERT_EQ(trace.Frames.size(), 3U);
    EXPECT_EQ(HexZeile(trace.Frames[0].Bytes), Login);
    EXPECT_EQ(HexZeile(trace.Frames[1].Bytes), Slot);
    EXPECT_EQ(HexZeile(trace.Frames[2].Bytes), Login);
}

TEST(Protokoll_Lesen_Test, finds_several_frames_in_a_line_and_tells_of_the_bytes_between) {
    const TraceText trace = Protokoll_Lesen(Text({"FF FF ", LoginOnTheWire, " ", Refusal, " 77"}));
    ASSERT_EQ(trace.Frames.size(), 2U);
    EXPECT_EQ(HexZeile(trace.Frames[0].Bytes), Login);
    EXPECT_EQ(HexZeile(trace.Frames[1].Bytes), Refusal);
    ASSERT_EQ(trace.Errors.size(), 1U);
    EXPECT_EQ(trace.Errors[0].Line, 1);
    EXPECT_EQ(trace.Errors[0].Text, "3 bytes belong to no frame");
}

TEST(Protokoll_Lesen_Test, takes_a_checksum_of_02_with_and_without_its_00) {
    const TraceText trace = Protokoll_Lesen("02 03 06 D9 02 00\n02 03 06 D9 02\n> 02 03 06 D9 02 00\n");
    EXPECT_TRUE(trace.Errors.empty());
    ASSERT_EQ(trace.Frames.size(), 3U);
    EXPECT_EQ(HexZeile(trace.Frames[0].Bytes), "02 03 06 D9 02");
    EXPECT_EQ(HexZeile(trace.Frames[1].Bytes), "02 03 06 D9 02");
    EXPECT_EQ(HexZeile(trace.Frames[2].Bytes), "02 03 06 D9 02");
}

TEST(Protokoll_Lesen_Test, takes_bytes_in_every_usual_spelling) {
    const TraceText trace = Protokoll_Lesen(
        "020306D902\n0x02,0x03,0x06,0xd9,0x02\n02:03:06:d9:02\n2 3 6 D9 2\n02-03-06-D9-02\n\t0203\t06D902\n");
    EXPECT_TRUE(trace.Errors.empty());
    ASSERT_EQ(trace.Frames.size(), 6U);
    for (const Mitschnitt& frame : trace.Frames) {
        EXPECT_EQ(HexZeile(frame.Bytes), "02 03 06 D9 02");
    }
}

struct Fault {
    std::string_view Line;
    std::string_view Text;
};
void PrintTo(const Fault& fault, std::ostream* out) {
    *out << fault.Line;
}

class Protokoll_Fehler : public ::testing::TestWithParam<Fault> {};

TEST_P(Protokoll_Fehler, is_told_with_its_line_and_costs_no_other_line) {
    const TraceText trace = Protokoll_Lesen(Text({Refusal, "\n", GetParam().Line, "\n", Refusal, "\n"}));
    EXPECT_EQ(trace.Frames.size(), 2U);
    ASSERT_EQ(trace.Errors.size(), 1U);
    EXPECT_EQ(trace.Errors[0].Line, 2);
    EXPECT_EQ(trace.Errors[0].Text, GetParam().Text);
}

INSTANTIATE_TEST_SUITE_P(Lines, Protokoll_Fehler,
                         ::testing::Values(Fault{"02 0D xy", "'xy' is no hexadecimal byte"},
                                           Fault{"02 0D 123", "'123' is no row of hexadecimal bytes"},
                                           Fault{"02 0D g", "'g' is no row of hexadecimal bytes"},
                                           Fault{"hello world", "'hello' is no row of hexadecimal bytes"},
                                           Fault{"02 03 06 55 AA 7E", "no frame with a good checksum in 6 bytes"},
                                           Fault{"FF", "no frame with a good checksum in 1 bytes"},
                                           Fault{"> 03 04 05", "no frame: it would begin with 02, a length and a code"},
                                           Fault{"<", "no frame: it would begin with 02, a length and a code"},
                                           Fault{"02 12 04 ** 11", "hidden bytes need a > or < before the frame"},
                                           Fault{"02 *", "'*' is no row of hexadecimal bytes"}));

TEST(Protokoll_Lesen_Test, of_nothing_gives_nothing) {
    EXPECT_TRUE(Protokoll_Lesen("").Frames.empty());
    EXPECT_TRUE(Protokoll_Lesen("\n\n").Errors.empty());
}

TEST(Protokoll_Lesen_Test, gives_back_every_telegram_that_was_traced) {
    EXPECT_TRUE(rc::check("trace, read, compare", [] {
        const auto payload =
            *rc::gen::resize(200, rc::gen::container<std::vector<std::uint8_t>>(rc::gen::arbitrary<std::uint8_t>()));
        RC_PRE(!payload.empty() && payload.size() < 254);
        std::vector<std::uint8_t> bytes{2, static_cast<std::uint8_t>(payload.size() + 1)};
        bytes.insert(bytes.end(), payload.begin(), payload.end());
        bytes.push_back(Pruefsumme(bytes));
        const std::string line = Protokoll_Zeile(TraceFrame{.Way = Way::Sent, .Bytes = bytes}, Geheimnis::Zeigen);
        const TraceText trace = Protokoll_Lesen(line);
        RC_ASSERT(trace.Errors.empty());
        RC_ASSERT(trace.Frames.size() == 1U);
        RC_ASSERT(trace.Frames[0].Bytes == bytes);
        RC_ASSERT(Protokoll_Zeile(trace.Frames[0], Geheimnis::Zeigen) == line);
    }));
}

TEST(Protokoll_Lesen_Test, takes_any_text) {
    EXPECT_TRUE(rc::check("no text is too much", [] {
        const auto text = *rc::gen::container<std::string>(
            rc::gen::elementOf(std::string("0123456789abcdefABCDEFx*<>|#,:-; \t\r\n\x02\xFF")));
        for (const Mitschnitt& frame : Protokoll_Lesen(text).Frames) {
            Protokoll_Zeile(frame);
            Protokoll_Zeile(frame, Geheimnis::Zeigen);
        }
    }));
}

} // namespace
} // namespace qvm
