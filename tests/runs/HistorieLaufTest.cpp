// Runs that read the lock's events.

#include "Pictures.h"
#include "RunFixture.h"

namespace qvm::test {
namespace {

struct Run_History : RunFixture {
    Run_History() {
        AddLock(1, "Tresor", Serial::S);
        files.Emi(1, 'Y');
    }
    /// An event: day, month, year, hour, minute, sixteen characters of name, event byte.
    static HistoryLine Event(int day, int month, int year, std::string name, int event) {
        HistoryLine line{};
        line[0] = static_cast<std::uint8_t>(day);
        line[1] = static_cast<std::uint8_t>(month);
        line[2] = static_cast<std::uint8_t>(year);
        line[3] = 9;
        line[4] = 7;
        name.resize(16, '\0');
        std::copy(name.begin(), name.end(), line.begin() + 5);
        line[21] = static_cast<std::uint8_t>(event);
        return line;
    }
    std::string HistoryFile() {
        for (const auto& [path, bytes] : world.Disk.Files) {
            if (path.rfind("/q/HIST/", 0) == 0) {
                return bytes;
            }
        }
        return "none";
    }
};

TEST_F(Run_History, reading_only_disconnects_behind_the_last_record_and_opens_the_file) {
    devices.Locks[0].History = {Event(4, 3, 26, "Anna", 0x02), Event(3, 3, 26, "Bert", 0x15)};
    Begin();
    History(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x17, 0x17, 0x17, 0x05));
    EXPECT_EQ(HistoryFile(), "00.0A.10.01\r\n"
                             "Anna            \t04.03.2026\t09:07\tE-Key\r\n"
                             "Bert            \t03.03.2026\t09:07\tFingerscan\r\n"
                             "\t\t\tL13\r\n");
    ASSERT_EQ(OpenedHistories.size(), 1U);
    EXPECT_EQ(OpenedHistories[0], "/q/HIST/H_20260305_103000_Tresor.HST");
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_EQ(Status(), "L110");
    EXPECT_EQ(system->JudgementLines(), "");
    // The first state report of the run shows in the progress window.
    EXPECT_EQ(programm->Transfer->F9.Label15.Text(), "L13");
    EXPECT_EQ(programm->Transfer->F9.Zustandsbild.Id(), StatePicture::Image5);
}

TEST_F(Run_History, an_empty_lock_answers_at_once_and_no_file_is_made) {
    Begin();
    History(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x17, 0x05));
    EXPECT_EQ(HistoryFile(), "none");
    EXPECT_THAT(OpenedHistories, IsEmpty());
    EXPECT_EQ(Outcome(), RunOutcome::Done);
}

TEST_F(Run_History, without_the_clock_switch_the_reading_follows_the_login) {
    files.Lock(1, "Tresor", Serial::S, "XXXX ");
    Begin();
    History(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x17, 0x05));
}

TEST_F(Run_History, history_first_goes_on_to_the_whole_programming) {
    devices.Locks[0].History = {Event(4, 3, 26, "Anna", 0x02)};
    Begin();
    Program(1, Answer::Yes);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x17, 0x17, 0x2F, 0x27, 0x25, 0x19, 0x1B, 0x1F, 0x1F, 0x1F, 0x21,
                                    0x21, 0x21, 0x23, 0x32, 0x15, 0x05));
    EXPECT_NE(HistoryFile(), "none");
    EXPECT_THAT(OpenedHistories, IsEmpty());
    EXPECT_EQ(Outcome(), RunOutcome::Done);
}

TEST_F(Run_History, the_first_record_older_than_20_days_is_written_and_the_one_behind_it_only_asked_for) {
    // Today is 05.03.2026, the cut-off 13.02.2026.
    devices.Locks[0].History = {Event(13, 2, 26, "Anna", 2), Event(12, 2, 26, "Bert", 2), Event(1, 2, 26, "Carl", 2),
                                Event(1, 1, 26, "Dora", 2)};
    Begin();
    History(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x17, 0x17, 0x17, 0x05));
    EXPECT_EQ(HistoryFile(), "00.0A.10.01\r\n"
                             "Anna            \t13.02.2026\t09:07\tE-Key\r\n"
                             "Bert            \t12.02.2026\t09:07\tE-Key\r\n");
}

