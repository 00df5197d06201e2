#include "Frame.h"

#include "LinkFixture.h"

#include <gtest/gtest.h>

namespace qvm {
namespace {

using test::Hex;
using test::HexZeile;

using Step = RxResult (*)(Empfaenger&, std::uint8_t);

/// Feeds all bytes and gives every result that is not Pending.
std::vector<RxResult> Feed(Empfaenger& rx, Step step, std::string_view text) {
    std::vector<RxResult> results;
    for (const std::uint8_t byte : Hex(text)) {
        const RxResult result = step(rx, byte);
        if (result != RxResult::Pending) {
            results.push_back(result);
        }
    }
    return results;
}

std::string Body(const Empfaenger& rx) {
    return HexZeile(std::span(rx.RxBuffer).first(static_cast<std::size_t>(rx.FrameSize)));
}

using Results = std::vector<RxResult>;

/// Puts another byte to an index of a frame in text form.
void Setzen(std::string& frame, std::size_t index, std::string_view byte) {
    frame.replace(index * 3, 2, byte);
}

TEST(Pruefsumme, doubles_and_adds_with_end_around_carry) {
    EXPECT_EQ(Pruefsumme(Hex("01 02 03")), 11);
    EXPECT_EQ(Pruefsumme(Hex("80 00")), 1);
    EXPECT_EQ(Pruefsumme(Hex("80 FF")), 1);
    EXPECT_EQ(Pruefsumme({}), 0);
}

TEST(Pruefsumme, keeps_255_and_never_folds_it_to_0) {
    EXPECT_EQ(Pruefsumme(Hex("00 FF")), 255);
    EXPECT_EQ(Pruefsumme(Hex("FF 00")), 255);
    EXPECT_EQ(Pruefsumme(Hex("FF FF FF")), 255);
    EXPECT_EQ(Pruefsumme(Hex("7F 01")), 255);
}

TEST(Rx_Entstopfen, passes_a_byte_behind_anything_but_02) {
    Empfaenger rx;
    rx.RxIndex = 9;
    rx.RxState = 2;
    EXPECT_EQ(Rx_Entstopfen(rx, 0x03, 0x00), 0x00);
    EXPECT_EQ(Rx_Entstopfen(rx, 0x00, 0x02), 0x02);
    EXPECT_EQ(rx.RxIndex, 9);
    EXPECT_EQ(rx.RxState, 2);
}

TEST(Rx_Entstopfen, takes_the_write_position_back_for_a_stuffed_00) {
    Empfaenger rx;
    rx.RxIndex = 9;
    rx.RxState = 2;
    EXPECT_EQ(Rx_Entstopfen(rx, 0x02, 0x00), 0x02);
    EXPECT_EQ(rx.RxIndex, 8);
    EXPECT_EQ(rx.RxState, 2);
}

TEST(Rx_Entstopfen, gives_the_frame_up_at_02_and_another_byte) {
    Empfaenger rx;
    rx.RxIndex = 9;
    rx.RxState = 2;
    EXPECT_EQ(Rx_Entstopfen(rx, 0x02, 0x02), 0x00);
    EXPECT_EQ(rx.RxIndex, 0);
    EXPECT_EQ(rx.RxState, 0);
}

TEST(Stopfen, follows_each_02_from_index_2_on_with_00) {
    std::vector<std::uint8_t> wire;
    Stopfen(Hex("02 02 02 03 02"), wire);
    EXPECT_EQ(HexZeile(wire), "02 02 02 00 03 02 00");
}

TEST(Stopfen, appends_behind_what_is_there) {
    std::vector<std::uint8_t> wire{0x99};
    Stopfen(Hex("02 03"), wire);
    EXPECT_EQ(HexZeile(wire), "99 02 03");
}

TEST(Empfang_Seriell, sums_a_frame_of_length_3_over_0_to_3_and_takes_the_sum_at_5) {
    Empfaenger rx;
    // 02: 2; 03: 4 + 3 = 7; 06: 14 + 6 = 20; 55: 40 + 85 = 125. The byte at 4 lies outside.
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 55 AA 7D"), Results{RxResult::Frame});
    EXPECT_EQ(Body(rx), "02 03 06 55 AA");
    EXPECT_EQ(rx.RxLength, 3);
    EXPECT_EQ(rx.RxState, 0);
    EXPECT_EQ(rx.RxIndex, 0);
}

TEST(Empfang_Seriell, clears_the_place_of_the_checksum_and_keeps_its_value_apart) {
    Empfaenger rx;
    Feed(rx, Empfang_Seriell, "02 03 06 55 AA 7D");
    EXPECT_EQ(rx.RxBuffer[5], 0);
    EXPECT_EQ(rx.RxSum, 0x7D);
}

TEST(Empfang_Seriell, drops_a_frame_with_a_wrong_checksum_and_takes_the_next_one) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 55 AA 7E 02 03 06 55 AA 7D"),
              (Results{RxResult::BadChecksum, RxResult::Frame}));
}

