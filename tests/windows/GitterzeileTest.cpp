#include "Gitterzeile.h"

#include <gtest/gtest.h>

namespace qvm::test {

TEST(Gitterzeile_Lesen, takes_what_the_dataset_is_gathered_by_from_its_cells) {
    Grid grid{4, F13Column::Count};
    const char* cells[] = {"117", "Tor", "00.0A.10.01", "offset", "X", "-", "X", "", "X"};
    for (int column = 0; column < 9; ++column) {
        grid.SetText(3, column, cells[column]);
    }
    const LockRow row = Gitterzeile_Lesen(grid, 3);
    EXPECT_EQ(row.Number, 117);
    EXPECT_EQ(row.Name, "Tor");
    EXPECT_EQ(row.Serial, "00.0A.10.01");
    EXPECT_EQ(row.PersonTimers, "X");
    EXPECT_EQ(row.Calendars, "-");
    EXPECT_EQ(row.LockTimer, "X");
    EXPECT_EQ(row.CalendarFlag, "");
    EXPECT_EQ(row.SetClock, "X");
}

TEST(Gitterzeile_Lesen, a_row_without_a_number_is_lock_0_which_no_file_has) {
    const Grid grid{2, F13Column::Count};
    EXPECT_EQ(Gitterzeile_Lesen(grid, 1).Number, 0);
}

struct Adapter_Zur_Zeile : ::testing::Test {
    AdapterListe adapters;
    Grid grid{2, F13Column::Count};

    Adapter_Zur_Zeile() {
        Add("11.22.33.44", "Halle");
        Add("55.66.77.88", "Hof");
    }
    void Add(const char* address, const char* name) {
        AdapterSatz adapter;
        adapter.Adresse = address;
        adapter.Name = name;
        adapters.Saetze.push_back(adapter);
    }
    std::string Found(const char* id, const char* name) {
        grid.SetText(1, 13, id);
        grid.SetText(1, 14, name);
        const AdapterSatz* adapter = Adapter_Der_Zeile(adapters, grid, 1);
        return adapter == nullptr ? "none" : adapter->Name;
    }
};

TEST_F(Adapter_Zur_Zeile, the_address_counts_before_the_name) {
    EXPECT_EQ(Found("55.66.77.88", "Halle"), "Hof");
}

TEST_F(Adapter_Zur_Zeile, the_name_counts_where_the_address_is_unknown) {
    EXPECT_EQ(Found("99.99.99.99", "Halle"), "Halle");
    EXPECT_EQ(Found("", "Hof"), "Hof");
}

TEST_F(Adapter_Zur_Zeile, none_is_found_for_what_nobody_knows) {
    EXPECT_EQ(Found("99.99.99.99", "Keller"), "none");
    EXPECT_EQ(Found("", ""), "none");
}

} // namespace qvm::test
