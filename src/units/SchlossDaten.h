#pragma once

#include <span>

namespace qvm {

struct Kern;

/// What a lock leaves on the disk at once when it is deleted from the table: its EMI state becomes blank
/// (LSOEMIPART.LMT), and its units with their reception setting are those of a new lock (T6WRSSISN.TSD). Other records
/// stay. False on a file error: both files are then as they were, as far as the disk takes it.
/// @param locks numbers, 1 to 200; others are passed over
bool SchlossDaten_Leeren(const Kern& kern, std::span<const int> locks);

} // namespace qvm