TEST(Empfang_Seriell, takes_no_notice_of_bytes_before_a_start_byte) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "00 FF 7D 03 02 03 06 55 AA 7D"), Results{RxResult::Frame});
    EXPECT_EQ(Body(rx), "02 03 06 55 AA");
}

TEST(Empfang_Seriell, takes_a_length_of_0_for_a_false_start) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 00"), Results{});
    EXPECT_EQ(rx.RxState, 0);
    EXPECT_EQ(rx.RxIndex, 0);
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 55 AA 7D"), Results{RxResult::Frame});
}

TEST(Empfang_Seriell, drops_the_stuffed_00_in_the_body) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 04 17 02 00 55 AA F5"), Results{RxResult::Frame});
    EXPECT_EQ(Body(rx), "02 04 17 02 55 AA");
}

TEST(Empfang_Seriell, keeps_a_00_that_follows_the_stuffed_one) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 05 17 02 00 00 00 AA 51"), Results{RxResult::Frame});
    EXPECT_EQ(Body(rx), "02 05 17 02 00 00 AA");
}

TEST(Empfang_Seriell, takes_two_02_in_a_row) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 05 17 02 00 02 00 55 AA AA"), Results{RxResult::Frame});
    EXPECT_EQ(Body(rx), "02 05 17 02 02 55 AA");
}

// The stuffed 00 comes where the checksum would stand; the frame goes on.
TEST(Empfang_Seriell, goes_on_behind_a_stuffed_02_at_the_very_end_of_the_body) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 55 02 00"), Results{});
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "7D"), Results{RxResult::Frame});
    EXPECT_EQ(Body(rx), "02 03 06 55 02");
}

// 02: 2; 03: 7; 06: 20; D7: 40 + 215 = 255; a body of D9 makes it 257 - 255 = 2.
TEST(Empfang_Seriell, ends_at_a_checksum_of_02_and_skips_its_00_in_state_0) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 D9 AA 02"), Results{RxResult::Frame});
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "00"), Results{});
    EXPECT_EQ(rx.RxState, 0);
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 55 AA 7D"), Results{RxResult::Frame});
}

TEST(Empfang_Seriell, takes_a_checksum_of_255) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 D7 AA FF"), Results{RxResult::Frame});
}

TEST(Empfang_Seriell, gives_a_frame_up_at_02_without_00_and_does_not_take_the_byte_for_a_start) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 05 17 02 02"), Results{RxResult::BadStuffing});
    EXPECT_EQ(rx.RxState, 0);
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "03 06 55 AA 7D"), Results{});
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 55 AA 7D"), Results{RxResult::Frame});
}

TEST(Empfang_Seriell, gives_a_frame_up_when_the_checksum_follows_an_unstuffed_02) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 55 02 7D"), Results{RxResult::BadStuffing});
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 55 AA 7D"), Results{RxResult::Frame});
}

