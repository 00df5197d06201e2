// The lock table reads the files of its neighbours through views of its own. They must agree with the owners' layouts.

#include "AdapterRecord.h"
#include "F12_Laden.h"
#include "F12_Speichern.h"
#include "Kern.h"
#include "LockQuellen.h"
#include "TimeRecords.h"
#include "UnitRecords.h"
#include "VirtualPlatform.h"
#include "Zeitgruppen.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string_view>
#include <vector>

namespace qvm {
namespace {

/// Fields that put together what the lock table does not look at.
bool Is_Rest(std::string_view name) {
    return name == "Rest" || name == "Times";
}

void Vergleichen(const RecordLayout& view, const RecordLayout& owner) {
    EXPECT_EQ(view.File, owner.File);
    EXPECT_EQ(view.Length, owner.Length) << view.Name;
    EXPECT_EQ(view.First, owner.First) << view.Name;
    EXPECT_LE(view.Last, owner.Last) << view.Name;
    for (const RecordField& field : view.Fields) {
        if (Is_Rest(field.Name)) {
            continue;
        }
        const auto same = std::find_if(owner.Fields.begin(), owner.Fields.end(),
                                       [&](const RecordField& other) { return other.Name == field.Name; });
        ASSERT_NE(same, owner.Fields.end()) << field.Name;
        EXPECT_EQ(field.Offset, same->Offset) << field.Name;
        EXPECT_EQ(field.Width, same->Width) << field.Name;
        EXPECT_EQ(field.Padding, same->Padding) << field.Name;
    }
}

TEST(Lock_Table_Views, agree_with_the_layouts_of_the_files_owners) {
    Vergleichen(OffsetView::Record, GuestOffset::Record);
    Vergleichen(LockGroupView::Record, LockTimeGroup::Record);
    Vergleichen(AdapterView::Record, AdapterRecord::Record);
    Vergleichen(UnitModeView::Record, WirelessUnitRecord::Record);
}

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
