#pragma once

#include "SimJudge.h"
#include "SimUnit.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// The outer form of the telegrams of code 0x90: header, cipher, checksums. Indexes count from the start byte.
///
/// To the adapter, bytes 0 to N: 0x02, block number, 0x90, block count, N (two bytes), the lock's serial at 6, four
/// units at 10, a mark at 26, the code at 27, 0xFF twice, 0 twice, and from 32 on what the code tells. Data and
/// fingerprint blocks carry groups of 128 bytes, each with a checksum behind it, and the frame's checksum at N.
/// From the adapter, bytes 0 to N: the same header, the checksum at N - 1 and a closing byte at N.
namespace qvm {

namespace Net {
inline constexpr std::uint8_t HistoryStart = 0x0A, HistoryFetched = 0x0B, HistoryMore = 0x0C, HistoryLast = 0x0D,
                              Data = 0x14, DataDone = 0x15, Fingers = 0x16, FingersDone = 0x17, Clock = 0x1E,
                              Programming = 0x1F, Programmed = 0x20, NotReached = 0xFF;
/// First index behind the header, and bytes of a group without its checksum.
inline constexpr std::size_t Payload = 32, Group = 128;
} // namespace Net

/// A telegram to the adapter. `Frame` runs from the start byte to the last and has at least 38 bytes.
struct NetworkTelegram {
    std::vector<std::uint8_t> Frame;

    std::uint8_t Number() const { return Frame[1]; }
    std::uint8_t Count() const { return Frame[3]; }
    std::size_t Length() const { return std::size_t{Frame[4]} * 256 + Frame[5]; }
    std::uint8_t Code() const { return Frame[27]; }
    /// Four bytes from `index` on.
    DeviceAddress AddressAt(std::size_t index) const {
        return {Frame[index], Frame[index + 1], Frame[index + 2], Frame[index + 3]};
    }
    DeviceAddress Serial() const { return AddressAt(6); }
    std::array<DeviceAddress, 4> Units() const { return {AddressAt(10), AddressAt(14), AddressAt(18), AddressAt(22)}; }
    /// Bytes from 32 up to the frame's checksum.
    std::span<const std::uint8_t> Body() const;
};

/// The telegram in the clear. Of each 128 bytes of the payload the whole blocks of 16 are enciphered, and the byte
/// behind them, their checksum, is not; the checksum of a shorter last group counts among its bytes. Of the start of a
/// history reading the first 16 bytes are enciphered, of all else nothing. An empty `decipher` leaves all as it is.
NetworkTelegram PlainNetwork(std::span<const std::uint8_t> frame, const DecipherFunction& decipher,
                             const std::array<std::uint8_t, 16>& key);

/// Judges the fixed bytes of the header and that the block's number is one of its count.
void JudgeNetworkHeader(const NetworkTelegram& telegram, Judge& judge);

/// The body of a data or fingerprint block without the checksums of its groups. `used` bytes of it, sums included, are
/// grouped; what stands behind them must be 0. Nothing when a sum does not fit, or when a group has no byte but its
/// sum; the finding is noted.
std::optional<std::vector<std::uint8_t>> OpenNetworkBlock(const NetworkTelegram& telegram, std::size_t used,
                                                          Judge& judge);

/// Whether the one checksum of a short telegram fits: `last` bytes behind 32, over the bytes from 32 on and its own
/// place, which was 0 when it was made. Notes a finding when it does not.
bool ShortNetworkSumFits(const NetworkTelegram& telegram, std::size_t last, Judge& judge);

/// An answer: the header of what is answered, with another number and code, and a body.
std::vector<std::uint8_t> NetworkAnswer(const NetworkTelegram& to, std::uint8_t number, std::uint8_t code,
                                        std::span<const std::uint8_t> body = {});
/// As it goes over the wire, with length, checksum, closing byte and stuffing from index 2 on. `spoilt`: with a
/// checksum that does not fit.
std::vector<std::uint8_t> NetworkOnWire(std::vector<std::uint8_t> answer, bool spoilt = false);

} // namespace qvm
