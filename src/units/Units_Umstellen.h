#pragma once

namespace qvm {

struct Kern;

/// Converts the older unit file DEVRSSISN.TSD (records of 12 bytes) into T6WRSSISN.TSD at the start, behind the user
/// files: mode, always-on and the three times go over, all else becomes blank. A file error gives false with nothing
/// lost; see Datei_Umstellen.
bool Units_Umstellen(Kern& kern);

} // namespace qvm
