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
    auto& open = programm->kern.Windows.Open;
    const auto note = [this](std::string name) { return [this, name] { Opened.push_back(name); }; };
    for (const char* window : {"F1", "F3", "F4", "F41", "F42", "F5", "F6", "F10", "F12", "F13", "F14", "F15", "F60",
                               "F2_Kalend", "F2_Schaltuhr"}) {
        open[window] = note(window);
    }
    open["F7"] = [this] {
        Opened.emplace_back("F7");
        programm->Main->F2.Fenster.Visible = false;
    };
    programm->Main->F2.Hooks.Ende = note("end");
}

void F2Fixture::Open() {
    if (!programm) {
        Start();
    }
    programm->Main->F2.F2_Laden();
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
