#include "PersonsFixture.h"
#include "Text.h"

namespace qvm {
namespace {

using test::Blanks;
using test::Dashes;
using test::Nulls;
using test::PlainUser;

struct F5_Speichern : test::Persons {
    void Mark(int row, int column, const char* text, Colour colour) {
        table.FGK4.SetText(row, column, text);
        table.FGK4.SetForeColor(row, column, colour);
    }
};

TEST_F(F5_Speichern, the_record_of_a_full_row_byte_for_byte) {
    Grid& grid = table.FGK4;
    grid.SetText(2, 1, u8"Jörg Weiß"_w);
    grid.SetText(2, 2, "Timer-A");
    grid.SetText(2, 3, "ADMI");
    grid.SetText(2, 4, "1A3B56");
    grid.SetText(2, 5, "Bund 7");
    grid.SetText(2, 6, "12 : 34 : 56 : 78");
    grid.SetPicture(2, 7, FingerPicture::Standard);
    grid.SetText(2, 208, "1 : 2 : 3 : 4 : 5 : 6 : 7 : 8 : 9 : 10 : 11 : 12 : 13 : 14 : 15 : 16");
    grid.SetText(2, 209, "826543210");
    Mark(2, 8, "X", 0xC000);
    Mark(2, 10, "F", 0x808080);
    Mark(2, 11, "F", 0xC000); // not the colour of an "F": no mark
    Mark(2, 207, "X", 0xC000);

    ASSERT_TRUE(qvm::F5_Speichern(kern, table));

    const std::string expected = "J\xF6rg Wei\xDF" + Nulls(7) +      //   0 UserName
                                 "PB_2008TimA" + Blanks(4) +         //  16 UserGroupId
                                 "ADMI" +                            //  31 UserRight
                                 "1A3B56" + Blanks(4) +              //  35 UserCode
                                 "Bund 7" + Nulls(10) +              //  45 KeyLabel
                                 "12 : 34 : 56 : 78" + Nulls(24) +   //  61 KeyId
                                 "1 : 2 : 3 : 4 : 5 : 6 : 7 : 8 : 9" // 102 KeyData
                                 " : 10 : 11 : 12 : 13 : 14 : 15 : 16" +
                                 Nulls(25) + "FS" +               // 195 FingerFlag
                                 "826543210" + Nulls(11) + " " +  // 197 FingerId
                                 "X-F" + Dashes(196) + "X" + " "; // 218 LockMask
    ASSERT_EQ(expected.size(), 419U);
    EXPECT_EQ(File(UserFile).substr(0, 419), expected);
}

TEST_F(F5_Speichern, the_record_of_an_empty_row_byte_for_byte) {
    ASSERT_TRUE(qvm::F5_Speichern(kern, table));
    const std::string expected = Blanks(16) + "-" + Blanks(14) + Blanks(4) + Blanks(10) + Blanks(16) + Blanks(41) +
                                 Blanks(93) + "--" + Blanks(21) + Dashes(200) + " ";
    ASSERT_EQ(expected.size(), 419U);
    EXPECT_EQ(File(UserFile).substr(419 * 249), expected);
}

TEST_F(F5_Speichern, the_first_save_makes_a_file_of_250_records) {
    table.UserDirty = true;
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(File(UserFile).size(), 104750U);
    EXPECT_FALSE(table.UserDirty);
}

TEST_F(F5_Speichern, what_lies_behind_record_250_stays) {
    File(UserFile) = std::string(419 * 250, '?') + "a record 251 that somebody left";
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(File(UserFile).substr(104750), "a record 251 that somebody left");
    EXPECT_EQ(File(UserFile).find('?'), std::string::npos);
}

TEST_F(F5_Speichern, user_250_stands_in_record_250) {
    for (int row = 2; row <= 251; ++row) {
        table.FGK4.SetText(row, 1, "N" + Ziffern(row - 1));
    }
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(250, 0, 16), "N250" + Nulls(12));
}

TEST_F(F5_Speichern, a_name_of_exactly_16_characters_has_no_pad) {
    table.FGK4.SetText(2, 1, "Sechzehn Zeichen");
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(1, 0, 17), "Sechzehn Zeichen-");
}

