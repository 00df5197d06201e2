#pragma once

#include "AdapterListe.h"
#include "Link.h"

namespace qvm {

/// Results of Ports_Ermitteln that are no port.
inline constexpr int PortAusserhalb = 0xEE; ///< the last candidate lies above 16

/// Fills PortListe with the ports that can hold an adapter, at most 21, in the system's order. Gives the last of them
/// when it is one of 1 to 16, PortAusserhalb when it is not, and KeinPort when there is none.
int Ports_Ermitteln(const Kern& kern, AdapterListe& list);

/// Makes the port ready: with the automatic search the port that was found becomes the configured one (saved at once
/// when it differs), with a fixed port the candidate list is emptied. Then the configured port is opened. True when it
/// is open; else the platform's LastError says why not.
bool Port_Einrichten(Link& link, AdapterListe& list);

} // namespace qvm
