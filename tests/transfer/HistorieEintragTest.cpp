#include "Historie.h"
#include "Text.h"
#include "VirtualPlatform.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace qvm::test {
namespace {

/// A lock's record in the link's buffer, and what the progress window was shown. The clock stands at
/// 05.03.2026 10:30:00.
class Historie_Eintraege : public testing::Test {
protected:
    Historie_Eintraege() {
        kern.AppPath = "/qvm/";
        kern.Sprache.LanguageText[14] = "level 2";
        kern.Sprache.LanguageText[275] = "L275";
        kern.Sprache.LanguageText[15] = "Code";
        kern.Sprache.LanguageText[112] = "level 3";
        link.Lauf.Order.HistoryCutoff = "01.01.2026";
    }

    /// Puts the reply 0x17 of lock 01.50.0C.06 into the buffer.
    void Receive(std::vector<std::uint8_t> record) {
        auto& rx = link.Rx.RxBuffer;
        rx.fill(0xEE);
        rx[7] = 0x01;
        rx[8] = 0x50;
        rx[9] = 0x0C;
        rx[10] = 0x06;
        std::copy(record.begin(), record.end(), rx.begin() + 14);
        link.Rx.RxLength = 36;
        link.Rx.FrameSize = 38;
    }
    bool Entry(std::uint8_t day, std::uint8_t month, std::uint8_t year, std::uint8_t event,
               const char* lock = "Front") {
        Receive({day, month, year, 9,   5,   'A', 'n', 'n', 'a', ' ', 'B',
                 'e', 'r',   'g',  ' ', ' ', ' ', ' ', ' ', ' ', ' ', event});
        return Historie_Eintrag(
            link, lock, [this](std::uint8_t state, const std::string& text) { states.emplace_back(state, text); });
    }
    const std::string& File() { return pc.Disk.Files["/qvm/HIST/H_20260305_103000_Front.HST"]; }

    VirtualPlatform pc;
    Kern kern{pc.World};
    Link link{kern};
    std::vector<std::pair<int, std::string>> states;
};

TEST_F(Historie_Eintraege, the_first_record_makes_the_file_with_the_locks_serial) {
    ASSERT_TRUE(Entry(4, 3, 26, 0x01));
    EXPECT_EQ(File(), "01.50.0C.06\r\n"
                      "Anna Berg       \t04.03.2026\t09:05\tCode\r\n");
    EXPECT_EQ(link.Lauf.Chain.HistoryFileName, "/qvm/HIST/H_20260305_103000_Front.HST");
    EXPECT_EQ(link.Lauf.Chain.HistoryFileOpen, 1);
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0);
    EXPECT_EQ(pc.Disk.Files.size(), 1U);
}

TEST_F(Historie_Eintraege, later_records_go_into_the_same_file_whatever_the_clock_says) {
    ASSERT_TRUE(Entry(4, 3, 26, 0x01));
    pc.RunFor(120000);
    ASSERT_TRUE(Entry(3, 3, 26, 0x02));
    EXPECT_EQ(File(), "01.50.0C.06\r\n"
                      "Anna Berg       \t04.03.2026\t09:05\tCode\r\n"
                      "Anna Berg       \t03.03.2026\t09:05\tE-Key\r\n");
    EXPECT_EQ(pc.Disk.Files.size(), 1U);
}

TEST_F(Historie_Eintraege, a_new_run_makes_a_new_file) {
    ASSERT_TRUE(Entry(4, 3, 26, 0x01));
    link.Lauf.Chain.HistoryFileOpen = 0;
    pc.RunFor(61000);
    ASSERT_TRUE(Entry(4, 3, 26, 0x01, "Back"));
    EXPECT_EQ(link.Lauf.Chain.HistoryFileName, "/qvm/HIST/H_20260305_103101_Back.HST");
    EXPECT_EQ(pc.Disk.Files[link.Lauf.Chain.HistoryFileName], "01.50.0C.06\r\n"
                                                              "Anna Berg       \t04.03.2026\t09:05\tCode\r\n");
}

