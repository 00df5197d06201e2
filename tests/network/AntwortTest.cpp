// Every code of a reply, at its time and at a wrong one.

#include "NetzFixture.h"
#include "Words.h"

#include <utility>

namespace qvm::test {
namespace {

using Net_Antwort_Test = NetzTest;

TEST_F(Net_Antwort_Test, a_good_run_goes_from_the_blocks_to_the_clock_and_marks_the_row) {
    Benutzer(29);
    Gutes_Geraet();
    Net_Programmieren_Beginnen(run);
    pc.RunFor(30000);
    EXPECT_EQ(Codes(), "14 14 14 1E");
    EXPECT_EQ(Sent[1][1], 2);
    EXPECT_EQ(Sent[2][1], 3);
    EXPECT_EQ(Ereignisse(), "steady, status 81, status 267+81, blink, steady, mark >> 266, next PrgNextDataset");
    EXPECT_EQ(Bars, (std::vector<int>{0, 6, 12, 18, 24, 0, -1}));
    EXPECT_EQ(link.UsbArmed, 0);
}

TEST_F(Net_Antwort_Test, fingerprint_blocks_follow_the_data_with_numbers_that_run_on) {
    Benutzer(10);
    daten.Slots[3] = Jede_Art()[3];
    daten.Slots[3].Template.assign(1261, 9);
    Gutes_Geraet();
    Net_Programmieren_Beginnen(run);
    pc.RunFor(30000);
    // 3 + 1261 bytes: two blocks behind two of data.
    EXPECT_EQ(Codes(), "14 14 16 16 1E");
    EXPECT_EQ(HexZeile(Sent[2], 1, 5), "03 90 04 05 19");
    EXPECT_EQ(HexZeile(Sent[3], 1, 5), "04 90 04 00 22");
    EXPECT_EQ(run.TemplateBytes, 0);
}

TEST_F(Net_Antwort_Test, the_handler_runs_10_ms_after_the_reply) {
    Benutzer(10);
    Gutes_Geraet();
    Net_Programmieren_Beginnen(run);
    pc.RunFor(60);
    EXPECT_EQ(SentAt, (std::vector<std::int64_t>{0, 30, 60}));
}

TEST_F(Net_Antwort_Test, 0x14_with_another_number_is_left_alone_and_the_block_repeated) {
    Benutzer(10);
    Geraet = [this](const Bytes& frame) { Reply(0x14, frame[1] == 1 && Sent.size() < 3 ? 2 : frame[1]); };
    Net_Programmieren_Beginnen(run);
    EXPECT_EQ(SentAt, (std::vector<std::int64_t>{0, 4000, 8000}));
    pc.RunFor(1000);
    EXPECT_EQ(Codes(), "14 14 14 14");
    EXPECT_EQ(Sent[3][1], 2);
}

TEST_F(Net_Antwort_Test, a_double_0x14_sends_the_next_block_once) {
    Benutzer(28);
    Geraet = [this](const Bytes& frame) {
        if (frame[1] == 1) {
            Reply(0x14, 1, 20);
            Reply(0x14, 1, 24);
            Reply(0x14, 1, 500);
        }
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(3000);
    // The adapter falls silent then: all further ones are block 2 and its repeats.
    EXPECT_EQ(Codes(), "14 14 14 14 14");
    for (std::size_t n = 1; n < Sent.size(); ++n) {
        EXPECT_EQ(Sent[n][1], 2);
    }
    EXPECT_EQ(run.Phase, NetPhase::Data);
}

TEST_F(Net_Antwort_Test, 0x15_counts_although_it_follows_0x14_at_once) {
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == 0x14) {
            Bytes both = Antwort(0x14, 1);
            const Bytes second = Antwort(0x15, 1);
            both.insert(both.end(), second.begin(), second.end());
            pc.Deliver(both, 50);
        }
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(100);
    EXPECT_EQ(Codes(), "14 1E 1E 1E 1E");
}

TEST_F(Net_Antwort_Test, 0x15_counts_when_it_comes_unasked_a_long_time_after_0x14) {
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == 0x14) {
            Reply(0x14, 1);
            Reply(0x15, 1, 60000);
        }
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(59000);
    EXPECT_EQ(Codes(), "14");
    pc.RunFor(2000);
    EXPECT_EQ(Codes(), "14 1E 1E 1E 1E");
}

TEST_F(Net_Antwort_Test, 0x15_before_the_last_block_is_left_alone) {
    Benutzer(10);
    Geraet = [this](const Bytes& frame) { Reply(frame[1] == 1 && Sent.size() == 1 ? 0x15 : 0x14, frame[1]); };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Codes(), "14 14 14");
}

