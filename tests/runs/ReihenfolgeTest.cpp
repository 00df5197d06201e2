// Whole runs without disturbance: which telegrams go out for each class of lock, in which order.

#include "RunFixture.h"

namespace qvm::test {
namespace {

struct Run_Sequence : RunFixture {
    /// One lock of this serial, all switches on but the person timers as given.
    void One(std::string_view serial, std::string_view switches = "XXXXX", char emi = 'Y') {
        AddLock(1, "Tresor", serial, switches);
        files.Emi(1, emi);
    }
    void Timers() {
        for (int slot = 1; slot <= 15; ++slot) {
            files.Slot(slot, 0, "00:00", "00:00");
        }
    }
    void Expect_Good() {
        EXPECT_EQ(Outcome(), RunOutcome::Done);
        EXPECT_EQ(Status(), "L110");
        EXPECT_EQ(system->JudgementLines(), "");
        EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
        EXPECT_FALSE(programm->Transfer->F9.Command1.Enabled);
    }
};

TEST_F(Run_Sequence, a_lock_of_class_s_without_users_takes_18_telegrams) {
    One(Serial::S);
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x2F, 0x27, 0x25, 0x19, 0x1B, 0x1F, 0x1F, 0x1F, 0x21, 0x21, 0x21,
                                    0x23, 0x32, 0x15, 0x05));
    Expect_Good();
}

TEST_F(Run_Sequence, a_lock_of_class_t_without_users_takes_the_same_18_telegrams) {
    One(Serial::T);
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x2F, 0x27, 0x25, 0x19, 0x1B, 0x1F, 0x1F, 0x1F, 0x21, 0x21, 0x21,
                                    0x23, 0x32, 0x15, 0x05));
    Expect_Good();
}

TEST_F(Run_Sequence, a_polled_lock_gets_signs_of_life_until_it_answers_and_all_timer_parts) {
    One(Serial::Z);
    Timers();
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    // Erased at once, deaf for 2500 ms: the sign of life at 2 s is not heard, the one at 3 s is answered, 4 s goes on.
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x2F, 0x27, 0x08, 0x08, 0x25, 0x19, 0x19, 0x19, 0x1B, 0x1B, 0x1F,
                                    0x1F, 0x1F, 0x21, 0x21, 0x21, 0x23, 0x32, 0x15, 0x05));
    Expect_Good();
}

TEST_F(Run_Sequence, a_polled_lock_that_never_answers_goes_on_after_ten_signs_of_life) {
    AddLock(1, "Tresor", Serial::Z).EraseBusyMs = 11500;
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    const Codes sent = Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), 0x08), 10);
    Expect_Good();
}

TEST_F(Run_Sequence, a_lock_of_range_n_gets_its_reader_setting) {
    One(Serial::N);
    Timers();
    files.Reception(1, '2', '0', '0', 0, 0, 0, '1', "130");
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x2F, 0x27, 0x08, 0x08, 0x25, 0x3B, 0x19, 0x19, 0x19, 0x1B, 0x1B,
                                    0x1F, 0x1F, 0x1F, 0x21, 0x21, 0x21, 0x23, 0x32, 0x15, 0x05));
    ASSERT_TRUE(Lock(Serial::N).Reader);
    EXPECT_EQ(*Lock(Serial::N).Reader, (ReaderSetting{0x82, 3, 1}));
    Expect_Good();
}

TEST_F(Run_Sequence, a_lock_with_a_listen_window_gets_it_instead_of_the_reader_setting) {
    One(Serial::N);
    files.Reception(1, '3', '1', '0', 0, 10, 0, '0', "000");
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    const Codes sent = Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), 0x33), 1);
    EXPECT_EQ(std::count(sent.begin(), sent.end(), 0x3B), 0);
    ASSERT_TRUE(Lock(Serial::N).Listen);
    // 600 s = 0x0258; the third record character goes first.
    EXPECT_EQ(*Lock(Serial::N).Listen, (ListenTime{0, 1, 0x02, 0x58}));
    Expect_Good();
}

TEST_F(Run_Sequence, a_lock_above_0xB49FFFF_with_timers_goes_straight_to_the_calendars) {
    One(Serial::TAbove);
    Timers();
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    // Between 0xB49FFFF and 0xDFFB9EF there is no lock mode.
    EXPECT_THAT(Sent(),
                ElementsAre(0x04, 0x07, 0x09, 0x2F, 0x27, 0x25, 0x1F, 0x1F, 0x1F, 0x21, 0x21, 0x21, 0x23, 0x15, 0x05));
    Expect_Good();
}

TEST_F(Run_Sequence, a_lock_above_0xB49FFFF_without_timers_gets_empty_timer_parts) {
    One(Serial::TAbove, " XXXX");
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(), ElementsAre(0x04, 0x07, 0x09, 0x2F, 0x27, 0x25, 0x19, 0x19, 0x19, 0x1B, 0x1B, 0x1F, 0x1F, 0x1F,
                                    0x21, 0x21, 0x21, 0x23, 0x15, 0x05));
    Expect_Good();
}

