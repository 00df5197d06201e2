// Window F60: what the card writer answers, and what it does not.

#include "F60Fixture.h"

namespace qvm::test {
namespace {

TEST_F(F60_Karten, without_a_single_door_no_card_is_written_even_with_permanent_ones) {
    Open();
    Mark(2, "P");
    Expect(231);
    Window().Command2_Click();
    EXPECT_THAT(world.Written, IsEmpty());
    EXPECT_FALSE(Window().Label12.Visible);
    EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Ohne_Tuer);
}

TEST_F(F60_Karten, a_first_door_without_a_room_is_told_and_nothing_is_sent) {
    Open();
    Mark(2, "X");
    ExpectText("L242  [  Spa  /  Sn:   00.0A.10.02  ]  L243");
    Window().Command2_Click();
    EXPECT_THAT(world.Written, IsEmpty());
    EXPECT_TRUE(Window().Label12.Visible);
    EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Ohne_Raum);
}

TEST_F(F60_Karten, without_an_adapter_nothing_is_sent) {
    Open();
    programm->Adapter.EnrollmentPort = KeinPort;
    Mark(1, "X");
    Expect(195);
    Window().Command2_Click();
    EXPECT_THAT(world.Written, IsEmpty());
    EXPECT_FALSE(Window().Label12.Visible);
    Expect(195);
    Window().Command4_Click();
}

TEST_F(F60_Karten, a_port_that_cannot_be_opened_is_told) {
    Open();
    world.PortCanOpen = false;
    Mark(1, "X");
    Expect(Line::PortNotOpened);
    Window().Command2_Click();
    EXPECT_FALSE(Window().Wartet());
}

TEST_F(F60_Karten, success_clears_the_single_doors_only) {
    Open();
    Mark(2, "P");
    BeginWriting();
    EXPECT_TRUE(Window().Label12.Visible);
    EXPECT_FALSE(Window().Command2.Enabled);
    Expect(220);
    Say(0x6F, {0xD1});
    EXPECT_EQ(Cell(1, CardColumn::Mark), "");
    EXPECT_EQ(Window().FGK60.At(1, CardColumn::Mark).BackColor, White);
    EXPECT_EQ(Cell(2, CardColumn::Mark), "P");
    EXPECT_FALSE(Window().Label12.Visible);
    EXPECT_TRUE(Window().Command2.Enabled);
    EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Geschrieben);
}

TEST_F(F60_Karten, no_door_is_marked_while_a_card_is_being_written_that_does_not_hold_it) {
    Open();
    Mark(4, "X");
    Window().Undo_Click();
    BeginWriting();
    Window().FGK60_Click(2, CardColumn::Mark);
    Window().FGK60_KeyPress(' ');
    EXPECT_EQ(Window().FGK60.Row, 2);
    EXPECT_EQ(Cell(2, CardColumn::Mark), "");
    Window().Undo_Click();
    EXPECT_EQ(Cell(1, CardColumn::Mark), "X");
    Window().Redo_Click();
    ExpectText("L222");
    Say(0x6F, {0xD3});
    Window().FGK60_Click(2, CardColumn::Mark);
    EXPECT_EQ(Cell(2, CardColumn::Mark), "X");
    Window().Command4_Click();
    Window().FGK60_Click(4, CardColumn::Mark);
    EXPECT_EQ(Cell(4, CardColumn::Mark), "X") << "a reading takes no marks away";
}

TEST_F(F60_Karten, every_refusal_keeps_the_doors_and_has_its_message) {
    Open();
    for (const auto& [code, text] :
         std::vector<std::pair<std::uint8_t, std::string>>{{0xD2, "L221"},
                                                           {0xD3, "L222"},
                                                           {0xD4, "L227"},
                                                           {0xD5, "213      Fehler!"},
                                                           {0, "0      Fehler!"},
                                                           {1, "1      Fehler!"}, // one telegram has no second part
                                                           {2, "2      Fehler!"}}) {
        BeginWriting();
        ExpectText(text);
        Say(0x6F, {code});
        EXPECT_EQ(Cell(1, CardColumn::Mark), "X");
        EXPECT_FALSE(Window().Wartet());
        EXPECT_FALSE(Window().Label12.Visible);
        EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Abgelehnt);
    }
}

TEST_F(F60_Karten, the_sub_code_of_the_user_window_ends_without_a_message_and_opens_no_empty_table) {
    Open();
    BeginWriting();
    Say(0x6F, {0xDC});
    EXPECT_FALSE(Window().Wartet());
    EXPECT_FALSE(programm->Persons->F5.Fenster.Visible);
}

TEST_F(F60_Karten, a_card_that_is_not_there_is_told_and_the_window_stays) {
    Open();
    BeginWriting();
    ExpectText(u8"Karte nicht erkannt!"_w);
    Say(0x69, {0x6A});
    EXPECT_FALSE(Window().Label12.Visible);
    EXPECT_TRUE(Window().Fenster.Visible);
    EXPECT_FALSE(programm->Main->F2.Fenster.Visible);
    EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Abgelehnt);
}

