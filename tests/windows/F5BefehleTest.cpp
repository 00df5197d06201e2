// Commands on the whole table of the user window: sort, new, export; what is tinted.

#include "F5Fixture.h"

#include <algorithm>

namespace qvm::test {
namespace {

struct F5_Befehle : F5Fixture {
    static constexpr const char* Channels = "/q/DAT/RFCHANDIF12.RFX";

    void SetUp() override {
        files.Lock(1, "Tor 1", SerialS);
        files.User(1, {.Name = "Bert", .Code = "111111", .KeyId = "1 : 2 : 3 : 4", .Marks = {{1, 'X'}}});
        files.User(2, {.Name = "Anna", .Code = "222222"});
    }
    /// The record of a key that is still on another channel.
    void LateKey(int user) {
        std::string& file = world.Disk.Files[Channels];
        file.resize(250 * 15, ' ');
        file.replace(static_cast<std::size_t>(user - 1) * 15, 15, "1  2  5  0  1  ");
    }
};

TEST_F(F5_Befehle, sort_is_one_step_and_something_to_save) {
    Open();
    Press("Aufsteigend sortieren");
    EXPECT_EQ(Row(2, 0, 4), "1|Anna|-|1|222222");
    EXPECT_EQ(Row(3, 0, 4), "2|Bert|-|1|111111");
    EXPECT_EQ(Text(3, 8), "X");
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Window().Verlauf.Steps(), 1U);
    Window().F5_Undo_Click();
    EXPECT_EQ(Row(2, 0, 4), "1|Bert|-|1|111111");
    EXPECT_EQ(Text(2, 8), "X");
}

TEST_F(F5_Befehle, a_sorted_table_sorted_again_is_no_change) {
    Open();
    Window().F5_Sort_Click();
    Press("Speichern");
    Window().F5_Sort_Click();
    EXPECT_FALSE(Window().Tabelle.UserDirty);
    EXPECT_EQ(Window().Verlauf.Steps(), 1U);
}

TEST_F(F5_Befehle, the_channel_of_a_key_does_not_travel_with_its_row) {
    LateKey(1);
    Open();
    EXPECT_EQ(Cells().At(2, 6).ForeColor, 0x0000FFU);
    Window().F5_Sort_Click(); // Bert and his key come to record 2, which is in step
    EXPECT_EQ(Text(3, 6), "1 : 2 : 3 : 4");
    EXPECT_EQ(Cells().At(3, 6).ForeColor, Black);
    EXPECT_EQ(Cells().At(2, 6).ForeColor, 0x0000FFU);
}

TEST_F(F5_Befehle, new_asks_and_clears_every_user) {
    files.User(250, {.Name = "Zoe", .Label = "Rad", .KeyData = "1 : 2", .FingerFlag = "FS", .FingerId = "7"});
    Open();
    Window().Auswahl.Go(30, 9);
    Expect(232, Answer::No);
    Press("Neu");
    EXPECT_EQ(world.Shown.back().Title, "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_EQ(Text(2, 1), "Bert");
    EXPECT_FALSE(Window().Tabelle.UserDirty);
    Expect(232, Answer::Yes);
    Press("Neu");
    EXPECT_EQ(Row(2, 0, 8), "1||||||||");
    EXPECT_EQ(Row(251, 0, 7), "250|||||||");
    EXPECT_EQ(Row(251, 207, 209), "||");
    EXPECT_EQ(Cells().At(251, 7).Picture, FingerPicture::None);
    EXPECT_EQ(Cells().At(2, 8), (Cell{.Text = "", .ForeColor = White, .FontSize = 8}));
    EXPECT_EQ(Text(0, 8), "T\no\nr\n\n\n1");
    EXPECT_EQ(Cells().Row, 2);
    EXPECT_TRUE(Window().Tabelle.UserDirty);
    Window().F5_Undo_Click();
    EXPECT_EQ(Row(251, 0, 5), "250|Zoe|-|1|123456|Rad");
}

TEST_F(F5_Befehle, the_export_has_lock_names_headings_and_users_up_to_column_206) {
    files.Lock(199, "Keller", SerialS);
    files.Lock(200, "Dach", SerialS);
    files.User(3, {.Name = "Cora", .Code = "333333", .Label = "=a;b", .Marks = {{199, 'X'}, {200, 'X'}}});
    Open();
    world.DialogAnswers.emplace_back("/out/users.csv");
    world.Answers.push_back({.Text = "CSV Print OK!"});
    Press("CSV-Print");
    EXPECT_EQ(world.Dialogs.back().Filter, "L105(*.CSV)|*.CSV|");
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    const std::string& text = world.Disk.Files["/out/users.csv"];
    const std::string marks(197, ';'); // locks 2 to 198
    // Six empty fields and the empty head of column 7, then locks 1 to 199; a blank in a name is lost with the line
    // ends.
    EXPECT_EQ(text.substr(0, text.find("\r\n")), ";;;;;;;Tor1;" + marks + "Keller;");
    const std::string user1 = "Bert;-;1;111111;;1 : 2 : 3 : 4;;X;" + marks + ";\r\n";
    const std::string user3 = "Cora;-;1;333333;\"'=a;b\";;;;" + marks + "X;\r\n";
    EXPECT_NE(text.find("\r\nL54;L39;L40;L41;L42;L43;FS;1;2;"), std::string::npos);
    EXPECT_NE(text.find("198;199;\r\n" + user1), std::string::npos);
    EXPECT_NE(text.find(user3), std::string::npos);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 252);
    EXPECT_EQ(text.find("Dach"), std::string::npos);
    EXPECT_TRUE(text.ends_with("\r\n"));
}

TEST_F(F5_Befehle, a_second_export_to_one_file_adds_to_it) {
    Open();
    for (int n = 0; n < 2; ++n) {
        world.DialogAnswers.emplace_back("/out/users.csv");
        world.Answers.push_back({.Text = "CSV Print OK!"});
        Press("CSV-Print");
    }
    const std::string& text = world.Disk.Files["/out/users.csv"];
    EXPECT_EQ(text.substr(0, text.size() / 2), text.substr(text.size() / 2));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 504);
}