TEST_F(Net_Antwort_Test, 0x16_with_nothing_left_and_0x17_lead_to_the_clock_once) {
    Fingerbenutzer(200);
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == 0x14) {
            Reply(0x15);
        } else if (frame[27] == 0x16) {
            Reply(0x16, 2, 20);
            Reply(0x17, 2, 200);
        }
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(3000);
    EXPECT_EQ(Codes(), "14 16 1E 1E 1E 1E");
    EXPECT_EQ(run.Phase, NetPhase::Clock);
}

TEST_F(Net_Antwort_Test, 0x17_ends_the_fingerprints_early) {
    Fingerbenutzer(1264);
    Geraet = [this](const Bytes& frame) {
        if (frame[27] != 0x1E) {
            Reply(frame[27] == 0x14 ? 0x15 : 0x17);
        }
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Codes(), "14 16 1E 1E 1E 1E");
}

TEST_F(Net_Antwort_Test, 0x1F_waits_for_the_result_as_long_as_an_hour) {
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == 0x14) {
            Reply(0x15);
        } else {
            Reply(0x1F);
            Reply(0x1F, 1, 600000);
            Reply(0x20, 1, 3500000);
        }
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(3499000);
    EXPECT_EQ(Ereignisse(), "steady, status 81, status 267+81, blink");
    EXPECT_EQ(run.Phase, NetPhase::Result);
    pc.RunFor(2000);
    EXPECT_EQ(Log.back(), "next PrgNextDataset");
}

TEST_F(Net_Antwort_Test, after_1800_rounds_of_2_seconds_the_adapter_has_taken_too_long) {
    Geraet = [this](const Bytes& frame) { Reply(frame[27] == 0x14 ? 0x15 : 0x1F); };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(3599000);
    EXPECT_NE(Log.back(), "too long");
    EXPECT_EQ(Limits, (std::vector{60}));
    pc.RunFor(2000);
    EXPECT_EQ(Log.back(), "too long");
    EXPECT_FALSE(run.Runde.Running());
}

// Each of these says something, so that no wait for a reply ever ends.

TEST_F(Net_Antwort_Test, that_programs_again_and_again_has_an_hour_from_the_first_time) {
    Geraet = [this](const Bytes& frame) { Reply(frame[27] == 0x14 ? 0x15 : 0x1F); };
    Net_Programmieren_Beginnen(run);
    for (int second = 1; second < 3700; ++second) {
        Reply(0x1F, 1, 1000 * second);
    }
    pc.RunFor(3599000);
    EXPECT_NE(Log.back(), "too long");
    pc.RunFor(2000);
    EXPECT_EQ(Log.back(), "too long");
}

TEST_F(Net_Antwort_Test, that_fetches_for_ever_has_half_an_hour_from_the_request) {
    Geraet = [this](const Bytes&) {
        for (int second = 1; second < 1800; ++second) {
            Reply(0x0B, 1, 1000 * second);
        }
    };
    Net_Historie_Beginnen(run);
    pc.RunFor(1798000);
    EXPECT_NE(Log.back(), "too long");
    pc.RunFor(3000);
    EXPECT_EQ(Log.back(), "too long");
    EXPECT_FALSE(run.Runde.Running());
    EXPECT_EQ(Limits, (std::vector{30}));
}

TEST_F(Net_Antwort_Test, that_sends_history_blocks_without_end_has_half_an_hour_for_all) {
    int block = 0;
    Geraet = [this, &block](const Bytes& frame) {
        ++block;
        // A record whose name differs from block to block.
        Bytes record(23, 1);
        record[5] = static_cast<std::uint8_t>('A' + block % 26);
        pc.Deliver(Antwort(0x0C, static_cast<std::uint8_t>(1 + (block - 1) % 255), record), 1000);
        if (frame[27] == 0x0A) {
            Reply(0x0B);
        }
    };
    Net_Historie_Beginnen(run);
    pc.RunFor(1799000);
    EXPECT_NE(Log.back(), "too long");
    EXPECT_GT(block, 1000);
    pc.RunFor(2000);
    EXPECT_EQ(Log.back(), "too long");
    const int asked = block;
    pc.RunFor(60000);
    EXPECT_EQ(block, asked);
}

