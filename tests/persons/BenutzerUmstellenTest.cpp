#include "Benutzer_Umstellen.h"
#include "PersonsFixture.h"

namespace qvm {
namespace {

using test::Blanks;
using test::Dashes;
using test::Nulls;

struct Benutzer_Umstellen : test::Persons {
    static constexpr const char* OldestFile = "/qvm/DAT/BX10Y48WUI8.UBW";
    static constexpr const char* MiddleFile = "/qvm/DAT/BX08HAZJNT9.UBW";

    Benutzer_Umstellen() { kern.Sprache.LanguageText[182] = "Umgewandelt"; }
    void Expect(const char* text) { Welt.Answers.push_back({text, Answer::Ok, 0}); }

    /// 276 bytes: name, group, right, code, label, key, key data, marks of 101 locks.
    static std::string Middle(const std::string& name) {
        return name + Nulls(16 - name.size()) + "PB_2008TimB" + Blanks(4) + "1/2 " + "123456" + Blanks(4) + "Bund 7" +
               Nulls(10) + "12 : 34 : 56 : 78" + Nulls(4) + "1 : 2 : 3" + Nulls(84) + "XF" + Dashes(98) + "X";
    }
    /// 262 bytes: name, the character that is dropped, right, code, label, key, key data, marks of 101 locks.
    static std::string Oldest(const std::string& name) {
        return name + Nulls(16 - name.size()) + "?" + "1/2 " + "123456" + Blanks(4) + "Bund 7" + Nulls(10) +
               "12 : 34 : 56 : 78" + Nulls(4) + "1 : 2 : 3" + Nulls(84) + "XF" + Dashes(98) + "X";
    }
    static std::string BlankRecord() { return Blanks(419); }
};

TEST_F(Benutzer_Umstellen, nothing_to_convert_shows_and_writes_nothing) {
    EXPECT_TRUE(qvm::Benutzer_Umstellen(kern));
    EXPECT_TRUE(Welt.Disk.Files.empty());
    EXPECT_TRUE(Welt.Shown.empty());
}

TEST_F(Benutzer_Umstellen, the_middle_form_goes_over_field_by_field) {
    File(MiddleFile) = Middle("Anna Berg");
    ASSERT_EQ(File(MiddleFile).size(), 276U);
    Expect("Umgewandelt / Stp_02");

    EXPECT_TRUE(qvm::Benutzer_Umstellen(kern));

    const std::string expected = "Anna Berg" + Nulls(7) +               // UserName
                                 "PB_2008TimB" + Blanks(4) +            // UserGroupId
                                 "1/2 " +                               // UserRight
                                 "123456" + Blanks(4) +                 // UserCode
                                 "Bund 7" + Nulls(10) +                 // KeyLabel
                                 "12 : 34 : 56 : 78" + Nulls(24) +      // KeyId, 21 characters into 41
                                 "1 : 2 : 3" + Nulls(84) +              // KeyData
                                 "  " + Blanks(21) +                    // FingerFlag, FingerId
                                 "XF" + Dashes(98) + "X" + Blanks(100); // LockMask, 101 characters into 201
    ASSERT_EQ(expected.size(), 419U);
    EXPECT_EQ(File(UserFile).substr(0, 419), expected);
    EXPECT_EQ(File(UserFile).size(), 105169U); // 251 records
    EXPECT_EQ(File(UserFile).substr(419, 419), BlankRecord());
    EXPECT_EQ(File(UserFile).substr(419 * 250), BlankRecord());
    EXPECT_FALSE(Has(MiddleFile));
    ASSERT_EQ(Welt.Shown.size(), 1U);
    EXPECT_EQ(Welt.Shown[0].Sign, Icon::Information);
    EXPECT_EQ(Welt.Shown[0].Choice, Buttons::Ok);
    EXPECT_EQ(Welt.Shown[0].Title, "QVM 7702 SOFTWARE SYSTEM");
}

TEST_F(Benutzer_Umstellen, all_251_records_of_the_middle_form_go_over_and_a_252nd_does_not) {
    for (int n = 1; n <= 252; ++n) {
        File(MiddleFile) += Middle("U" + std::to_string(n));
    }
    Expect("*");
    EXPECT_TRUE(qvm::Benutzer_Umstellen(kern));
    EXPECT_EQ(File(UserFile).size(), 105169U);
    EXPECT_EQ(FileField(250, 0, 5), "U250" + Nulls(1));
    EXPECT_EQ(FileField(251, 0, 5), "U251" + Nulls(1));
}

TEST_F(Benutzer_Umstellen, a_partial_last_record_goes_over_as_far_as_it_goes) {
    File(MiddleFile) = Middle("Anna") + Middle("Bert").substr(0, 35 + 3);
    Expect("*");
    EXPECT_TRUE(qvm::Benutzer_Umstellen(kern));
    EXPECT_EQ(FileField(2, 0, 419),
              "Bert" + Nulls(12) + "PB_2008TimB" + Blanks(4) + "1/2 " + "123" + Blanks(7) + Blanks(374));
}

TEST_F(Benutzer_Umstellen, an_empty_source_becomes_blank_records) {
    File(MiddleFile) = "";
    Expect("*");
    EXPECT_TRUE(qvm::Benutzer_Umstellen(kern));
    EXPECT_EQ(File(UserFile), Blanks(105169));
}

TEST_F(Benutzer_Umstellen, an_existing_target_is_overwritten_and_keeps_what_lies_behind) {
    File(MiddleFile) = Middle("Anna");
    File(UserFile) = std::string(105169, '?') + "behind";
    Expect("*");
    EXPECT_TRUE(qvm::Benutzer_Umstellen(kern));
    EXPECT_EQ(File(UserFile).find('?'), std::string::npos);
    EXPECT_EQ(File(UserFile).substr(105169), "behind");
}

TEST_F(Benutzer_Umstellen, the_converted_table_loads) {
    NameLock(1, "Eingang");
    NameLock(101, "Tor");
    NameLock(102, "Hof");
    File(MiddleFile) = Middle("Anna Berg");
    Expect("*");
    qvm::Benutzer_Umstellen(kern);
    F5_TabelleLaden(kern, table);
    EXPECT_EQ(table.FGK4.Text(2, 1), "Anna Berg");
    EXPECT_EQ(table.FGK4.Text(2, 2), "Timer-B");
    EXPECT_EQ(table.FGK4.Text(2, 6), "12 : 34 : 56 : 78");
    EXPECT_EQ(table.FGK4.Text(2, 8), "X");
    EXPECT_EQ(table.FGK4.Text(2, 108), "X");
    EXPECT_EQ(table.FGK4.Text(2, 109), "");
}

// The first step writes records of 419 bytes, the second reads records of 276: what stands from byte 276 on of the
// first record is read as the second one, and so on.
TEST_F(Benutzer_Umstellen, the_oldest_form_comes_out_of_the_chain_displaced) {
    File(OldestFile) = Oldest("Anna Berg") + Oldest("Bert");
    ASSERT_EQ(File(OldestFile).size(), 524U);
    Expect("Umgewandelt / Stp_01");
    Expect("Umgewandelt / Stp_02");

    EXPECT_TRUE(qvm::Benutzer_Umstellen(kern));

    EXPECT_FALSE(Has(OldestFile));
    EXPECT_FALSE(Has(MiddleFile));
    // Record 1 keeps all up to its key; the group is blank.
    EXPECT_EQ(FileField(1, 0, 16), "Anna Berg" + Nulls(7));
    EXPECT_EQ(FileField(1, 16, 15), Blanks(15));
    EXPECT_EQ(FileField(1, 31, 14), "1/2 123456" + Blanks(4));
    EXPECT_EQ(FileField(1, 61, 41), "12 : 34 : 56 : 78" + Nulls(24));
    // Its key data begin with the rest of the longer key field (20 x 0x00), its marks with the rest of the key data.
    EXPECT_EQ(FileField(1, 102, 93), Nulls(20) + "1 : 2 : 3" + Nulls(64));
    EXPECT_EQ(FileField(1, 218, 201), Nulls(20) + Blanks(23) + "XF" + Dashes(56) + Blanks(100));
    // Record 2 begins at byte 276 of the first: its name is the marks of the locks 59 to 74.
    EXPECT_EQ(FileField(2, 0, 16), Dashes(16));
}

TEST_F(Benutzer_Umstellen, the_first_step_overwrites_a_file_of_the_middle_form) {
    File(OldestFile) = Oldest("Anna");
    File(MiddleFile) = Middle("Otto");
    Expect("Umgewandelt / Stp_01");
    Expect("Umgewandelt / Stp_02");
    EXPECT_TRUE(qvm::Benutzer_Umstellen(kern));
    EXPECT_EQ(FileField(1, 0, 4), "Anna");
    EXPECT_EQ(File(UserFile).find("Otto"), std::string::npos);
}

TEST_F(Benutzer_Umstellen, each_operation_that_fails_once_leaves_source_and_target_as_they_were) {
    const std::string source = Middle("Anna");
    const std::string target = std::string(419, '?');
    int failing = 1;
    for (; failing < 20; ++failing) {
        File(MiddleFile) = source;
        File(UserFile) = target;
        Welt.Disk.Operations = 0;
        Welt.Disk.FailAt = failing;
        if (failing == 5) { // read, read, replace, remove: the fifth is one of nobody
            Expect("*");
        }
        if (qvm::Benutzer_Umstellen(kern)) {
            break;
        }
        EXPECT_EQ(File(MiddleFile), source) << "operation " << failing;
        EXPECT_EQ(File(UserFile), target) << "operation " << failing;
    }
    EXPECT_EQ(failing, 5);
    EXPECT_FALSE(Has(MiddleFile));
}

TEST_F(Benutzer_Umstellen, a_source_that_cannot_be_deleted_takes_a_fresh_target_back) {
    File(MiddleFile) = Middle("Anna");
    Welt.Disk.FailAt = 4;
    EXPECT_FALSE(qvm::Benutzer_Umstellen(kern));
    EXPECT_TRUE(Has(MiddleFile));
    EXPECT_FALSE(Has(UserFile));
}

TEST_F(Benutzer_Umstellen, a_disk_that_fails_for_good_never_loses_the_source) {
    for (int failing = 1; failing <= 4; ++failing) {
        File(MiddleFile) = Middle("Anna");
        File(UserFile) = "old";
        Welt.Disk.Operations = 0;
        Welt.Disk.FailAt = failing;
        Welt.Disk.FailFromThere = true;
        EXPECT_FALSE(qvm::Benutzer_Umstellen(kern));
        EXPECT_EQ(File(MiddleFile), Middle("Anna"));
        EXPECT_TRUE(File(UserFile) == "old" || File(UserFile).size() == 105169);
    }
}

TEST_F(Benutzer_Umstellen, a_first_step_that_fails_keeps_the_second_from_running) {
    File(OldestFile) = Oldest("Anna");
    File(MiddleFile) = Middle("Otto");
    Welt.Disk.FailAt = 1;
    EXPECT_FALSE(qvm::Benutzer_Umstellen(kern));
    EXPECT_EQ(File(OldestFile), Oldest("Anna"));
    EXPECT_EQ(File(MiddleFile), Middle("Otto"));
    EXPECT_FALSE(Has(UserFile));
}

} // namespace
} // namespace qvm