TEST_F(F5_Befehle, an_export_that_is_cancelled_or_fails_says_so) {
    Open();
    world.DialogAnswers.emplace_back(std::nullopt);
    world.Answers.push_back({.Text = "CSV Print ERROR!"});
    Press("CSV-Print");
    world.DialogAnswers.emplace_back("/out/users.csv");
    world.Answers.push_back({.Text = "CSV Print ERROR!"});
    Break(1, false);
    Press("CSV-Print");
    EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
    EXPECT_EQ(world.Shown.back().Title, "INFO");
    EXPECT_FALSE(world.Disk.Files.contains("/out/users.csv"));
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

struct F5_Kreuz : F5_Befehle {
    int row = 0, column = 0;

    void SetUp() override {
        F5_Befehle::SetUp();
        Open();
        Window().Maus_Zelle = [this](int& r, int& c) {
            r = row;
            c = column;
            return row >= 0;
        };
    }
    void Point(int r, int c, int ms = 50) {
        row = r;
        column = c;
        world.RunFor(ms);
    }
    Colour Ground(int r, int c) { return Cells().At(r, c).BackColor; }
};

TEST_F(F5_Kreuz, tints_the_heads_of_row_and_column_under_the_mouse) {
    Point(5, 9);
    EXPECT_EQ(Ground(5, 0), 0xE0E0E0U);
    EXPECT_EQ(Ground(1, 9), 0xDCDCDCU);
    Point(6, 10);
    EXPECT_EQ(Ground(5, 0), White);
    EXPECT_EQ(Ground(1, 9), White);
    EXPECT_EQ(Ground(6, 0), 0xE0E0E0U);
    EXPECT_EQ(Ground(1, 10), 0xDCDCDCU);
    EXPECT_FALSE(Window().Tabelle.UserDirty);
}

TEST_F(F5_Kreuz, stays_where_it_was_over_a_heading_or_beside_the_grid) {
    Point(5, 9);
    Point(1, 12);
    Point(8, 0);
    Point(-1, 0);
    Point(300, 300);
    EXPECT_EQ(Ground(5, 0), 0xE0E0E0U);
    EXPECT_EQ(Ground(1, 9), 0xDCDCDCU);
    Window().FGK4_Scroll();
    Point(8, 1); // stands fixed now
    EXPECT_EQ(Ground(8, 0), White);
}

TEST_F(F5_Kreuz, is_slow_when_it_is_switched_on_and_gone_when_it_is_switched_off) {
    Point(5, 9);
    Window().F5_M5_OFF_Click();
    EXPECT_EQ(Ground(5, 0), White);
    EXPECT_EQ(Ground(1, 9), White);
    Point(6, 9, 2000);
    EXPECT_EQ(Ground(6, 0), White);
    Window().F5_M5ON_Click();
    Point(7, 9, 700);
    EXPECT_EQ(Ground(7, 0), White);
    Point(7, 9, 200);
    EXPECT_EQ(Ground(7, 0), 0xE0E0E0U);
}

TEST_F(F5_Kreuz, is_no_part_of_a_step) {
    Point(3, 9);
    Window().F5_Sort_Click();
    Point(5, 9);
    Window().F5_Undo_Click();
    EXPECT_EQ(Ground(3, 0), White);
    EXPECT_EQ(Ground(5, 0), 0xE0E0E0U);
}

TEST_F(F5_Kreuz, ends_with_the_window) {
    Back();
    EXPECT_FALSE(Window().Timer1.Running());
    EXPECT_FALSE(Window().Timer2.Running());
    Open();
    EXPECT_EQ(Window().Timer1.Interval(), 10);
    EXPECT_EQ(Window().Timer2.Interval(), 20);
    EXPECT_TRUE(Window().Timer1.Running());
    EXPECT_TRUE(Window().Timer2.Running());
}

} // namespace
} // namespace qvm::test
