// The editors over the cells of the user window.

#include "F5Fixture.h"

namespace qvm::test {
namespace {

struct F5_Editor : F5Fixture {
    void SetUp() override {
        files.Lock(1, "Tor", SerialS);
        files.Group(3, "Putzdienst", "", "PB_3");
        files.User(1, {.Name = "Anna", .Code = "111111", .Label = "Auto"});
        files.User(2, {.Name = "Bert", .Code = "222222", .Label = "Rad"});
        Open();
    }
    void Click(int row, int column) { Window().FGK4_MouseUp(MouseButton::Left, row, column); }
    void Leave() { Click(9, 9); }
};

TEST_F(F5_Editor, opens_with_the_typed_character_in_place_of_the_text) {
    Go(2, 4);
    Key('a');
    EXPECT_TRUE(Window().Text2.Visible());
    EXPECT_EQ(Window().Text2.Text(), "A");
    EXPECT_EQ(Window().Text2.Caret(), 1);
    EXPECT_EQ(Window().OpenColumn, 4);
    EXPECT_EQ(Text(2, 4), "111111");
}

TEST_F(F5_Editor, opens_with_the_text_selected_when_the_key_is_no_character_of_its_column) {
    bool selected = false;
    Window().Text2.SelectAll = Window().Text1.SelectAll = [&] { selected = true; };
    for (const int key : {qvm::Key::Enter, qvm::Key::Backspace, int{'!'}}) {
        selected = false;
        Go(2, 4);
        Key(key);
        EXPECT_EQ(Window().Text2.Text(), "111111") << key;
        EXPECT_TRUE(selected) << key;
        Window().Editor_KeyPress(qvm::Key::Escape);
    }
    Go(2, 1);
    Key('%');
    EXPECT_EQ(Window().Text1.Text(), "Anna");
    EXPECT_TRUE(selected);
}

TEST_F(F5_Editor, opens_by_a_double_click_for_who_has_no_keyboard) {
    Window().FGK4_DblClick(2, 5);
    EXPECT_EQ(Window().Text7.Text(), "Auto");
    Window().FGK4_DblClick(2, 8);
    EXPECT_EQ(Window().OpenColumn, 0);
    Window().FGK4_DblClick(1, 1);
    EXPECT_EQ(Window().OpenColumn, 0);
}

TEST_F(F5_Editor, of_a_name_blanks_its_cell_until_it_is_left) {
    Go(2, 1);
    Key('X');
    EXPECT_EQ(Text(2, 1), "");
    Window().Editor_KeyPress(qvm::Key::Escape);
    EXPECT_EQ(Text(2, 1), "Anna");
    EXPECT_FALSE(Window().Text1.Visible());
    EXPECT_FALSE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Window().Verlauf.Steps(), 0U);
}

TEST_F(F5_Editor, of_a_name_takes_letters_digits_blanks_and_umlauts_up_to_16) {
    Go(4, 1);
    Key('Z');
    Type(u8"oé ß-ä_9;Ö\tÄ"_w);
    EXPECT_EQ(Window().Text1.Text(), u8"Zo ßä9ÖÄ"_w);
    Type("ABCDEFGHIJKL");
    EXPECT_EQ(Window().Text1.Text(), u8"Zo ßä9ÖÄABCDEFGH"_w);
    EXPECT_EQ(Window().Text1.Text().size(), 16U);
}

TEST_F(F5_Editor, of_a_new_name_fills_group_right_and_picture_and_goes_to_the_code) {
    Cells().SetText(4, 2, "");
    Cells().SetText(4, 3, "");
    Enter(4, 1, "Cora");
    EXPECT_EQ(Row(4, 1, 3), "Cora|-|1");
    EXPECT_EQ(Cells().At(4, 7).Picture, FingerPicture::None);
    EXPECT_EQ(Cells().Row, 4);
    EXPECT_EQ(Cells().Column, 4);
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Window().Verlauf.Steps(), 1U);
}

TEST_F(F5_Editor, of_a_name_leaves_group_and_right_that_stand_and_shows_the_standard_picture_of_a_finger) {
    Cells().SetText(2, 2, "Timer-A");
    Cells().SetText(2, 3, "ADMI");
    Cells().SetText(2, 209, "77");
    Enter(2, 1, "Anne", qvm::Key::Tab);
    EXPECT_EQ(Row(2, 1, 3), "Anne|Timer-A|ADMI");
    EXPECT_EQ(Cells().At(2, 7).Picture, FingerPicture::Standard);
}