TEST_F(F5_Speichern, texts_are_cut_at_the_width_of_their_field) {
    table.FGK4.SetText(2, 1, "Siebzehn Zeichen!");
    table.FGK4.SetText(2, 6, "#1-ID#111:112:113:114:115:116:117:118:119:120");
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(1, 0, 16), "Siebzehn Zeichen");
    EXPECT_EQ(FileField(1, 61, 41), "#1-ID#111:112:113:114:115:116:117:118:119");
    EXPECT_EQ(FileField(1, 102, 1), " ");
}

TEST_F(F5_Speichern, an_unknown_right_stays_in_the_field) {
    File(UserFile) = PlainUser("Anna", "");
    File(UserFile).replace(31, 2, "7x");
    F5_TabelleLaden(kern, table);
    EXPECT_EQ(table.FGK4.Text(2, 3), "7x");
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(1, 31, 4), "7x  ");
}

TEST_F(F5_Speichern, a_mark_for_a_lock_without_a_name_is_gone_after_load_and_save) {
    NameLock(1, "Eingang");
    File(UserFile) = PlainUser("Anna", "XX");
    F5_TabelleLaden(kern, table);
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(1, 218, 4), "X---");
}

TEST_F(F5_Speichern, a_group_that_is_no_longer_there_is_saved_as_a_dash) {
    File(UserFile) = PlainUser("Anna", "");
    File(UserFile).replace(16, 10, "PB_0000099");
    F5_TabelleLaden(kern, table);
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(1, 16, 15), "-" + Blanks(14));
}

TEST_F(F5_Speichern, an_empty_group_cell_does_not_match_an_unused_group) {
    table.GroupTablePerson[4] = {"4", "", "", "", "PB_UNUSED"};
    table.FGK4.SetText(2, 1, "Anna");
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(1, 16, 15), "-" + Blanks(14));
}

TEST_F(F5_Speichern, looks_through_seven_groups_only) {
    table.GroupTablePerson[7] = {"7", "Siebte", "", "", "PB_0000007"};
    table.GroupTablePerson[8] = {"8", "Achte", "", "", "PB_0000008"};
    table.FGK4.SetText(2, 1, "Anna");
    table.FGK4.SetText(2, 2, " Siebte");
    table.FGK4.SetText(3, 1, "Bert");
    table.FGK4.SetText(3, 2, "Achte");
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(1, 16, 15), "PB_0000007" + Blanks(5));
    EXPECT_EQ(FileField(2, 16, 15), "-" + Blanks(14));
}

TEST_F(F5_Speichern, the_finger_flag_follows_the_picture) {
    table.FGK4.SetPicture(2, 7, FingerPicture::Off);
    table.FGK4.SetPicture(3, 7, FingerPicture::Premium);
    table.FGK4.SetPicture(4, 7, FingerPicture::Standard);
    table.FGK4.SetPicture(5, 7, FingerPicture::None);
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(1, 195, 2), "NO");
    EXPECT_EQ(FileField(2, 195, 2), "FS");
    EXPECT_EQ(FileField(3, 195, 2), "FS");
    EXPECT_EQ(FileField(4, 195, 2), "--");
    EXPECT_EQ(FileField(5, 195, 2), "--");
}

TEST_F(F5_Speichern, a_text_that_is_no_mark_does_not_shift_the_mask) {
    Mark(2, 8, "XX", 0xC000);
    Mark(2, 9, " ", 0x808080);
    Mark(2, 10, " X ", 0xC000);
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
    EXPECT_EQ(FileField(1, 218, 201), "--X" + Dashes(197) + " ");
}

TEST_F(F5_Speichern, a_table_that_was_not_loaded_completely_is_not_saved) {
    File(UserFile) = PlainUser("Anna", "X");
    Welt.Disk.FailAt = 1; // the lock names
    F5_TabelleLaden(kern, table);
    Welt.Disk.FailAt = 0;
    table.UserDirty = true;

    EXPECT_FALSE(qvm::F5_Speichern(kern, table));

    EXPECT_EQ(File(UserFile), PlainUser("Anna", "X"));
    EXPECT_TRUE(table.UserDirty);
    EXPECT_TRUE(F5_TabelleLaden(kern, table));
    EXPECT_TRUE(qvm::F5_Speichern(kern, table));
}

