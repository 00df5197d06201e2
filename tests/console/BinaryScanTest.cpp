// The scans of the radio channels, and what they take, through the built program.

#include "VirtualLocks.h"

#include <csignal>
#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using ScanDocument = nlohmann::json;
using testing::HasSubstr;

/// A keypad on channel 1 and another one on channel 7 that no lock knows; lock 1 "Tor" on channel 5.
struct Binary_Scan : testing::Test {
    VirtualLocks Locks;

    void Start(const std::vector<std::string>& options = {}) {
        ScanDocument world = VirtualLocks::World();
        world["units"] = {{{"serial", "01.60.00.05"}, {"signal", 90}},
                          {{"serial", "01.60.00.09"}, {"channel", 7}, {"signal", 40}}};
        world["locks"].erase(1);
        Locks.StartWorld(world, options);
    }
    RunResult Scan(const std::vector<std::string>& arguments, const std::string& input = {}) const {
        return Locks.RunHere(arguments, input);
    }
    /// The bytes of a field without the blanks behind, 0 to 3 of a serial number joined by points.
    std::string Field(const std::string& file, std::size_t at, std::size_t width) const {
        std::string text = Locks.Directory.Read("DAT/" + file).substr(at, width);
        text.erase(text.find_last_not_of(' ') + 1);
        return text;
    }
    std::string Serial(const std::string& file, std::size_t at) const {
        return Field(file, at, 3) + "." + Field(file, at + 3, 3) + "." + Field(file, at + 6, 3) + "." +
               Field(file, at + 9, 3);
    }
};

constexpr const char* UnitTable = "T6WRSSISN.TSD";

TEST_F(Binary_Scan, takes_a_unit_and_tells_it_as_a_document) {
    Start();
    const RunResult result = Scan({"--json", "scan", "--units", "2", "--take", "01.60.00.09"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    const ScanDocument document = ScanDocument::parse(result.Out);
    EXPECT_EQ(document["command"], "scan");
    EXPECT_EQ(document["result"], "done");
    EXPECT_EQ(document["lock"], 2);
    EXPECT_EQ(document["taken"], true);
    EXPECT_EQ(document["unit"], 1);
    ASSERT_EQ(document["found"].size(), 2U);
    EXPECT_EQ(document["found"][1]["channel"], 7);
    EXPECT_EQ(document["found"][1]["serial"], "01.60.00.09");
    EXPECT_EQ(document["found"][1]["signal"], 40);
    EXPECT_EQ(document["found"][1]["well"], true);
    constexpr std::size_t Lock2 = 241; // behind the record of lock 1
    EXPECT_EQ(Serial(UnitTable, Lock2 + 46), "01.60.00.09");
    EXPECT_EQ(Field(UnitTable, Lock2 + 58, 1), "1") << "its class";
    EXPECT_EQ(Field(UnitTable, Lock2 + 59, 2), "7") << "its channel";
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(Binary_Scan, takes_a_lock_by_its_login_and_saves_its_row_and_channel) {
    Start();
    const RunResult result =
        Scan({"scan", "--lock", "4", "--take", Tor, "--code-from", "-"}, std::string(VirtualLocks::Code) + "\n");
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("Channel 5: 00.0A.10.01, "));
    EXPECT_THAT(result.Out, HasSubstr("Lock 4: 00.0A.10.01 on channel 5 was taken\n"));
    EXPECT_EQ(Serial("C64UX12H3D.EBW", 3 * 45 + 28), Tor);
    EXPECT_EQ(Field("C64UX12H3D.EBW", 3 * 45, 10), "Ohne Serie") << "its name stays";
    EXPECT_EQ(Field("RFCHANDIF12.RFX", 3 * 15, 3), "5") << "the channel on which it answered";
    EXPECT_EQ((result.Out + result.Err).find("104212"), std::string::npos);
    Locks.Stop();
}

TEST_F(Binary_Scan, is_refused_for_wrong_use_and_without_an_adapter) {
    EXPECT_EQ(Scan({"scan", "--take", "01.60.00.05"}).Err, "--take needs --lock or --units\n");
    EXPECT_EQ(Scan({"scan", "--units", "1", "--take", "01.60"}).Err, "--take: 01.60 is no serial number\n");
    EXPECT_EQ(Scan({"scan", "--units", "1", "--lock", "1"}).Code, 1);
    EXPECT_EQ(Scan({"scan", "--row", "1"}).Code, 1);
    EXPECT_EQ(Scan({"scan", "--units", "201"}).Code, 1);
    const RunResult result = Scan({"--json", "scan"});
    EXPECT_EQ(result.Code, 1) << result.Err;
    const ScanDocument document = ScanDocument::parse(result.Out);
    EXPECT_EQ(document["result"], "fault");
    EXPECT_EQ(document["messages"].size(), 1U);
}

TEST_F(Binary_Scan, ends_at_ctrl_c_and_the_next_one_lists_the_keypads) {
    Start();
    Process scan(QvmctlPath(), Locks.Here({"scan", "--units", "1", "--take", "01.60.00.05"}));
    ASSERT_TRUE(scan.WaitFor("channel 3 of 12, 1 found"));
    scan.Signal(SIGINT);
    const RunResult result = scan.Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_EQ(result.Out, "The scan was cancelled; nothing was taken.\n");
    const RunResult next = Scan({"scan"});
    EXPECT_EQ(next.Code, 0) << next.Err;
    EXPECT_THAT(next.Out, HasSubstr("Channel 1: 01.60.00.05, "));
    EXPECT_THAT(next.Out, HasSubstr(", signal 90\nChannel 7: 01.60.00.09, "));
    EXPECT_THAT(next.Out, HasSubstr(", signal 40\n2 devices answered.\n")) << "keypads, and no lock";
    EXPECT_THAT(next.Err, HasSubstr("channel 1 of 12, 0 found\n"));
    EXPECT_THAT(next.Err, HasSubstr("channel 12 of 12, 2 found\n"));
    EXPECT_FALSE(Locks.Directory.Has("DAT/T6WRSSISN.TSD")) << "neither of them writes anything";
    EXPECT_EQ(Locks.Stop(), "");
}

TEST_F(Binary_Scan, whose_adapter_is_pulled_out_takes_nothing) {
    Start();
    Process scan(QvmctlPath(), Locks.Here({"scan", "--units", "1", "--take", "01.60.00.05"}));
    ASSERT_TRUE(scan.WaitFor("channel 3 of 12, 1 found"));
    Locks.Stop();
    const RunResult result = scan.Wait();
    EXPECT_EQ(result.Code, 3) << result.Err;
    EXPECT_EQ(result.Out, "The adapter was disconnected; nothing was taken.\n");
    EXPECT_FALSE(Locks.Directory.Has("DAT/T6WRSSISN.TSD"));
}

} // namespace
} // namespace qvm::test
