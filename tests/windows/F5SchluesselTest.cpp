// E-Keys and transponders of the user window.

#include "LeserFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

constexpr std::string_view RowChanged =
    u8"In der Zeile steht jetzt ein anderer Benutzer. Es wurde nichts eingetragen. Bitte "
    u8"wiederholen Sie den Vorgang."_w;
constexpr std::string_view TooLate =
    u8"Es wurde ein Schlüssel gelesen, auf den nicht mehr gewartet wird. Er wurde nicht eingetragen."_w;
/// The telegram to the E-Key reader up to its parameters, which begin at index 14.
LineBytes KeyTelegram(std::uint8_t length, const LineBytes& rest) {
    LineBytes bytes{0x02, length, 0x67, 0x00, 0x00, 0x00, 0x00, 0x11, 0x00, 0x33, 0x88, 0x01, 0x00, 0x00};
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
}

// ---- learning

TEST_F(F5_Keys, are_learned_as_new_with_wish_0_on_the_systems_channel) {
    OpenDesk();
    Learn(2, Answer::Yes);
    EXPECT_EQ(world.Written, KeyTelegram(0x0F, {0x03, 0x00, 0xB6}));
    EXPECT_EQ(world.PortNumber, KeyPort);
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_EQ(world.Shown[0].Title, "E-Key");
    EXPECT_EQ(world.Shown[0].DefaultButton, 2);
    EXPECT_EQ(world.Shown[0].Choice, Buttons::YesNoCancel);
    EXPECT_EQ(world.Shown[0].Sign, Icon::Question);
    EXPECT_EQ(world.Shown[1].Title, "E-Key");
    EXPECT_EQ(world.Shown[1].Choice, Buttons::OkCancel);
}

TEST_F(F5_Keys, that_are_known_are_learned_with_wish_1) {
    OpenDesk();
    Learn(2, Answer::No);
    EXPECT_EQ(world.Written, KeyTelegram(0x0F, {0x03, 0x01, 0xB7}));
}

TEST_F(F5_Keys, are_learned_with_an_old_adapter_without_the_question_and_the_wish) {
    OpenDesk(3);
    Window().MenuRow = 2;
    ExpectText("L76\r\nL44");
    Keys().Save_Ekey_Click();
    EXPECT_EQ(world.Written, KeyTelegram(0x0E, {0x03, 0x3B}));
}

TEST_F(F5_Keys, are_asked_for_on_the_channel_that_the_system_is_set_to) {
    Config("RESET", 12, 5);
    OpenDesk();
    Synchronise();
    EXPECT_EQ(world.Written, KeyTelegram(0x0F, {0x0C, 0x01, 0xC9}));
}

TEST_F(F5_Keys, are_not_learned_when_either_question_is_cancelled) {
    OpenDesk();
    Expect(154, Answer::Cancel);
    Keys().Save_Ekey_Click();
    Expect(154, Answer::Yes);
    ExpectText("L76\r\nL44", Answer::Cancel);
    Keys().Save_Ekey_Click();
    EXPECT_TRUE(world.Written.empty());
}

TEST_F(F5_Keys, ask_for_their_adapter_before_anything_else) {
    OpenDesk();
    programm->Adapter.ProgStationPort = KeinPort;
    programm->Adapter.EnrollmentPort = KeinPort;
    for (const auto click :
         {&F5Schluessel::Save_Ekey_Click, &F5Schluessel::Search_Ekey_Click, &F5Schluessel::key_synchron_Click,
          &F5Schluessel::Save_RFID_Click, &F5Schluessel::Search_RFID_Click}) {
        Expect(195);
        (Keys().*click)();
        EXPECT_EQ(Last().Sign, Icon::Exclamation);
        EXPECT_EQ(Last().Title, "QVM 7702 SOFTWARE SYSTEM");
        EXPECT_TRUE(Window().Fenster.Enabled);
    }
    EXPECT_TRUE(world.Written.empty());
}