TEST_F(F5_Editor, of_a_name_that_is_looked_at_leaves_a_finger_out_of_use) {
    Cells().SetText(2, 209, "77");
    Cells().SetPicture(2, 7, FingerPicture::Off);
    Enter(2, 1, "Anna");
    Go(2, 1);
    Key(qvm::Key::Enter);
    Leave();
    EXPECT_EQ(Cells().At(2, 7).Picture, FingerPicture::Off);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Editor, of_a_name_that_another_user_has_says_so_and_keeps_the_old_one) {
    ExpectTwice();
    Enter(2, 1, "Bert");
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    EXPECT_EQ(Text(2, 1), "Anna");
    EXPECT_FALSE(Window().Text1.Visible());
    EXPECT_EQ(Cells().Column, 1);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Editor, of_a_name_confirmed_unchanged_is_no_change) {
    Enter(2, 1, "Anna");
    EXPECT_EQ(Cells().Column, 4);
    EXPECT_FALSE(Asked());
    EXPECT_EQ(Window().Verlauf.Steps(), 0U);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Row(2, 1, 4), "Anna|-|1|111111");
}

TEST_F(F5_Editor, of_a_name_that_is_emptied_goes_one_column_to_the_right_and_asks_nothing) {
    Enter(2, 1, "");
    EXPECT_EQ(Text(2, 1), "");
    EXPECT_EQ(Text(2, 2), "-");
    EXPECT_EQ(Cells().Column, 2);
}

TEST_F(F5_Editor, a_name_is_refused_only_when_it_is_confirmed_not_by_a_click_away) {
    Go(2, 1);
    Key('B');
    Type("ert");
    Leave();
    EXPECT_EQ(Text(2, 1), "Bert");
    EXPECT_EQ(Text(3, 1), "Bert");
    EXPECT_EQ(Cells().Row, 9);
    EXPECT_TRUE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Editor, a_click_away_from_a_new_name_fills_the_rest_of_the_row_too) {
    Go(4, 1);
    Key('C');
    Window().Editor_LostFocus();
    EXPECT_EQ(Row(4, 1, 3), "C|-|1");
    EXPECT_EQ(Cells().Column, 1); // it does not lead anywhere
}

TEST_F(F5_Editor, of_a_code_takes_the_keys_of_a_keypad_up_to_six) {
    Go(4, 4);
    Key('z');
    Type("a:;_+ä,");
    EXPECT_EQ(Window().Text2.Text(), "ZA0001");
    Type("5");
    EXPECT_EQ(Window().Text2.Text(), "ZA0001"); // full
    Backspace();
    Type(".");
    EXPECT_EQ(Window().Text2.Text(), "ZA0001");
    Window().Editor_KeyPress(qvm::Key::Enter);
    EXPECT_EQ(Text(4, 4), "ZA0001");
    EXPECT_EQ(Cells().Column, 5);
}

TEST_F(F5_Editor, of_a_code_of_eight_from_the_file_can_be_shortened_and_confirmed) {
    Cells().SetText(4, 4, "12345678");
    Go(4, 4);
    Key(qvm::Key::Enter);
    Type("9");
    EXPECT_EQ(Window().Text2.Text(), "12345678");
    Backspace();
    EXPECT_EQ(Window().Text2.Text(), "1234567");
    Window().Editor_KeyPress(qvm::Key::Tab);
    EXPECT_EQ(Text(4, 4), "1234567");
}

TEST_F(F5_Editor, a_code_of_more_than_eight_from_the_file_cannot_be_confirmed) {
    for (const char* code : {"123456789", "1234567890"}) {
        Cells().SetText(4, 4, code);
        Go(4, 4);
        Key(qvm::Key::Enter);
        Window().Editor_KeyPress(qvm::Key::Enter);
        EXPECT_TRUE(Window().Text2.Visible()) << code;
        EXPECT_EQ(Cells().Column, 4) << code;
        Window().Editor_KeyPress(qvm::Key::Escape);
        EXPECT_EQ(Text(4, 4), code);
    }
}

TEST_F(F5_Editor, leaves_the_caret_alone_while_everything_typed_is_allowed) {
    Cells().SetText(4, 1, "Mler");
    Go(4, 1);
    Key(qvm::Key::Enter);
    const int caret = Window().Text1.Caret();
    Window().Editor_Change(u8"Müler"_w);
    EXPECT_EQ(Window().Text1.Text(), u8"Müler"_w);
    EXPECT_EQ(Window().Text1.Caret(), caret);
}

