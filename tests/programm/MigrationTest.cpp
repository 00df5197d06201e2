#include "Migration.h"

#include "Kern.h"
#include "VirtualPlatform.h"

#include <gtest/gtest.h>
#include <string>

namespace qvm {
namespace {

struct Dateien_Umstellen : testing::Test {
    test::VirtualPlatform Welt;
    Kern kern{Welt.World};

    Dateien_Umstellen() { kern.AppPath = "/qvm/"; }
    void Old(const char* name, std::size_t size) { Welt.Disk.Files[std::string("/qvm/DAT/") + name].assign(size, ' '); }
};

TEST_F(Dateien_Umstellen, runs_its_three_steps_in_order) {
    Old("DEVRSSISN.TSD", 12);
    Old("BX10Y48WUI8.UBW", 262);
    for (const char* text : {" / Stp_01", " / Stp_02", " / Stp_03"}) {
        Welt.Answers.push_back({text, Answer::Ok, 0});
    }
    EXPECT_TRUE(qvm::Dateien_Umstellen(kern));
    ASSERT_EQ(Welt.Disk.Files.size(), 2U);
    EXPECT_EQ(Welt.Disk.Files["/qvm/DAT/BX10X52WUJ9.UBW"].size(), 105169U);
    EXPECT_EQ(Welt.Disk.Files["/qvm/DAT/T6WRSSISN.TSD"].size(), 48441U);
}

TEST_F(Dateien_Umstellen, a_second_start_has_nothing_to_do) {
    Old("BX08HAZJNT9.UBW", 276);
    Welt.Answers.push_back({" / Stp_02", Answer::Ok, 0});
    EXPECT_TRUE(qvm::Dateien_Umstellen(kern));
    EXPECT_TRUE(qvm::Dateien_Umstellen(kern));
    EXPECT_EQ(Welt.Shown.size(), 1U);
}

TEST_F(Dateien_Umstellen, a_user_file_that_fails_does_not_keep_the_units_from_theirs) {
    Old("BX08HAZJNT9.UBW", 276);
    Old("DEVRSSISN.TSD", 12);
    Welt.Answers.push_back({" / Stp_03", Answer::Ok, 0});
    Welt.Disk.FailAt = 1;
    EXPECT_FALSE(qvm::Dateien_Umstellen(kern));
    EXPECT_TRUE(Welt.Disk.Files.contains("/qvm/DAT/BX08HAZJNT9.UBW"));
    EXPECT_FALSE(Welt.Disk.Files.contains("/qvm/DAT/DEVRSSISN.TSD"));
}

} // namespace
} // namespace qvm
