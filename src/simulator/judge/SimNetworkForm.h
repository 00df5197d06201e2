#pragma once

#include "SimJudge.h"
#include "VirtualDevices.h"

#include <cstdint>
#include <span>
#include <vector>

/// What stands in the blocks for a network adapter, once the checksums of the groups are taken out.
namespace qvm {

/// Bytes of the first block before its users: the lock's values and four tables, 128 bytes each.
inline constexpr std::size_t NetworkFixedBytes = 640, NetworkUserBytes = 64;
/// Users of the first block, of each further one, and at most.
inline constexpr int NetworkFirstUsers = 9, NetworkNextUsers = 19, NetworkMostUsers = 301;

/// Places in the first group.
namespace NetValue {
inline constexpr std::size_t Users = 0, AdminCode = 2, AdminCodeAgain = 7, Channel = 12, Mode = 13, CalendarFlag = 14,
                             LockTimerFlag = 15, Priority = 16, Level = 17, Signal = 18, Listen = 20, Erase = 24;
}
/// Places of the tables.
namespace NetTable {
inline constexpr std::size_t TimerA = 128, TimerB = 256, SingleDays = 384, PermanentDays = 512;
}

/// Data blocks that so many users take.
int NetworkDataBlocks(int users);
/// Users in data block `block` (from 1) of so many.
int NetworkUsersOf(int block, int users);
/// The length word that data block `block` must carry, of `count` blocks in all.
std::size_t NetworkDataLength(int block, int count, int users);

/// Judges the lock's values and the tables. `fixed`: NetworkFixedBytes bytes.
void JudgeNetworkFixed(std::span<const std::uint8_t> fixed, const DeviceAddress& serial, Judge& judge);
/// Judges one user's record of 64 bytes; `number` is its place from 1, for the text.
void JudgeNetworkUser(std::span<const std::uint8_t> record, int number, Judge& judge);

/// The user that a record describes, with `slot`.
LockUser NetworkUser(std::span<const std::uint8_t> record, std::uint16_t slot);

/// One fingerprint of the fingerprint blocks.
struct NetworkTemplate {
    std::uint16_t Number = 0;
    std::uint8_t Premium = 0;
    std::vector<std::uint8_t> Bytes; ///< the two length bytes included
};
/// Takes the bytes of all fingerprint blocks apart. A fingerprint that the end cuts short, or whose length is less than
/// the two bytes that tell it, is a finding and ends the list.
std::vector<NetworkTemplate> NetworkTemplates(std::span<const std::uint8_t> stream, Judge& judge);
/// Holds the fingerprints against the users' records: one for each fingerprint user, in their order, with the same
/// number, flag and slice.
void JudgeNetworkTemplates(std::span<const NetworkTemplate> templates, std::span<const std::uint8_t> users,
                           Judge& judge);

} // namespace qvm