TEST(Empfang_Seriell, takes_the_longest_frame) {
    Empfaenger rx;
    for (const int byte : {0x02, 0xFF, 0x17}) {
        EXPECT_EQ(Empfang_Seriell(rx, static_cast<std::uint8_t>(byte)), RxResult::Pending);
    }
    for (int n = 3; n <= 256; ++n) {
        EXPECT_EQ(Empfang_Seriell(rx, 0), RxResult::Pending);
    }
    // 02: 2; FF: 4 + 255 - 255 = 4; 17: 8 + 23 = 31. Doubled 253 times, 253 = 31 x 8 + 5: 31 turned by five places.
    EXPECT_EQ(Empfang_Seriell(rx, 0xE3), RxResult::Frame);
    EXPECT_EQ(rx.FrameSize, 257);
}

TEST(Empfang_Seriell, resets_a_state_that_it_does_not_know) {
    Empfaenger rx;
    rx.RxState = 7;
    EXPECT_EQ(Empfang_Seriell(rx, 0x02), RxResult::Pending);
    EXPECT_EQ(rx.RxState, 0);
}

/// A network frame of word N = 30 (1E): header, block 5, code 90, step 0x14, then the sum at 29 and the closing byte.
constexpr std::string_view NetworkFrame =
    "02 05 90 01 00 1E 11 22 33 44 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01 14 FF A5 77";

TEST(Empfang_Netzwerk, takes_the_length_from_4_and_5_the_sum_before_the_closing_byte) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, NetworkFrame), Results{RxResult::Frame});
    EXPECT_EQ(rx.RxLength, 30);
    EXPECT_EQ(rx.FrameSize, 31);
    EXPECT_EQ(rx.RxBuffer[29], 0);
    EXPECT_EQ(rx.RxSum, 0xA5);
    EXPECT_EQ(rx.RxBuffer[30], 0x77);
    EXPECT_EQ(rx.RxState, 0);
    EXPECT_EQ(rx.RxIndex, 0);
}

TEST(Empfang_Netzwerk, drops_a_frame_with_a_wrong_checksum) {
    Empfaenger rx;
    std::string frame(NetworkFrame);
    frame[frame.size() - 4] = frame[frame.size() - 4] == '0' ? '1' : '0';
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, frame), Results{RxResult::BadChecksum});
    EXPECT_EQ(rx.RxState, 0);
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, NetworkFrame), Results{RxResult::Frame});
}

class Empfang_Netzwerk_OhneSumme : public ::testing::TestWithParam<std::string_view> {};

TEST_P(Empfang_Netzwerk_OhneSumme, history_and_error_frames_are_taken_without_a_checksum) {
    Empfaenger rx;
    std::string frame(NetworkFrame);
    Setzen(frame, 27, GetParam());
    Setzen(frame, 29, "EE");
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, frame), Results{RxResult::Frame});
    EXPECT_EQ(rx.RxBuffer[29], 0xEE);
}

INSTANTIATE_TEST_SUITE_P(Steps, Empfang_Netzwerk_OhneSumme, ::testing::Values("0C", "0D", "FF"));

TEST(Empfang_Netzwerk, wants_a_checksum_of_another_code_than_90) {
    Empfaenger rx;
    std::string frame(NetworkFrame);
    Setzen(frame, 2, "91");
    Setzen(frame, 27, "0C");
    Setzen(frame, 29, "EE");
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, frame), Results{RxResult::BadChecksum});
}

TEST(Empfang_Netzwerk, does_not_look_at_the_step_of_an_earlier_frame_when_the_frame_ends_before_it) {
    Empfaenger rx;
    rx.RxBuffer[27] = 0x0C;
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, "02 05 90 01 00 08 11 EE 77"), Results{RxResult::BadChecksum});
}

TEST(Empfang_Netzwerk, takes_the_block_number_2_unstuffed) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, "02 02 90 01 00 08 11 F2 77"), Results{RxResult::Frame});
    EXPECT_EQ(rx.RxBuffer[1], 2);
}

TEST(Empfang_Netzwerk, drops_a_stuffed_00_in_the_header_and_keeps_the_00_behind_it) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, "02 05 90 02 00 00 08 11 5B 77"), Results{RxResult::Frame});
    EXPECT_EQ(Body(rx), "02 05 90 02 00 08 11 00 77");
}

