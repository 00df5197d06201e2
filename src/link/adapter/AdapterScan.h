#pragma once

#include "AdapterListe.h"
#include "Link.h"

namespace qvm {

/// Asks the candidate ports, or the configured one where there is no candidate and no automatic search, for adapters
/// and fills Saetze, ProgStationPort and EnrollmentPort. Lets events go on while it waits: up to four tries of 4 s (1.8
/// s on the configured port) for the identification and of 1.4 s for the record of each port. A port that cannot be
/// opened is skipped; one whose device bears a name of no class leaves PortListe, and its record stands in Fremde. Ends
/// early, without touching the port, when the port is made ready anew meanwhile. Leaves the port of the programming
/// adapter open, or the one it began with when none was found. A call while a search is under way does nothing. True
/// when an adapter answered.
bool Adapter_Suchen(Link& link, AdapterListe& list);

/// Ends a search under way at once, as if the ports were determined anew: it gives false, and what it has found by then
/// is forgotten. Does nothing when there is none.
void Suche_Abbrechen(Link& link, AdapterListe& list);

/// The adapter of that address bears another name by now: its record gets it, and one that a run can use leaves Fremde.
void Adapter_Umbenennen(AdapterListe& list, std::string_view address, std::string_view name);

/// For what needs an adapter: searches first when nothing is known of them and they are to be found by themselves, as
/// behind every change of the ports. Lets events go on meanwhile.
void Adapter_Bereithalten(Link& link, AdapterListe& list);

/// Opens the port of the adapter for this purpose; adapters are searched first when none is known, and events go on
/// meanwhile. False when there is no such adapter. A port that cannot be opened shows at the first telegram.
/// @param which AdapterListe::ProgStationPort or EnrollmentPort
bool Adapter_Port_Oeffnen(Link& link, AdapterListe& list, int AdapterListe::*which);

/// Lets events go on for `seconds`, or until the reply has come; it stands in Link::Reply then, whatever came behind
/// it. Other replies are passed over. ReplySeen says the same as the result.
bool Adapter_Antwort_Abwarten(Link& link, double seconds, const AdapterAntwort& reply);

/// The text of an adapter's name as it stands in Link::Reply: 20 bytes from index 8 on, up to the first 0x00,
/// without blanks at its end.
std::string Adapter_Name(const Link& link);

} // namespace qvm
