#include "VirtualPlatform.h"

#include "Oem.h"
#include "Text.h"

#include <array>
#include <cstdint>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Zeiten = std::vector<std::int64_t>;

Message Frage(const char* text, Buttons choice = Buttons::Ok) {
    Message message;
    message.Text = text;
    message.Choice = choice;
    return message;
}

FileDialog Dialog(const char* title) {
    FileDialog dialog;
    dialog.Title = title;
    return dialog;
}

struct Welt : testing::Test {
    VirtualPlatform welt;
    Platform& world = welt.World;
    Zeiten seen;

    std::function<void()> Merken() {
        return [this] { seen.push_back(welt.Elapsed()); };
    }
};

TEST_F(Welt, the_clock_stands_until_an_event_moves_it) {
    EXPECT_EQ(world.Milliseconds(), 0);
    EXPECT_EQ(world.Now(), (DateTime{2026, 3, 5, 10, 30, 0, 0}));
    welt.At(1500, Merken());
    EXPECT_EQ(world.Milliseconds(), 0);
    world.ProcessEvents();
    EXPECT_EQ(world.Milliseconds(), 1500);
    EXPECT_EQ(world.Now(), (DateTime{2026, 3, 5, 10, 30, 1, 500}));
}

TEST(VirtualPlatform, the_date_changes_at_midnight_and_at_the_end_of_the_year) {
    VirtualPlatform welt({.Year = 2024, .Month = 2, .Day = 28, .Hour = 23, .Minute = 59, .Second = 59});
    welt.RunFor(1000);
    EXPECT_EQ(welt.World.Now(), (DateTime{2024, 2, 29, 0, 0, 0, 0}));
    VirtualPlatform silvester(
        {.Year = 2025, .Month = 12, .Day = 31, .Hour = 23, .Minute = 59, .Second = 59, .Millisecond = 999});
    silvester.RunFor(1);
    EXPECT_EQ(silvester.World.Now(), (DateTime{2026, 1, 1, 0, 0, 0, 0}));
}

TEST_F(Welt, events_come_by_time_and_those_of_one_moment_in_the_order_of_planning) {
    std::string order;
    welt.At(20, [&] { order += 'c'; });
    welt.At(10, [&] { order += 'a'; });
    welt.At(10, [&] { order += 'b'; });
    welt.RunFor(100);
    EXPECT_EQ(order, "abc");
    EXPECT_EQ(welt.Elapsed(), 100);
}

TEST_F(Welt, one_call_handles_one_event) {
    welt.At(5, Merken());
    welt.At(5, Merken());
    world.ProcessEvents();
    EXPECT_EQ(seen, (Zeiten{5}));
}

TEST_F(Welt, an_event_may_wait_for_another) {
    bool arrived = false;
    welt.At(10, [&] {
        while (!arrived) {
            world.ProcessEvents();
        }
        seen.push_back(welt.Elapsed());
    });
    welt.At(30, [&] { arrived = true; });
    world.ProcessEvents();
    EXPECT_EQ(seen, (Zeiten{30}));
}

TEST_F(Welt, a_wait_that_nothing_can_end_is_a_failure_and_leaves_the_test) {
    bool left = false;
    EXPECT_NONFATAL_FAILURE(
        {
            try {
                world.ProcessEvents();
            } catch (const VirtualPlatform::StuckWait&) {
                left = true;
            }
        },
        "a wait that nothing can end");
    EXPECT_TRUE(left);
}

TEST_F(Welt, a_wait_inside_a_tick_is_not_ended_by_its_own_timer) {
    bool left = false;
    world.StartTimer(10, [&] {
        try {
            for (;;) {
                world.ProcessEvents();
            }
        } catch (const VirtualPlatform::StuckWait&) {
            left = true;
        }
    });
    EXPECT_NONFATAL_FAILURE(world.ProcessEvents(), "a wait that nothing can end");
    EXPECT_TRUE(left);
}

TEST_F(Welt, a_timer_ticks_until_it_is_stopped) {
    const TimerId timer = world.StartTimer(40, Merken());
    welt.RunFor(100);
    world.StopTimer(timer);
    world.StopTimer(timer);
    world.StopTimer(9999);
    welt.RunFor(100);
    EXPECT_EQ(seen, (Zeiten{40, 80}));
}

