#include "Historie.h"

#include "Text.h"
#include "VirtualPlatform.h"

#include <gtest/gtest.h>

namespace qvm::test {
namespace {

using Bytes = std::array<std::uint8_t, HistoryRecordLength>;

class Historie_Texte : public testing::Test {
protected:
    Historie_Texte() {
        auto& lines = kern.Sprache.LanguageText;
        lines[13] = "level 1";
        lines[14] = "level 2";
        lines[112] = "level 3";
        lines[113] = "level 4";
        lines[114] = "level 5";
        lines[15] = "Code";
        lines[16] = "Open";
        lines[17] = "Event 4";
        lines[18] = "Event 6";
        lines[19] = "Event 7";
        lines[20] = "Event 8";
        lines[196] = "Event 9";
    }
    VirtualPlatform pc;
    Kern kern{pc.World};
};

TEST_F(Historie_Texte, a_record_is_taken_apart_into_date_time_name_and_event) {
    const Bytes bytes{5,   3,   26,  23,  59,  'A', 'n', 'n', 'a', ' ', 'B',
                      'e', 'r', 'g', ' ', ' ', ' ', ' ', ' ', ' ', '!', 0x23};
    const HistoryRecord record = Historie_Zerlegen(pc.World, bytes);
    EXPECT_EQ(record.Day, 5);
    EXPECT_EQ(record.Month, 3);
    EXPECT_EQ(record.Year, 26);
    EXPECT_EQ(record.Hour, 23);
    EXPECT_EQ(record.Minute, 59);
    EXPECT_EQ(record.Name, "Anna Berg      !");
    EXPECT_EQ(record.Event, 0x23);
}

TEST_F(Historie_Texte, bytes_below_0x20_in_a_name_read_as_blanks_and_the_rest_is_converted) {
    const Bytes bytes{1,    1,    1,   0,    0,    'K',  'E',  'Y',  0x00, 0x1F, 'J',
                      0x81, 0x94, 'x', 0x09, 0x0D, 0x0A, 0x84, 0xE1, 0x20, 0x99, 0};
    EXPECT_EQ(Historie_Zerlegen(pc.World, bytes).Name, u8"KEY  Jüöx   äß Ö"_w);
}

TEST_F(Historie_Texte, the_low_nibble_names_the_event) {
    EXPECT_EQ(Ereignis_Text(kern, 0x00), "");
    EXPECT_EQ(Ereignis_Text(kern, 0x01), "Code");
    EXPECT_EQ(Ereignis_Text(kern, 0x02), "E-Key");
    EXPECT_EQ(Ereignis_Text(kern, 0x03), "Open");
    EXPECT_EQ(Ereignis_Text(kern, 0x04), "Event 4");
    EXPECT_EQ(Ereignis_Text(kern, 0x05), "Fingerscan");
    EXPECT_EQ(Ereignis_Text(kern, 0x06), "Event 6");
    EXPECT_EQ(Ereignis_Text(kern, 0x07), "Event 7");
    EXPECT_EQ(Ereignis_Text(kern, 0x08), "Event 8");
    EXPECT_EQ(Ereignis_Text(kern, 0x09), "Event 9");
    EXPECT_EQ(Ereignis_Text(kern, 0x0A), "Transponder");
    EXPECT_EQ(Ereignis_Text(kern, 0x0B), "Guest card");
    EXPECT_EQ(Ereignis_Text(kern, 0x0C), "");
    EXPECT_EQ(Ereignis_Text(kern, 0x0F), "");
    EXPECT_EQ(Ereignis_Text(kern, 0x52), "E-Key");
    EXPECT_EQ(Ereignis_Text(kern, 0xF1), "Code");
}

TEST_F(Historie_Texte, the_high_nibble_names_the_state) {
    EXPECT_EQ(Zustand_Text(kern, 0x00), "");
    EXPECT_EQ(Zustand_Text(kern, 0x0F), "");
    EXPECT_EQ(Zustand_Text(kern, 0x10), "level 1");
    EXPECT_EQ(Zustand_Text(kern, 0x2B), "level 2");
    EXPECT_EQ(Zustand_Text(kern, 0x30), "level 3");
    EXPECT_EQ(Zustand_Text(kern, 0x4F), "level 4");
    EXPECT_EQ(Zustand_Text(kern, 0x50), "level 5");
    EXPECT_EQ(Zustand_Text(kern, 0x60), "");
    EXPECT_EQ(Zustand_Text(kern, 0xF1), "");
}

TEST(Jahr_Text, a_year_below_10_is_filled_to_four_digits) {
    EXPECT_EQ(Jahr_Text(0), "2000");
    EXPECT_EQ(Jahr_Text(5), "2005");
    EXPECT_EQ(Jahr_Text(9), "2009");
    EXPECT_EQ(Jahr_Text(10), "2010");
    EXPECT_EQ(Jahr_Text(12), "2012");
    EXPECT_EQ(Jahr_Text(99), "2099");
}

TEST(Jahr_Text, a_year_of_three_digits_is_no_year_of_a_date) {
    EXPECT_EQ(Jahr_Text(100), "20100");
    EXPECT_EQ(Uhr_Textdatum(1, 1, "20100"), std::nullopt);
}

TEST(Uhr_Textdatum, a_date_is_written_with_four_digits_of_its_year) {
    EXPECT_EQ(Uhr_Textdatum(5, 3, "2026"), "05.03.2026");
    EXPECT_EQ(Uhr_Textdatum(31, 12, "2005"), "31.12.2005");
    EXPECT_EQ(Uhr_Textdatum(29, 2, "2028"), "29.02.2028");
}

TEST(Uhr_Textdatum, a_date_that_does_not_exist_gives_nothing) {
    EXPECT_EQ(Uhr_Textdatum(29, 2, "2026"), std::nullopt);
    EXPECT_EQ(Uhr_Textdatum(0, 1, "2026"), std::nullopt);
    EXPECT_EQ(Uhr_Textdatum(1, 0, "2026"), std::nullopt);
    EXPECT_EQ(Uhr_Textdatum(1, 13, "2026"), std::nullopt);
    EXPECT_EQ(Uhr_Textdatum(255, 255, "20255"), std::nullopt);
    EXPECT_EQ(Uhr_Textdatum(1, 1, ""), std::nullopt);
}

constexpr DateTime Moment{.Year = 2026, .Month = 3, .Day = 5, .Hour = 7, .Minute = 8, .Second = 9};

TEST(Historie_Dateiname, it_holds_the_moment_and_the_lock) {
    EXPECT_EQ(Historie_Dateiname(Moment, "Front door"), "H_20260305_070809_Front door.HST");
    EXPECT_EQ(Historie_Dateiname(Moment, ""), "H_20260305_070809_.HST");
    EXPECT_EQ(Historie_Dateiname(Moment, u8"Tür Süd"_w), u8"H_20260305_070809_Tür Süd.HST"_w);
}

TEST(Historie_Dateiname, no_control_character_gets_into_a_file_name) {
    EXPECT_EQ(Historie_Dateiname(Moment, "A\x1B\x7F\x81\x8D\x8F\x90\x9D.\n"), "H_20260305_070809_A_______._.HST");
}

TEST(Historie_Dateiname, a_lock_name_cannot_leave_the_directory_or_break_a_file_name) {
    EXPECT_EQ(Historie_Dateiname(Moment, "../../etc/x"), "H_20260305_070809_.._.._etc_x.HST");
    EXPECT_EQ(Historie_Dateiname(Moment, "a\\b:c*d?e\"f<g>h|i"), "H_20260305_070809_a_b_c_d_e_f_g_h_i.HST");
    EXPECT_EQ(Historie_Dateiname(Moment, std::string_view("a\0b\tc\x1F", 6)), "H_20260305_070809_a_b_c_.HST");
}

TEST(Datei_Zeile_Anhaengen, a_line_ends_in_CR_LF_and_stands_behind_the_others) {
    VirtualPlatform pc;
    EXPECT_TRUE(Datei_Zeile_Anhaengen(pc.World.Files, "/x.HST", "one"));
    EXPECT_TRUE(Datei_Zeile_Anhaengen(pc.World.Files, "/x.HST", ""));
    EXPECT_EQ(pc.Disk.Files["/x.HST"], "one\r\n\r\n");
    pc.Disk.FailAt = pc.Disk.Operations + 1;
    EXPECT_FALSE(Datei_Zeile_Anhaengen(pc.World.Files, "/x.HST", "two"));
    EXPECT_EQ(pc.Disk.Files["/x.HST"], "one\r\n\r\n");
}

} // namespace
} // namespace qvm::test
