// Adapters that the binary has to find: of several the right one, with the right route; silent ports; adapters that
// move.

#include "VirtualLocks.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::json;

class BinaryAdapter : public testing::Test {
protected:
    BinaryAdapter() { Locks.Import(Json::object(), {{"CHEUSB25C.I_2", {"SET"}}}); }

    static Json Enrolment() { return {{"adapter", {{"name", "ENROLLMENT1"}, {"address", "04.03.02.01"}}}}; }
    static Json Network(int programMs = 100) {
        Json world = VirtualLocks::World();
        world["adapter"]["address"] = "03.E0.00.01";
        world["adapter"]["network"] = {{"fetch_ms", 100}, {"program_ms", programMs}, {"history_bytes", 50}};
        return world;
    }
    static std::vector<Json> Rows(const std::string& out) {
        std::vector<Json> documents;
        std::istringstream lines(out);
        for (std::string line; std::getline(lines, line);) {
            documents.push_back(Json::parse(line));
        }
        return documents;
    }
    static Json OnlyLock(const RunResult& result) {
        const Json document = Json::parse(result.Out);
        EXPECT_EQ(document["locks"].size(), 1U);
        return document["locks"][0];
    }
    /// Ctrl-C while the only port, which is silent, is asked.
    RunResult InterruptSearch(const std::vector<std::string>& arguments) {
        Silent = Locks.Plug("com1", VirtualLocks::World(), {"--fault", "silent@#0+"});
        const auto run = Locks.Begin(arguments);
        EXPECT_TRUE(run->WaitFor("Looking for an adapter on com1, try 1 of 4.\n"));
        run->Signal(SIGINT);
        const RunResult result = run->Wait();
        EXPECT_THAT(result.Err, Not(HasSubstr("try 2")));
        EXPECT_THAT(result.Err, HasSubstr("Cancelled before a lock was begun; nothing was sent to a lock.\n"));
        EXPECT_EQ(result.Code, 3);
        return result;
    }

    VirtualLocks Locks;
    std::unique_ptr<Process> Silent;
};

