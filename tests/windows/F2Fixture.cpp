#include "F2Fixture.h"

#include "AntwortRahmen.h"

#include <algorithm>
#include <utility>

namespace qvm::test {
namespace {

/// The record: address 10.20.30.40 at index 3, the name at 8.
std::vector<std::uint8_t> AdapterRecordReply() {
    std::vector<std::uint8_t> payload{10, 20, 30, 40, 0};
    const std::string name = "PROGSTATION         ";
    payload.insert(payload.end(), name.begin(), name.end());
    return ReplyWire(0x6C, 0x2E, payload);
}

} // namespace

F2Fixture::F2Fixture() {
    Config("SET", 3, 5);
    world.AdapterPortNumbers = {5};
    world.OnWrite = [this](std::span<const std::uint8_t> bytes) { Answer_Telegram(bytes); };
}

void F2Fixture::Answer_Telegram(std::span<const std::uint8_t> bytes) {
    if (inScan_ && bytes.size() > 2 && bytes[2] == 0x68) {
        world.At(inScanMs_, std::exchange(inScan_, nullptr));
    }
    if (!AdapterAnswers || bytes.size() < 3) {
        return;
    }
    if (bytes[2] == 0x68) {
        world.Deliver(Identification, AdapterDelayMs);
    } else if (bytes[2] == 0x6C) {
        world.Deliver(AdapterRecordReply(), AdapterDelayMs);
    }
}

void F2Fixture::NoteWindows() {
    F2Hooks& hooks = programm->F2.Hooks;
    const auto note = [this](std::string name) { return [this, name] { Opened.push_back(name); }; };
    hooks.F1_Oeffnen = note("F1");
    hooks.F3_Oeffnen = note("F3");
    hooks.F4_Oeffnen = note("F4");
    hooks.F41_Oeffnen = note("F41");
    hooks.F42_Oeffnen = note("F42");
    hooks.F5_Oeffnen = note("F5");
    hooks.F6_Oeffnen = note("F6");
    hooks.F7_Oeffnen = [this] {
        Opened.emplace_back("F7");
        programm->F2.Fenster.Visible = false;
    };
    hooks.F10_Oeffnen = note("F10");
    hooks.F12_Oeffnen = note("F12");
    hooks.F13_Oeffnen = note("F13");
    hooks.F14_Oeffnen = note("F14");
    hooks.F15_Oeffnen = note("F15");
    hooks.F60_Oeffnen = note("F60");
    hooks.Kalender_Menue = note("F2_Kalend");
    hooks.Schaltuhr_Menue = note("F2_Schaltuhr");
    hooks.Ende = note("end");
}

void F2Fixture::Open() {
    if (!programm) {
        Start();
    }
    programm->F2.F2_Laden();
}

void F2Fixture::Connect() {
    Open();
    ASSERT_TRUE(world.RunUntil([this] { return Main().Verbunden == 1 && Main().ScanLaeuft == 0; }));
}

bool F2Fixture::ScanEnds() {
    const std::string scans = Main().Label6.Text;
    return world.RunUntil([&] { return Main().Label6.Text() != scans && Main().ScanLaeuft == 0; });
}

void F2Fixture::InNextScan(std::function<void()> action, int delayMs) {
    inScan_ = std::move(action);
    inScanMs_ = delayMs;
}

int F2Fixture::Probes() const {
    const std::vector<int> codes = SentCodes();
    return static_cast<int>(std::count(codes.begin(), codes.end(), 0x68));
}

ToolButton& F2Fixture::Key(std::string_view key) {
    const auto found = std::find_if(Main().Toolbar1.begin(), Main().Toolbar1.end(),
                                    [key](const ToolButton& button) { return button.Key == key; });
    EXPECT_NE(found, Main().Toolbar1.end()) << key;
    return found == Main().Toolbar1.end() ? Main().Toolbar1.front() : *found;
}

} // namespace qvm::test
