#pragma once

#include "UserTable.h"

#include <string>

namespace qvm {

struct Kern;

/// The guard of the save: the table must have no gap above a name, and no key without a name. Shows the first fault
/// with its user number and gives false. The last row is tested for neither.
bool F5_Pruefen(Kern& kern, const UserTable& table);

/// Writes rows 2 to 251 as records 1 to 250 of BX10X52WUJ9.UBW, all or nothing, and clears UserDirty. What a longer
/// file holds behind record 250 stays. False when F5_Pruefen refuses, when the table was not loaded completely, or on a
/// file error: the file and UserDirty are then as before.
bool F5_Speichern(Kern& kern, UserTable& table);

/// The record of a row of the grid. Every field is written, filled or not.
std::string F5_Satz(const UserTable& table, int row);

} // namespace qvm