TEST_F(BinaryAdapter, program_goes_through_the_programming_adapter_behind_the_second_port) {
    const auto enrolment = Locks.Plug("com1", Enrolment());
    const auto programming =
        Locks.Plug("com2", VirtualLocks::World(), {"--state", Locks.Directory.Path() + "state.json"});
    const RunResult result = Locks.Run({"--json", "program", "1"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const Json lock = OnlyLock(result);
    EXPECT_EQ(lock["result"], "done");
    EXPECT_EQ(lock["route"], "direct");
    programming->Signal(SIGTERM);
    EXPECT_EQ(programming->Wait().Err, "");
    EXPECT_EQ(Locks.Lock(Tor)["users"].size(), 2U);
}

TEST_F(BinaryAdapter, history_goes_there_too) {
    const auto enrolment = Locks.Plug("com1", Enrolment());
    const auto programming = Locks.Plug("com2", VirtualLocks::World());
    const RunResult result = Locks.Run({"--json", "history", "1", "--since", "01.01.2020"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(OnlyLock(result)["events"].size(), 3U);
}

TEST_F(BinaryAdapter, program_hands_the_lock_to_a_network_adapter) {
    Locks.StartWorld(Network());
    const RunResult result = Locks.Run({"--json", "program", "1", "2"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const Json document = Json::parse(result.Out);
    ASSERT_EQ(document["locks"].size(), 2U);
    for (const Json& lock : document["locks"]) {
        EXPECT_EQ(lock["result"], "done") << lock;
        EXPECT_EQ(lock["route"], "network") << lock;
    }
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["users"].size(), 2U);
    EXPECT_EQ(Locks.Lock(Leer)["data_complete"], true);
}

TEST_F(BinaryAdapter, history_comes_from_a_network_adapter) {
    Locks.StartWorld(Network());
    const RunResult result = Locks.Run({"--json", "history", "1"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const Json lock = OnlyLock(result);
    EXPECT_EQ(lock["route"], "network");
    EXPECT_EQ(lock["events"].size(), 4U); // that route has no oldest day
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 0);
}

TEST_F(BinaryAdapter, a_lock_that_a_network_adapter_does_not_reach_is_not_reached) {
    Locks.StartWorld(Network(), {"--fault", "notreached@1"});
    const RunResult result = Locks.Run({"--json", "program", "1"});
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_EQ(OnlyLock(result)["result"], "not-reached");
}

TEST_F(BinaryAdapter, ctrl_c_gives_up_a_network_row_that_is_told_its_time) {
    Locks.StartWorld(Network(3600000));
    const auto run = Locks.Begin({"--json", "program", "1", "2"});
    ASSERT_TRUE(run->WaitFor("The network adapter has time until "));
    run->Signal(SIGINT);
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    const Json document = Json::parse(result.Out);
    EXPECT_EQ(document["locks"][0]["result"], "cancelled");
    EXPECT_EQ(document["locks"][1]["result"], "untried");
}

TEST_F(BinaryAdapter, without_a_programming_adapter_nothing_is_sent_and_the_reason_is_told) {
    const auto enrolment = Locks.Plug("com1", Enrolment(), {"--trace"});
    const RunResult result = Locks.Run({"--json", "program", "1"});
    EXPECT_EQ(result.Code, 1) << result.Err;
    const Json lock = OnlyLock(result);
    EXPECT_EQ(lock["result"], "fault");
    EXPECT_EQ(lock["text"], "No adapter is assigned to this lock!");
    EXPECT_EQ(lock["telegrams"], 0);
}

TEST_F(BinaryAdapter, ctrl_c_in_the_search_of_program_acts_at_once) {
    const Json document = Json::parse(InterruptSearch({"--json", "program", "1", "2"}).Out);
    ASSERT_EQ(document["locks"].size(), 2U);
    for (const Json& lock : document["locks"]) {
        EXPECT_EQ(lock["result"], "untried");
        EXPECT_EQ(lock["telegrams"], 0);
        EXPECT_EQ(lock["route"], "");
    }
}

TEST_F(BinaryAdapter, ctrl_c_in_the_search_of_run_acts_at_once) {
    const std::vector<Json> rows = Rows(InterruptSearch({"--json", "run", "2", "1"}).Out);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0]["lock"], 1);
    EXPECT_EQ(rows[0]["result"], "untried");
    EXPECT_EQ(rows[1]["result"], "untried");
}

TEST_F(BinaryAdapter, that_moves_to_another_port_while_a_list_waits_is_told_and_used) {
    auto first = Locks.Plug("com1", VirtualLocks::World());
    const auto run = Locks.Begin({"--json", "run", "1", "2"});
    ASSERT_TRUE(run->WaitFor("00.0A.10.01  >> Programmed"));
    first->Signal(SIGTERM); // takes the link away
    first->Wait();
    const auto second = Locks.Plug("com3", VirtualLocks::World());
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 0) << result.Err;
    const std::vector<Json> rows = Rows(result.Out);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1]["result"], "done") << result.Err;
}

TEST_F(BinaryAdapter, that_goes_while_a_list_waits_for_its_hour_is_told_and_so_is_its_return) {
    auto first = Locks.Plug("com1", VirtualLocks::World());
    const auto run = Locks.Begin({"run", "1", "--at", "31.12.9998 23:59"});
    ASSERT_TRUE(run->WaitFor("Entries checked"));
    first->Signal(SIGTERM);
    first->Wait();
    EXPECT_TRUE(run->WaitFor(
        "The wireless adapter has been disconnected. Please plug it in again before the next lock's turn comes.\n"));
    const auto second = Locks.Plug("com3", VirtualLocks::World());
    EXPECT_TRUE(run->WaitFor("The wireless adapter is back. The list goes on with it.\n"));
    run->Signal(SIGINT);
    EXPECT_EQ(run->Wait().Code, 3);
}

TEST_F(BinaryAdapter, a_late_answer_lets_a_network_row_go_on_behind_its_tries) {
    // The first answer comes a second behind the last of four tries, 4 s each; the three behind it are not heard.
    Locks.StartWorld(Network(),
                     {"--fault", "late@0=17000", "--fault", "silent@1", "--fault", "silent@2", "--fault", "silent@3"});
    const RunResult result = Locks.Run({"--json", "run", "1"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(Rows(result.Out).at(0)["result"], "done");
}

/// The fingerprint of lock 2 has no data, and so its row is passed over.
TEST_F(BinaryAdapter, messages_of_the_row_check_stand_in_the_document_of_their_row) {
    const Json user{{"record", 1},
                    {"UserName", "Dora"},
                    {"UserGroupId", "-"},
                    {"UserRight", "1"},
                    {"KeyLabel", "Slot_Nr: 001"},
                    {"FingerFlag", "FS"},
                    {"FingerId", "8001"},
                    {"LockMask", "-F"}};
    Locks.Import({{"UserRecord", {user}}}, Json::object());
    Locks.StartWorld(VirtualLocks::World());
    const std::vector<Json> rows = Rows(Locks.Run({"--json", "run", "1", "2"}).Out);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0]["result"], "done") << rows[0];
    EXPECT_TRUE(rows[0]["messages"].empty()) << rows[0];
    EXPECT_EQ(rows[1]["result"], "fault");
    ASSERT_EQ(rows[1]["messages"].size(), 2U) << rows[1];
    EXPECT_EQ(rows[1]["messages"][0], "Caution: this function requires a wireless adapter with a current version!");
    EXPECT_THAT(rows[1]["messages"][1].get<std::string>(), testing::StartsWith("Dora"));
    EXPECT_EQ(rows[1]["text"], "Fingerprint data missing");
}

} // namespace
} // namespace qvm
