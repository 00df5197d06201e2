// The binary and runs of which a part fails: a unit that refuses, a record that cannot be written.

#include "VirtualLocks.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using Json = nlohmann::json;

class BinaryFault : public testing::Test {
protected:
    /// Gives lock 2 these units of type 1, as record fields.
    void Units(const std::string& fields) {
        const RunResult imported = Qvmctl({"--dir", Locks.Directory.Path(), "import", "-"},
                                          R"({"format":"qvm7702-export","version":1,"tables":{"WirelessUnitRecord":[)"
                                          R"({"record":2,"UnitMode":"2",)" +
                                              fields + "}]}}");
        ASSERT_EQ(imported.Code, 0) << imported.Err;
    }
    static std::string Unit(const std::string& n, const std::string& name, const std::string& last) {
        return R"("Name)" + n + R"(":")" + name + R"(","Sn1_)" + n + R"(":"01","Sn2_)" + n + R"(":"60","Sn3_)" + n +
               R"(":"00","Sn4_)" + n + R"(":")" + last + R"(","Module)" + n + R"(":"1")";
    }

    VirtualLocks Locks;
};

TEST_F(BinaryFault, a_unit_that_refuses_makes_a_programmed_lock_a_refusal) {
    Units(Unit("1", "Stur", "01") + "," + Unit("2", "Leser", "03"));
    Locks.Start();
    const RunResult result = Locks.Run({"program", "2"});
    EXPECT_EQ(result.Code, 2) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("Lock 2 \"Leer\" 00.0A.10.02: programmed, "));
    EXPECT_THAT(result.Out, HasSubstr("\n  unit \"Stur\": refused, "));
    EXPECT_THAT(result.Out, HasSubstr("\n  unit \"Leser\": done\n"));
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Leer)["data_complete"], true);
}

TEST_F(BinaryFault, the_document_says_which_unit_refused) {
    Units(Unit("1", "Stur", "01"));
    Locks.Start();
    const RunResult result = Locks.Run({"--json", "program", "2"});
    EXPECT_EQ(result.Code, 2) << result.Err;
    const Json report = Json::parse(result.Out);
    EXPECT_EQ(report["ok"], false);
    EXPECT_EQ(report["exit"], 2);
    const Json lock = report["locks"][0];
    EXPECT_EQ(lock["result"], "done");
    EXPECT_EQ(lock["exit"], 2);
    ASSERT_EQ(lock["units"].size(), 1U);
    EXPECT_EQ(lock["units"][0]["result"], "refused");
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(BinaryFault, a_unit_that_is_not_there_counts_more_than_one_that_refuses) {
    Units(Unit("1", "Stur", "01") + "," + Unit("2", "Fort", "05"));
    Locks.Start();
    const RunResult result = Locks.Run({"program", "2"});
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("\n  unit \"Stur\": refused, "));
    EXPECT_THAT(result.Out, HasSubstr("\n  unit \"Fort\": failed"));
    Locks.Stop();
}

TEST_F(BinaryFault, a_wrong_reply_to_the_login_does_not_make_a_lock_programmed) {
    Locks.Start({"--fault", "wrong@0=0x05"});
    const RunResult result = Locks.Run({"--json", "program", "2"});
    EXPECT_EQ(result.Code, 3) << result.Err;
    const Json lock = Json::parse(result.Out)["locks"][0];
    EXPECT_EQ(lock["result"], "failed");
    EXPECT_EQ(lock["acknowledged"], 0);
    EXPECT_GT(lock["wanted"], 10);
    EXPECT_EQ(lock["missing"][0], "login");
    EXPECT_NE(lock["text"], "");
    Locks.Stop();
    EXPECT_EQ(Locks.Lock(Leer)["data_complete"], false);
}