TEST_F(Run_Sequence, an_old_lock_with_timers_is_announced_and_gets_two_short_tables) {
    One(Serial::S);
    Timers();
    Begin();
    Expect(63, Answer::No);
    world.Answers.push_back({.Text = "L180\n\rL181"});
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    TypeCode("123456");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Sent().size(), 18U);
    EXPECT_EQ(Lock(Serial::S).FormA, TableForm::Short);
    EXPECT_EQ(Lock(Serial::S).FormB, TableForm::Short);
    Expect_Good();
}

TEST_F(Run_Sequence, without_the_clock_switch_the_erase_telegram_follows_the_login) {
    One(Serial::S, "XXXX ");
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_THAT(Sent(),
                ElementsAre(0x04, 0x27, 0x25, 0x19, 0x1B, 0x1F, 0x1F, 0x1F, 0x21, 0x21, 0x21, 0x23, 0x32, 0x15, 0x05));
    EXPECT_FALSE(Lock(Serial::S).Clock);
    Expect_Good();
}

TEST_F(Run_Sequence, each_kind_of_user_has_its_own_conversation) {
    One(Serial::S);
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
    files.User(2, {.Name = "Bert", .KeyId = "1 : 2 : 3 : 4", .KeyData = "5 : 6", .Marks = {{1, 'X'}}});
    files.User(3,
               {.Name = "Carl", .Label = "Slot_Nr: 007", .FingerFlag = "FS", .FingerId = "8001", .Marks = {{1, 'F'}}});
    files.Template(250, "8001", {4, 0, 9, 9});
    Begin();
    Expect(63, Answer::No);
    Expect(273);
    programm->Transfer->F13.FGK13_Click(1, F13Column::Program);
    TypeCode("123456");
    ASSERT_TRUE(Finish());
    const Codes sent = Sent();
    EXPECT_THAT(Codes(sent.begin() + 14, sent.end() - 4),
                ElementsAre(0x0A, 0x0B, 0x0D, 0x0E, 0x0A, 0x0B, 0x0D, 0x0E, 0x0A, 0x40, 0x37));
    Expect_Good();
}

TEST_F(Run_Sequence, timers_by_user_add_the_group_masks) {
    One(Serial::Z);
    Timers();
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    const Codes sent = Sent();
    EXPECT_THAT(Codes(sent.end() - 9, sent.end()), ElementsAre(0x0A, 0x0B, 0x0D, 0x0E, 0x37, 0x23, 0x32, 0x15, 0x05));
    Expect_Good();
}

TEST_F(Run_Sequence, a_transponder_in_range_n_takes_two_telegrams_of_its_own) {
    One(Serial::N);
    Timers();
    files.User(1, {.Name = "Anna",
                   .KeyId = "#3-ID#10:20:30:40:50:60:70:80:90:100",
                   .KeyData = "1:2:3:4:5:6:7:8:9:10:11:12:13:14:15:16",
                   .Marks = {{1, 'X'}}});
    files.User(2, {.Name = "Bert", .Marks = {{1, 'X'}}});
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    const Codes sent = Sent();
    EXPECT_THAT(Codes(sent.end() - 16, sent.end()), ElementsAre(0x0A, 0x0B, 0x0D, 0x0E, 0x43, 0x43, 0x37, 0x0A, 0x0B,
                                                                0x0D, 0x0E, 0x37, 0x23, 0x32, 0x15, 0x05));
    ASSERT_EQ(Lock(Serial::N).Users.size(), 2U);
    const LockUser& anna = Lock(Serial::N).Users[0];
    EXPECT_TRUE(anna.HasLongId);
    EXPECT_EQ(anna.GroupDigit, 3);
    EXPECT_EQ(anna.LongId, (std::array<std::uint8_t, 11>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 0}));
    EXPECT_EQ(anna.LongIdData, (std::array<std::uint8_t, 16>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
    Expect_Good();
}

TEST_F(Run_Sequence, a_two_pass_lock_with_a_transponder_gets_everything_twice) {
    One(Serial::TwoPass, " XXX ");
    files.User(1, {.Name = "Anna", .KeyId = "1 : 2 : 3 : 4", .Marks = {{1, 'X'}}});
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    const Codes sent = Sent();
    const Codes pass(sent.begin(), sent.begin() + static_cast<std::ptrdiff_t>(sent.size() / 2));
    EXPECT_THAT(Codes(sent.begin() + static_cast<std::ptrdiff_t>(pass.size()), sent.end()), ElementsAreArray(pass));
    EXPECT_EQ(pass.front(), 0x04);
    EXPECT_EQ(pass.back(), 0x05);
    EXPECT_EQ(Lock(Serial::TwoPass).Erases, 2);
    EXPECT_EQ(Lock(Serial::TwoPass).Users.size(), 1U);
    Expect_Good();
}

TEST_F(Run_Sequence, a_two_pass_lock_without_transponders_is_programmed_once) {
    One(Serial::TwoPass, " XXX ");
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
    Begin();
    Program(1);
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Lock(Serial::TwoPass).Erases, 1);
    Expect_Good();
}

} // namespace
} // namespace qvm::test
