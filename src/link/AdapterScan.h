#pragma once

#include "AdapterListe.h"
#include "Link.h"

namespace qvm {

/// Asks the candidate ports, or the configured one where there is no candidate and no automatic search, for adapters
/// and fills Saetze, ProgStationPort and EnrollmentPort. Lets events go on while it waits: up to four tries of 4 s (one
/// of 1.8 s on the configured port) for the identification and of 1.4 s for the record of each port. A port that cannot
/// be opened is skipped. Leaves the port of the programming adapter open, or the one it began with when none was found.
/// A call while a search is under way does nothing.
/// True when an adapter answered.
bool Adapter_Suchen(Link& link, AdapterListe& list);

} // namespace qvm