TEST_F(Historie_Eintraege, a_state_stands_on_a_line_of_its_own_directly_behind_its_record) {
    ASSERT_TRUE(Entry(4, 3, 26, 0x21));
    ASSERT_TRUE(Entry(4, 3, 26, 0x01));
    EXPECT_EQ(File(), "01.50.0C.06\r\n"
                      "Anna Berg       \t04.03.2026\t09:05\tCode\r\n"
                      "\t\t\tlevel 2\r\n"
                      "Anna Berg       \t04.03.2026\t09:05\tCode\r\n");
}

TEST_F(Historie_Eintraege, a_state_without_an_event_leaves_the_event_column_empty) {
    ASSERT_TRUE(Entry(4, 3, 26, 0x20));
    EXPECT_EQ(File(), "01.50.0C.06\r\n"
                      "Anna Berg       \t04.03.2026\t09:05\t\r\n"
                      "\t\t\tlevel 2\r\n");
}

TEST_F(Historie_Eintraege, only_the_first_state_of_a_run_is_shown) {
    ASSERT_TRUE(Entry(4, 3, 26, 0x01));
    EXPECT_TRUE(states.empty());
    ASSERT_TRUE(Entry(4, 3, 26, 0x31));
    ASSERT_TRUE(Entry(4, 3, 26, 0x20));
    EXPECT_EQ(states, (std::vector<std::pair<int, std::string>>{{0x30, "level 3"}}));
    link.Lauf.Chain.HistoryFileOpen = 0;
    ASSERT_TRUE(Entry(4, 3, 26, 0x20));
    EXPECT_EQ(states, (std::vector<std::pair<int, std::string>>{{0x30, "level 3"}, {0x20, "level 2"}}));
}

TEST_F(Historie_Eintraege, nobody_has_to_look_at_the_state) {
    Receive({4, 3, 26, 9, 5, 'A', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', 0x21});
    EXPECT_TRUE(Historie_Eintrag(link, "Front", {}));
}

TEST_F(Historie_Eintraege, a_record_older_than_the_cut_off_is_written_and_is_the_last_one) {
    link.Lauf.Order.HistoryCutoff = "04.03.2026";
    ASSERT_TRUE(Entry(4, 3, 26, 0x01));
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0);
    ASSERT_TRUE(Entry(3, 3, 26, 0x01));
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0xFF);
    EXPECT_EQ(File(), "01.50.0C.06\r\n"
                      "Anna Berg       \t04.03.2026\t09:05\tCode\r\n"
                      "Anna Berg       \t03.03.2026\t09:05\tCode\r\n");
}

TEST_F(Historie_Eintraege, dates_and_not_their_texts_are_compared) {
    link.Lauf.Order.HistoryCutoff = "02.03.2026";
    ASSERT_TRUE(Entry(31, 12, 25, 0x01));
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0xFF);
    link.Lauf.Chain.HistoryStop = 0;
    ASSERT_TRUE(Entry(1, 4, 26, 0x01));
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0);
}

TEST_F(Historie_Eintraege, without_a_cut_off_it_is_today) {
    link.Lauf.Order.HistoryCutoff = "";
    ASSERT_TRUE(Entry(5, 3, 26, 0x01));
    EXPECT_EQ(link.Lauf.Order.HistoryCutoff, "05.03.2026");
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0);
    ASSERT_TRUE(Entry(4, 3, 26, 0x01));
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0xFF);
}

TEST_F(Historie_Eintraege, a_cut_off_that_is_no_date_counts_as_none) {
    link.Lauf.Order.HistoryCutoff = "-- -- . -- -- . -- --";
    ASSERT_TRUE(Entry(4, 3, 26, 0x01));
    EXPECT_EQ(link.Lauf.Order.HistoryCutoff, "05.03.2026");
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0xFF);
}

