#include "InfoPbS.h"

#include "TimeFixture.h"

namespace qvm {
namespace {

using test::Zeile;

struct InfoPbS_Anzeigen_Zu : test::TimeFixture {
    Grid slots{6, 4};
    GroupTable groups;
    InfoPbS info;

    InfoPbS_Anzeigen_Zu() {
        const char* const days[] = {"", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag"};
        for (int row = 1; row <= 5; ++row) {
            slots.SetText(row, 1, days[row]);
            slots.SetText(row, 2, "0" + std::to_string(row) + ":00");
            slots.SetText(row, 3, "1" + std::to_string(row) + ":00");
        }
        groups[2] = {"2", "  Nacht", "-X--X", "2", "PB_1"};
        info.FGK3i.Visible = false;
        info.Name.Visible = false;
    }
    int Zeigen(int row, bool editorOpen = false) {
        return InfoPbS_Anzeigen(kern, slots, groups, editorOpen, row, info);
    }
};

TEST_F(InfoPbS_Anzeigen_Zu, the_slots_of_the_group_stand_without_gaps) {
    EXPECT_EQ(Zeigen(2), 2);
    EXPECT_EQ(info.FGK3i.Rows(), 3);
    EXPECT_EQ(info.FGK3i.Text(1, 0), "1");
    EXPECT_EQ(Zeile(info.FGK3i, 1), "Dienstag|02:00|12:00");
    EXPECT_EQ(info.FGK3i.Text(2, 0), "2");
    EXPECT_EQ(Zeile(info.FGK3i, 2), "Freitag|05:00|15:00");
}

TEST_F(InfoPbS_Anzeigen_Zu, the_name_stands_in_the_label_and_the_grid_is_shown) {
    EXPECT_EQ(Zeigen(2), 2);
    EXPECT_EQ(info.Name.Text(), "Nacht");
    EXPECT_TRUE(info.Name.Visible());
    EXPECT_TRUE(info.FGK3i.Visible());
}

TEST_F(InfoPbS_Anzeigen_Zu, the_header_is_restored_and_old_rows_are_gone) {
    EXPECT_EQ(Zeigen(2), 2);
    info.FGK3i.SetText(0, 1, "x");
    groups[2].Days = "X----";
    EXPECT_EQ(Zeigen(2), 1);
    EXPECT_EQ(info.FGK3i.Text(0, 0), "Nr.");
    EXPECT_EQ(Zeile(info.FGK3i, 0), "Tag|Von|Bis");
    EXPECT_EQ(info.FGK3i.Rows(), 2);
}

TEST_F(InfoPbS_Anzeigen_Zu, an_unused_group_has_no_rows) {
    EXPECT_EQ(Zeigen(3), 0);
    EXPECT_EQ(info.Name.Text(), "");
    EXPECT_EQ(info.FGK3i.Rows(), 1);
}

TEST_F(InfoPbS_Anzeigen_Zu, nothing_is_done_at_the_header_outside_the_table_or_while_an_editor_is_open) {
    EXPECT_EQ(Zeigen(0), -1);
    EXPECT_EQ(Zeigen(-1), -1);
    EXPECT_EQ(Zeigen(9), -1);
    EXPECT_EQ(Zeigen(2, true), -1);
    EXPECT_FALSE(info.FGK3i.Visible());
}

TEST_F(InfoPbS_Anzeigen_Zu, marks_behind_the_last_slot_are_not_looked_at) {
    groups[2].Days = "----XXXXXX";
    EXPECT_EQ(Zeigen(2), 1);
    groups[2].Days = "X";
    EXPECT_EQ(Zeigen(2), 1);
}

} // namespace
} // namespace qvm
