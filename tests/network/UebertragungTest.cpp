// The transmit step: stuffing, tries, waits, the log, the trace, and what may happen while it waits.

#include "NetzFixture.h"

#include <algorithm>

namespace qvm::test {
namespace {

const std::string LogFile = "/qvm/HIST/H_20100701_192030_LOCK.txt";

using Net_Telegramm_Senden_Test = NetzTest;

TEST_F(Net_Telegramm_Senden_Test, every_0x02_from_index_2_on_is_followed_by_0x00) {
    Benutzer(10);
    Net_Daten_Senden(run, 0, 10);
    Net_Daten_Senden(run, 1, 10);
    // Block 2 of 2, 97 bytes: the block number is not stuffed, the block count is.
    EXPECT_EQ(HexZeile(Lines.back(), 0, 22), "02 02 90 02 00 00 61 01 50 0C 10 02 00 02 00 02 00 02 00 01 6F 00");
}

TEST_F(Net_Telegramm_Senden_Test, index_26_is_set_behind_the_checksum) {
    Net_Daten_Senden(run, 0, 0);
    Bytes built = Sent[0];
    EXPECT_EQ(built[26], 1);
    built[26] = 0;
    const std::uint8_t sum = built.back();
    built.pop_back();
    EXPECT_EQ(Pruefsumme(built), sum);
}

TEST_F(Net_Telegramm_Senden_Test, without_a_reply_data_go_out_four_times_4_seconds_apart_and_the_same) {
    int ciphers = 0;
    pc.World.encryptData = [&](std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16>) {
        ++ciphers;
        block[0] ^= 0x55;
    };
    EXPECT_TRUE(Net_Daten_Senden(run, 0, 0));
    EXPECT_EQ(SentAt, (std::vector<std::int64_t>{0, 4000, 8000, 12000}));
    EXPECT_EQ(pc.Elapsed(), 16000);
    EXPECT_EQ(Sent[0], Sent[3]);
    EXPECT_EQ(ciphers, 5 * 8);
    EXPECT_EQ(Ereignisse(), "silence");
}

TEST_F(Net_Telegramm_Senden_Test, a_history_request_goes_out_once_and_waits_8_seconds) {
    Net_Historie_Anfordern(run, 0x0A);
    EXPECT_EQ(SentAt, (std::vector<std::int64_t>{0}));
    EXPECT_EQ(pc.Elapsed(), 8000);
    EXPECT_EQ(Ereignisse(), "silence");
}

TEST_F(Net_Telegramm_Senden_Test, sends_at_least_once_and_waits_at_least_4_seconds) {
    Net_Daten_Senden(run, 0, 0);
    Sent.clear();
    const std::int64_t start = pc.Elapsed();
    Net_Telegramm_Senden(run, 40, true, 1, 0);
    EXPECT_EQ(Sent.size(), 1U);
    EXPECT_EQ(pc.Elapsed() - start, 4000);
}

TEST_F(Net_Telegramm_Senden_Test, without_the_wait_it_returns_at_once_and_handles_no_old_reply) {
    Net_Daten_Senden(run, 0, 0);
    Log.clear();
    const std::int64_t start = pc.Elapsed();
    EXPECT_TRUE(Net_Telegramm_Senden(run, 40, false, 3000, 4));
    EXPECT_EQ(pc.Elapsed(), start);
    pc.RunFor(1000);
    EXPECT_EQ(Ereignisse(), "");
}

TEST_F(Net_Telegramm_Senden_Test, a_telegram_that_fits_no_buffer_is_refused) {
    EXPECT_FALSE(Net_Telegramm_Senden(run, 1401, true, 3000, 1));
    EXPECT_FALSE(Net_Telegramm_Senden(run, 31, true, 3000, 1));
    EXPECT_TRUE(Sent.empty());
}

TEST_F(Net_Telegramm_Senden_Test, opens_the_port_and_raises_request_to_send) {
    Net_Daten_Senden(run, 0, 0);
    EXPECT_EQ(pc.PortNumber, 3);
    EXPECT_TRUE(pc.Rts);
}

TEST_F(Net_Telegramm_Senden_Test, a_port_that_cannot_be_opened_ends_the_step) {
    pc.PortCanOpen = false;
    EXPECT_FALSE(Net_Daten_Senden(run, 0, 0));
    EXPECT_TRUE(Sent.empty());
    EXPECT_EQ(pc.Elapsed(), 0);
    EXPECT_EQ(Ereignisse(), "no port");
    EXPECT_EQ(link.UsbArmed, 0);
    EXPECT_FALSE(pc.Disk.Files.contains(LogFile));
}

TEST_F(Net_Telegramm_Senden_Test, a_port_that_goes_away_ends_the_tries) {
    pc.At(1000, [this] {
        pc.PortOpen = false;
        pc.PortCanOpen = false;
    });
    EXPECT_FALSE(Net_Daten_Senden(run, 0, 0));
    EXPECT_EQ(Sent.size(), 1U);
    EXPECT_EQ(Ereignisse(), "port lost");
}

TEST_F(Net_Telegramm_Senden_Test, a_port_that_goes_away_in_the_only_try_is_no_silence) {
    pc.At(1000, [this] { pc.PortOpen = false; });
    Net_Historie_Anfordern(run, 0x0A);
    EXPECT_EQ(Ereignisse(), "port lost");
}

TEST_F(Net_Telegramm_Senden_Test, a_port_that_comes_back_in_time_gets_the_same_telegram_again) {
    pc.At(1000, [this] { pc.PortOpen = false; });
    Geraet = [this](const Bytes&) {
        if (Sent.size() == 2) {
            Reply(0x14, 1);
        }
    };
    EXPECT_TRUE(Net_Daten_Senden(run, 0, 0));
    EXPECT_EQ(SentAt, (std::vector<std::int64_t>{0, 4000}));
    EXPECT_EQ(Sent[0], Sent[1]);
    EXPECT_EQ(Ereignisse(), "");
}

TEST_F(Net_Telegramm_Senden_Test, the_log_holds_each_byte_of_the_line_and_is_deleted) {
    std::string log;
    pc.At(4500, [&] { log = pc.Disk.Files[LogFile]; });
    Net_Uhrzeit_Senden(run);
    const std::string once =
        "***********************\r\n2\r\n1\r\n144\r\n1\r\n0\r\n37\r\n1\r\n80\r\n12\r\n16\r\n2\r\n0\r\n";
    EXPECT_EQ(log.substr(0, once.size()), once);
    EXPECT_EQ(std::count(log.begin(), log.end(), '*'), 2 * 23);
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 2 * (1 + static_cast<std::ptrdiff_t>(Lines[0].size())));
    EXPECT_FALSE(pc.Disk.Files.contains(LogFile));
}

TEST_F(Net_Telegramm_Senden_Test, the_log_is_deleted_after_a_reply_too) {
    Geraet = [this](const Bytes&) { Reply(0x14, 1); };
    Net_Daten_Senden(run, 0, 0);
    EXPECT_EQ(Sent.size(), 1U);
    EXPECT_FALSE(pc.Disk.Files.contains(LogFile));
}

TEST_F(Net_Telegramm_Senden_Test, a_full_disk_keeps_no_telegram_back) {
    pc.Disk.FailAt = 1;
    pc.Disk.FailFromThere = true;
    Geraet = [this](const Bytes&) { Reply(0x14, 1); };
    EXPECT_TRUE(Net_Daten_Senden(run, 0, 0));
    EXPECT_EQ(Sent.size(), 1U);
}

TEST_F(Net_Telegramm_Senden_Test, neither_log_nor_trace_ever_holds_the_key) {
    std::vector<Bytes> traced;
    link.Protokoll = [&](const TraceFrame& frame) { traced.emplace_back(frame.Bytes.begin(), frame.Bytes.end()); };
    std::string log;
    Benutzer(3);
    pc.At(2000, [&] { log = pc.Disk.Files[LogFile]; });
    Net_Daten_Senden(run, 0, 3);
    ASSERT_EQ(traced.size(), 4U);
    EXPECT_EQ(traced[0], Sent[0]);
    EXPECT_EQ(std::search(traced[0].begin(), traced[0].end(), run.TransferKey.begin(), run.TransferKey.begin() + 3),
              traced[0].end());
    EXPECT_EQ(log.find("160\r\n161\r\n162"), std::string::npos);
}

TEST_F(Net_Telegramm_Senden_Test, each_telegram_adds_6_to_the_bar_which_wraps_at_36) {
    pc.PortCanOpen = false;
    for (int n = 0; n < 8; ++n) {
        Net_Uhrzeit_Senden(run);
    }
    EXPECT_EQ(Bars, (std::vector<int>{6, 12, 18, 24, 30, 36, 6, 12}));
}

TEST_F(Net_Telegramm_Senden_Test, the_automaton_begins_anew_with_each_try) {
    // Half a frame before the telegram and half a frame as its reply; then a whole one.
    pc.PortOpen = true;
    link.UsbArmed = 0xA5;
    pc.Deliver({0x02, 0x01, 0x90});
    pc.RunFor(10);
    Geraet = [this](const Bytes&) {
        Bytes reply = Antwort(0x14, 1);
        if (Sent.size() == 1) {
            reply.resize(20);
        }
        pc.Deliver(reply, 100);
    };
    Net_Daten_Senden(run, 0, 0);
    EXPECT_EQ(SentAt, (std::vector<std::int64_t>{10, 4010}));
    EXPECT_EQ(Ereignisse(), "");
}

TEST_F(Net_Telegramm_Senden_Test, a_reply_with_a_bad_checksum_leads_to_the_next_try) {
    Geraet = [this](const Bytes&) {
        Bytes reply = Antwort(0x14, 1);
        reply[20] ^= static_cast<std::uint8_t>(Sent.size() == 1 ? 0x40 : 0);
        pc.Deliver(reply, 100);
    };
    Net_Daten_Senden(run, 0, 0);
    EXPECT_EQ(SentAt, (std::vector<std::int64_t>{0, 4000}));
    EXPECT_EQ(pc.Elapsed(), 4100);
}

TEST_F(Net_Telegramm_Senden_Test, a_cancel_ends_the_wait_and_the_tries) {
    pc.At(1500, [this] { Net_Abbrechen(run); });
    Net_Programmieren_Beginnen(run);
    EXPECT_EQ(pc.Elapsed(), 1500);
    EXPECT_EQ(Sent.size(), 1U);
    EXPECT_EQ(link.UsbArmed, 0);
    EXPECT_FALSE(pc.Disk.Files.contains(LogFile));
    pc.Deliver(Antwort(0x15, 1));
    pc.RunFor(5000);
    EXPECT_EQ(Sent.size(), 1U);
    EXPECT_EQ(Ereignisse(), "steady, status 81, steady");
}

TEST_F(Net_Telegramm_Senden_Test, a_row_begun_inside_the_wait_of_another_one_takes_its_place) {
    Gutes_Geraet();
    bool mute = true;
    const auto good = Geraet;
    Geraet = [&](const Bytes& frame) {
        if (!mute) {
            good(frame);
        }
    };
    pc.At(1000, [&] {
        Net_Abbrechen(run);
        mute = false;
        Net_Programmieren_Beginnen(run);
    });
    Net_Programmieren_Beginnen(run);
    EXPECT_EQ(SentAt, (std::vector<std::int64_t>{0, 1000}));
    pc.RunFor(20000);
    EXPECT_EQ(Codes(), "14 14 1E");
    EXPECT_NE(Ereignisse().find("mark >> 266"), std::string::npos);
}

TEST_F(Net_Telegramm_Senden_Test, other_telegrams_during_the_wait_do_not_change_what_is_repeated) {
    pc.At(1000, [this] { link.TxBuffer.fill(0x77); });
    Net_Daten_Senden(run, 0, 0);
    EXPECT_EQ(Sent[1], Sent[0]);
}

} // namespace
} // namespace qvm::test
