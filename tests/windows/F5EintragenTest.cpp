// Texts that cells of the user window get at once, without a key.

#include "F5Fixture.h"

namespace qvm::test {
namespace {

constexpr int NameAt = 1, GroupAt = 2, RightAt = 3, CodeAt = 4, LabelAt = 5, KeyAt = 6;

struct F5_Eintragen : F5Fixture {
    void SetUp() override {
        files.Lock(1, "Tor", SerialS);
        files.Group(3, "Putzdienst", "", "PB_3");
        files.User(1, {.Name = "Anna", .Code = "111111", .Label = "Designation of 16"});
        files.User(2, {.Name = "Bert", .Code = "222222", .Label = "Slot_Nr: 001"});
        Open();
    }
    void Put(int row, int column, std::string_view text) { Window().FGK4_Eintragen(row, column, text); }
};

TEST_F(F5_Eintragen, a_name_is_confirmed_and_fills_the_row) {
    Put(4, NameAt, "Cl!eo");
    EXPECT_EQ(Row(4, 1, 3), "Cleo|-|1");
    EXPECT_EQ(std::pair(Cells().Row, Cells().Column), std::pair(4, CodeAt));
    EXPECT_EQ(Window().OpenColumn, 0);
    EXPECT_EQ(Window().Tabelle.UserDirty, 1);
}

TEST_F(F5_Eintragen, takes_the_place_of_a_text_that_has_its_full_length) {
    Put(2, CodeAt, "314159");
    EXPECT_EQ(Text(2, CodeAt), "314159");
    Put(2, LabelAt, "Short");
    EXPECT_EQ(Text(2, LabelAt), "Short");
}

TEST_F(F5_Eintragen, what_another_user_has_is_refused_as_when_it_is_typed) {
    ExpectTwice();
    Put(2, NameAt, "Bert");
    EXPECT_EQ(Text(2, NameAt), "Anna");
    ExpectTwice();
    Put(2, CodeAt, "222222");
    EXPECT_EQ(Text(2, CodeAt), "111111");
}

TEST_F(F5_Eintragen, a_code_of_5_characters_stays_in_the_open_editor) {
    Put(2, CodeAt, "31415");
    ASSERT_TRUE(Window().Text2.Visible());
    EXPECT_EQ(Window().Text2.Text(), "31415");
    EXPECT_EQ(Text(2, CodeAt), "111111");
    Put(3, CodeAt, "161803");
    EXPECT_EQ(Text(2, CodeAt), "") << "as at a click elsewhere";
    EXPECT_EQ(Text(3, CodeAt), "161803");
}

TEST_F(F5_Eintragen, a_list_gives_one_of_its_entries_or_nothing) {
    Put(2, GroupAt, "Putzdienst");
    Put(2, RightAt, "1/2");
    EXPECT_EQ(Row(2, 2, 3), "Putzdienst|1/2");
    Put(2, RightAt, "1/5");
    Put(2, GroupAt, "");
    EXPECT_EQ(Row(2, 2, 3), "Putzdienst|1/2");
    EXPECT_EQ(Window().OpenColumn, 0);
    Put(2, GroupAt, "-");
    EXPECT_EQ(Text(2, GroupAt), "-");
}

TEST_F(F5_Eintragen, does_nothing_where_no_editor_opens) {
    Put(3, LabelAt, "Auto");
    Put(2, KeyAt, "1 : 2 : 3 : 4");
    Put(2, 8, "X");
    Put(1, NameAt, "Heading");
    Put(900, 900, "Nowhere");
    Window().Fenster.Enabled = false;
    Put(2, NameAt, "Dora");
    EXPECT_EQ(Text(3, LabelAt), "Slot_Nr: 001");
    EXPECT_EQ(Row(2, KeyAt, 8), "||");
    EXPECT_EQ(Text(2, NameAt), "Anna");
    EXPECT_EQ(Window().Tabelle.UserDirty, 0);
}

} // namespace
} // namespace qvm::test
