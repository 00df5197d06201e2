// A user's 64 bytes, one kind after the other, and the values of the first block, all typed by hand.

#include "NetzFixture.h"

namespace qvm::test {
namespace {

class Benutzersatz : public NetzTest {
protected:
    /// The record of user `n` in the first block.
    std::string Satz(int n) {
        Net_Daten_Senden(run, 0, static_cast<int>(daten.Slots.size()));
        return HexZeile(Sent.back(), static_cast<std::size_t>(677 + n / 2 * 129 + n % 2 * 64), 64);
    }
    static std::string Soll(std::string_view hex) { return HexZeile(Hex(hex)); }
};

TEST_F(Benutzersatz, a_user_with_a_code_alone_is_of_kind_1) {
    daten.Slots = Jede_Art();
    EXPECT_EQ(Satz(0), Soll("01 41 6E 6E 61 00*12 12 34 56 78 9A 00 24 42 81 0C 00*37"));
}

TEST_F(Benutzersatz, a_plain_key_is_of_kind_2) {
    daten.Slots = Jede_Art();
    EXPECT_EQ(Satz(1), Soll("02 42 65 72 74 20 50 6C 61 69 6E 00*6 42 EE EE EE EE 00 00 00 00 0D 11 22 33 44 "
                            "01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10 00*17"));
}

TEST_F(Benutzersatz, a_long_key_is_of_kind_3_and_loses_its_eleventh_byte) {
    daten.Slots = Jede_Art();
    EXPECT_EQ(Satz(2), Soll("03 43 61 72 6C 20 4C 6F 6E 67 00*7 77 7E EE EE EE 00 02 01 FF 00 00*4 07 "
                            "C9 CA CB CC CD CE CF D0 D1 D2 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F 10 00*6"));
}

TEST_F(Benutzersatz, a_fingerprint_is_of_kind_4_and_carries_template_bytes_70_to_98) {
    daten.Slots = Jede_Art();
    EXPECT_EQ(Satz(3), Soll("04 44 6F 72 61 5F 30 32 36 33 5F 46 50 20 20 20 20 01 07 00 04 02 08 06 01 "
                            "ED F4 FB 02 09 10 17 1E 25 2C 33 3A 41 48 4F 56 5D 64 6B 72 79 80 87 8E 95 9C A3 AA B1 "
                            "00*10"));
}

TEST_F(Benutzersatz, a_fingerprint_user_without_template_goes_out_like_one_with_a_code) {
    daten.Slots = Jede_Art();
    EXPECT_EQ(Satz(4), Soll("01 45 6D 69 6C 5F 30 30 30 39 5F 46 50 20 20 20 20 EE EE EE EE EE 00 00 00 00 0A 00*37"));
}

TEST_F(Benutzersatz, a_template_with_a_code_is_no_fingerprint_user) {
    daten.Slots = {Jede_Art()[3]};
    daten.Slots[0].CodeDigits = "12";
    EXPECT_EQ(Satz(0).substr(0, 2), "01");
}

TEST_F(Benutzersatz, a_short_template_leaves_the_rest_zero) {
    daten.Slots = {Jede_Art()[3]};
    daten.Slots[0].Template.resize(72);
    EXPECT_EQ(Satz(0).substr(25 * std::size_t{3}), Soll("ED F4 00*37"));
    daten.Slots[0].Template.resize(70);
    EXPECT_EQ(Satz(0).substr(25 * std::size_t{3}), Soll("00*39"));
}

TEST_F(Benutzersatz, the_timer_selector_counts_only_with_the_timers_a_and_b) {
    daten.Slots = Jede_Art();
    daten.Slots[0].TimerName = "PB_2008TimB";
    daten.Slots[3].TimerName = "PB_2008TimA";
    EXPECT_EQ(Satz(0).substr(std::size_t{22} * 3, 2), "00");
    link.Lauf.Values.TimerMode = Timer_A_B;
    EXPECT_EQ(Satz(0).substr(std::size_t{22} * 3, 2), "02");
    EXPECT_EQ(Satz(3).substr(std::size_t{19} * 3, 2), "01");
    link.Lauf.Values.TimerMode = Timer_ERROR;
    EXPECT_EQ(Satz(3).substr(std::size_t{19} * 3, 2), "00");
}

TEST_F(Benutzersatz, an_over_long_name_is_cut_and_the_byte_in_the_middle_of_a_key_name_stays) {
    Benutzer(2);
    daten.Slots[0].Name = "ABCDEFGHIJKLMNOPQRST";
    daten.Slots[1].Name = std::string("KEY\0            ", 16);
    EXPECT_EQ(Satz(0).substr(0, std::size_t{18} * 3 - 1),
              Soll("01 41 42 43 44 45 46 47 48 49 4A 4B 4C 4D 4E 4F 50 12"));
    EXPECT_EQ(Satz(1).substr(0, std::size_t{17} * 3 - 1), Soll("01 4B 45 59 00 20*12"));
}

using Erster_Block = Benutzersatz;

TEST_F(Erster_Block, carries_the_values_of_the_lock) {
    Benutzer(3);
    Net_Daten_Senden(run, 0, 3);
    EXPECT_EQ(HexZeile(Sent[0], 0, 57),
              "02 01 90 01 03 67 01 50 0C 10 02 02 02 02 01 6F 00 01 01 60 12 34 01 60 12 35 01 14 FF FF 00 00 "
              "00 03 12 3A 45 EE EE 12 3A 45 EE EE 04 14 01 00 03 FF 03 01 00 01 12 34 01");
}

TEST_F(Erster_Block, carries_no_listen_time_unless_the_unit_mode_is_3) {
    daten.UnitMode = "1";
    daten.SignalFlag = "0";
    Net_Daten_Senden(run, 0, 0);
    EXPECT_EQ(HexZeile(Sent[0], 49, 8), "FF 00 00 00 00 00 00 01");
    daten.UnitMode = "3";
    daten.AlwaysOn = "0";
    Net_Daten_Senden(run, 0, 0);
    EXPECT_EQ(HexZeile(Sent.back(), 49, 8), "FF 00 00 00 00 12 34 01");
}

TEST_F(Erster_Block, sends_a_length_word_of_677_without_users) {
    Net_Daten_Senden(run, 0, 0);
    EXPECT_EQ(HexZeile(Sent[0], 3, 3), "01 02 A5");
}

TEST_F(Erster_Block, a_third_unit_of_type_1_and_of_type_2_and_absent_units_are_not_sent) {
    daten.Units[0].Type = '2';
    daten.Units[2].UnitPresent = false;
    daten.Units[3].UnitPresent = true;
    Net_Daten_Senden(run, 0, 0);
    EXPECT_EQ(HexZeile(Sent[0], 10, 16), "01 60 12 34 02 02 02 02 01 60 12 36 00 00 00 00");
}

TEST_F(Erster_Block, never_counts_more_users_than_the_dataset_has) {
    Benutzer(2);
    Net_Daten_Senden(run, 0, 300);
    EXPECT_EQ(HexZeile(Sent[0], 32, 2), "00 02");
    Net_Daten_Senden(run, 0, -4);
    EXPECT_EQ(HexZeile(Sent.back(), 32, 2), "00 00");
}

TEST_F(Erster_Block, with_more_blocks_than_a_byte_counts_nothing_goes_out_and_the_row_is_refused) {
    Benutzer(300);
    for (ProgSlot& slot : daten.Slots) {
        slot.Template.assign(1060, 1);
    }
    Net_Programmieren_Beginnen(run);
    EXPECT_TRUE(Sent.empty());
    EXPECT_EQ(Ereignisse(), "steady, status 81, steady, mark - 258, next PrgNextDataset");
}

} // namespace
} // namespace qvm::test
