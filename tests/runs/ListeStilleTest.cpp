// A lock of a list that says nothing: it is given up after the time that the start dialog offers, its session is
// closed, and the rows behind it get their turn.

#include "AntwortRahmen.h"
#include "ListenFixture.h"

#include <algorithm>
#include <functional>

namespace qvm::test {
namespace {

constexpr std::string_view FirstLock = "00.0A.10.01", SecondLock = "00.0A.10.02", FingerReader = "00012CCD";

struct List_Silence : ListenFixture {
    const Row Failed{"#", "L66"}, Programmed{">>", "L266"}, Waiting{"*", "L259"};

    List_Silence() {
        AddLock(1, "Tor", FirstLock, " XXX ");
        AddLock(2, "Keller", SecondLock, " XXX ");
    }
    /// One telegram of the first lock stays without an answer.
    void Lost(int telegram) { devices.Faults.push_back({.What = SimFault::Kind::Silent, .Telegram = telegram}); }
    bool Silent_For(std::int64_t ms) {
        return world.RunUntil([this, ms] { return Lauf_Stille(programm->Run) >= ms; }, 600000);
    }
    /// How often a code went out.
    auto Count(int code) const {
        const Codes all = Sent();
        return std::count(all.begin(), all.end(), code);
    }
};

TEST_F(List_Silence, of_a_minute_gives_the_row_up_and_the_list_goes_on) {
    Lost(4);
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(Silent_For(59000));
    EXPECT_EQ(RowAt(1), Waiting);
    EXPECT_EQ(programm->Transfer->F91.Arbeit(), F91::Work::Direct);
    world.RunFor(2100);
    EXPECT_EQ(RowAt(1), Failed);
    EXPECT_EQ(Outcome(), RunOutcome::NotReached);
    EXPECT_EQ(programm->Run.Bericht.Text, "L66");
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Failed, Programmed));
    EXPECT_EQ(programm->Transfer->F91.StatusLabel.Text(), "L265");
}

TEST_F(List_Silence, is_not_broken_by_frames_that_nobody_asked_for) {
    // The result of a code change, an identification of an adapter, a sign of life, an unknown code.
    const std::vector<std::uint8_t> codes{0x12, 0x68, 0x06, 0x55};
    Lost(4);
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(world.RunUntil([this] { return system->Codes().size() == 5; }));
    for (int n = 0; n < 12; ++n) {
        world.RunFor(4900);
        world.Deliver(ReplyWire(codes[static_cast<std::size_t>(n) % codes.size()], 0x0F, {1, 1, 1, 1}));
    }
    EXPECT_EQ(programm->Transfer->F9.StilleLabel.Text(), "L274 58 s");
    EXPECT_EQ(RowAt(1), Waiting);
    world.RunFor(2500);
    EXPECT_EQ(RowAt(1), Failed);
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Failed, Programmed));
}

TEST_F(List_Silence, closes_the_session_before_the_next_row) {
    Lost(4);
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(world.RunUntil([this] { return RowAt(1) == Failed; }));
    world.RunFor(1000);
    EXPECT_EQ(Sent().back(), 0x05);
    EXPECT_EQ(Count(0x05), 1);
    EXPECT_EQ(Count(0x04), 1) << "no other lock was called yet";
    EXPECT_EQ(programm->link.Lauf.Order.AdminCode, (AdminCodeBytes{0x12, 0x34, 0x56})) << "the next row needs it";
}

TEST_F(List_Silence, of_an_adapter_that_was_pulled_out_sends_nothing_more_to_the_lock) {
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(world.RunUntil([this] { return system->Codes().size() == 4; }));
    world.PortOpen = false;
    world.PortCanOpen = false;
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(RowAt(1), Failed);
    EXPECT_EQ(RowAt(2).first, "#");
    EXPECT_EQ(Count(0x05), 0);
}

