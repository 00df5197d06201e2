// A click on a lock beside files that are not to be relied on.

#include "F13KlickFixture.h"

namespace qvm::test {
namespace {

struct F13_Dateien : F13_Klick {
    std::string& Users = files.File("BX10X52WUJ9.UBW");

    F13_Dateien() {
        SettledLock(1, "Tor");
        files.User(3, {.Name = "Anna", .Marks = {{1, 'X'}}});
    }
    /// The second half of the users is lost.
    void CutUsers() { Users.resize(std::size_t{419} * 125); }
    /// The file is there and cannot be read.
    void Unreadable(const std::string& name, FileFault fault) {
        const FileStore good = world.World.Files;
        world.World.Files.ReadAll = [good, name](const std::string& path, std::string& bytes) {
            bytes.clear();
            return path.ends_with(name) ? ReadStatus::Error : good.ReadAll(path, bytes);
        };
        world.World.Files.LastFault = [fault] { return fault; };
    }
    void ExpectAny(Answer reply = Answer::Ok) { world.Answers.push_back({.Text = "*", .Reply = reply}); }
};

TEST_F(F13_Dateien, a_cut_user_file_is_asked_about_with_No_as_the_answer_of_the_return_key) {
    CutUsers();
    Open();
    Expect(63, Answer::No);
    ExpectAny(Answer::No);
    Click(1, F13Column::Program);
    const Message& asked = world.Shown.back();
    EXPECT_NE(asked.Text.find(u8"BX10X52WUJ9.UBW: zu kurz, am Ende fehlen Datensätze"_w), std::string::npos);
    EXPECT_EQ(asked.Choice, Buttons::YesNo);
    EXPECT_EQ(asked.DefaultButton, 2);
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F13_Dateien, yes_goes_on_with_what_the_file_holds) {
    CutUsers();
    Open();
    Expect(63, Answer::No);
    ExpectAny(Answer::Yes);
    Click(1, F13Column::Program);
    EXPECT_TRUE(StartOpen());
    EXPECT_EQ(programm->Run.Daten.Slots.size(), 1U);
}

TEST_F(F13_Dateien, a_file_that_cannot_be_read_is_told_and_no_answer_helps) {
    Open();
    Unreadable("BX10X52WUJ9.UBW", FileFault::LinkLoop);
    Expect(63, Answer::No);
    ExpectAny();
    Click(1, F13Column::Program);
    EXPECT_EQ(world.Shown.back().Choice, Buttons::Ok);
    EXPECT_NE(world.Shown.back().Text.find("BX10X52WUJ9.UBW: ein Verweis, der auf sich selbst zeigt"),
              std::string::npos);
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
}

TEST_F(F13_Dateien, the_history_is_read_beside_a_cut_user_file) {
    CutUsers();
    Open();
    Expect(65, Answer::Ok);
    Click(1, F13Column::History);
    EXPECT_TRUE(StartOpen());
}

TEST_F(F13_Dateien, no_history_is_read_while_nobody_can_tell_on_which_channel_the_lock_is) {
    Open();
    Unreadable("RFCHANDIF12.RFX", FileFault::Broken);
    ExpectAny();
    Click(1, F13Column::History);
    EXPECT_EQ(world.Shown.back().Choice, Buttons::Ok);
    EXPECT_NE(world.Shown.back().Text.find("RFCHANDIF12.RFX"), std::string::npos);
    EXPECT_FALSE(StartOpen());
    EXPECT_TRUE(GridEnabled());
    EXPECT_THAT(world.Written, IsEmpty());
}

TEST_F(F13_Dateien, the_history_is_read_beside_a_cut_channel_file) {
    Open();
    files.File("RFCHANDIF12.RFX").resize(17);
    Expect(65, Answer::Ok);
    Click(1, F13Column::History);
    EXPECT_TRUE(StartOpen());
}

TEST_F(F13_Dateien, a_lock_file_that_cannot_be_read_is_named_when_the_window_opens) {
    Start();
    Unreadable("C64UX12H3D.EBW", FileFault::Pipe);
    ExpectAny();
    Begin();
    EXPECT_NE(world.Shown.back().Text.find("C64UX12H3D.EBW: keine Datei, sondern eine Pipe"), std::string::npos);
}

TEST_F(F13_Dateien, settings_that_are_damaged_are_told_at_the_start_and_refuse_every_click_but_the_mark) {
    world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Po";
    ExpectAny();
    Open();
    ASSERT_EQ(world.Shown.size(), 1U);
    EXPECT_NE(world.Shown[0].Text.find("EST7CSB29A.I_1: abgeschnitten, es fehlen Zeilen"), std::string::npos);
    for (const int column : {F13Column::Program, F13Column::History, F13Column::Code}) {
        ExpectAny();
        Click(1, column);
        EXPECT_EQ(world.Shown.back(), world.Shown[0]);
    }
    EXPECT_EQ(world.Opens, 0);
    Click(1, F13Column::Mark);
    EXPECT_EQ(Mark(1), "X");
    for (const char* key : {"Prog.", "SaveHistory"}) {
        ExpectAny();
        programm->Transfer->F13.Toolbar1_ButtonClick(key);
    }
    EXPECT_EQ(world.Shown.size(), 6U);
    EXPECT_FALSE(StartOpen());
    EXPECT_EQ(Code_Windows, 0);
    EXPECT_EQ(Mark(1), "X");
}

TEST_F(F13_Dateien, settings_that_cannot_be_read_refuse_a_run) {
    Unreadable("EST7CSB29A.I_1", FileFault::Broken);
    ExpectAny();
    Open();
    ExpectAny();
    Click(1, F13Column::Program);
    EXPECT_NE(world.Shown.back().Text.find(u8"EST7CSB29A.I_1: der Datenträger meldet einen Fehler"_w),
              std::string::npos);
    EXPECT_FALSE(StartOpen());
    EXPECT_EQ(world.Opens, 0);
}

TEST_F(F13_Dateien, the_end_of_the_program_leaves_damaged_settings_as_they_are) {
    const std::string random = "\x91\x02\xFE\x11\x00\x7F\r\n\x05";
    world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = random;
    ExpectAny();
    Start();
    Programm_Ende(*programm);
    EXPECT_EQ(world.Disk.Files["/q/DAT/EST7CSB29A.I_1"], random);
}

TEST_F(F13_Dateien, once_the_channel_is_chosen_and_saved_runs_go_on) {
    const std::string cut = "Deutsch\r\n1\r\nUSB-Po";
    world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = cut;
    ExpectAny();
    Open();
    programm->Main->F14.F14_Laden();
    programm->Main->F14.Combo1_Click(2);
    programm->Main->F14.Toolbar1_ButtonClick("Speichern");
    EXPECT_EQ(world.Disk.Files["/q/DAT/EST7CSB29A.I_1-20260305-103000"], cut);
    EXPECT_EQ(programm->kern.Config.Funkkanal(), 3);
    Expect(63, Answer::No);
    Click(1, F13Column::Program);
    EXPECT_TRUE(StartOpen());
}

} // namespace
} // namespace qvm::test
