// `qvmctl run`, and an adapter that is pulled out in the middle of a list.

#include "CutRun.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using Json = nlohmann::json;

class BinaryUnplug : public testing::Test, protected CutRun {
protected:
    std::vector<Json> Reports;

    void Report(const RunResult& result) {
        std::istringstream lines(result.Out);
        for (std::string line; std::getline(lines, line);) {
            Reports.push_back(Json::parse(line));
        }
    }
    void ExpectLost(const Json& lock) {
        EXPECT_EQ(lock["result"], "silent");
        EXPECT_EQ(lock["exit"], 3);
        EXPECT_THAT(lock["text"].get<std::string>(), HasSubstr(" is broken: the adapter was unplugged"));
    }
    void ExpectNotBegun(const Json& lock) {
        EXPECT_EQ(lock["result"], "fault");
        EXPECT_EQ(lock["exit"], 1);
        EXPECT_EQ(lock["text"], "The port could not be opened!");
        EXPECT_EQ(lock["telegrams"], 0);
    }
    /// The adapter goes when telegram `telegram` has come, and is put back behind the list.
    void UnplugAt(int telegram, int events, const std::vector<std::string>& locks = {"1"}) {
        Locks.Start({"--trace", "--fault", "unplug@" + std::to_string(telegram)});
        const auto data = Files("DAT");
        const RunResult result = Locks.Run(List(locks, {"--timeout", "1"}));
        EXPECT_EQ(result.Code, locks.size() == 1 ? 3 : 4) << result.Err;
        Report(result);
        ASSERT_EQ(Reports.size(), locks.size());
        ExpectLost(Reports[0]);
        if (locks.size() > 1) {
            ExpectNotBegun(Reports[1]);
        }
        EXPECT_EQ(OnlyHistory(), Events(events));
        EXPECT_EQ(Files("DAT"), data);
        Locks.Restart();
        ExpectNextListWorks();
    }
};

TEST_F(BinaryUnplug, before_the_login_says_so_for_each_lock) {
    UnplugAt(0, 0, {"1", "2"});
}

TEST_F(BinaryUnplug, while_the_history_is_read_keeps_each_event_that_came) {
    UnplugAt(4, 1);
}

TEST_F(BinaryUnplug, between_history_and_erase_keeps_all_events) {
    UnplugAt(8, 3);
}

TEST_F(BinaryUnplug, in_the_dataset_keeps_all_events_and_the_next_list_sends_all_of_it) {
    UnplugAt(20, 3);
}

TEST_F(BinaryUnplug, between_two_locks_fails_the_one_behind) {
    Locks.Start();
    const auto data = Files("DAT");
    const auto run = Locks.Begin(List({"1", "2"}));
    ASSERT_TRUE(run->WaitFor("00.0A.10.01  >> Programmed"));
    Locks.Stop();
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 4) << result.Err;
    Report(result);
    ASSERT_EQ(Reports.size(), 2U);
    EXPECT_EQ(Reports[0]["result"], "done");
    ExpectNotBegun(Reports[1]);
    EXPECT_EQ(OnlyHistory(), Events(3));
    EXPECT_EQ(Files("DAT"), data);
    Locks.Restart();
    ExpectNextListWorks();
}

TEST_F(BinaryUnplug, and_put_back_while_its_lock_is_waited_for_does_the_next_lock) {
    Locks.Start({"--fault", "unplug@4"});
    const auto run = Locks.Begin(List({"1", "2"}, {"--timeout", "2"}));
    ASSERT_TRUE(WaitUntil([&] { return !Locks.Directory.Has("com1"); }));
    Locks.Restart();
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 4) << result.Err;
    Report(result);
    ASSERT_EQ(Reports.size(), 2U);
    EXPECT_EQ(Reports[0]["result"], "silent");
    EXPECT_EQ(Reports[1]["result"], "done");
    EXPECT_EQ(OnlyHistory(), Events(1));
    ExpectNextListWorks();
}

} // namespace
} // namespace qvm