TEST_F(Net_Antwort_Test, that_takes_the_last_block_for_ever_has_half_an_hour) {
    Geraet = [this](const Bytes&) {
        for (int second = 0; second < 1800; ++second) {
            Reply(0x14, 1, 1000 * second + 10);
        }
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(1799000);
    EXPECT_NE(Log.back(), "too long");
    EXPECT_EQ(Limits, (std::vector{30}));
    pc.RunFor(3000);
    EXPECT_EQ(Log.back(), "too long");
}

TEST_F(Net_Antwort_Test, whose_frames_lie_about_their_length_is_asked_four_times_and_no_more) {
    // A body of 1360 bytes is told, and 100 come; then a header that tells more than any buffer holds.
    Geraet = [this](const Bytes&) {
        Bytes lie{0x02, 0x01, 0x90, 0x01, 0x05, 0x50};
        lie.resize(100);
        pc.Deliver(lie, 10);
        pc.Deliver({0x02, 0x01, 0x90, 0x01, 0xFF, 0xFF}, 3000);
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(17000);
    EXPECT_EQ(Codes(), "14 14 14 14");
    EXPECT_EQ(Log.back(), "silence");
}

TEST_F(Net_Antwort_Test, a_bad_frame_during_the_rounds_does_not_make_the_program_deaf) {
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == 0x14) {
            Reply(0x15);
            return;
        }
        Reply(0x1F);
        Bytes bad = Antwort(0x20);
        bad[20] ^= 1;
        pc.Deliver(bad, 5000);
        Reply(0x20, 1, 9000);
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(8000);
    EXPECT_EQ(Log.back(), "blink");
    pc.RunFor(2000);
    EXPECT_EQ(Log.back(), "next PrgNextDataset");
}

TEST_F(Net_Antwort_Test, half_a_frame_during_the_rounds_does_not_swallow_the_next_one) {
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == 0x14) {
            Reply(0x15);
            return;
        }
        Reply(0x1F);
        Bytes half = Antwort(0x20);
        half.resize(15);
        pc.Deliver(half, 5000);
        Reply(0x20, 1, 11000);
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(12000);
    EXPECT_EQ(Log.back(), "next PrgNextDataset");
}

TEST_F(Net_Antwort_Test, 0x20_without_0x1F_before_it_proves_nothing) {
    // It may belong to the run before: the adapter has not said that it has taken the clock.
    Geraet = [this](const Bytes& frame) { Reply(frame[27] == 0x14 ? 0x15 : 0x20); };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Codes(), "14 1E");
    EXPECT_EQ(Ereignisse(), "steady, status 81, steady, mark # " + Wort(kern, Word::NetMissing, {"1", "2"}) +
                                ", next PrgNextDataset");
}

TEST_F(Net_Antwort_Test, 0x20_that_names_the_lock_counts_without_0x1F_when_all_blocks_were_taken) {
    Geraet = [this](const Bytes& frame) { ReplyOf(frame[27] == 0x14 ? 0x15 : 0x20, link.Lauf.Order.LockAddress); };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Codes(), "14 1E");
    EXPECT_EQ(Ereignisse(), "steady, status 81, steady, mark >> 266, next PrgNextDataset");
}

TEST_F(Net_Antwort_Test, of_another_lock_means_nothing_at_any_point_of_a_row) {
    constexpr Address other{0x01, 0x50, 0x0C, 0x11};
    for (const int code : {0x0B, 0x0C, 0x0D, 0x14, 0x15, 0x16, 0x17, 0x1F, 0x20, 0xFF}) {
        for (const int telegram : {0x14, 0x16, 0x1E}) {
            SCOPED_TRACE(code * 256 + telegram);
            daten.Slots.clear();
            Fingerbenutzer(200);
            Log.clear();
            Sent.clear();
            bool strange = true;
            Gutes_Geraet();
            Geraet = [this, good = Geraet, &strange, code, telegram, other](const Bytes& frame) {
                if (std::exchange(strange, strange && frame[27] != telegram) && frame[27] == telegram) {
                    ReplyOf(static_cast<std::uint8_t>(code), other);
                }
                good(frame);
            };
            Net_Programmieren_Beginnen(run);
            pc.RunFor(60000);
            EXPECT_FALSE(strange);
            EXPECT_EQ(Codes(), "14 16 1E");
            EXPECT_EQ(Log.back(), "next PrgNextDataset");
            EXPECT_EQ(Log[Log.size() - 2], "mark >> 266");
        }
    }
}

TEST_F(Net_Antwort_Test, a_unit_that_has_no_place_in_the_telegrams_is_named_behind_the_mark) {
    daten.Units[3].UnitPresent = true;
    daten.Units[3].Name = "Garage";
    Gutes_Geraet();
    Net_Programmieren_Beginnen(run);
    pc.RunFor(30000);
    EXPECT_EQ(Log[Log.size() - 2], "mark >> " + kern.Zeile(266) + " - " + Wort(kern, Word::NetUnitsLeft, {"Garage"}));
    EXPECT_EQ(Log.back(), "next PrgNextDataset");
}

