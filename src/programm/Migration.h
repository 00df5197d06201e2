#pragma once

namespace qvm {

struct Kern;

/// Converts older data files at the start, before any window: the two steps of the user files, then the unit file.
/// False when a step failed; the others run all the same.
bool Dateien_Umstellen(Kern& kern);

} // namespace qvm
