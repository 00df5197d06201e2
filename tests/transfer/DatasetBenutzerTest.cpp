#include "DatasetFixture.h"
#include "Text.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;

using Datensatz_Benutzer = DatasetTest;

TEST_F(Datensatz_Benutzer, a_code_user_becomes_a_slot_with_everything_of_its_record) {
    Add(1, {.Name = "Anna Berg",
            .Code = "1234567890",
            .Group = "PB_812345678",
            .Right = "1/2",
            .KeyId = "10:20:30:40",
            .KeyData = "1:2:3:4:5:6:7:8:9:10:11:12:13:14:15:16"});
    files.Group(3, "a group", "X-X----X-X", "PB_812345678");
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(dataset.Slots.size(), 1U);
    const ProgSlot& slot = dataset.Slots[0];
    EXPECT_EQ(slot.Name, "Anna Berg");
    EXPECT_EQ(slot.TimerName, "PB_812345678");
    EXPECT_EQ(slot.Funktion, "1/2");
    EXPECT_EQ(slot.CodeDigits, "1234567890");
    EXPECT_EQ(slot.TransponderA, "10:20:30:40");
    EXPECT_EQ(slot.TransponderB, "1:2:3:4:5:6:7:8:9:10:11:12:13:14:15:16");
    EXPECT_TRUE(slot.Template.empty());
    EXPECT_EQ(slot.FingerNumber, 0);
    EXPECT_EQ(slot.PrFlag, 0);
    EXPECT_EQ(slot.Kind, 0);
    EXPECT_THAT(slot.TimerBits, ElementsAre(0xA1, 0x40, 0x00));
    EXPECT_EQ(dataset.FingerCount, 0);
    EXPECT_EQ(dataset.TemplateBytes, 0);
    EXPECT_FALSE(dataset.AnyFinger);
}

TEST_F(Datensatz_Benutzer, only_marked_users_of_the_locks_own_column_count) {
    Add(1, {.Name = "Other lock"}, 'X', 2);
    Add(2, {.Name = "Nowhere"}, '-');
    Add(3, {.Name = "Small letter"}, 'x');
    Add(4, {.Name = "Blank"}, ' ');
    Add(250, {.Name = "Last one"});
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(dataset.Slots.size(), 1U);
    EXPECT_EQ(dataset.Slots[0].Name, "Last one");
}

TEST_F(Datensatz_Benutzer, the_mark_of_lock_200_is_the_last_one) {
    Add(1, {.Name = "At 200"}, 'X', 200);
    Add(2, {.Name = "At 199"}, 'X', 199);
    row.Number = 200;
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(dataset.Slots.size(), 1U);
    EXPECT_EQ(dataset.Slots[0].Name, "At 200");
}

TEST_F(Datensatz_Benutzer, a_leading_blank_mark_does_not_move_the_others) {
    Add(1, {.Name = "At 3"}, 'X', 3);
    files.Put("BX10X52WUJ9.UBW", 419, 1, 218, 3, "  X");
    row.Number = 3;
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.size(), 1U);
    row.Number = 1;
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.size(), 0U);
}

TEST_F(Datensatz_Benutzer, records_beyond_250_are_no_users) {
    Add(251, {.Name = "Too far"});
    ASSERT_EQ(Load(), 0);
    EXPECT_TRUE(dataset.Slots.empty());
}

TEST_F(Datensatz_Benutzer, a_record_without_a_name_is_skipped_before_it_is_counted) {
    row.Serial = "01.00.59.02"; // 47 users
    for (int n = 1; n <= 250; ++n) {
        Add(n, {.Name = n > 203 ? "Somebody" : ""});
    }
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.MaxUser, 47);
    EXPECT_EQ(dataset.Slots.size(), 47U);
}

TEST_F(Datensatz_Benutzer, one_user_more_than_the_lock_holds_stops_with_a_message) {
    row.Serial = "01.00.59.02";
    for (int n = 1; n <= 49; ++n) {
        Add(n, {.Name = "Somebody"});
    }
    Expect("too many users");
    EXPECT_EQ(Load(), 13);
    EXPECT_EQ(dataset.Slots.size(), 47U);
    ASSERT_EQ(pc.Shown.size(), 1U);
    EXPECT_EQ(
        pc.Shown[0],
        (Message{.Text = "too many users", .Title = "QVM 7702 SOFTWARE SYSTEM", .About = "Schloss 1: Front door"}));
    EXPECT_EQ(Load(DatasetVariant::Network), 92);
    EXPECT_THAT(dataset.Notes, ElementsAre("too many users"));
}

