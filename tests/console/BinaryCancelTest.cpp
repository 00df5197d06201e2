// Ctrl-C while the binary waits of its own accord, in the middle of a wireless unit's session.

#include "CutRun.h"

#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using Json = nlohmann::json;

/// Lock 2 with a scanner, which the run logs in to behind the lock and erases.
class BinaryCancel : public testing::Test, protected CutRun {
protected:
    BinaryCancel() {
        Locks.Import({{"WirelessUnitRecord", Json::array({{{"record", 2},
                                                           {"UnitMode", "2"},
                                                           {"Name1", "Scanner"},
                                                           {"Sn1_1", "00"},
                                                           {"Sn2_1", "01"},
                                                           {"Sn3_1", "2C"},
                                                           {"Sn4_1", "CD"},
                                                           {"Module1", "2"}}})}},
                     Json::object());
        Json world = VirtualLocks::World();
        world["units"] = Json::array(
            {{{"label", "Scanner"}, {"serial", "00.01.2C.CD"}, {"type", 2}, {"admin_code", "104212"}, {"channel", 5}}});
        Locks.StartWorld(world, {"--trace"});
    }
    /// The erase telegram of the scanner is out, behind that of the lock: its memory is waited for.
    bool WaitForScannersErase() const { return WaitForTelegram("27", 2); }
};

TEST_F(BinaryCancel, in_the_wait_of_a_unit_closes_its_session) {
    const auto run = Locks.Begin({"--json", "program", "2"});
    ASSERT_TRUE(WaitForScannersErase());
    run->Signal(SIGINT);
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    const Json lock = Json::parse(result.Out)["locks"][0];
    EXPECT_EQ(lock["result"], "cancelled");
    ASSERT_EQ(lock["units"].size(), 1U);
    EXPECT_EQ(lock["units"][0]["name"], "Scanner");
    EXPECT_EQ(lock["units"][0]["result"], "broken-off");
    // No block went out behind the erase telegram, but the two that close the session.
    EXPECT_EQ(Heard("4A"), 0);
    EXPECT_EQ(Heard("05"), 2);
    EXPECT_EQ(Heard("03"), 1);
    Locks.Stop();
    EXPECT_EQ(Locks.State()["units"][0]["sessions"], 1);
    EXPECT_EQ(Locks.Lock(Leer)["data_complete"], true);
}

TEST_F(BinaryCancel, a_second_time_in_the_wait_of_a_unit_is_at_once) {
    const auto run = Locks.Begin({"program", "2"});
    ASSERT_TRUE(WaitForScannersErase());
    run->Signal(SIGINT);
    ASSERT_TRUE(run->WaitFor("Cancelling"));
    run->Signal(SIGINT);
    const RunResult result = run->Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_THAT(result.Err, HasSubstr("Giving up."));
    EXPECT_THAT(result.Out, HasSubstr("\n  unit \"Scanner\": "));
    EXPECT_EQ(Heard("05"), 1); // the lock's own
}

} // namespace
} // namespace qvm