TEST_F(F60_Karten, another_reason_of_a_refusal_is_told_by_its_number) {
    Open();
    for (const int reason : {0x64, 0x65, 0x66, 0x67}) {
        BeginWriting();
        ExpectText(std::to_string(reason) + "      Fehler!");
        Say(0x69, {static_cast<std::uint8_t>(reason)});
        EXPECT_FALSE(Window().Wartet());
    }
}

TEST_F(F60_Karten, an_adapter_pulled_out_meanwhile_is_told) {
    Open();
    BeginWriting();
    world.PortOpen = false;
    ExpectWord(Word::AdapterPulled);
    world.RunFor(1000);
    EXPECT_FALSE(Window().Wartet());
    EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Getrennt);
    EXPECT_EQ(Cell(1, CardColumn::Mark), "X");
}

TEST_F(F60_Karten, an_adapter_that_never_answers_is_told_after_15_seconds) {
    Open();
    BeginWriting();
    world.RunFor(14900);
    EXPECT_TRUE(Window().Wartet());
    ExpectWord(Word::ReaderSilent);
    world.RunFor(200);
    EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Stumm);
}

TEST_F(F60_Karten, what_comes_behind_the_end_is_nobody_s) {
    Open();
    BeginWriting();
    ExpectWord(Word::ReaderSilent);
    world.RunFor(15500);
    Say(0x6F, {0xD1});
    EXPECT_EQ(Cell(1, CardColumn::Mark), "X");
    BeginWriting();
    Window().Schliessen();
    Say(0x6F, {0xD1});
    EXPECT_EQ(Cell(1, CardColumn::Mark), "X");
}

// ---- reading

TEST_F(F60_Karten, a_card_is_read_in_three_blocks_and_the_battery) {
    Open();
    Window().Command4_Click();
    EXPECT_TRUE(Window().Label12.Visible);
    // Entries, slots, mark, 23.11.2026 15:00, 25.11.2026 09:30.
    Say(0x73, {0, 4, 0, 0, 1, 23, 11, 26, 15, 0, 25, 11, 26, 9, 30, 1, 2});
    Say(0x73, {1, 7, 8});
    Say(0x73, {2});
    Say(0x72, {0, 1, 0x2A, 3, 4});
    EXPECT_FALSE(Window().Wartet());
    EXPECT_FALSE(Window().Label12.Visible);
    EXPECT_TRUE(Window().Lesung.Fertig);
    EXPECT_THAT(Window().Lesung.Batterie, ElementsAre(1, 0x2A, 3, 4));
    EXPECT_EQ(Window().Lesung.Teile[1][0], 7);
    EXPECT_EQ(Window().Hinweis.Text(),
              Wort(programm->kern, Word::CardRead, {"23.11.2026 15:00", "25.11.2026 09:30", "01 2A 03 04"}));
    EXPECT_THAT(SentCodes(), ElementsAre(0x73, 0x73, 0x73, 0x72));
}

TEST_F(F60_Karten, a_card_whose_validity_makes_no_sense_shows_its_battery_only) {
    Open();
    Window().Command4_Click();
    Say(0x73, {0});
    Say(0x73, {1});
    Say(0x73, {2});
    Say(0x72, {0, 1, 2, 3, 4});
    EXPECT_EQ(Window().Hinweis.Text(), Wort(programm->kern, Word::CardReadShort, {"01 02 03 04"}));
}

TEST_F(F60_Karten, an_answer_that_lacks_bytes_ends_the_reading) {
    Open();
    Window().Command4_Click();
    ExpectWord(Word::CardReadBroken);
    world.Deliver(ReplyWire(0x73, 1, {})); // no number of a block
    world.RunFor(5);
    EXPECT_FALSE(Window().Wartet());
    Window().Command4_Click();
    for (std::uint8_t block = 0; block < 3; ++block) {
        Say(0x73, {block});
    }
    ExpectWord(Word::CardReadBroken);
    world.Deliver(ReplyWire(0x72, 5, {0, 1, 2, 3})); // three bytes of four
    world.RunFor(5);
    EXPECT_FALSE(Window().Wartet());
    EXPECT_FALSE(Window().Lesung.Fertig);
    EXPECT_EQ(Window().Ergebnis, KartenErgebnis::Abgelehnt);
    EXPECT_EQ(Window().Hinweis.Text(), "");
    EXPECT_THAT(world.Answers, IsEmpty());
}

TEST_F(F60_Karten, a_block_that_was_not_asked_for_ends_the_reading) {
    Open();
    for (const int block : {1, 2, 3, 255}) {
        Window().Command4_Click();
        ExpectWord(Word::CardReadBroken);
        Say(0x73, {static_cast<std::uint8_t>(block)});
        EXPECT_FALSE(Window().Wartet());
        EXPECT_FALSE(Window().Lesung.Fertig);
    }
}

} // namespace
} // namespace qvm::test