TEST(Empfang_Netzwerk, drops_a_stuffed_00_in_the_body_and_behind_the_checksum) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, "02 05 90 01 00 09 02 00 75 02 00 77"), Results{RxResult::Frame});
    EXPECT_EQ(Body(rx), "02 05 90 01 00 09 02 75 00 77");
}

TEST(Empfang_Netzwerk, drops_a_stuffed_00_behind_a_length_that_ends_in_02) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, "02 05 90 01 01 02 00"), Results{});
    EXPECT_EQ(rx.RxLength, 258);
    EXPECT_EQ(rx.RxIndex, 6);
}

TEST(Empfang_Netzwerk, gives_a_frame_up_at_02_without_00_in_the_body) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, "02 05 90 01 00 09 02 03"), Results{RxResult::BadStuffing});
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, NetworkFrame), Results{RxResult::Frame});
}

TEST(Empfang_Netzwerk, takes_a_frame_as_long_as_the_buffer) {
    Empfaenger rx;
    Feed(rx, Empfang_Netzwerk, "02 05 90 01 05 78");
    for (int n = 6; n < 27; ++n) {
        EXPECT_EQ(Empfang_Netzwerk(rx, 0), RxResult::Pending);
    }
    EXPECT_EQ(Empfang_Netzwerk(rx, 0x0C), RxResult::Pending);
    for (int n = 28; n < 1400; ++n) {
        EXPECT_EQ(Empfang_Netzwerk(rx, 0x55), RxResult::Pending);
    }
    EXPECT_EQ(Empfang_Netzwerk(rx, 0x77), RxResult::Frame);
    EXPECT_EQ(rx.FrameSize, 1401);
    EXPECT_EQ(rx.RxBuffer[1400], 0x77);
}

TEST(Empfang_Netzwerk, gives_a_frame_up_that_would_be_longer_than_the_buffer) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, "02 05 90 01 05 79"), Results{RxResult::TooLong});
    EXPECT_EQ(rx.RxState, 0);
    EXPECT_EQ(rx.RxIndex, 0);
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, NetworkFrame), Results{RxResult::Frame});
}

TEST(Empfang_Netzwerk, drops_a_frame_whose_length_leaves_no_room_for_a_checksum) {
    Empfaenger rx;
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, "02 05 90 01 00 00 77"), Results{RxResult::BadChecksum});
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, "02 05 90 01 00 06 77"), Results{RxResult::BadChecksum});
    EXPECT_EQ(Feed(rx, Empfang_Netzwerk, NetworkFrame), Results{RxResult::Frame});
}

TEST(Empfang_Netzwerk, resets_a_state_that_it_does_not_know) {
    Empfaenger rx;
    rx.RxState = -1;
    EXPECT_EQ(Empfang_Netzwerk(rx, 0x02), RxResult::Pending);
    EXPECT_EQ(rx.RxState, 0);
}

TEST(Empfang, a_long_network_frame_left_half_read_does_not_lead_the_serial_automaton_out_of_the_buffer) {
    Empfaenger rx;
    Feed(rx, Empfang_Netzwerk, "02 05 90 01 05 78");
    for (int n = 6; n < 1400; ++n) {
        Empfang_Netzwerk(rx, 0x55);
    }
    ASSERT_EQ(rx.RxIndex, 1400);
    EXPECT_EQ(Empfang_Seriell(rx, 0x55), RxResult::TooLong);
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "02 03 06 55 AA 7D"), Results{RxResult::Frame});
}

TEST(Empfang, a_network_frame_of_length_0_left_half_read_is_no_serial_frame) {
    Empfaenger rx;
    Feed(rx, Empfang_Netzwerk, "02 05 02 00 01 00 00");
    ASSERT_EQ(rx.RxState, 2);
    EXPECT_EQ(Feed(rx, Empfang_Seriell, "55"), Results{RxResult::TooLong});
    EXPECT_EQ(rx.RxState, 0);
}

} // namespace
} // namespace qvm
