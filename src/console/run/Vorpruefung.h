#pragma once

#include "Console.h"
#include "Programm.h"

#include <string_view>
#include <vector>

namespace qvm {

/// Looks, before a code is asked for, at the settings and with `programming` at the data files that the runs of these
/// locks rest on. False when nothing may be sent; that was reported as the fault of the command `word`. With `force`
/// the operator goes on although data files are damaged: each is told, and the windows do not ask. Nothing helps
/// against files that cannot be read, nor against damaged settings. Fills the lock grid.
bool Dateien_Vorpruefen(const Console& console, std::string_view word, Programm& program, const std::vector<int>& locks,
                        bool programming, bool force);

} // namespace qvm
