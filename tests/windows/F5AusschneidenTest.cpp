// E-Keys of the user window that are cut and pasted.

#include "FreedMemory.h"
#include "LeserFixture.h"
#include "Text.h"

namespace qvm::test {
namespace {

TEST_F(F5_Keys, move_with_their_data_and_their_channel) {
    files.Channel(2, "1", "7", "1"); // whose flag of the key is blank: red
    OpenDesk();
    Window().MenuRow = 3;
    Keys().key_ausschneiden_Click();
    EXPECT_EQ(KeyOf(3), "|");
    EXPECT_EQ(Channel(2), "1     7  1     ") << "the source stays";
    Window().MenuRow = 2;
    Keys().key_einfuegen_Click();
    EXPECT_EQ(KeyOf(2), "1 : 2 : 3 : 4|5 : 6");
    EXPECT_EQ(Channel(1), "   7           ");
    EXPECT_EQ(Cells().At(2, UserColumn::KeyId).ForeColor, UserLook::KeyOutOfStep);
}

TEST_F(F5_Keys, in_step_stay_black_where_they_are_pasted) {
    files.Put("RFCHANDIF12.RFX", 15, 2, 0, 15, "1  7  7  1  0  ");
    OpenDesk();
    Window().MenuRow = 3;
    Keys().key_ausschneiden_Click();
    Window().MenuRow = 2;
    Keys().key_einfuegen_Click();
    EXPECT_EQ(Channel(1), "   7        0  ");
    EXPECT_EQ(Cells().At(2, UserColumn::KeyId).ForeColor, Black);
}

TEST_F(F5_Keys, are_pasted_once_and_nothing_is_pasted_where_nothing_was_cut) {
    OpenDesk();
    Window().MenuRow = 2;
    Keys().key_einfuegen_Click();
    EXPECT_EQ(KeyOf(2), "|");
    Keys().key_ausschneiden_Click(); // of a row without a key
    Window().MenuRow = 3;
    Keys().key_einfuegen_Click();
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
    Keys().key_ausschneiden_Click();
    Window().MenuRow = 2;
    Keys().key_einfuegen_Click();
    Window().MenuRow = 4;
    Keys().key_einfuegen_Click();
    EXPECT_EQ(KeyOf(4), "|");
    EXPECT_FALSE(Window().Tabelle.UserDirty && KeyOf(2) == "|");
}

TEST_F(F5_Keys, that_an_undo_has_brought_back_are_not_pasted_a_second_time) {
    OpenDesk();
    Window().MenuRow = 3;
    Keys().key_ausschneiden_Click();
    Window().F5_Undo_Click();
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
    Window().MenuRow = 2;
    Expect(73);
    Keys().key_einfuegen_Click();
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Keys, that_are_cut_survive_the_learning_of_others) {
    OpenDesk();
    Window().MenuRow = 3;
    Keys().key_ausschneiden_Click();
    Learn(4);
    SayKey({10, 20, 30, 40});
    Window().MenuRow = 2;
    Keys().key_einfuegen_Click();
    EXPECT_EQ(KeyOf(2), "1 : 2 : 3 : 4|5 : 6");
}

TEST_F(F5_Keys, whose_channel_cannot_be_read_are_not_cut) {
    files.Channel(2, "1", "7", "1");
    OpenDesk();
    Window().MenuRow = 3;
    Break(1, false);
    world.World.ShowMessage = [this](const Message& message) {
        world.Shown.push_back(message);
        return Answer::Ok;
    };
    Keys().key_ausschneiden_Click();
    ASSERT_EQ(world.Shown.size(), 1U);
    EXPECT_TRUE(Last().Text.starts_with("Der E-Key wurde nicht ausgeschnitten, da sein Funkkanal nicht gelesen werden "
                                        "kann (RFCHANDIF12.RFX"))
        << Last().Text;
    EXPECT_EQ(Last().Sign, Icon::Exclamation);
    EXPECT_EQ(KeyOf(3), "1 : 2 : 3 : 4|5 : 6");
    Window().MenuRow = 2;
    Keys().key_einfuegen_Click();
    EXPECT_EQ(KeyOf(2), "|");
}

TEST_F(F5_Keys, are_cut_without_a_channel_where_there_is_no_file_of_channels) {
    OpenDesk();
    world.Disk.Files.erase(Channels);
    Window().MenuRow = 3;
    Keys().key_ausschneiden_Click();
    EXPECT_EQ(KeyOf(3), "|");
}

TEST_F(F5_Keys, whose_channel_cannot_be_pasted_are_told_and_the_file_stays_as_it_was) {
    files.Channel(2, "1", "7", "1");
    OpenDesk();
    Window().MenuRow = 3;
    Keys().key_ausschneiden_Click();
    const std::string before = world.Disk.Files[Channels];
    Window().MenuRow = 2;
    Break(1, true);
    ExpectText(ChannelUnsaved);
    Keys().key_einfuegen_Click();
    EXPECT_EQ(KeyOf(2), "1 : 2 : 3 : 4|5 : 6");
    EXPECT_EQ(world.Disk.Files[Channels], before);
}

TEST_F(F5_Keys, and_codes_are_overwritten_when_the_window_is_closed) {
    files.User(2, {.Name = "Bert", .Code = "246813", .KeyId = "1 : 2 : 3 : 4", .KeyData = std::string(93, '7')});
    OpenDesk();
    const std::string& data = Text(3, UserColumn::KeyData);
    const std::string& code = Text(3, UserColumn::Code);
    ASSERT_EQ(data + code, std::string(93, '7') + "246813");
    const char* bytes = data.data();
    const char* digits = code.data();
    Back();
    EXPECT_EQ(data + code + Text(3, UserColumn::KeyId), "");
    EXPECT_EQ(std::string(bytes, 93), std::string(93, '\0'));
    EXPECT_EQ(std::string(digits, 6), std::string(6, '\0'));
}

TEST_F(F5_Keys, that_were_learned_found_cut_and_pasted_stand_in_no_memory_that_was_given_back) {
    for (const std::string_view secret : {"101 : 102 : 103 : 104", "1 : 2 : 3 : 4 : 5 : 6 : 7 : 8 : 9 : 10 : 11"}) {
        OpenDesk();
        const FreedMemory freed{std::string(secret)};
        Learn(2);
        SayKey({101, 102, 103, 104});
        Search();
        ExpectText("L37 1\r\nL38: Anna");
        SayKey({101, 102, 103, 104});
        ASSERT_EQ(Keys().Fund.Row, 2);
        Window().MenuRow = 2;
        Keys().key_ausschneiden_Click();
        Window().MenuRow = 4;
        Keys().key_einfuegen_Click();
        ASSERT_EQ(Text(4, UserColumn::KeyId), "101 : 102 : 103 : 104");
        Window().F5_Undo_Click();
        ExpectText("*", Answer::No);
        Back();
        ASSERT_FALSE(Window().Fenster.Visible);
        EXPECT_EQ(freed.Seen(), 0) << secret;
    }
}

TEST_F(F5_Keys, that_are_sorted_stand_in_no_memory_that_was_given_back) {
    OpenDesk();
    Cells().SetText(2, UserColumn::Name, "Zacharias");
    Cells().SetText(2, UserColumn::KeyData, "71 : 72 : 73 : 74 : 75 : 76 : 77 : 78");
    Cells().SetText(2, UserColumn::Code, "7186934");
    for (const std::string_view secret : {"71 : 72 : 73 : 74 : 75 : 76 : 77 : 78", "7186934"}) {
        const FreedMemory freed{std::string(secret)};
        Window().F5_Sort_Click();
        ASSERT_NE(Text(2, UserColumn::Name), "Zacharias");
        Window().F5_Undo_Click();
        ASSERT_EQ(Text(2, UserColumn::Name), "Zacharias");
        EXPECT_EQ(freed.Seen(), 0) << secret;
    }
}

TEST_F(F5_Keys, that_are_cut_are_forgotten_when_the_window_is_closed_and_so_is_every_step_back) {
    OpenDesk();
    Window().MenuRow = 3;
    Keys().key_ausschneiden_Click();
    ExpectText("*", Answer::No);
    Back();
    ASSERT_FALSE(Window().Fenster.Visible);
    EXPECT_EQ(Window().Verlauf.Steps(), 0U);
    Window().F5_FormLaden();
    Cells().SetText(3, UserColumn::KeyId, "");
    Window().MenuRow = 2;
    Keys().key_einfuegen_Click();
    EXPECT_EQ(KeyOf(2), "|");
}

} // namespace
} // namespace qvm::test