TEST_F(Datensatz_Benutzer, fingers_count_towards_the_same_limit_and_the_refused_one_does_not_warn) {
    row.Serial = "01.00.59.02";
    for (int n = 1; n <= 47; ++n) {
        Add(n, {.Name = "Somebody"});
    }
    Add(48, {.Name = "Finger"}, 'F');
    Expect("too many users");
    EXPECT_EQ(Load(), 13);
    EXPECT_FALSE(dataset.AnyFinger);
}

TEST_F(Datensatz_Benutzer, all_250_users_fit_into_a_lock_of_299) {
    for (int n = 1; n <= 250; ++n) {
        Add(n, {.Name = "Somebody"});
    }
    row.Serial = "01.00.00.01";
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.MaxUser, 299);
    EXPECT_EQ(dataset.Slots.size(), 250U);
    EXPECT_EQ(dataset.ProgressStored, 2020); // 20, and 8 for each slot
    EXPECT_EQ(dataset.ProgressTotal, 4000);
}

TEST_F(Datensatz_Benutzer, a_lock_without_users_gets_a_dataset_all_the_same) {
    Add(1, {.Name = "Nowhere"}, '-');
    ASSERT_EQ(Load(), 0);
    EXPECT_TRUE(dataset.Slots.empty());
    EXPECT_EQ(dataset.ProgressStored, 20);
    EXPECT_EQ(dataset.ProgressTotal, 4000);
}

TEST_F(Datensatz_Benutzer, a_name_goes_out_in_the_code_page_of_the_locks) {
    Add(1, {.Name = std::string(u8"Jürg Müßäö"_w)});
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(dataset.Slots.size(), 1U);
    EXPECT_EQ(dataset.Slots[0].Name, "J\x81rg M\x81\xE1\x84\x94");
}

TEST_F(Datensatz_Benutzer, a_name_of_sixteen_characters_stands_whole_and_a_shorter_one_without_padding) {
    Add(1, {.Name = "ABCDEFGHIJKLMNOP"});
    Add(2, {.Name = "Bob   "});
    Add(3, {.Name = std::string("Eve\0rest", 8)});
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(dataset.Slots.size(), 3U);
    EXPECT_EQ(dataset.Slots[0].Name, "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(dataset.Slots[1].Name, "Bob");
    EXPECT_EQ(dataset.Slots[2].Name, "Eve");
}

const std::string KeyName("KEY\0            ", 16);

TEST_F(Datensatz_Benutzer, a_user_named_like_the_lock_is_its_key) {
    Add(1, {.Name = "FRONT door"});
    Add(2, {.Name = "Front door 2"});
    Add(3, {.Name = "The front door"});
    Add(4, {.Name = "Front doo"});
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(dataset.Slots.size(), 4U);
    EXPECT_EQ(dataset.Slots[0].Name, KeyName);
    EXPECT_EQ(dataset.Slots[1].Name, KeyName);
    EXPECT_EQ(dataset.Slots[2].Name, "The front door");
    EXPECT_EQ(dataset.Slots[3].Name, "Front doo");
    EXPECT_EQ(dataset.Slots[0].CodeDigits, "123456");
}

TEST_F(Datensatz_Benutzer, umlauts_compare_without_case_in_the_key_rule) {
    row.Name = u8"tür"_w;
    Add(1, {.Name = std::string(u8"TÜR OST"_w)});
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.at(0).Name, KeyName);
}

TEST_F(Datensatz_Benutzer, a_lock_without_a_name_has_no_key) {
    Add(1, {.Name = "Anna"});
    for (const char* name : {"", "    "}) {
        row.Name = name;
        ASSERT_EQ(Load(), 0);
        EXPECT_EQ(dataset.Slots.at(0).Name, "Anna");
    }
}

TEST_F(Datensatz_Benutzer, a_code_of_letters_is_read_by_the_keypad) {
    Add(1, {.Name = "Anna", .Code = "abcXYZ+;0m"});
    Add(2, {.Name = "Bert", .Code = "42"});
    Add(3, {.Name = "Cora", .Code = "          "});
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.at(0).CodeDigits, "2229991006");
    EXPECT_EQ(dataset.Slots.at(1).CodeDigits, "42");
    EXPECT_EQ(dataset.Slots.at(2).CodeDigits, "");
}

TEST_F(Datensatz_Benutzer, a_transponder_is_noticed) {
    Add(1, {.Name = "Anna"});
    ASSERT_EQ(Load(), 0);
    EXPECT_FALSE(dataset.AnyTransponder);
    Add(2, {.Name = "Bert", .KeyId = "#7-ID#1:2:3:4:5:6:7:8:9:10"});
    Add(3, {.Name = "Cora"});
    ASSERT_EQ(Load(), 0);
    EXPECT_TRUE(dataset.AnyTransponder);
    EXPECT_EQ(dataset.Slots.at(1).TransponderA, "#7-ID#1:2:3:4:5:6:7:8:9:10");
}

