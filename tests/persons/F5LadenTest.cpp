#include "PersonsFixture.h"
#include "Text.h"

namespace qvm {
namespace {

using test::Blanks;
using test::Dashes;
using test::Nulls;
using test::PlainUser;

struct F5_Laden : test::Persons {};

/// User 1 with every field filled: marks "X" at lock 1, "F" at lock 2, "X" at lock 200.
std::string FullUser() {
    return "Anna Berg" + Nulls(7) +          // UserName
           "PB_2008TimB" + Blanks(4) +       // UserGroupId
           "1/2 " +                          // UserRight
           "1A3B56" + Blanks(4) +            // UserCode
           "Slot_Nr: 007" + Nulls(4) +       // KeyLabel
           "12 : 34 : 56 : 78" + Nulls(24) + // KeyId
           "1 : 2 : 3" + Nulls(84) +         // KeyData
           "FS" +                            // FingerFlag
           "PR812345678" + Nulls(9) + " " +  // FingerId
           "XF" + Dashes(197) + "X" + " ";   // LockMask
}

TEST_F(F5_Laden, fills_every_column_of_a_user) {
    NameLock(1, "Eingang");
    NameLock(2, "Keller");
    NameLock(200, "Tor");
    File(UserFile) = FullUser();
    ASSERT_EQ(File(UserFile).size(), 419U);

    EXPECT_TRUE(F5_TabelleLaden(kern, table));

    EXPECT_EQ(table.FGK4.Text(2, 1), "Anna Berg");
    EXPECT_EQ(table.FGK4.Text(2, 2), "Timer-B");
    EXPECT_EQ(table.FGK4.Text(2, 3), "1/2");
    EXPECT_EQ(table.FGK4.Text(2, 4), "1A3B56");
    EXPECT_EQ(table.FGK4.Text(2, 5), "Slot_Nr: 007");
    EXPECT_EQ(table.FGK4.Text(2, 6), "12 : 34 : 56 : 78");
    EXPECT_EQ(table.FGK4.Text(2, 7), "");
    EXPECT_EQ(table.FGK4.At(2, 7).Picture, FingerPicture::Premium);
    EXPECT_EQ(table.FGK4.Text(2, 208), "1 : 2 : 3");
    EXPECT_EQ(table.FGK4.Text(2, 209), "PR812345678");
    EXPECT_FALSE(table.UserDirty);
}

TEST_F(F5_Laden, shows_marks_in_their_colours_and_sizes) {
    NameLock(1, "Eingang");
    NameLock(2, "Keller");
    NameLock(3, "Hof");
    NameLock(200, "Tor");
    File(UserFile) = FullUser();

    F5_TabelleLaden(kern, table);

    const Cell& access = table.FGK4.At(2, 8);
    EXPECT_EQ(access.Text, "X");
    EXPECT_EQ(access.ForeColor, 0xC000U);
    EXPECT_EQ(access.FontSize, 16);
    const Cell& finger = table.FGK4.At(2, 9);
    EXPECT_EQ(finger.Text, "F");
    EXPECT_EQ(finger.ForeColor, 0x808080U);
    EXPECT_EQ(finger.FontSize, 16);
    const Cell& none = table.FGK4.At(2, 10);
    EXPECT_EQ(none.Text, "");
    EXPECT_EQ(none.ForeColor, 0xFFFFFFU);
    EXPECT_EQ(none.FontSize, 8);
    EXPECT_EQ(table.FGK4.Text(2, 207), "X");
    EXPECT_EQ(table.FGK4.Text(2, 208), "1 : 2 : 3");
}

TEST_F(F5_Laden, a_missing_file_leaves_the_grid_empty) {
    EXPECT_TRUE(F5_TabelleLaden(kern, table));
    for (int row = 2; row <= 251; ++row) {
        EXPECT_EQ(table.FGK4.Text(row, 1), "");
        EXPECT_EQ(table.FGK4.Text(row, 2), "");
    }
    EXPECT_FALSE(table.LoadFailed);
}

TEST_F(F5_Laden, an_empty_file_is_250_rows_without_a_name) {
    File(UserFile) = "";
    EXPECT_TRUE(F5_TabelleLaden(kern, table));
    EXPECT_EQ(table.FGK4.Text(2, 1), "");
    EXPECT_EQ(table.FGK4.Text(2, 2), "-");
    EXPECT_EQ(table.FGK4.Text(251, 2), "-");
}

TEST_F(F5_Laden, a_partial_last_record_counts_as_far_as_it_goes) {
    NameLock(1, "Eingang");
    File(UserFile) = PlainUser("Anna", "X") + PlainUser("Bert", "X").substr(0, 16 + 15 + 4 + 3);
    File(UserFile).replace(419 + 35, 3, "123"); // three of the code's characters are there

    EXPECT_TRUE(F5_TabelleLaden(kern, table));

    EXPECT_EQ(table.FGK4.Text(2, 8), "X");
    EXPECT_EQ(table.FGK4.Text(3, 1), "Bert");
    EXPECT_EQ(table.FGK4.Text(3, 4), "123");
    EXPECT_EQ(table.FGK4.Text(3, 8), "");
    EXPECT_EQ(table.FGK4.Text(4, 1), "");
}

TEST_F(F5_Laden, an_over_long_file_fills_250_rows_and_no_more) {
    for (int user = 1; user <= 251; ++user) {
        File(UserFile) += PlainUser("U" + Ziffern(user), "");
    }
    EXPECT_TRUE(F5_TabelleLaden(kern, table));
    EXPECT_EQ(table.FGK4.Text(2, 1), "U1");
    EXPECT_EQ(table.FGK4.Text(251, 1), "U250");
}

TEST_F(F5_Laden, a_damaged_file_marks_nothing_but_x_and_f) {
    NameLock(1, "Eingang");
    File(UserFile) = std::string(419, '\xFF') + std::string(419, '\x01');
    EXPECT_TRUE(F5_TabelleLaden(kern, table));
    EXPECT_EQ(table.FGK4.Text(2, 1), std::string(16, '\xFF'));
    EXPECT_EQ(table.FGK4.Text(2, 2), "-");
    EXPECT_EQ(table.FGK4.Text(2, 8), "");
    EXPECT_EQ(table.FGK4.At(2, 7).Picture, FingerPicture::None);
}

TEST_F(F5_Laden, a_mark_for_a_lock_without_a_name_is_dropped) {
    NameLock(1, "Eingang");
    File(UserFile) = PlainUser("Anna", "XXF");
    F5_TabelleLaden(kern, table);
    EXPECT_EQ(table.FGK4.Text(2, 8), "X");
    EXPECT_EQ(table.FGK4.Text(2, 9), "");
    EXPECT_EQ(table.FGK4.At(2, 9).ForeColor, 0xFFFFFFU);
    EXPECT_EQ(table.FGK4.Text(2, 10), "");
}

TEST_F(F5_Laden, a_blank_at_the_front_of_the_mask_is_the_place_of_lock_1) {
    NameLock(1, "Eingang");
    NameLock(2, "Keller");
    File(UserFile) = PlainUser("Anna", " X");
    F5_TabelleLaden(kern, table);
    EXPECT_EQ(table.FGK4.Text(2, 8), "");
    EXPECT_EQ(table.FGK4.Text(2, 9), "X");
}

TEST_F(F5_Laden, a_group_that_is_no_longer_there_shows_a_dash) {
    File(UserFile) = PlainUser("Anna", "");
    File(UserFile).replace(16, 10, "PB_0000099");
    F5_TabelleLaden(kern, table);
    EXPECT_EQ(table.FGK4.Text(2, 2), "-");
}

TEST_F(F5_Laden, a_blank_group_identifier_does_not_match_an_unused_group) {
    File(UserFile) = PlainUser("Anna", "");
    File(UserFile).replace(16, 1, " ");
    F5_TabelleLaden(kern, table);
    EXPECT_EQ(table.FGK4.Text(2, 2), "-");
}

TEST_F(F5_Laden, looks_through_eight_groups) {
    table.GroupTablePerson[8] = {"8", "Achte", "", "", "PB_0000008"};
    File(UserFile) = PlainUser("Anna", "");
    File(UserFile).replace(16, 10, "PB_0000008");
    F5_TabelleLaden(kern, table);
    EXPECT_EQ(table.FGK4.Text(2, 2), "Achte");
}

TEST_F(F5_Laden, a_field_stops_at_its_first_null) {
    File(UserFile) = PlainUser("Anna", "");
    File(UserFile).replace(0, 10, std::string("An\0na Berg", 10));
    F5_TabelleLaden(kern, table);
    EXPECT_EQ(table.FGK4.Text(2, 1), "An");
}

TEST_F(F5_Laden, a_file_error_leaves_the_rows_as_they_were_and_marks_the_table) {
    File(UserFile) = PlainUser("Anna", "");
    table.FGK4.SetText(2, 1, "vorher");
    Welt.Disk.FailAt = 2; // lock names first, then users

    EXPECT_FALSE(F5_TabelleLaden(kern, table));

    EXPECT_EQ(table.FGK4.Text(2, 1), "vorher");
    EXPECT_TRUE(table.LoadFailed);
    EXPECT_TRUE(Welt.Shown.empty());
}

struct FingerCase {
    const char* Flag;
    const char* Name;
    const char* FingerId;
    int Picture;
};

void PrintTo(const FingerCase& c, std::ostream* out) {
    *out << "flag '" << c.Flag << "', name '" << c.Name << "', finger '" << c.FingerId << "'";
}

struct FingerPictureAtLoad : test::Persons, testing::WithParamInterface<FingerCase> {};

TEST_P(FingerPictureAtLoad, follows_flag_name_and_identifier) {
    constexpr int Before = 999;
    table.FGK4.SetPicture(2, 7, Before);
    const FingerCase& c = GetParam();
    File(UserFile) = PlainUser(c.Name, "");
    File(UserFile).replace(195, 2, c.Flag);
    File(UserFile).replace(197, std::string(c.FingerId).size(), c.FingerId);
    F5_TabelleLaden(kern, table);
    EXPECT_EQ(table.FGK4.At(2, 7).Picture, c.Picture);
}

INSTANTIATE_TEST_SUITE_P(Flags, FingerPictureAtLoad,
                         testing::Values(FingerCase{"FS", "Anna", "PR81", FingerPicture::Premium},
                                         FingerCase{"FS", "Anna", "81", FingerPicture::Standard},
                                         FingerCase{"FS", "Anna", "", FingerPicture::None},
                                         FingerCase{"NO", "Anna", "81", FingerPicture::Off},
                                         FingerCase{"NO", "Anna", "PR81", FingerPicture::Off},
                                         FingerCase{"NO", "Anna", "", FingerPicture::None},
                                         FingerCase{"--", "Anna", "81", FingerPicture::None},
                                         FingerCase{"XY", "Anna", "81", FingerPicture::None},
                                         FingerCase{"FS", "", "81", 999}, FingerCase{"--", "", "", 999}));

struct F5_SchloesserLaden : test::Persons {};

TEST_F(F5_SchloesserLaden, writes_names_upright_one_character_a_line) {
    NameLock(1, "Tor 1");
    NameLock(2, u8"Tür"_w);
    EXPECT_TRUE(qvm::F5_SchloesserLaden(kern, table));
    EXPECT_EQ(table.FGK4.Text(0, 8), "T\no\nr\n\n\n1");
    EXPECT_EQ(table.FGK4.Text(0, 9), "T\n\xFC\nr");
    EXPECT_EQ(table.FGK4.At(0, 8).ForeColor, 0xC00000U);
    EXPECT_EQ(table.FGK4.At(0, 8).FontSize, 8);
    EXPECT_EQ(table.FGK4.Text(0, 10), "");
    EXPECT_EQ(table.FGK4.Text(0, 7), "");
}

TEST_F(F5_SchloesserLaden, the_head_row_grows_with_the_longest_name) {
    NameLock(1, "Eingang");
    qvm::F5_SchloesserLaden(kern, table);
    EXPECT_EQ(table.LongestLockName, 7);
    EXPECT_EQ(F5_KopfHoehe(table), 2000);
    NameLock(200, "Hauptportal Nordost");
    qvm::F5_SchloesserLaden(kern, table);
    EXPECT_EQ(table.LongestLockName, 19);
    EXPECT_EQ(F5_KopfHoehe(table), 3800);
}

TEST_F(F5_SchloesserLaden, a_lock_that_lost_its_name_loses_its_head_cell) {
    NameLock(1, "Tor");
    qvm::F5_SchloesserLaden(kern, table);
    Welt.Disk.Files.erase(LockFile);
    EXPECT_TRUE(qvm::F5_SchloesserLaden(kern, table));
    EXPECT_EQ(table.FGK4.Text(0, 8), "");
    EXPECT_EQ(table.LongestLockName, 0);
}

TEST_F(F5_SchloesserLaden, takes_no_more_than_200_locks) {
    NameLock(200, "Letzte");
    NameLock(201, "Zuviel");
    qvm::F5_SchloesserLaden(kern, table);
    EXPECT_EQ(table.FGK4.Text(0, 207), "L\ne\nt\nz\nt\ne");
    EXPECT_EQ(table.FGK4.Text(0, 208), "");
}

TEST_F(F5_SchloesserLaden, a_file_error_keeps_the_names_and_marks_the_table) {
    NameLock(1, "Tor");
    qvm::F5_SchloesserLaden(kern, table);
    Welt.Disk.FailAt = Welt.Disk.Operations + 1;
    EXPECT_FALSE(qvm::F5_SchloesserLaden(kern, table));
    EXPECT_EQ(table.FGK4.Text(0, 8), "T\no\nr");
    EXPECT_TRUE(table.LoadFailed);
}

} // namespace
} // namespace qvm
