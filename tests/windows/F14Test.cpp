// The radio channel of the system.

#include "FensterFixture.h"

namespace qvm::test {
namespace {

struct F14_Fenster : FensterFixture {
    static constexpr const char* Settings = "/q/DAT/EST7CSB29A.I_1";
    static constexpr const char* Channels = "/q/DAT/RFCHANDIF12.RFX";
    int returned = 0;
    Listener back;

    void SetUp() override {
        Start();
        back = programm->kern.Windows.BackToMain.Listen([this] { ++returned; });
        Channel().F14_Laden();
    }
    struct F14& Channel() {
        return programm->Main->F14;
    }
    void Press(std::string_view key) { Channel().Toolbar1_ButtonClick(key); }
    void Back() { Press(u8"Zurück"_w); }
    void ExpectQuestion(Answer answer) { Expect(60, answer); }
    std::string Record(int n) {
        return world.Disk.Files[Channels].substr(std::size_t{15} * (static_cast<std::size_t>(n) - 1), 15);
    }
    /// From now on the nth file operation fails.
    void Break(int n, bool rest) {
        world.Disk.FailAt = world.Disk.Operations + n;
        world.Disk.FailFromThere = rest;
    }
};

TEST_F(F14_Fenster, offers_twelve_channels_with_the_present_one_selected) {
    EXPECT_TRUE(Channel().Fenster.Visible);
    EXPECT_EQ(Channel().Fenster.Title(), "QVM 7702 SOFTWARE SYSTEM");
    EXPECT_THAT(Channel().Combo1.Entries(), ElementsAre("L35-1", "L35-2", "L35-3", "L35-4", "L35-5", "L35-6", "L35-7",
                                                        "L35-8", "L35-9", "L35-10", "L35-11", "L35-12"));
    EXPECT_EQ(Channel().Combo1.Selected(), 2);
    EXPECT_EQ(Channel().Toolbar1[0].Tip(), "L119");
    EXPECT_EQ(Channel().Toolbar1[1].Tip(), "L289");
    EXPECT_FALSE(Channel().Dirty);
}

TEST_F(F14_Fenster, a_channel_that_is_none_counts_as_the_first) {
    for (const char* text : {"", "0", "13", "x"}) {
        programm->kern.Config.RadioChannel = text;
        Channel().F14_Laden();
        EXPECT_EQ(Channel().Combo1.Selected(), 0) << text;
    }
}

TEST_F(F14_Fenster, zurueck_without_a_change_asks_nothing_and_leads_back) {
    Back();
    EXPECT_FALSE(Channel().Fenster.Visible);
    EXPECT_EQ(returned, 1);
    EXPECT_FALSE(world.Disk.Files.contains(Channels));
}

TEST_F(F14_Fenster, choosing_the_selected_channel_or_none_is_no_change) {
    for (const int index : {2, -1, 12}) {
        Channel().Combo1_Click(index);
        EXPECT_FALSE(Channel().Dirty);
        EXPECT_EQ(Channel().Combo1.Selected(), 2);
    }
}

TEST_F(F14_Fenster, zurueck_after_a_change_asks_and_yes_saves) {
    Channel().Combo1_Click(4);
    EXPECT_TRUE(Channel().Dirty);
    ExpectQuestion(Answer::Yes);
    Back();
    EXPECT_EQ(world.Shown.back().Title, "L35");
    EXPECT_EQ(world.Shown.back().Choice, Buttons::YesNo);
    EXPECT_EQ(world.Disk.Files[Settings], "Deutsch\r\n1\r\nUSB-Port5\r\n5\r\n");
    EXPECT_EQ(Record(1), "1  1  5  1  1  ");
    EXPECT_FALSE(Channel().Fenster.Visible);
    EXPECT_EQ(returned, 1);
}

TEST_F(F14_Fenster, no_keeps_the_channel_as_it_was) {
    const std::string before = world.Disk.Files[Settings];
    Channel().Combo1_Click(4);
    ExpectQuestion(Answer::No);
    Back();
    EXPECT_EQ(programm->kern.Config.RadioChannel, "3");
    EXPECT_EQ(world.Disk.Files[Settings], before);
    EXPECT_FALSE(world.Disk.Files.contains(Channels));
    EXPECT_EQ(returned, 1);
    Channel().F14_Laden();
    EXPECT_EQ(Channel().Combo1.Selected(), 2);
    EXPECT_FALSE(Channel().Dirty);
}

TEST_F(F14_Fenster, a_question_closed_without_an_answer_goes_back_to_the_window) {
    const auto before = world.Disk.Files;
    Channel().Combo1_Click(4);
    ExpectQuestion(Answer::Cancel);
    Back();
    EXPECT_TRUE(Channel().Fenster.Visible);
    EXPECT_TRUE(Channel().Dirty);
    EXPECT_EQ(Channel().Combo1.Selected(), 4);
    EXPECT_EQ(returned, 0);
    EXPECT_EQ(world.Disk.Files, before);
}

TEST_F(F14_Fenster, speichern_schedules_every_lock_and_key_and_stays_open) {
    files.Channel(1, "5", "3", "1");
    files.Channel(2, "", "", "");
    Channel().Combo1_Click(4);
    Press("Speichern");
    EXPECT_TRUE(Channel().Fenster.Visible);
    EXPECT_FALSE(Channel().Dirty);
    EXPECT_EQ(programm->kern.Config.RadioChannel, "5");
    EXPECT_EQ(Record(1).substr(0, 12), "5  1  5  0  "); // there already
    EXPECT_EQ(Record(2), "1  1  5  1  1  ");            // blank: as on channel 1
    EXPECT_EQ(world.Disk.Files[Channels].size(), 201U * 15U);
    Back();
    EXPECT_EQ(returned, 1);
}

TEST_F(F14_Fenster, speichern_behind_damaged_settings_schedules_the_locks_for_the_channel_shown) {
    files.Channel(1, "5", "5", "0");
    programm->kern.Config.EinstellungenMangel = {.File = "EST7CSB29A.I_1", .Damage = FileDamage::CutLines};
    programm->kern.Config.RadioChannel = "1"; // what a file without its fourth line gives
    Channel().F14_Laden();
    Press("Speichern");
    EXPECT_EQ(Record(1), "5  1  1  1  0  ");
    EXPECT_EQ(programm->kern.Config.EinstellungenMangel.File, "");
}

TEST_F(F14_Fenster, speichern_of_the_same_channel_touches_no_lock) {
    Channel().Combo1_Click(4);
    Channel().Combo1_Click(2);
    Press("Speichern");
    EXPECT_EQ(world.Disk.Files[Settings], "Deutsch\r\n1\r\nUSB-Port5\r\n3\r\n");
    EXPECT_FALSE(world.Disk.Files.contains(Channels));
}

TEST_F(F14_Fenster, a_second_change_counts_from_the_first) {
    Channel().Combo1_Click(4);
    Press("Speichern");
    Channel().Combo1_Click(0);
    Press("Speichern");
    EXPECT_EQ(Record(1), "1  1  1  0  0  ");
}

TEST_F(F14_Fenster, settings_that_cannot_be_saved_leave_the_channel_and_say_so) {
    const std::string before = world.Disk.Files[Settings];
    Channel().Combo1_Click(4);
    Break(1, true);
    Expect(287);
    Press("Speichern");
    EXPECT_EQ(world.Shown.back().Sign, Icon::Exclamation);
    EXPECT_EQ(programm->kern.Config.RadioChannel, "3");
    EXPECT_EQ(world.Disk.Files[Settings], before);
    EXPECT_FALSE(world.Disk.Files.contains(Channels));
    EXPECT_TRUE(Channel().Dirty);
    EXPECT_TRUE(Channel().Fenster.Visible);
    EXPECT_EQ(Channel().Combo1.Selected(), 4);
}

TEST_F(F14_Fenster, a_choice_counts_as_saved_only_once_it_is) {
    const std::string before = world.Disk.Files[Settings];
    Channel().Combo1_Click(4);
    Break(1, true);
    ExpectQuestion(Answer::Yes);
    Expect(287);
    Back();
    EXPECT_TRUE(Channel().Fenster.Visible);
    EXPECT_EQ(returned, 0);
    EXPECT_TRUE(Channel().Dirty);
    EXPECT_EQ(Channel().Combo1.Selected(), 4);
    EXPECT_EQ(world.Disk.Files[Settings], before);
    world.Disk.FailAt = 0;
    world.Disk.FailFromThere = false;
    Press("Speichern");
    EXPECT_FALSE(Channel().Dirty);
    EXPECT_EQ(programm->kern.Config.RadioChannel, "5");
    EXPECT_EQ(world.Disk.Files[Settings], "Deutsch\r\n1\r\nUSB-Port5\r\n5\r\n");
    EXPECT_EQ(Record(1), "1  1  5  1  1  ");
    Back(); // asks nothing
    EXPECT_EQ(returned, 1);
}

TEST_F(F14_Fenster, a_choice_that_cannot_be_saved_can_be_given_up) {
    Channel().Combo1_Click(4);
    Break(1, true);
    Expect(287);
    Press("Speichern");
    ExpectQuestion(Answer::No);
    Back();
    EXPECT_FALSE(Channel().Fenster.Visible);
    EXPECT_EQ(programm->kern.Config.RadioChannel, "3");
    EXPECT_EQ(returned, 1);
}

TEST_F(F14_Fenster, whichever_settings_file_fails_once_the_disk_keeps_the_old_channel) {
    const std::string before = "Deutsch\r\n1\r\nUSB-Port5\r\n3\r\n";
    for (const int operation : {1, 2}) {
        Channel().Combo1_Click(4);
        Break(operation, false);
        Expect(287);
        Press("Speichern");
        EXPECT_EQ(programm->kern.Config.RadioChannel, "3") << operation;
        EXPECT_EQ(world.Disk.Files[Settings], before) << operation;
        EXPECT_FALSE(world.Disk.Files.contains(Channels)) << operation;
    }
}

TEST_F(F14_Fenster, a_channel_that_cannot_be_scheduled_is_not_taken) {
    for (const int operation : {3, 4}) { // both settings files are written by then; read or write of the channels
        Channel().Combo1_Click(4);
        Break(operation, false);
        Expect(287);
        Press("Speichern");
        EXPECT_EQ(programm->kern.Config.RadioChannel, "3");
        EXPECT_EQ(world.Disk.Files[Settings], "Deutsch\r\n1\r\nUSB-Port5\r\n3\r\n");
        EXPECT_FALSE(world.Disk.Files.contains(Channels));
        EXPECT_TRUE(Channel().Dirty);
    }
    Press("Speichern");
    EXPECT_EQ(programm->kern.Config.RadioChannel, "5");
    EXPECT_EQ(Record(1), "1  1  5  1  1  ");
}

TEST_F(F14_Fenster, an_unknown_key_does_nothing) {
    Channel().Combo1_Click(4);
    Press("Neu");
    EXPECT_TRUE(Channel().Fenster.Visible);
    EXPECT_TRUE(Channel().Dirty);
    EXPECT_EQ(returned, 0);
}

} // namespace
} // namespace qvm::test
