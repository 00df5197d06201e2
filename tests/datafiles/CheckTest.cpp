#include "CheckFixture.h"

#include <gtest/gtest.h>

namespace qvm {
namespace {

using namespace test;
using namespace std::string_literals;

constexpr std::string_view Users = "BX10X52WUJ9.UBW", Locks = "C64UX12H3D.EBW";
constexpr std::size_t User2 = 419, User3 = 838;

TEST_F(Daten_Pruefen_, an_installation_in_order_has_no_finding) {
    EXPECT_EQ(Findings(), "");
}

TEST_F(Daten_Pruefen_, an_empty_directory_has_no_finding) {
    Disk.Files.clear();
    EXPECT_EQ(Findings(), "");
}

TEST_F(Daten_Pruefen_, a_length_that_is_no_multiple_is_damaged) {
    Disk.Files[Dat + "SBSCLKZU.SB1"].resize(10990);
    EXPECT_EQ(Findings(), "damaged LockGroupRecord: the length of 10990 bytes is not a multiple of 55\n");
}

TEST_F(Daten_Pruefen_, a_file_that_cannot_be_read_is_damaged) {
    Disk.Operations = 0;
    Disk.FailAt = 1;
    const auto findings = Daten_Pruefen(Disk.Store(), Dat);
    ASSERT_FALSE(findings.empty());
    EXPECT_EQ(Befund_Text(findings[0]), "UserRecord: the file BX10X52WUJ9.UBW cannot be read");
}

TEST_F(Daten_Pruefen_, a_control_character_in_a_text_is_damaged) {
    Write(Locks, 1, "\x07");
    EXPECT_EQ(Findings(), "damaged LockRecord, record 1, Name: holds a character that no text has\n");
}

TEST_F(Daten_Pruefen_, a_control_character_in_a_line_is_damaged) {
    Lines("OFSTSETUPDT.FST", "05.03.2026\x01\r\n09:30\r\n15:00\r\n00\r\n01\r\n");
    EXPECT_EQ(Findings(), "damaged OFSTSETUPDT.FST, line 1: holds a character that no text has\n");
}

TEST_F(Daten_Pruefen_, what_refuses_a_run_is_damaged_although_no_text_shows_it) {
    Write(Locks, 1, "\0\x07"s);
    Write("LOCKCLASSCOMX.CMB", 48 * 4, std::string(48, '\0'));
    Lines("RFCHANDIF12.RFX", "");
    EXPECT_EQ(Findings(), "damaged ChannelRecord: has no record, the program leaves one at least\n"
                          "damaged LockRecord, record 1: holds bytes that the program never leaves there\n"
                          "damaged LockAdapterRecord, record 5: holds bytes that the program never leaves there\n");
}

TEST_F(Daten_Pruefen_, settings_that_refuse_every_run_are_damaged) {
    Lines("EST7CSB29A.I_1", "Deutsch\r\n1" + std::string(80, ' ') + "\r\nUSB-Port3\r\n5\r\n");
    Lines("CHEUSB25C.I_2", "\r\n1\r\n");
    EXPECT_EQ(Findings(), "damaged EST7CSB29A.I_1, line 2: holds what the program takes for damage\n"
                          "damaged CHEUSB25C.I_2, line 1: holds what the program takes for damage\n");
}

TEST_F(Daten_Pruefen_, a_gap_in_the_user_table_is_named_by_the_empty_user) {
    Write(Users, User3 + 419, "Carl");
    EXPECT_EQ(Findings(), "gap UserRecord, record 3, UserName: has no name, but the next user has; the user window "
                          "refuses to save this\n");
}

TEST_F(Daten_Pruefen_, a_key_without_a_user_is_a_gap) {
    Write(Users, User3 + 61, "1 : 1 : 1 : 1");
    EXPECT_EQ(Findings(), "gap UserRecord, record 3, KeyId: there is a key, but no user's name\n");
}

TEST_F(Daten_Pruefen_, equal_users_are_doubled_and_the_code_is_not_shown) {
    Write(Users, User3, "Anna");
    Write(Users, User3 + 35, "333444    Ring");
    Write(Users, User3 + 61, "1 : 2 : 3 : 4");
    EXPECT_EQ(Findings(), "doubled UserRecord, record 3, UserName: \"Anna\" stands with user 1, too\n"
                          "doubled UserRecord, record 3, UserCode: is the same as that of user 2\n"
                          "doubled UserRecord, record 3, KeyLabel: \"Ring\" stands with user 1, too\n"
                          "doubled UserRecord, record 3, KeyId: the same key belongs to user 1\n");
}

TEST_F(Daten_Pruefen_, a_code_off_the_keypad_is_out_of_range_and_not_shown) {
    Write(Users, 35, "12a ");
    EXPECT_EQ(Findings(),
              "range UserRecord, record 1, UserCode: holds characters other than digits and capital letters\n");
}

TEST_F(Daten_Pruefen_, a_short_code_is_out_of_range) {
    Write(Users, 35, "12345 ");
    EXPECT_EQ(Findings(), "range UserRecord, record 1, UserCode: has not 6 to 8 characters\n");
}

TEST_F(Daten_Pruefen_, a_group_and_a_right_that_are_not_there) {
    Write(Users, 16, "PB_501");
    Write(Users, 31, "9");
    EXPECT_EQ(Findings(), "dangling UserRecord, record 1, UserGroupId: there is no timer group \"PB_501\"\n"
                          "range UserRecord, record 1, UserRight: there is no right \"9\"; locks take it as \"1\"\n");
}

TEST_F(Daten_Pruefen_, a_mark_for_a_lock_without_a_name_is_dangling) {
    Write(Users, 218 + 16, "X");
    EXPECT_EQ(Findings(),
              "dangling UserRecord, record 1, LockMask: the mark for lock 17 is set, but that lock has no name\n");
}

TEST_F(Daten_Pruefen_, a_finger_mark_without_a_finger_is_dangling) {
    Write(Users, 218, "F");
    EXPECT_EQ(Findings(),
              "dangling UserRecord, record 1, LockMask: the mark for lock 1 is \"F\", but the user has no finger\n");
}

TEST_F(Daten_Pruefen_, a_mark_of_another_character_is_damaged) {
    Write(Users, 218 + 1, "?");
    EXPECT_EQ(Findings(),
              "damaged UserRecord, record 1, LockMask: the mark for lock 2 is neither \"X\", \"F\" nor \"-\"\n");
}

TEST_F(Daten_Pruefen_, a_nameless_user_may_keep_a_mark) {
    Write(Users, User3 + 218, "F");
    EXPECT_EQ(Findings(), "");
}

TEST_F(Daten_Pruefen_, a_key_of_another_form_is_out_of_range) {
    Write(Users, 61, "1 : 2 : 3 : 256");
    Write(Users, 102, "9 : 9"s + std::string(88, '\0'));
    EXPECT_EQ(Findings(),
              "range UserRecord, record 1, KeyId: is neither the identification of an E-Key nor of a transponder\n"
              "range UserRecord, record 1, KeyData: does not hold sixteen bytes\n");
}

TEST_F(Daten_Pruefen_, a_transponder_cut_by_its_field_is_good) {
    Write(Users, 61, "#1-ID#100:101:102:103:104:105:106:107:108");
    EXPECT_EQ(Findings(), "");
}

TEST_F(Daten_Pruefen_, a_finger_without_its_template_is_dangling) {
    Write(Users, User2 + 197, "PR801");
    EXPECT_EQ(Findings(), "dangling UserRecord, record 2, FingerId: the finger's template is missing\n");
}

TEST_F(Daten_Pruefen_, a_finger_that_names_no_template_and_no_slot) {
    Write(Users, User2 + 45, "Slot_Nr: 000");
    Write(Users, User2 + 197, "PR   ");
    EXPECT_EQ(Findings(), "dangling UserRecord, record 2, FingerId: a finger is in use, but names no template\n"
                          "range UserRecord, record 2, KeyLabel: does not name the finger's slot\n");
}

TEST_F(Daten_Pruefen_, a_finger_that_is_not_in_use_needs_no_template) {
    Write(Users, User2 + 195, "NO");
    Write(Users, User2 + 197, "PR801");
    EXPECT_EQ(Findings(), "");
}

constexpr std::string_view Templates = "TEmpTCD0UPK.FSD";
constexpr std::size_t Template250 = 249 * 3028;

TEST_F(Daten_Pruefen_, a_template_shorter_than_it_tells_is_damaged) {
    Write(Templates, Template250 + 26, "5");
    EXPECT_EQ(Findings(), "damaged TemplateRecord, record 250, Template: tells a length of 5 and holds 4 bytes\n");
}

TEST_F(Daten_Pruefen_, a_template_of_other_characters_is_damaged) {
    Write(Templates, Template250 + 26, "x");
    EXPECT_EQ(Findings(), "damaged TemplateRecord, record 250, Template: is not a list of bytes\n");
}

TEST_F(Daten_Pruefen_, a_second_template_of_the_same_number_is_doubled_and_a_deletion_record_is_none) {
    Write(Templates, Template250 + 3028, "4    800                  2 : 0");
    Write(Templates, 2 * 3028, "F    F-800                F-4");
    EXPECT_EQ(Findings(), "doubled TemplateRecord, record 251, Identifier: \"800\" stands in record 250, too\n");
}

TEST_F(Daten_Pruefen_, a_channel_and_a_flag_out_of_range) {
    Write("RFCHANDIF12.RFX", 0, "13 0  5  2");
    EXPECT_EQ(Findings(), "range ChannelRecord, record 1, LockChannel: \"13\" is not a channel from 1 to 12\n"
                          "range ChannelRecord, record 1, EKold: \"0\" is not a channel from 1 to 12\n"
                          "range ChannelRecord, record 1, LockChange: \"2\" is neither 0 nor 1\n");
}

} // namespace
} // namespace qvm
