#pragma once

#include "Link.h"

/// Conditions that the reply chain and the rows of a refusal share.
namespace qvm {

/// The blocks of a unit of type 2 are being sent, from its opening's reply to its disconnect.
inline bool Blocktransfer(const Link& link) {
    return link.Lauf.Chain.UnitModus == 0xFD;
}
/// A unit of type 2 is being opened.
inline bool Unit_Oeffnung(const Link& link) {
    return link.Lauf.Chain.UnitModus == 0xFA;
}
/// The session is with a unit of type 1.
inline bool Unit_Sitzung(const Link& link) {
    return link.Lauf.Chain.LaufZiel == "UNIT";
}

} // namespace qvm
