#include "DatasetFixture.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::ElementsAre;

struct Datensatz_Werte : test::DatasetTest {
    /// Unit 1 of lock 1, with the three characters of each part of its serial as they stand in the file.
    void Unit_Anlegen(const std::vector<std::string>& serial) {
        files.Unit(1, 1, "Reader", "00000000", '2', "11");
        for (std::size_t n = 0; n < serial.size(); ++n) {
            files.Put("T6WRSSISN.TSD", 241, 1, 16 + 30 + 3 * n, 3, serial[n]);
        }
    }
};

TEST_F(Datensatz_Werte, the_priority_text_1_to_5_gives_0_to_4) {
    files.Put("CPRT88X3FDA.PRT", 12, 1, 0, 12, "1  3  3  3  ");
    files.Put("CPRT88X3FDA.PRT", 12, 2, 0, 12, " 2 3  3  3  ");
    files.Put("CPRT88X3FDA.PRT", 12, 3, 0, 3, "  3");
    files.Put("CPRT88X3FDA.PRT", 12, 4, 0, 3, "4  ");
    files.Put("CPRT88X3FDA.PRT", 12, 200, 0, 3, "5  ");
    const auto priority = [&](int lock) {
        row.Number = lock;
        dataset.Values.PriorityCode = 99;
        EXPECT_EQ(Load(), 0);
        return dataset.Values.PriorityCode;
    };
    EXPECT_EQ(priority(1), 0);
    EXPECT_EQ(priority(2), 1);
    EXPECT_EQ(priority(3), 2);
    EXPECT_EQ(priority(4), 3);
    EXPECT_EQ(priority(200), 4);
}

TEST_F(Datensatz_Werte, any_other_priority_and_none_at_all_give_the_middle_one) {
    const auto priority = [&] {
        dataset.Values.PriorityCode = 99;
        EXPECT_EQ(Load(), 0);
        return dataset.Values.PriorityCode;
    };
    EXPECT_EQ(priority(), 2);
    for (const char* text : {"   ", "0  ", "6  ", "12 ", "X  ", "\xFF\xFF\xFF"}) {
        files.Put("CPRT88X3FDA.PRT", 12, 1, 0, 3, text);
        EXPECT_EQ(priority(), 2) << text;
    }
    files.File("CPRT88X3FDA.PRT").clear();
    EXPECT_EQ(priority(), 2);
}

TEST_F(Datensatz_Werte, the_lock_mode_is_one_character_a_lock) {
    files.File("LSOEMIPART.LMT") = "XY Zx";
    const auto mode = [&](int lock) {
        row.Number = lock;
        dataset.Values.LockMode = 1;
        EXPECT_EQ(Load(), 0);
        return dataset.Values.LockMode;
    };
    EXPECT_EQ(mode(1), 10);
    EXPECT_EQ(mode(2), 20);
    EXPECT_EQ(mode(3), 0xFF);
    EXPECT_EQ(mode(4), 0xFF);
    EXPECT_EQ(mode(5), 0xFF);
    EXPECT_EQ(mode(6), 0xFF);
    pc.Disk.Files.clear();
    EXPECT_EQ(mode(1), 0xFF);
}

TEST_F(Datensatz_Werte, the_locks_between_two_serials_have_no_mode) {
    files.File("LSOEMIPART.LMT") = "X";
    const auto mode = [&](const char* serial) {
        row.Serial = serial;
        EXPECT_EQ(Load(), 0);
        return dataset.Values.LockMode;
    };
    EXPECT_EQ(mode("0B.49.FF.FF"), 10);
    EXPECT_EQ(mode("0B.4A.00.00"), 0xFF);
    EXPECT_EQ(mode("0D.FF.B9.EE"), 0xFF);
    EXPECT_EQ(mode("0D.FF.B9.EF"), 10);
}

TEST_F(Datensatz_Werte, the_reception_setting_is_copied) {
    files.Put("T6WRSSISN.TSD", 241, 1, 0, 18, "310000173059104517");
    // mode 3, always on 1, third 0, scan 000, 17:30:59, signal 1, level 045
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.UnitMode, "3");
    EXPECT_EQ(dataset.AlwaysOn, "1");
    EXPECT_EQ(dataset.Reserved1, "0");
    EXPECT_EQ(dataset.SignalFlag, "1");
    EXPECT_EQ(dataset.RssiLevel, "045");
    EXPECT_EQ(dataset.ListenSeconds, 63059); // 17 x 3600 + 30 x 60 + 59
}

TEST_F(Datensatz_Werte, the_longest_listening_time_is_one_second_below_18_hours) {
    files.Put("T6WRSSISN.TSD", 241, 1, 0, 12, "3  000175959");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.ListenSeconds, 64799);
}

TEST_F(Datensatz_Werte, a_part_of_the_listening_time_that_cannot_be_chosen_is_0) {
    files.Put("T6WRSSISN.TSD", 241, 1, 0, 12, "3  000186099");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.ListenSeconds, 0);
    files.Put("T6WRSSISN.TSD", 241, 1, 0, 12,
              "3  000-1\xFF\xFF"
              "07");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.ListenSeconds, 7);
}