TEST_F(Welt, a_timer_keeps_its_beat_after_a_tick_that_took_long) {
    world.StartTimer(100, [this] {
        seen.push_back(welt.Elapsed());
        if (seen.size() == 1) {
            welt.RunFor(230);
        }
    });
    welt.RunFor(500);
    EXPECT_EQ(seen, (Zeiten{100, 400, 500}));
}

TEST_F(Welt, another_timer_ticks_while_a_tick_is_on_the_stack) {
    world.StartTimer(30, Merken());
    const TimerId outer = world.StartTimer(50, [&] { welt.RunFor(100); });
    welt.RunUntil([&] { return welt.Elapsed() >= 50; });
    world.StopTimer(outer);
    EXPECT_EQ(seen, (Zeiten{30, 60, 90, 120, 150}));
}

TEST_F(Welt, a_timer_without_an_interval_does_not_stop_the_clock) {
    const TimerId timer = world.StartTimer(0, Merken());
    welt.RunFor(3);
    world.StopTimer(timer);
    EXPECT_EQ(seen, (Zeiten{1, 2, 3}));
}

TEST_F(Welt, run_until_stops_at_the_condition_at_its_limit_or_when_nothing_is_left) {
    world.StartTimer(10, Merken());
    EXPECT_TRUE(welt.RunUntil([&] { return seen.size() == 3; }));
    EXPECT_EQ(welt.Elapsed(), 30);
    EXPECT_FALSE(welt.RunUntil([] { return false; }, 50));
    EXPECT_EQ(seen.size(), 8U);
    VirtualPlatform empty;
    EXPECT_FALSE(empty.RunUntil([] { return false; }));
}

TEST_F(Welt, a_scripted_message_is_shown_and_answered) {
    welt.Answers = {{"Speichern?", Answer::No}};
    const Message message{.Text = "Speichern?", .Title = "Titel", .Choice = Buttons::YesNo, .Sign = Icon::Question};
    EXPECT_EQ(world.ShowMessage(message), Answer::No);
    EXPECT_EQ(welt.Shown, (std::vector<Message>{message}));
    EXPECT_TRUE(welt.Answers.empty());
}

TEST_F(Welt, a_star_answers_any_message) {
    welt.Answers = {{"*", Answer::Ok}};
    EXPECT_EQ(world.ShowMessage(Frage("whatever")), Answer::Ok);
}

TEST_F(Welt, events_go_on_while_a_message_is_open) {
    welt.Answers = {{"*", Answer::Ok, 100}};
    world.StartTimer(40, Merken());
    world.ShowMessage(Frage("x"));
    EXPECT_EQ(welt.Elapsed(), 100);
    EXPECT_EQ(seen, (Zeiten{40, 80}));
}

TEST_F(Welt, a_message_that_is_answered_at_once_handles_no_event) {
    welt.Answers = {{"*"}};
    welt.At(0, Merken());
    world.ShowMessage(Frage("x"));
    EXPECT_TRUE(seen.empty());
}

TEST_F(Welt, an_unscripted_message_is_a_failure_and_gets_the_mildest_answer) {
    Answer answer = Answer::Ok;
    EXPECT_NONFATAL_FAILURE(answer = world.ShowMessage(Frage("a", Buttons::YesNoCancel)), "unscripted");
    EXPECT_EQ(answer, Answer::Cancel);
    EXPECT_NONFATAL_FAILURE(answer = world.ShowMessage(Frage("b", Buttons::OkCancel)), "unscripted");
    EXPECT_EQ(answer, Answer::Cancel);
    EXPECT_NONFATAL_FAILURE(answer = world.ShowMessage(Frage("c", Buttons::YesNo)), "unscripted");
    EXPECT_EQ(answer, Answer::Cancel);
    EXPECT_NONFATAL_FAILURE(answer = world.ShowMessage(Frage("d")), "unscripted message: d");
    EXPECT_EQ(answer, Answer::Ok);
    EXPECT_EQ(welt.Shown.size(), 4U);
}

