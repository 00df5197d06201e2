#include "SchlossDaten.h"

#include "UnitsFixture.h"

#include <array>
#include <string>

namespace qvm::test {
namespace {

struct SchlossDaten : UnitWorld {
    static constexpr const char* EmiFile = "/qvm/DAT/LSOEMIPART.LMT";
};

TEST_F(SchlossDaten, of_deleted_locks_leave_a_blank_emi_state_and_a_blank_unit_record) {
    File(EmiFile) = std::string(200, 'X');
    File(UnitFile) = std::string(241 * 4, 'u');
    EXPECT_TRUE(SchlossDaten_Leeren(kern, std::array{1, 3}));
    EXPECT_EQ(File(EmiFile), " X " + std::string(197, 'X'));
    const std::string blank = " 99" + Blanks(238);
    EXPECT_EQ(File(UnitFile), blank + std::string(241, 'u') + blank + std::string(241, 'u'));
}

TEST_F(SchlossDaten, without_files_make_a_whole_emi_file_and_units_up_to_the_lock) {
    EXPECT_TRUE(SchlossDaten_Leeren(kern, std::array{3}));
    EXPECT_EQ(File(EmiFile), Blanks(200));
    EXPECT_EQ(File(UnitFile), Nulls(2 * 241) + " 99" + Blanks(238));
}

TEST_F(SchlossDaten, of_locks_that_do_not_exist_stay) {
    File(EmiFile) = std::string(200, 'X');
    File(UnitFile) = std::string(241, 'u');
    EXPECT_TRUE(SchlossDaten_Leeren(kern, std::array{-1, 0, 201, 99999}));
    EXPECT_EQ(File(EmiFile), std::string(200, 'X'));
    EXPECT_EQ(File(UnitFile), std::string(241, 'u'));
}

TEST_F(SchlossDaten, stay_as_they_were_when_any_file_operation_fails) {
    File(EmiFile) = std::string(200, 'X');
    File(UnitFile) = std::string(241, 'u');
    const auto before = Welt.Disk.Files;
    for (int n = 1; n <= 4; ++n) {
        Welt.Disk.FailAt = Welt.Disk.Operations + n;
        EXPECT_FALSE(SchlossDaten_Leeren(kern, std::array{1})) << n;
        EXPECT_EQ(Welt.Disk.Files, before) << n;
    }
}

} // namespace
} // namespace qvm::test
