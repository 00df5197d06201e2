// The readers of the desk, through the built programs.

#include "VirtualLocks.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace qvm::test {
namespace {

using testing::HasSubstr;

const std::string SimulatorPath = QVM_BINARY_DIR "/src/simulator/program/qvm-simulator";

TEST(Binary_Desk, what_stands_on_standard_input_is_laid_on_the_desk_and_a_bad_line_changes_nothing) {
    const TempDirectory directory;
    Process simulator(SimulatorPath, {"--state", directory.Path() + "state.json"},
                      "{\"kind\": \"key\", \"id\": \"0A141E28\"}\n\nkey\n{\"kind\": \"finger\"}\n{\"kind\": \"transp");
    ASSERT_TRUE(simulator.WaitFor("standard input: not JSON"));
    simulator.Signal(SIGTERM);
    EXPECT_EQ(simulator.Wait().Code, 0);
    const auto state = nlohmann::json::parse(directory.Read("state.json"));
    const auto& presented = state["desk"]["presented"];
    ASSERT_EQ(presented.size(), 2U) << "half a line is none";
    EXPECT_EQ(presented[0]["id"], "0A141E28");
    EXPECT_EQ(presented[1]["kind"], "finger");
}

/// The installation, and readers of the desk to which the test presents something.
struct Binary_Readers : testing::Test {
    VirtualLocks Locks;

