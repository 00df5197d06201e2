// An adapter is pulled out in the middle of a list run: the row says so, the rows behind it are worked off, no event
// that came is lost, and the next run works.

#include "CutList.h"

namespace qvm::test {
namespace {

/// Pulls the programming adapter at its telegram of number `at`, from 0. False when the list has ended before.
bool PullAt(CutList& run, int at) {
    run.StartList();
    run.system->World().Faults.push_back({.What = SimFault::Kind::Unplug, .Telegram = at});
    run.EndList();
    return run.system->Unplugged();
}

/// What the rows hold once everything is pulled at a telegram to lock `cut`.
void ExpectCutAt(const CutList& run, int cut) {
    for (const int lock : {1, 2, 3}) {
        const bool before = lock < cut;
        EXPECT_EQ(run.RowAt(lock), before ? CutList::Programmed : lock == cut ? CutList::NotReached : CutList::NoPort);
        const CutList::Pieces pieces = CutList::Complete(lock);
        EXPECT_EQ(CutList::HistoryOf(lock, run.world.Disk.Files),
                  CutList::Beginning(pieces, before ? static_cast<int>(pieces.size()) : run.Kept(lock)));
    }
}

TEST(List_Unplugged, at_any_telegram_keeps_every_event_that_came_and_the_next_list_works) {
    int telegram = 0;
    std::map<int, int> cuts;
    for (;; ++telegram) {
        SCOPED_TRACE("telegram " + std::to_string(telegram));
        CutList run;
        if (!PullAt(run, telegram)) {
            EXPECT_THAT(run.AllRows(), ElementsAre(CutList::Programmed, CutList::Programmed, CutList::Programmed));
            break;
        }
        const int cut = run.RowAt(1).first == "#" ? 1 : 3;
        ++cuts[cut];
        ExpectCutAt(run, cut);
        EXPECT_EQ(run.programm->Transfer->F91.StatusLabel.Text(), "L265");
        run.PlugIn();
        run.ExpectNextListWorks();
    }
    // Both direct rows were cut at each of their telegrams; the third has two events less.
    EXPECT_GT(telegram, 40);
    EXPECT_EQ(cuts[1], cuts[3] + 2);
}

TEST(List_Unplugged, from_the_network_adapter_at_any_telegram_leaves_the_other_rows_alone) {
    // Start of history, next block, data, clock.
    for (const int telegram : {0, 1, 2, 3}) {
        SCOPED_TRACE("telegram " + std::to_string(telegram));
        CutList run;
        run.PullNetAt = telegram;
        run.StartList();
        run.EndList();
        EXPECT_EQ(static_cast<int>(run.NetFrames.size()), telegram + 1);
        EXPECT_THAT(run.AllRows(), ElementsAre(CutList::Programmed, CutList::NotReached, CutList::Programmed));
        EXPECT_EQ(CutList::HistoryOf(2, run.world.Disk.Files), CutList::Beginning(CutList::Complete(2), run.Kept(2)));
        run.PlugIn();
        run.ExpectNextListWorks();
    }
}

TEST(List_Unplugged, from_the_network_adapter_while_it_works_by_radio_does_not_wait_for_an_hour) {
    // While it fetches the history, while it programs the lock.
    for (const int telegram : {0, 3}) {
        SCOPED_TRACE("telegram " + std::to_string(telegram));
        CutList run;
        run.PullNetAt = telegram;
        run.PullAfterMs = 1000;
        run.StartList();
        EXPECT_TRUE(run.FinishList(60000));
        EXPECT_THAT(run.AllRows(), ElementsAre(CutList::Programmed, CutList::NotReached, CutList::Programmed));
        EXPECT_EQ(CutList::HistoryOf(2, run.world.Disk.Files),
                  CutList::Beginning(CutList::Complete(2), telegram == 0 ? 0 : 2));
        run.PlugIn();
        run.ExpectNextListWorks();
    }
}

TEST(List_Unplugged, between_the_history_and_the_programming_of_a_network_row_is_no_row_without_a_telegram) {
    CutList run;
    run.StartList();
    run.world.RunUntil([&] { return run.RowAt(2).first == "<<"; });
    run.world.PortThere = [](int port) { return port != 2; };
    run.world.PortOpen = false;
    run.EndList();
    EXPECT_THAT(run.AllRows(), ElementsAre(CutList::Programmed, CutList::NotReached, CutList::Programmed));
    EXPECT_EQ(run.NetFrames.size(), 2U);
    EXPECT_EQ(CutList::HistoryOf(2, run.world.Disk.Files), CutList::Beginning(CutList::Complete(2), 2));
}

TEST(List_Unplugged, between_two_locks_the_rows_behind_cannot_be_sent_anything) {
    CutList run;
    run.StartList();
    run.world.RunUntil([&] { return run.RowAt(1).first == ">>"; });
    run.world.PortCanOpen = run.world.PortOpen = false;
    run.EndList();
    EXPECT_THAT(run.AllRows(), ElementsAre(CutList::Programmed, CutList::NoPort, CutList::NoPort));
    run.PlugIn();
    run.ExpectNextListWorks();
}

TEST(List_Unplugged, between_two_locks_and_put_back_the_list_goes_on) {
    CutList run;
    run.StartList();
    run.world.RunUntil([&] { return run.RowAt(1).first == ">>"; });
    run.world.PortCanOpen = run.world.PortOpen = false;
    run.world.At(2000, [&] { run.world.PortCanOpen = true; });
    run.EndList();
    EXPECT_THAT(run.AllRows(), ElementsAre(CutList::Programmed, CutList::Programmed, CutList::Programmed));
}

struct Waiting : CutList {
    Waiting() {
        StartList(Answer::Yes);
        programm->Transfer->F92.Zeit_Waehlen(11, 0);
        programm->Transfer->F92.OK_Click();
        world.RunFor(60000);
        EXPECT_EQ(RowAt(1).first, "*");
        world.PortCanOpen = world.PortOpen = false;
    }
};

TEST(List_Unplugged, while_it_waits_for_its_time_and_put_back_before_works_off_all) {
    Waiting run;
    run.world.RunFor(60000);
    run.PlugIn();
    run.world.RunFor(1800000);
    run.EndList();
    EXPECT_THAT(run.AllRows(), ElementsAre(CutList::Programmed, CutList::Programmed, CutList::Programmed));
}

TEST(List_Unplugged, while_it_waits_for_its_time_and_not_put_back_says_so_in_each_row) {
    Waiting run;
    run.world.RunFor(1800000);
    run.EndList();
    EXPECT_THAT(run.AllRows(), ElementsAre(CutList::NoPort, CutList::NoPort, CutList::NoPort));
    run.PlugIn();
    run.ExpectNextListWorks();
}

} // namespace
} // namespace qvm::test
