// The lists of locks and units, and the code of a unit, through the built program.

#include "VirtualLocks.h"

#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using Document = nlohmann::json;
using testing::HasSubstr;

/// Two units of lock 1: a new one, which listens on channel 1 with the code that it came with, and one that is not
/// there.
struct Binary_Units : testing::Test {
    VirtualLocks Locks;

    Binary_Units() {
        Locks.Import({{"WirelessUnitRecord", Document::array({{{"record", 1},
                                                               {"UnitMode", "1"},
                                                               {"Reserved1", "0"},
                                                               {"Name1", "Tastatur Süd"},
                                                               {"Sn1_1", "01"},
                                                               {"Sn2_1", "60"},
                                                               {"Sn3_1", "00"},
                                                               {"Sn4_1", "05"},
                                                               {"Module1", "1"},
                                                               {"Name4", "Fern"},
                                                               {"Sn1_4", "00"},
                                                               {"Sn2_4", "00"},
                                                               {"Sn3_4", "20"},
                                                               {"Sn4_4", "01"},
                                                               {"Module4", "2"},
                                                               {"UnitNo4", "9"}}})}},
                     Document::object());
    }
    void Start(const Document& unit = {}, const std::vector<std::string>& options = {}) {
        Document world = VirtualLocks::World();
        Document present{{"serial", "01.60.00.05"}};
        present.update(unit.is_null() ? Document::object() : unit);
        world["units"] = Document::array({present});
        world["locks"][0]["admin_code"] = "654320";
        Locks.StartWorld(world, options);
    }
    RunResult Run(const std::vector<std::string>& arguments, const std::string& input = {}) const {
        return Locks.RunHere(arguments, input);
    }
    RunResult Change(const std::string& codes, const std::string& unit = "1",
                     const std::vector<std::string>& options = {}) const {
        std::vector<std::string> arguments = options;
        arguments.insert(arguments.end(), {"unit-code", "1", unit, "--codes-from", "-"});
        return Run(arguments, codes);
    }
    Document Unit() const { return Locks.State()["units"][0]; }
};

constexpr const char* GoodCodes = "123456\n654320\n654320\n";

TEST_F(Binary_Units, get_their_code_and_channel_and_the_locks_run_reaches_them_there) {
    Start();
    const RunResult changed = Change(GoodCodes);
    EXPECT_EQ(changed.Code, 0) << changed.Err;
    EXPECT_EQ(changed.Out, "Lock 1 \"Tor\" unit 1 \"Tastatur Süd\" 01.60.00.05: the code was changed\n");
    EXPECT_EQ((changed.Out + changed.Err).find("6543"), std::string::npos);
    const RunResult programmed =
        Qvmctl({"--dir", Locks.Directory.Path(), "program", "1", "--code-from", "-"}, "654320\n");
    EXPECT_THAT(programmed.Out, HasSubstr("unit \"Tastatur Süd\": done")) << programmed.Err;
    const Document listed = Document::parse(Run({"--json", "units", "1"}).Out);
    EXPECT_EQ(listed["units"][0]["channel"], 5) << "its record says where it listens";
    const Document tables = Document::parse(Run({"export"}).Out)["tables"];
    EXPECT_EQ(tables["WirelessUnitRecord"][0]["UnitMode"], "1") << "and nothing else of it has changed";
    Locks.Stop();
    EXPECT_EQ(Unit()["admin_code"], "654320");
    EXPECT_EQ(Unit()["channel"], 5);
    EXPECT_EQ(Unit()["lock"], Tor);
}

TEST_F(Binary_Units, are_told_as_documents) {
    Start();
    const RunResult changed = Change(GoodCodes, "1", {"--json"});
    const Document document = Document::parse(changed.Out);
    EXPECT_EQ(document["command"], "unit-code");
    EXPECT_EQ(document["ok"], true);
    EXPECT_EQ(document["result"], "done");
    EXPECT_EQ(document["lock"], 1);
    EXPECT_EQ(document["serial"], Tor);
    EXPECT_EQ(document["unit"], 1);
    EXPECT_EQ(document["unitName"], "Tastatur Süd");
    EXPECT_EQ(document["unitSerial"], "01.60.00.05");
    EXPECT_EQ(document["channel"], 5);
    EXPECT_EQ(document["messages"].size(), 1U);
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(Binary_Units, that_refuse_are_exit_code_2_and_stay) {
    Start({{"code_status", 3}});
    const RunResult wrong = Change("123457\n654320\n654320\n");
    EXPECT_EQ(wrong.Code, 2) << wrong.Err;
    EXPECT_THAT(wrong.Out, HasSubstr("the change was refused"));
    EXPECT_EQ(Change(GoodCodes).Code, 2);
    EXPECT_EQ(Change("123456\n654320\n654321\n").Code, 2) << "new code and repeat differ";
    EXPECT_EQ(Change("12345\n").Code, 1);
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Unit()["admin_code"], "123456");
    EXPECT_EQ(Unit()["channel"], 1);
}