TEST_F(Welt, another_text_than_the_scripted_one_is_a_failure_and_does_not_use_the_script_up) {
    welt.Answers = {{"expected"}};
    EXPECT_NONFATAL_FAILURE(world.ShowMessage(Frage("other")), "expected");
    EXPECT_EQ(world.ShowMessage(Frage("expected")), Answer::Ok);
}

TEST_F(Welt, an_answer_that_the_box_does_not_offer_is_a_failure) {
    welt.Answers = {{"*", Answer::Yes}};
    EXPECT_NONFATAL_FAILURE(world.ShowMessage(Frage("x")), "not offered");
}

TEST(VirtualPlatform, a_script_that_nobody_asked_for_is_a_failure) {
    auto welt = std::make_unique<VirtualPlatform>();
    welt->Answers = {{"left over"}};
    EXPECT_NONFATAL_FAILURE(welt.reset(), "left over");
}

TEST_F(Welt, file_dialogs_take_their_answers_in_turn) {
    welt.DialogAnswers = {"/home/a.csv", std::nullopt};
    EXPECT_EQ(world.SaveFile(Dialog("save")), "/home/a.csv");
    EXPECT_EQ(world.OpenFile(Dialog("open")), std::nullopt);
    ASSERT_EQ(welt.Dialogs.size(), 2U);
    EXPECT_EQ(welt.Dialogs[1].Title, "open");
    EXPECT_NONFATAL_FAILURE(world.OpenFile(Dialog("third")), "unscripted file dialog: third");
}

TEST_F(Welt, the_port_opens_closes_and_counts) {
    EXPECT_TRUE(world.Port.Open(7));
    EXPECT_TRUE(world.Port.IsOpen());
    EXPECT_EQ(welt.PortNumber, 7);
    EXPECT_EQ(world.Port.LastError(), "");
    world.Port.SetRts(true);
    EXPECT_TRUE(welt.Rts);
    world.Port.Close();
    world.Port.Close();
    EXPECT_FALSE(world.Port.IsOpen());
    EXPECT_EQ(welt.Opens, 1);
    EXPECT_EQ(welt.Closes, 1);
}

TEST_F(Welt, a_port_that_cannot_be_opened_says_so) {
    welt.PortCanOpen = false;
    EXPECT_FALSE(world.Port.Open(3));
    EXPECT_FALSE(world.Port.IsOpen());
    EXPECT_EQ(welt.PortNumber, 3);
    EXPECT_EQ(welt.Opens, 1);
    EXPECT_NE(world.Port.LastError(), "");
}

TEST_F(Welt, bytes_written_reach_the_other_side_at_once_and_only_through_an_open_port) {
    Bytes heard;
    welt.OnWrite = [&](std::span<const std::uint8_t> bytes) { heard.assign(bytes.begin(), bytes.end()); };
    const Bytes bytes{1, 2, 3};
    world.Port.Write(bytes);
    EXPECT_TRUE(welt.Written.empty());
    world.Port.Open(1);
    world.Port.Write(bytes);
    EXPECT_EQ(welt.Written, bytes);
    EXPECT_EQ(heard, bytes);
}

TEST_F(Welt, bytes_delivered_come_in_order_one_event_each) {
    Bytes received;
    world.Port.OnByte([&](std::uint8_t byte) { received.push_back(byte); });
    world.Port.Open(1);
    welt.Deliver({10, 20, 30}, 5);
    EXPECT_TRUE(received.empty());
    world.ProcessEvents();
    EXPECT_EQ(received, (Bytes{10}));
    EXPECT_EQ(welt.Elapsed(), 5);
    welt.RunFor(0);
    EXPECT_EQ(received, (Bytes{10, 20, 30}));
}

TEST_F(Welt, bytes_for_a_closed_port_are_dropped) {
    Bytes received;
    world.Port.OnByte([&](std::uint8_t byte) { received.push_back(byte); });
    world.Port.Open(1);
    welt.Deliver({1}, 5);
    world.Port.Close();
    welt.RunFor(10);
    EXPECT_TRUE(received.empty());
}

