#include "Kanal.h"

#include "PersonsFixture.h"

#include <optional>

namespace qvm {
namespace {

using test::Blanks;
using test::Nulls;

struct Kanal : test::Persons {
    Kanal() { kern.Config.RadioChannel = "12"; }

    static std::string Times(int n, const std::string& record) {
        std::string out;
        for (int k = 0; k < n; ++k) {
            out += record;
        }
        return out;
    }
};

// ---- the state of a lock

struct Kanal_Stand : Kanal {};

TEST_F(Kanal_Stand, a_missing_file_means_channel_1_the_systems_target_and_a_change_pending) {
    EXPECT_EQ(qvm::Kanal_Stand(kern, 1), (KanalStand{1, 12, true}));
}

TEST_F(Kanal_Stand, gives_the_record_of_the_lock) {
    File(ChannelFile) = Times(199, Blanks(15)) + "5  7  9  0  1  ";
    EXPECT_EQ(qvm::Kanal_Stand(kern, 200), (KanalStand{5, 9, false}));
    EXPECT_EQ(qvm::Kanal_Stand(kern, 199), (KanalStand{1, 12, true}));
}

TEST_F(Kanal_Stand, a_partial_record_counts_as_far_as_it_goes) {
    File(ChannelFile) = "5  7  9";
    EXPECT_EQ(qvm::Kanal_Stand(kern, 1), (KanalStand{5, 9, true}));
}

TEST_F(Kanal_Stand, a_gap_in_the_file_is_blank) {
    File(ChannelFile) = Nulls(30);
    EXPECT_EQ(qvm::Kanal_Stand(kern, 1), (KanalStand{1, 12, true}));
}

TEST_F(Kanal_Stand, a_damaged_text_is_no_channel_and_never_goes_on_the_air) {
    File(ChannelFile) = "xyz   -4 2  ?  "
                        "13    0  1     "
                        "1     12 0     ";
    EXPECT_EQ(qvm::Kanal_Stand(kern, 1), (KanalStand{1, 12, false}));
    EXPECT_EQ(qvm::Kanal_Stand(kern, 2), (KanalStand{1, 12, true}));
    EXPECT_EQ(qvm::Kanal_Stand(kern, 3), (KanalStand{1, 12, false}));
}

TEST_F(Kanal_Stand, a_lock_that_does_not_exist_and_a_file_error_are_blank) {
    File(ChannelFile) = Times(250, "5  7  9  0  1  ");
    EXPECT_EQ(qvm::Kanal_Stand(kern, 0), (KanalStand{1, 12, true}));
    EXPECT_EQ(qvm::Kanal_Stand(kern, 201), (KanalStand{1, 12, true}));
    Welt.Disk.FailAt = Welt.Disk.Operations + 1;
    EXPECT_EQ(qvm::Kanal_Stand(kern, 1), (KanalStand{1, 12, true}));
}

// ---- after a lock was programmed

struct Kanal_Ausgefuehrt : Kanal {};

TEST_F(Kanal_Ausgefuehrt, writes_lock_channel_target_and_flag_byte_for_byte) {
    File(ChannelFile) = "5  7  9  1  1  " + std::string("3  4  5  1  0  ");
    EXPECT_TRUE(qvm::Kanal_Ausgefuehrt(kern, 2));
    EXPECT_EQ(File(ChannelFile), "5  7  9  1  1  12 4  12 0  0  ");
}

TEST_F(Kanal_Ausgefuehrt, makes_the_file_with_nulls_before_its_record) {
    EXPECT_TRUE(qvm::Kanal_Ausgefuehrt(kern, 3));
    EXPECT_EQ(File(ChannelFile), Nulls(30) + "12    12 0     ");
}

TEST_F(Kanal_Ausgefuehrt, an_invalid_system_channel_counts_as_1) {
    kern.Config.RadioChannel = "13";
    EXPECT_TRUE(qvm::Kanal_Ausgefuehrt(kern, 1));
    EXPECT_EQ(File(ChannelFile), "1     1  0     ");
}

TEST_F(Kanal_Ausgefuehrt, completes_a_partial_record) {
    File(ChannelFile) = "5  7";
    EXPECT_TRUE(qvm::Kanal_Ausgefuehrt(kern, 1));
    EXPECT_EQ(File(ChannelFile), "12 7  12 0     ");
}

TEST_F(Kanal_Ausgefuehrt, refuses_a_lock_that_does_not_exist) {
    EXPECT_FALSE(qvm::Kanal_Ausgefuehrt(kern, 0));
    EXPECT_FALSE(qvm::Kanal_Ausgefuehrt(kern, -1));
    EXPECT_FALSE(qvm::Kanal_Ausgefuehrt(kern, 201));
    EXPECT_FALSE(Has(ChannelFile));
}

TEST_F(Kanal_Ausgefuehrt, a_record_behind_the_table_stays) {
    File(ChannelFile) = Times(250, Blanks(15)) + "behind";
    EXPECT_TRUE(qvm::Kanal_Ausgefuehrt(kern, 200));
    EXPECT_EQ(File(ChannelFile), Times(199, Blanks(15)) + "12    12 0     " + Times(50, Blanks(15)) + "behind");
}

struct Kanal_Offen : Kanal {};

TEST_F(Kanal_Offen, touches_nothing_but_the_flag) {
    File(ChannelFile) = " 5 7  9  0  1  ";
    EXPECT_TRUE(qvm::Kanal_Offen(kern, 1));
    EXPECT_EQ(File(ChannelFile), " 5 7  9  1  1  ");
}

TEST_F(Kanal_Offen, a_record_out_of_a_gap_is_blank_but_for_the_flag) {
    File(ChannelFile) = Nulls(15);
    EXPECT_TRUE(qvm::Kanal_Offen(kern, 1));
    EXPECT_EQ(File(ChannelFile), "         1     ");
}

TEST_F(Kanal_Offen, refuses_a_lock_that_does_not_exist) {
    EXPECT_FALSE(qvm::Kanal_Offen(kern, 0));
    EXPECT_FALSE(qvm::Kanal_Offen(kern, 201));
    EXPECT_FALSE(Has(ChannelFile));
}

// ---- after a search found the lock

struct Kanal_Gefunden : Kanal {};

TEST_F(Kanal_Gefunden, sets_the_channel_of_the_lock_and_whether_it_must_change) {
    File(ChannelFile) = "5  7  9  0  1  ";
    EXPECT_TRUE(qvm::Kanal_Gefunden(kern, 1, 12));
    EXPECT_EQ(File(ChannelFile), "12 7  9  1  1  ");
    EXPECT_TRUE(qvm::Kanal_Gefunden(kern, 1, 9));
    EXPECT_EQ(File(ChannelFile), "9  7  9  0  1  ");
}

TEST_F(Kanal_Gefunden, without_a_file_the_target_is_blank_and_a_change_pending) {
    EXPECT_TRUE(qvm::Kanal_Gefunden(kern, 1, 4));
    EXPECT_EQ(File(ChannelFile), "4        1     ");
}

TEST_F(Kanal_Gefunden, refuses_a_lock_or_channel_that_does_not_exist) {
    EXPECT_FALSE(qvm::Kanal_Gefunden(kern, 0, 4));
    EXPECT_FALSE(qvm::Kanal_Gefunden(kern, 201, 4));
    EXPECT_FALSE(qvm::Kanal_Gefunden(kern, 1, 0));
    EXPECT_FALSE(qvm::Kanal_Gefunden(kern, 1, 13));
    EXPECT_FALSE(Has(ChannelFile));
}

// ---- after an E-Key was learned

struct Key_Kanal_Bestaetigen : Kanal {};

TEST_F(Key_Kanal_Bestaetigen, takes_the_target_over_and_makes_the_key_black) {
    File(ChannelFile) = "5  7  9  1  1  ";
    table.FGK4.SetForeColor(2, 6, 0x0000FF);
    EXPECT_TRUE(qvm::Key_Kanal_Bestaetigen(kern, table.FGK4, 2));
    EXPECT_EQ(File(ChannelFile), "5  9  9  1  0  ");
    EXPECT_EQ(table.FGK4.At(2, 6).ForeColor, 0U);
}

TEST_F(Key_Kanal_Bestaetigen, the_last_user_has_record_250) {
    EXPECT_TRUE(qvm::Key_Kanal_Bestaetigen(kern, table.FGK4, 251));
    EXPECT_EQ(File(ChannelFile), Nulls(249 * 15) + "            0  ");
}

TEST_F(Key_Kanal_Bestaetigen, refuses_rows_that_are_no_users) {
    EXPECT_FALSE(qvm::Key_Kanal_Bestaetigen(kern, table.FGK4, 1));
    EXPECT_FALSE(qvm::Key_Kanal_Bestaetigen(kern, table.FGK4, 252));
    EXPECT_FALSE(Has(ChannelFile));
}

TEST_F(Key_Kanal_Bestaetigen, a_file_error_leaves_the_key_red) {
    File(ChannelFile) = "5  7  9  1  1  ";
    table.FGK4.SetForeColor(2, 6, 0x0000FF);
    Welt.Disk.FailAt = 2;
    EXPECT_FALSE(qvm::Key_Kanal_Bestaetigen(kern, table.FGK4, 2));
    EXPECT_EQ(table.FGK4.At(2, 6).ForeColor, 0x0000FFU);
    EXPECT_EQ(File(ChannelFile), "5  7  9  1  1  ");
}

// ---- an E-Key is cut and pasted

struct Key_Kanal_Einfuegen : Kanal {};

TEST_F(Key_Kanal_Einfuegen, takes_flag_and_target_of_the_row_that_the_key_comes_from) {
    File(ChannelFile) = "5  7  9  1  1  " + std::string("1  2  3  0  0  ");
    const auto cut = Key_Kanal_Lesen(kern, 2);
    EXPECT_EQ(cut, (KeyKanal{"1", "9"}));
    EXPECT_TRUE(qvm::Key_Kanal_Einfuegen(kern, table.FGK4, 3, cut.value()));
    EXPECT_EQ(File(ChannelFile), "5  7  9  1  1  " + std::string("1  9  3  0  1  "));
    EXPECT_EQ(table.FGK4.At(3, 6).ForeColor, 0x0000FFU);
}

TEST_F(Key_Kanal_Einfuegen, a_key_in_step_is_black_and_so_is_every_transponder) {
    table.FGK4.SetForeColor(2, 6, 0x0000FF);
    EXPECT_TRUE(qvm::Key_Kanal_Einfuegen(kern, table.FGK4, 2, {.Change = "0", .Target = "9"}));
    EXPECT_EQ(table.FGK4.At(2, 6).ForeColor, 0U);
    table.FGK4.SetForeColor(3, 6, 0x0000FF);
    table.FGK4.SetText(3, 6, "#3-ID#1:2");
    EXPECT_TRUE(qvm::Key_Kanal_Einfuegen(kern, table.FGK4, 3, {}));
    EXPECT_EQ(table.FGK4.At(3, 6).ForeColor, 0U);
    EXPECT_EQ(File(ChannelFile), "   9        0  " + Blanks(15));
}

TEST_F(Key_Kanal_Einfuegen, of_rows_that_are_no_users_and_of_no_file_nothing_is_known) {
    EXPECT_EQ(Key_Kanal_Lesen(kern, 2), KeyKanal{});
    EXPECT_EQ(Key_Kanal_Lesen(kern, 1), KeyKanal{});
    EXPECT_FALSE(qvm::Key_Kanal_Einfuegen(kern, table.FGK4, 1, {}));
    EXPECT_FALSE(qvm::Key_Kanal_Einfuegen(kern, table.FGK4, 252, {}));
    EXPECT_FALSE(Has(ChannelFile));
}

// ---- the system changes its channel

struct Kanal_Umstellen : Kanal {};

TEST_F(Kanal_Umstellen, a_fresh_file_has_201_records) {
    EXPECT_TRUE(qvm::Kanal_Umstellen(kern, 5));
    EXPECT_EQ(File(ChannelFile).size(), 3015U);
    EXPECT_EQ(File(ChannelFile), Times(201, "1  1  5  1  1  "));
}

TEST_F(Kanal_Umstellen, to_channel_1_leaves_nothing_pending_on_fresh_records) {
    EXPECT_TRUE(qvm::Kanal_Umstellen(kern, 1));
    EXPECT_EQ(File(ChannelFile), Times(201, "1  1  1  0  0  "));
}

TEST_F(Kanal_Umstellen, each_flag_tells_whether_its_own_channel_differs) {
    File(ChannelFile) = "12 3  1  0  0  "
                        "3  12 1  1  1  "
                        "   12 1  1  1  "
                        "12 12       1  ";
    EXPECT_TRUE(qvm::Kanal_Umstellen(kern, 12));
    EXPECT_EQ(File(ChannelFile).substr(0, 60), "12 3  12 0  1  "
                                               "3  12 12 1  0  "
                                               "1  12 12 1  0  "
                                               "12 12 12 0  0  ");
}

TEST_F(Kanal_Umstellen, further_records_up_to_250_are_written_when_the_file_holds_them) {
    File(ChannelFile) = Times(203, "2  2  2  0  0  ") + "7  8";
    EXPECT_TRUE(qvm::Kanal_Umstellen(kern, 2));
    EXPECT_EQ(File(ChannelFile), Times(203, "2  2  2  0  0  ") + "7  8  2  1  1  ");
}

TEST_F(Kanal_Umstellen, records_behind_250_stay) {
    File(ChannelFile) = Times(252, "1  1  1  0  0  ");
    EXPECT_TRUE(qvm::Kanal_Umstellen(kern, 2));
    EXPECT_EQ(File(ChannelFile), Times(250, "1  1  2  1  1  ") + Times(2, "1  1  1  0  0  "));
}

TEST_F(Kanal_Umstellen, refuses_a_channel_outside_1_to_12) {
    EXPECT_FALSE(qvm::Kanal_Umstellen(kern, 0));
    EXPECT_FALSE(qvm::Kanal_Umstellen(kern, 13));
    EXPECT_FALSE(Has(ChannelFile));
}

TEST_F(Key_Kanal_Einfuegen, nothing_is_known_of_a_file_that_cannot_be_read) {
    File(ChannelFile) = "5  7  9  1  1  ";
    Welt.Disk.Operations = 0;
    Welt.Disk.FailAt = 1;
    EXPECT_EQ(Key_Kanal_Lesen(kern, 2), std::nullopt);
}

// ---- failing files

struct KanalDateifehler : Kanal, testing::WithParamInterface<int> {
    static bool Run(int routine, const Kern& kern, Grid& grid) {
        switch (routine) {
        case 0:
            return qvm::Kanal_Ausgefuehrt(kern, 2);
        case 1:
            return qvm::Kanal_Offen(kern, 2);
        case 2:
            return qvm::Key_Kanal_Bestaetigen(kern, grid, 3);
        case 3:
            return qvm::Key_Kanal_Einfuegen(kern, grid, 3, {.Change = "1", .Target = "12"});
        default:
            return qvm::Kanal_Umstellen(kern, 4);
        }
    }
};

TEST_P(KanalDateifehler, each_operation_that_fails_leaves_the_old_file) {
    const std::string old = Times(2, "5  7  9  0  1  ");
    int failing = 1;
    for (; failing < 20; ++failing) {
        File(ChannelFile) = old;
        Welt.Disk.Operations = 0;
        Welt.Disk.FailAt = failing;
        Welt.Disk.FailFromThere = true;
        if (Run(GetParam(), kern, table.FGK4)) {
            break;
        }
        EXPECT_EQ(File(ChannelFile), old) << "operation " << failing;
    }
    EXPECT_EQ(failing, 3); // one read, one write
    EXPECT_NE(File(ChannelFile), old);
}

INSTANTIATE_TEST_SUITE_P(EachWriter, KanalDateifehler, testing::Values(0, 1, 2, 3, 4));

} // namespace
} // namespace qvm
