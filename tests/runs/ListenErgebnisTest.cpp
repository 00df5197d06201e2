// What the list knows of a row that is over. Whoever asks need not read it out of what the list shows: here all
// catalogue lines say the same.

#include "ListenFixture.h"

namespace qvm::test {
namespace {

struct Row_Result : ListenFixture {
    Row_Result() {
        AddLock(1, "Tor", "00.0A.10.01", " XXX ");
        AddLock(2, "Keller", "00.0A.10.02", " XXX ");
    }
    void Work(const std::vector<int>& locks) {
        Prog(locks);
        programm->kern.Sprache.LanguageText.fill("x");
    }
    RunOutcome End(int row) const { return programm->Transfer->F91.Ergebnis(row).End; }
};

TEST_F(Row_Result, of_locks_that_are_programmed_refuse_and_are_not_there) {
    AddLock(3, "Dach", "00.0A.10.03", " XXX ");
    devices.Locks[1].LoginStatus = 1;
    devices.Locks.erase(devices.Locks.begin() + 2);
    BeginList();
    Work({1, 2, 3});
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(End(1), RunOutcome::Done);
    EXPECT_EQ(End(2), RunOutcome::Refused);
    EXPECT_EQ(programm->Transfer->F91.Ergebnis(2).Text, "x  /  x");
    EXPECT_EQ(End(3), RunOutcome::NotReached);
    EXPECT_FALSE(programm->Transfer->F91.Ergebnis(3).Silent);
    EXPECT_EQ(End(4), RunOutcome::Open) << "there is no such row";
}

TEST_F(Row_Result, of_a_port_that_cannot_be_opened) {
    BeginList({2});
    Work({1, 2});
    world.PortCanOpen = false;
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(End(1), RunOutcome::NoPort);
    EXPECT_EQ(End(2), RunOutcome::NoPort);
}

TEST_F(Row_Result, of_a_cancel_and_of_the_row_behind_it) {
    BeginList();
    Work({1, 2});
    ASSERT_TRUE(world.RunUntil([this] { return system->Codes().size() == 5; }));
    programm->Transfer->F9.Command1_Click();
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(End(1), RunOutcome::Cancelled);
    EXPECT_EQ(End(2), RunOutcome::Open);
}

TEST_F(Row_Result, of_a_lock_that_says_nothing) {
    devices.Faults.push_back({.What = SimFault::Kind::Silent, .Telegram = 4});
    BeginList();
    Work({1, 2});
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(End(1), RunOutcome::NotReached);
    EXPECT_TRUE(programm->Transfer->F91.Ergebnis(1).Silent);
    EXPECT_EQ(End(2), RunOutcome::Done);
}

TEST_F(Row_Result, of_a_row_that_its_check_passed_over_says_why) {
    files.Lock(1, "Tor", "ZZ.0A.10.01");
    BeginList();
    Prog({1, 2});
    ASSERT_TRUE(FinishList());
    const RowResult& row = programm->Transfer->F91.Ergebnis(1);
    EXPECT_EQ(RowAt(1), Row("-", "L261"));
    EXPECT_EQ(row.End, RunOutcome::PassedOver);
    EXPECT_TRUE(row.Skipped);
    EXPECT_EQ(row.Text, "L257");
}

TEST_F(Row_Result, of_a_network_adapter_that_did_not_reach_the_lock) {
    BeginList({1});
    NetAdapter = [this](const Bytes&) { NetReply(0xFF); };
    Work({1});
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(End(1), RunOutcome::NotReached);
}

TEST_F(Row_Result, of_a_network_adapter_that_says_done_without_having_begun) {
    BeginList({1});
    NetAdapter = [this](const Bytes& frame) { NetReply(frame[27] == 0x1E ? 0x20 : 0x15, frame[1]); };
    Work({1});
    ASSERT_TRUE(FinishList());
    EXPECT_EQ(End(1), RunOutcome::Incomplete);
}

} // namespace
} // namespace qvm::test