TEST_F(Run_History, the_next_run_begins_a_file_of_its_own) {
    devices.Locks[0].History = {Event(4, 3, 26, "Anna", 2)};
    Begin();
    History(1);
    ASSERT_TRUE(Finish());
    programm->Transfer->F9.Command2_Click();
    world.RunFor(5000);
    History(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(OpenedHistories.size(), 2U);
    EXPECT_NE(OpenedHistories[0], OpenedHistories[1]);
}

TEST_F(Run_History, a_lock_whose_events_could_not_be_written_is_not_erased) {
    devices.Locks[0].History = {Event(4, 3, 26, "Anna", 2)};
    Begin();
    Expect(277);
    world.Answers.push_front({.Text = "L63", .Reply = Answer::Yes});
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    world.Disk.FailAt = world.Disk.Operations + 1;
    world.Disk.FailFromThere = true;
    TypeCode("123456");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::GivenUp);
    EXPECT_EQ(programm->Run.Bericht.HistoryLost, HistoryLoss::Unwritten);
    EXPECT_EQ(Lock(Serial::S).Erases, 0);
    EXPECT_EQ(Sent().back(), 0x05);
}

TEST_F(Run_History, is_flushed_to_the_disk_before_the_lock_is_told_to_erase) {
    devices.Locks[0].History = {Event(4, 3, 26, "Anna", 2), Event(3, 3, 26, "Anna", 2)};
    Begin();
    Codes before;
    const FileStore good = world.World.Files;
    world.World.Files.Flush = [&](const std::string& path) {
        before = Sent();
        return good.Flush(path);
    };
    Program(1, Answer::Yes);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_THAT(before, ElementsAre(0x04, 0x07, 0x09, 0x17, 0x17, 0x17));
    ASSERT_EQ(world.Disk.Flushed.size(), 1U);
    const auto& [path, bytes] = *world.Disk.Flushed.begin();
    EXPECT_EQ(bytes, world.Disk.Files.at(path));
    EXPECT_EQ(Lock(Serial::S).Erases, 1);
}

TEST_F(Run_History, that_does_not_reach_the_disk_keeps_the_lock_from_being_erased) {
    devices.Locks[0].History = {Event(4, 3, 26, "Anna", 2)};
    world.Disk.FlushFails = true;
    Begin();
    Expect(277);
    world.Answers.push_front({.Text = "L63", .Reply = Answer::Yes});
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    TypeCode("123456");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::GivenUp);
    EXPECT_EQ(programm->Run.Bericht.HistoryLost, HistoryLoss::Unwritten);
    EXPECT_EQ(Status(), "L277");
    EXPECT_EQ(Lock(Serial::S).Erases, 0);
    EXPECT_EQ(Sent().back(), 0x05);
}

TEST_F(Run_History, lost_events_also_keep_the_second_pass_from_erasing) {
    files.Lock(1, "Tresor", Serial::TwoPass, " XXXX");
    files.User(1, {.Name = "Anna", .KeyId = "1 : 2 : 3 : 4", .Marks = {{1, 'X'}}});
    devices.Locks[0].Serial = AddressOf(Serial::TwoPass);
    devices.Locks[0].History = {Event(4, 3, 26, "Anna", 2)};
    Begin();
    Expect(277);
    world.Answers.push_front({.Text = "L63", .Reply = Answer::Yes});
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    world.Disk.FailAt = world.Disk.Operations + 1;
    world.Disk.FailFromThere = true;
    TypeCode("123456");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::GivenUp);
    EXPECT_EQ(Lock(Serial::TwoPass).Erases, 0);
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x17, 0x17, 0x05));
}

TEST_F(Run_History, reading_alone_says_that_events_were_lost) {
    devices.Locks[0].History = {Event(4, 3, 26, "Anna", 2)};
    Begin();
    Expect(277);
    world.Answers.push_front({.Text = "L65"});
    programm->Transfer->F13.FGK13_Click(1, F13Column::History);
    world.Disk.FailAt = world.Disk.Operations + 1;
    world.Disk.FailFromThere = true;
    TypeCode("123456");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(programm->Run.Bericht.HistoryLost, HistoryLoss::Unwritten);
    EXPECT_EQ(Outcome(), RunOutcome::GivenUp);
    EXPECT_EQ(programm->Run.Bericht.Text, "L277");
    EXPECT_EQ(Status(), "L277");
    EXPECT_THAT(OpenedHistories, IsEmpty());
}

} // namespace
} // namespace qvm::test
