#pragma once

#include "VirtualSystem.h"

#include <vector>

namespace qvm {

struct Kern;

/// Devices such as the data files of an installation name them: every lock and every unit with a serial number, each on
/// the radio channel on which it was left, with the administrator code 123456 and nothing programmed. Of two with one
/// serial number the first counts. A file that cannot be read names none.
VirtualWorld Gebaeude_Welt(Kern& kern);

/// The adapters that the installation knows, and those that there must be: one for programming at least, which comes
/// first, and one for enrolment.
std::vector<VirtualAdapter> Gebaeude_Adapter(const Kern& kern);

} // namespace qvm
