#pragma once

#include "Report.h"

namespace qvm {

struct Kern;

/// Asks for a file and writes the report to it as PDF: the file is whole afterwards, or what it was before. Says what
/// became of it. A dialog that was cancelled writes nothing, and nothing is said.
void Bericht_Sichern(const Kern& kern, const Report& report);

/// Prints the report, where that can be done. Says when it failed; nothing when the operator cancelled it.
void Bericht_Drucken(const Kern& kern, const Report& report);

} // namespace qvm
