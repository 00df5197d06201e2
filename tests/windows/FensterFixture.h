#pragma once

#include "Datendateien.h"
#include "HistoryWindows.h"
#include "MainWindows.h"
#include "TransferWindows.h"
#include "VirtualPlatform.h"

#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The windows over a world without devices: nothing answers, so a run stands where its first telegram left it.
struct FensterFixture : ::testing::Test {
    static constexpr std::string_view SerialS = "00.0A.10.01"; ///< a lock that needs no timer groups

    VirtualPlatform world; ///< 05.03.2026 10:30:00
    Datendateien files{world.Disk};
    std::unique_ptr<Programm> programm;

    FensterFixture();

    /// "RESET" (one serial port) or "SET" (adapters); the radio channel; the port.
    void Config(std::string_view mode, int channel, int port);
    /// A lock whose ChannelRecord is settled on the configured channel.
    void SettledLock(int number, std::string_view name, std::string_view serial = SerialS,
                     std::string_view switches = "XXXXX");
    /// Starts the program; the windows are there but none is open.
    void Start();
    /// Starts the program and opens F13.
    void Begin();
    void AddAdapter(std::string_view address, std::string_view name, std::string_view port);
    /// Expects a message by its catalogue line.
    void Expect(int line, Answer answer = Answer::Ok);
    void Click(int row, int column) { programm->Transfer->F13.FGK13_Click(row, column); }
    void Type(std::string_view keys);
    /// Click on the program cell of a settled lock, the question answered with No: F11 is open.
    void OpenStart(int row = 1);
    /// The same, then the code and OK.
    void StartRun(int row = 1);
    /// Codes of the frames written so far (stuffing left in; the code byte is never stuffed here).
    std::vector<int> SentCodes() const;

    RunState& Lauf() { return programm->link.Lauf; }
    std::string Mark(int row) { return programm->Transfer->F13.FGK13.Text(row, F13Column::Mark); }

private:
    int channel_ = 3;
};

} // namespace qvm::test