TEST_F(F5_Speichern, each_file_operation_that_fails_leaves_the_old_file_and_the_dirty_flag) {
    const std::string old = PlainUser("Anna", "X");
    bool saved = false;
    int failing = 0;
    while (!saved && failing < 20) {
        ++failing;
        File(UserFile) = old;
        table.FGK4.SetText(2, 1, "Bert");
        table.UserDirty = true;
        Welt.Disk.Operations = 0;
        Welt.Disk.FailAt = failing;
        Welt.Disk.FailFromThere = true;
        saved = qvm::F5_Speichern(kern, table);
        if (!saved) {
            EXPECT_EQ(File(UserFile), old) << "operation " << failing;
            EXPECT_TRUE(table.UserDirty);
        }
    }
    EXPECT_EQ(failing, 3); // it reads and replaces, so that the third operation is one of nobody
    EXPECT_EQ(FileField(1, 0, 16), "Bert" + Nulls(12));
    EXPECT_FALSE(table.UserDirty);
    EXPECT_TRUE(Welt.Shown.empty());
}

struct F5_Pruefen : F5_Speichern {
    F5_Pruefen() {
        kern.Sprache.LanguageText[163] = "Nicht moeglich";
        kern.Sprache.LanguageText[141] = "Unvollstaendig";
        kern.Sprache.LanguageText[54] = "Name";
        kern.Sprache.LanguageText[162] = "Benutzer Nr.";
    }
    void Expect(const char* text) { Welt.Answers.push_back({text, Answer::Ok, 0}); }
};

TEST_F(F5_Pruefen, a_gap_refuses_the_save_and_leaves_the_file_as_it_was) {
    File(UserFile) = PlainUser("Alt", "");
    table.FGK4.SetText(2, 1, "Anna");
    table.FGK4.SetText(4, 1, "Carla");
    table.UserDirty = true;
    Expect("Nicht moeglich\nUnvollstaendig\n [Name - Benutzer Nr. 2]");

    EXPECT_FALSE(qvm::F5_Speichern(kern, table));

    EXPECT_EQ(File(UserFile), PlainUser("Alt", ""));
    EXPECT_TRUE(table.UserDirty);
    ASSERT_EQ(Welt.Shown.size(), 1U);
    EXPECT_EQ(Welt.Shown[0].Title, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(Welt.Shown[0].Sign, Icon::Exclamation);
    EXPECT_EQ(Welt.Shown[0].Choice, Buttons::Ok);
}

TEST_F(F5_Pruefen, a_key_without_a_name_refuses_the_save) {
    table.FGK4.SetText(2, 1, "Anna");
    table.FGK4.SetText(3, 6, "1 : 2 : 3 : 4");
    Expect("Nicht moeglich\nUnvollstaendig\n [Name - Benutzer Nr. 2]");
    EXPECT_FALSE(qvm::F5_Speichern(kern, table));
    EXPECT_FALSE(Has(UserFile));
}

TEST_F(F5_Pruefen, shows_the_first_fault_only) {
    table.FGK4.SetText(3, 1, "Bert");
    table.FGK4.SetText(6, 1, "Emil");
    Expect("Nicht moeglich\nUnvollstaendig\n [Name - Benutzer Nr. 1]");
    EXPECT_FALSE(qvm::F5_Pruefen(kern, table));
}

TEST_F(F5_Pruefen, a_name_of_blanks_is_a_gap) {
    table.FGK4.SetText(2, 1, "  ");
    table.FGK4.SetText(3, 1, "Bert");
    Expect("*");
    EXPECT_FALSE(qvm::F5_Pruefen(kern, table));
}

TEST_F(F5_Pruefen, the_gap_above_the_last_row_is_seen) {
    for (int row = 2; row <= 249; ++row) {
        table.FGK4.SetText(row, 1, "A");
    }
    table.FGK4.SetText(251, 1, "Z");
    Expect("Nicht moeglich\nUnvollstaendig\n [Name - Benutzer Nr. 249]");
    EXPECT_FALSE(qvm::F5_Pruefen(kern, table));
}

TEST_F(F5_Pruefen, the_last_row_is_not_tested_for_a_key_without_a_name) {
    table.FGK4.SetText(251, 6, "1 : 2 : 3 : 4");
    EXPECT_TRUE(qvm::F5_Pruefen(kern, table));
}

TEST_F(F5_Pruefen, a_table_without_gaps_passes) {
    EXPECT_TRUE(qvm::F5_Pruefen(kern, table));
    table.FGK4.SetText(2, 1, "Anna");
    table.FGK4.SetText(3, 1, "Bert");
    EXPECT_TRUE(qvm::F5_Pruefen(kern, table));
}

} // namespace
} // namespace qvm