TEST_F(F5_Editor, has_the_caret_where_it_was_when_a_character_is_left_out_or_put_back) {
    Cells().SetText(4, 1, "Mler");
    Go(4, 1);
    Key(qvm::Key::Enter);
    Window().Editor_Change("M!ler");
    EXPECT_EQ(Window().Text1.Text(), "Mler");
    EXPECT_EQ(Window().Text1.Caret(), 1);
    Window().Editor_Change("M!x;ler"); // pasted
    EXPECT_EQ(Window().Text1.Text(), "Mxler");
    EXPECT_EQ(Window().Text1.Caret(), 2);
    Window().Editor_KeyPress(qvm::Key::Escape);

    Cells().SetText(4, 5, "0123456789abcdef");
    Go(4, 5);
    Key(qvm::Key::Enter);
    Window().Editor_Change("012456789abcdef"); // Backspace behind the 3
    EXPECT_EQ(Window().Text7.Text(), "0123456789abcdef");
    EXPECT_EQ(Window().Text7.Caret(), 4);
    Window().Editor_Change("0123456789Xabcdef");
    EXPECT_EQ(Window().Text7.Caret(), 10);
}

TEST_F(F5_Editor, a_code_of_5_characters_cannot_be_confirmed_but_a_click_elsewhere_erases_it) {
    Enter(2, 4, "12345");
    EXPECT_TRUE(Window().Text2.Visible());
    EXPECT_EQ(Window().Text2.Text(), "12345");
    EXPECT_EQ(Cells().Column, 4);
    Leave();
    EXPECT_EQ(Text(2, 4), "");
    EXPECT_FALSE(Window().Text2.Visible());
    EXPECT_FALSE(Asked());
}

TEST_F(F5_Editor, a_code_of_six_stays_at_a_click_elsewhere_although_another_user_has_it) {
    Go(2, 4);
    Key('2');
    Type("22222");
    Leave();
    EXPECT_EQ(Text(2, 4), "222222");
}

TEST_F(F5_Editor, of_a_code_that_another_user_has_says_so_and_the_old_one_stays) {
    ExpectTwice();
    Enter(2, 4, "222222");
    EXPECT_EQ(Text(2, 4), "111111");
    EXPECT_FALSE(Window().Text2.Visible());
    EXPECT_EQ(Cells().Column, 4);
}

TEST_F(F5_Editor, of_a_code_or_designation_confirmed_unchanged_does_not_find_itself) {
    Enter(2, 4, "111111");
    Enter(2, 5, "Auto");
    EXPECT_FALSE(Asked());
    EXPECT_EQ(Window().Verlauf.Steps(), 0U);
    EXPECT_EQ(Cells().Column, 6);
}

TEST_F(F5_Editor, a_code_cannot_be_emptied_while_others_are_empty) {
    ExpectTwice();
    Enter(2, 4, "");
    EXPECT_EQ(Text(2, 4), "111111");
}

TEST_F(F5_Editor, escape_restores_a_code_of_any_length) {
    Go(2, 4);
    Key('9');
    Window().Editor_KeyPress(qvm::Key::Escape);
    EXPECT_EQ(Text(2, 4), "111111");
    EXPECT_FALSE(Window().Text2.Visible());
}

TEST_F(F5_Editor, of_a_designation_takes_any_character_and_goes_to_the_key) {
    Enter(2, 5, "Lkw #1;=%");
    EXPECT_EQ(Text(2, 5), "Lkw #1;=%");
    EXPECT_EQ(Cells().Column, 6);
}

TEST_F(F5_Editor, of_a_designation_that_is_full_swallows_every_key_with_backspace) {
    Go(2, 5);
    Key('0');
    Type("123456789012345");
    EXPECT_EQ(Window().Text7.Text(), "0123456789012345");
    Type("x");
    Backspace();
    EXPECT_EQ(Window().Text7.Text(), "0123456789012345");
    Window().Editor_KeyPress(qvm::Key::Tab);
    EXPECT_EQ(Text(2, 5), "0123456789012345");
}

TEST_F(F5_Editor, of_a_designation_that_another_user_has_says_so_and_the_old_one_stays) {
    ExpectTwice();
    Enter(2, 5, "Rad");
    EXPECT_EQ(Text(2, 5), "Auto");
    EXPECT_FALSE(Window().Text7.Visible());
    EXPECT_EQ(Cells().Column, 5);
}

TEST_F(F5_Editor, with_only_empty_designations_in_the_table_a_designation_cannot_be_emptied) {
    Cells().SetText(3, 5, "");
    ExpectTwice();
    Enter(2, 5, "");
    EXPECT_EQ(Text(2, 5), "Auto");
}

TEST_F(F5_Editor, a_designation_can_be_emptied_when_no_other_is_empty) {
    for (int row = 2; row <= 251; ++row) {
        Cells().SetText(row, 5, "L" + std::to_string(row));
    }
    Enter(100, 5, "");
    EXPECT_EQ(Text(100, 5), "");
    EXPECT_FALSE(Asked());
}

