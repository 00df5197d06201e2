#include "Dataset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm {
namespace {

using testing::ElementsAre;
using Form = KeyForm::Form;

TEST(Dezimalwerte, values_are_separated_by_colons_with_or_without_blanks) {
    EXPECT_THAT(Dezimalwerte("1:22:255", 3), ElementsAre(1, 22, 255));
    EXPECT_THAT(Dezimalwerte("1 : 22 : 255 : ", 3), ElementsAre(1, 22, 255));
}

TEST(Dezimalwerte, missing_values_are_0_and_values_beyond_the_count_are_left) {
    EXPECT_THAT(Dezimalwerte("7:8", 4), ElementsAre(7, 8, 0, 0));
    EXPECT_THAT(Dezimalwerte("7:8:9", 2), ElementsAre(7, 8));
    EXPECT_THAT(Dezimalwerte("", 2), ElementsAre(0, 0));
    EXPECT_THAT(Dezimalwerte("7:8", 0), ElementsAre());
}

TEST(Dezimalwerte, what_is_no_byte_is_0_and_does_not_move_the_others) {
    EXPECT_THAT(Dezimalwerte("1:256:-3:x:99999999999999999999:6", 6), ElementsAre(1, 0, 0, 0, 0, 6));
    EXPECT_THAT(Dezimalwerte("1::3:4 5:6", 5), ElementsAre(1, 0, 3, 0, 6));
}

TEST(Template_Laenge, the_first_two_values_are_the_length_low_byte_first) {
    EXPECT_EQ(Template_Laenge("244 : 1 : 9 : 9"), 500);
    EXPECT_EQ(Template_Laenge("2:0"), 2);
    EXPECT_EQ(Template_Laenge("255:255"), 65535);
}

TEST(Template_Laenge, a_text_without_values_has_no_length) {
    EXPECT_EQ(Template_Laenge(""), 0);
    EXPECT_EQ(Template_Laenge("F-3"), 0);
    EXPECT_EQ(Template_Laenge("99"), 99);
}

TEST(Schluessel_Zerlegen, an_empty_text_is_no_key) {
    EXPECT_EQ(Schluessel_Zerlegen("").Kind, Form::None);
    EXPECT_EQ(Schluessel_Zerlegen("   ").Kind, Form::None);
}

TEST(Schluessel_Zerlegen, the_plain_form_holds_four_bytes) {
    const KeyForm key = Schluessel_Zerlegen("10:200:30:4");
    EXPECT_EQ(key.Kind, Form::Plain);
    EXPECT_EQ(key.GroupDigit, 0);
    EXPECT_THAT(key.Values, ElementsAre(10, 200, 30, 4, 0, 0, 0, 0, 0, 0, 0));
}

TEST(Schluessel_Zerlegen, the_plain_form_takes_no_fifth_byte) {
    EXPECT_THAT(Schluessel_Zerlegen("1:2:3:4:5:6").Values, ElementsAre(1, 2, 3, 4, 0, 0, 0, 0, 0, 0, 0));
}

TEST(Schluessel_Zerlegen, the_long_form_holds_a_group_digit_and_ten_bytes) {
    const KeyForm key = Schluessel_Zerlegen("#7-ID#1:2:3:4:5:6:7:8:9:10");
    EXPECT_EQ(key.Kind, Form::Long);
    EXPECT_EQ(key.GroupDigit, 7);
    EXPECT_THAT(key.Values, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0));
}

TEST(Schluessel_Zerlegen, the_long_form_may_hold_an_eleventh_byte) {
    EXPECT_THAT(Schluessel_Zerlegen("#1-ID#1:2:3:4:5:6:7:8:9:10:11").Values,
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
}

TEST(Schluessel_Zerlegen, the_long_form_is_told_by_its_mark_alone) {
    const KeyForm key = Schluessel_Zerlegen("G3-ID#5:6");
    EXPECT_EQ(key.Kind, Form::Long);
    EXPECT_EQ(key.GroupDigit, 3);
    EXPECT_THAT(key.Values, ElementsAre(5, 6, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(Schluessel_Zerlegen, values_behind_a_group_number_of_several_digits_are_found) {
    const KeyForm key = Schluessel_Zerlegen("#12-ID#101:102:103");
    EXPECT_EQ(key.Kind, Form::Long);
    EXPECT_EQ(key.GroupDigit, 1);
    EXPECT_THAT(key.Values, ElementsAre(101, 102, 103, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(Schluessel_Zerlegen, a_text_cut_by_its_field_is_read_as_it_stands) {
    // 41 characters of "#7-ID#201:202:203:204:205:206:207:208:209:210".
    EXPECT_THAT(Schluessel_Zerlegen("#7-ID#201:202:203:204:205:206:207:208:209").Values,
                ElementsAre(201, 202, 203, 204, 205, 206, 207, 208, 209, 0, 0));
}

TEST(Schluessel_Zerlegen, a_long_form_without_its_mark_or_its_digit_gives_zeros) {
    const KeyForm bare = Schluessel_Zerlegen("#");
    EXPECT_EQ(bare.Kind, Form::Long);
    EXPECT_EQ(bare.GroupDigit, 0);
    EXPECT_THAT(bare.Values, testing::Each(0));
    EXPECT_EQ(Schluessel_Zerlegen("#x-ID#1").GroupDigit, 0);
    EXPECT_THAT(Schluessel_Zerlegen("#5xxxx1:2").Values, ElementsAre(1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0));
}

ProgSlot WithTimer(const char* name) {
    ProgSlot slot;
    slot.TimerName = name;
    slot.TimerBits = {0xA5, 0x40, 0x00};
    return slot;
}

TEST(Timer_Auswahl, a_lock_with_two_timers_gets_the_timers_number) {
    EXPECT_EQ(Timer_Auswahl("Timer_A_B", WithTimer("-")), 0);
    EXPECT_EQ(Timer_Auswahl("Timer_A_B", WithTimer("PB_2008TimA")), 1);
    EXPECT_EQ(Timer_Auswahl("Timer_A_B", WithTimer("PB_2008TimB")), 2);
    EXPECT_EQ(Timer_Auswahl("Timer_A_B", WithTimer("PB_700000000")), 0);
}

TEST(Timer_Auswahl, a_lock_with_full_tables_gets_the_mask_of_slots_1_to_8) {
    EXPECT_EQ(Timer_Auswahl("TimerPB_UT", WithTimer("PB_2008TimA")), 0xA5);
}

TEST(Timer_Auswahl, a_lock_without_timers_gets_0) {
    EXPECT_EQ(Timer_Auswahl("Timer_ERROR", WithTimer("PB_2008TimA")), 0);
}

} // namespace
} // namespace qvm
