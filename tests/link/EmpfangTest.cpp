#include "LinkFixture.h"

#include <string>
#include <vector>

namespace qvm {
namespace {

using test::Hex;
using test::HexZeile;

/// Told apart by their codes, 72 and 73.
constexpr std::string_view CardStart = "02 06 72 00 A1 A2 A3 A4 D7";
constexpr std::string_view CardBlock = "02 03 73 01 55 04";
constexpr std::string_view UnaskedNetworkFrame = "02 05 90 01 00 08 11 53 77";

class Empfang_Byte_Test : public test::LinkFixture {
protected:
    Empfang_Byte_Test() {
        link.Hooks.Antwort_Gekommen = [this] {
            calls += link.RxByte(2) == 0x72 ? 'S' : 'B';
            return true;
        };
        link.Netzwerk_Antwort = [this] { calls += 'N'; };
    }

    void Receive(std::string_view text) {
        platform.Deliver(Hex(text));
        platform.RunFor(1);
    }

    std::string calls;
};

TEST_F(Empfang_Byte_Test, bytes_of_the_port_run_the_dispatcher_when_a_frame_is_whole) {
    Receive(CardStart);
    EXPECT_EQ(calls, "S");
    EXPECT_EQ(HexZeile(link.RxFrame()), "02 06 72 00 A1 A2 A3 A4");
}

TEST_F(Empfang_Byte_Test, a_frame_with_a_wrong_checksum_is_dropped_in_silence) {
    Receive("02 06 72 00 A1 A2 A3 A4 00");
    EXPECT_EQ(calls, "");
    EXPECT_EQ(Wire(), "");
    Receive(CardStart);
    EXPECT_EQ(calls, "S");
}

TEST_F(Empfang_Byte_Test, RxByte_gives_0_behind_the_frame_even_where_an_older_frame_was_longer) {
    Receive(CardStart);
    EXPECT_EQ(link.RxByte(7), 0xA4);
    EXPECT_EQ(link.RxByte(8), 0);
    Receive(CardBlock);
    EXPECT_EQ(link.RxByte(4), 0x55);
    EXPECT_EQ(link.RxByte(7), 0);
    EXPECT_EQ(link.RxByte(-1), 0);
    EXPECT_EQ(link.RxByte(5000), 0);
}

TEST_F(Empfang_Byte_Test, the_automaton_is_back_in_state_0_before_the_dispatcher_runs) {
    int state = -1;
    int index = -1;
    link.Hooks.Antwort_Gekommen = [&] {
        state = link.Rx.RxState;
        index = link.Rx.RxIndex;
        return true;
    };
    Receive(CardStart);
    EXPECT_EQ(state, 0);
    EXPECT_EQ(index, 0);
}

TEST_F(Empfang_Byte_Test, a_frame_that_comes_while_the_dispatcher_waits_is_taken_too) {
    link.Hooks.Antwort_Gekommen = [this] {
        if (link.RxByte(2) == 0x72) {
            platform.Deliver(Hex(CardBlock), 50);
            Warte_Ticks(link, 100, 100);
            calls += 'S';
        } else {
            calls += 'B';
        }
        return true;
    };
    Receive(CardStart);
    EXPECT_EQ(calls, "BS");
}

TEST_F(Empfang_Byte_Test, an_armed_link_takes_a_network_frame_once) {
    link.UsbArmed = 0xA5;
    Receive(UnaskedNetworkFrame);
    EXPECT_EQ(calls, "N");
    EXPECT_EQ(link.UsbArmed, 0);
    EXPECT_EQ(link.UsbDone, 0x5A);
    EXPECT_EQ(HexZeile(link.RxFrame()), "02 05 90 01 00 08 11 00 77");
    Receive(CardStart);
    EXPECT_EQ(calls, "NS");
}

TEST_F(Empfang_Byte_Test, a_network_frame_with_a_wrong_checksum_ends_the_armed_state_with_nothing_done) {
    link.UsbArmed = 0xA5;
    Receive("02 05 90 01 00 08 11 00 77");
    EXPECT_EQ(calls, "");
    EXPECT_EQ(link.UsbArmed, 0);
    EXPECT_EQ(link.UsbDone, 0);
}

TEST_F(Empfang_Byte_Test, a_network_frame_that_is_too_long_leaves_the_link_armed_for_the_next_one) {
    link.UsbArmed = 0xA5;
    Receive("02 05 90 01 FF FF");
    EXPECT_EQ(link.UsbArmed, 0xA5);
    EXPECT_EQ(link.UsbDone, 0);
    Receive(UnaskedNetworkFrame);
    EXPECT_EQ(calls, "N");
    EXPECT_EQ(link.UsbDone, 0x5A);
}

TEST_F(Empfang_Byte_Test, a_network_frame_needs_no_one_who_listens) {
    link.Netzwerk_Antwort = nullptr;
    link.UsbArmed = 0xA5;
    Receive(UnaskedNetworkFrame);
    EXPECT_EQ(link.UsbDone, 0x5A);
}

TEST_F(Empfang_Byte_Test, any_other_mark_than_A5_reads_serial_frames) {
    link.UsbArmed = 0xA4;
    Receive(CardStart);
    EXPECT_EQ(calls, "S");
    EXPECT_EQ(link.UsbArmed, 0xA4);
}

TEST_F(Empfang_Byte_Test, a_link_that_is_gone_leaves_the_port_without_a_receiver) {
    { Link other(kern); }
    Receive(CardStart);
    EXPECT_EQ(calls, "");
}

class Mithoeren : public Empfang_Byte_Test {
protected:
    struct Seen {
        TraceFrame::Direction Way;
        std::string Bytes;
        RxResult Result;
        bool operator==(const Seen&) const = default;
    };
    Mithoeren() {
        link.Protokoll = [this](const TraceFrame& frame) {
            seen.push_back({frame.Way, HexZeile(frame.Bytes), frame.Result});
        };
    }
    std::vector<Seen> seen;
};

TEST_F(Mithoeren, sees_a_received_frame_with_its_checksum_before_the_dispatcher_answers_it) {
    link.Hooks.Antwort_Gekommen = [this] { return TelUhrzeit_Senden(link); };
    Receive("02 06 07 00 A1 A2 A3 A4 21");
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[0].Way, TraceFrame::Direction::Received);
    EXPECT_EQ(seen[0].Bytes, "02 06 07 00 A1 A2 A3 A4 21");
    EXPECT_EQ(seen[1].Way, TraceFrame::Direction::Sent);
    EXPECT_EQ(seen[1].Bytes, "02 10 09 11 22 33 44 11 00 33 88 01 00 00 0A 1E 00 9D");
}

TEST_F(Mithoeren, sees_a_frame_with_a_wrong_checksum_with_the_byte_that_came) {
    Receive("02 03 73 01 55 99");
    EXPECT_EQ(seen, (std::vector<Seen>{{TraceFrame::Direction::Dropped, "02 03 73 01 55 99", RxResult::BadChecksum}}));
}

TEST_F(Mithoeren, sees_where_the_stuffing_broke) {
    Receive("02 05 73 02 02");
    EXPECT_EQ(seen, (std::vector<Seen>{{TraceFrame::Direction::Dropped, "02 05 73 02 02", RxResult::BadStuffing}}));
}

TEST_F(Mithoeren, sees_a_network_frame_with_checksum_and_closing_byte) {
    link.UsbArmed = 0xA5;
    Receive(UnaskedNetworkFrame);
    EXPECT_EQ(seen, (std::vector<Seen>{
                        {TraceFrame::Direction::Received, std::string(UnaskedNetworkFrame), RxResult::Frame}}));
}

TEST_F(Mithoeren, sees_a_dropped_network_frame_as_it_came) {
    link.UsbArmed = 0xA5;
    Receive("02 05 90 01 00 08 11 EE 77");
    EXPECT_EQ(seen, (std::vector<Seen>{
                        {TraceFrame::Direction::Dropped, "02 05 90 01 00 08 11 EE 77", RxResult::BadChecksum}}));
}

TEST_F(Mithoeren, sees_sent_telegrams_unstuffed_and_tells_raw_ones_apart) {
    link.TargetChannel = 2;
    TelVerbinden_Senden(link);
    TelAdapterKanal_Senden(link);
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[0].Way, TraceFrame::Direction::Sent);
    EXPECT_EQ(seen[0].Bytes, "02 14 04 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EE 02 AA 55 E9");
    EXPECT_EQ(seen[1].Way, TraceFrame::Direction::SentRaw);
}