TEST_F(Net_Antwort_Test, a_double_0x20_marks_the_row_once) {
    Geraet = [this](const Bytes& frame) {
        Reply(frame[27] == 0x14 ? 0x15 : 0x1F);
        if (frame[27] != 0x14) {
            Reply(0x20, 1, 100);
            Reply(0x20, 1, 101);
            Reply(0x20, 1, 900);
        }
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(3000);
    EXPECT_EQ(Ereignisse(), "steady, status 81, status 267+81, blink, steady, mark >> 266, next PrgNextDataset");
}

TEST_F(Net_Antwort_Test, 0x20_before_the_clock_marks_nothing) {
    Geraet = [this](const Bytes&) { Reply(0x20); };
    Net_Programmieren_Beginnen(run);
    EXPECT_EQ(Codes(), "14 14 14 14");
    EXPECT_EQ(Log.back(), "silence");
}

/// The phase in which the lock is reported as not reached: the code of the telegram that it answers.
class Nicht_Erreicht : public NetzTest, public ::testing::WithParamInterface<int> {};

TEST_P(Nicht_Erreicht, marks_the_row_whatever_was_going_on_and_whatever_its_checksum) {
    Fingerbenutzer(200);
    Geraet = [this](const Bytes& frame) {
        if (frame[27] == GetParam()) {
            Bytes reply = Antwort(0xFF);
            reply[reply.size() - 2] ^= 0x40;
            pc.Deliver(reply, 20);
        } else {
            Reply(frame[27] == 0x14 ? 0x15 : 0x17);
        }
    };
    if (GetParam() == 0x0A) {
        Net_Historie_Beginnen(run);
    } else {
        Net_Programmieren_Beginnen(run);
    }
    pc.RunFor(1000);
    EXPECT_EQ(Ereignisse(), "steady, status 81, steady, mark # 66, next PrgNextDataset");
    EXPECT_EQ(run.Phase, NetPhase::None);
}

INSTANTIATE_TEST_SUITE_P(Codes, Nicht_Erreicht, ::testing::Values(0x0A, 0x14, 0x16, 0x1E));

TEST_F(Net_Antwort_Test, unknown_codes_and_frames_without_a_code_are_left_alone) {
    Geraet = [this](const Bytes&) {
        for (const int code : {0x00, 0x0A, 0x0B, 0x0C, 0x0D, 0x13, 0x16, 0x17, 0x1E, 0x1F, 0x20, 0x21}) {
            Reply(static_cast<std::uint8_t>(code), 1, 100 + code);
        }
        pc.Deliver({0x02, 0x01, 0x90, 0x01, 0x00, 0x08, 0x00, 0x00, 0x00}, 900);
    };
    Net_Programmieren_Beginnen(run);
    EXPECT_EQ(Codes(), "14 14 14 14");
    EXPECT_EQ(Ereignisse(), "steady, status 81, silence");
}

TEST_F(Net_Antwort_Test, without_a_row_a_reply_means_nothing) {
    pc.PortOpen = true;
    link.UsbArmed = 0xA5;
    pc.Deliver(Antwort(0xFF));
    pc.RunFor(1000);
    EXPECT_EQ(Ereignisse(), "");
    EXPECT_EQ(link.UsbArmed, 0);
}

TEST_F(Net_Antwort_Test, a_reply_behind_the_last_try_still_counts) {
    Geraet = [this](const Bytes& frame) {
        if (Sent.size() == 4 && frame[27] == 0x14) {
            Reply(0x15, 1, 6000);
        }
    };
    Net_Programmieren_Beginnen(run);
    EXPECT_EQ(Log.back(), "silence");
    pc.RunFor(3000);
    EXPECT_EQ(Codes(), "14 14 14 14 1E 1E 1E 1E");
}

TEST_F(Net_Antwort_Test, a_flood_of_replies_is_no_danger) {
    Geraet = [this](const Bytes& frame) {
        for (int n = 0; n < 50 && frame[27] == 0x14; ++n) {
            Reply(0x14, 1, 20);
        }
    };
    Net_Programmieren_Beginnen(run);
    pc.RunFor(1000);
    EXPECT_EQ(Codes(), "14");
    EXPECT_TRUE(run.Antworten.empty());
}

TEST_F(Net_Antwort_Test, a_cancel_while_the_adapter_programs_ends_it_all) {
    Gutes_Geraet();
    Net_Programmieren_Beginnen(run);
    pc.RunFor(5000);
    EXPECT_EQ(run.Phase, NetPhase::Result);
    Net_Abbrechen(run);
    pc.RunFor(20000);
    EXPECT_EQ(Log.back(), "steady");
    EXPECT_FALSE(run.Runde.Running());
    EXPECT_FALSE(run.Timer3.Running());
}

TEST_F(Net_Antwort_Test, the_link_survives_its_network_route) {
    {
        const Dataset other;
        const Netzlauf brief{link, other};
    }
    pc.PortOpen = true;
    link.UsbArmed = 0xA5;
    pc.Deliver(Antwort(0x14));
    pc.RunFor(100);
    EXPECT_EQ(link.UsbDone, 0x5A);
}

} // namespace
} // namespace qvm::test
