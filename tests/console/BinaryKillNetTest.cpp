// `qvmctl run` through a network adapter, cut off in the middle of a lock.

#include "CutRun.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm {
namespace {

using namespace test;
using Json = nlohmann::json;

class BinaryKillNet : public testing::Test, protected CutRun {
protected:
    /// The devices of lock 1 behind a network adapter, which hands out 30 bytes of history at a time: a record and 8
    /// bytes of the next one, then two and 16 bytes, then all four.
    static Json NetWorld(int fetchMs) {
        Json world = VirtualLocks::World();
        world["adapter"]["address"] = "03.E0.00.01";
        world["adapter"]["network"] = {{"fetch_ms", fetchMs}, {"program_ms", 200}, {"history_bytes", 30}};
        return world;
    }
    /// Its history file with so many events, of four: the network route has no oldest day.
    static std::string NetEvents(int events) {
        const std::string all[] = {"Zo\xEB             \t07.03.2020\t09:05\tE-Key\r\n"
                                   "\t\t\tState: level 1\r\n",
                                   "Bert            \t06.03.2020\t23:59\tCode\r\n",
                                   "Old             \t05.03.2019\t00:00\tTransponder\r\n",
                                   "Older           \t04.03.2019\t00:00\tTransponder\r\n"};
        std::string text = events > 0 ? "Tor  /  SNA : 00.0A.10.01\r\n" : "";
        for (int n = 0; n < events; ++n) {
            text += all[static_cast<std::size_t>(n)];
        }
        return text;
    }
    void ExpectNextNetListWorks() {
        auto earlier = Files("HIST");
        earlier.erase("H_20100701_192030_LOCK.txt");
        const RunResult next = Locks.Run(List({"1"}));
        EXPECT_EQ(next.Code, 0) << next.Err << next.Out;
        const auto files = Files("HIST");
        for (const auto& [name, bytes] : earlier) {
            EXPECT_THAT(files.at(name), testing::StartsWith(bytes));
        }
        EXPECT_THAT(files.rbegin()->second, testing::EndsWith(NetEvents(4)));
        Locks.Stop();
        EXPECT_EQ(Locks.Lock(Tor)["data_complete"], true);
        EXPECT_EQ(Locks.Lock(Tor)["users"].size(), 2U);
    }
};

TEST_F(BinaryKillNet, while_the_history_comes_keeps_each_event_that_is_whole) {
    // The third telegram asks for the third block.
    Locks.StartWorld(NetWorld(50), {"--trace", "--fault", "silent@2"});
    const auto data = Files("DAT");
    const auto run = Locks.Begin(List({"1"}));
    ASSERT_TRUE(WaitForTelegram("90", 3)) << run->ErrSoFar() << Locks.Simulator().ErrSoFar();
    run->Signal(SIGKILL);
    EXPECT_EQ(run->Wait().Code, -1);
    EXPECT_EQ(Files("DAT"), data);
    auto files = Files("HIST");
    // The log of the telegram is deleted by the next one only.
    EXPECT_EQ(files.erase("H_20100701_192030_LOCK.txt"), 1U);
    ASSERT_EQ(files.size(), 1U);
    EXPECT_EQ(files.begin()->second, NetEvents(2));
    ExpectNextNetListWorks();
    EXPECT_FALSE(Files("HIST").contains("H_20100701_192030_LOCK.txt"));
}

TEST_F(BinaryKillNet, the_adapter_pulled_while_it_fetches_the_history_fails_the_lock_at_once) {
    Locks.StartWorld(NetWorld(600000), {"--trace"});
    const auto data = Files("DAT");
    const auto run = Locks.Begin(List({"1"}));
    ASSERT_TRUE(WaitUntil([&] { return Heard("90", '<') >= 1; })) << run->ErrSoFar() << Locks.Simulator().ErrSoFar();
    Locks.Stop();
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    const Json lock = Json::parse(result.Out);
    EXPECT_EQ(lock["result"], "not-reached");
    EXPECT_EQ(lock["route"], "network");
    EXPECT_EQ(lock["text"], "Connection failed!");
    EXPECT_EQ(OnlyHistory(), "");
    EXPECT_EQ(Files("DAT"), data);
    Locks.StartWorld(NetWorld(50));
    ExpectNextNetListWorks();
}

} // namespace
} // namespace qvm
