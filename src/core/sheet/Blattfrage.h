#pragma once

#include "Blattplan.h"
#include "Kern.h"

#include <functional>
#include <optional>
#include <string_view>

/// The import of a spreadsheet in a window: which file, and whether what it changes is wanted.
namespace qvm {

/// Asks for a file, plans what it changes, shows that and asks whether it is to be taken. Nothing when a dialog was
/// cancelled and, with a message, for a file that cannot be read, for one that is no sheet and for one that changes
/// nothing. Return alone takes nothing. The file's bytes are wiped: an export of users holds their codes.
/// @param kind name of the file type, as in the export
/// @param make the plan of these bytes
std::optional<Blattplan> Blattplan_Holen(const Kern& kern, std::string_view kind,
                                         const std::function<Blattplan(std::string_view)>& make);

} // namespace qvm
