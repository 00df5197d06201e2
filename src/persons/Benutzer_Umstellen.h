#pragma once

namespace qvm {

struct Kern;

/// Converts the older user files at the start, before any window: the oldest form (records of 262 bytes) into
/// BX08HAZJNT9.UBW, then BX08HAZJNT9.UBW (read as records of 276 bytes) into the present user table. The first step
/// writes records of 419 bytes and the second reads records of 276: a directory that still holds the oldest file comes
/// out with displaced records, one that holds only BX08HAZJNT9.UBW converts cleanly.
/// A file error ends the conversion, false, with nothing lost; see Datei_Umstellen.
bool Benutzer_Umstellen(Kern& kern);

} // namespace qvm
