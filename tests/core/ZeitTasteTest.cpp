#include "Filter.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <string>
#include <vector>

namespace qvm {
namespace {

struct Zeitfeld : testing::Test {
    TextBox box;

    void Stand(const std::string& text, int caret) {
        box.Text = text;
        box.Caret = caret;
    }
    void Erwarte(const std::string& text, int caret) {
        EXPECT_EQ(box.Text(), text);
        EXPECT_EQ(box.Caret(), caret);
    }
    void Tippen(const std::string& keys) {
        for (const char key : keys) {
            Zeit_Taste(box, key);
        }
    }
};

TEST_F(Zeitfeld, a_digit_replaces_the_character_under_the_caret) {
    Stand("00:00", 1);
    EXPECT_EQ(Zeit_Taste(box, '8'), ZeitTaste::Geschrieben);
    Erwarte("08:00", 3);
}

TEST_F(Zeitfeld, four_digits_type_a_time_and_the_caret_steps_over_the_colon) {
    Stand("00:00", 0);
    Tippen("1745");
    Erwarte("17:45", 5);
}

TEST_F(Zeitfeld, a_first_digit_of_9_becomes_2) {
    Stand("00:00", 0);
    Tippen("9");
    Erwarte("20:00", 1);
}

TEST_F(Zeitfeld, typing_2_and_9_gives_23_with_the_caret_on_the_minutes) {
    Stand("00:00", 0);
    Tippen("29");
    Erwarte("23:00", 3);
}

TEST_F(Zeitfeld, a_first_digit_that_makes_the_hour_too_late_ends_it_at_once) {
    Stand("08:15", 0);
    Tippen("2");
    Erwarte("23:15", 3);
}

TEST_F(Zeitfeld, a_first_minute_digit_of_7_becomes_5) {
    Stand("12:00", 3);
    Tippen("7");
    Erwarte("12:50", 4);
}

TEST_F(Zeitfeld, the_second_digits_are_free) {
    Stand("10:00", 1);
    Tippen("9");
    Erwarte("19:00", 3);
    Stand("19:50", 4);
    Tippen("9");
    Erwarte("19:59", 5);
}

TEST_F(Zeitfeld, behind_the_last_digit_nothing_is_written) {
    Stand("12:34", 5);
    EXPECT_EQ(Zeit_Taste(box, '1'), ZeitTaste::Verschluckt);
    Erwarte("12:34", 5);
}

TEST_F(Zeitfeld, on_the_colon_every_key_is_swallowed) {
    for (const int key : {int{'5'}, Key::Tab, Key::Enter, Key::Escape, Key::Backspace, Key::Delete, int{'x'}}) {
        Stand("12:34", 2);
        EXPECT_EQ(Zeit_Taste(box, key), ZeitTaste::Verschluckt) << key;
        Erwarte("12:34", 2);
    }
}

TEST_F(Zeitfeld, backspace_and_delete_are_swallowed) {
    Stand("12:34", 4);
    EXPECT_EQ(Zeit_Taste(box, Key::Backspace), ZeitTaste::Verschluckt);
    EXPECT_EQ(Zeit_Taste(box, Key::Delete), ZeitTaste::Verschluckt);
    Erwarte("12:34", 4);
}

TEST_F(Zeitfeld, tab_and_enter_commit_and_escape_cancels_without_a_change_of_the_text) {
    Stand("12:34", 0);
    EXPECT_EQ(Zeit_Taste(box, Key::Tab), ZeitTaste::Bestaetigt);
    EXPECT_EQ(Zeit_Taste(box, Key::Enter), ZeitTaste::Bestaetigt);
    EXPECT_EQ(Zeit_Taste(box, Key::Escape), ZeitTaste::Abgebrochen);
    Erwarte("12:34", 0);
}

TEST_F(Zeitfeld, every_other_key_is_swallowed) {
    for (const int key : {int{'a'}, int{':'}, int{' '}, int{'-'}, 0, -1, 0xFC, 0x130}) {
        Stand("12:34", 3);
        EXPECT_EQ(Zeit_Taste(box, key), ZeitTaste::Verschluckt) << key;
        Erwarte("12:34", 3);
    }
}

TEST_F(Zeitfeld, never_holds_more_than_five_characters) {
    Stand("12:34", 0);
    Tippen("1");
    EXPECT_EQ(box.MaxLength, 5);
    Stand("12:345678", 4);
    Tippen("9");
    Erwarte("12:39", 5);
}

TEST_F(Zeitfeld, a_damaged_text_and_a_caret_outside_it_are_borne) {
    Stand("", 7);
    Tippen("1");
    Erwarte("1", 1);
    Stand("1", -3);
    Tippen("9");
    Erwarte("2", 1);
}

TEST_F(Zeitfeld, opened_by_a_digit_it_holds_that_digit_with_the_caret_behind_it) {
    Zeit_Oeffnen(box, '1');
    Erwarte("10:00", 1);
    EXPECT_EQ(box.MaxLength, 5);
}

TEST_F(Zeitfeld, the_opening_digit_is_at_most_2) {
    Zeit_Oeffnen(box, '9');
    Erwarte("20:00", 1);
    Zeit_Oeffnen(box, '3');
    Erwarte("20:00", 1);
    Zeit_Oeffnen(box, '2');
    Erwarte("20:00", 1);
}

TEST_F(Zeitfeld, opened_by_a_letter_it_holds_zero_with_the_caret_behind_the_first) {
    Zeit_Oeffnen(box, 'x');
    Erwarte("00:00", 1);
    Zeit_Oeffnen(box, ' ');
    Erwarte("00:00", 1);
}

TEST_F(Zeitfeld, typing_goes_on_behind_the_opening_digit) {
    Zeit_Oeffnen(box, '1');
    Tippen("830");
    Erwarte("18:30", 5);
}

TEST_F(Zeitfeld, a_change_of_the_text_moves_the_caret_off_the_colon) {
    Stand("12:34", 2);
    Zeit_Geaendert(box);
    Erwarte("12:34", 3);
}

TEST_F(Zeitfeld, a_change_to_an_hour_above_23_keeps_the_minutes) {
    Stand("24:59", 1);
    Zeit_Geaendert(box);
    Erwarte("23:59", 3);
    Stand("23:59", 1);
    Zeit_Geaendert(box);
    Erwarte("23:59", 1);
}

TEST(Zeit_Taste, whatever_is_typed_the_box_holds_a_time_of_day) {
    EXPECT_TRUE(rc::check([](const std::vector<std::uint8_t>& keys, bool opened) {
        TextBox box;
        box.Text = "00:00";
        if (opened) {
            Zeit_Oeffnen(box, *rc::gen::inRange(0, 256));
        }
        for (const std::uint8_t key : keys) {
            Zeit_Taste(box, *rc::gen::element<int>(key, '0' + key % 10));
            box.Caret = *rc::gen::inRange(0, 6);
            const std::string& text = box.Text();
            RC_ASSERT(text.size() == 5U);
            RC_ASSERT(text[2] == ':');
            RC_ASSERT(std::stoi(text.substr(0, 2)) < 24);
            RC_ASSERT(std::stoi(text.substr(3, 2)) < 60);
        }
    }));
}

} // namespace
} // namespace qvm
