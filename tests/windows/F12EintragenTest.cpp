// Texts that cells of the lock window and of the unit window get at once, without a key.

#include "F12Fixture.h"

namespace qvm::test {
namespace {

constexpr int LockNameAt = 1, LockSerialAt = 2, PriorityAt = 9, EmiAt = 10, DoorAt = 17;

struct F12_Eintragen : F12Fixture {
    void SetUp() override {
        files.Lock(1, "Tor", SerialS);
        files.Lock(2, "Lager", "00.0B.10.02");
        Open();
    }
    void Put(int row, int column, std::string_view text) { Window().FGK12_Eintragen(row, column, text); }
};

TEST_F(F12_Eintragen, a_name_is_filtered_confirmed_and_leads_to_the_serial_number) {
    Put(3, LockNameAt, "Ke!ller");
    EXPECT_EQ(Text(3, LockNameAt), "Keller");
    EXPECT_EQ(std::pair(Cells().Row, Cells().Column), std::pair(3, LockSerialAt));
    EXPECT_EQ(Window().OpenColumn, 0);
    EXPECT_TRUE(Window().Tabelle.LockDirty);
    EXPECT_EQ(Window().Verlauf.Steps(), 1U);
}

TEST_F(F12_Eintragen, a_name_that_another_lock_has_stays_in_the_open_box) {
    Expect(62);
    Put(1, LockNameAt, "Lager");
    EXPECT_EQ(Text(1, LockNameAt), "Tor");
    EXPECT_TRUE(Window().Text1.Visible());
    EXPECT_EQ(Window().Text1.Text(), "Lager");
}

TEST_F(F12_Eintragen, a_serial_number_is_typed_with_or_without_points_and_decides_on_the_emi_state) {
    File(Channels) = std::string(15, ' ') + "4  4  4  0  0  ";
    Put(2, LockSerialAt, "0b.60.00.01");
    EXPECT_EQ(Text(2, LockSerialAt), "0B.60.00.01");
    EXPECT_EQ(Picture(2, EmiAt), LockPicture::NotApplicable);
    EXPECT_EQ(File(Channels), std::string(15, ' ') + "4  4  4  1  0  ") << "it may be another lock now";
    Put(2, LockSerialAt, "000b1003");
    EXPECT_EQ(Text(2, LockSerialAt), "00.0B.10.03");
    EXPECT_EQ(Picture(2, EmiAt), LockPicture::Off);
    EXPECT_FALSE(Window().Serie.Visible());
}

TEST_F(F12_Eintragen, of_a_serial_number_wrong_digits_are_swallowed_and_missing_ones_are_said) {
    Put(2, LockSerialAt, "0G.0B..3");
    EXPECT_EQ(Text(2, LockSerialAt), "0.0B..3") << "as the same keys give it";
    EXPECT_EQ(Window().Hinweis.Text(), Wort(programm->kern, Word::SerialPartial));
    Put(2, LockSerialAt, "00.0B.10.029");
    EXPECT_EQ(Text(2, LockSerialAt), "00.0B.10.02");
    Put(2, LockSerialAt, "");
    EXPECT_EQ(Text(2, LockSerialAt), "");
}

TEST_F(F12_Eintragen, where_the_channel_cannot_be_noted_the_serial_number_stays) {
    Break(1, true);
    ExpectWord(Word::LockChannelUnsaved);
    Put(2, LockSerialAt, "00.0B.10.03");
    Mend();
    EXPECT_EQ(Text(2, LockSerialAt), "00.0B.10.02");
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

TEST_F(F12_Eintragen, a_list_gives_one_of_its_entries_by_its_question_or_nothing) {
    Put(2, DoorAt, "L218");
    EXPECT_EQ(Text(2, DoorAt), "L218");
    world.Answers.push_back({.Text = "L152\r\nL153", .Reply = Answer::Yes});
    Put(2, PriorityAt, " 5");
    EXPECT_EQ(Text(2, PriorityAt), "5");
    Put(2, PriorityAt, "6");
    Put(2, DoorAt, "");
    EXPECT_EQ(Text(2, PriorityAt), "5");
    EXPECT_EQ(Text(2, DoorAt), "L218");
    EXPECT_EQ(Window().OpenColumn, 0);
    Put(2, DoorAt, "-");
    EXPECT_EQ(Text(2, DoorAt), "");
}

TEST_F(F12_Eintragen, does_nothing_where_no_editor_opens) {
    const std::string before = Row(2, 0, 18);
    for (const int column : {0, 3, 4, EmiAt, 11, 13, 14, 16, 18}) {
        EXPECT_FALSE(Window().Beschreibbar(2, column)) << column;
        Put(2, column, "X");
    }
    Put(0, LockNameAt, "Heading");
    Put(900, 900, "Nowhere");
    Window().Fenster.Enabled = false;
    Put(2, LockNameAt, "Dora");
    EXPECT_EQ(Row(2, 0, 18), before);
    EXPECT_EQ(Text(0, LockNameAt), "L50");
    EXPECT_FALSE(Window().Tabelle.LockDirty);
}

struct F20_Eintragen : F12Fixture {
    struct F20& Sheet() {
        return programm->Locks->F20;
    }
    void SetUp() override {
        files.Lock(2, "Lager", "00.0B.10.02");
        files.Unit(2, 1, "Tastatur", "01600005", '1', "7");
        files.Unit(2, 3, "Leser", "00002001", '2', "1");
        programm.reset();
        Open();
        Go(2, 2);
        Window().SNA_Function_Click();
    }
    void Put(int row, int column, std::string_view text) { Sheet().FGK20_Eintragen(row, column, text); }
    std::string Whole(int row) {
        const Grid& grid = Sheet().FGK20;
        return grid.Text(row, 1) + "|" + grid.Text(row, 2) + "|" + grid.Text(row, 3) + "|" + grid.Text(row, 4);
    }
};

TEST_F(F20_Eintragen, a_name_is_confirmed_and_leads_to_the_serial_number) {
    Put(2, 1, "Finger");
    EXPECT_EQ(Whole(2), "Finger|||");
    EXPECT_EQ(std::pair(Sheet().FGK20.Row, Sheet().FGK20.Column), std::pair(2, 2));
    Put(2, 1, std::string(29, 'x') + "yz");
    EXPECT_EQ(Sheet().FGK20.Text(2, 1), std::string(29, 'x') + "y");
}

TEST_F(F20_Eintragen, a_name_that_another_unit_has_stays_in_the_open_box) {
    Expect(62);
    Put(1, 1, "Leser");
    EXPECT_TRUE(Sheet().Text1.Visible());
    EXPECT_EQ(Sheet().Text1.Text(), "Leser");
    Sheet().Text1_KeyPress(qvm::Key::Escape);
    EXPECT_EQ(Whole(1), "Tastatur|01.60.00.05|1|7");
}

TEST_F(F20_Eintragen, a_serial_number_gives_the_class_at_both_ends_of_its_ranges) {
    Put(1, 2, "00.50.00.00");
    EXPECT_EQ(Whole(1), "Tastatur|00.50.00.00|2|7");
    Put(1, 2, "01600001");
    EXPECT_EQ(Whole(1), "Tastatur|01.60.00.01|1|7");
    Put(1, 2, "00.00.00.01");
    EXPECT_EQ(Whole(1), "Tastatur|00.00.00.01|2|7");
    Put(1, 2, "01.64.00.00");
    EXPECT_EQ(Whole(1), "Tastatur|01.64.00.00|1|7");
}

TEST_F(F20_Eintragen, a_serial_number_out_of_the_ranges_is_refused_as_when_it_is_typed) {
    for (const std::string_view wrong : {"00.50.00.01", "01.60.00.00", "01.64.00.01", "", "G"}) {
        world.Answers.push_back({.Text = "Wrong Modul"});
        Put(3, 2, wrong);
        EXPECT_EQ(Whole(3), "Leser||0|1") << wrong;
    }
}

TEST_F(F20_Eintragen, does_nothing_where_no_editor_opens) {
    for (const int column : {0, 3, 4, 5, -1}) {
        EXPECT_FALSE(Sheet().Beschreibbar(1, column)) << column;
        Put(1, column, "9");
    }
    Put(0, 1, "Heading");
    Put(6, 1, "Nowhere");
    Sheet().Fenster.Enabled = false;
    Put(1, 1, "Dora");
    EXPECT_EQ(Whole(1), "Tastatur|01.60.00.05|1|7");
    EXPECT_EQ(Sheet().FGK20.Text(0, 1), "L50");
}

} // namespace
} // namespace qvm::test
