#include "DatasetFixture.h"
#include "Text.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;

using Datensatz_Finger = DatasetTest;

TEST_F(Datensatz_Finger, a_finger_becomes_a_slot_with_its_template) {
    AddFinger(1, "Anna Berger", "Slot_Nr: 007", "812345678");
    files.Template(256, "812345678", "5 : 0 : 33 : 44 : 55 : ");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(dataset.Slots.size(), 1U);
    const ProgSlot& slot = dataset.Slots[0];
    EXPECT_EQ(slot.Name, "Anna Berg_007_FP");
    EXPECT_EQ(slot.Kind, 0xB4);
    EXPECT_EQ(slot.CodeDigits, "EEEEEE");
    EXPECT_EQ(slot.FingerNumber, 7);
    EXPECT_EQ(slot.PrFlag, 0);
    EXPECT_THAT(slot.Template, ElementsAre(5, 0, 33, 44, 55));
    EXPECT_EQ(slot.TransponderA, "");
    EXPECT_EQ(dataset.FingerCount, 1);
    EXPECT_EQ(dataset.TemplateBytes, 8);
    EXPECT_EQ(dataset.ProgressStored, 28);
    EXPECT_TRUE(dataset.AnyFinger);
}

TEST_F(Datensatz_Finger, the_warning_comes_once_a_dataset_with_an_exclamation_mark) {
    files.Template(1, "1001", "2 : 0 : ");
    AddFinger(1, "Anna", "Slot_Nr: 001", "1001");
    Add(2, {.Name = "Bert"});
    AddFinger(3, "Cora", "Slot_Nr: 003", "1001");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(pc.Shown.size(), 1U);
    EXPECT_EQ(pc.Shown[0], (Message{.Text = "mind the adapter",
                                    .Title = "QVM 7702 SOFTWARE SYSTEM",
                                    .Choice = Buttons::Ok,
                                    .Sign = Icon::Exclamation,
                                    .About = "Schloss 1: Front door"}));
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.FingerCount, 2);
    EXPECT_EQ(dataset.Slots.size(), 3U);
}

TEST_F(Datensatz_Finger, a_short_name_is_padded_and_a_long_one_cut_at_nine) {
    Add(1, {.Name = "Bob", .Label = "Slot_Nr: 012"}, 'F');
    Add(2, {.Name = "Maximilian Huber", .Label = "Slot_Nr: 250"}, 'F');
    Add(3, {.Name = std::string(u8"Jürgen"_w), .Label = "Slot_Nr: 003"}, 'F');
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.at(0).Name, "Bob_012_FP      ");
    EXPECT_EQ(dataset.Slots.at(1).Name, "Maximilia_250_FP");
    EXPECT_EQ(dataset.Slots.at(2).Name, "J\x81rgen_003_FP   ");
}

TEST_F(Datensatz_Finger, the_network_variant_puts_a_zero_before_the_number_and_cuts_at_sixteen) {
    Add(1, {.Name = "Bob", .Label = "Slot_Nr: 012"}, 'F');
    Add(2, {.Name = "Maximilian Huber", .Label = "Slot_Nr: 250"}, 'F');
    ASSERT_EQ(Load(DatasetVariant::Network), 0);
    EXPECT_THAT(dataset.Notes, ElementsAre("mind the adapter"));
    EXPECT_EQ(dataset.Slots.at(0).Name, "Bob_0012_FP     ");
    EXPECT_EQ(dataset.Slots.at(1).Name, "Maximilia_0250_F");
}

TEST_F(Datensatz_Finger, a_finger_named_like_the_lock_is_no_key) {
    Add(1, {.Name = "Front door", .Label = "Slot_Nr: 001"}, 'F');
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.at(0).Name, "Front doo_001_FP");
}

TEST_F(Datensatz_Finger, a_label_without_a_number_gives_number_0) {
    files.Template(1, "1001", "2 : 0 : ");
    AddFinger(1, "Anna", "", "1001");
    AddFinger(2, "Bert", "Slot_Nr: -12", "1001");
    AddFinger(3, "Cora", std::string_view("Slot_Nr\0: 077", 13), "1001");
    AddFinger(4, "Dora", "         9 8", "1001");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.at(0).Name, "Anna__FP        ");
    EXPECT_EQ(dataset.Slots.at(0).FingerNumber, 0);
    EXPECT_EQ(dataset.Slots.at(1).Name, "Bert_-12_FP     ");
    EXPECT_EQ(dataset.Slots.at(1).FingerNumber, 0);
    EXPECT_EQ(dataset.Slots.at(2).FingerNumber, 0);
    EXPECT_EQ(dataset.Slots.at(3).FingerNumber, 9);
}

TEST_F(Datensatz_Finger, the_number_has_three_characters) {
    files.Template(1, "1001", "2 : 0 : ");
    AddFinger(1, "Anna", "Slot_Nr: 1234567", "1001");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.at(0).Name, "Anna_123_FP     ");
    EXPECT_EQ(dataset.Slots.at(0).FingerNumber, 123);
}