TEST_F(Welt, a_byte_is_handed_out_while_its_receiver_waits_for_it) {
    Bytes received;
    world.Port.OnByte([&](std::uint8_t byte) {
        received.push_back(byte);
        while (received.size() < 3) {
            world.ProcessEvents();
        }
    });
    world.Port.Open(1);
    welt.Deliver({1, 2, 3});
    world.ProcessEvents();
    EXPECT_EQ(received, (Bytes{1, 2, 3}));
}

TEST_F(Welt, the_stand_in_cipher_depends_on_block_and_key) {
    const auto cipher = [this](std::uint8_t block, std::uint8_t key) {
        std::array<std::uint8_t, 16> data{};
        std::array<std::uint8_t, 16> secret{};
        data[3] = block;
        secret[3] = key;
        world.encryptData(data, secret);
        return data;
    };
    EXPECT_EQ(cipher(5, 7), cipher(5, 7));
    EXPECT_NE(cipher(5, 7), cipher(6, 7));
    EXPECT_NE(cipher(5, 7), cipher(5, 8));
    EXPECT_EQ(cipher(5, 7)[2], 12);
}

TEST_F(Welt, random_values_are_scripted_or_a_fixed_sequence_below_one) {
    welt.RandomValues = {0.25, 0.75};
    EXPECT_EQ(world.Random(), 0.25);
    EXPECT_EQ(world.Random(), 0.75);
    VirtualPlatform other;
    for (int n = 0; n < 100; ++n) {
        const double value = world.Random();
        EXPECT_EQ(other.World.Random(), value);
        EXPECT_GE(value, 0.0);
        EXPECT_LT(value, 1.0);
    }
}

TEST_F(Welt, the_remaining_services_answer_as_the_test_sets_them) {
    welt.AdapterPortNumbers = {3, 5};
    EXPECT_EQ(world.AdapterPorts(), (std::vector<int>{3, 5}));
    EXPECT_TRUE(world.OpenWithLinkedApp("manual.pdf", "/qvm"));
    EXPECT_EQ(welt.OpenedInLinkedApp, (std::vector<std::string>{"manual.pdf"}));
    EXPECT_TRUE(world.ClaimInstance());
    welt.OnlyInstance = false;
    EXPECT_FALSE(world.ClaimInstance());
    EXPECT_TRUE(world.Files.Replace("/a", "x"));
    EXPECT_EQ(welt.Disk.Files["/a"], "x");
}

TEST(Oem, the_german_letters_stand_where_code_page_850_has_them) {
    EXPECT_EQ(Nach_Oem(u8"äöüÄÖÜß"_w), "\x84\x94\x81\x8E\x99\x9A\xE1");
    EXPECT_EQ(Von_Oem("\x84\x94\x81\x8E\x99\x9A\xE1"), u8"äöüÄÖÜß"_w);
}

TEST(Oem, the_french_and_dutch_letters_stand_where_code_page_850_has_them) {
    EXPECT_EQ(Nach_Oem(u8"àâçéèêëîïôùûÿ"_w), "\x85\x83\x87\x82\x8A\x88\x89\x8C\x8B\x93\x97\x96\x98");
    EXPECT_EQ(Nach_Oem(u8"ÀÂÇÉÈÊËÎÏÔÙÛ"_w), "\xB7\xB6\x80\x90\xD4\xD2\xD3\xD7\xD8\xE2\xEB\xEA");
    EXPECT_EQ(Nach_Oem(u8"áíóúÁÍÓÚ"_w), "\xA0\xA1\xA2\xA3\xB5\xD6\xE0\xE9");
}

TEST(Oem, ascii_stays_and_what_the_table_lacks_becomes_a_question_mark) {
    EXPECT_EQ(Nach_Oem("Door 1~"), "Door 1~");
    EXPECT_EQ(Nach_Oem(u8"€"_w), "?");
    EXPECT_EQ(Von_Oem("\xB0"), "?");
}

TEST(Oem, every_letter_comes_back) {
    int letters = 0;
    for (int byte = 0; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        if (Nach_Oem(one) != "?") {
            EXPECT_EQ(Von_Oem(Nach_Oem(one)), one) << byte;
            ++letters;
        }
    }
    EXPECT_EQ(letters, 127 + 72); // all of ASCII but the question mark itself, and the table
}

} // namespace
} // namespace qvm::test