TEST_F(Mithoeren, does_not_see_what_could_not_be_sent) {
    platform.PortOpen = false;
    platform.PortCanOpen = false;
    TelTrennen_Senden(link);
    EXPECT_TRUE(seen.empty());
}

class Bereichssumme : public test::LinkFixture {};

TEST_F(Bereichssumme, covers_both_ends) {
    link.TxBuffer[20] = 1;
    link.TxBuffer[21] = 2;
    link.TxBuffer[22] = 3;
    link.Rx.RxBuffer[30] = 1;
    link.Rx.RxBuffer[31] = 2;
    link.Rx.RxBuffer[32] = 3;
    EXPECT_EQ(Bereich_Pruefsumme_Tx(link, 2, 20), 11);
    EXPECT_EQ(Bereich_Pruefsumme_Rx(link, 2, 30), 11);
    EXPECT_EQ(Bereich_Pruefsumme_Tx(link, 0, 22), 3);
    EXPECT_EQ(Bereich_Pruefsumme_Tx(link, -1, 22), 0);
}

TEST_F(Bereichssumme, ends_with_the_buffer) {
    link.TxBuffer[1400] = 7;
    EXPECT_EQ(Bereich_Pruefsumme_Tx(link, 5000, 1400), 7);
    EXPECT_EQ(Bereich_Pruefsumme_Tx(link, 5, 1401), 0);
    EXPECT_EQ(Bereich_Pruefsumme_Tx(link, 2147483647, 1400), 7);
}

TEST_F(Bereichssumme, of_a_frame_goes_from_the_start_byte_to_the_last_payload_byte) {
    link.TxBuffer[0] = 2;
    link.TxBuffer[1] = 3;
    link.TxBuffer[2] = 6;
    link.TxBuffer[3] = 0x55;
    link.Rx.RxBuffer[0] = 2;
    link.Rx.RxBuffer[1] = 3;
    EXPECT_EQ(Frame_Pruefsumme_Tx(link), 0x7D);
    EXPECT_EQ(Frame_Pruefsumme_Rx(link, 1), 7);
}

} // namespace
} // namespace qvm