TEST_F(List_Silence, lasts_as_long_as_the_start_dialog_was_told) {
    Lost(4);
    BeginList();
    programm->Transfer->F13.FGK13.SetText(1, F13Column::Mark, "X");
    world.Answers.push_front({.Text = "L269", .Reply = Answer::No});
    world.Answers.push_front({.Text = "L63", .Reply = Answer::No});
    programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
    ASSERT_EQ(programm->Transfer->F11.Geduld.Entries()[0], "30 s");
    programm->Transfer->F11.Geduld.Selected = 0;
    TypeCode("123456");
    ASSERT_TRUE(Silent_For(29000));
    EXPECT_EQ(RowAt(1), Waiting);
    world.RunFor(2100);
    EXPECT_EQ(RowAt(1), Failed);
}

TEST_F(List_Silence, without_a_limit_lasts_until_the_operator_ends_it) {
    Lost(4);
    BeginList();
    Prog({1, 2});
    programm->Transfer->F91.Geduld = 0;
    world.RunFor(4 * 3600 * 1000);
    EXPECT_EQ(RowAt(1), Waiting);
    EXPECT_EQ(programm->Transfer->F91.Arbeit(), F91::Work::Direct);
}

TEST_F(List_Silence, does_not_count_while_the_run_itself_waits) {
    files.Reception(1, '2', '0', '0', 0, 0, 0, '0', "255");
    files.Unit(1, 1, "Leser", FingerReader, '2');
    AddUnit(FingerReader, 2);
    files.User(1,
               {.Name = "Bert", .Label = "Slot_Nr: 002", .FingerFlag = "FS", .FingerId = "8001", .Marks = {{1, 'F'}}});
    files.Template(250, "8001", {3, 0, 1});
    BeginList();
    world.World.ShowMessage = [](const Message& message) {
        return message.Choice == Buttons::YesNoCancel ? Answer::No : Answer::Ok;
    };
    Prog({1, 2});
    world.Answers.clear();
    programm->Transfer->F91.Geduld = 2;
    std::int64_t waited = 0;
    const std::function<void()> look = [&] {
        if (programm->Run.Waiting) {
            waited = std::max(waited, world.World.Milliseconds() - programm->link.Lauf.Chain.LastAnswer);
        }
        world.At(100, look);
    };
    look();
    ASSERT_TRUE(world.RunUntil([this] { return !programm->Transfer->F91.Laeuft(); }, 3600000));
    EXPECT_GT(waited, 4000) << "the run has a wait that is longer than the patience";
    EXPECT_EQ(RowAt(1).first, ">>");
    EXPECT_EQ(RowAt(2), Programmed);
}

TEST_F(List_Silence, behind_a_cancel_ends_the_list_as_cancelled) {
    Lost(4);
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(Silent_For(10000));
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(world.RunUntil([this] { return !programm->Transfer->F91.Laeuft(); }));
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L82"), Waiting));
    EXPECT_EQ(Outcome(), RunOutcome::Cancelled);
    EXPECT_EQ(Sent().back(), 0x05);
    EXPECT_TRUE(programm->Transfer->F9.Command2.Enabled);
    world.RunFor(60000);
    EXPECT_EQ(Lock(SecondLock).Sessions, 0);
}

TEST_F(List_Silence, behind_a_stop_ends_the_list_with_its_row) {
    Lost(4);
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(Silent_For(10000));
    programm->Transfer->F91.Command2_Click();
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Failed, Waiting));
    EXPECT_EQ(programm->Transfer->F91.StatusLabel.Text(), "L82");
}

TEST_F(List_Silence, of_the_last_row_ends_the_list) {
    Lost(4);
    BeginList();
    Prog({1});
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Failed));
    EXPECT_EQ(programm->Transfer->F91.StatusLabel.Text(), "L265");
    EXPECT_EQ(programm->link.Lauf.Order.AdminCode, AdminCodeBytes{}) << "the code is forgotten with the list";
}

} // namespace
} // namespace qvm::test
