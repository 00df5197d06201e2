// Scans of the radio channels: what goes out when, what the answers lead to, and what is left behind.

#include "ChannelScan.h"

#include "AntwortRahmen.h"
#include "VirtualPlatform.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::uint8_t Tune = 0x6B, Ask = 0x4B, Login = 0x04, Refused = 0x69;

/// A telegram on the line: when, its code, and the channel that it names or that was named last.
struct Telegramm {
    std::int64_t At;
    int Code;
    int Channel;
};

struct Channel_Scan : ::testing::Test {
    VirtualPlatform world;
    Kern kern{world.World};
    Link link{kern};
    Programmierlauf run{link};
    AdapterListe adapters;
    ChannelScan scan{run, adapters};

    std::vector<Telegramm> sent;
    std::vector<std::vector<std::uint8_t>> frames;
    std::vector<ScanEnd> ends;
    std::vector<int> steps;
    /// What comes for a question on a channel.
    std::function<void(int channel)> Answer;

    Channel_Scan() {
        link.PortNummer = 1;
        Port_Oeffnen(link, 1);
        world.OnWrite = [this](std::span<const std::uint8_t> wire) { Heard(wire); };
        scan.Fortschritt = [this] { steps.push_back(scan.Kanal()); };
        scan.Beendet = [this](ScanEnd how) { ends.push_back(how); };
    }
    void Heard(std::span<const std::uint8_t> wire) {
        std::vector<std::uint8_t> frame(wire.begin(), wire.begin() + 2);
        for (std::size_t n = 2; n < wire.size(); ++n) {
            frame.push_back(wire[n]);
            n += wire[n] == 0x02 ? 1 : 0;
        }
        frames.push_back(frame);
        const int code = frame[2];
        const int channel = code == Tune    ? frame[3]
                            : code == Login ? frame[18]
                            : sent.empty()  ? 0
                                            : sent.back().Channel;
        sent.push_back({world.Elapsed(), code, channel});
        if (code != Tune && Answer) {
            Answer(channel);
        }
    }
    void Come(int delayMs, std::uint8_t code, const std::vector<std::uint8_t>& payload) {
        world.Deliver(ReplyWire(code, 0x0D, payload), delayMs);
    }
    /// Serial 01.60.00.n, signal 10 times n, and a type that only a login tells.
    void Found(std::uint8_t code, int n, int delayMs = 20) {
        Come(delayMs, code, {0, static_cast<std::uint8_t>(10 * n), 0, 42, 1, 0x60, 0, static_cast<std::uint8_t>(n)});
    }
    void Empty(int delayMs = 20) { Come(delayMs, Refused, {0x64}); }
    void Begin(ScanWay way = ScanWay::Units, std::string_view caller = "F20") {
        RunOrder order;
        order.AdminCode = AdminCodeBytes{0x1A, 0x2B, 0x3C};
        ASSERT_TRUE(Kanaele_Absuchen(scan, way, order, caller));
    }
    bool Ended(std::int64_t limitMs = 120000) {
        return world.RunUntil([this] { return !ends.empty(); }, limitMs);
    }
    std::vector<int> FoundChannels() const {
        std::vector<int> channels;
        for (std::size_t n = 0; n < scan.Funde.Entries.size(); ++n) {
            if (scan.Funde.Entries[n].Status != 0) {
                channels.push_back(static_cast<int>(n));
            }
        }
        return channels;
    }
    std::vector<std::pair<int, int>> Order() const {
        std::vector<std::pair<int, int>> order;
        for (const Telegramm& telegram : sent) {
            order.emplace_back(telegram.Code, telegram.Channel);
        }
        return order;
    }
    void NothingLeft() {
        const ChainState& chain = link.Lauf.Chain;
        EXPECT_EQ(chain.SuchMarke, 0);
        EXPECT_EQ(chain.SuchLauf, 0);
        EXPECT_EQ(chain.KanalIndex, 0);
        EXPECT_EQ(chain.LaufZiel, "");
        EXPECT_EQ(link.AddressMode, 0);
        EXPECT_EQ(link.AnswerDue, 0);
        EXPECT_EQ(link.Lauf.Order.AdminCode, Secret<3>());
        EXPECT_FALSE(scan.Uhr.Running());
        EXPECT_EQ(scan.Kanal(), 0);
        const auto before = sent.size();
        Empty(0);
        Found(Ask, 1, 0);
        Found(Login, 1, 0);
        world.RunFor(60000);
        EXPECT_EQ(sent.size(), before);
        EXPECT_EQ(ends.size(), 1U);
    }
};