TEST_F(Datensatz_Benutzer, a_transponder_text_that_fills_its_field_is_taken_whole) {
    Add(1, {.Name = "Anna", .KeyId = "#7-ID#201:202:203:204:205:206:207:208:209", .KeyData = "5:6"});
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.at(0).TransponderA, "#7-ID#201:202:203:204:205:206:207:208:209");
    EXPECT_EQ(dataset.Slots.at(0).TransponderB, "5:6");
}

TEST_F(Datensatz_Benutzer, no_group_and_an_unknown_one_give_no_timer) {
    files.Group(4, "a group", "XXXXXXXXXX", "-");
    files.Group(5, "a group", "XXXXXXXXXX", "");
    Add(1, {.Name = "Anna", .Group = "-"});
    Add(2, {.Name = "Bert", .Group = "PB_404"});
    Add(3, {.Name = "Cora", .Group = ""});
    ASSERT_EQ(Load(), 0);
    for (const ProgSlot& slot : dataset.Slots) {
        EXPECT_THAT(slot.TimerBits, ElementsAre(0, 0, 0)) << slot.Name;
    }
}

TEST_F(Datensatz_Benutzer, the_two_fixed_groups_are_known_without_the_file) {
    Add(1, {.Name = "Anna", .Group = "PB_2008TimA"});
    Add(2, {.Name = "Bert", .Group = "PB_2008TimB"});
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.Slots.at(0).TimerBits, ElementsAre(0xF8, 0x00, 0x00));
    EXPECT_THAT(dataset.Slots.at(1).TimerBits, ElementsAre(0x07, 0xC0, 0x00));
}

TEST_F(Datensatz_Benutzer, the_two_fixed_groups_stand_whatever_the_file_says) {
    files.Group(1, "a group", "---------X", "PB_2008TimA");
    files.Group(2, "a group", "X---------", "PB_2008TimB");
    Add(1, {.Name = "Anna", .Group = "PB_2008TimA"});
    Add(2, {.Name = "Bert", .Group = "PB_2008TimB"});
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.Slots.at(0).TimerBits, ElementsAre(0xF8, 0x00, 0x00));
    EXPECT_THAT(dataset.Slots.at(1).TimerBits, ElementsAre(0x07, 0xC0, 0x00));
}

TEST_F(Datensatz_Benutzer, the_groups_of_the_file_are_found_by_identifier_in_any_of_its_records) {
    files.Group(1, "a group", "XXXXX-----", "PB_2008TimA");
    files.Group(7, "a group", "--------XX", "PB_7");
    files.Group(8, "a group", "X---------", "PB_8");
    Add(1, {.Name = "Anna", .Group = "PB_2008TimA"});
    Add(2, {.Name = "Bert", .Group = "PB_7"});
    Add(3, {.Name = "Cora", .Group = "PB_8"});
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.Slots.at(0).TimerBits, ElementsAre(0xF8, 0x00, 0x00));
    EXPECT_THAT(dataset.Slots.at(1).TimerBits, ElementsAre(0x00, 0xC0, 0x00));
    EXPECT_THAT(dataset.Slots.at(2).TimerBits, ElementsAre(0x80, 0x00, 0x00));
}

TEST_F(Datensatz_Benutzer, a_last_record_that_is_cut_counts_as_far_as_it_goes) {
    Add(1, {.Name = "Anna"});
    Add(2, {.Name = "Bert"});
    files.File("BX10X52WUJ9.UBW").resize(419 + 219); // up to the mark of lock 1
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.size(), 2U);
    files.File("BX10X52WUJ9.UBW").resize(419 + 218); // the mark is cut off
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.size(), 1U);
}

TEST_F(Datensatz_Benutzer, the_users_of_the_lock_before_are_gone) {
    Add(1, {.Name = "Anna", .KeyId = "1:2:3:4"});
    ASSERT_EQ(Load(), 0);
    row.Number = 2;
    ASSERT_EQ(Load(), 0);
    EXPECT_TRUE(dataset.Slots.empty());
    EXPECT_FALSE(dataset.AnyTransponder);
    EXPECT_EQ(dataset.ProgressStored, 20);
}

TEST_F(Datensatz_Benutzer, a_lock_with_code_users_only_has_no_finger) {
    Add(1, {.Name = "Anna"});
    ASSERT_EQ(Load(), 0);
    EXPECT_FALSE(dataset.AnyFinger);
}

} // namespace
} // namespace qvm::test
