#include "UnitsFixture.h"
#include "Units_Umstellen.h"

namespace qvm {
namespace {

using test::Blanks;
using test::Nulls;

struct Units_Umstellen : test::UnitWorld {
    static constexpr const char* OldFile = "/qvm/DAT/DEVRSSISN.TSD";

    Units_Umstellen() { kern.Sprache.LanguageText[182] = "Umgewandelt"; }
    void Expect(const char* text) { Welt.Answers.push_back({text, Answer::Ok, 0}); }
};

TEST_F(Units_Umstellen, nothing_to_convert_shows_and_writes_nothing) {
    EXPECT_TRUE(qvm::Units_Umstellen(kern));
    EXPECT_TRUE(Welt.Disk.Files.empty());
    EXPECT_TRUE(Welt.Shown.empty());
}

TEST_F(Units_Umstellen, mode_always_on_and_times_go_over_and_all_else_is_blank) {
    File(OldFile) = "3"
                    "1"
                    "7"
                    "123"
                    "17"
                    "59"
                    "5 " // 12 bytes a lock
                    "2"
                    "0"
                    "7"
                    "45 "
                    "0 "
                    "0 "
                    "0 ";
    ASSERT_EQ(File(OldFile).size(), 24U);
    Expect("Umgewandelt / Stp_03");

    EXPECT_TRUE(qvm::Units_Umstellen(kern));

    EXPECT_EQ(File(UnitFile).size(), 48441U); // 201 records
    EXPECT_EQ(File(UnitFile).substr(0, 241), "31"
                                             "    "
                                             "17595 " +
                                                 Blanks(229));
    EXPECT_EQ(File(UnitFile).substr(241, 241), "20"
                                               "    "
                                               "0 0 0 " +
                                                   Blanks(229));
    EXPECT_EQ(File(UnitFile).substr(482), Blanks(47959));
    EXPECT_FALSE(Has(OldFile));
    ASSERT_EQ(Welt.Shown.size(), 1U);
    EXPECT_EQ(Welt.Shown[0].Sign, Icon::Information);
}

TEST_F(Units_Umstellen, takes_201_records_and_a_partial_one_as_far_as_it_goes) {
    for (int n = 0; n < 200; ++n) {
        File(OldFile) += "20000 0 0 0 ";
    }
    File(OldFile) += "30000 1 2";
    Expect("*");
    EXPECT_TRUE(qvm::Units_Umstellen(kern));
    EXPECT_EQ(File(UnitFile).size(), 48441U);
    EXPECT_EQ(File(UnitFile).substr(241 * 200), "30"
                                                "    "
                                                "1 2   " +
                                                    Blanks(229));
}

TEST_F(Units_Umstellen, a_longer_source_gives_201_records) {
    File(OldFile) = std::string(12 * 300, '2');
    Expect("*");
    EXPECT_TRUE(qvm::Units_Umstellen(kern));
    EXPECT_EQ(File(UnitFile).size(), 48441U);
}

TEST_F(Units_Umstellen, an_existing_target_is_overwritten) {
    File(OldFile) = "20000 0 0 0 ";
    File(UnitFile) = std::string(241 * 200, '?');
    Expect("*");
    EXPECT_TRUE(qvm::Units_Umstellen(kern));
    EXPECT_EQ(File(UnitFile).find('?'), std::string::npos);
}

TEST_F(Units_Umstellen, each_operation_that_fails_leaves_source_and_target_as_they_were) {
    const std::string source = "20000 0 0 0 ";
    int failing = 1;
    for (; failing < 20; ++failing) {
        File(OldFile) = source;
        File(UnitFile) = "old";
        Welt.Disk.Operations = 0;
        Welt.Disk.FailAt = failing;
        if (failing == 5) { // read, read, replace, remove: the fifth is one of nobody
            Expect("*");
        }
        if (qvm::Units_Umstellen(kern)) {
            break;
        }
        EXPECT_EQ(File(OldFile), source) << "operation " << failing;
        EXPECT_EQ(File(UnitFile), "old") << "operation " << failing;
    }
    EXPECT_EQ(failing, 5);
}

} // namespace
} // namespace qvm
