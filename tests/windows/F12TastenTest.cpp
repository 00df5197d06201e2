// Mouse and keyboard on the grid of the lock window.

#include "F12Fixture.h"

#include <vector>

namespace qvm::test {
namespace {

struct F12_Tasten : F12Fixture {
    std::vector<F12Menu> menus;

    void SetUp() override {
        files.Lock(1, "Tor", SerialS);
        files.Lock(2, "Lager", "00.0B.10.02");
        Open();
        Window().Menue_Zeigen = [this](F12Menu which) { menus.push_back(which); };
    }
};

TEST_F(F12_Tasten, tab_goes_to_the_right_past_the_hidden_column_and_stops_at_column_6) {
    Go(1, 1);
    std::vector<int> columns;
    for (int n = 0; n < 5; ++n) {
        Key(qvm::Key::Tab);
        columns.push_back(Cells().Column);
    }
    EXPECT_THAT(columns, ElementsAre(2, 4, 5, 6, 6));
    Go(1, 7);
    Key(qvm::Key::Tab);
    EXPECT_EQ(Cells().Column, 7);
    Go(1, 12);
    Key(qvm::Key::Tab);
    EXPECT_EQ(Cells().Column, 12);
}

TEST_F(F12_Tasten, column_6_ignores_every_key_but_the_space_bar) {
    Go(1, 6);
    for (const int key : {qvm::Key::Enter, qvm::Key::Tab, int{'a'}, qvm::Key::Delete}) {
        Key(key);
        EXPECT_EQ(Picture(1, 6), 9) << key;
        EXPECT_EQ(Cells().Column, 6) << key;
    }
    Key(' ');
    EXPECT_EQ(Picture(1, 6), 10);
}

TEST_F(F12_Tasten, a_click_toggles_a_switch_and_another_one_back) {
    for (const int column : {4, 5, 6, 7, 8}) {
        Hit(1, column);
        EXPECT_EQ(Picture(1, column), 10) << column;
        Hit(1, column);
        EXPECT_EQ(Picture(1, column), 9) << column;
    }
    EXPECT_TRUE(Window().Tabelle.LockDirty);
    EXPECT_EQ(Window().Verlauf.Steps(), 10U);
    EXPECT_EQ(Window().F12_Undo.Text(), u8"Rückgängig: Schalten"_w);
    Hit(1, 4, MouseButton::Right);
    Hit(1, 9);
    Hit(0, 4);
    EXPECT_EQ(Window().Verlauf.Steps(), 10U);
}

TEST_F(F12_Tasten, space_and_return_toggle_every_switch_of_a_block_as_one_step) {
    Select(1, 4, 2, 10);
    Key(' ');
    EXPECT_EQ(Switches(1), (std::array{10, 10, 10, 10, 10}));
    EXPECT_EQ(Switches(2), (std::array{10, 10, 10, 10, 10}));
    EXPECT_EQ(Picture(2, 10), 11); // not applicable
    EXPECT_EQ(Text(1, 9), "3");
    Select(1, 4, 2, 5);
    Key(qvm::Key::Enter);
    EXPECT_EQ(Switches(2), (std::array{9, 9, 10, 10, 10}));
    Window().F12_Undo_Click();
    Window().F12_Undo_Click();
    EXPECT_EQ(Switches(1), (std::array{9, 9, 9, 9, 9}));
}

TEST_F(F12_Tasten, a_click_into_a_larger_block_toggles_nothing_and_keeps_it) {
    Select(1, 4, 2, 5);
    Hit(2, 4);
    EXPECT_EQ(Picture(2, 4), 9);
    EXPECT_EQ(Window().Auswahl.Block(), (GridBlock{1, 4, 2, 5}));
}

TEST_F(F12_Tasten, a_left_click_on_a_serial_and_a_right_one_on_a_name_open_their_menus) {
    Hit(1, 2);
    Hit(1, 1, MouseButton::Right);
    EXPECT_THAT(menus, ElementsAre(F12Menu::FGK12_AN, F12Menu::F12_del));
    Hit(1, 1);
    Hit(1, 2, MouseButton::Right);
    Hit(1, 12);
    EXPECT_EQ(menus.size(), 2U);
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Tasten, the_key_for_menus_opens_that_of_the_cell) {
    Go(1, 2);
    Window().FGK12_Kontext();
    Go(1, 1);
    Window().FGK12_Kontext();
    Go(1, 9);
    Window().FGK12_Kontext();
    EXPECT_THAT(menus, ElementsAre(F12Menu::FGK12_AN, F12Menu::F12_del));
}

TEST_F(F12_Tasten, letters_that_are_no_digits_open_no_list) {
    Go(1, 12);
    Key('g');
    EXPECT_EQ(Window().OpenColumn, 0);
    Key('b');
    EXPECT_EQ(Window().OpenColumn, 12);
    Window().Editor_KeyPress(qvm::Key::Escape);
    Key(qvm::Key::Escape);
    EXPECT_EQ(Window().OpenColumn, 0);
}

TEST_F(F12_Tasten, the_menu_of_a_serial_opens_the_boxes) {
    Go(2, 1);
    Window().SNA_Input_Click();
    EXPECT_TRUE(Window().Serie.Visible());
    EXPECT_EQ(Cells().Row, 2);
    EXPECT_EQ(Cells().Column, 2);
}

TEST_F(F12_Tasten, the_menu_of_a_serial_starts_the_scan_for_its_lock_and_notes_a_change) {
    int asked = 0;
    Window().SNA_save_Click(); // nobody scans
    EXPECT_FALSE(Window().Tabelle.LockDirty);
    Window().Suche_Starten = [&](int lock) { asked = lock; };
    Go(2, 2);
    Window().SNA_save_Click();
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(Window().Tabelle.LockDirty);
    Window().Serie_Uebernehmen(2, "0C.00.00.01", "AE ");
    EXPECT_EQ(Text(2, 2), "0C.00.00.01");
    EXPECT_EQ(Picture(2, 10), 11);
    EXPECT_EQ(Text(2, 11), "AE ");
    EXPECT_EQ(Window().F12_Undo.Text(), u8"Rückgängig: Seriennummer einlesen"_w);
    Window().Serie_Uebernehmen(0, "x", "y");
    Window().Serie_Uebernehmen(201, "x", "y");
    EXPECT_EQ(Window().Verlauf.Steps(), 1U);
}

TEST_F(F12_Tasten, tints_the_row_under_the_mouse_only_when_it_is_asked_to) {
    EXPECT_FALSE(Window().Timer1.Running());
    Window().Maus_Zelle = [](int& row, int& column) {
        row = 7;
        column = 5;
        return true;
    };
    Window().F12_COURon_Click();
    EXPECT_EQ(Window().Timer1.Interval(), 10);
    EXPECT_EQ(Window().Timer2.Interval(), 800);
    world.RunFor(799);
    EXPECT_EQ(Cells().At(7, 0).BackColor, White);
    world.RunFor(20);
    EXPECT_EQ(Cells().At(7, 0).BackColor, 0xE0E0E0U);
    Window().F12_COURoff_Click();
    EXPECT_EQ(Cells().At(7, 0).BackColor, White);
    EXPECT_FALSE(Window().Timer1.Running());
    EXPECT_FALSE(Window().Timer2.Running());
}

} // namespace
} // namespace qvm::test
