#pragma once

#include "Grid.h"

#include <vector>

namespace qvm {

/// Sorts the users by name, whole rows moving: capital and small letters are one, umlauts stand with their base
/// letters, rows of equal names keep their order, and rows without a name come last. The numbers of column 0 stay where
/// they are. The name "ZZZZZZZZZZ" means a row without a name, and is cleared. Gives, for rows 0 to 251 of the grid,
/// the row where each stood before.
std::vector<int> F5_Sortieren(Grid& users);

} // namespace qvm
