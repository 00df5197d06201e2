#include "F5_Marken.h"
#include "F5_Sortieren.h"
#include "PersonsFixture.h"
#include "Text.h"

#include <vector>

namespace qvm::test {
namespace {

struct F5_Sortieren_Test : Persons {
    Grid& users = table.FGK4;

    void Names(const std::vector<std::string_view>& names) {
        int row = 2;
        for (const std::string_view name : names) {
            users.SetText(row++, 1, name);
        }
    }
    std::string First(int rows, int column = 1) {
        std::string text;
        for (int row = 2; row < 2 + rows; ++row) {
            text += users.Text(row, column) + "|";
        }
        return text;
    }
};

TEST_F(F5_Sortieren_Test, puts_names_in_order_whatever_their_case_and_closes_gaps) {
    Names({"dora", "", "Cora", "anna", "", "Bert"});
    F5_Sortieren(users);
    EXPECT_EQ(First(7), "anna|Bert|Cora|dora||||");
}

TEST_F(F5_Sortieren_Test, puts_umlauts_with_their_base_letters_and_before_the_empty_rows) {
    Names({"Zoe", u8"Özlem"_w, "", u8"Ärnst"_w, "Otto", "Arno", "Zzzzzzzzzzzz", u8"Über"_w});
    F5_Sortieren(users);
    EXPECT_EQ(First(8), std::string(u8"Arno|Ärnst|Otto|Özlem|Über|Zoe|Zzzzzzzzzzzz||"_w));
    EXPECT_TRUE(F5_Pruefen(kern, table));
}

TEST_F(F5_Sortieren_Test, moves_whole_rows_with_what_is_hidden_and_how_it_looks) {
    Names({"Bert", "Anna"});
    const Cell mark{.Text = "F", .ForeColor = UserLook::MarkFinger, .FontSize = 16};
    users.Set(2, 207, mark);
    users.SetPicture(2, 7, FingerPicture::Premium);
    users.SetText(2, 208, "1 : 2");
    users.SetText(2, 209, "PR1");
    F5_Sortieren(users);
    EXPECT_EQ(users.At(3, 207), mark);
    EXPECT_EQ(users.At(3, 7).Picture, FingerPicture::Premium);
    EXPECT_EQ(users.Text(3, 208) + users.Text(3, 209), "1 : 2PR1");
    EXPECT_EQ(users.At(2, 207), Cell{});
    EXPECT_EQ(users.Text(2, 209), "");
}

TEST_F(F5_Sortieren_Test, leaves_numbers_and_headings_where_they_are) {
    Names({"Bert", "Anna"});
    users.SetText(0, 8, "T\no\nr");
    users.SetText(1, 1, "Name");
    users.SetBackColor(3, 0, 0xE0E0E0);
    F5_Sortieren(users);
    EXPECT_EQ(First(3, 0), "1|2|3|");
    EXPECT_EQ(users.Text(251, 0), "250");
    EXPECT_EQ(users.At(3, 0).BackColor, White);
    EXPECT_EQ(users.Text(0, 8) + users.Text(1, 1), "T\no\nrName");
}

TEST_F(F5_Sortieren_Test, keeps_the_order_of_equal_names) {
    Names({"Bert", "anna", "Anna", "ANNA"});
    for (int row = 2; row <= 5; ++row) {
        users.SetText(row, 4, std::to_string(row));
    }
    F5_Sortieren(users);
    EXPECT_EQ(First(4, 4), "3|4|5|2|");
}

TEST_F(F5_Sortieren_Test, takes_a_user_of_that_name_for_an_empty_row) {
    Names({"ZZZZZZZZZZ", "Bert", "zzzzzzzzzz"});
    users.SetText(2, 4, "111111");
    F5_Sortieren(users);
    EXPECT_EQ(First(4), "Bert|zzzzzzzzzz|||");
    EXPECT_EQ(users.Text(4, 4), "111111"); // the row loses its name only
}

TEST_F(F5_Sortieren_Test, takes_a_name_of_blanks_for_none) {
    Names({"   ", "Anna"});
    F5_Sortieren(users);
    EXPECT_EQ(First(2), "Anna||");
}

TEST_F(F5_Sortieren_Test, reaches_the_last_row) {
    users.SetText(251, 1, "Anna");
    users.SetText(250, 1, "Bert");
    F5_Sortieren(users);
    EXPECT_EQ(First(3), "Anna|Bert||");
    EXPECT_EQ(users.Text(250, 1) + users.Text(251, 1), "");
}

TEST(Marke_Schalten_Test, steps_only_marks_of_named_locks_and_users) {
    Grid users(252, 210);
    users.SetText(0, 8, "T");
    users.SetText(2, 1, "Anna");
    users.SetText(3, 1, " ");
    for (const auto& [row, column] : {std::pair{2, 7}, {2, 9}, {3, 8}, {4, 8}, {1, 8}, {252, 8}, {2, 208}, {-1, -1}}) {
        Marke_Schalten(users, row, column);
        EXPECT_EQ(users.Text(row, column), "") << row << "/" << column;
    }
    Marke_Schalten(users, 2, 8);
    EXPECT_EQ(users.Text(2, 8), "X");
    users.SetText(2, 8, " "); // what is left of an "F" whose finger was deleted
    Marke_Schalten(users, 2, 8);
    EXPECT_EQ(users.Text(2, 8), "X");
}

} // namespace
} // namespace qvm::test
