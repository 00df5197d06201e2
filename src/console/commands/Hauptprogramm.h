#pragma once

#include "Befehle.h"

namespace qvm {

/// Runs the command of a parsed command line.
ExitCode Befehl_Ausfuehren(const Umgebung& world, const Console& console, const Optionen& options);

} // namespace qvm
