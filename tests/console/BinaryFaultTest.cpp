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
