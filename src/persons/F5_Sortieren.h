#pragma once

#include "Grid.h"

namespace qvm {

/// Sorts the users by name, whole rows moving: capital and small letters are one, umlauts stand with their base
/// letters, rows of equal names keep their order, and rows without a name come last. The numbers of column 0 stay where
/// they are. The name "ZZZZZZZZZZ" means a row without a name, and is cleared.
void F5_Sortieren(Grid& users);

} // namespace qvm
