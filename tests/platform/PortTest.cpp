#include "CableFixture.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <sys/resource.h>
#include <thread>

namespace qvm {
namespace {

using test::Bytes;

class Port : public test::CableFixture {
protected:
    void SetUp() override { OpenPort(); }
};

/// All byte values in turn, over and over: a byte lost, doubled or out of order shows.
Bytes Pattern(std::size_t count) {
    Bytes bytes(count);
    for (std::size_t n = 0; n < count; ++n) {
        bytes[n] = static_cast<std::uint8_t>(n % 251);
    }
    return bytes;
}

Bytes AllValues() {
    Bytes bytes;
    for (int value = 0; value < 256; ++value) {
        bytes.push_back(static_cast<std::uint8_t>(value));
    }
    return bytes;
}

double ProcessorSeconds() {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

TEST_F(Port, the_line_has_19200_baud_8_bits_no_parity_1_stop_bit_and_changes_no_byte) {
    const termios settings = Cable.Settings();
    EXPECT_EQ(::cfgetospeed(&settings), speed_t{B19200});
    EXPECT_EQ(::cfgetispeed(&settings), speed_t{B19200});
    EXPECT_EQ(settings.c_cflag & CSIZE, tcflag_t{CS8});
    EXPECT_EQ(settings.c_cflag & (PARENB | CSTOPB | CRTSCTS), 0U);
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | ICRNL | INLCR | IGNCR | ISTRIP | PARMRK), 0U);
    EXPECT_EQ(settings.c_lflag & (ECHO | ICANON | ISIG), 0U);
    EXPECT_EQ(settings.c_oflag & OPOST, 0U);
}

TEST_F(Port, every_byte_value_reaches_the_receiver_in_order) {
    ASSERT_TRUE(Cable.Send(AllValues()));
    EXPECT_TRUE(RunUntil([&] { return Got.size() >= 256; }));
    EXPECT_EQ(Got, AllValues());
}

TEST_F(Port, every_byte_value_reaches_the_device_in_order) {
    World().Port.Write(AllValues());
    Bytes received;
    EXPECT_TRUE(RunUntil([&] {
        const Bytes more = Cable.Received();
        received.insert(received.end(), more.begin(), more.end());
        return received.size() >= 256;
    }));
    EXPECT_EQ(received, AllValues());
}

TEST_F(Port, a_telegram_leaves_before_the_next_turn_of_the_event_loop) {
    World().Port.Write(Bytes{0x02, 0x03, 0x05});
    EXPECT_EQ(Cable.Received(), (Bytes{0x02, 0x03, 0x05}));
}

TEST_F(Port, what_the_device_does_not_take_yet_follows_later_in_order) {
    const Bytes all = Pattern(300000);
    for (std::size_t at = 0; at < all.size(); at += 1000) {
        World().Port.Write(std::span(all).subspan(at, 1000));
    }
    Bytes received;
    EXPECT_TRUE(RunUntil([&] {
        const Bytes more = Cable.Received();
        received.insert(received.end(), more.begin(), more.end());
        return received.size() >= all.size();
    }));
    EXPECT_TRUE(received == all);
    EXPECT_TRUE(World().Port.IsOpen());
}

TEST_F(Port, a_device_filled_to_the_last_byte_takes_the_rest_later_in_order) {
    const Bytes all = Pattern(100000);
    for (std::size_t at = 0; at < all.size(); at += 500) {
        World().Port.Write(std::span(all).subspan(at, 500));
        TurnsIn(1); // so that each piece goes out alone, and one of them finds no room at all
    }
    EXPECT_TRUE(World().Port.IsOpen()) << World().Port.LastError();
    Bytes received;
    EXPECT_TRUE(RunUntil([&] {
        const Bytes more = Cable.Received();
        received.insert(received.end(), more.begin(), more.end());
        return received.size() >= all.size();
    }));
    EXPECT_TRUE(received == all);
}

TEST_F(Port, a_flood_of_a_million_bytes_arrives_whole_and_in_order) {
    const Bytes all = Pattern(1U << 20U);
    int depth = 0;
    int deepest = 0;
    Got.reserve(all.size());
    World().Port.OnByte([&](std::uint8_t byte) {
        deepest = std::max(deepest, ++depth);
        Got.push_back(byte);
        --depth;
    });
    std::thread sender([&] { EXPECT_TRUE(Cable.Send(all)); });
    EXPECT_TRUE(RunUntil([&] { return Got.size() >= all.size(); }));
    sender.join();
    EXPECT_TRUE(Got == all);
    EXPECT_EQ(deepest, 1) << "one call was not finished before the next began";
}

TEST_F(Port, timers_tick_during_a_flood) {
    const Bytes all = Pattern(1U << 20U);
    int ticks = 0;
    const TimerId timer = World().StartTimer(1, [&] { ++ticks; });
    std::thread sender([&] { EXPECT_TRUE(Cable.Send(all)); });
    EXPECT_TRUE(RunUntil([&] { return Got.size() >= all.size(); }));
    sender.join();
    World().StopTimer(timer);
    EXPECT_GT(ticks, 0);
}

TEST_F(Port, timers_tick_between_bytes_that_came_together) {
    int ticks = 0;
    int ticksBefore = -1; // at the last byte
    const TimerId timer = World().StartTimer(1, [&] { ++ticks; });
    World().Port.OnByte([&](std::uint8_t byte) {
        Got.push_back(byte);
        const std::int64_t until = World().Milliseconds() + 1;
        while (World().Milliseconds() < until) { // a byte with much work behind it
        }
        if (Got.size() == 200) {
            ticksBefore = ticks;
        }
    });
    ASSERT_TRUE(Cable.Send(Pattern(200)));
    EXPECT_TRUE(RunUntil([&] { return Got.size() >= 200; }));
    World().StopTimer(timer);
    EXPECT_EQ(Got, Pattern(200));
    EXPECT_GT(ticksBefore, 5);
}

TEST_F(Port, a_flood_that_the_program_is_too_slow_for_stays_with_the_sender) {
    // More than the system keeps for a pseudo-terminal and the program for itself, and less than 300 turns can read.
    const Bytes all = Pattern(160U << 10U);
    std::atomic<bool> sent = false;
    std::thread sender([&] {
        EXPECT_TRUE(Cable.Send(all));
        sent = true;
    });
    bool sentEarly = false;
    Got.reserve(all.size());
    World().Port.OnByte([&](std::uint8_t byte) {
        Got.push_back(byte);
        const std::int64_t until = World().Milliseconds() + 1;
        while (Got.size() < 300 && World().Milliseconds() < until) {
        }
        sentEarly = Got.size() == 300 ? sent.load() : sentEarly;
    });
    EXPECT_TRUE(RunUntil([&] { return Got.size() >= all.size(); }));
    sender.join();
    EXPECT_FALSE(sentEarly) << "everything was read into memory";
    EXPECT_TRUE(Got == all);
}

TEST_F(Port, a_receiver_that_waits_gets_the_bytes_that_came_with_the_first) {
    Bytes outer;
    World().Port.OnByte([&](std::uint8_t byte) {
        Got.push_back(byte);
        if (Got.size() == 1) {
            while (Got.size() < 5) {
                World().ProcessEvents();
            }
            outer = Got;
        }
    });
    ASSERT_TRUE(Cable.Send(Bytes{1, 2, 3, 4, 5}));
    EXPECT_TRUE(RunUntil([&] { return !outer.empty(); }));
    EXPECT_EQ(outer, (Bytes{1, 2, 3, 4, 5}));
    TurnsIn(20);
    EXPECT_EQ(Got, (Bytes{1, 2, 3, 4, 5}));
}

TEST_F(Port, a_receiver_that_waits_gets_the_bytes_that_come_while_it_waits) {
    bool done = false;
    World().Port.OnByte([&](std::uint8_t byte) {
        Got.push_back(byte);
        if (Got.size() == 1) {
            EXPECT_TRUE(Cable.Send(Bytes{2, 3}));
            while (Got.size() < 3) {
                World().ProcessEvents();
            }
            done = true;
        }
    });
    ASSERT_TRUE(Cable.Send(Bytes{1}));
    EXPECT_TRUE(RunUntil([&] { return done; }));
    EXPECT_EQ(Got, (Bytes{1, 2, 3}));
}

TEST_F(Port, waits_within_waits_keep_the_order) {
    // Every tenth byte waits for the ten behind it, so that the stack holds many receivers at once.
    const Bytes all = Pattern(200);
    World().Port.OnByte([&](std::uint8_t byte) {
        Got.push_back(byte);
        const std::size_t until = std::min(Got.size() + 10, all.size());
        if (Got.size() % 10 == 1) {
            while (Got.size() < until) {
                World().ProcessEvents();
            }
        }
    });
    ASSERT_TRUE(Cable.Send(all));
    EXPECT_TRUE(RunUntil([&] { return Got.size() >= all.size(); }));
    EXPECT_EQ(Got, all);
}

TEST_F(Port, bytes_come_while_a_box_of_the_front_end_is_open_inside_a_receiver) {
    bool closed = false;
    World().Port.OnByte([&](std::uint8_t byte) {
        Got.push_back(byte);
        if (Got.size() == 1) {
            QEventLoop box; // as a modal box does it, past ProcessEvents
            QTimer look;
            QObject::connect(&look, &QTimer::timeout, &box, [&] {
                if (Got.size() >= 3) {
                    box.quit();
                }
            });
            look.start(1);
            box.exec();
            closed = true;
        }
    });
    ASSERT_TRUE(Cable.Send(Bytes{7, 8, 9}));
    EXPECT_TRUE(RunUntil([&] { return closed; }));
    EXPECT_EQ(Got, (Bytes{7, 8, 9}));
}

TEST_F(Port, a_receiver_may_put_another_one_in_its_place) {
    Bytes second;
    World().Port.OnByte([&](std::uint8_t byte) {
        Got.push_back(byte);
        World().Port.OnByte([&second](std::uint8_t later) { second.push_back(later); });
    });
    ASSERT_TRUE(Cable.Send(Bytes{1, 2, 3}));
    EXPECT_TRUE(RunUntil([&] { return second.size() >= 2; }));
    EXPECT_EQ(Got, (Bytes{1}));
    EXPECT_EQ(second, (Bytes{2, 3}));
}

TEST_F(Port, a_receiver_that_closes_the_port_gets_no_further_byte) {
    World().Port.OnByte([&](std::uint8_t byte) {
        Got.push_back(byte);
        World().Port.Close();
    });
    ASSERT_TRUE(Cable.Send(Bytes{1, 2, 3}));
    EXPECT_TRUE(RunUntil([&] { return !World().Port.IsOpen(); }));
    TurnsIn(20);
    EXPECT_EQ(Got, (Bytes{1}));
}

TEST_F(Port, a_receiver_may_answer_at_once) {
    World().Port.OnByte([&](std::uint8_t byte) {
        const Bytes answer{static_cast<std::uint8_t>(byte + 1)};
        World().Port.Write(answer);
    });
    ASSERT_TRUE(Cable.Send(Bytes{10, 20, 30}));
    Bytes received;
    EXPECT_TRUE(RunUntil([&] {
        const Bytes more = Cable.Received();
        received.insert(received.end(), more.begin(), more.end());
        return received.size() >= 3;
    }));
    EXPECT_EQ(received, (Bytes{11, 21, 31}));
}

TEST_F(Port, without_a_receiver_bytes_are_lost_and_nothing_else_happens) {
    World().Port.OnByte(nullptr);
    ASSERT_TRUE(Cable.Send(Bytes{1, 2, 3}));
    TurnsIn(30);
    EXPECT_TRUE(World().Port.IsOpen());
    EXPECT_EQ(Got, Bytes{});
}

TEST_F(Port, the_request_to_send_line_is_ignored_where_there_is_none) {
    World().Port.SetRts(true);
    World().Port.SetRts(true);
    World().Port.SetRts(false);
    TurnsIn(20);
    EXPECT_TRUE(World().Port.IsOpen());
    EXPECT_EQ(World().Port.LastError(), "");
}

TEST_F(Port, a_broken_line_closes_the_port_and_says_so_once_and_for_all) {
    Cable.Unplug();
    EXPECT_TRUE(RunUntil([&] { return !World().Port.IsOpen(); }));
    EXPECT_EQ(World().Port.LastError(),
              "The connection to " + Cable.Device() + " is broken: the adapter was unplugged or switched off.");
}

TEST_F(Port, a_broken_line_leaves_the_program_idle) {
    Cable.Unplug();
    ASSERT_TRUE(RunUntil([&] { return !World().Port.IsOpen(); }));
    TurnsIn(20); // the closing itself
    const double before = ProcessorSeconds();
    EXPECT_LE(TurnsIn(300), 20);
    RecordProperty("processor_ms_in_300_ms", static_cast<int>((ProcessorSeconds() - before) * 1000));
}

TEST_F(Port, a_broken_line_found_while_writing_closes_the_port) {
    Cable.Unplug();
    World().Port.Write(Bytes{1, 2, 3});
    EXPECT_TRUE(RunUntil([&] { return !World().Port.IsOpen(); }));
    World().Port.Write(Bytes{4});
    World().Port.SetRts(true);
    EXPECT_NE(World().Port.LastError(), "");
}

TEST_F(Port, a_broken_line_inside_a_receiver_that_waits_ends_its_wait) {
    bool done = false;
    World().Port.OnByte([&](std::uint8_t) {
        Cable.Unplug();
        while (World().Port.IsOpen()) {
            World().ProcessEvents();
        }
        done = true;
    });
    ASSERT_TRUE(Cable.Send(Bytes{1}));
    EXPECT_TRUE(RunUntil([&] { return done; }));
}

TEST_F(Port, a_port_opened_anew_right_after_the_break_is_not_closed_by_it) {
    test::FarEnd other;
    std::filesystem::create_symlink(other.Device(), Directory / "com2");
    Cable.Unplug();
    World().Port.Write(Bytes{1}); // finds the break; the closing is still under way
    ASSERT_TRUE(World().Port.Open(2)) << World().Port.LastError();
    TurnsIn(30);
    EXPECT_TRUE(World().Port.IsOpen());
    EXPECT_EQ(World().Port.LastError(), "");
    ASSERT_TRUE(other.Send(Bytes{5}));
    EXPECT_TRUE(RunUntil([&] { return Got == Bytes{5}; }));
}

TEST_F(Port, a_platform_can_end_with_its_port_open_and_bytes_under_way) {
    test::FarEnd other;
    {
        QtPlatform platform(test::OptionsFor(Directory.Path(), other.Device()));
        ASSERT_TRUE(platform.World().Port.Open(1)) << platform.World().Port.LastError();
        platform.World().Port.OnByte([](std::uint8_t) { ADD_FAILURE() << "nobody turned the event loop"; });
        ASSERT_TRUE(other.Send(Bytes{1, 2, 3}));
    }
    EXPECT_LE(TurnsIn(30), 20);
}

} // namespace
} // namespace qvm