TEST_F(Datensatz_Finger, a_finger_user_of_another_type_has_neither_number_nor_template) {
    Add(1,
        {.Name = "Anna",
         .Group = "PB_2008TimB",
         .Right = "ADMI",
         .Label = "Slot_Nr: 007",
         .KeyId = "1:2:3:4",
         .FingerFlag = "NO",
         .FingerId = "PR1001"},
        'F');
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    const ProgSlot& slot = dataset.Slots.at(0);
    EXPECT_EQ(slot.Kind, 0xB4);
    EXPECT_EQ(slot.CodeDigits, "EEEEEE");
    EXPECT_EQ(slot.FingerNumber, 0);
    EXPECT_EQ(slot.PrFlag, 0);
    EXPECT_TRUE(slot.Template.empty());
    EXPECT_EQ(slot.TimerName, "PB_2008TimB");
    EXPECT_EQ(slot.Funktion, "ADMI");
    EXPECT_THAT(slot.TimerBits, ElementsAre(0x07, 0xC0, 0x00));
    EXPECT_EQ(slot.TransponderA, "");
    EXPECT_FALSE(dataset.AnyTransponder);
    EXPECT_EQ(dataset.FingerCount, 1);
    EXPECT_EQ(dataset.TemplateBytes, 0);
}

TEST_F(Datensatz_Finger, a_premium_finger_is_found_without_its_PR) {
    files.Template(300, "F-812345678", "9 : 9 : ");
    files.Template(301, "812345678", "4 : 0 : 7 : 8 : ");
    AddFinger(1, "Anna", "Slot_Nr: 007", "PR812345678");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Slots.at(0).PrFlag, 1);
    EXPECT_THAT(dataset.Slots.at(0).Template, ElementsAre(4, 0, 7, 8));
    EXPECT_EQ(dataset.TemplateBytes, 7);
}

TEST_F(Datensatz_Finger, the_first_record_with_the_number_counts) {
    files.Template(10, "100", "3 : 0 : 1 : ");
    files.Template(20, "1001 copy", "3 : 0 : 2 : ");
    files.Template(30, "1001", "3 : 0 : 3 : ");
    AddFinger(1, "Anna", "Slot_Nr: 001", "1001");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.Slots.at(0).Template, ElementsAre(3, 0, 2));
}

TEST_F(Datensatz_Finger, the_last_record_of_the_store_is_found) {
    files.Template(501, "1001", "3 : 0 : 5 : ");
    AddFinger(1, "Anna", "Slot_Nr: 001", "1001");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.Slots.at(0).Template, ElementsAre(3, 0, 5));
}

TEST_F(Datensatz_Finger, a_missing_template_stops_with_the_slots_name) {
    Add(1, {.Name = "Zoe"});
    AddFinger(2, std::string(u8"Jürgen"_w), "Slot_Nr: 007", "404");
    Add(3, {.Name = "Never reached"});
    files.Template(1, "1001", "3 : 0 : 5 : ");
    Expect("mind the adapter");
    Expect(u8"Jürgen_007_FP   : no fingerprint data"_w);
    EXPECT_EQ(Load(), 13);
    EXPECT_EQ(pc.Shown.at(1).Sign, Icon::None);
    EXPECT_EQ(dataset.Slots.size(), 1U);
    EXPECT_EQ(Load(DatasetVariant::Network), 94);
    EXPECT_THAT(dataset.Notes, ElementsAre("mind the adapter",
                                           u8"Jürgen_0007_FP  Fehler bei der zuweisung der Fingerprint Daten. "_w));
}

TEST_F(Datensatz_Finger, an_identifier_without_digits_matches_nothing) {
    files.Template(1, "F-12", "3 : 0 : 5 : ");
    files.Template(2, "", "3 : 0 : 5 : ");
    for (const char* id : {"", "PR", "F-12", "XX12"}) {
        AddFinger(1, "Anna", "Slot_Nr: 001", std::string(id) + std::string(21 - std::string(id).size(), ' '));
        Expect("mind the adapter");
        Expect("Anna_001_FP     : no fingerprint data");
        EXPECT_EQ(Load(), 13) << id;
    }
}

TEST_F(Datensatz_Finger, without_the_store_no_template_is_found) {
    AddFinger(1, "Anna", "Slot_Nr: 001", "1001");
    Expect("mind the adapter");
    Expect("Anna_001_FP     : no fingerprint data");
    EXPECT_EQ(Load(), 13);
}