TEST_F(F5_Keys, search_for_an_adapter_that_is_not_known_yet_with_the_window_disabled) {
    OpenDesk();
    programm->Adapter.ProgStationPort = 0;
    bool disabled = false;
    world.At(10, [&] { disabled = !Window().Fenster.Enabled; });
    Expect(195);
    Keys().Search_Ekey_Click();
    EXPECT_TRUE(disabled);
    EXPECT_TRUE(Window().Fenster.Enabled);
}

TEST_F(F5_Keys, that_are_learned_go_to_the_row_with_their_data_and_the_channel_is_confirmed) {
    files.Channel(1, "", "7", "1");
    OpenDesk();
    Cells().SetForeColor(2, UserColumn::KeyId, UserLook::KeyOutOfStep);
    Learn(2);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "10 : 20 : 30 : 40|1 : 2 : 3 : 4 : 5 : 6 : 7 : 8 : 9 : 10 : 11 : 12 : 13 : 14 : 15 : 16");
    EXPECT_EQ(Cells().At(2, UserColumn::KeyId).ForeColor, Black);
    EXPECT_EQ(Channel(1), "   7  7  1  0  ");
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    EXPECT_EQ(world.Shown.size(), 2U) << "no further message";
}

TEST_F(F5_Keys, that_are_learned_take_the_place_of_the_one_before) {
    OpenDesk();
    Learn(3);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(3).substr(0, 18), "10 : 20 : 30 : 40|");
}

TEST_F(F5_Keys, whose_four_bytes_stand_in_another_row_or_in_the_same_one_are_refused_with_line_73) {
    OpenDesk();
    for (const int row : {2, 3}) {
        Learn(row);
        Expect(73);
        SayKey({1, 2, 3, 4});
        EXPECT_EQ(Last().Sign, Icon::Information);
    }
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Keys, of_user_250_are_found_too) {
    files.User(250, {.Name = "Zoe", .KeyId = "10 : 20 : 30 : 40"});
    OpenDesk();
    Learn(2);
    Expect(73);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Keys, go_to_the_row_that_was_asked_for_and_not_to_the_one_that_is_selected_now) {
    OpenDesk();
    Learn(2);
    Window().MenuRow = 3;
    Window().Auswahl.Go(4, 6);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2).substr(0, 18), "10 : 20 : 30 : 40|");
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
}

TEST_F(F5_Keys, go_nowhere_when_another_user_stands_in_the_row_by_now) {
    OpenDesk();
    Learn(2);
    Window().Aendern(Word::StepSort, [this] { Cells().SetText(2, UserColumn::Name, "Carl"); });
    ExpectText(RowChanged);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Keys, go_to_nobody_once_another_request_was_begun) {
    OpenDesk();
    Learn(2);
    Window().MenuRow = 3;
    Expect(154, Answer::Cancel);
    Keys().Save_Ekey_Click();
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
}

TEST_F(F5_Keys, that_come_behind_a_withdrawn_request_are_told_once_in_the_status_line) {
    OpenDesk();
    Learn(2);
    Expect(154, Answer::Cancel);
    Keys().Save_Ekey_Click();
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(Window().Hinweis.Text(), TooLate);
    EXPECT_EQ(KeyOf(2), "|");
    Window().Hinweis.Text = std::string();
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(Window().Hinweis.Text(), "") << "nobody has asked a second time";
}

TEST_F(F5_Keys, follow_their_user_through_a_sort) {
    files.User(1, {.Name = "Zoe"});
    OpenDesk();
    Learn(2);
    Window().F5_Sort_Click();
    ASSERT_EQ(Text(3, UserColumn::Name), "Zoe");
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(3).substr(0, 18), "10 : 20 : 30 : 40|");
    EXPECT_EQ(KeyOf(2), "1 : 2 : 3 : 4|5 : 6");
    EXPECT_EQ(Channel(2).substr(12, 1), "0") << "the channel is that of the row";
}

