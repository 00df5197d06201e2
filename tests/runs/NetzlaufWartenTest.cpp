// A network adapter that answers late, or never comes to its end.

#include "ListenFixture.h"

namespace qvm::test {
namespace {

struct Net_Row_Waits : ListenFixture {
    Net_Row_Waits() {
        AddLock(1, "Tor", "00.0A.10.01", " XXX ");
        AddLock(2, "Keller", "00.0A.10.02", " XXX ");
        files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}, {2, 'X'}}});
    }
    std::string Hint() { return programm->Transfer->F91.Hinweis.Text; }
};

TEST_F(Net_Row_Waits, a_late_reply_lets_a_row_that_stood_still_go_on) {
    BeginList({1});
    Prog({1, 2});
    world.RunUntil([this] { return programm->Transfer->F91.Steht; });
    EXPECT_EQ(programm->Transfer->F91.StatusLabel.Text(), "L66");
    world.RunFor(1000);
    GoodNetAdapter();
    NetReply(0x15);
    world.RunFor(35); // the reply, and the handler 10 ms later
    EXPECT_FALSE(programm->Transfer->F91.Steht);
    EXPECT_EQ(programm->Transfer->F91.StatusLabel.Text(), "L81");
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row(">>", "L266"), Row(">>", "L266")));
}

TEST_F(Net_Row_Waits, a_late_reply_without_sense_changes_nothing) {
    BeginList({1});
    Prog({1, 2});
    world.RunUntil([this] { return programm->Transfer->F91.Steht; });
    NetReply(0x1F); // the clock never went out
    world.RunFor(1000);
    EXPECT_TRUE(programm->Transfer->F91.Steht);
    EXPECT_EQ(programm->Transfer->F91.StatusLabel.Text(), "L66");
}

TEST_F(Net_Row_Waits, the_silence_counts_from_the_last_telegram_or_reply) {
    BeginList({1});
    NetAdapter = [this](const Bytes&) {
        if (NetFrames.size() == 1) {
            NetReply(0x14, 9, {}, 1000); // no block that was sent
        }
    };
    Prog({1});
    world.RunUntil([this] { return programm->Transfer->F91.Steht; });
    // The last of four telegrams, 4 s apart, went out 4 s ago.
    EXPECT_EQ(Net_Stille(programm->Netz), 4000);
    world.RunFor(3000);
    NetReply(0x14);
    world.RunFor(20);
    EXPECT_LT(Net_Stille(programm->Netz), 20);
}

TEST_F(Net_Row_Waits, tells_how_long_an_adapter_that_programs_has) {
    GoodNetAdapter();
    BeginList({1});
    Prog({1, 2});
    world.RunUntil([this] { return programm->Netz.Phase == NetPhase::Result; });
    // 10:30 and an hour
    EXPECT_EQ(Hint(), "Der Netzwerkadapter hat Zeit bis 11:30 Uhr. Danach geht die Liste ohne dieses Schloss weiter.");
    world.RunUntil([this] { return RowAt(1).first == ">>"; });
    EXPECT_EQ(Hint(), "");
}

TEST_F(Net_Row_Waits, a_row_whose_adapter_programs_for_ever_ends_behind_an_hour_and_says_so) {
    NetAdapter = [this](const Bytes& frame) { NetReply(frame[27] == 0x14 ? 0x15 : 0x1F); };
    BeginList({1});
    Prog({1, 2});
    ASSERT_TRUE(FinishList(2 * 3600000));
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L66  /  Der Netzwerkadapter war nach 60 Minuten nicht fertig. Bitte "
                                                "pr\xFC"
                                                "fen Sie das Schloss."),
                                       Row(">>", "L266")));
    EXPECT_EQ(Hint(), "");
}

TEST_F(Net_Row_Waits, a_row_whose_adapter_fetches_for_ever_ends_behind_half_an_hour_and_nothing_is_programmed) {
    NetAdapter = [this](const Bytes&) {
        for (int second = 0; second < 2000; ++second) {
            NetReply(0x0B, 1, {}, 1000 * second + 20);
        }
    };
    BeginList({1});
    Prog({1, 2}, Answer::Yes);
    world.RunUntil([this] { return programm->Netz.Phase == NetPhase::History; });
    EXPECT_EQ(Hint(), "Der Netzwerkadapter hat Zeit bis 11:00 Uhr. Danach geht die Liste ohne dieses Schloss weiter.");
    ASSERT_TRUE(FinishList());
    EXPECT_THAT(AllRows(), ElementsAre(Row("#", "L66  /  Der Netzwerkadapter war nach 30 Minuten nicht fertig. Bitte "
                                                "pr\xFC"
                                                "fen Sie das Schloss."),
                                       Row(">>", "L266")));
    EXPECT_EQ(NetFrames.size(), 1U);
}

} // namespace
} // namespace qvm::test
