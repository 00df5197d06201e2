#pragma once

#include "ListenFixture.h"

#include <memory>
#include <string>
#include <vector>

namespace qvm::test {

/// A list run whose rows go through the virtual network adapter at port 2, or directly through the adapter at port 1.
/// Each has locks of its own: a lock that is programmed through the one stays as it was behind the other.
struct NetzlaufFixture : ListenFixture {
    VirtualWorld NetDevices; ///< put together like `devices`; its locks and units are those of `devices` at BeginNet
    std::unique_ptr<VirtualSystem> Net;

    NetzlaufFixture();

    /// Starts the program with the locks of `network` behind the network adapter.
    void BeginNet(const std::vector<int>& network);
    /// To the end of the list; a row that stands still is given up. False when it never ends.
    bool Work();
    /// How often a row stood still.
    int Standstills = 0;

    VirtualLock& NetLock(std::string_view serial);
    /// Codes at index 27 of all telegrams that the network adapter has heard.
    Codes NetCodes() const;
    /// Lines of the only history file of this lock, without their line ends; empty when there is none or more than one.
    std::vector<std::string> HistoryLines(const std::string& lock);
    /// `count` users without keys, "User n", all of them at these locks.
    void AddUsers(int count, const std::vector<int>& locks);
};

/// All that a lock holds beside its users, programmed by the one route and by the other. `partsA`: lines of the table
/// of persons that a lock of the kind gets.
void ExpectSameSettings(const VirtualLock& net, const VirtualLock& direct, int partsA);

/// "User n" as a lock keeps it, and its code of six digits.
std::array<std::uint8_t, 16> UserNameBytes(int n);
std::array<std::uint8_t, 5> UserCodeBytes(int n);
/// The nth of a made-up row of events.
HistoryLine NetEvent(int n);

} // namespace qvm::test
