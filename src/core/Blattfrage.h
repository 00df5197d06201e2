#pragma once

#include "Blattplan.h"
#include "Kern.h"

#include <optional>
#include <string>
#include <string_view>

/// The import of a spreadsheet in a window: which file, and whether what it changes is wanted.
namespace qvm {

/// Asks for a file and reads it. Nothing when the dialog was cancelled, and, with a message, when it cannot be read.
/// @param kind name of the file type, as in the export
std::optional<std::string> Blatt_Oeffnen(const Kern& kern, std::string_view kind);

/// Shows what a plan changes and refuses, and asks whether it is to be taken. False, with a message, for a sheet that
/// is none and for one that changes nothing. Return alone takes nothing.
bool Blattplan_Fragen(const Kern& kern, const Blattplan& plan);

} // namespace qvm