TEST_F(F5_Keys, follow_their_user_when_others_are_deleted_also_beside_one_of_the_same_name) {
    files.User(2, {.Name = "Bert"});
    files.User(3, {.Name = "Bert"});
    OpenDesk();
    Learn(4);
    Go(2, UserColumn::Name);
    Key(qvm::Key::Delete);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_EQ(KeyOf(3).substr(0, 18), "10 : 20 : 30 : 40|");
}

TEST_F(F5_Keys, go_nowhere_once_an_undo_may_have_moved_their_user) {
    files.User(1, {.Name = "Zoe"});
    OpenDesk();
    Learn(2);
    Window().F5_Sort_Click();
    Window().F5_Undo_Click();
    ASSERT_EQ(Text(2, UserColumn::Name), "Zoe");
    ExpectText(RowChanged);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Keys, follow_no_row_without_a_name) {
    files.User(1, {});
    OpenDesk();
    Learn(2);
    Window().F5_Sort_Click();
    ASSERT_EQ(Text(2, UserColumn::Name), "Bert");
    ExpectText(RowChanged);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(3), "|");
}

TEST_F(F5_Keys, are_asked_for_by_the_version_of_the_adapter_that_reads_them) {
    OpenDesk(3); // of the one that identified itself last
    programm->Adapter.ProgVersion = 12;
    Learn(2);
    EXPECT_EQ(world.Written, KeyTelegram(0x0F, {0x03, 0x00, 0xB6}));
    OpenDesk(12);
    programm->Adapter.ProgVersion = 3;
    Search();
    EXPECT_EQ(world.Written, KeyTelegram(0x0E, {0x03, 0x3B}));
}

TEST_F(F5_Keys, go_to_nobody_while_the_question_of_another_request_stands) {
    OpenDesk();
    Learn(2);
    Window().MenuRow = 3;
    world.World.ShowMessage = [this](const Message& message) {
        if (message.Choice == Buttons::YesNoCancel) {
            SayKey({10, 20, 30, 40});
        }
        return message.Choice == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
    };
    Keys().Save_Ekey_Click();
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
    SayKey({11, 20, 30, 40});
    EXPECT_EQ(KeyOf(3).substr(0, 18), "11 : 20 : 30 : 40|");
}

TEST_F(F5_Keys, go_to_nobody_once_a_transponder_was_asked_for_in_vain) {
    OpenDesk();
    Learn(2);
    programm->Adapter.EnrollmentPort = KeinPort;
    Window().MenuRow = 3;
    Expect(195);
    Keys().Save_RFID_Click();
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
}

TEST_F(F5_Keys, go_nowhere_when_another_user_of_that_name_has_moved_into_the_row) {
    files.User(3, {.Name = "Bert"});
    OpenDesk();
    Learn(3);
    Go(3, UserColumn::Name);
    Key(qvm::Key::Delete);
    EXPECT_EQ(Text(3, UserColumn::Name), "Bert");
    ExpectText(RowChanged);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(3), "|");
    // And back into the row of the one that was deleted.
    Learn(3);
    Window().F5_Undo_Click();
    ExpectText(RowChanged);
    SayKey({11, 20, 30, 40});
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
    EXPECT_EQ(KeyOf(4), "|");
}

TEST_F(F5_Keys, go_to_the_row_whose_name_is_being_edited) {
    OpenDesk();
    Learn(2);
    Window().FGK4_DblClick(2, UserColumn::Name);
    Type("e");
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2).substr(0, 18), "10 : 20 : 30 : 40|");
    EXPECT_EQ(Box(), &Window().Text1);
    Window().Editor_KeyPress(qvm::Key::Enter);
    EXPECT_EQ(Text(2, UserColumn::Name), "Annae");
}

