#pragma once

#include "Link.h"

#include <cstdint>

/// The rows of the reply chain that read a lock's events. Used by Antwort_Verteilen.cpp only.
namespace qvm {

// Conditions of reply 0x17.
/// Events are wanted, and this is neither a record nor the end, or nobody has asked for it.
bool Historie_Kein_Satz(const Link& l);
bool Historie_Satz(const Link& l);
/// A record beyond those that a lock can hold.
bool Historie_Satz_Zuviel(const Link& l);
/// The run ends with the reading: nothing else was wanted, or events that were asked for could not be kept.
bool Historie_Ende_Des_Laufs(const Link& l);
/// A reply, of any code, that would lead to an erase or a write although events are wanted and not all there.
bool Gefaehrdet_Ereignisse(const Link& l, std::uint8_t code);

// Actions.
void Historie_Start(Link& l);
void Historie_Weiter(Link& l);
/// The events of the lock are not all there: the session is closed, and nothing is erased.
void Historie_Verlieren(Link& l, HistoryLoss why);
void Historie_Beendet(Link& l);
void Historie_Vorbei(Link& l);

} // namespace qvm