TEST_F(Datensatz_Finger, forty_premium_fingers_are_taken_and_the_next_stops) {
    files.Template(1, "1001", "2 : 0 : ");
    for (int n = 1; n <= 40; ++n) {
        AddFinger(n, "Anna", "Slot_Nr: 001", "PR1001");
    }
    AddFinger(41, "Bert", "Slot_Nr: 002", "1001");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.FingerCount, 41);
    AddFinger(42, "Cora", "Slot_Nr: 003", "PR1001");
    Expect("mind the adapter");
    Expect("too many premium fingers");
    EXPECT_EQ(Load(), 13);
    EXPECT_EQ(dataset.FingerCount, 41);
    EXPECT_EQ(Load(DatasetVariant::Network), 93);
    EXPECT_THAT(dataset.Notes, ElementsAre("mind the adapter", "too many premium fingers"));
}

TEST_F(Datensatz_Finger, a_premium_identifier_of_another_type_does_not_count_as_premium) {
    files.Template(1, "1001", "2 : 0 : ");
    for (int n = 1; n <= 40; ++n) {
        AddFinger(n, "Anna", "Slot_Nr: 001", "PR1001");
    }
    Add(41, {.Name = "Bert", .FingerFlag = "NO", .FingerId = "PR1001"}, 'F');
    Expect("mind the adapter");
    EXPECT_EQ(Load(), 0);
}

TEST_F(Datensatz_Finger, a_template_of_500_bytes_stands_whole) {
    files.Template(251, "1001", TemplateText(244, 1, 500, 9));
    files.Template(252, "1002", TemplateText(200, 0, 200, 255));
    AddFinger(1, "Anna", "Slot_Nr: 001", "1001");
    AddFinger(2, "Bert", "Slot_Nr: 002", "1002");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(dataset.Slots.at(0).Template.size(), 500U);
    EXPECT_EQ(dataset.Slots[0].Template[0], 244);
    EXPECT_EQ(dataset.Slots[0].Template[1], 1);
    EXPECT_EQ(dataset.Slots[0].Template[499], 9);
    ASSERT_EQ(dataset.Slots.at(1).Template.size(), 200U);
    EXPECT_EQ(dataset.Slots[1].Template[199], 255);
    EXPECT_EQ(dataset.TemplateBytes, 706);
}

TEST_F(Datensatz_Finger, values_behind_the_stated_length_are_left_and_missing_ones_are_0) {
    files.Template(1, "1001", "3 : 0 : 7 : 8 : 9 : ");
    files.Template(2, "1002", "6 : 0 : 7 : ");
    AddFinger(1, "Anna", "Slot_Nr: 001", "1001");
    AddFinger(2, "Bert", "Slot_Nr: 002", "1002");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_THAT(dataset.Slots.at(0).Template, ElementsAre(3, 0, 7));
    EXPECT_THAT(dataset.Slots.at(1).Template, ElementsAre(6, 0, 7, 0, 0, 0));
    EXPECT_EQ(dataset.TemplateBytes, 15);
}

TEST_F(Datensatz_Finger, a_wild_length_is_held_at_1000_and_wild_values_are_0) {
    files.Template(1, "1001", "255 : 255 : 7 : ");
    files.Template(2, "1002", "5 : 0 : 999 : \xFF\x01 : 3");
    AddFinger(1, "Anna", "Slot_Nr: 001", "1001");
    AddFinger(2, "Bert", "Slot_Nr: 002", "1002");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    ASSERT_EQ(dataset.Slots.at(0).Template.size(), 1000U);
    EXPECT_EQ(dataset.Slots[0].Template[2], 7);
    EXPECT_EQ(dataset.Slots[0].Template[999], 0);
    EXPECT_THAT(dataset.Slots.at(1).Template, ElementsAre(5, 0, 0, 0, 3));
    EXPECT_EQ(dataset.TemplateBytes, 1011);
}

TEST_F(Datensatz_Finger, a_template_without_a_length_is_none) {
    files.Template(1, "1001", "");
    files.Template(2, "1002", "0 : 0 : 7 : ");
    AddFinger(1, "Anna", "Slot_Nr: 001", "1001");
    AddFinger(2, "Bert", "Slot_Nr: 002", "1002");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_TRUE(dataset.Slots.at(0).Template.empty());
    EXPECT_TRUE(dataset.Slots.at(1).Template.empty());
    EXPECT_EQ(dataset.TemplateBytes, 0);
    EXPECT_EQ(dataset.FingerCount, 2);
}

TEST_F(Datensatz_Finger, the_store_is_read_once_and_only_when_a_finger_needs_it) {
    Add(1, {.Name = "Anna"});
    files.Template(1, "1001", "2 : 0 : ");
    ASSERT_EQ(Load(), 0);
    const int withoutFingers = pc.Disk.Operations;
    pc.Disk.Operations = 0;
    AddFinger(2, "Bert", "Slot_Nr: 001", "1001");
    AddFinger(3, "Cora", "Slot_Nr: 002", "1001");
    AddFinger(4, "Dora", "Slot_Nr: 003", "1001");
    Expect("mind the adapter");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(pc.Disk.Operations, withoutFingers + 1);
}

} // namespace
} // namespace qvm::test
