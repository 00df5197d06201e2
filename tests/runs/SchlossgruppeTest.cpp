// The lock table reads the lock timer groups that the table of groups has saved.

#include "F12_Laden.h"
#include "F12_Speichern.h"
#include "Kern.h"
#include "VirtualPlatform.h"
#include "Zeitgruppen.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace qvm {
namespace {

struct Schlossgruppe : testing::Test {
    test::VirtualPlatform welt;
    Kern kern{welt.World};
    GroupTable groups;
    LockTable locks;

    Schlossgruppe() {
        kern.AppPath = "/qvm/";
        groups[2] = {"2", "Nachtruhe", "X----", "1", "PB_700000001"};
        EXPECT_TRUE(SperrGruppen_Speichern(kern, groups));
        EXPECT_TRUE(F12_Laden(kern, locks, {}));
        locks.FGK12.SetText(5, LockColumn::Group, "Nachtruhe");
        EXPECT_TRUE(F12_Speichern(kern, locks));
    }
    std::string Nach_Aenderung() {
        EXPECT_TRUE(SperrGruppen_Speichern(kern, groups));
        EXPECT_TRUE(F12_Laden(kern, locks, {}));
        return locks.FGK12.Text(5, LockColumn::Group);
    }
};

TEST_F(Schlossgruppe, a_renamed_group_keeps_its_locks) {
    groups[2].Name = "Ruhezeit";
    EXPECT_EQ(Nach_Aenderung(), "Ruhezeit");
}

TEST_F(Schlossgruppe, a_group_that_moves_up_keeps_its_locks) {
    std::swap(groups[1], groups[2]);
    EXPECT_EQ(Nach_Aenderung(), "Nachtruhe");
}

TEST_F(Schlossgruppe, a_deleted_group_falls_back_to_none) {
    groups[2] = {};
    EXPECT_EQ(Nach_Aenderung(), "-");
}

} // namespace
} // namespace qvm
