#pragma once

#include "Controls.h"
#include "Seriennummer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// What a scan of the radio channels for wireless units has found, and how that is read.
namespace qvm {

/// What answered on one channel.
struct ScanEntry {
    static constexpr std::uint8_t Nothing = 0, Well = 2; ///< of Status; any other value: answered poorly

    std::uint8_t Status = Nothing;
    Address Serial{};
    std::uint8_t Signal = 0; ///< raw; see Signalwert
    std::uint8_t Type = 0;   ///< see Unit_Textzeile

    bool operator==(const ScanEntry&) const = default;
};

/// One entry a channel, by its number 1 to 12; entry 0 is not used.
struct UnitScan {
    static constexpr int Channels = 12;
    std::array<ScanEntry, Channels + 1> Entries;

    bool operator==(const UnitScan&) const = default;
};

/// The signal that a raw value stands for, 0 to 128. A value of the upper half counts downwards: 129 is 127, 255 is 1.
int Signalwert(std::uint8_t raw);

/// Number of the line of the catalogue that names a unit of this type. A type that is not known is named as those of 1
/// to 5.
int Unit_Textzeile(std::uint8_t type);
/// Whether a unit of this type listens by a time window, which the operator sets.
bool Unit_Mit_Lauschzeit(std::uint8_t type);
/// How a record calls the class of a unit: "1" for the short label "TA ", "3" for "STE", "2" for any other.
std::string_view Unit_Typmarke(std::string_view shortLabel);

/// Cells of the signal bar, from weak to strong.
inline constexpr int BarCells = 32;
/// How many of them the signal lights, 0 to BarCells; negative signals none.
int Balken_Laenge(int signal);
/// The colour of a lit cell, 0 to BarCells - 1.
Colour Balken_Farbe(int cell);

/// The channel whose unit answered well with the strongest signal; the first one of equals. 0: none answered well, or
/// none with a signal.
int Bester_Kanal(const UnitScan& scan);

} // namespace qvm
