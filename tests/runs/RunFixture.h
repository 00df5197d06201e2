#pragma once

#include "Datendateien.h"
#include "MainWindows.h"
#include "TransferWindows.h"
#include "VirtualPlatform.h"
#include "VirtualSystem.h"

#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using Codes = std::vector<int>;

/// Serials of one lock of each class.
namespace Serial {
inline constexpr std::string_view S = "00.0A.10.01", Z = "01.20.00.01", N = "01.C0.01.00", T = "05.00.00.03",
                                  TAbove = "0C.00.00.01", TwoPass = "0E.70.00.01";
}

/// The whole program on one side of a line in virtual time, the virtual lock system on the other.
struct RunFixture : ::testing::Test {
    VirtualPlatform world;
    Datendateien files{world.Disk};
    std::unique_ptr<Programm> programm;
    std::unique_ptr<VirtualSystem> system;
    std::vector<std::string> OpenedHistories;
    VirtualWorld devices;

    RunFixture();

    /// A lock in the data files and in the world, both on channel 1.
    VirtualLock& AddLock(int number, std::string_view name, std::string_view serial,
                         std::string_view switches = "XXXXX");
    VirtualUnit& AddUnit(std::string_view serialHex, int type);
    /// Time and line of the fixture, for a virtual system at any of its ports.
    SimSurroundings Surroundings();
    /// Starts the program and the virtual system on what was put together, and opens F13.
    void Begin();
    /// Expects a message by its catalogue line.
    void Expect(int line, Answer answer = Answer::Ok, int afterMs = 0);
    /// Click on the program cell, answering the question about the history; then the code and OK.
    void Program(int lock, Answer history = Answer::No, std::string_view code = "123456");
    void History(int lock, std::string_view code = "123456");
    void TypeCode(std::string_view code);
    /// Lets events go on until the run has ended. False when it never does.
    bool Finish(std::int64_t limitMs = 300000);
    VirtualLock& Lock(std::string_view serial);

    /// Codes of all telegrams that reached the devices or the adapter.
    Codes Sent() const;
    std::string Status() const { return programm->Transfer->F9.StatusLabel.Text; }
    RunOutcome Outcome() const { return programm->Run.Bericht.End; }
};

DeviceAddress AddressOf(std::string_view serial);
/// Undoes the test platform's stand-in for the cipher: one place back, then each byte less the key's.
void Entmischen(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key);

/// One lock with one user, for runs that do not go through.
struct SmallRun : RunFixture {
    SmallRun();
    /// The device refuses a telegram, counted from 0, with a reason of 0x69; `andAllBehind`: every later one, too.
    void Refuse(int telegram, int reason, bool andAllBehind = false);
};

} // namespace qvm::test