TEST_F(Channel_Scan, sends_the_adapter_to_each_channel_and_asks_half_a_second_later) {
    Answer = [this](int) { Empty(0); };
    Begin();
    ASSERT_TRUE(Ended());
    ASSERT_EQ(sent.size(), 24U);
    for (int channel = 1; channel <= 12; ++channel) {
        const auto at = static_cast<std::size_t>(2 * (channel - 1));
        EXPECT_EQ(sent[at].Code, Tune);
        EXPECT_EQ(sent[at].Channel, channel);
        EXPECT_EQ(sent[at + 1].Code, Ask);
        EXPECT_EQ(sent[at + 1].At - sent[at].At, 500) << channel;
    }
    EXPECT_THAT(steps, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
    EXPECT_THAT(ends, ElementsAre(ScanEnd::Done));
    EXPECT_THAT(FoundChannels(), IsEmpty());
    NothingLeft();
}

TEST_F(Channel_Scan, its_telegrams_have_these_bytes) {
    Begin();
    ASSERT_TRUE(Ended());
    using Bytes = std::vector<std::uint8_t>;
    EXPECT_EQ(frames[0], (Bytes{0x02, 0x0E, 0x6B, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x01}));
    EXPECT_EQ(frames[1], (Bytes{0x02, 0x0D, 0x4B, 0, 0, 0, 0, 0x11, 1, 0x33, 0x88, 1, 0, 0, 0x4B}));
    EXPECT_EQ(frames[22], (Bytes{0x02, 0x0E, 0x6B, 12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x59}));
}

TEST_F(Channel_Scan, by_logins_asks_nobody_in_particular_with_the_code_on_the_channel) {
    Begin(ScanWay::Logins, "");
    ASSERT_TRUE(Ended());
    using Bytes = std::vector<std::uint8_t>;
    EXPECT_EQ(frames[5], (Bytes{0x02, 0x14, 0x04, 0,    0,    0,    0,    0x11, 0,    0x33, 0x88,
                                1,    0,    0,    0x1A, 0x2B, 0x3C, 0xEE, 3,    0xAA, 0x55, 0x8E}));
    EXPECT_EQ(sent.size(), 24U);
    NothingLeft();
}

TEST_F(Channel_Scan, puts_a_unit_down_to_the_channel_on_which_it_answered) {
    Answer = [this](int channel) { channel == 1 || channel == 7 || channel == 12 ? Found(Ask, channel) : Empty(); };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(FoundChannels(), ElementsAre(1, 7, 12));
    EXPECT_EQ(scan.Funde.Entries[7], (ScanEntry{2, {1, 0x60, 0, 7}, 70, 6}));
    EXPECT_THAT(ends, ElementsAre(ScanEnd::Done));
    NothingLeft();
    EXPECT_THAT(FoundChannels(), ElementsAre(1, 7, 12));
    Funde_Vergessen(scan);
    EXPECT_THAT(FoundChannels(), IsEmpty());
}

TEST_F(Channel_Scan, by_logins_takes_the_type_that_the_device_tells) {
    Answer = [this](int channel) { channel == 4 ? Found(Login, channel) : Empty(); };
    Begin(ScanWay::Logins);
    ASSERT_TRUE(Ended());
    EXPECT_THAT(FoundChannels(), ElementsAre(4));
    EXPECT_EQ(scan.Funde.Entries[4], (ScanEntry{2, {1, 0x60, 0, 4}, 40, 42}));
}

TEST_F(Channel_Scan, a_refusal_for_any_reason_counts_the_channel_as_empty) {
    Answer = [this](int channel) { Come(20, Refused, {static_cast<std::uint8_t>(0x63 + channel)}); };
    Begin(ScanWay::Logins, "F20");
    ASSERT_TRUE(Ended());
    EXPECT_EQ(sent.size(), 24U);
    EXPECT_THAT(FoundChannels(), IsEmpty());
    NothingLeft();
}

TEST_F(Channel_Scan, leaves_a_silent_channel_after_three_seconds) {
    const std::int64_t begun = world.Elapsed();
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(world.Elapsed() - begun, 12 * (500 + 3000));
    EXPECT_EQ(sent.size(), 24U);
    EXPECT_THAT(FoundChannels(), IsEmpty());
    NothingLeft();
}

TEST_F(Channel_Scan, an_answer_while_the_adapter_goes_to_the_next_channel_is_nobodys) {
    Answer = [this](int channel) { channel == 3 ? Found(Ask, 3, 3200) : Empty(); };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(FoundChannels(), IsEmpty());
}

TEST_F(Channel_Scan, behind_a_silent_channel_the_first_answer_counts_nothing_and_the_channel_is_asked_again) {
    // What channel 3 has to say comes when channel 4 has been asked.
    int asked4 = 0;
    Answer = [&](int channel) {
        if (channel == 3) {
            Found(Ask, 3, 3700);
        } else if (channel == 4 && ++asked4 == 1) {
            Found(Ask, 4, 900); // behind the other, when the adapter has been sent again
        } else {
            channel == 4 || channel == 9 ? Found(Ask, channel) : Empty();
        }
    };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(asked4, 2);
    EXPECT_THAT(FoundChannels(), ElementsAre(4, 9));
    EXPECT_EQ(scan.Funde.Entries[4].Serial, (Address{1, 0x60, 0, 4}));
    EXPECT_EQ(scan.Funde.Entries[9].Serial, (Address{1, 0x60, 0, 9}));
}

TEST_F(Channel_Scan, a_late_refusal_does_not_empty_the_next_channel) {
    Answer = [this](int channel) { channel == 5 ? Empty(3700) : channel == 6 ? Found(Ask, 6, 400) : Empty(); };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(FoundChannels(), ElementsAre(6));
}

TEST_F(Channel_Scan, a_doubled_answer_counts_once) {
    Answer = [this](int channel) {
        if (channel == 2) {
            Found(Ask, 2);
            Found(Ask, 2, 40);
            Empty(60);
        } else {
            Empty();
        }
    };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(FoundChannels(), ElementsAre(2));
    EXPECT_EQ(sent.size(), 24U);
}

TEST_F(Channel_Scan, an_answer_too_short_to_name_a_device_and_one_to_another_question_name_none) {
    Answer = [this](int channel) {
        if (channel == 1) {
            world.Deliver(ReplyWire(Ask, 0x08, {0, 9, 0, 6, 1, 0x60}), 20);
        } else if (channel == 2) {
            Found(Login, 2);
            Come(30, 0x05, {});
            Empty(40);
        } else {
            Empty();
        }
    };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(FoundChannels(), IsEmpty());
    EXPECT_EQ(sent.size(), 24U);
}

TEST_F(Channel_Scan, cancelled_at_any_moment_leaves_nothing_behind_and_the_next_one_runs) {
    Answer = [this](int channel) { channel % 2 == 1 ? Found(Ask, channel, 300) : Empty(300); };
    for (const int moment : {0, 100, 499, 500, 650, 800, 1250, 1400, 9000}) {
        sent.clear();
        ends.clear();
        Begin();
        world.RunFor(moment);
        Absuchen_Abbrechen(scan);
        EXPECT_THAT(ends, ElementsAre(ScanEnd::Cancelled)) << moment;
        EXPECT_THAT(FoundChannels(), IsEmpty()) << moment;
        NothingLeft();
    }
    Absuchen_Abbrechen(scan); // there is none
    ends.clear();
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(FoundChannels(), ElementsAre(1, 3, 5, 7, 9, 11));
}

TEST_F(Channel_Scan, an_adapter_pulled_at_any_moment_ends_it) {
    Answer = [this](int channel) { Found(Ask, channel, 300); };
    for (const int moment : {100, 650, 900, 5000}) {
        sent.clear();
        ends.clear();
        Begin();
        world.RunFor(moment);
        world.PortOpen = world.PortCanOpen = false;
        ASSERT_TRUE(Ended()) << moment;
        EXPECT_THAT(ends, ElementsAre(ScanEnd::Pulled)) << moment;
        EXPECT_THAT(FoundChannels(), IsEmpty());
        NothingLeft();
        world.PortCanOpen = true;
        Port_Neu(link);
    }
    ends.clear();
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(ends, ElementsAre(ScanEnd::Done));
}

TEST_F(Channel_Scan, goes_on_at_no_other_port_when_the_ports_have_changed) {
    Answer = [this](int) { Empty(); };
    Begin();
    world.RunFor(2000);
    ++adapters.Stand;
    const auto before = sent.size();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(ends, ElementsAre(ScanEnd::Pulled));
    EXPECT_EQ(sent.size(), before);
}

TEST_F(Channel_Scan, without_a_port_sends_nothing_and_says_so) {
    world.PortOpen = world.PortCanOpen = false;
    Begin();
    EXPECT_THAT(ends, ElementsAre(ScanEnd::NoPort));
    EXPECT_THAT(sent, IsEmpty());
    EXPECT_THAT(steps, IsEmpty());
    world.PortCanOpen = true;
    NothingLeft();
}

TEST_F(Channel_Scan, two_late_answers_are_put_down_to_no_other_channel) {
    // What channels 3 and 4 have to say comes behind the first and the second question to channel 5.
    int asked5 = 0;
    Answer = [&](int channel) {
        if (channel == 3) {
            Found(Ask, 3, 7100);
        } else if (channel == 4) {
            Found(Ask, 4, 4200);
        } else if (channel == 5) {
            ++asked5;
            Found(Ask, 5, 300);
        } else {
            Empty();
        }
    };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(asked5, 3);
    EXPECT_THAT(FoundChannels(), ElementsAre(5));
    EXPECT_EQ(scan.Funde.Entries[5].Serial, (Address{1, 0x60, 0, 5}));
}

TEST_F(Channel_Scan, an_answer_that_comes_again_behind_the_next_question_is_not_the_next_channels) {
    Answer = [this](int channel) {
        if (channel == 2) {
            Found(Ask, 2);
            Found(Ask, 2, 700);
        } else {
            channel == 4 ? Found(Ask, 4) : Empty(400);
        }
    };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(FoundChannels(), ElementsAre(2, 4));
}

TEST_F(Channel_Scan, a_unit_that_two_channels_hear_stands_on_both_as_it_says_so_twice) {
    int asked7 = 0;
    Answer = [&](int channel) {
        asked7 += channel == 7 ? 1 : 0;
        channel == 6 || channel == 7 ? Found(Ask, 6) : Empty();
    };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(asked7, 2);
    EXPECT_THAT(FoundChannels(), ElementsAre(6, 7));
}

TEST_F(Channel_Scan, begun_at_once_behind_a_cancelled_one_takes_no_answer_of_that_one) {
    Answer = [this](int) { Found(Ask, 9, 1200); }; // while the second scan asks channel 1
    Begin();
    world.RunFor(600);
    Absuchen_Abbrechen(scan);
    ends.clear();
    Answer = [this](int) { Empty(900); };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_THAT(FoundChannels(), IsEmpty());
}

TEST_F(Channel_Scan, long_behind_a_cancelled_one_asks_each_channel_once) {
    Begin();
    world.RunFor(600);
    Absuchen_Abbrechen(scan);
    world.RunFor(36000);
    sent.clear();
    ends.clear();
    Answer = [this](int) { Empty(); };
    Begin();
    ASSERT_TRUE(Ended());
    EXPECT_EQ(sent.size(), 24U);
}

TEST_F(Channel_Scan, begins_neither_beside_another_nor_beside_a_run) {
    Begin();
    EXPECT_FALSE(Kanaele_Absuchen(scan, ScanWay::Logins, {}, ""));
    EXPECT_EQ(scan.Weg, ScanWay::Units);
    Absuchen_Abbrechen(scan);
    run.Gesamtende = false;
    EXPECT_FALSE(Kanaele_Absuchen(scan, ScanWay::Units, {}, "F20"));
    EXPECT_EQ(link.Lauf.Chain.SuchMarke, 0);
}

} // namespace
} // namespace qvm::test
