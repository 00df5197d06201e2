// F13 as it opens: headers, rows, pictures, adapter columns, and the cell under the mouse.

#include "FensterFixture.h"
#include "Pictures.h"
#include "Text.h"

namespace qvm::test {
namespace {

struct F13_FormLaden : FensterFixture {
    const Cell& At(int row, int column) { return programm->Transfer->F13.FGK13.At(row, column); }
    std::string Text(int row, int column) { return At(row, column).Text; }

    /// LOCKCLASSCOMX.CMB: 16 characters address, 20 name, 12 serial.
    void Assign(int lock, std::string_view address, std::string_view name) {
        std::string& bytes = files.File("LOCKCLASSCOMX.CMB");
        bytes.resize(std::max(bytes.size(), static_cast<std::size_t>(lock) * 48), ' ');
        bytes.replace(static_cast<std::size_t>(lock - 1) * 48, address.size(), address);
        bytes.replace(static_cast<std::size_t>(lock - 1) * 48 + 16, name.size(), name);
    }
};

TEST_F(F13_FormLaden, shows_the_window_under_the_system_title_with_caller_code_three) {
    Start();
    programm->Transfer->F13.F13_FormLaden();
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
    EXPECT_EQ(programm->Transfer->F13.Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L32");
    EXPECT_EQ(programm->Transfer->F13.Aufrufer, 3);
    EXPECT_TRUE(programm->Transfer->F13.Timer1.Running());
    EXPECT_EQ(programm->Transfer->F13.Timer1.Interval(), 10);
    EXPECT_TRUE(programm->Transfer->F13.Timer2.Running());
    EXPECT_EQ(programm->Transfer->F13.Timer2.Interval(), 800);
}

TEST_F(F13_FormLaden, clears_the_list_count) {
    Start();
    Lauf().List.RunRow = 3;
    Lauf().List.RunRows = 7;
    Begin();
    EXPECT_EQ(Lauf().List.RunRow, 0);
    EXPECT_EQ(Lauf().List.RunRows, 0);
}

TEST_F(F13_FormLaden, has_a_header_and_two_hundred_rows_of_sixteen_columns) {
    Begin();
    EXPECT_EQ(programm->Transfer->F13.FGK13.Rows(), 201);
    EXPECT_EQ(programm->Transfer->F13.FGK13.Columns(), 16);
    std::vector<std::string> header;
    for (int column = 0; column < 16; ++column) {
        header.push_back(Text(0, column));
    }
    EXPECT_THAT(header,
                ElementsAre("L37", "L9", "L10", "", "", "", "", "", "", "L137", "L12", "L138", "L35", "", "", "Prg."));
}

TEST_F(F13_FormLaden, fills_a_row_from_the_lock_record) {
    files.Lock(7, "Haupteingang", "0F.a1.00.9C", "X X X");
    files.File("C64UX12H3D.EBW").replace(6 * 45 + 20, 8, "OFST0x03");
    Begin();
    std::vector<std::string> row;
    for (int column = 0; column < 9; ++column) {
        row.push_back(Text(7, column));
    }
    EXPECT_THAT(row, ElementsAre("7", "Haupteingang", "0F.a1.00.9C", "OFST0x03", "X", "", "X", "", "X"));
    EXPECT_EQ(Text(200, 0), "200");
}

TEST_F(F13_FormLaden, shows_no_serial_unless_all_four_parts_are_there) {
    for (int lock = 1; lock <= 4; ++lock) {
        files.Lock(lock, "Tor", "01.02.03.04");
        const auto part = static_cast<std::size_t>(lock - 1);
        files.File("C64UX12H3D.EBW").replace(part * 45 + 28 + part * 3, 3, "   ");
    }
    Begin();
    for (int lock = 1; lock <= 4; ++lock) {
        EXPECT_EQ(Text(lock, F13Column::Serial), "") << lock;
        EXPECT_EQ(At(lock, F13Column::Program).BackColor, White) << lock;
    }
}

TEST_F(F13_FormLaden, writes_all_rows_in_twelve_points) {
    SettledLock(1, "Tor");
    Begin();
    for (int column = 0; column < 16; ++column) {
        EXPECT_EQ(At(1, column).FontSize, 12) << column;
        EXPECT_EQ(At(2, column).FontSize, 12) << column;
    }
}

TEST_F(F13_FormLaden, colours_the_cells_that_can_be_clicked_of_a_row_with_a_serial) {
    SettledLock(1, "Tor");
    Start();
    programm->Transfer->F13.F17_Oeffnen = [] {};
    Begin();
    for (const int column : {9, 10, 11, 12, 15}) {
        EXPECT_NE(At(1, column).BackColor, White) << column;
    }
    for (const int column : {0, 1, 2, 3, 8, 13, 14}) {
        EXPECT_EQ(At(1, column).BackColor, White) << column;
    }
}

TEST_F(F13_FormLaden, leaves_the_code_cells_white_while_nothing_can_change_a_code) {
    SettledLock(1, "Tor");
    Begin();
    EXPECT_EQ(At(1, F13Column::Code).BackColor, White);
    EXPECT_NE(At(1, F13Column::History).BackColor, White);
    EXPECT_NE(At(1, F13Column::Status).BackColor, White);
}

TEST_F(F13_FormLaden, gives_the_tool_buttons_their_tips_and_enables_the_list_keys_once_there_is_a_list) {
    Start();
    programm->Transfer->F13.Listenzeile_Uebernehmen = {};
    Begin();
    const auto& [back, program, history] = programm->Transfer->F13.Toolbar1;
    EXPECT_EQ(back.Key, u8"Zurück"_w);
    EXPECT_EQ(back.Number, 11);
    EXPECT_EQ(back.Tip(), "L119");
    EXPECT_TRUE(back.Enabled);
    EXPECT_EQ(program.Key, "Prog.");
    EXPECT_EQ(program.Number, 1);
    EXPECT_EQ(program.Tip(), "L11");
    EXPECT_FALSE(program.Enabled);
    EXPECT_EQ(history.Key, "SaveHistory");
    EXPECT_EQ(history.Number, 3);
    EXPECT_EQ(history.Tip(), "L12");
    EXPECT_FALSE(history.Enabled);
    programm->Transfer->F13.Listenzeile_Uebernehmen = [](int, int) {};
    programm->Transfer->F13.F13_FormLaden();
    EXPECT_TRUE(program.Enabled);
    EXPECT_TRUE(history.Enabled);
}

TEST_F(F13_FormLaden, leaves_a_row_without_a_serial_white_and_shows_its_channel_all_the_same) {
    files.Lock(1, "Tor", "           ");
    files.Channel(1, "1", "3", "1");
    Begin();
    for (int column = 0; column < 16; ++column) {
        EXPECT_EQ(At(1, column).BackColor, White) << column;
        EXPECT_EQ(At(1, column).Picture, column == F13Column::Status ? ChannelPicture::Image7 : 0) << column;
    }
}

TEST_F(F13_FormLaden, clears_exactly_four_cells_of_a_lock_without_a_serial) {
    SettledLock(1, "Tor");
    Begin();
    programm->Transfer->F13.Del_FGK13_ICON(1, F13Column::Program);
    for (const int column : {9, 10, 11, 12}) {
        EXPECT_EQ(At(1, column).BackColor, White) << column;
        EXPECT_EQ(At(1, column).Picture, 0) << column;
    }
    EXPECT_NE(At(1, F13Column::Mark).BackColor, White);
    EXPECT_EQ(Text(1, F13Column::Serial), "00.0A.10.01");
}

TEST_F(F13_FormLaden, picks_the_status_picture_by_the_fourth_channel_field) {
    for (int lock = 1; lock <= 4; ++lock) {
        files.Lock(lock, "Tor", SerialS);
    }
    files.Channel(1, "3", "3", "1");
    files.Channel(2, "3", "3", "0");
    files.Channel(3, "1", "3", ""); // channels that differ, but no mark
    Begin();
    EXPECT_EQ(At(1, F13Column::Status).Picture, ChannelPicture::Image7);
    EXPECT_EQ(At(2, F13Column::Status).Picture, ChannelPicture::Image8);
    EXPECT_EQ(At(3, F13Column::Status).Picture, ChannelPicture::Image8);
    EXPECT_EQ(At(4, F13Column::Status).Picture, ChannelPicture::Image8);   // behind the end of the file
    EXPECT_EQ(At(200, F13Column::Status).Picture, ChannelPicture::Image8); // a row without a lock
}

TEST_F(F13_FormLaden, without_an_adapter_leaves_the_adapter_columns_empty) {
    SettledLock(1, "Tor");
    Assign(1, "/1/2/3/4", "PROGSTATION-A");
    Begin();
    EXPECT_EQ(Text(1, F13Column::AdapterId), "");
    EXPECT_EQ(Text(1, F13Column::AdapterName), "");
}

TEST_F(F13_FormLaden, with_one_adapter_gives_it_to_every_row_with_a_serial) {
    SettledLock(1, "Tor");
    files.Lock(2, "Ohne", "           ");
    SettledLock(3, "Keller");
    Assign(3, "/9/9/9/9", "PROGSTATION-B");
    Start();
    AddAdapter("/1/2/3/4", "PROGSTATION-A", "7");
    Begin();
    EXPECT_EQ(Text(1, F13Column::AdapterId), "/1/2/3/4");
    EXPECT_EQ(Text(1, F13Column::AdapterName), "PROGSTATION-A");
    EXPECT_EQ(Text(2, F13Column::AdapterId), "");
    EXPECT_EQ(Text(2, F13Column::AdapterName), "");
    EXPECT_EQ(Text(3, F13Column::AdapterId), "/1/2/3/4");
}

TEST_F(F13_FormLaden, with_several_adapters_takes_them_from_the_file_for_rows_with_a_serial) {
    SettledLock(1, "Tor");
    files.Lock(2, "Ohne", "           ");
    SettledLock(3, "Keller");
    Assign(1, "/1/2/3/4", "PROGSTATION-A");
    Assign(2, "/1/2/3/4", "PROGSTATION-A");
    Start();
    AddAdapter("/1/2/3/4", "PROGSTATION-A", "7");
    AddAdapter("/5/6/7/8", "PROGSTATION-B", "8");
    Begin();
    EXPECT_EQ(Text(1, F13Column::AdapterId), "/1/2/3/4");
    EXPECT_EQ(Text(1, F13Column::AdapterName), "PROGSTATION-A");
    EXPECT_EQ(Text(2, F13Column::AdapterId), "");
    EXPECT_EQ(Text(3, F13Column::AdapterId), ""); // behind the end of the file
}

TEST_F(F13_FormLaden, without_any_file_shows_two_hundred_dead_rows) {
    Begin();
    for (int row = 1; row <= 200; ++row) {
        EXPECT_EQ(Text(row, F13Column::Number), std::to_string(row));
        EXPECT_EQ(Text(row, F13Column::Name), "");
        EXPECT_EQ(At(row, F13Column::Program).BackColor, White);
    }
}

TEST_F(F13_FormLaden, opened_again_shows_the_files_as_they_are_now) {
    SettledLock(1, "Tor");
    Begin();
    Click(1, F13Column::Mark);
    files.Lock(1, "Neu", "           ");
    Begin();
    EXPECT_EQ(Text(1, F13Column::Name), "Neu");
    EXPECT_EQ(Mark(1), "");
    EXPECT_EQ(At(1, F13Column::Program).BackColor, White);
    EXPECT_EQ(At(1, F13Column::Status).Picture, ChannelPicture::Image8);
}

struct F13_Maus : FensterFixture {
    int Row = 0, Column = 0;

    F13_Maus() {
        SettledLock(1, "Tor");
        Start();
        programm->Transfer->F13.Maus_Zelle = [this](int& row, int& column) {
            row = Row;
            column = Column;
            return true;
        };
        programm->Transfer->F13.F13_FormLaden();
    }
    Colour Move(int row, int column) {
        Row = row;
        Column = column;
        world.RunFor(10);
        return Colour_Of(row, column);
    }
    Colour Colour_Of(int row, int column) { return programm->Transfer->F13.FGK13.At(row, column).BackColor; }
};

TEST_F(F13_Maus, lights_the_cell_and_gives_the_one_before_its_colour_back) {
    const Colour before = Colour_Of(1, 9);
    EXPECT_EQ(Move(1, 9), 0xE0E0E0U);
    EXPECT_EQ(Move(1, 10), 0xE0E0E0U);
    EXPECT_EQ(Colour_Of(1, 9), before);
}

TEST_F(F13_Maus, leaves_a_white_cell_white_so_that_it_stays_dead) {
    EXPECT_EQ(Move(2, 9), White);
    EXPECT_EQ(Move(1, 1), White);
}

TEST_F(F13_Maus, never_lights_the_header) {
    const Colour before = Colour_Of(0, 9);
    EXPECT_EQ(Move(0, 9), before);
}

TEST_F(F13_Maus, a_lit_cell_can_still_be_clicked) {
    Move(1, 15);
    Click(1, 15);
    EXPECT_EQ(Mark(1), "X");
}

TEST_F(F13_Maus, lights_the_same_cell_again_when_the_window_is_opened_again) {
    Move(1, 9);
    programm->Transfer->F13.F13_FormLaden();
    EXPECT_EQ(Move(1, 9), 0xE0E0E0U);
}

TEST_F(F13_Maus, looks_every_10_ms_and_by_the_second_timer_after_800_and_then_every_20) {
    programm->Transfer->F13.Timer1.Stop();
    Row = 1;
    Column = 9;
    world.RunFor(799);
    EXPECT_NE(Colour_Of(1, 9), 0xE0E0E0U);
    world.RunFor(1);
    EXPECT_EQ(Colour_Of(1, 9), 0xE0E0E0U);
    EXPECT_EQ(programm->Transfer->F13.Timer2.Interval(), 20);
    Column = 10;
    world.RunFor(20);
    EXPECT_EQ(Colour_Of(1, 10), 0xE0E0E0U);
}

TEST_F(F13_Maus, zurueck_stops_the_timers_and_brings_the_main_window_back) {
    int shown = 0;
    const Listener listener = programm->kern.Windows.BackToMain.Listen([&shown] { ++shown; });
    programm->Transfer->F13.Toolbar1_ButtonClick(u8"Zurück"_w);
    EXPECT_FALSE(programm->Transfer->F13.Timer1.Running());
    EXPECT_FALSE(programm->Transfer->F13.Timer2.Running());
    EXPECT_EQ(programm->Transfer->F13.Aufrufer, 0);
    EXPECT_FALSE(programm->Transfer->F13.Fenster.Visible);
    EXPECT_EQ(shown, 1);
}

TEST_F(F13_Maus, an_unknown_key_does_nothing) {
    programm->Transfer->F13.Toolbar1_ButtonClick("Neu");
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Visible);
    EXPECT_TRUE(programm->Transfer->F13.Fenster.Enabled);
}

} // namespace
} // namespace qvm::test
