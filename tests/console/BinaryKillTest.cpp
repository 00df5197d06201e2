// `qvmctl run` is ended by force in the middle of a list, or runs out of disk.

#include "CutRun.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using Json = nlohmann::json;

class BinaryKill : public testing::Test, protected CutRun {
protected:
    /// Kills the program while it waits for the answer to telegram `telegram`, which nobody hears and which is number
    /// `count` of its code, from 1.
    void KillAt(int telegram, const std::string& code, int count) {
        Locks.Start({"--trace", "--fault", "silent@" + std::to_string(telegram)});
        const auto data = Files("DAT");
        const auto run = Locks.Begin(List({"1"}));
        ASSERT_TRUE(WaitForTelegram(code, count)) << run->ErrSoFar() << Locks.Simulator().ErrSoFar();
        Kill(*run, data);
    }
    void Kill(Process& run, const std::map<std::string, std::string>& data) {
        run.Signal(SIGKILL);
        EXPECT_EQ(run.Wait().Code, -1);
        EXPECT_EQ(Files("DAT"), data);
    }
    /// The devices with so many events of lock 1, one a minute, the first one at 00:00.
    static Json WorldWithEvents(int count) {
        Json world = VirtualLocks::World();
        Json events = Json::array();
        for (int n = 0; n < count; ++n) {
            events.push_back({{"day", 7},
                              {"month", 3},
                              {"year", 20},
                              {"hour", n / 60},
                              {"minute", n % 60},
                              {"name", "Bert"},
                              {"event", 1}});
        }
        world["locks"][0]["history"] = events;
        return world;
    }
    static std::string ManyEvents(int count) {
        std::string text = count > 0 ? "00.0A.10.01\r\n" : "";
        for (int n = 0; n < count; ++n) {
            const auto digits = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
            text += "Bert            \t07.03.2020\t" + digits(n / 60) + ":" + digits(n % 60) + "\tCode\r\n";
        }
        return text;
    }
};

TEST_F(BinaryKill, before_the_login_leaves_nothing_and_the_next_list_works) {
    KillAt(0, "04", 1);
    EXPECT_EQ(OnlyHistory(), "");
    ExpectNextListWorks();
}

TEST_F(BinaryKill, while_the_history_is_read_keeps_each_event_that_came) {
    KillAt(4, "17", 2);
    EXPECT_EQ(OnlyHistory(), Events(1));
    ExpectNextListWorks();
}

TEST_F(BinaryKill, between_history_and_erase_keeps_all_events_and_the_lock_as_it_was) {
    KillAt(8, "27", 1);
    EXPECT_EQ(OnlyHistory(), Events(3));
    ExpectNextListWorks();
    // Once by the second list.
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 1);
}

TEST_F(BinaryKill, in_the_dataset_keeps_all_events_and_the_next_list_sends_all_of_it) {
    KillAt(20, "0D", 1);
    EXPECT_EQ(OnlyHistory(), Events(3));
    ExpectNextListWorks();
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 2);
}

TEST_F(BinaryKill, between_two_locks_keeps_what_was_done) {
    Locks.Start({"--trace"});
    const auto data = Files("DAT");
    const auto run = Locks.Begin(List({"1", "2"}));
    ASSERT_TRUE(run->WaitFor("00.0A.10.01  >> Programmed"));
    Kill(*run, data);
    EXPECT_EQ(OnlyHistory(), Events(3));
    ExpectNextListWorks();
}

TEST_F(BinaryKill, while_it_waits_for_its_time_leaves_all_as_it_was_whatever_its_adapter_does) {
    Locks.Start();
    const auto data = Files("DAT");
    const auto run = Locks.Begin(List({"1", "2"}, {"--at", "31.12.9998 23:59"}));
    ASSERT_TRUE(run->WaitFor("00.0A.10.02  *"));
    // Out and in again.
    Locks.Restart();
    Kill(*run, data);
    EXPECT_EQ(OnlyHistory(), "");
    ExpectNextListWorks();
}

TEST_F(BinaryKill, at_any_moment_of_a_long_history_keeps_each_event_that_was_acknowledged) {
    for (const int moment : {1, 40, 200}) {
        SCOPED_TRACE(moment);
        CutRun cut;
        cut.Locks.StartWorld(WorldWithEvents(300), {"--trace"});
        const auto data = cut.Files("DAT");
        const auto run = cut.Locks.Begin(List({"1"}));
        ASSERT_TRUE(cut.WaitForTelegram("17", moment));
        Kill(*run, data);
        cut.Locks.Stop();
        // The first request asks for the first event, each further one acknowledges the event before.
        const int acknowledged = cut.Heard("17") - 1;
        const std::string kept = cut.OnlyHistory();
        EXPECT_TRUE(kept == ManyEvents(acknowledged) || kept == ManyEvents(acknowledged + 1)) << acknowledged << kept;
    }
}

TEST_F(BinaryKill, a_full_disk_keeps_the_events_that_fit_and_leaves_the_lock_alone) {
    Locks.StartWorld(WorldWithEvents(150));
    const auto data = Files("DAT");
    // No file grows beyond 8 blocks of 512 bytes. The lock's line takes 13, an event 40.
    std::vector<std::string> arguments{"-c", "trap '' XFSZ; ulimit -f 8; exec \"$0\" \"$@\"", QvmctlPath()};
    const auto list = Locks.Arguments({"run", "1", "--history", "--since", "01.01.2020"});
    arguments.insert(arguments.end(), list.begin(), list.end());
    const RunResult result = Process("/bin/sh", arguments, std::string(VirtualLocks::Code) + "\n").Wait();
    EXPECT_EQ(result.Code, 1) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("Lock 1 \"Tor\" 00.0A.10.01: not finished, "));
    EXPECT_THAT(result.Out, HasSubstr(" s: The history could not be saved!\n"
                                      "  the history could not be written\n"));
    EXPECT_EQ(OnlyHistory(), ManyEvents(102));
    EXPECT_EQ(Files("DAT"), data);

    const RunResult next = Locks.Run(List({"1"}));
    EXPECT_EQ(next.Code, 0) << next.Err;
    EXPECT_THAT(Files("HIST").rbegin()->second, testing::EndsWith(ManyEvents(150)));
    Locks.Stop();
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 1);
    EXPECT_EQ(Locks.Lock(Tor)["data_complete"], true);
}

} // namespace
} // namespace qvm
