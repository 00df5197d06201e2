// `qvmctl run`: a list of locks on the binary.

#include "VirtualLocks.h"

#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace qvm {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using Json = nlohmann::json;

class BinaryList : public testing::Test {
protected:
    VirtualLocks Locks;

    void UnitOfLock2() {
        Locks.Import(Json::parse(R"({"WirelessUnitRecord":[{"record":2,"UnitMode":"2","Name1":"Leser","Sn1_1":"01",)"
                                 R"("Sn2_1":"60","Sn3_1":"00","Sn4_1":"03","Module1":"1"}]})"),
                     Json::object());
    }
    static std::vector<Json> Documents(const std::string& out) {
        std::vector<Json> documents;
        std::istringstream lines(out);
        for (std::string line; std::getline(lines, line);) {
            documents.push_back(Json::parse(line));
        }
        return documents;
    }
};

TEST_F(BinaryList, programs_the_locks_in_the_order_of_the_grid) {
    Locks.Start();
    const RunResult result = Locks.Run({"run", "2", "1"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    // Three telegrams more than a single run, as each lock is told the channel of the system.
    const auto first = result.Out.find("Lock 1 \"Tor\" 00.0A.10.01: programmed, 29 telegrams in ");
    const auto second = result.Out.find("Lock 2 \"Leer\" 00.0A.10.02: programmed, ");
    EXPECT_NE(first, std::string::npos) << result.Out;
    EXPECT_NE(second, std::string::npos) << result.Out;
    EXPECT_LT(first, second);
    EXPECT_THAT(result.Err, HasSubstr("00.0A.10.01  *  Entries checked\n"));
    EXPECT_THAT(result.Err, HasSubstr("00.0A.10.01  >> Programmed\n"));
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["users"].size(), 2U);
    EXPECT_EQ(Locks.Lock(Leer)["data_complete"], true);
}

TEST_F(BinaryList, one_document_a_lock_and_the_list_goes_on_behind_a_failure) {
    Locks.Start();
    const RunResult result = Locks.Run({"--json", "run", "1", "2", "3"});
    EXPECT_EQ(result.Code, 4) << result.Err;
    const std::vector<Json> locks = Documents(result.Out);
    ASSERT_EQ(locks.size(), 3U);
    EXPECT_EQ(locks[0]["lock"], 1);
    EXPECT_EQ(locks[0]["name"], "Tor");
    EXPECT_EQ(locks[0]["result"], "done");
    EXPECT_EQ(locks[0]["route"], "direct");
    EXPECT_EQ(locks[0]["telegrams"], 29);
    EXPECT_EQ(locks[1]["result"], "done");
    EXPECT_EQ(locks[2]["result"], "not-reached");
    EXPECT_EQ(locks[2]["exit"], 3);
    EXPECT_EQ(locks[2]["text"], "Connection failed!");
    EXPECT_EQ(locks[2]["telegrams"], 13); // the channel that it should be on, then all twelve
}

TEST_F(BinaryList, without_a_language_file_reads_the_history_that_was_asked_for) {
    Locks.Start();
    for (const auto& file : std::filesystem::directory_iterator(Locks.Directory.Path())) {
        if (file.path().filename().string().starts_with("QVM_")) {
            std::filesystem::remove(file.path());
        }
    }
    const RunResult result = Locks.Run({"--json", "run", "1", "2", "--history", "--since", "01.01.2020"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const std::vector<Json> locks = Documents(result.Out);
    ASSERT_EQ(locks.size(), 2U);
    EXPECT_EQ(locks[0]["result"], "done");
    EXPECT_EQ(locks[0]["events"].size(), 3U);
}

TEST_F(BinaryList, reads_histories_only) {
    Locks.Start();
    const RunResult result = Locks.Run({"--json", "run", "1", "2", "--history-only", "--since", "01.01.2020"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const std::vector<Json> locks = Documents(result.Out);
    ASSERT_EQ(locks.size(), 2U);
    EXPECT_EQ(locks[0]["events"].size(), 3U);
    EXPECT_FALSE(locks[1].contains("historyFile"));
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 0);
    EXPECT_EQ(Locks.Directory.List("HIST").size(), 1U);
}

TEST_F(BinaryList, reads_the_history_and_then_programs) {
    Locks.Start();
    const RunResult result = Locks.Run({"--json", "run", "1", "--history"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_TRUE(Documents(result.Out).at(0).contains("historyFile"));
    Locks.Stop();
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 1);
}

TEST_F(BinaryList, a_wrong_code_is_refused_by_each_lock) {
    Locks.Start();
    Process run(QvmctlPath(), Locks.Arguments({"--json", "run", "1", "2"}), "999999\n");
    const RunResult result = run.Wait();
    EXPECT_EQ(result.Code, 2) << result.Err;
    for (const Json& lock : Documents(result.Out)) {
        EXPECT_EQ(lock["result"], "refused");
    }
    Locks.Stop();
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 0);
}

TEST_F(BinaryList, a_silent_lock_is_given_up_and_the_next_one_is_programmed) {
    Locks.Start({"--fault", "silent@5"});
    const RunResult result = Locks.Run({"--json", "run", "1", "2", "--timeout", "1"});
    EXPECT_EQ(result.Code, 4) << result.Err;
    const std::vector<Json> locks = Documents(result.Out);
    ASSERT_EQ(locks.size(), 2U);
    EXPECT_EQ(locks[0]["result"], "silent");
    EXPECT_EQ(locks[0]["text"], "no answer for 1 s");
    EXPECT_EQ(locks[1]["result"], "done");
}

TEST_F(BinaryList, a_time_that_has_passed_begins_at_once) {
    Locks.Start();
    const RunResult result = Locks.Run({"run", "2", "--at", "01.01.2020 00:00"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("programmed"));
}

TEST_F(BinaryList, ctrl_c_ends_the_waiting_for_the_time) {
    Locks.Start();
    auto run = Locks.Begin({"--json", "run", "2", "--at", "31.12.9998 23:59"});
    ASSERT_TRUE(run->WaitFor("Entries checked"));
    run->Signal(SIGINT);
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 3);
    EXPECT_EQ(Documents(result.Out).at(0)["result"], "untried");
    Locks.Stop();
    EXPECT_EQ(Locks.Lock(Leer)["sessions"], 0);
}

TEST_F(BinaryList, ctrl_c_closes_the_session_and_leaves_the_other_locks_alone) {
    Locks.Start({"--pace"});
    auto run = Locks.Begin({"--json", "run", "1", "2"});
    ASSERT_TRUE(run->WaitFor("Entries checked"));
    ASSERT_TRUE(run->WaitFor("00.0A.10.02  *"));
    run->Signal(SIGINT);
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    const std::vector<Json> locks = Documents(result.Out);
    ASSERT_EQ(locks.size(), 2U);
    EXPECT_EQ(locks[1]["result"], "untried");
    Locks.Stop();
    EXPECT_EQ(Locks.Lock(Leer)["sessions"], 0);
}

TEST_F(BinaryList, ctrl_c_between_a_lock_and_its_unit_ends_the_list) {
    UnitOfLock2();
    Locks.Start({"--trace"});
    auto run = Locks.Begin({"--json", "run", "2", "3"});
    ASSERT_TRUE(Locks.Simulator().WaitFor("> 02 0D 05")); // the unit is spoken to 1.2 s behind it
    run->Signal(SIGINT);
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    const std::vector<Json> locks = Documents(result.Out);
    ASSERT_EQ(locks.size(), 2U);
    EXPECT_EQ(locks[0]["result"], "cancelled");
    EXPECT_EQ(locks[0]["units"][0]["result"], "untried");
    EXPECT_EQ(locks[1]["result"], "untried");
}

TEST_F(BinaryList, ctrl_c_names_the_unit_whose_session_broke_off) {
    UnitOfLock2();
    Locks.Start();
    const RunResult good = Locks.Run({"--json", "run", "2"});
    ASSERT_EQ(good.Code, 0) << good.Err;
    // The unit's login, its setting and its disconnect come last.
    const int setting = Documents(good.Out).at(0)["telegrams"].get<int>() - 2;
    for (const bool json : {true, false}) {
        Locks.Restart({"--trace", "--fault", "silent@" + std::to_string(setting)});
        const std::vector<std::string> words{"run", "2"}, asked{"--json", "run", "2"};
        auto run = Locks.Begin(json ? asked : words);
        ASSERT_TRUE(Locks.Simulator().WaitFor("> 02 11 3D"));
        run->Signal(SIGINT);
        const RunResult result = run->Wait();
        EXPECT_EQ(result.Code, 3) << result.Err;
        if (json) {
            const Json unit = Documents(result.Out).at(0)["units"][0];
            EXPECT_EQ(unit["result"], "broken-off");
            EXPECT_EQ(unit["reached"], "change-sent");
        } else {
            EXPECT_THAT(result.Out, HasSubstr("\n  unit \"Leser\": broken-off: setting sent, not confirmed\n"));
        }
    }
}

TEST_F(BinaryList, wrong_use_is_a_local_fault) {
    EXPECT_EQ(Locks.Run({"run", "1", "--at", "12:00"}).Code, 1);
    EXPECT_EQ(Locks.Run({"run", "1", "--at", "30.02.2027 12:00"}).Code, 1);
    EXPECT_EQ(Locks.Run({"run", "1", "--history", "--history-only"}).Code, 1);
    EXPECT_EQ(Locks.Run({"run", "1", "--since", "01.01.2020"}).Code, 1);
    const RunResult noSerial = Locks.Run({"run", "1", "4"});
    EXPECT_EQ(noSerial.Code, 1);
    EXPECT_THAT(noSerial.Err, HasSubstr("Lock 4 has no serial number in the lock table."));
    EXPECT_THAT(noSerial.Err, Not(HasSubstr("Lock 1 ")));
}

} // namespace
} // namespace qvm
