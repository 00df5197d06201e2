#pragma once

#include "Programmierlauf.h"

#include <cstdint>

/// Conditions and steps of the reply chain where a lock's events are read.
namespace qvm {

/// History is read in this run, first or only.
bool Historie_Gewuenscht(const Programmierlauf& run);
/// Events are wanted and not all there yet, or are lost: nothing may be programmed or erased.
bool Historie_Aussteht(const Programmierlauf& run);

// Conditions of reply 0x17.
/// Events are wanted, and this is neither a record nor the end, or nobody has asked for it.
bool Historie_Kein_Satz(const Programmierlauf& run);
bool Historie_Satz(const Programmierlauf& run);
/// A record beyond those that a lock can hold.
bool Historie_Satz_Zuviel(const Programmierlauf& run);
/// The run ends with the reading: nothing else was wanted, or events that were asked for could not be kept.
bool Historie_Ende_Des_Laufs(const Programmierlauf& run);
/// A reply, of any code, that would lead to an erase or a write although events are wanted and not all there.
bool Gefaehrdet_Ereignisse(const Programmierlauf& run, std::uint8_t code);

// Steps.
void Historie_Start(Programmierlauf& run);
void Historie_Weiter(Programmierlauf& run);
/// What came is no part of the reading: the session is closed, and nothing is erased.
void Historie_Gebrochen(Programmierlauf& run);
/// The same of records without end.
void Historie_Endlos(Programmierlauf& run);
void Historie_Beendet(Programmierlauf& run);
void Historie_Vorbei(Programmierlauf& run);

} // namespace qvm
