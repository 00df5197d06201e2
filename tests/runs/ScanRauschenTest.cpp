// What nobody has asked for comes while the radio channels are scanned.

#include "AntwortRahmen.h"
#include "ScanFixture.h"

#include <utility>
#include <vector>

namespace qvm::test {
namespace {

/// A silent line on which every code that a reply can have comes twice, in either phase of a channel: as a short
/// reply, and as one that names a device and says that all went well. What the scan waits for, and refusals, do not
/// come.
struct Run_Stray : ScanFixture {
    int Came = 0;

    void Silence() { devices.Faults = {{.What = SimFault::Kind::Silent, .Telegram = 0, .AndAllBehind = true}}; }
    void Stray(int code) {
        world.Deliver(ReplyWire(static_cast<std::uint8_t>(code), 0x0D, {}));
        world.Deliver(ReplyWire(static_cast<std::uint8_t>(code), 0x0E, {0, 9, 0, 42, 1, 0x60, 0, 9, 0, 0, 0, 4}));
        Came += 2;
    }
    /// Some of the codes, so that all have come when twelve channels have had theirs.
    void Strays(int channel, int asked) {
        for (int code = channel - 1; code < 256; code += UnitScan::Channels) {
            if (code != asked && code != 0x69) {
                Stray(code);
            }
        }
    }
    /// All of them, while the scan goes on.
    void FloodChannels(int asked) {
        for (int channel = 1; channel <= UnitScan::Channels; ++channel) {
            world.RunFor(200); // on its way to the channel
            Strays(channel, asked);
            world.RunFor(1500); // the channel was asked
            ASSERT_EQ(Windows().Scan.Kanal(), channel);
            Strays(channel, asked);
            world.RunFor(1800);
        }
    }
    void ExpectUndisturbed(int asked) {
        std::vector<std::pair<int, int>> sent;
        for (const auto& frame : system->Telegrams()) {
            sent.emplace_back(frame[2], frame[2] == 0x6B ? frame[3] : 0);
        }
        std::vector<std::pair<int, int>> wanted;
        for (int channel = 1; channel <= 12; ++channel) {
            wanted.emplace_back(0x6B, channel);
            wanted.emplace_back(asked, 0);
        }
        EXPECT_EQ(sent, wanted);
        EXPECT_EQ(Serials(), "- - - - - - - - - - - -");
        EXPECT_EQ(Came, 2 * 2 * 254) << "each of them came in both phases";
        EXPECT_EQ(programm->link.AnswerWithdrawn, 0);
        NoMarks();
    }
};

TEST_F(Run_Stray, replies_of_any_code_leave_a_scan_for_units_as_it_is) {
    Silence();
    OpenUnits();
    programm->Adapter.ProgStationPort = 1;
    programm->Adapter.ProgVersion = 12;
    const auto before = world.Disk.Files;
    const std::int64_t begun = world.Elapsed();
    Keypad();
    FloodChannels(0x4B);
    ASSERT_TRUE(Over());
    EXPECT_EQ(world.Elapsed() - begun, 12 * 3500);
    ExpectUndisturbed(0x4B);
    EXPECT_EQ(world.Disk.Files, before);
}

TEST_F(Run_Stray, replies_of_any_code_leave_a_scan_by_logins_as_it_is) {
    Silence();
    Open();
    const auto before = world.Disk.Files;
    const std::int64_t begun = world.Elapsed();
    ReadLock();
    FloodChannels(0x04);
    ASSERT_TRUE(Over());
    EXPECT_EQ(world.Elapsed() - begun, 12 * 3500);
    ExpectUndisturbed(0x04);
    EXPECT_EQ(world.Disk.Files, before);
}

TEST_F(Run_Stray, replies_in_place_of_the_answer_lose_only_the_channel_that_was_asked) {
    InTheAir("01600003", 3, 60);
    InTheAir("01600005", 5, 60);
    for (const int code : {0x04, 0x05, 0x07, 0x09, 0x12, 0x17, 0x27, 0x28, 0x29, 0x2F, 0x48, 0x4A}) {
        devices.Faults = {{.What = SimFault::Kind::Instead, .Telegram = 4, .Value = code}};
        OpenUnits();
        Keypad();
        ASSERT_TRUE(Over()) << code;
        EXPECT_EQ(Serials(), "- - 01.60.00.03 - - - - - - - - -") << code;
        for (const int sent : Sent()) {
            EXPECT_TRUE(sent == 0x68 || sent == 0x6C || sent == 0x6B || sent == 0x4B) << code << " led to " << sent;
        }
        Found19().Command1_Click();
        Units20().Command1_Click();
    }
}

} // namespace
} // namespace qvm::test
