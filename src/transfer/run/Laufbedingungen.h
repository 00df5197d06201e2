#pragma once

#include "Programmierlauf.h"

#include <cstdint>

/// What the rows of the reply chain, those of a refusal and the steps ask of a run alike.
namespace qvm {

inline const ChainState& Kette(const Programmierlauf& run) {
    return run.link.Lauf.Chain;
}
inline ChainState& Kette(Programmierlauf& run) {
    return run.link.Lauf.Chain;
}

/// Value of TimerPart and HolidayPart behind the last part.
inline constexpr std::uint8_t StepDone = 0xFF;
/// Channels on which a unit of type 2 is looked for.
inline constexpr int UnitChannels = 12;
/// Index of a reply's status byte.
inline constexpr int StatusIndex = 14;

/// The blocks of a unit of type 2 are being sent, from its opening's reply to its disconnect.
inline bool Blocktransfer(const Programmierlauf& run) {
    return Kette(run).UnitModus == 0xFD;
}
/// A unit of type 2 is being opened.
inline bool Unit_Oeffnung(const Programmierlauf& run) {
    return Kette(run).UnitModus == 0xFA;
}
/// The session is with a unit of type 1.
inline bool Unit_Sitzung(const Programmierlauf& run) {
    return Kette(run).LaufZiel == "UNIT";
}
/// A unit's code is being changed, and its channel behind it.
inline bool Kanalwechsel(const Programmierlauf& run) {
    return Kette(run).LaufZiel == "F22";
}
/// The login that checks a unit's code is out, or its window stands open.
inline bool Unit_Code_Geprueft(const Programmierlauf& run) {
    return Kette(run).LaufZiel == "F20";
}
/// A window searches units by logging into them.
inline bool Units_Gesucht(const Programmierlauf& run) {
    return Kette(run).SuchLauf != 0;
}

} // namespace qvm
