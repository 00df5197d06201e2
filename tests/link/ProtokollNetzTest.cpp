#include "LinkFixture.h"
#include "Protokoll.h"

#include <gmock/gmock.h>
#include <string>

// Telegrams of the network path in the trace. What is secret is 9x.
namespace qvm {
namespace {

using test::Hex;
using test::HexZeile;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Way = TraceFrame::Direction;

constexpr std::string_view Clock =
    "02 01 90 01 00 25 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 1E FF FF "
    "00 00 05 03 1A 0A 1E 00 0C";
constexpr std::string_view NextHistory =
    "02 07 90 01 00 25 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 0C FF FF "
    "00 00 91 92 93 EE EE 5A";
constexpr std::string_view HistoryStart =
    "02 01 90 01 00 30 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 0A FF FF "
    "00 00 90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F 00";
constexpr std::string_view BlockTaken =
    "02 03 90 01 00 21 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 14 FF FF "
    "00 00 90 03";
constexpr std::string_view HistoryBlock =
    "02 02 90 01 00 37 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 0C FF FF "
    "00 00 90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F 90 91 92 93 94 95 55 03";

Mitschnitt NetworkFrame(Way way, std::string_view text) {
    Mitschnitt frame;
    frame.Way = way;
    frame.Bytes = Hex(text);
    return frame;
}

TEST(Net_Protokoll, tells_the_header_of_a_telegram_and_hides_its_payload) {
    EXPECT_EQ(Protokoll_Zeile(NetworkFrame(Way::Sent, HistoryStart)),
              "> 02 01 90 01 00 30 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 0A FF F"
              "F 00 00 ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** | NetzHistorieStart: block numb"
              "er 1, block count 1, length word 48, serial of the lock 01 50 0C 10, addresses of units 02"
              " 02 02 02 / 01 6F 00 01 / 01 60 12 34 / 01 60 12 35, 1 once it is sent 1, code 10, payload"
              " hidden");
    EXPECT_EQ(Protokoll_Zeile(NetworkFrame(Way::Sent, NextHistory)),
              "> 02 07 90 01 00 25 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 0C FF F"
              "F 00 00 ** ** ** ** ** ** | NetzHistorie: block number 7, block count 1, length word 37, s"
              "erial of the lock 01 50 0C 10, addresses of units 02 02 02 02 / 01 6F 00 01 / 01 60 12 34 "
              "/ 01 60 12 35, 1 once it is sent 1, code 12, payload hidden");
}

TEST(Net_Protokoll, tells_a_reply_by_its_code_and_hides_the_events_in_it) {
    EXPECT_EQ(Protokoll_Zeile(NetworkFrame(Way::Received, HistoryBlock)),
              "< 02 02 90 01 00 37 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 0C FF F"
              "F 00 00 ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** | RpNetzHi"
              "storie: block number 2, block count 1, length word 55, serial of the lock 01 50 0C 10, add"
              "resses of units 02 02 02 02 / 01 6F 00 01 / 01 60 12 34 / 01 60 12 35, 1 once it is sent 1"
              ", code 12, payload hidden");
    // Nothing stands behind the header but the checksum and the closing byte.
    EXPECT_EQ(Protokoll_Zeile(NetworkFrame(Way::Received, BlockTaken)),
              "< 02 03 90 01 00 21 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 14 FF F"
              "F 00 00 90 03 | RpNetzDaten: block number 3, block count 1, length word 33, serial of the "
              "lock 01 50 0C 10, addresses of units 02 02 02 02 / 01 6F 00 01 / 01 60 12 34 / 01 60 12 35"
              ", 1 once it is sent 1, code 20");
}

TEST(Net_Protokoll, shows_the_payload_when_asked_to) {
    const DecodedTelegram telegram = Dekodieren(NetworkFrame(Way::Sent, NextHistory), Geheimnis::Zeigen);
    EXPECT_EQ(telegram.Fields.back().Name, "payload");
    EXPECT_EQ(telegram.Fields.back().Text, "91 92 93 EE EE 5A");
}

TEST(Net_Protokoll, says_what_is_wrong_with_a_frame) {
    const std::string cut(NextHistory.substr(0, NextHistory.size() - 3));
    EXPECT_THAT(Dekodieren(NetworkFrame(Way::Sent, cut)).Remarks,
                ElementsAre("the length word calls for 38 bytes, there are 37"));
    EXPECT_THAT(Dekodieren(NetworkFrame(Way::Sent, "02 01 90 01")).Remarks,
                ElementsAre("too short for a network telegram"));
    std::string spoilt(BlockTaken);
    spoilt.replace(1 * 3, 2, "05");
    EXPECT_THAT(Dekodieren(NetworkFrame(Way::Received, spoilt)).Remarks, ElementsAre("wrong checksum"));
    std::string strange(NextHistory);
    strange.replace(27 * 3, 2, "77");
    EXPECT_EQ(Dekodieren(NetworkFrame(Way::Sent, strange)).Name, "unknown");
}

TEST(Net_Protokoll, the_traced_lines_are_read_back) {
    std::string text;
    for (const std::string_view sent : {Clock, NextHistory, HistoryStart}) {
        text += Protokoll_Zeile(NetworkFrame(Way::Sent, sent)) + "\n";
    }
    for (const std::string_view received : {BlockTaken, HistoryBlock}) {
        text += Protokoll_Zeile(NetworkFrame(Way::Received, received)) + "\n";
    }
    const TraceText trace = Protokoll_Lesen(text);
    EXPECT_THAT(trace.Errors, IsEmpty());
    ASSERT_EQ(trace.Frames.size(), 5U);
    std::string again;
    for (const Mitschnitt& frame : trace.Frames) {
        EXPECT_THAT(Dekodieren(frame).Remarks, IsEmpty());
        again += Protokoll_Zeile(frame) + "\n";
    }
    EXPECT_EQ(again, text);
}

TEST(Net_Protokoll, frames_from_the_line_are_found_with_and_without_stuffing_and_told_apart_by_direction) {
    // Every 02 behind index 1 is followed by 00.
    std::string text = "02 01 90 01 00 25 01 50 0C 10 02 00 02 00 02 00 02 00 01 6F 00 01 01 60 12 34 01 60 12 35 "
                       "01 1E FF FF 00 00 05 03 1A 0A 1E 00 0C 02 03 90 01 00 21 01 50 0C 10 02 00 02 00 02 00 02 "
                       "00 01 6F 00 01 01 60 12 34 01 60 12 35 01 14 FF FF 00 00 90 03";
    text.append("\n").append(Clock).append("\n").append(BlockTaken).append("\n");
    const TraceText trace = Protokoll_Lesen(text);
    EXPECT_THAT(trace.Errors, IsEmpty());
    ASSERT_EQ(trace.Frames.size(), 4U);
    EXPECT_EQ(trace.Frames[0].Way, Way::Sent);
    EXPECT_EQ(HexZeile(trace.Frames[0].Bytes), Clock);
    EXPECT_EQ(trace.Frames[1].Way, Way::Received);
    EXPECT_EQ(HexZeile(trace.Frames[1].Bytes), BlockTaken);
    EXPECT_EQ(trace.Frames[2].Way, Way::Sent);
    EXPECT_EQ(trace.Frames[3].Way, Way::Received);
}

TEST(Net_Protokoll, a_wild_length_word_is_no_frame) {
    std::string wild(NextHistory);
    wild.replace(4 * 3, 5, "FF FF");
    const TraceText trace = Protokoll_Lesen(wild);
    EXPECT_THAT(trace.Frames, IsEmpty());
    ASSERT_EQ(trace.Errors.size(), 1U);
    EXPECT_EQ(trace.Errors[0].Text, "no frame with a good checksum in 38 bytes");
}

} // namespace
} // namespace qvm