TEST_F(F5_Editor, a_designation_that_begins_with_slot_nr_cannot_be_opened) {
    Cells().SetText(2, 5, "Slot_Nr: 007");
    Go(2, 5);
    Key('x');
    EXPECT_EQ(Window().OpenColumn, 0);
    EXPECT_EQ(Text(2, 5), "Slot_Nr: 007");
    Window().FGK4_DblClick(2, 5);
    EXPECT_FALSE(Window().Text7.Visible());
}

TEST_F(F5_Editor, lists_the_groups_that_there_are_with_that_of_the_user_selected) {
    Cells().SetText(2, 2, "Putzdienst");
    Go(2, 2);
    Key(qvm::Key::Enter);
    EXPECT_TRUE(Window().List1.Visible());
    EXPECT_THAT(Window().List1.Entries(), ElementsAre(" - ", "Timer-A", "Timer-B", "Putzdienst"));
    EXPECT_EQ(Window().List1.Selected(), 3);
    Window().List1.Selected = 1;
    Window().Editor_KeyPress(qvm::Key::Enter);
    EXPECT_EQ(Text(2, 2), "Timer-A");
    EXPECT_FALSE(Window().List1.Visible());
    EXPECT_EQ(Cells().Column, 2);
}

TEST_F(F5_Editor, writes_no_group_as_a_dash_without_blanks) {
    Cells().SetText(2, 2, "Timer-A");
    Go(2, 2);
    Key('x');
    Window().List1.Selected = 0;
    Leave();
    EXPECT_EQ(Text(2, 2), "-");
}

TEST_F(F5_Editor, lists_the_six_rights_with_that_of_the_user_selected_or_the_first) {
    Go(4, 3);
    Key(qvm::Key::Enter);
    EXPECT_THAT(Window().List2.Entries(), ElementsAre("1", "0", "1/2", "1/3", "ADMI", "FS+"));
    EXPECT_EQ(Window().List2.Selected(), 0);
    Window().List2.Selected = 4;
    Window().Editor_KeyPress(qvm::Key::Tab);
    EXPECT_EQ(Text(4, 3), "ADMI");
    Key(qvm::Key::Enter);
    EXPECT_EQ(Window().List2.Selected(), 4);
    Leave(); // nobody chose anything
    EXPECT_EQ(Text(4, 3), "ADMI");
}

TEST_F(F5_Editor, a_right_that_is_none_of_the_six_stays_when_its_list_is_left) {
    Cells().SetText(2, 3, "XY");
    Go(2, 3);
    Key(qvm::Key::Enter);
    EXPECT_EQ(Window().List2.Selected(), -1);
    Leave();
    EXPECT_EQ(Text(2, 3), "XY");
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Editor, a_list_left_by_escape_keeps_what_stood_there) {
    Go(2, 3);
    Key(qvm::Key::Enter);
    Window().List2.Selected = 5;
    Window().Editor_KeyPress(qvm::Key::Escape);
    EXPECT_EQ(Text(2, 3), "1");
    EXPECT_FALSE(Window().List2.Visible());
    Go(2, 3);
    Key(qvm::Key::Enter);
    Window().List2.Selected = -1;
    Window().Editor_KeyPress(qvm::Key::Enter);
    EXPECT_EQ(Text(2, 3), "1");
}

TEST_F(F5_Editor, a_list_opens_higher_near_the_end_of_the_table) {
    EXPECT_EQ(F5::Listenhub(2, 233), 0);
    EXPECT_EQ(F5::Listenhub(2, 234), 500);
    EXPECT_EQ(F5::Listenhub(3, 234), 1300);
    EXPECT_EQ(F5::Listenhub(4, 251), 0);
}

TEST_F(F5_Editor, is_taken_over_before_any_command) {
    Go(4, 1);
    Key('C');
    Press("Speichern");
    EXPECT_EQ(Text(4, 1), "C");
    EXPECT_FALSE(Window().Text1.Visible());
    EXPECT_EQ(world.Disk.Files[Users].substr(2 * 419, 2), std::string("C\0", 2));
    Go(4, 1);
    Key('D');
    Window().F5_Undo_Click();
    EXPECT_EQ(Text(4, 1), "C");
    EXPECT_EQ(Window().OpenColumn, 0);
}

TEST_F(F5_Editor, an_entry_is_one_step_back) {
    Enter(4, 1, "Cora");
    Window().F5_Undo_Click();
    EXPECT_EQ(Row(4, 1, 3), "|-|");
    EXPECT_EQ(Cells().At(4, 7).Picture, 0);
    EXPECT_EQ(Window().Verlauf.Steps(), 0U);
}

} // namespace
} // namespace qvm::test
