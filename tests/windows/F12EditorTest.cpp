// The editors over the cells of the lock window: names, serial numbers, lists.

#include "F12Fixture.h"

#include <vector>

namespace qvm::test {
namespace {

struct F12_Editor : F12Fixture {
    void SetUp() override {
        files.Lock(1, "Tor", SerialS);
        files.Lock(2, "Lager", "00.0B.10.02");
        Open();
    }
    bool BoxesOpen() { return Window().Serie.Visible(); }
    std::string Boxes() {
        std::string text;
        for (const TextBox& box : Window().Serie.Boxes) {
            text += box.Text() + "|";
        }
        return text;
    }
};

TEST_F(F12_Editor, of_a_name_opens_with_the_typed_character_or_with_the_text_selected) {
    bool selected = false;
    Window().Text1.SelectAll = [&] { selected = true; };
    Go(1, 1);
    Key('x');
    EXPECT_EQ(Window().Text1.Text(), "x");
    EXPECT_FALSE(selected);
    Window().Editor_KeyPress(qvm::Key::Escape);
    EXPECT_EQ(Text(1, 1), "Tor");
    for (const int key : {qvm::Key::Enter, qvm::Key::Backspace, qvm::Key::Delete, int{';'}}) {
        selected = false;
        Go(1, 1);
        Key(key);
        EXPECT_EQ(Window().Text1.Text(), "Tor") << key;
        EXPECT_TRUE(selected) << key;
        Window().Editor_KeyPress(qvm::Key::Escape);
    }
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Editor, of_a_name_takes_19_characters_of_a_name_and_goes_to_the_serial_number) {
    EnterName(3, u8"Büro;§1 abcdefghijklmnop"_w);
    EXPECT_EQ(Text(3, 1), u8"Büro1 abcdefghijklm"_w);
    EXPECT_EQ(Text(3, 1).size(), 19U);
    EXPECT_EQ(Cells().Row, 3);
    EXPECT_EQ(Cells().Column, 2);
    EXPECT_TRUE(Window().Tabelle.LockDirty);
    EXPECT_EQ(Window().Verlauf.Steps(), 1U);
}

TEST_F(F12_Editor, of_a_name_that_another_lock_has_says_so_and_stays_open) {
    Expect(62);
    EnterName(1, "Lager");
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    EXPECT_TRUE(Window().Text1.Visible());
    EXPECT_EQ(Window().Text1.Text(), "Lager");
    EXPECT_EQ(Text(1, 1), "Tor");
    Window().Text1_Change("Lager 2");
    Window().Editor_KeyPress(qvm::Key::Tab);
    EXPECT_EQ(Text(1, 1), "Lager 2");
    EXPECT_FALSE(Window().Text1.Visible());
}

TEST_F(F12_Editor, of_a_name_confirmed_unchanged_is_no_change) {
    EnterName(1, "Tor");
    EXPECT_EQ(Text(1, 1), "Tor");
    EXPECT_FALSE(Window().Tabelle.LockDirty);
    EXPECT_EQ(Cells().Column, 2);
}

TEST_F(F12_Editor, of_a_name_can_be_emptied_beside_other_locks_without_one) {
    EnterName(1, "");
    EXPECT_EQ(Text(1, 1), "");
    EXPECT_EQ(Text(1, 2), SerialS);
}

TEST_F(F12_Editor, of_a_name_left_by_a_click_is_taken_over_without_a_comparison) {
    Go(1, 1);
    Key('x');
    Window().Text1_Change("Lager");
    Hit(5, 12);
    EXPECT_EQ(Text(1, 1), "Lager");
    EXPECT_FALSE(Window().Text1.Visible());
    EXPECT_EQ(Cells().Row, 5);
}

TEST_F(F12_Editor, of_a_serial_number_opens_four_empty_boxes_and_marks_the_channel_change_at_once) {
    Go(1, 2);
    Key('a');
    EXPECT_TRUE(BoxesOpen());
    EXPECT_EQ(Boxes(), "A||||");
    EXPECT_EQ(File(Channels).substr(9, 3), "1  ");
    EXPECT_EQ(Text(1, 2), SerialS);
    Window().Serie_KeyPress(0, qvm::Key::Escape);
    EXPECT_FALSE(BoxesOpen());
    EXPECT_EQ(Text(1, 2), SerialS);
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Editor, of_a_serial_number_takes_hexadecimal_digits_in_upper_case) {
    Go(1, 2);
    Key('g'); // no digit opens nothing
    EXPECT_FALSE(BoxesOpen());
    Key(qvm::Key::Enter);
    TypeSerial("aGb");
    EXPECT_EQ(Boxes(), "AB||||");
    Window().Serie_Change(1, "-f");
    EXPECT_EQ(Boxes(), "AB|F|||");
}

TEST_F(F12_Editor, of_a_serial_number_goes_from_box_to_box_behind_the_second_digit_and_by_tab_and_return) {
    std::vector<int> entered;
    for (int n = 0; n < 4; ++n) {
        Window().Serie.Boxes[static_cast<std::size_t>(n)].SetFocus = [&entered, n] { entered.push_back(n); };
    }
    Go(1, 2);
    Key(qvm::Key::Enter);
    Window().Serie_Change(0, "1");
    Window().Serie_Change(0, "12");
    Window().Serie_KeyPress(1, qvm::Key::Tab);
    Window().Serie_KeyPress(2, qvm::Key::Enter);
    EXPECT_THAT(entered, ElementsAre(0, 1, 2, 3));
    Window().Serie_Change(3, "AB"); // there is no next one
    EXPECT_EQ(entered.size(), 4U);
    EXPECT_TRUE(BoxesOpen());
}

TEST_F(F12_Editor, of_a_serial_number_empties_a_box_that_is_entered) {
    Go(1, 2);
    Key(qvm::Key::Enter);
    TypeSerial("1234");
    Window().Serie.Betreten(0);
    EXPECT_EQ(Boxes(), "|34|||");
    Window().Serie.Betreten(0); // told again by the view
    Window().Serie_Change(0, "9");
    Window().Serie.Betreten(0);
    EXPECT_EQ(Boxes(), "9|34|||");
    Window().Serie.Betreten(9);
    Window().Serie_Change(9, "1");
    EXPECT_EQ(Boxes(), "9|34|||");
}

TEST_F(F12_Editor, of_a_serial_number_confirmed_in_the_last_box_writes_it_and_the_emi_state) {
    EnterSerial(3, "01500c07");
    EXPECT_EQ(Text(3, 2), "01.50.0C.07");
    EXPECT_EQ(Picture(3, 10), 10);
    EXPECT_FALSE(BoxesOpen());
    EXPECT_EQ(Boxes(), "||||");
    EXPECT_EQ(Cells().Column, 2);
    EXPECT_TRUE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Editor, of_a_serial_number_inside_the_range_shows_not_applicable_and_no_click_changes_it) {
    struct Case {
        const char* Digits;
        int Picture;
    };
    for (const Case& one : {Case{"0B49FFFF", 10}, Case{"0B4A0000", 11}, Case{"0DFFB9EE", 11}, Case{"0DFFB9EF", 10}}) {
        EnterSerial(3, one.Digits);
        EXPECT_EQ(Picture(3, 10), one.Picture) << one.Digits;
    }
    EnterSerial(3, "0C000000");
    Hit(3, 10);
    Go(3, 10);
    Key(' ');
    Key(qvm::Key::Enter);
    EXPECT_EQ(Picture(3, 10), 11);
    EnterSerial(3, "01000000");
    Hit(3, 10);
    EXPECT_EQ(Picture(3, 10), 9);
    Hit(3, 10);
    EXPECT_EQ(Picture(3, 10), 10);
}

TEST_F(F12_Editor, of_a_serial_number_left_by_a_click_writes_it_and_leaves_the_emi_state) {
    Cells().SetPicture(1, 10, LockPicture::On);
    Go(1, 2);
    Key(qvm::Key::Enter);
    TypeSerial("0C000000");
    Hit(5, 12);
    EXPECT_EQ(Text(1, 2), "0C.00.00.00");
    EXPECT_EQ(Picture(1, 10), 9);
}

TEST_F(F12_Editor, of_a_serial_number_left_with_nothing_typed_keeps_the_old_one) {
    Go(1, 2);
    Key(qvm::Key::Enter);
    Window().Serie_LostFocus();
    EXPECT_EQ(Text(1, 2), SerialS);
    EXPECT_FALSE(BoxesOpen());
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Editor, of_a_serial_number_confirmed_with_nothing_typed_empties_it) {
    EnterSerial(1, "");
    EXPECT_EQ(Text(1, 2), "");
    EXPECT_EQ(Picture(1, 10), 11);
    EXPECT_EQ(Window().Hinweis.Text(), "");
}

TEST_F(F12_Editor, of_a_serial_number_with_digits_missing_says_so) {
    Go(1, 2);
    Key(qvm::Key::Enter);
    Window().Serie_Change(0, "1");
    Window().Serie_KeyPress(3, qvm::Key::Enter);
    EXPECT_EQ(Text(1, 2), "1...");
    EXPECT_EQ(Window().Hinweis.Text(), Wort(programm->kern, Word::SerialPartial));
}

TEST_F(F12_Editor, of_a_serial_number_gives_switches_to_a_lock_that_had_a_name_alone) {
    EnterName(4, "Keller");
    Press("Speichern");
    Open();
    EXPECT_EQ(Switches(4), (std::array{0, 0, 0, 0, 0}));
    EnterSerial(4, "00AA0001");
    EXPECT_EQ(Switches(4), (std::array{9, 9, 9, 9, 9}));
}

TEST_F(F12_Editor, of_a_serial_number_stays_closed_when_the_channel_change_cannot_be_noted) {
    for (const bool rest : {false, true}) {
        for (int n = 1; n <= 2; ++n) {
            const auto before = world.Disk.Files;
            Break(n, rest);
            ExpectWord(Word::LockChannelUnsaved);
            Go(1, 2);
            Key(qvm::Key::Enter);
            Mend();
            EXPECT_FALSE(BoxesOpen()) << n;
            EXPECT_EQ(world.Disk.Files, before) << n;
        }
    }
    const int operations = world.Disk.Operations;
    Key(qvm::Key::Enter);
    EXPECT_EQ(world.Disk.Operations - operations, 2); // the loop above has broken each
    EXPECT_TRUE(BoxesOpen());
}

TEST_F(F12_Editor, of_a_priority_asks_and_yes_takes_the_value) {
    world.Answers.push_back({.Text = "L152\r\nL153", .Reply = Answer::Yes});
    Choose(1, 9, 4);
    EXPECT_EQ(world.Shown.back().Title, "PRIO.");
    EXPECT_EQ(world.Shown.back().Choice, Buttons::YesNo);
    EXPECT_EQ(Text(1, 9), "5");
    EXPECT_EQ(Cells().At(1, 9).FontSize, 16);
}

TEST_F(F12_Editor, of_a_priority_answered_with_no_gives_3_whatever_was_chosen) {
    world.Answers.push_back({.Text = "L152\r\nL153", .Reply = Answer::Yes});
    Choose(1, 9, 0);
    EXPECT_EQ(Text(1, 9), "1");
    world.Answers.push_back({.Text = "L152\r\nL153", .Reply = Answer::No});
    Choose(1, 9, 4);
    EXPECT_EQ(Text(1, 9), "3");
}

TEST_F(F12_Editor, of_a_priority_whose_question_is_closed_changes_nothing) {
    world.Answers.push_back({.Text = "L152\r\nL153", .Reply = Answer::Cancel});
    Choose(1, 9, 4);
    EXPECT_EQ(Text(1, 9), "3");
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Editor, of_a_list_opens_with_what_the_cell_holds_on_a_coloured_ground) {
    Go(1, 9);
    Key('1');
    EXPECT_TRUE(Window().List1.Visible());
    EXPECT_EQ(Window().List1.Selected(), 2);
    EXPECT_EQ(Cells().At(1, 9).BackColor, 0xC0FFFFU);
    Window().Editor_LostFocus(); // asks nothing
    EXPECT_FALSE(Window().List1.Visible());
    EXPECT_EQ(Cells().At(1, 9).BackColor, White);
    EXPECT_EQ(Window().Verlauf.Steps(), 0U);
}

TEST_F(F12_Editor, of_a_timer_group_offers_none_and_those_with_a_name) {
    files.LockGroup(2, "Nachts", "XX---", "SBS_2");
    Open();
    Choose(1, 12, 1);
    EXPECT_THAT(Window().List3.Entries(), ElementsAre("-", "Nachts"));
    EXPECT_EQ(Text(1, 12), "Nachts");
    Press("Speichern");
    EXPECT_EQ(File(Bindings).substr(0, 21), "SBS_2          Nachts");
    Choose(1, 12, 0, qvm::Key::Tab);
    EXPECT_EQ(Text(1, 12), "-");
}

TEST_F(F12_Editor, of_an_adapter_writes_address_and_name_of_its_record) {
    AddAdapter("/1/2/3/4", "PROGSTATION-1", "1");
    AddAdapter("/1/2/3/5", "PROGSTATION-2", "2");
    files.Put("COMSETUPADAPTER.ADP", 65, 2, 0, 36, "/1/2/3/4        PROGSTATION-1       ");
    files.Put("COMSETUPADAPTER.ADP", 65, 5, 0, 36, "/9/9/9/9        PROGSTATION-9       ");
    Open();
    Choose(1, 13, 2);
    EXPECT_THAT(Window().List2.Entries(), ElementsAre(" - ", "PROGSTATION-1 [/1/2/3/4]", "PROGSTATION-9 [/9/9/9/9]"));
    EXPECT_EQ(Row(1, 13, 14), "/9/9/9/9|PROGSTATION-9");
    EXPECT_EQ(Cells().At(1, 13).ForeColor, 0x0000FFU);
    Choose(1, 13, 1);
    EXPECT_EQ(Row(1, 13, 14), "/1/2/3/4|PROGSTATION-1");
    EXPECT_EQ(Cells().At(1, 13).ForeColor, 0x800000U);
    Go(1, 13);
    Key(qvm::Key::Enter);
    EXPECT_EQ(Window().List2.Selected(), 1);
    Window().Editor_KeyPress(qvm::Key::Escape);
    Choose(1, 13, 0);
    EXPECT_EQ(Row(1, 13, 14), "| ");
}

TEST_F(F12_Editor, of_an_adapter_stays_closed_while_its_column_is_hidden) {
    Go(1, 13);
    Key(qvm::Key::Enter);
    EXPECT_EQ(Window().OpenColumn, 0);
}

TEST_F(F12_Editor, of_an_offset_gives_one_to_four_locks_and_refuses_the_fifth) {
    AddOffset(1, "Abends");
    AddOffset(3, "Morgens");
    Open();
    for (int row = 1; row <= 4; ++row) {
        Choose(row, 15, 2);
        EXPECT_EQ(Row(row, 15, 16), "Morgens|OFST0x03") << row;
    }
    EXPECT_THAT(Window().List4.Entries(), ElementsAre("-", "Abends", "Morgens"));
    Expect(230);
    Choose(5, 15, 1);
    EXPECT_EQ(world.Shown.back().Title, "L89");
    EXPECT_EQ(Row(5, 15, 16), "|");
    Choose(4, 15, 1); // one of the four is exchanged
    EXPECT_EQ(Row(4, 15, 16), "Abends|OFST0x01");
    Choose(4, 15, 0);
    EXPECT_EQ(Row(4, 15, 16), "|");
    Choose(5, 15, 1);
    EXPECT_EQ(Row(5, 15, 16), "Abends|OFST0x01");
}

TEST_F(F12_Editor, of_a_door_mode_dates_a_room_alone) {
    Choose(1, 17, 1); // 05.03.2026
    EXPECT_THAT(Window().List5.Entries(), ElementsAre("-", "L218", "L219"));
    EXPECT_EQ(Row(1, 17, 18), "L218|9560");
    Choose(1, 17, 2);
    EXPECT_EQ(Row(1, 17, 18), "L219|");
    Press("Speichern");
    EXPECT_EQ(File(Doors).substr(0, 30), "BB00 0A 10 01                 ");
    Choose(1, 17, 0);
    EXPECT_EQ(Row(1, 17, 18), "|");
}

TEST_F(F12_Editor, of_columns_without_one_does_not_open) {
    for (const int column : {0, 3, 11, 14, 16, 18}) {
        Cells().Row = 1;
        Cells().Column = column;
        Key(qvm::Key::Enter);
        EXPECT_EQ(Window().OpenColumn, 0) << column;
    }
    Window().FGK12_DblClick(0, 1);
    Window().FGK12_DblClick(-1, 1);
    Window().FGK12_DblClick(1, 99);
    EXPECT_EQ(Window().OpenColumn, 0);
    Window().FGK12_DblClick(1, 1);
    EXPECT_EQ(Window().OpenColumn, 1);
}

} // namespace
} // namespace qvm::test