TEST_F(F5_Keys, are_not_asked_of_another_adapter_that_came_while_a_question_stood) {
    OpenDesk();
    world.World.ShowMessage = [this](const Message& message) {
        world.Shown.push_back(message);
        if (message.Choice == Buttons::OkCancel) {
            ++programm->Adapter.Stand;
        }
        return message.Choice == Buttons::YesNoCancel ? Answer::Yes : Answer::Ok;
    };
    for (const auto click :
         {&F5Schluessel::Save_Ekey_Click, &F5Schluessel::Search_Ekey_Click, &F5Schluessel::key_synchron_Click}) {
        Window().MenuRow = 2;
        (Keys().*click)();
        EXPECT_EQ(Last().Text, ReaderPulled);
    }
    EXPECT_TRUE(world.Written.empty());
}

TEST_F(F5_Keys, of_an_adapter_that_came_in_the_place_of_the_one_that_was_asked_go_nowhere) {
    OpenDesk();
    Learn(2);
    ++programm->Adapter.Stand;
    ExpectText(ReaderPulled);
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Keys, that_come_twice_late_or_unasked_are_nobodys) {
    OpenDesk();
    SayKey({10, 20, 30, 40});
    EXPECT_EQ(KeyOf(2), "|");
    Learn(2);
    SayKey({10, 20, 30, 40});
    SayKey({11, 20, 30, 40});
    EXPECT_EQ(KeyOf(2).substr(0, 18), "10 : 20 : 30 : 40|");
    Learn(3);
    Window().Fenster.Visible = false; // closed meanwhile
    SayKey({12, 20, 30, 40});
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
}

TEST_F(F5_Keys, in_a_reply_that_is_too_short_are_not_learned) {
    OpenDesk();
    Learn(2);
    Expect(69);
    Say(0x81, 0x12, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9, 9, 9, 9});
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Keys, that_the_reader_refuses_are_told_by_what_they_were_wanted_for) {
    OpenDesk();
    Learn(2);
    Expect(69);
    Refuse(0x66);
    EXPECT_EQ(Last().Sign, Icon::Information);
    EXPECT_EQ(Last().Title, "QVM 7702 SOFTWARE SYSTEM");
    Search();
    Expect(144);
    Refuse(0x66);
    Synchronise();
    Expect(145);
    Refuse(0x66);
    EXPECT_TRUE(Window().Fenster.Enabled);
    Refuse(0x66); // nobody asked
}

TEST_F(F5_Keys, of_a_silent_reader_leave_the_window_as_it_is) {
    OpenDesk();
    Learn(2);
    world.RunFor(3600000);
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Keys, that_cannot_be_asked_for_are_told) {
    OpenDesk();
    world.PortCanOpen = false;
    Expect(76);
    Expect(276);
    Keys().Search_Ekey_Click();
}

TEST_F(F5_Keys, whose_channel_cannot_be_recorded_are_told_and_the_file_stays_as_it_was) {
    for (const int operation : {1, 2}) { // its read, its write
        files.Channel(1, "1", "7", "1");
        OpenDesk();
        const std::string before = world.Disk.Files[Channels];
        Learn(2);
        Break(operation, true);
        ExpectText(ChannelUnsaved);
        SayKey({10, 20, 30, 40});
        world.Disk.FailAt = 0;
        world.Disk.FailFromThere = false;
        EXPECT_EQ(Text(2, UserColumn::KeyId), "10 : 20 : 30 : 40");
        EXPECT_EQ(world.Disk.Files[Channels], before) << operation;
    }
}

TEST_F(F5_Keys, are_taken_back_by_one_undo_which_says_that_the_channel_stays) {
    OpenDesk();
    Learn(2);
    SayKey({10, 20, 30, 40});
    Window().F5_Undo_Click();
    EXPECT_EQ(KeyOf(2), "|");
    EXPECT_NE(Window().Hinweis.Text().find("Funkkanal"), std::string::npos);
}