TEST_F(Historie_Eintraege, a_date_that_does_not_exist_is_told_and_left_empty_and_is_not_older) {
    pc.Answers.push_back({.Text = "L275 31.02.2005"});
    ASSERT_TRUE(Entry(31, 2, 5, 0x01));
    ASSERT_EQ(pc.Shown.size(), 1U);
    EXPECT_EQ(pc.Shown[0].Title, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0);
    EXPECT_EQ(File(), "01.50.0C.06\r\n"
                      "Anna Berg       \t\t09:05\tCode\r\n");
}

TEST_F(Historie_Eintraege, a_record_of_wild_bytes_is_written_as_far_as_it_can_be_read) {
    pc.Answers.push_back({.Text = "L275 255.255.20255"});
    Receive(std::vector<std::uint8_t>(22, 0xFF));
    EXPECT_TRUE(Historie_Eintrag(link, "Front", {}));
    EXPECT_EQ(File(), "01.50.0C.06\r\n????????????????\t\t255:255\t\r\n");
}

TEST_F(Historie_Eintraege, a_frame_that_is_too_short_reads_as_zeros_behind_its_end) {
    Receive({4, 3, 26, 9, 5, 'A'});
    link.Rx.RxLength = 18;
    link.Rx.FrameSize = 20;
    ASSERT_TRUE(Historie_Eintrag(link, "Front", {}));
    EXPECT_EQ(File(), "01.50.0C.06\r\nA               \t04.03.2026\t09:05\t\r\n");
}

TEST_F(Historie_Eintraege, bytes_that_come_while_the_message_is_open_do_not_change_the_line) {
    pc.At(5, [this] { link.Rx.RxBuffer.fill(0x42); });
    pc.Answers.push_back({.Text = "*", .AfterMs = 50});
    ASSERT_TRUE(Entry(31, 2, 26, 0x21));
    EXPECT_EQ(File(), "01.50.0C.06\r\n"
                      "Anna Berg       \t\t09:05\tCode\r\n"
                      "\t\t\tlevel 2\r\n");
    EXPECT_EQ(states, (std::vector<std::pair<int, std::string>>{{0x20, "level 2"}}));
}

TEST_F(Historie_Eintraege, a_file_that_cannot_be_made_loses_the_record_and_the_next_one_tries_again) {
    pc.Disk.FailAt = 1;
    EXPECT_FALSE(Entry(4, 3, 26, 0x21));
    EXPECT_TRUE(pc.Disk.Files.empty());
    EXPECT_EQ(link.Lauf.Chain.HistoryFileOpen, 0);
    EXPECT_TRUE(states.empty());
    ASSERT_TRUE(Entry(3, 3, 26, 0x01));
    EXPECT_EQ(File(), "01.50.0C.06\r\n"
                      "Anna Berg       \t03.03.2026\t09:05\tCode\r\n");
}

TEST_F(Historie_Eintraege, a_record_that_cannot_be_written_leaves_no_part_of_itself) {
    ASSERT_TRUE(Entry(4, 3, 26, 0x21));
    pc.Disk.FailAt = pc.Disk.Operations + 1;
    EXPECT_FALSE(Entry(3, 3, 26, 0x21));
    EXPECT_EQ(File(), "01.50.0C.06\r\n"
                      "Anna Berg       \t04.03.2026\t09:05\tCode\r\n"
                      "\t\t\tlevel 2\r\n");
}

TEST_F(Historie_Eintraege, a_record_reaches_the_disk_in_one_piece_with_its_state_and_the_first_line) {
    ASSERT_TRUE(Entry(4, 3, 26, 0x21));
    ASSERT_TRUE(Entry(3, 3, 26, 0x21));
    EXPECT_EQ(pc.Disk.Operations, 2);
}

TEST_F(Historie_Eintraege, the_cut_off_is_noticed_even_when_nothing_can_be_written) {
    pc.Disk.FailAt = 1;
    pc.Disk.FailFromThere = true;
    EXPECT_FALSE(Entry(31, 12, 25, 0x01));
    EXPECT_EQ(link.Lauf.Chain.HistoryStop, 0xFF);
}

} // namespace
} // namespace qvm::test
