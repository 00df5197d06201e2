#pragma once

#include "FensterFixture.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace qvm::test {

/// The main window with one programming adapter behind port 5, found by the automatic search. The windows that F2
/// opens are noted in `Opened` instead of opened, where a test asks for that.
struct F2Fixture : FensterFixture {
    bool AdapterAnswers = true;
    int AdapterDelayMs = 20;
    /// As it would come over the wire, version 35: identification of the least length that is valid.
    std::vector<std::uint8_t> Identification{0x02, 0x0F, 0x68, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x23, 0x00, 0xF4};
    std::vector<std::string> Opened;

    F2Fixture();

    /// Fills every hook of F2 with a note.
    void NoteWindows();
    /// Starts the program and opens F2.
    void Open();
    /// The same, until the first scan has found the adapter.
    void Connect();
    /// Until the next scan of the supervision is over.
    bool ScanEnds();
    /// Plans `action` for `delayMs` after the next time that the identification is asked for.
    void InNextScan(std::function<void()> action, int delayMs = 100);
    /// No port can be opened from now on, for the reason `what`.
    void Refuse(PortFault::Kind what) {
        world.PortCanOpen = false;
        world.PortFaultNow = PortFault{.What = what, .Device = "ttyUSB4"};
    }
    /// Times that the identification was asked for.
    int Probes() const;
    void Press(std::string_view key) { programm->Main->F2.Toolbar1_ButtonClick(key); }
    ToolButton& Key(std::string_view key);
    Colour Light() { return programm->Main->F2.Label1.ForeColor; }
    std::string Line() { return programm->Main->F2.Meldezeile.Text; }
    struct F2& Main() {
        return programm->Main->F2;
    }

private:
    std::function<void()> inScan_;
    int inScanMs_ = 0;

    /// What an adapter sends for a telegram to itself.
    void Answer_Telegram(std::span<const std::uint8_t> bytes);
};

} // namespace qvm::test