// ---- searching and synchronising

TEST_F(F5_Keys, are_searched_and_synchronised_with_an_old_adapter_without_a_wish) {
    OpenDesk(3);
    Search();
    EXPECT_EQ(world.Written, KeyTelegram(0x0E, {0x03, 0x3B}));
    world.Written.clear();
    Synchronise();
    EXPECT_EQ(world.Written, KeyTelegram(0x0E, {0x03, 0x3B}));
}

TEST_F(F5_Keys, are_searched_with_wish_100_and_the_user_is_told) {
    OpenDesk();
    Search();
    EXPECT_EQ(world.Written, KeyTelegram(0x0F, {0x03, 0x64, 0x1B}));
    ExpectText("L37 2\r\nL38: Bert");
    SayKey({1, 2, 3, 4});
    EXPECT_EQ(Last().Sign, Icon::Information);
    EXPECT_EQ(Cells().At(3, UserColumn::KeyId).BackColor, 0xFFFFU);
    EXPECT_EQ(Cells().At(3, UserColumn::KeyId).ForeColor, 0xFF0000U);
    EXPECT_EQ(Cells().Row, 3);
    EXPECT_EQ(Cells().Column, 6);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Keys, that_nobody_has_are_searched_without_a_message) {
    OpenDesk();
    Search();
    SayKey({9, 9, 9, 9});
    EXPECT_EQ(world.Shown.size(), 1U);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Keys, are_synchronised_in_every_row_that_has_them) {
    files.User(3, {.Name = "Carl", .KeyId = "1 : 2 : 3 : 4"});
    files.Channel(2, "1", "7", "1");
    files.Channel(3, "1", "8", "1");
    OpenDesk();
    Cells().SetForeColor(3, UserColumn::KeyId, UserLook::KeyOutOfStep);
    Synchronise();
    EXPECT_EQ(world.Written, KeyTelegram(0x0F, {0x03, 0x01, 0xB7}));
    Expect(169);
    Expect(169);
    SayKey({1, 2, 3, 4});
    EXPECT_EQ(Last().Title, "INFO");
    EXPECT_EQ(Channel(2), "1  7  7  1  0  ");
    EXPECT_EQ(Channel(3), "1  8  8  1  0  ");
    EXPECT_EQ(Cells().At(3, UserColumn::KeyId).ForeColor, Black);
    EXPECT_EQ(Cells().Row, 4);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Keys, say_where_they_were_found) {
    OpenDesk();
    Search();
    ExpectText("*");
    SayKey({1, 2, 3, 4});
    EXPECT_EQ(Keys().Fund.Row, 3);
    Search();
    EXPECT_EQ(Keys().Fund.Row, 0) << "asked anew";
    SayKey({9, 9, 9, 9});
    EXPECT_EQ(Keys().Fund.Row, 0);
    Synchronise();
    Expect(169);
    SayKey({1, 2, 3, 4});
    EXPECT_EQ(Keys().Fund.Row, 3);
    EXPECT_FALSE(Keys().Fund.Unsaved);
    Synchronise();
    Break(1, true);
    ExpectText(u8"Der E-Key von Bert wurde gelesen, aber sein Funkkanal konnte nicht gespeichert werden. Bitte prüfen "
               u8"Sie den Datenträger, und synchronisieren Sie den E-Key noch einmal."_w);
    SayKey({1, 2, 3, 4});
    EXPECT_EQ(Keys().Fund.Row, 3);
    EXPECT_TRUE(Keys().Fund.Unsaved);
}

TEST_F(F5_Keys, that_nobody_has_are_synchronised_without_a_message) {
    files.Channel(2, "1", "7", "1");
    OpenDesk();
    Synchronise();
    SayKey({9, 9, 9, 9});
    EXPECT_EQ(Channel(2), "1     7  1     ");
}

} // namespace
} // namespace qvm::test
