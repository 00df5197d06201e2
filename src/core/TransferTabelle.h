#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// How an adapter and the program agree on the key of the network telegrams. The table is ours and holds on both sides:
/// key byte n is byte n of the adapter's record, combined by XOR with one of the five probe bytes of the identification
/// and with the constant of its place.
namespace qvm {

inline constexpr std::size_t ProbeBytes = 5;

struct TransferPlatz {
    std::uint8_t Probe;    ///< index of the probe byte, 0 to 4
    std::uint8_t Constant; ///< 1 to 255
};

/// Neighbours take different probe bytes, and no constant stands twice.
inline constexpr std::array<TransferPlatz, 16> TransferTabelle{{{0, 0x5B},
                                                                {3, 0xC6},
                                                                {1, 0x2F},
                                                                {4, 0x93},
                                                                {2, 0x7D},
                                                                {0, 0xE8},
                                                                {3, 0x14},
                                                                {1, 0xB1},
                                                                {4, 0x4A},
                                                                {2, 0xD7},
                                                                {0, 0x39},
                                                                {3, 0x8E},
                                                                {1, 0x65},
                                                                {4, 0xFA},
                                                                {2, 0x1C},
                                                                {0, 0xA3}}};

/// Turns the 16 key bytes of an adapter's record into the transfer key, and back: the same step undoes itself.
constexpr std::array<std::uint8_t, 16> TransferKey_Bilden(std::span<const std::uint8_t, 16> record,
                                                          std::span<const std::uint8_t, ProbeBytes> probe) {
    std::array<std::uint8_t, 16> key{};
    for (std::size_t n = 0; n < key.size(); ++n) {
        key[n] = static_cast<std::uint8_t>(record[n] ^ probe[TransferTabelle[n].Probe] ^ TransferTabelle[n].Constant);
    }
    return key;
}

} // namespace qvm
