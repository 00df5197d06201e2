// The search for a user.

#include "F5Fixture.h"

namespace qvm::test {
namespace {

struct F16_Suche : F5Fixture {
    static constexpr const char* Channels = "/q/DAT/RFCHANDIF12.RFX";
    std::vector<std::string> way; ///< cells that became the current one

    void SetUp() override {
        files.User(1, {.Name = "Anna", .Code = "111111", .Label = "Auto", .KeyId = "1 : 2 : 3 : 4"});
        files.User(2, {.Name = "anna", .Code = "ABC123", .Label = "Rad", .KeyId = "5 : 6 : 7 : 8"});
        Open();
    }
    struct F16& Search() {
        return programm->Persons->F16;
    }
    void Find(int option, std::string_view text) {
        Press("Suchen");
        Search().Option_Click(option);
        Search().Text1.Text = std::string(text);
        Search().Command1_Click();
    }
    Colour Ground(int row, int column) { return Cells().At(row, column).BackColor; }
    void Watch() {
        Window().Auswahl.Changed = [this] { way.push_back(std::to_string(Cells().Row)); };
    }
};

TEST_F(F16_Suche, opens_over_the_users_which_wait_with_an_empty_text) {
    Search().Text1.Text = std::string("left");
    Press("Suchen");
    EXPECT_TRUE(Search().Fenster.Visible());
    EXPECT_FALSE(Window().Fenster.Enabled());
    EXPECT_EQ(Search().Text1.Text(), "");
    EXPECT_EQ(Search().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM - L107");
    EXPECT_EQ(Search().Option[0].Text() + Search().Option[1].Text() + Search().Option[2].Text(), "L54L41L42");
    EXPECT_TRUE(Search().Option[0].Checked());
    EXPECT_EQ(Search().Command1.Text(), "L107");
}

TEST_F(F16_Suche, command2_and_escape_lead_back_without_a_search) {
    Press("Suchen");
    Search().Text1.Text = std::string("Anna");
    Search().Command2_Click();
    EXPECT_FALSE(Search().Fenster.Visible());
    EXPECT_TRUE(Window().Fenster.Enabled());
    EXPECT_EQ(Search().Text1.Text(), "");
    EXPECT_EQ(Ground(2, 1), White);
    Press("Suchen");
    Search().Text1_KeyPress(qvm::Key::Escape);
    EXPECT_TRUE(Window().Fenster.Enabled());
}

TEST_F(F16_Suche, finds_the_first_user_of_that_name_whatever_the_case) {
    Find(0, "ANNA");
    EXPECT_FALSE(Search().Fenster.Visible());
    EXPECT_TRUE(Window().Fenster.Enabled());
    EXPECT_EQ(Ground(2, 1), 0x00FFFFU);
    EXPECT_EQ(Cells().At(2, 1).ForeColor, 0xFF0000U);
    EXPECT_EQ(Ground(3, 1), White); // the search stops at the first
    EXPECT_EQ(Cells().Row, 2);
    EXPECT_EQ(Cells().Column, 1);
    EXPECT_FALSE(Asked());
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F16_Suche, finds_a_code_and_a_designation_and_return_searches) {
    Find(1, "abc123");
    EXPECT_EQ(Ground(3, 4), 0x00FFFFU);
    EXPECT_EQ(Cells().Column, 4);
    Press("Suchen");
    EXPECT_TRUE(Search().Option[1].Checked()); // stays chosen
    Search().Option_Click(2);
    Search().Option_Click(3);
    Search().Text1.Text = std::string("auto");
    Search().Text1_KeyPress(qvm::Key::Enter);
    EXPECT_EQ(Ground(2, 5), 0x00FFFFU);
    EXPECT_EQ(Ground(3, 4), White); // the older hit
    EXPECT_EQ(Cells().At(3, 4).ForeColor, Black);
}

TEST_F(F16_Suche, a_text_with_blanks_behind_it_still_matches_and_leading_blanks_of_a_cell_do_not) {
    Cells().SetText(2, 5, "  Auto");
    Cells().SetText(3, 5, "Auto  ");
    Find(2, "Auto   ");
    EXPECT_EQ(Ground(2, 5), White);
    EXPECT_EQ(Ground(3, 5), 0x00FFFFU);
    Find(2, "  Auto");
    EXPECT_EQ(Cells().Row, 3);
}

TEST_F(F16_Suche, an_empty_text_or_one_of_blanks_says_so_and_closes) {
    for (const std::string_view text : {"", "  "}) {
        Expect(59);
        Find(0, text);
        EXPECT_FALSE(Search().Fenster.Visible());
        EXPECT_TRUE(Window().Fenster.Enabled());
        EXPECT_EQ(Cells().Row, 2);
    }
}

TEST_F(F16_Suche, without_a_hit_no_cell_is_current_and_the_status_line_says_so) {
    Go(3, 1);
    ASSERT_NE(Window().Benutzermarken.Text(), "");
    Watch();
    Find(0, "Ann");
    EXPECT_EQ(Cells().Row, 0);
    EXPECT_THAT(way, ElementsAre("0")) << "the view is told";
    EXPECT_EQ(Window().Auswahl.Block(), GridBlock{});
    EXPECT_EQ(Window().Benutzermarken.Text(), "");
    EXPECT_EQ(Window().Hinweis.Text(), "Es wurde kein Benutzer gefunden.");
    EXPECT_TRUE(Window().Fenster.Enabled());
    EXPECT_FALSE(Asked());
    Window().FGK4_MouseUp(MouseButton::Left, 2, 1);
    EXPECT_EQ(Cells().Row, 2);
}

TEST_F(F16_Suche, a_hit_in_the_middle_of_the_table_is_come_to_from_below) {
    for (const int row : {19, 20, 89, 90, 251}) {
        Cells().SetText(row, 5, "L" + std::to_string(row));
    }
    Watch();
    Find(2, "L19");
    Find(2, "L20");
    Find(2, "L89");
    Find(2, "L90");
    Find(2, "L251");
    EXPECT_THAT(way, ElementsAre("19", "30", "20", "99", "89", "90", "251"));
}

TEST_F(F16_Suche, a_key_that_a_device_has_read_is_told_with_number_and_name) {
    world.Answers.push_back({.Text = "L37 2\r\nL38: anna"});
    Search().F16_Suchen(UserColumn::KeyId, "5 : 6 : 7 : 8");
    EXPECT_EQ(world.Shown.back().Sign, Icon::Information);
    EXPECT_EQ(Ground(3, 6), 0x00FFFFU);
    EXPECT_EQ(Cells().Row, 3);
    EXPECT_EQ(Cells().Column, 6);
}

TEST_F(F16_Suche, a_key_that_nobody_has_shows_no_message) {
    Search().F16_Suchen(UserColumn::KeyId, "9 : 9 : 9 : 9");
    Search().F16_EkeySuchen(UserColumn::KeyId, "9 : 9 : 9 : 9", true);
    EXPECT_FALSE(Asked());
    EXPECT_EQ(Cells().Row, 0);
}

TEST_F(F16_Suche, gives_back_the_row_that_it_has_found_and_not_the_one_that_is_current) {
    world.Answers.push_back({.Text = "*"});
    EXPECT_EQ(Search().F16_Suchen(UserColumn::KeyId, "5 : 6 : 7 : 8"), 3);
    Expect(59);
    EXPECT_EQ(Search().F16_Suchen(UserColumn::KeyId, ""), 0);
    EXPECT_EQ(Cells().Row, 3);
    Expect(59);
    EXPECT_EQ(Search().F16_EkeySuchen(UserColumn::KeyId, "", true).Row, 0);
    EXPECT_EQ(Search().F16_EkeySuchen(UserColumn::KeyId, "9 : 9 : 9 : 9", false).Row, 0);
}

TEST_F(F16_Suche, a_transponder_is_compared_as_far_as_the_file_holds_it) {
    const std::string whole = "#7-ID#100:101:102:103:104:105:106:107:108:109"; // 45 characters
    Cells().SetText(2, 6, whole.substr(0, 41));
    world.Answers.push_back({.Text = "*"});
    Search().F16_Suchen(UserColumn::KeyId, whole);
    EXPECT_EQ(Cells().Row, 2);
}

TEST_F(F16_Suche, a_synchronised_key_has_the_channel_of_every_user_with_it_confirmed) {
    std::string& file = world.Disk.Files[Channels];
    file.clear();
    for (int n = 0; n < 250; ++n) {
        file += "1  2  5  0  1  ";
    }
    Window().F5_FormLaden();
    Cells().SetText(20, 6, "5 : 6 : 7 : 8");
    for (int n = 0; n < 2; ++n) {
        Expect(169);
    }
    Search().F16_EkeySuchen(UserColumn::KeyId, "5 : 6 : 7 : 8", true);
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    EXPECT_EQ(file.substr(15, 15), "1  5  5  0  0  ");
    EXPECT_EQ(file.substr(18 * 15, 15), "1  5  5  0  0  ");
    EXPECT_EQ(file.substr(0, 15), "1  2  5  0  1  ");
    EXPECT_EQ(Cells().At(3, 6).ForeColor, Black);
    EXPECT_EQ(Cells().At(2, 6).ForeColor, 0x0000FFU);
    EXPECT_EQ(Cells().Row, 20);
    EXPECT_EQ(Ground(3, 6), White);
}

TEST_F(F16_Suche, a_key_that_was_found_before_is_black_once_it_is_synchronised) {
    std::string& file = world.Disk.Files[Channels];
    file.clear();
    for (int n = 0; n < 250; ++n) {
        file += "1  2  5  0  1  ";
    }
    Window().F5_FormLaden();
    ASSERT_EQ(Cells().At(3, 6).ForeColor, 0x0000FFU);
    world.Answers.push_back({.Text = "*"});
    Search().F16_Suchen(UserColumn::KeyId, "5 : 6 : 7 : 8");
    ASSERT_EQ(Ground(3, 6), 0x00FFFFU);
    Expect(169);
    Search().F16_EkeySuchen(UserColumn::KeyId, "5 : 6 : 7 : 8", true);
    EXPECT_EQ(Cells().At(3, 6).ForeColor, Black);
    EXPECT_EQ(Ground(3, 6), White);
}

TEST_F(F16_Suche, a_synchronised_key_whose_channel_cannot_be_recorded_is_told) {
    Window().F5_FormLaden();
    Break(1, true);
    Go(2, UserColumn::Name);
    world.Answers.push_back({.Text = std::string(u8"Der E-Key von anna wurde gelesen, aber sein Funkkanal konnte nicht "
                                                 u8"gespeichert werden. Bitte prüfen Sie den Datenträger, und "
                                                 u8"synchronisieren Sie den E-Key noch einmal."_w)});
    const KeyFund found = Search().F16_EkeySuchen(UserColumn::KeyId, "5 : 6 : 7 : 8", true);
    EXPECT_EQ(found.Row, 3);
    EXPECT_TRUE(found.Unsaved);
    EXPECT_EQ(Cells().Row, 3);
    EXPECT_EQ(Window().Hinweis.Text(), "") << "somebody was found";
}

TEST_F(F16_Suche, a_key_searched_without_synchronising_is_tinted_without_a_message) {
    Search().F16_EkeySuchen(UserColumn::KeyId, "5 : 6 : 7 : 8", false);
    EXPECT_FALSE(Asked());
    EXPECT_EQ(Ground(3, 6), 0x00FFFFU);
    EXPECT_EQ(Cells().Row, 3);
}

TEST_F(F16_Suche, a_hit_is_tinted_until_something_is_changed_and_is_no_part_of_the_step) {
    Find(1, "111111");
    EXPECT_EQ(Ground(2, 4), 0x00FFFFU);
    Enter(2, 4, "999999");
    EXPECT_EQ(Cells().At(2, 4), (Cell{.Text = "999999"}));
    Window().F5_Undo_Click();
    EXPECT_EQ(Cells().At(2, 4), (Cell{.Text = "111111"}));
}

} // namespace
} // namespace qvm::test