TEST_F(Binary_Units, that_are_not_there_or_have_no_serial_number_are_told_apart) {
    Start();
    const RunResult far = Change(GoodCodes, "4");
    EXPECT_EQ(far.Code, 3) << far.Err;
    EXPECT_THAT(far.Out, HasSubstr("unit 4 \"Fern\" 00.00.20.01: no answer; nothing was changed"));
    const RunResult none = Change(GoodCodes, "2");
    EXPECT_EQ(none.Code, 1);
    EXPECT_EQ(none.Err, "Unit 2 of lock 1 has no serial number.\n");
    EXPECT_EQ(Change(GoodCodes, "6").Code, 1) << "there are five";
}

TEST_F(Binary_Units, whose_adapter_is_pulled_out_behind_the_change_are_told_as_not_moved) {
    Start({}, {"--fault", "unplug@2"});
    const RunResult result = Change(GoodCodes);
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("the code was changed, but which channel the unit listens on is not certain"));
}

TEST_F(Binary_Units, that_are_silent_behind_the_change_are_left_at_the_second_ctrl_c) {
    Start({}, {"--trace", "--fault", "silent@2+"});
    Process change(QvmctlPath(), Locks.Here({"unit-code", "1", "1", "--codes-from", "-"}), GoodCodes);
    ASSERT_TRUE(Locks.Simulator().WaitFor("> 02 0E 28"));
    change.Signal(SIGINT);
    ASSERT_TRUE(change.WaitFor("Once more Ctrl-C gives up."));
    change.Signal(SIGINT);
    const RunResult result = change.Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("the code was changed, but which channel the unit listens on is not certain"));
    Locks.Stop();
    EXPECT_EQ(Unit()["admin_code"], "654320");
}

TEST_F(Binary_Units, and_locks_are_listed) {
    Locks.Import({{"ChannelRecord",
                   Document::array({{{"record", 1}, {"LockChannel", "5"}, {"TargetChannel", "5"}, {"LockChange", "0"}},
                                    {{"record", 2}, {"LockChannel", "4"}, {"TargetChannel", "5"}, {"LockChange", "0"}},
                                    {{"record", 4}, {"LockChannel", "13"}, {"LockChange", "1"}}})}},
                 Document::object());
    const RunResult locks = Run({"locks"});
    EXPECT_EQ(locks.Code, 0) << locks.Err;
    EXPECT_EQ(locks.Out,
              "Lock  Name        Serial       Switches  Priority  EMI  Group  Adapter  Offset  Units  Channel\n"
              "1     Tor         00.0A.10.01  ----X     5         on   -                       2      5\n"
              "2     Leer        00.0A.10.02  ----X     3         off  -                       0      4 moves\n"
              "3     Fern        00.0A.10.03  ----X     3         -    -                       0      - moves\n"
              "4     Ohne Serie               -----     3         -    -                       0      -\n");
    const RunResult units = Run({"units"});
    EXPECT_EQ(units.Out, "Lock  Name  Unit  Unit name     Serial       Class  Channel\n"
                         "1     Tor   1     Tastatur Süd  01.60.00.05  1      -\n"
                         "1     Tor   4     Fern          00.00.20.01  2      9\n");
    EXPECT_EQ(Run({"units", "2"}).Out, "No units.\n");
    EXPECT_EQ(Run({"locks", "--find", "xyz"}).Out, "No locks.\n");
    EXPECT_EQ(Run({"units", "201"}).Code, 1);
    const Document found = Document::parse(Run({"--json", "locks", "--find", "TOR"}).Out);
    EXPECT_EQ(found["command"], "locks");
    ASSERT_EQ(found["locks"].size(), 1U);
    const Document expected{{"lock", 1},   {"name", "Tor"}, {"serial", Tor}, {"switches", "----X"}, {"priority", "5"},
                            {"emi", "on"}, {"group", "-"},  {"adapter", ""}, {"offset", ""},        {"reception", "TA"},
                            {"units", 2},  {"channel", 5},  {"moves", false}};
    EXPECT_EQ(found["locks"][0], expected);
    for (const std::string& output : {locks.Out, units.Out, found.dump()}) {
        EXPECT_EQ(output.find("104212"), std::string::npos);
        EXPECT_EQ(output.find("918273"), std::string::npos);
    }
}

TEST_F(Binary_Units, cannot_be_listed_from_files_that_cannot_be_read) {
    const std::string file = Locks.Directory.Path() + "DAT/T6WRSSISN.TSD";
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    for (const char* word : {"locks", "units"}) {
        const RunResult result = Run({"--json", word});
        EXPECT_EQ(result.Code, 1) << word;
        EXPECT_THAT(Document::parse(result.Out)["messages"][0].get<std::string>(), HasSubstr("cannot be read")) << word;
    }
}

} // namespace
} // namespace qvm::test
