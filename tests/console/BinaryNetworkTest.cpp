// `qvmctl run` through the virtual network adapter behind a pseudo-terminal, on the binaries.

#include "VirtualLocks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using NetJson = nlohmann::json;

/// The adapter is searched for, and both locks go through the one that is found.
constexpr const char* NetInstallation = R"({"format":"qvm7702-export","version":1,"tables":{
"LockAdapterRecord":[{"record":1,"AdapterId":"/3/224/0/1","AdapterName":"PROGSTATION-N"},
 {"record":2,"AdapterId":"/3/224/0/1","AdapterName":"PROGSTATION-N"}]},
"lines":{"CHEUSB25C.I_2":["SET"]}})";

constexpr const char* NetWorld = R"({"adapter":{"name":"PROGSTATION-N","address":"03.E0.00.01",
"key":"00112233445566778899AABBCCDDEEFF",
"network":{"fetch_ms":100,"program_ms":100,"history_bytes":50}},"locks":[
{"label":"Tor","serial":"00.0A.10.01","admin_code":"104212","channel":5,"history":[
 {"day":7,"month":3,"year":20,"hour":9,"minute":5,"name":"Zo\u00eb","event":18},
 {"day":6,"month":3,"year":20,"hour":23,"minute":59,"name":"Bert","event":1},
 {"day":5,"month":3,"year":19,"hour":0,"minute":0,"name":"Old","event":10}]},
{"label":"Leer","serial":"00.0A.10.02","admin_code":"104212","channel":3}]})";

class BinaryNetwork : public testing::Test {
protected:
    VirtualLocks Locks;
    std::unique_ptr<Process> Adapter;

    BinaryNetwork() {
        const RunResult imported = Qvmctl({"--dir", Locks.Directory.Path(), "import", "-"}, NetInstallation);
        EXPECT_EQ(imported.Code, 0) << imported.Err;
    }
    void Start(const std::vector<std::string>& options = {}) {
        const std::string& path = Locks.Directory.Path();
        std::vector<std::string> arguments{"--world", Locks.Directory.Write("net.json", NetWorld),
                                           "--state", path + "state.json",
                                           "--link",  path + "com1"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        Adapter = std::make_unique<Process>(QVM_BINARY_DIR "/src/simulator/program/qvm-simulator", arguments);
        ASSERT_TRUE(Adapter->WaitFor("/dev/"));
    }
    /// What the adapter found wrong, empty when nothing.
    std::string Stop() {
        Adapter->Signal(SIGTERM);
        return Adapter->Wait().Err;
    }
    static std::vector<NetJson> Rows(const std::string& out) {
        std::vector<NetJson> rows;
        std::istringstream lines(out);
        for (std::string line; std::getline(lines, line);) {
            rows.push_back(NetJson::parse(line));
        }
        return rows;
    }
};

TEST_F(BinaryNetwork, two_locks_are_programmed) {
    Start();
    const RunResult result = Locks.Run({"--json", "run", "1", "2"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const std::vector<NetJson> rows = Rows(result.Out);
    ASSERT_EQ(rows.size(), 2U);
    for (const NetJson& row : rows) {
        EXPECT_EQ(row["result"], "done") << row;
        EXPECT_EQ(row["route"], "network") << row;
    }
    EXPECT_EQ(Stop(), "");
    const NetJson tor = Locks.Lock(Tor), leer = Locks.Lock(Leer);
    ASSERT_EQ(tor["users"].size(), 2U);
    EXPECT_EQ(tor["users"][0]["name"], "Zoë");
    EXPECT_EQ(tor["users"][0]["code"], "918273----");
    EXPECT_EQ(tor["users"][1]["name"], "Bert");
    EXPECT_EQ(tor["users"][1]["weighting"], 0x0D);
    EXPECT_EQ(tor["priority"], 4);
    EXPECT_EQ(tor["lock_mode"], 0x0A);
    EXPECT_EQ(leer["lock_mode"], 0x14);
    EXPECT_EQ(leer["channel"], 5); // it was on another one
    EXPECT_EQ(tor["data_complete"], true);
    EXPECT_EQ(leer["data_complete"], true);
    EXPECT_TRUE(tor.contains("clock"));
}

TEST_F(BinaryNetwork, the_trace_begins_with_the_search_and_shows_neither_the_transfer_key_nor_a_payload) {
    Start();
    const std::string trace = Locks.Directory.Path() + "trace.txt";
    const RunResult result = Locks.Run({"--trace", trace, "run", "1"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(Stop(), "");
    const std::string text = Locks.Directory.Read("trace.txt");
    for (const char* name : {"TelAdapterKennung: probe", "RpAdapterKennung", "TelAdapterDaten", "transfer key hidden",
                             "NetzDaten: block number 1", "payload hidden", "RpNetzFertig"}) {
        EXPECT_THAT(text, HasSubstr(name));
    }
    EXPECT_LT(text.find("TelAdapterKennung"), text.find("NetzDaten"));
    for (const char* secret : {"1A 42 12", "91 82 73"}) {
        EXPECT_THAT(text, testing::Not(HasSubstr(secret)));
    }
    // Every byte of the reply with the key, from 30 on, is hidden: 17 of the frame and the checksum.
    const std::size_t reply = text.find("< 02 2E 6C ");
    ASSERT_NE(reply, std::string::npos);
    EXPECT_EQ(text.substr(reply + 2 + 30 * 3, 19 * 3), "** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ** ");
    const RunResult decoded = Qvmctl({"decode", trace});
    EXPECT_EQ(decoded.Code, 0) << decoded.Err;
    EXPECT_THAT(decoded.Out, HasSubstr("\n> NetzUhr: block number 1"));
    EXPECT_THAT(decoded.Out, testing::Not(HasSubstr("unknown")));
}

TEST_F(BinaryNetwork, the_history_comes_first_and_is_kept) {
    Start();
    const RunResult result = Locks.Run({"--json", "run", "1", "--history"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const std::vector<NetJson> rows = Rows(result.Out);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0]["result"], "done");
    EXPECT_EQ(Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 1);
    const std::vector<std::string> files = Locks.Directory.List("HIST");
    ASSERT_EQ(files.size(), 1U);
    const std::string text = Locks.Directory.Read("HIST/" + files[0]);
    EXPECT_THAT(text, HasSubstr("Tor  /  SNA : 00.0A.10.01"));
    EXPECT_THAT(text, HasSubstr("Zo\xEB"));
    EXPECT_THAT(text, HasSubstr("Bert"));
    EXPECT_THAT(text, HasSubstr("Old"));
}

TEST_F(BinaryNetwork, a_lock_that_is_not_reached_fails_and_the_next_one_is_programmed) {
    Start({"--fault", "notreached@1"}); // the clock of the first lock
    const RunResult result = Locks.Run({"--json", "run", "1", "2"});
    EXPECT_EQ(result.Code, 4) << result.Err;
    const std::vector<NetJson> rows = Rows(result.Out);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0]["result"], "not-reached");
    EXPECT_EQ(rows[1]["result"], "done");
    EXPECT_EQ(Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["erases"], 0);
    EXPECT_EQ(Locks.Lock(Leer)["erases"], 1);
}

} // namespace
} // namespace qvm
