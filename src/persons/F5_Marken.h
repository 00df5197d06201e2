#pragma once

#include "Grid.h"

namespace qvm {

/// The cell of a mark: 'X' or 'F' in its colour and size; any other character clears it. The rest of the cell stays.
void Marke_Setzen(Grid& users, int row, int column, char mark);

/// Steps a mark of the user table: none to "X", "X" to "F" when the user has a finger, else to none, "F" to none.
/// Nothing happens beside the marks (columns 7 to 207), for a lock without a name and for a row without a user.
void Marke_Schalten(Grid& users, int row, int column);

} // namespace qvm
