// Keyboard and mouse on the grid of the user window, marks and deleting.

#include "F5Fixture.h"

#include <utility>

namespace qvm::test {
namespace {

struct F5_Gitter : F5Fixture {
    std::vector<F5Menu> menus;

    /// Locks 1 to 3 and 199, 200 have names; users 1 to 3; Bert has a finger.
    void SetUp() override {
        for (const int lock : {1, 2, 3, 199, 200}) {
            files.Lock(lock, "L" + std::to_string(lock), SerialS);
        }
        files.User(1, {.Name = "Anna", .Code = "111111", .KeyId = "1 : 2 : 3 : 4", .KeyData = "9 : 9"});
        files.User(2, {.Name = "Bert", .Code = "222222", .FingerFlag = "FS", .FingerId = "77"});
        files.User(3, {.Name = "Cora", .Code = "333333"});
        Open();
        Window().Menue_Zeigen = [this](F5Menu which) { menus.push_back(which); };
    }
    /// The press goes to the cell, and the release acts.
    void Left(int row, int column) {
        Go(row, column);
        Window().FGK4_MouseUp(MouseButton::Left, row, column);
    }
    void Right(int row, int column) { Window().FGK4_MouseUp(MouseButton::Right, row, column); }
    std::string At() { return std::to_string(Cells().Row) + "/" + std::to_string(Cells().Column); }
};

TEST_F(F5_Gitter, tab_goes_one_column_to_the_right_and_stands_still_at_column_200) {
    Go(2, 1);
    Key(qvm::Key::Tab);
    EXPECT_EQ(At(), "2/2");
    Go(2, 6);
    Key(qvm::Key::Tab);
    EXPECT_EQ(At(), "2/7");
    EXPECT_TRUE(menus.empty());
    Go(2, 199);
    Key(qvm::Key::Tab);
    Key(qvm::Key::Tab);
    EXPECT_EQ(At(), "2/200");
    Go(2, 207);
    Key(qvm::Key::Tab);
    EXPECT_EQ(At(), "2/207");
}

TEST_F(F5_Gitter, any_other_key_in_column_6_opens_the_menu_of_the_key_for_its_row) {
    for (const int key : {int{'x'}, qvm::Key::Enter, qvm::Key::Delete, int{' '}}) {
        menus.clear();
        Window().MenuRow = 9;
        Go(3, 6);
        Key(key);
        EXPECT_EQ(menus, std::vector{F5Menu::F5_E_Key}) << key;
        EXPECT_EQ(Window().MenuRow, 3) << key;
        EXPECT_EQ(Window().OpenColumn, 0) << key;
    }
}

TEST_F(F5_Gitter, escape_and_a_key_without_a_current_cell_do_nothing) {
    Go(2, 1);
    Key(qvm::Key::Escape);
    Cells().Row = 0;
    for (const int key : {int{'x'}, qvm::Key::Enter, qvm::Key::Delete, qvm::Key::Tab}) {
        Key(key);
    }
    Window().FGK4_Kontext();
    Window().F5_Loeschen_Click();
    Window().Key_loeschen_Click();
    EXPECT_EQ(Window().OpenColumn, 0);
    EXPECT_EQ(Text(2, 1), "Anna");
    EXPECT_TRUE(menus.empty());
}

TEST_F(F5_Gitter, a_click_steps_a_mark_from_none_to_x_and_back) {
    Left(2, 8);
    EXPECT_EQ(Cells().At(2, 8), (Cell{.Text = "X", .ForeColor = 0x00C000, .FontSize = 16}));
    EXPECT_EQ(At(), "2/8");
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    Left(2, 8);
    EXPECT_EQ(Cells().At(2, 8), (Cell{.Text = "", .ForeColor = White, .FontSize = 8}));
}

TEST_F(F5_Gitter, a_click_steps_a_mark_over_f_for_a_user_with_a_finger) {
    Left(3, 207);
    EXPECT_EQ(Text(3, 207), "X");
    Left(3, 207);
    EXPECT_EQ(Cells().At(3, 207), (Cell{.Text = "F", .ForeColor = 0x808080, .FontSize = 16}));
    Left(3, 207);
    EXPECT_EQ(Text(3, 207), "");
}

TEST_F(F5_Gitter, nothing_is_marked_for_a_nameless_lock_or_user_or_beside_the_locks) {
    Left(2, 11); // lock 4 has no name
    Left(5, 8);  // user 4 has none
    Left(2, 4);
    Left(1, 8);
    Left(0, 8);
    Left(2, 0);
    Left(2, 208);
    EXPECT_EQ(Text(2, 11) + Text(5, 8), "");
    EXPECT_EQ(Text(2, 4), "111111");
    EXPECT_EQ(Row(1, 8, 8) + Row(0, 8, 8), "1L\n1");
    EXPECT_EQ(Text(2, 208), "9 : 9");
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Gitter, enter_marks_the_block_cell_by_cell_and_goes_to_the_row_below_it) {
    Left(3, 9);
    Select(2, 8, 4, 11);
    Key(qvm::Key::Enter);
    EXPECT_EQ(Row(2, 8, 11), "X|X|X|");
    EXPECT_EQ(Row(3, 8, 11), "X|F|X|"); // each cell steps from where it stood
    EXPECT_EQ(Row(4, 8, 11), "X|X|X|");
    EXPECT_EQ(At(), "5/8");
    EXPECT_FALSE(Window().Auswahl.Larger());
    EXPECT_EQ(Window().Verlauf.Steps(), 2U);
    Window().F5_Undo_Click();
    EXPECT_EQ(Row(2, 8, 11) + Row(3, 8, 11), "||||X||");
}

TEST_F(F5_Gitter, enter_in_the_last_row_stays_there) {
    Cells().SetText(251, 1, "Zoe");
    Go(251, 8);
    Key(qvm::Key::Enter);
    EXPECT_EQ(Text(251, 8), "X");
    EXPECT_EQ(At(), "251/8");
}

TEST_F(F5_Gitter, space_marks_the_block_and_stays) {
    Select(4, 9, 2, 8);
    Key(' ');
    EXPECT_EQ(Row(2, 8, 9) + "," + Row(3, 8, 9) + "," + Row(4, 8, 9), "X|X,X|X,X|X");
    EXPECT_EQ(At(), "2/8");
    EXPECT_TRUE(Window().Auswahl.Larger());
}

TEST_F(F5_Gitter, delete_in_column_1_deletes_the_selected_users_and_the_finger_of_each) {
    Cells().SetText(2, 209, "55");
    Cells().SetText(3, 209, "PR77");
    Left(3, 8);
    Left(3, 207);
    Window().MenuRow = 4; // of an older menu
    Select(2, 1, 3, 1);
    Key(qvm::Key::Delete);
    EXPECT_EQ(Row(2, 0, 4), "1|Cora|-|1|333333");
    EXPECT_EQ(Row(3, 0, 6), "2||||||");
    EXPECT_EQ(Row(4, 0, 8), "3||||||||");
    // Anna's row: her key's data stay. Bert's: the mark of lock 200 stays. No finger does.
    EXPECT_EQ(Row(3, 207, 209), "|9 : 9|");
    EXPECT_EQ(Row(4, 207, 209), "X||");
    EXPECT_EQ(Cells().At(3, 7).Picture, FingerPicture::None);
    EXPECT_EQ(Cells().At(4, 7).Picture, FingerPicture::None);
    EXPECT_EQ(Window().MenuRow, 3);
    EXPECT_FALSE(Asked());
    Window().F5_Undo_Click();
    EXPECT_EQ(Row(2, 1, 6), "Anna|-|1|111111||1 : 2 : 3 : 4");
    EXPECT_EQ(Row(3, 207, 209), "X||PR77");
    EXPECT_EQ(Text(4, 1), "Cora");
}

TEST_F(F5_Gitter, delete_by_the_menu_takes_the_finger_of_the_menus_row_too) {
    Right(3, 1);
    EXPECT_EQ(menus, std::vector{F5Menu::M_FGK4});
    EXPECT_EQ(Window().MenuRow, 3);
    Window().F5_Loeschen_Click();
    EXPECT_EQ(Row(2, 1, 1) + Row(3, 1, 1) + Row(4, 1, 1), "AnnaCora");
    EXPECT_EQ(Row(4, 209, 209), "");
}

TEST_F(F5_Gitter, a_menu_opens_for_the_block_that_it_is_opened_in) {
    Select(2, 4, 3, 4);
    Right(2, 4);
    EXPECT_EQ(Window().MenuRow, 2);
    Window().F5_Loeschen_Click();
    EXPECT_EQ(Text(2, 4) + Text(3, 4), "");
    EXPECT_EQ(Text(4, 4), "333333");
    Right(4, 4);
    EXPECT_FALSE(Window().Auswahl.Larger());
    EXPECT_EQ(At(), "4/4");
}

TEST_F(F5_Gitter, a_menu_deletes_in_the_column_that_it_is_opened_in) {
    Select(2, 9, 3, 10);
    Key(' ');
    Right(3, 9); // the block ends in column 10
    Window().F5_Loeschen_Click();
    EXPECT_EQ(Row(2, 9, 10) + "," + Row(3, 9, 10), "|X,|X");
}

TEST_F(F5_Gitter, the_end_of_a_drag_steps_no_mark_and_keeps_the_block) {
    Select(2, 8, 3, 9);
    Window().FGK4_MouseUp(MouseButton::Left, 3, 9);
    EXPECT_EQ(Row(2, 8, 9) + Row(3, 8, 9), "||");
    EXPECT_TRUE(Window().Auswahl.Larger());
    Select(2, 6, 4, 6);
    Window().FGK4_MouseUp(MouseButton::Left, 4, 6);
    EXPECT_EQ(menus, std::vector{F5Menu::F5_E_Key});
    EXPECT_THAT(Window().Auswahl.Rows(), ElementsAre(2, 3, 4));
}

TEST_F(F5_Gitter, delete_clears_the_selected_cells_of_the_current_column) {
    Cells().SetText(2, 5, "Auto");
    for (const auto& [row, column] : {std::pair{2, 8}, {3, 8}, {3, 9}}) {
        Left(row, column);
    }
    Select(2, 9, 3, 8);
    Key(qvm::Key::Delete);
    EXPECT_EQ(Row(2, 8, 9) + "," + Row(3, 8, 9), "|,|X");
    EXPECT_EQ(Cells().At(3, 8), (Cell{.Text = "", .ForeColor = White, .FontSize = 8}));
    Go(2, 5);
    Key(qvm::Key::Delete);
    EXPECT_EQ(Text(2, 5), "");
    Go(2, 4);
    Key(qvm::Key::Delete);
    EXPECT_EQ(Text(2, 4), "");
}

TEST_F(F5_Gitter, key_and_menu_delete_have_different_ends) {
    // 7: text only, never the picture; 206 the last; groups and rights never.
    struct Case {
        int Column;
        bool Key, Menu;
    };
    for (const Case& c : {Case{2, false, false},
                          {3, false, false},
                          {4, true, true},
                          {5, true, true},
                          {6, false, false},
                          {7, true, false},
                          {8, true, false},
                          {9, true, true},
                          {206, true, true},
                          {207, false, false}}) {
        for (const bool menu : {false, true}) {
            Cells().SetText(3, c.Column, "x");
            Go(3, c.Column);
            if (menu) {
                Window().F5_Loeschen_Click();
            } else {
                Key(qvm::Key::Delete);
            }
            EXPECT_EQ(Text(3, c.Column), (menu ? c.Menu : c.Key) ? "" : "x") << c.Column << menu;
            EXPECT_EQ(Window().OpenColumn, 0) << c.Column;
        }
    }
    EXPECT_EQ(Cells().At(3, 7).Picture, FingerPicture::Standard);
}

TEST_F(F5_Gitter, a_left_click_in_column_7_opens_the_finger_menu_for_its_row) {
    Left(3, 7);
    EXPECT_EQ(menus, std::vector{F5Menu::F5_Fingerscan});
    EXPECT_EQ(Window().FsRow, 3);
    EXPECT_EQ(Window().MenuRow, 0);
    Left(3, 5);
    EXPECT_EQ(Window().FsRow, 255);
    EXPECT_EQ(menus.size(), 1U);
}

TEST_F(F5_Gitter, a_left_click_in_column_6_opens_the_key_menu_for_its_row) {
    Window().FsRow = 3;
    Left(4, 6);
    EXPECT_EQ(menus, std::vector{F5Menu::F5_E_Key});
    EXPECT_EQ(Window().MenuRow, 4);
    EXPECT_EQ(Window().FsRow, 255);
}

TEST_F(F5_Gitter, a_right_click_opens_the_menu_to_delete_in_columns_1_4_and_above_6) {
    for (int column = 0; column <= 9; ++column) {
        menus.clear();
        Window().MenuRow = 0;
        Window().FsRow = 3;
        Right(4, column);
        const bool opens = column == 1 || column == 4 || column > 6;
        EXPECT_EQ(menus.size(), opens ? 1U : 0U) << column;
        EXPECT_EQ(Window().MenuRow, opens ? 4 : 0) << column;
        EXPECT_EQ(Window().FsRow, 255) << column;
    }
}

TEST_F(F5_Gitter, the_headings_open_no_menu) {
    for (const int row : {-1, 0, 1, 252}) {
        Left(row, 6);
        Left(row, 7);
        Right(row, 1);
    }
    EXPECT_TRUE(menus.empty());
    EXPECT_EQ(Window().FsRow, 255);
}

TEST_F(F5_Gitter, the_key_for_a_menu_opens_what_the_mouse_would) {
    Go(3, 7);
    Window().FGK4_Kontext();
    EXPECT_EQ(Window().FsRow, 3);
    Go(4, 6);
    Window().FGK4_Kontext();
    EXPECT_EQ(Window().FsRow, 255);
    Go(2, 4);
    Window().FGK4_Kontext();
    Go(2, 3);
    Window().FGK4_Kontext();
    Go(3, 7);
    Key(' ');
    EXPECT_EQ(menus, (std::vector{F5Menu::F5_Fingerscan, F5Menu::F5_E_Key, F5Menu::M_FGK4, F5Menu::F5_Fingerscan}));
    EXPECT_EQ(Window().MenuRow, 2);
}

TEST_F(F5_Gitter, the_selected_keys_are_cleared_behind_a_question_and_their_data_stay) {
    Cells().SetText(3, 6, "5 : 6 : 7 : 8");
    Select(2, 6, 3, 6);
    Expect(77, Answer::Cancel);
    Window().Key_loeschen_Click();
    EXPECT_EQ(world.Shown.back().Title, "Key");
    EXPECT_EQ(world.Shown.back().Choice, Buttons::OkCancel);
    EXPECT_EQ(Text(2, 6), "1 : 2 : 3 : 4");
    Expect(77, Answer::Ok);
    Window().Key_loeschen_Click();
    EXPECT_EQ(Text(2, 6) + Text(3, 6), "");
    EXPECT_EQ(Text(2, 208), "9 : 9");
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    Window().F5_Undo_Click();
    EXPECT_EQ(Text(3, 6), "5 : 6 : 7 : 8");
}

TEST_F(F5_Gitter, names_stay_in_sight_while_it_is_scrolled_until_a_click_in_column_2) {
    EXPECT_EQ(Window().FixedCols(), 1);
    Window().FGK4_Scroll();
    EXPECT_EQ(Window().FixedCols(), 2);
    Left(2, 3);
    EXPECT_EQ(Window().FixedCols(), 2);
    Left(2, 2);
    EXPECT_EQ(Window().FixedCols(), 1);
}

TEST_F(F5_Gitter, copies_a_block_as_lines_with_tabs_between) {
    Select(2, 0, 3, 0); // the numbers are heading: nothing is selected
    Select(2, 3, 3, 4);
    EXPECT_EQ(Window().Auswahl.Text(), "1\t111111\n1\t222222\n");
    Window().Auswahl.All();
    EXPECT_EQ(Window().Auswahl.Block(), (GridBlock{2, 1, 251, 209}));
}

TEST_F(F5_Gitter, does_nothing_while_a_device_is_waited_for) {
    Go(2, 8);
    Window().Fenster.Enabled = false;
    Left(2, 8);
    Right(2, 1);
    Key(qvm::Key::Enter);
    Key(qvm::Key::Delete);
    Window().FGK4_Kontext();
    Window().FGK4_DblClick(2, 1);
    Window().F5_Loeschen_Click();
    Window().Key_loeschen_Click();
    Window().F5_Sort_Click();
    EXPECT_EQ(Text(2, 8), "");
    EXPECT_TRUE(menus.empty());
    EXPECT_EQ(Window().OpenColumn, 0);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

} // namespace
} // namespace qvm::test