TEST_F(Datensatz_Werte, each_units_block_gives_its_name_serial_type_and_number) {
    files.Unit(1, 1, "Reader east", "01600001", '1', "11");
    files.Unit(1, 2, "Reader west", "0163FFFE", '2', "12");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.UnitCount, 2);
    const ProgUnit& first = dataset.Units[0];
    EXPECT_TRUE(first.UnitPresent);
    EXPECT_EQ(first.Name, "Reader east");
    EXPECT_EQ(first.Serial, (Address{0x01, 0x60, 0x00, 0x01}));
    EXPECT_EQ(first.Type, '1');
    EXPECT_EQ(first.UnitNo, "11");
    const ProgUnit& second = dataset.Units[1];
    EXPECT_TRUE(second.UnitPresent);
    EXPECT_EQ(second.Name, "Reader west");
    EXPECT_EQ(second.Serial, (Address{0x01, 0x63, 0xFF, 0xFE}));
    EXPECT_EQ(second.Type, '2');
    EXPECT_EQ(second.UnitNo, "12");
    EXPECT_FALSE(dataset.Units[2].UnitPresent);
    EXPECT_FALSE(dataset.Units[3].UnitPresent);
    EXPECT_FALSE(dataset.Units[4].UnitPresent);
}

TEST_F(Datensatz_Werte, the_fifth_unit_has_the_type_of_the_third_ones_field) {
    files.Unit(1, 3, "C", "01600003", '2', "13");
    files.Unit(1, 4, "D", "01600004", '1', "14");
    files.Unit(1, 5, "E", "01600005", '1', "15");
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.Units[2].Type, '2');
    EXPECT_EQ(dataset.Units[3].Type, '1');
    EXPECT_EQ(dataset.Units[4].Type, '2');
    EXPECT_EQ(dataset.Units[4].UnitNo, "15");
    EXPECT_EQ(dataset.Units[4].Serial, (Address{0x01, 0x60, 0x00, 0x05}));
    EXPECT_EQ(dataset.UnitCount, 3);
}

TEST_F(Datensatz_Werte, a_fifth_unit_without_a_third_has_no_type) {
    files.Unit(1, 5, "E", "01600005", '1', "15");
    ASSERT_EQ(Load(), 0);
    EXPECT_TRUE(dataset.Units[4].UnitPresent);
    EXPECT_EQ(dataset.Units[4].Type, ' ');
}

TEST_F(Datensatz_Werte, a_serial_that_begins_with_0_needs_a_second_byte_and_a_value_up_to_its_limit) {
    const auto present = [&](const std::vector<std::string>& serial) {
        Unit_Anlegen(serial);
        EXPECT_EQ(Load(), 0);
        EXPECT_EQ(dataset.UnitCount, dataset.Units[0].UnitPresent ? 1 : 0);
        return dataset.Units[0].UnitPresent;
    };
    EXPECT_TRUE(present({"00 ", "50 ", "00 ", "00 "}));  // 5242880
    EXPECT_FALSE(present({"00 ", "50 ", "00 ", "01 "})); // 5242881
    EXPECT_TRUE(present({"00 ", "01 ", "00 ", "00 "}));  // 65536
    EXPECT_FALSE(present({"00 ", "00 ", "FF ", "FF "})); // 65535: its second byte is 0
    EXPECT_FALSE(present({"00 ", "00 ", "2C ", "CD "})); // 11469
    EXPECT_FALSE(present({"00 ", "00 ", "00 ", "00 "}));
    EXPECT_TRUE(present({"FF ", "00 ", "00 ", "00 "}));
}

TEST_F(Datensatz_Werte, a_unit_whose_serial_is_no_serial_is_absent) {
    const auto present = [&](const std::vector<std::string>& serial) {
        Unit_Anlegen(serial);
        EXPECT_EQ(Load(), 0);
        return dataset.Units[0].UnitPresent;
    };
    EXPECT_FALSE(present({"   ", "   ", "   ", "   "}));
    EXPECT_FALSE(present({"   ", "50 ", "00 ", "00 "}));
    EXPECT_FALSE(present({"01 ", "60 ", "   ", "01 "}));
    EXPECT_FALSE(present({"01 ", "6Z ", "00 ", "01 "}));
    EXPECT_FALSE(present({"1FF", "60 ", "00 ", "01 "}));
    EXPECT_FALSE(present({"1.2", "60 ", "00 ", "01 "}));
    EXPECT_TRUE(present({"01 ", "60 ", "00 ", "01 "}));
}

TEST_F(Datensatz_Werte, a_lock_has_its_own_units) {
    files.Unit(7, 1, "Seven", "01600007", '1', "11");
    row.Number = 7;
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.UnitCount, 1);
    row.Number = 6;
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.UnitCount, 0);
    EXPECT_EQ(dataset.Units[0].Name, "");
}

TEST_F(Datensatz_Werte, a_unit_record_that_is_cut_has_the_units_before_the_cut) {
    files.Unit(1, 1, "Reader east", "01600001", '1', "11");
    files.Unit(1, 2, "Reader west", "01600002", '1', "12");
    files.File("T6WRSSISN.TSD").resize(98); // behind two bytes of the second one's serial
    ASSERT_EQ(Load(), 0);
    EXPECT_EQ(dataset.UnitCount, 1);
    EXPECT_EQ(dataset.Units[1].Name, "Reader west");
    EXPECT_FALSE(dataset.Units[1].UnitPresent);
}

} // namespace
} // namespace qvm::test