TEST_F(BinaryFault, an_erase_that_the_lock_does_not_confirm_is_told) {
    Locks.Import(Json::parse(R"({"LockRecord":[{"record":2,"Sn1":"01","Sn2":"20","Sn3":"00","Sn4":"01"}]})"),
                 Json::object());
    for (const bool echo : {true, false}) {
        Json world = VirtualLocks::World();
        world["locks"][1]["serial"] = "01.20.00.01";
        world["locks"][1]["erase_busy_ms"] = 100;
        world["locks"][1]["echo_erase"] = echo;
        Locks.StartWorld(world);
        const RunResult document = Locks.Run({"--json", "program", "2"});
        EXPECT_EQ(document.Code, 0) << document.Err;
        const Json lock = Json::parse(document.Out)["locks"][0];
        EXPECT_EQ(lock["result"], "done");
        EXPECT_EQ(lock["eraseConfirmed"], echo);
        const RunResult text = Locks.Run({"program", "2"});
        EXPECT_EQ(text.Out.find("the lock did not confirm the erasing: old entries may still be there") !=
                      std::string::npos,
                  !echo);
        Locks.Stop();
    }
}

TEST_F(BinaryFault, a_lock_that_becomes_busy_in_the_middle_is_not_finished_in_a_list_either) {
    Locks.Start({"--fault", "refuse@6=0x67"});
    const RunResult text = Locks.Run({"run", "2"});
    EXPECT_EQ(text.Code, 3) << text.Err;
    EXPECT_THAT(text.Out, HasSubstr("Lock 2 \"Leer\" 00.0A.10.02: not finished, "));
    EXPECT_THAT(text.Err, HasSubstr("00.0A.10.02  #  Not complete: "));
    Locks.Restart({"--fault", "refuse@6=0x67"});
    const RunResult document = Locks.Run({"--json", "run", "2"});
    const Json lock = Json::parse(document.Out);
    EXPECT_EQ(lock["result"], "failed");
    EXPECT_GT(lock["missing"].size(), 2U);
    EXPECT_EQ(lock["text"].get<std::string>().rfind("Not complete: ", 0), 0U) << lock["text"];
}

TEST_F(BinaryFault, a_wrong_reply_in_a_list_leaves_its_row_unfinished) {
    Locks.Start({"--fault", "wrong@6=0x05"});
    const RunResult document = Locks.Run({"--json", "run", "2"});
    EXPECT_EQ(document.Code, 3) << document.Err;
    const Json lock = Json::parse(document.Out);
    EXPECT_EQ(lock["result"], "failed");
    EXPECT_GT(lock["missing"].size(), 2U);
    EXPECT_THAT(document.Err, HasSubstr("00.0A.10.02  #  Not complete: "));
}

TEST_F(BinaryFault, a_channel_file_that_cannot_be_read_keeps_a_lock_on_another_channel_where_it_is) {
    const std::string records = Locks.Directory.Path() + "DAT/RFCHANDIF12.RFX";
    std::filesystem::remove(records);
    std::filesystem::create_directory(records);
    Json world = VirtualLocks::World();
    world["locks"][0]["channel"] = 7;
    Locks.StartWorld(world);
    const RunResult result = Locks.Run({"--json", "history", "1", "--since", "01.01.2020"});
    EXPECT_EQ(result.Code, 1) << result.Err;
    EXPECT_NE((result.Out + result.Err).find("RFCHANDIF12.RFX"), std::string::npos) << result.Out << result.Err;
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_EQ(Locks.Lock(Tor)["channel"], 7);
    EXPECT_EQ(Locks.Lock(Tor)["sessions"], 0);
}

TEST_F(BinaryFault, a_channel_file_that_leads_nowhere_refuses_the_run_before_a_lock_is_addressed) {
    const std::string records = Locks.Directory.Path() + "DAT/RFCHANDIF12.RFX";
    std::filesystem::remove(records);
    std::filesystem::create_symlink("/proc/no-such-file", records);
    Locks.Start();
    const RunResult result = Locks.Run({"--json", "program", "2"});
    EXPECT_EQ(result.Code, 1) << result.Err;
    EXPECT_NE((result.Out + result.Err).find("RFCHANDIF12.RFX"), std::string::npos) << result.Out << result.Err;
    EXPECT_EQ(Locks.Stop(), "");
    EXPECT_NE(Locks.Lock(Leer)["data_complete"], true);
}

} // namespace
} // namespace qvm