    void Start(const std::vector<nlohmann::json>& presented, bool enrolment,
               const std::vector<std::string>& options = {}) {
        nlohmann::json world = VirtualLocks::World();
        world["adapter"]["name"] = enrolment ? "ENROLLMENT1" : "PROGSTATION-1";
        world["desk"] = {{"patience_ms", 1500}, {"presented", presented}};
        Locks.StartWorld(world, options);
    }
    RunResult Run(const std::vector<std::string>& arguments, const std::string& input = {}) const {
        return Locks.RunHere(arguments, input);
    }
    /// The record of a user as an export shows it.
    nlohmann::json User(int number) {
        const RunResult exported = Run({"export"});
        const auto document = nlohmann::json::parse(exported.Out);
        for (const auto& user : document["tables"]["UserRecord"]) {
            if (user["record"] == number) {
                return user;
            }
        }
        return {};
    }
};

const nlohmann::json PresentedKey{{"kind", "key"}, {"delay_ms", 10}, {"id", "0A141E28"}};

TEST_F(Binary_Readers, learn_an_e_key_for_a_user_and_save_it) {
    Start({PresentedKey}, false);
    const RunResult result = Run({"learn", "ekey", "2"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(result.Out, "User 2 \"Bert\": ekey learned\n");
    EXPECT_EQ(User(2)["KeyId"], "10 : 20 : 30 : 40");
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ((result.Out + result.Err).find("20 : 30"), std::string::npos) << "what it is stays hidden";
}

TEST_F(Binary_Readers, tell_whose_key_it_is_and_refuse_it_to_another) {
    Start({PresentedKey, PresentedKey, PresentedKey, PresentedKey}, false);
    ASSERT_EQ(Run({"learn", "ekey", "2"}).Code, 0);
    const RunResult found = Run({"find-key"});
    EXPECT_EQ(found.Code, 0) << found.Err;
    EXPECT_EQ(found.Out, "User 2 \"Bert\"\n");
    const RunResult refused = Run({"--json", "learn", "ekey", "1"});
    EXPECT_EQ(refused.Code, 2);
    const auto document = nlohmann::json::parse(refused.Out);
    EXPECT_EQ(document["command"], "learn");
    EXPECT_EQ(document["result"], "refused");
    EXPECT_EQ(document["user"], 1);
    EXPECT_EQ(document["kind"], "ekey");
    EXPECT_EQ(document["messages"].size(), 1U);
    EXPECT_FALSE(User(1).contains("KeyId") && User(1)["KeyId"] != "");
    const RunResult synchronised = Run({"--json", "sync-key"});
    EXPECT_EQ(synchronised.Code, 0) << synchronised.Err;
    EXPECT_EQ(nlohmann::json::parse(synchronised.Out)["user"], 2);
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(Binary_Readers, say_so_when_nobody_has_the_key) {
    Start({PresentedKey, PresentedKey}, false);
    const RunResult found = Run({"find-key"});
    EXPECT_EQ(found.Code, 2);
    EXPECT_EQ(found.Out, "nobody has this key\n");
    EXPECT_EQ(Run({"sync-key"}).Code, 2);
}

TEST_F(Binary_Readers, tell_a_channel_that_could_not_be_recorded_as_a_fault_of_this_computer) {
    Start({PresentedKey, PresentedKey}, false);
    ASSERT_EQ(Run({"learn", "ekey", "2"}).Code, 0);
    const std::string channels = Locks.Directory.Path() + "DAT/RFCHANDIF12.RFX";
    std::filesystem::remove(channels);
    std::filesystem::create_directory(channels);
    const RunResult result = Run({"--json", "sync-key"});
    EXPECT_EQ(result.Code, 1) << result.Err;
    const auto document = nlohmann::json::parse(result.Out);
    EXPECT_EQ(document["result"], "fault");
    EXPECT_EQ(document["text"], "User 2 \"Bert\": the radio channel could not be recorded");
    EXPECT_EQ(document["user"], 2);
}

TEST_F(Binary_Readers, refuse_when_no_key_comes_and_are_given_up_when_they_are_silent) {
    Start({}, false, {"--fault", "silent@1+"});
    const RunResult refused = Run({"learn", "ekey", "2"});
    EXPECT_EQ(refused.Code, 2) << refused.Err;
    const RunResult silent = Run({"learn", "ekey", "2", "--timeout", "1"});
    EXPECT_EQ(silent.Code, 3);
    EXPECT_EQ(silent.Out, "User 2 \"Bert\": the reader said nothing\n");
}

TEST_F(Binary_Readers, learn_a_transponder_and_find_it) {
    const nlohmann::json transponder{
        {"kind", "transponder"}, {"delay_ms", 10}, {"slot", 3}, {"id", "0102030405060708090A"}};
    Start({transponder, transponder}, true);
    const RunResult result = Run({"learn", "transponder", "1"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(User(1)["KeyId"], "#3-ID#1:2:3:4:5:6:7:8:9:10");
    const RunResult found = Run({"find-key", "--transponder"});
    EXPECT_EQ(found.Out, "User 1 \"Zo\u00eb\"\n");
    EXPECT_EQ(Run({"find-key", "--transponder"}).Code, 2) << "nothing is presented any more";
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(Binary_Readers, enrol_a_finger_step_by_step) {
    Start(
        {{{"kind", "finger"}, {"delay_ms", 10}, {"step_ms", 20}, {"steps", "0C0D1C0E26270A"}, {"template", "460102"}}},
        true);
    const RunResult result = Run({"learn", "finger", "2"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Err, HasSubstr("2 of 5"));
    EXPECT_THAT(result.Err, HasSubstr("Zu Schnell!"));
    EXPECT_EQ(User(2)["KeyLabel"], "Slot_Nr: 001");
    EXPECT_TRUE(Locks.Directory.Has("DAT/TEmpTCD0UPK.FSD"));
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(Binary_Readers, send_nothing_for_a_user_without_a_name_or_without_the_right_adapter) {
    Start({PresentedKey}, false);
    const RunResult nameless = Run({"learn", "ekey", "9"});
    EXPECT_EQ(nameless.Code, 1);
    EXPECT_EQ(nameless.Err, "User 9 has no name in the user table.\n");
    EXPECT_EQ(Run({"learn", "ekey", "251"}).Code, 1);
    EXPECT_EQ(Run({"learn", "coin", "2"}).Code, 1);
    EXPECT_EQ(Run({"learn", "finger", "2"}).Code, 2) << "a programming adapter has no such reader";
}

TEST_F(Binary_Readers, are_not_asked_when_the_table_could_not_be_saved_behind_the_answer) {
    Start({PresentedKey}, false);
    const std::string channels = "DAT/RFCHANDIF12.RFX";
    const std::string before = Locks.Directory.Read(channels);
    std::fstream users(Locks.Directory.Path() + "DAT/BX10X52WUJ9.UBW", std::ios::in | std::ios::out | std::ios::binary);
    users << std::string(16, ' '); // the name of the first user: a gap above the second
    users.close();
    ASSERT_TRUE(users.good());
    const RunResult result = Run({"learn", "ekey", "2"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("The user table cannot be saved as it stands; no reader was asked.\n"));
    EXPECT_EQ(Locks.Directory.Read(channels), before);
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.State()["desk"]["presented"].size(), 1U) << "the key still lies there";
}

TEST_F(Binary_Readers, are_left_at_ctrl_c_while_a_key_is_awaited) {
    nlohmann::json world = VirtualLocks::World();
    world["desk"] = {{"patience_ms", 0}};
    Locks.StartWorld(world);
    const std::string before = User(2).dump();
    for (const auto& [command, said] :
         {std::pair<std::vector<std::string>, std::string>{{"learn", "ekey", "2"}, "User 2 \"Bert\": cancelled\n"},
          {{"find-key"}, "cancelled\n"},
          {{"sync-key"}, "cancelled\n"}}) {
        Process waiting(QvmctlPath(), Locks.Here(command));
        ASSERT_TRUE(waiting.WaitFor("Please have the E-Key ready"));
        waiting.Signal(SIGINT);
        const RunResult result = waiting.Wait();
        EXPECT_EQ(result.Code, 3) << result.Err;
        EXPECT_EQ(result.Out, said);
    }
    EXPECT_EQ(User(2).dump(), before);
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(Binary_Readers, are_left_at_ctrl_c) {
    Start({}, true);
    Process learning(QvmctlPath(), Locks.Here({"learn", "finger", "2", "--timeout", "0"}));
    ASSERT_TRUE(learning.WaitFor("1 of 5"));
    learning.Signal(SIGINT);
    const RunResult result = learning.Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_EQ(result.Out, "User 2 \"Bert\": cancelled\n");
}

TEST_F(Binary_Readers, say_that_the_adapter_was_pulled_out_while_they_waited) {
    const std::string pulled =
        "The wireless adapter was disconnected. Please plug it in again and repeat the operation.";
    const std::vector<std::pair<bool, std::vector<std::string>>> commands{{false, {"learn", "ekey", "2"}},
                                                                          {false, {"find-key"}},
                                                                          {false, {"sync-key"}},
                                                                          {true, {"learn", "transponder", "2"}},
                                                                          {true, {"learn", "finger", "2"}}};
    const std::string before = User(2).dump();
    for (const auto& [enrolment, command] : commands) {
        SCOPED_TRACE(command.back() + " " + command.front());
        Start({}, enrolment, {"--fault", "unplug@0"});
        std::vector<std::string> arguments{"--json"};
        arguments.insert(arguments.end(), command.begin(), command.end());
        const RunResult result = Run(arguments);
        EXPECT_EQ(result.Code, 3) << result.Err;
        const auto document = nlohmann::json::parse(result.Out);
        EXPECT_EQ(document["result"], "silent");
        EXPECT_THAT(document["text"].get<std::string>(), testing::EndsWith("the adapter was disconnected"));
        const auto messages = document["messages"].get<std::vector<std::string>>();
        EXPECT_EQ(std::count(messages.begin(), messages.end(), pulled), 1);
    }
    EXPECT_EQ(User(2).dump(), before);
}

TEST_F(Binary_Readers, hear_of_a_key_that_is_presented_by_a_line_while_they_wait) {
    const std::string pipe = Locks.Directory.Path() + "hands";
    Locks.Directory.Write("world.json", R"({"desk": {"patience_ms": 0}})");
    Process simulator(
        "/bin/sh",
        {"-c", "cd '" + Locks.Directory.Path() + "'; mkfifo hands; exec \"$0\" --world world.json --link com1 <>hands",
         SimulatorPath});
    ASSERT_TRUE(WaitUntil([this] { return Locks.Directory.Has("com1"); }));
    Process learning(QvmctlPath(), Locks.Here({"--trace", Locks.Directory.Path() + "trace", "learn", "ekey", "2"}));
    ASSERT_TRUE(learning.WaitFor("E-Key"));
    Process hand("/bin/sh", {"-c", "echo '{\"kind\": \"key\", \"id\": \"01020304\"}' >'" + pipe + "'"});
    EXPECT_EQ(hand.Wait().Code, 0);
    const RunResult result = learning.Wait();
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(User(2)["KeyId"], "1 : 2 : 3 : 4");
    EXPECT_THAT(Locks.Directory.Read("trace"), HasSubstr("TelEKeyLesen"));
}

// ---- codes

struct Binary_Codes : Binary_Readers {
    RunResult Change(const std::string& codes, const std::vector<std::string>& options = {}) {
        std::vector<std::string> arguments = options;
        arguments.insert(arguments.end(), {"change-code", "1", "--codes-from", "-"});
        return Run(arguments, codes);
    }
};

TEST_F(Binary_Codes, change_and_the_old_one_is_refused_afterwards) {
    Locks.Start();
    const RunResult changed = Change("104212\n654320\n654320\n");
    EXPECT_EQ(changed.Code, 0) << changed.Err;
    EXPECT_EQ(changed.Out, "Lock 1 \"Tor\" 00.0A.10.01: the code was changed\n");
    EXPECT_EQ((changed.Out + changed.Err).find("6543"), std::string::npos);
    const RunResult again = Change("104212\n654320\n654320\n", {"--json"});
    EXPECT_EQ(again.Code, 2);
    const auto document = nlohmann::json::parse(again.Out);
    EXPECT_EQ(document["result"], "refused");
    EXPECT_EQ(document["lock"], 1);
    EXPECT_THAT(document["messages"][0].get<std::string>(), HasSubstr("Codechange_Error_0x01"));
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["admin_code"], "654320");
}

TEST_F(Binary_Codes, that_are_none_or_differ_change_nothing) {
    Locks.Start();
    EXPECT_EQ(Change("10421\n654320\n654320\n").Code, 1);
    EXPECT_EQ(Change("104212\n").Code, 1);
    const RunResult differ = Change("104212\n654320\n654321\n");
    EXPECT_EQ(differ.Code, 2) << differ.Err;
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["admin_code"], "104212");
}

TEST_F(Binary_Codes, that_differ_are_told_as_such_without_a_language_file_too) {
    std::filesystem::remove(Locks.Directory.Path() + "QVM_English.DAT");
    Locks.Start();
    const RunResult differ = Change("104212\n654320\n654321\n");
    EXPECT_EQ(differ.Code, 2) << differ.Err;
    EXPECT_EQ(differ.Out, "Lock 1 \"Tor\" 00.0A.10.01: new code and repeat differ; nothing was changed\n");
    EXPECT_EQ(Change("104213\n654320\n654320\n").Code, 2) << "the lock refused";
    EXPECT_EQ(Change("104212\n654320\n654320\n").Code, 0);
}

TEST_F(Binary_Codes, of_a_lock_that_is_not_there_or_has_no_serial_are_told_apart) {
    Locks.Start();
    const RunResult far = Run({"change-code", "3", "--codes-from", "-"}, "104212\n654320\n654320\n");
    EXPECT_EQ(far.Code, 3) << far.Err;
    const RunResult none = Run({"change-code", "4", "--codes-from", "-"}, "104212\n654320\n654320\n");
    EXPECT_EQ(none.Code, 1);
    EXPECT_EQ(none.Err, "Lock 4 has no serial number in the lock table.\n");
}

// ---- users

TEST_F(Binary_Readers, list_the_users_without_their_codes) {
    const RunResult all = Run({"users"});
    EXPECT_EQ(all.Code, 0) << all.Err;
    EXPECT_EQ(all.Out, "User  Name  Group    Right  Label  Key  Finger  Locks\n"
                       "1     Zo\u00eb   Timer-A  1                          2\n"
                       "2     Bert  -        ADMI                       2\n");
    EXPECT_EQ(Run({"users", "--lock", "2"}).Out, "No users.\n");
    const RunResult found = Run({"--json", "users", "--find", "ZOE", "--lock", "3"});
    const auto document = nlohmann::json::parse(found.Out);
    ASSERT_EQ(document["users"].size(), 1U);
    EXPECT_EQ(document["users"][0]["name"], "Zo\u00eb");
    EXPECT_EQ(document["users"][0]["locks"], (nlohmann::json{1, 3}));
    for (const RunResult& result : {all, found}) {
        EXPECT_EQ(result.Out.find("918273"), std::string::npos);
        EXPECT_EQ(result.Out.find("405060"), std::string::npos);
    }
}

} // namespace
} // namespace qvm::test
